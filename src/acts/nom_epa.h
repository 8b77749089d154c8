// Le nom d'un fichier .EPA porte tout ce que l'export SQL d'un livre de familles doit savoir.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace arbolix {

// Tiré du nom CODE-TITRE.EPA (F54123-Saint_Clement.EPA) ; textes en 1252.
struct NomEPA {
    std::string CodeFichier;   // F54123
    std::string NomFichier;    // F54123-Saint_Clement.EPA
    std::string TitreLieu;     // Saint Clement
    std::string TitreLivre;    // Livre des familles de Saint Clement
    std::int16_t NumPays = 0;  // A vaut 1 : F vaut 6
    std::int32_t NumDept = 0;  // 54 : les chiffres 2 et 3 du code
    std::string CodeLieu;      // 123
    std::string Erreur;        // vide quand le nom convient ; sinon ce qui ne va pas, nom compris
};

// chemin : UTF-8, tel que la ligne de commande le donne (guillemets et blancs de fin admis).
// Un nom sans « - », sans titre, ou dont le code n'est pas une lettre majuscule, deux
// chiffres et un code de lieu est refusé : l'export ne saurait où ranger le livre.
NomEPA LireNomEPA(std::string_view chemin);

// Le chemin sans guillemets ni blancs de fin.
std::string NettoyerCheminEPA(std::string_view chemin);

// Le fichier GEDCOM du livre : le chemin sans ".EPA", ou avec ".ged" à la place quand le
// premier n'existe pas. Vide quand aucun des deux n'existe.
std::string FichierGedcomEPA(std::string_view chemin);

// Le script : le chemin avec l'extension "sql" à la place de "EPA".
std::string FichierScriptEPA(std::string_view chemin);

}  // namespace arbolix
