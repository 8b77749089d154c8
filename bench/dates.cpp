// Lecture des dates seule : les valeurs DATE d'un fichier relues par ParseDate, par le raccourci
// des formes courantes puis par la lecture complète, en temps de calcul par date.
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "charger.h"
#include "dates/parse_date.h"
#include "mesures.h"

using namespace arbolix;

namespace {

// Les valeurs des lignes "n DATE ..." du fichier, telles quelles.
std::vector<std::string> ValeursDate(const std::string& chemin) {
    std::vector<std::string> valeurs;
    std::ifstream f(chemin, std::ios::binary);
    for (std::string ligne; std::getline(f, ligne);) {
        if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
        if (ligne.size() > 7 && ligne.compare(1, 6, " DATE ") == 0) valeurs.push_back(ligne.substr(7));
    }
    return valeurs;
}

// Comme le lecteur de fichier : formulaire Gedcom affiché, conversion républicaine du réglage.
ContexteDate ContexteDuLecteur(std::string& journal) {
    ContexteDate ctx;
    ctx.Ligne1 = "1 BIRT";
    ctx.GedcomVisible = true;
    ctx.ConvCalRep = true;
    ctx.Journal = &journal;
    return ctx;
}

template <typename Lire>
double SecondesPour(const std::vector<std::string>& valeurs, Lire lire) {
    std::string journal;
    const ContexteDate ctx = ContexteDuLecteur(journal);
    bench::Processeur processeur;
    for (const auto& v : valeurs) {
        Acte a;
        lire(v, a, ctx);
    }
    return processeur();
}

}  // namespace

// bench_dates [FICHIER.ged] ; par défaut le fichier d'un million de personnes de gen_gedcom.py.
int main(int argc, char** argv) {
    const std::vector<std::string> valeurs = ValeursDate(bench::FichierDuBanc(argc, argv));
    if (valeurs.empty()) {
        std::printf("aucune ligne DATE\n");
        return 1;
    }
    std::size_t courantes = 0;
    {
        std::string journal;
        const ContexteDate ctx = ContexteDuLecteur(journal);
        for (const auto& v : valeurs) {
            Acte a;
            courantes += ParseDateCourante(v, a, ctx) ? 1 : 0;
        }
    }
    const double n = static_cast<double>(valeurs.size());
    std::printf("%zu dates, %.1f %% de formes courantes\n", valeurs.size(), 100.0 * courantes / n);
    const double parse = SecondesPour(valeurs, ParseDate);
    const double complete = SecondesPour(valeurs, ParseDateComplete);
    std::printf("ParseDate          %.3f s de calcul, %4.0f ns par date\n", parse, 1e9 * parse / n);
    std::printf("lecture compl\xC3\xA8te   %.3f s de calcul, %4.0f ns par date\n", complete,
                1e9 * complete / n);
    return 0;
}
