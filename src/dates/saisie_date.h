// Règles de la saisie d'une date dans l'éditeur d'évènement qui ne demandent pas la fenêtre.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/base.h"

namespace arbolix {

// Vrai quand le texte tapé, privé des blancs, signes, séparateurs et mots
// "vers", "avant", "après", fait 8 caractères dont le premier est un chiffre :
// une date de 8 chiffres passe au lieu sans autre touche. Au formulaire de
// vérifier que Lieu est vide et qu'il est affiché.
bool DateSaisieComplete(std::string_view texte);

// "dimanche" à "samedi" pour une date ; vide sinon (l'étiquette garde alors son texte).
std::string JourDeLaSemaineEnLettres(std::string_view date);

// L'année des 4 derniers caractères est à 6 ans au plus de 1799 (1793 à 1805) :
// l'éditeur montre alors la date républicaine équivalente.
bool AnneeRevolutionnaire(std::string_view date);

// Date tirée d'un âge : l'année de naissance plus l'âge. Vide sans année de naissance ou sans âge.
std::string DateDeLAge(std::int16_t anneeNaissance, std::string_view age);

// Année gardée à la validation de l'éditeur : les 4 derniers caractères, sans ôter
// de barre (03/50 donne 3), sur 16 bits ; 0 pour un jour et un mois sans année.
std::int16_t AnneeSaisie(std::string_view date);

// Le texte tapé, ses mots français rendus aux mots que lit ParseDate : les mois, en
// toutes lettres ou abrégés, accentués ou non ("mai", "févr.", "août", "décembre"), et
// les mois GEDCOM ; "1er" ; "entre ... et ...", "de ... à ...", "à ...". Un mois précédé
// de son jour devient son abréviation GEDCOM ("1 mai 1850" donne "1 may 1850"), un mois
// seul devant l'année son numéro ("mai 1850" donne "05 1850" : ParseDate perdrait le mois
// d'un "may 1850"). Le reste ne change pas.
std::string TraduireSaisieDate(std::string_view texte);

// Vide quand la date mise en forme (sortie de ParseDate) est une des formes du
// programme et qu'elle existe ; sinon le message à montrer sous le titre "Date non
// valide". Refusées : "31/02/1775", "12/13/1750", "31/04", un mot que la saisie ne
// connaît pas ("01/maj/1850"). Admises aussi les formes gardées des actes ("00/03/1750"),
// "03/50", et la date républicaine restée telle quelle quand la conversion est coupée.
std::string DateNonValide(std::string_view date);

// Les champs de l'éditeur que touche la sortie de Date ou d'Age, en texte 1252.
struct ChampsDate {
    std::string Date;
    std::string Notes;
    std::string Age;
    std::string LabelDate;  // le jour de la semaine ; garde son texte quand la date n'en a pas
};

// Ce que la saisie d'une date consulte hors de ses champs.
struct ContexteSaisie {
    char genre = 'N';                 // lettre de l'évènement : N B D S M C X Z
    const Acte* naissance = nullptr;  // naissance de la personne de la fiche ; nul : aucune
    std::int32_t numCourant = 0;
    std::int32_t nbFamis = 0;
    bool convCalRep = true;  // Options.OptConvCalRep
    std::string ageMaxiDeces = "100";
};

// Sortie du champ Date non vide : la date tapée est remise en forme (ParseDate
// dans acteCourant, dont la note est d'abord vidée), le jour de la semaine va
// dans LabelDate, l'équivalent républicain dans Notes quand Notes est vide, et
// l'âge se calcule pour un décès, un mariage ou un divorce quand il est vide.
void QuitterDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx);

// Sortie du champ Age : un âge sans date donne l'année, naissance plus âge.
// ageModifiable : le champ n'est pas en lecture seule.
void QuitterAge(ChampsDate& champs, const ContexteSaisie& ctx, bool ageModifiable);

// La partie date de la validation : la sortie de Date une fois encore, puis
// Date, DateTri et Annee de acteCourant pris du champ (l'année des 4 derniers
// caractères, aucune pour un jour et un mois). relire faux : la date n'a pas été
// tapée depuis sa dernière mise en forme ; elle n'est pas relue. verifier : la date
// a été tapée depuis l'ouverture de l'éditeur ; une date non valide est alors
// refusée : le message de DateNonValide est rendu et acteCourant garde sa date.
// Une date venue du fichier et laissée telle quelle n'est jamais refusée.
std::string ValiderDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx, bool relire,
                        bool verifier = false);

}  // namespace arbolix
