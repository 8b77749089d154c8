// Rechercher et remplacer : les listes de valeurs, une valeur changée dans les fiches
// sélectionnées, un texte changé dans toutes les notes ou dans tous les lieux.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "lists/rangees.h"
#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

enum class ChampRemp { Nom, NomTri, Prenom, Metier, Lieu, Source };

// Une entrée du menu MenuRechRemp : la liste de saisie montrée, les mots de ses boîtes, et le
// Genre de la liste de valeurs.
struct EntreeRechRemp {
    ChampRemp champ;
    ListeChoix ListesSaisie::*source;
    const char* libelle;  // « Rechercher un » + libelle
    const char* genre;
    const char* invite;  // invite + ancienne valeur + " par"
};
extern const std::array<EntreeRechRemp, 6> kRechRemp;

// L'entrée du menu dont la liste de valeurs porte ce Genre ; nul pour un autre Genre.
const EntreeRechRemp* EntreeDuGenre(std::string_view genre);

// Recopie la liste de saisie dans cible (Genre et titre de l'entrée). Une liste vide donne la
// boîte « Pas de données disponibles » ; avec confirmer, l'avertissement vient d'abord et
// Annuler arrête. Vrai quand la liste est prête à montrer (la fiche est alors vidée).
bool ListerValeurs(const Base& base, const EntreeRechRemp& e, bool confirmer, Dialogue& dialogue,
                   ListePersonne& cible);

// Remplace ancien par nouveau : dans la liste de saisie et dans les rangées de liste (sans
// doublon), puis dans chaque fiche sélectionnée dont le champ vaut exactement ancien, datée de
// aujourdhui. « Nom de tri » : la clé de tri des personnes de ce nom ; la liste des noms ne change
// pas. Rend le nombre de fiches changées.
std::int32_t RemplacerValeur(Base& base, ChampRemp champ, std::string_view ancien, std::string_view nouveau,
                             double aujourdhui, ListePersonne* liste);

// Le double clic sur une valeur : la saisie du remplacement (vide : rien), puis RemplacerValeur.
std::int32_t DemanderRemplacement(Base& base, const EntreeRechRemp& e, ListePersonne& liste,
                                  std::size_t rangee, Dialogue& dialogue, double aujourdhui);

// Remplace texte par nouveau sans regarder majuscules ni accents, dans les notes des personnes
// et de leurs évènements et dans celles des évènements des familles, de toutes les fiches. Le
// texte nouveau est écrit tel que tapé. Rend le nombre de remplacements.
std::int32_t RemplacerDansNotes(Base& base, std::string_view texte, std::string_view nouveau);

// La même chose dans les lieux des sept évènements de toutes les fiches et dans la liste des lieux.
std::int32_t RemplacerLieux(Base& base, std::string_view ancien, std::string_view nouveau);

// MenuRechRempNotes et MenuRechRempTousLieux : l'avertissement, les deux saisies, puis le
// remplacement. Rend -1 quand l'utilisateur arrête, sinon le nombre de remplacements.
std::int32_t MenuRechRempNotes(Base& base, Dialogue& dialogue);
std::int32_t MenuRechRempTousLieux(Base& base, Dialogue& dialogue);

}  // namespace arbolix
