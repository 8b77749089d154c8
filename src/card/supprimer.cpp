#include "card/supprimer.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "card/acte_courant.h"
#include "card/notes.h"
#include "store/liens.h"

namespace arbolix {

namespace {

// Les témoins d'un acte qui cite l'ancien, réécrits ; rien n'est touché sinon.
void RemplacerDansActe(Acte& a, std::int32_t ancien, std::int32_t nouveau) {
    if (!Contient(std::as_const(a).Liens().Temoins, ancien)) return;
    std::vector<Temoin> temoins;
    for (Temoin t : LireTemoins(a)) {
        if (t.numero == ancien) t.numero = nouveau;
        if (t.numero == 0) continue;
        const bool deja = std::any_of(temoins.begin(), temoins.end(),
                                      [&](const Temoin& v) { return v.numero == t.numero; });
        if (!deja) temoins.push_back(std::move(t));
    }
    EcrireTemoins(a, temoins);
}

// Fiches (notes, sources ou objets médias) dont une place de personne est tenue par p.
std::vector<std::int32_t> TenuesPar(const Base& base, char genre, std::int32_t p) {
    std::vector<std::int32_t> r;
    const auto voir = [&](std::int32_t n, const Retours& places) {
        if (Contient(places, p)) r.push_back(n);
    };
    if (genre == 'M')
        base.Medias.PourChaqueEcrit(1, std::min(base.NbMedias, base.Medias.Haut()),
                                    [&](std::int32_t m) { voir(m, base.Medias[m].LiensPersos); });
    else {
        const auto& t = NotesDuGenre(base, genre);
        const std::int32_t fin = std::min(genre == 'S' ? base.NbSources : base.NbNotes, t.Haut());
        t.PourChaqueEcrit(1, fin, [&](std::int32_t n) { voir(n, t[n].LiensPersos); });
    }
    return r;
}

bool AUnTexte(const Base& base, char genre, std::int32_t n) {
    if (genre == 'M') return true;
    const NoteExt& e = std::as_const(NotesDuGenre(base, genre))[n];
    return !e.Titre.empty() || !e.Texte.empty();
}

}  // namespace

void RemplacerTemoin(Base& base, std::int32_t ancien, std::int32_t nouveau) {
    if (ancien <= 0) return;
    const Base& lu = base;
    base.Persos.PourChaqueEcrit(1, std::min(lu.NbPersos, lu.Persos.Haut()), [&](std::int32_t n) {
        for (int i = 1; i <= kActesPerso; ++i)
            if (!ActeDe(lu.Persos[n], i)->Liens().Temoins.empty())
                RemplacerDansActe(*ActeDe(base.Persos[n], i), ancien, nouveau);
    });
    base.Familles.PourChaqueEcrit(1, std::min(lu.NbFamis, lu.Familles.Haut()), [&](std::int32_t f) {
        for (int i = 1; i <= kActesFami; ++i)
            if (!ActeDe(lu.Familles[f], i)->Liens().Temoins.empty())
                RemplacerDansActe(*ActeDe(base.Familles[f], i), ancien, nouveau);
    });
}

void EffacerPersonne(Base& base, std::int32_t p, Dialogue* dialogue) {
    if (!PersonneExiste(base, p)) return;
    if (const std::int32_t f = std::as_const(base.Persos)[p].NumParents;
        DansTableau(f, base.Familles.Haut())) {
        while (Retirer(base.Familles[f].Enfants, p)) {
        }
        TrierEnfants(base, f);
    }
    // Un témoin effacé ne laisse pas un numéro qu'une fiche neuve reprendrait.
    RemplacerTemoin(base, p, 0);
    const std::vector<std::pair<char, std::vector<std::int32_t>>> tenues = {
        {'N', TenuesPar(base, 'N', p)}, {'S', TenuesPar(base, 'S', p)}, {'M', TenuesPar(base, 'M', p)}};
    base.Persos[p] = Perso{};
    // Les places rendues vont d'abord aux liens restés sans retour, fiche pleine.
    for (const auto& [genre, numeros] : tenues)
        for (const std::int32_t n : numeros) AccorderRetour(base, genre, n, false, p);
    if (dialogue)
        for (const auto& [genre, numeros] : tenues)
            for (const std::int32_t n : numeros)
                if (AUnTexte(base, genre, n)) SupprimerOrpheline(base, genre, n, *dialogue);
    if (base.NumDeCujus == p) base.NumDeCujus = 0;
    if (base.NbPersosReels > 0) --base.NbPersosReels;
    if (p == base.NbPersos) --base.NbPersos;
    base.FichierModifie = kVrai;
}

std::optional<std::int32_t> SupprimerPersonne(Edition& e, std::int32_t p) {
    Base& base = e.base;
    if (!PersonneExiste(base, p)) return std::nullopt;
    const Perso& pe = std::as_const(base.Persos)[p];
    const std::string texte = "Attention : la fiche de " + pe.Prenoms + " " + pe.Nom +
                              " va \xEAtre supprim\xE9"
                              "e ! Confirmez la suppression.";
    if (e.dialogue.Message("Supprimer une personne", texte, Icone::Question, Boutons::OuiNon, Bouton::Non) !=
        Bouton::Oui)
        return std::nullopt;
    base.NumCourant = 0;
    // SupprimerUnion retrie les unions : on parcourt une copie.
    const auto unions = pe.Unions;
    for (int i = 1; i <= kMaxUnions; ++i)
        if (unions[static_cast<std::size_t>(i)] > 0)
            SupprimerUnion(base, unions[static_cast<std::size_t>(i)], p, &e.dialogue, e.maintenant);
    EffacerPersonne(base, p, &e.dialogue);
    base.NumCourant = std::max(p - 1, 0);
    return base.NumCourant;
}

}  // namespace arbolix
