#include "cli/commandes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "aides/lancer_cli.h"

namespace arbolix::cli {
namespace {

using essai::Appel;
using essai::Lancer;

std::string FichierTemporaire(const std::string& nom, const std::string& contenu) {
    const auto chemin = std::filesystem::temp_directory_path() / nom;
    std::ofstream(chemin, std::ios::binary) << contenu;
    return chemin.string();
}

TEST(Cli, LireAfficheLeJournalEnUtf8PuisLesNombres) {
    const auto f = FichierTemporaire("cli-lire.ged",
                                     "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME Jean /Dupont/\r\n0 @I3@ INDI\r\n"
                                     "1 NAME Ren\xE9 /L\xE9vy/\r\n");
    const auto a = Lancer({"lire", f});
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.sortie,
              "En r\xC3\xA9sum\xC3\xA9 :\n"
              "1 fichier tronqu\xC3\xA9 (sans ligne TRLR)\n"
              "1 fiche vide r\xC3\xA9utilisable\n"
              "\nEn d\xC3\xA9tail :\n"
              "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier pourrait \xC3\xAAtre "
              "tronqu\xC3\xA9 "
              "et incomplet.\n"
              "Info : la fiche 2 est vide et peut \xC3\xAAtre r\xC3\xA9utilis\xC3\xA9"
              "e.\n"
              "Lu : 2 personnes, 0 familles, 0 notes, 0 sources, 0 objets m\xC3\xA9"
              "dias.\n");
    std::filesystem::remove(f);
}

TEST(Cli, FichierAbsentOptionInconnueEtUsage) {
    auto a = Lancer({"lire", "/nulle/part.ged"});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs, "Le fichier /nulle/part.ged est introuvable.\n");
    EXPECT_TRUE(a.sortie.empty());
    a = Lancer({"lire", "--sans-tout", "x.ged"});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs, "Option inconnue : --sans-tout\n");
    EXPECT_EQ(Lancer({}).code, 2);
    EXPECT_EQ(Lancer({"voler"}).code, 2);
}

// Un fichier qui n'est pas du GEDCOM n'est pas une base vide : code 2 et la raison.
TEST(Cli, CeQuiNEstPasDuGedcomEstRefuse) {
    const std::string donnees = ARBOLIX_DONNEES;
    for (const char* nom : {"vide.ged", "binaire.ged", "texte.ged"}) {
        const std::string f = donnees + "/ouverture/" + nom;
        const auto a = Lancer({"lire", f});
        EXPECT_EQ(a.code, 2) << nom;
        EXPECT_TRUE(a.sortie.empty()) << a.sortie;
        EXPECT_TRUE(a.erreurs.starts_with("Le fichier " + f + " ")) << a.erreurs;
        EXPECT_EQ(Lancer({"enregistrer", f, "/tmp/arbolix-jamais-ecrit.ged"}).code, 2);
    }
    EXPECT_FALSE(std::filesystem::exists("/tmp/arbolix-jamais-ecrit.ged"));
    const auto a = Lancer({"lire", donnees + "/caracteres/utf16le.ged"});
    EXPECT_EQ(a.code, 0) << a.erreurs;
}

TEST(Cli, EnregistrerSurUnFichierEnLectureSeuleLeLaisse) {
    const auto entree =
        FichierTemporaire("cli-entree3.ged", "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME A /B/\r\n0 TRLR\r\n");
    const auto sortie = FichierTemporaire("cli-protege.ged", "ancien");
    std::filesystem::permissions(sortie,
                                 std::filesystem::perms::owner_read | std::filesystem::perms::group_read);
    const auto a = Lancer({"enregistrer", entree, sortie});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs,
              "Le fichier " + sortie +
                  " n'a pas pu \xC3\xAAtre enregistr\xC3\xA9 : le fichier est en lecture seule. L'ancien "
                  "fichier est rest\xC3\xA9 intact.\n");
    std::ifstream f(sortie, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()), "ancien");
    std::filesystem::remove(entree);
    std::filesystem::remove(sortie);
}

TEST(Cli, RenumeroterPrendLeFichierNommeCommeFichierParDefaut) {
    const auto f = FichierTemporaire(
        "cli-renum.ged",
        "0 HEAD\r\n0 @I7@ INDI\r\n1 NAME A /B/\r\n0 @I9@ INDI\r\n1 NAME C /D/\r\n0 TRLR\r\n");
    EXPECT_NE(Lancer({"lire", f}).sortie.find("Info : la fiche 1 est vide"), std::string::npos);
    EXPECT_EQ(Lancer({"lire", "--renumeroter", f}).sortie,
              "Lu : 2 personnes, 0 familles, 0 notes, 0 sources, 0 objets m\xC3\xA9"
              "dias.\n");
    std::filesystem::remove(f);
}

TEST(Cli, ListeMontreLesRangeesEnUtf8EtRefuseUneSorteInconnue) {
    const auto f =
        FichierTemporaire("cli-liste.ged", "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME Ren\xE9 /L\xE9vy/\r\n0 TRLR\r\n");
    const auto a = Lancer({"liste", "personnes", f});
    EXPECT_EQ(a.code, 0);
    // La première personne est la racine de la numérotation Sosa faite à la lecture.
    EXPECT_EQ(a.sortie, " Ajouter... P000002\nL\xC3\xA9vy Ren\xC3\xA9 S1 P000001\n");
    EXPECT_EQ(Lancer({"liste", "parents", f}).code, 2);
    EXPECT_EQ(Lancer({"liste", "personnes"}).code, 2);
    EXPECT_EQ(Lancer({"liste", "notes", "/nulle/part.ged"}).code, 2);
    std::filesystem::remove(f);
}

TEST(Cli, EnregistrerLitPuisEcritToutAvecLesCases) {
    const auto entree = FichierTemporaire("cli-entree.ged",
                                          "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME Jean /Dupont/\r\n0 @I3@ INDI\r\n"
                                          "1 NAME Ren\xE9 /L\xE9vy/\r\n0 TRLR\r\n");
    const auto sortie = (std::filesystem::temp_directory_path() / "cli-sortie.ged").string();
    auto a = Lancer({"enregistrer", "--sans-dates", entree, sortie});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie,
              "En r\xC3\xA9sum\xC3\xA9 :\n1 fiche vide r\xC3\xA9utilisable\n\nEn d\xC3\xA9tail :\n"
              "Info : la fiche 2 est vide et peut \xC3\xAAtre r\xC3\xA9utilis\xC3\xA9"
              "e.\n"
              "Enregistr\xC3\xA9 : " +
                  sortie + "\n");
    std::ifstream f(sortie, std::ios::binary);
    const std::string ecrit{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    // La case Dates décochée vaut aussi pour la ligne DATE de l'en-tête : l'année seule.
    const auto personnes = ecrit.find("\r\n0 @I1@");
    ASSERT_NE(personnes, std::string::npos) << ecrit;
    EXPECT_TRUE(ecrit.starts_with("0 HEAD\r\n1 SOUR Arbolix\r\n"));
    const auto date = ecrit.rfind("\r\n1 DATE ", personnes) + 2;
    const std::string ligne = ecrit.substr(date, ecrit.find('\r', date) - date);
    EXPECT_EQ(ligne.size(), 11u) << ligne;
    EXPECT_EQ(ligne.find_first_not_of("0123456789", 7), std::string::npos) << ligne;
    EXPECT_EQ(
        ecrit.substr(personnes),
        "\r\n0 @I1@ INDI\r\n1 NAME Jean /Dupont/\r\n1 SEX  \r\n0 @I3@ INDI\r\n1 NAME Ren\xE9 /L\xE9vy/\r\n"
        "1 SEX  \r\n0 TRLR\r\n");
    std::filesystem::remove(entree);
    std::filesystem::remove(sortie);
}

TEST(Cli, EnregistrerEchoueSansToucherAuxFichiers) {
    const auto entree =
        FichierTemporaire("cli-entree2.ged", "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME A /B/\r\n0 TRLR\r\n");
    auto a = Lancer({"enregistrer", entree, "/nulle/part/sortie.ged"});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(
        a.erreurs,
        "Le fichier /nulle/part/sortie.ged n'a pas pu \xC3\xAAtre enregistr\xC3\xA9 : le dossier /nulle/part "
        "est introuvable.\n");
    a = Lancer({"enregistrer", "/nulle/part.ged", entree});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs, "Le fichier /nulle/part.ged est introuvable.\n");
    a = Lancer({"enregistrer", entree});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs,
              "usage : arbolix-cli enregistrer [options] [--selection ascendants|descendants|"
              "apparentes --personne N [--tous-descendants]] ENTREE.ged SORTIE.ged\n");
    std::filesystem::remove(entree);
}

// Vérifier écrit le rapport de la fenêtre ; estimer et nettoyer écrivent le fichier changé.
TEST(Cli, VerifierEstimerNettoyer) {
    const auto f = FichierTemporaire("cli-verif.ged",
                                     "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME Jean /Dupont/\r\n1 SEX M\r\n"
                                     "1 BIRT\r\n2 DATE 1700\r\n2 PLAC , Lyon,\r\n1 FAMS @F1@\r\n"
                                     "0 @I2@ INDI\r\n1 NAME Ren\xE9 /Dupont/\r\n1 SEX M\r\n"
                                     "0 @I3@ INDI\r\n1 NAME Marie /Durand/\r\n1 SEX F\r\n1 FAMS @F2@\r\n"
                                     "0 @F1@ FAM\r\n1 HUSB @I1@\r\n1 CHIL @I2@\r\n"
                                     "0 @F2@ FAM\r\n1 WIFE @I3@\r\n0 TRLR\r\n");
    auto a = Lancer({"verifier", "--brut", f});
    EXPECT_EQ(a.code, 0);
    EXPECT_EQ(a.sortie, "Famille 2\r\ninfo : lien erron\xE9 corrig\xE9.\r\n\r\n");
    a = Lancer({"verifier", f});
    EXPECT_EQ(a.sortie, "Famille 2\r\ninfo : lien erron\xC3\xA9 corrig\xC3\xA9.\r\n\r\n");
    a = Lancer({"verifier", "--inconnue", f, f});
    EXPECT_EQ(a.code, 2);
    a = Lancer({"verifier", "--date", "31/02/2020", f});
    EXPECT_EQ(a.code, 2);
    EXPECT_EQ(a.erreurs, "Date invalide : 31/02/2020 (JJ/MM/AAAA attendu)\n");
    EXPECT_EQ(Lancer({"verifier", f, "--date"}).erreurs, "Valeur manquante apr\xC3\xA8s --date\n");

    const auto sortie = (std::filesystem::temp_directory_path() / "cli-verif-sortie.ged").string();
    a = Lancer({"estimer", "naissances", f, sortie});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie.substr(0, a.sortie.find('\n')), "1 acte calcul\xC3\xA9. Il reste 1 acte vide.");
    std::ifstream lu(sortie, std::ios::binary);
    const std::string ecrit((std::istreambuf_iterator<char>(lu)), std::istreambuf_iterator<char>());
    EXPECT_NE(ecrit.find("2 DATE ABT 1730"), std::string::npos);

    a = Lancer({"nettoyer", "lieux", f, sortie});
    EXPECT_EQ(a.code, 0) << a.erreurs;
    std::ifstream relu(sortie, std::ios::binary);
    const std::string propre((std::istreambuf_iterator<char>(relu)), std::istreambuf_iterator<char>());
    EXPECT_NE(propre.find("2 PLAC Lyon\r\n"), std::string::npos);
    EXPECT_EQ(Lancer({"nettoyer", "tout", f, sortie}).code, 2);
    std::filesystem::remove(f);
    std::filesystem::remove(sortie);
}

}  // namespace
}  // namespace arbolix::cli
