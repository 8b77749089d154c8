#include "store/base.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(Base, BornesBassesEtFicheVierge) {
    Base base;
    EXPECT_EQ(base.MaxFiches, 10000);
    EXPECT_EQ(base.Persos.Bas(), -1);
    EXPECT_EQ(base.Notes.Bas(), -1);
    EXPECT_EQ(base.Sources.Bas(), -1);
    EXPECT_EQ(base.Familles.Bas(), 0);
    EXPECT_EQ(base.Medias.Bas(), 0);
    EXPECT_EQ(base.Persos.Haut(), 10000);
    // Un lien 0 se lit comme une fiche vierge.
    const Base& lue = base;
    EXPECT_TRUE(lue.Persos[0].Nom.empty());
    EXPECT_EQ(lue.Familles[0].Enfants(1), 0);
    EXPECT_THROW((void)lue.Persos[10001], std::out_of_range);
    EXPECT_THROW((void)lue.Persos[-2], std::out_of_range);
}

TEST(Base, RedimensionnerGardeLeContenu) {
    Base base;
    base.Persos[9999].Nom = "Martin";
    base.Notes[-1].Texte = "note du fichier";
    RedimensionnerBase(base, 15000);
    EXPECT_EQ(base.Persos[9999].Nom, "Martin");
    EXPECT_EQ(base.Notes[-1].Texte, "note du fichier");
    EXPECT_EQ(base.Medias.Haut(), 15000);
    Vider(base, true);
    EXPECT_TRUE(base.Persos[9999].Nom.empty());
    EXPECT_EQ(base.Persos.Haut(), 10000);
}

TEST(Base, AgrandirSeulementQuandLaPlaceManque) {
    Base base;
    base.NumCourant = 8999;
    AgrandirBase(base, false, 10000, nullptr, "");
    EXPECT_EQ(base.MaxFiches, 10000);
    base.NumCourant = 9001;
    AgrandirBase(base, false, 10000, nullptr, "");
    EXPECT_EQ(base.MaxFiches, 20000);
    EXPECT_EQ(base.Familles.Haut(), 20000);
}

TEST(Base, NouvellePersonneRemplitEtReutilise) {
    Base base;
    const auto a = NouvellePersonne(base, true, false);
    const auto b = NouvellePersonne(base, true, false);
    EXPECT_EQ(a, 1);
    EXPECT_EQ(b, 2);
    EXPECT_EQ(base.Persos[1].Nom, "N");
    EXPECT_EQ(base.Persos[1].Prenoms, "N");
    EXPECT_EQ(base.Persos[1].Sel, kVrai);
    EXPECT_EQ(base.NbPersosReels, 2);
    EXPECT_EQ(base.FichierModifie, kVrai);
    base.Persos[1].Prenoms.clear();  // fiche effacée
    EXPECT_EQ(NouvellePersonne(base, false, true), 1);
    EXPECT_EQ(NouvellePersonne(base, false, false), 3);
    base.Persos[2].Nom = "Dupont";
    base.Persos[2].Prenoms = "Jeanne";
    base.Persos[2].Sexe = 'F';
    const auto c = NouvellePersonne(base, true, false, 2);
    EXPECT_EQ(base.Persos[c].Nom, "Dupont");
    EXPECT_EQ(base.Persos[c].Sexe, 'F');
}

TEST(Base, EmplacementsCreux) {
    Acte a;
    EXPECT_EQ(a.Liens().Temoins(20), 0);
    EXPECT_EQ(a.Liens().Temoins.PremierLibre(1), 1);
    auto& l = a.LiensModif();
    for (int i = 1; i <= 20; ++i) l.Temoins.Fixer(i, 100 + i);
    EXPECT_EQ(l.Temoins.PremierLibre(), 0);  // l'emplacement 0 reste libre
    EXPECT_EQ(l.Temoins.PremierLibre(1), 21);
    l.Temoins.Fixer(7, 0);
    EXPECT_EQ(l.Temoins.PremierLibre(1), 7);
    EXPECT_EQ(l.Temoins(8), 108);
    EXPECT_THROW(l.Temoins.Fixer(21, 1), std::out_of_range);
    Acte copie = a;
    EXPECT_EQ(copie, a);
    copie.LiensModif().RolesTemoins.Fixer(3, "Parrain");
    EXPECT_FALSE(copie == a);
    EXPECT_TRUE(a.Liens().RolesTemoins(3).empty());
}

}  // namespace
}  // namespace arbolix
