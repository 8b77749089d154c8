// Passage entre le code page 1252 de la base et l'UTF-8 du terminal et des fichiers modernes.
#pragma once

#include <string>
#include <string_view>

namespace arbolix {

// Point de code Unicode d'un octet 1252 (les cinq trous de 0x80-0x9F gardent leur valeur).
char32_t Cp1252VersUnicode(unsigned char c);
// Octet 1252 d'un point de code, ou '?' quand il n'en a pas.
char Unicode1252(char32_t u);

std::string Cp1252VersUtf8(std::string_view texte);
// Un UTF-8 invalide garde ses octets tels quels ; un caractère hors 1252 devient '?'.
std::string Utf8VersCp1252(std::string_view texte);

}  // namespace arbolix
