#include "store/texte.h"

#include <cstring>
#include <new>

namespace arbolix {

namespace {

// Le bloc long porte sa capacité juste devant les octets.
char* Allouer(std::size_t capacite) {
    auto* bloc = static_cast<std::size_t*>(::operator new(sizeof(std::size_t) + capacite + 1));
    *bloc = capacite;
    return reinterpret_cast<char*>(bloc + 1);
}

void Rendre(char* p) noexcept { ::operator delete(reinterpret_cast<std::size_t*>(p) - 1); }

}  // namespace

void Texte::MettreCourt(std::size_t n) noexcept {
    b_[n] = '\0';
    b_[15] = static_cast<char>(kCourtMax - n);
}

char* Texte::Pointeur() const noexcept {
    char* p;
    std::memcpy(&p, b_, sizeof p);
    return p;
}

std::size_t Texte::TailleLongue() const noexcept {
    std::uint32_t n;
    std::memcpy(&n, b_ + 8, sizeof n);
    return n;
}

std::size_t Texte::Capacite() const noexcept {
    return Long() ? *(reinterpret_cast<std::size_t*>(Pointeur()) - 1) : kCourtMax;
}

void Texte::MettreLong(char* p, std::size_t n) noexcept {
    const auto n32 = static_cast<std::uint32_t>(n);
    std::memcpy(b_, &p, sizeof p);
    std::memcpy(b_ + 8, &n32, sizeof n32);
    p[n] = '\0';
    b_[15] = static_cast<char>(kMarqueLong);
}

void Texte::Initialiser(std::string_view s) {
    if (s.size() <= kCourtMax) {
        if (!s.empty()) std::memcpy(b_, s.data(), s.size());
        MettreCourt(s.size());
        return;
    }
    char* p = Allouer(s.size());
    std::memcpy(p, s.data(), s.size());
    MettreLong(p, s.size());
}

void Texte::Liberer() noexcept {
    if (Long()) Rendre(Pointeur());
}

Texte::Texte(Texte&& autre) noexcept {
    std::memcpy(b_, autre.b_, sizeof b_);
    autre.MettreCourt(0);
}

Texte& Texte::operator=(const Texte& autre) {
    if (this != &autre) *this = autre.vue();
    return *this;
}

Texte& Texte::operator=(Texte&& autre) noexcept {
    if (this != &autre) {
        Liberer();
        std::memcpy(b_, autre.b_, sizeof b_);
        autre.MettreCourt(0);
    }
    return *this;
}

Texte& Texte::operator=(std::string_view s) {
    if (s.size() <= Capacite()) {  // memmove : s peut être une partie de nous-mêmes
        char* d = Long() ? Pointeur() : b_;
        if (!s.empty()) std::memmove(d, s.data(), s.size());  // une vue vide peut n'avoir aucune adresse
        if (Long()) MettreLong(d, s.size()); else MettreCourt(s.size());
        return *this;
    }
    Texte copie(s);
    return *this = std::move(copie);
}

Texte& Texte::operator+=(std::string_view s) {
    const std::size_t n = size();
    const std::size_t total = n + s.size();
    if (s.empty()) return *this;
    if (total <= Capacite()) {
        char* d = Long() ? Pointeur() : b_;
        std::memmove(d + n, s.data(), s.size());
        if (Long()) MettreLong(d, total); else MettreCourt(total);
        return *this;
    }
    // Croissance géométrique : des milliers de lignes CONT restent linéaires.
    std::size_t capacite = Capacite() * 2;
    if (capacite < total) capacite = total;
    char* p = Allouer(capacite);
    std::memcpy(p, data(), n);
    std::memcpy(p + n, s.data(), s.size());
    Liberer();
    MettreLong(p, total);
    return *this;
}

void Texte::clear() noexcept {
    Liberer();
    MettreCourt(0);
}

}  // namespace arbolix
