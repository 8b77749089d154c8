#include "dates/age.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

struct CasAge {
    const char* naissance;
    std::int16_t annee;
    const char* date;
    bool evenementVisible;
    bool toutes;
    const char* maxi;
    const char* age;
};

TEST(AgeA, Table) {
    const CasAge cas[] = {
        // deux vraies dates : le millésime seul compte, sans limite d'âge
        {"31/12/1750", 1750, "01/01/1751", true, true, "100", "1"},
        {"15/06/1750", 1750, "10/03/1780", true, true, "100", "30"},
        {"12/03/1650", 1650, "12/03/1780", true, true, "100", "130"},
        // sinon les années, bornées par l'âge maximal
        {"1750", 1750, "1780", true, true, "100", "30"},
        {"vers 1750", 1750, "avant 1780", true, true, "100", "30"},
        {"1650", 1650, "1780", true, true, "100", ""},
        {"1680", 1680, "1780", true, true, "100", "100"},
        {"1780", 1780, "1750", true, true, "100", "-30"},
        // forme jj/mm/aaaa sans être une date : l'anniversaire compte
        {"31/02/1750", 1750, "10/01/1780", true, true, "100", "29"},
        {"31/02/1750", 1750, "10/05/1780", true, true, "100", "30"},
        // rien à dire
        {"", 0, "1780", true, true, "100", ""},
        {"1750", 1750, "vers", true, true, "100", ""},
        {"1750", 1750, "", true, true, "100", ""},
        // visibilité : éditeur affiché ou export sans « Toutes »
        {"1750", 1750, "1780", false, true, "100", ""},
        {"1750", 1750, "1780", false, false, "100", "30"},
    };
    for (const auto& c : cas) {
        SCOPED_TRACE(std::string(c.naissance) + " -> " + c.date);
        Acte naissance;
        naissance.Date = c.naissance;
        naissance.Annee = c.annee;
        EXPECT_EQ(AgeA(naissance, c.date, c.evenementVisible, c.toutes, c.maxi), c.age);
    }
}

}  // namespace
}  // namespace arbolix
