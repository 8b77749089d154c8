#include "platform/cp1252.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(Cp1252, AllerRetourDeTousLesOctetsSignifiants) {
    std::string tous;
    for (int c = 1; c < 256; ++c)
        if (c != 0x81 && c != 0x8D && c != 0x8F && c != 0x90 && c != 0x9D) tous += static_cast<char>(c);
    EXPECT_EQ(Utf8VersCp1252(Cp1252VersUtf8(tous)), tous);
    EXPECT_EQ(Cp1252VersUtf8("\x80\x8C\xE9"), "\xE2\x82\xAC\xC5\x92\xC3\xA9");  // € Œ é
}

TEST(Cp1252, Utf8HorsPageOuAbime) {
    EXPECT_EQ(Utf8VersCp1252("\xE4\xB8\xAD"), "?");        // un idéogramme
    EXPECT_EQ(Utf8VersCp1252("a\xC3"), "a\xC3");            // coupé en fin de texte
    EXPECT_EQ(Utf8VersCp1252("\xC3(x"), "\xC3(x");          // suite invalide
    EXPECT_EQ(Utf8VersCp1252("\xF0\x9F\x98\x80!"), "?!");   // hors du plan de base
}

}  // namespace
}  // namespace arbolix
