// Lectures de texte que partagent les règles de dates : valeur numérique, casse 1252, remplacements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace arbolix::texte_date {

// Valeur numérique d'un texte : les chiffres jusqu'au premier autre caractère,
// blancs, tabulations et sauts de ligne sautés, 0 sans chiffre. Plafonnée pour
// qu'un texte sans fin ne déborde pas.
std::int64_t Val(std::string_view s);

// Les n derniers (premiers) caractères, ou tout le texte s'il est plus court.
std::string_view Droite(std::string_view s, std::size_t n);
std::string_view Gauche(std::string_view s, std::size_t n);

bool EstChiffre(char c);
// Non vide et fait uniquement de chiffres.
bool EstNumerique(std::string_view s);

// Casse en code page 1252 : les lettres accentuées changent aussi (À / à, Œ / œ).
std::string MinusculesAnsi(std::string_view s);
std::string MajusculesAnsi(std::string_view s);

// Remplace chaque occurrence, de gauche à droite, sans relire ce qui a été mis.
std::string RemplacerTout(std::string_view s, std::string_view quoi, std::string_view par);

// Le nombre sur au moins `chiffres` chiffres, complété de zéros.
std::string Zeros(std::int64_t n, int chiffres);

}  // namespace arbolix::texte_date
