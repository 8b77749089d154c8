// Banc d'essai des tables TMAO : une table de 50 000 actes écrite par notre écrivain, puis lue et
// convertie en GEDCOM et en texte, en mémoire. bench_tmao [NOMBRE]
#include "acts/tmao.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "acts/conversion_tmao.h"
#include "mesures.h"

using namespace arbolix;

namespace {

// Des actes variés et pleins : noms, prénoms avec âge, quatre lignes chacun.
std::vector<ActeTMAO> Actes(int nombre) {
    std::vector<ActeTMAO> actes(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i) {
        ActeTMAO& a = actes[static_cast<std::size_t>(i)];
        const std::string n = std::to_string(i);
        a.Nom1 = "DUPONT" + n;
        a.Prenom1 = PrenomAvecAge("Jean-Baptiste", std::to_string(20 + i % 50));
        a.Lignes1 = {"fils de Pierre " + n, "laboureur \xE0 Toul", "", "domicili\xE9 \xE0 Nancy"};
        a.Nom2 = "MARTIN" + n;
        a.Prenom2 = "Marie-\xC9lise";
        a.Lignes2 = {"fille de Claude", "", "veuve de Paul", ""};
        a.Jour = 1 + i % 28;
        a.Mois = 1 + i % 12;
        a.Annee = i % 20 == 0 ? 1 + i % 14 : 1700 + i % 200;
        a.LignesActe = {"t\xE9moins : Paul, Jacques", "", "registre " + n, "f\xB0 " + n};
    }
    return actes;
}

}  // namespace

int main(int argc, char** argv) {
    const int nombre = argc > 1 ? std::atoi(argv[1]) : 50000;
    const std::string octets = EcrireTMAO(Actes(nombre), PiedTMAO('M'));
    std::printf("table de %d actes : %.1f Mo\n", nombre, static_cast<double>(octets.size()) / (1 << 20));
    const EnteteConversion e{"M54123.TM", 'M', "Nancy", "01/02/2026"};
    struct Sortie {
        const char* nom;
        std::string (*produire)(const std::vector<ActeTMAO>&, const EnteteConversion&);
    };
    for (const Sortie s : {Sortie{"GEDCOM", GedcomTMAO}, Sortie{"texte", TexteTMAO}}) {
        bench::Chrono chrono;
        bench::Processeur processeur;
        const LectureTMAO l = LireTMAO(octets, "M54123.TM");
        const std::string texte = s.produire(l.Actes, e);
        std::printf("lecture et conversion en %s : %.3f s [%.3f s de calcul], %zu actes, %.1f Mo\n", s.nom,
                    chrono.Secondes(), processeur(), l.Actes.size(),
                    static_cast<double>(texte.size()) / (1 << 20));
    }
    std::printf("m\xC3\xA9moire de pointe : %.0f Mo\n", bench::MemoirePointeMo());
    return 0;
}
