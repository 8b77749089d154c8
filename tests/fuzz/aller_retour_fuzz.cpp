// Cible de fuzzing : lire, écrire, relire, réécrire. Ce qui a été écrit une fois doit se relire
// et se réécrire à l'identique : la seconde écriture ne perd ni n'invente rien.
#include <cstddef>
#include <cstdint>
#include <string>

#include "gedcom/ecrivain.h"
#include "gedcom/lecteur.h"
#include "lists/selection.h"
#include "platform/progression.h"

using namespace arbolix;

namespace {

std::string LireEtEcrire(const std::string& texte, OptionsGedcom cases) {
    Base base;
    Options options;
    Progression muette;
    ContexteLecture lecture{options, cases, muette};
    if (!LireGedcomTexte(base, lecture, texte).Lu) __builtin_trap();
    ToutSelectionner(base);  // comme après toute ouverture
    const ContexteEcriture ecriture{cases, EnteteArbolix(), "01/01/2000"};
    return EcrireGedcomTexte(base, ecriture);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    if (taille < 1) return 0;
    OptionsGedcom cases;
    // Deux formes que la règle laisse grandir à chaque aller-retour, laissées de côté ici :
    // les fichiers liés sous une personne (une note « Voir fichier » de plus) et la ligne
    // d'âge (relue comme une note de l'évènement).
    cases.Fichiers = false;
    cases.Ages = false;
    cases.Dates = donnees[0] & 1;
    const std::string texte(reinterpret_cast<const char*>(donnees) + 1, taille - 1);
    // Des octets de contrôle ne sont pas du texte : un nom qui en porte ne promet rien.
    for (char c : texte)
        if (static_cast<unsigned char>(c) < 0x20 && c != '\r' && c != '\n' && c != '\t') return 0;
    std::string avant = LireEtEcrire(texte, cases);
    // Les premières relectures peuvent encore changer une forme (MAR 1750 devient 1750, un nom
    // aux barres surnuméraires se redécoupe) ; ensuite le fichier ne bouge plus.
    for (int tour = 0; tour < 2; ++tour) avant = LireEtEcrire(avant, cases);
    if (LireEtEcrire(avant, cases) != avant) __builtin_trap();
    return 0;
}
