#include "gedcom/index_lieux.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace arbolix {
namespace {

// Des milliers de lieux font grandir la table plusieurs fois : chacun reste retrouvé, à la même
// adresse, et n'est nouveau qu'à sa première lecture ; un lieu long vaut comme un court.
TEST(IndexLieux, ChaqueLieuUneFoisMalgreLesAgrandissements) {
    IndexLieux index;
    std::vector<const Texte*> gardes;
    bool nouveau = false;
    for (int i = 0; i < 3000; ++i) {
        const std::string lieu = (i % 2 ? "Saint-Martin-aux-Ch\xEAnes, 39, Jura " : "L") + std::to_string(i);
        gardes.push_back(&index.Garder(lieu, nouveau));
        EXPECT_TRUE(nouveau) << lieu;
        EXPECT_EQ(gardes.back()->vue(), lieu);
    }
    for (int i = 0; i < 3000; ++i) {
        const std::string lieu = (i % 2 ? "Saint-Martin-aux-Ch\xEAnes, 39, Jura " : "L") + std::to_string(i);
        EXPECT_EQ(&index.Garder(lieu, nouveau), gardes[static_cast<std::size_t>(i)]) << lieu;
        EXPECT_FALSE(nouveau) << lieu;
    }
    EXPECT_TRUE(index.Garder("", nouveau).empty());
    EXPECT_TRUE(nouveau);
}

}  // namespace
}  // namespace arbolix
