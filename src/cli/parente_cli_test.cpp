#include "cli/parente_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "aides/lancer_cli.h"
#include "cli/commandes.h"

namespace arbolix::cli {
namespace {

const std::string kCousins = std::string(ARBOLIX_DONNEES) + "/parente/cousins.ged";

using essai::Appel;
using essai::Lancer;

TEST(CliParente, SosaUneLigneParVisiteAvecLesImplexes) {
    const Appel a = Lancer({"sosa", kCousins});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie,
              "1 MARTIN Pierre S1\n2 MARTIN Jean S2\n3 DURAND Marie S3\n4 MARTIN Louis S4\n5 PETIT Rose S5\n"
              "6 DURAND Paul S6\n7 MARTIN Anne S7\n8, 14 MARTIN Jacques S8\n9, 15 BLANC Jeanne S9\n"
              "14, 8 MARTIN Jacques S8\n15, 9 BLANC Jeanne S9\n"
              "10 anc\xC3\xAAtres trouv\xC3\xA9s pour MARTIN Pierre\n");
    const Appel b = Lancer({"sosa", kCousins, "2", "--max-gen", "1"});
    EXPECT_EQ(b.sortie,
              "1 MARTIN Jean S1\n2 MARTIN Louis S2\n3 PETIT Rose S3\n"
              "2 anc\xC3\xAAtres trouv\xC3\xA9s pour MARTIN Jean\n");
}

TEST(CliParente, UnePersonneQuiEstSonPropreAncetreEstSignaleeALaLecture) {
    const auto f = (std::filesystem::temp_directory_path() / "cli-boucle.ged").string();
    // 1 est le mari de la famille dont il est l'enfant.
    std::ofstream(f, std::ios::binary)
        << "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME A /B/\r\n1 FAMC @F1@\r\n1 FAMS @F1@\r\n"
           "0 @F1@ FAM\r\n1 HUSB @I1@\r\n1 CHIL @I1@\r\n0 TRLR\r\n";
    const Appel a = Lancer({"lire", f});
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.erreurs,
              "Alerte : B A (fiche 1) est son propre anc\xC3\xAAtre : sa branche s'arr\xC3\xAAte \xC3\xA0 sa "
              "seconde entr\xC3\xA9"
              "e.\n");
    std::filesystem::remove(f);
}

TEST(CliParente, ListeDeParente) {
    const Appel a = Lancer({"parente", kCousins, "2", "3"});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie, "2 branches en commun\nBLANC Jeanne S9 S7 P000011\nMARTIN Jacques S8 S6 P000010\n");
}

TEST(CliParente, MauvaisesEntrees) {
    struct Cas {
        std::vector<std::string> args;
        std::string erreur;
    };
    const Cas cas[] = {
        {{"sosa", kCousins, "4"}, "La fiche 4 n'est pas une personne de " + kCousins + ".\n"},
        {{"parente", kCousins, "2"}, "usage : arbolix-cli parente FICHIER.ged DECUJUS AUTRE\n"},
        {{"enregistrer", "--selection", "cousins", "--personne", "2", kCousins, "x.ged"},
         "S\xC3\xA9lection inconnue : cousins (ascendants, descendants ou apparentes)\n"},
        {{"enregistrer", "--selection", "ascendants", kCousins, "x.ged"},
         "--selection demande --personne N (un num\xC3\xA9ro de fiche).\n"},
    };
    for (const auto& c : cas) {
        const Appel a = Lancer(c.args);
        EXPECT_EQ(a.code, 2);
        EXPECT_EQ(a.erreurs, c.erreur);
    }
}

TEST(CliParente, EnregistrerNEcritQueLaSelection) {
    const auto sortie = (std::filesystem::temp_directory_path() / "cli-sel-asc.ged").string();
    const Appel a = Lancer({"enregistrer", "--selection", "ascendants", "--personne", "2", kCousins, sortie});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.erreurs,
              "Num\xC3\xA9rotation Sosa-Stradonitz : 4 anc\xC3\xAAtres trouv\xC3\xA9s pour MARTIN Jean\n");
    std::ifstream f(sortie, std::ios::binary);
    std::string ligne, personnes, familles;
    while (std::getline(f, ligne)) {
        if (ligne.find(" INDI") != std::string::npos) personnes += ligne.substr(2, ligne.find(' ', 2) - 2);
        if (ligne.find(" FAM\r") != std::string::npos) familles += ligne.substr(2, ligne.find(' ', 2) - 2);
    }
    // Jean, ses parents Louis et Rose, ses grands-parents Jacques et Jeanne ; pas son fils ni sa femme.
    EXPECT_EQ(personnes, "@I2@@I5@@I7@@I10@@I11@");
    EXPECT_EQ(familles, "@F1@@F2@");
    std::filesystem::remove(sortie);
}

}  // namespace
}  // namespace arbolix::cli
