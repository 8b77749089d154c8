#include "gedcom/jeux_caracteres.h"
#include "store/chaines.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

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
    c.journal = NormaliserCodage(octets).journal;
    const std::size_t p = octets.find("1 CHAR ");
    EXPECT_NE(p, std::string::npos);
    std::size_t fin = octets.find_first_of("\r\n", p);
    const std::string valeur = octets.substr(p + 7, fin - p - 7);
    while (fin < octets.size() && (octets[fin] == '\r' || octets[fin] == '\n')) ++fin;
    c.jeu = TraiterJeuCaracteres(octets, fin, valeur, kTitre, c.journal);
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

TEST(JeuxCaracteres, LignesAnselDansLeurOrdre) {
    // clang-format off
    const std::pair<std::string, std::string> cas[] = {
        {"\xE2" "e", "\xE9"},             // é
        {"\xE2" "E", "\xC9"},             // É
        {"\xE1" "e", "\xE8"},             // è
        {"\xE3" "o", "\xF4"},             // ô
        {"\xF0" "c", "\xE7"},             // ç
        {"\xE8" "e", "\xEB"},             // ë
        {"\xE4" "n", "\xF1"},             // ñ
        {"\xA6", "\x8C"}, {"\xB6", "\x9C"},  // Œ œ
        {"\xCF", "\xDF"},                 // ß
        {"\xE9" "S", "\x9A"},             // caron : S donne š...
        {"\xE9" "s", "\x8A"},             // ... et s donne Š
        {"\xE9" "y", "\xE9" "y"},         // lettre sans ligne : reste
        {"a\xE5" "b\xFE", "ab"},          // octets retirés
        {"\xA1" "\xB8", "Li"},
        {"\xA7", "\xB4"},                 // après la ligne B4 -> FE : ne la revoit pas
        {"\xB5", "\xE6"},                 // E6 produit après son retrait : reste
        {"\xEA" "a", "\xE5"},             // å, même raison
        {"\xE1" "ea", "\xE4"},            // è (E8) relu par la ligne E8 a -> ä
        {"\xE2\xE2" "e", "\xE2\xE9"},
        {"\xBA", "\xF0"},
        {"x\xE2", "x\xE2"},               // tampon coupé dans une paire
        {"\xE8", "\xE8"},
    };
    // clang-format on
    for (const auto& [ansel, attendu] : cas) {
        std::string t = ansel;
        TableAnsel(t, 0);
        EXPECT_EQ(t, attendu);
    }
}

TEST(JeuxCaracteres, LignesUtf8DansLeurOrdre) {
    // clang-format off
    const std::pair<std::string, std::string> cas[] = {
        {"\xC3\xA9", "\xE9"},             // é
        {"\xC3\x89", "\xC9"},             // É
        {"\xE2\x82\xAC", "\x80"},         // €
        {"\xC5\x92", "\x8C"}, {"\xC5\x93", "\x9C"},  // Œ œ
        {"\xC3\x9F", "\xDF"},             // ß
        {"\xC5\xA0", "S"}, {"\xC5\xA1", "s"},  // Š š : lettre nue
        {"\xC5\xBD", "z"}, {"\xC5\xBE", "z"},  // Ž ž : z minuscule tous deux
        {"\xC5\xB8", "\x9F"},             // Ÿ
        {"\xE2\x80\x99", "\x92"},         // ’
        {"\xC2\xA1", "\xA1"}, {"\xC3\xBF", "\xFF"},  // bornes
        {"\xC2\xA0", "\xC2\xA0"},         // espace insécable : pas de ligne
        {"\xC5\x81", "\xC5\x81"},         // Ł hors page 1252 : reste
        {"\xF0\x9F\x8C\xB3", "\xF0\x9F\x8C\xB3"},
        {"\xC3", "\xC3"},                 // tampon coupé
    };
    // clang-format on
    for (const auto& [utf8, attendu] : cas) {
        std::string t = utf8;
        TableUtf8(t, 0);
        EXPECT_EQ(t, attendu);
    }
    std::set<std::string_view> motifs;
    for (const Remplacement& l : LignesUtf8()) motifs.insert(l.de);
    EXPECT_EQ(motifs.size(), 122u);
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
    EXPECT_EQ(Ligne(c.texte, "1 NAME \x9A"),
              "1 NAME \x9A"
              "arka /\x8A"
              "irok\xE9y/");
    EXPECT_EQ(c.journal,
              "Info : le fichier utilise le jeu de caract\xE8res ANSEL pas compl\xE8tement g\xE9r\xE9 par "
              "Arbolix. Certains caract\xE8res sp\xE9"
              "ciaux seront mal reconnus, veuillez v\xE9rifier le "
              "cas \xE9"
              "ch\xE9"
              "ant.\r\nVous auriez du enregistrer le fichier gedcom avec des caract\xE8res "
              "ANSI.\r\nVous pouvez t\xE9l\xE9"
              "charger un convertisseur \xE0 l'adresse :\r\n" +
                  std::string(kAdresseConvertisseur) + "\r\n\r\n");
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
    EXPECT_EQ(Ligne(c.texte, "1 NAME S"), "1 NAME S\xE1rka /Sirok\xFD/");
    EXPECT_EQ(Ligne(c.texte, "1 NOTE"),
              "1 NOTE a\xC2\xA0"
              "b \xC5\x81\xF3"
              "d\xC5\xBA");
    EXPECT_EQ(c.journal,
              "Info : le fichier utilise le jeu de caract\xE8res UTF-8 qui a \xE9t\xE9 automatiquement "
              "converti. Certains caract\xE8res sp\xE9"
              "ciaux risquent d'\xEAtre mal reconnus, veuillez "
              "v\xE9rifier le cas \xE9"
              "ch\xE9"
              "ant.\r\nVous auriez du enregistrer le fichier Gedcom avec "
              "des caract\xE8res ANSI.\r\n\r\n");
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
    const std::string reference = Donnee("unicode.ged");
    ASSERT_FALSE(reference.empty());
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
        EXPECT_EQ(octets, reference) << c.fichier;
    }
    std::string octets = Donnee("utf16le.ged");
    EXPECT_EQ(NormaliserCodage(octets).journal,
              "Info : le fichier est cod\xE9 en UTF-16 petit-boutiste ; il a \xE9t\xE9 converti avant "
              "lecture.\r\n");

    const Charge c = Charger(Donnee("utf16be-sans-marque.ged"));
    EXPECT_EQ(c.jeu, JeuCaracteres::Utf8);
    EXPECT_EQ(Ligne(c.texte, "1 NAME"),
              "1 NAME Ren\xE9"
              "e /B\xE9rang\xE8re/");
    EXPECT_EQ(Ligne(c.texte, "1 NOTE"), "1 NOTE arbre \xF0\x9F\x8C\xB3 fin");
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
    EXPECT_EQ(impair, "0" + fffd);
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
        EXPECT_EQ(tampon.size(), 1u);
    }
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
