// Sous-commande exporter de arbolix-cli : les rapports texte du dialogue Exports, sans fenêtre.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// exporter ligne-de-vie|ascendance|adresses|eclair|isoles FICHIER.ged SORTIE [options] : écrit
// le rapport dans SORTIE d'un seul coup ; --date fixe « aujourd'hui ».
int CommandeExporter(const Arguments& args, Sorties& s);

inline constexpr const char* kAideExporter =
    "exporter ligne-de-vie|ascendance|adresses|eclair|isoles|actes FICHIER.ged SORTIE [--personne N] "
    "[--date JJ/MM/AAAA] [--selection ascendants|descendants|apparentes] [--toutes|--sans-toutes] "
    "[--annees-confidentielles N,M] [--annees-seules] [--sauf-decede] [--ordre 0|1|2] [--texte FICHIER] "
    "[--minimum N] [--type N|M|D] [--lieu LIEU] : un rapport texte (code page 1252, CR LF)";

}  // namespace arbolix::cli
