// ConvertirTMAO : une table TMAO lue puis écrite en RTF, texte, GEDCOM, texte tabulé ou en colonnes.
#pragma once

#include <optional>
#include <string>

#include "acts/conversion_tmao.h"
#include "platform/dialogue.h"

namespace arbolix {

// Ce que l'appelant fixe d'avance ; ce qui reste vide est demandé comme la fenêtre le fait.
struct DemandeConversion {
    std::string Source;                 // UTF-8 ; vide : le dialogue d'ouverture
    int Mode = kConvTexte;              // ModeConversion
    std::optional<std::string> Sortie;  // UTF-8 ; donné : écrasé sans question
    std::optional<std::string> Lieu;    // 1252 ; donné : pas de boîte "Lieu"
    char Type = 0;                      // 'N', 'M', 'D', 'A' ; 0 : lu dans le pied du fichier
    std::string Date;                   // "jj/mm/aaaa" du jour
    std::string Dossier;                // UTF-8 : où le dialogue d'ouverture commence
};

struct ResultatConversion {
    bool Ok = false;
    bool Annule = false;
    std::string Erreur;  // 1252 : nomme le fichier et l'acte
    std::string Sortie;  // UTF-8 : le fichier écrit
    std::size_t NbActes = 0;
};

// Le document RTF de la table : page de titre du cercle, titre de la table, un paragraphe par acte
// (champs séparés par des tabulations, actes par un filet), le nombre d'actes pour finir.
std::string RtfTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e);

// Lit la table et écrit la sortie d'un seul renommage : un fichier abîmé ne laisse rien derrière
// lui, et l'ancienne sortie reste telle quelle. Aucune exception ne sort d'ici.
ResultatConversion ConvertirTMAO(const DemandeConversion& demande, Dialogue& dialogue);

}  // namespace arbolix
