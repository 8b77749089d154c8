// Passage entre les textes de la base (code page 1252) et les QString de la fenêtre.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace arbolix {

// Windows-1252 : table propre pour 0x80-0x9F, Latin-1 ailleurs.
QString VersQString(std::string_view cp1252);
// Un caractère sans équivalent en 1252 devient "?".
std::string DepuisQString(const QString& texte);

}  // namespace arbolix
