// Les liens de la base : tri des enfants et des unions, suppression d'une union, champs qui citent
// une note, une source ou un objet média et retours de ces liens.
#pragma once

#include <cstdint>
#include <string_view>
#include <utility>

#include "platform/dialogue.h"
#include "platform/progression.h"
#include "store/base.h"

namespace arbolix {

// Trie les enfants de la famille f par date de naissance (de baptême à défaut)
// puis par numéro, sans trou ni doublon : un enfant lié deux fois n'y reste qu'une.
void TrierEnfants(Base& base, std::int32_t f);

// Trie les unions de la personne p par date de mariage (à défaut sa naissance,
// puis la date du contrat), sans trou ni doublon.
void TrierUnions(Base& base, std::int32_t p);

// Retire la famille f du côté de la personne p. Une famille qui n'a plus aucun
// conjoint est effacée ; ses enfants perdent leurs parents, ce que dit un message
// quand un Dialogue est donné. maintenant : la date des modifications (jours depuis 1899).
void SupprimerUnion(Base& base, std::int32_t f, std::int32_t p, Dialogue* dialogue, double maintenant);

// Places des retours de liens d'une note, source ou objet média.
using Retours = Emplacements<std::int32_t, 1, kMaxLiens>;

// Un texte est un lien vers une note (genre 'N') ou une source ('S') quand il est
// tout entier "@N<chiffres>@", blancs de bord mis à part.
bool EstLien(std::string_view v, char genre);
// Numéro du lien "@N12@" (12), 0 si ce n'est pas un lien de ce genre.
std::int32_t NumeroDuLien(std::string_view v, char genre);

// Premier emplacement libre qui reçoit valeur ; 0 quand tout est pris.
template <typename E, typename V>
int PlacerPremierLibre(E& emplacements, V valeur) {
    const int i = emplacements.PremierLibre();
    if (i > E::kDernier) return 0;
    emplacements.Fixer(i, std::move(valeur));
    return i;
}

template <typename E, typename V>
bool Contient(const E& emplacements, const V& valeur) {
    for (const auto& c : emplacements)
        if (c.second == valeur) return true;
    return false;
}

// Retire valeur ; les emplacements qui la suivent remontent d'une place, la liste reste sans trou.
template <typename E, typename V>
bool Retirer(E& emplacements, const V& valeur) {
    int i = E::kPremier;
    while (i <= E::kDernier && !(emplacements(i) == valeur)) ++i;
    if (i > E::kDernier) return false;
    for (; i < E::kDernier; ++i) emplacements.Fixer(i, emplacements(i + 1));
    emplacements.Fixer(E::kDernier, {});
    return true;
}

// L'évènement n (1..4 pour une personne, 1..3 pour une famille), nul hors bornes.
Acte* ActeDe(Perso& p, int n);
Acte* ActeDe(Fami& f, int n);
const Acte* ActeDe(const Perso& p, int n);
const Acte* ActeDe(const Fami& f, int n);
constexpr int kActesPerso = 4;
constexpr int kActesFami = 3;

// Notes ('N') ou sources ('S').
Tableau<NoteExt>& NotesDuGenre(Base& base, char genre);
const Tableau<NoteExt>& NotesDuGenre(const Base& base, char genre);

// Numéro dans les bornes d'un tableau (1..haut).
bool DansTableau(std::int32_t n, std::int32_t haut);
// Plus haut numéro des notes ('N'), sources ('S') ou objets médias ('M').
std::int32_t Haut(const Base& base, char genre);

// Retours de liens refaits en parcourant les champs de toutes les personnes et
// familles : ceux des notes et sources, et les personnes des objets médias.
// Chaque lien prend la première place libre ; au-delà de neuf, le lien reste sans retour.
// La progression, quand il y en a une, laisse passer les évènements de temps en temps.
void ReconstruireLiens(Base& base, Progression* progression = nullptr);

// Pour l'objet média m, la personne p (ou la famille) prend ou rend sa place selon
// qu'elle le cite encore. Interne aux liens médias, exposé pour eux.
void AccorderRetour(Base& base, char genre, std::int32_t numero, bool famille, std::int32_t qui);

}  // namespace arbolix
