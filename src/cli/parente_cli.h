// Sous-commandes de parenté de arbolix-cli : ascendance Sosa, liste de parenté, sélection active.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "store/base.h"
#include "store/options.h"

namespace arbolix::cli {

// sosa FICHIER.ged [PERSONNE] [--max-gen N] : une ligne par visite puis le compte.
int CommandeSosa(const std::vector<std::string>& args, std::ostream& sortie, std::ostream& erreurs);
// parente FICHIER.ged DECUJUS AUTRE : les rangées de la liste de parenté.
int CommandeParente(const std::vector<std::string>& args, std::ostream& sortie, std::ostream& erreurs);

// --selection ascendants|descendants|apparentes --personne N [--tous-descendants], retirées
// des arguments. Faux sur une valeur fausse (message écrit).
struct SelectionCli {
    int entree = 0;  // entrée du menu Sélection : 1, 2 ou 3
    std::int32_t personne = 0;
    bool tousDescendants = false;
};
bool ExtraireSelection(std::vector<std::string>& args, std::optional<SelectionCli>& sel,
                       std::ostream& erreurs);
// Toute la base, puis l'entrée demandée ; la boîte de fin va aux erreurs. Faux si la personne manque.
bool AppliquerSelection(Base& base, Options options, const SelectionCli& sel, std::ostream& erreurs);

}  // namespace arbolix::cli
