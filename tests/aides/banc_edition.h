// Pour les essais des commandes de la fiche : une base, ses réglages, un Dialogue factice et l'Edition qui
// les tient.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "aides/invariants_base.h"
#include "card/edition_liens.h"

namespace arbolix::essai {

struct BancEdition {
    static constexpr double kMaintenant = 45000;  // 15/03/2023
    Base base;
    Options options;
    DialogueFactice dialogue;
    Edition e{base, options, dialogue, kMaintenant};

    std::int32_t Personne(const std::string& nom, const std::string& prenoms, char sexe,
                          const std::string& naissance = {}) {
        const std::int32_t n = base.NbPersos + 1;
        AjouterPersonne(base, n, nom, prenoms, sexe, naissance);
        return n;
    }
    const Perso& P(std::int32_t n) const { return base.Persos[n]; }
    const Fami& F(std::int32_t f) const { return base.Familles[f]; }
    // Les titres des boîtes montrées, dans l'ordre.
    std::string Titres() const {
        std::string r;
        for (const auto& m : dialogue.messages) r += (r.empty() ? "" : " | ") + m.titre;
        return r;
    }
    void BaseIntacte() const {
        for (const auto& faute : essais::FautesDeBase(base)) ADD_FAILURE() << faute;
    }
};

}  // namespace arbolix::essai
