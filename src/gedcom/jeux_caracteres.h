// Jeux de caractères à la lecture : UTF-16 et marques d'ordre, puis conversion du tampon en page 1252 selon
// CHAR.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace arbolix {

// Le tampon du lecteur tient les octets du fichier lus en page 1252. Toutes
// les fonctions ci-dessous ne touchent que tampon[depuis..] : ce que le
// lecteur a déjà consommé reste brut.

// Ce que la conversion d'un jeu de caractères n'a pas pu garder tel quel.
struct Replis {
    std::size_t lettres = 0;   // remplacés par leur lettre de base ou un signe voisin
    std::size_t inconnus = 0;  // sans équivalent : remplacés par "?"
    std::size_t Total() const { return lettres + inconnus; }
};

// Une ligne de la table ANSEL : les octets ANSEL `de` (un octet, ou un diacritique suivi
// de sa lettre) donnent `vers` en page 1252 ; `repli` : vers n'est qu'une lettre de base
// ou un signe voisin du caractère ANSEL.
struct LigneAnsel {
    std::string_view de;
    std::string_view vers;
    bool repli = false;
};
std::span<const LigneAnsel> LignesAnsel();

// ANSEL (diacritique avant la lettre) vers page 1252, en un seul passage : chaque
// caractère du fichier est traduit une fois, une ligne ne revoit jamais ce qu'une autre a
// produit (Æ reste Æ). Un diacritique sans forme composée dans la page 1252 est retiré et
// sa lettre reste.
Replis TableAnsel(std::string& tampon, std::size_t depuis);

// UTF-8 lu en page 1252 vers page 1252, en un seul passage : chaque caractère que la page
// contient devient son octet (l'espace insécable compris) ; un caractère qu'elle ne contient
// pas devient sa lettre de base ("ū" donne "u") ou un signe voisin, "?" à défaut ; une
// lettre suivie d'un accent combinant devient la lettre accentuée quand la page l'a. Les
// octets qui ne forment pas de l'UTF-8 valide restent tels quels.
Replis TableUtf8(std::string& tampon, std::size_t depuis);

// La ligne du journal qui dit combien de caractères ont été remplacés ; vide s'il n'y en a aucun.
std::string MessageReplis(const Replis& r);

// Page OEM d'un fichier IBMPC : 850 quand la valeur de CHAR contient "850"
// ou que la première ligne non vide de suite (le tampon derrière la ligne
// CHAR) est une ligne "2 VERS" qui contient "850" ; sinon 437.
int PageOemDeclaree(std::string_view valeur, std::string_view suite);

// Ce qu'a fait TraiterJeuCaracteres.
enum class JeuCaracteres { Ansi, Oem437, Oem850, Ansel, Utf8, Inconnu };

// Codage reconnu sur les octets bruts du fichier, avant toute lecture.
enum class CodageFichier { Octets, Utf8Marque, Utf16Petit, Utf16Gros };

// La ligne "1 CHAR valeur" de l'en-tête : répare tampon[depuis..] et ajoute
// au journal le texte de chargement voulu (textes en page 1252), puis la ligne
// des caractères remplacés. La valeur est comparée par son premier mot, sans
// tenir compte de la casse : ANSI et ASCII rien ; IBMPC pages OEM ; ANSEL ;
// UTF-8, UTF8 et UNICODE (un fichier UTF-16 a déjà été converti en UTF-8) la
// table UTF-8 ; le reste alerte. Un fichier que sa marque ou l'UTF-16 dit en
// Unicode (codage autre que Octets) est déjà converti : rien ne change, et le
// journal dit qu'il a été lu en UTF-8 quand CHAR dit autre chose.
JeuCaracteres TraiterJeuCaracteres(std::string& tampon, std::size_t depuis, std::string_view valeur,
                                   std::string_view titreProgramme, std::string& journal,
                                   CodageFichier codage = CodageFichier::Octets);

// À la fin de l'en-tête, quand rien n'a encore converti l'UTF-8 : un fichier sans ligne
// CHAR dont le reste est de l'UTF-8 valide est converti à partir de depuis, avec ses
// lignes de journal. Vrai s'il l'a été, ou si ses octets l'avaient déjà fait convertir.
bool ConvertirUtf8NonDeclare(std::string& tampon, std::size_t depuis, CodageFichier codage, bool charLu,
                             std::string& journal);

// Adresse de convertisseur donnée par les messages ANSEL et d'alerte.
inline constexpr std::string_view kAdresseConvertisseur = "https://www.gnu.org/software/libiconv/";

struct CodageLu {
    CodageFichier codage = CodageFichier::Octets;
    bool marque = false;  // une marque d'ordre des octets était là (et a été retirée)
    std::string journal;  // lignes pour le journal de chargement, vide pour Octets
};

// Retire une marque UTF-8 ; reconnaît l'UTF-16 petit- ou gros-boutiste, avec
// ou sans marque (sans marque : la moitié des octets du début sont nuls du
// même côté). Un fichier ainsi dit Unicode par ses octets est converti en entier
// vers la page 1252, en-tête compris, quoi que dise sa ligne CHAR, et le journal
// dit combien de caractères ont été remplacés. Le reste passe tel quel.
CodageLu NormaliserCodage(std::string& octets);

// UTF-16 vers UTF-8 ; paires de substitution réunies, unité isolée ou octet
// final sans partenaire donnent U+FFFD.
std::string Utf16VersUtf8(std::string_view octets, bool grosBoutiste);

}  // namespace arbolix
