#include "reports/livre.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "reports/exports.h"
#include "store/selection.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

struct Numeros : ::testing::Test {
    Base b;
    Options o;
    ReglagesLivre r;
    void SetUp() override {
        AjouterPersonne(b, 1, "BERNARD", "Jean", 'M');
        AjouterPersonne(b, 2, "ARNAUD", "Marie", 'F');
        AjouterPersonne(b, 3, "COLIN", "Anne", 'F');
        AjouterPersonne(b, 4, "ALBERT", "Luc", 'M');
        AjouterPersonne(b, 5, "DURAND", "Eve", 'F');
        AjouterPersonne(b, 6, "ZOLA", "\xC9mile", 'M');
        AjouterPersonne(b, 7, "1ER", "Paul", 'M');
        AjouterPersonne(b, 8, "ROUX", "Lise", 'F');
        AjouterPersonne(b, 10, "MOREAU", "Ana", 'F').Sel = kFaux;
        AjouterFamille(b, 1, 1, 2, "1800");
        AjouterFamille(b, 2, 1, 3, "1795");  // la seconde union se range à la date de la première
        AjouterFamille(b, 3, 4, 5, "1790");
        AjouterFamille(b, 4, 7, 8);
        b.NumCourant = 10;
    }
    std::string Entrees(bool parLettre, bool unSeul) {
        const NumerotationLivre n = NumeroterLivre(b, o, r, parLettre, unSeul);
        std::string s;
        for (std::int32_t i = 1; i <= n.Total(); ++i) s += std::to_string(n.entrees[i]) + " ";
        return s;
    }
};

TEST_F(Numeros, ParLettreOuDUnSeulTenantEtNumeroUniqueDUnMari) {
    EXPECT_EQ(Entrees(true, false), "3 1 2 -6 4 ");  // le nom hors A-Z en dernier, la fiche non
    EXPECT_EQ(Entrees(false, false), "4 3 1 2 -10 -6 ");
    EXPECT_EQ(Entrees(true, true), "3 1 -6 4 ");
    EXPECT_EQ(b.Familles[2].NumLivre, 2);
    EXPECT_EQ(b.Persos[6].NumLivre, 3);
    EXPECT_EQ(b.Persos[10].NumLivre, 0);  // d'un tour d'avant, effacé
}

TEST_F(Numeros, UnEpouxHorsSelectionEtSansIsoles) {
    b.Persos[3].Sel = kFaux;
    r.avecIsoles = false;
    EXPECT_EQ(Entrees(true, false), "3 1 2 4 ");  // toute la base : un époux sélectionné suffit
    r.selCochee = 1;
    EXPECT_EQ(Entrees(true, false), "3 1 4 ");
    EXPECT_EQ(b.Familles[2].NumLivre, 0);
}

}  // namespace
}  // namespace arbolix

namespace arbolix {
namespace {

namespace fs = std::filesystem;

// Le livre et la descendance de la famille d'essai (deux mariages, implexe, notes, sources, dates
// confidentielles, accents, accolades), comparés octet par octet à leurs références.
TEST(LivreReferences, ChaqueDocumentEgaleSaReference) {
    const fs::path donnees = fs::path(ARBOLIX_DONNEES) / "livre";
    const fs::path dossier = essais::DossierEssai("livre");
    fs::create_directories(dossier);
    struct Cas {
        int type;
        const char* reference;
        void (*regler)(OptionsExport&);
    } cas[] = {
        {kLivre, "livre.rtf",
         [](OptionsExport& e) {
             e.ComboColRTF = {"2", "2"};
             e.OptionBasPage = {true, false};
         }},
        {kLivre, "livre-une-colonne.rtf",
         [](OptionsExport& e) {
             e.OptionBasPage = {false, true};
             e.OptNumUniq = e.OptSimplMarisMult = e.OptionIndexCourt = true;
             e.OptionOrdre = 2;
         }},
        {kDescendance, "descendance.rtf",
         [](OptionsExport& e) {
             e.OptionBasPage = {true, true};
         }},
        {kDescendance, "descendance-phrases.rtf", [](OptionsExport& e) { e.Toutes = true; }},
        {kDescendance, "descendance.txt", [](OptionsExport&) {}},
    };
    for (const Cas& c : cas) {
        essai::Lecture l;
        l.LireTout(essais::LireOctets(donnees / "famille.ged"));
        ToutSelectionner(l.base);
        OptionsExport e;
        e.TitreExport = c.type == kLivre ? "Livre des familles de D\xE9sir\xE9" : "Descendance de Pierre";
        c.regler(e);
        e.FichierExport = (dossier / c.reference).string();
        ContexteExport ctx{l.base, l.options, e, {23, 11, 2026}};
        ctx.TypeExport = c.type;
        ctx.NumPerso = 1;
        DialogueFactice dialogue;
        ASSERT_TRUE(LancerExport(ctx, dialogue).Ecrit) << c.reference;
        EXPECT_TRUE(essais::CommeReference(donnees / c.reference, essais::LireOctets(e.FichierExport)))
            << c.reference;
    }
    fs::remove_all(dossier);
}

}  // namespace
}  // namespace arbolix
