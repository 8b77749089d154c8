#include "store/liens.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "store/chaines.h"

namespace arbolix {

namespace {

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

}  // namespace arbolix
