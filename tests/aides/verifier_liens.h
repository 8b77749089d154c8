// Pour les tests : vérifie les liens à double sens entre personnes et familles sur toute la base.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "store/base.h"

namespace arbolix {

// Une ligne lisible par lien rompu : parents ↔ enfants, unions ↔ mari ou femme,
// et les emplacements tenus sans trou ni doublon. Vide quand tout tient.
inline std::vector<std::string> VerifierLiens(const Base& base) {
    std::vector<std::string> fautes;
    const auto P = [&](std::int32_t n) -> const Perso& {
        return n >= 0 && n <= base.Persos.Haut() ? base.Persos[n] : base.Persos[0];
    };
    const auto F = [&](std::int32_t f) -> const Fami& {
        return f >= 0 && f <= base.Familles.Haut() ? base.Familles[f] : base.Familles[0];
    };
    const auto dire = [&](std::string s) { fautes.push_back(std::move(s)); };
    const auto texte = [](std::int32_t n) { return std::to_string(n); };

    for (std::int32_t p = 1; p <= base.NbPersos; ++p) {
        const Perso& pe = P(p);
        if (const std::int32_t f = pe.NumParents; f != 0) {
            if (f < 0 || f > base.NbFamis) dire("P" + texte(p) + " : parents F" + texte(f) + " hors des familles");
            const auto& enf = F(f).Enfants;
            const bool cite = std::any_of(enf.begin(), enf.end(), [&](const auto& c) { return c.first >= 1 && c.second == p; });
            if (!cite) dire("P" + texte(p) + " : enfant de F" + texte(f) + " qui ne le cite pas");
        }
        std::vector<std::int32_t> vues;
        bool trou = false;
        for (int i = 1; i <= kMaxUnions; ++i) {
            const std::int32_t f = pe.Unions[static_cast<std::size_t>(i)];
            if (f == 0) {
                trou = true;
                continue;
            }
            if (trou) dire("P" + texte(p) + " : trou avant l'union " + texte(i));
            if (std::find(vues.begin(), vues.end(), f) != vues.end()) dire("P" + texte(p) + " : union F" + texte(f) + " en double");
            vues.push_back(f);
            if (F(f).Mari != p && F(f).Femme != p)
                dire("P" + texte(p) + " : union F" + texte(f) + " dont il n'est ni mari ni femme");
        }
    }
    for (std::int32_t f = 1; f <= base.NbFamis; ++f) {
        const Fami& fa = F(f);
        for (const std::int32_t c : {fa.Mari, fa.Femme}) {
            if (c == 0) continue;
            const auto& u = P(c).Unions;
            if (std::find(u.begin() + 1, u.end(), f) == u.end())
                dire("F" + texte(f) + " : conjoint P" + texte(c) + " sans cette union");
        }
        std::vector<std::int32_t> vus;
        int attendu = 1;
        for (const auto& [rang, c] : fa.Enfants) {
            if (rang == 0) {
                dire("F" + texte(f) + " : emplacement 0 des enfants rempli");
                continue;
            }
            if (rang != attendu) dire("F" + texte(f) + " : trou avant l'enfant " + texte(rang));
            attendu = rang + 1;
            if (std::find(vus.begin(), vus.end(), c) != vus.end()) dire("F" + texte(f) + " : enfant P" + texte(c) + " en double");
            vus.push_back(c);
            if (P(c).NumParents != f) dire("F" + texte(f) + " : enfant P" + texte(c) + " dont les parents sont ailleurs");
        }
    }
    return fautes;
}

}  // namespace arbolix
