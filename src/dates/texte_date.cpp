#include "dates/texte_date.h"

#include <cstdio>

namespace arbolix::texte_date {

std::int64_t Val(std::string_view s) {
    constexpr std::int64_t kPlafond = 1'000'000'000'000LL;
    std::int64_t n = 0;
    for (char c : s) {
        if (c == ' ' || c == '\t' || c == '\n') continue;
        if (!EstChiffre(c)) break;
        if (n < kPlafond) n = n * 10 + (c - '0');
    }
    return n;
}

std::string_view Droite(std::string_view s, std::size_t n) {
    return n >= s.size() ? s : s.substr(s.size() - n);
}

std::string_view Gauche(std::string_view s, std::size_t n) {
    return s.substr(0, n);
}

bool EstChiffre(char c) {
    return c >= '0' && c <= '9';
}

bool EstNumerique(std::string_view s) {
    if (s.empty()) return false;
    for (char c : s)
        if (!EstChiffre(c)) return false;
    return true;
}

namespace {

// Paires majuscule / minuscule hors A-Z et hors bloc C0-DE.
constexpr unsigned char kPaires[][2] = {{0x8A, 0x9A}, {0x8C, 0x9C}, {0x8E, 0x9E}, {0x9F, 0xFF}};

unsigned char Minuscule(unsigned char c) {
    if (c >= 'A' && c <= 'Z') return c + 32;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 32;
    for (auto& p : kPaires)
        if (c == p[0]) return p[1];
    return c;
}

unsigned char Majuscule(unsigned char c) {
    if (c >= 'a' && c <= 'z') return c - 32;
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
    for (auto& p : kPaires)
        if (c == p[1]) return p[0];
    return c;
}

}  // namespace

std::string MinusculesAnsi(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = static_cast<char>(Minuscule(static_cast<unsigned char>(c)));
    return r;
}

std::string MajusculesAnsi(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = static_cast<char>(Majuscule(static_cast<unsigned char>(c)));
    return r;
}

std::string RemplacerTout(std::string_view s, std::string_view quoi, std::string_view par) {
    if (quoi.empty()) return std::string(s);
    std::string r;
    r.reserve(s.size());
    std::size_t debut = 0;
    for (std::size_t p = s.find(quoi); p != std::string_view::npos; p = s.find(quoi, debut)) {
        r.append(s.substr(debut, p - debut)).append(par);
        debut = p + quoi.size();
    }
    r.append(s.substr(debut));
    return r;
}

std::string Zeros(std::int64_t n, int chiffres) {
    char tampon[32];
    std::snprintf(tampon, sizeof tampon, "%0*lld", chiffres, static_cast<long long>(n));
    return tampon;
}

}  // namespace arbolix::texte_date
