// La liste d'ascendance en texte : blocs par génération avec « Toutes », tableau sinon, et les implexes.
#pragma once

#include <cstdint>
#include <string>

#include "reports/contexte_export.h"

namespace arbolix {

// Numérote les ascendants de ctx.NumPerso (numérotation principale, refaite comme le menu
// Sélection le fait) puis écrit la liste. generationsMax limite la marche (0 : sans limite) ;
// la forme TMAO en demandera 6.
std::string TexteAscendance(const ContexteExport& ctx, int generationsMax = 0);

// La forme TMAO : un mariage par couple d'ancêtres, sur 6 générations, table des ascendances
// (octets du fichier).
inline constexpr int kGenerationsTMAO = 6;
std::string TmaoAscendance(const ContexteExport& ctx);

// "12,5%" : la part des ancêtres comptés plusieurs fois, une décimale, virgule française.
std::string PourcentageImplexe(std::int32_t nbAncetres, std::int32_t reels);

// La moitié entière d'un numéro Sosa écrit en décimal, à toute longueur.
std::string MoitieSosa(const std::string& sosa);
// La génération du numéro : partie entière de son logarithme en base 2 (1 donne 0).
int GenerationSosa(const std::string& sosa);

}  // namespace arbolix
