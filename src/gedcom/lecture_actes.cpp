#include "gedcom/lecture_actes.h"

#include "dates/calendrier_gregorien.h"
#include "dates/calendrier_republicain.h"
#include "dates/reconnaissance.h"
#include "gedcom/lecture_liens.h"
#include "gedcom/roles.h"
#include "store/chaines.h"

namespace arbolix {

std::string NumLigneTexte(const LecteurGedcom& l) {
    return std::to_string(l.NumLigne);
}

void DonneeNonTraitee(LecteurGedcom& l, std::string_view qui) {
    DonneeNonTraitee(l, qui, l.Balise, l.LigneCourante);
}

void DonneeNonTraitee(LecteurGedcom& l, std::string_view qui, std::string_view balise,
                      std::string_view valeur) {
    l.JournaliserLigne({"Erreur ligne ", NumLigneTexte(l), ", ", qui,
                        ", donn\xE9"
                        "e non trait\xE9"
                        "e : ",
                        balise, " ", valeur});
}

void LienVersUneFamille(LecteurGedcom& l, std::string_view v, std::string_view deQui) {
    l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : le lien " + std::string(l.Balise) + " " +
                       std::string(v) + " " + std::string(deQui) +
                       " d\xE9signe une famille et non une personne ; il a \xE9t\xE9 ignor\xE9.");
}

void AttendUneDate(LecteurGedcom& l, std::string_view deQuoi) {
    l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : " + l.contexte_.textes.TitreProgramme +
                       " attend une date de " + std::string(deQuoi) + ".");
}

// Le lieu garde ses capitales accentuées : « Épinal » relu « Epinal » serait une perte.
Texte LieuLu(LecteurGedcom& l, std::string_view v) {
    const std::string_view lieu = SansBlancs(v);
    // Un lieu suit souvent le même (naissance et baptême au village) : la recherche est évitée.
    if (l.DernierLieu && *l.DernierLieu == lieu) return *l.DernierLieu;
    bool nouveau = false;
    l.DernierLieu = &l.Lieux.Garder(lieu, nouveau);
    // Un lieu encore jamais lu : c'est la seule fois qu'il peut manquer à la liste de saisie.
    if (nouveau && l.contexte_.remplirListes) l.base_.Listes.Lieu.Ajouter(lieu);
    return *l.DernierLieu;
}

void DateDeModification(LecteurGedcom& l, std::string_view v, double& dateModif) {
    if (const auto d = LireDate(DateDeTravail(l, v))) dateModif = NumeroJour(*d);
}

std::string DateDeTravail(LecteurGedcom& l, std::string_view v) {
    Acte travail;
    return l.LireDateLigne(v, travail).str();
}

bool MarquerConnu(const LecteurGedcom& l, Acte* a, std::string_view v) {
    if (v != "Y" || l.NiveauLigne != 1 || !a) return false;
    a->Connu = true;
    return true;
}

void AjouterNoteActe(Acte& a, std::string_view v) {
    // Deux notes de date républicaine ne s'ajoutent pas.
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

void SuiteDeNoteActe(Acte& a, std::string_view balise, std::string_view v) {
    if (v == a.Notes + a.Notes) return;
    if (balise == "CONT") a.Notes += " \r\n";
    a.Notes += v;
}

bool NoteALire(const LecteurGedcom& l, std::string_view v) {
    return !v.empty() && v != "INDI" && (l.Balise == "TYPE" ? l.cases_.Temoins : l.cases_.Notes);
}

bool RoleEnAttente(const LecteurGedcom& l) {
    return l.Contexte2() == "ASSO" && l.TemoinEnAttente > 0;
}

void AjouterTemoin(LecteurGedcom& l, Acte& a, std::int32_t w, const std::function<std::string()>& aQui) {
    const int i = a.Liens().Temoins.PremierLibre(1);
    if (i > kMaxTemoins) {
        l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : impossible d'ajouter le t\xE9moin " +
                           std::to_string(w) + aQui() + " car il y a d\xE9j\xE0 " +
                           std::to_string(kMaxTemoins) + " t\xE9moins.");
        l.TemoinEnAttente = kMaxTemoins + 1;
        return;
    }
    a.LiensModif().Temoins.Fixer(i, w);
    l.TemoinEnAttente = i;
}

void AjouterRole(LecteurGedcom& l, std::string_view contexte, Acte* a, std::string_view v) {
    if (!l.cases_.Temoins || l.TemoinEnAttente <= 0 || v.empty() || v == "EVEN") return;
    const std::string role = TraduireRole(v, contexte, l.base_, l.base_.NumCourant, l.TemoinEnAttente);
    if (role == "T\xE9moin" || l.TemoinEnAttente > kMaxTemoins || !a) return;
    Texte roles = a->Liens().RolesTemoins(l.TemoinEnAttente);
    Ajouter(roles, ", ", role);
    a->LiensModif().RolesTemoins.Fixer(l.TemoinEnAttente, roles);
}

void VoirFichier(Texte& notes, std::string_view v) {
    notes += "\r\nVoir fichier ";
    notes += v;
}

void LierObjetEnRetour(LecteurGedcom& l, std::int32_t m,
                       Emplacements<std::int32_t, 1, kMaxLiens> ObjetMedia::*liens, std::string_view v,
                       std::string_view etQui, std::int32_t typeActe) {
    ObjetMedia& o = l.base_.Medias[m];
    const std::int32_t n = l.base_.NumCourant;
    if (!Contient(o.*liens, n) && !PlacerPremierLibre(o.*liens, n))
        l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : impossible de lier le fichier " +
                           std::string(v) + std::string(etQui));
    if (typeActe > 0) o.TypeActe = typeActe;
}

std::int32_t NouvelObjetLu(LecteurGedcom& l, std::string_view chemin) {
    const std::int32_t m = NouvelObjetLocal(l, chemin);
    RattacherAuBloc(l, m);
    return m;
}

namespace {

// Un titre de plus sur l'objet, s'il ne l'a pas déjà ; faux quand ses neuf places sont prises.
bool AjouterTitre(ObjetMedia& o, std::string_view titre) {
    return titre.empty() || Contient(o.Titres, Texte(titre)) || PlacerPremierLibre(o.Titres, Texte(titre));
}

}  // namespace

void RattacherAuBloc(LecteurGedcom& l, std::int32_t m) {
    if (!l.DansBlocObjet()) return;
    l.ObjetDuBloc = m;
    AjouterTitre(l.base_.Medias[m], l.TitreDuBloc);
    l.TitreDuBloc.clear();
}

void BlocSansObjet(LecteurGedcom& l, std::string_view qui) {
    if (!l.DansBlocObjet()) return;
    l.ObjetDuBloc = -1;
    if (!l.TitreDuBloc.empty()) DonneeNonTraitee(l, qui, "TITL", l.TitreDuBloc);
    l.TitreDuBloc.clear();
}

bool ObjetPointe(LecteurGedcom& l, std::string_view v) {
    if (EstPointeur(v)) return true;
    if (v.empty()) {
        l.NiveauObjet = l.NiveauLigne;
        l.ObjetDuBloc = 0;
        l.TitreDuBloc.clear();
    }
    return false;
}

void TitreDeBloc(LecteurGedcom& l, std::string_view v, std::string_view qui) {
    if (v.empty()) return;
    if (l.ObjetDuBloc == 0)
        l.TitreDuBloc = v;
    else if (l.ObjetDuBloc < 0 || !AjouterTitre(l.base_.Medias[l.ObjetDuBloc], v))
        DonneeNonTraitee(l, qui);
}

}  // namespace arbolix
