#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "acts/tmao.h"
#include "aides/dossier_essai.h"
#include "aides/lancer_cli.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

TEST(TmaoCli, ConvertirEtTxt2Tm) {
    const fs::path d = essais::DossierEssai("tmao-cli");
    fs::create_directories(d);
    const std::string tab = (d / "actes.txt").string();
    std::ofstream(tab, std::ios::binary)
        << "Nom\tPrenom\r\nDUPONT\tJean\t\t\t\t\tMARTIN\tMarie\t\t\t\t\t12/02/1750\r\n";
    const essai::Appel t = essai::Lancer({"txt2tm", tab, "--date", "01/02/2026"});
    ASSERT_EQ(t.code, 0) << t.erreurs;
    EXPECT_NE(t.sortie.find("actes.TM : 1 actes\n_commune_ 1750-1750"), std::string::npos) << t.sortie;
    EXPECT_NE(t.sortie.find("Conversion informatique : 2026"), std::string::npos);

    const std::string tm = (d / "actes.TM").string(), ged = (d / "sortie.ged").string();
    const essai::Appel sansType = essai::Lancer({"tmao", tm, ged});
    EXPECT_EQ(sansType.code, 2);
    EXPECT_NE(sansType.erreurs.find("--type"), std::string::npos);
    EXPECT_FALSE(fs::exists(ged));

    const essai::Appel c =
        essai::Lancer({"tmao", tm, ged, "--type", "M", "--lieu", "Nancy", "--date", "01/02/2026"});
    ASSERT_EQ(c.code, 0) << c.erreurs;
    std::ifstream f(ged, std::ios::binary);
    const std::string texte((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    EXPECT_NE(texte.find("1 MARR\r\n2 DATE 12 FEB 1750\r\n2 PLAC Nancy\r\n"), std::string::npos) << texte;

    const struct {
        std::vector<std::string> args;
        const char* message;
    } refus[] = {
        {{"tmao", tm, (d / "x.txt").string(), "--mode", "2"}, "--mode 2"},
        {{"tmao", tm, (d / "x.doc").string()}, ".rtf, .txt ou .ged"},
        {{"tmao", (d / "absent.TM").string(), (d / "x.txt").string()}, "absent.TM"},
        {{"txt2tm", tm}, "octets binaires"},
    };
    for (const auto& r : refus) {
        const essai::Appel a = essai::Lancer(r.args);
        EXPECT_EQ(a.code, 2);
        EXPECT_NE(a.erreurs.find(r.message), std::string::npos) << a.erreurs;
    }
    EXPECT_FALSE(fs::exists(d / "x.txt"));

    // L'export des mariages relit le GEDCOM écrit ci-dessus.
    const essai::Appel e = essai::Lancer({"exporter", "actes", ged, (d / "M54123.txt").string(), "--type",
                                          "M", "--lieu", "Nancy", "--date", "01/02/2026"});
    ASSERT_EQ(e.code, 0) << e.erreurs;
    std::ifstream n(d / "M54123.txt", std::ios::binary);
    const std::string csv((std::istreambuf_iterator<char>(n)), std::istreambuf_iterator<char>());
    EXPECT_NE(csv.find("\r\nNIMEGUE-V3;Nancy;M;;12/02/1750;;DUPONT;Jean;"), std::string::npos) << csv;
    fs::remove_all(d);
}

}  // namespace
}  // namespace arbolix
