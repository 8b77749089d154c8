// L'arbre en RTF : l'en-tête de document des rapports, puis chaque case et chaque trait en forme
// dessinée (zone de texte et ligne), page après page.
#pragma once

#include <string>

#include "store/base.h"
#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace arbolix {

// Le document entier, fermé par son "}". La page et ses marges sont celles du dessin.
std::string ArbreRtf(const DessinArbre& d, Base& base, const Options& options, const MesureTexte& mesure);

// Un nombre de millimètres en twips, au format "##000".
std::string Twips(double mm);

}  // namespace arbolix
