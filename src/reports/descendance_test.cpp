#include "reports/descendance.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

// Pierre a deux unions ; Luc (par Jean) épouse sa cousine Zoé (par Paul) : leur fils Hugo est
// atteint par deux chemins. Anne n'a pas d'union.
struct Famille : ::testing::Test {
    Base b;
    Options o;
    void SetUp() override {
        const char* noms[] = {"",     "DUPONT", "MARTIN", "DUPONT", "DUPONT", "BLANC", "DUPONT",
                              "ROUX", "DUPONT", "",       "DUPONT", "DUPONT", "ROUX",  "VIDAL"};
        const char* prenoms[] = {"",       "Pierre", "Marie", "Jean",   "Anne", "Louise", "Paul",
                                 "Claire", "Luc",    "",      "Zo\xE9", "Hugo", "Eve",    "Rose"};
        const char sexes[] = " MFMFFMFM FMFF";
        for (int n = 1; n <= 13; ++n)
            if (n != 9) AjouterPersonne(b, n, noms[n], prenoms[n], sexes[n]);
        AjouterFamille(b, 1, 1, 2, "", {3, 4});
        AjouterFamille(b, 2, 1, 5, "", {6});
        AjouterFamille(b, 3, 3, 7, "", {8});
        AjouterFamille(b, 4, 6, 12, "", {10});
        AjouterFamille(b, 5, 8, 10, "", {11});
        AjouterFamille(b, 6, 11, 13);
    }
    std::string Rangees(const Descendance& d) {
        std::string s;
        for (const auto& r : d.rangees)
            s += std::to_string(r.generation) + " " + r.numero + " " + std::to_string(r.personne) + "U" +
                 std::to_string(r.rangUnion) + "C" + std::to_string(r.conjoint) + "F" +
                 std::to_string(r.famille) + "|";
        return s;
    }
    std::string Numero(std::int32_t p) { return NettoyerNumero(b.Persos[p].Suite().NumSosa[2].str()); }
};

TEST_F(Famille, NumerosDAbovilleRangeesEtImplexe) {
    const Descendance d = ParcourirDescendance(b, o, 1);
    EXPECT_EQ(d.compte, 6);  // Jean, Luc, Hugo, Paul, Zoé, Hugo : Anne n'a pas d'union
    EXPECT_EQ(Rangees(d),
              "0  1U1C2F1|0  1U2C5F2|1 .01a 3U1C7F3|1 .03b 6U1C12F4|"
              "2 .01a.01 8U1C10F5|2 .03b.01 10U1C8F5|3 .01a.01.01 11U1C13F6|3 .03b.01.01 11U1C13F6|");
    NumerosDoubles(b, d.rangees);
    const std::pair<std::int32_t, const char*> attendus[] = {
        {1, ""}, {3, "1a"}, {4, "2a"}, {6, "3b"}, {8, "1a.1"}, {10, "3b.1"}, {11, "3b.1.1 = 1a.1.1"}};
    for (const auto& [p, n] : attendus) EXPECT_EQ(Numero(p), n) << p;
    EXPECT_EQ(b.Persos[7].Unions[0], 3);  // le conjoint sait par quelle famille on l'a atteint
    EXPECT_EQ(b.Persos[2].Sel, kVrai);    // sans marquer, la sélection ne change pas
}

TEST_F(Famille, TousLesDescendantsMarquesEtSelectionDansLaSelection) {
    for (int n = 1; n <= 13; ++n) b.Persos[n].Sel = kFaux;
    o.SelTousDesc = true;
    const Descendance d = ParcourirDescendance(b, o, 1, {.marquer = true});
    EXPECT_EQ(d.compte, 7);  // Anne aussi
    for (const std::int32_t p : {1, 2, 4, 5, 7, 13}) EXPECT_EQ(b.Persos[p].Sel, kVrai) << p;
    EXPECT_EQ(b.Familles[6].Sel, kVrai);

    // Dans la sélection : Paul n'était pas de la sélection d'avant, sa branche s'arrête.
    for (int n = 1; n <= 13; ++n) b.Persos[n].SelAvant = n == 6 ? kFaux : kVrai;
    EXPECT_EQ(ParcourirDescendance(b, o, 1, {.etLogique = true}).compte, 4);
}

TEST_F(Famille, BoucleDansLesLiensEtRacineAbsente) {
    b.Familles[6].Enfants.Fixer(1, 1);  // Pierre serait son propre descendant
    EXPECT_EQ(ParcourirDescendance(b, o, 1).compte, 6);
    EXPECT_EQ(ParcourirDescendance(b, o, 9).compte, 0);
    EXPECT_EQ(NettoyerNumero(".10.01b.100"), "10.1b.100");
}

// En phrases, un père seul « a eu » ses enfants ; le texte compte les descendants parcourus.
TEST(ChroniqueDescendance, PereSeulEtCompte) {
    Base b;
    Options o;
    OptionsExport e;
    e.Toutes = true;
    AjouterPersonne(b, 1, "MARTIN", "Louis", 'M');
    AjouterPersonne(b, 2, "MARTIN", "Jules", 'M');
    AjouterPersonne(b, 3, "MARTIN", "Rose", 'F');
    AjouterFamille(b, 1, 1, 0, "", {2, 3});
    ContexteExport ctx{b, o, e, {23, 11, 2026}};
    ctx.NumPerso = 1;
    const std::string rtf = RtfDescendance(ctx);
    EXPECT_NE(rtf.find("\\line Il a eu 2 enfants :\\line \\tab 1{\\b  MARTIN Jules}"), std::string::npos)
        << rtf;
    EXPECT_TRUE(rtf.ends_with("\\par 0 descendants.}\r\n"));
    EXPECT_TRUE(TexteDescendance(ctx).ends_with("\r\n MARTIN Louis\r\n\r\n0 descendants.\r\n"));
}

}  // namespace
}  // namespace arbolix
