// Les cases de la fenêtre Gedcom : ce qu'on lit ou écrit d'un fichier, et le mode du dialogue.
#pragma once

#include <string>

namespace arbolix {

enum class ModeGedcom { Nouveau = 0, Ouvrir = 1, Enregistrer = 2 };

// Une case décochée laisse tomber la donnée à la lecture comme à l'écriture.
struct OptionsGedcom {
    std::string Fichier;
    ModeGedcom Mode = ModeGedcom::Ouvrir;
    bool Dates = true;
    bool Lieux = true;
    bool Professions = true;
    bool Temoins = true;
    bool Fichiers = true;
    bool Adresses = true;
    bool Sources = true;
    bool Notes = true;
    bool Ages = false;
    bool OptNettoie = false;  // nettoyer et trier unions et enfants par date
    bool OptRenum = false;    // réutiliser les fiches vides, renuméroter de 1 à N
    bool Defaut = false;      // faire de ce fichier le fichier par défaut
};

}  // namespace arbolix
