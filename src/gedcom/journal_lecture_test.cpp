#include "gedcom/journal_lecture.h"

#include <gtest/gtest.h>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

TEST(JournalLecture, NombresALaFrancaise) {
    const struct {
        std::int64_t n;
        std::string texte;
    } cas[] = {{0, "0"},
               {999, "999"},
               {1000,
                "1\xA0"
                "000"},
               {13790,
                "13\xA0"
                "790"},
               {1234567,
                "1\xA0"
                "234\xA0"
                "567"},
               {-4500,
                "-4\xA0"
                "500"}};
    for (const auto& c : cas) EXPECT_EQ(NombreFrancais(c.n), c.texte) << c.n;
}

std::string Repete(std::string_view ligne, int fois) {
    std::string r;
    for (int i = 0; i < fois; ++i) r.append(ligne).append("\r\n");
    return r;
}

TEST(JournalLecture, ResumeParSorteLaPlusNombreuseDAbordPuisChaqueLigne) {
    const std::string journal =
        "Info : le fichier est cod\xE9 en UTF-8 ; il a \xE9t\xE9 converti.\r\n" +
        Repete(
            "Erreur ligne 7, personne 3, donn\xE9"
            "e non trait\xE9"
            "e : RIN MH:I3",
            1234) +
        Repete(
            "Erreur ligne 9 : date non reconnue :  personne n\xB0"
            "4 BIRT vers l'an mil",
            2) +
        Repete(
            "Info : la fiche 12 est vide et peut \xEAtre r\xE9utilis\xE9"
            "e.",
            3) +
        "Info : 2000 autres fiches sont vides et peuvent \xEAtre r\xE9utilis\xE9"
        "es.\r\n" +
        "Erreur ligne 8, personne 3, donn\xE9"
        "e non trait\xE9"
        "e : _UID  70940F82\r\n" +
        "Alerte ligne 4, personne 2 : le nom ou le pr\xE9nom comporte un caract\xE8re / qui a \xE9t\xE9 "
        "remplac\xE9 par , (veuillez v\xE9rifier et modifier si besoin).\r\n" +
        "Erreur ligne 11 : une chose que le r\xE9sum\xE9 ne conna\xEEt pas.\r\n";
    const std::string lisible = JournalLisible(journal, {});
    EXPECT_TRUE(
        lisible.starts_with("En r\xE9sum\xE9 :\r\n"
                            "2\xA0"
                            "003 fiches vides r\xE9utilisables\r\n"
                            "1\xA0"
                            "234 lignes RIN non trait\xE9"
                            "es\r\n"
                            "2 dates non reconnues\r\n"
                            "1 ligne _UID non trait\xE9"
                            "e\r\n"
                            "1 nom ou pr\xE9nom dont la barre / a \xE9t\xE9 remplac\xE9"
                            "e\r\n"
                            "1 autre erreur\r\n"
                            "\r\nEn d\xE9tail :\r\n"))
        << lisible;
    // Chaque ligne reste, dans son ordre, après le résumé.
    EXPECT_TRUE(lisible.ends_with("\r\nEn d\xE9tail :\r\n" + journal));
    // Rien à compter : les lignes seules.
    EXPECT_EQ(JournalLisible("Info : le fichier est cod\xE9 en UTF-8.\r\n", {}),
              "Info : le fichier est cod\xE9 en UTF-8.\r\n");
    EXPECT_EQ(JournalLisible("", {}), "");
}

TEST(JournalLecture, AuDelaDeDixBalisesLesAutresEnsemble) {
    std::string journal;
    for (int i = 0; i < 13; ++i)
        journal += Repete(
            "Erreur ligne 5, personne 1, donn\xE9"
            "e non trait\xE9"
            "e : T" +
                std::to_string(i) + " x",
            20 - i);
    const std::string lisible = JournalLisible(journal, {});
    EXPECT_NE(lisible.find("20 lignes T0 non trait\xE9"
                           "es\r\n"),
              std::string::npos);
    EXPECT_NE(lisible.find("11 lignes T9 non trait\xE9"
                           "es\r\n"),
              std::string::npos);
    EXPECT_EQ(lisible.find("lignes T10 "), std::string::npos);
    EXPECT_NE(lisible.find("27 lignes non trait\xE9"
                           "es sous 3 autres balises\r\n"),
              std::string::npos);
}

// L'auteur du fichier, une fiche d'auteur que l'en-tête ne désigne pas et une erreur
// d'exécution, comme le lecteur les écrit et comme le généalogiste les lit.
TEST(JournalLecture, LesNumerosInternesDitsEnMots) {
    essai::Lecture l;
    l.LireTout(
        essai::Lignes("0 HEAD|1 SOUR X|1 SUBM @U1@|0 @U1@ SUBM|1 NAME Jean /Auteur/|1 RIN 7|"
                      "1 PHON 03 87 (fax)|0 @U2@ SUBM|1 RIN 8|0 @I1@ INDI|1 NAME A /B/|1 RIN 1|"
                      "1 PHON 05 (bureau)|0 TRLR|"));
    // Les lignes que les règles écrivent ne changent pas.
    EXPECT_NE(l.resultat.Journal.find("Erreur ligne 6, personne -1, donn\xE9"), std::string::npos);
    EXPECT_EQ(
        JournalLisible(l.resultat.Journal, l.resultat.Reperes),
        "En r\xE9sum\xE9 :\r\n"
        "3 lignes RIN non trait\xE9"
        "es\r\n"
        "2 t\xE9l\xE9phones qui ne finissent pas par un chiffre\r\n"
        "\r\nEn d\xE9tail :\r\n"
        "Erreur ligne 6, la fiche de l'auteur du fichier (@U1@ SUBM), donn\xE9"
        "e non trait\xE9"
        "e : RIN 7\r\n"
        "Erreur ligne 7, la fiche de l'auteur du fichier (@U1@ SUBM) : le num\xE9ro de t\xE9l\xE9phone ne "
        "finit pas par un chiffre ; il est gard\xE9 tel quel : 03 87 (fax)\r\n"
        "Erreur ligne 9, la fiche d'auteur (@U2@ SUBM) que l'en-t\xEAte ne d\xE9signe pas, non reprise, "
        "donn\xE9"
        "e non trait\xE9"
        "e : RIN 8\r\n"
        "Erreur ligne 12, personne 1, donn\xE9"
        "e non trait\xE9"
        "e : RIN 1\r\n"
        "Erreur ligne 13, la fiche @I1@ INDI : le num\xE9ro de t\xE9l\xE9phone ne finit pas par un chiffre ; "
        "il est gard\xE9 tel quel : 05 (bureau)\r\n");
}

TEST(JournalLecture, LignesSansRepere) {
    ReperesJournal r;
    r.fiches.push_back({1, 4, "l'en-t\xEAte du fichier (HEAD)"});
    const struct {
        std::string brute;
        std::string lisible;
    } cas[] = {
        {"Erreur ligne 3 : date non reconnue :  personne n\xB0"
         "0 DATE hier",
         "Erreur ligne 3 : date non reconnue :  l'en-t\xEAte du fichier (HEAD) DATE hier"},
        // Hors du piège, l'erreur 5 est celle de la lecture des dates.
        {"Erreur ligne 50 : erreur 5 : Argument ou appel de proc\xE9"
         "dure incorrect. ABT 560 BC",
         "Erreur ligne 50 : date illisible ; elle n'a pas \xE9t\xE9 reprise : ABT 560 BC"},
        {"Erreur ligne 51 : erreur 13 : Incompatibilit\xE9 de type. ",
         "Erreur ligne 51 : valeur mal form\xE9"
         "e : un nombre \xE9tait attendu"},
        {"Erreur ligne 52 : erreur 99 : Inconnue. x", "Erreur ligne 52 : erreur 99 : Inconnue. x"},
        {"Erreur ligne 53, personne -1, donn\xE9"
         "e non trait\xE9"
         "e : FAX 1",
         "Erreur ligne 53, la fiche de l'auteur du fichier (SUBM), donn\xE9"
         "e non trait\xE9"
         "e : FAX 1"},
        {"Erreur ligne 54 : impossible de lier la personne 12 et le fichier a.jpg",
         "Erreur ligne 54 : impossible de lier la personne 12 et le fichier a.jpg"},
    };
    for (const auto& c : cas) EXPECT_EQ(LigneLisible(c.brute, r), c.lisible);
}

}  // namespace
}  // namespace arbolix
