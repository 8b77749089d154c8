#include "verify/verification.h"

#include <cstdlib>
#include <optional>
#include <utility>

#include "card/lignes_personne.h"
#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"
#include "store/liens.h"
#include "verify/coherence.h"

namespace arbolix {

namespace {

constexpr std::int32_t kPas = 4096;  // fiches entre deux passages à la pompe d'évènements

char SexeMajuscule(const Perso& p) {
    return p.Sexe == 'f' ? 'F' : p.Sexe == 'm' ? 'M' : p.Sexe;
}

// Les unions de 1 à 7 jusqu'à la première vide : chacune doit nommer la personne du bon côté.
void LiensUnions(const Base& base, std::int32_t n, const Perso& p, std::string& plaintes) {
    const char sexe = SexeMajuscule(p);
    if (sexe != 'M' && sexe != 'F') {
        plaintes += "alerte : le sexe doit \xEAtre M ou F.\r\n";
        return;
    }
    // Chez l'homme, l'appel de cohérence sur le mariage ne passe pas de genre connu et
    // ne rend jamais rien : les dates d'union n'y sont pas vérifiées, on s'en passe.
    for (int i = 1; i <= kMaxUnions && p.Unions[static_cast<std::size_t>(i)] >= 1; ++i) {
        const std::int32_t f = p.Unions[static_cast<std::size_t>(i)];
        const Fami& fa = FamiLue(base, f);
        if ((sexe == 'F' ? fa.Femme : fa.Mari) != n)
            plaintes += "erreur dans le lien avec l'union F" + std::to_string(f) + "\r\n";
    }
}

std::string PlaintesPersonne(const Base& base, const Options& options, std::int32_t n, const Perso& p) {
    std::string plaintes;
    plaintes += CoherenceActe(base, options, n, "N", p.Naissance.Date.vue());
    plaintes += CoherenceActe(base, options, n, "B", p.Bapteme.Date.vue());
    plaintes += CoherenceActe(base, options, n, "D", p.Deces.Date.vue());
    plaintes += CoherenceActe(base, options, n, "S", p.Sepulture.Date.vue());
    if (p.NumParents > 0) {
        int fois = 0;
        for (const auto& [rang, enfant] : FamiLue(base, p.NumParents).Enfants)
            if (rang >= 1 && enfant == n) ++fois;
        if (fois != 1)
            plaintes += "erreur dans le lien avec les parents F" + std::to_string(p.NumParents) +
                        (fois == 0 ? " : l'enfant n'est pas reli\xE9.\r\n"
                                   : " : l'enfant est reli\xE9 plusieurs fois.\r\n");
    }
    LiensUnions(base, n, p, plaintes);
    return plaintes;
}

// Deux enfants qui se suivent dans la famille : moins de 270 jours d'écart (des jumeaux
// ou un ordre inversé se taisent), ou la même année quand l'une des dates n'est pas complète.
void Espacement(const Perso& aine, const Perso& cadet, int rang, std::string& plaintes) {
    if (aine.Naissance.Date.empty() || cadet.Naissance.Date.empty()) return;
    const auto rangs = [rang] {
        return std::to_string(rang - 1) + "e et " + std::to_string(rang) + "e).\r\n";
    };
    const auto a = LireDate(aine.Naissance.Date.vue());
    const auto c = a ? LireDate(cadet.Naissance.Date.vue()) : std::nullopt;
    if (a && c) {
        const std::int32_t d = NumeroJour(*c) - NumeroJour(*a);
        if (d >= 2 && d < 270)
            plaintes +=
                "alerte : 2 enfants n\xE9s \xE0 moins de 9 mois d'\xE9"
                "cart (" +
                rangs();
    } else if (aine.Naissance.Annee == cadet.Naissance.Annee) {
        plaintes +=
            "alerte : 2 enfants n\xE9s la m\xEAme ann\xE9"
            "e (" +
            rangs();
    }
}

std::string PlaintesFamille(Base& base, const Options& options, std::int32_t f, double maintenant,
                            std::int32_t& corriges) {
    const Base& lu = base;
    std::string plaintes;
    const Fami& fa = lu.Familles[f];
    const std::int32_t mari = fa.Mari, femme = fa.Femme;
    if ((femme >= 1 && SexeMajuscule(PersoLu(lu, femme)) == 'M') ||
        (mari >= 1 && SexeMajuscule(PersoLu(lu, mari)) == 'F'))
        plaintes +=
            "erreur de d\xE9"
            "claration du sexe d'un conjoint.\r\n";
    if (fa.Enfants(1) == 0 && ((mari > 0 && femme == 0) || (mari == 0 && femme > 0))) {
        plaintes += "info : lien erron\xE9 corrig\xE9.\r\n";
        const std::int32_t seul = mari > 0 ? mari : femme;
        // Un conjoint hors du tableau n'a pas d'unions à défaire : seule la famille le perd.
        if (seul > lu.Persos.Haut()) (mari > 0 ? base.Familles[f].Mari : base.Familles[f].Femme) = 0;
        SupprimerUnion(base, f, seul > lu.Persos.Haut() ? 0 : seul, nullptr, maintenant);
        ++corriges;
        return plaintes;  // la famille est vidée : plus rien à comparer
    }
    const Perso& pm = PersoLu(lu, mari);
    const Perso& pf = PersoLu(lu, femme);
    if (!pm.Naissance.Date.empty() && !pf.Naissance.Date.empty() &&
        std::abs(pm.Naissance.Annee - pf.Naissance.Annee) > ValeurNumerique(options.EcartAgeConjoints))
        plaintes +=
            "info : grand \xE9"
            "cart d'\xE2ge entre les conjoints.\r\n";
    for (int i = 2; i <= kMaxEnfants && fa.Enfants(i) >= 1; ++i)
        Espacement(PersoLu(lu, fa.Enfants(i - 1)), PersoLu(lu, fa.Enfants(i)), i, plaintes);
    return plaintes;
}

// Compteur de la fenêtre d'attente, pompe d'évènements et annulation, toutes les kPas fiches.
bool Pause(Progression* progression, std::int32_t n, std::int32_t total, std::string_view quoi) {
    if (!progression || n % kPas != 0) return false;
    progression->Compteur(std::string(quoi) + " " + std::to_string(n) + " / " + std::to_string(total));
    progression->LaisserPasser();
    return progression->Annule();
}

}  // namespace

ResultatVerification MenuVerifier(Base& base, const Options& options, Progression* progression,
                                  double maintenant) {
    ResultatVerification r;
    const Base& lu = base;
    const std::int32_t nbPersos = std::min(base.NbPersos, base.Persos.Haut());
    for (std::int32_t n = 1; n <= nbPersos; ++n) {
        if (lu.Persos.PageVierge(n)) {
            n = lu.Persos.FinDePage(n);
            continue;
        }
        if (Pause(progression, n, nbPersos, "Personne")) return r.Annule = true, r;
        const Perso& p = lu.Persos[n];
        if ((p.Prenoms.empty() && p.Nom.empty()) || p.Sel == 0) continue;
        const std::string plaintes = PlaintesPersonne(lu, options, n, p);
        if (plaintes.empty()) continue;
        r.Rapport += "Personne " + std::to_string(n) + " " + p.Nom.str() + " " + p.Prenoms.str() + " :\r\n";
        r.Rapport += plaintes + "\r\n";
    }
    // NbFamis peut baisser quand la réparation libère la dernière famille.
    for (std::int32_t f = 1; f <= std::min(base.NbFamis, base.Familles.Haut()); ++f) {
        if (lu.Familles.PageVierge(f)) {
            f = lu.Familles.FinDePage(f);
            continue;
        }
        if (Pause(progression, f, base.NbFamis, "Famille")) return r.Annule = true, r;
        if (lu.Familles[f].Sel == 0) continue;
        const std::string plaintes = PlaintesFamille(base, options, f, maintenant, r.Corriges);
        if (!plaintes.empty()) r.Rapport += "Famille " + std::to_string(f) + "\r\n" + plaintes + "\r\n";
    }
    if (r.Corriges > 0) base.FichierModifie = kVrai;
    return r;
}

}  // namespace arbolix
