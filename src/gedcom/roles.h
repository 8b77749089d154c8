// Rôles des témoins lus d'autres logiciels, traduits dans le vocabulaire de l'éditeur d'évènement.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/base.h"

namespace arbolix {

// Rôle traduit par la table ; un rôle absent de la table passe tel quel.
// Parrain ou marraine : quand le contexte est BIRT ou ASSO (le témoin est dans
// Naissance) ou CHR (dans Bapteme), le sexe du témoin à l'emplacement indice
// de la personne numCourant choisit "Marraine" (F) ou "Parrain" (H ou M) ; sinon,
// ou si la place est vide, "Parrain/Marraine" reste.
std::string TraduireRole(std::string_view role, std::string_view contexte, const Base& base,
                         std::int32_t numCourant, int indice);

}  // namespace arbolix
