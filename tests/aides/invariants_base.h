// Pour les tests : tout ce qu'une base doit tenir après une commande, en une liste de fautes lisibles.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "aides/invariant_liens.h"
#include "aides/verifier_liens.h"
#include "store/base.h"

namespace arbolix::essais {

// Liens à double sens (verifier_liens.h), retours des notes, sources et objets médias
// (invariant_liens.h), aucune famille ni témoin vers une fiche vide, et des compteurs
// justes : NbPersosReels compte les fiches en usage, NbPersos n'en laisse aucune derrière lui.
inline std::vector<std::string> FautesDeBase(const Base& base) {
    std::vector<std::string> fautes = VerifierLiens(base);
    const std::string ecarts = InvariantLiens(base).Ecarts();
    if (!ecarts.empty()) fautes.push_back(ecarts);
    const auto vide = [&](std::int32_t n) { return !PersonneExiste(base, n); };
    std::int32_t reels = 0;
    for (std::int32_t p = 1; p <= base.Persos.Haut(); ++p) {
        if (base.Persos.PageVierge(p)) {
            p = base.Persos.FinDePage(p);
            continue;
        }
        if (vide(p)) continue;
        ++reels;
        if (p > base.NbPersos) fautes.push_back("P" + std::to_string(p) + " au-delà de NbPersos");
        const Perso& pe = base.Persos[p];
        for (const Acte* a : {&pe.Naissance, &pe.Bapteme, &pe.Deces, &pe.Sepulture})
            for (const auto& [i, t] : a->Liens().Temoins)
                if (vide(t))
                    fautes.push_back("P" + std::to_string(p) + " : témoin P" + std::to_string(t) + " vide");
    }
    if (reels != base.NbPersosReels)
        fautes.push_back("NbPersosReels " + std::to_string(base.NbPersosReels) + " pour " +
                         std::to_string(reels));
    for (std::int32_t f = 1; f <= std::min(base.NbFamis, base.Familles.Haut()); ++f) {
        const Fami& fa = base.Familles[f];
        for (const std::int32_t c : {fa.Mari, fa.Femme})
            if (c != 0 && vide(c))
                fautes.push_back("F" + std::to_string(f) + " : conjoint P" + std::to_string(c) + " vide");
        for (const auto& [rang, c] : fa.Enfants)
            if (vide(c))
                fautes.push_back("F" + std::to_string(f) + " : enfant P" + std::to_string(c) + " vide");
        for (const Acte* a : {&fa.Contrat, &fa.Mariage, &fa.Divorce})
            for (const auto& [i, t] : a->Liens().Temoins)
                if (vide(t))
                    fautes.push_back("F" + std::to_string(f) + " : témoin P" + std::to_string(t) + " vide");
    }
    return fautes;
}

}  // namespace arbolix::essais
