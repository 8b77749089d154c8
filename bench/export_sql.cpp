// Banc d'essai de l'export SQL : le script du livre d'un gros fichier, en mémoire puis sur le disque.
// bench_export_sql [F.ged] : par défaut /tmp/arbolix-reel-1000000.ged de gen_gedcom.py ; le script
// reste dans /tmp/F00001-Banc.sql pour bench/charger_mariadb.py.
#include "acts/export_sql.h"

#include <cstdio>
#include <ctime>
#include <filesystem>
#include <sstream>
#include <string>

#include "charger.h"
#include "gedcom/enregistrement.h"
#include "mesures.h"

using namespace arbolix;

int main(int argc, char** argv) {
    const std::string fichier = bench::FichierDuBanc(argc, argv);
    const std::string epa = (std::filesystem::temp_directory_path() / "F00001-Banc.EPA").string();
    const NomEPA nom = LireNomEPA(epa);
    Base b;
    bench::Chrono chrono;
    if (!bench::ChargerFichier(b, fichier)) return 1;
    std::printf("lecture de %s : %.2f s, %d personnes, %d familles\n", fichier.c_str(), chrono.Secondes(),
                b.NbPersosReels, b.NbFamisReels);

    // Un flux qui jette tout : le travail de l'export seul, sans disque.
    struct Puits : std::streambuf {
        std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
        int overflow(int c) override { return c; }
    } puits;
    std::ostream nul(&puits);
    // Le temps de calcul à côté du temps écoulé : la machine des bancs est partagée.
    chrono = bench::Chrono();
    const std::clock_t processeur = std::clock();
    CompteursSQL c = EcrireScriptSQL(b, nom, nul);
    const double calcul = static_cast<double>(std::clock() - processeur) / CLOCKS_PER_SEC;
    std::printf(
        "script vers un flux vide : %.3f s [%.3f s de calcul] (%d personnes, %d familles, %d "
        "\xC3\xA9v\xC3\xA8nements)\n",
        chrono.Secondes(), calcul, c.NbPersosSQL, c.NbFamisSQL, c.NbEvenements);

    // Le chemin de l'export : fichier temporaire, fsync, renommage.
    const std::string script = FichierScriptEPA(epa);
    chrono = bench::Chrono();
    const EtatFichier e = EcrireFichierSur(script, [&](std::ostream& o) {
        c = EcrireScriptSQL(b, nom, o);
        return static_cast<bool>(o);
    });
    const double s = chrono.Secondes();
    const double mo = static_cast<double>(std::filesystem::file_size(script)) / (1 << 20);
    std::printf("script vers %s : %.3f s, %.1f Mo, %.0f Mo/s%s\n", script.c_str(), s, mo, mo / s,
                e.Ok ? ""
                     : " - \xC3\xA9"
                       "chec");
    std::printf("m\xC3\xA9moire de pointe : %.0f Mo\n", bench::MemoirePointeMo());
    return e.Ok ? 0 : 1;
}
