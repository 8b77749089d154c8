#include "platform/qt_texte.h"

#include <QList>
#include <array>

#include "platform/cp1252.h"

namespace arbolix {

namespace {

// Un caractère 1252 donne toujours un seul caractère du plan de base : écrit en place, par une
// table (un journal fait des dizaines de Mo). sansCr : CR LF devient LF dans la même passe.
QString Convertir(std::string_view cp1252, bool sansCr) {
    static const auto kTable = [] {
        std::array<char16_t, 256> t{};
        for (unsigned c = 0; c < t.size(); ++c)
            t[c] = static_cast<char16_t>(Cp1252VersUnicode(static_cast<unsigned char>(c)));
        return t;
    }();
    QString r(static_cast<qsizetype>(cp1252.size()), Qt::Uninitialized);
    QChar* const debut = r.data();
    QChar* d = debut;
    const std::size_t n = cp1252.size();
    for (std::size_t i = 0; i < n; ++i) {
        const auto c = static_cast<unsigned char>(cp1252[i]);
        if (sansCr && c == '\r' && i + 1 < n && cp1252[i + 1] == '\n') continue;
        *d++ = QChar(kTable[c]);
    }
    r.truncate(d - debut);
    return r;
}

}  // namespace

QString VersQString(std::string_view cp1252) {
    return Convertir(cp1252, false);
}

QString VersQStringLignes(std::string_view cp1252) {
    return Convertir(cp1252, true);
}

std::string DepuisQString(const QString& texte) {
    std::string r;
    r.reserve(static_cast<std::size_t>(texte.size()));
    // Par points de code : un caractère hors du plan de base ne donne qu'un '?'.
    for (const auto u : texte.toUcs4()) r += Unicode1252(u);
    return r;
}

}  // namespace arbolix
