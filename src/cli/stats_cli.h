// Sous-commandes stats et fiche-famille de arbolix-cli : les statistiques de la sélection et la
// fiche familiale en PDF.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

inline constexpr std::string_view kAideStats =
    "stats FICHIER.ged [--choix 0,1,...] [--selection ascendants|descendants|apparentes --personne N] "
    "[--date JJ/MM/AAAA] : les statistiques de la s\xC3\xA9lection, en colonnes s\xC3\xA9par\xC3\xA9\x65s "
    "par des tabulations";
inline constexpr std::string_view kAideFicheFamille =
    "fiche-famille FICHIER.ged FAMILLE SORTIE.pdf [--date JJ/MM/AAAA] : la fiche familiale de la famille "
    "FAMILLE, en PDF";

// Le texte des statistiques cochées (toutes sans --choix) ; 2 sur une sélection vide.
int CommandeStats(const Arguments& args, Sorties& s);
// Écrit la fiche en PDF, SORTIE n'étant remplacée qu'une fois entièrement écrite.
int CommandeFicheFamille(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
