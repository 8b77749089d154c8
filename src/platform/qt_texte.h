// Le seul passage entre les textes 1252 du noyau et les QString de la fenêtre.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace arbolix {

QString VersQString(std::string_view cp1252);
// La même pour un contrôle de texte : le noyau sépare les lignes par CR LF, le contrôle par LF.
QString VersQStringLignes(std::string_view cp1252);
// Un caractère sans équivalent en 1252 devient '?'.
std::string DepuisQString(const QString& texte);

}  // namespace arbolix
