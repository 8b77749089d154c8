#include "reports/exports.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "reports/isoles.h"
#include "reports/ligne_de_vie.h"
#include "store/selection.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;
using essais::CommeReference;
using essais::LireOctets;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "rapports";

// La base riche lue comme la fenêtre l'ouvre, toute sélectionnée, et un dossier pour les sorties.
struct Rapports : ::testing::Test {
    essai::Lecture l;
    OptionsExport exports;
    DialogueFactice dialogue;
    fs::path dossier = essais::DossierEssai("rapports");

    void SetUp() override {
        l.LireTout(LireOctets(kDonnees / "riche.ged"));
        ToutSelectionner(l.base);
        fs::create_directories(dossier);
    }
    void TearDown() override { fs::remove_all(dossier); }

    ContexteExport Contexte(int type, std::int32_t personne) {
        ContexteExport c{l.base, l.options, exports, {23, 11, 2026}};
        c.TypeExport = type;
        c.NumPerso = personne;
        c.FichierGedcom = "riche.ged";
        return c;
    }
    // Lance le rapport vers un fichier du dossier et rend ses octets.
    std::string Lancer(int type, std::int32_t personne, const std::string& nom) {
        exports.FichierExport = (dossier / nom).string();
        const ResultatExport r = LancerExport(Contexte(type, personne), dialogue);
        EXPECT_TRUE(r.Ecrit) << nom;
        return LireOctets(exports.FichierExport);
    }
};

TEST_F(Rapports, ChaqueRapportEgaleSaReference) {
    struct Cas {
        int type;
        std::int32_t personne;
        bool toutes;
        const char* reference;
    };
    const Cas cas[] = {
        {kLigneDeVie, 4, true, "lignevie.txt"},
        {kAscendance, 1, true, "ancetres-toutes.txt"},
        {kAscendance, 1, false, "ancetres-table.txt"},
        {kAdresses, 1, true, "adresses-toutes.txt"},
        {kAdresses, 1, false, "adresses.txt"},
        {kEclair, 1, true, "eclair.txt"},
        {kIsoles, 1, true, "isoles.txt"},
    };
    for (const auto& c : cas) {
        exports.Toutes = c.toutes;
        exports.TexteComp = c.type == kAscendance ? "Texte libre\r\nsur deux lignes" : "";
        EXPECT_TRUE(CommeReference(kDonnees / c.reference, Lancer(c.type, c.personne, c.reference)))
            << c.reference;
    }
}

}  // namespace
}  // namespace arbolix
