// Vérification de tout un fichier et estimation des naissances vides : temps sur un gros fichier réel.
#include "verify/verification.h"

#include <cstdio>
#include <string>

#include "charger.h"
#include "mesures.h"
#include "platform/progression.h"
#include "verify/estimation.h"

using namespace arbolix;

// bench_verification [FICHIER.ged] ; par défaut le fichier d'un million de personnes de gen_gedcom.py.
int main(int argc, char** argv) {
    const std::string chemin = bench::FichierDuBanc(argc, argv);
    Base base;
    bench::Chrono lecture;
    if (!bench::ChargerFichier(base, chemin)) return 1;
    std::printf("lecture : %.2f s, %d personnes, %d familles\n", lecture.Secondes(), base.NbPersosReels,
                base.NbFamisReels);

    bench::Processeur processeur;
    const Options options;
    Progression muette;
    bench::Chrono verification;
    const ResultatVerification v = MenuVerifier(base, options, &muette, 0);
    std::printf("v\xC3\xA9rification : %.2f s (processeur %.2f s), rapport %zu octets, %d corrig\xC3\xA9s\n",
                verification.Secondes(), processeur(), v.Rapport.size(), v.Corriges);

    bench::Chrono estimation;
    ListePersonne liste;
    const ResultatEstimation e = CalculerActesVides(base, options, ActesVides::Naissances, false, liste);
    std::printf(
        "estimation des naissances : %.2f s (processeur %.2f s), %d calcul\xC3\xA9"
        "es, %d restantes\n",
        estimation.Secondes(), processeur(), e.Calcules, e.Restants);
    return 0;
}
