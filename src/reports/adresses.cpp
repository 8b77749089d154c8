#include "reports/adresses.h"

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "lists/rangees.h"

namespace arbolix {

namespace {

bool AUneAdresse(const PersoSuite& s) {
    return !s.Adresse1.empty() || !s.Adresse2.empty() || !s.Ville.empty() || !s.Telephone.empty() ||
           !s.EMail.empty() || !s.URL.empty();
}

}  // namespace

std::string TexteAdresses(const ContexteExport& ctx) {
    const Base& base = ctx.base;
    ListePersonne liste;
    OuvrirListe(liste, "adresses", "", "", true);
    std::vector<Rangee> rangees;
    std::uint32_t tour = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        TourDeBoucle(ctx, ++tour);
        const Perso& p = base.Persos[n];
        if (p.Nom.empty() || p.Sel == 0 || !AUneAdresse(p.Suite())) return;
        std::string t = p.Nom + " " + p.Prenoms;
        AjouterQueue(t, 'P', n);
        rangees.push_back({std::move(t), n});
    });
    AjouterTriees(liste, std::move(rangees));

    TexteRapport f;
    f.Ligne("Adresses contenues dans " + ctx.FichierGedcom + " :");
    f.Ligne("S\xE9lection active : " + ctx.LibelleSel);
    f.Ligne("tableau \xE9tabli le " + DateDuRapport(ctx));
    const bool toutes = ctx.exports.Toutes;
    f.Ligne(std::string("NOM Prenoms\t") + (toutes ? "Telephone\tAdresse E-mail\tSite internet\t" : "") +
            "Adresse ligne1\tAdresse ligne2\tEtat\tCode postal\tVille\tPays");
    for (const Rangee& r : liste.Rangees) {
        TourDeBoucle(ctx, ++tour);
        const Perso& p = PersoLu(base, r.valeur);
        const PersoSuite& s = p.Suite();
        const std::string_view prenoms = p.Prenoms.vue();
        std::string t = p.Nom + " " + std::string(prenoms.substr(0, prenoms.find(' '))) + "\t";
        if (toutes) t += s.Telephone + "\t" + s.EMail + "\t" + s.URL + "\t";
        t += s.Adresse1 + "\t" + s.Adresse2 + "\t" + s.Etat + "\t" + s.CP + "\t" + s.Ville + "\t" + s.Pays;
        f.Ligne(t);
    }
    return f.Fermer();
}

}  // namespace arbolix
