// Liens lus dans les fiches : pointeurs du fichier, notes et sources externes, objets médias.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/base.h"
#include "store/liens.h"

namespace arbolix {

class LecteurGedcom;

// "@...@" sans blanc : un pointeur GEDCOM, quel que soit son préfixe.
bool EstPointeur(std::string_view v);
// L'objet de la liste (numéros d'objets médias) dont l'un des fichiers est ce chemin ; 0 s'il n'y en a pas.
std::int32_t ObjetAuChemin(const Base& b, const Emplacements<std::int32_t, 1, kMaxLiens>& objets,
                           std::string_view chemin);

// Les objets d'une personne sont dans sa liste et dans celles de ses évènements : elle a l'objet m
// quand l'une d'elles le porte ; ObjetDeLaPersonneAuChemin rend celui qui porte ce chemin, ou 0.
bool ObjetDeLaPersonne(const Perso& p, std::int32_t m);
std::int32_t ObjetDeLaPersonneAuChemin(const Base& b, const Perso& p, std::string_view chemin);

// Ajoute un texte à un champ : le champ vide devient le texte, sinon champ, sep, texte.
// Un texte vide n'ajoute rien, pas même le séparateur.
void Ajouter(Texte& champ, std::string_view sep, std::string_view valeur);

// Pointeur du fichier vers sa forme dans la base : "@NOTE7@" donne "@N7@" (décalé
// comme les fiches de notes lues dans une base non vide).
// Le retour de lien ne se pose pas ici : la fin de lecture refait tous les retours d'après
// les textes gardés, une seule fois.
std::string LienLu(LecteurGedcom& l, std::string_view pointeur, char genre);

// Numéro d'un objet média désigné par un pointeur @M..@. Un objet local créé
// plus tôt qui occupait ce numéro part plus haut : le numéro est celui du fichier.
std::int32_t MediaDuPointeur(LecteurGedcom& l, std::string_view pointeur);
// Nouvel objet local (chemin lu sous une personne ou une famille), au-dessus du
// plus haut numéro vu. Rend son numéro.
std::int32_t NouvelObjetLocal(LecteurGedcom& l, std::string_view chemin);

// Une fiche de plus dans les tableaux quand un numéro dépasse la borne.
void AssurerPlace(Base& base, std::int64_t numero);

}  // namespace arbolix
