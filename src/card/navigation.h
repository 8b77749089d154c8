// Les touches du numéro de la fiche : père, numéro Sosa, suivant et précédent dans la sélection, avec ou sans
// notes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "store/base.h"

namespace arbolix {

// Le numéro où aller après la touche tapée sur NumPerso, à partir du numéro qui y
// est ; nullopt pour une touche qui ne déplace pas (chiffres, blanc, autres).
// 'f' : père, sinon mère, sinon rester. 's' : la personne dont le numéro Sosa
// (ou un autre numéro Sosa) est le numéro tapé. '+', '-' : suivant, précédent
// de la sélection ; '*', '/' : les mêmes parmi les personnes qui ont des notes.
std::optional<std::int32_t> ToucheNumPerso(const Base& base, std::int32_t actuel, char touche);

// La marche commune des quatre touches : code 3 '+', 5 '-', 6 '*', 10 '/'. Un code
// divisible par 3 avance (de NbPersos on passe à 1), par 5 recule (sous 2 on passe à
// NbPersos). Elle s'arrête en revenant au départ, sur une fiche admise (sélectionnée,
// et avec des notes pour un code pair), et de toute façon en atteignant NbPersos.
std::int32_t Parcourir(const Base& base, std::int32_t depart, int code);

// Vrai quand la personne a des notes qui comptent : les siennes, celles de la
// naissance, du décès ou d'un mariage, sauf la date républicaine "??/????/??".
bool APersonneDesNotes(const Base& base, std::int32_t n);

// La personne dont le texte NumSosa(0) ou AutresSosa(0) contient le nombre entier
// sosa, ou nullopt ; parcourt toute la base.
std::optional<std::int32_t> ChercherSosa(const Base& base, std::string_view sosa);

}  // namespace arbolix
