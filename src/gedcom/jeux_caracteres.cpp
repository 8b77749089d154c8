#include "gedcom/jeux_caracteres.h"

#include <algorithm>
#include <array>

#include "gedcom/repli_1252.h"
#include "platform/pages_oem.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

// Diacritiques ANSEL que la page 1252 ne compose jamais (macron, brève, point suscrit,
// crochet, cédille à droite...) : retirés d'abord, sur les seuls octets du fichier, pour
// qu'un second diacritique posé sur la même lettre la trouve encore.
constexpr std::string_view kAnselRetires = "\xE5\xE6\xE7\xED\xEE\xF1\xF6\xF7\xFE";

// ANSEL : un caractère par ligne, traduit une seule fois. Les lignes A1, B1, B3, B8 et
// les apostrophes donnent une lettre ou un signe voisin ; les caractères que la page 1252
// n'a pas (lettres à corne, bémol, dièse...) aussi, "?" pour les cases de l'extension LDS.
// Le caron donne Š pour S et š pour s.
// clang-format off
constexpr LigneAnsel kAnsel[] = {
    // Octets seuls vers lettres simples.
    {"\xA1", "L", true}, {"\xB1", "l", true}, {"\xB3", "d", true}, {"\xB8", "i", true},
    // Octets seuls vers octets.
    {"\xA2", "\xD8"}, {"\xA3", "\xD0"}, {"\xA4", "\xDE"}, {"\xA5", "\xC6"}, {"\xA6", "\x8C"},
    {"\xA8", "\xB7"}, {"\xAE", "\x92", true}, {"\xB0", "\x91", true}, {"\xB2", "\xF8"}, {"\xB4", "\xFE"},
    {"\xB5", "\xE6"}, {"\xB6", "\x9C"}, {"\xB9", "\xA3"}, {"\xC0", "\xB0"}, {"\xC3", "\xA9"},
    {"\xC5", "\xBF"}, {"\xC6", "\xA1"}, {"\xCF", "\xDF"}, {"\xA7", "\xB4", true},
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
    {"\xE9" "S", "\x8A"}, {"\xE9" "s", "\x9A"}, {"\xE9" "Z", "\x8E"}, {"\xE9" "z", "\x9E"},
    {"\xEA" "A", "\xC5"}, {"\xEA" "a", "\xE5"},
    {"\xF0" "C", "\xC7"}, {"\xF0" "c", "\xE7"},
    {"\xE1" "a", "\xE0"}, {"\xE1" "e", "\xE8"}, {"\xE2" "a", "\xE1"}, {"\xE2" "e", "\xE9"},
    {"\xE3" "a", "\xE2"}, {"\xE3" "e", "\xEA"}, {"\xE4" "a", "\xE3"}, {"\xE8" "a", "\xE4"},
    {"\xE8" "e", "\xEB"},
    {"\xBA", "\xF0"},
    // Caractères ANSEL sans ligne jusqu'ici, qui restaient l'octet 1252 d'un autre caractère.
    {"\xAA", "\xAE"}, {"\xAB", "\xB1"},
    {"\xAC", "O", true}, {"\xAD", "U", true}, {"\xBC", "o", true}, {"\xBD", "u", true},
    {"\xA9", "b", true}, {"\xC4", "#", true}, {"\xC1", "l", true}, {"\xC2", "(P)", true},
    {"\xB7", "\"", true}, {"\xCD", "e", true}, {"\xCE", "o", true},
    {"\xBE", "?", true}, {"\xBF", "?", true},
};
// clang-format on

bool EstDiacritiqueAnsel(unsigned char c) {
    return c >= 0xE0 && c <= 0xFE;
}

// Table d'accès direct : pour chaque premier octet, ses lignes (une seule s'il est seul).
struct IndexAnsel {
    std::array<const LigneAnsel*, 256> seul{};
    std::array<std::array<const LigneAnsel*, 128>, 32> paire{};  // diacritique E0..FF, lettre ASCII
};

constexpr IndexAnsel FaireIndexAnsel() {
    IndexAnsel x{};
    for (const LigneAnsel& l : kAnsel) {
        const auto premier = static_cast<unsigned char>(l.de[0]);
        if (l.de.size() == 1)
            x.seul[premier] = &l;
        else
            x.paire[premier - 0xE0][static_cast<unsigned char>(l.de[1])] = &l;
    }
    return x;
}

constexpr IndexAnsel kIndexAnsel = FaireIndexAnsel();

// Décode un caractère UTF-8 en t[i..] ; longueur 0 si les octets n'en forment pas un valide.
struct CaractereLu {
    char32_t code = 0;
    std::size_t longueur = 0;
};

CaractereLu LireUtf8(std::string_view t, std::size_t i) {
    const auto c = static_cast<unsigned char>(t[i]);
    std::size_t n = 0;
    char32_t code = 0;
    char32_t minimum = 0;
    if (c >= 0xC2 && c <= 0xDF) {
        n = 2, code = c & 0x1F, minimum = 0x80;
    } else if (c >= 0xE0 && c <= 0xEF) {
        n = 3, code = c & 0x0F, minimum = 0x800;
    } else if (c >= 0xF0 && c <= 0xF4) {
        n = 4, code = c & 0x07, minimum = 0x10000;
    } else {
        return {};
    }
    if (i + n > t.size()) return {};
    for (std::size_t k = 1; k < n; ++k) {
        const auto suite = static_cast<unsigned char>(t[i + k]);
        if ((suite & 0xC0) != 0x80) return {};
        code = (code << 6) | (suite & 0x3F);
    }
    if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return {};
    return {code, n};
}

// Un texte encodé deux fois en UTF-8 ("Ã©" pour "é") se lit encore en UTF-8 une fois
// converti ; une suite de la page 1252 qui forme ainsi un caractère qu'elle contient est ce
// caractère (aucun nom réel n'écrit "Ã" suivi d'un signe de 0x80 à 0xBF).
void RetablirDoubleEncodage(std::string& t, std::size_t depuis) {
    std::size_t ecrit = depuis;
    for (std::size_t i = depuis; i < t.size();) {
        const CaractereLu lu = static_cast<unsigned char>(t[i]) < 0x80 ? CaractereLu{} : LireUtf8(t, i);
        const int octet = lu.longueur > 0 ? OctetCp1252(lu.code) : -1;
        if (octet < 0) {
            t[ecrit++] = t[i++];
            continue;
        }
        t[ecrit++] = static_cast<char>(octet);
        i += lu.longueur;
    }
    t.resize(ecrit);
}

// Les accents combinants d'une lettre : le premier se compose quand la page 1252 a la
// lettre accentuée ; au-delà d'un, la lettre revient à sa base, comme un caractère
// précomposé à deux accents ("ễ" donne "e").
class GrappeAccents {
public:
    void Lettre() { etat_ = Etat::Aucune; }
    void Accent(std::string& sortie, std::size_t debut, char32_t marque, Replis& replis) {
        if (etat_ == Etat::Composee) {
            sortie.back() = static_cast<char>(base_);
            etat_ = Etat::Rompue;
            ++replis.lettres;
            return;
        }
        if (etat_ == Etat::Rompue) return;
        const int compose =
            sortie.size() > debut ? Composer1252(static_cast<unsigned char>(sortie.back()), marque) : -1;
        if (compose < 0) {
            etat_ = Etat::Rompue;
            ++replis.lettres;
            return;
        }
        base_ = static_cast<unsigned char>(sortie.back());
        sortie.back() = static_cast<char>(compose);
        etat_ = Etat::Composee;
    }

private:
    enum class Etat { Aucune, Composee, Rompue };
    Etat etat_ = Etat::Aucune;
    unsigned char base_ = 0;
};

// Ce que la lecture d'une valeur CHAR demande.
enum class Traitement { Rien, Oem, Ansel, Utf8 };

struct ValeurChar {
    std::string_view valeur;
    Traitement traitement;
};

// ASCII est une valeur valide de GEDCOM 5.5 : sous-ensemble de la page 1252,
// rien à réparer, pas d'alerte. UNICODE : un fichier UTF-16 arrive ici déjà converti, un
// fichier d'octets qui le déclare est lu en UTF-8.
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
         "Vous auriez d\xFB enregistrer le fichier gedcom avec des caract\xE8res ANSI.\r\n"
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
         "Vous auriez d\xFB enregistrer le fichier Gedcom avec des caract\xE8res ANSI.\r\n\r\n";
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

std::span<const LigneAnsel> LignesAnsel() {
    return kAnsel;
}

Replis TableAnsel(std::string& tampon, std::size_t depuis) {
    Replis replis;
    if (depuis >= tampon.size()) return replis;
    for (char c : kAnselRetires) replis.lettres += RemplacerTout(tampon, std::string_view(&c, 1), "", depuis);
    const std::string_view t(tampon);
    std::string sortie(t.substr(0, depuis));
    sortie.reserve(tampon.size());
    for (std::size_t i = depuis; i < t.size();) {
        const auto c = static_cast<unsigned char>(t[i]);
        const LigneAnsel* ligne = kIndexAnsel.seul[c];
        if (EstDiacritiqueAnsel(c) && i + 1 < t.size() && static_cast<unsigned char>(t[i + 1]) < 0x80)
            ligne = kIndexAnsel.paire[c - 0xE0][static_cast<unsigned char>(t[i + 1])];
        if (ligne) {
            sortie += ligne->vers;
            replis.lettres += ligne->repli;
            i += ligne->de.size();
        } else if (EstDiacritiqueAnsel(c)) {
            ++replis.lettres;  // accent sans forme composée : la lettre qui suit reste seule
            ++i;
        } else {
            sortie += t[i++];
        }
    }
    tampon = std::move(sortie);
    return replis;
}

Replis TableUtf8(std::string& tampon, std::size_t depuis) {
    Replis replis;
    if (depuis >= tampon.size()) return replis;
    const std::string_view t(tampon);
    std::string sortie(t.substr(0, depuis));
    sortie.reserve(tampon.size());
    GrappeAccents accents;
    for (std::size_t i = depuis; i < t.size();) {
        const CaractereLu lu = static_cast<unsigned char>(t[i]) < 0x80 ? CaractereLu{} : LireUtf8(t, i);
        if (lu.longueur == 0) {
            accents.Lettre();
            sortie += t[i++];
            continue;
        }
        i += lu.longueur;
        if (EstMarqueCombinante(lu.code)) {
            accents.Accent(sortie, depuis, lu.code, replis);
            continue;
        }
        accents.Lettre();
        if (const int octet = OctetCp1252(lu.code); octet >= 0) {
            sortie += static_cast<char>(octet);
        } else if (const auto repli = Repli1252(lu.code)) {
            sortie += *repli;
            ++replis.lettres;
        } else {
            sortie += '?';
            ++replis.inconnus;
        }
    }
    RetablirDoubleEncodage(sortie, depuis);
    tampon = std::move(sortie);
    return replis;
}

std::string MessageReplis(const Replis& r) {
    if (r.Total() == 0) return {};
    const bool un = r.Total() == 1;
    std::string m = "Info : " + std::to_string(r.Total()) +
                    (un ? " caract\xE8re absent" : " caract\xE8res absents") + " de la page de code 1252 " +
                    (un ? "a \xE9t\xE9 remplac\xE9" : "ont \xE9t\xE9 remplac\xE9s");
    if (r.inconnus == 0)
        return m + " par " + (un ? "sa" : "leur") + " lettre de base ou un signe voisin.\r\n";
    if (r.lettres == 0) return m + " par \xAB ? \xBB.\r\n";
    return m + " : " + std::to_string(r.lettres) + " par leur lettre de base ou un signe voisin, " +
           std::to_string(r.inconnus) + " par \xAB ? \xBB.\r\n";
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

namespace {

Traitement TraitementDe(std::string_view mot) {
    for (const ValeurChar& ligne : kValeursChar)
        if (ligne.valeur == mot) return ligne.traitement;
    return Traitement::Rien;
}

bool Connue(std::string_view mot) {
    for (const ValeurChar& ligne : kValeursChar)
        if (ligne.valeur == mot) return true;
    return false;
}

// Un fichier Unicode par ses octets dont CHAR dit autre chose : on suit les octets.
std::string MessageCodageImpose(std::string_view v, CodageFichier codage) {
    std::string m =
        "Info : le fichier d\xE9"
        "clare le jeu de caract\xE8res ";
    m.append(v);
    if (codage == CodageFichier::Utf8Marque)
        return m + ", mais sa marque d'ordre des octets le dit en UTF-8 : il a \xE9t\xE9 lu en UTF-8.\r\n";
    return m + ", mais il est cod\xE9 en UTF-16 : il a \xE9t\xE9 lu en Unicode.\r\n";
}

// Vrai si le texte contient au moins un caractère UTF-8 de plusieurs octets et aucune suite invalide.
bool RessembleUtf8(std::string_view t) {
    bool multi = false;
    for (std::size_t i = 0; i < t.size();) {
        if (static_cast<unsigned char>(t[i]) < 0x80) {
            ++i;
            continue;
        }
        const CaractereLu lu = LireUtf8(t, i);
        if (lu.longueur == 0) return false;
        i += lu.longueur;
        multi = true;
    }
    return multi;
}

}  // namespace

JeuCaracteres TraiterJeuCaracteres(std::string& tampon, std::size_t depuis, std::string_view valeur,
                                   std::string_view titreProgramme, std::string& journal,
                                   CodageFichier codage) {
    const std::string mot = PremierMotMajuscule(valeur);
    const Traitement traitement = TraitementDe(mot);
    // Un fichier Unicode par ses octets est déjà en page 1252 (NormaliserCodage).
    if (codage != CodageFichier::Octets) {
        journal += traitement == Traitement::Utf8 ? MessageUtf8(valeur) : MessageCodageImpose(valeur, codage);
        return JeuCaracteres::Utf8;
    }
    if (!Connue(mot)) {
        journal += MessageInconnu(valeur, titreProgramme);
        return JeuCaracteres::Inconnu;
    }
    switch (traitement) {
        case Traitement::Rien:
            return JeuCaracteres::Ansi;
        case Traitement::Oem: {
            const std::string_view suite =
                depuis < tampon.size() ? std::string_view(tampon).substr(depuis) : std::string_view();
            const int page = PageOemDeclaree(valeur, suite);
            OemVers1252(tampon, depuis, page);
            return page == 850 ? JeuCaracteres::Oem850 : JeuCaracteres::Oem437;
        }
        case Traitement::Ansel: {
            const Replis r = TableAnsel(tampon, depuis);
            journal += MessageAnsel(valeur, titreProgramme) + MessageReplis(r);
            return JeuCaracteres::Ansel;
        }
        case Traitement::Utf8: {
            const Replis r = TableUtf8(tampon, depuis);
            journal += MessageUtf8(valeur) + MessageReplis(r);
            return JeuCaracteres::Utf8;
        }
    }
    return JeuCaracteres::Inconnu;
}

bool ConvertirUtf8NonDeclare(std::string& tampon, std::size_t depuis, CodageFichier codage, bool charLu,
                             std::string& journal) {
    // Un fichier Unicode par ses octets a été converti en entier, journal compris (NormaliserCodage).
    if (codage != CodageFichier::Octets) return true;
    // Seul un fichier qui ne déclare rien est jugé sur son contenu.
    const std::string_view reste = std::string_view(tampon).substr(std::min(depuis, tampon.size()));
    if (charLu || !RessembleUtf8(reste)) return false;
    const Replis r = TableUtf8(tampon, depuis);
    journal +=
        "Info : le fichier ne d\xE9"
        "clare pas son jeu de caract\xE8res ; son contenu est en UTF-8 et a \xE9t\xE9 converti.\r\n";
    journal += MessageReplis(r);
    return true;
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
        lu.journal += MessageReplis(TableUtf8(octets, 0));
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
    lu.journal += MessageReplis(TableUtf8(octets, 0));
    return lu;
}

}  // namespace arbolix
