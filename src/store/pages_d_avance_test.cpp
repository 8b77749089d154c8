#include "store/pages_d_avance.h"

#include <gtest/gtest.h>

#include <thread>

namespace arbolix {
namespace {

struct Fiche {
    int valeur = 7;
};

constexpr std::int32_t kPage = static_cast<std::int32_t>(Tableau<Fiche>::kTaillePage);

// Chaque page neuve, qu'elle vienne du second fil ou du tableau, est entière et vierge ; ce
// qu'on y écrit reste, y compris après l'arrêt du fil, qui laisse le tableau faire ses pages.
TEST(PagesDAvance, PagesViergesPrisesAuFilPuisFaitesSurPlace) {
    Tableau<Fiche> t(0);
    t.Dimensionner(200 * kPage);
    {
        PagesDAvance<Fiche> avance(t, 3);
        while (avance.Pretes() < 3) std::this_thread::yield();
        t[5].valeur = 1;
        // Plus de pages que le fil n'en tient d'avance : certaines se font sur place, sans attente.
        for (std::int32_t p = 1; p < 150; ++p) {
            const std::int32_t n = p * kPage + p % kPage;
            for (std::int32_t i = p * kPage; i < (p + 1) * kPage; ++i) ASSERT_EQ(t[i].valeur, 7) << i;
            t[n].valeur = p;
        }
    }
    EXPECT_EQ(t[5].valeur, 1);
    for (std::int32_t p = 1; p < 150; ++p) EXPECT_EQ(t[p * kPage + p % kPage].valeur, p);
    t[199 * kPage].valeur = 2;
    EXPECT_EQ(t[199 * kPage].valeur, 2);
}

}  // namespace
}  // namespace arbolix
