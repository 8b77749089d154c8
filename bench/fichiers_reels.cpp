// Fichiers de forme réelle (notes, sources, témoins, implexes, dates républicaines) : lecture,
// lecture par arbolix-cli avec son journal, enregistrement et liste des personnes, chaque étape
// dans son propre processus pour que la mémoire de pointe soit la sienne, comparée à une simple
// découpe du fichier en lignes et balises mesurée dans la même passe.
//
// bench_fichiers_reels [PERSONNES...]       (10000 100000 1000000 par défaut)
// Les fichiers sont faits une fois par gen_gedcom.py (graine 1) et gardés dans /tmp.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "gedcom/ecrivain.h"
#include "gedcom/enregistrement.h"
#include "gedcom/lecteur.h"
#include "lists/listes.h"
#include "mesures.h"
#include "platform/progression.h"
#include "store/selection.h"

extern char** environ;

using namespace arbolix;

namespace {

std::string LireFichier(const std::string& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    std::ostringstream o;
    o << f.rdbuf();
    return o.str();
}

// La référence : tout le fichier lu, coupé en lignes, le niveau et la balise de chacune repérés.
double Decoupe(const std::string& chemin) {
    bench::Chrono c;
    const std::string texte = LireFichier(chemin);
    std::size_t balises = 0;
    for (std::size_t debut = 0; debut < texte.size();) {
        std::size_t fin = texte.find('\n', debut);
        if (fin == std::string::npos) fin = texte.size();
        const std::size_t blanc = texte.find(' ', debut);
        if (blanc < fin && texte[debut] >= '0' && texte[debut] <= '9')
            balises += texte.find(' ', blanc + 1) > blanc;
        debut = fin + 1;
    }
    if (balises == 0) std::printf("(aucune balise ?)\n");
    return c.Secondes();
}

void Charger(Base& base, const std::string& chemin, bool remplirListes) {
    Options options;
    OptionsGedcom cases;
    cases.Fichier = chemin;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    ctx.remplirListes = remplirListes;
    LireGedcom(base, ctx);
    ToutSelectionner(base);
}

// Une étape dans le processus enfant : rend ses secondes, sans le chargement qui la précède.
double Etape(const std::string& etape, const std::string& chemin) {
    if (etape == "decoupe") return Decoupe(chemin);
    Base base;
    bench::Chrono c;
    Charger(base, chemin, true);
    if (etape == "lecture") return c.Secondes();
    if (etape == "enregistrement") {
        OptionsGedcom cases;
        cases.Fichier = chemin + ".enregistre.ged";
        const ContexteEcriture ctx{cases, EnteteArbolix(), "01/01/2000"};
        c = bench::Chrono();
        EcrireFichierSur(cases.Fichier, [&](std::ostream& flux) { return EcrireGedcom(base, ctx, flux); });
        const double s = c.Secondes();
        std::filesystem::remove(cases.Fichier);
        return s;
    }
    Options options;
    ReponsesListes reponses;
    ContexteListe ctx(options, reponses);
    ListePersonne liste;
    c = bench::Chrono();
    ChercherEtLister(base, ctx, QuoiListe::Persos, liste);
    return c.Secondes();
}

struct Mesure {
    double secondes = 0;  // l'étape seule, ou tout le processus pour une commande
    double pointeMo = 0;
};

// Lance argv, sortie standard jetée ; temps écoulé et pointe de mémoire de l'enfant.
// L'enfant qui mesure lui-même son étape l'écrit sur sa sortie d'erreur.
Mesure Lancer(std::vector<std::string> args, bool etapeMesuree) {
    const std::string sortieEtape = std::filesystem::temp_directory_path() / "arbolix-bench-etape.txt";
    std::vector<char*> argv;
    for (auto& a : args) argv.push_back(a.data());
    argv.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&actions, 2, sortieEtape.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    bench::Chrono c;
    pid_t pid = 0;
    Mesure m;
    if (posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ) != 0) {
        std::printf("impossible de lancer %s\n", argv[0]);
        return m;
    }
    int etat = 0;
    rusage r{};
    wait4(pid, &etat, 0, &r);
    m.secondes = c.Secondes();
    m.pointeMo = static_cast<double>(r.ru_maxrss) / 1024.0;
    posix_spawn_file_actions_destroy(&actions);
    if (etapeMesuree) std::sscanf(LireFichier(sortieEtape).c_str(), "%lf", &m.secondes);
    if (!WIFEXITED(etat) || WEXITSTATUS(etat) != 0) std::printf("  (%s a échoué)\n", argv[0]);
    return m;
}

std::string Fichier(std::int32_t personnes) {
    const std::string chemin = "/tmp/arbolix-reel-" + std::to_string(personnes) + ".ged";
    if (!std::filesystem::exists(chemin)) {
        const std::string commande = "python3 " ARBOLIX_OUTILS "/gen_gedcom.py --persons " +
                                     std::to_string(personnes) + " --seed 1 --out " + chemin + " >/dev/null";
        if (std::system(commande.c_str()) != 0) std::printf("gen_gedcom.py a échoué\n");
    }
    return chemin;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string moi = std::filesystem::canonical("/proc/self/exe");
    if (argc == 4 && std::string(argv[1]) == "--etape") {
        std::fprintf(stderr, "%.4f\n", Etape(argv[2], argv[3]));
        return 0;
    }
    std::vector<std::int32_t> tailles;
    for (int i = 1; i < argc; ++i) tailles.push_back(std::atoi(argv[i]));
    if (tailles.empty()) tailles = {10'000, 100'000, 1'000'000};
    const std::string cli = (std::filesystem::path(moi).parent_path().parent_path() / "arbolix-cli").string();
    const char* etapes[] = {"lecture", "cli lire", "enregistrement", "liste"};
    std::map<std::string, double> precedent;
    std::int32_t personnesPrecedentes = 0;
    for (std::int32_t personnes : tailles) {
        const std::string chemin = Fichier(personnes);
        const double decoupe = Lancer({moi, "--etape", "decoupe", chemin}, true).secondes;
        std::printf(
            "%d personnes, %.0f Mo : d\xC3\xA9"
            "coupe en lignes %.2f s\n",
            personnes, static_cast<double>(std::filesystem::file_size(chemin)) / 1e6, decoupe);
        for (const std::string etape : etapes) {
            const Mesure m = etape == "cli lire" ? Lancer({cli, "lire", chemin}, false)
                                                 : Lancer({moi, "--etape", etape, chemin}, true);
            std::printf(
                "  %-15s %6.2f s  %5.1f\xC3\x97 d\xC3\xA9"
                "coupe  pointe %5.0f Mo  %5.0f o/personne",
                etape.c_str(), m.secondes, m.secondes / decoupe, m.pointeMo,
                m.pointeMo * 1024 * 1024 / personnes);
            if (personnesPrecedentes > 0 && precedent[etape] > 0)
                std::printf("  %.1f\xC3\x97 le temps pour %.0f\xC3\x97 les personnes",
                            m.secondes / precedent[etape],
                            static_cast<double>(personnes) / personnesPrecedentes);
            std::printf("\n");
            precedent[etape] = m.secondes;
        }
        personnesPrecedentes = personnes;
    }
    return 0;
}
