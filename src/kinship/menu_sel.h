// Le menu Sélection : toute la base, ascendants, descendants, apparentés, et l'état de ses entrées.
#pragma once

#include <cstdint>
#include <string>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Ce que le menu montre : l'entrée cochée, la légende de MenuSelInfo, OU/ET, l'inversion.
struct EtatSelection {
    int Cochee = 0;  // entrée de MenuSel cochée (0 à 4), -1 aucune
    std::string Info;
    std::string Libelle;   // LibelleSel : l'entrée choisie et sa personne
    bool DansTout = true;  // MenuSelDansTout(0) « Sél. dans tout (OU logique) »
    bool Inverse = false;
    bool SelFicheActive = false;  // la case Sel de la fiche ; inactive pour toute la base
};

// La boîte qui termine une commande (titre vide : aucune).
struct BoiteSel {
    std::string Titre;
    std::string Texte;
    bool Erreur = false;
    std::int32_t NbAncetres = -1;  // « Ascendants » refait la numérotation principale : son compte
};

inline constexpr const char* kEntreesSel[] = {"&Toute la base", "&Ascendants", "&Descendants",
                                              "Apparent\xE9s", "Actes..."};

// MenuSel(i) pour i de 0 à 3 ; "Actes..." (4) attend la recherche d'actes et ne change rien.
// personne : la fiche montrée (0 pour aucune) ; avec un nom vide, rien ne se fait.
BoiteSel MenuSel(Base& base, const Options& options, EtatSelection& etat, int i, std::int32_t personne);

// MenuInverseSel et MenuSelDansTout.
void MenuInverseSel(Base& base, EtatSelection& etat);
void MenuSelDansTout(EtatSelection& etat);

}  // namespace arbolix
