#include "charger.h"

#include <cstdio>

#include "gedcom/lecteur.h"
#include "mesures.h"
#include "platform/progression.h"
#include "store/selection.h"

namespace arbolix::bench {

bool ChargerFichier(Base& base, const std::string& chemin, bool remplirListes) {
    Options options;
    OptionsGedcom cases;
    cases.Fichier = chemin;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    ctx.remplirListes = remplirListes;
    if (!LireGedcom(base, ctx).Lu) {
        std::printf("fichier illisible : %s\n", chemin.c_str());
        return false;
    }
    ToutSelectionner(base);
    return true;
}

bool ChargerEtAnnoncer(Base& base, const std::string& chemin) {
    Chrono lecture;
    if (!ChargerFichier(base, chemin)) return false;
    std::printf("%s : %d personnes lues en %.1f s\n", chemin.c_str(), base.NbPersosReels, lecture.Secondes());
    return true;
}

}  // namespace arbolix::bench
