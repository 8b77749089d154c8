#include "store/texte.h"

#include <cstring>
#include <new>

namespace arbolix {

namespace {

// Le bloc long porte devant ses octets sa capacité et le nombre de textes qui le partagent :
// une copie partage le bloc (un même lieu sur des milliers de fiches ne coûte qu'un bloc),
// une écriture sur un bloc partagé en prend un à elle. La base n'est touchée que d'un fil.
struct EnTete {
    std::size_t capacite;
    std::size_t partages;
};

EnTete* Tete(const char* p) noexcept {
    return reinterpret_cast<EnTete*>(const_cast<char*>(p)) - 1;
}

char* Allouer(std::size_t capacite) {
    auto* tete = static_cast<EnTete*>(::operator new(sizeof(EnTete) + capacite + 1));
    *tete = {capacite, 1};
    return reinterpret_cast<char*>(tete + 1);
}

void Rendre(char* p) noexcept {
    EnTete* tete = Tete(p);
    if (--tete->partages == 0) ::operator delete(tete);
}

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
    return Long() ? Tete(Pointeur())->capacite : kCourtMax;
}

// La place où écrire sans toucher aux autres : un bloc partagé n'en offre aucune.
std::size_t Texte::CapaciteEcrivable() const noexcept {
    return Long() && Tete(Pointeur())->partages > 1 ? 0 : Capacite();
}

void Texte::Partager(const Texte& autre) noexcept {
    std::memcpy(b_, autre.b_, sizeof b_);
    ++Tete(Pointeur())->partages;
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

void Texte::RendreLong() noexcept {
    Rendre(Pointeur());
}

Texte::Texte(Texte&& autre) noexcept {
    std::memcpy(b_, autre.b_, sizeof b_);
    autre.MettreCourt(0);
}

Texte::Texte(const Texte& autre) {
    if (autre.Long())
        Partager(autre);
    else
        std::memcpy(b_, autre.b_, sizeof b_);
}

Texte& Texte::operator=(const Texte& autre) {
    if (this == &autre) return *this;
    if (!autre.Long()) return *this = autre.vue();
    if (Long() && Pointeur() == autre.Pointeur()) return *this;
    Liberer();
    Partager(autre);
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
    if (s.size() <= CapaciteEcrivable()) {  // memmove : s peut être une partie de nous-mêmes
        char* d = Long() ? Pointeur() : b_;
        if (!s.empty()) std::memmove(d, s.data(), s.size());  // une vue vide peut n'avoir aucune adresse
        if (Long())
            MettreLong(d, s.size());
        else
            MettreCourt(s.size());
        return *this;
    }
    Texte copie(s);
    return *this = std::move(copie);
}

Texte& Texte::operator+=(std::string_view s) {
    const std::size_t n = size();
    const std::size_t total = n + s.size();
    if (s.empty()) return *this;
    if (total <= CapaciteEcrivable()) {
        char* d = Long() ? Pointeur() : b_;
        std::memmove(d + n, s.data(), s.size());
        if (Long())
            MettreLong(d, total);
        else
            MettreCourt(total);
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
