// Les réglages du programme comme valeurs : champs nommés d'après les contrôles des formulaires.
#pragma once

#include <array>
#include <string>

namespace arbolix {

// Valeurs de la fenêtre Options, avec les défauts du fichier de réglages.
// Le fichier de réglages les remplit et les enregistre (src/app) ; les règles les lisent.
struct Options {
    bool VerifMAJ = true;
    std::string FichierDefaut;
    std::array<std::string, 3> Chemin;  // rapports, sauvegarde, images
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
    std::string PourcentZoom = "100";
    bool ZoomFen = false;
    std::string NomPrenomParDefaut = "N";
    int Conversion = 1;
    int ExportPrefere = 2;
    int SelAutoLieuxAnnexes = 2;
    bool Sauvegarder = false;
    std::string Police;
    std::string SymbNais = "\xB0", SymbBapt = "b", SymbCoMa = "c", SymbMari = "x", SymbDivo = "d",
                SymbDece = "+", SymbSepu = "s";
    std::string MaxGen;  // non enregistré
    bool SelTousDesc = false;
};

}  // namespace arbolix
