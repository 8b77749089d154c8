// Recherche d'actes et remplacement de lieux : temps sur un gros fichier.
#include <cstdio>
#include <string>

#include "charger.h"
#include "lists/recherche_actes.h"
#include "lists/remplacer.h"
#include "mesures.h"
#include "platform/cp1252.h"

using namespace arbolix;

// bench_actes [FICHIER.ged] ; par défaut le fichier d'un million de personnes de gen_gedcom.py.
int main(int argc, char** argv) {
    const std::string chemin = bench::FichierDuBanc(argc, argv);
    Base base;
    bench::Chrono lecture;
    if (!bench::ChargerFichier(base, chemin, true)) return 1;
    std::printf("lecture : %.2f s, %d personnes, %d familles\n", lecture.Secondes(), base.NbPersosReels,
                base.NbFamisReels);

    bench::Processeur processeur;
    const Options options;
    // Tous les types, toutes les années, en liste, triés par nom puis date.
    RechercheActes r;
    r.TypeActe[kCaseTous] = true;
    r.ListeTri = {0, 2};
    {
        bench::Chrono parcours;
        const std::size_t n = ChercherActes(base, r, true).size();
        std::printf(
            "parcours seul (sans tri ni rang\xC3\xA9"
            "es) : %.2f s (processeur %.2f s), %zu actes\n",
            parcours.Secondes(), processeur(), n);
    }
    for (const bool approx : {false, true}) {
        r.OptInclureApprox = approx;
        ListePersonne liste;
        bench::Chrono recherche;
        ListerActes(base, options, r, 0, false, liste);
        std::printf(
            "recherche de tous les actes%s : %.2f s (processeur %.2f s), %zu rang\xC3\xA9"
            "es, m\xC3\xA9moire %.0f Mo\n",
            approx ? " (dates approch\xC3\xA9"
                     "es comprises)"
                   : "",
            recherche.Secondes(), processeur(), liste.Rangees.size(), bench::MemoireActuelleMo());
    }

    // Le lieu le plus courant de la liste des lieux, remplacé partout sans regarder la casse.
    const std::vector<std::string> lieux = base.Listes.Lieu.Triee();
    if (lieux.empty()) return 0;
    const std::string ancien = lieux[lieux.size() / 2];
    bench::Chrono remplacement;
    const std::int32_t n = RemplacerLieux(base, ancien, ancien + " (remplac\xE9)");
    std::printf("remplacement du lieu \xC2\xAB %s \xC2\xBB : %.2f s (processeur %.2f s), %d remplacements\n",
                Cp1252VersUtf8(ancien).c_str(), remplacement.Secondes(), processeur(), n);
    bench::Chrono valeur;
    const std::int32_t m =
        RemplacerValeur(base, ChampRemp::Lieu, ancien + " (remplac\xE9)", ancien, 46000, nullptr);
    std::printf("remplacement d'une valeur de lieu : %.2f s (processeur %.2f s), %d fiches\n",
                valeur.Secondes(), processeur(), m);
    return 0;
}
