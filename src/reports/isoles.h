// Les personnes isolées : sélectionnées, sans parents ni union.
#pragma once

#include <string>
#include <string_view>

#include "lists/rangees.h"
#include "reports/contexte_export.h"

namespace arbolix {

// La liste "isoles" de la fenêtre Personne, remplie avant le dialogue (rangée de tête
// " Exporter...") ; son titre finit par le nombre de personnes.
ListePersonne ListeIsoles(const Base& base, const Options& options, std::string_view titre);

// Le fichier : en-tête, le bloc de chaque personne de la liste, puis leur nombre.
std::string TexteIsoles(const ContexteExport& ctx, const ListePersonne& liste);

}  // namespace arbolix
