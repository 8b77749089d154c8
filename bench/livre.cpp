// Le livre des familles de toute la base d'un fichier de 100 000 personnes, et la descendance de la
// personne 1 d'un fichier d'un million (blocs et phrases), du calcul aux octets prêts à écrire.
//
// bench_livre [LIVRE.ged [DESCENDANCE.ged]]
// Les fichiers viennent de gen_gedcom.py --persons 100000 (et 1000000) --seed 1, gardés dans /tmp.
#include "reports/livre.h"

#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "charger.h"
#include "mesures.h"
#include "reports/descendance.h"
#include "store/selection.h"

using namespace arbolix;

namespace {

// Le meilleur de deux passes : la première paie les pages froides. Le temps processeur à côté du
// temps écoulé : la machine des essais est partagée.
void Mesurer(const char* quoi, const std::function<std::string()>& rapport) {
    double meilleur = 1e9, processeur = 1e9;
    std::size_t octets = 0;
    for (int passe = 0; passe < 2; ++passe) {
        bench::Chrono c;
        bench::Processeur cpu;
        octets = rapport().size();
        processeur = std::min(processeur, cpu());
        meilleur = std::min(meilleur, c.Secondes());
    }
    std::printf("%s : %.1f Mo, %.3f s (processeur %.3f s)\n", quoi, octets / 1e6, meilleur, processeur);
}

// Une descendance d'un seul tenant : chaque descendant épouse un conjoint et a deux enfants, jusqu'à
// n personnes. Le fichier engendré n'en a pas : sa personne 1 est la plus jeune.
void DescendanceSynthetique(Base& base, std::int32_t n) {
    RedimensionnerBase(base, n + 10);
    const auto personne = [&](std::int32_t p, char sexe, int annee) {
        Perso& q = base.Persos[p];
        q.Nom = "MARTIN";
        q.Prenoms = sexe == 'M' ? "Jean Pierre" : "Marie Louise";
        q.CodeNom = "M635";
        q.Sexe = sexe;
        q.Naissance.Date = "12/03/" + std::to_string(annee);
        q.Naissance.Annee = static_cast<std::int16_t>(annee);
        q.Naissance.Lieu = "Saint-\xC9milion";
        q.Metier = "laboureur";
    };
    personne(1, 'M', 1500);
    std::int32_t suivant = 2, familles = 0;
    std::vector<std::int32_t> descendants{1};
    for (std::size_t i = 0; i < descendants.size() && suivant + 2 <= n; ++i) {
        const std::int32_t p = descendants[i];
        const Perso& q = std::as_const(base.Persos)[p];
        const int annee = q.Naissance.Annee + 25;
        const std::int32_t conjoint = suivant++, f = ++familles;
        personne(conjoint, q.Sexe == 'M' ? 'F' : 'M', annee - 25);
        Fami& fa = base.Familles[f];
        fa.Mari = q.Sexe == 'M' ? p : conjoint;
        fa.Femme = q.Sexe == 'M' ? conjoint : p;
        fa.Mariage.Date = std::to_string(annee);
        fa.Mariage.Lieu = "Nancy";
        base.Persos[p].Unions[1] = base.Persos[conjoint].Unions[1] = f;
        for (int e = 1; e <= 2; ++e) {
            const std::int32_t c = suivant++;
            personne(c, e == 1 ? 'M' : 'F', annee);
            base.Persos[c].NumParents = f;
            fa.Enfants.Fixer(e, c);
            descendants.push_back(c);
        }
    }
    base.NbPersos = base.NbPersosReels = suivant - 1;
    base.NbFamis = base.NbFamisReels = familles;
}

bool Charger(Base& base, const std::string& chemin) {
    if (!bench::ChargerEtAnnoncer(base, chemin)) return false;
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string livre = argc > 1 ? argv[1] : "/tmp/arbolix-reel-100000.ged";
    const std::string descendance = argc > 2 ? argv[2] : "/tmp/arbolix-reel-1000000.ged";
    Options options;
    OptionsExport exports;
    exports.TitreExport = "Livre des familles";
    {
        Base base;
        if (!Charger(base, livre)) return 1;
        ToutSelectionner(base);
        ContexteExport ctx{base, options, exports, {23, 11, 2026}};
        ctx.TypeExport = kLivre;
        for (const char* colonnes : {"1", "2"}) {
            exports.ComboColRTF = {colonnes, colonnes};
            const std::string quoi = std::string("Livre des familles, ") + colonnes + " colonne(s)";
            Mesurer(quoi.c_str(), [&] { return RtfLivre(ctx, ctx.livre); });
        }
    }
    Base base;
    if (!Charger(base, descendance)) return 1;
    ContexteExport ctx{base, options, exports, {23, 11, 2026}};
    ctx.TypeExport = kDescendance;
    // La personne 1 du fichier engendré est la plus jeune : sa descendance est vide. Le premier
    // ancêtre de sa lignée paternelle porte, lui, tout l'arbre.
    std::int32_t ancetre = 1;
    for (std::int32_t pere = 1; pere > 0;) {
        ancetre = pere;
        const std::int32_t f = std::as_const(base.Persos)[pere].NumParents;
        pere = f > 0 && f <= base.Familles.Haut() ? std::as_const(base.Familles)[f].Mari : 0;
    }
    for (const auto& [racine, tous] :
         {std::pair{1, false}, std::pair{ancetre, false}, std::pair{ancetre, true}}) {
        ctx.NumPerso = racine;
        options.SelTousDesc = tous;
        bench::Chrono parcours;
        const Descendance d = ParcourirDescendance(base, options, racine);
        std::printf("Descendance de %d%s : %d descendants, %zu unions, parcours %.3f s\n", racine,
                    tous ? " (tous)" : "", d.compte, d.rangees.size(), parcours.Secondes());
        Mesurer("  texte", [&] { return TexteDescendance(ctx); });
        exports.Toutes = false;
        Mesurer("  RTF en blocs", [&] { return RtfDescendance(ctx); });
        exports.Toutes = true;
        Mesurer("  RTF en phrases", [&] { return RtfDescendance(ctx); });
    }
    Base synthese;
    DescendanceSynthetique(synthese, 1000000);
    ContexteExport s{synthese, options, exports, {23, 11, 2026}};
    s.TypeExport = kDescendance;
    s.NumPerso = 1;
    options.SelTousDesc = false;
    bench::Chrono parcours;
    const Descendance d = ParcourirDescendance(synthese, options, 1);
    std::printf("Descendance synth\xC3\xA9tique de 1 : %d descendants, %zu unions, parcours %.3f s\n",
                d.compte, d.rangees.size(), parcours.Secondes());
    Mesurer("  texte", [&] { return TexteDescendance(s); });
    exports.Toutes = false;
    Mesurer("  RTF en blocs", [&] { return RtfDescendance(s); });
    exports.Toutes = true;
    Mesurer("  RTF en phrases", [&] { return RtfDescendance(s); });
    return 0;
}
