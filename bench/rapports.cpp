// Les rapports texte sur un grand fichier : ascendance de la personne 1 (avec « Toutes » et en
// tableau) et liste-éclair de toute la base, du calcul aux octets prêts à écrire.
//
// bench_rapports [GRAND.ged]
// Le grand fichier vient de gen_gedcom.py --persons 1000000 --seed 1, gardé dans /tmp.
#include <cstdio>
#include <string>

#include "charger.h"
#include "mesures.h"
#include "reports/ascendance.h"
#include "reports/liste_eclair.h"

using namespace arbolix;

int main(int argc, char** argv) {
    const std::string chemin = bench::FichierDuBanc(argc, argv);
    Base base;
    if (!bench::ChargerEtAnnoncer(base, chemin)) return 1;
    Options options;
    OptionsExport exports;
    ContexteExport ctx{base, options, exports, {23, 11, 2026}};
    ctx.NumPerso = 1;
    for (const bool toutes : {true, false}) {
        exports.Toutes = toutes;
        // Le meilleur de trois passes : la première paie les pages froides.
        double meilleur = 1e9;
        std::size_t octets = 0;
        for (int passe = 0; passe < 3; ++passe) {
            bench::Chrono c;
            octets = TexteAscendance(ctx).size();
            meilleur = std::min(meilleur, c.Secondes());
        }
        std::printf("Ascendance de 1 (%s) : %zu octets, %.3f s\n", toutes ? "Toutes" : "tableau", octets,
                    meilleur);
    }
    double meilleur = 1e9;
    std::size_t octets = 0;
    for (int passe = 0; passe < 3; ++passe) {
        bench::Chrono c;
        octets = TexteListeEclair(ctx, 1).size();
        meilleur = std::min(meilleur, c.Secondes());
    }
    std::printf(
        "Liste-\xC3\xA9"
        "clair de toute la base : %zu octets, %.3f s\n",
        octets, meilleur);
    return 0;
}
