// Calcul de parenté : les ancêtres communs du De Cujus et d'une autre personne, avec leurs branches.
#pragma once

#include <cstdint>
#include <string>

#include "kinship/sosa.h"
#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

inline constexpr const char* kTitreParente = "Calcul de parent\xE9";
inline constexpr const char* kPasDeCujus =
    "Pour le calcul de parent\xE9, il faut d'abord afficher la fiche du De Cujus ou d\xE9"
    "finir la fiche actuelle comme de Cujus.";

// La fiche montre le De Cujus quand elle est la racine de la numérotation principale ou
// porte la référence "1".
bool EstDeCujus(const Base& base, std::int32_t personne);

// Première marche : les ascendants du De Cujus dans la numérotation 1.
Ascendance PreparerParente(Base& base, std::int32_t deCujus, const Options& options);

// Seconde marche depuis l'autre personne (numérotation 2, arrêtée aux ancêtres communs) puis la
// « Liste de parenté » : rangée 0 "n branches en commun", puis chaque personne sélectionnée
// numérotée dans les deux, par année de naissance et nom, avec " S" et son numéro côté autre.
ListePersonne ListeParente(Base& base, const Options& options, std::int32_t autre);

}  // namespace arbolix
