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

#include "charger.h"
#include "mesures.h"
#include "reports/descendance.h"
#include "store/selection.h"

using namespace arbolix;

namespace {

// Le meilleur de deux passes : la première paie les pages froides.
void Mesurer(const char* quoi, const std::function<std::string()>& rapport) {
    double meilleur = 1e9;
    std::size_t octets = 0;
    for (int passe = 0; passe < 2; ++passe) {
        bench::Chrono c;
        octets = rapport().size();
        meilleur = std::min(meilleur, c.Secondes());
    }
    std::printf("%s : %.1f Mo, %.3f s\n", quoi, octets / 1e6, meilleur);
}

bool Charger(Base& base, const std::string& chemin) {
    bench::Chrono lecture;
    if (!bench::ChargerFichier(base, chemin)) return false;
    std::printf("%s : %d personnes lues en %.1f s\n", chemin.c_str(), base.NbPersosReels, lecture.Secondes());
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
    return 0;
}
