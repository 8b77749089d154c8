#include "reports/fiche_famille.h"

#include <gtest/gtest.h>

#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

std::string Fixture(const char* nom) {
    return essais::LireOctets(std::string(ARBOLIX_DONNEES) + "/stats/" + nom);
}

const std::string M(10, ' ');

MorceauFiche L(std::string t) {
    return {std::move(t), false, true};
}
MorceauFiche T(std::string t) {
    return {std::move(t), false, false};
}
MorceauFiche G(std::string t) {
    return {std::move(t), true, false};
}

TEST(FicheFamille, ConjointsPuisEnfantsAvecLeursUnions) {
    essai::Lecture l;
    l.LireTout(Fixture("famille.ged"));
    const DateCalendrier jour{23, 11, 2026};
    const std::vector<MorceauFiche> attendu{
        L(""),
        L(""),
        L(M +
          "G\xE9n\xE9\x61logie : fichier famille.ged : fiche familiale n\xB0 1 imprim\xE9\x65 le 23/11/2026"),
        L(""),
        G(M + "DUPONT Jean"),
        L(", laboureur"),
        L(M + "\xB0\x31\x35/04/1795  Nancy   +10/01/1870  "),
        L(""),
        G(M + "MARTIN Marie"),
        L(", couturi\xE8re"),
        L(M + "\xB0\x30\x32/02/1800     +01/12/1880  "),
        L(""),
        L(M + "x20/06/1820  Toul ; 3 enfants :"),
        T(M),
        G("Pierre"),
        L(", laboureur"),
        L(M + "\xB0\x30\x35/03/1821    + "),
        T(M),
        G("Anne"),
        L(", "),
        L(M + "\xB0\x31\x38\x32\x33    +1900 "),
        T(M),
        G("Louis"),
        L(", tisserand, soldat"),
        T(M + "x1849  avec "),
        L("DURAND Jeanne (fiche 2)"),
        L(M + "\xB0\x31\x32/12/1824    +03/11/1850 "),
    };
    EXPECT_EQ(FicheFamille(l.base, l.options, 1, "famille.ged", jour), attendu);
    // La même en PDF, octet pour octet (relue par pdftotext dans le test consommateur).
    EXPECT_TRUE(essais::CommeReference(std::string(ARBOLIX_DONNEES) + "/stats/fiche-1.pdf",
                                       FicheFamillePdf(attendu, "Fiche familiale n\xB0 1")));

    // Sans mari, la fiche commence au bloc de la femme ; ses notes gardent la marge à chaque
    // ligne ; le fils nomme ses parents et leur fiche.
    l.base.Persos[6].Notes = "ligne 1\r\nligne 2";
    const auto f2 = FicheFamille(l.base, l.options, 2, "famille.ged", jour);
    ASSERT_GE(f2.size(), 8u);
    EXPECT_EQ(f2[4], G(M + "DUPONT Louis"));
    EXPECT_EQ(f2[7], L(M + "fils de DUPONT Jean (1795-1870) et MARTIN Marie (1800-1880) ; fiche n\xB0 1"));
    EXPECT_EQ(f2.back(), L(M + "x1849   ; 0 enfants :"));
    l.base.Familles[2].Mari = 0;
    const auto sansMari = FicheFamille(l.base, l.options, 2, "famille.ged", jour);
    ASSERT_GE(sansMari.size(), 8u);
    EXPECT_EQ(sansMari[4], G(M + "DURAND Jeanne"));
    EXPECT_EQ(sansMari[7], L(M + "ligne 1\r\n" + M + "ligne 2"));
    EXPECT_TRUE(FicheFamille(l.base, l.options, 999999, "x", jour).empty());
}

// 25 enfants s'annoncent 24 ; une note de cent lignes longues coule sur plusieurs pages.
TEST(FicheFamille, VingtCinqEnfantsEtPagesSuivantes) {
    essai::Lecture l;
    std::string corps = "0 @I1@ INDI|1 NAME Mere /X/|1 SEX F|1 FAMS @F1@|1 NOTE debut";
    for (int i = 0; i < 100; ++i) corps += "|2 CONT " + std::string(30, 'a') + " " + std::string(200, 'b');
    for (int i = 2; i <= 26; ++i)
        corps += "|0 @I" + std::to_string(i) + "@ INDI|1 NAME E" + std::to_string(i) + " /X/";
    corps += "|0 @F1@ FAM|1 WIFE @I1@";
    for (int i = 2; i <= 26; ++i) corps += "|1 CHIL @I" + std::to_string(i) + "@";
    l.Lire(corps);
    const auto f = FicheFamille(l.base, l.options, 1, "x.ged", {1, 1, 2026});
    ASSERT_FALSE(f.empty());
    const std::string compte = M + "x   ; 24 enfants :";
    EXPECT_NE(std::find(f.begin(), f.end(), L(compte)), f.end());
    const std::string pdf = FicheFamillePdf(f, "x");
    std::size_t pages = 0;
    for (auto p = pdf.find("/Type /Page "); p != std::string::npos; p = pdf.find("/Type /Page ", p + 1))
        ++pages;
    EXPECT_GE(pages, 4u);
    // Aucun morceau coupé ne dépasse la ligne : les "b" viennent par lignes de moins de 190 mm.
    EXPECT_EQ(pdf.find(std::string(200, 'b')), std::string::npos);
    EXPECT_NE(pdf.find("(E26) Tj"), std::string::npos);
}

}  // namespace
}  // namespace arbolix
