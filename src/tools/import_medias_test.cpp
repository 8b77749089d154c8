#include "tools/import_medias.h"

#include "aides/dossier_essai.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/dialogue_factice.h"
#include "card/notes.h"
#include "store/decrire_base.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

struct Essai {
    Base b;
    DialogueFactice d;
    fs::path dossier = essais::DossierEssai("import");
    Essai() {
        Vider(b, true);
        NouvellePersonne(b, true, false);
        fs::remove_all(dossier);
        fs::create_directories(dossier / "sous");
        for (const char* f : {"b.jpg", "a.png", "raccourci.LNK", "sous/c.jpg"})
            EcrireFichierTexte((dossier / f).string(), "x");
    }
    ~Essai() { fs::remove_all(dossier); }
    std::string F(const char* nom) const { return (dossier / nom).string(); }
};

TEST(ImportFichiers, DossierEnObjetsMedias) {
    Essai e;
    e.d.FichierSuivant(e.dossier.string());
    e.d.ReponseSuivante(Bouton::Oui);
    e.d.SaisieSuivante("01/01/2000");
    const auto r = MenuImportFichiers(e.b, {{}, "", "", false}, e.d);
    EXPECT_EQ(r.crees, 2) << "ni le raccourci ni le sous-dossier";
    EXPECT_EQ(r.date, "01/01/2000");
    EXPECT_EQ(e.b.NbMedias, 2);
    EXPECT_EQ(e.b.NbMediasReels, 2);
    EXPECT_EQ(DecrireMedia(std::as_const(e.b.Medias)[1]), "Fichiers=" + e.F("a.png") + "; Actif=-1");
    EXPECT_EQ(std::as_const(e.b.Medias)[2].Fichiers(1).str(), e.F("b.jpg"));
    EXPECT_EQ(e.b.FichierModifie, kVrai);
    ASSERT_EQ(e.d.messages.size(), 1u);
    EXPECT_EQ(e.d.messages[0].boutons, Boutons::OuiNonAnnuler);
}

TEST(ImportFichiers, UneDateAVenirNeGardeRien) {
    Essai e;
    e.d.FichierSuivant(e.dossier.string());
    e.d.SaisieSuivante("01/01/9999");
    EXPECT_EQ(MenuImportFichiers(e.b, {}, e.d).crees, 0);
}

TEST(ImportFichiers, DeposesEnPersonnes) {
    Essai e;
    e.d.ReponseSuivante(Bouton::Non);
    const auto r = MenuImportFichiers(e.b, {{e.F("b.jpg"), e.F("sous/c.jpg")}, "", "", false}, e.d);
    EXPECT_EQ(r.crees, 2);
    EXPECT_EQ(e.b.NbPersos, 3);
    const Perso& p = std::as_const(e.b.Persos)[2];
    EXPECT_EQ(p.Nom, "IMAGE");
    EXPECT_EQ(p.Prenoms, "Image");
    EXPECT_EQ(p.CodeNom, "I520");
    EXPECT_EQ(p.Suite().Fichiers(1).str(), e.F("b.jpg"));
}

TEST(ImportFichiers, AnnulerNeCreeRien) {
    Essai e;
    e.d.FichierSuivant(std::nullopt);  // pas de dossier
    EXPECT_EQ(MenuImportFichiers(e.b, {}, e.d).crees, 0);
    EXPECT_TRUE(e.d.messages.empty());
    e.d.ReponseSuivante(Bouton::Annuler);
    EXPECT_EQ(MenuImportFichiers(e.b, {{e.F("b.jpg")}, "", "", false}, e.d).crees, 0);
    e.d.FichierSuivant(e.dossier.string());
    e.d.SaisieSuivante(std::nullopt);
    EXPECT_EQ(MenuImportFichiers(e.b, {}, e.d).crees, 0);
    EXPECT_EQ(e.b.NbPersos, 1);
    EXPECT_EQ(e.b.NbMedias, 0);
}

}  // namespace
}  // namespace arbolix
