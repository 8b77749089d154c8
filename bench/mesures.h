// Mesures des bancs d'essai : temps écoulé et mémoire de pointe du processus.
#pragma once

#include <chrono>
#include <cstdint>

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

// Mémoire résidente de pointe, en mégaoctets.
double MemoirePointeMo();
// Mémoire résidente actuelle, en mégaoctets.
double MemoireActuelleMo();

}  // namespace arbolix::bench
