// Sous-commande « fiche » de arbolix-cli : dupliquer, supprimer ou fusionner des personnes sans fenêtre.
#pragma once

#include "cli/communs.h"

namespace arbolix::cli {

// fiche dupliquer|supprimer|fusionner ENTREE.ged SORTIE.ged PERSONNE [AUTRE]
//      [--reponses FICHIER] [--retirer-unions F,F...] [--date JJ/MM/AAAA]
// Les boîtes vont aux erreurs ; chacune prend la réponse suivante du fichier (une par ligne :
// oui, non, annuler, ok, ou le texte d'une saisie ; « [annuler] » annule une saisie), puis la
// réponse par défaut (une saisie sans réponse est annulée : la fiche gardée garde sa donnée).
// La commande tient lieu de confirmation de la suppression.
int CommandeFiche(const Arguments& args, Sorties& s);

}  // namespace arbolix::cli
