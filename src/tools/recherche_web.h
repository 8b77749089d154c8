// Recherches sur le web (BoutonAnnuaire, BoutonBaseWeb) : les lignes d'adresses des options,
// leurs marques %nom, %prenom... remplies par les valeurs de l'écran.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"

namespace arbolix {

// Les valeurs de l'écran, en 1252 comme les cases.
struct ValeursWeb {
    std::string nom;     // %nom
    std::string prenom;  // %prenom : le premier des prénoms
    std::string comn;    // %comn : le lieu de l'acte, ou la ville de la fiche
    std::string annee;   // %annee ; %debut et %fin l'encadrent quand c'est une année
    std::string adrs;    // %adrs
    std::string dept;    // %dept : les deux premiers caractères du code postal
    std::string numtel;  // %numtel
};

// %debut et %fin : l'année moins et plus cet écart.
inline constexpr int kEcartAnneesWeb = 10;

// BoutonAnnuaire : la personne de la fiche.
ValeursWeb ValeursAnnuaire(std::string_view nom, std::string_view prenoms, std::string_view ville,
                           std::string_view adresse, std::string_view cp, std::string_view telephone);
// BoutonBaseWeb : la personne de la fiche, le lieu et la date de l'acte (ses 4 derniers caractères).
ValeursWeb ValeursBaseWeb(std::string_view nom, std::string_view prenoms, std::string_view lieu,
                          std::string_view date);

// Les lignes non vides du texte des options, "https://" devant celles qui ne commencent pas
// par "http". Vide : la boîte "Paramètre manquant" a été montrée.
std::vector<std::string> LignesWeb(std::string_view texte, Dialogue& dialogue);

// Ce que la liste montre d'une ligne : son hôte.
std::string HoteWeb(std::string_view ligne);
// Les rangées de la liste "web", une par ligne : l'hôte, ou la ligne entière quand deux lignes
// ont le même hôte, pour que la rangée choisie désigne sa ligne.
std::vector<std::string> RangeesWeb(const std::vector<std::string>& lignes);

// UTF-8 encodé pour une adresse : lettres, chiffres et "-._~" restent, le reste devient %XX.
std::string EncoderPourcent(std::string_view utf8);

// La ligne avec ses marques remplacées (valeurs en UTF-8, encodées). Un "%" qui ne commence
// aucune marque reste tel quel : la ligne peut déjà porter des %20.
std::string RemplirLigneWeb(std::string_view ligne, const ValeursWeb& v);

}  // namespace arbolix
