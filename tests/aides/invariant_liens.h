// Vérifie dans toute une base que les retours de liens des notes, sources et objets médias suivent les
// champs.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

#include "store/base.h"

namespace arbolix::essais {

// Écrit à part des règles, sans rien leur emprunter, pour les prendre en défaut.
// Un lien "@N12@" vaut une place de la personne (ou famille) chez la note 12 ; un
// objet média cité une ou plusieurs fois par une personne y vaut une place. Au-delà
// de neuf, le lien reste sans place : les places prises sont alors toutes justifiées
// et il y en a neuf. Les familles des objets médias ne sont pas vérifiées : la
// lecture y range parfois le numéro de la personne lue.
class InvariantLiens {
public:
    explicit InvariantLiens(const Base& base) : base_(base) {}

    // Vide quand tout va ; sinon une ligne par écart.
    std::string Ecarts() {
        Compter();
        std::string r;
        // Les fiches qui tiennent des places, puis celles que des liens attendent sans place :
        // une fiche sans place ni lien ne coûte rien (les essais la vérifient à chaque pas).
        std::set<Cle> vues;
        const auto voir = [&](char genre, std::int32_t n, bool famille, const Places& places) {
            if (places.empty()) return;
            vues.insert({genre, n, famille});
            r += Comparer(genre, n, famille, places);
        };
        for (char genre : {'N', 'S'}) {
            const auto& t = genre == 'N' ? base_.Notes : base_.Sources;
            for (std::int32_t n = 1; n <= t.Haut(); ++n) {
                if (t.PageVierge(n)) {
                    n = t.FinDePage(n);
                    continue;
                }
                voir(genre, n, false, t[n].LiensPersos);
                voir(genre, n, true, t[n].LiensFamis);
            }
        }
        for (std::int32_t m = 1; m <= base_.Medias.Haut(); ++m) {
            if (base_.Medias.PageVierge(m)) {
                m = base_.Medias.FinDePage(m);
                continue;
            }
            voir('M', m, false, base_.Medias[m].LiensPersos);
        }
        const Places aucune;
        for (const auto& [cle, voulues] : occ_) {
            const auto [genre, n, famille] = cle;
            const bool ecrite = genre == 'M'
                                    ? n >= 1 && n <= base_.Medias.Haut() && !base_.Medias.PageVierge(n)
                                    : n >= 1 && n <= (genre == 'N' ? base_.Notes : base_.Sources).Haut() &&
                                          !(genre == 'N' ? base_.Notes : base_.Sources).PageVierge(n);
            if (ecrite && !(genre == 'M' && famille) && !vues.count(cle))
                r += Comparer(genre, n, famille, aucune);
        }
        return r;
    }

private:
    using Cle = std::tuple<char, std::int32_t, bool>;  // genre, numéro, famille
    using Places = Emplacements<std::int32_t, 1, kMaxLiens>;

    static std::int32_t Numero(std::string_view v, char genre) {
        while (!v.empty() && v.front() == ' ') v.remove_prefix(1);
        while (!v.empty() && v.back() == ' ') v.remove_suffix(1);
        if (v.size() < 4 || v[0] != '@' || v[1] != genre || v.back() != '@') return 0;
        std::int64_t n = 0;
        for (char c : v.substr(2, v.size() - 3)) {
            if (c < '0' || c > '9' || n > 100000000) return 0;
            n = n * 10 + (c - '0');
        }
        return static_cast<std::int32_t>(n);
    }

    void Noter(std::string_view texte, char genre, bool famille, std::int32_t qui) {
        if (const std::int32_t n = Numero(texte, genre); n > 0) ++occ_[{genre, n, famille}][qui];
    }

    void Compter() {
        occ_.clear();
        for (std::int32_t p = 1; p <= std::min(base_.NbPersos, base_.Persos.Haut()); ++p) {
            const Perso& pe = base_.Persos[p];
            if (pe.Prenoms.empty()) continue;
            Noter(pe.Notes, 'N', false, p);
            for (const Acte* a : {&pe.Naissance, &pe.Bapteme, &pe.Deces, &pe.Sepulture}) {
                Noter(a->Notes, 'N', false, p);
                Noter(a->Source, 'S', false, p);
                for (const auto& [i, m] : a->Liens().Medias) occ_[{'M', m, false}][p] = 1;
            }
            for (const auto& [i, m] : pe.Suite().ObjetsMedia) occ_[{'M', m, false}][p] = 1;
        }
        for (std::int32_t f = 1; f <= std::min(base_.NbFamis, base_.Familles.Haut()); ++f) {
            const Fami& fa = base_.Familles[f];
            for (const Acte* a : {&fa.Contrat, &fa.Mariage, &fa.Divorce}) {
                Noter(a->Notes, 'N', true, f);
                Noter(a->Source, 'S', true, f);
            }
        }
    }

    std::string Comparer(char genre, std::int32_t n, bool famille,
                         const Emplacements<std::int32_t, 1, kMaxLiens>& places) {
        const auto trouve = occ_.find({genre, n, famille});
        if (places.empty() && trouve == occ_.end()) return {};
        std::map<std::int32_t, int> tenues;
        for (const auto& [i, qui] : places) ++tenues[qui];
        const std::map<std::int32_t, int> vide;
        const auto& voulues = trouve == occ_.end() ? vide : trouve->second;
        std::string r;
        const std::string nom =
            std::string(1, genre) + std::to_string(n) + (famille ? " familles" : " personnes");
        int liens = 0;
        for (const auto& [qui, k] : voulues) liens += k;
        for (const auto& [qui, k] : tenues) {
            const auto v = voulues.find(qui);
            const int attendu = v == voulues.end() ? 0 : v->second;
            if (k > attendu)
                r += nom + " : " + std::to_string(qui) + " tient " + std::to_string(k) + " places pour " +
                     std::to_string(attendu) + " liens\n";
        }
        if (static_cast<int>(places.Nombre()) != std::min(liens, kMaxLiens))
            r += nom + " : " + std::to_string(places.Nombre()) + " places pour " + std::to_string(liens) +
                 " liens\n";
        return r;
    }

    const Base& base_;
    std::map<Cle, std::map<std::int32_t, int>> occ_;
};

}  // namespace arbolix::essais
