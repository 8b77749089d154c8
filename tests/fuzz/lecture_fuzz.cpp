// Cible de fuzzing : la lecture d'un fichier quelconque, cases et renumérotation tirées des premiers octets.
#include <cstddef>
#include <cstdint>
#include <string>

#include "cases_fuzz.h"
#include "gedcom/lecteur.h"
#include "platform/progression.h"

using namespace arbolix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    if (taille < fuzz::kOctetsDeCases) return 0;
    OptionsGedcom cases;
    Options options;
    fuzz::TirerCases(donnees, cases, options);
    Base base;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    const std::string texte(reinterpret_cast<const char*>(donnees) + fuzz::kOctetsDeCases,
                            taille - fuzz::kOctetsDeCases);
    // Ce qui n'est pas du GEDCOM est refusé avant toute lecture.
    if (ExaminerFichier(texte) != NatureFichier::Gedcom) return 0;
    const ResultatLecture r = LireGedcomTexte(base, ctx, texte);
    // Une lecture ne finit jamais sur une erreur : tout va au journal.
    if (!r.Lu) __builtin_trap();
    // Les compteurs couvrent ce qui a été lu.
    if (base.NbPersos < base.NbPersosReels) __builtin_trap();
    return 0;
}
