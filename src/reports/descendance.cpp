#include "reports/descendance.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "card/lignes_personne.h"
#include "lists/selection_active.h"
#include "reports/blocs_personne.h"
#include "reports/livre.h"
#include "reports/rtf.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

bool EstPersonne(const Base& b, std::int32_t p) {
    return p > 0 && p <= b.Persos.Haut();
}

bool EstFamille(const Base& b, std::int32_t f) {
    return f > 0 && f <= b.Familles.Haut();
}

int NombreEnfants(const Fami& f) {
    int n = 0;
    while (n < kMaxEnfants && f.Enfants(n + 1) > 0) ++n;
    return n;
}

// Un descendant en cours : où en sont ses unions et ses enfants.
struct Cadre {
    std::int32_t p;
    int generation;
    int i = 1;               // union
    int j = 0;               // enfant de l'union, 0 : l'union n'est pas encore ouverte
    int k = 0;               // enfants des unions d'avant
    std::size_t retour = 0;  // la longueur du numéro du parent, rendue à la sortie
};

class Parcours {
public:
    Parcours(Base& base, const Options& options, const ReglagesDescendance& r)
        : base_(base), options_(options), r_(r) {
        const auto taille = static_cast<std::size_t>(std::max(base.Persos.Haut(), 0)) + 1;
        surChemin_.assign(taille, 0);
        passages_.assign(taille, 0);
    }

    Descendance Lancer(std::int32_t racine) {
        Entrer(racine, 0, 0);
        while (!pile_.empty()) Avancer();
        std::stable_sort(resultat_.rangees.begin(), resultat_.rangees.end(),
                         [](const RangeeDescendance& a, const RangeeDescendance& b) {
                             return a.generation < b.generation;
                         });
        return std::move(resultat_);
    }

private:
    const Perso& Lu(std::int32_t p) const { return std::as_const(base_.Persos)[p]; }

    void Entrer(std::int32_t p, int generation, std::size_t retour) {
        if (r_.marquer) Marquer(base_, p);
        ++resultat_.compte;
        surChemin_[p] = 1;
        ++passages_[p];
        if (r_.visiteur) r_.visiteur->Personne(p, numero_, generation);
        pile_.push_back({p, generation, 1, 0, 0, retour});
    }

    void Sortir() {
        surChemin_[pile_.back().p] = 0;
        numero_.resize(pile_.back().retour);
        pile_.pop_back();
    }

    // Un pas : ouvrir l'union suivante, ou passer à l'enfant suivant, ou finir le descendant.
    void Avancer() {
        Cadre& c = pile_.back();
        const Perso& pe = Lu(c.p);
        if (c.i > kMaxUnions || pe.Unions[c.i] < 1) return Sortir();
        const std::int32_t fam = pe.Unions[c.i];
        if (!EstFamille(base_, fam)) {
            ++c.i;
            return;
        }
        const Fami& f = std::as_const(base_.Familles)[fam];
        if (c.j == 0) OuvrirUnion(c, pe, fam, f);
        ++c.j;
        if (c.j > kMaxEnfants || f.Enfants(c.j) < 1) {
            c.k += NombreEnfants(f);
            c.j = 0;
            ++c.i;
            return;
        }
        Enfant(c, pe, f.Enfants(c.j));
    }

    void OuvrirUnion(const Cadre& c, const Perso& pe, std::int32_t fam, const Fami& f) {
        const std::int32_t conjoint = pe.Sexe == 'F' ? f.Mari : f.Femme;
        RangeeDescendance r{c.generation, numero_, c.p, c.i, EstPersonne(base_, conjoint) ? conjoint : 0,
                            fam};
        if (r_.visiteur) r_.visiteur->Union(r);
        base_.Persos[c.p].Unions[0] = fam;
        if (r.conjoint > 0) {
            base_.Persos[r.conjoint].Unions[0] = fam;
            if (r_.marquer) base_.Persos[r.conjoint].Sel = kVrai;
        }
        if (r_.ajouter) resultat_.rangees.push_back(std::move(r));
    }

    void Enfant(const Cadre& c, const Perso& pe, std::int32_t e) {
        if (!EstPersonne(base_, e)) return;
        const std::size_t avant = numero_.size();
        const int rang = c.j + c.k;
        numero_ += '.';
        if (rang < 10) numero_ += '0';
        numero_ += std::to_string(rang);
        if (pe.Unions[2] > 0) numero_ += static_cast<char>('a' + c.i - 1);
        base_.Persos[e].SuiteModif().NumSosa[2] = numero_;
        const Perso& enfant = Lu(e);
        const bool suivi = (enfant.CodeNom == pe.CodeNom && enfant.Unions[1] > 0) || options_.SelTousDesc;
        const bool permis = !r_.etLogique || enfant.SelAvant != 0;
        // Une boucle dans les liens ne se suit pas ; un troisième chemin n'apprend plus rien.
        if (suivi && permis && !surChemin_[e] && passages_[e] < 2) {
            Entrer(e, c.generation + 1, avant);
            return;
        }
        numero_.resize(avant);
    }

    Base& base_;
    const Options& options_;
    const ReglagesDescendance& r_;
    Descendance resultat_;
    std::vector<Cadre> pile_;
    std::string numero_;
    std::vector<std::uint8_t> surChemin_, passages_;
};

}  // namespace

Descendance ParcourirDescendance(Base& base, const Options& options, std::int32_t racine,
                                 const ReglagesDescendance& reglages) {
    if (!EstPersonne(base, racine) || std::as_const(base.Persos)[racine].Prenoms.empty()) return {};
    // Les numéros d'un parcours d'avant ne doivent pas se mêler à ceux-ci.
    base.Persos.PourChaqueEcrit(1, base.Persos.Haut(), [&](std::int32_t n) {
        if (!std::as_const(base.Persos)[n].Suite().NumSosa[2].empty())
            base.Persos[n].SuiteModif().NumSosa[2].clear();
    });
    Descendance d = Parcours(base, options, reglages).Lancer(racine);
    --d.compte;
    return d;
}

std::string NettoyerNumero(std::string numero) {
    RemplacerTout(numero, ".0", ".");
    RemplacerTout(numero, " 0", " ");
    RemplacerTout(numero, " .", " ");
    if (!numero.empty() && numero[0] == '.') numero.erase(0, 1);
    return numero;
}

void NumerosDoubles(Base& base, const std::vector<RangeeDescendance>& rangees) {
    for (auto r = rangees.rbegin(); r != rangees.rend(); ++r) {
        const std::string_view actuel = std::as_const(base.Persos)[r->personne].Suite().NumSosa[2].vue();
        if (actuel.find('=') != std::string_view::npos || actuel == r->numero) continue;
        base.Persos[r->personne].SuiteModif().NumSosa[2] = std::string(actuel) + " = " + r->numero;
    }
}

}  // namespace arbolix

namespace arbolix {

namespace {

constexpr std::string_view kCRLF = "\r\n";

// Le texte suit le parcours : chaque descendant sous son numéro, ses unions en retrait.
class ChroniqueTexte : public VisiteurDescendance {
public:
    ChroniqueTexte(const ContexteExport& ctx, TexteRapport& f) : ctx_(ctx), f_(f) {}

    void Personne(std::int32_t p, std::string_view numero, int) override {
        TourDeBoucle(ctx_, ++tour_);
        const std::string n = NettoyerNumero(std::string(numero));
        const std::string blancs = std::string(kCRLF) + std::string(n.size() + 1, ' ');
        FormePersonne forme{.sep = blancs, .avant = std::string(kCRLF) + n + " ", .fin = blancs};
        forme.avecNotes = false;
        EcrirePersonne(ctx_, p, f_, forme);
    }

    void Union(const RangeeDescendance& r) override {
        const std::string blancs = std::string(kCRLF) + std::string(NettoyerNumero(r.numero).size() + 1, ' ');
        const Fami& fa = FamiLue(ctx_.base, r.famille);
        const std::string& x = ctx_.options.SymbMari;
        EcrireActes(ctx_, fa.Contrat, x, fa.Mariage, x, f_, blancs, blancs, false, false);
        FormePersonne forme{.sep = blancs, .avant = blancs, .fin = blancs};
        forme.avecNotes = false;
        EcrirePersonne(ctx_, r.conjoint, f_, forme);
    }

private:
    const ContexteExport& ctx_;
    TexteRapport& f_;
    std::uint32_t tour_ = 0;
};

std::string Numero(const Base& base, std::int32_t p) {
    return NettoyerNumero(PersoLu(base, p).Suite().NumSosa[2].str());
}

std::string NomRtf(const Perso& q) {
    return EchapperRTF(q.Nom + " " + q.Prenoms);
}

std::string Il(const Perso& q) {
    return q.Sexe == 'F' ? "Elle" : "Il";
}

std::string E(const Perso& q) {
    return q.Sexe == 'F' ? "e" : "";
}

bool Connu(const Acte& a) {
    return !a.Date.empty() || !a.Lieu.empty();
}

class ChroniqueRtf {
public:
    ChroniqueRtf(const ContexteExport& ctx, TexteRapport& f) : ctx_(ctx), f_(f) {}

    void Ecrire(const Descendance& d) {
        OuvrirRTF(ctx_, f_, ctx_.exports.ComboColRTF[0] == "2", true, false, 283);
        f_.Ligne("\\fs20");
        L_ = ctx_.exports.Toutes ? "\\line " : "\\par \\ql ";
        NumerosDoubles(ctx_.base, d.rangees);
        int g = 0;
        std::uint32_t tour = 0;
        for (const RangeeDescendance& r : d.rangees) {
            TourDeBoucle(ctx_, ++tour);
            if (r.generation > g) {
                ++g;
                f_.Texte("\\par \\sa240{\\fs28 " + std::to_string(g) + "{\\super e} g\\'e9n\\'e9ration}");
            }
            if (ctx_.exports.Toutes)
                Phrases(r);
            else
                Blocs(r);
        }
        f_.Texte("\\par " + std::to_string(d.compte) + " descendants.}");
    }

private:
    // Le numéro de la personne, et celui du conjoint quand il descend lui aussi de la racine.
    std::string NumeroRangee(const RangeeDescendance& r) const {
        std::string n = Numero(ctx_.base, r.personne);
        const std::string c = Numero(ctx_.base, r.conjoint);
        if (r.conjoint > 0 && !c.empty()) n += " " + ctx_.options.SymbMari + " " + c.substr(0, c.find(' '));
        return n;
    }

    void Blocs(const RangeeDescendance& r) {
        const Perso& p = PersoLu(ctx_.base, r.personne);
        const std::string n = NumeroRangee(r);
        if (rappel_.contains(r.personne)) {
            std::string s = "\\par {\\b " + EchapperRTF(n) + "\\line " + NomRtf(p);
            if (r.conjoint > 0) s += "\\line " + NomRtf(PersoLu(ctx_.base, r.conjoint));
            f_.Texte(s + "}");
            return;
        }
        // La personne n'est décrite qu'à sa première union ; les suivantes ne montrent que le
        // conjoint et les enfants.
        const std::int32_t moi = r.rangUnion == 1 ? r.personne : 0;
        const bool femme = p.Sexe == 'F';
        FormeFamille forme;
        forme.tete = r.rangUnion == 1 && !n.empty() ? EchapperRTF(n) + " " : std::string();
        forme.deuxColonnes = ctx_.exports.ComboColRTF[0] == "2";
        forme.avecRenvois = false;
        forme.saufDecede = ctx_.exports.OptionSaufDecede;
        forme.numeroEnfant = [&](std::int32_t c) { return EchapperRTF(Numero(ctx_.base, c)); };
        EcrireFamille(ctx_, f_, r.famille, femme ? r.conjoint : moi, femme ? moi : r.conjoint, forme);
        if (n.find('=') != std::string::npos ||
            n.find(" " + ctx_.options.SymbMari + " ") != std::string::npos)
            rappel_.insert(r.personne);
    }

    // " est né le 12/03/1750 à Nancy et décédé en 1800" : ce qui est connu.
    std::string NeDecede(const Perso& q, bool avecDeces) const {
        std::string s;
        if (Connu(q.Naissance))
            s += " est n\\'e9" + E(q) + EchapperRTF(PhraseDate(ctx_, q.Naissance, true, true));
        if (avecDeces && Connu(q.Deces))
            s += " et d\\'e9c\\'e9d\\'e9" + E(q) + EchapperRTF(PhraseDate(ctx_, q.Deces, true, true));
        return s;
    }

    std::string Metier(const Perso& q, std::string_view devant) const {
        if (q.Metier.empty()) return {};
        const bool actif =
            q.Deces.Date.empty() &&
            q.Naissance.Annee > ctx_.aujourdhui.annee - ValeurNumerique(ctx_.options.AgeRetraite);
        return std::string(devant) + Il(q) + (actif ? " est " : " \\'e9tait ") + EchapperRTF(q.Metier.vue()) +
               ".";
    }

    std::string Notes(const Perso& q) const {
        if (q.Notes.empty()) return {};
        std::string t = EchapperRTF(q.Notes.vue());
        RemplacerTout(t, "\r\n", " ");
        return L_ + t;
    }

    void Phrases(const RangeeDescendance& r) {
        const Base& b = ctx_.base;
        const Perso& p = PersoLu(b, r.personne);
        const Fami& fa = FamiLue(b, r.famille);
        std::string s = "\\par \\fs24 " + (r.generation > 0 ? EchapperRTF(NumeroRangee(r)) : std::string()) +
                        "{\\b  " + NomRtf(p) + "}\\fs24 " + NeDecede(p, true) + ". " + Metier(p, "") +
                        Notes(p);
        if (r.conjoint > 0) {
            const Perso& c = PersoLu(b, r.conjoint);
            s += L_ + Il(p);
            if (fa.Mariage.Date.empty())
                s += std::string(" ") + (p.Deces.Date.empty() && c.Deces.Date.empty() ? "vit" : "vivait") +
                     " avec {\\b " + NomRtf(c) + "}\\fs24 ";
            else
                s += " a \\'e9pous\\'e9 {\\b " + NomRtf(c) + "} \\fs24 " +
                     EchapperRTF(PhraseDate(ctx_, fa.Mariage, true, true));
            // Ce que l'on sait du conjoint, chaque morceau après une virgule.
            std::string ne = NeDecede(c, true);
            if (ne.starts_with(" est ")) s += ", " + ne.substr(5);
            if (c.NumParents > 0) {
                const Fami& pa = FamiLue(b, c.NumParents);
                s += std::string(", ") + (c.Sexe == 'F' ? "fille" : "fils") + " de " +
                     NomRtf(PersoLu(b, pa.Mari)) + " et " + NomRtf(PersoLu(b, pa.Femme));
            }
            s += "." + Metier(c, " ") + Notes(c);
        }
        if (!fa.Divorce.Date.empty())
            s += L_ + "Ils ont divorc\\'e9 " + EchapperRTF(PhraseDate(ctx_, fa.Divorce, true, true));
        int n = 0;
        while (n < kMaxEnfants && fa.Enfants(n + 1) > 0) ++n;
        if (n > 0) {
            const char* sujet = fa.Mari > 0 && fa.Femme > 0 ? "Ils ont" : fa.Femme <= 0 ? "Il a" : "Elle a";
            s += L_ + sujet + " eu " + std::to_string(n) + " enfant" + (n == 1 ? "" : "s") + " :";
        }
        for (int j = 1; j <= n; ++j) {
            const Perso& e = PersoLu(b, fa.Enfants(j));
            s += L_ + "\\tab " + EchapperRTF(Numero(b, fa.Enfants(j))) + "{\\b  " + NomRtf(e) + "}\\fs24 " +
                 NeDecede(e, e.Unions[1] <= 0) + ".";
        }
        f_.Texte(s + "\\sa240 ");
    }

    const ContexteExport& ctx_;
    TexteRapport& f_;
    std::string L_;
    std::unordered_set<std::int32_t> rappel_;  // personnes déjà décrites qui reviennent sous un autre numéro
};

}  // namespace

std::string TexteDescendance(const ContexteExport& ctx) {
    TexteRapport f(kFichierTexte);
    const Perso& p = PersoLu(ctx.base, ctx.NumPerso);
    f.Ligne("Liste de descendance de " + p.Nom + " " + p.Prenoms + " \xE9tablie le " + DateDuRapport(ctx));
    f.Ligne();
    EcrireTexteComp(ctx, f);
    for (const char* l : {"n\xB0 d'Abboville. NOM, Prenoms, profession", "naissance : date, lieu",
                          "d\xE9"
                          "c\xE8s : date, lieu",
                          "mariage : date, lieu"})
        f.Ligne(l);
    f.Ligne();
    ChroniqueTexte visiteur(ctx, f);
    const Descendance d =
        ParcourirDescendance(ctx.base, ctx.options, ctx.NumPerso, {.ajouter = false, .visiteur = &visiteur});
    f.Texte("\r\n\r\n" + std::to_string(d.compte) + " descendants.");
    return f.Fermer();
}

std::string RtfDescendance(const ContexteExport& ctx) {
    TexteRapport f(kFichierRtf);
    const Descendance d = ParcourirDescendance(ctx.base, ctx.options, ctx.NumPerso);
    ChroniqueRtf(ctx, f).Ecrire(d);
    return f.Fermer();
}

}  // namespace arbolix
