#include "verify/coherence.h"

#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Ce que chaque règle consulte : la date proposée, son année, les seuils des réglages.
class Regles {
public:
    Regles(const Base& base, const Options& options, std::string_view date)
        : base_(base),
          date_(date),
          jour_(LireDate(date)),
          A_(static_cast<std::int16_t>(ValeurNumerique(Droite(date, 4)))),
          ageMiniUnion_(static_cast<double>(ValeurNumerique(options.AgeMiniUnion))),
          ageMaxiEnfant_(static_cast<double>(ValeurNumerique(options.AgeMaxiEnfant))),
          ageMaxiDeces_(static_cast<double>(ValeurNumerique(options.AgeMaxiDeces))) {}

    // Comparaison par dates quand les deux sont des dates complètes, sinon par années ; stricte.
    bool Avant(const Acte& a) const { return Comparer(a) < 0; }
    bool Apres(const Acte& a) const { return Comparer(a) > 0; }

    double A() const { return A_; }
    double AgeMiniUnion() const { return ageMiniUnion_; }
    double AgeMaxiEnfant() const { return ageMaxiEnfant_; }
    double AgeMaxiDeces() const { return ageMaxiDeces_; }

    void Plainte(std::string_view texte) {
        plaintes_ += texte;
        plaintes_ += "\r\n";
    }
    void PlainteUnion(std::string_view debut, std::int32_t f) {
        Plainte(std::string(debut) + std::to_string(f) + ".");
    }
    std::string Resultat() && { return std::move(plaintes_); }

    const Perso& P(std::int32_t n) const { return n > 0 && n <= base_.Persos.Haut() ? base_.Persos[n] : vide_; }
    const Fami& F(std::int32_t f) const { return f > 0 && f <= base_.Familles.Haut() ? base_.Familles[f] : videF_; }

private:
    int Comparer(const Acte& a) const {
        if (jour_ && EstDateComplete(date_) && EstDateComplete(a.Date.vue())) {
            const std::int32_t stocke = NumeroJour(*LireDate(a.Date.vue()));
            const std::int32_t propose = NumeroJour(*jour_);
            return stocke < propose ? -1 : stocke > propose ? 1 : 0;
        }
        return a.Annee < A_ ? -1 : a.Annee > A_ ? 1 : 0;
    }

    const Base& base_;
    std::string_view date_;
    std::optional<DateCalendrier> jour_;
    std::int16_t A_;
    double ageMiniUnion_, ageMaxiEnfant_, ageMaxiDeces_;
    std::string plaintes_;
    Perso vide_;
    Fami videF_;
};

constexpr const char* kTropAgee = "La personne est d\xE9" "c\xE9" "d\xE9" "e trop \xE2g\xE9" "e.";
constexpr const char* kTropJeuneUnion = "La personne est trop jeune pour l'union F";
constexpr const char* kTropAgeeUnion = "La personne est trop \xE2g\xE9" "e pour l'union F";

// La dernière union occupée, 0 sans union.
std::int32_t DerniereUnion(const Perso& p) {
    for (int i = kMaxUnions; i >= 1; --i)
        if (p.Unions[i] > 0) return p.Unions[i];
    return 0;
}

// Un parent face à la naissance (ou au baptême) proposée de son enfant.
struct TextesParent {
    const char* tropJeune;
    const char* tropAge;
    const char* decede;
};
constexpr TextesParent kPere{"Le p\xE8re de la personne est trop jeune.", "Le p\xE8re de la personne est trop \xE2g\xE9.",
                             "Le p\xE8re de la personne est d\xE9" "c\xE9" "d\xE9 avant sa naissance."};
constexpr TextesParent kMere{"La m\xE8re de la personne est trop jeune.",
                             "La m\xE8re de la personne est trop \xE2g\xE9" "e.",
                             "La m\xE8re de la personne est d\xE9" "c\xE9" "d\xE9" "e avant sa naissance."};

void Parent(Regles& r, const Perso& parent, const TextesParent& t) {
    if (!parent.Naissance.Date.empty()) {
        if (parent.Naissance.Annee + r.AgeMiniUnion() > r.A()) r.Plainte(t.tropJeune);
        if (parent.Naissance.Annee + r.AgeMaxiEnfant() < r.A()) r.Plainte(t.tropAge);
    }
    if (!parent.Deces.Date.empty() && r.Avant(parent.Deces)) r.Plainte(t.decede);
}

void NaissanceOuBapteme(Regles& r, const Perso& p) {
    if (!p.Deces.Date.empty()) {
        if (r.Avant(p.Deces)) r.Plainte("La personne est n\xE9" "e apr\xE8s son d\xE9" "c\xE8s.");
        if (p.Deces.Annee - r.AgeMaxiDeces() > r.A()) r.Plainte(kTropAgee);
    }
    if (!p.Sepulture.Date.empty()) {
        if (r.Avant(p.Sepulture)) r.Plainte("La personne est n\xE9" "e apr\xE8s son enterrement.");
        if (p.Sepulture.Annee - r.AgeMaxiDeces() > r.A()) r.Plainte(kTropAgee);
    }
    if (p.NumParents > 0) {
        const Fami& f = r.F(p.NumParents);
        Parent(r, r.P(f.Mari), kPere);
        Parent(r, r.P(f.Femme), kMere);
    }
    const Fami& premiere = r.F(p.Unions[1]);
    if (p.Unions[1] > 0 && !premiere.Mariage.Date.empty() && premiere.Mariage.Annee - r.AgeMiniUnion() < r.A())
        r.PlainteUnion(kTropJeuneUnion, p.Unions[1]);
    const std::int32_t derniere = DerniereUnion(p);
    const Fami& d = r.F(derniere);
    if (derniere > 0 && !d.Mariage.Date.empty() && d.Mariage.Annee - r.AgeMaxiEnfant() > r.A())
        r.PlainteUnion(kTropAgeeUnion, derniere);
}

void DecesOuSepulture(Regles& r, const Perso& p) {
    if (!p.Naissance.Date.empty()) {
        if (r.Apres(p.Naissance)) r.Plainte("La personne est d\xE9" "c\xE9" "d\xE9" "e avant sa naissance.");
        if (p.Naissance.Annee + r.AgeMaxiDeces() < r.A()) r.Plainte(kTropAgee);
    }
    if (!p.Bapteme.Date.empty()) {
        if (r.Apres(p.Bapteme)) r.Plainte("La personne est d\xE9" "c\xE9" "d\xE9" "e avant son bapt\xEAme.");
        if (p.Bapteme.Annee + r.AgeMaxiDeces() < r.A()) r.Plainte(kTropAgee);
    }
    const Fami& premiere = r.F(p.Unions[1]);
    if (p.Unions[1] > 0 && !premiere.Mariage.Date.empty() && r.A() < premiere.Mariage.Annee)
        r.Plainte("La personne est d\xE9" "c\xE9" "d\xE9" "e avant sa premi\xE8re union.");
}

// Le message nomme toujours la première union (trop jeune) ou la dernière (trop âgée) : il ne sait pas
// laquelle est modifiée. Seule la personne de la fiche est vérifiée, pas son conjoint.
void Union(Regles& r, const Perso& p, bool divorce) {
    if (!p.Naissance.Date.empty()) {
        if (p.Naissance.Annee + r.AgeMiniUnion() > r.A()) r.PlainteUnion(kTropJeuneUnion, p.Unions[1]);
        if (!divorce && p.Naissance.Annee + r.AgeMaxiEnfant() < r.A())
            r.PlainteUnion(kTropAgeeUnion, DerniereUnion(p));
    }
    if (!p.Deces.Date.empty() && r.Avant(p.Deces))
        r.Plainte(divorce ? "La personne est d\xE9" "c\xE9" "d\xE9" "e avant le divorce."
                          : "La personne est d\xE9" "c\xE9" "d\xE9" "e avant l'union.");
}

}  // namespace

std::string CoherenceActe(const Base& base, const Options& options, std::int32_t numero, std::string_view genre,
                          std::string_view date) {
    if (date.empty() || genre.size() != 1) return {};
    Regles r(base, options, date);
    const Perso& p = r.P(numero);
    switch (genre.front()) {
        case 'N':
            NaissanceOuBapteme(r, p);
            if (!p.Bapteme.Date.empty() && r.Avant(p.Bapteme)) r.Plainte("La personne est n\xE9" "e apr\xE8s le bapt\xEAme.");
            break;
        case 'B':
            NaissanceOuBapteme(r, p);
            if (!p.Naissance.Date.empty() && r.Apres(p.Naissance))
                r.Plainte("La personne est baptis\xE9" "e avant la naissance.");
            break;
        case 'D':
            DecesOuSepulture(r, p);
            if (!p.Sepulture.Date.empty() && r.Avant(p.Sepulture))
                r.Plainte("La personne est d\xE9" "c\xE9" "d\xE9" "e apr\xE8s l'enterrement.");
            break;
        case 'S':
            DecesOuSepulture(r, p);
            if (!p.Deces.Date.empty() && r.Apres(p.Deces)) r.Plainte("La personne est enterr\xE9" "e avant le d\xE9" "c\xE8s.");
            break;
        case 'M':
        case 'C':
            Union(r, p, false);
            break;
        case 'X':
            Union(r, p, true);
            break;
        default:
            break;
    }
    return std::move(r).Resultat();
}

}  // namespace arbolix
