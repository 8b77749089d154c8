// Génère un fichier GEDCOM réaliste de n personnes pour les bancs d'essai.
#pragma once

#include <cstdint>
#include <string>

namespace arbolix::bench {

// Des couples et leurs enfants sur des générations, avec noms accentués, dates,
// lieux, professions, notes, témoins et sources ; CR LF, page 1252.
std::string GenererGedcom(std::int32_t personnes);

}  // namespace arbolix::bench
