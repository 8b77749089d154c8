// Retours de liens refaits sur une base lue : la dernière étape de chaque lecture, seule.
#include "store/liens.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "charger.h"
#include "mesures.h"

using namespace arbolix;

// bench_liens [FICHIER [FOIS]] : le meilleur de FOIS reconstructions (3 par défaut).
int main(int argc, char** argv) {
    const std::string chemin = bench::FichierDuBanc(argc, argv);
    const int fois = argc > 2 ? std::max(1, std::atoi(argv[2])) : 3;
    Base base;
    if (!bench::ChargerEtAnnoncer(base, chemin)) return 1;
    double meilleur = 1e30;
    for (int i = 0; i < fois; ++i) {
        bench::Processeur processeur;
        ReconstruireLiens(base);
        meilleur = std::min(meilleur, processeur());
    }
    std::printf("retours de liens refaits : %.3f s de calcul (meilleur de %d)\n", meilleur, fois);
    return 0;
}
