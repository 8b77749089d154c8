// Petits outils de texte sur octets 1252 partagés par toutes les règles : valeur numérique, blancs, motifs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace arbolix {

// Valeur numérique d'un texte : blancs, tabulations et sauts de ligne de tête
// sautés, chiffres jusqu'au premier autre caractère, 0 s'il n'y en a pas.
// Pas de signe. Plafonnée pour qu'un texte sans fin ne déborde pas.
std::int64_t ValeurNumerique(std::string_view s);

// Retire les blancs (espaces seulement) des deux côtés, ou de la gauche, ou de la droite.
std::string_view SansBlancs(std::string_view s);
std::string_view SansBlancsGauche(std::string_view s);
std::string_view SansBlancsDroite(std::string_view s);

// Les n derniers (ou premiers) caractères, tout le texte s'il est plus court.
std::string_view Droite(std::string_view s, std::size_t n);
std::string_view Gauche(std::string_view s, std::size_t n);
// À partir du caractère debut (compté depuis 1), vide au-delà de la fin.
std::string_view Depuis(std::string_view s, std::size_t debut);

// Position de motif dans s à partir de depuis, npos s'il n'y est pas.
std::size_t Chercher(std::string_view s, std::string_view motif, std::size_t depuis = 0);

// Les places de motif dans s à partir de depuis, de gauche à droite et sans chevauchement, comme
// un remplacement les prend. Un grand texte se parcourt en deux moitiés, sur deux cœurs.
std::vector<std::size_t> Places(std::string_view s, std::string_view motif, std::size_t depuis = 0);
// Vrai quand motif paraît dans s ; un grand texte se parcourt de même en deux moitiés.
bool Contient(std::string_view s, std::string_view motif);

// Remplace toutes les occurrences de de par vers, à partir de la position depuis.
// Rend le nombre de remplacements. Un seul passage : linéaire dans la taille.
std::size_t RemplacerTout(std::string& s, std::string_view de, std::string_view vers, std::size_t depuis = 0);
// La même chose aux places déjà relevées de de, croissantes et sans chevauchement.
std::size_t RemplacerAux(std::string& s, const std::vector<std::size_t>& places, std::string_view de,
                         std::string_view vers);
std::string Remplacer(std::string_view s, std::string_view de, std::string_view vers);

// Motif à la manière des listes de l'utilisateur : "*" toute suite, "?" un caractère,
// "#" un chiffre ; le reste se compare octet pour octet.
bool Comme(std::string_view texte, std::string_view motif);

// Minuscules et majuscules ASCII et 1252 (lettres accentuées comprises).
char Minuscule1252(char c);
char Majuscule1252(char c);
std::string EnMinuscules(std::string_view s);
std::string EnMajuscules(std::string_view s);

inline bool EstChiffre(char c) {
    return c >= '0' && c <= '9';
}
bool EstNumerique(std::string_view s);  // non vide et fait uniquement de chiffres

// Le nombre sur au moins `chiffres` chiffres, complété de zéros.
std::string Zeros(std::int64_t n, int chiffres);

// Réduit les doubles blancs à un seul.
std::string SansDoublesBlancs(std::string_view s);

}  // namespace arbolix
