// Section d'une fiche familiale (FAM) : c'est là que naissent les liens entre personnes.
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_actes.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kAlerteFinFamille =
    "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier est tronqu\xE9 et risque "
    "d'\xEAtre "
    "incomplet.";

// Évènements d'une famille choisis par la balise du contexte, et leur type pour un objet média.
using ActeFamille = ActeDuContexte<Fami>;
constexpr ActeFamille kActesFamille[] = {
    {"MARR", &Fami::Mariage, 2},
    {"MARC", &Fami::Contrat, 6},
    {"DIV", &Fami::Divorce, 7},
};

const ActeFamille* LigneActe(std::string_view contexte) {
    return ChercherActe(kActesFamille, contexte);
}

// Date et lieu ne vont qu'à l'évènement nommé par le contexte.
Acte* ActeDate(Fami& f, std::string_view contexte) {
    const ActeFamille* r = LigneActe(contexte);
    return r ? &(f.*(r->acte)) : nullptr;
}

// Notes, sources, témoins et fichiers d'un autre contexte (1 NOTE, 1 SOUR, 1 ASSO,
// 1 FILE) vont au mariage : la famille n'a pas d'autre champ pour les garder.
Acte& ActeOuMariage(Fami& f, std::string_view contexte) {
    Acte* a = ActeDate(f, contexte);
    return a ? *a : f.Mariage;
}

std::string NumFamille(const LecteurGedcom& l) {
    return std::to_string(l.NbFamisLues);
}

std::string Famille(const LecteurGedcom& l) {
    return "famille " + NumFamille(l);
}

// Une ligne d'un sous-bloc (citation, témoin, objet) plus profonde que niveauPropre n'a pas de
// place dans la famille : elle va au journal.
bool HorsDeLaFamille(LecteurGedcom& l, int niveauPropre) {
    if (!DansUnSousBloc(l, niveauPropre)) return false;
    DonneeNonTraitee(l, Famille(l));
    return true;
}

// Un pointeur de personne utilisable, sinon la ligne va au journal.
bool PointeurDePersonne(LecteurGedcom& l, std::string_view v) {
    if (!EstPointeur(v)) {
        DonneeNonTraitee(l, Famille(l));
        return false;
    }
    if (l.DesigneUneFamille(v)) {
        LienVersUneFamille(l, v, "de la famille " + NumFamille(l));
        return false;
    }
    return true;
}

std::string NomPrenoms(const Perso& p) {
    return p.Nom + " " + p.Prenoms;
}

// --- Liens entre personnes ---

void Enfant(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (!PointeurDePersonne(l, v)) return;
    const std::int32_t c = l.PersonneDuPointeur(v);
    const std::int32_t numF = l.NbFamisLues;
    Perso& enfant = l.base_.Persos[c];
    if (l.EnfantSuivant <= kMaxEnfants) {
        f.Enfants.Fixer(l.EnfantSuivant, c);
        if (enfant.NumParents > 0) {
            l.JournaliserLigne("Alerte ligne " + NumLigneTexte(l) +
                               " : enfant reli\xE9 \xE0 plusieurs couples parents : P" + std::to_string(c) +
                               " " + NomPrenoms(enfant) + " ; le lien vers les parents F" +
                               std::to_string(numF) + " a \xE9t\xE9 ignor\xE9.");
        } else {
            enfant.NumParents = numF;
        }
        ++l.EnfantSuivant;
        return;
    }
    l.JournaliserLigne("Alerte ligne " + NumLigneTexte(l) +
                       " : enfant sans lien complet vers les parents : P" + std::to_string(c) + " " +
                       NomPrenoms(enfant));
    const Perso& mari = std::as_const(l.base_.Persos)[f.Mari];
    const Perso& femme = std::as_const(l.base_.Persos)[f.Femme];
    enfant.Notes += "\r\nenfant de " + NomPrenoms(mari) + " et " + NomPrenoms(femme);
}

void Union(LecteurGedcom& l, std::int32_t p) {
    Perso& conjoint = l.base_.Persos[p];
    for (int i = 1; i <= kMaxUnions; ++i) {
        if (conjoint.Unions[i] == 0) {
            conjoint.Unions[i] = l.NbFamisLues;
            return;
        }
    }
    l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : impossible d'ajouter l'union " +
                       NumFamille(l) + " \xE0 la personne " + std::to_string(p) + " " + NomPrenoms(conjoint) +
                       " car il y a d\xE9j\xE0 " + std::to_string(kMaxUnions) + " unions.");
}

void Conjoint(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (v.empty() || !PointeurDePersonne(l, v)) return;
    const std::int32_t p = l.PersonneDuPointeur(v);
    (l.Balise == "HUSB" ? f.Mari : f.Femme) = p;
    Union(l, p);
}

// --- Évènements ---

void Date(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (HorsDeLaFamille(l, 2)) return;
    const std::string_view ctx = l.Contexte1();
    if (Acte* a = ActeDate(f, ctx)) {
        l.LireDateLigne(v, *a);
    } else if (ctx == "CHAN") {
        DateDeModification(l, v, f.DateModif);  // que l'écriture redonne en CHAN
    }
}

void Lieu(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (HorsDeLaFamille(l, 2)) return;
    const Texte lieu = LieuLu(l, v);
    if (Acte* a = ActeDate(f, l.Contexte1())) a->Lieu = lieu;
}

// « 1 MARR Y » : le mariage (le contrat, le divorce) a eu lieu, date et lieu inconnus. « N » ne
// se garde pas.
void EvenementConnu(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (!MarquerConnu(l, ActeDate(f, l.Balise), v) && v == "N" && l.Balise == "MARR")
        AttendUneDate(l, "mariage pour la famille " + NumFamille(l));
}

// --- Notes, sources, témoins ---

// La suite d'une ligne de niveau 3 ne se garde pas : celle d'une note de sous-bloc va au journal
// avec elle, les autres se taisent comme leur ligne.
void Suite(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (v.empty()) return;
    if (DansUnSousBloc(l, 3)) {
        if (l.Balise3 == "NOTE") HorsDeLaFamille(l, 3);
        return;
    }
    if (v == "RELI" && l.ProduitOmega) v = {};
    SuiteDeNoteActe(ActeOuMariage(f, l.Contexte1()), l.Balise, v);
}

void Role(LecteurGedcom& l, Fami& f, std::string_view& v);

void Note(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (!NoteALire(l, v)) return;
    if (RoleEnAttente(l)) {
        Role(l, f, v);
        return;
    }
    if (l.Balise == "NOTE" && HorsDeLaFamille(l, 2)) return;
    if (v == "RELI" && l.ProduitOmega) return;
    if (EstPointeur(v)) v = l.Retoucher(LienLu(l, v, 'N'));
    Acte& a = ActeOuMariage(f, l.Contexte1());
    AjouterNoteActe(a, v);
}

void Source(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (EstPointeur(v)) v = l.Retoucher(LienLu(l, v, 'S'));
    ActeOuMariage(f, l.Contexte1()).Source += v;
    if (l.contexte_.remplirListes) l.base_.Listes.Source.Ajouter(v);
}

void Temoin(LecteurGedcom& l, Fami& f, std::string_view& v) {
    l.TemoinEnAttente = 0;
    if (!PointeurDePersonne(l, v)) return;
    const std::int32_t w = l.PersonneDuPointeur(v);
    AjouterTemoin(l, ActeOuMariage(f, l.Contexte1()), w, [&] { return " \xE0 la famille " + NumFamille(l); });
}

// Le parrain d'une famille n'a pas de sexe à chercher : le contexte est celui d'un mariage.
void Role(LecteurGedcom& l, Fami& f, std::string_view& v) {
    AjouterRole(l, "MARR", &ActeOuMariage(f, l.Contexte1()), v);
}

// --- Fichiers liés ---

void LierMedia(LecteurGedcom& l, Fami& f, std::string_view v) {
    const std::int32_t m = MediaDuPointeur(l, v);
    const ActeFamille* r = LigneActe(l.Contexte1());
    Acte& a = ActeOuMariage(f, l.Contexte1());
    if (!Contient(a.Liens().Medias, m) && !PlacerPremierLibre(a.LiensModif().Medias, m)) {
        l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : impossible de lier la famille " +
                           NumFamille(l) + " et le fichier " + std::string(v));
        VoirFichier(a.Notes, v);
    }
    // Le retour de lien reçoit le numéro de la personne courante, non celui de la famille :
    // c'est ainsi que le fichier l'a toujours relu.
    LierObjetEnRetour(l, m, &ObjetMedia::LiensFamis, v, " et la famille " + NumFamille(l),
                      r ? r->typeActe : 0);
}

void Fichier(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (v.empty()) return;
    if (EstPointeur(v)) {
        LierMedia(l, f, v);
        return;
    }
    // Un chemin : l'objet local est rangé dans l'évènement, sans quoi il serait perdu à l'écriture.
    // Le même chemin déjà lié à l'évènement ne fait pas un second objet.
    Acte& a = ActeOuMariage(f, l.Contexte1());
    if (const std::int32_t deja = ObjetAuChemin(l.base_, a.Liens().Medias, v)) {
        RattacherAuBloc(l, deja);
        return;
    }
    if (a.Liens().Medias.PremierLibre() > kMaxLiens) {
        l.JournaliserLigne("Erreur ligne " + NumLigneTexte(l) + " : impossible de lier la famille " +
                           NumFamille(l) + " et le fichier " + std::string(v));
        VoirFichier(a.Notes, v);
        BlocSansObjet(l, Famille(l));
        return;
    }
    const std::int32_t m = NouvelObjetLu(l, v);
    ObjetMedia& o = l.base_.Medias[m];
    PlacerPremierLibre(a.LiensModif().Medias, m);
    o.LiensFamis.Fixer(1, l.NbFamisLues);
    if (const ActeFamille* r = LigneActe(l.Contexte1())) o.TypeActe = r->typeActe;
}

void Objet(LecteurGedcom& l, Fami& f, std::string_view& v) {
    if (ObjetPointe(l, v)) LierMedia(l, f, v);
}

void TitreDeFichier(LecteurGedcom& l, Fami&, std::string_view& v) {
    if (l.DansBlocObjet()) TitreDeBloc(l, v, Famille(l));
}

// --- La table des balises ---

// Dans l'ordre de la règle. Une balise absente est ignorée sans un mot.
constexpr RegleBalise<Fami> kBalisesFamille[] = {
    {"CHIL", nullptr, Enfant},
    {"DATE", nullptr, Date},
    {"PLAC", &OptionsGedcom::Lieux, Lieu},
    {"HUSB", nullptr, Conjoint},
    {"WIFE", nullptr, Conjoint},
    {"CONT", &OptionsGedcom::Notes, Suite},
    {"CONC", &OptionsGedcom::Notes, Suite},
    {"NOTE", nullptr, Note},
    {"TYPE", nullptr, Note},
    {"SOUR", &OptionsGedcom::Sources, Source},
    {"TEXT", &OptionsGedcom::Sources, Source},
    {"ASSO", &OptionsGedcom::Temoins, Temoin},
    {"RELA", &OptionsGedcom::Temoins, Role},
    {"FILE", &OptionsGedcom::Fichiers, Fichier},
    {"OBJE", &OptionsGedcom::Fichiers, Objet},
    {"TITL", &OptionsGedcom::Fichiers, TitreDeFichier},
    {"MARR", nullptr, EvenementConnu},
    {"MARC", nullptr, EvenementConnu},
    {"DIV", nullptr, EvenementConnu},
    {"NCHI", nullptr, nullptr},
    {"NMR", nullptr, nullptr},
    {"ROLE", nullptr, nullptr},
};

}  // namespace

void LecteurGedcom::LigneFamille() {
    static const IndexBalises<Fami> index(kBalisesFamille);
    AppliquerRegle(*this, index, [this]() -> Fami& { return base_.Familles[NbFamisLues]; });
}

void LecteurGedcom::SectionFamille() {
    if (EntreeDeFiche()) {
        NouvelleFiche();
        EnfantSuivant = 1;
        SousPiege([this] {
            // Les numéros de familles du fichier ne sont pas gardés : chaque fiche prend le suivant.
            ++NbFamisLues;
            if (NbFamisLues > base_.Familles.Haut())
                RedimensionnerBase(base_, (NbFamisLues / 5000 + 1) * 5000);
            NoterPrefixe(Depuis(Ligne0, 4), true);
            if (NbFamisLues % 500 == 0) MontrerProgression();
        });
        Avancer(kAlerteFinFamille);
    }
    LignesDeFiche(kAlerteFinFamille, [this] { LigneFamille(); });
}

}  // namespace arbolix
