// Contrôles de la base juste lue : fiches vides, familles à un seul conjoint.
#include <algorithm>
#include <string>

#include "card/notes.h"
#include "gedcom/lecteur_gedcom.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Au-delà, une seule ligne de compte : un numéro isolé très haut ne doit pas
// remplir le journal de millions de fiches vides.
constexpr int kFichesVidesDetaillees = 1000;

bool ActeVide(const Acte& a) { return a.Date.empty() && a.Lieu.empty(); }

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
        const bool unSeul = fa.Mari == 0 || fa.Femme == 0 || std::as_const(b.Persos)[fa.Mari].Prenoms.empty() ||
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
            JournaliserLigne("Info : la fiche " + std::to_string(k) + " est vide et peut \xEAtre r\xE9utilis\xE9" "e.");
        vides += dernier - k + 1;
        n = dernier;
    }
    if (vides > kFichesVidesDetaillees)
        JournaliserLigne("Info : " + std::to_string(vides - kFichesVidesDetaillees) +
                         " autres fiches sont vides et peuvent \xEAtre r\xE9utilis\xE9" "es.");
    if (cases_.OptNettoie) Nettoyer();
    // Une fiche INDI lue avec des données mais sans prénom resterait invisible à
    // tous les parcours et serait perdue à l'enregistrement : prénom par défaut.
    for (const std::int32_t n : IndiLus) {
        Perso& p = b.Persos[n];
        if (n > 0 && p.Prenoms.empty() && PorteDesDonnees(p)) p.Prenoms = contexte_.options.NomPrenomParDefaut;
    }
    // Ce qu'un lien 0 a pu écrire dans les fiches vierges est effacé.
    b.Persos[0].Nom.clear();
    b.Persos[0].Prenoms.clear();
    b.Persos[0].Unions[0] = 0;
    b.Familles[0].Enfants.Fixer(1, 0);
    CoderNoms();
    // Les retours de liens des notes, sources et médias suivent exactement les textes de liens
    // gardés dans les fiches (une ligne lue mais non gardée ne laisse pas de retour).
    ReconstruireLiens(b);
}

}  // namespace arbolix
