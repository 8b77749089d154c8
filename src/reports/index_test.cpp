#include "reports/index.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

std::string Index(std::vector<LigneIndex> lignes) {
    TexteRapport f(kFichierRtf);
    EcrireLignesIndex(std::move(lignes), f);
    return f.Fermer();
}

TEST(Index, SuitesResserreesEtNomsPareils) {
    const struct {
        std::vector<LigneIndex> lignes;
        const char* attendu;
    } cas[] = {
        {{{"MARTIN", 5}, {"DUPONT", 4}, {"DUPONT", 3}}, "DUPONT : 3-4.\\line \r\nMARTIN : 5.\\par \r\n"},
        // Une famille deux fois sous le même nom ne compte qu'une fois ; trois de suite font une plage.
        {{{"X", 7}, {"X", 1}, {"X", 2}, {"X", 2}, {"X", 3}, {"X", 9}, {"X", 10}},
         "X : 1-3, 7, 9-10.\\par \r\n"},
        // "Élise" se range juste après "Elise", avant "Elisée" ; la casse ne sépare pas les noms.
        {{{"Elis\xE9"
           "e",
           1},
          {"\xC9lise", 2},
          {"Elise", 3},
          {"ELISE", 4}},
         "Elise : 3-4.\\line \r\n\\'c9lise : 2.\\line \r\nElis\\'e9"
         "e : 1.\\par \r\n"},
        {{}, ""},
    };
    for (const auto& c : cas) EXPECT_EQ(Index(c.lignes), c.attendu);
}

TEST(Index, CleIndex) {
    EXPECT_LT(CleIndex("Elise"), CleIndex("\xC9lise"));
    EXPECT_LT(CleIndex("\xC9lise"), CleIndex("Elis\xE9"
                                             "e"));
    EXPECT_EQ(CleIndex("\xC0"
                       "a-"),
              std::string("AA-\x01") + "100");
}

}  // namespace
}  // namespace arbolix
