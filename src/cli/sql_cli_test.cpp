#include "cli/sql_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "aides/dossier_essai.h"

namespace arbolix::cli {
namespace {

namespace fs = std::filesystem;

TEST(CliSql, EcritLeScriptEtSesNombresOuDitPourquoiNon) {
    const fs::path d = essais::DossierEssai("cli-sql");
    fs::create_directories(d);
    fs::copy_file(fs::path(ARBOLIX_DONNEES) / "sql/F54123-Saint_Clement.ged", d / "F54123-Saint_Clement.ged");
    std::ostringstream sortie, erreurs;
    Sorties s{sortie, erreurs};
    EXPECT_EQ(CommandeSql({(d / "F54123-Saint_Clement.EPA").string()}, s), 0) << erreurs.str();
    EXPECT_EQ(sortie.str(), "Script SQL : " + (d / "F54123-Saint_Clement.sql").string() +
                                "\nPersonnes : 4\nFamilles : 1\n\xC3\x89v\xC3\xA8nements : 11\nActes : 7\n"
                                "Ann\xC3\xA9"
                                "es : 1794 \xC3\xA0 1830\n");
    std::ostringstream sortie2, erreurs2;
    Sorties s2{sortie2, erreurs2};
    EXPECT_EQ(CommandeSql({(d / "F1-Saint_Clement.EPA").string()}, s2), 2);
    EXPECT_EQ(sortie2.str(), "");
    EXPECT_NE(erreurs2.str().find("F1-Saint_Clement.EPA ne convient pas \xC3\xA0 l'export SQL"),
              std::string::npos)
        << erreurs2.str();
    fs::remove_all(d);
}

}  // namespace
}  // namespace arbolix::cli
