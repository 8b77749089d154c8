#include "reports/conversion_tmao.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

class ConvertirTMAOEssai : public testing::Test {
protected:
    void SetUp() override { fs::create_directories(dossier_); }
    void TearDown() override { fs::remove_all(dossier_); }
    std::string Ecrire(const std::string& nom, const std::string& octets) {
        const fs::path p = dossier_ / nom;
        std::ofstream(p, std::ios::binary) << octets;
        return p.string();
    }
    static std::string Table(std::string_view pied) {
        ActeTMAO a;
        a.Nom1 = "DUPONT";
        a.Prenom1 = "Jean";
        a.Annee = 1750;
        return EcrireTMAO({a}, pied);
    }
    fs::path dossier_ = essais::DossierEssai("convertir-tmao");
    DialogueFactice dialogue_;
};

TEST_F(ConvertirTMAOEssai, PiedMuetDemandeLeTypeEtGedcomDemandeLeLieu) {
    DemandeConversion d;
    d.Source = Ecrire("table.TM", Table("Table de Toul"));
    d.Mode = kConvGedcom;
    d.Date = "01/02/2026";
    dialogue_.SaisieSuivante("Toul");
    dialogue_.ReponseSuivante(Bouton::Ignorer);
    const ResultatConversion r = ConvertirTMAO(d, dialogue_);
    ASSERT_TRUE(r.Ok) << r.Erreur;
    EXPECT_EQ(r.Sortie, (dossier_ / "table.ged").string());
    EXPECT_EQ(r.NbActes, 1u);
    ASSERT_EQ(dialogue_.messages.size(), 1u);
    EXPECT_EQ(dialogue_.messages[0].titre, "Type d'acte introuvable");
    std::ifstream f(r.Sortie, std::ios::binary);
    const std::string ged((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
    EXPECT_NE(ged.find("1 DEAT\r\n2 DATE 1750\r\n2 PLAC Toul\r\n"), std::string::npos) << ged;
    EXPECT_NE(ged.find("1 DEST Arbolix\r\n"), std::string::npos);
}

TEST_F(ConvertirTMAOEssai, FichierAbimeNeLaisseRien) {
    const std::string bon = Table(PiedTMAO('N'));
    for (const std::string& octets : {bon.substr(0, 12), std::string()}) {
        DemandeConversion d;
        d.Source = Ecrire("abime.TM", octets);
        d.Mode = kConvTexte;
        const ResultatConversion r = ConvertirTMAO(d, dialogue_);
        EXPECT_FALSE(r.Ok);
        EXPECT_NE(r.Erreur.find("abime.TM"), std::string::npos) << r.Erreur;
        EXPECT_FALSE(fs::exists(dossier_ / "abime.txt"));
    }
}

TEST_F(ConvertirTMAOEssai, SansNomLeDialogueDOuvertureEtAnnuler) {
    DemandeConversion d;
    d.Mode = kConvTexte;
    EXPECT_TRUE(ConvertirTMAO(d, dialogue_).Annule);
    dialogue_.FichierSuivant(Ecrire("N1.TM", Table(PiedTMAO('N'))));
    const ResultatConversion r = ConvertirTMAO(d, dialogue_);
    ASSERT_TRUE(r.Ok) << r.Erreur;
    EXPECT_TRUE(fs::exists(dossier_ / "N1.txt"));
}

TEST(RtfTMAO, DocumentDeReference) {
    ActeTMAO a;
    a.Nom1 = "DUPONT";
    a.Prenom1 = "Jean (25)";
    a.Lignes1 = {"fils de {Pierre}", "laboureur", "", ""};
    a.Nom2 = "\xC9TIENNE";
    a.Prenom2 = "Marie";
    a.Jour = 12;
    a.Mois = 2;
    a.Annee = 1750;
    a.LignesActe = {"t\xE9moin : Paul\\Jacques", "", "", "f\xB0 12"};
    ActeTMAO b;
    b.Nom1 = "BLANC";
    b.Prenom1 = "Louis";
    b.Jour = 12;
    b.Mois = 1;
    b.Annee = 3;
    EXPECT_TRUE(essais::CommeReference(fs::path(ARBOLIX_DONNEES) / "tmao" / "mariages.rtf",
                                       RtfTMAO({a, b}, {"M54123.TM", 'M', "", "01/02/2026"})));
}

}  // namespace
}  // namespace arbolix
