#include "app/partage.h"

#include <gtest/gtest.h>

#include <fstream>

#include "aides/dossier_essai.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

// Installé : /usr/bin/arbolix trouve /usr/share/arbolix/aide/index.html, sans « .. » dans le chemin
// donné au navigateur ; une copie à côté de l'exécutable passe devant.
TEST(Partage, SousDossierInstalleOuACote) {
    const fs::path racine = essais::DossierEssai("partage");
    fs::remove_all(racine);
    fs::create_directories(racine / "bin");
    fs::create_directories(racine / "share" / "arbolix" / "aide");
    const fs::path page = fs::path("aide") / "index.html";
    EXPECT_EQ(CheminPartage(racine / "bin", page), racine / "bin" / "aide" / "index.html");
    std::ofstream(racine / "share" / "arbolix" / page) << "x";
    EXPECT_EQ(CheminPartage(racine / "bin", page), racine / "share" / "arbolix" / "aide" / "index.html");
    EXPECT_EQ(CheminPartage(racine / "bin/", page), racine / "share" / "arbolix" / "aide" / "index.html");
    fs::create_directories(racine / "bin" / "aide");
    std::ofstream(racine / "bin" / page) << "x";
    EXPECT_EQ(CheminPartage(racine / "bin", page), racine / "bin" / "aide" / "index.html");
    fs::remove_all(racine);
}

// root peut écrire dans /usr/bin : un programme installé garde pourtant ses réglages chez
// l'utilisateur ; une copie portable (messages à côté d'elle) les garde à côté d'elle.
TEST(Partage, ReglagesDuProgrammeInstalleHorsDeBin) {
    const fs::path racine = essais::DossierEssai("reglages");
    fs::remove_all(racine);
    fs::create_directories(racine / "bin");
    fs::create_directories(racine / "share" / "arbolix");
    std::ofstream(racine / "share" / "arbolix" / "messages1036.txt") << "x";
    EXPECT_TRUE(ProgrammeInstalle(racine / "bin"));
    EXPECT_EQ(CheminReglages(racine / "bin").filename(), "arbolix.ini");
    EXPECT_NE(CheminReglages(racine / "bin").parent_path(), racine / "bin");
    std::ofstream(racine / "bin" / "messages1036.txt") << "x";
    EXPECT_FALSE(ProgrammeInstalle(racine / "bin"));
    EXPECT_EQ(CheminReglages(racine / "bin"), racine / "bin" / "arbolix.ini");
    fs::remove_all(racine);
}

}  // namespace
}  // namespace arbolix
