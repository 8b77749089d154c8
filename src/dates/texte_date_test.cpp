#include "dates/texte_date.h"

#include <gtest/gtest.h>

namespace arbolix::texte_date {
namespace {

TEST(TexteDate, ValeurNumerique) {
    const std::pair<const char*, std::int64_t> cas[] = {
        {"1750", 1750}, {" 17 50x", 1750}, {"s 17", 0}, {"50 ?", 50}, {"3/50", 3}, {"", 0}, {"-5", 0},
    };
    for (const auto& [texte, valeur] : cas) EXPECT_EQ(Val(texte), valeur) << texte;
    EXPECT_GT(Val(std::string(1000, '9')), 0);  // plafonnée, sans débordement
}

TEST(TexteDate, CasseEnCodePage1252) {
    EXPECT_EQ(MinusculesAnsi("APR\xC8S \xC0 \x8C\x9F\xD7"), "apr\xE8s \xE0 \x9C\xFF\xD7");
    EXPECT_EQ(MajusculesAnsi("apr\xE8s \xE0 \x9C\xFF\xF7\xDF"), "APR\xC8S \xC0 \x8C\x9F\xF7\xDF");
}

TEST(TexteDate, RemplacementsSansRelecture) {
    EXPECT_EQ(RemplacerTout("00/00/1750", "00/", ""), "1750");
    EXPECT_EQ(RemplacerTout("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(RemplacerTout("abc", "", "x"), "abc");
}

}  // namespace
}  // namespace arbolix::texte_date
