// Calendrier républicain : table des premiers jours d'année, mois et conversions dans les deux sens.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace arbolix {

// Premier jour de chaque année républicaine (index 1 = an I) en numéros de jour,
// 0 pour le 30/12/1899. Pas de règle bissextile : la table fait foi. L'index 15
// est la fin de la table (01/01/1806). L'index 0 n'est pas utilisé.
inline constexpr std::array<std::int32_t, 16> DebutAnRepublicain = {
    0,      -39179, -38814, -38449, -38083, -37718, -37353, -36988,
    -36622, -36257, -35892, -35527, -35161, -34796, -34431, -34331};

// Index 1 à 13 ; le treizième mois est celui des jours complémentaires.
inline constexpr std::array<std::string_view, 14> MoisRepublicains = {"",     "vend", "brum", "frim", "nivo",
                                                                      "pluv", "vent", "germ", "flor", "prai",
                                                                      "mess", "ther", "fruc", "comp"};

// Codes de deux lettres admis en saisie, à la place de chaque mois.
inline constexpr std::array<std::string_view, 14> CodesMoisRepublicains = {
    "", "vr", "br", "fr", "no", "po", "vo", "ga", "fa", "pa", "mo", "to", "fo", "jc"};

// Une date républicaine lue : son numéro de jour et le texte à mettre en note.
struct LectureRepublicaine {
    std::int32_t numeroJour = 0;
    std::string note;  // "12/brum/3" pour "12/br/3" : le code devient le mot de 4 lettres
};

// t : texte en minuscules, séparé par "/", jour en tête, année (1 à 14) dans
// les 2 derniers caractères, après la barre s'il y en a une ("1/vend/2" : an II).
// Un mot de mois inconnu n'est pas une erreur : le mois vaut alors la position
// qui suit la première barre, et la date tombe dans un mauvais mois (comme
// 12/jan/05, année grégorienne sur 2 chiffres). avecNote : la note sera écrite,
// donc son mot de mois doit exister. Vide quand la lecture échoue (tranche de
// longueur négative, année hors table, mois hors liste).
std::optional<LectureRepublicaine> LireDateRepublicaine(std::string_view t, bool avecNote);

// Vrai quand t (séparé par "/") finit comme une date républicaine : sa dernière barre
// dans ses 3 derniers caractères, ses 2 derniers valant 14 au plus.
bool FinRepublicaine(std::string_view t);

// Jour d'une note de date républicaine telle que la lecture d'une date la pose
// ("25/vend/2", "12/brum/03", ou "11/08" lu d'une date sans mois connu) ; vide pour
// un texte qui n'a pas cette forme.
std::optional<std::int32_t> JourDeNoteRepublicaine(std::string_view note);

// Forme d'une note de date républicaine ("12/vend/03"), en motif de Comme. Coupée en deux :
// "??/" serait un trigraphe.
inline constexpr std::string_view kNoteRepublicaine =
    "##/???"
    "?/##";

// "jj/mois/aa" du jour donné, du 22/09/1793 au 31/12/1805 ; vide ailleurs :
// l'an I n'est jamais produit.
std::string DateRepublicaine(std::int32_t numeroJour);

}  // namespace arbolix
