#include "store/selection.h"

#include <algorithm>

namespace arbolix {

namespace {

// Marque les fiches 1 à nombre qui sont en usage ; une page jamais écrite est sautée d'un coup.
template <typename T, typename EnUsage>
void Marquer(Tableau<T>& t, std::int32_t nombre, EnUsage enUsage) {
    const std::int32_t fin = std::min(nombre, t.Haut());
    t.PourChaqueEcrit(1, fin, [&](std::int32_t n) {
        T& fiche = t[n];
        if (!enUsage(fiche)) return;
        fiche.Sel = kVrai;
        fiche.SelAvant = kFaux;
    });
}

}  // namespace

void ToutSelectionner(Base& base) {
    Marquer(base.Persos, base.NbPersos, [](const Perso& p) { return !p.Nom.empty() || !p.Prenoms.empty(); });
    // Une fratrie sans parent connu reste une famille : elle est écrite, donc sélectionnée.
    Marquer(base.Familles, base.NbFamis,
            [](const Fami& f) { return f.Mari > 0 || f.Femme > 0 || f.Enfants(2) > 0; });
    // Une note ou une source existe dès qu'elle a un titre ou un texte : une source faite
    // d'un titre seul est une source.
    const auto enUsage = [](const NoteExt& e) { return !e.Titre.empty() || !e.Texte.empty(); };
    Marquer(base.Notes, base.NbNotes, enUsage);
    Marquer(base.Sources, base.NbSources, enUsage);
}

}  // namespace arbolix
