#include "reports/ascendance.h"

#include <cmath>
#include <cstdio>
#include <unordered_set>

#include "acts/tmao.h"
#include "card/lignes_personne.h"
#include "kinship/sosa.h"
#include "reports/blocs_personne.h"
#include "reports/date_confidentielle.h"
#include "store/chaines.h"

namespace arbolix {

std::string MoitieSosa(const std::string& sosa) {
    std::string r;
    int reste = 0;
    for (const char c : sosa) {
        const int v = reste * 10 + (c - '0');
        if (!r.empty() || v / 2 > 0) r += static_cast<char>('0' + v / 2);
        reste = v % 2;
    }
    return r.empty() ? "0" : r;
}

int GenerationSosa(const std::string& sosa) {
    if (sosa.size() <= 18) {
        std::uint64_t n = std::stoull(sosa.empty() ? "0" : sosa);
        int g = -1;
        for (; n > 0; n >>= 1) ++g;
        return std::max(g, 0);
    }
    int g = 0;
    for (std::string s = sosa; s.size() > 18; s = MoitieSosa(s)) ++g;
    std::string s = sosa;
    for (int i = 0; i < g; ++i) s = MoitieSosa(s);
    return g + GenerationSosa(s);
}

std::string PourcentageImplexe(std::int32_t nbAncetres, std::int32_t reels) {
    if (nbAncetres <= 0) return "0,0%";
    // Arrondi au plus loin de zéro, comme le format "##0.0%" : 31,25 donne 31,3.
    const double dixiemes = std::round(1000.0 * (nbAncetres - reels) / nbAncetres);
    char t[32];
    std::snprintf(t, sizeof t, "%.1f%%", dixiemes / 10.0);
    std::string r = t;
    for (char& c : r)
        if (c == '.') c = ',';
    return r;
}

namespace {

constexpr std::string_view kLegende[] = {
    "n\xB0 Sosa, implexes",
    "Nom, Prenoms, Metier; ",
    "______parent du n\xB0, enfant des n\xB0______",
    "naissance : date, lieu",
    "d\xE9"
    "c\xE8s : date, lieu",
    "notes",
    "mariage : date, lieu",
};

// Les dates d'une personne morte suivent le seuil des décès quand « Sauf décédé » est coché.
bool ForcerDS(const ContexteExport& ctx, std::int32_t p) {
    return ctx.exports.OptionSaufDecede && !MarqueDecede(ctx, p, DateDuRapport(ctx)).empty();
}

void Blocs(const ContexteExport& ctx, const Ascendance& a, TexteRapport& f) {
    for (const auto l : kLegende) f.Ligne(l);
    const Options& o = ctx.options;
    FormePersonne forme{.sep = "\r\n", .avant = " ", .fin = "\r\n"};
    forme.saufDecede = ctx.exports.OptionSaufDecede;
    int g = 0;
    std::uint32_t tour = 0;
    for (const Rangee& r : a.liste.Rangees) {
        TourDeBoucle(ctx, ++tour);
        const std::int32_t p = r.valeur;
        if (p <= 0) continue;
        const Perso& q = PersoLu(ctx.base, p);
        // Le numéro de cette visite : un implexe a une rangée par numéro.
        const std::string s = NumeroDeRangee(r.texte);
        f.Ligne();
        if (GenerationSosa(s) >= g) {
            ++g;
            f.Ligne(std::to_string(g) + "e G\xC9N\xC9RATION :");
            f.Ligne();
        }
        f.Ligne(q.Suite().NumSosa[0] + q.Suite().AutresSosa[0]);
        f.Texte("P" + MoitieSosa(s) + "<");
        if (q.NumParents > 0) {
            const Fami& parents = FamiLue(ctx.base, q.NumParents);
            f.Texte(" <" + PersoLu(ctx.base, parents.Mari).Suite().NumSosa[0] + o.SymbMari +
                    PersoLu(ctx.base, parents.Femme).Suite().NumSosa[0]);
        }
        f.Ligne();
        EcrirePersonne(ctx, p, f, forme);
        const bool pair = (s.back() - '0') % 2 == 0;
        if (pair && q.Unions[0] > 0) {
            const Acte& m = FamiLue(ctx.base, q.Unions[0]).Mariage;
            if (!m.Date.empty() || !m.Lieu.empty()) {
                std::string t = "\r\n" + o.SymbMari;
                const std::string d =
                    DateConfidentielle(m.Date.vue(), 0, false, ctx.exports, ctx.aujourdhui.annee);
                if (!d.empty()) t += " " + d;
                if (!m.Lieu.empty()) t += " " + m.Lieu;
                f.Texte(t + " avec :");
            }
        }
    }
}

void TableauSansDetail(const ContexteExport& ctx, const Ascendance& a, TexteRapport& f) {
    f.Ligne(
        "n\xB0 Sosa\timplexes\tr\xE9"
        "f\tNOM\tPrenoms\tMetier\tann\xE9"
        "e de naissance\tann\xE9"
        "e de d\xE9"
        "c\xE8s");
    const int annee = ctx.aujourdhui.annee;
    std::uint32_t tour = 0;
    for (const Rangee& r : a.liste.Rangees) {
        TourDeBoucle(ctx, ++tour);
        if (r.valeur <= 0) continue;
        const Perso& q = PersoLu(ctx.base, r.valeur);
        const bool ds = ForcerDS(ctx, r.valeur);
        f.Ligne(q.Suite().NumSosa[0] + "\t" + q.Suite().AutresSosa[0] + "\t" + q.Suite().Ref + "\t" + q.Nom +
                "\t" + q.Prenoms + "\t" + q.Metier + "\t" +
                DateConfidentielle(q.Naissance.Date.vue(), 0, ds, ctx.exports, annee) + "\t" +
                DateConfidentielle(q.Deces.Date.vue(), 1, ds, ctx.exports, annee));
    }
}

void Implexes(const Ascendance& a, TexteRapport& f) {
    if (a.liste.Rangees.size() <= 1) return;
    std::unordered_set<std::int32_t> reels;
    for (std::size_t i = 1; i < a.liste.Rangees.size(); ++i) reels.insert(a.liste.Rangees[i].valeur);
    const auto r = static_cast<std::int32_t>(reels.size());
    f.Ligne();
    f.Ligne("Informations sur les implexes :");
    f.Ligne(std::to_string(r) +
            " anc\xEAtres r\xE9"
            "els.");
    f.Ligne("pourcentage d'implexe : " + PourcentageImplexe(a.NbAncetres, r));
}

}  // namespace

namespace {

std::string NomPrenoms(const Perso& p) {
    return std::string(SansBlancs(std::string(p.Prenoms.vue()) + " " + std::string(p.Nom.vue())));
}

std::string LigneActe(std::string_view symbole, const Acte& a) {
    if (a.Date.empty() && a.Lieu.empty()) return {};
    return std::string(
        SansBlancs(std::string(symbole) + " " + std::string(a.Date.vue()) + " " + std::string(a.Lieu.vue())));
}

// Nom, prénoms et les quatre lignes d'un conjoint : Sosa, naissance, décès, métier.
void Conjoint(const ContexteExport& ctx, std::int32_t n, std::string& nom, std::string& prenom,
              std::array<std::string, 4>& lignes) {
    const Perso& p = PersoLu(ctx.base, n);
    nom = p.Nom;
    prenom = p.Prenoms;
    lignes = {std::string(p.Suite().NumSosa[0].vue()), LigneActe(ctx.options.SymbNais, p.Naissance),
              LigneActe(ctx.options.SymbDece, p.Deces), std::string(p.Metier.vue())};
}

std::string Parents(const ContexteExport& ctx, std::int32_t n) {
    const Fami& f = FamiLue(ctx.base, PersoLu(ctx.base, n).NumParents);
    if (f.Mari <= 0 && f.Femme <= 0) return {};
    return NomPrenoms(PersoLu(ctx.base, f.Mari)) + " " + ctx.options.SymbMari + " " +
           NomPrenoms(PersoLu(ctx.base, f.Femme));
}

}  // namespace

std::string TmaoAscendance(const ContexteExport& ctx) {
    const Ascendance a = NumeroterAscendants(ctx.base, {ctx.NumPerso, 0, true, kGenerationsTMAO});
    std::vector<ActeTMAO> actes;
    std::unordered_set<std::int32_t> vues;
    std::uint32_t tour = 0;
    for (const Rangee& r : a.liste.Rangees) {
        TourDeBoucle(ctx, ++tour);
        if (r.valeur <= 0) continue;
        const std::string s = NumeroDeRangee(r.texte);
        const std::int32_t f = PersoLu(ctx.base, r.valeur).Unions[0];
        // Un couple par famille : l'homme (numéro pair) le porte, un implexe ne le répète pas.
        if (s.empty() || (s.back() - '0') % 2 != 0 || f <= 0 || !vues.insert(f).second) continue;
        const Fami& fa = FamiLue(ctx.base, f);
        ActeTMAO t;
        Conjoint(ctx, fa.Mari, t.Nom1, t.Prenom1, t.Lignes1);
        Conjoint(ctx, fa.Femme, t.Nom2, t.Prenom2, t.Lignes2);
        DateVersTMAO(fa.Mariage.Date.vue(), t);
        std::string femme = s;
        femme.back() = static_cast<char>(femme.back() + 1);
        t.LignesActe = {std::string(fa.Mariage.Lieu.vue()), "Sosa " + s + "-" + femme, Parents(ctx, fa.Mari),
                        Parents(ctx, fa.Femme)};
        actes.push_back(std::move(t));
    }
    return EcrireTMAO(actes, PiedTMAO('A'));
}

std::string TexteAscendance(const ContexteExport& ctx, int generationsMax) {
    const Ascendance a = NumeroterAscendants(ctx.base, {ctx.NumPerso, 0, true, generationsMax});
    TexteRapport f;
    const Perso& p = PersoLu(ctx.base, ctx.NumPerso);
    f.Ligne("Liste d'ascendance \xE9tablie le " + DateDuRapport(ctx));
    f.Ligne(std::to_string(a.NbAncetres) + " anc\xEAtres de " + p.Nom + " " + p.Prenoms);
    f.Ligne();
    EcrireTexteComp(ctx, f);
    if (ctx.exports.Toutes)
        Blocs(ctx, a, f);
    else
        TableauSansDetail(ctx, a, f);
    Implexes(a, f);
    return f.Fermer();
}

}  // namespace arbolix
