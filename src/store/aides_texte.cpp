#include "store/aides_texte.h"

#include <array>
#include <cstring>

#include "store/chaines.h"

namespace arbolix {
namespace {

unsigned char Octet(char c) {
    return static_cast<unsigned char>(c);
}

// Repli des accents : bornes de codes et lettre donnée ; 0 garde le caractère.
struct RegleAccent {
    unsigned char de, a;
    char donne;
};
constexpr std::array<RegleAccent, 32> kReglesAccents{{
    {65, 90, 0},     {97, 122, 0},    {200, 203, 'E'}, {192, 198, 'A'}, {204, 207, 'I'}, {140, 140, 'O'},
    {210, 216, 'O'}, {217, 220, 'U'}, {199, 199, 'C'}, {208, 208, 'D'}, {209, 209, 'N'}, {138, 138, 'S'},
    {159, 159, 'Y'}, {221, 221, 'Y'}, {232, 235, 'e'}, {224, 230, 'a'}, {236, 239, 'i'}, {156, 156, 'o'},
    {242, 246, 'o'}, {249, 252, 'u'}, {231, 231, 'c'}, {240, 240, 'd'}, {241, 241, 'n'}, {154, 154, 's'},
    {253, 253, 'y'}, {255, 255, 'y'}, {35, 35, 0},     {42, 42, 0},     {45, 46, 0},     {48, 57, 0},
    {95, 95, 0},     {0, 0, '_'},
}};

char Replier(char c) {
    const unsigned char u = Octet(c);
    for (const auto& r : kReglesAccents) {
        if (r.de == 0 && r.a == 0) break;
        if (u >= r.de && u <= r.a) return r.donne ? r.donne : c;
    }
    return '_';
}

bool LettreAscii(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

// Chiffres du code phonétique, dans l'ordre de la règle.
struct ChiffreSon {
    const char* lettres;
    char chiffre;
};
constexpr std::array<ChiffreSon, 7> kChiffresSon{{
    {"BFPVW", '1'},
    {"CGJKQSXZ\xC7\xDF", '2'},
    {"DT\xD0", '3'},
    {"L", '4'},
    {"MN\xD1", '5'},
    {"R", '6'},
    {"*", '*'},
}};

// Le chiffre de chaque octet, tiré une fois de la règle : la lecture code un million de noms.
// Une lettre de deux lignes garde celle de la première ; 0 pour les autres octets.
constexpr std::array<char, 256> kChiffreDeOctet = [] {
    std::array<char, 256> t{};
    for (const auto& r : kChiffresSon)
        for (const char* l = r.lettres; *l != '\0'; ++l)
            if (t[static_cast<unsigned char>(*l)] == 0) t[static_cast<unsigned char>(*l)] = r.chiffre;
    return t;
}();

char Chiffre(char c) {
    return kChiffreDeOctet[Octet(c)];
}

// Séparateurs de mots du titre à la manière de l'ancienne boîte à outils, plus
// les signes derrière lesquels la règle glisse un blanc.
bool FinDeMot(char c) {
    return std::strchr(" \t\r\n\v\f,;./-(*", c) != nullptr || c == '\0';
}

std::string TitreMots(std::string_view texte) {
    std::string r(texte);
    bool debut = true;
    for (char& c : r) {
        c = debut ? Majuscule1252(c) : Minuscule1252(c);
        debut = FinDeMot(c);
    }
    return r;
}

bool CommencePar(std::string_view s, std::string_view debut) {
    if (s.size() < debut.size()) return false;
    return EnMinuscules(s.substr(0, debut.size())) == EnMinuscules(debut);
}

// Prénoms d'hommes finissant par "e" et de femmes n'y finissant pas, par leurs 4 premières lettres.
constexpr std::array<const char*, 15> kPrefixesMasculins{"Adol",    "Alex", "Aloi", "Aloy", "Alph",
                                                         "Anto",    "Augu", "Clau", "Domi", "Etie",
                                                         "Eug\xE8", "Igna", "Isid", "Pier", "Th\xE9o"};
constexpr std::array<const char*, 3> kPrefixesFeminins{"Agn\xE8", "Elis", "Rosa"};

}  // namespace

std::string SansAccents(std::string_view texte, bool garderLongueur) {
    std::string t;
    t.reserve(texte.size() + 4);
    for (char c : texte) {
        const unsigned char u = Octet(c);
        if (u == 198)
            t += "AE";
        else if (u == 140)
            t += "OE";
        else if (u == 230 && !garderLongueur)
            t += "ae";
        else if (u == 156 && !garderLongueur)
            t += "oe";
        else
            t += c;
    }
    for (char& c : t) {
        if (LettreAscii(c)) {
            if (garderLongueur) break;
            continue;
        }
        c = Replier(c);
    }
    return t;
}

std::string CodeSon(std::string_view nom) {
    const std::string n = nom.empty() ? std::string("N") : EnMajuscules(nom);
    std::string code(1, n[0]);
    for (std::size_t i = 1; i < n.size() && code.size() < 4; ++i) {
        const char d = Chiffre(n[i]);
        if (d != 0 && d != code.back()) code += d;
    }
    if (code.find('*') == std::string::npos && code.size() < 4) code.resize(4, '0');
    return code;
}

std::string NomTri(std::string_view nom) {
    const std::string n = EnMajuscules(nom.empty() ? std::string_view("N") : nom);
    // Positions comptées à partir de 1, 0 quand absent, additionnées comme dans la règle.
    const auto pos = [&](char c) {
        const auto p = n.find(c);
        return p == std::string::npos ? 0 : p + 1;
    };
    const std::size_t p = pos('\'') + pos(' ');
    return SansAccents(p >= 1 && p <= 4 ? std::string_view(n).substr(p) : std::string_view(n), false);
}

std::string Majuscules(std::string_view texte, int mode, bool modifCasse) {
    if (!modifCasse) return std::string(texte);
    switch (mode) {
        case 0:
        case 5:
            return EnMajuscules(texte);
        case 1:
        case 3:
            return TitreMots(texte);
        case 7: {
            if (CommencePar(texte, "mailto:")) texte.remove_prefix(7);
            return EnMinuscules(texte);
        }
        default:
            return std::string(texte);
    }
}

char MajusculesTouche(std::string_view texte, int mode, char touche, bool modifCasse) {
    if (!modifCasse || touche == '\0') return touche;
    switch (mode) {
        case 0:
        case 5:
            return Majuscule1252(touche);
        case 1:
        case 3: {
            // Début de mot : début du texte, blanc, ponctuation ou chiffre.
            const bool debut = texte.empty() || Octet(texte.back()) < 'A';
            return debut ? Majuscule1252(touche) : Minuscule1252(touche);
        }
        case 7:
            return Minuscule1252(touche);
        default:
            return touche;
    }
}

std::string SexeDuPrenom(std::string_view prenoms) {
    if (prenoms.empty()) return {};
    for (const char* p : kPrefixesMasculins)
        if (CommencePar(prenoms, p)) return "M";
    for (const char* p : kPrefixesFeminins)
        if (CommencePar(prenoms, p)) return "F";
    const std::string_view mot = prenoms.substr(0, prenoms.find(' '));
    return (!mot.empty() && Minuscule1252(mot.back()) == 'e') ? "F" : "M";
}

std::string EchapperSQL(std::string_view texte) {
    // Dans l'ordre de la règle ; la troisième ligne reprend une barre doublée éventuelle.
    static constexpr std::array<std::array<std::string_view, 2>, 4> kRemplacements{{
        {"\\", "/"},
        {"'", "\\'"},
        {"\\\\'", "\\'"},
        {"\"", "\\\""},
    }};
    std::string r(texte);
    for (const auto& [quoi, par] : kRemplacements) RemplacerTout(r, quoi, par);
    return r;
}

}  // namespace arbolix
