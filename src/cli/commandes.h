// Sous-commandes de arbolix-cli : une table, chacune lit ses options et appelle le noyau.
#pragma once

#include <ostream>

namespace arbolix::cli {

// Sorties injectées pour que les tests comparent exactement ; rend le code de sortie.
int Executer(int argc, char** argv, std::ostream& sortie, std::ostream& erreurs);

}  // namespace arbolix::cli
