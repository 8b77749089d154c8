// Création et rupture des liens parents, unions et enfants depuis la fiche, en gardant les deux côtés à jour.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Ce que chaque commande de lien consulte : la base, les réglages, le Dialogue
// pour les questions et refus, et l'heure de la modification.
struct Edition {
    Base& base;
    const Options& options;
    Dialogue& dialogue;
    double maintenant = 0;          // jours depuis le 30/12/1899
    bool reutiliserLibres = false;  // case OptRenum du formulaire Gedcom
    bool selectionLimitee = false;  // MenuSel : une sélection est active
};

// Chaque commande suppose la fiche déjà enregistrée (EnregistrerFiche) et rend
// le numéro créé ou lié, 0 quand elle n'a rien fait. Aucune ne laisse un lien à
// moitié écrit : les limites (7 unions, 25 enfants) sont vérifiées des deux côtés
// avant la première écriture.

// Lie p à la famille f choisie dans la liste des parents. f = 0 : la première
// ligne, deux questions puis une famille neuve avec le père et/ou la mère créés.
// Rien quand p a déjà des parents ou que la famille a 25 enfants.
std::int32_t ChoisirParents(Edition& e, std::int32_t p, std::int32_t f);

// Détache p de ses parents ; la famille reste, même sans enfant.
void EnleverParents(Edition& e, std::int32_t p);

// Vrai quand p peut encore prendre une union ; sinon le message de refus est montré.
bool PeutAjouterUnion(Edition& e, std::int32_t p);

// Unit p à s dans une famille neuve. s hors d'usage (la première ligne de la
// liste, un numéro libre) : une fiche neuve est créée. Rend la famille.
std::int32_t ChoisirConjoint(Edition& e, std::int32_t p, std::int32_t s);

// Retire l'union f de p (SupprimerUnion) ; la famille sans conjoint disparaît.
void EnleverUnion(Edition& e, std::int32_t p, std::int32_t f);

// Union sans conjoint : propose de créer la fiche qui manque et l'entre du côté
// libre de f. Rend la nouvelle personne, 0 sur Non ou quand f a ses deux conjoints.
std::int32_t AjouterConjointManquant(Edition& e, std::int32_t p, std::int32_t f);

// La famille où ajouter un enfant de p : f si elle est donnée ; sinon, sur Oui
// à la question, une union monoparentale neuve. 0 quand on ne peut pas ajouter
// (pas d'union, 25 enfants déjà, 7 unions sans place pour la monoparentale).
std::int32_t FamillePourEnfant(Edition& e, std::int32_t p, std::int32_t f);

// Met c dans les enfants de f. c hors d'usage : une fiche neuve est créée, avec
// le nom des parents et une naissance estimée. Rend l'enfant, 0 si refusé.
std::int32_t ChoisirEnfant(Edition& e, std::int32_t f, std::int32_t c);

// Détache l'enfant c de sa famille.
void EnleverEnfant(Edition& e, std::int32_t c);

// Double d'un numéro Sosa en texte décimal, plus un pour la mère ; vide si le
// numéro ne vaut pas plus que 0. Les numéros dépassent tout type entier.
std::string SosaParent(std::string_view sosa, bool mere);

}  // namespace arbolix
