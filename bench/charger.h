// Lecture d'un fichier pour un banc : sans fenêtre ni progression, toute la base sélectionnée
// comme après une ouverture.
#pragma once

#include <string>

#include "store/base.h"

namespace arbolix::bench {

// Le fichier nommé en premier argument, sinon celui d'un million de personnes que
// gen_gedcom.py --persons 1000000 --seed 1 écrit dans /tmp.
inline std::string FichierDuBanc(int argc, char** argv) {
    return argc > 1 ? argv[1] : "/tmp/arbolix-reel-1000000.ged";
}

// Faux, avec un mot sur la sortie, quand le fichier ne se lit pas.
bool ChargerFichier(Base& base, const std::string& chemin, bool remplirListes = false);
// La même, qui dit combien de personnes ont été lues et en combien de temps.
bool ChargerEtAnnoncer(Base& base, const std::string& chemin);

}  // namespace arbolix::bench
