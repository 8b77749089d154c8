// Deux travaux indépendants menés ensemble, sur deux cœurs.
#pragma once

#include <exception>
#include <system_error>
#include <thread>

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

}  // namespace arbolix
