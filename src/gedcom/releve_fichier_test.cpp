#include "gedcom/releve_fichier.h"

#include <gtest/gtest.h>

#include <string>

namespace arbolix {
namespace {

// Des préfixes qui alternent, des fiches sans chiffre, une ligne 0 qui n'est pas une fiche.
const std::string kTexte =
    "0 HEAD\r\n1 CHAR ANSI\r\n"
    "0 @I1@ INDI\r\n1 NAME A\r\n0 @I2@ INDI\r\n0 @P3@ INDI\r\n0 @R1@ REPO\r\n1 NAME Archives\r\n"
    "0 @F1@ FAM\r\n1 HUSB @I1@\r\n0 @X@ INDI\r\n0 @I4@ INDI\r\n0 @FAM2@ FAM\r\n0 @F3@ FAM\r\n"
    "0 @N9@ NOTE texte\r\n0 @I77@ INDI\r\n0 TRLR\r\n";

TEST(ReleveFichier, LeReleveDuFichierEntierVautUneRechercheDepuisChaqueLigne) {
    const PrefixesDesFiches tout = ReleverPrefixes(kTexte, 0);
    ASSERT_EQ(tout.personnes.size(), 3u);  // I, P, I
    EXPECT_EQ(tout.personnes[1].prefixe, "P");
    ASSERT_EQ(tout.familles.size(), 3u);  // F, FAM, F
    EXPECT_EQ(tout.familles[1].prefixe, "FAM");
    // Ce qu'une recherche faite plus loin trouverait : les suites qui finissent au seuil ou après.
    for (std::size_t seuil = 2; seuil < kTexte.size(); seuil = FinDeLigne(kTexte, seuil) + 2) {
        const PrefixesDesFiches ici = ReleverPrefixes(kTexte, seuil);
        auto filtre = [seuil](const std::vector<PrefixesDesFiches::Suite>& v) {
            std::vector<PrefixesDesFiches::Suite> r;
            for (const auto& s : v)
                if (s.derniere >= seuil) r.push_back(s);
            return r;
        };
        EXPECT_EQ(filtre(tout.personnes), ici.personnes) << "seuil " << seuil;
        EXPECT_EQ(filtre(tout.familles), ici.familles) << "seuil " << seuil;
    }
}

TEST(ReleveFichier, LeFilRendLeMemeReleveQueLaRechercheSurPlace) {
    ReleveEnFond fond;
    EXPECT_EQ(fond.Attendre(), nullptr);  // pas lancé
    fond.Lancer(kTexte);
    const ReleveFichier* r = fond.Attendre();
    ASSERT_NE(r, nullptr);
    EXPECT_FALSE(fond.EnCours());
    EXPECT_EQ(r->plusGrandNumero, PlusGrandNumero(kTexte));
    EXPECT_EQ(r->plusGrandNumero, 77);
    std::unordered_map<std::string, std::string> depots;
    ReleverDepots(kTexte, depots);
    EXPECT_EQ(r->nomsDepots, depots);
    EXPECT_EQ(depots.at("R1"), "Archives");
    fond.Abandonner();
    EXPECT_EQ(fond.Attendre(), nullptr);
}

}  // namespace
}  // namespace arbolix
