// Lecture d'un fichier GEDCOM dans la base : LireGedcom.
#pragma once

#include <cstdint>
#include <string>

#include "gedcom/options_gedcom.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

class Progression;

// Textes du fichier de messages dont la lecture a besoin.
struct TextesLecture {
    std::string Lecture = "Lecture du fichier en cours...";
    std::string Personnes = "personnes";
    std::string Familles = "familles";
    std::string Agrandissement = "Agrandissement";
    std::string Verification = "V\xE9rification des donn\xE9" "es...";
    std::string TitreProgramme = "Arbolix";
    std::string TitreJournal = "Journal de lecture du fichier";
    std::string FinJournal = "Fin du journal de lecture.";
};

// Ce que le lecteur laisse à son appelant.
struct ResultatLecture {
    bool Lu = false;          // le fichier a pu être ouvert et lu
    std::string Erreur;       // message en français quand il n'a pas pu l'être
    std::string Journal;      // journal de lecture, lignes terminées par CR LF
    bool Annule = false;      // l'utilisateur a arrêté la lecture : la base a été vidée
    std::int32_t PremierePerso = 0;  // la personne à montrer d'abord
};

// Contexte de la lecture : ce que les règles lisent sur les formulaires.
struct ContexteLecture {
    Options& options;              // FichierDefaut, ListePersosCourte (peut être coché), ...
    OptionsGedcom& gedcom;         // Fichier et cases ; OptRenum peut être décoché
    Progression& progression;
    TextesLecture textes{};
    bool remplirListes = true;     // noms, prénoms, métiers, lieux, sources vers les listes de saisie
    bool fenetreVisible = false;   // la fenêtre principale est montrée
};

// Lit le fichier gedcom.Fichier dans la base ; une base non vide reçoit les
// fiches lues à la suite des siennes. Aucune exception ne sort d'ici.
ResultatLecture LireGedcom(Base& base, ContexteLecture& contexte);

// La même lecture sur un texte déjà en mémoire (tests, bancs d'essai, fuzzing).
ResultatLecture LireGedcomTexte(Base& base, ContexteLecture& contexte, std::string contenu);

}  // namespace arbolix
