// Banc d'essai de l'écrivain : une base d'un million de personnes écrite en mémoire puis dans un fichier.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "gedcom/ecrivain.h"
#include "gedcom/enregistrement.h"
#include "mesures.h"
#include "store/base.h"

using namespace arbolix;

namespace {

constexpr const char* kPrenoms[] = {"Jean",  "Marie",        "Pierre",  "Anne",
                                    "Louis", "Fran\xE7oise", "Jacques", "Catherine"};
constexpr const char* kNoms[] = {"Dupont", "Martin", "Lef\xE8vre", "Bernard",
                                 "Durand", "Moreau", "Laurent",    "Roux"};
constexpr const char* kLieux[] = {"Rouen",  "Saint-\xC9tienne-du-Rouvray", "Caen", "Le Havre", "Bayeux",
                                  "Lisieux"};

std::string Date(std::int32_t graine, int annee) {
    char t[16];
    std::snprintf(t, sizeof t, "%02d/%02d/%04d", 1 + graine % 28, 1 + graine % 12, annee);
    return t;
}

// Des couples de deux personnes et leurs trois enfants, qui forment le couple suivant.
void Remplir(Base& b, std::int32_t nombre) {
    RedimensionnerBase(b, nombre + 10);
    for (std::int32_t n = 1; n <= nombre; ++n) {
        Perso& p = b.Persos[n];
        p.Prenoms = kPrenoms[n % 8];
        p.Nom = kNoms[(n / 8) % 8];
        p.Sexe = n % 2 ? 'M' : 'F';
        p.Sel = kVrai;
        const int annee = 1600 + n % 300;
        p.Naissance.Date = Date(n, annee);
        p.Naissance.Annee = static_cast<std::int16_t>(annee);
        p.Naissance.Lieu = kLieux[n % 6];
        if (n % 3) {
            p.Deces.Date = n % 5 ? Date(n * 7, annee + 60) : "vers " + std::to_string(annee + 60);
            p.Deces.Annee = static_cast<std::int16_t>(annee + 60);
            p.Deces.Lieu = kLieux[(n + 1) % 6];
        }
    }
    std::int32_t f = 0;
    for (std::int32_t mari = 1; mari + 4 <= nombre; mari += 5) {
        Fami& fa = b.Familles[++f];
        fa.Mari = mari;
        fa.Femme = mari + 1;
        fa.Sel = kVrai;
        fa.Mariage.Date = Date(mari, 1620 + mari % 300);
        fa.Mariage.Lieu = kLieux[mari % 6];
        b.Persos[mari].Unions[1] = f;
        b.Persos[mari + 1].Unions[1] = f;
        for (int e = 1; e <= 3; ++e) {
            fa.Enfants.Fixer(e, mari + 1 + e);
            b.Persos[mari + 1 + e].NumParents = f;
        }
    }
    b.NbPersos = b.NbPersosReels = nombre;
    b.NbFamis = b.NbFamisReels = f;
}

}  // namespace

int main(int argc, char** argv) {
    const std::int32_t nombre = argc > 1 ? std::atoi(argv[1]) : 1000000;
    Base b;
    bench::Chrono chrono;
    Remplir(b, nombre);
    std::printf("base : %d personnes, %d familles, remplie en %.2f s\n", b.NbPersos, b.NbFamis,
                chrono.Secondes());
    std::printf("m\xC3\xA9moire : %.0f Mo\n", bench::MemoireActuelleMo());

    OptionsGedcom cases;
    cases.Fichier = (std::filesystem::temp_directory_path() / "bench_ecriture.ged").string();
    const ContexteEcriture ctx{cases, EnteteArbolix(), "05/04/2024"};

    chrono = bench::Chrono();
    const std::string texte = EcrireGedcomTexte(b, ctx);
    double s = chrono.Secondes();
    const double mo = static_cast<double>(texte.size()) / (1 << 20);
    std::printf("EcrireGedcom en m\xC3\xA9moire : %.3f s, %.1f Mo, %.0f Mo/s\n", s, mo, mo / s);

    // Un flux qui jette tout : le travail de l'écrivain seul, sans disque.
    struct Puits : std::streambuf {
        std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
        int overflow(int c) override { return c; }
    } puits;
    std::ostream nul(&puits);
    chrono = bench::Chrono();
    EcrireGedcom(b, ctx, nul);
    s = chrono.Secondes();
    std::printf("EcrireGedcom vers un flux vide : %.3f s, %.0f Mo/s\n", s, mo / s);

    chrono = bench::Chrono();
    {
        std::ofstream f(cases.Fichier, std::ios::binary | std::ios::trunc);
        EcrireGedcom(b, ctx, f);
    }
    s = chrono.Secondes();
    std::printf("EcrireGedcom vers %s : %.3f s, %.0f Mo/s\n", cases.Fichier.c_str(), s, mo / s);

    // Le chemin d'un vrai enregistrement : fichier temporaire, fsync, renommage.
    chrono = bench::Chrono();
    const EtatFichier e =
        EcrireFichierSur(cases.Fichier, [&](std::ostream& flux) { return EcrireGedcom(b, ctx, flux); });
    s = chrono.Secondes();
    std::printf("EcrireFichierSur (temporaire, fsync, renommage) : %.3f s, %.0f Mo/s%s\n", s, mo / s,
                e.Ok ? ""
                     : " - \xC3\xA9"
                       "chec");
    std::filesystem::remove(cases.Fichier);
    return 0;
}
