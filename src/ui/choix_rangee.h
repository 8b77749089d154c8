// Choix modal d'une rangée dans une liste de candidats (témoin, parents...).
#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "card/candidats.h"

namespace arbolix {

// Le choix d'une rangée, remplaçable par les tests pour ne pas ouvrir de boîte modale.
using Choisir = std::function<std::optional<std::string>(const ListeCandidats&)>;

// Rend la rangée choisie telle quelle (avec sa queue " P000012"), ou rien si l'on renonce.
std::optional<std::string> ChoisirRangee(QWidget* parent, const ListeCandidats& liste);

}  // namespace arbolix
