// La liste des recherches à faire : les personnes marquées ANCI (ascendants) ou DESI (descendants).
#pragma once

#include <cstdint>
#include <string_view>

#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Genre "interech". Rangée 0 : le De Cujus (la racine Sosa, sinon la fiche 1) et, hors export,
// ses nbAncetres ancêtres. Puis une rangée " asc " ou " desc " par marque, avec le premier lieu
// connu parmi naissance, baptême, décès, sépulture ; triées par nom et date de naissance.
ListePersonne ListeRecherches(const Base& base, const Options& options, std::string_view titre,
                              std::int32_t nbAncetres, bool exportsOuvert);

}  // namespace arbolix
