#include "reports/statistiques.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <unordered_map>

#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

constexpr std::string_view kFin = "\r\n";
constexpr char kT = '\t';

constexpr std::array<std::string_view, 12> kMois{"janvier",   "f\xE9vrier", "mars",     "avril",
                                                 "mai",       "juin",       "juillet",  "ao\xFBt",
                                                 "septembre", "octobre",    "novembre", "d\xE9\x63\x65mbre"};
constexpr std::array<std::string_view, 12> kSignes{"b\xE9lier",  "taureau",    "g\xE9meaux", "cancer",
                                                   "lion",       "vierge",     "balance",    "scorpion",
                                                   "sagittaire", "capricorne", "verseau",    "poissons"};
constexpr std::array<std::string_view, 12> kSignesChinois{"rat",    "boeuf",   "tigre",  "li\xE8vre",
                                                          "dragon", "serpent", "cheval", "ch\xE8vre",
                                                          "singe",  "coq",     "chien",  "porc"};
// Tranches d'âge au décès : 0-9 à 120-129 ; au-delà (et en deçà de 0) l'âge ne compte dans aucune.
constexpr int kTranches = 13;

bool Selectionnee(const Perso& p) {
    return p.Sel != kFaux && !p.Nom.empty();
}
bool CommenceParChiffre(std::string_view s) {
    return !s.empty() && s[0] >= '0' && s[0] <= '9';
}

// Format "#0.0" ("#00.0" avec deux chiffres entiers au moins), virgule décimale.
std::string Decimal(double v, int chiffresEntiers = 1) {
    const long long dixiemes = std::llround(std::abs(v) * 10);
    std::string entier = std::to_string(dixiemes / 10);
    if (static_cast<int>(entier.size()) < chiffresEntiers)
        entier.insert(0, chiffresEntiers - entier.size(), '0');
    return (v < 0 && dixiemes ? "-" : "") + entier + "," + std::to_string(dixiemes % 10);
}

// Un quotient dont le diviseur peut être nul : « - » alors.
std::string Quotient(double numerateur, double diviseur, int chiffresEntiers = 1) {
    return diviseur == 0 ? std::string("-") : Decimal(numerateur / diviseur, chiffresEntiers);
}

// La date d'un texte du fichier. La forme "jj/mm/aaaa" que le programme écrit presque toujours
// se lit sans détour : sur un million de fiches, la reconnaissance complète coûte cher.
std::optional<DateCalendrier> DateDuTexte(std::string_view s, bool complete) {
    const auto chiffre = [&](std::size_t i) { return s[i] >= '0' && s[i] <= '9'; };
    if (s.size() == 10 && s[2] == '/' && s[5] == '/' && chiffre(0) && chiffre(1) && chiffre(3) &&
        chiffre(4) && chiffre(6) && chiffre(7) && chiffre(8) && chiffre(9)) {
        const auto n = [&](std::size_t i, std::size_t k) {
            int v = 0;
            for (std::size_t j = i; j < i + k; ++j) v = v * 10 + (s[j] - '0');
            return v;
        };
        const DateCalendrier d{n(0, 2), n(3, 2), n(6, 4)};
        if (d.mois < 1 || d.mois > 12 || d.annee < kAnneeMin || d.jour < 1 ||
            d.jour > JoursDuMois(d.mois, d.annee))
            return {};
        return d;
    }
    if (complete && !EstDateComplete(s)) return {};
    return LireDate(s);
}

// Le mois d'une date complète décalée de quelques jours en arrière ; vide sans date complète.
std::optional<int> MoisDecale(std::string_view date, int jours) {
    const auto d = DateDuTexte(date, true);
    if (!d) return {};
    int jour = d->jour - jours, mois = d->mois, annee = d->annee;
    while (jour < 1) {
        if (--mois < 1) {
            mois = 12;
            --annee;
        }
        jour += JoursDuMois(mois, annee);
    }
    return mois;
}

// Une rangée d'une liste de travail triée : la valeur puis le numéro de fiche, comme le texte
// "000 P000012" se trie.
struct Rang {
    std::int64_t valeur;
    std::int32_t numero;
    std::int32_t famille = 0;  // le mariage d'un âge au mariage
    friend auto operator<=>(const Rang&, const Rang&) = default;
};

struct Serie {
    std::vector<Rang> rangs;
    std::int64_t somme = 0;
    void Ajouter(std::int64_t v, std::int32_t n, std::int32_t famille = 0) {
        rangs.push_back({v, n, famille});
        somme += v;
    }
    void Trier() { std::sort(rangs.begin(), rangs.end()); }
    std::string Moyenne() const {
        return Quotient(static_cast<double>(somme), static_cast<double>(rangs.size()));
    }
};

class Redaction {
public:
    Redaction(const ContexteStatistiques& ctx, Statistiques& sortie)
        : b_(ctx.base), o_(ctx.options), ctx_(ctx), s_(sortie), t_(sortie.texte) {}

    void Tete(std::int64_t n);
    void Sexes(std::int64_t n);
    void AgesAuDeces();
    void Mariages();
    void EnfantsParFemme();
    void Celibataires(std::int64_t n);
    void MoisEtDecennies();
    void Zodiaque();
    void SignesChinois();
    void PlusFrequents(std::string_view titre, Texte Perso::*champ, char sexe, bool sansComposes);

private:
    void Ligne(std::string_view l) {
        t_ += l;
        t_ += kFin;
    }
    std::string Annees(const Perso& p, std::string_view symboleFin, int anneeFin) const {
        return p.Nom + " " + p.Prenoms + " " + o_.SymbNais + std::to_string(p.Naissance.Annee) + " " +
               std::string(symboleFin) + std::to_string(anneeFin);
    }
    void Douze(std::string_view titre, const std::array<std::string_view, 12>& noms,
               const std::array<std::int64_t, 13>& compte);

    const Base& b_;
    const Options& o_;
    const ContexteStatistiques& ctx_;
    Statistiques& s_;
    std::string& t_;
};

void Redaction::Tete(std::int64_t n) {
    Ligne("Statistiques du fichier " + ctx_.fichierGedcom);
    Ligne("");
    Ligne(std::to_string(n) + " personnes");
    Ligne("");
    Ligne(
        "Pour exploiter ces donn\xE9\x65s brutes et cr\xE9\x65r des graphiques, utilisez le fichier "
        "mod\xE8le "
        "statistiques.ods qui se trouve dans le dossier d'installation de " +
        ctx_.nomProgramme + " : " + ctx_.dossierProgramme +
        " et copiez-collez les valeurs ci-dessous dans les diff\xE9rents onglets du tableur.");
}

void Redaction::Sexes(std::int64_t n) {
    std::int64_t f = 0;
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i)
        if (Selectionnee(b_.Persos[i]) && b_.Persos[i].Sexe == 'F') ++f;
    Ligne("r\xE9partition par sexe :");
    Ligne("hommes" + std::string(1, kT) + std::to_string(n - f));
    Ligne("femmes" + std::string(1, kT) + std::to_string(f));
    Ligne("taux de masculinit\xE9" + std::string(1, kT) + Quotient((n - f) * 100.0, f, 2) + " %");
    Ligne("");
    s_.repartitions.push_back({"r\xE9partition par sexe", {"hommes", "femmes"}, {"personnes"}, {{n - f, f}}});
}

void Redaction::AgesAuDeces() {
    std::array<Serie, 2> series;
    std::array<std::array<std::int64_t, kTranches>, 2> tranches{};
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        const int k = p.Sexe == 'M' ? 0 : p.Sexe == 'F' ? 1 : -1;
        if (k < 0 || !Selectionnee(p) || !CommenceParChiffre(p.Naissance.Date) ||
            !CommenceParChiffre(p.Deces.Date))
            continue;
        const int age = p.Deces.Annee - p.Naissance.Annee;
        series[k].Ajouter(age, i);
        if (age >= 0 && age / 10 < kTranches) ++tranches[k][age / 10];
    }
    Ligne("esp\xE9rance de vie :");
    Ligne("\xE2ge moyen au d\xE9\x63\xE8s :");
    const std::array<std::string_view, 2> sexes{"hommes", "femmes"};
    for (int k = 0; k < 2; ++k)
        Ligne(std::string(sexes[k]) + kT + series[k].Moyenne() + kT + " ans (calcul\xE9 avec " + kT +
              std::to_string(series[k].rangs.size()) + kT + " personnes)");
    const std::array<std::string_view, 2> doyens{"doyen : ", "doyenne : "};
    for (int k = 0; k < 2; ++k) {
        series[k].Trier();
        if (series[k].rangs.empty()) {
            Ligne(std::string(doyens[k]) + kT + "-");
            continue;
        }
        const Rang r = series[k].rangs.back();
        const Perso& p = b_.Persos[r.numero];
        Ligne(std::string(doyens[k]) + kT + Annees(p, o_.SymbDece, p.Deces.Annee) + " (" +
              std::to_string(r.valeur) + " ans)");
    }
    Ligne("r\xE9partition des \xE2ges au d\xE9\x63\xE8s :");
    Ligne(std::string("tranche d'\xE2ge") + kT + "hommes" + kT + "femmes");
    Repartition graphique{"r\xE9partition des \xE2ges au d\xE9\x63\xE8s", {}, {"hommes", "femmes"}, {{}, {}}};
    for (int d = 0; d < kTranches; ++d) {
        std::string l = d == 0 ? "0  -  9  ans  " : std::to_string(d) + "0 - " + std::to_string(d) + "9 ans ";
        graphique.etiquettes.push_back(d == 0 ? "0-9" : std::to_string(d) + "0-" + std::to_string(d) + "9");
        for (int k = 0; k < 2; ++k) graphique.valeurs[k].push_back(tranches[k][d]);
        if (tranches[0][d] || tranches[1][d])
            l += kT + std::to_string(tranches[0][d]) + kT + std::to_string(tranches[1][d]);
        Ligne(l);
    }
    Ligne("");
    s_.repartitions.push_back(std::move(graphique));
}

void Redaction::Mariages() {
    std::array<Serie, 2> series;
    for (std::int32_t f = 1; f <= b_.NbFamis; ++f) {
        const Fami& fam = b_.Familles[f];
        if (fam.Sel == kFaux || !CommenceParChiffre(fam.Mariage.Date)) continue;
        const std::array<std::int32_t, 2> conjoints{fam.Mari, fam.Femme};
        for (int k = 0; k < 2; ++k)
            if (PersonneExiste(b_, conjoints[k]) &&
                CommenceParChiffre(b_.Persos[conjoints[k]].Naissance.Date))
                series[k].Ajouter(fam.Mariage.Annee - b_.Persos[conjoints[k]].Naissance.Annee, conjoints[k],
                                  f);
    }
    Ligne("\xC2ge moyen au mariage :");
    const std::array<std::string_view, 2> sexes{"hommes", "femmes"};
    for (int k = 0; k < 2; ++k) {
        Serie& s = series[k];
        Ligne(std::string(sexes[k]) + kT + s.Moyenne() + kT + " ans (calcul\xE9 avec " + kT +
              std::to_string(s.rangs.size()) + kT + " personnes)");
        s.Trier();
        const std::array<std::pair<std::string_view, const Rang*>, 2> extremes{
            {{"plus jeune : ", s.rangs.empty() ? nullptr : &s.rangs.front()},
             {"moins jeune : ", s.rangs.empty() ? nullptr : &s.rangs.back()}}};
        for (const auto& [libelle, r] : extremes) {
            if (!r) {
                Ligne(std::string(libelle) + kT + "-");
                continue;
            }
            const Fami& fam = b_.Familles[r->famille];
            const Perso& p = b_.Persos[r->numero];
            Ligne(std::string(libelle) + kT + Annees(p, o_.SymbMari, fam.Mariage.Annee) + " (" +
                  std::to_string(r->valeur) + " ans)");
        }
    }
}

void Redaction::EnfantsParFemme() {
    Serie s;
    const auto ageMini = ValeurNumerique(o_.AgeMiniUnion);
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        if (!Selectionnee(p) || p.Sexe != 'F') continue;
        if (!(p.Unions[1] > 0 || p.Deces.Annee > p.Naissance.Annee + ageMini)) continue;
        std::int64_t enfants = 0;
        for (int u = 1; u <= kMaxUnions && p.Unions[u] > 0; ++u) {
            if (p.Unions[u] > b_.Familles.Haut()) break;
            const Fami& fam = b_.Familles[p.Unions[u]];
            for (int e = 1; e <= kMaxEnfants && fam.Enfants(e) > 0; ++e) ++enfants;
        }
        s.Ajouter(enfants, i);
    }
    Ligne(s.Moyenne() + " enfants en moyenne par femme (calcul\xE9 avec " + kT +
          std::to_string(s.rangs.size()) + kT + " femmes)");
    s.Trier();
    if (s.rangs.empty()) {
        Ligne("nombre maxi d'enfants par femme : -");
        return;
    }
    const Rang r = s.rangs.back();
    const Perso& p = b_.Persos[r.numero];
    Ligne("nombre maxi d'enfants par femme : " + std::to_string(r.valeur) + " enfants pour " +
          Annees(p, o_.SymbDece, p.Deces.Annee));
}

void Redaction::Celibataires(std::int64_t n) {
    std::int64_t c = 0;
    const auto ageMaxi = ValeurNumerique(o_.AgeMaxiEnfant);
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        if (Selectionnee(p) && p.Unions[1] == 0 && p.Deces.Annee > p.Naissance.Annee + ageMaxi) ++c;
    }
    Ligne(std::to_string(c) + " personnes c\xE9libataires d\xE9\x63\xE9\x64\xE9\x65s apr\xE8s " +
          o_.AgeMaxiEnfant + " ans");
    Ligne("soit " + Quotient(c * 100.0, static_cast<double>(n)) + " % des personnes");
}

void Redaction::MoisEtDecennies() {
    // Colonnes : naissances, mariages, décès.
    std::array<std::array<std::int64_t, 13>, 3> mois{};
    const int derniere = std::max(ctx_.anneeCourante, 0) / 10;
    std::array<std::vector<std::int64_t>, 3> decennies;
    for (auto& d : decennies) d.assign(derniere + 1, 0);
    const auto compter = [&](const Acte& a, int colonne) {
        if (const auto d = DateDuTexte(a.Date, false)) ++mois[colonne][d->mois];
        if (CommenceParChiffre(a.Date) && a.Annee >= 0 && a.Annee / 10 <= derniere)
            ++decennies[colonne][a.Annee / 10];
    };
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        if (!Selectionnee(p)) continue;
        compter(p.Naissance, 0);
        compter(p.Deces, 2);
    }
    for (std::int32_t f = 1; f <= b_.NbFamis; ++f)
        if (b_.Familles[f].Sel != kFaux) compter(b_.Familles[f].Mariage, 1);

    const std::vector<std::string> colonnes{"naissances", "mariages", "d\xE9\x63\xE8s"};
    Ligne("r\xE9partition des actes NMD par mois :");
    Ligne(std::string("mois") + kT + "naissances" + kT + "mariages" + kT + "d\xE9\x63\xE8s");
    Repartition parMois{"r\xE9partition des actes NMD par mois", {}, colonnes, {{}, {}, {}}};
    for (int m = 1; m <= 12; ++m) {
        Ligne(std::string(kMois[m - 1]) + kT + std::to_string(mois[0][m]) + kT + std::to_string(mois[1][m]) +
              kT + std::to_string(mois[2][m]));
        parMois.etiquettes.emplace_back(kMois[m - 1]);
        for (int c = 0; c < 3; ++c) parMois.valeurs[c].push_back(mois[c][m]);
    }
    Ligne("r\xE9partition des actes NMD par d\xE9\x63\x65nnie :");
    Ligne(std::string("d\xE9\x63\x65nnie") + kT + "naissances" + kT + "mariages" + kT + "d\xE9\x63\xE8s");
    const auto vide = [&](int d) { return !decennies[0][d] && !decennies[1][d] && !decennies[2][d]; };
    int premiere = 0, fin = derniere;
    while (premiere <= fin && vide(premiere)) ++premiere;
    while (fin >= premiere && vide(fin)) --fin;
    Repartition parDecennie{"r\xE9partition des actes NMD par d\xE9\x63\x65nnie", {}, colonnes, {{}, {}, {}}};
    for (int d = premiere; d <= fin; ++d) {
        const std::string n = std::to_string(d);
        Ligne(n + "0 - " + n + "9" + kT + std::to_string(decennies[0][d]) + kT +
              std::to_string(decennies[1][d]) + kT + std::to_string(decennies[2][d]));
        parDecennie.etiquettes.push_back(n + "0");
        for (int c = 0; c < 3; ++c) parDecennie.valeurs[c].push_back(decennies[c][d]);
    }
    s_.repartitions.push_back(std::move(parMois));
    s_.repartitions.push_back(std::move(parDecennie));
}

void Redaction::Douze(std::string_view titre, const std::array<std::string_view, 12>& noms,
                      const std::array<std::int64_t, 13>& compte) {
    Ligne(std::string(titre) + " :");
    Repartition r{std::string(titre), {}, {"naissances"}, {{}}};
    for (int i = 1; i <= 12; ++i) {
        Ligne(std::string(noms[i - 1]) + kT + std::to_string(compte[i]));
        r.etiquettes.emplace_back(noms[i - 1]);
        r.valeurs[0].push_back(compte[i]);
    }
    s_.repartitions.push_back(std::move(r));
}

void Redaction::Zodiaque() {
    std::array<std::int64_t, 13> compte{};
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i)
        if (Selectionnee(b_.Persos[i]))
            if (const auto m = MoisDecale(b_.Persos[i].Naissance.Date, 80)) ++compte[*m];
    Douze("r\xE9partition des naissances par signe astrologique", kSignes, compte);
}

void Redaction::SignesChinois() {
    std::array<std::int64_t, 13> compte{};
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        if (!Selectionnee(p) || p.Naissance.Date.size() <= 3 || p.Naissance.Annee <= 0) continue;
        int index = (p.Naissance.Annee - 3) % 12;
        if (const auto m = MoisDecale(p.Naissance.Date, 36)) index = *m;
        ++compte[index == 0 ? 12 : index];
    }
    Douze("r\xE9partition des naissances par signe astrologique chinois", kSignesChinois, compte);
}

void Redaction::PlusFrequents(std::string_view titre, Texte Perso::*champ, char sexe, bool sansComposes) {
    // Les valeurs des personnes sélectionnées sont celles des listes de saisie de la fiche, qui
    // reçoivent chaque nom, prénom et métier lu ou tapé : un passage sur les personnes suffit,
    // et la ligne de commande, qui ne remplit pas ces listes, compte de même.
    std::unordered_map<std::string_view, std::int64_t> compte;
    for (std::int32_t i = 1; i <= b_.NbPersos; ++i) {
        const Perso& p = b_.Persos[i];
        const std::string_view valeur = p.*champ;
        if (!valeur.empty() && Selectionnee(p) && (sexe == ' ' || p.Sexe == sexe)) ++compte[valeur];
    }
    std::vector<std::pair<std::int64_t, std::string_view>> rangs;
    for (const auto& [valeur, n] : compte) {
        if (sansComposes &&
            (valeur.find(" puis ") != std::string_view::npos || valeur.find(", ") != std::string_view::npos))
            continue;
        rangs.emplace_back(n, valeur);
    }
    std::sort(rangs.begin(), rangs.end());
    Ligne(std::string(titre));
    for (auto it = rangs.rbegin(); it != rangs.rend(); ++it)
        Ligne(std::string(it->second) + kT + std::to_string(it->first));
    Ligne("");
}

}  // namespace

std::int64_t PopulationStatistiques(const Base& base) {
    std::int64_t n = 0;
    for (std::int32_t i = 1; i <= base.NbPersos; ++i)
        if (Selectionnee(base.Persos[i])) ++n;
    return n;
}

Statistiques EtablirStatistiques(const ContexteStatistiques& ctx, const std::vector<int>& choix) {
    Statistiques s;
    Redaction r(ctx, s);
    const std::int64_t n = PopulationStatistiques(ctx.base);
    r.Tete(n);
    const auto coche = [&](int i) { return std::find(choix.begin(), choix.end(), i) != choix.end(); };
    if (coche(0)) r.Sexes(n);
    if (coche(1)) r.AgesAuDeces();
    if (coche(2)) {
        r.Mariages();
        r.EnfantsParFemme();
    }
    if (coche(3)) r.Celibataires(n);
    if (coche(4)) r.MoisEtDecennies();
    if (coche(5)) r.Zodiaque();
    if (coche(6)) r.SignesChinois();
    if (coche(7)) r.PlusFrequents("noms les plus fr\xE9quents :", &Perso::Nom, ' ', false);
    if (coche(8))
        r.PlusFrequents("pr\xE9noms masculins les plus fr\xE9quents :", &Perso::Prenoms, 'M', false);
    if (coche(9))
        r.PlusFrequents("pr\xE9noms f\xE9minins les plus fr\xE9quents :", &Perso::Prenoms, 'F', false);
    if (coche(10)) r.PlusFrequents("professions les plus fr\xE9quentes :", &Perso::Metier, ' ', true);
    return s;
}

}  // namespace arbolix
