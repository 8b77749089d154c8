#include "kinship/sosa.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

const PersoSuite& S(const Base& b, int n) {
    return std::as_const(b.Persos)[n].Suite();
}

std::vector<std::string> Numeros(const Ascendance& a) {
    std::vector<std::string> r;
    for (const auto& l : a.liste.Rangees)
        r.push_back(NumeroDeRangee(l.texte) + ":" + std::to_string(l.valeur));
    return r;
}

// 1 enfant de deux cousins germains 2 et 3, petits-enfants de 10 et 11.
Base Cousins() {
    Base b;
    for (int n : {1, 2, 3, 5, 6, 7, 8, 10, 11}) AjouterPersonne(b, n, "N" + std::to_string(n), "P");
    AjouterFamille(b, 1, 10, 11, {}, {5, 6});
    AjouterFamille(b, 2, 5, 7, {}, {2});
    AjouterFamille(b, 3, 8, 6, {}, {3});
    AjouterFamille(b, 4, 2, 3, {}, {1});
    return b;
}

TEST(Sosa, CousinsMariesLesGrandsParentsCommunsPortentDeuxNumeros) {
    Base b = Cousins();
    const Ascendance a = NumeroterAscendants(b, {1});
    // Mère d'abord : le côté du père, parcouru ensuite, laisse son numéro dans NumSosa.
    EXPECT_EQ(S(b, 10).NumSosa[0], "8");
    EXPECT_EQ(S(b, 10).AutresSosa[0], ", 14");
    EXPECT_EQ(S(b, 11).NumSosa[0], "9");
    EXPECT_EQ(S(b, 11).AutresSosa[0], ", 15");
    EXPECT_EQ(S(b, 10).CheminSosa[0], "10,5,2,1");
    EXPECT_EQ(std::as_const(b.Persos)[10].Unions[0], 1);
    EXPECT_EQ(Numeros(a), (std::vector<std::string>{"1:1", "2:2", "3:3", "4:5", "5:7", "6:8", "7:6", "8:10",
                                                    "9:11", "14:10", "15:11"}));
    EXPECT_EQ(a.liste.Rangees[0].texte, std::string(27, '0') + "1 P000001");
    EXPECT_EQ(a.NbAncetres, 10);
    EXPECT_EQ(b.NumDeCujus, 1);
    EXPECT_EQ(MessageSosa(b, a, 1), "10 anc\xEAtres trouv\xE9s pour\r\nN1 P");
    // Une autre racine vide ce que la précédente avait écrit.
    NumeroterAscendants(b, {3});
    EXPECT_EQ(S(b, 10).NumSosa[0], "6");
    EXPECT_TRUE(S(b, 10).AutresSosa[0].empty());
    EXPECT_TRUE(S(b, 2).NumSosa[0].empty());
}

TEST(Sosa, MereSeuleEtLimiteDeGenerations) {
    Base b;
    // Une lignée de mères : 1, 3, 7, ..., 1023 ; le numéro pair d'un père absent n'apparaît jamais.
    for (int n = 1; n <= 11; ++n) AjouterPersonne(b, n, "M", "P", 'F');
    for (int n = 1; n <= 10; ++n) AjouterFamille(b, n, 0, n + 1, {}, {n});
    Ascendance a = NumeroterAscendants(b, {1});
    EXPECT_EQ(a.NbAncetres, 10);
    EXPECT_EQ(NumeroDeRangee(a.liste.Rangees.back().texte), "2047");
    a = NumeroterAscendants(b, {1, 0, true, 6});
    EXPECT_EQ(a.NbAncetres, 6);
    EXPECT_EQ(NumeroDeRangee(a.liste.Rangees.back().texte), "127");
    EXPECT_TRUE(S(b, 9).NumSosa[0].empty());
    EXPECT_TRUE(a.Journal.empty());
}

// Calcul indépendant en base 10 : 2n + bit sur le texte.
std::string DoublerTexte(const std::string& s, int bit) {
    std::string r(s.size(), '0');
    int retenue = bit;
    for (std::size_t i = s.size(); i-- > 0;) {
        const int v = (s[i] - '0') * 2 + retenue;
        r[i] = static_cast<char>('0' + v % 10);
        retenue = v / 10;
    }
    return retenue ? "1" + r : r;
}

TEST(Sosa, CentGenerationsDonnentDesNumerosExactsDansLOrdre) {
    Base b;
    constexpr int kGen = 100;
    std::vector<std::string> attendus{"1"};
    for (int g = 0; g <= kGen; ++g) AjouterPersonne(b, g + 1, "L", "P");
    for (int g = 0; g < kGen; ++g) {
        // Père ou mère selon un motif irrégulier, pour que chaque chiffre compte.
        const bool mere = (g * 7 + g / 3) % 2 == 1;
        AjouterFamille(b, g + 1, mere ? 0 : g + 2, mere ? g + 2 : 0, {}, {g + 1});
        attendus.push_back(DoublerTexte(attendus.back(), mere ? 1 : 0));
    }
    const Ascendance a = NumeroterAscendants(b, {1});
    ASSERT_EQ(a.liste.Rangees.size(), static_cast<std::size_t>(kGen + 1));
    for (int g : {63, 64, 70, kGen}) EXPECT_EQ(S(b, g + 1).NumSosa[0].str(), attendus[g]) << g;
    // Au-delà de 28 chiffres la clé s'allonge pour toutes les rangées : l'ordre reste celui des nombres.
    for (std::size_t r = 0; r < a.liste.Rangees.size(); ++r)
        EXPECT_EQ(NumeroDeRangee(a.liste.Rangees[r].texte), attendus[r]);
    EXPECT_EQ(a.liste.Rangees[0].texte.size(), attendus.back().size() + 8);
    // Le chemin n'est plus récrit au-delà de neuf chiffres.
    EXPECT_TRUE(S(b, kGen + 1).CheminSosa[0].empty());
    EXPECT_EQ(S(b, 3).CheminSosa[0], "3,2,1");
}

TEST(Sosa, BouclesEtRacinesImpossibles) {
    struct Cas {
        const char* nom;
        std::function<void(Base&)> liens;
        std::int32_t racine;
        std::int32_t ancetres;
        int lignesJournal;
    };
    const Cas cas[] = {
        // 1 fils de 2, 2 fils de 3, 3 fils de 2.
        {"propre ancetre",
         [](Base& b) {
             AjouterFamille(b, 1, 2, 0, {}, {1});
             AjouterFamille(b, 2, 3, 0, {}, {2});
             AjouterFamille(b, 3, 2, 0, {}, {3});
         },
         1, 3, 1},
        {"mari enfant de sa famille", [](Base& b) { AjouterFamille(b, 1, 1, 2, {}, {1}); }, 1, 2, 1},
        {"racine absente", [](Base&) {}, 99, 0, 1},
        {"racine nulle", [](Base&) {}, 0, 0, 0},
    };
    for (const auto& c : cas) {
        Base b;
        for (int n = 1; n <= 3; ++n) AjouterPersonne(b, n, "B", "P");
        c.liens(b);
        const Ascendance a = NumeroterAscendants(b, {c.racine});
        EXPECT_EQ(a.NbAncetres, c.ancetres) << c.nom;
        EXPECT_EQ(std::count(a.Journal.begin(), a.Journal.end(), '\n'), c.lignesJournal)
            << c.nom << a.Journal;
    }
}

}  // namespace
}  // namespace arbolix
