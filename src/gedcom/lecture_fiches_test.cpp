#include <gtest/gtest.h>

#include <string>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

using essai::Lecture;

TEST(LectureFiches, NotesEtSources) {
    Lecture l;
    l.Lire(
        "0 @N1@ NOTE Premier|1 CONC  texte|1 CONT suite|1 TITL Titre"
        "|0 @N2@ NOTE|1 TEXT un|1 TEXT deux|1 ABBR #gard\xE9|1 CHAN|2 DATE 1 JAN 2000"
        "|0 @S3@ SOUR|1 TITL Registre|1 AUTH Cur\xE9|1 TEXT Bapt\xEAmes|0 @S4@ SOUR|1 TITL @S3@");
    EXPECT_EQ(l.N(1), "Titre=Titre; Texte=Premier texte \\nsuite");
    // Chaque TEXT s'ajoute au texte ; ce qui commence par "#" ne se lit pas et va au journal. La date
    // de modification d'une note n'a pas de champ : elle se perd sans un mot.
    EXPECT_EQ(l.N(2), "Texte=un \\ndeux");
    EXPECT_EQ(l.S(3), "Titre=Registre; Texte=Auteur : Cur\xE9 \\nBapt\xEAmes");
    EXPECT_EQ(l.S(4), "Titre=@S3@");
    EXPECT_EQ(l.base.NbNotesReelles, 2);
    EXPECT_EQ(l.base.NbSourcesReelles, 2);
    EXPECT_EQ(l.base.NbSources, 4);
    EXPECT_EQ(l.Journal(),
              "Erreur ligne 11, note 2, donn\xE9"
              "e non trait\xE9"
              "e : ABBR #gard\xE9\r\n");
}

// Ce que la source porte sans champ pour le garder (auteur, publication, dépôt, cote, note) va à
// son texte, ligne par ligne ; le dépôt se nomme par sa fiche, même lue plus loin.
TEST(LectureFiches, SourceAuteurPublicationDepot) {
    Lecture l;
    l.Lire(
        "0 @S1@ SOUR|1 AUTH Ancestry.com|1 TITL U.S., Find A Grave|2 CONC  Index"
        "|1 PUBL Name: Ancestry; Date: 2|2 CONC 012;|1 REPO @R1@|2 CALN 3 E 12"
        "|1 NOTE|2 CONC <i>Find A Grave</i>.|2 CONT http://x"
        "|1 CHAN|2 DATE 1 JAN 2000|0 @R1@ REPO|1 NAME Archives de la Moselle|1 ADDR Metz"
        "|0 @S2@ SOUR|1 NAME Rose, par Gail Cameron|1 TYPE Autre|1 REPO|2 CALN|3 MEDI Livre|1 QUAY 2"
        "|1 DATA|2 EVEN BIRT, DEAT|3 DATE FROM 1800 TO 1850|3 PLAC Metz|2 AGNC Paroisse");
    EXPECT_EQ(
        l.S(1),
        "Titre=U.S., Find A Grave Index; Texte=Auteur : Ancestry.com \\nPublication : Name: Ancestry; Date: "
        "2012; \\nD\xE9p\xF4t : Archives de la Moselle \\nCote : 3 E 12 \\nNote : <i>Find A Grave</i>. "
        "\\nhttp://x");
    EXPECT_EQ(l.S(2),
              "Titre=Rose, par Gail Cameron; Texte=Type : Autre \\nSupport : Livre \\nQualit\xE9 : 2 "
              "\\n\xC9v\xE8nements : BIRT, DEAT \\nP\xE9riode : FROM 1800 TO 1850 \\nLieu : Metz "
              "\\nOrganisme : Paroisse");
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

// Cinquante lignes que la source ne sait pas garder : chacune au journal, rien d'autre ne se perd.
TEST(LectureFiches, SourceDeLignesInconnues) {
    std::string lignes = "0 @S1@ SOUR|1 TITL Registre|1 TEXT Bapt\xEAmes";
    for (int i = 1; i <= 25; ++i) {
        const std::string n = std::to_string(i);
        lignes += "|1 _PERSO" + n + " valeur " + n + (i % 2 ? "|2 CONC suite " : "|2 DATA|3 DATE ") + n;
    }
    lignes += "|1 REPO @R9@|1 TEXT fin";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.S(1), "Titre=Registre; Texte=Bapt\xEAmes \\nfin");
    EXPECT_EQ(l.Compte(", source 1, donn\xE9"
                       "e non trait\xE9"
                       "e : "),
              51u);
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 7, source 1, donn\xE9"
                     "e non trait\xE9"
                     "e : CONC suite 1"));
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 10, source 1, donn\xE9"
                     "e non trait\xE9"
                     "e : DATE 2"));
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 68, source 1, donn\xE9"
                     "e non trait\xE9"
                     "e : REPO @R9@"));
}

TEST(LectureFiches, LigneVideDansUneNote) {
    // La seconde ligne vide ramène la lecture dans la même note.
    Lecture l;
    l.Lire("0 @N1@ NOTE|1 CONC a|||1 CONC b");
    EXPECT_EQ(l.N(1), "Texte=ab");
    EXPECT_EQ(l.base.NbNotesReelles, 1);
}

TEST(LectureFiches, CasesDecocheesSautentLesFiches) {
    Lecture l;
    l.cases.Notes = l.cases.Sources = l.cases.Fichiers = false;
    l.Lire("0 @N1@ NOTE texte|0 @S1@ SOUR|1 TITL t|0 @M1@ OBJE|1 FILE a.jpg|0 @I1@ INDI|1 NAME A /B/");
    EXPECT_EQ(l.base.NbNotesReelles + l.base.NbSourcesReelles + l.base.NbMediasReels, 0);
    EXPECT_EQ(l.N(1) + l.S(1) + l.M(1), "");
    EXPECT_EQ(l.base.NbPersosReels, 1);
}

TEST(LectureFiches, ObjetMedia) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|0 @M1@ OBJE|1 FILE a.jpg|2 FORM jpg|1 TITL Portrait|1 INDI @I1@|1 FAM @F1@"
        "|1 NOTE @N2@|1 SOUR @S3@|1 NOTE un texte n'est pas un lien|0 @F1@ FAM|1 HUSB @I1@");
    EXPECT_EQ(
        l.M(1),
        "Fichiers=a.jpg; Titres=Portrait; Actif=-1; LiensPersos=1; LiensFamis=1; NumNote=2; NumSource=3");
    EXPECT_EQ(l.P(1), "Nom=B; Prenoms=A; Unions=1; ObjetsMedia=1");
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

TEST(LectureFiches, LimitesDUnObjetMedia) {
    std::string lignes;
    for (int i = 1; i <= 10; ++i)
        lignes += "0 @I" + std::to_string(i) + "@ INDI|1 NAME A" + std::to_string(i) + " /B/|";
    // La personne 1 a déjà neuf objets quand le dixième la nomme.
    for (int m = 1; m <= 9; ++m) lignes += "0 @M" + std::to_string(m) + "@ OBJE|1 INDI @I1@|";
    lignes += "0 @M10@ OBJE";
    for (int i = 1; i <= 10; ++i) {
        const std::string n = std::to_string(i);
        lignes += "|1 FILE f" + n + ".jpg|1 TITL t" + n + "|1 INDI @I" + n + "@|1 FAM @F" + n + "@";
    }
    Lecture l;
    l.Lire(lignes);
    const ObjetMedia& o = std::as_const(l.base.Medias)[10];
    EXPECT_EQ(o.Fichiers.Nombre(), 9u);
    EXPECT_EQ(o.Titres.Nombre(), 9u);
    EXPECT_EQ(o.LiensPersos.Nombre(), 9u);
    EXPECT_EQ(o.LiensFamis.Nombre(), 9u);
    // Les retours suivent les ObjetsMedia des personnes : la personne 1, déjà pleine, n'y est pas.
    EXPECT_EQ(o.LiensPersos(1), 2);
    EXPECT_EQ(o.LiensPersos(9), 10);
    EXPECT_NE(l.Journal().find(" : impossible d'ajouter l'objet m\xE9"
                               "dia 10 \xE0 la personne 1 car il y a d\xE9j\xE0 9 "
                               "objets m\xE9"
                               "dias reli\xE9s \xE0 cette personne.\r\n"),
              std::string::npos)
        << l.Journal();
    for (std::string_view fin : {"impossible d'ajouter le chemin \xE0 l'objet m\xE9"
                                 "dia 10 car il y a d\xE9j\xE0 9 fichiers reli\xE9s \xE0 "
                                 "cet objet m\xE9"
                                 "dia.",
                                 "impossible d'ajouter le titre \xE0 l'objet m\xE9"
                                 "dia 10 car il y a d\xE9j\xE0 9 titres reli\xE9s \xE0 cet "
                                 "objet m\xE9"
                                 "dia.",
                                 "impossible d'ajouter la personne \xE0 l'objet m\xE9"
                                 "dia 10 car il y a d\xE9j\xE0 9 personnes reli\xE9"
                                 "es "
                                 "\xE0 cet objet m\xE9"
                                 "dia.",
                                 "impossible d'ajouter la famille \xE0 l'objet m\xE9"
                                 "dia 10 car il y a d\xE9j\xE0 9 familles reli\xE9"
                                 "es "
                                 "\xE0 cet objet m\xE9"
                                 "dia."})
        EXPECT_EQ(l.Compte(fin), 1u) << fin;
}

TEST(LectureFiches, LectureALaSuiteDUneBaseNonVide) {
    // Une seconde lecture range notes et objets derrière ceux de la première.
    const std::string_view fichier =
        "0 @I1@ INDI|1 NAME A /B/|1 NOTE @N1@|1 OBJE @M1@|0 @N1@ NOTE texte|0 @M1@ OBJE|1 FILE a.jpg";
    Lecture l;
    l.Lire(fichier);
    l.Lire(fichier);
    EXPECT_EQ(l.P(2), "Nom=B; Prenoms=A; Notes=@N2@; ObjetsMedia=2");
    EXPECT_EQ(l.N(2), "Texte=texte; LiensPersos=2");
    EXPECT_EQ(l.M(2), "Fichiers=a.jpg; Actif=-1; LiensPersos=2");
    EXPECT_EQ(l.N(1), "Texte=texte; LiensPersos=1");
}

}  // namespace
}  // namespace arbolix
