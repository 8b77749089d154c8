// Reconnaissance d'un texte de date, jour d'abord, sans dépendre des réglages régionaux.
#pragma once

#include <optional>
#include <string_view>

#include "dates/calendrier_gregorien.h"

namespace arbolix {

// Formes reconnues, séparées par "/" seulement :
//   j/m/a  jour et mois sur 1 ou 2 chiffres, année sur 1 à 4 chiffres ;
//   m/a    mois sur 1 ou 2 chiffres, année sur 3 ou 4 chiffres : le premier du mois.
// Une année de 1 ou 2 chiffres se lit dans la fenêtre glissante habituelle :
// 00 à 29 donnent 2000 à 2029, 30 à 99 donnent 1930 à 1999. Une année de 3 ou
// 4 chiffres se lit telle quelle et doit valoir de 100 à 9999. Toute lettre,
// tout blanc, tout autre séparateur rend le texte non daté ; le jour doit
// exister (31/02/1750 n'est pas une date).
std::optional<DateCalendrier> LireDate(std::string_view s);

inline bool EstDate(std::string_view s) {
    return LireDate(s).has_value();
}

// Une date complète : jour, mois et année sur 4 chiffres ("12/03/1750"), qui existe.
bool EstDateComplete(std::string_view s);

// Un jour et un mois sans année ("11/08", lu d'un "11 AUG" de fichier) : jour et mois
// sur 1 ou 2 chiffres, le jour existant dans ce mois d'une année bissextile.
std::optional<DateCalendrier> LireJourEtMois(std::string_view s);

}  // namespace arbolix
