#include "reports/contexte_export.h"

namespace arbolix {

void TourDeBoucle(const ContexteExport& ctx, std::uint32_t tour) {
    if (!ctx.progression) return;
    // La pompe d'évènements coûte : un tour sur mille suffit à voir le bouton Annuler.
    if (tour % 1024 == 0) ctx.progression->LaisserPasser();
    if (ctx.progression->Annule()) throw ExportAnnule{};
}

std::string DateDuRapport(const ContexteExport& ctx) {
    return FormatDateCourte(ctx.aujourdhui);
}

}  // namespace arbolix
