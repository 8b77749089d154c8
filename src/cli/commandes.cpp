#include "cli/commandes.h"

namespace arbolix::cli {

int Executer(int, char**, std::ostream&, std::ostream& erreurs) {
    erreurs << "usage : arbolix-cli lire FICHIER.ged\n";
    return 2;
}

}  // namespace arbolix::cli
