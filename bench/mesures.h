// Mesures des bancs d'essai : temps écoulé et mémoire de pointe du processus.
#pragma once

#include <chrono>
#include <cstdint>
#include <ctime>

namespace arbolix::bench {

class Chrono {
public:
    Chrono() : debut_(std::chrono::steady_clock::now()) {}
    double Secondes() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - debut_).count();
    }

private:
    std::chrono::steady_clock::time_point debut_;
};

// Temps processeur depuis l'appel précédent (ou la création) : la machine des essais est
// partagée, le temps écoulé seul ne dit pas ce que coûte une étape.
class Processeur {
public:
    double operator()() {
        const std::clock_t avant = dernier_;
        dernier_ = std::clock();
        return static_cast<double>(dernier_ - avant) / CLOCKS_PER_SEC;
    }

private:
    std::clock_t dernier_ = std::clock();
};

// Mémoire résidente de pointe, en mégaoctets.
double MemoirePointeMo();
// Mémoire résidente actuelle, en mégaoctets.
double MemoireActuelleMo();

}  // namespace arbolix::bench
