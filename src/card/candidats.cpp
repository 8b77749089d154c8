#include "card/candidats.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <utility>

#include "store/chaines.h"

namespace arbolix {

namespace {

std::int32_t Nombre(const std::string& reglage) {
    return static_cast<std::int32_t>(ValeurNumerique(reglage));
}

const Perso& Lu(const Base& base, std::int32_t n) {
    return n >= base.Persos.Bas() && n <= base.Persos.Haut() ? base.Persos[n] : base.Persos[0];
}

std::string Nomme(const Perso& p) {
    return p.Prenoms + " " + p.Nom;
}

// Frères et sœurs, demi-frères et demi-sœurs compris : un parent connu en commun.
bool FrereOuSoeur(const Base& base, const Perso& a, const Perso& b) {
    if (a.NumParents <= 0 || b.NumParents <= 0) return false;
    if (a.NumParents == b.NumParents) return true;
    const auto lire = [&base](std::int32_t f) -> const Fami* {
        return f >= base.Familles.Bas() && f <= base.Familles.Haut() ? &base.Familles[f] : nullptr;
    };
    const Fami* fa = lire(a.NumParents);
    const Fami* fb = lire(b.NumParents);
    if (!fa || !fb) return false;
    return (fa->Mari > 0 && fa->Mari == fb->Mari) || (fa->Femme > 0 && fa->Femme == fb->Femme);
}

// Une ligne avant réécriture : la clé de tri et le numéro.
struct Cle {
    std::string cle;
    std::int32_t numero;
};

// La liste se trie sur sa clé sans tenir compte de la casse, puis par numéro.
void Trier(std::vector<Cle>& cles) {
    for (auto& c : cles) c.cle = EnMinuscules(c.cle);
    std::sort(cles.begin(), cles.end(),
              [](const Cle& a, const Cle& b) { return std::tie(a.cle, a.numero) < std::tie(b.cle, b.numero); });
}

std::vector<std::string> Reecrire(std::vector<Cle> cles, char genre,
                                  const std::function<std::string(std::int32_t)>& texte) {
    Trier(cles);
    std::vector<std::string> lignes;
    lignes.reserve(cles.size());
    for (const auto& c : cles) lignes.push_back(texte(c.numero) + " " + genre + Zeros(c.numero, 6));
    return lignes;
}

bool MemeTexteSansCasse(std::string_view a, std::string_view b) {
    return EnMinuscules(a) == EnMinuscules(b);
}

// "DUPONT Jean (°1720) x 1745 MARTIN Marie (°1725)" : les parties absentes sont omises.
std::string LigneFamille(const Base& base, const Options& options, std::int32_t f) {
    const Fami& fa = base.Familles[f];
    std::vector<std::string> parties;
    const auto conjoint = [&](std::int32_t n) {
        if (n <= 0) return;
        const Perso& p = Lu(base, n);
        parties.push_back(p.Nom + " " + p.Prenoms);
        if (p.Naissance.Annee != 0) parties.push_back("(" + options.SymbNais + std::to_string(p.Naissance.Annee) + ")");
    };
    conjoint(fa.Mari);
    if (fa.Mariage.Annee != 0) parties.push_back(options.SymbMari + " " + std::to_string(fa.Mariage.Annee));
    conjoint(fa.Femme);
    std::string r;
    for (const auto& s : parties) r += (r.empty() ? "" : " ") + s;
    return r;
}

}  // namespace

std::int32_t NumeroDeLigne(std::string_view ligne) {
    const std::string_view fin = Droite(ligne, 6);
    return fin.size() == 6 && EstNumerique(fin) ? static_cast<std::int32_t>(ValeurNumerique(fin)) : 0;
}

ListeCandidats CandidatsParents(const Base& base, const Options& options, std::int32_t p) {
    const Perso& pe = Lu(base, p);
    ListeCandidats liste{"parents", "Parents de " + Nomme(pe), " Ajouter...", {}};
    const int y = pe.Naissance.Annee;
    const int ageMini = Nombre(options.AgeMiniUnion), ageMaxi = Nombre(options.AgeMaxiEnfant);
    std::vector<Cle> cles;
    for (std::int32_t f = 1; f <= base.NbFamis; ++f) {
        const Fami& fa = base.Familles[f];
        const std::int32_t parent = fa.Mari > 0 ? fa.Mari : fa.Femme;
        if (parent <= 0) continue;
        const Perso& pa = Lu(base, parent);
        if (!MemeTexteSansCasse(pa.CodeNom.vue(), pe.CodeNom.vue())) continue;
        if (y > 0 && !pa.Naissance.Date.empty() &&
            !(pa.Naissance.Annee < y - ageMini && pa.Naissance.Annee > y - ageMaxi))
            continue;
        const int cle = fa.Mariage.Annee != 0 ? fa.Mariage.Annee : Lu(base, fa.Mari).Naissance.Annee;
        cles.push_back({std::to_string(cle), f});
    }
    liste.lignes = Reecrire(std::move(cles), 'F', [&](std::int32_t f) { return LigneFamille(base, options, f); });
    return liste;
}

ListeCandidats CandidatsConjoint(const Base& base, const Options& options, std::int32_t p,
                                 std::int32_t numeroLibre, const LigneDePersonne& ligneCourte) {
    const Perso& pe = Lu(base, p);
    ListeCandidats liste{"conjoint", "Conjoint de " + Nomme(pe),
                         " Ajouter une nouvelle fiche... P" + Zeros(numeroLibre, 6), {}};
    const int y = pe.Naissance.Annee;
    const int ecart = Nombre(options.EcartAgeConjoints), ageMini = Nombre(options.AgeMiniUnion);
    std::vector<std::int32_t> actuels;
    for (int i = 1; i <= kMaxUnions; ++i) {
        const Fami& fa = base.Familles[pe.Unions[static_cast<std::size_t>(i)]];
        actuels.push_back(fa.Mari == p ? fa.Femme : fa.Mari);
    }
    std::vector<Cle> cles;
    for (std::int32_t n = 1; n <= base.NbPersos; ++n) {
        const Perso& c = base.Persos[n];
        if (c.Prenoms.empty() || c.Nom.empty()) continue;
        if (Minuscule1252(c.Sexe) == Minuscule1252(pe.Sexe)) continue;
        if (std::find(actuels.begin(), actuels.end(), n) != actuels.end()) continue;
        if (FrereOuSoeur(base, pe, c)) continue;
        const bool ne = !c.Naissance.Date.empty(), mort = !c.Deces.Date.empty();
        if (y > 0 && ne &&
            (std::abs(y - c.Naissance.Annee) > ecart || (mort && c.Deces.Annee < c.Naissance.Annee + ageMini)))
            continue;
        if (y <= 0 && ne && mort && c.Deces.Annee - c.Naissance.Annee < ageMini) continue;
        cles.push_back({c.Nom + " " + c.Prenoms, n});
    }
    liste.lignes = Reecrire(std::move(cles), 'P', ligneCourte);
    return liste;
}

ListeCandidats CandidatsEnfant(const Base& base, const Options& options, std::int32_t p, std::int32_t f,
                               std::int32_t numeroLibre, const LigneDePersonne& ligneCourte) {
    const Fami& fa = base.Familles[f];
    const Perso& mari = Lu(base, fa.Mari);
    const Perso& femme = Lu(base, fa.Femme);
    // Une union monoparentale n'a pas de second nom à citer.
    std::string titre = "Enfant de ";
    if (fa.Mari > 0) titre += Nomme(mari);
    if (fa.Mari > 0 && fa.Femme > 0) titre += " et ";
    if (fa.Femme > 0) titre += Nomme(femme);
    ListeCandidats liste{"enfants", titre, " Ajouter une nouvelle fiche... P" + Zeros(numeroLibre, 6), {}};
    const int y = Lu(base, p).Naissance.Annee;
    const int ageMini = Nombre(options.AgeMiniUnion), ageMaxi = Nombre(options.AgeMaxiEnfant);
    std::vector<Cle> cles;
    for (std::int32_t n = 1; n <= base.NbPersos; ++n) {
        const Perso& c = base.Persos[n];
        if (n == p || c.NumParents != 0 || c.Prenoms.empty()) continue;
        const bool memeNom = (fa.Mari > 0 && MemeTexteSansCasse(c.Nom.vue(), mari.Nom.vue())) ||
                             (fa.Femme > 0 && MemeTexteSansCasse(c.Nom.vue(), femme.Nom.vue()));
        if (!memeNom) continue;
        if (y > 0 && !c.Naissance.Date.empty() &&
            !(c.Naissance.Annee > y + ageMini && c.Naissance.Annee < y + ageMaxi))
            continue;
        cles.push_back({c.Nom + " " + c.Prenoms, n});
    }
    liste.lignes = Reecrire(std::move(cles), 'P', ligneCourte);
    return liste;
}

ListeCandidats CandidatsTemoin(const Base& base, const Options& options, std::string_view date,
                               const LigneDePersonne& ligneCourte) {
    ListeCandidats liste{"temoins", "Ajouter un t\xE9moin...", "", {}};
    const auto y = ValeurNumerique(Droite(date, 4)) + 1;
    const auto ageMaxiDeces = ValeurNumerique(options.AgeMaxiDeces), ageMini = ValeurNumerique(options.AgeMiniUnion);
    std::vector<Cle> cles;
    for (std::int32_t n = 1; n <= base.NbPersos; ++n) {
        const Perso& c = base.Persos[n];
        if (c.Prenoms.empty()) continue;
        const bool ne = !c.Naissance.Date.empty();
        const bool vivant = c.Deces.Date.empty() || c.Deces.Annee > y;
        const bool pasTropVieux = !ne || y - ageMaxiDeces < c.Naissance.Annee;
        const bool majeur = !ne || c.Naissance.Annee <= y - ageMini;
        if (vivant && pasTropVieux && majeur) cles.push_back({c.CodeNom + c.Naissance.DateTri, n});
    }
    liste.lignes = Reecrire(std::move(cles), 'P', ligneCourte);
    return liste;
}

}  // namespace arbolix
