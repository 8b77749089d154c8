#include "store/chaines.h"

#include <gtest/gtest.h>

#include "platform/en_meme_temps.h"

namespace arbolix {
namespace {

TEST(Chaines, ValeurNumerique) {
    const std::pair<const char*, std::int64_t> cas[] = {
        {"1750", 1750}, {" 17 50x", 1750}, {"s 17", 0},      {"50 ?", 50}, {"3/50", 3},
        {"", 0},        {"-5", 0},         {"12@ INDI", 12}, {"\t7\n", 7},
    };
    for (const auto& [texte, valeur] : cas) EXPECT_EQ(ValeurNumerique(texte), valeur) << texte;
    EXPECT_GT(ValeurNumerique(std::string(1000, '9')), 0);  // plafonnée, sans débordement
}

TEST(Chaines, CasseEnCodePage1252) {
    EXPECT_EQ(EnMinuscules("APR\xC8S \xC0 \x8C\x9F\xD7"), "apr\xE8s \xE0 \x9C\xFF\xD7");
    EXPECT_EQ(EnMajuscules("apr\xE8s \xE0 \x9C\xFF\xF7\xDF"), "APR\xC8S \xC0 \x8C\x9F\xF7\xDF");
}

TEST(Chaines, RemplacementsSansRelecture) {
    EXPECT_EQ(Remplacer("00/00/1750", "00/", ""), "1750");
    EXPECT_EQ(Remplacer("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(Remplacer("abc", "", "x"), "abc");
    std::string s = "xx ab ab ab";
    EXPECT_EQ(RemplacerTout(s, "ab", "c", 4), 2u);  // le début n'est pas touché
    EXPECT_EQ(s, "xx ab c c");
    // Allongement sur place depuis la fin : motifs en tête, en queue, collés, avec ou sans marge.
    for (const std::size_t marge : {0u, 1000u}) {
        std::string t = "@ N" + std::string(300, '.') + "@ N@ N.@ N";
        t.reserve(t.size() + marge);
        EXPECT_EQ(RemplacerTout(t, "@ N", "@ N\r\n1 T", 1), 3u);
        EXPECT_EQ(t, "@ N" + std::string(300, '.') + "@ N\r\n1 T@ N\r\n1 T.@ N\r\n1 T");
    }
}

TEST(Chaines, ChercherDansUnLongTexte) {
    // Au-delà de 256 octets, un motif à octet rare est cherché par cet octet : faux candidats,
    // candidat commencé avant le départ, motif coupé par la fin.
    const std::string t = std::string(300, '.') + "@ @ NOTE @ NOTE " + std::string(300, '.') + "x@ NOT";
    const struct {
        std::string_view motif;
        std::size_t depuis, attendu;
    } cas[] = {
        {"@ NOTE ", 0, 302},          {"@ NOTE ", 303, 309},
        {" NOTE", 303, 303},          {"@ NOTE ", 310, std::string::npos},
        {"x@ NOT", 0, 616},           {"@ NOTE", 611, std::string::npos},
        {"\t", 0, std::string::npos},
    };
    for (const auto& c : cas)
        EXPECT_EQ(Chercher(t, c.motif, c.depuis), c.attendu) << c.motif << " " << c.depuis;
}

TEST(Chaines, GrandTexteEnDeuxMoities) {
    // Assez grand pour deux fils : le motif à cheval sur le milieu, ou chevauchant sa place
    // précédente de part et d'autre du milieu.
    const std::size_t moitie = kSeuilDeuxMoities / 2;
    for (const std::string_view milieu : {"aba", "ababa", "abababa", "xabab"})
        for (std::size_t decalage = 0; decalage <= milieu.size(); ++decalage) {
            // Le milieu du texte tombe decalage + 1 octets après le début du motif du milieu.
            std::string t(moitie - decalage, 'x');
            t.append(milieu).append(moitie + decalage - milieu.size(), 'x').append("aba");
            std::vector<std::size_t> attendu;
            for (auto p = t.find("aba"); p != std::string::npos; p = t.find("aba", p + 3))
                attendu.push_back(p);
            EXPECT_EQ(Places(t, "aba"), attendu) << milieu << " " << decalage;
            EXPECT_EQ(Contient(t, "abab"), t.find("abab") != std::string::npos) << milieu << " " << decalage;
        }
    EXPECT_FALSE(Contient(std::string(kSeuilDeuxMoities, 'x'), "y"));
}

TEST(Chaines, Motifs) {
    EXPECT_TRUE(Comme("Jean/Dupont/x/", "?*/?*/?*/"));
    EXPECT_FALSE(Comme("Jean/Dupont/", "?*/?*/?*/"));
    EXPECT_TRUE(Comme("@N12@", "@*@"));
    EXPECT_TRUE(Comme("les r\xE9sidences", "*r?side*"));
    EXPECT_TRUE(Comme("12/1750", "##/####"));
    EXPECT_FALSE(Comme("1a/1750", "##/####"));
    EXPECT_TRUE(Comme("", "*"));
    EXPECT_FALSE(Comme(std::string(100000, 'a'), "*b*"));  // sans explosion sur un long texte
}

TEST(Chaines, BlancsEtMorceaux) {
    EXPECT_EQ(SansBlancs("  a b  "), "a b");
    EXPECT_EQ(SansBlancs("   "), "");
    EXPECT_EQ(Droite("abc", 5), "abc");
    EXPECT_EQ(Depuis("0 @I5@ INDI", 4), "I5@ INDI");
    EXPECT_EQ(Depuis("abc", 9), "");
    EXPECT_EQ(SansDoublesBlancs("a  b   c"), "a b c");
    EXPECT_EQ(Zeros(7, 4), "0007");
    EXPECT_TRUE(EstNumerique("0123"));
    EXPECT_FALSE(EstNumerique(" 12"));
}

}  // namespace
}  // namespace arbolix
