#include "cli/stats_cli.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/dossier_essai.h"
#include "aides/lancer_cli.h"
#include "gedcom/comparaison_test.h"

namespace arbolix::cli {
namespace {

namespace fs = std::filesystem;

const std::string kFamille = std::string(ARBOLIX_DONNEES) + "/stats/famille.ged";

TEST(CliStats, ChoixSelectionEtRefus) {
    const auto tout = essai::Lancer({"stats", kFamille, "--date", "01/01/2026"});
    ASSERT_EQ(tout.code, 0) << tout.erreurs;
    EXPECT_EQ(tout.sortie.rfind("Statistiques du fichier famille.ged\n\n7 personnes\n\n", 0), 0u);
    EXPECT_NE(tout.sortie.find("taux de masculinit\xC3\xA9\t133,3 %\n"), std::string::npos);
    EXPECT_NE(tout.sortie.find("professions les plus fr\xC3\xA9quentes :\nlaboureur\t2\n"),
              std::string::npos);

    // Les descendants de Louis : lui et sa femme ; un seul bloc demandé.
    const auto louis = essai::Lancer({"stats", kFamille, "--choix", "7", "--selection", "descendants",
                                      "--personne", "5", "--date", "01/01/2026"});
    ASSERT_EQ(louis.code, 0) << louis.erreurs;
    EXPECT_NE(louis.sortie.find("\n2 personnes\n"), std::string::npos);
    EXPECT_NE(louis.sortie.find("noms les plus fr\xC3\xA9quents :\nDURAND\t1\nDUPONT\t1\n\n"),
              std::string::npos);
    EXPECT_EQ(louis.sortie.find("r\xC3\xA9partition par sexe"), std::string::npos);

    for (const std::vector<std::string>& a : {std::vector<std::string>{"stats"},
                                              {"stats", kFamille, "--choix", "11"},
                                              {"stats", kFamille, "--choix", "1,,2"},
                                              {"stats", kFamille + ".absent"}}) {
        const auto r = essai::Lancer(a);
        EXPECT_EQ(r.code, 2) << a.back();
        EXPECT_EQ(r.sortie, "");
        EXPECT_FALSE(r.erreurs.empty());
    }
}

TEST(CliFicheFamille, EcritLePdfOuRefuseLaFamille) {
    const fs::path d = essais::DossierEssai("cli-fiche-famille");
    fs::create_directories(d);
    const std::string pdf = (d / "f1.pdf").string();
    const auto r = essai::Lancer({"fiche-famille", kFamille, "1", pdf, "--date", "23/11/2026"});
    ASSERT_EQ(r.code, 0) << r.erreurs;
    const std::string octets = essais::LireOctets(pdf);
    EXPECT_EQ(octets.rfind("%PDF-1.4", 0), 0u);
    EXPECT_NE(octets.find("23/11/2026) Tj"), std::string::npos);
    for (const char* f : {"0", "3", "x"}) {
        const auto refus = essai::Lancer({"fiche-famille", kFamille, f, (d / "non.pdf").string()});
        EXPECT_EQ(refus.code, 2) << f;
        EXPECT_FALSE(fs::exists(d / "non.pdf"));
    }
    fs::remove_all(d);
}

}  // namespace
}  // namespace arbolix::cli
