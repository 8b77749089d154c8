// Notes et sources externes (@N12@, @S12@) : création, liens et retours de liens, suppression, édition.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"
#include "store/base.h"
#include "store/liens.h"

namespace arbolix {

// Un champ qui peut porter un lien. Une personne : sa note (acte 0), puis la note
// et la source de ses évènements 1 naissance, 2 baptême, 3 décès, 4 sépulture.
// Une famille : la note et la source de 1 contrat, 2 mariage, 3 divorce.
struct ChampLien {
    bool famille = false;
    std::int32_t numero = 0;  // personne ou famille
    int acte = 0;
    bool source = false;  // le champ Source de l'évènement, qui porte un lien @S..@
};

// 'N' pour un champ de note, 'S' pour un champ de source.
inline char GenreDuChamp(const ChampLien& c) { return c.source ? 'S' : 'N'; }

// Le texte du champ ; un champ qui n'existe pas (note de famille, source de personne) lève out_of_range.
const Texte& TexteDuChamp(const Base& base, const ChampLien& c);

// Remplace le texte d'un champ en tenant les retours de liens : l'ancien lien perd
// sa place, le nouveau en prend une. Une note ou source qui n'a plus de lien fait
// poser la question de SupprimerOrpheline quand un Dialogue est donné.
void ChangerChamp(Base& base, const ChampLien& c, std::string_view texte, Dialogue* dialogue);

// Nouvelle note ou source au-dessus du plus haut numéro, sélectionnée (elle sera écrite).
std::int32_t NouvelleNote(Base& base, char genre);

// Une note ('N'), source ('S') ou objet média ('M') sans aucun lien : demande s'il
// faut la supprimer ; Oui l'efface. Rend vrai quand elle a été effacée.
bool SupprimerOrpheline(Base& base, char genre, std::int32_t numero, Dialogue& dialogue);

// Une note ('N') ou source ('S') vide et sans lien, telle qu'une création que
// l'éditeur a laissée sans texte, s'efface sans question. Rend vrai quand elle l'a été.
bool AbandonnerNote(Base& base, char genre, std::int32_t numero);

// Le bouton OK de l'éditeur sur la note ou source numero (-1 : la note du fichier).
// Un titre qui nomme un fichier texte existant fait lire ce fichier dans le texte,
// coupé en lignes de 75 caractères, 9 lignes au plus. Sel suit la personne affichée.
void ModifierNote(Base& base, char genre, std::int32_t numero, std::string_view titre, std::string_view texte);

// Coupe un texte en lignes d'au plus largeur caractères aux blancs (CR LF entre
// les lignes), maxLignes lignes au plus. Un mot plus long que la ligne est coupé.
std::string CouperLignes(std::string_view texte, std::size_t largeur, std::size_t maxLignes);

// Lecture et écriture d'un fichier texte, octets tels quels ; vide si impossible.
std::optional<std::string> LireFichierTexte(const std::string& chemin);
bool EcrireFichierTexte(const std::string& chemin, std::string_view texte);

// Lignes du choix d'une note (ou source) : "  Ajouter... N000000", puis les 150
// premiers caractères du titre (du texte à défaut), " N" et six chiffres.
// Les fiches effacées (sans titre ni texte) ne sont pas proposées.
std::vector<std::string> LignesChoixNotes(const Base& base, char genre);

}  // namespace arbolix
