#include "reports/date_confidentielle.h"

#include "store/chaines.h"

namespace arbolix {

std::string DateConfidentielle(std::string_view date, int indice, bool forcerDS, const OptionsExport& exports,
                               int anneeCourante) {
    if (date.empty()) return {};
    std::string annee(Droite(date, 4));
    std::erase(annee, '/');
    annee = std::string(SansBlancsGauche(annee));
    const bool anneeSeule = exports.OptionDatesAnnees && EstChiffre(date[0]);
    const int k = forcerDS ? 1 : (indice == 1 ? 1 : 0);
    const std::int64_t seuil = ValeurNumerique(exports.AnneesConfidentielles[k]);
    if (ValeurNumerique(annee) >= anneeCourante - seuil) return {};
    return anneeSeule ? annee : std::string(date);
}

}  // namespace arbolix
