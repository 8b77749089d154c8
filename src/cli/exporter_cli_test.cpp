#include "cli/exporter_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "aides/dossier_essai.h"
#include "aides/lancer_cli.h"
#include "cli/commandes.h"
#include "gedcom/comparaison_test.h"

namespace arbolix::cli {
namespace {

namespace fs = std::filesystem;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "rapports";
const std::string kRiche = (kDonnees / "riche.ged").string();

using essai::Appel;
using essai::Lancer;

struct CliExporter : ::testing::Test {
    fs::path dossier = essais::DossierEssai("exporter");
    void SetUp() override { fs::create_directories(dossier); }
    void TearDown() override { fs::remove_all(dossier); }
};

// Les mêmes octets que le rapport lancé de la fenêtre, « aujourd'hui » fixé par --date.
TEST_F(CliExporter, LesRapportsEgalentLeursReferences) {
    const std::string texte = (kDonnees / "texte.txt").string();
    struct Cas {
        std::vector<std::string> args;
        const char* reference;
    } cas[] = {
        {{"ascendance", "--texte", texte}, "ancetres-toutes.txt"},
        {{"ascendance", "--sans-toutes", "--texte", texte}, "ancetres-table.txt"},
        {{"ligne-de-vie", "--personne", "4"}, "lignevie.txt"},
        {{"eclair"}, "eclair.txt"},
        {{"isoles"}, "isoles.txt"},
    };
    for (auto& c : cas) {
        const std::string sortie = (dossier / c.reference).string();
        std::vector<std::string> args = {
            "exporter", c.args[0],    kRiche,          sortie,
            "--date",   "23/11/2026", "--sauf-decede", "--annees-confidentielles",
            "75,0"};
        args.insert(args.end(), c.args.begin() + 1, c.args.end());
        const Appel a = Lancer(args);
        ASSERT_EQ(a.code, 0) << a.erreurs;
        EXPECT_TRUE(
            essais::MemesOctets(essais::LireOctets(kDonnees / c.reference), essais::LireOctets(sortie)))
            << c.reference;
    }
}

TEST_F(CliExporter, SelectionEtAnneesSeules) {
    const std::string sortie = (dossier / "adresses.txt").string();
    const Appel a = Lancer({"exporter", "adresses", kRiche, sortie, "--date", "23/11/2026", "--selection",
                            "ascendants", "--personne", "2", "--sans-toutes"});
    ASSERT_EQ(a.code, 0) << a.erreurs;
    // Les ascendants de Paul n'ont pas d'adresse : l'en-tête seul, qui nomme la sélection.
    const std::string t = essais::LireOctets(sortie);
    EXPECT_NE(t.find("S\xE9lection active : Ascendants de DUPONT Paul Henri"), std::string::npos) << t;
    EXPECT_EQ(t.find("SEUL"), std::string::npos);

    const std::string asc = (dossier / "ancetres.txt").string();
    ASSERT_EQ(Lancer({"exporter", "ascendance", kRiche, asc, "--date", "23/11/2026", "--sans-toutes",
                      "--annees-seules", "--annees-confidentielles", "100,0"})
                  .code,
              0);
    const std::string table = essais::LireOctets(asc);
    EXPECT_NE(table.find("DUPONT\tLouis\tcheminot\t\t1999\r\n"), std::string::npos) << table;
    EXPECT_NE(table.find("DUPONT\tJacques\tvigneron\t1900\tvers 1970\r\n"), std::string::npos) << table;
}

// Le livre et la descendance : les cases du cadre RTF viennent des options, le texte de l'extension.
TEST_F(CliExporter, LivreEtDescendance) {
    const std::string famille = (fs::path(ARBOLIX_DONNEES) / "livre" / "famille.ged").string();
    const auto exporter = [&](std::vector<std::string> args) {
        const std::string sortie = (dossier / args[1]).string();
        args = {"exporter", args[0], famille, sortie, "--date", "23/11/2026", "--personne", "1"};
        const Appel a = Lancer(args);
        EXPECT_EQ(a.code, 0) << a.erreurs;
        return essais::LireOctets(sortie);
    };
    std::string livre = exporter({"livre", "livre.rtf"});
    EXPECT_NE(livre.find("{\\title Livre des familles de Famille}"), std::string::npos);
    EXPECT_NE(livre.find("\\cols1\\colsx567"), std::string::npos);
    EXPECT_EQ(livre.find("\\footnote"), std::string::npos);
    const std::string sortie = (dossier / "livre2.rtf").string();
    ASSERT_EQ(Lancer({"exporter", "livre", famille, sortie, "--colonnes", "2", "--notes-bas-de-page"}).code,
              0);
    livre = essais::LireOctets(sortie);
    EXPECT_NE(livre.find("\\cols2\\colsx567"), std::string::npos);
    EXPECT_NE(livre.find("{\\footnote \\pard\\plain \\fs20 \\chftn  Mort de la fi\\'e8vre"),
              std::string::npos);
    EXPECT_TRUE(exporter({"descendance", "d.txt"}).ends_with("\r\n\r\n6 descendants.\r\n"));
    EXPECT_TRUE(exporter({"descendance", "d.rtf"}).starts_with("{\\rtf1\\ansi"));
}

TEST_F(CliExporter, MauvaisesEntreesSansFichier) {
    const std::string sortie = (dossier / "x.txt").string();
    const std::vector<std::vector<std::string>> cas = {
        {"ascendance", kRiche, sortie, "--annees-confidentielles", "cent"},
        {"ascendance", kRiche, sortie, "--personne", "0"},
        {"ascendance", kRiche, sortie, "--ordre", "5"},
        {"ascendance", kRiche, (dossier / "absent" / "x.txt").string()},
        {"ligne-de-vie", kRiche, sortie, "--personne", "14"},
        {"rapport", kRiche, sortie},
        {"livre", kRiche, sortie, "--colonnes", "3"},
        {"descendance", kRiche, sortie, "--colonnes-index", "4"},
    };
    for (auto c : cas) {
        c.insert(c.begin(), "exporter");
        const Appel a = Lancer(c);
        EXPECT_EQ(a.code, 2) << c[1] << " " << c.back();
        EXPECT_FALSE(a.erreurs.empty());
    }
    EXPECT_TRUE(fs::is_empty(dossier));
}

}  // namespace
}  // namespace arbolix::cli
