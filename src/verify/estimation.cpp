#include "verify/estimation.h"

#include <climits>
#include <cmath>
#include <vector>

#include "card/lignes_personne.h"
#include "dates/cle_date.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Les années candidates d'un acte vide ; la moyenne arrondie loin de zéro.
class Candidats {
public:
    void Ajouter(const Acte& source, std::int64_t terme) {
        if (source.Date.empty()) return;
        somme_ += ValeurNumerique(Droite(source.Date.vue(), 4)) + terme;
        ++nombre_;
    }
    bool empty() const { return nombre_ == 0; }
    std::int64_t Moyenne() const {
        return std::llround(static_cast<double>(somme_) / static_cast<double>(nombre_));
    }

private:
    std::int64_t somme_ = 0;
    std::int64_t nombre_ = 0;
};

// Format "#000" : trois chiffres au moins.
std::string TroisChiffres(std::int64_t annee) {
    return (annee < 0 ? "-" : "") + Zeros(annee < 0 ? -annee : annee, 3);
}

void Fixer(Acte& a, std::string date, std::int64_t annee) {
    a.Date = date;
    a.DateTri = CleDate(date);
    a.Annee = static_cast<std::int16_t>(annee);
}

class Estimation {
public:
    Estimation(Base& base, const Options& options, bool recalculer, std::int32_t haut)
        : base_(base),
          lu_(base),
          options_(options),
          recalculer_(recalculer),
          ecart_(ValeurNumerique(options.EcartGen)),
          touche_(static_cast<std::size_t>(haut) + 1, false) {}

    ResultatEstimation Executer(ActesVides quoi, ListePersonne& liste) {
        ResultatEstimation r;
        // Une passe qui ne date plus rien laisse les mêmes cas : c'est la fin.
        for (std::int32_t poses = -1; poses != 0;) {
            poses = calcules_;
            restes_.clear();
            if (quoi == ActesVides::Naissances)
                PasseNaissances();
            else
                PasseMariages();
            poses = calcules_ - poses;
        }
        r.Calcules = calcules_;
        r.Restants = static_cast<std::int32_t>(restes_.size());
        const bool n = quoi == ActesVides::Naissances;
        OuvrirListe(liste, n ? "vides0" : "vides1", "Actes vides",
                    n ? " Continuer avec le calcul de l'ann\xE9"
                        "e des mariages vides"
                      : " Continuer avec le calcul de l'ann\xE9"
                        "e des naissances vides",
                    true);
        // Les naissances « à vérifier » des premières passes restent montrées.
        restes_.insert(restes_.end(), aVerifier_.begin(), aVerifier_.end());
        AjouterTriees(liste, std::move(restes_));
        if (calcules_ > 0) base_.FichierModifie = kVrai;
        return r;
    }

private:
    // Vide, ou « vers ... » à recalculer quand ce calcul ne l'a pas déjà posé.
    bool Vide(const Acte& a, std::int32_t n) const {
        if (a.Date.empty()) return true;
        return recalculer_ && (a.Date[0] == 'v' || a.Date[0] == 'V') && !touche_[static_cast<std::size_t>(n)];
    }
    void Calcule(std::int32_t n) {
        if (!touche_[static_cast<std::size_t>(n)]) ++calcules_;
        touche_[static_cast<std::size_t>(n)] = true;
    }

    template <typename Action>
    void Parcourir(const auto& tableau, std::int32_t nb, Action&& action) {
        tableau.PourChaqueEcrit(1, std::min<std::int32_t>(nb, static_cast<std::int32_t>(touche_.size()) - 1),
                                action);
    }

    void PasseNaissances() {
        Parcourir(lu_.Persos, lu_.NbPersos, [&](std::int32_t n) {
            const Perso& p = lu_.Persos[n];
            if (p.Sel == 0 || p.Prenoms.empty() || !Vide(p.Naissance, n)) return;
            EstimerNaissance(n, p);
        });
    }

    void EstimerNaissance(std::int32_t n, const Perso& p) {
        Candidats c;
        const Fami& parents = FamiLue(lu_, p.NumParents);
        c.Ajouter(PersoLu(lu_, parents.Mari).Naissance, ecart_);
        c.Ajouter(PersoLu(lu_, parents.Femme).Naissance, ecart_);
        const bool femme = p.Sexe == 'F' || p.Sexe == 'f';
        for (int i = 1; i <= kMaxUnions && p.Unions[static_cast<std::size_t>(i)] > 0; ++i) {
            const Fami& fa = FamiLue(lu_, p.Unions[static_cast<std::size_t>(i)]);
            c.Ajouter(PersoLu(lu_, fa.Mari == n ? fa.Femme : fa.Mari).Naissance, femme ? 5 : -5);
            c.Ajouter(fa.Mariage, -ecart_);
            for (int e = 1; e <= kMaxEnfants && fa.Enfants(e) > 0; ++e)
                c.Ajouter(PersoLu(lu_, fa.Enfants(e)).Naissance, -ecart_);
        }
        if (!c.empty()) {
            const std::int64_t annee = c.Moyenne();
            Perso& ecrit = base_.Persos[n];
            if (!p.Deces.Date.empty() && annee > p.Deces.Annee) {
                Fixer(ecrit.Naissance, "avant " + std::to_string(p.Deces.Annee), p.Deces.Annee);
                aVerifier_.push_back({LigneListe(lu_, options_, n) + " \xE0 v\xE9rifier" + Queue('P', n), n});
            } else {
                Fixer(ecrit.Naissance, "vers " + TroisChiffres(annee), annee);
            }
            Calcule(n);
        } else if (!p.Bapteme.Date.empty()) {
            // La date seule : le lieu, les notes et les témoins du baptême restent à lui.
            Acte& naissance = base_.Persos[n].Naissance;
            naissance.Date = p.Bapteme.Date;
            naissance.DateTri = p.Bapteme.DateTri;
            naissance.Annee = p.Bapteme.Annee;
            Calcule(n);
        } else {
            restes_.push_back({LigneListe(lu_, options_, n) + Queue('P', n), n});
        }
    }

    void PasseMariages() {
        Parcourir(lu_.Familles, lu_.NbFamis, [&](std::int32_t f) {
            const Fami& fa = lu_.Familles[f];
            if (fa.Sel == 0 || !Vide(fa.Mariage, f)) return;
            Candidats c;
            c.Ajouter(PersoLu(lu_, fa.Mari).Naissance, ecart_);
            c.Ajouter(PersoLu(lu_, fa.Femme).Naissance, ecart_);
            for (int e = 1; e <= kMaxEnfants && fa.Enfants(e) > 0; ++e)
                c.Ajouter(PersoLu(lu_, fa.Enfants(e)).Naissance, -2);
            if (c.empty()) {
                restes_.push_back({LigneListe(lu_, options_, fa.Mari) + " " + options_.SymbMari + " " +
                                       LigneListe(lu_, options_, fa.Femme) + Queue('F', f),
                                   f});
                return;
            }
            const std::int64_t annee = c.Moyenne();
            Fixer(base_.Familles[f].Mariage, "vers " + TroisChiffres(annee), annee);
            Calcule(f);
        });
    }

    Base& base_;
    const Base& lu_;
    const Options& options_;
    bool recalculer_;
    std::int64_t ecart_;
    std::vector<bool> touche_;
    std::int32_t calcules_ = 0;
    std::vector<Rangee> restes_;
    std::vector<Rangee> aVerifier_;
};

}  // namespace

ResultatEstimation CalculerActesVides(Base& base, const Options& options, ActesVides quoi, bool recalculer,
                                      ListePersonne& liste) {
    const std::int32_t haut = quoi == ActesVides::Naissances ? std::min(base.NbPersos, base.Persos.Haut())
                                                             : std::min(base.NbFamis, base.Familles.Haut());
    Estimation e(base, options, recalculer, std::max(haut, 0));
    return e.Executer(quoi, liste);
}

std::string TexteResultatEstimation(const ResultatEstimation& r) {
    const auto pluriel = [](std::int32_t n) { return n > 1 ? "s" : ""; };
    return std::to_string(r.Calcules) + " acte" + pluriel(r.Calcules) + " calcul\xE9" + pluriel(r.Calcules) +
           ". Il reste " + std::to_string(r.Restants) + " acte" + pluriel(r.Restants) + " vide" +
           pluriel(r.Restants) + ".";
}

bool MenuCalcActesVides(Base& base, const Options& options, Dialogue& dialogue, ActesVides quoi,
                        ListePersonne& liste) {
    const std::string titre = "Estimer les dates vides";
    const Bouton b = dialogue.Message(titre,
                                      std::string("Le logiciel va calculer une ann\xE9"
                                                  "e approch\xE9"
                                                  "e (vers nnnn) pour les actes de ") +
                                          (quoi == ActesVides::Naissances ? "naissance" : "mariage") +
                                          " vides.\r\nVoulez-vous recalculer les dates approch\xE9"
                                          "es d\xE9j\xE0 existantes ?",
                                      Icone::Question, Boutons::OuiNonAnnuler);
    if (b == Bouton::Annuler) return false;
    const ResultatEstimation r = CalculerActesVides(base, options, quoi, b == Bouton::Oui, liste);
    dialogue.Message(titre, TexteResultatEstimation(r), Icone::Information);
    return true;
}

}  // namespace arbolix
