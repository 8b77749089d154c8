// Sections des notes (@N..@), sources (@S..@) et objets médias (@M..@).
#include <algorithm>
#include <string>
#include <string_view>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_actes.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

void LecteurGedcom::SectionNote(bool source) {
    std::int32_t n = 0;
    if (EntreeDeFiche()) {
        NouvelleFiche();
        SousPiege([this, source, &n] {
            const std::int32_t lu =
                NumeroLu(Depuis(Ligne0, 4), false, Renumeroter, source ? Genre::Source : Genre::Note);
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
        LibelleEnAttente.clear();
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

void ParcourirDepots(LecteurGedcom& l) {
    l.DepotsParcourus = true;
    if (ReleveFichier* releve = l.releve_.Attendre())
        l.NomsDepots = std::move(releve->nomsDepots);
    else
        ReleverDepots(l.tampon_, l.NomsDepots);
}

namespace {

// Ce qu'une source porte sans champ pour le garder : une ligne de son texte, derrière un libellé.
// parent : la balise de la ligne du niveau au-dessus ; vide au niveau 1.
struct LigneLibellee {
    int niveau;
    std::string_view parent;
    std::string_view balise;
    std::string_view libelle;
};
constexpr LigneLibellee kLignesLibellees[] = {
    {1, "", "AUTH", "Auteur : "},
    {1, "", "PUBL", "Publication : "},
    {1, "", "REPO", "D\xE9p\xF4t : "},
    {2, "REPO", "CALN", "Cote : "},
    {3, "CALN", "MEDI", "Support : "},
    {1, "", "NOTE", "Note : "},
    {1, "", "TYPE", "Type : "},
    {1, "", "QUAY", "Qualit\xE9 : "},
    {2, "DATA", "EVEN", "\xC9v\xE8nements : "},
    {3, "EVEN", "DATE", "P\xE9riode : "},
    {3, "EVEN", "PLAC", "Lieu : "},
    {2, "DATA", "AGNC", "Organisme : "},
    {2, "DATA", "NOTE", "Note : "},
};

// La balise de la ligne du niveau au-dessus d'une ligne de ce niveau ; vide quand on ne la connaît pas.
std::string_view Parent(const LecteurGedcom& l, int niveau) {
    return niveau == 2 ? l.Contexte1() : niveau == 3 ? l.Contexte2() : std::string_view{};
}

// Le libellé d'une ligne de ce niveau sous ce parent, vide si elle n'en a pas.
std::string_view Libelle(std::string_view balise, int niveau, std::string_view parent) {
    for (const auto& r : kLignesLibellees)
        if (r.niveau == niveau && r.balise == balise && r.parent == parent) return r.libelle;
    return {};
}

// Une ligne de plus au texte ; CONT le relit de même (un blanc et une fin de ligne).
void NouvelleLigne(Texte& texte, std::string_view ligne) {
    if (!texte.empty()) texte += " \r\n";
    texte += ligne;
}

// « Dépôt : » prend le nom de la fiche REPO que désigne le pointeur ; vide quand il n'y en a pas.
std::string NomDuDepot(LecteurGedcom& l, std::string_view pointeur) {
    if (!l.DepotsParcourus) ParcourirDepots(l);
    const auto it = l.NomsDepots.find(std::string(pointeur.substr(1, pointeur.size() - 2)));
    return it == l.NomsDepots.end() ? std::string() : it->second;
}

// Une ligne libellée : elle s'écrit tout de suite, ou avec sa première suite quand elle est vide
// (« 1 NOTE » suivi de « 2 CONC ... »). Faux quand elle ne peut pas se garder.
bool LireLigneLibellee(LecteurGedcom& l, NoteExt& note, std::string_view libelle, std::string v) {
    l.LibelleEnAttente.clear();
    if (EstPointeur(v)) {
        if (l.Balise == "NOTE")
            v = LienLu(l, v, 'N');
        else if (l.Balise == "REPO")
            v = NomDuDepot(l, v);
        if (v.empty()) return false;
    }
    if (v.empty())
        l.LibelleEnAttente = libelle;
    else
        NouvelleLigne(note.Texte, std::string(libelle) + v);
    return true;
}

// Suite (CONT, CONC) de la ligne du niveau au-dessus : texte, titre ou ligne libellée. Faux quand
// cette ligne n'a pas été gardée.
bool LireSuite(LecteurGedcom& l, NoteExt& note, std::string_view v) {
    const bool cont = l.Balise == "CONT";
    const int parent = l.NiveauLigne - 1;
    const std::string_view balise = parent == 1 ? l.Contexte1() : parent == 2 ? l.Contexte2() : "";
    // Le texte : la fiche elle-même, ses lignes TEXT et ABBR, et les suites de ses suites.
    if (parent <= 0 ||
        (parent == 1 && (balise == "TEXT" || balise == "ABBR" || balise == "CONT" || balise == "CONC"))) {
        if (cont) note.Texte += " \r\n";
        note.Texte += v;
    } else if (parent == 1 && balise == "TITL") {
        if (cont && !note.Titre.empty()) note.Titre += " ";
        note.Titre += v;
    } else if (!Libelle(balise, parent, Parent(l, parent)).empty()) {
        if (!l.LibelleEnAttente.empty()) {
            NouvelleLigne(note.Texte, l.LibelleEnAttente + std::string(v));
            l.LibelleEnAttente.clear();
        } else {
            if (cont) note.Texte += " \r\n";
            note.Texte += v;
        }
    } else {
        return false;
    }
    return true;
}

}  // namespace

// Une ligne de note ou de source. Ce qui n'a pas de place dans la fiche va au journal, sauf le
// bloc CHAN : la date de modification d'une note n'a pas de champ et l'écriture la refait.
void LecteurGedcom::LigneNote(bool source, std::int32_t n) {
    NoteExt& note = source ? base_.Sources[n] : base_.Notes[n];
    std::string_view& v = LigneCourante;
    const char genre = source ? 'S' : 'N';
    bool garde = true;
    if (Contexte1() == "CHAN") return;
    if (Balise == "CONT" || Balise == "CONC") {
        garde = v.empty() || LireSuite(*this, note, v);
    } else if (NiveauLigne == 1 && (Balise == "ABBR" || Balise == "TEXT")) {
        // Chaque TEXT s'ajoute au texte : le remplacer perdrait le précédent.
        garde = v.empty() || v[0] != '#';
        if (garde) NouvelleLigne(note.Texte, v);
    } else if ((NiveauLigne == 1 && Balise == "TITL") ||
               (NiveauLigne == 2 && Balise == "TYPE" && Contexte1() == "TITL")) {
        // "1 TITL x" a été coupé en "1 TITL" et "2 TYPE x" : la ligne vide ne doit pas effacer le titre.
        if (!v.empty()) note.Titre = EstPointeur(v) ? LienLu(*this, v, genre) : v;
    } else if (NiveauLigne == 1 && Balise == "NAME" && note.Titre.empty()) {
        note.Titre = v;  // le titre d'une source chez EasyTree
    } else if (const std::string_view libelle = Libelle(Balise, NiveauLigne, Parent(*this, NiveauLigne));
               !libelle.empty()) {
        garde = LireLigneLibellee(*this, note, libelle, std::string(v));
    } else {
        garde = v.empty() || Comme(Balise, "@*@");
    }
    if (!garde) DonneeNonTraitee(*this, (source ? "source " : "note ") + std::to_string(n));
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
    std::string_view& v = LigneCourante;
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
        const std::int32_t f = DecalageFamilles + NumeroLu(Depuis(v, 2), false, Renumeroter, Genre::Famille);
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
