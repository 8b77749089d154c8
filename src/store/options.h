// Les réglages du programme comme valeurs : champs nommés d'après les contrôles des formulaires.
#pragma once

#include <array>
#include <string>

namespace arbolix {

// Lignes par défaut des deux listes web : une adresse modèle par ligne, CR LF entre elles.
// Les hôtes sont ceux d'une base généalogique et d'un annuaire usuels.
inline constexpr const char* kLiensWebBasesDefaut =
    "https://www.geneanet.org/fonds/individus/?go=1&nom=%nom&prenom=%prenom";
inline constexpr const char* kLiensWebAnnuairesDefaut =
    "https://www.pagesjaunes.fr/pagesblanches/recherche?quoiqui=%nom&ou=%comn";

// Valeurs de la fenêtre Options, avec les défauts du fichier de réglages.
// Le fichier de réglages les remplit et les enregistre (src/app) ; les règles les lisent.
// Les nombres restent des textes, comme dans les cases : ValiderOptions les contrôle.
struct Options {
    bool VerifMAJ = true;
    std::string FichierDefaut;
    std::array<std::string, 3> Chemin;  // rapports, sauvegarde, images ; "/" final quand non vide
    std::string AgeMiniUnion = "15";
    std::string EcartGen = "30";
    std::string AgeMaxiEnfant = "50";
    std::string EcartAgeConjoints = "20";
    std::string AgeRetraite = "65";
    std::string AgeMaxiDeces = "100";
    bool ModifCasse = true;
    bool OptConvCalRep = true;
    bool ListePersosCourte = false;
    bool LanceFicherExporte = true;
    bool FondCaseCouleur = true;
    std::string PourcentZoom = "100";  // "(125)" : facteur mesuré sur l'écran
    bool ZoomFen = false;
    std::string ZoomClic = "100";  // sans contrôle : dernier zoom mesuré par le bouton Tester
    std::string NomPrenomParDefaut = "N";
    int Conversion = 1;           // action sur un fichier TMAO (ConvTMAO2)
    int ExportPrefere = 2;        // 0 TMAO, 1 TMT, 2 Nimègue
    int SelAutoLieuxAnnexes = 2;  // 0 non, 1 oui, 2 demander
    bool Sauvegarder = false;
    std::string Police;
    std::string SymbNais = "\xB0", SymbBapt = "b", SymbCoMa = "c", SymbMari = "x", SymbDivo = "d",
                SymbDece = "+", SymbSepu = "s";
    // Deux textes de plusieurs lignes (CR LF) : 0 bases d'actes, 1 annuaires.
    std::array<std::string, 2> LiensWeb{kLiensWebBasesDefaut, kLiensWebAnnuairesDefaut};
    std::string MaxGen;        // non enregistré
    bool SelTousDesc = false;  // non enregistré
    friend bool operator==(const Options&, const Options&) = default;
};

// Cases de la fenêtre Arbre en millimètres, gardées en texte ("20.5").
struct OptionsArbre {
    std::string LC = "65", HC = "30", MC = "1";
    std::string LF = "210", HF = "297", MF = "10";
    std::string NbGen = "5";
};

// Réglages enregistrés de la fenêtre Exports.
struct OptionsExport {
    // 0 naissances, baptêmes, contrats, mariages ; 1 décès et sépultures.
    std::array<std::string, 2> AnneesConfidentielles{"75", "0"};
    bool OptionSaufDecede = true;
    int OptionOrdre = 0;
    std::array<std::string, 2> ComboColRTF{"1", "1"};  // texte, index
    std::array<bool, 2> OptionBasPage{false, false};   // notes, sources
    bool OptSimplMarisMult = false;
    bool OptionIndexCourt = false;
    bool OptionPreciserUnions = true;  // vrai : « précédente, suivante »
    bool OptNumUniq = false;
    bool Toutes = false;
    bool OptionDatesAnnees = false;  // non enregistré
    // Les champs de texte du dialogue, non enregistrés : chemin du fichier (UTF-8), titre et
    // texte complémentaire (1252, lignes séparées par CR LF).
    std::string FichierExport;
    std::string TitreExport;
    std::string TexteComp;
};

// Position de la fenêtre Personne, en twips comme l'ancien fichier.
struct PositionFenetre {
    double L = 0, T = 0, W = 5400, H = 6120;
};

}  // namespace arbolix
