#include "kinship/menu_sel.h"

#include <utility>
#include <vector>

#include "card/lignes_personne.h"
#include "kinship/sosa.h"
#include "lists/rangees.h"
#include "store/selection.h"
#include "lists/selection_active.h"

namespace arbolix {

namespace {

std::string SansEsperluette(std::string s) {
    std::erase(s, '&');
    return s;
}

// Les ascendants de la liste cachée, du dernier au premier : la personne, puis la famille
// de ses parents quand l'un d'eux est déjà marqué.
template <typename ParAncetre>
void MarquerAscendants(Base& base, const Ascendance& a, ParAncetre&& parAncetre) {
    for (std::size_t r = a.liste.Rangees.size(); r-- > 0;) {
        const std::int32_t n = LireQueue(a.liste.Rangees[r].texte).numero;
        if (n <= 0 || n > base.Persos.Haut()) continue;
        base.Persos[n].Sel = kVrai;
        const std::int32_t fam = std::as_const(base.Persos)[n].NumParents;
        if (fam > 0 && fam <= base.Familles.Haut()) {
            const Fami& f = std::as_const(base.Familles)[fam];
            const auto sel = [&](std::int32_t p) {
                return p > 0 && p <= base.Persos.Haut() && std::as_const(base.Persos)[p].Sel != 0;
            };
            if (sel(f.Mari) || sel(f.Femme)) base.Familles[fam].Sel = kVrai;
        }
        parAncetre(n);
    }
}

void OterFamilleParents(Base& base, std::int32_t p) {
    const std::int32_t fam = std::as_const(base.Persos)[p].NumParents;
    if (fam > 0 && fam <= base.Familles.Haut()) base.Familles[fam].Sel = kFaux;
}

std::string Compte(std::int32_t n) {
    return std::to_string(n);
}

}  // namespace

BoiteSel MenuSel(Base& base, const Options& options, EtatSelection& etat, int i, std::int32_t personne) {
    if (i < 0 || i > 3) return {};
    etat.Libelle = SansEsperluette(kEntreesSel[i]);
    if (i == 0) {
        ToutSelectionner(base);
        etat.Info = Compte(base.NbPersosReels) + " personnes et " + Compte(base.NbFamisReels) + " familles";
        etat.SelFicheActive = false;
        etat.Cochee = 0;
        etat.Inverse = false;
        return {};
    }
    const bool fiche =
        personne > 0 && personne <= base.Persos.Haut() && !std::as_const(base.Persos)[personne].Nom.empty();
    if (!fiche)
        return {"S\xE9lection", "Vous devez afficher une fiche avant de lancer cette commande.", true};
    // Après toute la base, la nouvelle sélection part de rien ; sinon elle s'ajoute à l'ancienne.
    const bool depuisTout =
        etat.Cochee == 0 || (!etat.Info.empty() && etat.Info[0] >= '0' && etat.Info[0] <= '9');
    GarderSelection(base, depuisTout);
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (!std::as_const(base.Persos)[n].Suite().CheminSosa[1].empty())
            base.Persos[n].SuiteModif().CheminSosa[1].clear();
    });
    etat.DansTout = true;
    const std::string ligne = LigneListe(base, options, personne);
    etat.Info = ligne;
    etat.SelFicheActive = true;
    etat.Libelle += " de " + ligne;
    BoiteSel boite;
    std::vector<std::uint8_t> parcourus;
    if (i == 1) {
        const Ascendance a = NumeroterAscendants(base, {personne, 0, true, ValeurMaxGen(options)});
        MarquerAscendants(base, a, [](std::int32_t) {});
        boite = {kTitreSosa.data(), MessageSosa(base, a, personne), false, a.NbAncetres};
    } else if (i == 2) {
        const std::int32_t n = MarquerDescendants(base, options, personne, false, parcourus);
        OterFamilleParents(base, personne);
        boite = {"S\xE9lection active", Compte(n) + " descendants de " + ligne, false};
    } else {
        const Ascendance a = NumeroterAscendants(base, {personne, 1, true, ValeurMaxGen(options)});
        MarquerAscendants(base, a,
                          [&](std::int32_t n) { MarquerDescendants(base, options, n, false, parcourus); });
        // Les parents sont des apparentés : leur famille reste, sans quoi la personne
        // s'écrirait sans le lien vers eux.
        boite = {"S\xE9lection active",
                 Compte(NbSelPersos(base)) + " personnes et " + Compte(NbSelFamis(base)) + " familles" +
                     " s\xE9lectionn\xE9" + "es",
                 false};
    }
    base.Familles[0].Sel = kFaux;
    etat.Inverse = false;
    etat.Cochee = i;
    CompleterSel(base, options, etat.DansTout);
    return boite;
}

void MenuInverseSel(Base& base, EtatSelection& etat) {
    InverserSelection(base);
    etat.Inverse = !etat.Inverse;
}

void MenuSelDansTout(EtatSelection& etat) {
    etat.DansTout = !etat.DansTout;
}

}  // namespace arbolix
