#include "dates/cle_date.h"

#include <cstdint>

#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

struct MarqueCle {
    std::string_view debut;
    std::string_view suite;
};

// "apr" est "après" en minuscules : la comparaison tient compte de la casse.
constexpr MarqueCle kMarques[] = {
    {"ava", "/-0/00"},
    {"apr", "/0_/00"},
    {"ver", "/0./00"},
};

// La clé est calculée pour chaque date lue d'un fichier : ses chiffres sont écrits en place,
// sans texte intermédiaire. L'année tient en 4 chiffres (jamais plus de 9999 ici), mois et
// jour en 2.
void EcrireChiffres(std::string& s, std::size_t position, std::int64_t n, std::size_t largeur) {
    for (std::size_t i = largeur; i-- > 0; n /= 10) s[position + i] = static_cast<char>('0' + n % 10);
}

std::string Cle(std::int64_t annee, std::int64_t mois, std::int64_t jour) {
    std::string s = "0000/00/00";
    EcrireChiffres(s, 0, annee, 4);
    EcrireChiffres(s, 5, mois, 2);
    EcrireChiffres(s, 8, jour, 2);
    return s;
}

}  // namespace

std::string CleDuJour(const DateCalendrier& d) {
    return Cle(d.annee, d.mois, d.jour);
}

std::string CleDate(std::string_view s) {
    if (const auto d = LireDate(s)) return CleDuJour(*d);
    if (s.empty()) return "0000/00/00";
    // Jour et mois sans année : l'année 0, le mois et le jour pour ranger ces dates entre elles.
    if (const auto jm = LireJourEtMois(s)) return Cle(0, jm->mois, jm->jour);
    std::string cle = Cle(ValeurNumerique(Droite(s, 4)), 0, 0);
    for (const auto& m : kMarques)
        if (Gauche(s, 3) == m.debut) return cle.replace(4, m.suite.size(), m.suite);
    return cle;
}

}  // namespace arbolix
