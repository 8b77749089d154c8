// Le texte des pages HTML : échappement des textes des fiches, octets Latin-1 déclarés par les pages.
#pragma once

#include <string>
#include <string_view>

namespace arbolix {

// "&", "<", ">" et '"' d'un texte de fiche en entités : le texte ne devient jamais balise.
std::string EchapperHtml(std::string_view texte);

// Une page écrite en 1252 telle qu'une page ISO-8859-1 la lit : les caractères que Latin-1 n'a
// pas (œ, €, ’ de 0x80 à 0x9F) deviennent la référence numérique de leur point Unicode.
std::string VersLatin1(std::string_view texte);

// Un chemin ou un nom de fichier dans un href : les octets hors de [A-Za-z0-9/._~-] en "%hh".
std::string EncoderUrl(std::string_view chemin);

}  // namespace arbolix
