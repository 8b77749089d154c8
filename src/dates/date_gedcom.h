// Texte d'une ligne DATE de GEDCOM tiré d'un texte de date, et les mois GEDCOM.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace arbolix {

// Index 1 à 12 ; l'index 0 est vide.
inline constexpr std::array<std::string_view, 13> MoisGedcom = {
    "", "jan", "feb", "mar", "apr", "may", "jun", "jul", "aug", "sep", "oct", "nov", "dec"};

// Valeur de la ligne DATE, en majuscules. dates : la case "Dates" du formulaire
// Gedcom ; décochée, il ne reste que les 4 derniers caractères (le préfixe est
// perdu). "de ... à ..." n'a pas de traduction et sort tel quel.
std::string DateGedcom(std::string_view d, bool dates);
// La même, case cochée, toujours par la règle complète : les essais y comparent le raccourci
// de la forme courante.
std::string DateGedcomRegle(std::string_view d);

}  // namespace arbolix
