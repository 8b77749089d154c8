#include "platform/ini.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace arbolix {
namespace {

namespace fs = std::filesystem;

class Ini : public ::testing::Test {
protected:
    void SetUp() override {
        dossier_ =
            fs::temp_directory_path() / ("arbolix-ini-" + std::to_string(::getpid()) + "-" +
                                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
        ini_ = dossier_ / "arbolix.ini";
    }
    void TearDown() override {
        fs::permissions(dossier_, fs::perms::owner_all, fs::perm_options::add);
        fs::remove_all(dossier_);
    }
    void Poser(const std::string& contenu) { std::ofstream(ini_, std::ios::binary) << contenu; }
    std::string Contenu() const {
        std::ifstream f(ini_, std::ios::binary);
        return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    }
    fs::path dossier_, ini_;
};

TEST_F(Ini, FichierOuCleAbsenteDonneLeDefaut) {
    EXPECT_EQ(LireIni(ini_, "General", "Version", "0"), "0");
    Poser("[General]\r\nVersion=11\r\n");
    EXPECT_EQ(LireIni(ini_, "General", "Verif", "True"), "True");
    EXPECT_EQ(LireIni(ini_, "Autre", "Version", "d"), "d");
    EXPECT_EQ(LireIni(ini_, "General", "Version", "0"), "11");
}

TEST_F(Ini, LectureALaManiereDesFichiersDeProfil) {
    Poser(
        "; commentaire\n[ general ]\n  Version = 11  \nGuillemets=\"a b\"\nVide=\n"
        "Nul=ab" +
        std::string(1, '\0') + "cd\nLongue=" + std::string(300, 'x') + "\n[Suite]\nVersion=12\n");
    EXPECT_EQ(LireIni(ini_, "GENERAL", "version", ""), "11");  // casse ignorée, blancs ôtés
    EXPECT_EQ(LireIni(ini_, "General", "Guillemets", ""), "a b");
    EXPECT_EQ(LireIni(ini_, "General", "Vide", "d"), "");  // clé présente et vide : pas le défaut
    EXPECT_EQ(LireIni(ini_, "General", "Nul", ""), "ab");
    EXPECT_EQ(LireIni(ini_, "General", "Longue", "").size(), 255u);
    EXPECT_EQ(LireIni(ini_, "Suite", "Version", ""), "12");
}

TEST_F(Ini, Booleens) {
    Poser("[P]\nA=True\nB=false\nC=peut-etre\n");
    EXPECT_TRUE(LireBooleenIni(ini_, "P", "A", false));
    EXPECT_FALSE(LireBooleenIni(ini_, "P", "B", true));
    EXPECT_TRUE(LireBooleenIni(ini_, "P", "C", true));
    EXPECT_FALSE(LireBooleenIni(ini_, "P", "D", false));
}

TEST_F(Ini, EcrireUneCleGardeLesAutresLignes) {
    Poser("; note\n[General]\nVersion=10\n\n[Chemins]\nFichier=/a.ged\n");
    ASSERT_TRUE(EcrireIni(ini_, "General", "Version", "11"));
    ASSERT_TRUE(EcrireIni(ini_, "General", "Verif", "False"));      // ajoutée dans sa section
    ASSERT_TRUE(EcrireIni(ini_, "Symboles", "Naissance", "\xB0"));  // section créée
    EXPECT_EQ(Contenu(),
              "; note\r\n[General]\r\nVersion=11\r\nVerif=False\r\n\r\n[Chemins]\r\nFichier=/a.ged\r\n"
              "[Symboles]\r\nNaissance=\xB0\r\n");
    EXPECT_EQ(LireIni(ini_, "Chemins", "Fichier", ""), "/a.ged");
}

TEST_F(Ini, AllerRetourDesValeurs) {
    const std::string valeurs[] = {
        "", "x", "C:\\Mes documents\\", "\xE9t\xE9 \x9C", "a=b", std::string(255, 'z')};
    int i = 0;
    for (const auto& v : valeurs) ASSERT_TRUE(EcrireIni(ini_, "S", "k" + std::to_string(i++), v));
    i = 0;
    for (const auto& v : valeurs) EXPECT_EQ(LireIni(ini_, "S", "k" + std::to_string(i++), "?"), v);
    // Une fin de ligne ne peut pas couper le fichier.
    ASSERT_TRUE(EcrireIni(ini_, "S", "multi", "a\r\nb"));
    EXPECT_EQ(LireIni(ini_, "S", "multi", ""), "a  b");
}

TEST_F(Ini, EcritureImpossibleRendFaux) {
    if (::geteuid() == 0) GTEST_SKIP() << "root écrit partout";
    Poser("[S]\nk=1\n");
    fs::permissions(dossier_, fs::perms::owner_write, fs::perm_options::remove);
    EXPECT_FALSE(EcrireIni(ini_, "S", "k", "2"));
    EXPECT_EQ(LireIni(ini_, "S", "k", ""), "1");  // l'ancien fichier reste entier
}

TEST_F(Ini, EmplacementDuFichier) {
    EXPECT_EQ(CheminIni(dossier_, "/x", "/h"), dossier_ / "arbolix.ini");
    const fs::path absent = dossier_ / "absent";
    EXPECT_EQ(CheminIni(absent, "/cfg", "/home/u"), fs::path("/cfg/arbolix/arbolix.ini"));
    EXPECT_EQ(CheminIni(absent, "", "/home/u"), fs::path("/home/u/.config/arbolix/arbolix.ini"));
    if (::geteuid() != 0) {
        fs::permissions(dossier_, fs::perms::owner_write, fs::perm_options::remove);
        EXPECT_EQ(CheminIni(dossier_, "/cfg", "/h"), fs::path("/cfg/arbolix/arbolix.ini"));
    }
}

TEST_F(Ini, LeDossierDuFichierEstCree) {
    const fs::path profond = dossier_ / "config" / "arbolix" / "arbolix.ini";
    ASSERT_TRUE(EcrireIni(profond, "General", "Version", "11"));
    EXPECT_EQ(LireIni(profond, "General", "Version", ""), "11");
}

}  // namespace
}  // namespace arbolix
