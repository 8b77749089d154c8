#include "store/liens.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr Acte Perso::*kActesDePerso[kActesPerso] = {&Perso::Naissance, &Perso::Bapteme, &Perso::Deces,
                                                     &Perso::Sepulture};
constexpr Acte Fami::*kActesDeFami[kActesFami] = {&Fami::Contrat, &Fami::Mariage, &Fami::Divorce};

// Une ligne de la liste triée cachée : la clé de date puis le numéro sur six chiffres.
using Ligne = std::pair<std::string, std::int32_t>;

std::vector<std::int32_t> TrierLignes(std::vector<Ligne> lignes) {
    for (auto& [cle, n] : lignes) cle += " " + Zeros(n, 6);
    std::sort(lignes.begin(), lignes.end());
    lignes.erase(std::unique(lignes.begin(), lignes.end()), lignes.end());
    std::vector<std::int32_t> r;
    for (const auto& l : lignes) r.push_back(l.second);
    return r;
}

}  // namespace

void TrierEnfants(Base& base, std::int32_t f) {
    if (f <= 0) return;
    Fami& fa = base.Familles[f];
    std::vector<Ligne> lignes;
    for (const auto& [rang, enfant] : fa.Enfants) {
        if (rang < 1 || enfant <= 0) continue;
        const Perso& e = std::as_const(base.Persos)[enfant];
        lignes.emplace_back(e.Naissance.Date.empty() ? e.Bapteme.DateTri.str() : e.Naissance.DateTri.str(),
                            enfant);
    }
    const auto tries = TrierLignes(std::move(lignes));
    for (int i = 1; i <= kMaxEnfants; ++i)
        fa.Enfants.Fixer(i, i <= static_cast<int>(tries.size()) ? tries[static_cast<std::size_t>(i - 1)] : 0);
}

void TrierUnions(Base& base, std::int32_t p) {
    if (p <= 0) return;
    Perso& pe = base.Persos[p];
    std::vector<Ligne> lignes;
    for (int i = 1; i <= kMaxUnions; ++i) {
        const std::int32_t f = pe.Unions[static_cast<std::size_t>(i)];
        if (f <= 0) continue;
        const Fami& fa = std::as_const(base.Familles)[f];
        const std::string cle = fa.Mariage.Annee != 0           ? fa.Mariage.DateTri.str()
                                : !pe.Naissance.DateTri.empty() ? pe.Naissance.DateTri.str()
                                                                : fa.Contrat.DateTri.str();
        lignes.emplace_back(cle, f);
    }
    const auto tries = TrierLignes(std::move(lignes));
    for (int i = 1; i <= kMaxUnions; ++i)
        pe.Unions[static_cast<std::size_t>(i)] =
            i <= static_cast<int>(tries.size()) ? tries[static_cast<std::size_t>(i - 1)] : 0;
}

void SupprimerUnion(Base& base, std::int32_t f, std::int32_t p, Dialogue* dialogue, double maintenant) {
    if (f <= 0) return;
    Fami& fa = base.Familles[f];
    if (fa.Mari == p) {
        fa.Mari = 0;
        fa.DateModif = maintenant;
    }
    if (fa.Femme == p) {
        fa.Femme = 0;
        fa.DateModif = maintenant;
    }
    if (p > 0) {
        Perso& pe = base.Persos[p];
        for (int i = 1; i <= kMaxUnions; ++i)
            if (pe.Unions[static_cast<std::size_t>(i)] == f) pe.Unions[static_cast<std::size_t>(i)] = 0;
        TrierUnions(base, p);
    }
    if (fa.Mari != 0 || fa.Femme != 0) return;
    if (!fa.Enfants.empty()) {
        std::string texte = "Attention ! La famille n\xB0" + std::to_string(f) +
                            " va \xEAtre supprim\xE9"
                            "e.\r\nVeuillez noter les num\xE9ros des enfants qui vont perdre "
                            "le lien vers leurs parents :";
        for (const auto& [rang, enfant] : fa.Enfants) {
            if (rang < 1 || enfant <= 0) continue;
            Perso& e = base.Persos[enfant];
            texte += "\r\n" + std::to_string(enfant) + " " + e.Nom + " " + e.Prenoms;
            if (e.NumParents == f) e.NumParents = 0;
        }
        if (dialogue) dialogue->Message("Supprimer une famille", texte, Icone::Attention);
    }
    // La famille n'est plus citée par les notes, sources et objets médias.
    const auto detacher = [f](auto& liens) {
        for (int i = 1; i <= kMaxLiens; ++i)
            if (liens(i) == f) liens.Fixer(i, 0);
    };
    base.Notes.PourChaqueEcrit(1, base.NbNotes, [&](std::int32_t n) {
        if (!std::as_const(base.Notes)[n].LiensFamis.empty()) detacher(base.Notes[n].LiensFamis);
    });
    base.Sources.PourChaqueEcrit(1, base.NbSources, [&](std::int32_t n) {
        if (!std::as_const(base.Sources)[n].LiensFamis.empty()) detacher(base.Sources[n].LiensFamis);
    });
    base.Medias.PourChaqueEcrit(1, base.NbMedias, [&](std::int32_t n) {
        if (!std::as_const(base.Medias)[n].LiensFamis.empty()) detacher(base.Medias[n].LiensFamis);
    });
    fa = Fami{};
    --base.NbFamisReels;
    if (f == base.NbFamis) --base.NbFamis;
    base.FichierModifie = kVrai;
}

bool EstLien(std::string_view v, char genre) {
    return NumeroDuLien(v, genre) > 0;
}

std::int32_t NumeroDuLien(std::string_view v, char genre) {
    if (v.size() < 4) return 0;  // la plupart des champs, vides ou courts : pas de blancs à ôter
    v = SansBlancs(v);
    if (v.size() < 4 || v[0] != '@' || v[1] != genre || v.back() != '@') return 0;
    const std::string_view chiffres = v.substr(2, v.size() - 3);
    if (!EstNumerique(chiffres) || chiffres.size() > 9) return 0;
    return static_cast<std::int32_t>(ValeurNumerique(chiffres));
}

bool DansTableau(std::int32_t n, std::int32_t haut) {
    return n >= 1 && n <= haut;
}

std::int32_t Haut(const Base& base, char genre) {
    return genre == 'M' ? base.Medias.Haut() : NotesDuGenre(base, genre).Haut();
}

namespace {

Retours& RetoursDe(Base& base, char genre, std::int32_t n, bool famille) {
    if (genre == 'M') return famille ? base.Medias[n].LiensFamis : base.Medias[n].LiensPersos;
    NoteExt& e = NotesDuGenre(base, genre)[n];
    return famille ? e.LiensFamis : e.LiensPersos;
}

int Compter(const Retours& r, std::int32_t qui) {
    int n = 0;
    for (const auto& c : r) n += c.second == qui;
    return n;
}

// Combien de champs de l'acte citent la note ou la source n.
int LiensActe(const Acte& a, char genre, std::int32_t n) {
    return genre == 'N' ? NumeroDuLien(a.Notes, 'N') == n : NumeroDuLien(a.Source, 'S') == n;
}

// Nombre de places que qui doit tenir chez la fiche n : une par champ cité pour une
// note ou une source, une seule pour un objet média, quel que soit le nombre de liens.
int Occurrences(const Base& base, char genre, std::int32_t n, bool famille, std::int32_t qui) {
    int total = 0;
    if (famille) {
        if (!DansTableau(qui, base.Familles.Haut())) return 0;
        const Fami& f = base.Familles[qui];
        for (auto acte : kActesDeFami)
            total += genre == 'M' ? Contient((f.*acte).Liens().Medias, n) : LiensActe(f.*acte, genre, n);
    } else {
        if (!DansTableau(qui, base.Persos.Haut())) return 0;
        const Perso& p = base.Persos[qui];
        if (genre == 'N') total += NumeroDuLien(p.Notes, 'N') == n;
        if (genre == 'M') total += Contient(p.Suite().ObjetsMedia, n);
        for (auto acte : kActesDePerso)
            total += genre == 'M' ? Contient((p.*acte).Liens().Medias, n) : LiensActe(p.*acte, genre, n);
    }
    return genre == 'M' ? std::min(total, 1) : total;
}

// Donne à qui les places qui lui manquent, tant qu'il en reste.
void Combler(Retours& r, int manque, std::int32_t qui) {
    for (; manque > 0; --manque)
        if (!PlacerPremierLibre(r, qui)) return;
}

// Une place vient de se libérer chez une fiche qui était pleine : un lien resté
// sans retour la reprend, dans l'ordre des numéros.
void Completer(Base& base, char genre, std::int32_t n) {
    const Base& lu = base;
    for (bool famille : {false, true}) {
        if (genre == 'M' && famille) return;
        Retours& r = RetoursDe(base, genre, n, famille);
        const std::int32_t fin =
            famille ? std::min(lu.NbFamis, lu.Familles.Haut()) : std::min(lu.NbPersos, lu.Persos.Haut());
        for (std::int32_t q = 1; q <= fin && r.PremierLibre() <= kMaxLiens; ++q)
            Combler(r, Occurrences(lu, genre, n, famille, q) - Compter(r, q), q);
    }
}

template <typename F>
void PourChaqueFiche(Tableau<NoteExt>& t, std::int32_t fin, F&& f) {
    t.PourChaqueEcrit(1, fin, [&](std::int32_t i) { f(t[i]); });
}

// Retours posés par note et par source depuis que leurs listes ont été vidées. Une source citée
// des milliers de fois est vite pleine : ce compte serré en mémoire le dit sans relire sa fiche
// à chaque citation. Il ne couvre que les fiches comptées ; un lien plus haut va par sa fiche.
struct Poses {
    explicit Poses(const Base& base)
        : notes(Taille(base.NbNotes, base.Notes)), sources(Taille(base.NbSources, base.Sources)) {}
    static std::size_t Taille(std::int32_t nombre, const Tableau<NoteExt>& t) {
        return static_cast<std::size_t>(std::clamp(nombre, 0, std::max(t.Haut(), 0))) + 1;
    }
    std::vector<std::uint8_t> notes, sources;
};

void LierChamp(Base& base, std::string_view texte, char genre, bool famille, std::int32_t qui, Poses& poses) {
    const std::int32_t g = NumeroDuLien(texte, genre);
    if (!DansTableau(g, Haut(base, genre))) return;
    std::vector<std::uint8_t>& compte = genre == 'S' ? poses.sources : poses.notes;
    const auto i = static_cast<std::size_t>(g);
    if (i >= compte.size()) {
        PlacerPremierLibre(RetoursDe(base, genre, g, famille), qui);
    } else if (compte[i] < kMaxLiens && PlacerPremierLibre(RetoursDe(base, genre, g, famille), qui)) {
        ++compte[i];
    }
}

void LierMediasActe(Base& base, const Acte& a, std::int32_t qui) {
    for (const auto& [i, m] : a.Liens().Medias) {
        if (!DansTableau(m, base.Medias.Haut())) continue;
        Retours& r = base.Medias[m].LiensPersos;
        if (!Contient(r, qui)) PlacerPremierLibre(r, qui);
    }
}

void ReconstruirePersonne(Base& base, std::int32_t p, Poses& poses) {
    const Perso& pe = std::as_const(base.Persos)[p];
    LierChamp(base, pe.Notes, 'N', false, p, poses);
    for (auto acte : kActesDePerso) {
        LierChamp(base, (pe.*acte).Notes, 'N', false, p, poses);
        LierChamp(base, (pe.*acte).Source, 'S', false, p, poses);
    }
    for (const auto& [i, m] : pe.Suite().ObjetsMedia) {
        if (!DansTableau(m, base.Medias.Haut())) continue;
        Retours& r = base.Medias[m].LiensPersos;
        if (!Contient(r, p)) PlacerPremierLibre(r, p);
    }
    for (auto acte : kActesDePerso) LierMediasActe(base, pe.*acte, p);
}

}  // namespace

Acte* ActeDe(Perso& p, int n) {
    return n >= 1 && n <= kActesPerso ? &(p.*kActesDePerso[n - 1]) : nullptr;
}
Acte* ActeDe(Fami& f, int n) {
    return n >= 1 && n <= kActesFami ? &(f.*kActesDeFami[n - 1]) : nullptr;
}
const Acte* ActeDe(const Perso& p, int n) {
    return n >= 1 && n <= kActesPerso ? &(p.*kActesDePerso[n - 1]) : nullptr;
}
const Acte* ActeDe(const Fami& f, int n) {
    return n >= 1 && n <= kActesFami ? &(f.*kActesDeFami[n - 1]) : nullptr;
}

Tableau<NoteExt>& NotesDuGenre(Base& base, char genre) {
    return genre == 'S' ? base.Sources : base.Notes;
}
const Tableau<NoteExt>& NotesDuGenre(const Base& base, char genre) {
    return genre == 'S' ? base.Sources : base.Notes;
}

void AccorderRetour(Base& base, char genre, std::int32_t numero, bool famille, std::int32_t qui) {
    if (!DansTableau(numero, Haut(base, genre)) || qui <= 0) return;
    Retours& r = RetoursDe(base, genre, numero, famille);
    const bool etaitPleine = r.PremierLibre() > kMaxLiens;
    const int voulu = Occurrences(base, genre, numero, famille, qui);
    int tenu = Compter(r, qui);
    // Les places en trop partent par la fin : les premiers liens gardent leur rang.
    for (int i = kMaxLiens; i >= 1 && tenu > voulu; --i) {
        if (r(i) != qui) continue;
        r.Fixer(i, 0);
        --tenu;
    }
    Combler(r, voulu - tenu, qui);
    if (etaitPleine && r.PremierLibre() <= kMaxLiens) Completer(base, genre, numero);
}

void ReconstruireLiens(Base& base, Progression* progression) {
    const auto pompe = [progression](std::int32_t n) {
        if (progression && n % 10000 == 0) progression->LaisserPasser();
    };
    const auto vider = [](NoteExt& e) {
        e.LiensPersos.clear();
        e.LiensFamis.clear();
    };
    PourChaqueFiche(base.Notes, base.Notes.Haut(), vider);
    PourChaqueFiche(base.Sources, base.Sources.Haut(), vider);
    base.Medias.PourChaqueEcrit(1, base.Medias.Haut(),
                                [&](std::int32_t m) { base.Medias[m].LiensPersos.clear(); });
    Poses personnes(base);
    // Seules les pages écrites : un numéro isolé très haut ne fait pas parcourir des millions de fiches.
    base.Persos.PourChaqueEcrit(1, std::min(base.NbPersos, base.Persos.Haut()), [&](std::int32_t p) {
        pompe(p);
        if (PersonneExiste(base, p)) ReconstruirePersonne(base, p, personnes);
    });
    Poses familles(base);  // les familles ont leurs propres listes de retours
    base.Familles.PourChaqueEcrit(1, std::min(base.NbFamis, base.Familles.Haut()), [&](std::int32_t f) {
        pompe(f);
        const Fami& fa = std::as_const(base.Familles)[f];
        for (auto acte : kActesDeFami) {
            LierChamp(base, (fa.*acte).Notes, 'N', true, f, familles);
            LierChamp(base, (fa.*acte).Source, 'S', true, f, familles);
        }
    });
}

}  // namespace arbolix
