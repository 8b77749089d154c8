// Facteurs d'agrandissement des fenêtres, réglés par le bouton Tester des options.
#pragma once

#include <string>
#include <string_view>

namespace arbolix {

// Taille d'écran pour laquelle les fenêtres ont été dessinées.
inline constexpr int kLargeurConception = 1024;
inline constexpr int kHauteurConception = 768;

struct Zoom {
    float ZoomLargeur = 1, ZoomHauteur = 1, ZoomPolice = 1;
};

struct ResultatZoom {
    Zoom zoom;
    std::string PourcentZoom;  // nouveau texte de la case
};

// Sans ZoomFen, aucun agrandissement. Sinon PourcentZoom / 100, ou, pour une valeur
// entre parenthèses comme "(125)", la taille de l'écran rapportée à celle de conception,
// arrondie au pourcent et rendue entre parenthèses. Un pourcentage illisible vaut 100.
ResultatZoom TesterZoom(bool zoomFen, std::string_view pourcentZoom, int largeurEcran, int hauteurEcran);

}  // namespace arbolix
