#include "lists/rangees.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>

namespace arbolix {
namespace {

TEST(RemplissageTrie, TrieSurLaCleEtAfficheAutreChose) {
    ListePersonne l;
    OuvrirListe(l, "tous", "Choisissez", " Ajouter... P000009", true);
    RemplissageTrie t;
    t.Ajouter("DUPONT1750/00/00000002", 2);
    t.Ajouter("DUPONT1740/00/00000005", 5);
    t.Ajouter("!BIZARRE000007", 7);  // "!" vient après le blanc : la ligne de tête reste devant
    t.Ajouter("ABEL000001", 1);
    t.Terminer(l, [](std::int32_t n) { return "affiche " + std::to_string(n); });
    ASSERT_EQ(l.Rangees.size(), 5u);
    EXPECT_EQ(l.Rangees[0].texte, " Ajouter... P000009");
    EXPECT_EQ(l.Rangees[1].valeur, 7);
    EXPECT_EQ(l.Rangees[2].valeur, 1);
    EXPECT_EQ(l.Rangees[3].valeur, 5);  // la naissance départage, pas le texte affiché
    EXPECT_EQ(l.Rangees[4].texte, "affiche 2");
}

TEST(RemplissageTrie, OrdreDesOctetsPasDeLaLangue) {
    // É (0xC9) vient après Z : l'ordre simple des caractères 1252.
    ListePersonne l;
    OuvrirListe(l, "tous", "", "", true);
    RemplissageTrie t;
    t.Ajouter("\xC9TIENNE", 1);
    t.Ajouter("ZOLA", 2);
    t.Ajouter("abel", 3);
    t.Ajouter("Zola", 4);
    t.Terminer(l, [](std::int32_t n) { return std::to_string(n); });
    std::string ordre;
    for (const auto& r : l.Rangees) ordre += r.texte;
    EXPECT_EQ(ordre, "2431");
}

TEST(RemplissageTrie, ListeNonVideeLesRangeesPrennentLeurPlace) {
    ListePersonne l;
    OuvrirListe(l, "tous", "", "", true);
    AjouterTriee(l, "B", 1);
    AjouterTriee(l, "D", 2);
    OuvrirListe(l, "tous", "", "", false);
    RemplissageTrie t;
    t.Ajouter("C", 3);
    t.Ajouter("A", 4);
    t.Terminer(l, [](std::int32_t n) { return "z" + std::to_string(n); });
    std::vector<std::int32_t> valeurs;
    for (const auto& r : l.Rangees) valeurs.push_back(r.valeur);
    EXPECT_EQ(valeurs, (std::vector<std::int32_t>{4, 1, 3, 2}));
}

// Le tri par têtes rend l'ordre du tri stable sur les textes entiers : têtes égales sur seize
// octets, textes préfixes l'un de l'autre, octet nul, octets hauts (1252), égaux dans l'ordre
// d'arrivée.
TEST(TrierParTexte, CommeLeTriStableDesTextes) {
    std::vector<Rangee> rangees;
    const std::string bases[] = {"DUPONT1845/03/12000007",
                                 "DUPONT1845/03/12000003",
                                 "DUPONT",
                                 "DUPONTEL",
                                 std::string("AB\0", 3),
                                 "AB",
                                 "\xC9TIENNE",
                                 "ETIENNE",
                                 "",
                                 "DUPONT Jean",
                                 "Z",
                                 "DUPONT1845/03/1",
                                 "DUPONT1845/03/12000007 Jean-Marie",
                                 "DUPONT1845/03/12000007 Jean-Baptiste Xavier",
                                 "DUPONT1845/03/12000007 Jean-Baptiste Victor",
                                 "DUPONT1845/03/12000003 Jean-Zo\xE9"};
    for (int k = 0; k < 60; ++k) rangees.push_back({bases[(k * 7) % std::size(bases)], k});
    // Et des textes tirés au hasard sur peu de lettres : chaque octet de tête départage.
    std::uint32_t graine = 1;
    for (int k = 0; k < 3000; ++k) {
        std::string t;
        for (std::size_t n = (graine = graine * 1103515245 + 12345) >> 27; n > 0; --n)
            t += "\0AB\xC9z"[(graine = graine * 1103515245 + 12345) >> 29 & 3];
        rangees.push_back({t, 100 + k});
    }
    std::vector<Rangee> attendu = rangees;
    std::stable_sort(attendu.begin(), attendu.end(),
                     [](const Rangee& a, const Rangee& b) { return a.texte < b.texte; });
    TrierParTexte(rangees);
    EXPECT_EQ(rangees, attendu);
}

}  // namespace
}  // namespace arbolix
