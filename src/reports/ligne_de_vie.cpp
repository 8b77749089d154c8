#include "reports/ligne_de_vie.h"

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

struct Remplissage {
    const Base& base;
    const Options& options;
    ListePersonne& liste;

    void Ajouter(const Acte& a, std::string_view quoi, std::string_view role, const std::string& qui,
                 std::string_view symbole, std::int32_t numero) {
        if (a.Date.empty() || !EstChiffre(a.Date[0])) return;
        std::string t = a.DateTri + " " + std::string(quoi) + " de " + std::string(role) + " " + qui;
        if (!a.Lieu.empty()) t += " \xE0 " + a.Lieu;
        t += " " + std::string(symbole);
        AjouterSixChiffres(t, numero);
        AjouterTriee(liste, std::move(t), numero);
    }

    void Personne(std::int32_t n, std::string_view role) {
        const Perso& p = PersoLu(base, n);
        const std::string qui = p.Nom + " " + p.Prenoms;
        Ajouter(p.Naissance, "naissance", role, qui, options.SymbNais, n);
        Ajouter(p.Bapteme, "bapt\xEAme", role, qui, options.SymbBapt, n);
        Ajouter(p.Deces,
                "d\xE9"
                "c\xE8s",
                role, qui, options.SymbDece, n);
        Ajouter(p.Sepulture, "s\xE9pulture", role, qui, options.SymbSepu, n);
    }

    void Famille(std::int32_t f, std::string_view role) {
        const Fami& fam = FamiLue(base, f);
        const Perso& m = PersoLu(base, fam.Mari);
        const Perso& e = PersoLu(base, fam.Femme);
        const std::string qui = m.Nom + " " + m.Prenoms + " et " + e.Nom + " " + e.Prenoms;
        Ajouter(fam.Mariage, "mariage", role, qui, options.SymbMari, f);
        Ajouter(fam.Contrat, "contrat de mariage", role, qui, options.SymbCoMa, f);
        Ajouter(fam.Divorce, "divorce", role, qui, options.SymbDivo, f);
    }
};

// La queue de la rangée : un blanc, le symbole de l'évènement et six chiffres (ou plus).
std::size_t LongueurQueue(const Options& o, std::string_view rangee, std::int32_t numero) {
    std::string chiffres;
    AjouterSixChiffres(chiffres, numero);
    for (const std::string* s :
         {&o.SymbNais, &o.SymbBapt, &o.SymbDece, &o.SymbSepu, &o.SymbMari, &o.SymbCoMa, &o.SymbDivo}) {
        const std::string queue = " " + *s + chiffres;
        if (rangee.size() >= queue.size() && rangee.substr(rangee.size() - queue.size()) == queue)
            return queue.size();
    }
    return std::min<std::size_t>(8, rangee.size());
}

}  // namespace

ListePersonne ListeLigneDeVie(const Base& base, const Options& options, std::int32_t personne,
                              std::string_view titre) {
    ListePersonne liste;
    OuvrirListe(liste, "lignevie", titre, " Exporter...", true);
    Remplissage r{base, options, liste};
    const Perso& p = PersoLu(base, personne);
    r.Personne(personne, "");
    if (p.NumParents > 0) {
        const Fami& parents = FamiLue(base, p.NumParents);
        r.Famille(p.NumParents, "ses parents");
        r.Personne(parents.Mari, "son p\xE8re");
        r.Personne(parents.Femme, "sa m\xE8re");
    }
    const bool femme = p.Sexe == 'F';
    for (int u = 1; u <= kMaxUnions && p.Unions[u] >= 1; ++u) {
        const Fami& f = FamiLue(base, p.Unions[u]);
        r.Famille(p.Unions[u], "");
        r.Personne(femme ? f.Mari : f.Femme, femme ? "son conjoint" : "sa conjointe");
        for (int e = 1; e <= kMaxEnfants && f.Enfants(e) >= 1; ++e) {
            const std::int32_t c = f.Enfants(e);
            r.Personne(c, "son enfant");
            const Perso& enfant = PersoLu(base, c);
            for (int v = 1; v <= kMaxUnions && enfant.Unions[v] >= 1; ++v)
                r.Famille(enfant.Unions[v], "son enfant");
        }
    }
    // "aaaa/mm/jj reste" devient "jj/mm/aaaa reste" : la clé a trié, la date se lit.
    for (std::size_t i = 1; i < liste.Rangees.size(); ++i) {
        std::string& t = liste.Rangees[i].texte;
        if (t.find('/') == std::string::npos || t.size() < 10) continue;
        t = t.substr(8, 2) + t.substr(4, 4) + t.substr(0, 4) + t.substr(10);
    }
    return liste;
}

std::string TexteLigneDeVie(const ContexteExport& ctx, const ListePersonne& liste) {
    TexteRapport f;
    const Perso& p = PersoLu(ctx.base, ctx.NumPerso);
    f.Ligne("Ligne de vie de " + p.Nom + " " + p.Prenoms + " \xE9tablie le " + DateDuRapport(ctx));
    f.Ligne();
    EcrireTexteComp(ctx, f);
    for (std::size_t i = 1; i < liste.Rangees.size(); ++i) {
        TourDeBoucle(ctx, static_cast<std::uint32_t>(i));
        const std::string& t = liste.Rangees[i].texte;
        f.Ligne(
            std::string_view(t).substr(0, t.size() - LongueurQueue(ctx.options, t, liste.Rangees[i].valeur)));
    }
    return f.Fermer();
}

}  // namespace arbolix
