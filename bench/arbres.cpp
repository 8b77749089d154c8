// Arbres jusqu'au SVG sur le fichier d'un million de personnes : l'ascendant A4 de cinq générations
// et un grand ascendant de douze générations de la personne 1, puis le descendant d'une personne
// qui a environ deux mille descendants.
//
// bench_arbres [GRAND.ged]   (gen_gedcom.py --persons 1000000 --seed 1 --out /tmp/arbolix-reel-1000000.ged)
#include <cstdio>
#include <deque>
#include <string>

#include "charger.h"
#include "kinship/sosa.h"
#include "mesures.h"
#include "trees/dessin_arbre.h"
#include "trees/sortie_arbre.h"

using namespace arbolix;

namespace {

void Mesurer(const char* nom, Base& base, const Options& options, DemandeArbre d) {
    const MesureFixe mesure;
    bench::Chrono c;
    const DessinArbre a = DessinerArbre(base, options, d, mesure);
    const std::string svg = ArbreSvg(a, options, mesure);
    std::printf("%-34s %6zu cases, %2d page(s), %9zu octets SVG, %.3f s %s\n", nom, a.Cases.size(), a.Pages,
                svg.size(), c.Secondes(), a.TitreBoite.c_str());
}

// Les descendants de p jusqu'à plafond, par les enfants de chaque union.
int CompterDescendants(const Base& b, std::int32_t p, int plafond) {
    std::deque<std::int32_t> file{p};
    int n = 0;
    while (!file.empty() && n < plafond) {
        const Perso& x = b.Persos[file.front()];
        file.pop_front();
        for (int u = 1; u <= kMaxUnions; ++u) {
            const std::int32_t f = x.Unions[u];
            if (f <= 0 || f > b.Familles.Haut()) continue;
            for (int e = 1; e <= kMaxEnfants; ++e) {
                const std::int32_t enfant = b.Familles[f].Enfants(e);
                if (enfant <= 0 || enfant > b.Persos.Haut()) continue;
                ++n;
                file.push_back(enfant);
            }
        }
    }
    return n;
}

}  // namespace

int main(int argc, char** argv) {
    Base base;
    const std::string chemin = bench::FichierDuBanc(argc, argv);
    if (!bench::ChargerFichier(base, chemin)) return 1;
    Options options;
    const std::int32_t un = PremierePersonne(base, 1);
    DemandeArbre d;
    d.numero = un;
    d.genre = kAscendantA4;
    d.mode = kModeSvg;
    d.aujourdhui = {23, 11, 2026};
    Mesurer("Ascendant A4, 5 generations", base, options, d);
    d.genre = kAscendant;
    d.dims.NbGen = "12";
    d.dims.HF = "12400", d.dims.LF = "3000";  // 2048 cases de 6 mm au moins
    Mesurer("Ascendant grand format, 12 gen.", base, options, d);

    std::int32_t choisi = 0;
    int compte = 0;
    for (std::int32_t p = 1; p <= base.NbPersos && p < 200000; ++p) {
        if (!PersonneExiste(base, p)) continue;
        const int n = CompterDescendants(base, p, 2600);
        if (n >= 1500 && n < 2600) {
            choisi = p, compte = n;
            break;
        }
    }
    if (choisi == 0) {
        std::printf("Aucune personne n'a entre 1500 et 2600 descendants dans les 200 000 premières.\n");
        return 0;
    }
    std::printf("Descendant de %d : %d descendants par les unions\n", choisi, compte);
    options.SelTousDesc = true;
    d = {};
    d.genre = kDescendant;
    d.numero = choisi;
    d.mode = kModeSvg;
    d.dims.NbGen = "";
    d.dims.LF = "1000", d.dims.HF = "1000";
    Mesurer("Descendant grand format", base, options, d);
    return 0;
}
