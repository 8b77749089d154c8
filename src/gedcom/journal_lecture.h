// Le journal de lecture tel que le généalogiste le lit : un résumé par sorte de ligne,
// puis chaque ligne, les numéros internes du lecteur dits en mots.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "gedcom/lecteur.h"

namespace arbolix {

// Un nombre comme on l'écrit en français : les milliers séparés par une espace
// insécable (page 1252), "13 790".
std::string NombreFrancais(std::int64_t n);

// Une ligne du journal en mots : la fiche que le lecteur désigne par un numéro interne
// (en-tête, auteur du fichier, fiche non reprise) est nommée, et une erreur d'exécution
// ("erreur 13 : Incompatibilité de type") dit ce qui s'est passé. Les autres lignes
// restent telles quelles.
std::string LigneLisible(std::string_view ligne, const ReperesJournal& reperes);

// "En résumé :", une ligne par sorte de ligne, la plus nombreuse d'abord ("13 790 lignes
// RIN non traitées", "2 dates non reconnues"), puis "En détail :" et chaque ligne
// lisible ; sans rien à compter, les lignes seules. Texte 1252, lignes CR LF ; le temps
// suit la longueur du journal, qui peut compter des millions de lignes.
std::string JournalLisible(std::string_view journal, const ReperesJournal& reperes);

}  // namespace arbolix
