// Numéro Sosa exact à toute profondeur : un entier non signé de largeur libre.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace arbolix {

// Un numéro Sosa s'écrit en binaire « 1 » suivi du chemin (0 père, 1 mère) : le parcours
// ne fait que doubler et diviser par deux. Soixante générations dépassent 64 bits, et un
// flottant perdrait les derniers chiffres : on garde des mots de 32 bits, le plus faible d'abord.
class NombreSosa {
public:
    NombreSosa() : mots_{1} {}

    // Vers le père (2n) ou la mère (2n + 1).
    void Doubler(bool plusUn);
    // Retour vers l'enfant : n / 2, ou (n - 1) / 2 pour un nombre impair.
    void Diviser();

    // Nombre de chiffres binaires : n < 2^g revient à Bits() <= g.
    int Bits() const;
    std::string Decimal() const;

private:
    std::vector<std::uint32_t> mots_;
};

}  // namespace arbolix
