// Petites fonctions de texte partagées : accents, code phonétique, casse, sexe du prénom, SQL.
#pragma once

#include <string>
#include <string_view>


namespace arbolix {

// Tous les textes sont des octets en code page 1252.

// Replie les lettres accentuées sur leur lettre de base et tout caractère hors de
// [A-Za-z0-9#*-._] sur "_" : le résultat va dans un nom de fichier ou un motif.
// Avec garderLongueur, seule la première suite de lettres accentuées est repliée :
// le parcours s'arrête après la première lettre gardée telle quelle (comportement
// voulu des clés). Æ et Œ donnent toujours deux lettres.
std::string SansAccents(std::string_view texte, bool garderLongueur);

// Code phonétique de 4 caractères au plus (variante de Soundex) ; "*" reste dans
// le code et empêche le remplissage par des zéros (clé de recherche générique).
std::string CodeSon(std::string_view nom);
// Clé de tri du nom : majuscules sans accents, sans une particule de 4 lettres au
// plus (D'ARC → ARC, DE LA TOUR → LA_TOUR). À ranger dans Perso::NomTri.
std::string NomTri(std::string_view nom);

// Modes de Majuscules : 0 et 5 nom, 1 et 3 prénoms et lieux, 2, 4, 6 sans effet, 7 courriel.
// Texte entier : rend le texte corrigé. Ne fait rien sans modifCasse (Options.ModifCasse).
std::string Majuscules(std::string_view texte, int mode, bool modifCasse);
// Touche tapée à la fin de `texte` : rend le caractère à insérer.
char MajusculesTouche(std::string_view texte, int mode, char touche, bool modifCasse);

// "M", "F" ou vide, d'après le début du prénom puis la dernière lettre du premier mot.
std::string SexeDuPrenom(std::string_view prenoms);

// Texte sûr entre apostrophes dans un script SQL.
std::string EchapperSQL(std::string_view texte);

}  // namespace arbolix
