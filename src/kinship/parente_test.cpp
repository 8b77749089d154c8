#include "kinship/parente.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "kinship/recherches.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

// 1 et 2 frère et sœur, enfants de 3 et 4 ; 5 épouse 1, fille de 6 ; 7 fils de 3, né d'une autre union.
Base Famille() {
    Base b;
    AjouterPersonne(b, 1, "MARTIN", "Paul", 'M', "1780");
    AjouterPersonne(b, 2, "MARTIN", "Anne", 'F', "1782");
    AjouterPersonne(b, 3, "MARTIN", "Jean", 'M', "1750");
    AjouterPersonne(b, 4, "DURAND", "Marie", 'F', "1752");
    AjouterPersonne(b, 5, "PETIT", "Rose", 'F', "1785");
    AjouterPersonne(b, 6, "PETIT", "Louis", 'M', "1755");
    AjouterPersonne(b, 7, "MARTIN", "Luc", 'M', "1790");
    AjouterFamille(b, 1, 3, 4, {}, {1, 2});
    AjouterFamille(b, 2, 1, 5);
    AjouterFamille(b, 3, 6, 0, {}, {5});
    AjouterFamille(b, 4, 3, 0, {}, {7});
    return b;
}

std::vector<std::string> Textes(const ListePersonne& l) {
    std::vector<std::string> r;
    for (const auto& x : l.Rangees) r.push_back(x.texte);
    return r;
}

TEST(Parente, BranchesEnCommun) {
    const Options o;
    struct Cas {
        std::int32_t autre;
        std::vector<std::string> rangees;
    };
    const Cas cas[] = {
        // Frère et sœur : les deux parents, deux branches.
        {2,
         {"2 branches en commun",
          "MARTIN Jean \xB0"
          "1750 S2 P000003",
          "DURAND Marie \xB0"
          "1752 S3 P000004"}},
        // Demi-frère : le père seul.
        {7,
         {"1 branches en commun",
          "MARTIN Jean \xB0"
          "1750 S2 P000003"}},
        // Un ancêtre du De Cujus est lui-même la rangée.
        {3,
         {"1 branches en commun",
          "MARTIN Jean \xB0"
          "1750 S1 P000003"}},
        // Beaux-frères sans sang commun.
        {6, {"0 branches en commun"}},
    };
    for (const auto& c : cas) {
        Base b = Famille();
        PreparerParente(b, 1, o);
        const ListePersonne l = ListeParente(b, o, c.autre);
        EXPECT_EQ(l.Genre, "parente");
        EXPECT_EQ(Textes(l), c.rangees) << c.autre;
    }
}

TEST(Parente, LaFicheDoitMontrerLeDeCujus) {
    Base b = Famille();
    EXPECT_FALSE(EstDeCujus(b, 2));
    NumeroterAscendants(b, {2});
    EXPECT_TRUE(EstDeCujus(b, 2));
    b.Persos[5].SuiteModif().Ref = "1";
    EXPECT_TRUE(EstDeCujus(b, 5));
    EXPECT_FALSE(EstDeCujus(b, 1));
}

TEST(Recherches, UneRangeeParMarqueAscAvantDesc) {
    const Options o;
    Base b = Famille();
    b.Persos[4].Interet = 3;
    b.Persos[4].Bapteme.Lieu = "Sarlat";
    b.Persos[6].Interet = 2;
    b.Persos[7].Interet = 1;
    b.Persos[7].Sel = kFaux;  // hors de la sélection
    ListePersonne l = ListeRecherches(b, o, "Int\xE9r\xEAts de recherches", 2, false);
    EXPECT_EQ(l.Genre, "interech");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{
                             "MARTIN Paul \xB0"
                             "1780 2 anc\xEAtres P000001",
                             "DURAND Marie \xB0"
                             "1752 asc Sarlat P000004",
                             "DURAND Marie \xB0"
                             "1752 desc Sarlat P000004",
                             "PETIT Louis \xB0"
                             "1755 desc (lieu non d\xE9tect\xE9) P000006",
                         }));
    // Sans marque, seule la rangée de tête ; le compte manque quand les exports sont ouverts.
    for (int n : {4, 6}) b.Persos[n].Interet = 0;
    l = ListeRecherches(b, o, "", 2, true);
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"MARTIN Paul \xB0"
                                                   "1780 P000001"}));
}

}  // namespace
}  // namespace arbolix
