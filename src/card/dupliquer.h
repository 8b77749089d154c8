// Dupliquer une personne : une fiche neuve du même nom, du même sexe, sous les mêmes parents, avec les mêmes
// fichiers.
#pragma once

#include <cstdint>

#include "card/edition_liens.h"

namespace arbolix {

// MenuDupliquer : la copie reçoit nom, clés du nom et sexe de s, une place parmi les
// enfants de ses parents (sans retri) et les objets médias et fichiers de s. Aucun
// évènement, adresse, note ni union n'est copié. Une famille pleine ou un objet média
// aux neuf places prises le disent par un message ; la copie existe quand même.
// Rend la copie, 0 quand s n'est pas en usage.
std::int32_t DupliquerPersonne(Edition& e, std::int32_t s);

}  // namespace arbolix
