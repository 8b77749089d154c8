// Âge d'une personne à une date, en années entières.
#pragma once

#include <string>
#include <string_view>

#include "store/base.h"

namespace arbolix {

// Âge à la date d de la personne née à naissance, en texte ; vide quand on ne
// peut le dire. evenementVisible : l'éditeur d'évènement est affiché ; toutes :
// la case Toutes du dialogue d'export ; ageMaxiDeces : le réglage, lu comme nombre.
// Entre deux vraies dates seul le millésime compte (né le 31/12/1750, il a 1 an
// le 01/01/1751) ; sinon l'anniversaire est pris en compte quand les deux textes
// ont la forme jj/mm/aaaa.
std::string AgeA(const Acte& naissance, std::string_view d, bool evenementVisible, bool toutes,
                 std::string_view ageMaxiDeces);

}  // namespace arbolix
