// Numérotation Sosa-Stradonitz des ascendants d'une personne, avec les implexes.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Trois numérotations par personne : 0 la principale, 1 et 2 pour le calcul de parenté.
struct ParametresSosa {
    std::int32_t racine = 0;
    int k = 0;
    // Faux : une personne déjà numérotée dans la numérotation 1 arrête sa branche, pour que la
    // seconde marche de la parenté s'arrête aux ancêtres communs.
    bool tous = true;
    // Générations au-delà de la racine (MaxGen) ; 0 : sans limite. Les arbres passent 12
    // quand la case est vide.
    int maxGen = 0;
};

// La liste cachée : une rangée par visite, clé de 28 chiffres (plus pour un numéro plus long),
// " P" et la personne ; triée, donc génération par génération. Rangée 0 : la racine.
struct Ascendance {
    ListePersonne liste;
    std::int32_t NbAncetres = 0;
    std::string Journal;  // une ligne par personne qui est son propre ancêtre
};

// Remplit NumSosa(k), AutresSosa(k), CheminSosa(k) et Unions(0) des ascendants de la racine.
// Une racine hors du fichier ne numérote rien (liste vide, une ligne au journal) ; une racine
// à 0 ou moins ne fait que vider la liste. Avec k = 0, NumDeCujus prend la racine.
Ascendance NumeroterAscendants(Base& base, const ParametresSosa& p);

// Après une lecture : la personne proposée (celle de REFN 1) si elle existe, sinon la première
// de la liste ; sa numérotation principale est faite.
std::int32_t PremierePersonne(const Base& base, std::int32_t proposee);
Ascendance NumeroterApresLecture(Base& base, const Options& options, std::int32_t proposee);

// MaxGen lu comme un nombre : vide ou non numérique donne 0, sans limite.
int ValeurMaxGen(const Options& options);

// Le texte de la boîte « Numérotation Sosa-Stradonitz ».
inline constexpr std::string_view kTitreSosa = "Num\xE9rotation Sosa-Stradonitz";
std::string MessageSosa(const Base& base, const Ascendance& a, std::int32_t racine);

// Le numéro d'une rangée de la liste cachée, sans ses zéros de tête.
std::string NumeroDeRangee(std::string_view rangee);

}  // namespace arbolix
