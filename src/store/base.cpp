#include "store/base.h"

#include "platform/progression.h"
#include "store/aides_texte.h"

namespace arbolix {

Base::Base() { Vider(*this, true); }

namespace {

// Les cinq tableaux ont toujours la même borne haute.
template <typename Action>
void PourChaqueTableau(Base& base, Action&& action) {
    action(base.Persos);
    action(base.Familles);
    action(base.Notes);
    action(base.Sources);
    action(base.Medias);
}

}  // namespace

void RedimensionnerBase(Base& base, std::int32_t maxFiches) {
    base.MaxFiches = maxFiches;
    PourChaqueTableau(base, [maxFiches](auto& t) { t.Redimensionner(maxFiches); });
}

void Vider(Base& base, bool recharger) {
    base.MaxFiches = kFichesDepart;
    PourChaqueTableau(base, [](auto& t) { t.Dimensionner(kFichesDepart); });
    base.Listes.clear();
    if (!recharger) return;
    base.NbPersos = base.NbFamis = base.NbNotes = base.NbSources = base.NbMedias = 0;
    base.NbPersosReels = base.NbFamisReels = base.NbNotesReelles = base.NbSourcesReelles = 0;
    base.NbMediasReels = 0;
    base.NumCourant = 0;
    base.NumDeCujus = 0;
    base.ActeCourant = Acte{};
    base.FichierModifie = base.FicheModifiee = base.Chargement = kFaux;
}

void AgrandirBase(Base& base, bool avecListes, std::int32_t supplement, Progression* progression,
                  std::string_view motAgrandir) {
    // Les listes de saisie sont tenues triées à la demande : rien à trier ici.
    (void)avecListes;
    if (progression) progression->Avancement(std::string(motAgrandir) + " ");
    if (base.NumCourant > base.Persos.Haut() - 1000 && supplement > 0)
        RedimensionnerBase(base, base.MaxFiches + supplement);
    if (progression) progression->Avancement("");
}

std::int32_t NouvellePersonne(Base& base, bool creer, bool reutiliserLibres, std::int32_t modele) {
    std::int32_t n = base.NbPersos + 1;
    if (reutiliserLibres) {
        n = 1;
        while (n <= base.NbPersos && !base.Persos[n].Prenoms.empty()) ++n;
    }
    if (!creer) return n;
    if (n > base.Persos.Haut()) RedimensionnerBase(base, (n / 5000 + 1) * 5000);
    ++base.NbPersosReels;
    if (n > base.NbPersos) base.NbPersos = n;
    Perso& p = base.Persos[n];
    p.Nom = "N";
    p.Prenoms = "N";
    p.Sel = kVrai;
    base.FichierModifie = kVrai;
    if (modele > 0 && modele != n && modele <= base.Persos.Haut()) {
        const Perso& m = base.Persos[modele];
        p.Nom = m.Nom;
        p.Prenoms = m.Prenoms;
        p.Sexe = m.Sexe;
    }
    // Les clés suivent le nom dès la création : une fiche neuve quittée sans frappe se trie sous "N".
    p.CodeNom = CodeSon(p.Nom.vue());
    p.NomTri = NomTri(p.Nom.vue());
    return n;
}

}  // namespace arbolix
