// Un arbre enregistré en fichier (SVG ou RTF), écrit à côté puis mis en place d'un coup.
#pragma once

#include <string>

#include "gedcom/enregistrement.h"
#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace arbolix {

// Le mode d'après l'extension du chemin (toute casse) : kModeSvg pour ".svg", kModeRtf pour ".rtf",
// kModeImprimante pour ".pdf" ; -1 sinon.
int ModeDuFichier(const std::string& chemin);

// Écrit le dessin dans chemin (UTF-8) au format du mode, mis en page avec la mesure de ce format
// (MesureDuMode). Un échec laisse l'ancien fichier tel
// qu'il était ; le message nomme le fichier.
const MesureTexte& MesureDuMode(int mode);
EtatFichier EcrireArbre(const DessinArbre& d, int mode, const std::string& chemin, Base& base,
                        const Options& options, const MesureTexte& mesure);

}  // namespace arbolix
