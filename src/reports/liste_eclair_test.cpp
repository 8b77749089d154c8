#include "reports/liste_eclair.h"

#include <gtest/gtest.h>

#include "gedcom/lecture_essai.h"
#include "store/selection.h"

namespace arbolix {
namespace {

// n personnes de ce nom nées à ce lieu, de l'année 1800 à 1800 + n - 1.
std::string Naissances(const char* nom, const char* lieu, int n, int& numero) {
    std::string s;
    for (int i = 0; i < n; ++i, ++numero)
        s += "0 @I" + std::to_string(numero) + "@ INDI|1 NAME X /" + nom + "/|1 BIRT|2 DATE " +
             std::to_string(1800 + i) + "|2 PLAC " + lieu + "|";
    return s;
}

TEST(ListeEclair, GroupesMinimumEtDernierGroupeDeLaLettre) {
    essai::Lecture l;
    int numero = 1;
    std::string corps = Naissances("BLANC", "Arles", 3, numero) + Naissances("BLANC", "Nancy", 4, numero) +
                        Naissances("BLANC", "Toul", 1, numero) + Naissances("BRUN", "Metz", 1, numero) +
                        Naissances("DUVAL", "Metz", 2, numero) + Naissances("DUVAL", "Zurich", 1, numero) +
                        Naissances("1ER", "Metz", 2, numero);
    l.Lire(corps.substr(0, corps.size() - 1));
    ToutSelectionner(l.base);
    OptionsExport e;
    const ContexteExport ctx{l.base, l.options, e, {23, 11, 2026}};
    // Minimum 3 : 3 naissances ne font pas de ligne, 4 en comptent 3 ; le dernier groupe
    // d'une lettre (BRUN;Metz, DUVAL;Zurich) n'est jamais écrit ; "1ER" n'a pas de lettre.
    EXPECT_EQ(TexteListeEclair(ctx, 3),
              "Nom;Lieu;d\xE9"
              "but;fin;nombre\r\n"
              "BLANC;;1800;1803;3;Nancy\r\n");
    // Minimum 1 : un acte seul a sa ligne, n actes comptent n - 1.
    EXPECT_EQ(TexteListeEclair(ctx, 1),
              "Nom;Lieu;d\xE9"
              "but;fin;nombre\r\n"
              "BLANC;;1800;1802;2;Arles\r\n"
              "BLANC;;1800;1803;3;Nancy\r\n"
              "BLANC;;1800;1800;1;Toul\r\n"
              "DUVAL;;1800;1801;1;Metz\r\n");
}

}  // namespace
}  // namespace arbolix
