// Une fiche de la fenêtre dont les boîtes passent par un faux Dialogue, prête à ouvrir un fichier.
#pragma once

#include <QAction>
#include <string>

#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"

namespace arbolix::essai {

struct FicheEssai {
    Fiche fiche;
    DialogueFactice d;
    Progression muette;
    FicheEssai() {
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        fiche.Vider(false);
    }
    bool Ouvrir(const std::string& chemin = ARBOLIX_SHARE "/exemple.ged") {
        fiche.gedcom().Fichier = chemin;
        return fiche.ChargerFichier(muette);
    }
    QAction* Action(const char* nom) { return fiche.findChild<QAction*>(nom); }
};

// La même, le fichier d'exemple ouvert.
struct FicheExemple : FicheEssai {
    FicheExemple() { Ouvrir(); }
};

}  // namespace arbolix::essai
