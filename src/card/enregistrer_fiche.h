// L'enregistrement de la fiche : ce que montrent les contrôles passe dans la personne.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

// Ce que les contrôles de la fiche montrent au moment de l'enregistrer (textes en 1252).
struct SaisieFiche {
    bool Sel = false;
    std::string Nom, Prenoms;
    char Sexe = ' ';  // 'M' (premier bouton), 'F' (second) ou blanc : aucun choisi
    bool IntRechAscendance = false, IntRechDescendance = false;
    std::string Metier, Ref, Notes;
    std::string Adresse1, Adresse2, Etat, CP, Ville, Pays, Telephone, EMail, URL;
};

// La saisie que donne la personne n telle qu'elle est dans la base.
SaisieFiche SaisieDePersonne(const Base& base, std::int32_t n);

// Copie la saisie dans la personne base.NumCourant, sans rien faire quand la fiche
// n'est pas modifiée ou qu'aucune personne n'est affichée. Sans sexe choisi et avec
// des prénoms, la question du sexe est posée. La note passe par les retours de
// liens des notes externes ; noms, prénoms et métiers entrent dans les listes de choix.
// Rend vrai quand la personne a été écrite (FicheModifiee baisse, FichierModifie monte).
bool EnregistrerFiche(Base& base, const SaisieFiche& saisie, Dialogue& dialogue, double maintenant);

// Champs de la fiche dont la frappe est aidée.
enum class ChampSaisi { Nom, Prenoms, Metier, Etat, CP, Ville, Pays, Telephone, EMail, URL };

// Une touche tapée à la suite de `avant` dans un champ : le caractère à insérer à
// sa place, ou rien quand la touche est refusée ("/" dans un nom ou un métier, qui
// couperait le nom GEDCOM ; tout sauf chiffres et " #*+" dans un téléphone).
std::optional<char> ToucheSaisie(ChampSaisi champ, std::string_view avant, char touche, bool modifCasse);

// Les prénoms complétés quand on quitte le champ : casse refaite, surnom " dit" en minuscules.
std::string PrenomsQuittes(std::string_view prenoms, bool modifCasse);

}  // namespace arbolix
