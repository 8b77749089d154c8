#include "tools/mise_a_jour.h"

#include <gtest/gtest.h>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "app/reglages.h"
#include "platform/ini.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

TEST(MiseAJour, VerifDateAuPremierDuMoisSuivant) {
    struct Cas {
        DateCalendrier jour;
        const char* attendu;
    } cas[] = {
        {{31, 1, 2025}, "20250201"},  {{31, 1, 2024}, "20240201"}, {{30, 11, 2025}, "20251201"},
        {{31, 12, 2025}, "20260101"}, {{1, 6, 2025}, "20250701"},
    };
    for (const Cas& c : cas) EXPECT_EQ(VerifDateSuivante(c.jour), c.attendu) << c.attendu;
    EXPECT_EQ(AdresseMiseAJour("1.2.0", {5, 3, 2026}),
              std::string(kAdresseMiseAJour) + "index.php?version=1.2.0&session=20260305");
}

class VerificationMAJ : public ::testing::Test {
protected:
    void SetUp() override { fs::create_directories(dossier_); }
    void TearDown() override { fs::remove_all(dossier_); }
    const fs::path dossier_ = essais::DossierEssai("maj");
    const fs::path ini_ = dossier_ / "arbolix.ini";
    DialogueFactice dialogue_;
};

TEST_F(VerificationMAJ, OuvreLaPageEtReporteLaProchaineAuMoisSuivant) {
    ASSERT_TRUE(VerifierMiseAJour(ini_, "arbolix", "1.2.0", {31, 12, 2025}, true, dialogue_));
    EXPECT_EQ(LireIni(ini_, "General", "VerifDate", ""), "20260101");
    EXPECT_EQ(dialogue_.ouverts, std::vector<std::string>{std::string(kAdresseMiseAJour) +
                                                          "index.php?version=1.2.0&session=20251231"});
    ASSERT_EQ(dialogue_.messages.size(), 2u);
    EXPECT_EQ(dialogue_.messages[0].titre, "V\xE9rifier la mise \xE0 jour");
    EXPECT_EQ(dialogue_.messages[0].texte,
              "arbolix va maintenant v\xE9rifier l'existence d'une mise \xE0 jour sur internet.\n"
              "V\xE9rifiez que votre ordinateur est connect\xE9 \xE0 internet, puis cliquez sur OK.\n"
              "Veuillez ensuite relancer arbolix.");
    EXPECT_EQ(dialogue_.messages[0].boutons, Boutons::OkAnnuler);
    EXPECT_EQ(dialogue_.messages[1].texte,
              "Vous devez fermer le fichier ouvert avant de mettre \xE0 jour le logiciel.");
    // Le mois suivant n'est pas encore venu, puis il l'est.
    EXPECT_FALSE(VerificationMiseAJourDue(ini_, "20251231", true));
    EXPECT_TRUE(VerificationMiseAJourDue(ini_, "20260102", true));
}

TEST_F(VerificationMAJ, AnnulerNOuvreRienMaisReporte) {
    dialogue_.ReponseSuivante(Bouton::Annuler);
    EXPECT_FALSE(VerifierMiseAJour(ini_, "arbolix", "1.2.0", {30, 11, 2025}, true, dialogue_));
    EXPECT_TRUE(dialogue_.ouverts.empty());
    EXPECT_EQ(dialogue_.messages.size(), 1u);
    EXPECT_EQ(LireIni(ini_, "General", "VerifDate", ""), "20251201");
    // Sans fichier ouvert, pas d'avis de fermeture.
    DialogueFactice d;
    EXPECT_TRUE(VerifierMiseAJour(ini_, "arbolix", "1.2.0", {30, 11, 2025}, false, d));
    EXPECT_EQ(d.messages.size(), 1u);
}

}  // namespace
}  // namespace arbolix
