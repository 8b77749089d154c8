#include "store/liens.h"

#include <gtest/gtest.h>

#include <vector>

namespace arbolix {
namespace {

std::vector<std::int32_t> Valeurs(const Retours& r) {
    std::vector<std::int32_t> v;
    for (const auto& [i, qui] : r) v.push_back(qui);
    return v;
}

// Une source citée plus de neuf fois garde les neuf premières citations, une par champ ; les
// familles ont leurs propres places, et un lien plus haut que les sources comptées a son retour.
TEST(ReconstruireLiens, SourcePleineFamillesEtLienHorsCompte) {
    Base b;
    Vider(b, true);
    b.NbPersos = 12;
    b.NbFamis = 2;
    b.NbSources = 1;
    for (int p = 1; p <= 12; ++p) {
        b.Persos[p].Prenoms = "Jean";
        b.Persos[p].Naissance.Source = "@S1@";
    }
    b.Persos[3].Deces.Source = " @S1@ ";
    b.Persos[12].Bapteme.Source = "@S7@";
    b.Familles[1].Mariage.Source = "@S1@";
    b.Familles[2].Divorce.Source = "@S1@";
    ReconstruireLiens(b);
    const Base& lu = b;
    EXPECT_EQ(Valeurs(lu.Sources[1].LiensPersos), (std::vector<std::int32_t>{1, 2, 3, 3, 4, 5, 6, 7, 8}));
    EXPECT_EQ(Valeurs(lu.Sources[1].LiensFamis), (std::vector<std::int32_t>{1, 2}));
    EXPECT_EQ(Valeurs(lu.Sources[7].LiensPersos), (std::vector<std::int32_t>{12}));
}

}  // namespace
}  // namespace arbolix
