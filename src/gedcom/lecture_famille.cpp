// Section d'une fiche familiale (FAM) : c'est là que naissent les liens entre personnes.
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kAlerteFinFamille =
    "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier est tronqu\xE9 et risque d'\xEAtre "
    "incomplet.";

}  // namespace

void LecteurGedcom::SectionFamille() {
    if (EntreeDeFiche()) {
        SousPiege([this] {
            // Les numéros de familles du fichier ne sont pas gardés : chaque fiche prend le suivant.
            ++NbFamisLues;
            if (NbFamisLues > base_.Familles.Haut())
                RedimensionnerBase(base_, (NbFamisLues / 5000 + 1) * 5000);
            if (NbFamisLues % 500 == 0) MontrerProgression();
        });
        Avancer(kAlerteFinFamille);
    }
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        Decouper();
        if (Balise == "TRLR") return;
        Avancer(kAlerteFinFamille);
    }
}

}  // namespace arbolix
