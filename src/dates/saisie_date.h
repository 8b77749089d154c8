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
// de barre (03/50 donne 3), sur 16 bits.
std::int16_t AnneeSaisie(std::string_view date);

// Les champs de l'éditeur que touche la sortie de Date ou d'Age, en texte 1252.
struct ChampsDate {
    std::string Date;
    std::string Notes;
    std::string Age;
    std::string LabelDate;  // le jour de la semaine ; garde son texte quand la date n'en a pas
};

// Ce que la saisie d'une date consulte hors de ses champs.
struct ContexteSaisie {
    char genre = 'N';                // lettre de l'évènement : N B D S M C X Z
    const Acte* naissance = nullptr; // naissance de la personne de la fiche ; nul : aucune
    std::int32_t numCourant = 0;
    std::int32_t nbFamis = 0;
    bool convCalRep = true;          // Options.OptConvCalRep
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
// caractères). relire faux : la date n'a pas été tapée depuis sa dernière mise
// en forme ; elle n'est pas relue, car une forme française gardée ("de 1750 à
// 1760", "entre ... et ...") ne survit pas à une seconde lecture.
void ValiderDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx, bool relire);

}  // namespace arbolix
