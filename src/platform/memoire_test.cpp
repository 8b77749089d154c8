#include "platform/memoire.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace arbolix {
namespace {

// Un fichier assez grand pour se lire en deux moitiés, dont chaque octet dit sa place : une
// moitié mal placée ou lue deux fois se voit. Un fichier plus court qu'annoncé est un échec.
TEST(LireOctets, DeuxMoitiesALeurPlace) {
    const std::string chemin =
        std::filesystem::temp_directory_path() / ("arbolix-octets-" + std::to_string(::getpid()));
    std::string ecrit(40u << 20, '\0');
    for (std::size_t i = 0; i < ecrit.size(); ++i) ecrit[i] = static_cast<char>(i * 7 + i / 4093);
    std::ofstream(chemin, std::ios::binary).write(ecrit.data(), static_cast<std::streamsize>(ecrit.size()));
    for (const std::size_t taille : {std::size_t{10}, ecrit.size()}) {
        std::string lu;
        ASSERT_TRUE(LireOctets(chemin, taille, lu));
        EXPECT_TRUE(lu == ecrit.substr(0, taille)) << taille;
    }
    std::string lu;
    EXPECT_FALSE(LireOctets(chemin, ecrit.size() + 1, lu));
    EXPECT_FALSE(LireOctets(chemin + ".absent", 1, lu));
    std::filesystem::remove(chemin);
}

}  // namespace
}  // namespace arbolix
