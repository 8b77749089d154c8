#include "platform/qt_texte.h"

#include <QList>

#include "platform/cp1252.h"

namespace arbolix {

QString VersQString(std::string_view cp1252) {
    // Un caractère 1252 donne toujours un seul caractère du plan de base : écrit en place.
    QString r(static_cast<qsizetype>(cp1252.size()), Qt::Uninitialized);
    QChar* d = r.data();
    for (char c : cp1252)
        *d++ = QChar(static_cast<char16_t>(Cp1252VersUnicode(static_cast<unsigned char>(c))));
    return r;
}

std::string DepuisQString(const QString& texte) {
    std::string r;
    r.reserve(static_cast<std::size_t>(texte.size()));
    // Par points de code : un caractère hors du plan de base ne donne qu'un '?'.
    for (const auto u : texte.toUcs4()) r += Unicode1252(u);
    return r;
}

}  // namespace arbolix
