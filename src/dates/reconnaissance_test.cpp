#include "dates/reconnaissance.h"

#include <gtest/gtest.h>

#include "dates/calendrier_gregorien.h"

namespace arbolix {
namespace {

struct CasDate {
    const char* texte;
    bool date;
    DateCalendrier attendue;
};

TEST(LireDate, FormesJourDAbord) {
    const CasDate cas[] = {
        {"12/03/1750", true, {12, 3, 1750}},
        {"1/3/1750", true, {1, 3, 1750}},
        {"03/1750", true, {1, 3, 1750}},
        {"3/750", true, {1, 3, 750}},
        {"29/02/1752", true, {29, 2, 1752}},
        {"12/03/50", true, {12, 3, 1950}},
        {"12/03/29", true, {12, 3, 2029}},
        {"12/03/30", true, {12, 3, 1930}},
        {"12/03/5", true, {12, 3, 2005}},
        {"31/12/9999", true, {31, 12, 9999}},
        {"31/02/1750", false, {}},
        {"29/02/1700", false, {}},
        {"12/13/1750", false, {}},
        {"00/03/1750", false, {}},
        {"12/00/1750", false, {}},
        {"00/00/1750", false, {}},
        {"12/03/0099", false, {}},
        {"1750", false, {}},
        {"12/3", false, {}},
        {"vers 1750", false, {}},
        {"12/mar/1750", false, {}},
        {"12-03-1750", false, {}},
        {" 12/03/1750", false, {}},
        {"123/03/1750", false, {}},
        {"12/03/1750/", false, {}},
        {"/03/1750", false, {}},
        {"12//1750", false, {}},
        {"", false, {}},
    };
    for (const auto& c : cas) {
        SCOPED_TRACE(c.texte);
        const auto d = LireDate(c.texte);
        ASSERT_EQ(d.has_value(), c.date);
        if (d) {
            EXPECT_EQ(*d, c.attendue);
        }
    }
}

TEST(NumeroJour, OrigineEtAllerRetour) {
    EXPECT_EQ(NumeroJour({30, 12, 1899}), 0);
    EXPECT_EQ(NumeroJour({22, 9, 1792}), -39179);
    EXPECT_EQ(NumeroJour({1, 1, 1900}), 2);
    for (std::int64_t n = -657434; n <= 2958465; n += 37) {
        const auto d = DateDuNumero(n);
        ASSERT_TRUE(d.has_value()) << n;
        ASSERT_EQ(NumeroJour(*d), n);
        ASSERT_GE(d->jour, 1);
        ASSERT_LE(d->jour, JoursDuMois(d->mois, d->annee));
    }
    EXPECT_EQ(DateDuNumero(-657435), std::nullopt);  // 31/12/0099
    EXPECT_EQ(DateDuNumero(2958466), std::nullopt);  // 01/01/10000
}

TEST(JourDeLaSemaine, DimancheEnPremier) {
    EXPECT_EQ(JourDeLaSemaine(NumeroJour({30, 12, 1899})), 6);
    EXPECT_EQ(JourDeLaSemaine(NumeroJour({14, 7, 1789})), 2);
    EXPECT_EQ(JourDeLaSemaine(NumeroJour({1, 1, 2023})), 0);
}

}  // namespace
}  // namespace arbolix
