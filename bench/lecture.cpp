// Lecture d'un fichier d'un million de personnes : temps, mémoire, octets par personne.
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

#include "gedcom/lecteur.h"
#include "generer_gedcom.h"
#include "mesures.h"
#include "platform/progression.h"

using namespace arbolix;

// bench_lecture [PERSONNES [garder]]
int main(int argc, char** argv) {
    const std::int32_t personnes = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    const std::string chemin = "/tmp/arbolix-bench-" + std::to_string(personnes) + ".ged";
    {
        bench::Chrono c;
        const std::string texte = bench::GenererGedcom(personnes);
        std::ofstream(chemin, std::ios::binary) << texte;
        std::printf("fichier %s : %.1f Mo, g\xC3\xA9n\xC3\xA9r\xC3\xA9 en %.2f s\n", chemin.c_str(),
                    static_cast<double>(texte.size()) / 1e6, c.Secondes());
    }
    const double avant = bench::MemoireActuelleMo();
    Base base;
    Options options;
    OptionsGedcom cases;
    cases.Fichier = chemin;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    bench::Chrono c;
    const ResultatLecture r = LireGedcom(base, ctx);
    const double secondes = c.Secondes();
    const double apres = bench::MemoireActuelleMo();
    std::printf("lecture : %.2f s, %d personnes, %d familles, journal %zu octets\n", secondes, base.NbPersosReels,
                base.NbFamisReels, r.Journal.size());
    std::printf("m\xC3\xA9moire : pointe %.0f Mo, base %.0f Mo, %.0f octets par personne\n", bench::MemoirePointeMo(),
                apres - avant, (apres - avant) * 1024 * 1024 / personnes);
    // "garder" laisse le fichier pour mesurer son ouverture dans la fenêtre.
    if (argc <= 2 || std::string(argv[2]) != "garder") std::remove(chemin.c_str());
    return 0;
}
