// Le contenu des listes de la fenêtre Personne : personnes, familles, notes, sources, fichiers, fiches
// récentes, et ce que font leurs clics.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Le tableau des réponses : une ligne par saisie, une colonne par commande.
// Il survit d'une commande à l'autre pour que l'invite reparte de la dernière réponse.
enum ColonneReponses { kColPersos = 0, kColFamis = 1, kColNotes = 2, kColSources = 3, kColFichiers = 4 };
struct ReponsesListes {
    std::array<std::array<std::string, 4>, 5> r{};
    std::string DernierGenre;  // genre du dernier remplissage
};

// L'invite à plusieurs lignes (InputMsgBox) : la fenêtre la montre, un test y répond.
struct Invite {
    std::string Titre;
    std::string Legende;
    std::vector<std::string> Libelles;
    std::vector<std::string> Valeurs;  // en entrée les réponses proposées, en sortie les réponses
};
using Inviter = std::function<bool(Invite&)>;  // faux : Annuler

// Au-delà de ce nombre de fiches, l'invite vient toujours : le contrôle de liste a sa limite.
inline constexpr std::int32_t kSeuilListeCourte = 32766;

struct ContexteListe {
    ContexteListe(const Options& o, ReponsesListes& r, Inviter i = {})
        : options(o), reponses(r), inviter(std::move(i)) {}
    const Options& options;
    ReponsesListes& reponses;
    Inviter inviter;       // peut manquer : aucune invite
    std::string NomFiche;  // la personne de la fiche, pour les réponses par défaut
    std::string PrenomsFiche;
    std::int32_t ConjointFiche = 0;  // conjoint de la rangée choisie de la liste Union
    bool Renumeroter = false;        // Gedcom.OptRenum : numéro de la prochaine personne
};

// Personnes (Genre "tous") ou familles (Genre "familles") : invite quand la liste
// courte est demandée ou que le fichier est trop grand, puis remplissage en deux passes.
// Faux quand l'invite est annulée : pas de liste.
enum class QuoiListe { Persos, Famis };
bool ChercherEtLister(const Base& base, ContexteListe& ctx, QuoiListe quoi, ListePersonne& liste);

// Les listes des notes, des sources et des fichiers (Genre "notes", "sources", "fichiers").
bool ListeNotes(const Base& base, ContexteListe& ctx, ListePersonne& liste);
bool ListeSources(const Base& base, ContexteListe& ctx, ListePersonne& liste);
bool ListeFichiers(const Base& base, ContexteListe& ctx, ListePersonne& liste);

// Fiches modifiées récemment (Genre "recents") : ouvre la liste à un jour et la
// remplit aussitôt ; chaque double clic sur la ligne de tête élargit la fenêtre de
// temps (1, 7, 49, 343 jours, puis 1). aujourdhui : jours depuis le 30/12/1899.
void OuvrirRecents(const Base& base, const Options& options, std::string_view titre, double aujourdhui,
                   ListePersonne& liste);
void AgrandirRecents(const Base& base, const Options& options, double aujourdhui, ListePersonne& liste);
int JoursRecents(const ListePersonne& liste);

// Le numéro que prendrait une nouvelle personne (sans la créer).
std::int32_t ProchainePersonne(const Base& base, bool renumeroter);

// Règles de recherche, exposées pour les essais.
std::string MotifPrenoms(std::string_view reponse, bool modifCasse);  // casse des prénoms et "*" final
std::string Replier(std::string_view texte);  // minuscules sans accents : recherche indifférente

// Ce qu'un clic demande à la fenêtre.
enum class ActionListe {
    Rien,
    Afficher,          // numero dans NumPerso
    NouvellePersonne,  // créer une personne et la montrer
    AgrandirRecents,
    OuvrirFichier,      // chemin dans son programme (double clic)
    ProprietesFichier,  // chemin : montrer ses propriétés, puis puisAfficher dans NumPerso
    OuvrirNote,         // note externe numero dans l'éditeur
    OuvrirSource,
    EstimerActesVides,  // numero 0 : les naissances, 1 : les mariages
    ListeParente,       // "anccom" : la liste de parenté avec la personne numero
    RemplacerValeur,    // liste de valeurs à remplacer : la rangée numero
    ArbreParente,       // "parente" : l'arbre de parenté depuis l'ancêtre commun numero
    ImprimerEtiquettes,  // "etiquettes", ligne de tête : la fenêtre Arbre
    RetirerEtiquette,    // "etiquettes" : la rangée numero sort de la liste
    DecalerArbre,        // "enfants-arbre" : l'aperçu repart de l'enfant numero
};
struct Reaction {
    ActionListe action = ActionListe::Rien;
    std::int32_t numero = 0;
    std::string chemin;
    bool fermer = false;            // la fenêtre se ferme d'abord
    std::int32_t puisAfficher = 0;  // après l'action, la personne à montrer (0 : aucune)
    friend bool operator==(const Reaction&, const Reaction&) = default;
};

// Infobulle d'une rangée au simple clic (vide pour un numéro 0).
std::string BulleRangee(const Base& base, const Options& options, const ListePersonne& liste,
                        std::size_t rangee);
Reaction DoubleClic(const Base& base, const Options& options, const ListePersonne& liste, std::size_t rangee);
Reaction ClicDroit(const Base& base, const Options& options, const ListePersonne& liste, std::size_t rangee);

// Saut au clavier : de la rangée 0, descendre tant que le premier caractère est
// avant la lettre (a à z) et qu'il reste des rangées. Les accents ne se replient pas.
// Une autre touche que a à z ne fait rien (nullopt).
std::optional<std::size_t> SautLettre(const ListePersonne& liste, char lettre);

// Le chemin d'une rangée de la liste des fichiers : après le premier double blank,
// sans les 8 derniers caractères.
std::string CheminDeRangee(std::string_view rangee);

}  // namespace arbolix
