#include <gtest/gtest.h>

#include <string>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

using essai::Lecture;

TEST(LectureFamille, FamilleLueAvantSesMembres) {
    Lecture l;
    l.LireFichier("familles.ged");
    EXPECT_EQ(l.F(1),
              "Mari=1; Femme=2; Contrat.Date=01/03/1750; Mariage.Date=12/03/1750; Mariage.Lieu=Metz; "
              "Mariage.Notes=Mariage \xE0 l'\xE9glise \\nSaint-Martin\\n@N1@; Mariage.Source=@S1@; "
              "Mariage.Medias=1; "
              "Mariage.Temoins=5,6(Parrain/Marraine); Divorce.Date=1760; Enfants=3,4; DateModif=4");
    EXPECT_EQ(l.P(1), "Nom=Dupont; Prenoms=Jean; Unions=1");
    EXPECT_EQ(l.P(3), "Nom=Dupont; Prenoms=Luc; NumParents=1");
    // La note du mariage n'est pas un lien à elle seule (elle porte aussi du texte) : pas de retour.
    EXPECT_EQ(l.N(1), "Texte=Note de famille");
    EXPECT_EQ(l.S(1), "LiensFamis=1");
    EXPECT_EQ(l.M(1), "Fichiers=photo.jpg; Actif=-1; TypeActe=2");
    EXPECT_EQ(l.base.NbPersosReels, 7);
    // Une fiche familiale qui n'a qu'un NCHI compte comme famille.
    EXPECT_EQ(l.base.NbFamisReels, 3);
}

TEST(LectureFamille, VingtEtUniemeTemoinRefuse) {
    std::string lignes = "0 @F1@ FAM|1 MARR";
    for (int i = 2; i <= 22; ++i) lignes += "|2 ASSO @I" + std::to_string(i) + "@";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.Fa(1).Mariage.Liens().Temoins.Nombre(), 20u);
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 24 : impossible d'ajouter le t\xE9moin 22 \xE0 la famille 1 car il "
                     "y a d\xE9j\xE0 20 t\xE9moins."))
        << l.Journal();
}

TEST(LectureFamille, NoteRepublicaineRelueSansGrossir) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|0 @F1@ FAM|1 HUSB @I1@|1 MARR|2 DATE 16 OCT 1793|2 NOTE 25/vend/2");
    EXPECT_EQ(l.Fa(1).Mariage.Notes, "25/vend/2");
}

TEST(LectureFamille, EnfantDansDeuxFamillesEtMariageSansDate) {
    Lecture l;
    l.LireFichier("familles.ged");
    // Anne reste dans les deux familles ; ses parents sont ceux de la première. « 1 MARR Y » : le
    // mariage a eu lieu, il est gardé comme connu.
    EXPECT_EQ(l.F(2), "Mari=7; Mariage.Connu=Y; Enfants=4");
    EXPECT_EQ(l.Pe(4).NumParents, 1);
    EXPECT_EQ(l.P(7), "Nom=Autre; Prenoms=Paul; Unions=2");
    EXPECT_EQ(l.Journal(),
              "Alerte ligne 36 : enfant reli\xE9 \xE0 plusieurs couples parents : P4 Dupont Anne ; le lien "
              "vers les "
              "parents F2 a \xE9t\xE9 ignor\xE9.\r\n");
}

// Évènements connus sans date, lignes d'une citation, même chemin deux fois.
TEST(LectureFamille, EvenementsConnusSousBlocsEtFichiersEnDouble) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|0 @F1@ FAM|1 HUSB @I1@|1 MARR|2 DATE 1750|2 SOUR @S1@|3 DATA|4 DATE 1800"
        "|3 NOTE citation|4 CONC suite|2 FILE a.jpg|2 FILE a.jpg|1 DIV Y|1 MARC Y|1 WIFE @I1@"
        "|0 @F2@ FAM|1 HUSB @I1@|1 MARR N");
    EXPECT_EQ(l.F(1),
              "Mari=1; Femme=1; Contrat.Connu=Y; Mariage.Date=1750; Mariage.Source=@S1@; Mariage.Medias=1; "
              "Divorce.Connu=Y");
    EXPECT_EQ(l.base.NbMediasReels, 1);
    const std::string nt =
        "donn\xE9"
        "e non trait\xE9"
        "e : ";
    EXPECT_EQ(
        l.Journal(),
        "Erreur ligne 10, famille 1, " + nt + "DATE 1800\r\nErreur ligne 11, famille 1, " + nt +
            "NOTE citation\r\nErreur ligne 12, famille 1, " + nt +
            "CONC suite\r\nErreur ligne 20 : Arbolix attend une date de mariage pour la famille 2.\r\n");
}

TEST(LectureFamille, VingtSixiemeEnfant) {
    std::string lignes = "0 @I1@ INDI|1 NAME Jean /Dupont/|0 @I2@ INDI|1 NAME Marie /Martin/";
    for (int k = 1; k <= 26; ++k)
        lignes += "|0 @I" + std::to_string(2 + k) + "@ INDI|1 NAME Enfant" + std::to_string(k) + " /Dupont/";
    lignes += "|0 @F1@ FAM|1 HUSB @I1@|1 WIFE @I2@";
    for (int k = 1; k <= 26; ++k) lignes += "|1 CHIL @I" + std::to_string(2 + k) + "@";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.Fa(1).Enfants.Nombre(), 25u);
    EXPECT_EQ(l.Fa(1).Enfants(25), 27);
    EXPECT_EQ(l.P(28), "Nom=Dupont; Prenoms=Enfant26; Notes=\\nenfant de Dupont Jean et Martin Marie");
    EXPECT_EQ(l.Journal(),
              "Alerte ligne 86 : enfant sans lien complet vers les parents : P28 Dupont Enfant26\r\n");
}

TEST(LectureFamille, HuitiemeUnionRefusee) {
    std::string lignes = "0 @I1@ INDI|1 NAME Jean /Dupont/";
    for (int f = 1; f <= 8; ++f) lignes += "|0 @F" + std::to_string(f) + "@ FAM|1 HUSB @I1@";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.P(1), "Nom=Dupont; Prenoms=Jean; Unions=1,2,3,4,5,6,7");
    EXPECT_EQ(l.Fa(8).Mari, 1);
    EXPECT_EQ(l.Journal(),
              "Erreur ligne 19 : impossible d'ajouter l'union 8 \xE0 la personne 1 Dupont Jean car il y a "
              "d\xE9j\xE0 7 "
              "unions.\r\n");
}

TEST(LectureFamille, LienVersUneFamilleIgnore) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|0 @F1@ FAM|1 HUSB @I1@|1 CHIL @F1@|1 WIFE @F2@|1 CHIL texte|0 @F2@ FAM");
    EXPECT_EQ(l.F(1), "Mari=1");
    EXPECT_EQ(l.Journal(),
              "Erreur ligne 6 : le lien CHIL @F1@ de la famille 1 d\xE9signe une famille et non une personne "
              "; il a "
              "\xE9t\xE9 ignor\xE9.\r\n"
              "Erreur ligne 7 : le lien WIFE @F2@ de la famille 1 d\xE9signe une famille et non une personne "
              "; il a "
              "\xE9t\xE9 ignor\xE9.\r\n"
              "Erreur ligne 8, famille 1, donn\xE9"
              "e non trait\xE9"
              "e : CHIL texte\r\n");
}

TEST(LectureFamille, MemesPrefixesPourPersonnesEtFamilles) {
    // Des identifiants qui ne disent pas le genre de la fiche : aucun lien n'est refusé.
    Lecture l;
    l.Lire("0 @X2@ FAM|1 HUSB @X1@|1 CHIL @X3@|0 @X1@ INDI|1 NAME A /B/|0 @X3@ INDI|1 NAME C /B/");
    EXPECT_EQ(l.F(1), "Mari=1; Enfants=3");
}

TEST(LectureFamille, FichiersDeFamille) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|0 @I2@ INDI|1 NAME C /D/|0 @F1@ FAM|1 HUSB @I1@|1 MARR|2 FILE mariage.jpg"
        "|1 DIV|2 FILE @M9@|1 OBJE|2 TITL Contrat|2 FILE contrat.pdf|0 @M9@ OBJE|1 FILE divorce.pdf");
    // Le chemin donne un objet local rangé dans l'évènement, au-dessus des numéros vus.
    EXPECT_EQ(l.F(1), "Mari=1; Mariage.Medias=1,10; Divorce.Medias=9");
    EXPECT_EQ(l.M(1), "Fichiers=mariage.jpg; Local=-1; Actif=-1; LiensFamis=1; TypeActe=2");
    EXPECT_EQ(l.M(10), "Fichiers=contrat.pdf; Titres=Contrat; Local=-1; Actif=-1; LiensFamis=1");
    // Le retour de lien d'un objet du fichier reçoit la personne courante (2), non la famille.
    EXPECT_EQ(l.M(9), "Fichiers=divorce.pdf; Actif=-1; LiensFamis=2; TypeActe=7");
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

TEST(LectureFamille, CasesDecochees) {
    const std::string_view lignes =
        "0 @I1@ INDI|1 NAME A /B/|0 @F1@ FAM|1 HUSB @I1@|1 MARR|2 DATE 1750|2 PLAC Metz|2 NOTE n|2 SOUR s"
        "|2 ASSO @I1@|2 FILE a.jpg";
    Lecture rien;
    rien.cases.Lieux = rien.cases.Temoins = rien.cases.Fichiers = rien.cases.Sources = rien.cases.Notes =
        false;
    rien.Lire(lignes);
    EXPECT_EQ(rien.F(1), "Mari=1; Mariage.Date=1750");
    Lecture tout;
    tout.Lire(lignes);
    EXPECT_EQ(
        tout.F(1),
        "Mari=1; Mariage.Date=1750; Mariage.Lieu=Metz; Mariage.Notes=n; Mariage.Source=s; Mariage.Medias=1; "
        "Mariage.Temoins=1");
}

}  // namespace
}  // namespace arbolix
