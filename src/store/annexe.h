// Annexe<T> : un bloc facultatif sur le tas, copié avec son propriétaire, vierge tant qu'on n'y écrit pas.
#pragma once

#include <memory>

namespace arbolix {

template <typename T>
class Annexe {
public:
    Annexe() = default;
    Annexe(const Annexe& autre) : p_(autre.p_ ? std::make_unique<T>(*autre.p_) : nullptr) {}
    Annexe(Annexe&&) noexcept = default;
    Annexe& operator=(const Annexe& autre) {
        if (this != &autre) p_ = autre.p_ ? std::make_unique<T>(*autre.p_) : nullptr;
        return *this;
    }
    Annexe& operator=(Annexe&&) noexcept = default;

    // Lecture : un bloc vierge partagé quand rien n'a été écrit.
    const T& Lire() const {
        static const T vierge{};
        return p_ ? *p_ : vierge;
    }
    // Écriture : crée le bloc au premier besoin.
    T& Ecrire() {
        if (!p_) p_ = std::make_unique<T>();
        return *p_;
    }
    bool Existe() const { return p_ != nullptr; }
    void Effacer() { p_.reset(); }

    friend bool operator==(const Annexe& a, const Annexe& b) { return a.Lire() == b.Lire(); }

private:
    std::unique_ptr<T> p_;
};

}  // namespace arbolix
