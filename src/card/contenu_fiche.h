// Ce que la fiche montre d'une personne, calculé de la base en une valeur simple : la fenêtre ne fait que le
// poser.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "card/lignes_personne.h"
#include "card/medias.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Textes de l'interface dont la fiche a besoin (fichier de messages) et le contexte d'affichage.
struct ContexteFiche {
    explicit ContexteFiche(const Options& o) : options(o) {}
    const Options& options;
    std::string LegendePerso = "Personne :";  // légende d'origine du cadre, coupée au premier ":"
    std::string MotSosa = "Sosa";             // ligne 590
    std::string MotModifiee =
        "modifi\xE9"
        "e le";                                // ligne 591
    std::string LegendeParents = "&Parents";   // ligne 49, "&" retiré à l'affichage
    std::string AucunEnfant = "Aucun enfant";  // lignes 593 à 595
    std::string UnEnfant = "enfant";
    std::string DesEnfants = "enfants";
    Largeur LargeurActe;               // largeur de l'étiquette Naissance moins une marge
    bool ListeEnfantsOuverte = false;  // la fenêtre Personne montre une liste "enfants"
    std::string ExtensionsImages{kExtensionsImages};
};

// Une rangée de liste de la fiche et son infobulle.
struct RangeeFiche {
    std::string texte;
    std::string bulle;
    friend bool operator==(const RangeeFiche&, const RangeeFiche&) = default;
};

struct ContenuFiche {
    std::int32_t Numero = 0;
    std::string LegendePerso;
    bool Sel = false;
    std::string Nom, Prenoms, Metier, Ref;
    char Sexe = ' ';  // 'M', 'F' ou blanc : seul le bouton du sexe connu est coloré
    std::string Naissance, Bapteme, Deces, Sepulture;
    bool IntRechAscendance = false, IntRechDescendance = false;
    std::string Notes, BulleNotes;
    std::string Adresse1, Adresse2, Etat, CP, Ville, Pays, Telephone, EMail, URL;

    std::int32_t NumParents = 0;
    std::string LegendeParents;
    std::string Pere, Mere, BullePere, BulleMere;
    std::int32_t NumPere = 0, NumMere = 0;

    std::vector<RangeeFiche> Unions;   // par date, queue " P" du conjoint puis " F" de la famille
    std::int32_t FamilleEnfants = 0;   // la famille dont les enfants sont montrés
    std::string LabelEnfants;          // compte et " F" + famille
    std::vector<RangeeFiche> Enfants;  // par date de naissance, queue " P"
    std::vector<RangeeFiche> Divers;   // fichiers liés, queue " P" ou " M" ; la bulle est le chemin
    std::string Photo;                 // chemin du premier fichier image lié, tel qu'écrit
};

// Ce que devient un numéro demandé sur la fiche.
enum class EtatNumero {
    Afficher,     // une personne (ou la fiche vierge 0, ou la suivante libre NbPersos + 1)
    Ignorer,      // au-delà de NbPersos + 1 : rien ne change
    HorsTableau,  // au-delà des tableaux : « Erreur mémoire »
};
// La valeur absolue du numéro compte ("-3" montre 3).
EtatNumero ExaminerNumero(const Base& base, std::int64_t numero);

// Tout le contenu de la fiche de la personne n (0 : fiche vierge). Le travail ne
// dépend que des liens de la personne, jamais de la taille du fichier.
ContenuFiche CalculerFiche(const Base& base, const ContexteFiche& ctx, std::int32_t n);

// Parties recalculables seules après un changement de lien.
void CalculerParents(const Base& base, const ContexteFiche& ctx, std::int32_t n, ContenuFiche& c);
std::vector<RangeeFiche> CalculerUnions(const Base& base, const ContexteFiche& ctx, std::int32_t n);
void CalculerEnfants(const Base& base, const ContexteFiche& ctx, std::int32_t f, ContenuFiche& c);
std::vector<RangeeFiche> CalculerDivers(const Base& base, const ContexteFiche& ctx, std::int32_t n);

// Légende du cadre de la personne : "Personne Sosa : 12, 48 modifiée le : 03/02/2024".
std::string LegendeCadrePerso(const Base& base, const ContexteFiche& ctx, std::int32_t n);

// Infobulle d'une rangée d'union : évènement du mariage et conjoint.
std::string BulleUnion(const Base& base, const Options& options, std::int32_t famille, std::int32_t conjoint);

// Le premier fichier lié de la personne dont l'extension est une image, ou vide.
std::string PremiereImage(const Base& base, const ContexteFiche& ctx, std::int32_t n);

}  // namespace arbolix
