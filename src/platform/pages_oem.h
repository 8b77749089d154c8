// Pages de code : la page 1252 des textes en mémoire, et la conversion des pages OEM 437 et 850 vers elle.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace arbolix {

// Points de code Unicode des octets 0x80 à 0x9F de la page 1252 ; 0 là où
// la page ne définit rien (0x81, 0x8D, 0x8F, 0x90, 0x9D). De 0xA0 à 0xFF
// la page 1252 se confond avec Unicode.
inline constexpr std::array<char16_t, 32> kCp1252De80A9F = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80-87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,       // 88-8F
    0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90-97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178,  // 98-9F
};

// Octet de la page 1252 qui porte ce point de code, ou -1 s'il n'y en a pas.
constexpr int OctetCp1252(char32_t c) {
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF)) return static_cast<int>(c);
    for (std::size_t i = 0; i < kCp1252De80A9F.size(); ++i)
        if (kCp1252De80A9F[i] != 0 && kCp1252De80A9F[i] == c) return static_cast<int>(0x80 + i);
    return -1;
}

// Ce que donne OemToCharA : chaque octet 0x80-0xFF de tampon, à partir de
// depuis, devient l'octet 1252 du même caractère ; les caractères absents de
// la page 1252 (cadres, trames, lettres grecques) prennent un caractère
// voisin, '?' en dernier recours. La moitié basse ne bouge pas (fins de
// ligne comprises). page vaut 437 ou 850 ; toute autre valeur est lue 437.
void OemVers1252(std::string& tampon, std::size_t depuis, int page);

// L'octet 1252 d'un octet de la page OEM donnée (même règle que ci-dessus).
unsigned char OctetOemVers1252(unsigned char octet, int page);

// Ce que donne CharToOemA : chaque octet 1252 de 0x80 ou plus devient celui du même caractère
// dans la page OEM ; une lettre que la page ne porte pas (Œ, €, guillemets) prend sa voisine
// sans accent, '?' en dernier recours.
void Cp1252VersOem(std::string& tampon, int page);

}  // namespace arbolix
