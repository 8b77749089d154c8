// Texte : chaîne d'octets (code page 1252) de 16 octets, courte en place, pour tenir un million de fiches.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace arbolix {

// Une fiche porte des dizaines de textes presque toujours courts ou vides :
// jusqu'à 15 octets ils restent dans l'objet, au-delà un bloc sur le tas que les copies
// partagent jusqu'à ce que l'une d'elles change.
// L'interface est celle d'une std::string réduite ; on la lit en string_view.
class Texte {
public:
    Texte() noexcept { MettreCourt(0); }
    Texte(std::string_view s) { Initialiser(s); }  // NOLINT: conversion voulue
    Texte(const char* s) : Texte(std::string_view(s)) {}
    Texte(const std::string& s) : Texte(std::string_view(s)) {}
    Texte(const Texte& autre);  // partage le bloc long
    Texte(Texte&& autre) noexcept;
    ~Texte() { Liberer(); }

    Texte& operator=(const Texte& autre);
    Texte& operator=(Texte&& autre) noexcept;
    Texte& operator=(std::string_view s);
    Texte& operator=(const char* s) { return *this = std::string_view(s); }
    Texte& operator=(const std::string& s) { return *this = std::string_view(s); }

    Texte& operator+=(std::string_view s);
    Texte& operator+=(char c) { return *this += std::string_view(&c, 1); }

    std::size_t size() const noexcept { return Long() ? TailleLongue() : kCourtMax - Octet15(); }
    bool empty() const noexcept { return size() == 0; }
    const char* data() const noexcept { return Long() ? Pointeur() : b_; }
    const char* c_str() const noexcept { return data(); }
    char operator[](std::size_t i) const noexcept { return data()[i]; }
    std::string_view vue() const noexcept { return {data(), size()}; }
    operator std::string_view() const noexcept { return vue(); }
    std::string str() const { return std::string(vue()); }
    void clear() noexcept;

    friend bool operator==(const Texte& a, const Texte& b) noexcept { return a.vue() == b.vue(); }
    friend bool operator==(const Texte& a, std::string_view b) noexcept { return a.vue() == b; }
    friend bool operator==(const Texte& a, const char* b) noexcept { return a.vue() == b; }
    friend std::string operator+(const Texte& a, std::string_view b) { return a.str().append(b); }
    friend std::string operator+(std::string_view a, const Texte& b) {
        return std::string(a).append(b.vue());
    }
    friend std::string operator+(const Texte& a, const Texte& b) { return a.str().append(b.vue()); }
    friend std::string operator+(const Texte& a, const char* b) { return a.str().append(b); }
    friend std::string operator+(const char* a, const Texte& b) { return std::string(a).append(b.vue()); }
    friend std::string operator+(const Texte& a, const std::string& b) { return a.str().append(b); }
    friend std::string operator+(const std::string& a, const Texte& b) {
        return std::string(a).append(b.vue());
    }

private:
    static constexpr std::size_t kCourtMax = 15;
    static constexpr unsigned char kMarqueLong = 0x80;

    bool Long() const noexcept { return Octet15() == kMarqueLong; }
    unsigned char Octet15() const noexcept { return static_cast<unsigned char>(b_[15]); }
    void MettreCourt(std::size_t n) noexcept;
    char* Pointeur() const noexcept;
    std::size_t TailleLongue() const noexcept;
    std::size_t Capacite() const noexcept;
    std::size_t CapaciteEcrivable() const noexcept;
    void Partager(const Texte& autre) noexcept;
    void MettreLong(char* p, std::size_t n) noexcept;
    void Initialiser(std::string_view s);
    // En ligne : une base d'un million de fiches détruit des dizaines de millions de textes courts,
    // qui n'ont rien à rendre.
    void Liberer() noexcept {
        if (Long()) RendreLong();
    }
    void RendreLong() noexcept;

    alignas(8) char b_[16];
};

}  // namespace arbolix
