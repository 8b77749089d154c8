#include "cli/actes_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "aides/lancer_cli.h"
#include "cli/commandes.h"

namespace arbolix::cli {
namespace {

const std::string kActes = std::string(ARBOLIX_DONNEES) + "/actes/actes.ged";

using essai::Appel;
using essai::Lancer;

std::string Lire(const std::string& f) {
    std::ifstream in(f, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

TEST(CliActes, RangeesTrieesEtCompte) {
    const Appel a = Lancer({"actes", kActes, "--tri", "date-decr,nom"});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie,
              "DUPONT Pierre b03/06/1751 Lyon b000003\n"
              "DUPONT Jean x20/02/1750 Saint-Just MARTIN Marie x000001\n"
              "MARTIN Marie \xC2\xB0"
              "1725 Saint-Just \xC2\xB0"
              "000002\n"
              "DUPONT Jean \xC2\xB0"
              "12/03/1720 Lyon \xC2\xB0"
              "000001\n"
              "4 actes trouv\xC3\xA9s\n");
    const Appel b = Lancer({"actes", kActes, "--types", "D", "--lieu", "Lyon", "--approx", "--de", "1780"});
    EXPECT_EQ(b.sortie, "DUPONT Jean +vers 1780 Lyon +000001\n1 actes trouv\xC3\xA9s\n");
    const Appel c = Lancer({"actes", kActes, "--metier", "Tiss", "--de", "1751", "--a", "1720"});
    EXPECT_EQ(c.sortie, "0 actes trouv\xC3\xA9s\n");
}

TEST(CliActes, RefusSansRienChanger) {
    struct Cas {
        std::vector<std::string> args;
        std::string debutErreur;
    };
    const Cas cas[] = {
        {{"actes", kActes, "--de", "17a0"}, "P\xC3\xA9riode non valide : "},
        {{"actes", kActes, "--a", "99999"}, "P\xC3\xA9riode non valide : "},
        {{"actes", kActes, "--de", "-5"}, "P\xC3\xA9riode non valide : "},
        {{"actes", kActes, "--nom", ""}, "Crit\xC3\xA8re incorrect : "},
        {{"actes", kActes, "--nom", "DUPONT"}, "Trop de types d'acte s\xC3\xA9lectionn\xC3\xA9s : "},
        {{"actes", kActes, "--types", "N,Q"}, "Type d'acte inconnu : Q"},
        {{"actes", kActes, "--tri", "age"}, "Tri inconnu : age"},
        {{"actes", kActes, "--nom", "A", "--lieu", "B"}, "Un seul crit\xC3\xA8re"},
    };
    for (const Cas& c : cas) {
        const Appel a = Lancer(c.args);
        EXPECT_EQ(a.code, 2);
        EXPECT_EQ(a.erreurs.substr(0, c.debutErreur.size()), c.debutErreur) << a.erreurs;
        EXPECT_EQ(a.sortie, "");
    }
}

TEST(CliRemplacer, ValeurNotesEtLieuxPuisRelecture) {
    const auto dossier = std::filesystem::temp_directory_path() / "arbolix-cli-remplacer";
    std::filesystem::create_directories(dossier);
    const std::string sortie = (dossier / "sortie.ged").string();
    Appel a =
        Lancer({"remplacer", "lieu", "Lyon", "Lyon, Rh\xC3\xB4ne", kActes, sortie, "--date", "01/02/2024"});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie.substr(0, 19),
              "2 fiches modifi\xC3\xA9"
              "es");
    a = Lancer({"actes", sortie, "--lieu", "Lyon, Rh\xC3\xB4ne", "--approx"});
    EXPECT_EQ(a.sortie.substr(a.sortie.rfind('\n', a.sortie.size() - 2) + 1), "3 actes trouv\xC3\xA9s\n");
    a = Lancer({"remplacer", "notes", "SAINT", "Saint", sortie, sortie});
    EXPECT_EQ(a.sortie.substr(0, 15), "2 remplacements");
    EXPECT_NE(Lire(sortie).find("n\xE9 \xE0 Saint-Just"), std::string::npos);
    a = Lancer({"remplacer", "lieux-partout", "saint-just", "St-Just", sortie, sortie});
    EXPECT_EQ(a.sortie.substr(0, 15), "2 remplacements");
    EXPECT_EQ(Lire(sortie).find("PLAC Saint-Just"), std::string::npos);
    // Un texte vide est refusé et le fichier reste tel quel.
    const std::string avant = Lire(sortie);
    a = Lancer({"remplacer", "nom", "DUPONT", "", sortie, sortie});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(Lire(sortie), avant);
    std::filesystem::remove_all(dossier);
}

}  // namespace
}  // namespace arbolix::cli
