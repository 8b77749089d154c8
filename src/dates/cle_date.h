// Clé de tri d'un texte de date, comparée octet par octet.
#pragma once

#include <string>
#include <string_view>

#include "dates/calendrier_gregorien.h"

namespace arbolix {

// "yyyy/MM/dd" pour une date ; sinon l'année des 4 derniers caractères suivie
// d'une marque tirée des 3 premiers : "/-0/00" avant, "/0./00" vers, "/00/00"
// nu, "/0_/00" après ; "0000/00/00" pour un texte vide. Dans une même année :
// avant < vers < année < daté de janvier à septembre < après < octobre à
// décembre. Cette place de "après" est voulue et gardée.
std::string CleDate(std::string_view s);

// La clé d'une date reconnue ("yyyy/MM/dd"), celle que CleDate donne à son texte.
std::string CleDuJour(const DateCalendrier& d);

}  // namespace arbolix
