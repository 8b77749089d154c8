#include "reports/liste_eclair.h"

#include <algorithm>
#include <array>
#include <vector>

#include "card/lignes_personne.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// La lettre (0 pour A à 25 pour Z) par laquelle NomTri commence, -1 pour un autre caractère.
int Lettre(const Perso& p) {
    if (p.NomTri.empty()) return -1;
    const char c = Majuscule1252(p.NomTri[0]);
    return c >= 'A' && c <= 'Z' ? c - 'A' : -1;
}

// Une rangée : "Nom;Lieu" puis l'année sur quatre caractères, que le groupe ne compare pas.
void Ajouter(std::vector<std::string>& rangees, const Perso& p, const Acte& a) {
    if (a.Lieu.empty() || a.Annee <= 0) return;
    std::string t = p.Nom + ";" + a.Lieu;
    t += Zeros(a.Annee, 4);
    rangees.push_back(std::move(t));
}

std::string Cle(std::string_view rangee) {
    return EnMajuscules(rangee.substr(0, rangee.size() - 4));
}

void EcrireLettre(std::vector<std::string>& rangees, std::int64_t minimum, TexteRapport& f) {
    std::sort(rangees.begin(), rangees.end());
    std::size_t debut = 0;
    for (std::size_t i = 1; i < rangees.size(); ++i) {
        if (Cle(rangees[i]) == Cle(rangees[debut])) continue;
        // Le groupe [debut, i) se ferme ; le dernier de la lettre ne se ferme jamais.
        const std::string& premiere = rangees[debut];
        const std::string cle = premiere.substr(0, premiere.size() - 4);
        const std::size_t pv = cle.find(';');
        const std::string nom = cle.substr(0, pv + 1);
        const std::string lieu = cle.substr(pv + 1);
        const auto annee = [](const std::string& r) { return std::to_string(ValeurNumerique(Droite(r, 4))); };
        const auto n = static_cast<std::int64_t>(i - debut);
        if (n == 1 && minimum == 1)
            f.Ligne(nom + ";" + annee(premiere) + ";" + annee(premiere) + ";1;" + lieu);
        else if (n > minimum)
            f.Ligne(nom + ";" + annee(premiere) + ";" + annee(rangees[i - 1]) + ";" + std::to_string(n - 1) +
                    ";" + lieu);
        debut = i;
    }
}

}  // namespace

std::string TexteListeEclair(const ContexteExport& ctx, std::int64_t minimum) {
    const Base& base = ctx.base;
    // Un seul passage sur la base range chaque acte sous sa lettre ; l'ordre des lettres reste.
    std::array<std::vector<std::string>, 26> lettres;
    std::uint32_t tour = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        TourDeBoucle(ctx, ++tour);
        const Perso& p = base.Persos[n];
        const int l = Lettre(p);
        if (p.Sel == 0 || l < 0) return;
        Ajouter(lettres[l], p, p.Naissance);
        Ajouter(lettres[l], p, p.Deces);
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
        TourDeBoucle(ctx, ++tour);
        const Fami& fam = base.Familles[n];
        if (fam.Sel == 0 || fam.Mariage.Lieu.empty() || fam.Mariage.Annee <= 0) return;
        for (const std::int32_t e : {fam.Mari, fam.Femme}) {
            if (e <= 0) continue;
            const Perso& p = PersoLu(base, e);
            if (const int l = Lettre(p); l >= 0) Ajouter(lettres[l], p, fam.Mariage);
        }
    });
    TexteRapport f;
    f.Ligne(
        "Nom;Lieu;d\xE9"
        "but;fin;nombre");
    for (auto& rangees : lettres) {
        TourDeBoucle(ctx, ++tour);
        EcrireLettre(rangees, minimum, f);
    }
    return f.Fermer();
}

}  // namespace arbolix
