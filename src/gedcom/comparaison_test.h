// Aides des tests d'écriture : fichiers de référence comparés octet pour octet, écart lisible.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace arbolix::essais {

inline std::string LireOctets(const std::filesystem::path& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

inline void EcrireOctets(const std::filesystem::path& chemin, std::string_view octets) {
    std::ofstream f(chemin, std::ios::binary | std::ios::trunc);
    f.write(octets.data(), static_cast<std::streamsize>(octets.size()));
}

// Une ligne montrée telle qu'elle est : octets hors ASCII en \xNN, CR et LF nus visibles.
inline std::string Montrer(std::string_view ligne) {
    std::string r;
    for (unsigned char c : ligne) {
        if (c >= 0x20 && c < 0x7F) {
            r += static_cast<char>(c);
        } else {
            static constexpr char kHex[] = "0123456789ABCDEF";
            r += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string{'\\', 'x', kHex[c >> 4], kHex[c & 15]};
        }
    }
    return r;
}

// Découpe aux CR LF ; un reste sans fin de ligne est une dernière ligne à part.
inline std::vector<std::string_view> Lignes(std::string_view texte) {
    std::vector<std::string_view> r;
    for (std::size_t p; (p = texte.find("\r\n")) != std::string_view::npos;) {
        r.push_back(texte.substr(0, p));
        texte.remove_prefix(p + 2);
    }
    if (!texte.empty()) r.push_back(texte);
    return r;
}

// Égalité octet pour octet ; en cas d'écart, la première ligne qui diffère avec trois lignes autour.
inline testing::AssertionResult MemesOctets(std::string_view attendu, std::string_view obtenu) {
    if (attendu == obtenu) return testing::AssertionSuccess();
    const auto a = Lignes(attendu), o = Lignes(obtenu);
    std::size_t i = 0;
    while (i < a.size() && i < o.size() && a[i] == o[i]) ++i;
    std::ostringstream m;
    m << "premier écart à la ligne " << i + 1 << " (" << a.size() << " lignes attendues, " << o.size()
      << " obtenues)";
    if (i == a.size() && i == o.size()) m << " : seule la fin de fichier diffère";
    m << "\n";
    const std::size_t debut = i >= 3 ? i - 3 : 0;
    for (std::size_t k = debut; k < i; ++k) m << "    " << Montrer(a[k]) << "\n";
    for (std::size_t k = i; k < std::min(a.size(), i + 4); ++k) m << "  - " << Montrer(a[k]) << "\n";
    for (std::size_t k = i; k < std::min(o.size(), i + 4); ++k) m << "  + " << Montrer(o[k]) << "\n";
    return testing::AssertionFailure() << m.str();
}

// Compare au fichier de référence ; ARBOLIX_REGENERER=1 le réécrit (à relire avant de le valider).
inline testing::AssertionResult CommeReference(const std::filesystem::path& reference,
                                               std::string_view obtenu) {
    if (std::getenv("ARBOLIX_REGENERER")) {
        EcrireOctets(reference, obtenu);
        return testing::AssertionSuccess() << "réécrit";
    }
    if (!std::filesystem::exists(reference))
        return testing::AssertionFailure() << "référence absente : " << reference;
    return MemesOctets(LireOctets(reference), obtenu);
}

}  // namespace arbolix::essais
