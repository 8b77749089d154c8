#include "dates/date_gedcom.h"

#include <gtest/gtest.h>

#include <string>

namespace arbolix {
namespace {

TEST(DateGedcom, AvecDatesCompletes) {
    const std::pair<const char*, const char*> cas[] = {
        {"12/03/1750", "12 MAR 1750"},
        {"1/3/1750", "01 MAR 1750"},
        {"00/00/1750", "1750"},
        {"00/03/1750", "MAR 1750"},
        {"03/1750", "MAR 1750"},
        {"1750", "1750"},
        {"31/02/1750", "31/02/1750"},
        {"13/1750", " 1750"},
        {"vers 17", " VERS 17"},
        {"vers 1750", "ABT 1750"},
        {"vers 03/1750", "ABT MAR 1750"},
        {"avant 12/03/1750", "BEF 12 MAR 1750"},
        {"apr\xE8s 1750", "AFT 1750"},
        {"entre 1750 et 1760", "BET 1750 AND 1760"},
        {"entre 12/03/1750 et 03/1760", "BET 12 MAR 1750 AND MAR 1760"},
        {"entre 1750", "ENTRE 1750"},
        {"de 1750 \xE0 1760", "DE 1750 \xC0 1760"},
        {" \xE0 1760", "  \xC0 1760"},  // 7 caractères : la forme mois et année
        {"mars 1750 ?", "MARS 1750 ?"},
    };
    for (const auto& [texte, gedcom] : cas) EXPECT_EQ(DateGedcom(texte, true), gedcom) << texte;
}

TEST(DateGedcom, SansDatesIlNeResteQueLAnnee) {
    EXPECT_EQ(DateGedcom("avant 12/03/1750", false), "1750");
    EXPECT_EQ(DateGedcom("00/03/1750", false), "1750");
    EXPECT_EQ(DateGedcom("950", false), "950");
}

TEST(DateGedcom, PrefixesSansFin) {
    std::string s;
    for (int i = 0; i < 20000; ++i) s += "vers ";
    s += "1750";
    const std::string r = DateGedcom(s, true);
    EXPECT_EQ(r.substr(0, 8), "ABT ABT ");
    EXPECT_EQ(r.substr(r.size() - 4), "1750");
}

}  // namespace
}  // namespace arbolix
