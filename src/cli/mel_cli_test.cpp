#include "cli/mel_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"

namespace arbolix::cli {
namespace {

namespace fs = std::filesystem;

TEST(CliMel, EcritLeMessageOuDitPourquoiNon) {
    const fs::path d = essais::DossierEssai("cli-mel");
    fs::create_directories(d);
    const fs::path donnees = fs::path(ARBOLIX_DONNEES) / "outils";
    std::ostringstream sortie, erreurs;
    Sorties s{sortie, erreurs};
    const std::string eml = (d / "m.eml").string();
    ASSERT_EQ(CommandeMel({"--frontiere", "0123456789", (donnees / "petit.ged").string(), eml}, s), 0)
        << erreurs.str();
    EXPECT_EQ(sortie.str(), eml + "\n");
    EXPECT_EQ(essais::LireOctets(eml), essais::LireOctets(donnees / "petit.eml"));

    for (const Arguments& a : {Arguments{}, Arguments{"--frontiere", "12a", "x.ged"},
                               Arguments{"a", "b", "c"}, Arguments{(d / "absent.ged").string()}}) {
        std::ostringstream sortie2, erreurs2;
        Sorties s2{sortie2, erreurs2};
        EXPECT_EQ(CommandeMel(a, s2), 2);
        EXPECT_EQ(sortie2.str(), "");
        EXPECT_FALSE(erreurs2.str().empty());
    }
    fs::remove_all(d);
}

}  // namespace
}  // namespace arbolix::cli
