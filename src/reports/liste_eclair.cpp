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

// Les rangées d'une lettre : "Nom;Lieu" puis l'année sur quatre caractères, que le groupe ne
// compare pas. Elles sont mises bout à bout dans un seul texte et triées comme des vues : un
// million de personnes font des millions de rangées, sans une allocation chacune.
struct RangeesLettre {
    std::string texte;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> places;  // début, longueur
};

void Ajouter(RangeesLettre& r, const Perso& p, const Acte& a) {
    if (a.Lieu.empty() || a.Annee <= 0) return;
    const std::size_t debut = r.texte.size();
    r.texte.append(p.Nom.vue()).append(";").append(a.Lieu.vue()).append(Droite(Zeros(a.Annee, 4), 4));
    r.places.emplace_back(static_cast<std::uint32_t>(debut),
                          static_cast<std::uint32_t>(r.texte.size() - debut));
}

// Même groupe : tout sauf l'année, lettres comparées en majuscules.
bool MemeGroupe(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t k = 0; k + 4 < a.size(); ++k)
        if (a[k] != b[k] && Majuscule1252(a[k]) != Majuscule1252(b[k])) return false;
    return true;
}

std::string Annee(std::string_view rangee) {
    return std::to_string(ValeurNumerique(Droite(rangee, 4)));
}

void EcrireLettre(const RangeesLettre& lettre, std::int64_t minimum, TexteRapport& f) {
    std::vector<std::string_view> rangees;
    rangees.reserve(lettre.places.size());
    for (const auto& [debut, longueur] : lettre.places)
        rangees.emplace_back(lettre.texte.data() + debut, longueur);
    std::sort(rangees.begin(), rangees.end());
    std::size_t debut = 0;
    for (std::size_t i = 1; i < rangees.size(); ++i) {
        if (MemeGroupe(rangees[i], rangees[debut])) continue;
        // Le groupe [debut, i) se ferme ; le dernier de la lettre ne se ferme jamais.
        const std::string_view premiere = rangees[debut];
        const std::string_view cle = premiere.substr(0, premiere.size() - 4);
        const std::size_t pv = cle.find(';');
        const std::string nom(cle.substr(0, pv + 1));
        const std::string lieu(cle.substr(pv + 1));
        const auto n = static_cast<std::int64_t>(i - debut);
        if (n == 1 && minimum == 1)
            f.Ligne(nom + ";" + Annee(premiere) + ";" + Annee(premiere) + ";1;" + lieu);
        else if (n > minimum)
            f.Ligne(nom + ";" + Annee(premiere) + ";" + Annee(rangees[i - 1]) + ";" + std::to_string(n - 1) +
                    ";" + lieu);
        debut = i;
    }
}

}  // namespace

std::string TexteListeEclair(const ContexteExport& ctx, std::int64_t minimum) {
    const Base& base = ctx.base;
    // Un seul passage sur la base range chaque acte sous sa lettre ; l'ordre des lettres reste.
    std::array<RangeesLettre, 26> lettres;
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
    for (const auto& rangees : lettres) {
        TourDeBoucle(ctx, ++tour);
        EcrireLettre(rangees, minimum, f);
    }
    return f.Fermer();
}

}  // namespace arbolix
