#include "gedcom/lecture_actes.h"

#include "dates/calendrier_republicain.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

void AjouterNoteActe(Acte& a, std::string_view v) {
    if (Comme(a.Notes, kNoteRepublicaine)) {
        if (Comme(v, kNoteRepublicaine)) return;
        const auto jour = JourDeNoteRepublicaine(v);
        if (jour && jour == JourDeNoteRepublicaine(a.Notes.vue())) {
            a.Notes = v;
            return;
        }
    }
    Ajouter(a.Notes, "\r\n", v);
}

}  // namespace arbolix
