// La ligne de vie : les évènements datés d'une personne et de ses proches, dans l'ordre du temps.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lists/rangees.h"
#include "reports/contexte_export.h"

namespace arbolix {

inline constexpr std::string_view kTitreLigneDeVie = "Ligne de vie";
inline constexpr std::string_view kLigneDeVieVide =
    "La personne en cours et ses proches n'ont aucun \xE9v\xE8nement avec une date pr\xE9"
    "cise";

// La liste "lignevie" de la fenêtre Personne, remplie avant le dialogue : une rangée par
// évènement dont la date commence par un chiffre, rangée "jj/mm/aaaa ..." dans l'ordre des dates.
// Sans autre rangée que celle de tête, l'appelant montre kLigneDeVieVide.
ListePersonne ListeLigneDeVie(const Base& base, const Options& options, std::int32_t personne,
                              std::string_view titre);

// Le fichier : en-tête, texte complémentaire, puis chaque rangée sans sa queue (dates non filtrées).
std::string TexteLigneDeVie(const ContexteExport& ctx, const ListePersonne& liste);

}  // namespace arbolix
