// Les cases de lecture et d'écriture tirées des deux premiers octets d'une entrée de fuzzing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iterator>

#include "gedcom/options_gedcom.h"
#include "store/options.h"

namespace arbolix::fuzz {

constexpr std::size_t kOctetsDeCases = 2;

// Un bit par case, dans l'ordre du formulaire ; puis le calendrier et la casse.
inline void TirerCases(const std::uint8_t* donnees, OptionsGedcom& cases, Options& options) {
    const std::uint16_t choix = static_cast<std::uint16_t>(donnees[0] | (donnees[1] << 8));
    bool* const ticks[] = {&cases.Dates,    &cases.Lieux,      &cases.Professions, &cases.Temoins,
                           &cases.Fichiers, &cases.Adresses,   &cases.Sources,     &cases.Notes,
                           &cases.Ages,     &cases.OptNettoie, &cases.OptRenum};
    for (std::size_t i = 0; i < std::size(ticks); ++i) *ticks[i] = (choix >> i) & 1;
    options.OptConvCalRep = (choix >> 11) & 1;
    options.ModifCasse = (choix >> 12) & 1;
}

}  // namespace arbolix::fuzz
