#include "lists/recherche_actes.h"

#include <algorithm>
#include <utility>

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "lists/selection_active.h"
#include "store/chaines.h"

namespace arbolix {

// L'ordre du parcours est celui des règles, pas celui des cases de l'écran.
const std::array<SorteActe, 7> kSortesActes = {{
    {"Naissance", 'N', kCaseNaissance, &Perso::Naissance, nullptr, &Options::SymbNais},
    {"D\xE9"
     "c\xE8s",
     'D', kCaseDeces, &Perso::Deces, nullptr, &Options::SymbDece},
    {"Mariage", 'M', kCaseMariage, nullptr, &Fami::Mariage, &Options::SymbMari},
    {"Contrat", 'C', kCaseContrat, nullptr, &Fami::Contrat, &Options::SymbCoMa},
    {"Divorce", 'X', kCaseDivorce, nullptr, &Fami::Divorce, &Options::SymbDivo},
    {"Bapt\xEAme", 'B', kCaseBapteme, &Perso::Bapteme, nullptr, &Options::SymbBapt},
    {"S\xE9pulture", 'S', kCaseSepulture, &Perso::Sepulture, nullptr, &Options::SymbSepu},
}};

const char* const kTitreTriNumero = "Tri par num\xE9ro";
const char* const kTexteTriNumero =
    "Le tri par num\xE9ro n\xE9"
    "cessite au pr\xE9"
    "alable de d\xE9"
    "finir une personne comme De Cujus, puis de s\xE9lectionner ses ascendants ou ses descendants "
    "(menu S\xE9lection).\r\nVeuillez d\xE9"
    "finir ces choix avant de poursuivre.";

namespace {

constexpr const char* kCritereIncorrect = "Crit\xE8re incorrect";

int NbTypes(const RechercheActes& r) {
    if (r.TypeActe[kCaseTous]) return static_cast<int>(kSortesActes.size());
    return static_cast<int>(std::count(r.TypeActe.begin() + 1, r.TypeActe.end(), true));
}

bool CritereParListe(Critere c) {
    return c == Critere::Nom || c == Critere::Lieu || c == Critere::Profession || c == Critere::Domicile;
}

// Une année tapée : de 1 à 4 chiffres, blancs autour permis.
std::optional<int> LireAnnee(std::string_view texte, int siVide) {
    const std::string_view t = SansBlancs(texte);
    if (t.empty()) return siVide;
    if (t.size() > 4 || !EstNumerique(t)) return std::nullopt;
    return static_cast<int>(ValeurNumerique(t));
}

// Une date exacte n'a ni préfixe (« vers », « avant », « entre »...) ni intervalle : des chiffres et
// des "/" seulement.
bool DateExacte(std::string_view d) {
    return !d.empty() && std::all_of(d.begin(), d.end(), [](char c) { return EstChiffre(c) || c == '/'; });
}

bool ActePresent(const Acte& a) {
    return !a.Date.empty() || !a.Lieu.empty() || a.Connu;
}

// Ce qu'une recherche compare, préparé une fois.
class Filtre {
public:
    Filtre(const Base& base, const RechercheActes& r, Periode p) : base_(base), r_(r), periode_(p) {
        if (r.OptionType == Critere::Profession) {
            for (const auto& c : r.Criteres) {
                motifs_.push_back(c + "*");
                motifs_.push_back("*, " + c + "*");
                motifs_.push_back("* puis " + c + "*");
            }
        }
    }

    bool Garde(const Acte& a, std::int32_t p1, std::int32_t p2) const {
        if (!ActePresent(a)) return false;
        if (a.Annee < periode_.debut || a.Annee > periode_.fin) return false;
        if (!r_.OptInclureApprox && !DateExacte(a.Date.vue())) return false;
        switch (r_.OptionType) {
            case Critere::Tout:
                return true;
            case Critere::Temoin:
                return ChercherTemoin(a, r_.Temoin);
            case Critere::Lieu:
                return UnMotif(a.Lieu.vue(), r_.Criteres);
            case Critere::Nom:
                return Nomme(p1) || Nomme(p2);
            case Critere::Profession:
                return Metier(p1) || Metier(p2);
            case Critere::Domicile:
                return Domicile(p1) || Domicile(p2);
        }
        return false;
    }

private:
    static bool UnMotif(std::string_view texte, const std::vector<std::string>& motifs) {
        return std::any_of(motifs.begin(), motifs.end(),
                           [&](const std::string& m) { return Comme(texte, m); });
    }
    bool Nomme(std::int32_t p) const {
        if (p <= 0) return false;
        const std::string_view nom = PersoLu(base_, p).Nom.vue();
        return std::find(r_.Criteres.begin(), r_.Criteres.end(), nom) != r_.Criteres.end();
    }
    bool Metier(std::int32_t p) const { return p > 0 && UnMotif(PersoLu(base_, p).Metier.vue(), motifs_); }
    bool Domicile(std::int32_t p) const {
        return p > 0 && UnMotif(PersoLu(base_, p).Suite().Ville.vue(), r_.Criteres);
    }

    const Base& base_;
    const RechercheActes& r_;
    Periode periode_;
    std::vector<std::string> motifs_;
};

// La personne qui porte les actes d'une famille : le mari, ou la femme quand il n'y a pas de mari
// en usage (le parcours saute les fiches sans prénoms).
std::int32_t Titulaire(const Base& base, const Fami& f) {
    return f.Mari > 0 && !PersoLu(base, f.Mari).Prenoms.empty() ? f.Mari : f.Femme;
}

// Les deux noms et le numéro qu'un acte donne à sa clé de tri.
struct Champs {
    std::string_view nom, prenoms;
    std::int32_t personne = 0;
};
Champs ChampsActe(const Base& base, const ActeTrouve& a) {
    const SorteActe& s = kSortesActes[a.sorte];
    if (s.perso) {
        const Perso& p = PersoLu(base, a.numero);
        return {p.Nom.vue(), p.Prenoms.vue(), a.numero};
    }
    const Fami& f = FamiLue(base, a.numero);
    const std::int32_t t = Titulaire(base, f);
    return {PersoLu(base, t).Nom.vue(), PersoLu(base, t == f.Mari ? f.Femme : 0).Nom.vue(), t};
}

const Acte& ActeDe(const Base& base, const ActeTrouve& a) {
    const SorteActe& s = kSortesActes[a.sorte];
    return s.perso ? PersoLu(base, a.numero).*s.perso : FamiLue(base, a.numero).*s.fami;
}

// Le numéro d'une personne pour le tri : Sosa sur 28 chiffres après « Ascendants », le code de
// descendance après « Descendants » ou « Apparentés ».
std::string NumeroDeTri(const Base& base, std::int32_t p, int selCochee) {
    const PersoSuite& s = PersoLu(base, p).Suite();
    if (selCochee == 1) {
        const std::string_view n = s.NumSosa[0].vue();
        if (n.empty()) return {};
        return n.size() >= 28 ? std::string(n) : std::string(28 - n.size(), '0').append(n);
    }
    if (selCochee == 2 || selCochee == 3) return s.NumSosa[2].str();
    return {};
}

void AjouterNom(std::string& s, const Perso& p) {
    if (p.Nom.empty() && p.Prenoms.empty()) return;
    if (!s.empty()) s += ' ';
    s.append(p.Nom.vue()).append(1, ' ').append(p.Prenoms.vue());
}

}  // namespace

std::optional<Periode> LirePeriode(std::string_view debut, std::string_view fin) {
    const auto d = LireAnnee(debut, 0);
    const auto f = LireAnnee(fin, 9999);
    if (!d || !f) return std::nullopt;
    return Periode{*d, *f};
}

std::optional<Refus> ControlerRecherche(const RechercheActes& r, std::int32_t fiche) {
    if (CritereParListe(r.OptionType) &&
        std::none_of(r.Criteres.begin(), r.Criteres.end(), [](const std::string& c) { return !c.empty(); }))
        return Refus{kCritereIncorrect,
                     "Vous devez cocher au moins un nom ou lieu dans la liste de choix.\r\n"
                     "Si vous ne voulez pas rechercher par nom ou lieu, il faut choisir Tout."};
    if (r.OptionType == Critere::Temoin && (fiche <= 0 || r.Temoin <= 0))
        return Refus{kCritereIncorrect,
                     "Vous devez choisir et afficher une fiche personnelle pour la "
                     "recherche par t\xE9moin."};
    const int types = NbTypes(r);
    if (types == 0)
        return Refus{"Aucun type d'acte s\xE9lectionn\xE9", "Vous devez choisir au moins un type d'acte."};
    if (r.OptionType == Critere::Nom && types > 1)
        return Refus{"Trop de types d'acte s\xE9lectionn\xE9s",
                     "Vous devez choisir un seul type d'acte pour une recherche par nom."};
    if (!LirePeriode(r.AnneeDebut, r.AnneeFin))
        return Refus{"P\xE9riode non valide",
                     "Vous devez sp\xE9"
                     "cifier des ann\xE9"
                     "es valides."};
    return std::nullopt;
}

bool ChercherTemoin(const Acte& acte, std::int32_t numero) {
    if (numero <= 0) return false;
    for (const auto& [rang, t] : acte.Liens().Temoins)
        if (rang >= 1 && t == numero) return true;
    return false;
}

std::string InverserChiffres(std::string_view texte) {
    std::string s(texte);
    for (char& c : s)
        if (EstChiffre(c)) c = static_cast<char>('9' - (c - '0'));
    return s;
}

void AjouterCleTriActe(std::string& cle, const std::array<int, 2>& tri, std::string_view nom,
                       std::string_view prenoms, std::string_view dateTri, std::string_view lieu,
                       std::string_view numero) {
    const std::array<std::string_view, 5> champs{nom, prenoms, dateTri, lieu, numero};
    for (const int i : tri) {
        const std::size_t debut = cle.size();
        cle.append(champs[static_cast<std::size_t>(i == 5 ? 2 : std::clamp(i, 0, 4))]);
        // « date décr. » : la clé de date se lit à rebours.
        if (i == 5)
            for (std::size_t k = debut; k < cle.size(); ++k)
                if (EstChiffre(cle[k])) cle[k] = static_cast<char>('9' - (cle[k] - '0'));
    }
}

std::string CleTriActe(const std::array<int, 2>& tri, std::string_view nom, std::string_view prenoms,
                       std::string_view dateTri, std::string_view lieu, std::string_view numero) {
    std::string cle;
    AjouterCleTriActe(cle, tri, nom, prenoms, dateTri, lieu, numero);
    return cle;
}

bool TriParNumeroPossible(const Base& base, int selCochee) {
    return base.NumDeCujus > 0 && selCochee >= 1 && selCochee <= 4;
}

std::vector<ActeTrouve> ChercherActes(const Base& base, const RechercheActes& r, bool dansSelection) {
    std::vector<ActeTrouve> trouves;
    const auto periode = LirePeriode(r.AnneeDebut, r.AnneeFin);
    if (!periode || NbTypes(r) == 0) return trouves;
    std::vector<std::uint8_t> sortes;
    for (std::uint8_t i = 0; i < kSortesActes.size(); ++i)
        if (r.TypeActe[kCaseTous] || r.TypeActe[kSortesActes[i].caseActe]) sortes.push_back(i);
    const Filtre filtre(base, r, *periode);
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = base.Persos[n];
        if (p.Prenoms.empty() || (dansSelection && p.Sel == 0)) return;
        for (const std::uint8_t i : sortes) {
            const SorteActe& s = kSortesActes[i];
            if (s.perso) {
                if (filtre.Garde(p.*s.perso, n, 0)) trouves.push_back({n, i});
                continue;
            }
            for (int u = 1; u <= kMaxUnions && p.Unions[u] > 0; ++u) {
                const std::int32_t f = p.Unions[u];
                if (f > base.NbFamis) continue;
                const Fami& fa = base.Familles[f];
                if (Titulaire(base, fa) != n || (dansSelection && fa.Sel == 0)) continue;
                if (filtre.Garde(fa.*s.fami, fa.Mari, fa.Femme)) trouves.push_back({f, i});
            }
        }
    });
    return trouves;
}

std::string TexteActe(const Base& base, const Options& options, const ActeTrouve& a) {
    const SorteActe& s = kSortesActes[a.sorte];
    const Acte& acte = ActeDe(base, a);
    std::string t;
    t.reserve(80);
    const Fami& f = FamiLue(base, s.perso ? 0 : a.numero);
    AjouterNom(t, PersoLu(base, s.perso ? a.numero : Titulaire(base, f)));
    t.append(1, ' ').append(options.*s.symbole).append(acte.Date.vue());
    if (!acte.Lieu.empty()) t.append(1, ' ').append(acte.Lieu.vue());
    if (!s.perso && Titulaire(base, f) == f.Mari) AjouterNom(t, PersoLu(base, f.Femme));
    return t;
}

void ListerActes(const Base& base, const Options& options, const RechercheActes& r, int selCochee,
                 bool exportPossible, ListePersonne& liste) {
    OuvrirListe(liste, "actes", "", exportPossible ? kExporterActes : "", true);
    const std::vector<ActeTrouve> trouves = ChercherActes(base, r, true);
    // Les clés bout à bout dans un seul texte, leurs seize premiers octets à part : le tri d'un
    // million de rangées compare surtout des entiers. Clés et textes se font dans l'ordre du
    // parcours, qui lit les fiches à la suite. Les égales gardent cet ordre, comme l'insertion
    // triée du contrôle.
    struct Cle {
        std::uint64_t tete1, tete2;
        std::uint32_t debut, longueur, rang;
    };
    std::string textes;
    textes.reserve(trouves.size() * 24);
    std::vector<Cle> cles;
    cles.reserve(trouves.size());
    std::vector<std::string> lignes;
    lignes.reserve(trouves.size());
    const bool numero = r.ListeTri[0] == kTriNumero || r.ListeTri[1] == kTriNumero;
    for (std::uint32_t i = 0; i < trouves.size(); ++i) {
        const ActeTrouve& t = trouves[i];
        const Champs c = ChampsActe(base, t);
        const Acte& a = ActeDe(base, t);
        const std::string n = numero ? NumeroDeTri(base, c.personne, selCochee) : std::string();
        const std::size_t debut = textes.size();
        AjouterCleTriActe(textes, r.ListeTri, c.nom, c.prenoms, a.DateTri.vue(), a.Lieu.vue(), n);
        const std::size_t longueur = textes.size() - debut;
        const auto octets = [&](std::size_t de) {
            std::uint64_t v = 0;
            for (std::size_t k = de; k < de + 8; ++k)
                v = (v << 8) | (k < longueur ? static_cast<unsigned char>(textes[debut + k]) : 0u);
            return v;
        };
        cles.push_back({octets(0), octets(8), static_cast<std::uint32_t>(debut),
                        static_cast<std::uint32_t>(longueur), i});
        lignes.push_back(TexteActe(base, options, t));
        const std::string& symbole = options.*kSortesActes[t.sorte].symbole;
        AjouterQueue(lignes.back(), symbole.empty() ? ' ' : symbole[0], t.numero);
    }
    const std::string_view tout = textes;
    std::sort(cles.begin(), cles.end(), [tout](const Cle& x, const Cle& y) {
        if (x.tete1 != y.tete1) return x.tete1 < y.tete1;
        if (x.tete2 != y.tete2) return x.tete2 < y.tete2;
        // Mêmes seize premiers octets : la suite décide (une clé plus courte finit par des zéros).
        const std::size_t k = std::min<std::size_t>(16, std::min(x.longueur, y.longueur));
        const int c =
            tout.substr(x.debut + k, x.longueur - k).compare(tout.substr(y.debut + k, y.longueur - k));
        return c != 0 ? c < 0 : x.rang < y.rang;
    });
    liste.Rangees.reserve(liste.Rangees.size() + cles.size());
    for (const Cle& c : cles) liste.Rangees.push_back({std::move(lignes[c.rang]), trouves[c.rang].numero});
    liste.Titre = std::to_string(trouves.size()) + " actes trouv\xE9s";
}

std::string SelectionnerActes(Base& base, const Options& options, const RechercheActes& r, bool dansTout,
                              bool depuisTout) {
    // SelAvant garde la sélection d'avant ; les marques repartent de rien.
    GarderSelection(base, false);
    const std::vector<ActeTrouve> trouves = ChercherActes(base, r, !dansTout);
    const auto effacer = [](auto& t, std::int32_t nb) {
        t.PourChaqueEcrit(1, nb, [&](std::int32_t n) { t[n].Sel = kFaux; });
    };
    effacer(base.Persos, base.NbPersos);
    effacer(base.Familles, base.NbFamis);
    effacer(base.Notes, base.NbNotes);
    effacer(base.Sources, base.NbSources);
    for (const ActeTrouve& a : trouves) {
        if (kSortesActes[a.sorte].perso) {
            Marquer(base, a.numero);
        } else {
            MarquerFamille(base, a.numero);
        }
    }
    // OU : la sélection d'avant reste, sauf quand c'était toute la base ; ET : seules ses fiches restent.
    const auto combiner = [&](auto& t, std::int32_t nb) {
        t.PourChaqueEcrit(1, nb, [&](std::int32_t n) {
            auto& fiche = t[n];
            if (!dansTout)
                fiche.Sel = (fiche.Sel != 0 && fiche.SelAvant != 0) ? kVrai : kFaux;
            else if (!depuisTout && fiche.SelAvant != 0)
                fiche.Sel = kVrai;
        });
    };
    combiner(base.Persos, base.NbPersos);
    combiner(base.Familles, base.NbFamis);
    combiner(base.Notes, base.NbNotes);
    combiner(base.Sources, base.NbSources);
    base.Persos[0].Sel = kFaux;
    base.Familles[0].Sel = kFaux;
    CompleterSel(base, options, false);
    return std::to_string(NbSelPersos(base)) + " personnes et " + std::to_string(NbSelFamis(base)) +
           " familles";
}

ListePersonne ListeDomiciles(const Base& base) {
    ListePersonne liste;
    OuvrirListe(liste, "domicile", "Rechercher un domicile", " Ville : Nom Pr\xE9noms", true);
    std::vector<Rangee> rangees;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = base.Persos[n];
        if (p.Prenoms.empty() || p.Sel == 0) return;
        std::string t = p.Suite().Ville + " : " + p.Nom + " " + p.Prenoms;
        AjouterQueue(t, 'P', n);
        rangees.push_back({std::move(t), n});
    });
    AjouterTriees(liste, std::move(rangees));
    return liste;
}

}  // namespace arbolix
