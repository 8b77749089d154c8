// Fichiers de forme réelle (notes, sources, témoins, implexes, dates républicaines) : lecture,
// lecture par arbolix-cli avec son journal, enregistrement et liste des personnes, chaque étape
// dans son propre processus pour que la mémoire de pointe soit la sienne, comparée à une simple
// découpe du fichier en lignes et balises mesurée dans la même passe.
//
// bench_fichiers_reels [--fois N] [PERSONNES...]   (3 passes ; 10000 100000 1000000 par défaut)
// Les fichiers sont faits une fois par gen_gedcom.py (graine 1) et gardés dans /tmp.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "charger.h"
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

// D'un seul bloc, comme le lecteur ; memoire reçoit le temps pris à obtenir ce bloc.
std::string LireFichier(const std::string& chemin, double* memoire = nullptr) {
    const bench::Chrono chrono;
    std::string texte(std::filesystem::file_size(chemin), '\0');
    if (memoire) *memoire = chrono.Secondes();
    std::ifstream(chemin, std::ios::binary).read(texte.data(), static_cast<std::streamsize>(texte.size()));
    return texte;
}

// Temps de calcul du processus (utilisateur et système) : la machine partagée fausse le temps écoulé.
double SecondesCalcul(int qui) {
    rusage r{};
    getrusage(qui, &r);
    return static_cast<double>(r.ru_utime.tv_sec + r.ru_stime.tv_sec) +
           static_cast<double>(r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
}

// La référence : tout le fichier lu, coupé en lignes, le niveau et la balise de chacune repérés.
// Rend le temps pris à obtenir la mémoire du tampon : dans une machine virtuelle qui rend au système
// hôte la mémoire libérée, une première écriture coûte de quelques centièmes à plus d'une seconde
// pour 500 Mo selon l'heure, et la lecture en écrit davantage (sa pointe seule fait 1,7 fois le fichier).
double Decoupe(const std::string& chemin) {
    double secondesMemoire = 0;
    const std::string texte = LireFichier(chemin, &secondesMemoire);
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
    return secondesMemoire;
}

// Le départ d'une étape : temps écoulé et temps de calcul pris ensemble.
struct Depart {
    bench::Chrono chrono;
    double calcul = SecondesCalcul(RUSAGE_SELF);
    void Ecrire() const {
        std::fprintf(stderr, "%.4f %.4f\n", chrono.Secondes(), SecondesCalcul(RUSAGE_SELF) - calcul);
    }
};

// Une étape dans le processus enfant : écrit ses secondes, sans le chargement qui la précède.
void Etape(const std::string& etape, const std::string& chemin) {
    Depart c;
    if (etape == "decoupe") {
        const double memoire = Decoupe(chemin);
        std::fprintf(stderr, "%.4f %.4f %.4f\n", c.chrono.Secondes(), SecondesCalcul(RUSAGE_SELF) - c.calcul,
                     memoire);
        return;
    }
    Base base;
    bench::ChargerFichier(base, chemin, true);
    if (etape == "lecture") return c.Ecrire();
    if (etape == "enregistrement") {
        OptionsGedcom cases;
        cases.Fichier = chemin + ".enregistre.ged";
        const ContexteEcriture ctx{cases, EnteteArbolix(), "01/01/2000"};
        c = Depart();
        EcrireFichierSur(cases.Fichier, [&](std::ostream& flux) { return EcrireGedcom(base, ctx, flux); });
        c.Ecrire();
        std::filesystem::remove(cases.Fichier);
        return;
    }
    Options options;
    ReponsesListes reponses;
    ContexteListe ctx(options, reponses);
    ListePersonne liste;
    c = Depart();
    ChercherEtLister(base, ctx, QuoiListe::Persos, liste);
    c.Ecrire();
}

struct Mesure {
    double secondes = 0;  // l'étape seule, ou tout le processus pour une commande
    double calcul = 0;    // temps de calcul de la même chose
    double pointeMo = 0;
    double memoire = 0;  // la découpe : obtenir la mémoire de son tampon
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
    m.calcul = static_cast<double>(r.ru_utime.tv_sec + r.ru_stime.tv_sec) +
               static_cast<double>(r.ru_utime.tv_usec + r.ru_stime.tv_usec) / 1e6;
    m.pointeMo = static_cast<double>(r.ru_maxrss) / 1024.0;
    posix_spawn_file_actions_destroy(&actions);
    if (etapeMesuree)
        std::sscanf(LireFichier(sortieEtape).c_str(), "%lf %lf %lf", &m.secondes, &m.calcul, &m.memoire);
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

// Le meilleur de plusieurs passes : la machine est partagée, le bruit ne fait que ralentir.
Mesure Meilleure(int fois, const std::function<Mesure()>& passe) {
    Mesure m = passe();
    for (int i = 1; i < fois; ++i) {
        const Mesure n = passe();
        m.secondes = std::min(m.secondes, n.secondes);
        m.calcul = std::min(m.calcul, n.calcul);
        m.pointeMo = std::min(m.pointeMo, n.pointeMo);
        m.memoire = std::min(m.memoire, n.memoire);
    }
    return m;
}

}  // namespace

// bench_fichiers_reels [--fois N] [PERSONNES...]
int main(int argc, char** argv) {
    const std::string moi = std::filesystem::canonical("/proc/self/exe");
    if (argc == 4 && std::string(argv[1]) == "--etape") {
        Etape(argv[2], argv[3]);
        return 0;
    }
    int fois = 3;
    std::vector<std::int32_t> tailles;
    for (int i = 1; i < argc; ++i) {
        if (std::string(argv[i]) == "--fois" && i + 1 < argc)
            fois = std::max(1, std::atoi(argv[++i]));
        else
            tailles.push_back(std::atoi(argv[i]));
    }
    if (tailles.empty()) tailles = {10'000, 100'000, 1'000'000};
    const std::string cli = (std::filesystem::path(moi).parent_path().parent_path() / "arbolix-cli").string();
    const char* etapes[] = {"lecture", "cli lire", "enregistrement", "liste"};
    std::map<std::string, double> precedent;
    std::int32_t personnesPrecedentes = 0;
    // La lecture se fait en partie sur un second cœur : l'attente (temps écoulé) et le calcul (de
    // tous les fils) ne se confondent plus. Le rapport à la découpe est donné pour les deux.
    std::printf(
        "meilleur de %d passes ; entre crochets le temps de calcul de tous les fils ; rapport \xC3\xA0 la "
        "d\xC3\xA9"
        "coupe en temps \xC3\xA9"
        "coul\xC3\xA9 (en calcul) ; croissance en calcul\n",
        fois);
    for (std::int32_t personnes : tailles) {
        const std::string chemin = Fichier(personnes);
        const Mesure decoupe = Meilleure(fois, [&] {
            return Lancer({moi, "--etape", "decoupe", chemin}, true);
        });
        std::printf(
            "%d personnes, %.0f Mo : d\xC3\xA9"
            "coupe en lignes %.2f s [%.2f s], dont %.2f s pour obtenir sa m\xC3\xA9moire\n",
            personnes, static_cast<double>(std::filesystem::file_size(chemin)) / 1e6, decoupe.secondes,
            decoupe.calcul, decoupe.memoire);
        for (const std::string etape : etapes) {
            const Mesure m = Meilleure(fois, [&] {
                return etape == "cli lire" ? Lancer({cli, "lire", chemin}, false)
                                           : Lancer({moi, "--etape", etape, chemin}, true);
            });
            std::printf(
                "  %-15s %6.2f s [%6.2f s]  %5.1f\xC3\x97 d\xC3\xA9"
                "coupe (%.1f\xC3\x97)  pointe %5.0f Mo  %5.0f o/personne",
                etape.c_str(), m.secondes, m.calcul, m.secondes / decoupe.secondes, m.calcul / decoupe.calcul,
                m.pointeMo, m.pointeMo * 1024 * 1024 / personnes);
            if (personnesPrecedentes > 0 && precedent[etape] > 0)
                std::printf("  %.1f\xC3\x97 le calcul pour %.0f\xC3\x97 les personnes",
                            m.calcul / precedent[etape],
                            static_cast<double>(personnes) / personnesPrecedentes);
            std::printf("\n");
            std::fflush(stdout);
            precedent[etape] = m.calcul;
        }
        personnesPrecedentes = personnes;
    }
    return 0;
}
