#include "card/queues.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(Queues, EcritureEtRelecture) {
    struct Cas {
        std::string rangee;
        LectureQueue attendu;
    };
    const Cas cas[] = {
        {"MARTIN Jean" + Queue('P', 12), {'P', 12}},
        {"x 1750" + Queue('F', 999999), {'F', 999999}},
        {"Note" + Queue('N', 0), {'N', 0}},
        {"Bapt\xEAme" + Queue('\xB0', 7), {'\xB0', 7}},
        // Sept chiffres : la relecture n'en garde que six, comme la règle.
        {"Trop loin" + Queue('P', 1234567), {'1', 234567}},
        {"P00012", {0, 0}},
        {"", {0, 0}},
    };
    for (const auto& c : cas) EXPECT_EQ(LireQueue(c.rangee), c.attendu) << c.rangee;
    EXPECT_EQ(Queue('M', 3), " M000003");
    EXPECT_EQ(ConjointDeRangee("x 1750 Anne DELMAS P000003 F000006"), 3);
    EXPECT_EQ(ConjointDeRangee("F000006"), 0);
}

}  // namespace
}  // namespace arbolix
