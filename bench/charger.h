// Lecture d'un fichier pour un banc : sans fenêtre ni progression, toute la base sélectionnée
// comme après une ouverture.
#pragma once

#include <string>

#include "store/base.h"

namespace arbolix::bench {

// Faux, avec un mot sur la sortie, quand le fichier ne se lit pas.
bool ChargerFichier(Base& base, const std::string& chemin, bool remplirListes = false);

}  // namespace arbolix::bench
