#include "card/navigation.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

// Dix personnes, 3, 6 et 9 hors sélection ; notes chez 4 (personne), 7 (mariage).
class Marche : public ::testing::Test {
protected:
    void SetUp() override {
        for (int i = 1; i <= 10; ++i) AjouterPersonne(b, i, "NOM", "P" + std::to_string(i));
        for (int i : {3, 6, 9}) b.Persos[i].Sel = kFaux;
        b.Persos[4].Notes = "Notaire";
        AjouterFamille(b, 1, 7, 8).Mariage.Notes = "Dispense de consanguinit\xE9";
        b.Persos[5].Naissance.Notes = "12/vend/03";  // date républicaine seule : ne compte pas
        b.Persos[2].Deces.Notes = "12/VEND/03";      // idem, la casse n'y fait rien
        b.Persos[6].Notes = "Hors s\xE9lection";
    }
    Base b;
};

TEST_F(Marche, Touches) {
    struct Cas {
        std::int32_t depart;
        char touche;
        std::int32_t attendu;
        const char* pourquoi;
    };
    const Cas cas[] = {
        {2, '+', 4, "saute 3 hors sélection"},
        {8, '+', 10, "saute 9"},
        {10, '+', 1, "de NbPersos on repart à 1"},
        {4, '-', 2, "recule en sautant 3"},
        {1, '-', 10, "sous 2 on passe à NbPersos"},
        {1, '*', 4, "première note de personne"},
        {4, '*', 7, "note de mariage ; 6 a des notes mais hors sélection"},
        {7, '*', 8, "le mariage compte pour les deux époux"},
        {8, '*', 10, "plus de notes : arrêt sur NbPersos, fiche sans notes"},
        {10, '*', 4, "repart de 1"},
        {8, '/', 7, "en arrière"},
        {4, '/', 10, "en arrière de 4 : 2 n'a qu'une date républicaine, puis NbPersos"},
        {0, '+', 1, "de la fiche vierge"},
        {11, '+', 1, "de la nouvelle fiche libre"},
    };
    for (const auto& c : cas)
        EXPECT_EQ(ToucheNumPerso(b, c.depart, c.touche), c.attendu)
            << c.depart << " " << c.touche << " : " << c.pourquoi;
}

TEST_F(Marche, ArretSurNbPersosSansTestDeSelection) {
    b.Persos[10].Sel = kFaux;
    EXPECT_EQ(ToucheNumPerso(b, 8, '+'), 10);
    // Une personne supprimée (fiche vide, hors sélection) en dernier : on s'y arrête aussi.
    b.Persos[10] = Perso{};
    EXPECT_EQ(ToucheNumPerso(b, 8, '+'), 10);
}

TEST_F(Marche, UnTourCompletRevientAuDepart) {
    for (int i = 1; i <= 10; ++i) b.Persos[i].Sel = kFaux;
    b.Persos[10].Sel = kVrai;
    EXPECT_EQ(ToucheNumPerso(b, 10, '+'), 10);
    EXPECT_EQ(ToucheNumPerso(b, 10, '*'), 10);
    EXPECT_EQ(Parcourir(Base{}, 3, 3), 3);  // base vide : on reste
}

TEST_F(Marche, NoteRepublicaineSuivieDAutreChoseCompte) {
    b.Persos[5].Naissance.Notes = "12/vend/03\r\nBaptis\xE9 \xE0 la maison";
    EXPECT_EQ(ToucheNumPerso(b, 4, '*'), 5);
}

TEST(ToucheF, PereSinonMereSinonRester) {
    Base b;
    AjouterPersonne(b, 1, "A", "Pere", 'M');
    AjouterPersonne(b, 2, "A", "Mere", 'F');
    AjouterPersonne(b, 3, "A", "Enfant1");
    AjouterPersonne(b, 4, "A", "Enfant2");
    AjouterFamille(b, 1, 1, 2, {}, {3});
    AjouterFamille(b, 2, 0, 2, {}, {4});
    EXPECT_EQ(ToucheNumPerso(b, 3, 'f'), 1);
    EXPECT_EQ(ToucheNumPerso(b, 4, 'F'), 2);
    EXPECT_EQ(ToucheNumPerso(b, 1, 'f'), 1);
    EXPECT_EQ(ToucheNumPerso(b, 0, 'f'), 0);
    EXPECT_EQ(ToucheNumPerso(b, 3, '7'), std::nullopt);
    EXPECT_EQ(ToucheNumPerso(b, 3, ' '), std::nullopt);
}

TEST(ToucheS, NumeroSosaEntierParmiLesAutres) {
    Base b;
    AjouterPersonne(b, 1, "A", "Un").SuiteModif().NumSosa[0] = "1";
    AjouterPersonne(b, 2, "A", "Deux").SuiteModif().NumSosa[0] = "120";
    Perso& p = AjouterPersonne(b, 3, "A", "Trois");
    p.SuiteModif().NumSosa[0] = "13";
    p.SuiteModif().AutresSosa[0] = "12, 340282366920938463463374607431768211456";
    EXPECT_EQ(ToucheNumPerso(b, 12, 's'), 3);  // 12 n'est pas dans 120
    EXPECT_EQ(ToucheNumPerso(b, 120, 'S'), 2);
    EXPECT_EQ(ChercherSosa(b, "340282366920938463463374607431768211456"), 3);
    EXPECT_EQ(ToucheNumPerso(b, 7, 's'), 7);  // aucun : on reste
    EXPECT_EQ(ChercherSosa(b, "34"), std::nullopt);
}

}  // namespace
}  // namespace arbolix
