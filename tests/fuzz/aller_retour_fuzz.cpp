// Cible de fuzzing : lire, écrire, relire, réécrire. Ce qui a été écrit une fois doit se relire
// et se réécrire à l'identique : la seconde écriture ne perd ni n'invente rien.
#include <cstddef>
#include <cstdint>
#include <string>

#include "cases_fuzz.h"
#include "gedcom/ecrivain.h"
#include "gedcom/lecteur.h"
#include "platform/progression.h"
#include "store/selection.h"

using namespace arbolix;

namespace {

std::string LireEtEcrire(const std::string& texte, OptionsGedcom cases, Options options) {
    Base base;
    Progression muette;
    ContexteLecture lecture{options, cases, muette};
    if (!LireGedcomTexte(base, lecture, texte).Lu) __builtin_trap();
    ToutSelectionner(base);  // comme après toute ouverture
    const ContexteEcriture ecriture{cases, EnteteArbolix(), "01/01/2000"};
    return EcrireGedcomTexte(base, ecriture);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    if (taille < fuzz::kOctetsDeCases) return 0;
    OptionsGedcom cases;
    Options options;
    fuzz::TirerCases(donnees, cases, options);
    const std::string texte(reinterpret_cast<const char*>(donnees) + fuzz::kOctetsDeCases,
                            taille - fuzz::kOctetsDeCases);
    if (ExaminerFichier(texte) != NatureFichier::Gedcom) return 0;  // refusé avant toute lecture
    // Ce qu'une case décoche se perd à la première lecture, et les premières relectures peuvent
    // encore changer une forme (un nom aux barres surnuméraires se redécoupe) ; ensuite le
    // fichier ne bouge plus.
    std::string avant = LireEtEcrire(texte, cases, options);
    // La case Âges, qui prévient l'utilisateur, change le fichier d'une relecture de plus : l'âge
    // du fichier devient une note, l'âge calculé s'y ajoute s'il diffère, puis la ligne suivante
    // de la note prend son blanc de fin (« 2 AGE 87 » sur un âge calculé de 88).
    for (int tour = 0; tour < (cases.Ages ? 3 : 2); ++tour) avant = LireEtEcrire(avant, cases, options);
    if (LireEtEcrire(avant, cases, options) != avant) __builtin_trap();
    return 0;
}
