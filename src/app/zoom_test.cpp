#include "app/zoom.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(TesterZoom, PourcentOuMesure) {
    struct Cas {
        bool zoomFen;
        const char* pourcent;
        int largeur, hauteur;
        float facteur;
        const char* texte;
    };
    const Cas cas[] = {
        {false, "150", 1920, 1080, 1.0f, "150"},  // zoom coupé : rien ne change
        {true, "150", 1920, 1080, 1.5f, "150"},
        {true, "(125)", 1920, 1080, 1.41f, "(141)"},  // 1080 / 768, arrondi au pourcent
        {true, "()", 1024, 768, 1.0f, "(100)"},
        {true, "(90)", 2048, 1536, 2.0f, "(200)"},
        {true, "abc", 1920, 1080, 1.0f, "100"},
        {true, "", 1920, 1080, 1.0f, "100"},
    };
    for (const auto& c : cas) {
        const auto r = TesterZoom(c.zoomFen, c.pourcent, c.largeur, c.hauteur);
        EXPECT_FLOAT_EQ(r.zoom.ZoomLargeur, c.facteur) << c.pourcent;
        EXPECT_FLOAT_EQ(r.zoom.ZoomHauteur, c.facteur) << c.pourcent;
        EXPECT_FLOAT_EQ(r.zoom.ZoomPolice, 1.0f);
        EXPECT_EQ(r.PourcentZoom, c.texte);
    }
}

}  // namespace
}  // namespace arbolix
