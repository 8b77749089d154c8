// Sections des notes (@N..@), sources (@S..@) et objets médias (@M..@).
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "store/chaines.h"

namespace arbolix {

void LecteurGedcom::SectionNote(bool source) {
    if (EntreeDeFiche()) {
        SousPiege([this, source] {
            const std::int32_t n = NumeroLu(Depuis(Ligne0, 4), false, Renumeroter);
            if (source) {
                ++base_.NbSourcesReelles;
                DerniereSource = std::max(DerniereSource, n);
            } else {
                ++base_.NbNotesReelles;
                DerniereNote = std::max(DerniereNote, n);
            }
        });
        LigneSuivante();
    }
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        LigneSuivante();
    }
}

void LecteurGedcom::SectionMedia() {
    if (EntreeDeFiche()) {
        SousPiege([this] {
            const std::int32_t g = NumeroLu(Depuis(Ligne0, 4), false, Renumeroter);
            ++base_.NbMediasReels;
            base_.Medias[g].Local = 0;
            DernierMedia = std::max(DernierMedia, g);
        });
        LigneSuivante();
    }
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        LigneSuivante();
    }
}

}  // namespace arbolix
