// Ce que les fiches de personnes et de familles lisent de la même façon sous leurs évènements.
#pragma once

#include <string_view>

#include "store/base.h"

namespace arbolix {

// Forme d'une note de date républicaine ("12/vend/03") : deux notes de cette forme ne s'ajoutent pas.
inline constexpr std::string_view kNoteRepublicaine =
    "##/???"
    "?/##";

// Une note lue sous un évènement, ajoutée à la ligne. La note républicaine que la date
// vient de poser cède la place à celle du fichier pour le même jour, quelle qu'en soit
// la forme ("25/vend/2", "11/08") : relue, une note que la lecture a faite ne grossit pas.
void AjouterNoteActe(Acte& a, std::string_view v);

}  // namespace arbolix
