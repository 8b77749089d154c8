#include "acts/txt2tm.h"

#include <gtest/gtest.h>

#include "acts/tmao.h"

namespace arbolix {
namespace {

constexpr const char* kEntete = "Nom\tPrenom\t...\r\n";

std::vector<ActeTMAO> Relire(const ResultatTxt2Tm& r) {
    const LectureTMAO l = LireTMAO(r.Octets, "sortie.TM");
    EXPECT_TRUE(l.Ok) << l.Erreur;
    return l.Actes;
}

TEST(Txt2Tm, ColonnesDatesEtLimites) {
    const std::string texte =
        std::string(kEntete) +
        "DUPONT\tJean DUPONT\tfils de  Pierre ,\t\t\t\tMARTIN\tMarie\t\t\t\t\t03/04/1760\t" +
        std::string(30, 'a') + "\n" + "BLANC\tLouis\n" + "NOIR\tPaul\t\t\t\t\t\t\t\t\t\t\t1792\n";
    const ResultatTxt2Tm r = Txt2Tm(texte, "actes.txt");
    ASSERT_TRUE(r.Ok) << r.Erreur;
    EXPECT_EQ(r.NbActes, 3);
    EXPECT_EQ(r.AnMin, 1760);
    EXPECT_EQ(r.AnMax, 1792);
    const auto actes = Relire(r);
    ASSERT_EQ(actes.size(), 3u);
    EXPECT_EQ(actes[0].Prenom1, "Jean");  // le nom répété au bout du prénom tombe
    EXPECT_EQ(actes[0].Lignes1[0], "fils de Pierre,");
    EXPECT_EQ(actes[0].Nom2, "MARTIN");
    EXPECT_EQ(DateTMAO(actes[0]), "03/04/1760");
    EXPECT_EQ(actes[0].LignesActe[0], std::string(20, 'a'));
    // Moins de 17 colonnes : des champs vides.
    EXPECT_EQ(actes[1].Prenom1, "Louis");
    EXPECT_EQ(actes[1].LignesActe[3], "");
    EXPECT_EQ(actes[1].Annee, 0);
    // Quatre chiffres : jour 0, mois 0.
    EXPECT_EQ(DateTMAO(actes[2]), "00/00/1792");
}

TEST(Txt2Tm, DateRepublicaineLueParLaDateCommune) {
    const ResultatTxt2Tm r =
        Txt2Tm(std::string(kEntete) + "A\tB\t\t\t\t\t\t\t\t\t\t\t12/vend/3\tnote perdue\n", "r.txt");
    ASSERT_TRUE(r.Ok) << r.Erreur;
    const auto actes = Relire(r);
    ASSERT_EQ(actes.size(), 1u);
    EXPECT_EQ(DateTMAO(actes[0]), "03/10/1794");
    EXPECT_NE(actes[0].LignesActe[0], "note perdue");
}

TEST(Txt2Tm, EnteteSeulEtBrouillon) {
    const ResultatTxt2Tm r = Txt2Tm(kEntete, "vide.txt");
    ASSERT_TRUE(r.Ok);
    EXPECT_EQ(r.NbActes, 0);
    EXPECT_TRUE(Relire(r).empty());
    EXPECT_EQ(BrouillonNotesTable(r, 2026),
              "_commune_ 0-0 (canton de _)\r\n0 actes de naissance_mariage_d\xE9"
              "c\xE8s\r\nSources : _\r\nRelev\xE9s : _\r\nConversion informatique : 2026");
    EXPECT_EQ(NomSortieTxt2Tm("/a/actes.txt"), "/a/actes.TM");
}

TEST(Txt2Tm, EntreesRefuseesEnNommantLaLigne) {
    const struct {
        std::string texte;
        const char* message;
    } cas[] = {
        {std::string(kEntete) + "a\tb\n" + std::string(39, '\t') + "\n",
         "Le fichier t.txt, ligne 3 : 40 colonnes, 17 au plus."},
        {std::string(kEntete) + std::string("a\0b\x01", 4) + "\n",
         "Le fichier t.txt, ligne 2 : des octets binaires"},
    };
    for (const auto& c : cas) {
        const ResultatTxt2Tm r = Txt2Tm(c.texte, "t.txt");
        EXPECT_FALSE(r.Ok);
        EXPECT_TRUE(r.Octets.empty());
        EXPECT_NE(r.Erreur.find(c.message), std::string::npos) << r.Erreur;
    }
}

}  // namespace
}  // namespace arbolix
