#include "dates/reconnaissance.h"

#include <array>

#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr int kPivotFenetre = 30;  // 30 -> 1930, 29 -> 2029

// Découpe en au plus 3 morceaux de chiffres ; faux pour tout autre caractère.
bool Decouper(std::string_view s, std::array<std::string_view, 3>& morceaux, int& n) {
    n = 0;
    std::size_t debut = 0;
    for (std::size_t i = 0; i <= s.size(); ++i) {
        if (i < s.size() && EstChiffre(s[i])) continue;
        if (i < s.size() && s[i] != '/') return false;
        if (n == 3) return false;
        morceaux[n++] = s.substr(debut, i - debut);
        debut = i + 1;
    }
    return true;
}

// Deux chiffres, deux chiffres, quatre chiffres, séparés par des barres.
bool JourMoisAnnee(std::string_view s) {
    if (s.size() != 10 || s[2] != '/' || s[5] != '/') return false;
    for (const std::size_t i : {0, 1, 3, 4, 6, 7, 8, 9})
        if (!EstChiffre(s[i])) return false;
    return true;
}

int Nombre(std::string_view chiffres) {
    return static_cast<int>(ValeurNumerique(chiffres));
}

std::optional<int> Annee(std::string_view chiffres, bool courteAdmise) {
    if (chiffres.size() >= 3) {
        const int a = Nombre(chiffres);
        if (a < kAnneeMin || a > kAnneeMax) return std::nullopt;
        return a;
    }
    if (!courteAdmise) return std::nullopt;
    const int a = Nombre(chiffres);
    return a < kPivotFenetre ? 2000 + a : 1900 + a;
}

}  // namespace

std::optional<DateCalendrier> LireDate(std::string_view s) {
    // Au-delà de "dd/mm/yyyy" aucune forme n'est possible : inutile de lire plus loin.
    if (s.empty() || s.size() > 10) return std::nullopt;
    DateCalendrier d;
    if (JourMoisAnnee(s)) {
        // "12/03/1750", la forme de presque toutes les dates : ses chiffres se lisent en place.
        const auto nombre = [&](std::size_t debut, std::size_t n) {
            int v = 0;
            for (std::size_t i = debut; i < debut + n; ++i) v = v * 10 + (s[i] - '0');
            return v;
        };
        d = {nombre(0, 2), nombre(3, 2), nombre(6, 4)};
        if (d.annee < kAnneeMin || d.annee > kAnneeMax) return std::nullopt;
    } else {
        std::array<std::string_view, 3> m;
        int n = 0;
        if (!Decouper(s, m, n) || n < 2) return std::nullopt;
        for (int i = 0; i < n; ++i)
            if (m[i].empty() || (i < n - 1 && m[i].size() > 2) || m[i].size() > 4) return std::nullopt;
        const auto annee = Annee(m[n - 1], n == 3);
        if (!annee) return std::nullopt;
        d.annee = *annee;
        d.mois = Nombre(m[n - 2]);
        d.jour = n == 3 ? Nombre(m[0]) : 1;
    }
    if (d.mois < 1 || d.mois > 12 || d.jour < 1 || d.jour > JoursDuMois(d.mois, d.annee)) return std::nullopt;
    return d;
}

bool EstDateComplete(std::string_view s) {
    const auto b1 = s.find('/');
    const auto b2 = s.rfind('/');
    return b1 != std::string_view::npos && b2 != b1 && s.size() - b2 - 1 == 4 && LireDate(s).has_value();
}

std::optional<DateCalendrier> LireJourEtMois(std::string_view s) {
    if (s.size() > 5) return std::nullopt;
    std::array<std::string_view, 3> m;
    int n = 0;
    if (!Decouper(s, m, n) || n != 2 || m[0].empty() || m[1].empty() || m[0].size() > 2 || m[1].size() > 2)
        return std::nullopt;
    DateCalendrier d{Nombre(m[0]), Nombre(m[1]), 0};
    constexpr int kBissextile = 2000;  // le 29 février existe tant que l'année n'est pas dite
    if (d.mois < 1 || d.mois > 12 || d.jour < 1 || d.jour > JoursDuMois(d.mois, kBissextile))
        return std::nullopt;
    return d;
}

}  // namespace arbolix
