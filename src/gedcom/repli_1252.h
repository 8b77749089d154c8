// Repli des caractères Unicode que la page 1252 ne contient pas : lettre de base ou signe voisin.
#pragma once

#include <optional>
#include <string_view>

namespace arbolix {

// Ce qui tient lieu de c dans la page 1252 quand elle ne le contient pas : sa lettre de
// base ("ū" donne "u", "ế" donne "e"), sa forme de compatibilité ("ﬁ" donne "fi"), un
// signe voisin ("‐" donne "-"), ou rien pour un caractère invisible. nullopt : aucun repli,
// le caractère devient "?". À n'appeler que pour un caractère hors de la page 1252.
std::optional<std::string_view> Repli1252(char32_t c);

// Marque combinante (accent écrit après sa lettre, en Unicode décomposé).
bool EstMarqueCombinante(char32_t c);

// L'octet 1252 de la lettre `base` (octet 1252) qui porte `marque`, ou -1 :
// 'e' et U+0301 donnent 0xE9.
int Composer1252(unsigned char base, char32_t marque);

}  // namespace arbolix
