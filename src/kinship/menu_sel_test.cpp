#include "kinship/menu_sel.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

// 1 et 2 enfants de 3 et 4 ; 1 épouse 5, fille de 6 ; 7 fils de 3 d'une autre union.
Base Famille() {
    Base b;
    AjouterPersonne(b, 1, "MARTIN", "Paul", 'M', "1780");
    AjouterPersonne(b, 2, "MARTIN", "Anne", 'F');
    AjouterPersonne(b, 3, "MARTIN", "Jean", 'M', "1750");
    AjouterPersonne(b, 4, "DURAND", "Marie", 'F');
    AjouterPersonne(b, 5, "PETIT", "Rose", 'F');
    AjouterPersonne(b, 6, "PETIT", "Louis", 'M');
    AjouterPersonne(b, 7, "MARTIN", "Luc", 'M');
    AjouterFamille(b, 1, 3, 4, {}, {1, 2});
    AjouterFamille(b, 2, 1, 5);
    AjouterFamille(b, 3, 6, 0, {}, {5});
    AjouterFamille(b, 4, 3, 0, {}, {7});
    b.Notes[1].Texte = "note";
    b.Notes[1].LiensPersos.Fixer(1, 6);
    b.NbNotes = 1;
    b.Persos[3].Naissance.Notes = "@N1@";
    return b;
}

std::string Persos(const Base& b) {
    std::string s;
    for (int n = 1; n <= b.NbPersos; ++n) s += std::as_const(b.Persos)[n].Sel ? '1' : '.';
    return s;
}
std::string Famis(const Base& b) {
    std::string s;
    for (int f = 1; f <= b.NbFamis; ++f) s += std::as_const(b.Familles)[f].Sel ? '1' : '.';
    return s;
}

TEST(MenuSel, ToutePuisAscendantsRepartDeRienPuisAjoute) {
    Base b = Famille();
    Options o;
    EtatSelection e;
    MenuSel(b, o, e, 0, 1);
    EXPECT_EQ(e.Info, "7 personnes et 4 familles");
    EXPECT_FALSE(e.SelFicheActive);
    BoiteSel boite = MenuSel(b, o, e, 1, 1);
    EXPECT_EQ(boite.Texte, "2 anc\xEAtres trouv\xE9s pour\r\nMARTIN Paul");
    EXPECT_EQ(boite.NbAncetres, 2);
    EXPECT_EQ(Persos(b), "1.11...");
    EXPECT_EQ(Famis(b), "1...");
    EXPECT_EQ(b.Notes[1].Sel, kFaux);  // la note suit sa personne 6, hors de la sélection
    EXPECT_EQ(e.Info,
              "MARTIN Paul \xB0"
              "1780");
    EXPECT_EQ(e.Libelle,
              "Ascendants de MARTIN Paul \xB0"
              "1780");
    // Une seconde fois sur une autre fiche : les marques s'ajoutent.
    MenuSel(b, o, e, 1, 5);
    EXPECT_EQ(Persos(b), "1.1111.");
    EXPECT_EQ(Famis(b), "1.1.");
    // Inverser deux fois rend personnes et familles ; les notes ne bougent pas.
    b.Notes[1].Sel = kFaux;
    MenuInverseSel(b, e);
    EXPECT_EQ(Persos(b), ".1....1");
    EXPECT_EQ(Famis(b), ".1.1");
    EXPECT_TRUE(e.Inverse);
    MenuInverseSel(b, e);
    EXPECT_EQ(Persos(b), "1.1111.");
    EXPECT_EQ(Famis(b), "1.1.");
    EXPECT_EQ(b.Notes[1].Sel, kFaux);
    // Une personne créée pendant une sélection partielle en fait partie.
    const std::int32_t n = NouvellePersonne(b, true, false);
    EXPECT_EQ(std::as_const(b.Persos)[n].Sel, kVrai);
}

TEST(MenuSel, DescendantsSuiventLeNomSaufAvecSelTousDesc) {
    struct Cas {
        bool tous;
        const char* persos;
        const char* famis;
        const char* texte;
    };
    const Cas cas[] = {
        // Sans l'option : 1 porte le nom et a une union ; 2 et 7 n'en ont pas. Les conjoints suivent.
        {false, "1.111..", "11.1",
         "1 descendants de MARTIN Jean \xB0"
         "1750"},
        {true, "11111.1", "11.1",
         "3 descendants de MARTIN Jean \xB0"
         "1750"},
    };
    for (const auto& c : cas) {
        Base b = Famille();
        Options o;
        o.SelTousDesc = c.tous;
        EtatSelection e;
        MenuSel(b, o, e, 0, 3);
        const BoiteSel boite = MenuSel(b, o, e, 2, 3);
        EXPECT_EQ(boite.Titre, "S\xE9lection active");
        EXPECT_EQ(boite.Texte, c.texte);
        EXPECT_EQ(Persos(b), c.persos) << c.tous;
        EXPECT_EQ(Famis(b), c.famis) << c.tous;
        EXPECT_EQ(b.Notes[1].Sel, kVrai);  // liée à la naissance de 3
    }
}

TEST(MenuSel, ApparentesEtFicheAbsente) {
    Base b = Famille();
    Options o;
    EtatSelection e;
    MenuSel(b, o, e, 0, 1);
    BoiteSel boite = MenuSel(b, o, e, 3, 1);
    EXPECT_EQ(boite.Texte,
              "4 personnes et 3 familles s\xE9lectionn\xE9"
              "es");
    EXPECT_EQ(Persos(b), "1.111..");
    EXPECT_EQ(Famis(b), "11.1");
    EXPECT_EQ(e.Cochee, 3);
    // Sans fiche, rien ne change.
    boite = MenuSel(b, o, e, 1, 0);
    EXPECT_TRUE(boite.Erreur);
    EXPECT_EQ(boite.Texte, "Vous devez afficher une fiche avant de lancer cette commande.");
    EXPECT_EQ(Persos(b), "1.111..");
}

}  // namespace
}  // namespace arbolix
