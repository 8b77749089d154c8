// Sous-commande mel de arbolix-cli : le message .eml qui porte un fichier GEDCOM.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// mel FICHIER.ged [SORTIE.eml] : écrit le message (par défaut FICHIER.ged.eml dans le dossier
// temporaire du système) et affiche son chemin ; 2 avec un message quand il ne s'écrit pas.
// --frontiere CHIFFRES fixe la frontière, pour que deux sorties se comparent octet pour octet.
int CommandeMel(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
