#include "kinship/parente.h"

#include <cstdio>
#include <utility>

#include "card/lignes_personne.h"

namespace arbolix {

bool EstDeCujus(const Base& base, std::int32_t personne) {
    if (personne <= 0 || personne > base.Persos.Haut()) return false;
    return personne == base.NumDeCujus || base.Persos[personne].Suite().Ref == "1";
}

Ascendance PreparerParente(Base& base, std::int32_t deCujus, const Options& options) {
    return NumeroterAscendants(base, {deCujus, 1, true, ValeurMaxGen(options)});
}

ListePersonne ListeParente(Base& base, const Options& options, std::int32_t autre) {
    NumeroterAscendants(base, {autre, 2, false, ValeurMaxGen(options)});
    ListePersonne liste;
    OuvrirListe(liste, "parente", "Liste de parent\xE9", " branches en commun", true);
    RemplissageTrie tri;
    const auto& persos = std::as_const(base.Persos);
    persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = persos[n];
        const PersoSuite& s = p.Suite();
        if (s.NumSosa[1].empty() || p.Sel == 0 || s.NumSosa[2].empty()) return;
        char annee[16];
        std::snprintf(annee, sizeof annee, "%04d", static_cast<int>(p.Naissance.Annee));
        tri.Ajouter(annee + p.Nom, n);
    });
    tri.Terminer(liste, [&](std::int32_t n) {
        std::string s = LigneListe(base, options, n) + " S" + persos[n].Suite().NumSosa[2];
        AjouterQueue(s, 'P', n);
        return s;
    });
    liste.Rangees[0].texte = std::to_string(liste.Rangees.size() - 1) + " branches en commun";
    return liste;
}

}  // namespace arbolix
