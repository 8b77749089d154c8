#include "reports/index.h"

#include <algorithm>
#include <array>
#include <utility>

#include "card/lignes_personne.h"
#include "reports/rtf.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view S = "\\line ";

// Le poids d'un caractère : 0 pour les lettres simples, le rang de l'accent pour les majuscules
// accentuées, 1 pour le reste.
char Poids(unsigned char c) {
    struct Plage {
        unsigned char de, a;
        int moins;  // poids = code - moins ; -1 : le poids fixe qui suit
        char fixe;
    };
    static constexpr std::array<Plage, 9> kTable{{
        {'A', 'Z', -1, '0'},
        {'a', 'z', -1, '0'},
        {192, 198, 191, 0},
        {200, 203, 199, 0},
        {204, 207, 203, 0},
        {210, 214, 208, 0},
        {216, 216, -1, '8'},
        {140, 140, -1, '6'},
        {217, 220, 216, 0},
    }};
    if (c == '\'' || c == '`' || c == '-' || c == '?') return '0';
    for (const Plage& p : kTable) {
        if (c >= p.de && c <= p.a) return p.moins < 0 ? p.fixe : static_cast<char>('0' + c - p.moins);
    }
    return '1';
}

std::string Section(std::string_view titre, std::string_view colonnes) {
    return "\\page\\sect\\sbknone\\linex0\\headery567\\footery567\\cols1{\\qc \\fs40\\ul\\sa240 " +
           std::string(titre) + " :\\par }\\sect\\sbknone\\linex0\\headery567\\footery567\\cols" +
           std::string(colonnes) + "\\colsx567\\endnhere \r\n";
}

void Compteur(const ContexteExport& ctx, std::string_view texte) {
    if (ctx.progression) {
        ctx.progression->Compteur(texte);
        ctx.progression->LaisserPasser();
        if (ctx.progression->Annule()) throw ExportAnnule{};
    }
}

// Notes ou sources sélectionnées, sous le numéro que la légende du livre leur a donné.
void NotesNumerotees(const Tableau<NoteExt>& table, std::int32_t reelles, std::string_view titre,
                     std::string_view colonnes, TexteRapport& f) {
    if (reelles <= 0) return;
    std::string s = Section(titre, colonnes);
    for (std::int32_t i = 1; i <= table.Haut(); ++i) {
        const NoteExt& n = table[i];
        if (n.Sel == 0 || n.NumLivre <= 0) continue;
        std::string t = EchapperRTF(n.Texte.vue());
        RemplacerTout(t, "\r\n", S);
        s += std::to_string(n.NumLivre) + ". " + EchapperRTF(n.Titre.vue()) + std::string(S) + t +
             "\\par \\sa240 ";
    }
    f.Texte(s);
}

bool FamilleDuLivre(const Base& b, std::int32_t f) {
    return f > 0 && f <= b.Familles.Haut() && b.Familles[f].Sel != 0 && b.Familles[f].NumLivre > 0;
}

void Patronymes(const ContexteExport& ctx, const NumerotationLivre& n, TexteRapport& f) {
    const Base& b = ctx.base;
    const bool court = ctx.exports.OptionIndexCourt;
    if (court)
        f.Texte(
            "Cet index ne pr\\'e9sente que les noms des \\'e9pouses dont les parents ne figurent pas dans la "
            "reconstitution des familles.\\par ");
    // Un nom se range sous la lettre de son nom de tri (sans particule).
    std::array<std::vector<LigneIndex>, 27> parLettre;
    const auto ajouter = [&](std::int32_t p, std::int32_t numero) {
        const Perso& q = PersoLu(b, p);
        if (q.Nom.empty() || q.Nom.vue() == "N") return;
        const char c = q.NomTri.empty() ? ' ' : q.NomTri.vue()[0];
        parLettre[c >= 'A' && c <= 'Z' ? c - 'A' : 26].push_back({q.Nom.str(), numero});
    };
    b.Familles.PourChaqueEcrit(1, b.Familles.Haut(), [&](std::int32_t i) {
        const Fami& fa = b.Familles[i];
        if (!FamilleDuLivre(b, i)) return;
        if (fa.Mari > 0 && !court) ajouter(fa.Mari, fa.NumLivre);
        if (fa.Femme > 0 && (!court || PersoLu(b, fa.Femme).NumParents <= 0)) ajouter(fa.Femme, fa.NumLivre);
    });
    for (std::int32_t i = 1; i <= n.Total(); ++i)
        if (n.entrees[i] < 0) ajouter(-n.entrees[i], i);
    for (int l = 0; l < 27; ++l) {
        Compteur(ctx, "Index des noms " + std::string(1, l < 26 ? static_cast<char>('A' + l) : '*'));
        EcrireLignesIndex(std::move(parLettre[l]), f);
    }
}

void Localites(const ContexteExport& ctx, const NumerotationLivre& n, TexteRapport& f) {
    const Base& b = ctx.base;
    std::vector<LigneIndex> lignes;
    const auto ajouter = [&](const Acte& a, std::int32_t numero) {
        if (!a.Lieu.empty()) lignes.push_back({a.Lieu.str(), numero});
    };
    const auto personne = [&](std::int32_t p, std::int32_t numero) {
        const Perso& q = PersoLu(b, p);
        for (const Acte* a : {&q.Naissance, &q.Deces, &q.Bapteme, &q.Sepulture}) ajouter(*a, numero);
    };
    Compteur(ctx, "Index des lieux");
    b.Familles.PourChaqueEcrit(1, b.Familles.Haut(), [&](std::int32_t i) {
        if (!FamilleDuLivre(b, i)) return;
        const Fami& fa = b.Familles[i];
        for (const Acte* a : {&fa.Mariage, &fa.Contrat, &fa.Divorce}) ajouter(*a, fa.NumLivre);
        personne(fa.Mari, fa.NumLivre);
        personne(fa.Femme, fa.NumLivre);
        for (const auto& [rang, c] : fa.Enfants)
            if (rang >= 1 && c > 0) personne(c, fa.NumLivre);
    });
    for (std::int32_t i = 1; i <= n.Total(); ++i)
        if (n.entrees[i] < 0) personne(-n.entrees[i], i);
    EcrireLignesIndex(std::move(lignes), f);
}

// Chaque métier d'une personne ("laboureur, tisserand", "soldat puis aubergiste") compte à part.
std::vector<std::string> Metiers(std::string_view metier) {
    std::string t(metier);
    RemplacerTout(t, " puis ", ", ");
    std::vector<std::string> r;
    for (std::size_t debut = 0; debut <= t.size();) {
        const std::size_t fin = std::min(t.find(", ", debut), t.size());
        const std::string_view m = SansBlancs(std::string_view(t).substr(debut, fin - debut));
        if (!m.empty()) r.emplace_back(m);
        debut = fin + 2;
    }
    return r;
}

// Une personne isolée compte sous son entrée (NumLivre), les autres sous leurs familles du livre.
void Professions(const ContexteExport& ctx, TexteRapport& f) {
    const Base& b = ctx.base;
    std::vector<LigneIndex> lignes;
    Compteur(ctx, "Index des professions");
    b.Persos.PourChaqueEcrit(1, b.Persos.Haut(), [&](std::int32_t p) {
        const Perso& q = b.Persos[p];
        if (q.Sel == 0 || q.Metier.empty() || q.Prenoms.empty()) return;
        std::vector<std::int32_t> numeros;
        if (q.NumLivre > 0) numeros.push_back(q.NumLivre);
        for (int i = 1; i <= kMaxUnions && q.Unions[i] > 0; ++i)
            if (FamilleDuLivre(b, q.Unions[i])) numeros.push_back(b.Familles[q.Unions[i]].NumLivre);
        if (q.Unions[1] <= 0 && FamilleDuLivre(b, q.NumParents))
            numeros.push_back(b.Familles[q.NumParents].NumLivre);
        for (const std::string& m : Metiers(q.Metier.vue()))
            for (const std::int32_t k : numeros) lignes.push_back({m, k});
    });
    EcrireLignesIndex(std::move(lignes), f);
}

}  // namespace

std::string CleIndex(std::string_view texte) {
    std::string cle = EnMajuscules(SansAccents(texte, false));
    cle += '\x01';
    for (const char c : texte) cle += Poids(static_cast<unsigned char>(c));
    return cle;
}

void EcrireLignesIndex(std::vector<LigneIndex> lignes, TexteRapport& f) {
    if (lignes.empty()) return;
    struct Rangee {
        std::string cle;
        const LigneIndex* ligne;
    };
    std::vector<Rangee> r;
    r.reserve(lignes.size());
    for (const LigneIndex& l : lignes) r.push_back({CleIndex(l.nom), &l});
    std::sort(r.begin(), r.end(), [](const Rangee& a, const Rangee& b) {
        if (a.cle != b.cle) return a.cle < b.cle;
        return a.ligne->numero < b.ligne->numero;
    });
    // Les rangées pareilles (même nom, même numéro) n'en font qu'une.
    r.erase(std::unique(r.begin(), r.end(),
                        [](const Rangee& a, const Rangee& b) {
                            return a.cle == b.cle && a.ligne->numero == b.ligne->numero;
                        }),
            r.end());
    std::string s;
    for (std::size_t j = 0; j < r.size(); ++j) {
        const std::int32_t n = r[j].ligne->numero;
        const bool debut = j == 0 || r[j].cle != r[j - 1].cle;
        if (debut) {
            s += EchapperRTF(r[j].ligne->nom) + " : " + std::to_string(n);
        } else {
            const std::int32_t avant = r[j - 1].ligne->numero;
            const bool suite =
                j + 1 < r.size() && r[j + 1].cle == r[j].cle && r[j + 1].ligne->numero == n + 1;
            if (avant != n - 1)
                s += ", " + std::to_string(n);
            else if (!suite)
                s += "-" + std::to_string(n);
        }
        const bool fin = j + 1 == r.size() || r[j + 1].cle != r[j].cle;
        if (fin) {
            s += ".";
            s += j + 1 == r.size() ? "\\par " : S;
            s += "\r\n";
        }
    }
    f.Texte(s);
}

void EcrireFinDeLivre(const ContexteExport& ctx, const NumerotationLivre& n, TexteRapport& f) {
    const std::string& c0 = ctx.exports.ComboColRTF[0];
    const std::string& c1 = ctx.exports.ComboColRTF[1];
    NotesNumerotees(ctx.base.Notes, ctx.base.NbNotesReelles, "Notes", c0, f);
    NotesNumerotees(ctx.base.Sources, ctx.base.NbSourcesReelles, "Sources", c0, f);
    f.Texte(Section("Index des patronymes", c1));
    Patronymes(ctx, n, f);
    f.Texte(Section("Index des localit\\'e9s", c1));
    Localites(ctx, n, f);
    f.Texte(Section("Index des professions", c1));
    Professions(ctx, f);
}

}  // namespace arbolix
