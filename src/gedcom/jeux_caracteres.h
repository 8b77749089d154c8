// Jeux de caractères à la lecture : UTF-16 et marques d'ordre, puis réparation du tampon selon CHAR.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace arbolix {

// Le tampon du lecteur tient les octets du fichier lus en page 1252. Toutes
// les fonctions ci-dessous ne touchent que tampon[depuis..] : ce que le
// lecteur a déjà consommé reste brut.

// Une ligne de table : chaque occurrence de `de` devient `vers`.
struct Remplacement {
    std::string_view de;
    std::string_view vers;
};

// Les lignes des deux tables, dans l'ordre où elles passent : une ligne voit
// le résultat des précédentes, l'ordre fait partie de la règle.
std::span<const Remplacement> LignesAnsel();
std::span<const Remplacement> LignesUtf8();

// ANSEL (diacritique avant la lettre) vers page 1252, par la table en
// lignes ; garde l'inversion S/s de la ligne du caron.
void TableAnsel(std::string& tampon, std::size_t depuis);

// UTF-8 lu en page 1252 vers page 1252 : 122 lignes ; U+00A0 et ce qui
// dépasse la page 1252 restent en octets bruts. À appliquer aussi à un
// fichier marqué UTF-8 (ou converti d'UTF-16) dont CHAR manque.
void TableUtf8(std::string& tampon, std::size_t depuis);

// Page OEM d'un fichier IBMPC : 850 quand la valeur de CHAR contient "850"
// ou que la première ligne non vide de suite (le tampon derrière la ligne
// CHAR) est une ligne "2 VERS" qui contient "850" ; sinon 437.
int PageOemDeclaree(std::string_view valeur, std::string_view suite);

// Ce qu'a fait TraiterJeuCaracteres.
enum class JeuCaracteres { Ansi, Oem437, Oem850, Ansel, Utf8, Inconnu };

// La ligne "1 CHAR valeur" de l'en-tête : répare tampon[depuis..] et ajoute
// au journal le texte de chargement voulu (textes en page 1252). La valeur
// est comparée par son premier mot, sans tenir compte de la casse : ANSI et
// ASCII rien ; IBMPC pages OEM ; ANSEL ; UTF-8, UTF8 et UNICODE (un fichier
// UTF-16 a déjà été converti en UTF-8) la table UTF-8 ; le reste alerte.
JeuCaracteres TraiterJeuCaracteres(std::string& tampon, std::size_t depuis, std::string_view valeur,
                                   std::string_view titreProgramme, std::string& journal);

// Adresse de convertisseur donnée par les messages ANSEL et d'alerte.
inline constexpr std::string_view kAdresseConvertisseur = "https://www.gnu.org/software/libiconv/";

// Codage reconnu sur les octets bruts du fichier, avant toute lecture.
enum class CodageFichier { Octets, Utf8Marque, Utf16Petit, Utf16Gros };

struct CodageLu {
    CodageFichier codage = CodageFichier::Octets;
    bool marque = false;  // une marque d'ordre des octets était là (et a été retirée)
    std::string journal;  // phrase pour le journal de chargement, vide pour Octets
};

// Retire une marque UTF-8 ; reconnaît l'UTF-16 petit- ou gros-boutiste, avec
// ou sans marque (sans marque : la moitié des octets du début sont nuls du
// même côté), et le convertit en UTF-8 pour que la suite le lise comme un
// fichier UTF-8. Le reste passe tel quel.
CodageLu NormaliserCodage(std::string& octets);

// UTF-16 vers UTF-8 ; paires de substitution réunies, unité isolée ou octet
// final sans partenaire donnent U+FFFD.
std::string Utf16VersUtf8(std::string_view octets, bool grosBoutiste);

}  // namespace arbolix
