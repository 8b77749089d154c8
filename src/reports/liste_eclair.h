// La liste-éclair : par nom et par lieu, les années extrêmes et le nombre d'actes, lettre par lettre.
#pragma once

#include <string>

#include "reports/contexte_export.h"

namespace arbolix {

inline constexpr std::string_view kQuestionMinimumEclair =
    "Nombre minimal de personnes pour une ligne d'entr\xE9"
    "e :";

// minimum : le nombre que la question demande quand « Toutes » n'est pas coché (1 sinon).
// Les particularités de la forme sont gardées : la ligne commence par le nom et deux
// points-virgules, un groupe de n actes compte n - 1, et le dernier groupe d'une lettre
// n'est jamais écrit.
std::string TexteListeEclair(const ContexteExport& ctx, std::int64_t minimum);

}  // namespace arbolix
