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

void EcrireTexteComp(const ContexteExport& ctx, TexteRapport& f) {
    if (ctx.exports.TexteComp.empty()) return;
    f.Ligne(ctx.exports.TexteComp);
    f.Ligne();
}

}  // namespace arbolix
