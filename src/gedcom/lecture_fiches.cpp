// Sections des notes (@N..@), sources (@S..@) et objets médias (@M..@).
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

void LecteurGedcom::SectionNote(bool source) {
    std::int32_t n = 0;
    if (EntreeDeFiche()) {
        NouvelleFiche();
        SousPiege([this, source, &n] {
            const std::int32_t lu = NumeroLu(Depuis(Ligne0, 4), false, Renumeroter);
            n = (source ? DecalageSources : DecalageNotes) + lu;
            AssurerPlace(base_, n);
            if (source) {
                ++base_.NbSourcesReelles;
                DerniereSource = std::max(DerniereSource, n);
            } else {
                ++base_.NbNotesReelles;
                DerniereNote = std::max(DerniereNote, n);
            }
        });
        LigneSuivante();
    } else {
        n = source ? DerniereSourceLue : DerniereNoteLue;  // retour dans la même fiche après une ligne vide
    }
    (source ? DerniereSourceLue : DerniereNoteLue) = n;
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        if (n > 0) {
            NiveauLigne = Niveau();
            Decouper();
            SousPiege([this, source, n] { LigneNote(source, n); });
        }
        LigneSuivante();
    }
}

void LecteurGedcom::LigneNote(bool source, std::int32_t n) {
    NoteExt& note = source ? base_.Sources[n] : base_.Notes[n];
    std::string& v = LigneCourante;
    const char genre = source ? 'S' : 'N';
    if (Balise == "CONT" || Balise == "CONC") {
        if (Balise == "CONT") note.Texte += " \r\n";
        note.Texte += v;
    } else if (Balise == "ABBR" || Balise == "TEXT") {
        if (v.empty() || v[0] != '#') note.Texte = v;
    } else if (Balise == "TITL" || (Balise == "TYPE" && Ligne1 == "1 TITL")) {
        // "1 TITL x" a été coupé en "1 TITL" et "2 TYPE x" : la ligne vide ne doit pas effacer le titre.
        if (Balise == "TITL" && v.empty()) return;
        note.Titre = EstPointeur(v) ? LienLu(*this, v, genre) : v;
    }
}

void LecteurGedcom::SectionMedia() {
    std::int32_t g = 0;
    if (EntreeDeFiche()) {
        NouvelleFiche();
        SousPiege([this, &g] {
            const std::int32_t m = MediaDuPointeur(*this, std::string("@") + std::string(Depuis(Ligne0, 4)));
            ++base_.NbMediasReels;
            ObjetMedia& o = base_.Medias[m];
            o.Local = 0;
            o.Actif = -1;
            g = m;
        });
        LigneSuivante();
    } else {
        g = DernierMediaLu;
    }
    DernierMediaLu = g;
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        if (g > 0) {
            NiveauLigne = Niveau();
            Decouper();
            SousPiege([this, g] { LigneMedia(g); });
        }
        LigneSuivante();
    }
}

namespace {

// Place libre d'un objet média, ou la ligne d'erreur qui dit ce qui manque.
template <typename E, typename V>
bool PlacerDansObjet(LecteurGedcom& l, E& emplacements, V valeur, std::int32_t g, std::string_view quoi,
                     std::string_view lesQuels) {
    if (Contient(emplacements, valeur) || PlacerPremierLibre(emplacements, std::move(valeur))) return true;
    l.JournaliserLigne("Erreur ligne " + std::to_string(l.NumLigne) + " : impossible d'ajouter " +
                       std::string(quoi) +
                       " \xE0 l'objet m\xE9"
                       "dia " +
                       std::to_string(g) + " car il y a d\xE9j\xE0 " + std::to_string(kMaxLiens) + " " +
                       std::string(lesQuels) +
                       " \xE0 cet objet m\xE9"
                       "dia.");
    return false;
}

}  // namespace

void LecteurGedcom::LigneMedia(std::int32_t g) {
    ObjetMedia& o = base_.Medias[g];
    std::string& v = LigneCourante;
    if (Balise == "INDI") {
        if (!EstPointeur(v)) return;
        const std::int32_t p = PersonneDuPointeur(v);
        PlacerDansObjet(*this, o.LiensPersos, p, g, "la personne",
                        "personnes reli\xE9"
                        "es");
        auto& objets = base_.Persos[p].SuiteModif().ObjetsMedia;
        if (!Contient(objets, g) && !PlacerPremierLibre(objets, g))
            JournaliserLigne("Erreur ligne " + std::to_string(NumLigne) +
                             " : impossible d'ajouter l'objet m\xE9"
                             "dia " +
                             std::to_string(g) + " \xE0 la personne " + std::to_string(p) +
                             " car il y a d\xE9j\xE0 " + std::to_string(kMaxLiens) +
                             " objets m\xE9"
                             "dias reli\xE9s \xE0 cette personne.");
    } else if (Balise == "FAM") {
        if (!EstPointeur(v)) return;
        const std::int32_t f = DecalageFamilles + NumeroLu(Depuis(v, 2), false, Renumeroter);
        PlacerDansObjet(*this, o.LiensFamis, f, g, "la famille",
                        "familles reli\xE9"
                        "es");
    } else if (Balise == "FILE") {
        if (!v.empty()) PlacerDansObjet(*this, o.Fichiers, Texte(v), g, "le chemin", "fichiers reli\xE9s");
    } else if (Balise == "TITL" || (Balise == "TYPE" && Ligne1 == "1 TITL")) {
        if (!v.empty()) PlacerDansObjet(*this, o.Titres, Texte(v), g, "le titre", "titres reli\xE9s");
    } else if (Balise == "NOTE" || Balise == "SOUR") {
        // Seul un pointeur désigne une fiche ; un texte ne ferait qu'un numéro au hasard.
        if (!EstPointeur(v)) return;
        const bool note = Balise == "NOTE";
        const std::int32_t n = NumeroDuLien(LienLu(*this, v, note ? 'N' : 'S'), note ? 'N' : 'S');
        (note ? o.NumNote : o.NumSource) = n;
    }
}

}  // namespace arbolix
