#include "lists/selection_active.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "card/lignes_personne.h"
#include "lists/listes.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Un lien vers une note ou une source externe ("@N12@", "@S3@") : le genre au deuxième
// caractère, le numéro à partir du troisième.
void MarquerLien(Base& base, std::string_view texte) {
    if (texte.size() < 4 || texte[0] != '@') return;
    const std::size_t fin = texte.find('@', 1);
    if (fin == std::string_view::npos || fin < 3 || texte[fin - 1] < '0' || texte[fin - 1] > '9') return;
    std::int32_t n = 0;
    for (std::size_t i = 2; i < texte.size() && texte[i] >= '0' && texte[i] <= '9' && n < 100000000; ++i)
        n = n * 10 + (texte[i] - '0');
    auto& t = texte[1] == 'S' ? base.Sources : base.Notes;
    if (n >= 1 && n <= t.Haut()) t[n].Sel = kVrai;
}

void MarquerLiensActe(Base& base, const Acte& a) {
    MarquerLien(base, a.Notes.vue());
    MarquerLien(base, a.Source.vue());
}

bool Personne(const Base& b, std::int32_t p) {
    return p > 0 && p <= b.Persos.Haut();
}
bool Famille(const Base& b, std::int32_t f) {
    return f > 0 && f <= b.Familles.Haut();
}

}  // namespace

void Marquer(Base& base, std::int32_t p) {
    if (!Personne(base, p)) return;
    base.Persos[p].Sel = kVrai;
    const Perso& pe = std::as_const(base.Persos)[p];
    MarquerLien(base, pe.Notes.vue());
    for (const Acte* a : {&pe.Naissance, &pe.Bapteme, &pe.Deces, &pe.Sepulture}) MarquerLiensActe(base, *a);
    for (int i = 1; i <= kMaxUnions && pe.Unions[i] > 0; ++i) {
        if (!Famille(base, pe.Unions[i])) continue;
        Fami& f = base.Familles[pe.Unions[i]];
        f.Sel = kVrai;
        for (const Acte* a : {&f.Contrat, &f.Mariage, &f.Divorce}) MarquerLiensActe(base, *a);
    }
}

void MarquerFamille(Base& base, std::int32_t f) {
    if (!Famille(base, f)) return;
    base.Familles[f].Sel = kVrai;
    const Fami& fa = std::as_const(base.Familles)[f];
    for (const Acte* a : {&fa.Contrat, &fa.Mariage, &fa.Divorce}) MarquerLiensActe(base, *a);
    for (const std::int32_t e : {fa.Mari, fa.Femme})
        if (Personne(base, e)) base.Persos[e].Sel = kVrai;
}

std::int32_t MarquerDescendants(Base& base, const Options& options, std::int32_t racine, bool etLogique,
                                std::vector<std::uint8_t>& dejaParcourus) {
    const std::size_t taille = static_cast<std::size_t>(std::max(base.Persos.Haut(), 0)) + 1;
    if (dejaParcourus.size() < taille) dejaParcourus.resize(taille, 0);
    if (!Personne(base, racine) || dejaParcourus[racine]) return 0;
    std::int32_t compte = -1;
    // Une pile plutôt que la récursion : cent générations de descendants ne pèsent rien.
    std::vector<std::int32_t> pile{racine};
    dejaParcourus[racine] = 1;
    while (!pile.empty()) {
        const std::int32_t p = pile.back();
        pile.pop_back();
        Marquer(base, p);
        ++compte;
        const Perso& pe = std::as_const(base.Persos)[p];
        std::vector<std::int32_t> enfants;
        for (int i = 1; i <= kMaxUnions && pe.Unions[i] > 0; ++i) {
            const std::int32_t fam = pe.Unions[i];
            if (!Famille(base, fam)) continue;
            const Fami& f = std::as_const(base.Familles)[fam];
            const std::int32_t conjoint = pe.Sexe == 'F' ? f.Mari : f.Femme;
            base.Persos[p].Unions[0] = fam;
            if (Personne(base, conjoint)) {
                base.Persos[conjoint].Unions[0] = fam;
                base.Persos[conjoint].Sel = kVrai;
            }
            for (const auto& [rang, c] : f.Enfants) {
                if (!Personne(base, c) || dejaParcourus[c]) continue;
                const Perso& e = std::as_const(base.Persos)[c];
                const bool parNom = e.CodeNom == pe.CodeNom && e.Unions[1] > 0;
                if (!(options.SelTousDesc || parNom) || (etLogique && e.SelAvant == 0)) continue;
                dejaParcourus[c] = 1;
                enfants.push_back(c);
            }
        }
        // Les enfants sortent de la pile dans l'ordre de naissance.
        pile.insert(pile.end(), enfants.rbegin(), enfants.rend());
    }
    return compte;
}

void CompleterSel(Base& base, const Options& options, bool dansTout) {
    if (options.SelTousDesc) {
        base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
            const Perso& p = std::as_const(base.Persos)[n];
            int unions = 0;
            for (int i = 1; i <= 6 && p.Unions[i] > 0; ++i)
                if (Famille(base, p.Unions[i]) && std::as_const(base.Familles)[p.Unions[i]].Sel != 0)
                    ++unions;
            if (unions < 2) return;
            for (int i = 1; i <= kMaxUnions && p.Unions[i] > 0; ++i)
                if (Famille(base, p.Unions[i])) base.Familles[p.Unions[i]].SelAvant = kVrai;
        });
        base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
            const Fami& f = std::as_const(base.Familles)[n];
            int enfants = 0;
            for (const auto& [rang, c] : f.Enfants)
                if (Personne(base, c) && std::as_const(base.Persos)[c].Sel != 0) ++enfants;
            if (enfants < 2) return;
            base.Familles[n].SelAvant = kVrai;
            const std::int32_t parent = f.Mari > 0 ? f.Mari : f.Femme;
            if (Personne(base, parent)) base.Persos[parent].SelAvant = kVrai;
        });
    }
    const auto unir = [dansTout](auto& fiche) {
        if (dansTout && fiche.SelAvant != 0) fiche.Sel = kVrai;
    };
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) { unir(base.Persos[n]); });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) { unir(base.Familles[n]); });
    base.Persos[0].Sel = kFaux;
    base.Familles[0].Sel = kFaux;
    for (auto* t : {&base.Notes, &base.Sources}) {
        const std::int32_t nb = t == &base.Notes ? base.NbNotes : base.NbSources;
        t->PourChaqueEcrit(1, nb, [&](std::int32_t n) {
            const NoteExt& e = std::as_const(*t)[n];
            for (const auto& [rang, p] : e.LiensPersos)
                if (Personne(base, p) && std::as_const(base.Persos)[p].Sel != 0) {
                    (*t)[n].Sel = kVrai;
                    return;
                }
        });
    }
}

void InverserSelection(Base& base) {
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        Perso& p = base.Persos[n];
        if (!p.Nom.empty()) p.Sel = p.Sel != 0 ? kFaux : kVrai;
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
        Fami& f = base.Familles[n];
        if (f.Mari > 0 || f.Femme > 0) f.Sel = f.Sel != 0 ? kFaux : kVrai;
    });
}

std::int32_t NbSelPersos(const Base& base) {
    std::int32_t n = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& p = base.Persos[i];
        if (!p.Nom.empty() && p.Sel != 0) ++n;
    });
    return n;
}

std::int32_t NbSelFamis(const Base& base) {
    std::int32_t n = 0;
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        const Fami& f = base.Familles[i];
        if (f.Sel != 0 && (f.Mari > 0 || f.Femme > 0)) ++n;
    });
    return n;
}

void GarderSelection(Base& base, bool repartir) {
    const auto garder = [repartir](auto& t, std::int32_t nb) {
        t.PourChaqueEcrit(1, nb, [&](std::int32_t n) {
            auto& fiche = t[n];
            if (repartir) fiche.Sel = kFaux;
            fiche.SelAvant = fiche.Sel;
        });
    };
    garder(base.Persos, base.NbPersos);
    garder(base.Familles, base.NbFamis);
    garder(base.Notes, base.NbNotes);
    garder(base.Sources, base.NbSources);
}

ListeCochee ListeSelPersos(const Base& base, const Options& options, std::string_view reponse) {
    // On tape le début du nom et du prénom : chaque partie est un début.
    std::string motif(SansBlancs(reponse));
    if (motif.find(' ') == std::string::npos) motif += " *";
    const std::size_t blanc = motif.find(' ');
    if (blanc == 0 || motif[blanc - 1] != '*') motif.insert(blanc, "*");
    if (motif.back() != '*') motif += '*';
    motif = Replier(motif);
    ListeCochee l;
    OuvrirListe(l.liste, "selpersos", "", "", true);
    RemplissageTrie tri;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = base.Persos[n];
        if (p.Prenoms.empty() || !Comme(Replier(p.Nom + " " + p.Prenoms), motif)) return;
        tri.Ajouter(p.Nom + p.Naissance.DateTri, n);
    });
    tri.Terminer(l.liste, [&](std::int32_t n) {
        std::string s = LigneListe(base, options, n);
        AjouterQueue(s, 'P', n);
        return s;
    });
    for (const auto& r : l.liste.Rangees) l.coches.push_back(base.Persos[r.valeur].Sel != 0);
    l.liste.Titre = TitreListeCochee(l);
    return l;
}

ListeCochee ListeSelFamis(const Base& base, const Options& options, std::string_view reponse) {
    const std::string motif = Replier(std::string(SansBlancs(reponse)) + "*");
    ListeCochee l;
    OuvrirListe(l.liste, "selfamis", "", "", true);
    RemplissageTrie tri;
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
        const Fami& f = base.Familles[n];
        if (f.Mari <= 0 && f.Femme <= 0) return;
        const Perso& h = PersoLu(base, f.Mari);
        const Perso& w = PersoLu(base, f.Femme);
        if (!Comme(Replier(h.Nom + " " + h.Prenoms + " " + w.Nom + " " + w.Prenoms), motif)) return;
        tri.Ajouter(h.Nom + f.Mariage.DateTri, n);
    });
    tri.Terminer(l.liste, [&](std::int32_t n) {
        const Fami& f = base.Familles[n];
        std::string s = LigneListe(base, options, f.Mari) + " " + options.SymbMari + f.Mariage.Date + " " +
                        LigneListe(base, options, f.Femme);
        AjouterQueue(s, 'F', n);
        return s;
    });
    for (const auto& r : l.liste.Rangees) l.coches.push_back(base.Familles[r.valeur].Sel != 0);
    l.liste.Titre = TitreListeCochee(l);
    return l;
}

std::string TitreListeCochee(const ListeCochee& l) {
    const auto n = std::count(l.coches.begin(), l.coches.end(), true);
    char compte[32];
    std::snprintf(compte, sizeof compte, "%6ld", static_cast<long>(n));
    return std::string(compte) + (l.liste.Genre == "selfamis" ? " familles" : " personnes") +
           " s\xE9lectionn\xE9" + "es";
}

void BasculerRangee(Base& base, ListeCochee& l, std::size_t rangee) {
    if (rangee >= l.coches.size()) return;
    l.coches[rangee] = !l.coches[rangee];
    const std::int32_t n = LireQueue(l.liste.Rangees[rangee].texte).numero;
    const Drapeau sel = l.coches[rangee] ? kVrai : kFaux;
    if (l.liste.Genre == "selfamis" && Famille(base, n)) base.Familles[n].Sel = sel;
    if (l.liste.Genre == "selpersos" && Personne(base, n)) base.Persos[n].Sel = sel;
    l.liste.Titre = TitreListeCochee(l);
}

std::vector<std::string> CocherLieuxAnnexes(ListeCochee& l, std::size_t rangee) {
    std::vector<std::string> annexes;
    if (rangee >= l.coches.size()) return annexes;
    const std::string& lieu = l.liste.Rangees[rangee].texte;
    for (std::size_t i = 0; i < l.coches.size(); ++i) {
        const std::string& t = l.liste.Rangees[i].texte;
        if (i == rangee || lieu.empty() || t.size() < 2 || t.find(lieu, 1) == std::string::npos) continue;
        l.coches[i] = l.coches[rangee];
        annexes.push_back(t);
    }
    return annexes;
}

std::string QuestionLieuxAnnexes(std::string_view lieu, bool cocher) {
    return std::string(cocher ? "Voulez-vous " : "Voulez-vous d\xE9") +
           "s\xE9lectionner automatiquement les lieux annexes de " + std::string(lieu) + " ? \r\n" +
           "(contenant l'intitul\xE9 du lieu qui vient d'\xEAtre s\xE9lectionn\xE9)\r\n" +
           "(Vous pouvez d\xE9" + "finir un choix par d\xE9" + "faut dans les options)";
}

}  // namespace arbolix
