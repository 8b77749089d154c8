#include "platform/pages_oem.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace arbolix {
namespace {

struct CasOem {
    int page;
    unsigned char oem;
    unsigned char attendu;
};

// Lettres communes aux deux pages, lettres propres à chacune, et les voisins
// choisis pour ce que la page 1252 n'a pas.
// clang-format off
constexpr CasOem kCasOem[] = {
    {437, 0x82, 0xE9}, {850, 0x82, 0xE9},  // é
    {437, 0x80, 0xC7}, {437, 0x87, 0xE7},  // Ç ç
    {437, 0x90, 0xC9}, {437, 0x8A, 0xE8},  // É è
    {437, 0xE1, 0xDF}, {850, 0xE1, 0xDF},  // ß
    {437, 0x9F, 0x83},                     // ƒ, dans la zone 0x80-0x9F de la page 1252
    {437, 0x9B, 0xA2}, {850, 0x9B, 0xF8},  // ¢ en 437, ø en 850
    {437, 0xB7, '+'},  {850, 0xB7, 0xC0},  // coin de cadre en 437, À en 850
    {850, 0xD0, 0xF0}, {850, 0xD5, 'i'},   // ð, ı sans point -> i
    {850, 0xF0, 0xAD}, {850, 0xB8, 0xA9},  // trait d'union conditionnel, ©
    {437, 0xFF, 0xA0}, {850, 0xFF, 0xA0},  // espace insécable
    {437, 0xC4, '-'},  {437, 0xCD, '-'},  {437, 0xB3, '|'}, {437, 0xBA, '|'},
    {437, 0xDA, '+'},  {437, 0xB0, '#'},  {437, 0xDB, '#'}, {437, 0xFE, '#'},
    {437, 0xE0, 'a'},  {437, 0xEA, 'O'},  {437, 0x9E, 'P'}, {437, 0xF4, '?'},
    {437, 0xA9, 0xAC}, {437, 0xF9, 0xB7},
    {1252, 0x9B, 0xA2},  // page inconnue : lue 437
};
// clang-format on

TEST(PagesOem, OctetsVers1252) {
    for (const CasOem& c : kCasOem) {
        EXPECT_EQ(OctetOemVers1252(c.oem, c.page), c.attendu)
            << "page " << c.page << " octet " << std::hex << int(c.oem);
        std::string t(1, static_cast<char>(c.oem));
        OemVers1252(t, 0, c.page);
        EXPECT_EQ(static_cast<unsigned char>(t[0]), c.attendu);
    }
}

TEST(PagesOem, MoitieBasseEtDebutDuTamponIntacts) {
    std::string bas;
    for (int o = 0; o < 0x80; ++o) bas += static_cast<char>(o);
    std::string t = bas;
    OemVers1252(t, 0, 437);
    EXPECT_EQ(t, bas);

    std::string tampon = "1 NOTE \x82\r\n1 NAME Andr\x82";
    OemVers1252(tampon, 10, 437);
    EXPECT_EQ(tampon, "1 NOTE \x82\r\n1 NAME Andr\xE9");
    OemVers1252(tampon, 500, 850);  // au-delà de la fin : rien
    EXPECT_EQ(tampon, "1 NOTE \x82\r\n1 NAME Andr\xE9");
}

// Une faute de frappe dans une table donnerait deux octets OEM pour la même
// lettre accentuée (0xC0-0xFF), ou un octet que la page 1252 ne définit pas.
// Les signes peuvent partager un voisin (⌐ et ¬, ∙ et ·).
TEST(PagesOem, LettresDistinctesEtOctets1252Definis) {
    for (int page : {437, 850}) {
        std::set<unsigned char> vus;
        int lettres = 0;
        for (int o = 0x80; o <= 0xFF; ++o) {
            const unsigned char r = OctetOemVers1252(static_cast<unsigned char>(o), page);
            for (unsigned char trou : {0x81, 0x8D, 0x8F, 0x90, 0x9D}) EXPECT_NE(r, trou);
            if (r >= 0xC0) {
                ++lettres;
                vus.insert(r);
            }
        }
        EXPECT_EQ(static_cast<int>(vus.size()), lettres) << "page " << page;
    }
}

TEST(PagesOem, OctetCp1252) {
    EXPECT_EQ(OctetCp1252(U'A'), 'A');
    EXPECT_EQ(OctetCp1252(0x20AC), 0x80);
    EXPECT_EQ(OctetCp1252(0x0178), 0x9F);
    EXPECT_EQ(OctetCp1252(0x00E9), 0xE9);
    EXPECT_EQ(OctetCp1252(0x0081), -1);
    EXPECT_EQ(OctetCp1252(0x2500), -1);
}

// CharToOemA puis OemToCharA rend chaque lettre que la page porte ; les autres prennent une voisine.
TEST(PagesOem, Cp1252VersOemPuisRetour) {
    for (int page : {437, 850}) {
        for (int c = 0x80; c <= 0xFF; ++c) {
            std::string t(1, static_cast<char>(c));
            Cp1252VersOem(t, page);
            const unsigned char retour = OctetOemVers1252(static_cast<unsigned char>(t[0]), page);
            if (static_cast<unsigned char>(t[0]) >= 0x80) EXPECT_EQ(retour, c) << "page " << page << " octet " << c;
        }
    }
    std::string t = "\xE9t\xE9 \x9C" "uvre \x80";
    Cp1252VersOem(t, 850);
    EXPECT_EQ(t, "\x82t\x82 ouvre E");
}

}  // namespace
}  // namespace arbolix
