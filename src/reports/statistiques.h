// Les onze statistiques de la sélection : un texte brut séparé par tabulations pour un tableur,
// et les répartitions qu'il contient, pour les graphiques.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Les rangées de la liste de choix, dans l'ordre de leurs index.
inline constexpr std::array<std::string_view, 11> kChoixStatistiques{
    "R\xE9partition par sexe, taux de masculinit\xE9",
    "Esp\xE9rance de vie, doyens, r\xE9partition des d\xE9\x63\xE8s par \xE2ge",
    "\xC2ges moyens et extr\xEAmes au mariage, nombres moyen et maxi d'enfants par femme",
    "Nombre et taux de c\xE9libataires",
    "R\xE9partition des N M D par mois et d\xE9\x63\x65nnie",
    "R\xE9partition des naissances par signe astrologique",
    "R\xE9partition des naissances par signe astrologique chinois",
    "Noms les plus fr\xE9quents",
    "Pr\xE9noms masculins les plus fr\xE9quents",
    "Pr\xE9noms f\xE9minins les plus fr\xE9quents",
    "Professions les plus fr\xE9quentes",
};
inline constexpr std::string_view kTitreChoixStatistiques = "Choisissez les statistiques \xE0 \xE9tablir...";
inline constexpr std::string_view kTitreSelectionVide = "S\xE9lection vide";
inline constexpr std::string_view kSelectionVide =
    "La s\xE9lection actuelle est vide. Veuillez s\xE9lectionner des fiches personnelles pour "
    "\xE9tablir des statistiques.";

// Ce que le texte nomme et la date du jour (les décennies s'arrêtent à l'année en cours).
struct ContexteStatistiques {
    const Base& base;
    const Options& options;
    std::string fichierGedcom;     // nom du fichier, 1252
    std::string nomProgramme;      // 1252
    std::string dossierProgramme;  // 1252
    int anneeCourante = 0;
};

// Une répartition à montrer en barres : une étiquette par barre, une série par colonne du texte.
struct Repartition {
    std::string titre;                               // 1252, la ligne de tête du bloc sans ses deux-points
    std::vector<std::string> etiquettes;             // 1252
    std::vector<std::string> series;                 // 1252
    std::vector<std::vector<std::int64_t>> valeurs;  // valeurs[serie][etiquette]
};

struct Statistiques {
    std::string texte;  // 1252, lignes finies par CR LF
    std::vector<Repartition> repartitions;
};

// Les personnes comptées : un nom et sélectionnées. 0 : la boîte « Sélection vide ».
std::int64_t PopulationStatistiques(const Base& base);

// Les statistiques cochées (index de kChoixStatistiques), dans l'ordre des index, précédées
// de la tête. Un diviseur nul écrit « - » et le texte continue.
Statistiques EtablirStatistiques(const ContexteStatistiques& ctx, const std::vector<int>& choix);

}  // namespace arbolix
