// Section d'une fiche individuelle (INDI) ou du généalogiste (SUBM).
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_actes.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kAlerteFinPersonne =
    "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier pourrait \xEAtre tronqu\xE9 et "
    "incomplet.";

// Évènements d'une personne choisis par la balise du contexte, et leur type pour un objet média.
// BAPM est le baptême de bien des logiciels : il va au même évènement que CHR.
using ActePersonne = ActeDuContexte<Perso>;
constexpr ActePersonne kActesPersonne[] = {
    {"BIRT", &Perso::Naissance, 1}, {"CHR", &Perso::Bapteme, 4},    {"BAPM", &Perso::Bapteme, 4},
    {"DEAT", &Perso::Deces, 3},     {"BURI", &Perso::Sepulture, 5},
};

const ActePersonne* LigneActe(std::string_view contexte) {
    return ChercherActe(kActesPersonne, contexte);
}

Acte* ActeDe(Perso& p, std::string_view contexte) {
    const ActePersonne* r = LigneActe(contexte);
    return r ? &(p.*(r->acte)) : nullptr;
}

// Un ASSO de niveau 1 est un témoin de la naissance.
Acte* ActeDesTemoins(Perso& p, std::string_view contexte) {
    return contexte == "ASSO" ? &p.Naissance : ActeDe(p, contexte);
}

std::string Numero(const LecteurGedcom& l) {
    return std::to_string(l.base_.NumCourant);
}

void DonneeNonTraitee(LecteurGedcom& l) {
    DonneeNonTraitee(l, "personne " + Numero(l));
}

// Un champ de la suite n'est créé que pour y écrire quelque chose.
void FixerSuite(Perso& p, Texte PersoSuite::*champ, std::string_view v) {
    if (v.empty() && p.Suite().*champ == Texte()) return;
    p.SuiteModif().*champ = v;
}

// --- Noms ---

// Surnom : entre guillemets derrière les prénoms ; un pointeur (ALIA @I3@) désigne une autre
// fiche, ce n'est pas un nom.
void Surnom(LecteurGedcom& l, Perso& p, std::string_view& v) {
    const std::string_view s = SansBlancs(v);
    if (DansUnSousBloc(l, 2) || EstPointeur(s)) {
        DonneeNonTraitee(l);
        return;
    }
    if (s.empty()) return;
    p.Prenoms += " \"";
    p.Prenoms += s;
    p.Prenoms += "\"";
}

void Nom(LecteurGedcom& l, Perso& p, std::string_view& valeur) {
    // Seul un NAME de niveau 1 est le nom de la fiche : "3 NAME" d'une citation ne l'est pas.
    if (DansUnSousBloc(l, 1)) {
        DonneeNonTraitee(l);
        return;
    }
    const std::int32_t n = l.base_.NumCourant;
    if (n <= 0) {
        NomDuGenealogiste(p, valeur);
        return;
    }
    // Un nom de plus sans barre oblique (« 1 NAME Hotspur », un surnom) ne remplace pas le nom lu.
    if (!p.Nom.empty() && valeur.find('/') == std::string::npos) {
        Surnom(l, p, valeur);
        return;
    }
    if (Comme(valeur, "?*/?*/?*/")) {
        l.JournaliserLigne("Alerte ligne " + NumLigneTexte(l) + ", personne " + std::to_string(n) +
                           " : le nom ou le pr\xE9nom comporte un caract\xE8re / qui a \xE9t\xE9 remplac\xE9 "
                           "par , (veuillez v\xE9rifier et modifier si besoin).");
        std::string retouche(valeur);
        retouche.pop_back();
        retouche[retouche.rfind('/')] = ',';
        retouche += '/';
        valeur = l.Retoucher(std::move(retouche));
    }
    const auto barre = valeur.find('/');
    if (Comme(valeur, "*/*/")) {
        const auto seconde = valeur.find('/', barre + 1);
        const std::string_view entre =
            SansBlancs(std::string_view(valeur).substr(barre + 1, seconde - barre - 1));
        std::string nom(p.Nom.vue());
        if (!nom.empty() && Droite(valeur, 2) != "//") nom += ',';
        nom += entre;
        p.Nom = nom;
    } else {
        p.Nom = valeur;
    }
    // Sans barre oblique, rien ne précède le nom : les prénoms restent ce qu'ils étaient.
    // Un blanc ne sépare que ce qui est ajouté : "/Dupont//" ne laisse pas de blanc au bout.
    if (barre != std::string::npos)
        Ajouter(p.Prenoms, " ", SansBlancs(std::string_view(valeur).substr(0, barre)));
    if (l.contexte_.remplirListes) {
        l.base_.Listes.Nom.Ajouter(p.Nom);
        l.base_.Listes.Prenoms.Ajouter(p.Prenoms);
    }
}

// GIVN et SURN ne valent que sous le NAME de la fiche, pas sous une citation ou une traduction.
void Prenom(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (DansUnSousBloc(l, 2)) {
        DonneeNonTraitee(l);
        return;
    }
    if (p.Prenoms.empty() && l.contexte_.remplirListes) l.base_.Listes.Prenoms.Ajouter(v);
    if (p.Prenoms.vue().find(v) == std::string_view::npos) p.Prenoms = v;
}

// Un SURN vide n'efface pas le nom que NAME a donné.
void NomDeFamille(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (DansUnSousBloc(l, 2)) {
        DonneeNonTraitee(l);
        return;
    }
    if (v.empty()) return;
    if (p.Nom.empty() && l.contexte_.remplirListes) l.base_.Listes.Nom.Ajouter(v);
    p.Nom = v;
}

void Sexe(LecteurGedcom& l, Perso& p, std::string_view& v) {
    p.Sexe = v.empty() ? ' ' : v[0];
    if (!v.empty() && v[0] != 'M' && v[0] != 'F')
        l.JournaliserLigne("Info ligne " + NumLigneTexte(l) + ", personne " + Numero(l) +
                           " : le sexe doit \xEAtre M ou F.");
}

// --- Dates et lieux ---

bool ResideDeja(const Texte& notes) {
    return Comme(EnMinuscules(notes.vue()), "*r?side*");
}

// Résidence et métier datés : la date ne passe par aucun évènement de la personne.
void DateDeResidenceOuMetier(LecteurGedcom& l, Perso& p, std::string_view v, bool residence) {
    const std::string date = DateDeTravail(l, v);
    const std::string en = v.size() == 4 ? "en " : "";
    if (residence) {
        std::string notes(p.Notes.vue());
        if (!notes.empty()) notes += ' ';
        if (!ResideDeja(p.Notes)) notes += "r\xE9side ";
        p.Notes = notes + en + date;
    } else {
        p.Metier = p.Metier + " " + en + date;
    }
}

// Date et lieu valent pour le bloc de niveau 1 qui les porte directement ; ceux d'une citation
// (2 SOUR, 3 DATA, 4 DATE) ou d'un autre sous-bloc n'y touchent pas.
void Date(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (DansUnSousBloc(l, 2)) {
        DonneeNonTraitee(l);
        return;
    }
    const std::string_view ctx = l.Contexte1();
    if (Acte* a = ActeDe(p, ctx)) {
        l.LireDateLigne(v, *a);
    } else if (ctx == "CHAN") {
        DateDeModification(l, v, p.DateModif);
    } else if (ctx == "EVEN") {
        p.Notes = p.Notes + " " + DateDeTravail(l, v);
    } else if (ctx == "RESI" || ctx == "OCCU") {
        DateDeResidenceOuMetier(l, p, v, ctx == "RESI");
    }
}

void Lieu(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (DansUnSousBloc(l, 2)) {
        DonneeNonTraitee(l);
        return;
    }
    const Texte lieu = LieuLu(l, v);
    const std::string_view ctx = l.Contexte1();
    if (Acte* a = ActeDe(p, ctx)) {
        a->Lieu = lieu;
    } else if (ctx == "EVEN" || ctx == "RESI") {
        std::string notes(p.Notes.vue());
        if (!notes.empty()) notes += ' ';
        if (!ResideDeja(p.Notes)) notes += "r\xE9side";
        p.Notes = notes + " \xE0 " + lieu;
    } else if (ctx == "OCCU") {
        p.Metier = p.Metier + " \xE0 " + lieu;
    }
}

// --- Notes, sources, suites de lignes ---

bool SuiteDUneNote(std::string_view balise);

// Une suite continue la ligne du niveau au-dessus et va où elle est allée : celle d'une page de
// citation (3 PAGE, 4 CONC) suit la note de l'évènement, celle d'une page qu'aucun champ ne garde se
// perd avec elle ; celle d'une ligne de sous-bloc (3 NOTE d'une citation) ou d'une ligne que la
// fiche ne garde pas va au journal.
void Suite(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (v.empty()) return;
    const std::string_view sep = l.Balise == "CONT" ? " \r\n" : "";
    const std::string_view ctx = l.Contexte1();
    Acte* a = ActeDe(p, ctx);
    const bool note = ctx == "NOTE" || ctx == "EVEN";
    if (DansUnSousBloc(l, 3)) {
        if (l.NiveauLigne > 4 || !SuiteDUneNote(l.Balise3)) {
            DonneeNonTraitee(l);
        } else if (a) {
            SuiteDeNoteActe(*a, l.Balise, v);
        } else if (note) {
            p.Notes += sep;
            p.Notes += v;
        }
    } else if (note || (ctx == "SOUR" && l.cases_.Sources)) {
        p.Notes += sep;
        p.Notes += v;
    } else if (a) {
        SuiteDeNoteActe(*a, l.Balise, v);
    } else if (ctx == "ADDR") {
        if (l.cases_.Adresses) FixerSuite(p, &PersoSuite::Adresse2, v);
    } else if (ctx == "RESI" || ctx == "CITY" || ctx == "DOM") {
        // La ville lue sur la ligne (1 RESI Age: 57; Occupation...) continue sur une seule ligne.
        if (l.cases_.Adresses && !p.Suite().Ville.empty())
            FixerSuite(p, &PersoSuite::Ville, p.Suite().Ville + (sep.empty() ? "" : " ") + std::string(v));
    } else if (ctx != "SOUR") {
        DonneeNonTraitee(l);
    }
}

void Metier(LecteurGedcom& l, Perso& p, std::string_view& v);
void Role(LecteurGedcom& l, Perso& p, std::string_view& v);

void NoteOuSemblable(LecteurGedcom& l, Perso& p, std::string_view& v) {
    const bool type = l.Balise == "TYPE";
    if (type && l.cases_.Professions && v == "Ehrenamt") {
        Ajouter(p.Metier, ", ", Depuis(l.Ligne1, 8));
        l.Ligne1 = "1 OCCU";
        v = {};
    }
    if (type && l.Ligne1 == "1 TITL") {
        // "1 TITL x" a été coupé en "1 TITL" et "2 TYPE x" : c'est le titre.
        if (l.cases_.Professions) Metier(l, p, v);
        return;
    }
    if (!NoteALire(l, v)) return;
    if (RoleEnAttente(l)) {
        Role(l, p, v);
        return;
    }
    const bool note = l.Balise == "NOTE";
    // La note d'une citation ou d'un autre sous-bloc n'est pas celle de la fiche.
    if (note && DansUnSousBloc(l, 2)) {
        DonneeNonTraitee(l);
        return;
    }
    if (EstPointeur(v)) v = l.Retoucher(LienLu(l, v, 'N'));
    if (type && l.ProduitOmega && v.size() == 1) return;
    if (l.Balise == "AGE" && !l.cases_.Ages) return;
    const std::string_view ctx = l.Contexte1();
    if (Acte* a = ActeDe(p, ctx)) {
        AjouterNoteActe(*a, v);
    } else if (ctx == "NOTE" || ctx == "EVEN") {
        Ajouter(p.Notes, "\r\n", v);
    } else if (note) {
        DonneeNonTraitee(l);  // 2 NOTE d'un métier, d'un nom... : aucun champ ne la garde
    }
}

void Source(LecteurGedcom& l, Perso& p, std::string_view& v) {
    std::string s(SansBlancsGauche(v));
    if (EstPointeur(s)) s = LienLu(l, s, 'S');
    const bool texte = l.Balise == "TEXT";
    if (texte && l.contexte_.remplirListes) l.base_.Listes.Source.Ajouter(s);
    const std::string_view ctx = l.Contexte1();
    if (Acte* a = ActeDe(p, ctx)) {
        if (texte && !a->Source.empty()) a->Source += " ";
        a->Source += s;
    } else if (ctx == "SOUR") {
        Ajouter(p.Notes, "\r\n", s);
    }
}

// --- Métiers ---

// Chaque métier va à la liste, et ses deux premières lettres aux codes de la personne.
void ListerMetiers(LecteurGedcom& l, Perso& p, std::string m) {
    RemplacerTout(m, " puis ", ",");
    std::string_view reste = m;
    for (;;) {
        const auto virgule = reste.find(',');
        const std::string_view partie = SansBlancs(reste.substr(0, virgule));
        l.base_.Listes.Metier.Ajouter(partie);
        const std::string_view code = Gauche(partie, 2);
        const std::string codes = "," + p.CodesMetiers + ",";
        if (!code.empty() && codes.find("," + std::string(code) + ",") == std::string::npos)
            Ajouter(p.CodesMetiers, ",", code);
        if (virgule == std::string_view::npos) break;
        reste.remove_prefix(virgule + 1);
    }
}

void Metier(LecteurGedcom& l, Perso& p, std::string_view& v) {
    const bool titre = l.Balise == "TITL" || l.Balise == "TYPE";
    if (l.Balise == "TITL" && l.DansBlocObjet()) {
        if (l.cases_.Fichiers) TitreDeBloc(l, v, "personne " + Numero(l));
        return;
    }
    if (!l.cases_.Professions) return;
    // Une ligne vide n'ajoute pas de ", " à ce qui est déjà là.
    std::string m = SansDoublesBlancs(v);
    if (m.empty()) return;
    if (titre) {
        Ajouter(p.Titre, ", ", m);
    } else {
        if (l.ProduitOmega) RemplacerTout(m, "_", "");
        Ajouter(p.Metier, ", ", m);
    }
    if (l.contexte_.remplirListes) ListerMetiers(l, p, m);
}

// --- Témoins ---

void Temoin(LecteurGedcom& l, Perso& p, std::string_view& v) {
    l.TemoinEnAttente = 0;
    if (!EstPointeur(v)) {
        if (!v.empty()) DonneeNonTraitee(l);
        return;
    }
    if (l.DesigneUneFamille(v)) {
        LienVersUneFamille(l, v, "de la personne " + Numero(l));
        return;
    }
    Acte* a = ActeDesTemoins(p, l.Contexte1());
    if (!a) {
        DonneeNonTraitee(l);  // aucun évènement de la fiche ne peut porter ce témoin
        return;
    }
    const std::int32_t w = l.PersonneDuPointeur(v);
    AjouterTemoin(l, *a, w, [&] { return " \xE0 la personne " + Numero(l) + " " + p.Nom + " " + p.Prenoms; });
}

void Role(LecteurGedcom& l, Perso& p, std::string_view& v) {
    const std::string_view ctx = l.Contexte1();
    AjouterRole(l, ctx, ActeDesTemoins(p, ctx), v);
}

// --- Adresses et divers ---

void Reference(LecteurGedcom& l, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::Ref, v);
    if (v == "1") l.PremierePerso = l.base_.NumCourant;
}

// Le dernier caractère est lu comme un nombre : ce qui n'est pas un chiffre fait
// l'erreur d'exécution que le piège note, et le numéro reste enregistré.
void Telephone(LecteurGedcom&, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::Telephone, v);
    if (v.empty() || !EstChiffre(v.back())) throw ErreurExecution(13, "Incompatibilit\xE9 de type");
}

void Adresse(LecteurGedcom&, Perso& p, std::string_view& v) {
    if (!v.empty()) FixerSuite(p, &PersoSuite::Adresse1, v);
}
void Adresse1(LecteurGedcom&, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::Adresse1, v);
}
void Adresse2(LecteurGedcom&, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::Adresse2, SansBlancsGauche(v));
}
void Ville(LecteurGedcom&, Perso& p, std::string_view& v) {
    if (!v.empty()) FixerSuite(p, &PersoSuite::Ville, v);
}
void Pays(LecteurGedcom&, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::Pays, v);
}
void CodePostal(LecteurGedcom&, Perso& p, std::string_view& v) {
    FixerSuite(p, &PersoSuite::CP, v);
}
void Etat(LecteurGedcom&, Perso& p, std::string_view& v) {
    if (!v.empty()) FixerSuite(p, &PersoSuite::Etat, v);
}
void Courriel(LecteurGedcom& l, Perso& p, std::string_view& v) {
    const auto double_ = v.find("@@");
    if (double_ != std::string_view::npos) v = l.Retoucher(std::string(v).erase(double_, 1));
    FixerSuite(p, &PersoSuite::EMail, v);
}
void Site(LecteurGedcom&, Perso& p, std::string_view& v) {
    if (!v.empty()) Ajouter(p.SuiteModif().URL, ";", v);
}
// Additions et non bits : une balise donnée deux fois déborde sur l'autre intérêt.
void Ascendants(LecteurGedcom&, Perso& p, std::string_view&) {
    p.Interet += 1;
}
void Descendants(LecteurGedcom&, Perso& p, std::string_view&) {
    p.Interet += 2;
}
void Parrainage(LecteurGedcom&, Perso& p, std::string_view& v) {
    Ajouter(p.Bapteme.Notes, "\r\n", SansBlancsGauche(v));
}

// « 1 DEAT Y » : le décès (la naissance, le baptême, la sépulture) a eu lieu, date et lieu inconnus.
void EvenementConnu(LecteurGedcom& l, Perso& p, std::string_view& v) {
    MarquerConnu(l, ActeDe(p, l.Balise), v);
}

// --- Fichiers liés ---

// Un lien sans place libre attend la fin de la lecture : un objet venu d'un chemin lu plus tôt peut
// encore s'avérer le double d'un objet du fichier et lui céder sa place.
void MettreEnAttente(LecteurGedcom& l, std::int32_t objet, const ActePersonne* r, std::string_view v) {
    l.FichiersEnAttente.push_back(
        {l.base_.NumCourant, objet, l.NumLigne, r ? r->typeActe : 0, r ? r->acte : nullptr, std::string(v)});
}

// Lien vers un objet média @M..@, depuis la personne ou l'un de ses évènements. La personne n'a
// qu'un lien vers un objet ; celui de sa propre liste l'emporte sur celui d'un évènement, qu'il
// remplace : c'est lui que l'écriture redonne.
void LierMedia(LecteurGedcom& l, Perso& p, std::string_view v) {
    const std::int32_t m = MediaDuPointeur(l, v);
    const ActePersonne* r = LigneActe(l.Contexte1());
    Acte* a = r ? &(p.*(r->acte)) : nullptr;
    if (!a && !Contient(p.Suite().ObjetsMedia, m)) {
        if (PlacerPremierLibre(p.SuiteModif().ObjetsMedia, m)) {
            for (const auto& e : kActesPersonne)
                if (Contient((p.*(e.acte)).Liens().Medias, m)) Retirer((p.*(e.acte)).LiensModif().Medias, m);
        } else if (!ObjetDeLaPersonne(p, m)) {
            MettreEnAttente(l, m, r, v);
        }
    } else if (a && !ObjetDeLaPersonne(p, m)) {
        if (!PlacerPremierLibre(a->LiensModif().Medias, m)) MettreEnAttente(l, m, r, v);
    }
    LierObjetEnRetour(l, m, &ObjetMedia::LiensPersos, v, " et la personne " + Numero(l), r ? r->typeActe : 0);
}

void Fichier(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (v.empty()) return;
    if (EstPointeur(v)) {
        LierMedia(l, p, v);
        return;
    }
    // Le même chemin déjà lié à la personne ne fait pas un second objet ; le bloc va au sien.
    if (const std::int32_t deja = ObjetDeLaPersonneAuChemin(l.base_, p, v)) {
        RattacherAuBloc(l, deja);
        return;
    }
    if (p.Suite().ObjetsMedia.PremierLibre() > kMaxLiens) {
        MettreEnAttente(l, 0, LigneActe(l.Contexte1()), v);
        BlocSansObjet(l, "personne " + Numero(l));
        return;
    }
    const std::int32_t m = NouvelObjetLu(l, v);
    ObjetMedia& o = l.base_.Medias[m];
    PlacerPremierLibre(p.SuiteModif().ObjetsMedia, m);
    if (l.base_.NumCourant > 0) o.LiensPersos.Fixer(1, l.base_.NumCourant);
    if (const ActePersonne* r = LigneActe(l.Contexte1())) o.TypeActe = r->typeActe;
}

// OBJE @M..@ lie l'objet comme FILE @M..@ ; OBJE sans valeur ouvre un bloc FILE/TITL/FORM.
void Objet(LecteurGedcom& l, Perso& p, std::string_view& v) {
    if (ObjetPointe(l, v)) LierMedia(l, p, v);
}

// --- La table des balises ---

// Dans l'ordre de la règle ; la première ligne d'une balise l'emporte.
constexpr RegleBalise<Perso> kBalisesPersonne[] = {
    {"DATE", nullptr, Date},
    {"PLAC", &OptionsGedcom::Lieux, Lieu},
    {"SEX", nullptr, Sexe},
    {"NAME", nullptr, Nom},
    {"GIVN", nullptr, Prenom},
    {"SURN", nullptr, NomDeFamille},
    {"NICK", nullptr, Surnom},
    {"ALIA", nullptr, Surnom},
    {"AKA", nullptr, Surnom},
    {"MARNM", nullptr, Surnom},
    {"CONT", &OptionsGedcom::Notes, Suite},
    {"CONC", &OptionsGedcom::Notes, Suite},
    {"NOTE", nullptr, NoteOuSemblable},
    {"AGE", nullptr, NoteOuSemblable},
    {"TYPE", nullptr, NoteOuSemblable},
    {"CENS", nullptr, NoteOuSemblable},
    {"CAUS", nullptr, NoteOuSemblable},
    {"NPFX", nullptr, NoteOuSemblable},
    {"NSFX", nullptr, NoteOuSemblable},
    {"PAGE", nullptr, NoteOuSemblable},
    {"FOOT", nullptr, NoteOuSemblable},
    {"SOUR", &OptionsGedcom::Sources, Source},
    {"TEXT", &OptionsGedcom::Sources, Source},
    {"OCCU", &OptionsGedcom::Professions, Metier},
    {"GRAD", &OptionsGedcom::Professions, Metier},
    {"TITL", nullptr, Metier},  // Professions vérifiée dedans : le titre d'un fichier n'en dépend pas
    {"EDUC", &OptionsGedcom::Professions, Metier},
    {"ORDN", &OptionsGedcom::Professions, Metier},
    {"MILT", &OptionsGedcom::Professions, Metier},
    {"ASSO", &OptionsGedcom::Temoins, Temoin},
    {"RELA", &OptionsGedcom::Temoins, Role},
    {"REFN", nullptr, Reference},
    {"PHON", &OptionsGedcom::Adresses, Telephone},
    {"ADDR", &OptionsGedcom::Adresses, Adresse},
    {"ADR1", &OptionsGedcom::Adresses, Adresse1},
    {"ADR2", &OptionsGedcom::Adresses, Adresse2},
    {"CITY", &OptionsGedcom::Adresses, Ville},
    {"RESI", &OptionsGedcom::Adresses, Ville},
    {"DOM", &OptionsGedcom::Adresses, Ville},
    {"CTRY", &OptionsGedcom::Adresses, Pays},
    {"POST", &OptionsGedcom::Adresses, CodePostal},
    {"STAE", &OptionsGedcom::Adresses, Etat},
    {"EMAI", &OptionsGedcom::Adresses, Courriel},
    {"EMAIL", &OptionsGedcom::Adresses, Courriel},
    {"MAIL", &OptionsGedcom::Adresses, Courriel},
    {"WWW", &OptionsGedcom::Adresses, Site},
    {"URL", &OptionsGedcom::Adresses, Site},
    {"ANCI", nullptr, Ascendants},
    {"DESI", nullptr, Descendants},
    {"GODP", nullptr, Parrainage},
    {"FILE", &OptionsGedcom::Fichiers, Fichier},
    {"OBJE", &OptionsGedcom::Fichiers, Objet},
    {"DEAT", nullptr, EvenementConnu},
    {"BIRT", nullptr, EvenementConnu},
    {"BURI", nullptr, EvenementConnu},
    {"CHAN", nullptr, nullptr},
    {"CHR", nullptr, EvenementConnu},
    {"BAPM", nullptr, EvenementConnu},
    {"CLS", nullptr, nullptr},
    {"DCT", nullptr, nullptr},
    {"FAMC", nullptr, nullptr},
    {"FAMS", nullptr, nullptr},
    {"FIL", nullptr, nullptr},
    {"FNA", nullptr, nullptr},
    {"FORM", nullptr, nullptr},
    {"LATI", nullptr, nullptr},
    {"LONG", nullptr, nullptr},
    {"MAP", nullptr, nullptr},
    {"NMR", nullptr, nullptr},
    {"ROLE", nullptr, nullptr},
    {"SIGN", nullptr, nullptr},
    {"TIME", nullptr, nullptr},
    {"CHV", nullptr, nullptr},
    {"IGNOR", nullptr, nullptr},
};

// Une ligne que la table range avec les notes (PAGE, CAUS, AGE...), hors NOTE : sa suite la suit.
bool SuiteDUneNote(std::string_view balise) {
    if (balise == "NOTE") return false;
    for (const auto& r : kBalisesPersonne)
        if (r.balise == balise) return r.traiter == NoteOuSemblable;
    return false;
}

}  // namespace

void LecteurGedcom::LignePersonne(Perso*& fiche) {
    static const IndexBalises<Perso> index(kBalisesPersonne);
    if (!fiche) fiche = &base_.Persos[base_.NumCourant];
    Perso& p = *fiche;
    if (!AppliquerRegle(*this, index, [&p]() -> Perso& { return p; }) && !LigneCourante.empty() &&
        !Comme(Balise, "@*@"))
        DonneeNonTraitee(*this);
}

void LecteurGedcom::SectionPersonne() {
    if (EntreeDeFiche()) {
        NouvelleFiche();
        SousPiege([this] {
            const std::string_view id = Depuis(Ligne0, 4);
            if (Droite(Ligne0, 4) == "INDI") {
                base_.NumCourant = 0;  // un numéro illisible envoie ses lignes à la fiche vierge
                base_.NumCourant = base_.NbPersos + NumeroLu(id, true, Renumeroter, Genre::Personne);
                IndiLus.push_back(base_.NumCourant);
                NoterPrefixe(id, false);
                if (base_.NbPersosReels % 500 == 0 || base_.NumCourant == 1) MontrerProgression();
                if (base_.NumCourant % 100 == 0)
                    AgrandirBase(base_, false, base_.Persos.Haut(), &contexte_.progression,
                                 contexte_.textes.Agrandissement);
            } else {
                // Un autre généalogiste que celui de l'en-tête : ses lignes vont à la
                // fiche vierge, jamais dans la dernière personne lue.
                base_.NumCourant = 0;
                if (NumeroLu(id, false, false, Genre::Personne) == base_.Persos[-1].Unions[0])
                    base_.NumCourant = -1;
            }
        });
        Avancer(kAlerteFinPersonne);
    }
    // La fiche se cherche à la première ligne, puis reste : ses pages ne bougent pas pendant la lecture.
    Perso* fiche = nullptr;
    if (!LignesDeFiche(kAlerteFinPersonne, [this, &fiche] { LignePersonne(fiche); })) return;
    if (base_.NumCourant == 0) base_.Persos[0] = Perso{};
}

}  // namespace arbolix
