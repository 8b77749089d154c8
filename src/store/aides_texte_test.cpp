#include "store/aides_texte.h"

#include <gtest/gtest.h>

#include "store/chaines.h"

namespace arbolix {
namespace {

struct Cas {
    const char* entree;
    const char* attendu;
};

TEST(CodeSon, Table) {
    const Cas cas[] = {
        {"", "N000"},
        {"N", "N000"},
        {"SMITH", "S530"},
        {"DUPONT", "D153"},
        {"DUPOND", "D153"},
        {"dupont", "D153"},
        {"AMM", "A500"},
        {"AMAM", "A500"},
        {"IMAGE", "I520"},
        {"DUP*", "D1*"},
        {"D*", "D*"},
        {"MARTIN*", "M635"},
        {"\xC7"
         "A",
         "\xC7"
         "000"},               // Ç en tête garde sa lettre
        {"LE\xC7ON", "L250"},  // Ç vaut 2 après la première lettre
        {"\xE9lise",
         "\xC9"
         "420"},  // é passe en É
        {"TEST", "T230"},
        {"LLOYD", "L430"},          // la première lettre n'est pas un chiffre : le L suivant compte
        {"A\xDF\xD0\xD1", "A235"},  // ß, Ð et Ñ ont leur chiffre
        {"A-\xC9H\xB0"
         "B",
         "A100"},  // signes et voyelles n'en ont pas
    };
    for (const auto& c : cas) EXPECT_EQ(CodeSon(c.entree), c.attendu) << c.entree;
}

TEST(NomTri, ParticulesCourtes) {
    const Cas cas[] = {
        {"D'ARC", "ARC"},
        {"de la Tour", "LA_TOUR"},
        {"LE ROY", "ROY"},
        {"VAN DER BERG", "DER_BERG"},
        {"MARTIN", "MARTIN"},
        {"DUPONT-DURAND", "DUPONT-DURAND"},
        {"\xC9TIENNE", "ETIENNE"},
        {"CL\x8C"
         "MENT",
         "CLOEMENT"},
        {"", "N"},
        {"DUPONT DE NEMOURS", "DUPONT_DE_NEMOURS"},  // blanc en 7 : pas de particule
    };
    for (const auto& c : cas) EXPECT_EQ(NomTri(c.entree), c.attendu) << c.entree;
}

TEST(SansAccents, LongueurLibre) {
    const Cas cas[] = {
        {"\xC9l\xE8ve", "Eleve"},
        {"\xC6sop", "AEsop"},
        {"c\x9Cur", "coeur"},
        {"\xE6on", "aeon"},
        {"Fran\xE7ois", "Francois"},
        {"a b'c", "a_b_c"},
        {"#*-._09", "#*-._09"},
        {"\x8A\x9A\x9F\xFF\xDD\xFD", "SsYyYy"},
        {"\xD1\xF1\xD0\xF0", "NnDd"},
        {"\xD7", "O"},  // × tombe dans la plage des O
        {"\xA9", "_"},
    };
    for (const auto& c : cas) EXPECT_EQ(SansAccents(c.entree, false), c.attendu) << c.entree;
}

TEST(SansAccents, LongueurGardeeNeReplieQueLaPremiereSuite) {
    const Cas cas[] = {
        {"\xC9\xC8"
         "LE\xC9",
         "EELE\xC9"},               // arrêt après la première lettre gardée
        {"ANDR\xC9", "ANDR\xC9"},   // lettre gardée en tête : rien n'est replié
        {" \xE9t\xE9", "_et\xE9"},  // le blanc est replié, l'arrêt vient après t
        {"c\x9Cur", "c\x9Cur"},
        {"\x9C"
         "uf",
         "ouf"},               // œ garde sa longueur
        {"\xC6sop", "AEsop"},  // Æ s'écrit toujours en deux lettres
    };
    for (const auto& c : cas) EXPECT_EQ(SansAccents(c.entree, true), c.attendu) << c.entree;
}

TEST(Majuscules, TexteEntierParMode) {
    struct CasMode {
        const char* entree;
        int mode;
        const char* attendu;
    };
    const CasMode cas[] = {
        {"dupont", 0, "DUPONT"},
        {"l\xE9on", 5, "L\xC9ON"},
        {"jean-pierre", 1, "Jean-Pierre"},
        {"saint-denis (93)", 3, "Saint-Denis (93)"},
        {"JEAN marie", 1, "Jean Marie"},
        {"\xE9milie \x9C"
         "dile",
         1,
         "\xC9milie \x8C"
         "dile"},
        {"st.-jean;paris,france", 1, "St.-Jean;Paris,France"},
        {"paris, france", 1, "Paris, France"},  // les blancs d'origine restent
        {"\xE0 l'\xEEle", 3, "\xC0 L'\xEEle"},
        {"cultivateur", 2, "cultivateur"},
        {"Cultivateur", 4, "Cultivateur"},
        {"mailto:Jean@Ex.FR", 7, "jean@ex.fr"},
        {"mailto:mailto:a", 7, "mailto:a"},
        {"dupont", 8, "dupont"},
        {"dupont", -1, "dupont"},
    };
    for (const auto& c : cas)
        EXPECT_EQ(Majuscules(c.entree, c.mode, true), c.attendu) << c.entree << " " << c.mode;
    EXPECT_EQ(Majuscules("dupont", 0, false), "dupont");
}

TEST(Majuscules, ToucheTapee) {
    EXPECT_EQ(MajusculesTouche("", 1, 'j', true), 'J');
    EXPECT_EQ(MajusculesTouche("J", 1, 'E', true), 'e');
    EXPECT_EQ(MajusculesTouche("Jean-", 1, 'p', true), 'P');
    EXPECT_EQ(MajusculesTouche("Jean ", 3, '\xE9', true), '\xC9');
    EXPECT_EQ(MajusculesTouche("D'", 1, 'a', true), 'A');
    EXPECT_EQ(MajusculesTouche("Fran", 1, '\xC7', true), '\xE7');
    EXPECT_EQ(MajusculesTouche("du", 0, 'p', true), 'P');
    EXPECT_EQ(MajusculesTouche("", 7, 'J', true), 'j');
    EXPECT_EQ(MajusculesTouche("", 2, 'j', true), 'j');
    EXPECT_EQ(MajusculesTouche("", 1, 'j', false), 'j');
}

TEST(SexeDuPrenom, ExceptionsPuisDerniereLettre) {
    const Cas cas[] = {
        {"", ""},
        {"Marie", "F"},
        {"Jean", "M"},
        {"Marie Louise", "F"},
        {"Jean Marie", "M"},
        {"Pierre", "M"},
        {"Antoine", "M"},
        {"Th\xE9ophile", "M"},
        {"Eug\xE8ne", "M"},
        {"EUG\xC8NE", "M"},
        {"Claude", "M"},
        {"Alexandre", "M"},
        {"Etienne", "M"},
        {"Agn\xE8s", "F"},
        {"Elisabeth", "F"},
        {"Rosalie", "F"},
        {"Isabelle", "F"},
        {"MARIE", "F"},
        {"Ren\xE9", "M"},
        {"Ren\xE9"
         "e",
         "F"},
        {"Jean-Baptiste", "F"},
    };
    for (const auto& c : cas) EXPECT_EQ(SexeDuPrenom(c.entree), c.attendu) << c.entree;
}

TEST(EchapperSQL, Table) {
    const Cas cas[] = {
        {"l'\xE9glise", "l\\'\xE9glise"},
        {"C:\\dossier", "C:/dossier"},
        {"a\\'b", "a/\\'b"},
        {"dit \"le grand\"", "dit \\\"le grand\\\""},
        {"", ""},
    };
    for (const auto& c : cas) EXPECT_EQ(EchapperSQL(c.entree), c.attendu) << c.entree;
}

TEST(CasseAnsi, AllerRetourDesLettresAccentuees) {
    EXPECT_EQ(EnMajuscules("\xE0\xE9\xEF\xF4\xF9\xE7\x9C\x9A\x9E\xFF\xDF\xB5\xF7"),
              "\xC0\xC9\xCF\xD4\xD9\xC7\x8C\x8A\x8E\x9F\xDF\xB5\xF7");
    EXPECT_EQ(EnMinuscules("\xC0\xC9\xCF\xD4\xD9\xC7\x8C\x8A\x8E\x9F\xD7"),
              "\xE0\xE9\xEF\xF4\xF9\xE7\x9C\x9A\x9E\xFF\xD7");
}

}  // namespace
}  // namespace arbolix
