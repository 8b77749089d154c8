// Supprimer une personne : ses unions retirées, sa fiche vidée, les liens vers elle défaits partout.
#pragma once

#include <cstdint>
#include <optional>

#include "card/edition_liens.h"
#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

// Vide la fiche p : elle quitte les enfants de ses parents et les témoins des actes ;
// les notes, sources et objets médias lui rendent leurs places, et ceux qui n'ont plus
// aucun lien font poser la question de leur suppression quand un Dialogue est donné.
// Les unions de p doivent déjà être retirées (ou passées à une autre fiche). Rien pour
// une fiche qui n'est pas en usage.
void EffacerPersonne(Base& base, std::int32_t p, Dialogue* dialogue);

// MenuSupprimer : confirmation (Non par défaut), unions retirées une à une, fiche effacée.
// Rend le numéro à montrer ensuite (celui d'en dessous), rien sur Non ou pour une fiche
// qui n'est pas en usage.
std::optional<std::int32_t> SupprimerPersonne(Edition& e, std::int32_t p);

// Chaque acte qui a l'ancien pour témoin le remplace par le nouveau ; nouveau 0 retire
// le témoin et son rôle. Un témoin déjà présent dans l'acte n'y entre pas deux fois.
void RemplacerTemoin(Base& base, std::int32_t ancien, std::int32_t nouveau);

}  // namespace arbolix
