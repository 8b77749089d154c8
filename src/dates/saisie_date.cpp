#include "dates/saisie_date.h"

#include <array>

#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

bool DateSaisieComplete(std::string_view texte) {
    static constexpr std::string_view kRetires[] = {" ", "+",    "-",     "*",       "/",
                                                    ".", "vers", "avant", "apr\xE8s"};
    std::string reste(texte);
    for (auto r : kRetires) reste = Remplacer(reste, r, "");
    return reste.size() == 8 && EstChiffre(reste[0]);
}

std::string JourDeLaSemaineEnLettres(std::string_view date) {
    static constexpr std::array<std::string_view, 7> kJours = {"dimanche", "lundi",    "mardi", "mercredi",
                                                               "jeudi",    "vendredi", "samedi"};
    const auto d = LireDate(date);
    return d ? std::string(kJours[JourDeLaSemaine(NumeroJour(*d))]) : std::string();
}

bool AnneeRevolutionnaire(std::string_view date) {
    const auto annee = ValeurNumerique(Droite(date, 4));
    return annee >= 1793 && annee <= 1805;
}

std::string DateDeLAge(std::int16_t anneeNaissance, std::string_view age) {
    if (anneeNaissance <= 0 || age.empty()) return {};
    return std::to_string(anneeNaissance + ValeurNumerique(age));
}

std::int16_t AnneeSaisie(std::string_view date) {
    return static_cast<std::int16_t>(ValeurNumerique(Droite(date, 4)));
}

}  // namespace arbolix
