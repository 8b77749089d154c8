// Les textes d'une ligne qui décrivent une personne ou un évènement partout dans le programme.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Lecture sûre : un numéro hors des tableaux lit la fiche vierge, comme le lien 0.
const Perso& PersoLu(const Base& base, std::int32_t n);
const Fami& FamiLue(const Base& base, std::int32_t f);

// Numéro de la note (genre 'N') ou de la source ('S') externe quand le texte,
// sans blancs autour, est exactement "@N12@" ; 0 sinon.
std::int32_t LienExterne(std::string_view texte, char genre);

// Largeur imprimée d'un texte (en pixels pour la fenêtre) ; sans mesure, un par caractère.
using MesureLargeur = std::function<int(std::string_view)>;
struct Largeur {
    int maximum = 0;  // 0 : pas de limite
    MesureLargeur mesure;
};

// Résumé d'un évènement : date, lieu, début de la note et de la source (le texte de
// la note ou source externe à la place du lien), " Témoins". longue : 30 caractères
// de note et de source au lieu de 15. Raccourci de 2 en 2 caractères jusqu'à tenir
// dans la largeur, pour toujours tenir sur une ligne.
std::string LigneActe(const Base& base, const Acte& acte, bool longue, const Largeur& largeur = {});

// "Prénoms Nom ° date + date S12" : la personne dans les cadres de la fiche ; vide sans nom.
std::string LigneCourte(const Base& base, const Options& options, std::int32_t n);

// "Nom Prénoms °date +date S12" : la personne dans les listes ; vide sans nom.
std::string LigneListe(const Base& base, const Options& options, std::int32_t n);

// Infobulle d'une personne : référence, métier, premier conjoint, parents, séparés par " / ".
std::string BullePersonne(const Base& base, const Options& options, std::int32_t n);

// Forme longue d'une ligne : "Ref 12. Tisserand. x 20/02/1744 Sarlat Marguerite FAURE.
// enfant de ... et ..." pour les infobulles des listes.
std::string DetailPersonne(const Base& base, const Options& options, std::int32_t n);

// Le conjoint de p dans la famille f : l'autre des deux époux (0 s'il manque).
std::int32_t Conjoint(const Fami& f, std::int32_t p);

// Vrai quand le numéro Sosa (texte décimal) vaut plus que 0.
bool SosaPositif(std::string_view sosa);

}  // namespace arbolix
