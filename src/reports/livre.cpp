#include "reports/livre.h"

#include <algorithm>
#include <string>
#include <unordered_set>
#include <utility>

#include "card/lignes_personne.h"
#include "lists/recherche_actes.h"
#include "reports/blocs_personne.h"
#include "reports/date_confidentielle.h"
#include "reports/index.h"
#include "reports/rtf.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

bool EstPersonne(const Base& b, std::int32_t p) {
    return p > 0 && p <= b.Persos.Haut() && !std::as_const(b.Persos)[p].Prenoms.empty();
}

bool FamilleSel(const Base& b, std::int32_t f) {
    return f > 0 && f <= b.Familles.Haut() && std::as_const(b.Familles)[f].Sel != 0;
}

// La lettre d'un nom pour la numérotation : A à Z, ou 26 pour tout le reste.
int Lettre(const Perso& p) {
    const char c = p.NomTri.empty() ? ' ' : p.NomTri.vue()[0];
    return c >= 'A' && c <= 'Z' ? c - 'A' : 26;
}

struct RangeeLivre {
    std::string cle;
    std::int32_t numero;  // > 0 famille, < 0 personne
    int lettre;
};

class Numerotation {
public:
    Numerotation(Base& base, const Options& options, const ReglagesLivre& r)
        : base_(base), options_(options), r_(r) {}

    std::vector<RangeeLivre> Rangees(bool parLettre) {
        const bool seulement = r_.ListeTri[0] != kTriNumero && (r_.selCochee == 0 || r_.selCochee == 4);
        const Base& b = base_;
        b.Familles.PourChaqueEcrit(1, b.Familles.Haut(), [&](std::int32_t f) {
            const Fami& fa = b.Familles[f];
            if (fa.Sel == 0) return;
            const bool a = EstPersonne(b, fa.Mari) && b.Persos[fa.Mari].Sel != 0;
            const bool c = EstPersonne(b, fa.Femme) && b.Persos[fa.Femme].Sel != 0;
            if ((a && c) || (seulement && (a || c))) AjouterFamille(f);
        });
        if (r_.avecIsoles)
            b.Persos.PourChaqueEcrit(1, b.Persos.Haut(), [&](std::int32_t p) {
                if (Isole(p)) AjouterPersonne(p);
            });
        if (!parLettre && EstPersonne(b, b.NumCourant)) AjouterFiche(b.NumCourant);
        std::stable_sort(rangees_.begin(), rangees_.end(), [&](const RangeeLivre& x, const RangeeLivre& y) {
            if (parLettre && x.lettre != y.lettre) return x.lettre < y.lettre;
            return x.cle < y.cle;
        });
        return std::move(rangees_);
    }

private:
    const Perso& Lu(std::int32_t p) const { return PersoLu(base_, p); }

    // Sélectionnée, sans famille sélectionnée ni comme enfant ni comme époux.
    bool Isole(std::int32_t p) const {
        if (!EstPersonne(base_, p)) return false;
        const Perso& pe = Lu(p);
        if (pe.Sel == 0 || FamilleSel(base_, pe.NumParents)) return false;
        for (int i = 1; i <= kMaxUnions && pe.Unions[i] > 0; ++i)
            if (FamilleSel(base_, pe.Unions[i])) return false;
        return true;
    }

    std::string NumeroDeTri(std::int32_t p) const {
        const PersoSuite& s = Lu(p).Suite();
        if (r_.selCochee == 1) {
            const std::string_view n = s.NumSosa[0].vue();
            return n.size() >= 28 || n.empty() ? std::string(n) : std::string(28 - n.size(), '0').append(n);
        }
        if (r_.selCochee == 2 || r_.selCochee == 3) return s.NumSosa[2].str();
        return {};
    }

    // La clé de l'ordre choisi, puis de quoi départager : la fin de la date, le rang de l'union.
    void Ajouter(std::int32_t p, std::string_view date, std::string_view lieu, int rang,
                 std::int32_t numero) {
        const Perso& pe = Lu(p);
        std::string cle =
            CleTriActe(r_.ListeTri, EnMajuscules(SansAccents(pe.Nom.vue(), false)),
                       EnMajuscules(SansAccents(pe.Prenoms.vue(), false)), date, lieu, NumeroDeTri(p));
        cle.append(Droite(date, 4)).append("00U").append(std::to_string(rang));
        cle.append(numero > 0 ? " F" : " P");
        std::string n = std::to_string(numero > 0 ? numero : -numero);
        cle.append(6 - std::min<std::size_t>(6, n.size()), '0').append(n);
        rangees_.push_back({std::move(cle), numero, Lettre(pe)});
    }

    void AjouterFamille(std::int32_t f) {
        const Fami& fa = std::as_const(base_.Familles)[f];
        const std::int32_t r = EstPersonne(base_, fa.Mari) ? fa.Mari : fa.Femme;
        const Perso& pr = Lu(r);
        // Toutes les unions d'un mari se rangent à la date de la première : elles se suivent.
        const std::int32_t u = r == fa.Mari && pr.Unions[1] > 0 ? pr.Unions[1] : f;
        const Fami& fu = FamiLue(base_, u);
        std::string d;
        if (fu.Mariage.Annee > 0) {
            d = fu.Mariage.DateTri.str();
        } else if (const Perso& e = Lu(fu.Enfants(1)); fu.Enfants(1) > 0 && e.Naissance.Annee > 0) {
            d = e.Naissance.DateTri.str();
        } else {
            std::string a = std::to_string(pr.Naissance.Annee + ValeurNumerique(options_.EcartGen));
            d = std::string(4 - std::min<std::size_t>(4, a.size()), '0') + a + "/00/00";
        }
        int rang = 1;
        while (rang < kMaxUnions && pr.Unions[rang] != f) ++rang;
        Ajouter(r, d, fu.Mariage.Lieu.vue(), rang, f);
        pris_.push_back(f);
    }

    void AjouterPersonne(std::int32_t p) {
        const Perso& pe = Lu(p);
        Ajouter(p, pe.Naissance.DateTri.vue(), pe.Naissance.Lieu.vue(), 0, -p);
        pris_.push_back(-p);
    }

    // La personne de la fiche : elle-même sans union, sinon chacune de ses unions.
    void AjouterFiche(std::int32_t p) {
        const auto pris = [&](std::int32_t n) {
            return std::find(pris_.begin(), pris_.end(), n) != pris_.end();
        };
        const Perso& pe = Lu(p);
        if (pe.Unions[1] < 1) {
            if (!pris(-p)) AjouterPersonne(p);
            return;
        }
        for (int i = 1; i <= kMaxUnions && pe.Unions[i] > 0; ++i)
            if (pe.Unions[i] <= base_.Familles.Haut() && !pris(pe.Unions[i])) AjouterFamille(pe.Unions[i]);
    }

    Base& base_;
    const Options& options_;
    const ReglagesLivre& r_;
    std::vector<RangeeLivre> rangees_;
    std::vector<std::int32_t> pris_;
};

}  // namespace

NumerotationLivre NumeroterLivre(Base& base, const Options& options, const ReglagesLivre& reglages,
                                 bool parLettre, bool unSeulNumero) {
    base.Familles.PourChaqueEcrit(1, base.Familles.Haut(), [&](std::int32_t f) {
        if (std::as_const(base.Familles)[f].NumLivre != 0) base.Familles[f].NumLivre = 0;
    });
    base.Persos.PourChaqueEcrit(1, base.Persos.Haut(), [&](std::int32_t p) {
        if (std::as_const(base.Persos)[p].NumLivre != 0) base.Persos[p].NumLivre = 0;
    });
    const std::vector<RangeeLivre> rangees = Numerotation(base, options, reglages).Rangees(parLettre);
    NumerotationLivre n;
    n.entrees.reserve(rangees.size() + 1);
    std::int32_t mariAvant = 0;
    for (const RangeeLivre& r : rangees) {
        if (r.numero < 0) {
            n.entrees.push_back(r.numero);
            base.Persos[-r.numero].NumLivre = n.Total();
            mariAvant = 0;
            continue;
        }
        const std::int32_t mari = std::as_const(base.Familles)[r.numero].Mari;
        if (!(unSeulNumero && mari > 0 && mari == mariAvant)) n.entrees.push_back(r.numero);
        base.Familles[r.numero].NumLivre = n.Total();
        mariAvant = mari;
    }
    return n;
}

}  // namespace arbolix

namespace arbolix {

namespace {

std::string NomPrenomsRtf(const Base& base, std::int32_t p) {
    const Perso& q = PersoLu(base, p);
    return EchapperRTF(q.Nom + " " + q.Prenoms);
}

// Les autres unions d'un époux : la précédente et la suivante, avec leur renvoi.
void AutresUnions(const ContexteExport& ctx, TexteRapport& f, std::int32_t p, std::int32_t famille,
                  const FormeFamille& forme) {
    const Perso& q = PersoLu(ctx.base, p);
    if (!forme.avecRenvois || ctx.exports.OptSimplMarisMult || q.Unions[2] <= 0) return;
    const auto renvoi = [&](int i, const char* precise) {
        const std::int32_t u = q.Unions[i];
        const Fami& fu = FamiLue(ctx.base, u);
        std::string s = forme.sep + (ctx.exports.OptionPreciserUnions ? precise : "autre union");
        if (fu.Sel != 0 && fu.NumLivre > 0) s += " [" + std::to_string(fu.NumLivre) + "]";
        f.Texte(s + " : " + NomPrenomsRtf(ctx.base, fu.Mari == p ? fu.Femme : fu.Mari));
    };
    for (int i = 2; i <= kMaxUnions; ++i)
        if (q.Unions[i] == famille && q.Unions[i - 1] > 0) renvoi(i - 1, "union pr\\'e9c\\'e9dente");
    for (int i = 1; i < kMaxUnions; ++i)
        if (q.Unions[i] == famille && q.Unions[i + 1] > 0) renvoi(i + 1, "union suivante");
}

void Epoux(const ContexteExport& ctx, TexteRapport& f, std::int32_t p, std::int32_t famille, const Fami& fa,
           const FormeFamille& forme) {
    FormePersonne fp{
        .sep = forme.sep, .avant = "{\\b ", .apres = "}", .fin = forme.deuxColonnes ? forme.sep : forme.tab};
    fp.avecParents = true;
    fp.avecRenvois = forme.avecRenvois;
    fp.saufDecede = forme.saufDecede;
    fp.dateMariage = fa.Mariage.Date.str();
    EcrirePersonne(ctx, p, f, fp);
    AutresUnions(ctx, f, p, famille, forme);
}

// Un enfant sur sa tabulation, puis ses unions : le conjoint renvoie à sa famille dans le livre, ou
// bien la date, le lieu, le conjoint et ses parents.
void Enfant(const ContexteExport& ctx, TexteRapport& f, std::int32_t c, const FormeFamille& forme) {
    const std::string debut = forme.sep + forme.tab;
    const std::string numero = forme.numeroEnfant ? forme.numeroEnfant(c) : std::string();
    FormePersonne fp{.sep = debut,
                     .avant = debut + (numero.empty() ? "" : numero + " ") + "{\\b ",
                     .apres = "}",
                     .fin = ". "};
    fp.avecNom = true;
    fp.saufDecede = forme.saufDecede;
    EcrirePersonne(ctx, c, f, fp);
    const Perso& e = PersoLu(ctx.base, c);
    for (int i = 1; i <= kMaxUnions && e.Unions[i] > 0; ++i) {
        const Fami& u = FamiLue(ctx.base, e.Unions[i]);
        const std::int32_t conjoint = u.Mari == c ? u.Femme : u.Mari;
        std::string s = debut;
        for (int k = 0; k < i; ++k) s += EchapperRTF(ctx.options.SymbMari);
        s += " ";
        if (forme.avecRenvois && u.Sel != 0 && u.NumLivre > 0) {
            s += NomPrenomsRtf(ctx.base, conjoint) + " [" + std::to_string(u.NumLivre) + "]";
        } else {
            const std::string d = DateConfidentielle(u.Mariage.Date.vue(), 0, forme.saufDecede, ctx.exports,
                                                     ctx.aujourdhui.annee);
            if (!d.empty()) s += EchapperRTF(d) + " ";
            if (!u.Mariage.Lieu.empty()) s += EchapperRTF(u.Mariage.Lieu.vue()) + " ";
            s += NomPrenomsRtf(ctx.base, conjoint);
            const Perso& q = PersoLu(ctx.base, conjoint);
            if (conjoint > 0 && q.NumParents > 0) {
                const Fami& pa = FamiLue(ctx.base, q.NumParents);
                s += q.Sexe == 'F' ? ", fille de " : ", fils de ";
                const auto parent = [&](std::int32_t n) {
                    return MarqueDecede(ctx, n, u.Mariage.Date.vue()) + NomPrenomsRtf(ctx.base, n);
                };
                if (pa.Mari > 0) s += parent(pa.Mari);
                if (pa.Mari > 0 && pa.Femme > 0) s += " et ";
                if (pa.Femme > 0) s += parent(pa.Femme);
            }
        }
        f.Texte(s);
    }
}

}  // namespace

void EcrireFamille(const ContexteExport& ctx, TexteRapport& f, std::int32_t famille, std::int32_t mari,
                   std::int32_t femme, const FormeFamille& forme) {
    const Fami& fa = FamiLue(ctx.base, famille);
    const bool epoux = mari > 0 || femme > 0;
    f.Texte(epoux ? "\\par " + forme.tete : "\\line ");
    const std::size_t debut = f.Octets().size();
    if (mari > 0 && !forme.mariRepete) Epoux(ctx, f, mari, famille, fa, forme);
    if (fa.Mari > 0 && fa.Femme > 0) {
        const std::string date = DateDuRapport(ctx);
        const bool c = forme.saufDecede && !MarqueDecede(ctx, fa.Mari, date).empty() &&
                       !MarqueDecede(ctx, fa.Femme, date).empty();
        const Options& o = ctx.options;
        // Le mari tu (unions sous un même numéro), le mariage ouvre le paragraphe.
        const std::string_view avant = f.Octets().size() > debut ? std::string_view(forme.sep) : "";
        EcrireActes(ctx, fa.Mariage, o.SymbMari, fa.Contrat, o.SymbCoMa, f, avant, forme.sep, true, c);
        EcrireActes(ctx, fa.Divorce, o.SymbDivo, Acte{}, o.SymbMari, f, forme.sep, forme.sep, true, c);
    }
    if (femme > 0) {
        if (f.Octets().size() > debut) f.Texte(forme.sep);
        Epoux(ctx, f, femme, famille, fa, forme);
    }
    for (const auto& [rang, c] : fa.Enfants)
        if (rang >= 1 && c > 0) Enfant(ctx, f, c, forme);
}

namespace {

constexpr std::string_view S = "\\line ";

constexpr const char* kTri0[] = {"nom", "pr\\'e9noms", "date", "lieu", "num\\'e9ro", "date d\\'e9cr."};
constexpr const char* kTri1[] = {"nom", "nom2", "date", "lieu", "num\\'e9ro"};

// Les notes (ou sources) sélectionnées reçoivent leur numéro de renvoi ; rend leur nombre.
std::int32_t NumeroterNotes(Tableau<NoteExt>& table) {
    std::int32_t k = 0;
    for (std::int32_t i = 1; i <= table.Haut(); ++i) {
        const NoteExt& n = std::as_const(table)[i];
        const bool garde = n.Sel != 0 && (!n.Texte.empty() || !n.Titre.empty());
        if (garde || n.NumLivre != 0) table[i].NumLivre = garde ? ++k : 0;
    }
    return k;
}

std::string Resume(const ContexteExport& ctx, bool touteLaBase) {
    const Base& b = ctx.base;
    std::int32_t personnes = 0, familles = 0;
    std::unordered_set<std::string> noms, lieux, metiers;
    const auto lieu = [&](const Acte& a) {
        if (!a.Lieu.empty()) lieux.insert(a.Lieu.str());
    };
    b.Persos.PourChaqueEcrit(1, b.Persos.Haut(), [&](std::int32_t i) {
        const Perso& p = b.Persos[i];
        if (p.Sel == 0 || p.Prenoms.empty()) return;
        ++personnes;
        if (!p.Nom.empty()) noms.insert(p.Nom.str());
        if (!p.Metier.empty()) metiers.insert(p.Metier.str());
        for (const Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture}) lieu(*a);
    });
    b.Familles.PourChaqueEcrit(1, b.Familles.Haut(), [&](std::int32_t i) {
        const Fami& f = b.Familles[i];
        if (f.Sel == 0 || (f.Mari <= 0 && f.Femme <= 0)) return;
        ++familles;
        for (const Acte* a : {&f.Mariage, &f.Contrat, &f.Divorce}) lieu(*a);
    });
    std::string s =
        std::to_string(personnes) + " personnes" + std::string(S) + std::to_string(familles) + " familles";
    if (touteLaBase)
        s += std::string(S) + std::to_string(noms.size()) + " patronymes" + std::string(S) +
             std::to_string(lieux.size()) + " lieux" + std::string(S) + std::to_string(metiers.size()) +
             " professions";
    return s;
}

std::string Legende(const ContexteExport& ctx, const ReglagesLivre& r) {
    const Options& o = ctx.options;
    std::string s = "\\par \\sa240 Familles num\\'e9rot\\'e9es et tri\\'e9es par " +
                    std::string(kTri0[std::clamp(r.ListeTri[0], 0, 5)]) + " puis par " +
                    kTri1[std::clamp(r.ListeTri[1], 0, 4)];
    const std::pair<const std::string*, const char*> symboles[] = {
        {&o.SymbNais, " = naissance"},     {&o.SymbBapt, " = bapt\\'eame"},
        {&o.SymbMari, " = mariage"},       {&o.SymbCoMa, " = contrat de mariage"},
        {&o.SymbDivo, " = divorce"},       {&o.SymbDece, " = d\\'e9c\\'e8s"},
        {&o.SymbSepu, " = s\\'e9pulture"},
    };
    for (const auto& [symbole, texte] : symboles) s += std::string(S) + EchapperRTF(*symbole) + texte;
    if (NumeroterNotes(ctx.base.Notes) > 0) s += std::string(S) + "N... = note en fin d'ouvrage";
    if (NumeroterNotes(ctx.base.Sources) > 0) s += std::string(S) + "S... = source en fin d'ouvrage";
    if (ctx.exports.OptSimplMarisMult)
        s += std::string(S) +
             "Les informations sur les \\'e9poux mari\\'e9s plusieurs fois ne sont pas r\\'e9p\\'e9t\\'e9es.";
    return s;
}

// Le numéro Sosa d'un époux et ses autres numéros, pour la tête d'une famille d'ascendants.
std::string Sosa(const Base& b, std::int32_t p) {
    const PersoSuite& s = PersoLu(b, p).Suite();
    std::string t = s.NumSosa[0].str();
    if (!s.AutresSosa[0].empty()) t += "(" + s.AutresSosa[0].str() + ")";
    return t;
}

}  // namespace

std::string RtfLivre(const ContexteExport& ctx, const ReglagesLivre& reglages) {
    Base& b = ctx.base;
    if (ctx.progression) ctx.progression->Compteur("Calcul");
    const bool toutOuActes = reglages.selCochee == 0 || reglages.selCochee == 4;
    const NumerotationLivre n = NumeroterLivre(b, ctx.options, reglages, toutOuActes, ctx.exports.OptNumUniq);
    const bool sosa = reglages.ListeTri[0] == kTriNumero && reglages.selCochee == 1;
    const bool deux = ctx.exports.ComboColRTF[0] == "2";
    TexteRapport f(kFichierRtf);
    OuvrirRTF(ctx, f, deux, true, false, deux ? 283 : 3402);
    f.Texte(Resume(ctx, reglages.selCochee == 0));
    f.Ligne(Legende(ctx, reglages));
    FormeFamille forme;
    forme.deuxColonnes = deux;
    forme.saufDecede = ctx.exports.OptionSaufDecede;
    const std::string total = std::to_string(n.Total());
    std::int32_t mariAvant = 0;
    for (std::int32_t i = 1; i <= n.Total(); ++i) {
        if (ctx.progression && (i == 1 || i % 500 == 0 || i == n.Total())) {
            ctx.progression->Compteur(std::to_string(i) + " / " + total);
            ctx.progression->LaisserPasser();
        }
        TourDeBoucle(ctx, static_cast<std::uint32_t>(i));
        const std::int32_t e = n.entrees[i];
        if (e < 0) {
            FormePersonne fp{.sep = std::string(S), .avant = "", .apres = "}", .fin = std::string(S)};
            fp.avecParents = true;
            fp.avecRenvois = true;
            fp.saufDecede = forme.saufDecede;
            f.Texte("\\par {\\b " + std::to_string(i) + ".  ");
            EcrirePersonne(ctx, -e, f, fp);
            f.Ligne("\\sa240 ");
            mariAvant = 0;
            continue;
        }
        const Fami& fa = FamiLue(b, e);
        std::string tete = std::to_string(i) + ". ";
        if (sosa)
            tete = Sosa(b, fa.Mari) + (fa.Mari > 0 && fa.Femme > 0 ? ctx.options.SymbMari : "") +
                   Sosa(b, fa.Femme) + ". ";
        forme.tete = "{\\b " + EchapperRTF(tete) + "}";
        forme.mariRepete = ctx.exports.OptSimplMarisMult && fa.Mari > 0 && fa.Mari == mariAvant;
        EcrireFamille(ctx, f, e, fa.Mari, fa.Femme, forme);
        mariAvant = fa.Mari;
        // Les autres unions du même mari, sous le même numéro.
        const Perso& m = PersoLu(b, fa.Mari);
        for (int u = 1; ctx.exports.OptNumUniq && fa.Mari > 0 && u <= kMaxUnions && m.Unions[u] > 0; ++u) {
            const std::int32_t autre = m.Unions[u];
            if (autre == e || FamiLue(b, autre).NumLivre != fa.NumLivre) continue;
            forme.tete.clear();
            forme.mariRepete = ctx.exports.OptSimplMarisMult;
            EcrireFamille(ctx, f, autre, fa.Mari, FamiLue(b, autre).Femme, forme);
        }
        f.Ligne();
    }
    f.Texte(S);
    EcrireFinDeLivre(ctx, n, f);
    f.Texte("}");
    return f.Fermer();
}

}  // namespace arbolix
