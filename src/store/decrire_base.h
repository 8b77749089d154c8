// Description texte compacte des fiches de la base, pour des tests qui comparent des fiches entières.
#pragma once

#include <cstdint>
#include <string>

#include "store/base.h"

namespace arbolix {

// Champs non vides d'une fiche, "Champ=valeur" séparés par "; ", dans l'ordre des
// champs de la fiche. Les évènements donnent "Naissance.Date=...", les témoins
// "Naissance.Temoins=3(Parrain),5", les listes leurs valeurs séparées par ",". Un
// CR LF du texte s'écrit "\n". DateTri et Annee, tirés de Date, sont omis.
std::string DecrirePerso(const Base& base, std::int32_t n);
std::string DecrireFami(const Base& base, std::int32_t f);
std::string DecrireNote(const NoteExt& note);
std::string DecrireMedia(const ObjetMedia& objet);

// Toute la base : une ligne par fiche non vierge ("P1 ...", "F1 ...", "N1 ...",
// "S1 ...", "M1 ..."), jusqu'aux compteurs NbPersos, NbFamis, NbNotes, NbSources, NbMedias.
std::string DecrireBase(const Base& base);

}  // namespace arbolix
