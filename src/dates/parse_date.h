// Lecture d'un texte de date brut (ligne DATE d'un fichier ou saisie) vers les champs de date d'un évènement.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "store/base.h"

namespace arbolix {

// Ce que la lecture d'une date consulte hors de son texte : l'état du lecteur
// GEDCOM, deux réglages, les formulaires affichés, et le journal de chargement.
struct ContexteDate {
    std::int32_t NumLigne = 0;
    std::string_view LigneCourante;  // la valeur de la ligne en cours de lecture
    std::string_view Ligne1;         // dernière ligne de niveau 1, "1 BIRT"
    std::int32_t NumCourant = 0;
    std::int32_t NbFamis = 0;
    bool ConvCalRep = false;  // Options.OptConvCalRep
    bool Dates = true;        // case Dates du formulaire Gedcom
    bool GedcomVisible = false;
    bool EvenementVisible = false;
    std::string* Journal = nullptr;  // journal de chargement, lignes finies par CR LF ; nul : rien n'est noté
};

// Remplit Date, DateTri et Annee de a (et parfois Notes : la date républicaine
// équivalente) et renvoie a.Date. Mots GEDCOM et français, chiffres sans
// séparateur, dates républicaines. Gardé exprès : un mois seul après un mot
// ("MAR 1750") est perdu, "12/mars/1750" donne "12/03s/1750".
// Un échec en cours de lecture (tranche de mois de longueur négative, année
// républicaine hors table) laisse a tel qu'il était ; il est noté au journal
// quand le formulaire Gedcom est affiché, comme le ferait le piège du lecteur.
const Texte& ParseDate(std::string_view texte, Acte& a, const ContexteDate& ctx);

// Les deux chemins de ParseDate, que les essais comparent. ParseDateCourante ne lit que les
// formes les plus fréquentes ("12 MAR 1845", "ABT 1790", "BET 1700 AND 1710"...) et rend
// faux, sans toucher a, pour toute autre ; ParseDateComplete lit tout.
bool ParseDateCourante(std::string_view texte, Acte& a, const ContexteDate& ctx);
const Texte& ParseDateComplete(std::string_view texte, Acte& a, const ContexteDate& ctx);

}  // namespace arbolix
