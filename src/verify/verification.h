// Vérification de tout le fichier : dates, liens, sexes, écarts d'âge et naissances rapprochées, en un
// rapport.
#pragma once

#include <cstdint>
#include <string>

#include "platform/progression.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

struct ResultatVerification {
    std::string Rapport;  // 1252, CR LF ; vide quand le fichier est propre
    std::int32_t Corriges = 0;
    bool Annule = false;
};

// MenuVerifier sans fenêtre : les personnes puis les familles sélectionnées, sans
// aucune question. Répare une seule chose, la famille sans enfant à un seul conjoint,
// qui est détachée de ce conjoint. progression peut être nul ; une annulation rend le
// rapport déjà écrit. maintenant : jours depuis le 30/12/1899, pour DateModif.
ResultatVerification MenuVerifier(Base& base, const Options& options, Progression* progression,
                                  double maintenant);

}  // namespace arbolix
