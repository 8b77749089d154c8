// Les règles de cohérence des dates : un évènement proposé pour une personne, face à ce que la base sait
// d'elle.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Les plaintes (une par ligne, chacune finie par CR LF) que soulève la date
// proposée pour l'évènement `genre` ("N", "B", "D", "S", "M", "C", "X") de la
// personne numero ; vide quand tout va, quand la date est vide ou pour un autre
// genre. Ne change rien à la base. Pour une union, numero est la personne de la fiche.
std::string CoherenceActe(const Base& base, const Options& options, std::int32_t numero,
                          std::string_view genre, std::string_view date);

}  // namespace arbolix
