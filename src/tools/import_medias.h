// MenuImportFichiers : un dossier de fichiers, ou des fichiers déposés, deviennent objets médias ou personnes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

struct ImportFichiers {
    std::vector<std::string> deposes;  // vide : on demande un dossier
    std::string dossierDepart;         // proposé par le choix du dossier
    std::string derniereDate;          // "jj/mm/aaaa" proposé ; vide : tous les fichiers
    bool reutiliserLibres = false;     // Gedcom.OptRenum pour les nouvelles personnes
};

struct ResultatImport {
    int crees = 0;
    std::string date;  // la date répondue, à reproposer la fois suivante
};

// Pose ses questions par le Dialogue ; une annulation ne crée rien. Les fichiers
// d'un dossier sont pris par ordre de nom, sans les ".lnk" ni les sous-dossiers.
ResultatImport MenuImportFichiers(Base& base, const ImportFichiers& demande, Dialogue& dialogue);

}  // namespace arbolix
