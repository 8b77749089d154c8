// Sous-commande sql de arbolix-cli : le script SQL d'un livre de familles.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// sql FICHIER.EPA : écrit FICHIER.sql à côté et les nombres de lignes ; le journal de lecture
// va aux erreurs. 2 avec un message quand le nom ou le fichier GEDCOM ne conviennent pas.
int CommandeSql(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
