#include <gtest/gtest.h>

#include "gedcom/ecrivain.h"
#include "gedcom/lecture_essai.h"
#include "store/selection.h"

namespace arbolix {
namespace {

TEST(ControlesApresLecture, TextesExactsSurLeFichierFaitPourEux) {
    essai::Lecture l;
    l.LireFichier("controles.ged");
    EXPECT_EQ(l.resultat.Journal,
              "Alerte : la famille 2 comporte des \xE9v\xE8nements mais n'a pas 2 conjoints.\r\n"
              "Info : la fiche 4 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n");
    // Sans nettoyage, rien ne bouge : conjoints inversés, famille à un conjoint, notes.
    EXPECT_EQ(l.Fa(1).Mari, 1);
    EXPECT_EQ(l.Fa(2).Mari, 5);
    EXPECT_EQ(l.Pe(1).Notes, "marie.dupont@exemple.fr");
    EXPECT_EQ(l.Pe(3).Prenoms, "N");  // lue avec une date : gardée sous le prénom par défaut
}

TEST(Nettoyage, ConjointsEnfantsAdressesEtCourriel) {
    essai::Lecture l;
    l.cases.OptNettoie = true;
    l.LireFichier("controles.ged");
    const std::string& j = l.resultat.Journal;
    EXPECT_NE(j.find("Info : inversion de sexe corrig\xE9"
                     "e des conjoints de la famille 1."),
              std::string::npos);
    EXPECT_NE(
        j.find("Info : la fiche 4 a un pr\xE9nom vide qui a \xE9t\xE9 remplac\xE9 par le pr\xE9nom par d\xE9"
               "faut."),
        std::string::npos);
    EXPECT_EQ(l.Fa(1).Mari, 2);
    EXPECT_EQ(l.Fa(1).Femme, 1);
    // Les enfants par date de naissance : 1751 avant le 3 mars 1752.
    EXPECT_EQ(l.Fa(1).Enfants(1), 7);
    EXPECT_EQ(l.Fa(1).Enfants(2), 6);
    // Une famille sans enfant ni second conjoint disparaît.
    EXPECT_EQ(l.Fa(2).Mari, 0);
    EXPECT_EQ(l.Pe(5).Unions[1], 0);
    EXPECT_EQ(l.base.NbFamisReels, 1);
    // Chiffres pris pour des lettres dans les noms, casse des noms, courriel et ville rangés.
    EXPECT_EQ(l.Pe(1).Nom, "DUPONT");
    EXPECT_EQ(l.Pe(2).Nom, "L\xC9VY");
    EXPECT_EQ(l.Pe(1).Suite().EMail, "marie.dupont@exemple.fr");
    EXPECT_TRUE(l.Pe(1).Notes.empty());
    EXPECT_EQ(l.Pe(1).Suite().CP, "57000");
    EXPECT_EQ(l.Pe(1).Suite().Ville, "Metz");
    // Sans renumérotation, la fiche vide 4 prend le prénom par défaut ; la 3, qui a un nom, sans un mot.
    EXPECT_EQ(l.Pe(4).Prenoms, "N");
    EXPECT_EQ(l.Pe(3).Prenoms, "N");
}

// Le titre passe dans le métier une seule fois : il ne revient pas d'un enregistrement à l'autre.
TEST(Nettoyage, TitreFonduUneSeuleFoisDansLeMetier) {
    std::string texte =
        essai::Lignes("0 HEAD|0 @I1@ INDI|1 NAME Jean /Dupont/|1 OCCU notaire|1 TITL comte|0 TRLR|");
    for (int tour = 0; tour < 2; ++tour) {
        essai::Lecture l;
        l.cases.OptNettoie = true;
        l.LireTout(texte);
        EXPECT_EQ(l.Pe(1).Metier, "notaire, comte");
        EXPECT_TRUE(l.Pe(1).Titre.empty());
        ToutSelectionner(l.base);
        texte = EcrireGedcomTexte(l.base, ContexteEcriture{l.cases, EnteteArbolix(), "01/01/2000"});
    }
}

TEST(Nettoyage, AvecRenumerotationLesFichesVidesRestentVides) {
    essai::Lecture l;
    l.cases.OptNettoie = true;
    l.cases.OptRenum = true;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|0 @I2@ INDI|0 @I3@ INDI|1 NAME C /D/");
    EXPECT_TRUE(l.Pe(2).Prenoms.empty());
    EXPECT_EQ(l.resultat.Journal,
              "Info : la fiche 2 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n");
}

}  // namespace
}  // namespace arbolix

namespace arbolix {
namespace {

// Trouvé par le fuzzing : le nettoyage touchait chaque note jusqu'au plus grand numéro,
// et prenait la mémoire de cent millions de fiches vides.
TEST(Nettoyage, NoteAuNumeroDemesureNePrendPasDeMemoire) {
    essai::Lecture l;
    l.cases.OptNettoie = true;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|0 @N99999990@ NOTE|1 CONC |2 CONT texte");
    EXPECT_EQ(l.base.NbNotes, 99999990);
    EXPECT_EQ(std::as_const(l.base.Notes)[99999990].Texte, " \r\ntexte");
    EXPECT_LE(l.base.Notes.FichesEnMemoire(), 2u * 1024u);
}

}  // namespace
}  // namespace arbolix
