// Emplacements numérotés creux : témoins 1..20, fichiers 1..9, liens 1..9, sans payer les vides.
#pragma once

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <utility>
#include <vector>

namespace arbolix {

// Les règles parlent d'emplacements fixes (Temoins(1) à Temoins(20)...).
// On garde leurs numéros mais on ne stocke que les emplacements remplis,
// triés par numéro : une liste vide ne coûte qu'un vecteur vide.
template <typename T, int Premier, int Dernier>
class Emplacements {
public:
    static constexpr int kPremier = Premier;
    static constexpr int kDernier = Dernier;

    const T& operator()(int i) const {
        Verifier(i);
        auto it = Chercher(i);
        return it != cases_.end() && it->first == i ? it->second : Vide();
    }

    // Une valeur vide libère l'emplacement.
    void Fixer(int i, T valeur) {
        Verifier(i);
        auto it = Chercher(i);
        const bool present = it != cases_.end() && it->first == i;
        if (valeur == T{}) {
            if (present) cases_.erase(it);
        } else if (present) {
            it->second = std::move(valeur);
        } else {
            cases_.insert(it, {static_cast<std::int8_t>(i), std::move(valeur)});
        }
    }

    // Premier emplacement libre de depuis à Dernier, ou Dernier + 1 s'il n'y en a pas.
    int PremierLibre(int depuis = Premier) const {
        int i = depuis;
        for (const auto& c : cases_) {
            if (c.first < i) continue;
            if (c.first != i) break;
            ++i;
        }
        return i;
    }

    bool empty() const { return cases_.empty(); }
    std::size_t Nombre() const { return cases_.size(); }
    void clear() { cases_.clear(); }
    // Parcours des seuls emplacements remplis : paires (numéro, valeur).
    auto begin() const { return cases_.begin(); }
    auto end() const { return cases_.end(); }

    friend bool operator==(const Emplacements& a, const Emplacements& b) { return a.cases_ == b.cases_; }

private:
    static const T& Vide() {
        static const T vide{};
        return vide;
    }
    static void Verifier(int i) {
        if (i < Premier || i > Dernier) throw std::out_of_range("emplacement hors bornes");
    }
    auto Chercher(int i) const {
        return std::lower_bound(cases_.begin(), cases_.end(), i,
                                [](const auto& c, int n) { return c.first < n; });
    }
    auto Chercher(int i) {
        return std::lower_bound(cases_.begin(), cases_.end(), i,
                                [](const auto& c, int n) { return c.first < n; });
    }

    std::vector<std::pair<std::int8_t, T>> cases_;
};

}  // namespace arbolix
