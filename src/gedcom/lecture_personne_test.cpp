#include <gtest/gtest.h>

#include <string>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

using essai::Lecture;

TEST(LecturePersonne, Noms) {
    struct Cas {
        std::string_view lignes;
        std::string_view nom;
        std::string_view prenoms;
    };
    const Cas cas[] = {
        {"1 NAME Jean /Dupont/", "Dupont", "Jean"},
        {"1 NAME Jean /Dupont/|1 NAME Jean /Dupond/", "Dupont,Dupond", "Jean Jean"},
        // "//" final : le second nom est collé sans virgule.
        {"1 NAME Jean /Martin/|1 NAME /Dupont//", "MartinDupont", "Jean"},
        // Un nom de plus sans barre oblique (ou vide) est un surnom : le nom lu reste.
        {"1 NAME Pierre /Durand/|1 NAME Jean|2 TYPE aka|1 NAME", "Durand", "Pierre \"Jean\""},
        // Le nom d'une citation ou d'une traduction n'est pas celui de la personne.
        {"1 NAME Jean /Dupont/|2 SOUR @S1@|3 NAME GEDCOM file imported|2 TRAN|3 SURN Doupon|3 GIVN Zhan",
         "Dupont", "Jean"},

        // Une seule barre : la valeur entière est le nom.
        {"1 NAME Jean /Dupont", "Jean /Dupont", "Jean"},
        {"1 NAME Jean /Du/pont/", "Du,pont", "Jean"},
        {"1 NAME Jean /Dupont/|2 GIVN Jean Pierre|2 SURN Dupond|2 NICK  Le Grand |2 ALIA @I9@", "Dupond",
         "Jean Pierre \"Le Grand\""},
        // GIVN contenu dans les prénoms ne les remplace pas ; SURN vide n'efface pas le nom.
        {"1 NAME Jean Pierre /Dupont/|2 GIVN Pierre|2 SURN", "Dupont", "Jean Pierre"},
    };
    for (const Cas& c : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|" + std::string(c.lignes));
        EXPECT_EQ(l.Pe(1).Nom, c.nom) << c.lignes;
        EXPECT_EQ(l.Pe(1).Prenoms, c.prenoms) << c.lignes;
    }
}

TEST(LecturePersonne, NomATroisBarresSignale) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME Jean /Du/pont/");
    EXPECT_TRUE(
        l.Journalise("Alerte ligne 3, personne 1 : le nom ou le pr\xE9nom comporte un caract\xE8re / qui a "
                     "\xE9t\xE9 remplac\xE9 "
                     "par , (veuillez v\xE9rifier et modifier si besoin)."))
        << l.Journal();
}

TEST(LecturePersonne, SexeAutreQueMOuF) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|1 SEX U|0 @I2@ INDI|1 NAME C /D/|1 SEX F");
    EXPECT_EQ(l.Pe(1).Sexe, 'U');
    EXPECT_EQ(l.Pe(2).Sexe, 'F');
    EXPECT_EQ(l.Journal(), "Info ligne 4, personne 1 : le sexe doit \xEAtre M ou F.\r\n");
}

// La date d'une résidence ou d'un métier va au texte ; la sépulture garde ce que le fichier lui donne.
TEST(LecturePersonne, MetierEtResidenceDatesNInvententPasDeSepulture) {
    struct Cas {
        std::string_view lignes;
        std::string_view fiche;
    };
    const Cas cas[] = {
        {"1 OCCU Tailleur|2 DATE 1750|2 PLAC Paris", "Metier=Tailleur en 1750 \xE0 Paris; CodesMetiers=Ta"},
        // "réside" n'est écrit qu'une fois : les notes le contiennent déjà.
        {"1 RESI|2 PLAC Paris|2 DATE 1750|1 RESI|2 PLAC Lyon",
         "Notes=r\xE9side \xE0 Paris en 1750  \xE0 Lyon"},
        // Une sépulture lue avant ou après garde sa date.
        {"1 BURI|2 DATE 1790|1 OCCU Meunier|2 DATE 12 MAR 1760",
         "Metier=Meunier 12/03/1760; CodesMetiers=Me; Sepulture.Date=1790"},
        {"1 OCCU Meunier|2 DATE 12 MAR 1760|1 BURI|2 DATE 1790",
         "Metier=Meunier 12/03/1760; CodesMetiers=Me; Sepulture.Date=1790"},
        // La note républicaine que pose la date ne va à aucun évènement.
        {"1 OCCU Meunier|2 DATE @#DFRENCH R@ 25 VEND 2", "Metier=Meunier 16/10/1793; CodesMetiers=Me"},
    };
    for (const Cas& c : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|1 NAME A /B/|" + std::string(c.lignes));
        EXPECT_EQ(l.P(1), "Nom=B; Prenoms=A; " + std::string(c.fiche)) << c.lignes;
    }
}

TEST(LecturePersonne, EvenementsDatesEtLieux) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 12 MAR 1750|2 PLAC  \xC9pinal |1 BAPM|2 DATE 13 MAR 1750"
        "|1 EVEN|2 DATE 1780|2 PLAC Metz|1 CHAN|2 DATE 2 JAN 1900|3 TIME 10:00");
    EXPECT_EQ(l.P(1),
              "Nom=B; Prenoms=A; Naissance.Date=12/03/1750; Naissance.Lieu=\xC9pinal; Bapteme.Date=13/03/1750; "
              "Notes= 1780 r\xE9side \xE0 Metz; DateModif=3");
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

// « 1 DEAT Y » : l'évènement a eu lieu, sans date ni lieu ; il est gardé comme connu, sans un mot.
TEST(LecturePersonne, EvenementConnuSansDate) {
    const std::pair<std::string_view, std::string_view> cas[] = {
        {"1 BIRT Y", "Naissance.Connu=Y"},
        {"1 CHR Y", "Bapteme.Connu=Y"},
        {"1 BAPM Y", "Bapteme.Connu=Y"},
        {"1 DEAT Y", "Deces.Connu=Y"},
        {"1 BURI Y", "Sepulture.Connu=Y"},
        {"1 DEAT Y|2 DATE 1750|2 PLAC Metz", "Deces.Date=1750; Deces.Connu=Y; Deces.Lieu=Metz"},
        // Seul "Y" dit que l'évènement a eu lieu.
        {"1 DEAT N|1 BURI y", ""},
    };
    for (const auto& [lignes, fiche] : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|1 NAME A /B/|" + std::string(lignes));
        EXPECT_EQ(l.P(1), "Nom=B; Prenoms=A" + std::string(fiche.empty() ? "" : "; ") + std::string(fiche))
            << lignes;
        EXPECT_TRUE(l.Journal().empty()) << l.Journal();
    }
}

TEST(LecturePersonne, LignesDeSuiteSousChaqueContexte) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/"
        "|1 NOTE Premi\xE8re|2 CONT deuxi\xE8me|2 CONC  suite"
        "|1 BIRT|2 NOTE n\xE9|3 CONT \xE0 terme"
        "|2 SOUR @S1@|3 CONT page 4"
        "|1 ADDR 1 rue Haute|2 CONT 2e \xE9tage|2 CONT 57000 Metz"
        "|1 SOUR Registre|2 CONT de Metz"
        "|1 CONT sans contexte|1 RESI Age: 57; Enumer|2 CONC ation 193|1 SEX F|2 CONT 2 SOUR @S4@");
    const Perso& p = l.Pe(1);
    EXPECT_EQ(p.Notes, "Premi\xE8re \r\ndeuxi\xE8me suite\r\nRegistre \r\nde Metz");
    EXPECT_EQ(p.Naissance.Notes, "n\xE9 \r\n\xE0 terme");
    EXPECT_EQ(p.Naissance.Source, "@S1@ page 4");
    EXPECT_EQ(p.Suite().Adresse1, "1 rue Haute");
    EXPECT_EQ(p.Suite().Adresse2, "57000 Metz");
    EXPECT_EQ(p.Suite().Ville, "Age: 57; Enumeration 193");
    EXPECT_EQ(l.Journal(),
              "Erreur ligne 17, personne 1, donn\xE9"
              "e non trait\xE9"
              "e : CONT sans contexte\r\n"
              "Erreur ligne 21, personne 1, donn\xE9"
              "e non trait\xE9"
              "e : CONT 2 SOUR @S4@\r\n");
}

TEST(LecturePersonne, SuiteDeNoteSeDoubleSansLeRedire) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|1 DEAT|2 NOTE ab|3 CONC abab");
    EXPECT_EQ(l.Pe(1).Deces.Notes, "ab");
}

// À la relecture, la date pose sa note républicaine avant que vienne celle que le fichier
// porte déjà : la note du fichier pour le même jour prend la place, elle ne s'y ajoute pas.
TEST(LecturePersonne, NoteRepublicaineRelueSansGrossir) {
    const std::pair<const char*, const char*> cas[] = {
        {"2 DATE 16 OCT 1793|2 NOTE 25/vend/2", "25/vend/2"},
        {"2 DATE 16 OCT 1793|2 NOTE 25/vend/02", "25/vend/02"},
        {"2 DATE 15 FEB 1802|2 NOTE 26/10", "26/10"},  // « 26/10 » relu comme 26 pluviôse an X
        {"2 DATE 16 OCT 1793|2 NOTE 26/vend/2", "25/vend/02\r\n26/vend/2"},
        {"2 DATE 16 OCT 1793|2 NOTE Paris|2 NOTE 25/vend/2", "25/vend/02\r\nParis\r\n25/vend/2"},
        {"2 DATE 16 OCT 1793|2 NOTE 25/vend/2|2 NOTE 25/vend/2", "25/vend/2\r\n25/vend/2"},
    };
    for (const auto& [lignes, notes] : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|1 NAME A /B/|1 DEAT|" + std::string(lignes));
        EXPECT_EQ(l.Pe(1).Deces.Notes, notes) << lignes;
    }
}

TEST(LecturePersonne, TemoinsEtRoles) {
    Lecture l;
    l.LireFichier("temoins.ged");
    EXPECT_EQ(l.P(3),
              "Nom=Petit; Prenoms=Luc; Naissance.Temoins=2(d\xE9"
              "clarant),1; "
              "Bapteme.Temoins=2(Marraine),1(Parrain),4(Parrain/Marraine),5,6(Parrain)");
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

TEST(LecturePersonne, VingtEtUniemeTemoinRefuse) {
    std::string lignes = "0 @I1@ INDI|1 NAME Jean /Dupont/|1 BURI";
    for (int i = 2; i <= 22; ++i) lignes += "|2 ASSO @I" + std::to_string(i) + "@|3 RELA Porteur";
    Lecture l;
    l.Lire(lignes);
    const auto& temoins = l.Pe(1).Sepulture.Liens().Temoins;
    EXPECT_EQ(temoins.Nombre(), 20u);
    EXPECT_EQ(temoins(20), 21);
    EXPECT_EQ(l.Pe(1).Sepulture.Liens().RolesTemoins.Nombre(), 20u);
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 45 : impossible d'ajouter le t\xE9moin 22 \xE0 la personne 1 Dupont Jean "
                     "car il y a d\xE9j\xE0 20 t\xE9moins."))
        << l.Journal();
    EXPECT_EQ(l.Compte("impossible d'ajouter le t\xE9moin"), 1u);
}

TEST(LecturePersonne, NotesEtSourcesExternesAvecRetours) {
    Lecture l;
    l.LireFichier("notes_sources.ged");
    EXPECT_EQ(l.P(1), "Nom=Dupont; Prenoms=Jean; Naissance.Source=@S2@; Notes=@N1@");
    EXPECT_EQ(l.N(1),
              "Titre=Famille Dupont; Texte=Une note \\nsur deux lignes; LiensPersos=1,2,3,4,5,6,7,8,9");
    // La dixième personne garde son lien sans retour : les neuf places sont prises.
    EXPECT_EQ(l.Pe(10).Notes, "@N1@");
    EXPECT_EQ(l.S(2), "Titre=Registre de Metz; Texte=Bapt\xEAmes 1750; LiensPersos=1");
    // Un texte qui commence par "@" sans être un lien n'en fait pas.
    EXPECT_EQ(l.Pe(11).Notes, "@ la maison");
    EXPECT_EQ(l.Pe(11).Naissance.Source, "Registre paroissial");
    EXPECT_TRUE(l.base.Listes.Source.Contient("Registre paroissial"));
}

TEST(LecturePersonne, FichiersEtObjetsMedias) {
    Lecture l;
    l.LireFichier("fichiers.ged");
    // L'objet @M3@, lié à la personne par sa fiche, ne l'est pas une seconde fois par la naissance.
    EXPECT_EQ(l.P(1), "Nom=Dupont; Prenoms=Jean; ObjetsMedia=3,6,4");
    // L'objet du fichier : ses liens ne sont pas doublés par les OBJE @M3@ de la personne.

    EXPECT_EQ(l.M(3),
              "Fichiers=acte.png; Titres=Acte de naissance; Actif=-1; LiensPersos=1; TypeActe=1; NumNote=1");
    // Chemin lu dans un bloc OBJE : objet local, titre compris. Il avait pris le numéro 4,
    // qu'il a cédé à la fiche @M4@ lue plus loin, et la personne a suivi.
    EXPECT_EQ(l.M(6), "Fichiers=portrait.jpg; Titres=Portrait; Local=-1; Actif=-1; LiensPersos=1");
    EXPECT_EQ(l.M(4), "Fichiers=carte.jpg; Actif=-1; LiensPersos=1");
    // Le même chemin deux fois ne fait qu'un objet.
    EXPECT_EQ(l.M(5), "Fichiers=signature.png; Local=-1; Actif=-1; LiensPersos=2");
    EXPECT_EQ(l.P(2), "Nom=Martin; Prenoms=Marie; ObjetsMedia=5");
    EXPECT_EQ(l.base.NbMedias, 6);
    EXPECT_EQ(l.base.NbMediasReels, 4);
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

TEST(LecturePersonne, NeufFichiersAuPlus) {
    std::string lignes = "0 @I1@ INDI|1 NAME A /B/";
    for (int i = 1; i <= 10; ++i) lignes += "|1 OBJE|2 FILE f" + std::to_string(i) + ".jpg";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.Pe(1).Suite().ObjetsMedia.Nombre(), 9u);
    EXPECT_EQ(l.Pe(1).Notes, "\r\nVoir fichier f10.jpg");
    EXPECT_EQ(l.base.NbMediasReels, 9);
    EXPECT_EQ(l.Journal(), "Erreur ligne 23 : impossible de lier le fichier f10.jpg et la personne 1\r\n");
}

// Un fichier ou un objet que la personne a déjà n'est pas lié une seconde fois, dans quelque ordre
// que viennent chemins, pointeurs et fiches d'objets ; rien n'en est dit au journal.
TEST(LecturePersonne, UnSeulLienParFichier) {
    struct Cas {
        std::string_view lignes;  // sous la personne 1 ; les fiches d'objets suivent
        std::string_view fiche;
        std::string_view objets;  // M(1) à M(3)
    };
    const std::string_view fiche = "|0 @M1@ OBJE|1 FILE a.jpg|1 TITL Acte";
    const Cas cas[] = {
        {"1 OBJE @M1@|1 OBJE @M1@", "ObjetsMedia=1", "Fichiers=a.jpg; Titres=Acte; Actif=-1; LiensPersos=1"},
        // Le lien de la personne remplace celui de l'évènement, que l'écriture ne redonnerait pas.
        {"1 BIRT|2 OBJE @M1@|1 OBJE @M1@", "ObjetsMedia=1",
         "Fichiers=a.jpg; Titres=Acte; Actif=-1; LiensPersos=1; TypeActe=1"},
        {"1 OBJE @M1@|1 BIRT|2 OBJE @M1@", "ObjetsMedia=1",
         "Fichiers=a.jpg; Titres=Acte; Actif=-1; LiensPersos=1; TypeActe=1"},
        // Un chemin deux fois ; le titre du second bloc va à l'objet du premier.
        {"1 OBJE|2 FILE b.jpg|1 OBJE|2 TITL Portrait|2 FILE b.jpg", "ObjetsMedia=2",
         "Fichiers=a.jpg; Titres=Acte; Actif=-1|Fichiers=b.jpg; Titres=Portrait; Local=-1; Actif=-1; "
         "LiensPersos=1"},
        // Le chemin d'un objet du fichier, avant ou après son pointeur : l'objet du fichier seul.
        {"1 OBJE @M1@|1 OBJE|2 FILE a.jpg", "ObjetsMedia=1",
         "Fichiers=a.jpg; Titres=Acte; Actif=-1; LiensPersos=1"},
        // Forme que nous avons écrite : l'objet derrière chaque évènement, le pointeur à la fin.
        {"1 BIRT|1 OBJE|2 FILE a.jpg|1 DEAT|1 OBJE|2 FILE a.jpg|2 TITL Copie|1 OBJE @M1@", "ObjetsMedia=1",
         "Fichiers=a.jpg; Titres=Acte,Copie; Actif=-1; LiensPersos=1"},
        // Un FILE juste sous la personne la lie au fichier.
        {"1 FILE c.jpg", "ObjetsMedia=2",
         "Fichiers=a.jpg; Titres=Acte; Actif=-1|Fichiers=c.jpg; Local=-1; Actif=-1; LiensPersos=1"},
    };
    for (const Cas& c : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|1 NAME A /B/|" + std::string(c.lignes) + std::string(fiche));
        EXPECT_EQ(l.P(1), "Nom=B; Prenoms=A; " + std::string(c.fiche)) << c.lignes;
        std::string objets = l.M(1);
        for (int m = 2; m <= 3; ++m)
            if (!l.M(m).empty()) objets += "|" + l.M(m);
        EXPECT_EQ(objets, c.objets) << c.lignes;
        EXPECT_TRUE(l.Journal().empty()) << l.Journal();
    }
}

// Neuf chemins écrits avant les neuf pointeurs vers les objets qui les portent (fiches d'objets à la
// fin) : les doubles cèdent la place, la personne garde les neuf objets dans l'ordre des pointeurs.
TEST(LecturePersonne, DoublesLocauxCedentLaPlace) {
    std::string lignes = "0 @I1@ INDI|1 NAME A /B/";
    for (int m = 9; m >= 1; --m) lignes += "|1 OBJE|2 FILE f" + std::to_string(m) + ".jpg";
    for (int m = 1; m <= 9; ++m) lignes += "|1 OBJE @M" + std::to_string(m) + "@";
    for (int m = 1; m <= 9; ++m)
        lignes += "|0 @M" + std::to_string(m) + "@ OBJE|1 FILE f" + std::to_string(m) + ".jpg";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.P(1), "Nom=B; Prenoms=A; ObjetsMedia=1,2,3,4,5,6,7,8,9");
    EXPECT_EQ(l.base.NbMediasReels, 9);
    for (int m = 10; m <= 18; ++m) EXPECT_EQ(l.M(m), "") << m;
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

// Dix mille liens sur une personne : neuf tiennent, chacun des autres est au journal et aux notes.
TEST(LecturePersonne, DixMilleFichiersSurUnePersonne) {
    constexpr int kLiens = 10000;
    std::string lignes = "0 @I1@ INDI|1 NAME A /B/";
    for (int i = 1; i <= kLiens / 2; ++i) lignes += "|1 OBJE|2 FILE f" + std::to_string(i) + ".jpg";
    for (int m = 1; m <= kLiens / 2; ++m) lignes += "|1 OBJE @M" + std::to_string(m) + "@";
    for (int m = 1; m <= kLiens / 2; ++m)
        lignes += "|0 @M" + std::to_string(m) + "@ OBJE|1 FILE g" + std::to_string(m) + ".jpg";
    Lecture l;
    l.Lire(lignes);
    EXPECT_EQ(l.Pe(1).Suite().ObjetsMedia.Nombre(), 9u);
    EXPECT_EQ(l.Compte("Erreur ligne "), static_cast<std::size_t>(kLiens - 9));
    EXPECT_EQ(l.Compte(" : impossible de lier le fichier f5000.jpg et la personne 1\r\n"), 1u);
    EXPECT_EQ(l.Compte(" : impossible de lier la personne 1 et le fichier @M5000@\r\n"), 1u);
    std::size_t voir = 0;
    for (auto p = l.Pe(1).Notes.vue().find("Voir fichier "); p != std::string_view::npos;
         p = l.Pe(1).Notes.vue().find("Voir fichier ", p + 1))
        ++voir;
    EXPECT_EQ(voir, static_cast<std::size_t>(kLiens - 9));
}

// Les lignes d'une citation ou d'un autre sous-bloc ne touchent pas aux champs de la personne :
// elles vont au journal. Sous un témoin, la note reste son rôle.
TEST(LecturePersonne, LignesDesSousBlocs) {
    struct Cas {
        std::string_view lignes;  // ligne 4 et suivantes
        std::string_view fiche;
        std::string_view journal;
    };
    const std::string_view nt =
        "donn\xE9"
        "e non trait\xE9"
        "e : ";
    const Cas cas[] = {
        {"1 BIRT|2 DATE 1750|2 SOUR @S1@|3 DATA|4 DATE 1800|3 NOTE citation|4 CONC suite",
         "Naissance.Date=1750; Naissance.Source=@S1@", "8:DATE 1800|9:NOTE citation|10:CONC suite"},
        {"1 BURI|2 PLAC Metz|3 NOTE au nord|2 SOUR @S1@|3 PLAC Nancy",
         "Sepulture.Lieu=Metz; Sepulture.Source=@S1@", "6:NOTE au nord|8:PLAC Nancy"},
        {"1 RESI|2 PLAC Paris|2 SOUR @S1@|3 DATA|4 DATE 1900", "Notes=r\xE9side \xE0 Paris", "8:DATE 1900"},
        {"1 OCCU Tailleur|2 NOTE apprenti|3 CONT chez son oncle", "Metier=Tailleur; CodesMetiers=Ta",
         "5:NOTE apprenti|6:CONT chez son oncle"},
        {"1 DEAT|2 ASSO @I1@|3 NOTE Ami", "Deces.Temoins=1(Ami)", ""},
        // La suite d'une page de citation suit la page : dans la note de l'évènement, ou perdue sans
        // un mot avec elle quand aucun champ ne la garde.
        {"1 BIRT|2 SOUR @S1@|3 PAGE p. 12|4 CONT suite",
         "Naissance.Notes=p. 12 \\nsuite; Naissance.Source=@S1@", ""},
        {"2 SOUR @S1@|3 PAGE p. 3|4 CONC 4", "", ""},
        // ALIA vers une autre fiche : ce n'est pas un nom.
        {"1 ALIA @I12@", "", "4:ALIA @I12@"},
    };
    for (const Cas& c : cas) {
        Lecture l;
        l.Lire("0 @I1@ INDI|1 NAME A /B/|" + std::string(c.lignes));
        EXPECT_EQ(l.P(1),
                  "Nom=B; Prenoms=A" + std::string(c.fiche.empty() ? "" : "; ") + std::string(c.fiche))
            << c.lignes;
        std::string journal;
        for (std::string_view reste = c.journal; !reste.empty();) {
            const std::string_view ligne = reste.substr(0, reste.find('|'));
            const auto deux = ligne.find(':');
            journal += "Erreur ligne " + std::string(ligne.substr(0, deux)) + ", personne 1, " +
                       std::string(nt) + std::string(ligne.substr(deux + 1)) + "\r\n";
            reste.remove_prefix(std::min(reste.size(), ligne.size() + 1));
        }
        EXPECT_EQ(l.Journal(), journal) << c.lignes;
    }
}

TEST(LecturePersonne, AdressesTelephoneEtDivers) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 ADDR|2 ADR1 1 rue Haute|2 ADR2   B\xE2timent C|2 CITY Metz|2 POST 57000"
        "|2 STAE Lorraine|2 CTRY France|1 PHON 03 87 00 00 00|1 EMAIL a@@b.fr|1 WWW a.fr|1 URL b.fr"
        "|1 REFN 1|1 ANCI|1 DESI|1 DESI|1 GODP  Jacques");
    EXPECT_EQ(l.P(1),
              "Nom=B; Prenoms=A; Bapteme.Notes=Jacques; Adresse1=1 rue Haute; Adresse2=B\xE2timent C; "
              "Etat=Lorraine; CP=57000; Ville=Metz; Pays=France; Telephone=03 87 00 00 00; EMail=a@b.fr; "
              "URL=a.fr;b.fr; Ref=1; Interet=5");
    EXPECT_EQ(l.resultat.PremierePerso, 1);
    EXPECT_TRUE(l.Journal().empty()) << l.Journal();
}

TEST(LecturePersonne, TelephoneSansChiffreFinalFaitUneErreurDeType) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|1 PHON 03 87 00 (fax)");
    EXPECT_EQ(l.Pe(1).Suite().Telephone, "03 87 00 (fax)");
    EXPECT_EQ(l.Journal(), "Erreur ligne 4 : erreur 13 : Incompatibilit\xE9 de type. 03 87 00 (fax)\r\n");
}

TEST(LecturePersonne, MetiersTitresEtListes) {
    Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 OCCU Tailleur  puis Marchand|1 OCCU Tanneur, Tailleur|1 TITL Duc"
        "|1 EVEN Sch\xF6"
        "ffe|2 TYPE Ehrenamt|2 DATE 1820|1 OCCU");
    const Perso& p = l.Pe(1);
    EXPECT_EQ(p.Metier,
              "Tailleur puis Marchand, Tanneur, Tailleur, Sch\xF6"
              "ffe en 1820");
    EXPECT_EQ(p.Titre, "Duc");
    EXPECT_EQ(p.CodesMetiers, "Ta,Ma,Du");
    for (std::string_view m : {"Tailleur", "Marchand", "Tanneur", "Duc"})
        EXPECT_TRUE(l.base.Listes.Metier.Contient(m)) << m;
}

TEST(LecturePersonne, DonneesInconnuesSignalees) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME A /B/|1 RIN 12|1 _UID|1 FAMS @F1@|1 NMR 2");
    EXPECT_EQ(l.Journal(),
              "Erreur ligne 4, personne 1, donn\xE9"
              "e non trait\xE9"
              "e : RIN 12\r\n");
}

TEST(LecturePersonne, CasesDecocheesLaissentTomber) {
    const std::string_view lignes =
        "0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 12 MAR 1750|2 PLAC Metz|2 NOTE n\xE9|2 AGE 3|2 SOUR Registre"
        "|2 ASSO @I2@|1 OCCU Tailleur|1 ADDR Rue|1 NOTE Note|1 OBJE|2 FILE a.jpg";
    Lecture tout;
    tout.cases.Ages = true;
    tout.Lire(lignes);
    EXPECT_EQ(
        tout.P(1),
        "Nom=B; Prenoms=A; Metier=Tailleur; CodesMetiers=Ta; Naissance.Date=12/03/1750; Naissance.Lieu=Metz; "
        "Naissance.Notes=n\xE9\\n3; Naissance.Source=Registre; Naissance.Temoins=2; Notes=Note; "
        "Adresse1=Rue; ObjetsMedia=1");

    Lecture rien;
    rien.cases.Dates = rien.cases.Lieux = rien.cases.Professions = rien.cases.Temoins = false;
    rien.cases.Fichiers = rien.cases.Adresses = rien.cases.Sources = rien.cases.Notes = false;
    rien.Lire(lignes);
    EXPECT_EQ(rien.P(1), "Nom=B; Prenoms=A; Naissance.Date=1750");
}

TEST(LecturePersonne, TitreCoupeParLaReparationEtDateDuFichier) {
    Lecture l;
    l.Lire("1 DATE 5 JAN 1900|0 @I1@ INDI|1 NAME A /B/|1 TITL Duc|1 TITL Comte");
    EXPECT_EQ(l.Pe(1).Titre, "Duc, Comte");
    EXPECT_EQ(l.Pe(-1).DateModif, 6.0);
}

TEST(LecturePersonne, GenealogistesDeclareEtAutre) {
    Lecture l;
    l.Lire(
        "1 SUBM @U1@|0 @I1@ INDI|1 NAME Jean /Dupont/|0 @U2@ SUBM|1 NAME Autre /Personne/|1 PHON 1"
        "|0 @U1@ SUBM|1 NAME Paul  /Gen/|1 ADDR Ici");
    EXPECT_EQ(l.P(1), "Nom=Dupont; Prenoms=Jean");
    EXPECT_EQ(l.P(-1), "Nom=Gen; Prenoms=Paul; Adresse1=Ici");
    EXPECT_EQ(l.P(0), "");
}

TEST(LecturePersonne, ListesDeSaisie) {
    Lecture l;
    l.Lire("0 @I1@ INDI|1 NAME Jean /Dupont/|1 BIRT|2 PLAC Metz|2 SOUR|3 TEXT Registre|1 DEAT|2 PLAC Metz");
    EXPECT_TRUE(l.base.Listes.Nom.Contient("Dupont"));
    EXPECT_TRUE(l.base.Listes.Prenoms.Contient("Jean"));
    EXPECT_TRUE(l.base.Listes.Lieu.Contient("Metz"));
    EXPECT_TRUE(l.base.Listes.Source.Contient("Registre"));
    Lecture sans;
    sans.remplirListes = false;
    sans.Lire("0 @I1@ INDI|1 NAME Jean /Dupont/|1 BIRT|2 PLAC Metz");
    EXPECT_TRUE(sans.base.Listes.Nom.empty());
    EXPECT_TRUE(sans.base.Listes.Lieu.empty());
}

TEST(LecturePersonne, EntreesAbimees) {
    Lecture l;
    const std::string long_(100000, 'x');
    l.Lire("0 @I1@ INDI|1 NAME " + long_ + " /" + long_ +
           "/|1 BIRT|2 DATE 32/13/1750|1 CONT orpheline"
           "|0 @I2@ INDI|2 CONT sans niveau 1|1 ASSO|1 ASSO texte libre|1 NAME / / /");
    EXPECT_EQ(l.Pe(1).Nom.size(), 100000u);
    // 32/13/1750 a dix caractères : il est gardé tel quel, sans ligne au journal.
    EXPECT_EQ(l.Pe(1).Naissance.Date, "32/13/1750");
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 6, personne 1, donn\xE9"
                     "e non trait\xE9"
                     "e : CONT orpheline"));
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 8, personne 2, donn\xE9"
                     "e non trait\xE9"
                     "e : CONT sans niveau 1"));
    EXPECT_TRUE(
        l.Journalise("Erreur ligne 10, personne 2, donn\xE9"
                     "e non trait\xE9"
                     "e : ASSO texte libre"));
    EXPECT_EQ(l.base.NbPersosReels, 2);
}

}  // namespace
}  // namespace arbolix
