// Le filtre des dates récentes des rapports : l'année seule, ou rien quand la date est trop proche.
#pragma once

#include <string>
#include <string_view>

#include "store/options.h"

namespace arbolix {

// Le texte à imprimer pour date. indice : 1 pour les décès et sépultures, 0 pour le reste ;
// forcerDS : la personne est morte et « Sauf décédé » est coché, le seuil des décès vaut alors.
// L'année est tirée des quatre derniers caractères ; une date qui commence par un mot reste
// entière même quand seules les années sont demandées.
std::string DateConfidentielle(std::string_view date, int indice, bool forcerDS, const OptionsExport& exports,
                               int anneeCourante);

}  // namespace arbolix
