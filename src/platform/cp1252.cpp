#include "platform/cp1252.h"

#include <array>

namespace arbolix {

namespace {

// 0x80 à 0x9F : les seuls octets où 1252 diffère de Latin-1.
constexpr std::array<char32_t, 32> kHaut = {0x20AC, 0x81,   0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x8D,   0x017D, 0x8F,
                                            0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D,   0x017E, 0x0178};

void AjouterUtf8(std::string& r, char32_t u) {
    if (u < 0x80) {
        r += static_cast<char>(u);
    } else if (u < 0x800) {
        r += static_cast<char>(0xC0 | (u >> 6));
        r += static_cast<char>(0x80 | (u & 0x3F));
    } else {
        r += static_cast<char>(0xE0 | (u >> 12));
        r += static_cast<char>(0x80 | ((u >> 6) & 0x3F));
        r += static_cast<char>(0x80 | (u & 0x3F));
    }
}

}  // namespace

char32_t Cp1252VersUnicode(unsigned char c) {
    return c >= 0x80 && c <= 0x9F ? kHaut[c - 0x80] : c;
}

char Unicode1252(char32_t u) {
    if (u < 0x80 || (u >= 0xA0 && u <= 0xFF)) return static_cast<char>(u);
    for (std::size_t i = 0; i < kHaut.size(); ++i)
        if (kHaut[i] == u) return static_cast<char>(0x80 + i);
    return '?';
}

std::string Cp1252VersUtf8(std::string_view texte) {
    // Les suites ASCII passent d'un bloc : journaux et scripts SQL en sont faits surtout.
    std::string r;
    r.reserve(texte.size() + texte.size() / 8);
    std::size_t debut = 0;
    for (std::size_t i = 0; i < texte.size(); ++i) {
        const auto c = static_cast<unsigned char>(texte[i]);
        if (c < 0x80) continue;
        r.append(texte, debut, i - debut);
        AjouterUtf8(r, Cp1252VersUnicode(c));
        debut = i + 1;
    }
    r.append(texte, debut);
    return r;
}

std::string Utf8VersCp1252(std::string_view texte) {
    std::string r;
    r.reserve(texte.size());
    for (std::size_t i = 0; i < texte.size();) {
        const auto c = static_cast<unsigned char>(texte[i]);
        const int suite = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
        bool valide = suite > 0;
        char32_t u = suite == 3 ? c & 0x07 : suite == 2 ? c & 0x0F : c & 0x1F;
        for (int k = 1; valide && k <= suite; ++k) {
            if (i + k >= texte.size()) {
                valide = false;
                break;
            }
            const auto s = static_cast<unsigned char>(texte[i + k]);
            if ((s & 0xC0) != 0x80) valide = false;
            u = (u << 6) | (s & 0x3F);
        }
        if (!valide) {
            r += static_cast<char>(c);
            ++i;
            continue;
        }
        r += Unicode1252(u);
        i += static_cast<std::size_t>(suite) + 1;
    }
    return r;
}

}  // namespace arbolix
