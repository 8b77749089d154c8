#include "dates/date_gedcom.h"

#include <charconv>

#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Une date réelle n'a que quelques préfixes emboîtés ; au-delà le texte sort tel quel,
// ce qui borne la pile pour un texte sans fin fait de "vers vers vers ...".
constexpr int kProfondeurMax = 32;

std::string_view Mid(std::string_view s, std::size_t debut1) {
    return debut1 - 1 >= s.size() ? std::string_view() : s.substr(debut1 - 1);
}

std::string_view MoisOuVide(std::int64_t i) {
    return i >= 1 && i <= 12 ? MoisGedcom[i] : std::string_view();
}

std::string Traduire(std::string_view d, int profondeur);

// Les sept caractères d'un mois et d'une année ("03/1750"), ou un texte sans barre
// ("vers 17", qui sort derrière un blanc). "1750/60" n'est ni l'un ni l'autre : la règle
// n'en garderait que "60".
bool FormeMoisAnnee(std::string_view s) {
    if (s.find('/') == std::string_view::npos) return true;
    const auto mois = ValeurNumerique(Gauche(s, 2));
    return s[2] == '/' && mois >= 1 && mois <= 12;
}

std::string Intervalle(std::string_view s, int profondeur) {
    // " et" cherché à partir du 9e caractère ; sans lui le texte sort tel quel.
    const std::size_t p = s.size() > 8 ? s.find(" et", 8) : std::string_view::npos;
    if (p == std::string_view::npos || p < 6) return std::string(s);
    return "BET " + Traduire(s.substr(6, p - 6), profondeur + 1) + " AND " +
           Traduire(Mid(s, p + 5), profondeur + 1);
}

struct Prefixe {
    std::string_view debut;
    std::string_view gedcom;
    std::size_t suite;  // position (à partir de 1) du texte qui suit le mot
};

constexpr Prefixe kPrefixes[] = {
    {"ver", "ABT ", 6},
    {"ava", "BEF ", 7},
    {"apr", "AFT ", 7},
};

std::string Traduire(std::string_view d, int profondeur) {
    const std::string s = Remplacer(d, "00/", "");
    if (s.size() >= 8) {
        if (const auto date = LireDate(s))
            return Zeros(date->jour, 2) + " " + std::string(MoisGedcom[date->mois]) + " " +
                   std::to_string(date->annee);
    }
    // Jour et mois sans année : "11 AUG" se relit "11/08" ; laissé "11/08", il se relirait
    // comme une date républicaine.
    if (const auto jm = LireJourEtMois(s))
        return Zeros(jm->jour, 2) + " " + std::string(MoisGedcom[jm->mois]);
    // "de 1750 à 1760", "de 1750", " à 1760" : FROM et TO, que tout logiciel relit et que la
    // lecture rend tels quels ; écrits en français, ils perdaient leur "de" à la relecture.
    if (profondeur < kProfondeurMax && s.starts_with("de ")) {
        const std::size_t a = s.find(" \xE0 ", 3);
        if (a == std::string::npos) return "FROM " + Traduire(Mid(s, 4), profondeur + 1);
        return "FROM " + Traduire(s.substr(3, a - 3), profondeur + 1) + " TO " +
               Traduire(Mid(s, a + 4), profondeur + 1);
    }
    if (profondeur < kProfondeurMax && s.starts_with(" \xE0 "))
        return "TO " + Traduire(Mid(s, 4), profondeur + 1);
    if (s.size() == 7 && FormeMoisAnnee(s)) {
        // "vers 17" n'a pas de barre : tout le texte suit le blanc.
        const std::size_t barre = s.find('/');
        return std::string(MoisOuVide(ValeurNumerique(Gauche(s, 2)))) + " " +
               std::string(barre == std::string::npos ? std::string_view(s) : Mid(s, barre + 2));
    }
    if (!s.empty() && EstChiffre(s[0])) return s;
    if (profondeur >= kProfondeurMax) return s;
    for (const auto& p : kPrefixes)
        if (Gauche(s, 3) == p.debut) return std::string(p.gedcom) + Traduire(Mid(s, p.suite), profondeur + 1);
    if (Gauche(s, 3) == "ent") return Intervalle(s, profondeur);
    return s;
}

// "12/03/1750", la forme de presque toutes les dates : écrite d'un trait, sans les chaînes de
// travail de la règle, qui donnerait le même texte ("00/" ôté n'y change rien quand ni le jour ni
// le mois ne valent 00). Faux sans rien écrire pour toute autre forme.
bool DateCourante(std::string_view d, std::string& r) {
    if (d.size() != 10 || d[2] != '/' || d[5] != '/' || d.starts_with("00/") || d.substr(3, 3) == "00/")
        return false;
    const auto date = LireDate(d);
    if (!date) return false;
    // Écrite dans un tableau puis d'un coup : une date de GEDCOM tient dans le petit tampon d'une chaîne.
    char texte[24];
    char* e = texte;
    *e++ = static_cast<char>('0' + date->jour / 10);
    *e++ = static_cast<char>('0' + date->jour % 10);
    *e++ = ' ';
    for (const char c : MoisGedcom[date->mois]) *e++ = static_cast<char>(c - 'a' + 'A');
    *e++ = ' ';
    e = std::to_chars(e, texte + sizeof texte, date->annee).ptr;
    r.assign(texte, e);
    return true;
}

}  // namespace

std::string DateGedcom(std::string_view d, bool dates) {
    if (!dates) return EnMajuscules(Droite(Remplacer(d, "00/", ""), 4));
    if (std::string r; DateCourante(d, r)) return r;
    return DateGedcomRegle(d);
}

std::string DateGedcomRegle(std::string_view d) {
    return EnMajuscules(Traduire(d, 0));
}

}  // namespace arbolix
