// Les tables TMAO converties en texte, texte tabulé, texte en colonnes et GEDCOM (le RTF est
// écrit par les rapports), et le cadre commun : nom de sortie, fichier existant, lieu, type.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "acts/tmao.h"
#include "platform/dialogue.h"

namespace arbolix {

// Le mode de conversion, dans l'ordre de la liste Conversion des options.
enum ModeConversion : int {
    kConvRtf = 0,
    kConvTexte = 1,
    kConvGedcom = 2,
    kConvTabule = 3,
    kConvColonnes = 4
};

// ".rtf", ".txt" ou ".ged" ; vide pour un mode inconnu.
std::string_view ExtensionConversion(int mode);

// Ce que toutes les sorties reçoivent en plus des actes ; textes en 1252.
struct EnteteConversion {
    std::string Source;  // le nom du fichier TMAO, sans dossier
    char Type = 'N';     // 'N', 'M', 'D' ou 'A'
    std::string Lieu;    // le lieu des actes (GEDCOM)
    std::string Date;    // "jj/mm/aaaa" du jour
};

// "TABLE DES NAISSANCES" et ses sœurs, en 1252.
std::string TitreTable(char type);
// La date d'un acte pour les sorties : vide sans année, l'année seule sans jour ni mois.
std::string DateActeTMAO(const ActeTMAO& a);

// Chaque sortie : le fichier entier, lignes finies par CR LF, en 1252.
std::string TexteTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e);
std::string TabuleTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e);
std::string ColonnesTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e);
std::string GedcomTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e);

// Le fichier de sortie : la source avec l'extension du mode ; s'il existe, la boîte
// "Fichier existant" propose un autre nom (avec "_") ou l'écrasement. nullopt : annulé.
std::optional<std::string> NomSortieConversion(const std::string& source, int mode, Dialogue& dialogue);

// La boîte "Lieu" de la sortie GEDCOM ; nullopt : annulé.
std::optional<std::string> DemanderLieuTMAO(Dialogue& dialogue);

}  // namespace arbolix
