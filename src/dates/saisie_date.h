// Règles de la saisie d'une date dans l'éditeur d'évènement qui ne demandent pas la fenêtre.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

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

}  // namespace arbolix
