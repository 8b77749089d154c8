// Estimation des dates vides : une année approchée (« vers 1745 ») tirée des dates autour, naissances ou
// mariages.
#pragma once

#include <cstdint>
#include <string>

#include "lists/rangees.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

enum class ActesVides { Naissances = 0, Mariages = 1 };

struct ResultatEstimation {
    std::int32_t Calcules = 0;  // actes datés par ce calcul, chacun une fois
    std::int32_t Restants = 0;  // actes encore vides après la dernière passe
};

// Les passes sur les personnes (ou familles) sélectionnées, tant qu'une passe fait baisser
// le nombre d'actes restés vides. recalculer : une date en « v... » compte pour vide.
// liste devient la liste « Actes vides » de ce qui reste, et des naissances « à vérifier ».
ResultatEstimation CalculerActesVides(Base& base, const Options& options, ActesVides quoi, bool recalculer,
                                      ListePersonne& liste);

// La commande entière : la question Oui/Non/Annuler, le calcul, la boîte du résultat.
// Rend faux sur Annuler, sans rien changer.
bool MenuCalcActesVides(Base& base, const Options& options, Dialogue& dialogue, ActesVides quoi,
                        ListePersonne& liste);

// « 3 actes calculés. Il reste 1 acte vide. »
std::string TexteResultatEstimation(const ResultatEstimation& r);

}  // namespace arbolix
