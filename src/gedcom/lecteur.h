// Lecture d'un fichier GEDCOM dans la base : LireGedcom.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

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
    std::string Verification =
        "V\xE9rification des donn\xE9"
        "es...";
    std::string TitreProgramme = "Arbolix";
    std::string TitreJournal = "Journal de lecture du fichier";
    std::string FinJournal = "Fin du journal de lecture.";
};

// Ce que le journal ne dit que par des numéros internes, pour le dire en mots
// (journal_lecture.h) sans toucher aux lignes que les règles écrivent.
struct ReperesJournal {
    // Une fiche qui n'est pas une personne numérotée : l'en-tête, l'auteur du fichier, une
    // fiche non reprise. Lignes du fichier debut à fin comprises, nom avec son article.
    struct Fiche {
        std::int32_t debut = 0;
        std::int32_t fin = 0;
        std::string nom;
    };
    // Une ligne dont la lecture a fait une erreur d'exécution : sa balise et la ligne 0 de
    // sa fiche, sans le niveau ("@I12@ INDI").
    struct Piege {
        std::int32_t ligne = 0;
        std::string balise;
        std::string fiche;
    };
    std::vector<Fiche> fiches;
    std::vector<Piege> pieges;
};

// Ce que le lecteur laisse à son appelant.
struct ResultatLecture {
    bool Lu = false;                 // le fichier a pu être ouvert et lu
    std::string Erreur;              // message en français quand il n'a pas pu l'être
    std::string Journal;             // journal de lecture, lignes terminées par CR LF
    ReperesJournal Reperes;          // pour montrer le journal en mots
    bool Annule = false;             // l'utilisateur a arrêté la lecture : la base a été vidée
    std::int32_t PremierePerso = 0;  // la personne à montrer d'abord
};

// Contexte de la lecture : ce que les règles lisent sur les formulaires.
struct ContexteLecture {
    Options& options;       // FichierDefaut, ListePersosCourte (peut être coché), ...
    OptionsGedcom& gedcom;  // Fichier et cases ; OptRenum peut être décoché
    Progression& progression;
    TextesLecture textes{};
    bool remplirListes = true;    // noms, prénoms, métiers, lieux, sources vers les listes de saisie
    bool fenetreVisible = false;  // la fenêtre principale est montrée
    // Le tampon déjà lu se rend au système par pas de cette taille (un grand fichier ne tient
    // pas tout entier en mémoire à côté de la base qu'il remplit).
    std::size_t pasRendu = std::size_t{16} << 20;
    // À partir de cette taille de fichier, un second fil fait d'avance les pages neuves des
    // personnes et des familles (voir PagesDAvance) : en deçà, le démarrer coûte plus qu'il ne rend.
    std::size_t seuilPagesDAvance = std::size_t{8} << 20;
};

// Ce que sont les octets d'un fichier qu'on ouvre. UTF-16 (avec ou sans marque) et
// marque UTF-8 sont reconnus avant l'examen du début du fichier.
enum class NatureFichier {
    Gedcom,
    Vide,        // aucun octet, ou rien que des blancs
    Binaire,     // un octet nul ou trop de caractères de contrôle au début
    SansEntete,  // du texte, mais pas de ligne "0 HEAD" dans ses premières lignes
};
NatureFichier ExaminerFichier(std::string_view octets);

// Lit le fichier gedcom.Fichier dans la base ; une base non vide reçoit les
// fiches lues à la suite des siennes. Un fichier vide ou qui n'est pas du GEDCOM
// n'est pas lu : Erreur le nomme et dit pourquoi, la base reste telle quelle.
// Aucune exception ne sort d'ici.
ResultatLecture LireGedcom(Base& base, ContexteLecture& contexte);

// La même lecture sur un texte déjà en mémoire (tests, bancs d'essai, fuzzing).
ResultatLecture LireGedcomTexte(Base& base, ContexteLecture& contexte, std::string contenu);

}  // namespace arbolix
