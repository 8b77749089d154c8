// Les commandes de la sélection active qui n'ont pas besoin des ascendants : marques d'une
// branche de descendance, complément, inversion, compteurs.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// La personne, ses unions 1 à 7 jusqu'à la première vide, et les notes et sources externes
// liées à la personne, à ses évènements et aux évènements de ces unions.
void Marquer(Base& base, std::int32_t p);

// Une famille, les notes et sources externes liées à ses évènements, et ses deux époux (sans
// leurs autres familles).
void MarquerFamille(Base& base, std::int32_t f);

// Le parcours de descendance en mode sélection : chaque descendant parcouru est marqué, ses
// conjoints aussi (sans leurs familles). Un enfant est parcouru quand SelTousDesc est coché,
// ou quand il porte le nom (CodeNom) du parent et a une union. etLogique (« Sél. dans la
// sélection ») ne parcourt que les enfants de la sélection d'avant (SelAvant).
// dejaParcourus, indexé par personne, évite de refaire une branche déjà marquée : un descendant
// venu par deux chemins (ou une boucle dans les liens) est parcouru une fois. Rend le nombre
// de descendants parcourus, sans la racine.
std::int32_t MarquerDescendants(Base& base, const Options& options, std::int32_t racine, bool etLogique,
                                std::vector<std::uint8_t>& dejaParcourus);

// Après « Ascendants », « Descendants » ou « Apparentés » : familles de plusieurs unions ou de
// plusieurs enfants sélectionnés (avec SelTousDesc), union avec la sélection d'avant en OU,
// notes et sources des personnes sélectionnées.
void CompleterSel(Base& base, const Options& options, bool dansTout);

// Personnes nommées et familles à conjoint inversées ; notes, sources, médias inchangés.
void InverserSelection(Base& base);

std::int32_t NbSelPersos(const Base& base);
std::int32_t NbSelFamis(const Base& base);

// SelAvant = Sel sur les cinq sortes de fiches ; avec repartir, les deux à 0.
void GarderSelection(Base& base, bool repartir);

// Les listes de la sélection sur ListeChoix : toutes les fiches qui répondent au motif, une case
// par rangée, cochée quand la fiche est sélectionnée. Motif sans casse ni accents ; pour les
// personnes sur "Nom Prénoms", chaque partie étant un début ("dup j" vaut "dup* j*"), pour les familles sur
// "Nom Prénoms Nom Prénoms" des deux époux (vide : tout).
struct ListeCochee {
    ListePersonne liste;
    std::vector<bool> coches;
};
ListeCochee ListeSelPersos(const Base& base, const Options& options, std::string_view reponse);
ListeCochee ListeSelFamis(const Base& base, const Options& options, std::string_view reponse);
// Le titre : le nombre de rangées cochées sur six caractères, puis " personnes sélectionnées".
std::string TitreListeCochee(const ListeCochee& l);
// Une case changée par l'utilisateur : la marque de la fiche de la rangée s'inverse avec elle.
void BasculerRangee(Base& base, ListeCochee& l, std::size_t rangee);

// Lieux annexes d'une rangée de la liste des lieux : les autres rangées qui contiennent son texte
// à partir du deuxième caractère prennent sa coche ; rend leurs textes pour la boîte qui les nomme.
std::vector<std::string> CocherLieuxAnnexes(ListeCochee& l, std::size_t rangee);
// La question quand SelAutoLieuxAnnexes vaut 2 (demander).
std::string QuestionLieuxAnnexes(std::string_view lieu, bool cocher);

}  // namespace arbolix
