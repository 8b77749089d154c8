#include "dates/calendrier_gregorien.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(CalendrierGregorien, LireDateCourte) {
    struct Cas {
        const char* texte;
        std::optional<DateCalendrier> attendue;
    };
    const Cas cas[] = {
        {"23/11/2026", DateCalendrier{23, 11, 2026}},
        {"1/2/1750", DateCalendrier{1, 2, 1750}},
        {"29/02/2000", DateCalendrier{29, 2, 2000}},
        {"29/02/1900", std::nullopt},
        {"31/04/2020", std::nullopt},
        {"00/01/2020", std::nullopt},
        {"01/13/2020", std::nullopt},
        {"01/01/99", std::nullopt},
        {"01/01/0099", std::nullopt},
        {"001/01/2020", std::nullopt},
        {"01/01/2020/", std::nullopt},
        {"01-01-2020", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cas) EXPECT_EQ(LireDateCourte(c.texte), c.attendue) << c.texte;
    const DateCalendrier d{14, 7, 1789};
    EXPECT_EQ(LireDateCourte(FormatDateCourte(d)), d);
}

}  // namespace
}  // namespace arbolix
