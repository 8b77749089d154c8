#include "card/lignes_personne.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;
using essai::Dater;

struct CasActe {
    const char* nom;
    const char* date;
    const char* lieu;
    const char* notes;
    const char* source;
    bool longue;
    int largeur;
    const char* attendu;
};

TEST(LigneActe, ResumeDateLieuNoteSourceEtLargeur) {
    Base b;
    b.Notes[3].Texte = "Acte en marge,\r\nsign\xE9 du cur\xE9 de la paroisse Saint-Sacerdos";
    b.NbNotes = 3;
    b.Sources[2].Texte = "Registres paroissiaux de Sarlat";
    b.NbSources = 2;
    const CasActe cas[] = {
        {"date seule", "12/03/1750", "", "", "", true, 0, "12/03/1750"},
        {"lieu sans date", "", "Sarlat", "", "", true, 0, " Sarlat"},
        {"note coupée à 30", "1750", "Sarlat", "Baptis\xE9 sous condition par la sage-femme", "", true, 0,
         "1750 Sarlat Baptis\xE9 sous condition par la "},
        {"note coupée à 15", "1750", "", "Baptis\xE9 sous condition", "", false, 0,
         "1750 Baptis\xE9 sous co"},
        {"lien de note : le texte externe sur une ligne", "1750", "", " @N3@ ", "", true, 0,
         "1750 Acte en marge, sign\xE9 du cur\xE9 d"},
        {"lien de source", "1750", "", "", "@S2@", false, 0, "1750 Registres paroi"},
        {"lien vers une note absente : le texte reste", "1750", "", "@N999999@", "", false, 0,
         "1750 @N999999@"},
        {"faux lien : texte gardé", "1750", "", "@N3x@", "", false, 0, "1750 @N3x@"},
        {"raccourci de deux en deux", "12/03/1750", "Sarlat", "", "", true, 14, "12/03/1750 Sa"},
        {"déjà à la largeur", "12/03/1750", "", "", "", true, 10, "12/03/1750"},
    };
    for (const auto& c : cas) {
        Acte a;
        Dater(a, c.date, c.lieu);
        a.Notes = c.notes;
        a.Source = c.source;
        EXPECT_EQ(LigneActe(b, a, c.longue, {c.largeur, {}}), c.attendu) << c.nom;
    }
}

TEST(LigneActe, TemoinsSignalesEtMesureDonnee) {
    Base b;
    Acte a;
    Dater(a, "1750", "Sarlat");
    a.LiensModif().Temoins.Fixer(1, 12);
    EXPECT_EQ(LigneActe(b, a, true), "1750 Sarlat T\xE9moins");
    // Une mesure en pixels : 10 par caractère, 60 au plus.
    const Largeur l{60, [](std::string_view s) { return static_cast<int>(s.size()) * 10; }};
    EXPECT_EQ(LigneActe(b, a, true, l), "1750 ");
}

TEST(LignesPersonne, CourteEtListeSansSosaNulNiNomAbsent) {
    Base b;
    Options o;
    AjouterPersonne(b, 1, "MARTIN", "Jean", 'M', "03/03/1718", "1779");
    AjouterPersonne(b, 2, "FAURE", "Marguerite", 'F', "1722");
    b.Persos[2].SuiteModif().NumSosa[0] = "0";
    AjouterPersonne(b, 3, "DELMAS", "Louis");
    b.Persos[3].SuiteModif().NumSosa[0] = "12";
    EXPECT_EQ(LigneCourte(b, o, 1), "Jean MARTIN \xB0 03/03/1718 + 1779");
    EXPECT_EQ(LigneListe(b, o, 1),
              "MARTIN Jean \xB0"
              "03/03/1718 +1779");
    EXPECT_EQ(LigneCourte(b, o, 2), "Marguerite FAURE \xB0 1722");
    EXPECT_EQ(LigneListe(b, o, 3), "DELMAS Louis S12");
    EXPECT_EQ(LigneCourte(b, o, 3), "Louis DELMAS S12");
    EXPECT_EQ(LigneListe(b, o, 0), "");
    EXPECT_EQ(LigneCourte(b, o, 4), "");
    EXPECT_EQ(LigneListe(b, o, -1), "");
    EXPECT_EQ(LigneListe(b, o, 5'000'000), "");
}

TEST(LignesPersonne, BulleEtDetailNommentConjointEtParents) {
    Base b;
    Options o;
    AjouterPersonne(b, 1, "MARTIN", "Pierre", 'M');
    AjouterPersonne(b, 2, "LAGARDE", "Anne", 'F');
    AjouterPersonne(b, 3, "MARTIN", "Jean", 'M').Metier = "Tisserand";
    b.Persos[3].SuiteModif().Ref = "12";
    AjouterPersonne(b, 4, "FAURE", "Marguerite", 'F');
    AjouterFamille(b, 1, 1, 2, "14/01/1716", {3});
    AjouterFamille(b, 2, 3, 4, "20/02/1744").Mariage.Lieu = "Sarlat";
    EXPECT_EQ(BullePersonne(b, o, 3),
              "Ref 12 / Tisserand / x M. FAURE / enfant de Pierre MARTIN et Anne LAGARDE");
    EXPECT_EQ(
        DetailPersonne(b, o, 3),
        "Ref 12. Tisserand. x 20/02/1744 Sarlat Marguerite FAURE. enfant de Pierre MARTIN et Anne LAGARDE");
    // Vue par l'épouse, le conjoint est le mari.
    EXPECT_EQ(BullePersonne(b, o, 4), "x J. MARTIN");
    EXPECT_EQ(DetailPersonne(b, o, 4), "x 20/02/1744 Sarlat Jean MARTIN.");
    EXPECT_EQ(BullePersonne(b, o, 0), "");
}

TEST(LienExterne, SeulUnLienEntierCompte) {
    EXPECT_EQ(LienExterne("@N12@", 'N'), 12);
    EXPECT_EQ(LienExterne("  @S7@ ", 'S'), 7);
    EXPECT_EQ(LienExterne("@S7@", 'N'), 0);
    EXPECT_EQ(LienExterne("@N@", 'N'), 0);
    EXPECT_EQ(LienExterne("voir @N12@", 'N'), 0);
    EXPECT_EQ(LienExterne("@N1 2@", 'N'), 0);
}

}  // namespace
}  // namespace arbolix
