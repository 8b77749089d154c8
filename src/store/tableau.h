// Tableau à borne basse (-1 ou 0) et borne haute logique, qui ne prend de mémoire que pour ce qu'on écrit.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

#include "platform/memoire.h"

namespace arbolix {

// Source facultative de pages neuves qu'un Tableau prend avant d'en demander une lui-même au
// système (voir PagesDAvance) : réservées (Tableau::PageReservee), rien n'y est encore construit.
// PageNeuve peut ne rien rendre : le Tableau fait alors sa page.
template <typename T>
class FournisseurPages {
public:
    virtual std::unique_ptr<std::vector<T>> PageNeuve() = 0;

protected:
    ~FournisseurPages() = default;
};

// Les règles dimensionnent les cinq tableaux ensemble à MaxFiches. Les notes,
// sources et médias n'en remplissent qu'une petite part, et un fichier peut
// porter un numéro isolé très haut (@I9999999@) : la borne haute est logique,
// la mémoire vient par pages au premier écrit. Une lecture de ce qui n'a
// jamais été écrit rend une fiche vierge, comme un tableau tout juste dimensionné.
template <typename T>
class Tableau {
public:
    explicit Tableau(std::int32_t bas) : bas_(bas), haut_(bas - 1) {}

    std::int32_t Bas() const { return bas_; }
    std::int32_t Haut() const { return haut_; }

    // Vide tout et fixe la borne haute (ReDim sans Preserve).
    void Dimensionner(std::int32_t haut) {
        pages_.clear();
        pages_.shrink_to_fit();
        haut_ = haut;
    }

    // Garde le contenu et change la borne haute (ReDim Preserve).
    void Redimensionner(std::int32_t haut) {
        if (haut < haut_) {
            for (std::int32_t i = haut + 1; i <= haut_ && Page(i) < pages_.size(); ++i)
                if (pages_[Page(i)]) (*pages_[Page(i)])[Case(i)] = T{};
            const std::size_t garder = static_cast<std::size_t>(haut - bas_) / kTaillePage + 1;
            if (pages_.size() > garder) pages_.resize(garder);
        }
        haut_ = haut;
    }

    const T& operator[](std::int32_t i) const {
        Verifier(i);
        const std::size_t p = Page(i);
        return p < pages_.size() && pages_[p] ? (*pages_[p])[Case(i)] : Vierge();
    }

    T& operator[](std::int32_t i) {
        Verifier(i);
        const std::size_t p = Page(i);
        if (p >= pages_.size()) pages_.resize(p + 1);
        if (!pages_[p]) pages_[p] = NouvellePage();
        return (*pages_[p])[Case(i)];
    }

    // Le fournisseur reste à qui l'installe, qui le retire (nullptr) avant de le détruire.
    void Fournisseur(FournisseurPages<T>* f) { fournisseur_ = f; }

    // Vrai quand rien n'a jamais été écrit dans la page de i : toute la page est vierge.
    bool PageVierge(std::int32_t i) const {
        const std::size_t p = Page(i);
        return p >= pages_.size() || !pages_[p];
    }
    // Dernier numéro de la page de i : les parcours sautent une page vierge d'un coup.
    std::int32_t FinDePage(std::int32_t i) const {
        return bas_ + static_cast<std::int32_t>((Page(i) + 1) * kTaillePage) - 1;
    }

    // Appelle action(n) pour chaque numéro de de à a dont la page a été écrite :
    // les parcours sautent les grands trous d'un fichier aux numéros épars.
    template <typename Action>
    void PourChaqueEcrit(std::int32_t de, std::int32_t a, Action&& action) const {
        for (std::int32_t n = std::max(de, bas_); n <= std::min(a, haut_); ++n) {
            if (PageVierge(n)) {
                n = FinDePage(n);
                continue;
            }
            action(n);
        }
    }

    // Mémoire réellement prise, en fiches.
    std::size_t FichesEnMemoire() const {
        std::size_t n = 0;
        for (const auto& p : pages_) n += p ? kTaillePage : 0;
        return n;
    }

    static constexpr std::size_t kTaillePage = 1024;

    // Une page vide dont toute la place va être écrite : le système la fournit d'un coup, pas
    // faute après faute. Les fiches s'y construisent sur le fil qui s'en sert, dans son cache.
    static std::unique_ptr<std::vector<T>> PageReservee() {
        auto page = std::make_unique<std::vector<T>>();
        page->reserve(kTaillePage);
        PreparerPages(reinterpret_cast<char*>(page->data()), kTaillePage * sizeof(T));
        return page;
    }

private:
    std::size_t Page(std::int32_t i) const { return static_cast<std::size_t>(i - bas_) / kTaillePage; }
    std::size_t Case(std::int32_t i) const { return static_cast<std::size_t>(i - bas_) % kTaillePage; }
    std::unique_ptr<std::vector<T>> NouvellePage() {
        std::unique_ptr<std::vector<T>> page = fournisseur_ ? fournisseur_->PageNeuve() : nullptr;
        if (!page) page = PageReservee();
        page->resize(kTaillePage);
        return page;
    }
    static const T& Vierge() {
        static const T vierge{};
        return vierge;
    }
    void Verifier(std::int32_t i) const {
        if (i < bas_ || i > haut_) throw std::out_of_range("numéro de fiche hors du tableau");
    }

    std::int32_t bas_;
    std::int32_t haut_;
    std::vector<std::unique_ptr<std::vector<T>>> pages_;
    FournisseurPages<T>* fournisseur_ = nullptr;
};

}  // namespace arbolix
