// La fiche familiale imprimée : une famille, ses deux conjoints et ses enfants, en lignes qui
// coulent au curseur de l'imprimante, données ici comme une suite de morceaux.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "dates/calendrier_gregorien.h"
#include "reports/pdf.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

inline constexpr std::string_view kTitreFicheFamille = "Fiche familiale";
inline constexpr std::string_view kUnionASelectionner =
    "Vous devez s\xE9lectionner une union pour imprimer ce rapport.\n"
    "Si la personne n'a pas d'union, affichez la fiche d'un de ses parents.";
// La police et le corps de la fiche : Times New Roman sur l'imprimante, Times en PDF.
inline constexpr std::string_view kPoliceFicheFamille = "Times New Roman";
inline constexpr int kCorpsFicheFamille = 12;

// Un ordre d'impression : du texte (1252), gras ou non, qui finit la ligne ou laisse le
// curseur derrière lui. Un texte peut porter des CR LF (les notes) : chacun est un retour.
struct MorceauFiche {
    std::string texte;
    bool gras = false;
    bool finLigne = false;
    friend bool operator==(const MorceauFiche&, const MorceauFiche&) = default;
};

// La fiche de la famille f ; fichierGedcom tel que la fenêtre Gedcom le montre (1252).
// Vide quand f n'est pas une famille de la base.
std::vector<MorceauFiche> FicheFamille(const Base& base, const Options& options, std::int32_t f,
                                       std::string_view fichierGedcom, const DateCalendrier& aujourdhui);

// Un morceau posé sur la page : page et ligne à partir de 0, x dans l'unité de la mesure.
struct PlaceFiche {
    int page = 0;
    int ligne = 0;
    double x = 0;
    std::string texte;
    bool gras = false;
};
// Largeur d'un texte 1252 dans la police de la fiche, normale ou grasse.
using MesureFiche = std::function<double(std::string_view texte, bool gras)>;

// Fait couler les morceaux comme au curseur d'une imprimante : une ligne trop longue pour
// largeurLigne est coupée au dernier blanc qui tient et reprend sous la marge de dix blancs ;
// une page compte lignesParPage lignes. Sert le PDF comme l'imprimante de la fenêtre.
std::vector<PlaceFiche> DisposerFiche(const std::vector<MorceauFiche>& morceaux, const MesureFiche& mesure,
                                      double largeurLigne, int lignesParPage);

// La fiche en PDF A4 : Times 12, une ligne sous l'autre, les lignes trop longues coupées aux
// blancs et reprises à la marge, une nouvelle page quand la page est pleine.
std::string FicheFamillePdf(const std::vector<MorceauFiche>& morceaux, std::string_view titre);

}  // namespace arbolix
