#include "app/demarrage.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"

namespace arbolix {
namespace {

TEST(Demarrage, LigneDeCommandeSelonExtension) {
    EXPECT_EQ(NettoyerLigneCommande("  \"/home/a b/famille.ged\"  "), "/home/a b/famille.ged");
    const std::pair<const char*, ActionLigneCommande> cas[] = {
        {"", ActionLigneCommande::Ouvrir},
        {"/a/famille.ged", ActionLigneCommande::Ouvrir},
        {"/a/FAMILLE.GED", ActionLigneCommande::Ouvrir},
        {"/a/base.epa", ActionLigneCommande::ExportSql},
        {"/a/actes.TMT", ActionLigneCommande::ConversionTmao},
        {"/a/actes.tm", ActionLigneCommande::ConversionTmao},
        {"/a/notes.txt", ActionLigneCommande::Syntaxe},
    };
    for (const auto& [f, a] : cas) EXPECT_EQ(ActionPourFichier(f), a) << f;
    EXPECT_EQ(MessageSyntaxe("/opt/arbolix/arbolix"),
              "Pour ouvrir un fichier \xE0 partir de la ligne de commande :\r\n/opt/arbolix/arbolix fichier.ged");
}

TEST(Demarrage, UnFichierEpaEstExporteEnSqlPuisLeProgrammeFinit) {
    const auto d = essais::DossierEssai("epa");
    std::filesystem::create_directories(d);
    std::string message;
    EXPECT_EQ(LancerExportSql((d / "F54123-Saint_Clement.EPA").string(), message), 2);
    EXPECT_NE(message.find("F54123-Saint_Clement.ged) n'existe pas"), std::string::npos) << message;
    std::filesystem::copy_file(std::string(ARBOLIX_DONNEES) + "/sql/F54123-Saint_Clement.ged",
                               d / "F54123-Saint_Clement.ged");
    EXPECT_EQ(LancerExportSql("\"" + (d / "F54123-Saint_Clement.EPA").string() + "\"", message), 0)
        << message;
    EXPECT_TRUE(std::filesystem::exists(d / "F54123-Saint_Clement.sql"));
    std::filesystem::remove_all(d);
}

TEST(Demarrage, TitresSelonEtatDuFichier) {
    EXPECT_EQ(TitreFiche("", false), "Arbolix");
    EXPECT_EQ(TitreFiche("/a/f.ged", false), "Arbolix - /a/f.ged");
    EXPECT_EQ(TitreFiche("/a/f.ged", true), "Arbolix - /a/f.ged (modifi\xE9)");
    EXPECT_EQ(TitreEnregistre("Arbolix - /a/f.ged (modifi\xE9)"), "Arbolix - /a/f.ged (enregistr\xE9)");
    EXPECT_EQ(TitreEnregistre("Arbolix - /a/f.ged (enregistr\xE9)"), "Arbolix - /a/f.ged (enregistr\xE9)");
    EXPECT_EQ(TitreEnregistre("Arbolix - /a/f.ged"), "Arbolix - /a/f.ged");
}

TEST(Demarrage, FermerDemandeSeulementApresModification) {
    Base base;
    DialogueFactice d;
    int enregistrements = 0;
    auto enregistrer = [&] { return ++enregistrements, true; };
    EXPECT_TRUE(DemanderFermeture(base, d, enregistrer));
    EXPECT_TRUE(d.messages.empty());
    base.FichierModifie = kVrai;
    d.ReponseSuivante(Bouton::Annuler);
    EXPECT_FALSE(DemanderFermeture(base, d, enregistrer));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Fermer");
    EXPECT_EQ(d.messages[0].boutons, Boutons::OuiNonAnnuler);
    d.ReponseSuivante(Bouton::Non);
    EXPECT_TRUE(DemanderFermeture(base, d, enregistrer));
    EXPECT_EQ(enregistrements, 0);
    d.ReponseSuivante(Bouton::Oui);
    EXPECT_TRUE(DemanderFermeture(base, d, enregistrer));
    EXPECT_EQ(enregistrements, 1);
    // Un enregistrement qui échoue laisse le fichier ouvert.
    d.ReponseSuivante(Bouton::Oui);
    EXPECT_FALSE(DemanderFermeture(base, d, [] { return false; }));
}

}  // namespace
}  // namespace arbolix
