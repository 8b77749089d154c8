#include "verify/estimation.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "dates/cle_date.h"
#include "lists/listes.h"

namespace arbolix {
namespace {

// Quatre générations : les grands-parents n'ont qu'un fils sans date, qui ne se date
// qu'à la première passe (femme, mariage, enfant) ; eux ne se datent qu'à la seconde.
struct Famille4 {
    Base b;
    Options o;  // EcartGen 30
    Famille4() {
        essai::AjouterPersonne(b, 1, "A", "Grand-p\xE8re", 'M');
        essai::AjouterPersonne(b, 2, "B", "Grand-m\xE8re", 'F');
        essai::AjouterPersonne(b, 3, "A", "P\xE8re", 'M');
        essai::AjouterPersonne(b, 4, "C", "M\xE8re", 'F', "1760");
        essai::AjouterPersonne(b, 5, "A", "Fils", 'M', "1790");
        essai::AjouterPersonne(b, 6, "A", "Petit", 'M', "", "1800");  // mort avant l'estimation
        essai::AjouterPersonne(b, 7, "Z", "Inconnu", 'M');
        essai::AjouterPersonne(b, 8, "A", "Baptis\xE9", 'M');
        essai::Dater(b.Persos[8].Bapteme, "12/03/1795", "Lyon");
        essai::AjouterPersonne(b, 9, "A", "D\xE9j\xE0", 'F', "vers 1600");
        essai::AjouterFamille(b, 1, 1, 2, "", {3});
        essai::AjouterFamille(b, 2, 3, 4, "1785", {5});
        essai::AjouterFamille(b, 3, 5, 0, "", {6, 9});
        essai::AjouterFamille(b, 4, 7, 0);
    }
    const Acte& N(int n) const { return std::as_const(b.Persos)[n].Naissance; }
};

TEST(CalculerActesVides, NaissancesEnDeuxPasses) {
    Famille4 f;
    ListePersonne liste;
    const ResultatEstimation r = CalculerActesVides(f.b, f.o, ActesVides::Naissances, false, liste);
    EXPECT_EQ(f.N(3).Date, "vers 1757");  // (1760 - 5 + 1785 - 30 + 1790 - 30) / 3
    EXPECT_EQ(f.N(1).Date, "vers 1727");  // son fils, daté à la passe d'avant
    EXPECT_EQ(f.N(2).Date, "vers 1730");  // (1727 + 5 + 1757 - 30) / 2 = 1729,5 : loin de zéro
    EXPECT_EQ(f.N(2).Annee, 1730);
    EXPECT_EQ(f.N(2).DateTri.vue(), CleDate("vers 1730"));
    EXPECT_EQ(f.N(6).Date, "avant 1800");
    EXPECT_EQ(f.N(8).Date, "12/03/1795");
    EXPECT_EQ(f.N(8).Lieu, "");           // la date du baptême, pas son lieu
    EXPECT_EQ(f.N(9).Date, "vers 1600");  // sans recalcul, un « vers » reste
    EXPECT_EQ(TexteResultatEstimation(r), "5 actes calcul\xE9s. Il reste 1 acte vide.");
    ASSERT_EQ(liste.Rangees.size(), 3u);
    EXPECT_EQ(liste.Rangees[0].texte,
              " Continuer avec le calcul de l'ann\xE9"
              "e des mariages vides");
    EXPECT_EQ(liste.Genre, "vides0");
    EXPECT_EQ(liste.Titre, "Actes vides");
    EXPECT_NE(liste.Rangees[1].texte.find(" \xE0 v\xE9rifier P000006"), std::string::npos);
    EXPECT_EQ(liste.Rangees[2].texte.substr(liste.Rangees[2].texte.size() - 8), " P000007");
    EXPECT_EQ(f.b.FichierModifie, kVrai);
    // La ligne de tête enchaîne sur les mariages ; une rangée montre sa personne.
    EXPECT_EQ(DoubleClic(f.b, f.o, liste, 0), (Reaction{ActionListe::EstimerActesVides, 1, {}, true}));
    EXPECT_EQ(DoubleClic(f.b, f.o, liste, 2), (Reaction{ActionListe::Afficher, 7, {}, false}));
}

TEST(MenuCalcActesVides, QuestionRecalculEtBoite) {
    {
        Famille4 f;
        DialogueFactice d;
        d.ReponseSuivante(Bouton::Annuler);
        ListePersonne liste;
        EXPECT_FALSE(MenuCalcActesVides(f.b, f.o, d, ActesVides::Naissances, liste));
        EXPECT_EQ(f.N(3).Date, "");
        ASSERT_EQ(d.messages.size(), 1u);
        EXPECT_EQ(d.messages[0].texte,
                  "Le logiciel va calculer une ann\xE9"
                  "e approch\xE9"
                  "e (vers nnnn) pour les actes de naissance "
                  "vides.\r\nVoulez-vous recalculer les dates approch\xE9"
                  "es d\xE9j\xE0 existantes ?");
    }
    Famille4 f;
    DialogueFactice d;
    d.ReponseSuivante(Bouton::Oui);
    ListePersonne liste;
    EXPECT_TRUE(MenuCalcActesVides(f.b, f.o, d, ActesVides::Naissances, liste));
    EXPECT_EQ(f.N(9).Date, "vers 1820");
    ASSERT_EQ(d.messages.size(), 2u);
    EXPECT_EQ(d.messages[1].texte, "6 actes calcul\xE9s. Il reste 1 acte vide.");
}

TEST(CalculerActesVides, Mariages) {
    Famille4 f;
    ListePersonne liste;
    CalculerActesVides(f.b, f.o, ActesVides::Naissances, false, liste);
    const ResultatEstimation r = CalculerActesVides(f.b, f.o, ActesVides::Mariages, false, liste);
    EXPECT_EQ(std::as_const(f.b.Familles)[1].Mariage.Date, "vers 1757");  // (1757 + 1760 + 1755) / 3
    EXPECT_EQ(TexteResultatEstimation(r), "2 actes calcul\xE9s. Il reste 1 acte vide.");
    ASSERT_EQ(liste.Rangees.size(), 2u);
    EXPECT_EQ(liste.Genre, "vides1");
    EXPECT_EQ(liste.Rangees[1].texte.substr(liste.Rangees[1].texte.size() - 11), " x  F000004");
    EXPECT_EQ(DoubleClic(f.b, f.o, liste, 1), (Reaction{ActionListe::Afficher, 7, {}, false}));
}

}  // namespace
}  // namespace arbolix
