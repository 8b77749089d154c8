// Contrôles de la base juste lue : fiches vides, familles à un seul conjoint.
#include <algorithm>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_actes.h"
#include "gedcom/lecture_liens.h"
#include "platform/en_meme_temps.h"
#include "platform/progression.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

namespace {

// Au-delà, une seule ligne de compte : un numéro isolé très haut ne doit pas
// remplir le journal de millions de fiches vides.
constexpr int kFichesVidesDetaillees = 1000;

bool ActeVide(const Acte& a) {
    return a.Date.empty() && a.Lieu.empty();
}

bool FicheVide(const Perso& p) {
    return p.Nom.empty() && p.Prenoms.empty() && p.Naissance.Date.empty() && p.Bapteme.Date.empty() &&
           p.Deces.Date.empty() && p.Sepulture.Date.empty() && p.Notes.empty() && p.NumParents == 0 &&
           p.Unions[1] == 0;
}

// Une fiche qui porte quoi que ce soit du fichier (sexe, métier, lieu, adresse...) en dehors
// de ce que la lecture pose d'elle-même : plus large que FicheVide, pour ne rien perdre.
bool PorteDesDonnees(const Perso& p) {
    Perso q = p;
    q.Sel = q.SelAvant = kFaux;
    q.DateModif = 0;
    q.CodeNom.clear();
    q.NomTri.clear();
    return !(q == Perso{});
}

using ListeObjets = Emplacements<std::int32_t, 1, kMaxLiens>;
using EnAttente = LecteurGedcom::FichierEnAttente;

// Le double local disparaît ; l'objet du fichier reçoit ses titres et son type d'acte.
void AbsorberDouble(Base& b, std::int32_t local, std::int32_t fiche) {
    const ObjetMedia double_ = std::exchange(b.Medias[local], ObjetMedia{});
    --b.NbMediasReels;
    ObjetMedia& o = b.Medias[fiche];
    for (const auto& [j, titre] : double_.Titres)
        if (!Contient(o.Titres, titre)) PlacerPremierLibre(o.Titres, titre);
    if (o.TypeActe == 0) o.TypeActe = double_.TypeActe;
}

// L'objet local de la liste qui porte l'un des chemins de l'objet m ; 0 s'il n'y en a pas.
std::int32_t DoubleLocal(const Base& b, const ListeObjets& objets, std::int32_t m) {
    for (const auto& [i, x] : objets) {
        const ObjetMedia& o = b.Medias[x];
        if (x == m || o.Local == 0) continue;
        for (const auto& [j, chemin] : o.Fichiers)
            if (Contient(b.Medias[m].Fichiers, chemin)) return x;
    }
    return 0;
}

// Un chemin lu sous une personne avant le pointeur vers l'objet du fichier qui le porte (un fichier
// que nous avons écrit répète l'objet derrière chaque évènement) a fait un objet local en double :
// la personne garde l'objet du fichier et le double disparaît. Les chemins ne font d'objets que
// dans la liste de la personne ; les objets du fichier peuvent être dans celles des évènements.
void RetirerDoublesLocaux(Base& b, Perso& p) {
    if (p.Suite().ObjetsMedia.empty()) return;
    std::vector<std::int32_t> fiches;
    const auto relever = [&](const ListeObjets& objets) {
        for (const auto& [i, m] : objets)
            if (b.Medias[m].Local == 0) fiches.push_back(m);
    };
    relever(p.Suite().ObjetsMedia);
    for (const Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture}) relever(a->Liens().Medias);
    for (const std::int32_t fiche : fiches)
        while (const std::int32_t local = DoubleLocal(b, p.Suite().ObjetsMedia, fiche)) {
            Retirer(p.SuiteModif().ObjetsMedia, local);
            AbsorberDouble(b, local, fiche);
        }
}

// Un lien resté sans place après le départ des doubles va au journal, son fichier aux notes.
void PoserEnAttente(LecteurGedcom& l, Perso& p, const EnAttente& f) {
    const std::string n = std::to_string(f.personne);
    const std::string ligne = "Erreur ligne " + std::to_string(f.ligne) + " : impossible de lier ";
    if (f.objet == 0) {
        if (ObjetDeLaPersonneAuChemin(l.base_, p, f.valeur)) return;
        l.JournaliserLigne(ligne + "le fichier " + f.valeur + " et la personne " + n);
        VoirFichier(p.Notes, f.valeur);
        return;
    }
    if (ObjetDeLaPersonne(p, f.objet)) return;
    auto& objets = f.acte ? (p.*f.acte).LiensModif().Medias : p.SuiteModif().ObjetsMedia;
    if (PlacerPremierLibre(objets, f.objet)) return;
    l.JournaliserLigne(ligne + "la personne " + n + " et le fichier " + f.valeur);
    VoirFichier(f.acte ? (p.*f.acte).Notes : p.Notes, f.valeur);
}

// Pour une personne : les doubles locaux des objets du fichier, liés ou en attente, partent ; puis les
// liens en attente se posent dans l'ordre de lecture, ou vont au journal. L'ordre des objets est
// ainsi celui des pointeurs, d'une relecture à l'autre.
void ArrangerFichiers(LecteurGedcom& l, std::int32_t n, std::span<const EnAttente> attente) {
    Base& b = l.base_;
    if (attente.empty() && std::as_const(b.Persos)[n].Suite().ObjetsMedia.empty()) return;
    Perso& p = b.Persos[n];
    for (const EnAttente& f : attente)
        while (const std::int32_t local = f.objet > 0 ? DoubleLocal(b, p.Suite().ObjetsMedia, f.objet) : 0) {
            Retirer(p.SuiteModif().ObjetsMedia, local);
            AbsorberDouble(b, local, f.objet);
        }
    RetirerDoublesLocaux(b, p);
    for (const EnAttente& f : attente) PoserEnAttente(l, p, f);
}

// Les doubles des familles : un chemin et un objet du fichier dans le même évènement.
void RetirerDoublesLocaux(Base& b, std::int32_t nbFamis) {
    for (std::int32_t f = 1; f <= nbFamis; ++f) {
        if (b.Familles.PageVierge(f)) {
            f = b.Familles.FinDePage(f);
            continue;
        }
        for (Acte Fami::*acte : {&Fami::Mariage, &Fami::Contrat, &Fami::Divorce}) {
            const ListeObjets& objets = (std::as_const(b.Familles)[f].*acte).Liens().Medias;
            for (const auto& [i, m] : objets)
                if (b.Medias[m].Local == 0 && DoubleLocal(b, objets, m)) {
                    ListeObjets& modif = (b.Familles[f].*acte).LiensModif().Medias;
                    while (const std::int32_t local = DoubleLocal(b, modif, m)) {
                        Retirer(modif, local);
                        AbsorberDouble(b, local, m);
                    }
                    break;
                }
        }
    }
}

void ArrangerFichiers(LecteurGedcom& l) {
    auto& attente = l.FichiersEnAttente;
    std::stable_sort(attente.begin(), attente.end(),
                     [](const EnAttente& a, const EnAttente& b) { return a.personne < b.personne; });
    std::vector<std::int32_t> personnes = l.IndiLus;
    for (const EnAttente& f : attente) personnes.push_back(f.personne);
    std::sort(personnes.begin(), personnes.end());
    personnes.erase(std::unique(personnes.begin(), personnes.end()), personnes.end());
    auto debut = attente.begin();
    for (const std::int32_t n : personnes) {
        const auto fin =
            std::find_if(debut, attente.end(), [n](const EnAttente& f) { return f.personne != n; });
        ArrangerFichiers(l, n, {debut, fin});
        debut = fin;
    }
    attente.clear();
    RetirerDoublesLocaux(l.base_, l.base_.NbFamis);
}

}  // namespace

void LecteurGedcom::ControlesApresLecture() {
    Base& b = base_;
    if (b.NbPersos > 2 * b.NbPersosReels)
        JournaliserLigne("Info : plus de la moiti\xE9 des fiches individuelles sont vides !");
    contexte_.progression.Avancement("100 %");
    contexte_.progression.Compteur(contexte_.textes.Verification);
    contexte_.progression.LaisserPasser();
    for (std::int32_t f = 1; f <= b.NbFamis; ++f) {
        const Fami& fa = std::as_const(b.Familles)[f];
        const bool unSeul = fa.Mari == 0 || fa.Femme == 0 ||
                            std::as_const(b.Persos)[fa.Mari].Prenoms.empty() ||
                            std::as_const(b.Persos)[fa.Femme].Prenoms.empty();
        if (unSeul && !(ActeVide(fa.Mariage) && ActeVide(fa.Contrat) && ActeVide(fa.Divorce)))
            JournaliserLigne("Alerte : la famille " + std::to_string(f) +
                             " comporte des \xE9v\xE8nements mais n'a pas 2 conjoints.");
    }
    std::int64_t vides = 0;
    for (std::int32_t n = 1; n <= b.NbPersos; ++n) {
        // Une page jamais écrite n'a que des fiches vides : on la compte d'un coup.
        const bool pageVierge = b.Persos.PageVierge(n);
        const std::int32_t dernier = pageVierge ? std::min(b.Persos.FinDePage(n), b.NbPersos) : n;
        if (!pageVierge && !FicheVide(std::as_const(b.Persos)[n])) continue;
        std::int32_t k = n;
        for (; k <= dernier && vides < kFichesVidesDetaillees; ++k, ++vides)
            JournaliserLigne("Info : la fiche " + std::to_string(k) +
                             " est vide et peut \xEAtre r\xE9utilis\xE9"
                             "e.");
        vides += dernier - k + 1;
        n = dernier;
    }
    if (vides > kFichesVidesDetaillees)
        JournaliserLigne("Info : " + std::to_string(vides - kFichesVidesDetaillees) +
                         " autres fiches sont vides et peuvent \xEAtre r\xE9utilis\xE9"
                         "es.");
    if (cases_.OptNettoie) Nettoyer();
    // Une fiche INDI lue avec des données mais sans prénom resterait invisible à
    // tous les parcours et serait perdue à l'enregistrement : prénom par défaut.
    for (const std::int32_t n : IndiLus) {
        Perso& p = b.Persos[n];
        if (n > 0 && p.Prenoms.empty() && PorteDesDonnees(p))
            p.Prenoms = contexte_.options.NomPrenomParDefaut;
    }
    ArrangerFichiers(*this);
    // Ce qu'un lien 0 a pu écrire dans les fiches vierges est effacé.
    b.Persos[0].Nom.clear();
    b.Persos[0].Prenoms.clear();
    b.Persos[0].Unions[0] = 0;
    b.Familles[0].Enfants.Fixer(1, 0);
    // Les retours de liens des notes, sources et médias suivent exactement les textes de liens
    // gardés dans les fiches (une ligne lue mais non gardée ne laisse pas de retour). Les codes
    // des noms, eux, n'écrivent que NomTri et CodeNom, que les liens ne lisent pas : ils se font
    // en même temps sur un autre cœur. La progression reste au fil de la lecture.
    EnMemeTemps([this] { CoderNoms(); }, [&] { ReconstruireLiens(b, &contexte_.progression); });
}

}  // namespace arbolix
