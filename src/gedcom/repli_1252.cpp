#include "gedcom/repli_1252.h"

#include <algorithm>
#include <iterator>

namespace arbolix {
namespace {

struct Repli {
    char32_t code;
    std::string_view texte;
};

struct Composition {
    unsigned char base;
    char32_t marque;
    unsigned char compose;
};

#include "gedcom/repli_1252_table.inc"

}  // namespace

std::optional<std::string_view> Repli1252(char32_t c) {
    const auto it = std::lower_bound(std::begin(kReplis), std::end(kReplis), c,
                                     [](const Repli& r, char32_t v) { return r.code < v; });
    if (it == std::end(kReplis) || it->code != c) return std::nullopt;
    return it->texte;
}

bool EstMarqueCombinante(char32_t c) {
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x1AB0 && c <= 0x1AFF) || (c >= 0x1DC0 && c <= 0x1DFF) ||
           (c >= 0x20D0 && c <= 0x20FF) || (c >= 0xFE20 && c <= 0xFE2F);
}

int Composer1252(unsigned char base, char32_t marque) {
    for (const Composition& k : kCompositions)
        if (k.base == base && k.marque == marque) return k.compose;
    return -1;
}

}  // namespace arbolix
