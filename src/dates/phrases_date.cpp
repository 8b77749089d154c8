#include "dates/phrases_date.h"

#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

std::string DateOuAnnee(std::string_view date, int format, bool masquer, const ContexteDates& ctx) {
    if (date.empty()) return {};
    std::string an(date.substr(date.size() < 4 ? 0 : date.size() - 4));
    RemplacerTout(an, "/", "");
    an.erase(0, an.find_first_not_of(' '));
    std::string r(date);
    // Une date sans année lisible reste entière même avec les années seules.
    if (ctx.exports.OptionDatesAnnees && EstNumerique(an)) {
        const bool chiffre = date.front() >= '0' && date.front() <= '9';
        r = chiffre ? an : std::string(date.substr(0, date.find(' '))) + " " + an;
    }
    if (masquer) {
        const int seuil = ValeurNumerique(ctx.exports.AnneesConfidentielles[format == 1 ? 1 : 0]);
        if (ValeurNumerique(an) >= ctx.anneeCourante - seuil) return {};
    }
    return r;
}

std::string PhraseDateLieu(const Acte& acte, bool prefixe, int etendue, const ContexteDates& ctx) {
    std::string r;
    if (prefixe && !acte.Date.empty())
        r = (EstDateComplete(acte.Date.vue()) ? " le " : " en ") +
            DateOuAnnee(acte.Date.vue(), 0, false, ctx);
    if (!acte.Lieu.empty()) r += (etendue == -1 ? " \xE0 " : " ") + acte.Lieu.str();
    return r;
}

}  // namespace arbolix
