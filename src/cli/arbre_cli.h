// Sous-commande arbre de arbolix-cli : arbres ascendants, descendant, de parenté et étiquettes en fichier.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

inline constexpr const char* kAideArbre =
    "arbre ascendant|ascendant-a4|descendant|etiquettes|parente FICHIER.ged SORTIE.svg|.rtf|.pdf [--personne "
    "N] "
    "[--autre N] [--generations N] [--page LFxHF] [--marge MF] [--case LCxHC] [--tous-descendants] [--date "
    "JJ/MM/AAAA] : "
    "l'arbre ou la planche d'\xC3\xA9tiquettes";

// Les boîtes de la mise en page vont aux erreurs avec le code 2 ; rien n'est écrit.
int CommandeArbre(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
