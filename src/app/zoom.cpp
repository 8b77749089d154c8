#include "app/zoom.h"

#include <algorithm>
#include <cmath>

namespace arbolix {
namespace {

int Pourcent(std::string_view s) {
    int v = 0;
    for (char c : s) {
        if (c < '0' || c > '9' || v > 10000) break;
        v = v * 10 + (c - '0');
    }
    return v;
}

}  // namespace

ResultatZoom TesterZoom(bool zoomFen, std::string_view pourcentZoom, int largeurEcran, int hauteurEcran) {
    ResultatZoom r;
    r.PourcentZoom = std::string(pourcentZoom);
    if (!zoomFen) return r;
    int pourcent;
    const bool mesure = !pourcentZoom.empty() && pourcentZoom.front() == '(';
    if (mesure) {
        // Le plus petit des deux rapports : la fenêtre tient toujours à l'écran.
        const double rapport = std::min(static_cast<double>(largeurEcran) / kLargeurConception,
                                        static_cast<double>(hauteurEcran) / kHauteurConception);
        pourcent = static_cast<int>(std::lround(rapport * 100));
    } else {
        pourcent = Pourcent(pourcentZoom);
    }
    if (pourcent <= 0) pourcent = 100;
    r.PourcentZoom = mesure ? "(" + std::to_string(pourcent) + ")" : std::to_string(pourcent);
    r.zoom.ZoomLargeur = r.zoom.ZoomHauteur = static_cast<float>(pourcent) / 100.0f;
    return r;
}

}  // namespace arbolix
