#include "trees/fichier_arbre.h"

#include <algorithm>
#include <cctype>

#include "trees/sortie_arbre.h"

namespace arbolix {

int ModeDuFichier(const std::string& chemin) {
    std::string ext = chemin.size() >= 4 ? chemin.substr(chemin.size() - 4) : std::string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext == ".svg") return kModeSvg;
    if (ext == ".rtf") return kModeRtf;
    return -1;
}

EtatFichier EcrireArbre(const DessinArbre& d, int mode, const std::string& chemin, const Options& options,
                        const MesureTexte& mesure) {
    if (mode != kModeSvg) return {false, "Format de fichier non pris en charge : " + chemin};
    const std::string contenu = ArbreSvg(d, options, mesure);
    return EcrireFichierSur(chemin, [&](std::ostream& o) {
        o.write(contenu.data(), static_cast<std::streamsize>(contenu.size()));
        return static_cast<bool>(o);
    });
}

}  // namespace arbolix
