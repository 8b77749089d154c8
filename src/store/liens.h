// Les liens entre personnes et familles : tri des enfants et des unions, suppression d'une union.
#pragma once

#include <cstdint>

#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

// Trie les enfants de la famille f par date de naissance (de baptême à défaut)
// puis par numéro, sans trou ni doublon : un enfant lié deux fois n'y reste qu'une.
void TrierEnfants(Base& base, std::int32_t f);

// Trie les unions de la personne p par date de mariage (à défaut sa naissance,
// puis la date du contrat), sans trou ni doublon.
void TrierUnions(Base& base, std::int32_t p);

// Retire la famille f du côté de la personne p. Une famille qui n'a plus aucun
// conjoint est effacée ; ses enfants perdent leurs parents, ce que dit un message
// quand un Dialogue est donné. maintenant : la date des modifications (jours depuis 1899).
void SupprimerUnion(Base& base, std::int32_t f, std::int32_t p, Dialogue* dialogue, double maintenant);

}  // namespace arbolix
