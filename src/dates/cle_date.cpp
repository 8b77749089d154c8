#include "dates/cle_date.h"

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

}  // namespace

std::string CleDate(std::string_view s) {
    if (const auto d = LireDate(s))
        return Zeros(d->annee, 4) + "/" + Zeros(d->mois, 2) + "/" + Zeros(d->jour, 2);
    if (s.empty()) return "0000/00/00";
    // Jour et mois sans année : l'année 0, le mois et le jour pour ranger ces dates entre elles.
    if (const auto jm = LireJourEtMois(s)) return "0000/" + Zeros(jm->mois, 2) + "/" + Zeros(jm->jour, 2);
    const std::string annee = Zeros(ValeurNumerique(Droite(s, 4)), 4);
    for (const auto& m : kMarques)
        if (Gauche(s, 3) == m.debut) return annee + std::string(m.suite);
    return annee + "/00/00";
}

}  // namespace arbolix
