// La fin du livre des familles : notes et sources numérotées, index des patronymes, des localités et
// des professions, chaque nom suivi des numéros des familles où il paraît, les suites resserrées.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "reports/contexte_export.h"
#include "reports/livre.h"

namespace arbolix {

// La clé de rangement d'un nom d'index : le nom replié (sans accents, en majuscules), puis un
// chiffre par caractère qui range les formes accentuées après la forme simple ("Élise" juste
// après "Elise").
std::string CleIndex(std::string_view texte);

struct LigneIndex {
    std::string nom;  // tel qu'il s'imprime (1252, non échappé)
    std::int32_t numero = 0;
};

// EcrireLignesIndex : range les lignes par clé puis par numéro, fond les pareilles, et écrit
// "DUPONT : 3-4, 7." une ligne par nom (le même nom sans égard à la casse), séparées par
// "\line ", la dernière finie par "\par ".
void EcrireLignesIndex(std::vector<LigneIndex> lignes, TexteRapport& f);

// Les sections de fin du livre, après les familles : notes, sources, puis les trois index.
void EcrireFinDeLivre(const ContexteExport& ctx, const NumerotationLivre& n, TexteRapport& f);

}  // namespace arbolix
