// Nettoyage d'une base juste lue (case Nettoyer) et codes des noms.
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "store/aides_texte.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

namespace {

void SansFinDeLigneDeTete(Texte& t) {
    if (t.vue().substr(0, 2) == "\r\n") t = t.vue().substr(2);
}

// Les notes ou sources d'un tableau, en ne touchant que celles qui commencent par une fin de ligne :
// une page jamais écrite ne prend pas de mémoire.
void SansFinDeLigneDeTete(Tableau<NoteExt>& t, std::int32_t nombre) {
    t.PourChaqueEcrit(0, nombre, [&](std::int32_t n) {
        if (std::as_const(t)[n].Texte.vue().substr(0, 2) == "\r\n") SansFinDeLigneDeTete(t[n].Texte);
    });
}

// Un code postal de cinq chiffres en tête d'Adresse2 part dans CP, le reste dans Ville.
void RangerVille(PersoSuite& s) {
    const std::string_view a2 = s.Adresse2;
    if (a2.empty() || !s.Ville.empty() || !EstNumerique(Gauche(a2, 5)) || a2.size() < 5) return;
    s.CP = Gauche(a2, 5);
    s.Ville = Depuis(a2, 7);
    s.Adresse2.clear();
}

// Une note qui n'est qu'une adresse de courriel devient le courriel de la personne.
void RangerCourriel(Perso& p) {
    const std::string_view n = p.Notes;
    if (n.empty() || !p.Suite().EMail.empty()) return;
    if (n.find('@', 1) == std::string_view::npos || n.substr(0, 2) == "@N" || n.back() == '@' ||
        n.find(' ') != std::string_view::npos)
        return;
    p.SuiteModif().EMail = n;
    p.Notes.clear();
}

bool AUneDonnee(const Perso& p) {
    return !p.Naissance.Date.empty() || !p.Bapteme.Date.empty() || !p.Deces.Date.empty() ||
           !p.Sepulture.Date.empty() || !p.Notes.empty() || p.NumParents != 0 || p.Unions[1] != 0;
}

}  // namespace

void LecteurGedcom::Nettoyer() {
    Base& b = base_;
    const Options& o = contexte_.options;
    SansFinDeLigneDeTete(b.Notes, b.NbNotes);
    SansFinDeLigneDeTete(b.Sources, b.NbSources);
    const std::string& defaut = o.NomPrenomParDefaut;
    for (std::int32_t n = 1; n <= b.NbPersos; ++n) {
        if (n % 100 == 0) {
            contexte_.progression.LaisserPasser();
            if (Annule()) return;
        }
        // Une page jamais écrite (numéros isolés très hauts) n'est pas remplie de
        // fiches « N » : des millions de fiches inventées ne rendraient service à personne.
        if (b.Persos.PageVierge(n)) {
            n = b.Persos.FinDePage(n);
            continue;
        }
        Perso& p = b.Persos[n];
        if (p.Nom.empty() && p.Prenoms.empty()) {
            if (AUneDonnee(p) || !cases_.OptRenum) {
                p.Prenoms = defaut;
                JournaliserLigne("Info : la fiche " + std::to_string(n) +
                                 " a un pr\xE9nom vide qui a \xE9t\xE9 remplac\xE9 par le pr\xE9nom par d\xE9"
                                 "faut.");
            }
            continue;
        }
        if (!p.Nom.empty()) {
            std::string nom = Remplacer(Remplacer(p.Nom, "0", "O"), "1", "I");
            p.Nom = Majuscules(nom, 0, o.ModifCasse);
            p.CodeNom = CodeSon(p.Nom);
        } else {
            p.Nom = defaut;
            p.CodeNom = "N000";
        }
        if (p.Prenoms.empty()) p.Prenoms = defaut;
        // Le titre passe dans le métier : gardé aussi dans Titre, l'écriture le rendrait deux fois.
        if (!p.Titre.empty()) {
            p.Metier = p.Metier.empty() ? p.Titre.str() : p.Metier + ", " + p.Titre;
            p.Titre.clear();
        }
        SansFinDeLigneDeTete(p.Notes);
        if (!p.Suite().Adresse2.empty()) RangerVille(p.SuiteModif());
        RangerCourriel(p);
        p.Unions[0] = 0;
        if (p.Unions[2] > 0) TrierUnions(b, n);
    }
    for (std::int32_t f = 1; f <= b.NbFamis; ++f) {
        if (b.Familles.PageVierge(f)) {
            f = b.Familles.FinDePage(f);
            continue;
        }
        Fami& fa = b.Familles[f];
        if (!fa.Enfants.empty()) TrierEnfants(b, f);
        SansFinDeLigneDeTete(fa.Mariage.Notes);
        if (fa.Mari > 0 && fa.Femme > 0 && b.Persos[fa.Mari].Sexe == 'F' && b.Persos[fa.Femme].Sexe == 'M') {
            std::swap(fa.Mari, fa.Femme);
            JournaliserLigne(
                "Info : inversion de sexe corrig\xE9"
                "e des conjoints de la famille " +
                std::to_string(f) + ".");
        }
        if (fa.Enfants(1) == 0 && (fa.Mari == 0) != (fa.Femme == 0))
            SupprimerUnion(b, f, fa.Mari != 0 ? fa.Mari : fa.Femme, nullptr, 0);
    }
    if (o.ModifCasse) NormaliserCasse();
}

// Casse des noms (mode 0), prénoms (mode 1) et lieux (mode 3), dans les fiches et les listes.
void LecteurGedcom::NormaliserCasse() {
    Base& b = base_;
    const auto casse = [](Texte& t, int mode) {
        if (!t.empty()) t = Majuscules(t, mode, true);
    };
    for (std::int32_t n = 1; n <= b.NbPersos; ++n) {
        if (b.Persos.PageVierge(n)) continue;
        Perso& p = b.Persos[n];
        casse(p.Prenoms, 1);
        for (Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture}) casse(a->Lieu, 3);
    }
    for (std::int32_t f = 1; f <= b.NbFamis; ++f) {
        if (b.Familles.PageVierge(f)) continue;
        Fami& fa = b.Familles[f];
        for (Acte* a : {&fa.Contrat, &fa.Mariage, &fa.Divorce}) casse(a->Lieu, 3);
    }
    const auto refaire = [](ListeChoix& liste, int mode) {
        ListeChoix neuve;
        for (const auto& v : liste.Triee()) neuve.Ajouter(Majuscules(v, mode, true));
        liste = std::move(neuve);
    };
    refaire(b.Listes.Nom, 0);
    refaire(b.Listes.Prenoms, 1);
    refaire(b.Listes.Lieu, 3);
}

// Codes phonétiques et clés de tri de tous les noms. Ils se font sur un autre fil que la lecture :
// la progression n'est pas la leur.
void LecteurGedcom::CoderNoms() {
    Base& b = base_;
    // Des fiches qui se suivent portent souvent le même nom (une fratrie) : ses codes resservent.
    const Perso* precedent = nullptr;
    for (std::int32_t n = 1; n <= b.NbPersos; ++n) {
        if (b.Persos.PageVierge(n)) {
            n = b.Persos.FinDePage(n);
            continue;
        }
        Perso& p = b.Persos[n];
        if (p.Prenoms.empty()) continue;
        if (precedent && precedent->Nom == p.Nom) {
            p.CodeNom = precedent->CodeNom;
            p.NomTri = precedent->NomTri;
        } else {
            p.CodeNom = CodeSon(p.Nom);
            p.NomTri = NomTri(p.Nom);
        }
        precedent = &p;
    }
}

}  // namespace arbolix
