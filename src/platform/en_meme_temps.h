// Deux travaux indépendants menés ensemble, sur deux cœurs.
#pragma once

#include <cstddef>
#include <exception>
#include <system_error>
#include <thread>
#include <utility>

namespace arbolix {

// autre() sur un second fil pendant ici() sur celui-ci ; sans second fil, l'un après l'autre. Rend
// la main quand les deux ont fini ; une exception de l'autre fil ressort ici. Les deux ne doivent
// rien écrire que l'autre lise.
template <typename Autre, typename Ici>
void EnMemeTemps(Autre&& autre, Ici&& ici) {
    std::exception_ptr echec;
    std::jthread fil;
    try {
        fil = std::jthread([&] {
            try {
                autre();
            } catch (...) {
                echec = std::current_exception();
            }
        });
    } catch (const std::system_error&) {
        autre();
        ici();
        return;
    }
    ici();  // une exception d'ici attend l'autre fil : le jthread le rejoint en partant
    fil.join();
    if (echec) std::rethrow_exception(echec);
}

// Là où EnDeuxMoities coupe [debut, fin).
constexpr std::size_t Milieu(std::size_t debut, std::size_t fin) {
    return debut + (fin - debut) / 2;
}

// Taille (en octets) à partir de laquelle un parcours gagne à se faire en deux moitiés.
constexpr std::size_t kSeuilDeuxMoities = std::size_t{16} << 20;

// faire(de, a) sur les deux moitiés de [debut, fin), la seconde sur un autre fil : leurs deux
// résultats, dans l'ordre des moitiés.
template <typename Faire>
auto EnDeuxMoities(std::size_t debut, std::size_t fin, Faire&& faire) {
    const std::size_t milieu = Milieu(debut, fin);
    std::pair<decltype(faire(debut, fin)), decltype(faire(debut, fin))> r;
    EnMemeTemps([&] { r.second = faire(milieu, fin); }, [&] { r.first = faire(debut, milieu); });
    return r;
}

// Vrai si trouve(de, a) l'est sur l'une des deux moitiés de [debut, fin) ; un parcours trop court
// pour valoir un second fil se fait d'un trait.
template <typename Trouve>
bool DansUneMoitie(std::size_t debut, std::size_t fin, Trouve&& trouve) {
    if (fin - debut < kSeuilDeuxMoities) return trouve(debut, fin);
    const auto [avant, apres] = EnDeuxMoities(debut, fin, trouve);
    return avant || apres;
}

}  // namespace arbolix
