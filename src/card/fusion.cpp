#include "card/fusion.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "card/acte_courant.h"
#include "card/contenu_fiche.h"
#include "card/lignes_personne.h"
#include "card/metiers.h"
#include "card/queues.h"
#include "card/supprimer.h"
#include "dates/cle_date.h"
#include "dates/parse_date.h"
#include "dates/saisie_date.h"
#include "store/aides_texte.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

// Un champ comparé : dans la personne, dans l'un de ses évènements, ou dans sa suite.
struct ChampFusion {
    const char* libelle;
    int casse = -1;  // mode de Majuscules après une réponse, -1 pour aucun
    Texte Perso::*perso = nullptr;
    Acte Perso::*acte = nullptr;
    Texte Acte::*dansActe = nullptr;
    Texte PersoSuite::*suite = nullptr;
};

namespace {

const char kTitreDifferent[] =
    "Donn\xE9"
    "es diff\xE9rentes";
const char kFinLigne[] = "\r\n";

// Casse refaite après une réponse : modes de Majuscules.
enum Casse { kAucune = -1, kPrenoms = 1, kMetier = 2, kLieu = 3 };

constexpr ChampFusion Direct(const char* l, Texte Perso::*c, Casse casse = kAucune) {
    return {l, casse, c, nullptr, nullptr, nullptr};
}
constexpr ChampFusion DeLActe(const char* l, Acte Perso::*a, Texte Acte::*c, Casse casse = kAucune) {
    return {l, casse, nullptr, a, c, nullptr};
}
constexpr ChampFusion DeLaSuite(const char* l, Texte PersoSuite::*c) {
    return {l, kAucune, nullptr, nullptr, nullptr, c};
}

// Dans l'ordre où les questions viennent ; les intérêts de recherche se réunissent entre les deux.
const ChampFusion kChampsFiche[] = {
    Direct("pr\xE9noms", &Perso::Prenoms, kPrenoms),
    Direct("m\xE9tiers", &Perso::Metier, kMetier),
    DeLActe("dates de naissance", &Perso::Naissance, &Acte::Date),
    DeLActe("lieux de naissance", &Perso::Naissance, &Acte::Lieu, kLieu),
    DeLActe("sources de naissance", &Perso::Naissance, &Acte::Source),
    DeLActe("notes de naissance", &Perso::Naissance, &Acte::Notes),
    DeLActe("dates de bapt\xEAme", &Perso::Bapteme, &Acte::Date),
    DeLActe("lieux de bapt\xEAme", &Perso::Bapteme, &Acte::Lieu, kLieu),
    DeLActe("sources de bapt\xEAme", &Perso::Bapteme, &Acte::Source),
    DeLActe("notes de bapt\xEAme", &Perso::Bapteme, &Acte::Notes),
    DeLActe("dates de d\xE9"
            "c\xE8s",
            &Perso::Deces, &Acte::Date),
    DeLActe("lieux de d\xE9"
            "c\xE8s",
            &Perso::Deces, &Acte::Lieu, kLieu),
    DeLActe("sources de d\xE9"
            "c\xE8s",
            &Perso::Deces, &Acte::Source),
    DeLActe("notes de d\xE9"
            "c\xE8s",
            &Perso::Deces, &Acte::Notes),
    DeLActe("dates de s\xE9pulture", &Perso::Sepulture, &Acte::Date),
    DeLActe("lieux de s\xE9pulture", &Perso::Sepulture, &Acte::Lieu, kLieu),
    DeLActe("sources de s\xE9pulture", &Perso::Sepulture, &Acte::Source),
    DeLActe("notes de s\xE9pulture", &Perso::Sepulture, &Acte::Notes),
    DeLaSuite("r\xE9"
              "f\xE9rences",
              &PersoSuite::Ref),
};

// Le titre n'a pas de question à lui dans les règles : il suit l'adresse pour ne pas se perdre.
const ChampFusion kChampsAdresse[] = {
    DeLaSuite("adresses (ligne 1)", &PersoSuite::Adresse1),
    DeLaSuite("adresses (ligne 2)", &PersoSuite::Adresse2),
    DeLaSuite("Etats", &PersoSuite::Etat),
    DeLaSuite("codes postaux", &PersoSuite::CP),
    DeLaSuite("communes", &PersoSuite::Ville),
    DeLaSuite("pays", &PersoSuite::Pays),
    DeLaSuite("t\xE9l\xE9phones", &PersoSuite::Telephone),
    DeLaSuite("E-mails", &PersoSuite::EMail),
    DeLaSuite("URL", &PersoSuite::URL),
    Direct("notes personnelles", &Perso::Notes),
    Direct("titres", &Perso::Titre),
};

const Texte& Lire(const Perso& p, const ChampFusion& c) {
    if (c.perso) return p.*c.perso;
    if (c.acte) return (p.*c.acte).*c.dansActe;
    return p.Suite().*c.suite;
}

// Écrit la valeur ; une date emporte sa clé et son année, reprises de la fiche qui la portait.
void Ecrire(Perso& p, const Perso& autre, const ChampFusion& c, const std::string& valeur) {
    if (c.perso) {
        p.*c.perso = valeur;
        return;
    }
    if (c.suite) {
        p.SuiteModif().*c.suite = valeur;
        return;
    }
    Acte& a = p.*c.acte;
    a.*c.dansActe = valeur;
    if (c.dansActe != &Acte::Date) return;
    const Acte& b = autre.*c.acte;
    if (b.Date.vue() == valeur) {
        a.DateTri = b.DateTri;
        a.Annee = b.Annee;
    } else {
        a.DateTri = valeur.empty() ? std::string() : CleDate(valeur);
        a.Annee = AnneeSaisie(valeur);
    }
}

std::string Question(const char* libelle, std::int32_t k, const Texte& garde, std::int32_t r,
                     const Texte& autre) {
    return std::string("Les ") + libelle + " diff\xE8rent." + kFinLigne + "Sur la fiche " +
           std::to_string(k) + " : " + garde + kFinLigne + "Sur la fiche " + std::to_string(r) + " : " +
           autre + kFinLigne +
           "Entrez la donn\xE9"
           "e \xE0 garder :";
}

// Les liens externes d'un texte : (genre, numéro) d'une note ou d'une source.
void NoterLien(std::vector<std::pair<char, std::int32_t>>& cites, const Texte& t, char genre) {
    if (const std::int32_t n = NumeroDuLien(t, genre); n > 0) cites.emplace_back(genre, n);
}

void NoterCites(std::vector<std::pair<char, std::int32_t>>& cites, const Perso& p) {
    NoterLien(cites, p.Notes, 'N');
    for (int i = 1; i <= kActesPerso; ++i) {
        const Acte& a = *ActeDe(p, i);
        NoterLien(cites, a.Notes, 'N');
        NoterLien(cites, a.Source, 'S');
        for (const auto& [j, m] : a.Liens().Medias) cites.emplace_back('M', m);
    }
    for (const auto& [j, m] : p.Suite().ObjetsMedia) cites.emplace_back('M', m);
}

std::int32_t Nombre(const std::string& reglage) {
    return static_cast<std::int32_t>(ValeurNumerique(reglage));
}

}  // namespace

ListeCandidats CandidatsFusion(const Base& base, const Options& options, std::int32_t p,
                               const LigneDePersonne& ligneCourte) {
    const Perso& pe = PersoLu(base, p);
    ListeCandidats liste{
        "fusion",
        "Fusionner " + pe.Prenoms + " " + pe.Nom + " " + options.SymbNais + " " + pe.Naissance.Date + " avec",
        "",
        {}};
    if (!PersonneExiste(base, p)) return liste;
    const int ecart = Nombre(options.EcartAgeConjoints);
    const std::string code = EnMinuscules(pe.CodeNom.vue());
    std::vector<std::pair<std::string, std::int32_t>> cles;
    base.Persos.PourChaqueEcrit(1, std::min(base.NbPersos, base.Persos.Haut()), [&](std::int32_t n) {
        const Perso& c = base.Persos[n];
        if (n == p || c.Prenoms.empty()) return;
        if (Minuscule1252(c.Sexe) != Minuscule1252(pe.Sexe) || EnMinuscules(c.CodeNom.vue()) != code) return;
        if (pe.Naissance.Annee != 0 && c.Naissance.Annee != 0 &&
            std::abs(pe.Naissance.Annee - c.Naissance.Annee) > ecart)
            return;
        cles.emplace_back(EnMinuscules(c.Nom + " " + c.Naissance.DateTri), n);
    });
    std::sort(cles.begin(), cles.end());
    for (const auto& [cle, n] : cles) liste.lignes.push_back(ligneCourte(n) + Queue('P', n));
    return liste;
}

std::optional<Fusion> Fusion::Commencer(Edition& e, std::int32_t a, std::int32_t c) {
    if (a == c || !PersonneExiste(e.base, a) || !PersonneExiste(e.base, c)) return std::nullopt;
    Fusion f(e, std::min(a, c), std::max(a, c));
    Base& base = e.base;
    base.NumCourant = 0;
    base.FichierModifie = kVrai;
    Perso& k = base.Persos[f.k_];
    Perso& r = base.Persos[f.r_];
    NoterCites(f.cites_, k);
    NoterCites(f.cites_, r);
    if (k.Sel != 0 || r.Sel != 0) k.Sel = r.Sel = kVrai;
    k.DateModif = e.maintenant;
    f.ComparerChamps();
    f.ReunirFichiers();
    f.ReunirLiensActes();
    f.ChoisirParents();
    base.FicheModifiee = kFaux;
    // Une réponse tapée peut citer une note qu'aucune des deux fiches ne citait.
    NoterCites(f.cites_, std::as_const(base.Persos)[f.k_]);
    // Ce que la fiche gardée cite désormais lui prend sa place avant que l'autre ne rende les siennes.
    for (const auto& [genre, n] : f.cites_) AccorderRetour(base, genre, n, false, f.k_);
    f.RemplirRangees();
    return f;
}

// Une date tapée passe par la saisie des dates, comme dans l'éditeur d'évènement : une date
// que le programme ne relirait pas est refusée et la question revient.
std::optional<std::string> Fusion::Demander(const ChampFusion& c, const Texte& garde, const Texte& autre) {
    for (;;) {
        auto reponse =
            e_.dialogue.Saisie(kTitreDifferent, Question(c.libelle, k_, garde, r_, autre), autre.vue());
        if (!reponse || c.dansActe != &Acte::Date || reponse->empty() || garde.vue() == *reponse ||
            autre.vue() == *reponse)
            return reponse;
        Acte lu;
        ContexteDate ctx;
        ctx.NumCourant = k_;
        ctx.ConvCalRep = e_.options.OptConvCalRep;
        ctx.EvenementVisible = true;
        const std::string date = ParseDate(TraduireSaisieDate(*reponse), lu, ctx).str();
        const std::string motif = DateNonValide(date);
        if (motif.empty()) return date;
        e_.dialogue.Message("Date non valide", motif, Icone::Attention);
    }
}

void Fusion::ComparerChamps() {
    Base& base = e_.base;
    const auto comparer = [&](const ChampFusion& c) {
        Perso& k = base.Persos[k_];
        const Perso& r = std::as_const(base.Persos)[r_];
        const Texte& garde = Lire(k, c);
        const Texte& autre = Lire(r, c);
        if (garde == autre || autre.empty()) return;
        if (garde.empty()) {
            Ecrire(k, r, c, autre.str());
            return;
        }
        const auto reponse = Demander(c, garde, autre);
        // Annuler garde ce que la fiche gardée portait : rien ne se perd sans qu'on l'ait effacé.
        if (!reponse) return;
        std::string v = c.casse == kAucune ? *reponse : Majuscules(*reponse, c.casse, e_.options.ModifCasse);
        if (c.casse == kPrenoms && v.empty()) v = "N";
        Ecrire(k, r, c, v);
    };
    const std::string metier = std::as_const(base.Persos)[k_].Metier.str();
    for (const ChampFusion& c : kChampsFiche) comparer(c);
    Perso& k = base.Persos[k_];
    k.Interet = static_cast<std::uint8_t>(k.Interet | std::as_const(base.Persos)[r_].Interet);
    for (const ChampFusion& c : kChampsAdresse) comparer(c);
    const Perso& r = std::as_const(base.Persos)[r_];
    // Les codes de métier suivent le texte gardé.
    if (k.Metier.vue() != metier) {
        k.CodesMetiers.clear();
        EnregistrerMetier(k, k.Metier.str(), base.Listes.Metier);
    }
    for (int i = 1; i <= kActesPerso; ++i) ActeDe(k, i)->Connu = ActeDe(k, i)->Connu || ActeDe(r, i)->Connu;
}

// Les chemins que la fiche gardée porte déjà, par ses fichiers ou ses objets médias (les siens et
// ceux de ses évènements) : un même chemin lié deux fois ne ferait qu'un lien à la relecture.
std::vector<std::string> Fusion::CheminsGardes() const {
    const Base& base = e_.base;
    const Perso& k = std::as_const(base.Persos)[k_];
    std::vector<std::string> r;
    for (const auto& [i, chemin] : k.Suite().Fichiers) r.push_back(chemin.str());
    const auto objet = [&](std::int32_t m) {
        if (DansTableau(m, base.Medias.Haut()))
            for (const auto& [i, chemin] : base.Medias[m].Fichiers) r.push_back(chemin.str());
    };
    for (const auto& [i, m] : k.Suite().ObjetsMedia) objet(m);
    for (int a = 1; a <= kActesPerso; ++a)
        for (const auto& [i, m] : ActeDe(k, a)->Liens().Medias) objet(m);
    return r;
}

void Fusion::ReunirFichiers() {
    Base& base = e_.base;
    const PersoSuite& autre = std::as_const(base.Persos)[r_].Suite();
    if (autre.Fichiers.empty() && autre.ObjetsMedia.empty()) return;
    const PersoSuite copie = autre;
    const auto refuser = [&](const std::string& fichier) {
        e_.dialogue.Message("Fusionner", "Impossible d'ajouter le lien complet vers le fichier " + fichier,
                            Icone::Attention);
    };
    for (const auto& [i, chemin] : copie.Fichiers) {
        const auto deja = CheminsGardes();
        if (std::find(deja.begin(), deja.end(), chemin.str()) != deja.end()) continue;
        if (!PlacerPremierLibre(base.Persos[k_].SuiteModif().Fichiers, chemin)) refuser(chemin.str());
    }
    for (const auto& [i, m] : copie.ObjetsMedia) {
        const ObjetMedia& o = std::as_const(base.Medias)[DansTableau(m, base.Medias.Haut()) ? m : 0];
        const auto deja = CheminsGardes();
        // Un objet écrit sous la personne (local) dont le chemin est déjà lié n'apporte rien de plus.
        const bool doublon = o.Local != 0 && !o.Fichiers.empty() &&
                             std::find(deja.begin(), deja.end(), o.Fichiers(1).str()) != deja.end();
        if (doublon || Contient(base.Persos[k_].Suite().ObjetsMedia, m)) continue;
        if (!PlacerPremierLibre(base.Persos[k_].SuiteModif().ObjetsMedia, m)) refuser(o.Fichiers(1).str());
    }
}

// Témoins et objets médias des évènements de l'autre fiche rejoignent ceux de la fiche gardée.
void Fusion::ReunirLiensActes() {
    Base& base = e_.base;
    for (int i = 1; i <= kActesPerso; ++i) {
        const Acte& b = *ActeDe(std::as_const(base.Persos)[r_], i);
        if (b.Liens().Temoins.empty() && b.Liens().Medias.empty()) continue;
        const LiensActe autres = b.Liens();
        if (!autres.Temoins.empty()) {
            Acte& a = *ActeDe(base.Persos[k_], i);
            std::vector<Temoin> temoins = LireTemoins(a);
            for (const Temoin& t : LireTemoins(b)) {
                const bool deja = std::any_of(temoins.begin(), temoins.end(),
                                              [&](const Temoin& v) { return v.numero == t.numero; });
                if (!deja && t.numero != k_ && t.numero != r_) temoins.push_back(t);
            }
            EcrireTemoins(a, temoins);
        }
        for (const auto& [j, m] : autres.Medias) {
            const ObjetMedia& o = std::as_const(base.Medias)[DansTableau(m, base.Medias.Haut()) ? m : 0];
            const auto deja = CheminsGardes();
            const bool doublon = o.Local != 0 && !o.Fichiers.empty() &&
                                 std::find(deja.begin(), deja.end(), o.Fichiers(1).str()) != deja.end();
            Acte& acte = *ActeDe(base.Persos[k_], i);
            if (!doublon && !Contient(acte.Liens().Medias, m))
                PlacerPremierLibre(acte.LiensModif().Medias, m);
        }
    }
}

void Fusion::ChoisirParents() {
    Base& base = e_.base;
    const Options& o = e_.options;
    const std::int32_t a = std::as_const(base.Persos)[k_].NumParents;
    const std::int32_t b = std::as_const(base.Persos)[r_].NumParents;
    std::int32_t choix = a > 0 ? a : b;
    if (a > 0 && b > 0 && a != b) {
        std::string texte = std::string("Les liens vers les parents diff\xE8rent.") + kFinLigne;
        for (const auto& [fiche, f] : {std::pair{k_, a}, std::pair{r_, b}}) {
            const Fami& fa = FamiLue(base, f);
            texte += "Sur la fiche " + std::to_string(fiche) + " : " + std::to_string(f) + kFinLigne +
                     LigneCourte(base, o, fa.Mari) + " " + o.SymbMari + " " + LigneCourte(base, o, fa.Femme) +
                     " " + fa.Mariage.Date + " " + fa.Mariage.Lieu + kFinLigne;
        }
        texte += std::string("Choisissez les parents \xE0 conserver :") + kFinLigne +
                 "Oui = " + std::to_string(a) + kFinLigne + "Non = " + std::to_string(b) + kFinLigne +
                 "Annuler = aucun";
        const Bouton reponse =
            e_.dialogue.Message(kTitreDifferent, texte, Icone::Question, Boutons::OuiNonAnnuler);
        choix = reponse == Bouton::Oui ? a : reponse == Bouton::Non ? b : 0;
    }
    for (const std::int32_t f : {a, b}) {
        if (!DansTableau(f, base.Familles.Haut())) continue;
        auto& enfants = base.Familles[f].Enfants;
        while (Retirer(enfants, k_) || Retirer(enfants, r_)) {
        }
        TrierEnfants(base, f);
    }
    base.Persos[r_].NumParents = 0;
    base.Persos[k_].NumParents = 0;
    if (!DansTableau(choix, base.Familles.Haut())) return;
    // Une famille où ni l'une ni l'autre fiche n'était inscrite peut être pleine : k reste alors sans
    // parents.
    auto& enfants = base.Familles[choix].Enfants;
    const int place = enfants.PremierLibre(1);
    if (place > kMaxEnfants) return;
    enfants.Fixer(place, k_);
    base.Persos[k_].NumParents = choix;
    TrierEnfants(base, choix);
}

std::string Fusion::TitreUnions() {
    return "Liste des unions \xE0 conserver (un double clic supprime l'union)";
}

void Fusion::RemplirRangees() {
    rangees_.clear();
    rangees_.push_back({" Terminer" + Queue('P', k_), 0, k_});
    const ContexteFiche ctx(e_.options);
    for (const std::int32_t n : {k_, r_})
        for (auto& rangee : CalculerUnions(e_.base, ctx, n))
            rangees_.push_back({rangee.texte, LireQueue(rangee.texte).numero, n});
}

bool Fusion::ListeUtile() const {
    const Perso& k = std::as_const(e_.base.Persos)[k_];
    const Perso& r = std::as_const(e_.base.Persos)[r_];
    return k.Unions[2] != 0 || r.Unions[2] != 0 || (k.Unions[1] != 0 && r.Unions[1] != 0);
}

void Fusion::RetirerUnion(std::size_t rangee) {
    if (terminee_ || rangee == 0 || rangee >= rangees_.size()) return;
    const RangeeFusion r = rangees_[rangee];
    rangees_.erase(rangees_.begin() + static_cast<std::ptrdiff_t>(rangee));
    SupprimerUnion(e_.base, r.famille, r.personne, &e_.dialogue, e_.maintenant);
}

// Les familles des rangées qui ont encore l'une des deux fiches pour conjoint, chacune une fois.
std::vector<std::int32_t> Fusion::FamillesRestantes() const {
    std::vector<std::int32_t> r;
    for (const auto& rangee : rangees_) {
        const Fami& fa = FamiLue(e_.base, rangee.famille);
        const bool tenue =
            rangee.famille > 0 && (fa.Mari == k_ || fa.Mari == r_ || fa.Femme == k_ || fa.Femme == r_);
        if (tenue && std::find(r.begin(), r.end(), rangee.famille) == r.end()) r.push_back(rangee.famille);
    }
    return r;
}

bool Fusion::Terminer() {
    if (terminee_) return true;
    Base& base = e_.base;
    const std::vector<std::int32_t> familles = FamillesRestantes();
    if (familles.size() > static_cast<std::size_t>(kMaxUnions)) {
        e_.dialogue.Message("Impossible de terminer la fusion de fiches",
                            std::string("Il y a trop d'unions pour terminer la fusion maintenant.") +
                                kFinLigne + "Enlevez encore au moins " +
                                std::to_string(familles.size() - kMaxUnions) + " unions.",
                            Icone::Stop);
        return false;
    }
    Perso& k = base.Persos[k_];
    for (int i = 1; i <= kMaxUnions; ++i) {
        const std::size_t j = static_cast<std::size_t>(i);
        k.Unions[j] = j <= familles.size() ? familles[j - 1] : 0;
    }
    for (const std::int32_t g : familles) {
        Fami& fa = base.Familles[g];
        // Le côté qui tenait l'autre fiche passe à la gardée ; une union des deux entre elles garde un seul
        // conjoint.
        if (fa.Mari == r_) fa.Mari = fa.Femme == k_ ? 0 : k_;
        if (fa.Femme == r_) fa.Femme = fa.Mari == k_ ? 0 : k_;
        fa.DateModif = e_.maintenant;
    }
    base.Persos[r_].Unions = {};
    TrierUnions(base, k_);
    RemplacerTemoin(base, r_, k_);
    if (base.NumDeCujus == r_) base.NumDeCujus = k_;
    EffacerPersonne(base, r_, &e_.dialogue);
    // Les places rendues par l'autre fiche reviennent à la gardée quand elle en manquait.
    for (const auto& [genre, n] : cites_) AccorderRetour(base, genre, n, false, k_);
    base.Persos[k_].DateModif = e_.maintenant;
    base.NumCourant = k_;
    terminee_ = true;
    return true;
}

}  // namespace arbolix
