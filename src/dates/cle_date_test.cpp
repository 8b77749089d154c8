#include "dates/cle_date.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace arbolix {
namespace {

TEST(CleDate, Formes) {
    const std::pair<const char*, const char*> cas[] = {
        {"12/03/1750", "1750/03/12"},
        {"03/1750", "1750/03/01"},
        {"1/3/1750", "1750/03/01"},
        {"12/03/50", "1950/03/12"},
        {"1750", "1750/00/00"},
        {"950", "0950/00/00"},
        {"avant 1750", "1750/-0/00"},
        {"avant 12/03/1750", "1750/-0/00"},
        {"vers 1750", "1750/0./00"},
        {"apr\xE8s 1750", "1750/0_/00"},
        {"entre 1750 et 1760", "1760/00/00"},
        {"de 1750 \xE0 1760", "1760/00/00"},
        {" \xE0 1760", "1760/00/00"},
        {"12/13/1750", "1750/00/00"},
        {"31/02/1750", "1750/00/00"},
        {"Avant 1750", "1750/00/00"},
        {"vers 17", "0000/0./00"},
        {"mars 1750 ?", "0050/00/00"},  // "50 ?" : le blanc est sauté
        {"11/08", "0000/08/11"},        // jour et mois sans année
        {"31/02", "0001/00/00"},        // ce jour n'existe pas : les 4 derniers caractères
        {"abt", "0000/00/00"},
        {"", "0000/00/00"},
    };
    for (const auto& [texte, cle] : cas) EXPECT_EQ(CleDate(texte), cle) << texte;
}

TEST(CleDate, OrdreDansUneAnnee) {
    const std::vector<std::string> ordre = {
        "vers 1749",  "avant 1750",    "vers 1750",  "1750",       "01/01/1750",
        "30/09/1750", "apr\xE8s 1750", "01/10/1750", "31/12/1750", "avant 1751",
    };
    std::vector<std::string> cles;
    for (const auto& d : ordre) cles.push_back(CleDate(d));
    EXPECT_TRUE(std::is_sorted(cles.begin(), cles.end()));
    EXPECT_EQ(std::adjacent_find(cles.begin(), cles.end()), cles.end());
}

}  // namespace
}  // namespace arbolix
