#include "platform/qt_texte.h"

#include <array>

namespace arbolix {
namespace {

// 0x80-0x9F ; les cinq codes sans caractère gardent leur valeur (U+0081...), comme Windows.
constexpr std::array<char16_t, 32> kPlage80{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

char VersOctet(char16_t u) {
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
    for (std::size_t i = 0; i < kPlage80.size(); ++i)
        if (kPlage80[i] == u) return static_cast<char>(0x80 + i);
    return '?';
}

}  // namespace

QString VersQString(std::string_view cp1252) {
    QString r;
    r.reserve(static_cast<qsizetype>(cp1252.size()));
    for (char c : cp1252) {
        const auto u = static_cast<unsigned char>(c);
        r.append(QChar(u >= 0x80 && u < 0xA0 ? kPlage80[u - 0x80] : char16_t(u)));
    }
    return r;
}

std::string DepuisQString(const QString& texte) {
    std::string r;
    r.reserve(static_cast<std::size_t>(texte.size()));
    for (qsizetype i = 0; i < texte.size(); ++i) {
        const QChar c = texte.at(i);
        // Une paire de substitution est un seul caractère hors de la page.
        if (c.isHighSurrogate() && i + 1 < texte.size() && texte.at(i + 1).isLowSurrogate()) {
            ++i;
            r += '?';
            continue;
        }
        r += VersOctet(c.unicode());
    }
    return r;
}

}  // namespace arbolix
