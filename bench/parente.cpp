// Numérotation Sosa et sélection des apparentés sur un grand fichier, et la marche la plus
// longue d'un fichier réel riche en implexes (la personne qui a le plus de chemins d'ascendants).
//
// bench_parente [GRAND.ged] [ROYAL.ged]
// Le grand fichier vient de gen_gedcom.py --persons 1000000 --seed 1, gardé dans /tmp.
#include <cstdio>
#include <string>
#include <vector>

#include "charger.h"
#include "kinship/menu_sel.h"
#include "kinship/sosa.h"
#include "lists/selection_active.h"
#include "mesures.h"
#include "store/selection.h"

using namespace arbolix;

namespace {

void GrandFichier(const std::string& chemin) {
    Base base;
    if (!bench::ChargerEtAnnoncer(base, chemin)) return;
    const std::int32_t racine = PremierePersonne(base, 1);
    bench::Chrono c;
    const Ascendance a = NumeroterAscendants(base, {racine});
    std::printf("Numérotation Sosa de %d : %d visites, %zu rangées, %.3f s\n", racine, a.NbAncetres,
                a.liste.Rangees.size(), c.Secondes());
    Options options;
    EtatSelection etat;
    bench::Chrono s;
    MenuSel(base, options, etat, 3, racine);
    std::printf("Apparentés de %d : %d personnes, %d familles, %.3f s\n", racine, NbSelPersos(base),
                NbSelFamis(base), s.Secondes());
    options.SelTousDesc = true;
    MenuSel(base, options, etat, 0, racine);
    bench::Chrono t;
    MenuSel(base, options, etat, 3, racine);
    std::printf("Apparentés avec SelTousDesc : %d personnes, %.3f s\n", NbSelPersos(base), t.Secondes());
}

// Le nombre de visites d'une marche complète depuis chaque personne : 1 + celles des deux parents.
// Une boucle dans les liens compte approximativement : il s'agit de trouver la personne.
std::int32_t PlusDeChemins(const Base& b, double& visites) {
    const std::int32_t haut = b.Persos.Haut();
    std::vector<double> memo(static_cast<std::size_t>(haut) + 1, 0);
    std::vector<std::uint8_t> etat(static_cast<std::size_t>(haut) + 1, 0);  // 1 en cours, 2 fait
    const auto parents = [&](std::int32_t n) {
        std::vector<std::int32_t> r;
        const std::int32_t f = b.Persos[n].NumParents;
        if (f <= 0 || f > b.Familles.Haut()) return r;
        for (std::int32_t q : {b.Familles[f].Femme, b.Familles[f].Mari})
            if (q > 0 && q <= haut) r.push_back(q);
        return r;
    };
    std::int32_t meilleure = 0;
    std::vector<std::int32_t> pile;
    for (std::int32_t n = 1; n <= b.NbPersos; ++n) {
        if (!PersonneExiste(b, n) || etat[n] == 2) continue;
        pile.push_back(n);
        while (!pile.empty()) {
            const std::int32_t p = pile.back();
            if (etat[p] == 0) {
                etat[p] = 1;
                for (std::int32_t q : parents(p))
                    if (etat[q] == 0) pile.push_back(q);
                continue;
            }
            pile.pop_back();
            if (etat[p] == 2) continue;
            double total = 1;
            for (std::int32_t q : parents(p))
                if (etat[q] == 2) total += memo[q];
            memo[p] = total;
            etat[p] = 2;
        }
    }
    for (std::int32_t n = 1; n <= b.NbPersos; ++n)
        if (memo[n] > visites) {
            visites = memo[n];
            meilleure = n;
        }
    return meilleure;
}

void FichierRoyal(const std::string& chemin) {
    Base base;
    if (!bench::ChargerFichier(base, chemin)) return;
    double attendues = 0;
    const std::int32_t n = PlusDeChemins(base, attendues);
    std::printf("%s : la personne %d (%s %s) a le plus de chemins d'ascendants : %.0f visites prévues\n",
                chemin.c_str(), n, base.Persos[n].Prenoms.c_str(), base.Persos[n].Nom.c_str(), attendues - 1);
    bench::Chrono c;
    const Ascendance a = NumeroterAscendants(base, {n});
    std::printf("Numérotation Sosa de %d : %d visites, %zu rangées, %.3f s\n", n, a.NbAncetres,
                a.liste.Rangees.size(), c.Secondes());
}

}  // namespace

int main(int argc, char** argv) {
    const std::string grand = bench::FichierDuBanc(argc, argv);
    const std::string royal = argc > 2 ? argv[2] : std::string(ARBOLIX_CORPUS) + "/gedcom/royal92.ged";
    GrandFichier(grand);
    FichierRoyal(royal);
    return 0;
}
