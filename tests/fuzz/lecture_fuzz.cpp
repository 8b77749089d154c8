// Cible de fuzzing : la lecture d'un fichier quelconque, cases et renumérotation tirées des premiers octets.
#include <cstddef>
#include <cstdint>
#include <string>

#include "gedcom/lecteur.h"
#include "platform/progression.h"

using namespace arbolix;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
    if (taille < 2) return 0;
    const std::uint16_t choix = static_cast<std::uint16_t>(donnees[0] | (donnees[1] << 8));
    OptionsGedcom cases;
    bool* const ticks[] = {&cases.Dates,   &cases.Lieux, &cases.Professions, &cases.Temoins,
                           &cases.Fichiers, &cases.Adresses, &cases.Sources, &cases.Notes,
                           &cases.Ages,    &cases.OptNettoie, &cases.OptRenum};
    for (std::size_t i = 0; i < std::size(ticks); ++i) *ticks[i] = (choix >> i) & 1;
    Options options;
    options.OptConvCalRep = (choix >> 11) & 1;
    options.ModifCasse = (choix >> 12) & 1;
    Base base;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    const std::string texte(reinterpret_cast<const char*>(donnees) + 2, taille - 2);
    const ResultatLecture r = LireGedcomTexte(base, ctx, texte);
    // Une lecture ne finit jamais sur une erreur : tout va au journal.
    if (!r.Lu) __builtin_trap();
    // Les compteurs couvrent ce qui a été lu.
    if (base.NbPersos < base.NbPersosReels) __builtin_trap();
    return 0;
}
