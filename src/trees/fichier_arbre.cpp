#include "trees/fichier_arbre.h"

#include <algorithm>
#include <cctype>

#include "trees/sortie_arbre.h"
#include "trees/sortie_pdf.h"
#include "trees/sortie_rtf.h"

namespace arbolix {

int ModeDuFichier(const std::string& chemin) {
    std::string ext = chemin.size() >= 4 ? chemin.substr(chemin.size() - 4) : std::string();
    std::transform(ext.begin(), ext.end(), ext.begin(), [](unsigned char c) { return std::tolower(c); });
    if (ext == ".svg") return kModeSvg;
    if (ext == ".rtf") return kModeRtf;
    // Le PDF tient lieu de papier : l'arbre est mis en page comme pour l'imprimante.
    if (ext == ".pdf") return kModeImprimante;
    return -1;
}

const MesureTexte& MesureDuMode(int mode) {
    static const MesureFixe fixe;
    static const MesurePdf pdf;
    if (mode == kModeImprimante) return pdf;
    return fixe;
}

EtatFichier EcrireArbre(const DessinArbre& d, int mode, const std::string& chemin, Base& base,
                        const Options& options, const MesureTexte& mesure) {
    std::string contenu;
    if (mode == kModeSvg) {
        contenu = ArbreSvg(d, options, mesure);
    } else if (mode == kModeRtf) {
        contenu = ArbreRtf(d, base, options, mesure);
    } else if (mode == kModeImprimante) {
        contenu = ArbrePdf(d, options, mesure);
    } else {
        return {false, "Format de fichier non pris en charge : " + chemin};
    }
    return EcrireFichierSur(chemin, [&](std::ostream& o) {
        o.write(contenu.data(), static_cast<std::streamsize>(contenu.size()));
        return static_cast<bool>(o);
    });
}

}  // namespace arbolix
