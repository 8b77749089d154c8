// Ce qu'un rapport reçoit : la base, les réglages, les cases du dialogue Exports, la date du jour,
// l'annulation.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "dates/calendrier_gregorien.h"
#include "platform/progression.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Index de MenuExport : le genre du rapport.
enum TypeExport : int {
    kLigneDeVie = 1,
    kAscendance = 2,
    kDescendance = 3,
    kActes = 4,
    kAdresses = 5,
    kEclair = 6,
    kLivre = 8,
    kPagesHtml = 9,
    kIsoles = 10,
};

// Ce que la numérotation du livre et des pages web lit des menus et de la recherche d'actes.
struct ReglagesLivre {
    std::array<int, 2> ListeTri{0, 2};  // l'ordre des entrées, comme les clés des actes
    int selCochee = 0;                  // l'entrée cochée du menu Sélection (0 à 4, -1 aucune)
    bool avecIsoles = true;             // MenuExport(10) permis : une personne isolée a son entrée
};

struct ContexteExport {
    Base& base;
    const Options& options;
    const OptionsExport& exports;
    // « Aujourd'hui » est donné, jamais lu de l'horloge : deux passes écrivent les mêmes octets.
    DateCalendrier aujourdhui{};
    Progression* progression = nullptr;
    int TypeExport = 0;
    int FormatExport = 1;
    std::int32_t NumPerso = 0;                 // la personne de la fiche
    std::string FichierGedcom{};               // tel que le dialogue Gedcom le montre (1252)
    std::string LibelleSel = "Toute la base";  // ce que la sélection active est (1252)
    // L'heure de création d'un document RTF ; minuit quand le jour est fixé.
    int heure = 0, minute = 0;
    ReglagesLivre livre{};
};

// Lancée quand l'utilisateur annule : le rapport s'arrête au tour de boucle suivant et
// LancerExport la reçoit ; rien n'est écrit.
struct ExportAnnule {};

// Laisse passer les évènements de temps en temps et lance ExportAnnule sur demande.
void TourDeBoucle(const ContexteExport& ctx, std::uint32_t tour);

// Le numéro de fichier dit aux blocs partagés ce qu'ils écrivent : texte, RTF ou HTML.
enum NumeroFichier : int {
    kFichierTexte = 3,
    kFichierRtf = 5,
    kFichierHtml = 7,
};

// Le texte d'un rapport en 1252, lignes terminées par CR LF, comme l'imprime le runtime :
// Ligne ajoute la fin de ligne, Texte non ; une ligne vide après un texte ne fait que le finir.
class TexteRapport {
public:
    explicit TexteRapport(NumeroFichier fichier = kFichierTexte) : fichier_(fichier) {}
    NumeroFichier Fichier() const { return fichier_; }
    void Texte(std::string_view t) {
        octets_.append(t);
        ouverte_ = ouverte_ || !t.empty();
        if (t.size() >= 2 && t.substr(t.size() - 2) == "\r\n") ouverte_ = false;
    }
    void Ligne(std::string_view t = {}) {
        octets_.append(t).append("\r\n");
        ouverte_ = false;
    }
    // Le fichier finit toujours sur une fin de ligne.
    std::string Fermer() {
        if (ouverte_) Ligne();
        return std::move(octets_);
    }
    std::string& Octets() { return octets_; }

private:
    std::string octets_;
    NumeroFichier fichier_;
    bool ouverte_ = false;
};

// La date du jour sous la forme courte "jj/mm/aaaa" des en-têtes.
std::string DateDuRapport(const ContexteExport& ctx);

// Le texte complémentaire du dialogue, suivi d'une ligne vide, quand il y en a un.
void EcrireTexteComp(const ContexteExport& ctx, TexteRapport& f);

}  // namespace arbolix
