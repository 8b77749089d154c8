#include "gedcom/lecture_actes.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

// Notes d'évènement : ce que l'évènement tient, la ligne lue, ce qu'il tient après.
TEST(LectureActes, NoteDEvenement) {
    struct Cas {
        const char* avant;
        const char* valeur;
        const char* apres;
    };
    const Cas cas[] = {
        {"", "n\xE9 \xE0 terme", "n\xE9 \xE0 terme"},
        {"a", "b", "a\r\nb"},
        {"a", "", "a"},
        // Deux notes républicaines : la seconde n'est pas ajoutée, même d'un autre jour.
        {"25/vend/02", "26/vend/02", "25/vend/02"},
        // Le même jour sous une autre forme : la note du fichier prend la place.
        {"25/vend/02", "25/vend/2", "25/vend/2"},
        {"12/pluv/08", "11/08", "12/pluv/08\r\n11/08"},  // « 11/08 » est le 11 pluviôse
        {"11/pluv/08", "11/08", "11/08"},
        // Une note qui porte déjà autre chose n'est pas celle que la date a posée.
        {"25/vend/02\r\nParis", "25/vend/2", "25/vend/02\r\nParis\r\n25/vend/2"},
    };
    for (const auto& c : cas) {
        Acte a;
        a.Notes = c.avant;
        AjouterNoteActe(a, c.valeur);
        EXPECT_EQ(a.Notes, c.apres) << c.avant << " + " << c.valeur;
    }
}

TEST(LectureActes, SuiteDeNoteDEvenement) {
    Acte a;
    a.Notes = "ab";
    SuiteDeNoteActe(a, "CONC", "abab");  // la note redite deux fois
    EXPECT_EQ(a.Notes, "ab");
    SuiteDeNoteActe(a, "CONC", "c");
    SuiteDeNoteActe(a, "CONT", "d");
    EXPECT_EQ(a.Notes, "abc \r\nd");
}

// L'index rend la règle de chaque balise de la table, quelle que soit sa longueur (la clé se fait
// autrement sous quatre, sous huit et au-delà), même quand la vue est suivie d'autres octets ; une
// balise voisine, plus courte ou plus longue, n'en trouve aucune.
TEST(IndexDeBalises, ChaqueLongueurEtSesVoisines) {
    struct Regle {
        std::string_view balise;
    };
    static const Regle kTable[] = {{"A"},      {"AB"},      {"ABC"},      {"ABCD"},      {"ABCDE"},
                                   {"ABCDEF"}, {"ABCDEFG"}, {"ABCDEFGH"}, {"ABCDEFGHI"}, {"ABCDEFGHJ"},
                                   {"DBCA"},   {"DATE"},    {"EMAIL"}};
    const IndexDeBalises<Regle> index(kTable);
    for (const Regle& r : kTable) {
        EXPECT_EQ(index.Chercher(r.balise), &r) << r.balise;
        const std::string suivie = std::string(r.balise) + " 12 MAR 1845";
        EXPECT_EQ(index.Chercher(std::string_view(suivie).substr(0, r.balise.size())), &r) << r.balise;
    }
    for (const std::string_view inconnue : {"", "B", "BA", "ABD", "ABCE", "ACBD", "DATF", "ABCDEFGX",
                                            "ABCDEFGHK", "ABCDEFGHIJ", "EMAI", "EMAILS"})
        EXPECT_EQ(index.Chercher(inconnue), nullptr) << inconnue;
}

}  // namespace
}  // namespace arbolix
