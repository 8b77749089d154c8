// Sous-commande exporter de arbolix-cli : les rapports texte du dialogue Exports, sans fenêtre.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// exporter ligne-de-vie|ascendance|descendance|adresses|eclair|livre|isoles|site FICHIER.ged SORTIE
// [options] : écrit le rapport dans SORTIE d'un seul coup ; --date fixe « aujourd'hui » (et minuit
// pour la création d'un document RTF). Pour le site, SORTIE est la page d'accueil.
int CommandeExporter(const Arguments& args, Sorties& s);

inline constexpr const char* kAideExporter =
    "exporter ligne-de-vie|ascendance|descendance|adresses|eclair|livre|isoles|site FICHIER.ged SORTIE "
    "[--personne N] "
    "[--date JJ/MM/AAAA] [--selection ascendants|descendants|apparentes] [--toutes|--sans-toutes] "
    "[--annees-confidentielles N,M] [--annees-seules] [--sauf-decede] [--ordre 0|1|2] [--texte FICHIER] "
    "[--minimum N] [--colonnes 1|2] [--colonnes-index 1|2|3] [--notes-bas-de-page] [--sources-bas-de-page] "
    "[--numero-unique] [--sans-repeter-epoux] [--index-court] [--autre-union] : un rapport texte ou RTF "
    "(code page 1252, CR LF), ou le site HTML dont SORTIE est la page d'accueil (DOSSIER/index.html)";

}  // namespace arbolix::cli
