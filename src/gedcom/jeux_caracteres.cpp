#include "gedcom/jeux_caracteres.h"

#include "store/chaines.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "platform/pages_oem.h"

namespace arbolix {
namespace {

// ANSEL : les lignes dans leur ordre. Les lignes a et e minuscules viennent
// en dernier parce que leurs résultats (E0..EB) sont eux-mêmes des
// diacritiques ANSEL : plus tôt, ils se recombineraient avec la lettre
// suivante. Le caron donne S -> š et s -> Š : inversion gardée telle quelle.
// clang-format off
constexpr Remplacement kAnsel[] = {
    // Octets retirés.
    {"\xE5", ""}, {"\xE6", ""}, {"\xE7", ""}, {"\xED", ""}, {"\xEE", ""},
    {"\xF1", ""}, {"\xF6", ""}, {"\xF7", ""}, {"\xFE", ""},
    // Octets seuls vers lettres simples.
    {"\xA1", "L"}, {"\xB1", "l"}, {"\xB3", "d"}, {"\xB8", "i"},
    // Octets seuls vers octets.
    {"\xA2", "\xD8"}, {"\xA3", "\xD0"}, {"\xA4", "\xDE"}, {"\xA5", "\xC6"}, {"\xA6", "\x8C"},
    {"\xA8", "\xB7"}, {"\xAE", "\x92"}, {"\xB0", "\x91"}, {"\xB2", "\xF8"}, {"\xB4", "\xFE"},
    {"\xB5", "\xE6"}, {"\xB6", "\x9C"}, {"\xB9", "\xA3"}, {"\xC0", "\xB0"}, {"\xC3", "\xA9"},
    {"\xC5", "\xBF"}, {"\xC6", "\xA1"}, {"\xCF", "\xDF"}, {"\xA7", "\xB4"},
    // Diacritique suivi d'une lettre.
    {"\xE1" "A", "\xC0"}, {"\xE1" "E", "\xC8"}, {"\xE1" "I", "\xCC"}, {"\xE1" "i", "\xEC"},
    {"\xE1" "O", "\xD2"}, {"\xE1" "o", "\xF2"}, {"\xE1" "U", "\xD9"}, {"\xE1" "u", "\xF9"},
    {"\xE2" "A", "\xC1"}, {"\xE2" "E", "\xC9"}, {"\xE2" "I", "\xCD"}, {"\xE2" "i", "\xED"},
    {"\xE2" "O", "\xD3"}, {"\xE2" "o", "\xF3"}, {"\xE2" "U", "\xDA"}, {"\xE2" "u", "\xFA"},
    {"\xE2" "Y", "\xDD"}, {"\xE2" "y", "\xFD"},
    {"\xE3" "A", "\xC2"}, {"\xE3" "E", "\xCA"}, {"\xE3" "I", "\xCE"}, {"\xE3" "i", "\xEE"},
    {"\xE3" "O", "\xD4"}, {"\xE3" "o", "\xF4"}, {"\xE3" "U", "\xDB"}, {"\xE3" "u", "\xFB"},
    {"\xE4" "A", "\xC3"}, {"\xE4" "N", "\xD1"}, {"\xE4" "n", "\xF1"}, {"\xE4" "O", "\xD5"},
    {"\xE4" "o", "\xF5"},
    {"\xE8" "A", "\xC4"}, {"\xE8" "E", "\xCB"}, {"\xE8" "I", "\xCF"}, {"\xE8" "i", "\xEF"},
    {"\xE8" "O", "\xD6"}, {"\xE8" "o", "\xF6"}, {"\xE8" "U", "\xDC"}, {"\xE8" "u", "\xFC"},
    {"\xE8" "Y", "\x9F"}, {"\xE8" "y", "\xFF"},
    {"\xE9" "S", "\x9A"}, {"\xE9" "s", "\x8A"}, {"\xE9" "Z", "\x8E"}, {"\xE9" "z", "\x9E"},
    {"\xEA" "A", "\xC5"}, {"\xEA" "a", "\xE5"},
    {"\xF0" "C", "\xC7"}, {"\xF0" "c", "\xE7"},
    // Dernières lignes.
    {"\xE1" "a", "\xE0"}, {"\xE1" "e", "\xE8"}, {"\xE2" "a", "\xE1"}, {"\xE2" "e", "\xE9"},
    {"\xE3" "a", "\xE2"}, {"\xE3" "e", "\xEA"}, {"\xE4" "a", "\xE3"}, {"\xE8" "a", "\xE4"},
    {"\xE8" "e", "\xEB"},
    {"\xBA", "\xF0"},
};
// clang-format on

// UTF-8 : les lignes sont tirées de la page 1252 (ses caractères 0x80-0x9F
// définis, puis U+00A1..U+00FF), chacune en octets UTF-8 -> octet 1252.
struct LigneUtf8 {
    char de[3];
    unsigned char nDe;
    char vers;
};

// Quatre lignes ne donnent pas leur caractère et sont gardées ainsi.
struct Exception {
    char16_t code;
    char vers;
};
constexpr Exception kExceptionsUtf8[] = {{0x0160, 'S'}, {0x017D, 'z'}, {0x0161, 's'}, {0x017E, 'z'}};

constexpr LigneUtf8 FaireLigneUtf8(char16_t c, unsigned char octet) {
    LigneUtf8 l{};
    if (c < 0x800) {
        l.de[0] = static_cast<char>(0xC0 | (c >> 6));
        l.de[1] = static_cast<char>(0x80 | (c & 0x3F));
        l.nDe = 2;
    } else {
        l.de[0] = static_cast<char>(0xE0 | (c >> 12));
        l.de[1] = static_cast<char>(0x80 | ((c >> 6) & 0x3F));
        l.de[2] = static_cast<char>(0x80 | (c & 0x3F));
        l.nDe = 3;
    }
    l.vers = static_cast<char>(octet);
    for (const Exception& e : kExceptionsUtf8)
        if (e.code == c) l.vers = e.vers;
    return l;
}

constexpr std::size_t kNbLignesUtf8 = 122;

constexpr std::array<LigneUtf8, kNbLignesUtf8> GenererUtf8() {
    std::array<LigneUtf8, kNbLignesUtf8> t{};
    std::size_t n = 0;
    for (std::size_t i = 0; i < kCp1252De80A9F.size(); ++i)
        if (kCp1252De80A9F[i] != 0)
            t[n++] = FaireLigneUtf8(kCp1252De80A9F[i], static_cast<unsigned char>(0x80 + i));
    for (char16_t c = 0xA1; c <= 0xFF; ++c) t[n++] = FaireLigneUtf8(c, static_cast<unsigned char>(c));
    return t;
}

constexpr std::array<LigneUtf8, kNbLignesUtf8> kUtf8Brut = GenererUtf8();

constexpr std::array<Remplacement, kNbLignesUtf8> VuesUtf8() {
    std::array<Remplacement, kNbLignesUtf8> t{};
    for (std::size_t i = 0; i < kNbLignesUtf8; ++i)
        t[i] = {std::string_view(kUtf8Brut[i].de, kUtf8Brut[i].nDe), std::string_view(&kUtf8Brut[i].vers, 1)};
    return t;
}

constexpr std::array<Remplacement, kNbLignesUtf8> kUtf8 = VuesUtf8();

void PasserTable(std::string& tampon, std::size_t depuis, std::span<const Remplacement> lignes) {
    for (const Remplacement& l : lignes) RemplacerTout(tampon, l.de, l.vers, depuis);
}

// Ce que la lecture d'une valeur CHAR demande.
enum class Traitement { Rien, Oem, Ansel, Utf8 };

struct ValeurChar {
    std::string_view valeur;
    Traitement traitement;
};

// ASCII est une valeur valide de GEDCOM 5.5 : sous-ensemble de la page 1252,
// rien à réparer, pas d'alerte. UNICODE arrive ici déjà converti en UTF-8.
constexpr ValeurChar kValeursChar[] = {
    {"ANSI", Traitement::Rien},    {"ASCII", Traitement::Rien}, {"IBMPC", Traitement::Oem},
    {"ANSEL", Traitement::Ansel},  {"UTF-8", Traitement::Utf8}, {"UTF8", Traitement::Utf8},
    {"UNICODE", Traitement::Utf8},
};

bool EstBlanc(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

std::string PremierMotMajuscule(std::string_view v) {
    std::size_t i = 0;
    while (i < v.size() && EstBlanc(v[i])) ++i;
    std::string mot;
    for (; i < v.size() && !EstBlanc(v[i]); ++i)
        mot += (v[i] >= 'a' && v[i] <= 'z') ? static_cast<char>(v[i] - 'a' + 'A') : v[i];
    return mot;
}

std::string MessageAnsel(std::string_view v, std::string_view titre) {
    std::string m = "Info : le fichier utilise le jeu de caract\xE8res ";
    m.append(v).append(" pas compl\xE8tement g\xE9r\xE9 par ").append(titre);
    m += ". Certains caract\xE8res sp\xE9"
         "ciaux seront mal reconnus, veuillez v\xE9rifier le cas \xE9"
         "ch\xE9"
         "ant.\r\n"
         "Vous auriez du enregistrer le fichier gedcom avec des caract\xE8res ANSI.\r\n"
         "Vous pouvez t\xE9l\xE9"
         "charger un convertisseur \xE0 l'adresse :\r\n";
    m.append(kAdresseConvertisseur).append("\r\n\r\n");
    return m;
}

std::string MessageUtf8(std::string_view v) {
    std::string m = "Info : le fichier utilise le jeu de caract\xE8res ";
    m.append(v);
    m += " qui a \xE9t\xE9 automatiquement converti. Certains caract\xE8res sp\xE9"
         "ciaux risquent d'\xEAtre mal reconnus, veuillez v\xE9rifier le cas \xE9"
         "ch\xE9"
         "ant.\r\n"
         "Vous auriez du enregistrer le fichier Gedcom avec des caract\xE8res ANSI.\r\n\r\n";
    return m;
}

std::string MessageInconnu(std::string_view v, std::string_view titre) {
    std::string m = "Alerte : le fichier utilise le jeu de caract\xE8res ";
    m.append(v).append(" non g\xE9r\xE9 par ").append(titre);
    m += ". Les caract\xE8res sp\xE9"
         "ciaux seront mal reconnus.\r\n"
         "Vous pouvez t\xE9l\xE9"
         "charger un convertisseur \xE0 l'adresse :\r\n";
    m.append(kAdresseConvertisseur).append("\r\n\r\n");
    return m;
}

}  // namespace

std::span<const Remplacement> LignesAnsel() {
    return kAnsel;
}
std::span<const Remplacement> LignesUtf8() {
    return kUtf8;
}

void TableAnsel(std::string& tampon, std::size_t depuis) {
    PasserTable(tampon, depuis, kAnsel);
}
void TableUtf8(std::string& tampon, std::size_t depuis) {
    PasserTable(tampon, depuis, kUtf8);
}

int PageOemDeclaree(std::string_view valeur, std::string_view suite) {
    if (valeur.find("850") != std::string_view::npos) return 850;
    std::size_t i = 0;
    while (i < suite.size() && EstBlanc(suite[i])) ++i;
    std::string_view ligne = suite.substr(i);
    ligne = ligne.substr(0, ligne.find_first_of("\r\n"));
    if (ligne.starts_with("2 VERS") && ligne.find("850") != std::string_view::npos) return 850;
    return 437;
}

JeuCaracteres TraiterJeuCaracteres(std::string& tampon, std::size_t depuis, std::string_view valeur,
                                   std::string_view titreProgramme, std::string& journal) {
    const std::string mot = PremierMotMajuscule(valeur);
    for (const ValeurChar& ligne : kValeursChar) {
        if (ligne.valeur != mot) continue;
        switch (ligne.traitement) {
            case Traitement::Rien:
                return JeuCaracteres::Ansi;
            case Traitement::Oem: {
                const std::string_view suite =
                    depuis < tampon.size() ? std::string_view(tampon).substr(depuis) : std::string_view();
                const int page = PageOemDeclaree(valeur, suite);
                OemVers1252(tampon, depuis, page);
                return page == 850 ? JeuCaracteres::Oem850 : JeuCaracteres::Oem437;
            }
            case Traitement::Ansel:
                TableAnsel(tampon, depuis);
                journal += MessageAnsel(valeur, titreProgramme);
                return JeuCaracteres::Ansel;
            case Traitement::Utf8:
                TableUtf8(tampon, depuis);
                journal += MessageUtf8(valeur);
                return JeuCaracteres::Utf8;
        }
    }
    journal += MessageInconnu(valeur, titreProgramme);
    return JeuCaracteres::Inconnu;
}

std::string Utf16VersUtf8(std::string_view octets, bool grosBoutiste) {
    std::string sortie;
    sortie.reserve(octets.size());
    auto unite = [&](std::size_t i) -> char32_t {
        const auto a = static_cast<unsigned char>(octets[i]);
        const auto b = static_cast<unsigned char>(octets[i + 1]);
        return grosBoutiste ? (a << 8 | b) : (b << 8 | a);
    };
    auto ecrire = [&](char32_t c) {
        if (c < 0x80) {
            sortie += static_cast<char>(c);
        } else if (c < 0x800) {
            sortie += static_cast<char>(0xC0 | (c >> 6));
            sortie += static_cast<char>(0x80 | (c & 0x3F));
        } else if (c < 0x10000) {
            sortie += static_cast<char>(0xE0 | (c >> 12));
            sortie += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            sortie += static_cast<char>(0x80 | (c & 0x3F));
        } else {
            sortie += static_cast<char>(0xF0 | (c >> 18));
            sortie += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
            sortie += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
            sortie += static_cast<char>(0x80 | (c & 0x3F));
        }
    };
    constexpr char32_t kRemplacant = 0xFFFD;
    std::size_t i = 0;
    for (; i + 1 < octets.size(); i += 2) {
        const char32_t u = unite(i);
        if (u >= 0xD800 && u <= 0xDBFF && i + 3 < octets.size()) {
            const char32_t bas = unite(i + 2);
            if (bas >= 0xDC00 && bas <= 0xDFFF) {
                ecrire(0x10000 + ((u - 0xD800) << 10) + (bas - 0xDC00));
                i += 2;
                continue;
            }
        }
        ecrire(u >= 0xD800 && u <= 0xDFFF ? kRemplacant : u);
    }
    if (i < octets.size()) ecrire(kRemplacant);
    return sortie;
}

namespace {

// Sans marque, un texte GEDCOM commence en ASCII : en UTF-16, un octet sur
// deux du début est nul, du côté de l'octet de poids fort.
CodageFichier Utf16SansMarque(std::string_view octets) {
    const std::size_t paires = std::min<std::size_t>(octets.size(), 1024) / 2;
    std::size_t nulsImpairs = 0;
    std::size_t nulsPairs = 0;
    for (std::size_t k = 0; k < paires; ++k) {
        const char a = octets[2 * k];
        const char b = octets[2 * k + 1];
        if (a != 0 && b == 0) ++nulsImpairs;
        if (a == 0 && b != 0) ++nulsPairs;
    }
    if (paires == 0) return CodageFichier::Octets;
    if (nulsImpairs * 2 >= paires && nulsPairs == 0) return CodageFichier::Utf16Petit;
    if (nulsPairs * 2 >= paires && nulsImpairs == 0) return CodageFichier::Utf16Gros;
    return CodageFichier::Octets;
}

}  // namespace

CodageLu NormaliserCodage(std::string& octets) {
    CodageLu lu;
    const std::string_view v(octets);
    if (v.starts_with("\xEF\xBB\xBF")) {
        octets.erase(0, 3);
        lu.codage = CodageFichier::Utf8Marque;
        lu.marque = true;
        lu.journal =
            "Info : le fichier est cod\xE9 en UTF-8, comme le d\xE9"
            "clare sa marque d'ordre des "
            "octets ; la marque a \xE9t\xE9 retir\xE9"
            "e avant lecture.\r\n";
        return lu;
    }
    if (v.starts_with("\xFF\xFE")) {
        lu.codage = CodageFichier::Utf16Petit;
        lu.marque = true;
    } else if (v.starts_with("\xFE\xFF")) {
        lu.codage = CodageFichier::Utf16Gros;
        lu.marque = true;
    } else {
        lu.codage = Utf16SansMarque(v);
        if (lu.codage == CodageFichier::Octets) return lu;
    }
    const bool gros = lu.codage == CodageFichier::Utf16Gros;
    octets = Utf16VersUtf8(v.substr(lu.marque ? 2 : 0), gros);
    lu.journal = std::string("Info : le fichier est cod\xE9 en UTF-16 ") + (gros ? "gros" : "petit") +
                 "-boutiste" + (lu.marque ? "" : " sans marque d'ordre des octets") +
                 " ; il a \xE9t\xE9 converti avant lecture.\r\n";
    return lu;
}

}  // namespace arbolix
