// Sous-commandes de arbolix-cli pour la recherche d'actes et les remplacements en série.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// actes FICHIER.ged [--types N,B,M,C,X,D,S] [--nom N|--lieu L|--metier M|--temoin N|--domicile V]
// [--de AAAA] [--a AAAA] [--approx] [--tri nom,date] : les rangées de la liste des actes, puis
// la ligne du compte. --nom, --lieu, --metier et --domicile se répètent pour cocher plusieurs valeurs.
int CommandeActes(const Arguments& args, Sorties& s);

// remplacer nom|nomtri|prenom|metier|lieu|source ANCIEN NOUVEAU ENTREE.ged SORTIE.ged
// remplacer notes|lieux-partout TEXTE NOUVEAU ENTREE.ged SORTIE.ged   [--date JJ/MM/AAAA]
int CommandeRemplacer(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
