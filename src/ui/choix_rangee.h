// Le choix d'une rangée parmi des candidats (parents, conjoint, enfant, témoin, note).
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "card/candidats.h"

namespace arbolix {

// Le choix d'une rangée tel que le demandent les commandes : la fenêtre de liste,
// modale ; les essais en donnent un autre. Rend la rangée telle quelle (avec sa
// queue " P000012"), ou rien si l'on renonce.
using Choisir = std::function<std::optional<std::string>(const ListeCandidats&)>;

}  // namespace arbolix
