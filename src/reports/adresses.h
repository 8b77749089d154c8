// Le tableau des adresses : une ligne tabulée par personne sélectionnée qui a une adresse.
#pragma once

#include <string>

#include "reports/contexte_export.h"

namespace arbolix {

// En-tête (fichier, sélection active, date), titres des colonnes, puis les personnes dans
// l'ordre de "Nom Prénoms". Téléphone, courriel et site seulement avec « Toutes ».
std::string TexteAdresses(const ContexteExport& ctx);

}  // namespace arbolix
