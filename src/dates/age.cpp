#include "dates/age.h"

#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Deux chiffres, "/", deux chiffres, "/", quatre chiffres.
bool FormeDateComplete(std::string_view s) {
    if (s.size() != 10) return false;
    for (std::size_t i = 0; i < s.size(); ++i) {
        const bool barre = i == 2 || i == 5;
        if (barre ? s[i] != '/' : !EstChiffre(s[i])) return false;
    }
    return true;
}

// Mois et jour lus comme le nombre MMJJ.
std::int64_t MoisJour(std::string_view s) {
    return ValeurNumerique(std::string(s.substr(3, 2)) + std::string(s.substr(0, 2)));
}

}  // namespace

std::string AgeA(const Acte& naissance, std::string_view d, bool evenementVisible, bool toutes,
                 std::string_view ageMaxiDeces) {
    const auto y = static_cast<std::int16_t>(ValeurNumerique(Droite(d, 4)));
    if (y <= 0 || naissance.Annee <= 0 || !(evenementVisible || !toutes)) return {};

    const auto date = LireDate(d);
    const auto ne = LireDate(naissance.Date.vue());
    if (date && ne) return std::to_string(date->annee - ne->annee);

    std::int64_t a = y - naissance.Annee;
    if (a > ValeurNumerique(ageMaxiDeces)) return {};
    if (FormeDateComplete(d) && FormeDateComplete(naissance.Date.vue()) &&
        MoisJour(naissance.Date.vue()) > MoisJour(d))
        --a;
    return std::to_string(a);
}

}  // namespace arbolix
