#include "card/contenu_fiche.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "lists/rangees.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;
using essai::Dater;

class ContenuFicheEssai : public ::testing::Test {
protected:
    Base b;
    Options o;
    ContexteFiche ctx{o};
};

std::vector<std::string> Textes(const std::vector<RangeeFiche>& r) {
    std::vector<std::string> t;
    for (const auto& x : r) t.push_back(x.texte);
    return t;
}

TEST_F(ContenuFicheEssai, UnionsDansLOrdreDesDatesQuelQueSoitLEmplacement) {
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M', "1720");
    AjouterPersonne(b, 2, "FAURE", "Marie", 'F');
    AjouterPersonne(b, 3, "DELMAS", "Anne", 'F');
    AjouterPersonne(b, 4, "SIMON", "Rose", 'F');
    AjouterFamille(b, 5, 1, 2, "1770");        // troisième mariage, en premier emplacement
    AjouterFamille(b, 6, 1, 3, "12/05/1745");  // premier
    AjouterFamille(b, 7, 1, 4);                // sans date : la naissance de Jean, 1720, la met en tête
    const auto u = CalculerUnions(b, ctx, 1);
    ASSERT_EQ(u.size(), 3u);
    EXPECT_EQ(u[0].texte, "Rose SIMON P000004 F000007");
    EXPECT_EQ(u[1].texte, "x 12/05/1745 Anne DELMAS P000003 F000006");
    EXPECT_EQ(u[2].texte, "x 1770 Marie FAURE P000002 F000005");
    EXPECT_EQ(u[1].bulle, "x12/05/1745  ; x J. MARTIN");
}

TEST_F(ContenuFicheEssai, UnionSansConjointEtContratDivorce) {
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    Fami& f = AjouterFamille(b, 2, 1, 0, "1750");
    Dater(f.Contrat, "1749");
    Dater(f.Divorce, "1760");
    const auto u = CalculerUnions(b, ctx, 1);
    ASSERT_EQ(u.size(), 1u);
    EXPECT_EQ(u[0].texte, "c1749 x 1750 d1760 F000002");
    EXPECT_EQ(ConjointDeRangee(u[0].texte), 0);
}

TEST_F(ContenuFicheEssai, EnfantsParNaissanceOuBaptemeNumeroEnDernier) {
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    AjouterPersonne(b, 2, "FAURE", "Marie", 'F');
    AjouterPersonne(b, 10, "MARTIN", "Paul", 'M', "1752");
    AjouterPersonne(b, 11, "MARTIN", "Luc", 'M');
    Dater(b.Persos[11].Bapteme, "1749");
    AjouterPersonne(b, 12, "MARTIN", "Zo\xE9", 'F', "1752", "1760");
    AjouterPersonne(b, 9, "MARTIN", "Eve", 'F', "1752");
    b.Persos[9].SuiteModif().NumSosa[0] = "5";
    AjouterFamille(b, 3, 1, 2, "1748", {12, 10, 11, 9});
    ContenuFiche c;
    CalculerEnfants(b, ctx, 3, c);
    EXPECT_EQ(Textes(c.Enfants),
              (std::vector<std::string>{"Luc P000011", "\xA7 Eve \xB0 1752 S5 P000009",
                                        "Paul \xB0 1752 P000010", "Zo\xE9 \xB0 1752 +1760 P000012"}));
    EXPECT_EQ(c.LabelEnfants, "4 enfants F000003");
    EXPECT_EQ(c.Enfants[2].bulle, "Paul MARTIN \xB0 1752");
    // Hors sélection, la lignée n'est plus marquée.
    b.Persos[9].Sel = kFaux;
    CalculerEnfants(b, ctx, 3, c);
    EXPECT_EQ(c.Enfants[1].texte, "Eve \xB0 1752 S5 P000009");
}

TEST_F(ContenuFicheEssai, EtiquetteDesEnfants) {
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    AjouterPersonne(b, 2, "MARTIN", "Paul", 'M');
    AjouterFamille(b, 1, 1, 0);
    AjouterFamille(b, 2, 0, 0, {}, {2});
    ContenuFiche c;
    CalculerEnfants(b, ctx, 0, c);
    EXPECT_EQ(c.LabelEnfants, "Aucun enfant");
    CalculerEnfants(b, ctx, 1, c);
    EXPECT_EQ(c.LabelEnfants, "Aucun enfant F000001");
    CalculerEnfants(b, ctx, 2, c);
    EXPECT_EQ(c.LabelEnfants, "1 enfant F000002");
}

TEST_F(ContenuFicheEssai, EnfantsDeLaDeuxiemeUnionQuandLaPremiereNEnAPas) {
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    AjouterPersonne(b, 2, "MARTIN", "Paul", 'M');
    AjouterFamille(b, 1, 1, 0);
    AjouterFamille(b, 2, 1, 0, {}, {2});
    const ContenuFiche c = CalculerFiche(b, ctx, 1);
    EXPECT_EQ(c.FamilleEnfants, 2);
    ASSERT_EQ(c.Enfants.size(), 1u);
}

TEST_F(ContenuFicheEssai, CadreSosaModificationParentsNotesSexe) {
    AjouterPersonne(b, 1, "MARTIN", "Pierre", 'M');
    AjouterPersonne(b, 2, "LAGARDE", "Anne", 'F');
    Perso& p = AjouterPersonne(b, 3, "MARTIN", "Jean", 'm');
    AjouterFamille(b, 4, 1, 2, {}, {3});
    p.SuiteModif().NumSosa[0] = "12";
    p.SuiteModif().AutresSosa[0] = "48, 96";
    p.DateModif = 45337.5;  // 15/02/2024 midi
    p.Notes = "@n4@";
    p.Interet = 2;
    const ContenuFiche c = CalculerFiche(b, ctx, 3);
    EXPECT_EQ(c.LegendePerso,
              "Personne Sosa : 12, 48, 96 modifi\xE9"
              "e le : 15/02/2024");
    EXPECT_EQ(c.Sexe, 'M');
    EXPECT_FALSE(c.IntRechAscendance);
    EXPECT_TRUE(c.IntRechDescendance);
    EXPECT_EQ(c.BulleNotes,
              "Double-clic ou Entr\xE9"
              "e pour acc\xE9"
              "der \xE0 la note externe.");
    EXPECT_EQ(c.LegendeParents, "Parents F000004");
    EXPECT_EQ(c.Pere, "Pierre MARTIN");
    EXPECT_EQ(c.Mere, "Anne LAGARDE");
    EXPECT_EQ(c.NumPere, 1);

    const ContenuFiche inconnu = CalculerFiche(b, ctx, 1);
    EXPECT_EQ(inconnu.LegendePerso, "Personne");
    EXPECT_EQ(inconnu.LegendeParents, "Parents");
    EXPECT_EQ(inconnu.Pere, "");
    EXPECT_EQ(inconnu.BulleNotes, "Touche Espace pour ajouter une note externe.");
    b.Persos[1].Sexe = 'X';
    EXPECT_EQ(CalculerFiche(b, ctx, 1).Sexe, ' ');
}

TEST_F(ContenuFicheEssai, FichiersLiesEtPremiereImage) {
    Perso& p = AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    p.SuiteModif().Fichiers.Fixer(1, "actes/bapteme.pdf");
    p.SuiteModif().Fichiers.Fixer(2, "portrait.JPG");
    p.SuiteModif().ObjetsMedia.Fixer(1, 3);
    b.Medias[3].Fichiers.Fixer(1, "tombe.png");
    b.Medias[4].Fichiers.Fixer(1, "registre.gif");
    p.Naissance.LiensModif().Medias.Fixer(1, 4);
    b.NbMedias = 4;
    const ContenuFiche c = CalculerFiche(b, ctx, 1);
    EXPECT_EQ(Textes(c.Divers), (std::vector<std::string>{"actes/bapteme.pdf P000001", "portrait.JPG P000001",
                                                          "tombe.png M000003", "\xB0 registre.gif M000004"}));
    EXPECT_EQ(c.Photo, "portrait.JPG");
    p.SuiteModif().Fichiers.Fixer(2, "");
    EXPECT_EQ(CalculerFiche(b, ctx, 1).Photo, "tombe.png");
}

TEST_F(ContenuFicheEssai, NumerosDemandes) {
    b.NbPersos = 20;
    EXPECT_EQ(ExaminerNumero(b, 0), EtatNumero::Afficher);
    EXPECT_EQ(ExaminerNumero(b, 21), EtatNumero::Afficher);
    EXPECT_EQ(ExaminerNumero(b, -21), EtatNumero::Afficher);
    EXPECT_EQ(ExaminerNumero(b, 22), EtatNumero::Ignorer);
    b.NbPersos = b.Persos.Haut() + 5;
    EXPECT_EQ(ExaminerNumero(b, b.Persos.Haut() + 1), EtatNumero::HorsTableau);
}

}  // namespace
}  // namespace arbolix
