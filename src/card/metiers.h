// Les métiers d'une personne : le texte tapé, ses codes de deux lettres et la liste de choix.
#pragma once

#include <string_view>

#include "store/base.h"

namespace arbolix {

// Enregistre le métier tapé dans p : le texte tel quel dans Metier, les deux
// premières lettres de chaque métier dans CodesMetiers (une fois chacune), et
// chaque métier dans la liste. Plusieurs métiers se séparent par "," ou " puis ".
void EnregistrerMetier(Perso& p, std::string_view texte, ListeChoix& liste);

}  // namespace arbolix
