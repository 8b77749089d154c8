// Les métiers d'une personne : le texte tapé, ses codes de deux lettres et la liste de choix.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/base.h"

namespace arbolix {

// Enregistre le métier tapé dans p : le texte tel quel dans Metier, les deux
// premières lettres de chaque métier dans CodesMetiers (une fois chacune), et
// chaque métier dans la liste. Plusieurs métiers se séparent par "," ou " puis ".
void EnregistrerMetier(Perso& p, std::string_view texte, ListeChoix& liste);

// Les métiers d'un texte tapé, dans l'ordre : le texte entier s'il n'en porte qu'un,
// sinon chaque partie entre "," ou " puis ", sans blancs autour.
std::vector<std::string> PartiesMetier(std::string_view texte);

}  // namespace arbolix
