#include "dates/saisie_date.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(SaisieDate, HuitCaracteresPassentAuLieu) {
    const std::pair<const char*, bool> cas[] = {
        {"12031750", true},   {"1203175", false},        {"120317501", false},
        {"12/03/1750", true}, {"vers 12.03.1750", true}, {"apr\xE8s 12-03-1750", true},
        {"+12031750", true},  {"vend1750", false},       {"12vend03", true},
    };
    for (const auto& [texte, complete] : cas) EXPECT_EQ(DateSaisieComplete(texte), complete) << texte;
}

TEST(SaisieDate, JourDeLaSemaine) {
    EXPECT_EQ(JourDeLaSemaineEnLettres("12/03/1750"), "jeudi");
    EXPECT_EQ(JourDeLaSemaineEnLettres("14/07/1789"), "mardi");
    EXPECT_EQ(JourDeLaSemaineEnLettres("03/1750"), "dimanche");
    EXPECT_EQ(JourDeLaSemaineEnLettres("vers 1750"), "");
    EXPECT_EQ(JourDeLaSemaineEnLettres("31/02/1750"), "");
}

TEST(SaisieDate, AnneesEtAges) {
    EXPECT_FALSE(AnneeRevolutionnaire("31/12/1792"));
    EXPECT_TRUE(AnneeRevolutionnaire("1793"));
    EXPECT_TRUE(AnneeRevolutionnaire("vers 1805"));
    EXPECT_FALSE(AnneeRevolutionnaire("1806"));
    EXPECT_EQ(DateDeLAge(1700, "80"), "1780");
    EXPECT_EQ(DateDeLAge(0, "80"), "");
    EXPECT_EQ(DateDeLAge(1700, ""), "");
    EXPECT_EQ(AnneeSaisie("03/50"), 3);
    EXPECT_EQ(AnneeSaisie("entre 1750 et 1760"), 1760);
}

}  // namespace
}  // namespace arbolix
