#include "lists/selection_active.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;

TEST(SelectionActive, ListesCocheesSuiventEtChangentLesMarques) {
    Base b;
    const Options o;
    AjouterPersonne(b, 1, "Dupont", "Jean");
    AjouterPersonne(b, 2, "Dupr\xE9", "\xC9mile").Sel = kFaux;
    AjouterPersonne(b, 3, "Martin", "Anne");
    AjouterFamille(b, 1, 1, 3).Sel = kFaux;
    ListeCochee l = ListeSelPersos(b, o, "DUPR");  // sans blanc : " *" ajouté, sans casse ni accents
    ASSERT_EQ(l.liste.Rangees.size(), 1u);
    EXPECT_EQ(l.liste.Rangees[0].texte, "Dupr\xE9 \xC9mile P000002");
    l = ListeSelPersos(b, o, "dup* *");
    EXPECT_EQ(l.coches, (std::vector<bool>{true, false}));
    EXPECT_EQ(l.liste.Titre,
              "     1 personnes s\xE9lectionn\xE9"
              "es");
    BasculerRangee(b, l, 1);
    EXPECT_EQ(std::as_const(b.Persos)[2].Sel, kVrai);
    EXPECT_EQ(l.liste.Titre,
              "     2 personnes s\xE9lectionn\xE9"
              "es");

    ListeCochee f = ListeSelFamis(b, o, " ");
    ASSERT_EQ(f.liste.Rangees.size(), 1u);
    EXPECT_EQ(f.liste.Rangees[0].texte, "Dupont Jean x Martin Anne F000001");
    EXPECT_EQ(f.coches, std::vector<bool>{false});
    BasculerRangee(b, f, 0);
    EXPECT_EQ(std::as_const(b.Familles)[1].Sel, kVrai);
    EXPECT_EQ(f.liste.Titre,
              "     1 familles s\xE9lectionn\xE9"
              "es");
    EXPECT_TRUE(ListeSelFamis(b, o, "martin").liste.Rangees.empty());
}

TEST(SelectionActive, EtLogiqueNeDescendQueDansLaSelectionDAvant) {
    Base b;
    Options o;
    o.SelTousDesc = true;
    for (int n = 1; n <= 4; ++n) AjouterPersonne(b, n, "Roux", "P").Sel = kFaux;
    AjouterFamille(b, 1, 1, 0, {}, {2, 3});
    AjouterFamille(b, 2, 3, 0, {}, {4});
    for (int n : {3, 4}) b.Persos[n].SelAvant = kVrai;
    std::vector<std::uint8_t> parcourus;
    EXPECT_EQ(MarquerDescendants(b, o, 1, true, parcourus), 2);  // 3 puis 4 ; 2 n'était pas sélectionné
    EXPECT_EQ(std::as_const(b.Persos)[2].Sel, kFaux);
    EXPECT_EQ(std::as_const(b.Persos)[4].Sel, kVrai);
    // Une seconde marche ne refait pas une branche déjà parcourue.
    EXPECT_EQ(MarquerDescendants(b, o, 3, false, parcourus), 0);
}

TEST(SelectionActive, LieuxAnnexesContiennentLeLieuApresLeDebut) {
    ListeCochee l;
    for (const char* lieu : {"Paris", "Paris 5e", "Montreuil-sous-Bois", "Saint-Paris", "Bois"}) {
        l.liste.Rangees.push_back({lieu, 0});
        l.coches.push_back(false);
    }
    l.coches[4] = true;
    EXPECT_EQ(CocherLieuxAnnexes(l, 4), std::vector<std::string>{"Montreuil-sous-Bois"});
    // « Paris 5e » commence par le lieu : ce n'est pas une annexe.
    l.coches[0] = true;
    EXPECT_EQ(CocherLieuxAnnexes(l, 0), std::vector<std::string>{"Saint-Paris"});
    EXPECT_EQ(l.coches, (std::vector<bool>{true, false, true, true, true}));
}

}  // namespace
}  // namespace arbolix
