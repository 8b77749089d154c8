// Tableau à borne basse (-1 ou 0) et borne haute logique, qui ne prend de mémoire que pour ce qu'on écrit.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <vector>

namespace arbolix {

// Les règles dimensionnent les cinq tableaux ensemble à MaxFiches. Les notes,
// sources et médias n'en remplissent qu'une petite part : la borne haute est
// logique, la place réelle suit le plus haut numéro écrit. Une lecture au-delà
// de ce qui a été écrit rend une fiche vierge, comme un tableau tout juste dimensionné.
template <typename T>
class Tableau {
public:
    explicit Tableau(std::int32_t bas) : bas_(bas), haut_(bas - 1) {}

    std::int32_t Bas() const { return bas_; }
    std::int32_t Haut() const { return haut_; }

    // Vide tout et fixe la borne haute (ReDim sans Preserve).
    void Dimensionner(std::int32_t haut) {
        elements_.clear();
        elements_.shrink_to_fit();
        haut_ = haut;
    }

    // Garde le contenu et change la borne haute (ReDim Preserve).
    void Redimensionner(std::int32_t haut) {
        haut_ = haut;
        if (Taille() > haut_ - bas_ + 1) elements_.resize(static_cast<std::size_t>(haut_ - bas_ + 1));
    }

    // Réserve la place réelle jusqu'à n, pour éviter les recopies d'une lecture connue d'avance.
    void Reserver(std::int32_t n) {
        if (n >= bas_) elements_.reserve(static_cast<std::size_t>(n - bas_ + 1));
    }

    const T& operator[](std::int32_t i) const {
        Verifier(i);
        const auto k = static_cast<std::size_t>(i - bas_);
        return k < elements_.size() ? elements_[k] : Vierge();
    }

    T& operator[](std::int32_t i) {
        Verifier(i);
        const auto k = static_cast<std::size_t>(i - bas_);
        if (k >= elements_.size()) elements_.resize(k + 1);
        return elements_[k];
    }

    // Nombre d'éléments réellement tenus en mémoire.
    std::int32_t Taille() const { return static_cast<std::int32_t>(elements_.size()); }

private:
    static const T& Vierge() {
        static const T vierge{};
        return vierge;
    }
    void Verifier(std::int32_t i) const {
        if (i < bas_ || i > haut_) throw std::out_of_range("numéro de fiche hors du tableau");
    }

    std::int32_t bas_;
    std::int32_t haut_;
    std::vector<T> elements_;
};

}  // namespace arbolix
