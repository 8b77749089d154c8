#include "card/fichiers_lies.h"

#include <gtest/gtest.h>

#include <fstream>

namespace arbolix {
namespace {

TEST(FichiersLies, TelQuelPuisDossierDesImagesPuisDossierDuGedcom) {
    namespace fs = std::filesystem;
    const fs::path racine = fs::temp_directory_path() / "arbolix-fichiers-lies";
    fs::remove_all(racine);
    fs::create_directories(racine / "images" / "actes");
    fs::create_directories(racine / "gedcom");
    std::ofstream(racine / "images" / "actes" / "bapt\xC3\xAAme.jpg") << "x";
    std::ofstream(racine / "gedcom" / "portrait.png") << "x";
    const std::string images = (racine / "images").string() + "/";
    const fs::path gedcom = racine / "gedcom";

    EXPECT_EQ(TrouverFichierLie("actes/bapt\xEAme.jpg", images, gedcom),
              racine / "images" / "actes" / "bapt\xC3\xAAme.jpg");
    EXPECT_EQ(TrouverFichierLie("actes\\bapt\xEAme.jpg", images, gedcom),
              racine / "images" / "actes" / "bapt\xC3\xAAme.jpg");
    EXPECT_EQ(TrouverFichierLie("C:\\Mes images\\portrait.png", images, gedcom), gedcom / "portrait.png");
    const std::string absolu = (gedcom / "portrait.png").string();
    EXPECT_EQ(TrouverFichierLie(absolu, "", {}), gedcom / "portrait.png");
    EXPECT_EQ(TrouverFichierLie("absent.jpg", images, gedcom), std::nullopt);
    EXPECT_EQ(TrouverFichierLie("", images, gedcom), std::nullopt);
    fs::remove_all(racine);
}

}  // namespace
}  // namespace arbolix
