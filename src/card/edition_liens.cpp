#include "card/edition_liens.h"

#include <utility>

#include "dates/calendrier_gregorien.h"
#include "dates/cle_date.h"
#include "store/aides_texte.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

namespace {

std::int32_t Nombre(const std::string& reglage) {
    return static_cast<std::int32_t>(ValeurNumerique(reglage));
}

int NombreUnions(const Perso& p) {
    int n = 0;
    for (int i = 1; i <= kMaxUnions; ++i) n += p.Unions[static_cast<std::size_t>(i)] > 0;
    return n;
}

int NombreEnfants(const Fami& f) {
    int n = 0;
    for (const auto& [rang, enfant] : f.Enfants) n += rang >= 1 && enfant > 0;
    return n;
}

// Une date estimée : "vers 1745", avec sa clé et son année.
void DateVers(Acte& a, int annee) {
    a.Date = "vers " + std::to_string(annee);
    a.DateTri = CleDate(a.Date.vue());
    a.Annee = static_cast<std::int16_t>(annee);
}

// Le nom change : les listes trient et cherchent par NomTri et CodeNom, gardés d'accord.
void FixerNom(Perso& p, const Texte& nom) {
    p.Nom = nom;
    p.CodeNom = CodeSon(nom.vue());
    p.NomTri = NomTri(nom.vue());
}

// Une famille neuve prend le numéro du haut ; Sel levé, sans quoi l'enregistrement l'omettrait.
std::int32_t NouvelleFamille(Base& base) {
    const std::int32_t f = base.NbFamis + 1;
    if (f > base.Familles.Haut()) RedimensionnerBase(base, (f / 5000 + 1) * 5000);
    ++base.NbFamisReels;
    base.NbFamis = f;
    base.Familles[f] = Fami{};
    base.Familles[f].Sel = kVrai;
    return f;
}

// Moyenne de deux années arrondie au pair, comme l'affectation d'un réel à un entier.
int Moyenne(int a, int b) {
    const int s = a + b;
    if (s % 2 == 0) return s / 2;
    const int bas = s / 2;
    return bas % 2 == 0 ? bas : bas + 1;
}

// Avec une sélection limitée, la famille liée et ses conjoints suivent la personne.
void AlignerSelFamille(Edition& e, std::int32_t f, std::int32_t p) {
    Fami& fa = e.base.Familles[f];
    if (!e.selectionLimitee || fa.Sel == 0) return;
    const Drapeau sel = e.base.Persos[p].Sel;
    fa.Sel = sel;
    if (fa.Mari > 0) e.base.Persos[fa.Mari].Sel = sel;
    if (fa.Femme > 0) e.base.Persos[fa.Femme].Sel = sel;
}

std::int32_t CreerParent(Edition& e, std::int32_t f, std::int32_t enfant, bool mere, int annee) {
    Base& base = e.base;
    const std::int32_t n = NouvellePersonne(base, true, e.reutiliserLibres);
    Fami& fa = base.Familles[f];
    Perso& parent = base.Persos[n];
    const Perso& p = base.Persos[enfant];
    parent.Unions[1] = f;
    (mere ? fa.Femme : fa.Mari) = n;
    if (!mere || fa.Mari == 0) FixerNom(parent, p.Nom);
    parent.Sexe = mere ? 'F' : 'M';
    const std::string sosa = SosaParent(p.Suite().NumSosa[0].vue(), mere);
    if (!sosa.empty()) parent.SuiteModif().NumSosa[0] = sosa;
    if (e.selectionLimitee) parent.Sel = kVrai;
    if (annee > 0) DateVers(parent.Naissance, annee - Nombre(e.options.EcartGen));
    parent.DateModif = e.maintenant;
    return n;
}

}  // namespace

std::string SosaParent(std::string_view sosa, bool mere) {
    const std::string_view chiffres = SansBlancs(sosa);
    if (chiffres.empty() || !EstNumerique(chiffres) || chiffres.find_first_not_of('0') == std::string_view::npos)
        return {};
    std::string r(chiffres.size() + 1, '0');
    int retenue = mere ? 1 : 0;
    for (std::size_t i = chiffres.size(); i-- > 0;) {
        const int v = (chiffres[i] - '0') * 2 + retenue;
        r[i + 1] = static_cast<char>('0' + v % 10);
        retenue = v / 10;
    }
    r[0] = static_cast<char>('0' + retenue);
    const auto debut = r.find_first_not_of('0');
    return r.substr(debut);
}

std::int32_t ChoisirParents(Edition& e, std::int32_t p, std::int32_t f) {
    Base& base = e.base;
    if (!PersonneExiste(base, p) || base.Persos[p].NumParents != 0) return 0;
    if (f > 0) {
        if (f > base.NbFamis || NombreEnfants(base.Familles[f]) >= kMaxEnfants) return 0;
        base.Persos[p].NumParents = f;
        base.Familles[f].Enfants.Fixer(kMaxEnfants, p);
        AlignerSelFamille(e, f, p);
        TrierEnfants(base, f);
    } else {
        const char* kTitre = "Ajouter parents";
        const bool pere = e.dialogue.Message(kTitre, "Ajouter le p\xE8re ?", Icone::Question, Boutons::OuiNon) == Bouton::Oui;
        const bool mere = e.dialogue.Message(kTitre, "Ajouter la m\xE8re ?", Icone::Question, Boutons::OuiNon) == Bouton::Oui;
        if (!pere && !mere) return 0;
        const int annee = base.Persos[p].Naissance.Annee;
        f = NouvelleFamille(base);
        base.Persos[p].NumParents = f;
        base.Familles[f].Enfants.Fixer(1, p);
        // Le mariage un peu avant le premier enfant, sur un nombre rond.
        if (pere && mere && annee > 0) DateVers(base.Familles[f].Mariage, (annee / 5) * 5 - 5);
        if (pere) CreerParent(e, f, p, false, annee);
        if (mere) CreerParent(e, f, p, true, annee);
        base.Familles[f].DateModif = e.maintenant;
    }
    base.Persos[p].DateModif = e.maintenant;
    base.FichierModifie = kVrai;
    return f;
}

void EnleverParents(Edition& e, std::int32_t p) {
    Base& base = e.base;
    if (p <= 0) return;
    const std::int32_t f = base.Persos[p].NumParents;
    if (f > 0) {
        Fami& fa = base.Familles[f];
        for (int i = 1; i <= kMaxEnfants; ++i)
            if (fa.Enfants(i) == p) fa.Enfants.Fixer(i, 0);
        TrierEnfants(base, f);
    }
    base.Persos[p].NumParents = 0;
    base.Persos[p].DateModif = e.maintenant;
    base.FichierModifie = kVrai;
}

bool PeutAjouterUnion(Edition& e, std::int32_t p) {
    if (NombreUnions(e.base.Persos[p]) < kMaxUnions) return true;
    e.dialogue.Message("Impossible d'ajouter l'union",
                       "Vous ne pouvez plus ajouter d'union pour cette personne. Le logiciel a attient le maximum de " +
                           std::to_string(kMaxUnions) + " unions par personne.",
                       Icone::Attention);
    return false;
}

std::int32_t ChoisirConjoint(Edition& e, std::int32_t p, std::int32_t s) {
    Base& base = e.base;
    if (!PersonneExiste(base, p) || s == p) return 0;
    if (!PeutAjouterUnion(e, p)) return 0;
    const int annee = base.Persos[p].Naissance.Annee;
    if (!PersonneExiste(base, s)) {
        s = NouvellePersonne(base, true, e.reutiliserLibres);
        if (annee > 0) DateVers(base.Persos[s].Naissance, annee);
    } else if (!PeutAjouterUnion(e, s)) {
        return 0;
    }
    const int anneeConjoint = base.Persos[s].Naissance.Annee;
    const std::int32_t f = NouvelleFamille(base);
    Fami& fa = base.Familles[f];
    const int ecart = Nombre(e.options.EcartGen) - 2;
    if (annee > 0 && anneeConjoint > 0)
        DateVers(fa.Mariage, Moyenne(annee, anneeConjoint) + ecart);
    else if (annee > 0 || anneeConjoint > 0)
        DateVers(fa.Mariage, (annee > 0 ? annee : anneeConjoint) + ecart);
    // Sans sexe sur la fiche, personne n'entre dans la famille : on n'écrit pas
    // non plus les unions, qui pointeraient vers une famille qui ne les cite pas.
    const char sexe = base.Persos[p].Sexe;
    if (sexe == 'M' || sexe == 'F') {
        fa.Mari = sexe == 'M' ? p : s;
        fa.Femme = sexe == 'M' ? s : p;
        base.Persos[s].Sexe = sexe == 'M' ? 'F' : 'M';
        base.Persos[p].Unions[kMaxUnions] = f;
        base.Persos[s].Unions[kMaxUnions] = f;
        TrierUnions(base, p);
        TrierUnions(base, s);
    }
    if (e.selectionLimitee) {
        fa.Sel = base.Persos[p].Sel;
        base.Persos[s].Sel = base.Persos[p].Sel;
    }
    fa.DateModif = e.maintenant;
    base.Persos[p].DateModif = e.maintenant;
    base.Persos[s].DateModif = e.maintenant;
    base.FichierModifie = kVrai;
    return f;
}

void EnleverUnion(Edition& e, std::int32_t p, std::int32_t f) {
    SupprimerUnion(e.base, f, p, &e.dialogue, e.maintenant);
    e.base.FichierModifie = kVrai;
}

std::int32_t AjouterConjointManquant(Edition& e, std::int32_t p, std::int32_t f) {
    Base& base = e.base;
    if (f <= 0 || f > base.NbFamis) return 0;
    if (base.Familles[f].Mari != 0 && base.Familles[f].Femme != 0) return 0;
    if (e.dialogue.Message("Pas de conjoint",
                           "Il n'y a pas de conjoint pour cette union monoparentale.\r\n"
                           "Voulez-vous ajouter une nouvelle fiche ?",
                           Icone::Question, Boutons::OuiNon) != Bouton::Oui)
        return 0;
    const std::int32_t n = NouvellePersonne(base, true, e.reutiliserLibres);
    Perso& c = base.Persos[n];
    Fami& fa = base.Familles[f];
    c.Unions[1] = f;
    c.Sexe = base.Persos[p].Sexe == 'F' ? 'M' : 'F';
    (fa.Mari == 0 ? fa.Mari : fa.Femme) = n;
    const std::int32_t aine = fa.Enfants(1);
    if (aine > 0 && base.Persos[aine].Naissance.Annee != 0)
        DateVers(fa.Mariage, base.Persos[aine].Naissance.Annee - 2);
    c.DateModif = e.maintenant;
    fa.DateModif = e.maintenant;
    base.FichierModifie = kVrai;
    return n;
}

std::int32_t FamillePourEnfant(Edition& e, std::int32_t p, std::int32_t f) {
    Base& base = e.base;
    if (!PersonneExiste(base, p)) return 0;
    if (f == 0) {
        if (e.dialogue.Message("Aucune union s\xE9lectionn\xE9" "e",
                               "La personne en cours n'a pas d'union.\r\n"
                               "Voulez-vous cr\xE9" "er une union monoparentale pour pouvoir ajouter un enfant ?",
                               Icone::Question, Boutons::OuiNon) != Bouton::Oui)
            return 0;
        if (NombreUnions(base.Persos[p]) >= kMaxUnions) return 0;
        f = NouvelleFamille(base);
        Perso& pe = base.Persos[p];
        pe.Unions[static_cast<std::size_t>(NombreUnions(pe) + 1)] = f;
        (pe.Sexe == 'F' ? base.Familles[f].Femme : base.Familles[f].Mari) = p;
        base.Familles[f].DateModif = e.maintenant;
        pe.DateModif = e.maintenant;
        base.FichierModifie = kVrai;
    }
    if (base.Persos[p].Unions[1] <= 0 || NombreEnfants(base.Familles[f]) >= kMaxEnfants) return 0;
    return f;
}

std::int32_t ChoisirEnfant(Edition& e, std::int32_t f, std::int32_t c) {
    Base& base = e.base;
    if (f <= 0 || f > base.NbFamis || NombreEnfants(base.Familles[f]) >= kMaxEnfants) return 0;
    if (PersonneExiste(base, c)) {
        if (base.Persos[c].NumParents != 0) return 0;
    } else {
        c = NouvellePersonne(base, true, e.reutiliserLibres);
        const Fami& fa = base.Familles[f];
        const Perso& pere = base.Persos[fa.Mari];
        const Perso& mere = base.Persos[fa.Femme];
        Perso& enfant = base.Persos[c];
        // Le nom du père l'emporte sur celui de la mère.
        if (fa.Femme > 0) FixerNom(enfant, mere.Nom);
        if (fa.Mari > 0) FixerNom(enfant, pere.Nom);
        const int ym = pere.Naissance.Annee, yf = mere.Naissance.Annee;
        const int ecart = Nombre(e.options.EcartGen);
        const int annee = ym > 0 && yf > 0 ? Moyenne(ym, yf) + ecart : ym > 0 || yf > 0 ? (ym > 0 ? ym : yf) + ecart : 0;
        const auto aujourdhui = DateDuNumero(static_cast<std::int64_t>(e.maintenant));
        if (annee > 0 && aujourdhui && annee > aujourdhui->annee) {
            enfant.Naissance.Date = FormatDateCourte(*aujourdhui);
            enfant.Naissance.DateTri = CleDate(enfant.Naissance.Date.vue());
            enfant.Naissance.Annee = static_cast<std::int16_t>(aujourdhui->annee);
        } else if (annee > 0) {
            DateVers(enfant.Naissance, annee);
        }
    }
    base.Persos[c].NumParents = f;
    base.Familles[f].Enfants.Fixer(kMaxEnfants, c);
    AlignerSelFamille(e, f, c);
    TrierEnfants(base, f);
    base.Persos[c].DateModif = e.maintenant;
    base.FichierModifie = kVrai;
    return c;
}

void EnleverEnfant(Edition& e, std::int32_t c) {
    if (c <= 0) return;
    Base& base = e.base;
    const std::int32_t f = base.Persos[c].NumParents;
    base.Persos[c].NumParents = 0;
    base.Persos[c].DateModif = e.maintenant;
    if (f > 0) {
        Fami& fa = base.Familles[f];
        for (int i = 1; i <= kMaxEnfants; ++i)
            if (fa.Enfants(i) == c) fa.Enfants.Fixer(i, 0);
        TrierEnfants(base, f);
    }
    base.FichierModifie = kVrai;
}

}  // namespace arbolix
