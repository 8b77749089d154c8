#include "reports/isoles.h"

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "reports/blocs_personne.h"

namespace arbolix {

ListePersonne ListeIsoles(const Base& base, const Options& options, std::string_view titre) {
    ListePersonne liste;
    OuvrirListe(liste, "isoles", titre, " Exporter...", true);
    std::vector<Rangee> rangees;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = base.Persos[n];
        if (p.Sel == 0 || p.NumParents != 0 || p.Unions[1] != 0 || !PersonneExiste(base, n)) return;
        std::string t = LigneListe(base, options, n);
        AjouterQueue(t, 'P', n);
        rangees.push_back({std::move(t), n});
    });
    AjouterTriees(liste, std::move(rangees));
    liste.Titre = std::string(titre) + " " + std::to_string(liste.Rangees.size() - 1) + " personnes";
    return liste;
}

std::string TexteIsoles(const ContexteExport& ctx, const ListePersonne& liste) {
    TexteRapport f;
    f.Ligne(
        "Liste des personnes isol\xE9"
        "es \xE9tablie le " +
        DateDuRapport(ctx));
    f.Ligne();
    FormePersonne forme{.sep = "\r\n", .fin = "\r\n"};
    forme.saufDecede = ctx.exports.OptionSaufDecede;
    for (std::size_t i = 1; i < liste.Rangees.size(); ++i) {
        TourDeBoucle(ctx, static_cast<std::uint32_t>(i));
        EcrirePersonne(ctx, liste.Rangees[i].valeur, f, forme);
        f.Ligne();
    }
    f.Ligne(std::to_string(liste.Rangees.size() - 1) + " personnes.");
    return f.Fermer();
}

}  // namespace arbolix
