#include "store/selection.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(Selection, ToutSelectionnerPrendLesFichesEnUsageSeulement) {
    Base b;
    b.Persos[1].Nom = "Dupont";
    b.Persos[2].Prenoms = "Jean";
    b.Persos[3].SelAvant = kVrai;  // fiche effacée : ni nom ni prénoms
    b.Persos[1].SelAvant = kVrai;
    b.NbPersos = 3;
    b.Familles[1].Femme = 2;
    b.Familles[2].Enfants.Fixer(1, 1);  // sans conjoint, un enfant : rien à écrire
    b.Familles[3].Enfants.Fixer(1, 1);  // sans conjoint, deux enfants : une fratrie
    b.Familles[3].Enfants.Fixer(2, 2);
    b.NbFamis = 3;
    // Une note ou une source existe par son titre comme par son texte.
    b.Notes[1].Texte = "texte";
    b.Notes[2].Titre = "titre seul";
    b.NbNotes = 3;  // la 3 est vide
    b.Sources[1].Texte = "AD76";
    b.Sources[2].Titre = "Registres paroissiaux";
    b.NbSources = 2;
    ToutSelectionner(b);
    EXPECT_EQ(b.Persos[1].Sel, kVrai);
    EXPECT_EQ(b.Persos[1].SelAvant, kFaux);
    EXPECT_EQ(b.Persos[2].Sel, kVrai);
    EXPECT_EQ(b.Persos[3].Sel, kFaux);
    EXPECT_EQ(b.Persos[3].SelAvant, kVrai);
    EXPECT_EQ(b.Familles[1].Sel, kVrai);
    EXPECT_EQ(b.Familles[2].Sel, kFaux);
    EXPECT_EQ(b.Familles[3].Sel, kVrai);
    EXPECT_EQ(b.Notes[1].Sel, kVrai);
    EXPECT_EQ(b.Notes[2].Sel, kVrai);
    EXPECT_EQ(b.Notes[3].Sel, kFaux);
    EXPECT_EQ(b.Sources[1].Sel, kVrai);
    EXPECT_EQ(b.Sources[2].Sel, kVrai);
    // Au-delà de NbPersos rien n'est touché, même une fiche remplie.
    b.Persos[4].Nom = "Hors";
    ToutSelectionner(b);
    EXPECT_EQ(std::as_const(b.Persos)[4].Sel, kFaux);
}

}  // namespace
}  // namespace arbolix
