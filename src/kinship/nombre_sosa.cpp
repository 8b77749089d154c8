#include "kinship/nombre_sosa.h"

#include <bit>
#include <charconv>

namespace arbolix {

void NombreSosa::Doubler(bool plusUn) {
    std::uint32_t retenue = plusUn ? 1 : 0;
    for (auto& m : mots_) {
        const std::uint32_t haut = m >> 31;
        m = (m << 1) | retenue;
        retenue = haut;
    }
    if (retenue) mots_.push_back(retenue);
}

void NombreSosa::Diviser() {
    std::uint32_t retenue = 0;
    for (std::size_t i = mots_.size(); i-- > 0;) {
        const std::uint32_t bas = mots_[i] & 1;
        mots_[i] = (mots_[i] >> 1) | (retenue << 31);
        retenue = bas;
    }
    if (mots_.size() > 1 && mots_.back() == 0) mots_.pop_back();
}

int NombreSosa::Bits() const {
    return static_cast<int>(32 * (mots_.size() - 1)) + std::bit_width(mots_.back());
}

std::string NombreSosa::Decimal() const {
    char tampon[24];
    if (mots_.size() <= 2) {
        std::uint64_t v = mots_[0];
        if (mots_.size() == 2) v |= static_cast<std::uint64_t>(mots_[1]) << 32;
        return std::string(tampon, std::to_chars(tampon, tampon + sizeof tampon, v).ptr);
    }
    // Divisions successives par 10^9 : des tranches de neuf chiffres, la plus faible d'abord.
    std::vector<std::uint32_t> reste = mots_;
    std::vector<std::uint32_t> tranches;
    while (!(reste.size() == 1 && reste[0] == 0)) {
        std::uint64_t r = 0;
        for (std::size_t i = reste.size(); i-- > 0;) {
            const std::uint64_t v = (r << 32) | reste[i];
            reste[i] = static_cast<std::uint32_t>(v / 1000000000u);
            r = v % 1000000000u;
        }
        tranches.push_back(static_cast<std::uint32_t>(r));
        while (reste.size() > 1 && reste.back() == 0) reste.pop_back();
    }
    std::string s(tampon, std::to_chars(tampon, tampon + sizeof tampon, tranches.back()).ptr);
    for (std::size_t i = tranches.size() - 1; i-- > 0;) {
        const std::string t(tampon, std::to_chars(tampon, tampon + sizeof tampon, tranches[i]).ptr);
        s.append(9 - t.size(), '0').append(t);
    }
    return s;
}

}  // namespace arbolix
