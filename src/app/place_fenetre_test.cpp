#include "app/place_fenetre.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

constexpr Cadre kPortable{0, 0, 1366, 768};

TEST(PlacerDansEcran, PlacesAbsurdesRameneesDansLEcran) {
    const struct {
        Cadre voulu, attendu;
    } cas[] = {
        {{100, 50, 800, 600}, {100, 50, 800, 600}},          // déjà dedans : intacte
        {{-500, -300, 800, 600}, {0, 0, 800, 600}},          // négative
        {{100000, 100000, 800, 600}, {566, 168, 800, 600}},  // loin à droite et en bas
        {{10, 10, 100000, 100000}, {0, 0, 1366, 768}},       // plus grande que l'écran
        {{10, 10, 0, -4}, {10, 10, 400, 300}},               // taille nulle : le minimum
        {{1300, 700, 800, 600}, {566, 168, 800, 600}},       // à cheval sur le bord
    };
    for (const auto& c : cas)
        EXPECT_EQ(PlacerDansEcran(c.voulu, kPortable, 400, 300), c.attendu) << c.voulu.x << "," << c.voulu.y;
    // Un second écran à droite du premier : ses coordonnées sont gardées.
    EXPECT_EQ(PlacerDansEcran({1400, 20, 800, 600}, {1366, 0, 1920, 1080}, 400, 300),
              (Cadre{1400, 20, 800, 600}));
    // Un écran plus petit que le minimum : la fenêtre prend l'écran.
    EXPECT_EQ(PlacerDansEcran({0, 0, 0, 0}, {0, 0, 300, 200}, 400, 300), (Cadre{0, 0, 300, 200}));
}

TEST(PlacerACote, ADroiteAGaucheSinonContreLeBord) {
    const struct {
        Cadre fiche;
        int x;
    } cas[] = {
        {{0, 0, 1000, 700}, 1000},    // la place à droite
        {{600, 10, 1000, 700}, 200},  // à gauche
        {{0, 0, 1700, 740}, 1520},    // presque plein écran : contre le bord droit
    };
    for (const auto& c : cas) EXPECT_EQ(PlacerACote(c.fiche, 400, 700, {0, 0, 1920, 1080}).x, c.x);
    EXPECT_EQ(PlacerACote({0, 0, 1366, 740}, 400, 900, kPortable), (Cadre{966, 0, 400, 768}));
}

}  // namespace
}  // namespace arbolix
