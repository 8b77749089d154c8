// La base en mémoire : personnes, familles, notes, sources et objets médias, leurs compteurs et drapeaux.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "store/annexe.h"
#include "store/emplacements.h"
#include "store/listes_choix.h"
#include "store/tableau.h"
#include "store/texte.h"

namespace arbolix {

// Drapeaux sur entiers 16 bits : -1 vrai, 0 faux, comme dans le fichier.
using Drapeau = std::int16_t;
constexpr Drapeau kVrai = -1;
constexpr Drapeau kFaux = 0;

// Témoins, rôles et médias d'un évènement : rares, donc hors de l'évènement.
struct LiensActe {
    Emplacements<std::int32_t, 1, 9> Medias;
    Emplacements<std::int32_t, 0, 20> Temoins;
    Emplacements<Texte, 0, 20> RolesTemoins;
    friend bool operator==(const LiensActe&, const LiensActe&) = default;
};

// Un évènement : naissance, baptême, décès, sépulture, contrat, mariage, divorce.
struct Acte {
    Texte Date;
    Texte DateTri;
    std::int16_t Annee = 0;
    // Connu sans date ni lieu (« 1 DEAT Y ») : l'évènement s'écrit même vide.
    bool Connu = false;
    Texte Lieu;
    Texte Notes;
    Texte Source;

    const LiensActe& Liens() const { return liens_.Lire(); }
    LiensActe& LiensModif() { return liens_.Ecrire(); }

    friend bool operator==(const Acte&, const Acte&) = default;

private:
    Annexe<LiensActe> liens_;
};

// Ce qu'une personne porte rarement : adresse, numéros Sosa, fichiers liés.
struct PersoSuite {
    Texte Adresse1, Adresse2, Etat, CP, Ville, Pays, Telephone, EMail, URL, Ref;
    std::array<Texte, 3> NumSosa;
    std::array<Texte, 3> CheminSosa;
    std::array<Texte, 3> AutresSosa;
    Emplacements<Texte, 1, 9> Fichiers;
    Emplacements<std::int32_t, 1, 9> ObjetsMedia;
    friend bool operator==(const PersoSuite&, const PersoSuite&) = default;
};

struct Perso {
    Texte Nom;
    Texte Prenoms;
    Texte NomTri;
    Texte CodeNom;
    Texte Metier;
    Texte CodesMetiers;
    Texte Titre;
    Acte Naissance;
    Acte Bapteme;
    Acte Deces;
    Acte Sepulture;
    std::int32_t NumParents = 0;
    // Emplacements 1 à 7 ; l'emplacement 0 est la famille par laquelle un parcours est arrivé.
    std::array<std::int32_t, 8> Unions{};
    std::int32_t EntreeLivre = 0;
    std::int32_t NumLivre = 0;
    Texte Notes;
    Drapeau Sel = kFaux;
    Drapeau SelAvant = kFaux;
    std::uint8_t Interet = 0;
    // Parmi les petits champs : entre deux textes, il coûtait quinze octets de bourrage par personne.
    char Sexe = ' ';  // "M", "F" ou blanc ; une autre lettre lue du fichier est gardée
    double DateModif = 0;  // jours depuis le 30/12/1899, 0 pour aucune

    const PersoSuite& Suite() const { return suite_.Lire(); }
    PersoSuite& SuiteModif() { return suite_.Ecrire(); }

    friend bool operator==(const Perso&, const Perso&) = default;

private:
    Annexe<PersoSuite> suite_;
};

constexpr int kMaxUnions = 7;
constexpr int kMaxEnfants = 25;
constexpr int kMaxTemoins = 20;
constexpr int kMaxLiens = 9;

struct Fami {
    std::int32_t Mari = 0;
    std::int32_t Femme = 0;
    Acte Contrat;
    Acte Mariage;
    Acte Divorce;
    // Emplacements 1 à 25, sans trou, par ordre de naissance.
    Emplacements<std::int32_t, 0, kMaxEnfants> Enfants;
    std::int32_t EntreeLivre = 0;
    std::int32_t NumLivre = 0;
    Drapeau Sel = kFaux;
    Drapeau SelAvant = kFaux;
    double DateModif = 0;
    friend bool operator==(const Fami&, const Fami&) = default;
};

// Même forme pour les notes (@N..@) et les sources (@S..@).
struct NoteExt {
    arbolix::Texte Titre;
    arbolix::Texte Texte;
    std::int32_t NumLivre = 0;
    Drapeau Sel = kFaux;
    Drapeau SelAvant = kFaux;
    Emplacements<std::int32_t, 1, kMaxLiens> LiensPersos;
    Emplacements<std::int32_t, 1, kMaxLiens> LiensFamis;
    friend bool operator==(const NoteExt&, const NoteExt&) = default;
};
using SourceExt = NoteExt;

struct ObjetMedia {
    Emplacements<Texte, 1, kMaxLiens> Fichiers;
    Emplacements<Texte, 1, kMaxLiens> Titres;
    std::int32_t Local = 0;  // 0 : fiche à part (0 @M2@ OBJE) ; sinon écrit sous les personnes liées
    std::int32_t Actif = 0;
    Emplacements<std::int32_t, 1, kMaxLiens> LiensPersos;
    Emplacements<std::int32_t, 1, kMaxLiens> LiensFamis;
    std::int32_t TypeActe = 0;
    std::int32_t NumNote = 0;
    std::int32_t NumSource = 0;
    friend bool operator==(const ObjetMedia&, const ObjetMedia&) = default;
};

constexpr std::int32_t kFichesDepart = 10000;

// Une base : ce que contient un fichier GEDCOM ouvert. Le programme en tient
// une ; chaque test fait la sienne.
struct Base {
    Tableau<Perso> Persos{-1};        // -1 : le généalogiste (SUBM) ; 0 : fiche vierge
    Tableau<Fami> Familles{0};        // 0 : fiche vierge
    Tableau<NoteExt> Notes{-1};       // -1 : la note du fichier
    Tableau<SourceExt> Sources{-1};
    Tableau<ObjetMedia> Medias{0};

    std::int32_t MaxFiches = 0;
    std::int32_t NbPersos = 0, NbFamis = 0, NbNotes = 0, NbSources = 0, NbMedias = 0;
    std::int32_t NbPersosReels = 0, NbFamisReels = 0, NbNotesReelles = 0, NbSourcesReelles = 0,
                 NbMediasReels = 0;
    std::int32_t NumCourant = 0;
    std::int32_t NumDeCujus = 0;

    Drapeau FichierModifie = kFaux;
    Drapeau FicheModifiee = kFaux;
    Drapeau Chargement = kFaux;

    Acte ActeCourant;  // copie de travail de l'éditeur d'évènement
    ListesSaisie Listes;

    Base();
};

class Progression;

// Dimensionne les tableaux à 10000 et les vide ; avec recharger, remet aussi
// les compteurs et drapeaux à zéro.
void Vider(Base& base, bool recharger);

// Change la borne commune des cinq tableaux en gardant leur contenu.
void RedimensionnerBase(Base& base, std::int32_t maxFiches);

// Agrandit la base de supplement quand il reste moins de 1000 places derrière NumCourant.
void AgrandirBase(Base& base, bool avecListes, std::int32_t supplement, Progression* progression,
                  std::string_view motAgrandir);

// Numéro libre pour une nouvelle personne ; avec creer, la fiche est remplie de "N".
// modele : personne choisie dans la liste dont on recopie nom, prénoms et sexe (0 pour aucune).
std::int32_t NouvellePersonne(Base& base, bool creer, bool reutiliserLibres, std::int32_t modele = 0);

// Une personne en usage a des prénoms : toute boucle saute les fiches sans prénoms.
inline bool PersonneExiste(const Base& base, std::int32_t n) {
    return n > 0 && n <= base.Persos.Haut() && !base.Persos[n].Prenoms.empty();
}

}  // namespace arbolix
