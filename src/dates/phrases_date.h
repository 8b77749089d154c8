// La date et le lieu d'un évènement tels que les rapports les écrivent.
#pragma once

#include <string>
#include <string_view>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Réglages des dates dans les rapports : ceux de la fenêtre Exports et l'année en cours.
struct ContexteDates {
    const OptionsExport& exports;
    int anneeCourante;
};

// Date d'un rapport : entière, ou l'année seule avec OptionDatesAnnees ; vide quand
// `masquer` et que l'année tombe dans les années confidentielles d'indice `format` (0 ou 1).
std::string DateOuAnnee(std::string_view date, int format, bool masquer, const ContexteDates& ctx);
// " le 12/03/1750 à Nancy", " en 1750 Nancy"... ; etendue -1 met " à " devant le lieu.
std::string PhraseDateLieu(const Acte& acte, bool prefixe, int etendue, const ContexteDates& ctx);

}  // namespace arbolix
