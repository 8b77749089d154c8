#include "verify/coherence.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

// Une personne, ses parents et une union, dont on pose les dates au besoin.
struct Banc {
    Base base;
    Options options;
    std::int32_t p = Personne(), pere = Personne(), mere = Personne(), conjoint = Personne();
    std::int32_t parents = 1, union1 = 2;

    Banc() {
        base.NbFamis = 2;
        base.Familles[parents].Mari = pere;
        base.Familles[parents].Femme = mere;
        base.Persos[p].NumParents = parents;
        base.Familles[union1].Mari = p;
        base.Familles[union1].Femme = conjoint;
        base.Persos[p].Unions[1] = union1;
    }
    std::int32_t Personne() {
        const std::int32_t n = NouvellePersonne(base, true, false);
        base.Persos[n].Prenoms = "X";
        return n;
    }
    Perso& P(std::int32_t n) { return base.Persos[n]; }
    std::string Plaintes(const char* genre, const char* date) {
        return CoherenceActe(base, options, p, genre, date);
    }
};

TEST(CoherenceActe, RienSansDateSansRegleOuSansDonnee) {
    Banc b;
    EXPECT_EQ(b.Plaintes("N", "12/03/1750"), "");
    essai::Dater(b.P(b.p).Deces, "1700");
    EXPECT_EQ(b.Plaintes("N", ""), "");
    EXPECT_EQ(b.Plaintes("Z", "12/03/1750"), "");
    EXPECT_EQ(b.Plaintes("NB", "12/03/1750"), "");
}

TEST(CoherenceActe, NaissanceFaceAuDecesEtALaSepulture) {
    Banc b;
    b.options.AgeMaxiDeces = "100";
    essai::Dater(b.P(b.p).Deces, "12/03/1750");
    // Même jour : seul un ordre strict se plaint.
    EXPECT_EQ(b.Plaintes("N", "12/03/1750"), "");
    EXPECT_EQ(b.Plaintes("N", "13/03/1750"), "La personne est n\xE9" "e apr\xE8s son d\xE9" "c\xE8s.\r\n");
    // Précision mêlée : par années, égales, rien.
    essai::Dater(b.P(b.p).Deces, "1750");
    EXPECT_EQ(b.Plaintes("N", "13/03/1750"), "");
    EXPECT_EQ(b.Plaintes("N", "vers 1649"), "La personne est d\xE9" "c\xE9" "d\xE9" "e trop \xE2g\xE9" "e.\r\n");
    essai::Dater(b.P(b.p).Sepulture, "1749");
    EXPECT_EQ(b.Plaintes("B", "1750"), "La personne est n\xE9" "e apr\xE8s son enterrement.\r\n");
}

TEST(CoherenceActe, AgeMaximalAuDecesAuxBornes) {
    Banc b;
    b.options.AgeMaxiDeces = "100";
    essai::Dater(b.P(b.p).Naissance, "1700");
    EXPECT_EQ(b.Plaintes("D", "31/12/1800"), "");
    EXPECT_EQ(b.Plaintes("D", "01/01/1801"), "La personne est d\xE9" "c\xE9" "d\xE9" "e trop \xE2g\xE9" "e.\r\n");
    EXPECT_EQ(b.Plaintes("D", "1699"), "La personne est d\xE9" "c\xE9" "d\xE9" "e avant sa naissance.\r\n");
}

TEST(CoherenceActe, ParentsTropJeunesTropAgesOuDecedes) {
    Banc b;
    b.options.AgeMiniUnion = "15";
    b.options.AgeMaxiEnfant = "50";
    essai::Dater(b.P(b.pere).Naissance, "1736");
    essai::Dater(b.P(b.mere).Naissance, "1699");
    essai::Dater(b.P(b.pere).Deces, "01/01/1750");
    EXPECT_EQ(b.Plaintes("N", "12/03/1750"),
              "Le p\xE8re de la personne est trop jeune.\r\n"
              "Le p\xE8re de la personne est d\xE9" "c\xE9" "d\xE9 avant sa naissance.\r\n"
              "La m\xE8re de la personne est trop \xE2g\xE9" "e.\r\n");
    // Aux bornes : 1735 + 15 = 1750 et 1700 + 50 = 1750 ne se plaignent pas.
    essai::Dater(b.P(b.pere).Naissance, "1735");
    essai::Dater(b.P(b.pere).Deces, "1790");
    essai::Dater(b.P(b.mere).Naissance, "1700");
    EXPECT_EQ(b.Plaintes("N", "12/03/1750"), "");
}

TEST(CoherenceActe, UnionsNommeesParLaPremiereEtLaDerniere) {
    Banc b;
    b.options.AgeMiniUnion = "15";
    b.options.AgeMaxiEnfant = "50";
    const std::int32_t union2 = 3;
    b.base.NbFamis = 3;
    b.P(b.p).Unions[2] = union2;
    essai::Dater(b.base.Familles[b.union1].Mariage, "1760");
    essai::Dater(b.base.Familles[union2].Mariage, "1820");
    EXPECT_EQ(b.Plaintes("N", "1750"),
              "La personne est trop jeune pour l'union F2.\r\n"
              "La personne est trop \xE2g\xE9" "e pour l'union F3.\r\n");
    EXPECT_EQ(b.Plaintes("D", "1755"), "La personne est d\xE9" "c\xE9" "d\xE9" "e avant sa premi\xE8re union.\r\n");
    // Un mariage ou un divorce : la personne de la fiche seule, unions nommées de même.
    essai::Dater(b.P(b.p).Naissance, "1740");
    essai::Dater(b.P(b.p).Deces, "05/05/1800");
    EXPECT_EQ(b.Plaintes("M", "1750"), "La personne est trop jeune pour l'union F2.\r\n");
    EXPECT_EQ(b.Plaintes("C", "1795"), "La personne est trop \xE2g\xE9" "e pour l'union F3.\r\n");
    EXPECT_EQ(b.Plaintes("M", "06/05/1800"),
              "La personne est trop \xE2g\xE9" "e pour l'union F3.\r\n"
              "La personne est d\xE9" "c\xE9" "d\xE9" "e avant l'union.\r\n");
    EXPECT_EQ(b.Plaintes("X", "06/05/1800"), "La personne est d\xE9" "c\xE9" "d\xE9" "e avant le divorce.\r\n");
}

TEST(CoherenceActe, OrdreDesEvenementsDeLaPersonne) {
    Banc b;
    essai::Dater(b.P(b.p).Naissance, "10/03/1750");
    essai::Dater(b.P(b.p).Bapteme, "12/03/1750");
    essai::Dater(b.P(b.p).Deces, "01/02/1790");
    essai::Dater(b.P(b.p).Sepulture, "03/02/1790");
    EXPECT_EQ(b.Plaintes("N", "13/03/1750"), "La personne est n\xE9" "e apr\xE8s le bapt\xEAme.\r\n");
    EXPECT_EQ(b.Plaintes("B", "09/03/1750"), "La personne est baptis\xE9" "e avant la naissance.\r\n");
    EXPECT_EQ(b.Plaintes("D", "04/02/1790"), "La personne est d\xE9" "c\xE9" "d\xE9" "e apr\xE8s l'enterrement.\r\n");
    EXPECT_EQ(b.Plaintes("S", "31/01/1790"), "La personne est enterr\xE9" "e avant le d\xE9" "c\xE8s.\r\n");
    EXPECT_EQ(b.Plaintes("D", "11/03/1750"), "La personne est d\xE9" "c\xE9" "d\xE9" "e avant son bapt\xEAme.\r\n");
}

}  // namespace
}  // namespace arbolix
