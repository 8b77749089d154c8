#include "store/texte.h"

#include <gtest/gtest.h>

#include <string>

namespace arbolix {
namespace {

TEST(Texte, CourtEtLongGardentLeursOctets) {
    for (std::size_t n : {0u, 1u, 14u, 15u, 16u, 17u, 100u, 70000u}) {
        std::string s(n, 'x');
        for (std::size_t i = 0; i < n; ++i) s[i] = static_cast<char>(0x80 + i % 120);
        Texte t(s);
        EXPECT_EQ(t.size(), n);
        EXPECT_EQ(t.vue(), s);
        EXPECT_EQ(t.c_str()[n], '\0');
        Texte copie = t;
        EXPECT_EQ(copie, t);
        Texte deplace = std::move(copie);
        EXPECT_EQ(deplace, t);
        EXPECT_TRUE(copie.empty());
    }
}

TEST(Texte, AjoutsPassantLaLimiteDuCourt) {
    Texte t;
    std::string attendu;
    for (int i = 0; i < 5000; ++i) {
        const std::string morceau = "ligne " + std::to_string(i) + "\r\n";
        t += morceau;
        attendu += morceau;
        ASSERT_EQ(t.vue(), attendu);
    }
    t = "court";
    EXPECT_EQ(t, "court");
    EXPECT_EQ(t.size(), 5u);
}

TEST(Texte, AffectationDeSaPropreSousPartie) {
    Texte t("un texte assez long pour le tas");
    t = t.vue().substr(3, 5);
    EXPECT_EQ(t, "texte");
    Texte c("abcdefghij");
    c = c.vue().substr(2);
    EXPECT_EQ(c, "cdefghij");
    t += t.vue();
    EXPECT_EQ(t, "textetexte");
}

// Les copies partagent le bloc long : changer l'une ne doit jamais toucher les autres.
TEST(Texte, UneCopieQuiChangeLaisseLesAutres) {
    const std::string lieu = "Saint-Claude, 39, Jura, Franche-Comt\xE9, France";
    Texte a(lieu);
    Texte b = a, c = a, d = a, e;
    EXPECT_EQ(a.data(), b.data());
    e = c;
    e = e;
    b += ", hameau";
    c = "court";
    d = d.vue().substr(6);
    e = Texte(lieu).vue().substr(0, 20);
    Texte f = a;
    f.clear();
    EXPECT_EQ(a.vue(), lieu);
    EXPECT_EQ(b.vue(), lieu + ", hameau");
    EXPECT_EQ(c, "court");
    EXPECT_EQ(d.vue(), lieu.substr(6));
    EXPECT_EQ(e.vue(), lieu.substr(0, 20));
    Texte g = a;
    a = std::move(g);
    EXPECT_EQ(a.vue(), lieu);
}

TEST(Texte, TientDansSeizeOctets) {
    EXPECT_EQ(sizeof(Texte), 16u);
}

}  // namespace
}  // namespace arbolix
