#include "verify/nettoyage.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "aides/invariant_liens.h"
#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

TEST(NettoyerLieux, VirgulesEtBlancs) {
    struct Cas {
        const char* avant;
        const char* apres;
    } const cas[] = {
        {", Lyon,", "Lyon"},
        {"Lyon,, Rh\xF4ne", "Lyon, Rh\xF4ne"},
        {"Lyon, , , Rh\xF4ne", "Lyon, Rh\xF4ne"},
        {"  ", ""},
        {", , ", ""},
        {"Saint-Jean  de  Luz", "Saint-Jean de Luz"},
        {"Paris", "Paris"},
    };
    Base b;
    essai::AjouterPersonne(b, 1, "A", "Jean", 'M');
    essai::AjouterFamille(b, 1, 1, 0);
    for (const auto& c : cas) {
        essai::Dater(b.Persos[1].Deces, "1750", c.avant);
        essai::Dater(b.Familles[1].Divorce, "1750", c.avant);
        b.Listes.Lieu.clear();
        b.Listes.Lieu.Ajouter(c.avant);
        NettoyerLieux(b);
        EXPECT_EQ(b.Persos[1].Deces.Lieu, c.apres) << c.avant;
        EXPECT_EQ(b.Familles[1].Divorce.Lieu, c.apres) << c.avant;
        EXPECT_EQ(b.Listes.Lieu.size(), *c.apres ? 1u : 0u) << c.avant;
        if (*c.apres) {
            EXPECT_TRUE(b.Listes.Lieu.Contient(c.apres)) << c.avant;
        }
    }
}

// Les liens deviennent leur texte ; plus aucune note ni source, plus aucun retour de lien.
TEST(ConvertirNotesSourcesExternes, LiensRemplacesParLeurTexte) {
    essai::Lecture l;
    l.Lire(
        "0 @N1@ NOTE Vu au registre|0 @N2@ NOTE|1 CONT Sans titre|"
        "0 @S1@ SOUR|1 TITL Registre de Lyon|1 TEXT f. 12|"
        "0 @I1@ INDI|1 NAME Jean /A/|1 NOTE @N1@|1 SOUR @S1@|1 BIRT|2 DATE 1750|2 NOTE @N2@|2 SOUR @S1@|"
        "1 FAMS @F1@|"
        "0 @I2@ INDI|1 NAME Anne /B/|1 FAMS @F1@|"
        "0 @F1@ FAM|1 HUSB @I1@|1 WIFE @I2@|1 MARR|2 SOUR @S1@");
    l.base.Persos[2].Notes = "@N1x@";  // pas un lien : reste tel quel
    l.base.Familles[1].Divorce.Source = "@S1@ p. 3 @S1x@";
    ConvertirNotesSourcesExternes(l.base);
    const Perso& p = l.Pe(1);
    EXPECT_EQ(p.Notes, "Vu au registre\r\nRegistre de Lyon : f. 12");  // ligne de note, source de la personne
    EXPECT_NE(p.Naissance.Notes.vue().find("Sans titre"), std::string_view::npos);
    EXPECT_EQ(p.Naissance.Source, "Registre de Lyon : f. 12");
    EXPECT_EQ(l.Fa(1).Mariage.Source, "Registre de Lyon : f. 12");
    EXPECT_EQ(l.Fa(1).Divorce.Source, "Registre de Lyon : f. 12 p. 3 @S1x@");
    EXPECT_EQ(l.Pe(2).Notes, "@N1x@");
    EXPECT_EQ(l.base.NbNotes + l.base.NbSources + l.base.NbNotesReelles + l.base.NbSourcesReelles, 0);
    EXPECT_EQ(essais::InvariantLiens(l.base).Ecarts(), "");
    EXPECT_FALSE(l.base.Listes.Source.Contient("@S1@"));
}

}  // namespace
}  // namespace arbolix
