#include "acts/nom_epa.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aides/dossier_essai.h"

namespace arbolix {
namespace {

TEST(NomEPA, TireCodeTitreEtLieuDuNom) {
    struct Cas {
        const char* chemin;
        const char* titreLivre;
        int pays;
        int dept;
        const char* code;
    };
    const Cas cas[] = {
        {"/x/F54123-Saint_Clement.EPA", "Livre des familles de Saint Clement", 6, 54, "123"},
        {"\"/x/D57001-Saint_Avold.epa\"  ", "Die Familien von Saint Avold", 4, 57, "001"},
        {"B12X9-Li\xC3\xA8ge_Nord-Est.EPA", "Li\xE8ge Nord-Est", 2, 12, "X9"},
    };
    for (const auto& c : cas) {
        const NomEPA n = LireNomEPA(c.chemin);
        EXPECT_EQ(n.Erreur, "") << c.chemin;
        EXPECT_EQ(n.TitreLivre, c.titreLivre) << c.chemin;
        EXPECT_EQ(n.NumPays, c.pays) << c.chemin;
        EXPECT_EQ(n.NumDept, c.dept) << c.chemin;
        EXPECT_EQ(n.CodeLieu, c.code) << c.chemin;
    }
    const NomEPA n = LireNomEPA("/x/F54123-Saint_Clement.EPA");
    EXPECT_EQ(n.CodeFichier, "F54123");
    EXPECT_EQ(n.NomFichier, "F54123-Saint_Clement.EPA");
    EXPECT_EQ(n.TitreLieu, "Saint Clement");
}

TEST(NomEPA, RefuseUnNomSansCodeOuSansTitre) {
    const std::pair<const char*, const char*> cas[] = {
        {"/x/Saint_Clement.EPA", "pas de \xAB - \xBB"},
        {"/x/F-Saint_Clement.EPA", "son code \xAB F \xBB"},
        {"/x/f54123-Saint_Clement.EPA", "lettre majuscule"},
        {"/x/F5A123-Saint_Clement.EPA", "deux chiffres"},
        {"/x/F54123-.EPA", "le titre manque"},
        {"/x/F54123-Saint_Clement.ged", "ne finit pas par .EPA"},
    };
    for (const auto& [chemin, raison] : cas) {
        const std::string e = LireNomEPA(chemin).Erreur;
        EXPECT_NE(e.find(std::filesystem::path(chemin).filename().string()), std::string::npos) << e;
        EXPECT_NE(e.find(raison), std::string::npos) << e;
    }
}

TEST(NomEPA, GedcomSansExtensionPuisEnGedEtScriptEnSql) {
    const auto d = essais::DossierEssai("nom-epa");
    std::filesystem::create_directories(d);
    const std::string epa = (d / "F54123-A.EPA").string();
    EXPECT_EQ(FichierGedcomEPA(epa), "");
    std::ofstream((d / "F54123-A.ged").string()) << "0 HEAD\n";
    EXPECT_EQ(FichierGedcomEPA("\"" + epa + "\" "), (d / "F54123-A.ged").string());
    std::ofstream((d / "F54123-A").string()) << "0 HEAD\n";
    EXPECT_EQ(FichierGedcomEPA(epa), (d / "F54123-A").string());
    EXPECT_EQ(FichierScriptEPA(epa), (d / "F54123-A.sql").string());
    std::filesystem::remove_all(d);
}

}  // namespace
}  // namespace arbolix
