#include "gedcom/jeux_caracteres.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "store/chaines.h"

namespace arbolix {
namespace {

using namespace std::string_literals;

constexpr std::string_view kTitre = "Arbolix";

std::string LireOctets(const std::string& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

std::string Donnee(const std::string& nom) {
    return LireOctets(std::string(ARBOLIX_DONNEES) + "/caracteres/" + nom);
}

// La ligne qui commence par debut, sans sa fin de ligne.
std::string Ligne(const std::string& t, std::string_view debut) {
    std::size_t p = t.starts_with(debut) ? 0 : t.find("\n" + std::string(debut));
    if (p == std::string::npos) return "(absente)";
    if (p != 0) ++p;
    return t.substr(p, t.find_first_of("\r\n", p) - p);
}

// Ce que fera le lecteur : codage des octets, puis la ligne CHAR répare ce
// qui la suit.
struct Charge {
    std::string texte;
    std::string journal;
    JeuCaracteres jeu = JeuCaracteres::Inconnu;
};

Charge Charger(std::string octets) {
    Charge c;
    const CodageLu lu = NormaliserCodage(octets);
    c.journal = lu.journal;
    const std::size_t p = octets.find("1 CHAR ");
    EXPECT_NE(p, std::string::npos);
    std::size_t fin = octets.find_first_of("\r\n", p);
    const std::string valeur = octets.substr(p + 7, fin - p - 7);
    while (fin < octets.size() && (octets[fin] == '\r' || octets[fin] == '\n')) ++fin;
    c.jeu = TraiterJeuCaracteres(octets, fin, valeur, kTitre, c.journal, lu.codage);
    c.texte = std::move(octets);
    return c;
}

TEST(JeuxCaracteres, RemplacerToutCommeReplace) {
    struct Cas {
        std::string texte;
        std::size_t depuis;
        std::string de, vers, attendu;
    };
    // clang-format off
    const Cas cas[] = {
        {"aXbXc", 0, "X", "YY", "aYYbYYc"},  // le texte grandit
        {"aXbXc", 2, "X", "YY", "aXbYYc"},   // avant depuis : intact
        {"aXbXc", 2, "X", "", "aXbc"},
        {"aaa", 0, "aa", "b", "ba"},          // sans chevauchement, de gauche à droite
        {"abcabc", 0, "bc", "", "aa"},
        {"XX", 0, "X", "Y", "YY"},
        {"abc", 0, "z", "y", "abc"},
        {"abc", 3, "c", "y", "abc"},
        {"abc", 9, "a", "b", "abc"},
        {"abc", 0, "", "x", "abc"},
        {"", 0, "a", "b", ""},
    };
    // clang-format on
    for (const Cas& c : cas) {
        std::string t = c.texte;
        RemplacerTout(t, c.de, c.vers, c.depuis);
        EXPECT_EQ(t, c.attendu) << c.texte << " depuis " << c.depuis;
    }
}

// Chaque caractère ANSEL est traduit une fois : une ligne ne revoit jamais ce qu'une autre a produit.
TEST(JeuxCaracteres, AnselUnCaractereUneFois) {
    struct Cas {
        std::string ansel, attendu;
        std::size_t replis;
    };
    // clang-format off
    const Cas cas[] = {
        {"\xE2" "e", "\xE9", 0},             // é
        {"\xE2" "E", "\xC9", 0},             // É
        {"\xE1" "e", "\xE8", 0},             // è
        {"\xE3" "o", "\xF4", 0},             // ô
        {"\xF0" "c", "\xE7", 0},             // ç
        {"\xE8" "e", "\xEB", 0},             // ë
        {"\xE4" "n", "\xF1", 0},             // ñ
        {"\xA6\xB6", "\x8C\x9C", 0},         // Œ œ
        {"\xCF", "\xDF", 0},                 // ß
        {"\xE9" "S" "\xE9" "s", "\x8A\x9A", 0},  // Š š, chacun le sien
        {"\xA5", "\xC6", 0},                 // Æ reste Æ (C6 n'est plus relu en ¡)
        {"\xC6", "\xA1", 0},                 // ¡
        {"\xAA", "\xAE", 0},                 // ® reste ®
        {"\xAB", "\xB1", 0},                 // ±
        {"\xB0\xC0", "\x91\xB0", 1},         // ayn, puis degré : pas relu en ayn
        {"\xA7\xB4", "\xB4\xFE", 1},         // prime, puis thorn
        {"\xB5", "\xE6", 0},                 // æ
        {"\xEA" "a", "\xE5", 0},             // å
        {"\xE1" "ea", "\xE8" "a", 0},        // è suivi de a : plus de ä
        {"\xE1" "ee", "\xE8" "e", 0},
        {"\xBA", "\xF0", 0},
        {"\xA1\xB8", "Li", 2},               // Ł ı : lettres de base
        {"\xAC\xBD", "Ou", 2},               // Ơ ư
        {"\xE9" "y", "y", 1},                // diacritique sans forme composée : retiré
        {"\xE2" "c", "c", 1},                // ć
        {"a\xE5" "b\xFE", "ab", 2},          // macron, crochet : retirés
        {"\xE2\xE6" "e", "\xE9", 1},         // brève retirée d'abord : l'aigu trouve sa lettre
        {"\xE2\xE3" "a", "\xE2", 1},         // deux accents : le dernier reste
        {"x\xE2", "x", 1},                   // tampon coupé après un diacritique
        {"\xBE", "?", 1},                    // case vide de l'extension LDS
        {"\x88" "A\x89", "\x88" "A\x89", 0}, // hors des caractères ANSEL : intact
    };
    // clang-format on
    for (const Cas& c : cas) {
        std::string t = c.ansel;
        EXPECT_EQ(TableAnsel(t, 0).lettres, c.replis) << c.ansel;
        EXPECT_EQ(t, c.attendu) << c.ansel;
    }
}

TEST(JeuxCaracteres, Utf8VersPage1252) {
    struct Cas {
        std::string utf8, attendu;
        std::size_t lettres, inconnus;
    };
    // clang-format off
    const Cas cas[] = {
        {"\xC3\xA9\xC3\x89", "\xE9\xC9", 0, 0},           // é É
        {"\xE2\x82\xAC", "\x80", 0, 0},                   // €
        {"\xC5\x92\xC5\x93\xC3\x9F", "\x8C\x9C\xDF", 0, 0},  // Œ œ ß
        {"\xC5\xA0\xC5\xA1\xC5\xBD\xC5\xBE", "\x8A\x9A\x8E\x9E", 0, 0},  // Š š Ž ž gardent leur caron
        {"\xC5\xB8\xE2\x80\x99", "\x9F\x92", 0, 0},       // Ÿ ’
        {"\xC2\xA1\xC3\xBF", "\xA1\xFF", 0, 0},           // bornes
        {"a\xC2\xA0" "b", "a\xA0" "b", 0, 0},            // espace insécable
        {"T\xC5\xAB" "nis", "Tunis", 1, 0},               // ū : lettre de base
        {"\xC5\x81\xC3\xB3" "d\xC5\xBA", "L\xF3" "dz", 2, 0},  // Łódź
        {"Nguy\xE1\xBB\x85n", "Nguyen", 1, 0},            // ễ
        {"\xEF\xAC\x81", "fi", 1, 0},                     // ligature
        {"a\xE2\x80\x90" "b", "a-b", 1, 0},               // trait d'union Unicode
        {"\xE2\x80\x8B", "", 1, 0},                       // espace sans chasse
        {"e\xCC\x81", "\xE9", 0, 0},                      // e + aigu combinant : é
        {"e\xCC\x82\xCC\x83", "e", 1, 0},                 // deux accents combinants : comme ễ
        {"\xCC\x81" "a", "a", 1, 0},                      // accent sans lettre
        {"\xCE\xB1\xF0\x9F\x8C\xB3", "??", 0, 2},         // α, un arbre : rien de voisin
        {"MACM\xC3\x83\xC2\xA1IL", "MACM\xE1IL", 0, 0},   // « Ã¡ » : á encodé deux fois
        {"\xC3\xA2\xE2\x82\xAC\xE2\x84\xA2", "\x92", 0, 0},  // « â€™ » : ’ encodé deux fois
        {"\xC3", "\xC3", 0, 0},                           // tampon coupé : octet gardé
        {"\xC3(\xC0\xAF\xED\xA0\x80", "\xC3(\xC0\xAF\xED\xA0\x80", 0, 0},  // suites invalides gardées
    };
    // clang-format on
    for (const Cas& c : cas) {
        std::string t = c.utf8;
        const Replis r = TableUtf8(t, 0);
        EXPECT_EQ(t, c.attendu) << c.utf8;
        EXPECT_EQ(r.lettres, c.lettres) << c.utf8;
        EXPECT_EQ(r.inconnus, c.inconnus) << c.utf8;
    }
}

TEST(JeuxCaracteres, LigneDesCaracteresRemplaces) {
    EXPECT_EQ(MessageReplis({}), "");
    EXPECT_EQ(
        MessageReplis({1, 0}),
        "Info : 1 caract\xE8re absent de la page de code 1252 a \xE9t\xE9 remplac\xE9 par sa lettre de base "
        "ou un signe voisin.\r\n");
    EXPECT_EQ(MessageReplis({0, 2}),
              "Info : 2 caract\xE8res absents de la page de code 1252 ont \xE9t\xE9 remplac\xE9s par \xAB ? "
              "\xBB.\r\n");
    EXPECT_EQ(MessageReplis({3, 2}),
              "Info : 5 caract\xE8res absents de la page de code 1252 ont \xE9t\xE9 remplac\xE9s : 3 par "
              "leur lettre "
              "de base ou un signe voisin, 2 par \xAB ? \xBB.\r\n");
}

TEST(JeuxCaracteres, FichierAnsel) {
    const Charge c = Charger(Donnee("ansel.ged"));
    EXPECT_EQ(c.jeu, JeuCaracteres::Ansel);
    EXPECT_EQ(Ligne(c.texte, "1 COPR"),
              "1 COPR Soci\xE2"
              "et\xE2"
              "e d'essai");  // lu avant CHAR
    EXPECT_EQ(Ligne(c.texte, "1 NAME Ren"),
              "1 NAME Ren\xE9"
              "e /B\xE9rang\xE8re/");
    EXPECT_EQ(Ligne(c.texte, "2 PLAC Saint"), "2 PLAC Saint-\xC9tienne, Loire, Rh\xF4ne-Alpes, France");
    EXPECT_EQ(Ligne(c.texte, "1 NAME \x8C"),
              "1 NAME \x8C"
              "dipe Fran\xE7ois /C\x9Cur-de-No\xEBl/");
    EXPECT_EQ(Ligne(c.texte, "2 PLAC Stra"),
              "2 PLAC Stra\xDF"
              "e, Espa\xF1"
              "a");
    EXPECT_EQ(Ligne(c.texte, "1 NAME \x8A"),
              "1 NAME \x8A"
              "arka /\x9A"
              "iroky/");  // y caron : y
    EXPECT_EQ(c.journal,
              "Info : le fichier utilise le jeu de caract\xE8res ANSEL pas compl\xE8tement g\xE9r\xE9 par "
              "Arbolix. Certains caract\xE8res sp\xE9"
              "ciaux seront mal reconnus, veuillez v\xE9rifier le "
              "cas \xE9"
              "ch\xE9"
              "ant.\r\nVous auriez d\xFB enregistrer le fichier gedcom avec des caract\xE8res "
              "ANSI.\r\nVous pouvez t\xE9l\xE9"
              "charger un convertisseur \xE0 l'adresse :\r\n" +
                  std::string(kAdresseConvertisseur) + "\r\n\r\n" + MessageReplis({1, 0}));
}

TEST(JeuxCaracteres, FichierUtf8) {
    const Charge c = Charger(Donnee("utf8.ged"));
    EXPECT_EQ(c.jeu, JeuCaracteres::Utf8);
    EXPECT_EQ(Ligne(c.texte, "1 NAME Ren"),
              "1 NAME Ren\xE9"
              "e /B\xE9rang\xE8re/");
    EXPECT_EQ(Ligne(c.texte, "2 PLAC Saint"), "2 PLAC Saint-\xC9tienne, Loire, France");
    EXPECT_EQ(Ligne(c.texte, "1 NAME \x8C"),
              "1 NAME \x8C"
              "dipe Fran\xE7ois /C\x9Cur-de-No\xEBl/");
    EXPECT_EQ(Ligne(c.texte, "1 OCCU"), "1 OCCU Marchand \xE0 5 \x80");
    EXPECT_EQ(Ligne(c.texte, "2 PLAC Stra"),
              "2 PLAC Stra\xDF"
              "e, Espa\xF1"
              "a");
    EXPECT_EQ(Ligne(c.texte, "1 NAME \x8A"), "1 NAME \x8A\xE1rka /\x8Airok\xFD/");
    EXPECT_EQ(Ligne(c.texte, "1 NOTE"),
              "1 NOTE a\xA0"
              "b L\xF3"
              "dz");
    EXPECT_EQ(c.journal,
              "Info : le fichier utilise le jeu de caract\xE8res UTF-8 qui a \xE9t\xE9 automatiquement "
              "converti. Certains caract\xE8res sp\xE9"
              "ciaux risquent d'\xEAtre mal reconnus, veuillez "
              "v\xE9rifier le cas \xE9"
              "ch\xE9"
              "ant.\r\nVous auriez d\xFB enregistrer le fichier Gedcom avec "
              "des caract\xE8res ANSI.\r\n\r\n" +
                  MessageReplis({2, 0}));
}

TEST(JeuxCaracteres, FichiersIbmpc) {
    const Charge c437 = Charger(Donnee("ibmpc.ged"));
    EXPECT_EQ(c437.jeu, JeuCaracteres::Oem437);
    EXPECT_EQ(Ligne(c437.texte, "1 NAME"), "1 NAME Andr\xE9 Fran\xE7ois /Fr\xE9mont/");
    EXPECT_EQ(Ligne(c437.texte, "1 NOTE"), "1 NOTE 5 \xA2");
    EXPECT_EQ(c437.journal, "");

    const Charge c850 = Charger(Donnee("ibmpc850.ged"));
    EXPECT_EQ(c850.jeu, JeuCaracteres::Oem850);
    EXPECT_EQ(Ligne(c850.texte, "1 NAME"), "1 NAME S\xF8ren /\xC0\xC9ve/");
}

TEST(JeuxCaracteres, PageOemDeclaree) {
    struct Cas {
        std::string_view valeur, suite;
        int page;
    };
    const Cas cas[] = {
        {"IBMPC", "2 VERS 850\r\n0 @I1@ INDI", 850},
        {"IBMPC", "\r\n  2 VERS CP850\r\n", 850},
        {"IBMPC 850", "", 850},
        {"IBMPC", "2 VERS 437\r\n", 437},
        {"IBMPC", "0 @I1@ INDI\r\n2 VERS 850\r\n", 437},  // pas la ligne suivante
        {"IBMPC", "1 FILE x850.ged\r\n", 437},
        {"IBMPC", "", 437},
    };
    for (const Cas& c : cas) EXPECT_EQ(PageOemDeclaree(c.valeur, c.suite), c.page) << c.suite;
}

TEST(JeuxCaracteres, JeuInconnuLaisseLeTexte) {
    const std::string brut = Donnee("macintosh.ged");
    const Charge c = Charger(brut);
    EXPECT_EQ(c.jeu, JeuCaracteres::Inconnu);
    EXPECT_EQ(c.texte, brut);
    EXPECT_EQ(c.journal,
              "Alerte : le fichier utilise le jeu de caract\xE8res MACINTOSH non g\xE9r\xE9 par Arbolix. Les "
              "caract\xE8res sp\xE9"
              "ciaux seront mal reconnus.\r\nVous pouvez t\xE9l\xE9"
              "charger un "
              "convertisseur \xE0 l'adresse :\r\n" +
                  std::string(kAdresseConvertisseur) + "\r\n\r\n");
}

TEST(JeuxCaracteres, VariantesDeValeur) {
    struct Cas {
        std::string_view valeur;
        JeuCaracteres jeu;
        bool journal;
        std::string_view texte;  // ce que devient "\xC3\xA9\x82"
    };
    const Cas cas[] = {
        {"ANSI", JeuCaracteres::Ansi, false, "\xC3\xA9\x82"},
        {"ascii", JeuCaracteres::Ansi, false, "\xC3\xA9\x82"},
        {"utf-8", JeuCaracteres::Utf8, true, "\xE9\x82"},
        {" UTF8 ", JeuCaracteres::Utf8, true, "\xE9\x82"},
        {"UNICODE", JeuCaracteres::Utf8, true, "\xE9\x82"},
        {"Ansel", JeuCaracteres::Ansel, true, "\xC3\xA9\x82"},
        {"IBMPC", JeuCaracteres::Oem437, false, "\xC3\xA9\x82"},
        {"IBM WINDOWS", JeuCaracteres::Inconnu, true, "\xC3\xA9\x82"},
        {"", JeuCaracteres::Inconnu, true, "\xC3\xA9\x82"},
    };
    for (const Cas& c : cas) {
        std::string tampon = "1 CHAR x\r\n\xC3\xA9\x82";
        std::string journal;
        EXPECT_EQ(TraiterJeuCaracteres(tampon, 10, c.valeur, kTitre, journal), c.jeu) << c.valeur;
        EXPECT_EQ(!journal.empty(), c.journal) << c.valeur;
        if (c.jeu != JeuCaracteres::Oem437 && c.jeu != JeuCaracteres::Ansel) {
            EXPECT_EQ(tampon.substr(10), c.texte) << c.valeur;
        }
    }
}

TEST(JeuxCaracteres, Utf16AvecEtSansMarque) {
    // Le même texte en UTF-8, tel qu'il se lit en page 1252.
    std::string attendu = Donnee("unicode.ged");
    ASSERT_FALSE(attendu.empty());
    TableUtf8(attendu, 0);
    struct Cas {
        std::string fichier;
        CodageFichier codage;
        bool marque;
    };
    const Cas cas[] = {
        {"utf16le.ged", CodageFichier::Utf16Petit, true},
        {"utf16be.ged", CodageFichier::Utf16Gros, true},
        {"utf16le-sans-marque.ged", CodageFichier::Utf16Petit, false},
        {"utf16be-sans-marque.ged", CodageFichier::Utf16Gros, false},
    };
    for (const Cas& c : cas) {
        std::string octets = Donnee(c.fichier);
        const CodageLu lu = NormaliserCodage(octets);
        EXPECT_EQ(lu.codage, c.codage) << c.fichier;
        EXPECT_EQ(lu.marque, c.marque) << c.fichier;
        EXPECT_EQ(octets, attendu) << c.fichier;
    }
    std::string octets = Donnee("utf16le.ged");
    EXPECT_EQ(NormaliserCodage(octets).journal,
              "Info : le fichier est cod\xE9 en UTF-16 petit-boutiste ; il a \xE9t\xE9 converti avant "
              "lecture.\r\n" +
                  MessageReplis({0, 1}));  // l'arbre de la note

    const Charge c = Charger(Donnee("utf16be-sans-marque.ged"));
    EXPECT_EQ(c.jeu, JeuCaracteres::Utf8);
    EXPECT_EQ(Ligne(c.texte, "1 NAME"),
              "1 NAME Ren\xE9"
              "e /B\xE9rang\xE8re/");
    EXPECT_EQ(Ligne(c.texte, "1 NOTE"), "1 NOTE arbre ? fin");
    EXPECT_TRUE(c.journal.starts_with("Info : le fichier est cod\xE9 en UTF-16 gros-boutiste sans marque"));
}

TEST(JeuxCaracteres, MarqueUtf8EtOctetsSimples) {
    std::string marque =
        "\xEF\xBB\xBF"
        "0 HEAD\r\n1 CHAR UTF-8\r\n";
    const CodageLu lu = NormaliserCodage(marque);
    EXPECT_EQ(lu.codage, CodageFichier::Utf8Marque);
    EXPECT_TRUE(lu.marque);
    EXPECT_EQ(marque, "0 HEAD\r\n1 CHAR UTF-8\r\n");
    EXPECT_FALSE(lu.journal.empty());

    for (std::string brut : {"0 HEAD\r\n1 CHAR ANSI\r\n1 NOTE \xE9\r\n"s, ""s, "0"s, "\xFF"s}) {
        const std::string avant = brut;
        const CodageLu l = NormaliserCodage(brut);
        EXPECT_EQ(l.codage, CodageFichier::Octets);
        EXPECT_EQ(brut, avant);
        EXPECT_TRUE(l.journal.empty());
    }
}

TEST(JeuxCaracteres, Utf16Abime) {
    const std::string fffd = "\xEF\xBF\xBD";
    struct Cas {
        std::string octets;
        bool gros;
        std::string attendu;
    };
    // clang-format off
    const Cas cas[] = {
        {"0\x00H\x00" "E"s, false, "0H" + fffd},              // nombre impair d'octets
        {"A"s, false, fffd},
        {"a\x00\x00\xD8"s, false, "a" + fffd},                // haute seule en fin
        {"\x00\xD8" "b\x00"s, false, fffd + "b"},             // haute suivie d'autre chose
        {"\x00\xDC\x00\xD8\x00\xD8\x00\xDC"s, false, fffd + fffd + "\xF0\x90\x80\x80"},  // basse, haute, paire
        {"\xD8\x3C\xDF\x33"s, true, "\xF0\x9F\x8C\xB3"},     // paire gros-boutiste
        {"\x20\xAC\x00\xE9"s, true, "\xE2\x82\xAC\xC3\xA9"},
        {""s, true, ""},
    };
    // clang-format on
    for (const Cas& c : cas) EXPECT_EQ(Utf16VersUtf8(c.octets, c.gros), c.attendu);

    std::string impair =
        "\xFF\xFE"
        "0\x00"
        "H"s;
    NormaliserCodage(impair);
    EXPECT_EQ(impair, "0?");  // l'octet final seul, puis la page 1252
    std::string marqueSeule = "\xFE\xFF"s;
    EXPECT_EQ(NormaliserCodage(marqueSeule).codage, CodageFichier::Utf16Gros);
    EXPECT_EQ(marqueSeule, "");
}

TEST(JeuxCaracteres, TamponCourtOuDepuisAuDela) {
    for (std::string_view valeur : {"ANSEL", "UTF-8", "IBMPC", "MACINTOSH"}) {
        std::string tampon = "1 CHAR \xE2";
        std::string journal;
        TraiterJeuCaracteres(tampon, 99, valeur, kTitre, journal);
        EXPECT_EQ(tampon, "1 CHAR \xE2");
        tampon = "\xE2";
        TraiterJeuCaracteres(tampon, 0, valeur, kTitre, journal);
        EXPECT_EQ(tampon.size(), valeur == "ANSEL" ? 0u : 1u);  // diacritique ANSEL sans lettre : retiré
    }
}

// Un fichier dit Unicode par ses octets est lu en UTF-8 en entier, quoi que dise CHAR ;
// sans CHAR, son contenu en décide.
TEST(JeuxCaracteres, CodageDesOctetsAvantCeluiDeChar) {
    const std::string marque =
        "Info : le fichier est cod\xE9 en UTF-8, comme le d\xE9"
        "clare sa marque d'ordre des octets ; la marque a \xE9t\xE9 retir\xE9"
        "e avant lecture.\r\n";
    const std::string tunis = MessageReplis({1, 0});
    // La note de l'en-tête, avant CHAR, est convertie elle aussi.
    const Charge ansel = Charger(
        "\xEF\xBB\xBF"
        "0 HEAD\r\n1 NOTE G\xC3\xA9n\xC3\xA9"
        "alogie\r\n1 CHAR ANSEL\r\n"
        "1 NAME T\xC5\xAB"
        "nis\r\n");
    EXPECT_EQ(ansel.jeu, JeuCaracteres::Utf8);
    EXPECT_EQ(Ligne(ansel.texte, "1 NOTE"),
              "1 NOTE G\xE9n\xE9"
              "alogie");
    EXPECT_EQ(Ligne(ansel.texte, "1 NAME"), "1 NAME Tunis");
    EXPECT_EQ(ansel.journal, marque + tunis +
                                 "Info : le fichier d\xE9"
                                 "clare le jeu de caract\xE8res ANSEL, mais sa marque "
                                 "d'ordre des octets le dit en UTF-8 : il a \xE9t\xE9 lu en UTF-8.\r\n");
    // Marque et CHAR d'accord : le message habituel.
    const Charge utf8 = Charger(
        "\xEF\xBB\xBF"
        "0 HEAD\r\n1 CHAR UTF-8\r\n1 NAME \xC3\xA9\r\n");
    EXPECT_EQ(Ligne(utf8.texte, "1 NAME"), "1 NAME \xE9");
    EXPECT_TRUE(utf8.journal.starts_with(marque +
                                         "Info : le fichier utilise le jeu de caract\xE8res UTF-8 qui a "
                                         "\xE9t\xE9 automatiquement converti."));

    // Sans ligne CHAR : l'UTF-8 valide est converti à la fin de l'en-tête, le reste non.
    struct Cas {
        std::string_view octets, texte;
        bool converti;
    };
    const Cas cas[] = {
        {"T\xC5\xAB"
         "nis",
         "Tunis", true},
        {"\xE9t\xE9", "\xE9t\xE9", false},  // pas de l'UTF-8 : page 1252
        {"ascii", "ascii", false},
    };
    for (const Cas& c : cas) {
        std::string tampon(c.octets);
        std::string journal;
        EXPECT_EQ(ConvertirUtf8NonDeclare(tampon, 0, CodageFichier::Octets, false, journal), c.converti);
        EXPECT_EQ(tampon, c.texte);
        EXPECT_EQ(journal, c.converti ? "Info : le fichier ne d\xE9"
                                        "clare pas son jeu de caract\xE8res ; son "
                                        "contenu est en UTF-8 et a \xE9t\xE9 converti.\r\n" +
                                            tunis
                                      : "");
    }
    // Une ligne CHAR a parlé : le contenu ne décide plus ; une marque a déjà tout converti.
    std::string tampon = "\xC3\xA9";
    std::string journal;
    EXPECT_FALSE(ConvertirUtf8NonDeclare(tampon, 0, CodageFichier::Octets, true, journal));
    EXPECT_TRUE(ConvertirUtf8NonDeclare(tampon, 0, CodageFichier::Utf8Marque, false, journal));
    EXPECT_EQ(tampon, "\xC3\xA9");
    EXPECT_EQ(journal, "");
}

// Fichiers d'autres logiciels, quand le corpus est là.
std::string Corpus(const std::string& nom) {
    const std::string chemin = std::string(ARBOLIX_CORPUS) + "/gedcom/" + nom;
    return std::filesystem::exists(chemin) ? LireOctets(chemin) : std::string();
}

TEST(JeuxCaracteresCorpus, Utf16DesAutresLogiciels) {
    struct Cas {
        std::string fichier;
        CodageFichier codage;
        bool marque;
    };
    const Cas cas[] = {
        {"willis-unicode-littleendian.ged", CodageFichier::Utf16Petit, false},
        {"UHLBOMCL.GED", CodageFichier::Utf16Gros, true},
        {"555SAMPLE16LE.GED", CodageFichier::Utf16Petit, true},
    };
    for (const Cas& c : cas) {
        std::string octets = Corpus(c.fichier);
        if (octets.empty()) GTEST_SKIP() << "corpus absent";
        const CodageLu lu = NormaliserCodage(octets);
        EXPECT_EQ(lu.codage, c.codage) << c.fichier;
        EXPECT_EQ(lu.marque, c.marque) << c.fichier;
        EXPECT_TRUE(octets.starts_with("0 HEAD")) << c.fichier;
        EXPECT_EQ(Charger(octets).jeu, JeuCaracteres::Utf8) << c.fichier;
    }
}

TEST(JeuxCaracteresCorpus, AnselIbmpcEtMacintosh) {
    const std::string heredis = Corpus("heredis12-ansel-issue81.ged");
    const std::string broskeep = Corpus("US-Presidents-broskeep-ibmpc.ged");
    const std::string mac = Corpus("heredis7-macintosh.ged");
    if (heredis.empty() || broskeep.empty() || mac.empty()) GTEST_SKIP() << "corpus absent";

    const Charge a = Charger(heredis);
    EXPECT_EQ(a.jeu, JeuCaracteres::Ansel);
    EXPECT_NE(a.texte.find("No\xE9,31410,Haute-Garonne,Midi-Pyr\xE9n\xE9"
                           "es"),
              std::string::npos);

    const Charge b = Charger(broskeep);
    EXPECT_EQ(b.jeu, JeuCaracteres::Oem437);
    EXPECT_NE(b.texte.find("Fr\xE9mont"), std::string::npos);

    const Charge m = Charger(mac);
    EXPECT_EQ(m.jeu, JeuCaracteres::Inconnu);
    EXPECT_EQ(m.texte, mac);
}

}  // namespace
}  // namespace arbolix
