// Sélection active : les marques Sel de chaque fiche que les parcours et les exports respectent.
#pragma once

#include "store/base.h"

namespace arbolix {

// "Toute la base" : toute fiche en usage est sélectionnée, SelAvant remis à 0.
// Personnes avec un nom ou des prénoms, familles avec un conjoint ou deux enfants, notes et
// sources avec un titre ou un texte. Les objets médias n'ont pas de marque : l'écriture suit Actif.
void ToutSelectionner(Base& base);

}  // namespace arbolix
