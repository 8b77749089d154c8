// Lance une sous-commande de arbolix-cli comme le terminal, sorties gardées pour comparer.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/commandes.h"

namespace arbolix::essai {

struct Appel {
    int code;
    std::string sortie;
    std::string erreurs;
};

inline Appel Lancer(std::vector<std::string> args) {
    args.insert(args.begin(), "arbolix-cli");
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    std::ostringstream sortie, erreurs;
    const int code = cli::Executer(static_cast<int>(argv.size()), argv.data(), sortie, erreurs);
    return {code, sortie.str(), erreurs.str()};
}

}  // namespace arbolix::essai
