// Un arbre enregistré en fichier (SVG ou RTF), écrit à côté puis mis en place d'un coup.
#pragma once

#include <string>

#include "gedcom/enregistrement.h"
#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace arbolix {

// Le mode d'après l'extension du chemin : kModeSvg pour ".svg", kModeRtf pour ".rtf" (toute
// casse) ; -1 sinon.
int ModeDuFichier(const std::string& chemin);

// Écrit le dessin dans chemin (UTF-8) au format du mode. Un échec laisse l'ancien fichier tel
// qu'il était ; le message nomme le fichier.
EtatFichier EcrireArbre(const DessinArbre& d, int mode, const std::string& chemin, const Options& options,
                        const MesureTexte& mesure);

}  // namespace arbolix
