// Les fichiers TMAO de la fédération : tables d'actes binaires, lues et écrites octet pour octet.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"

namespace arbolix {

// Un acte d'une table : deux personnes de quatre lignes chacune, une date, quatre lignes
// d'acte. Textes en 1252 ; jour et mois 0 quand ils ne sont pas connus.
struct ActeTMAO {
    std::string Nom1, Prenom1;
    std::array<std::string, 4> Lignes1;
    std::string Nom2, Prenom2;
    std::array<std::string, 4> Lignes2;
    int Jour = 0, Mois = 0, Annee = 0;
    std::array<std::string, 4> LignesActe;
    friend bool operator==(const ActeTMAO&, const ActeTMAO&) = default;
};

// Les limites de l'écriture, en caractères.
inline constexpr std::size_t kLimiteNomTMAO = 25;
inline constexpr std::size_t kLimiteLigneTMAO = 35;
// La page OEM des fichiers de la fédération.
inline constexpr int kPageTMAO = 850;

// Le nettoyage d'un texte avant l'écriture : " ," devient ",", les blancs doubles un seul,
// " )" devient ")", puis coupé à limite et sans blancs autour (1252).
std::string NettoyerChampTMAO(std::string_view texte, std::size_t limite);

// Le prénom qui porte l'âge : ses 22 premiers caractères moins la longueur de l'âge, " (",
// l'âge et ")" ; le prénom seul sans âge.
std::string PrenomAvecAge(std::string_view prenom, std::string_view age);

// La date lue : "jj/mm/aaaa" ; une année de 1 à 14 est républicaine ("12/VEND/03").
std::string DateTMAO(const ActeTMAO& a);
// Jour, mois et année d'un texte de date : "jj/mm/aaaa" ; une date républicaine "12/vend/3"
// garde son mois ; toute autre forme donne jour et mois 0 et l'année des 4 derniers caractères.
void DateVersTMAO(std::string_view date, ActeTMAO& a);

// Le fichier entier : nombre d'actes, second nombre (le même), les actes nettoyés, coupés et
// passés en OEM, puis le pied : le texte donné (qui nomme la table) en chaîne et 19 octets nuls.
std::string EcrireTMAO(const std::vector<ActeTMAO>& actes, std::string_view pied);

struct LectureTMAO {
    bool Ok = false;
    std::string Erreur;  // 1252 : nomme le fichier et l'acte
    std::vector<ActeTMAO> Actes;
};
// Lit les octets d'un fichier ; nom : le nom montré dans les messages (1252). Un fichier vide,
// tronqué ou qui annonce plus d'actes qu'il n'en porte est refusé en entier.
LectureTMAO LireTMAO(std::string_view octets, std::string_view nom);

// Le type d'acte que nomme le pied (les 200 derniers octets, ou tout le fichier s'il est plus
// court) : 'N', 'M', 'D', ou 0 quand il n'en nomme aucun.
char TypeDansPied(std::string_view octets);
// La boîte "Type d'acte introuvable" : Abandonner 'N', Réessayer 'M', Ignorer 'D'.
char DemanderTypeActe(Dialogue& dialogue);
// Le pied qui nomme un type : "Table des naissances", "Table des mariages", "Table des décès",
// "Table des ascendances".
std::string PiedTMAO(char type);

}  // namespace arbolix
