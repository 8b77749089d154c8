// Un tableau de texte tabulé (un acte par ligne, 17 colonnes) mis en table TMAO, et le brouillon
// des notes de la table que l'utilisateur complète.
#pragma once

#include <string>
#include <string_view>

namespace arbolix {

inline constexpr int kColonnesTxt2Tm = 17;

struct ResultatTxt2Tm {
    bool Ok = false;
    std::string Erreur;  // 1252 : nomme le fichier et la ligne
    std::string Octets;  // le fichier TMAO
    int NbActes = 0;
    int AnMin = 0, AnMax = 0;  // années au-dessus de 0 ; 0 sans acte daté
};

// texte : le fichier entier (1252, fins de ligne CR LF ou LF) dont la première ligne est
// l'en-tête ; nom : le nom du fichier pour les messages et le pied de la table.
// Une ligne de plus de 17 colonnes, des octets binaires ou plus de 65 535 actes refusent le tout.
ResultatTxt2Tm Txt2Tm(std::string_view texte, std::string_view nom);

// Le nom du fichier TMAO : la source dont les 3 derniers caractères deviennent "TM".
std::string NomSortieTxt2Tm(std::string_view source);

// Le brouillon des notes de la table : les "_" marquent ce qui reste à remplir.
std::string BrouillonNotesTable(const ResultatTxt2Tm& r, int anneeDuJour);

}  // namespace arbolix
