#include "verify/verification.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "aides/base_essai.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/ecrivain.h"
#include "gedcom/lecture_essai.h"
#include "store/selection.h"

namespace arbolix {
namespace {

std::string Fichier(const std::string& nom) {
    return essais::LireOctets(std::string(ARBOLIX_DONNEES) + "/verification/" + nom);
}

std::string Verifier(Base& b, const Options& o = {}) {
    return MenuVerifier(b, o, nullptr, 0).Rapport;
}

// Une règle enfreinte une fois chacune : le rapport entier, octet pour octet.
TEST(MenuVerifier, RapportDuFichierQuiEnfreintChaqueRegle) {
    essai::Lecture l;
    l.LireTout(Fichier("regles.ged"));
    // Les parents se lisent des lignes CHIL : un fichier ne peut pas porter ce lien rompu.
    l.base.Persos[15].NumParents = 4;
    ToutSelectionner(l.base);
    const ResultatVerification r = MenuVerifier(l.base, l.options, nullptr, 0);
    // Le rapport attendu, tel que l'éditeur l'enregistre (1252, CR LF).
    EXPECT_EQ(r.Rapport, Fichier("regles.txt"));
    EXPECT_EQ(r.Corriges, 1);

    // La réparation tient après l'enregistrement : Guy n'a plus d'union, la famille 5 n'est plus écrite.
    OptionsGedcom cases;
    ContexteEcriture ctx{cases, EnteteArbolix(), {}, nullptr};
    EcrivainGedcom e(l.base, ctx, nullptr);
    ASSERT_TRUE(e.EcrireGedcom());
    EXPECT_EQ(e.Tampon().find("@F5@"), std::string::npos);
    essai::Lecture relue;
    relue.LireTout(e.Tampon());
    EXPECT_EQ(relue.Pe(16).Unions[1], 0);
    ToutSelectionner(relue.base);
    EXPECT_EQ(Verifier(relue.base).find("corrig"), std::string::npos);
}

// Les cas limites de chaque règle, sur une famille de deux enfants faite à la main.
TEST(MenuVerifier, CasLimites) {
    struct Cas {
        const char* quoi;
        const char* aine;
        const char* cadet;
        const char* attendu;  // plainte de la famille, vide pour aucune
    } const cas[] = {
        {"jumeaux", "10/05/1750", "10/05/1750", ""},
        {"un jour", "10/05/1750", "11/05/1750", ""},
        {"deux jours", "10/05/1750", "12/05/1750", "alerte : 2 enfants n\xE9s \xE0 moins de 9 mois"},
        {"269 jours", "01/01/1750", "27/09/1750", "alerte : 2 enfants n\xE9s \xE0 moins de 9 mois"},
        {"270 jours", "01/01/1750", "28/09/1750", ""},
        {"ordre inverse", "12/05/1750", "10/05/1750", ""},
        {"mois et an", "03/1750", "05/1750", "alerte : 2 enfants n\xE9s \xE0 moins de 9 mois"},
        {"ann\xE9"
         "es seules",
         "1750", "1750",
         "alerte : 2 enfants n\xE9s la m\xEAme ann\xE9"
         "e"},
        {"une date compl\xE8te", "12/12/1750", "1750",
         "alerte : 2 enfants n\xE9s la m\xEAme ann\xE9"
         "e"},
        {"vers", "vers 1750", "1751", ""},
    };
    for (const auto& c : cas) {
        Base b;
        essai::AjouterPersonne(b, 1, "A", "Jean", 'M', "1720");
        essai::AjouterPersonne(b, 2, "B", "Anne", 'F', "1725");
        essai::AjouterPersonne(b, 3, "A", "Paul", 'M', c.aine);
        essai::AjouterPersonne(b, 4, "A", "Luc", 'M', c.cadet);
        essai::AjouterFamille(b, 1, 1, 2, "", {3, 4});
        const std::string r = Verifier(b);
        if (*c.attendu)
            EXPECT_NE(r.find(std::string("Famille 1\r\n") + c.attendu), std::string::npos) << c.quoi << "\n"
                                                                                           << r;
        else
            EXPECT_EQ(r, "") << c.quoi;
    }
}

TEST(MenuVerifier, LiensEtSelection) {
    Base b;
    essai::AjouterPersonne(b, 1, "A", "Jean", 'M');
    essai::AjouterPersonne(b, 2, "B", "Anne", 'F');
    essai::AjouterPersonne(b, 3, "A", "Paul", 'M');
    essai::AjouterPersonne(b, 4, "C", "Hors", ' ');
    essai::AjouterPersonne(b, 5, "D", "Seul", 'M');
    essai::AjouterPersonne(b, 6, "D", "Fils", 'M');
    essai::AjouterPersonne(b, 7, "E", "Eve", 'F');
    essai::AjouterFamille(b, 1, 1, 2, "", {3, 3});  // relié deux fois : une seule plainte
    essai::AjouterFamille(b, 2, 5, 0, "", {6});     // un conjoint et un enfant : intouchée
    essai::AjouterFamille(b, 3, -1, 0);             // un mari négatif n'est pas un conjoint seul
    b.Persos[4].Sel = kFaux;                        // hors sélection : pas examinée
    b.Persos[7].NumParents = 1;                     // la famille ne la cite pas
    const ResultatVerification r = MenuVerifier(b, Options{}, nullptr, 0);
    EXPECT_EQ(r.Rapport,
              "Personne 3 A Paul :\r\n"
              "erreur dans le lien avec les parents F1 : l'enfant est reli\xE9 plusieurs fois.\r\n\r\n"
              "Personne 7 E Eve :\r\n"
              "erreur dans le lien avec les parents F1 : l'enfant n'est pas reli\xE9.\r\n\r\n");
    EXPECT_EQ(r.Corriges, 0);
    EXPECT_EQ(b.Familles[2].Mari, 5);
}

// Mauvaises entrées : dates illisibles partout, 25 enfants et 7 unions, un homme marié à lui-même.
TEST(MenuVerifier, EntreesExtremesSansPlantage) {
    Base b;
    essai::AjouterPersonne(b, 1, "X", "Moi", 'M', "n'importe quoi", "31/02/17xx");
    essai::Dater(b.Persos[1].Bapteme, "@@@@");
    for (int f = 1; f <= kMaxUnions; ++f) {
        essai::AjouterFamille(b, f, 1, 1, "zz");
        for (int e = 1; e <= kMaxEnfants; ++e) {
            const int n = 100 + f * 30 + e;
            essai::AjouterPersonne(b, n, "X", "Enfant", 'F', "1750");
            b.Familles[f].Enfants.Fixer(e, n);
            b.Persos[n].NumParents = f;
        }
    }
    b.Persos[1].Unions[1] = 999999;  // une famille hors du tableau, prise telle quelle
    const std::string r = Verifier(b);
    EXPECT_NE(r.find("erreur dans le lien avec l'union F999999\r\n"), std::string::npos);
    EXPECT_NE(r.find("Famille 7\r\nerreur de d\xE9"
                     "claration du sexe d'un conjoint.\r\n"
                     "alerte : 2 enfants n\xE9s la m\xEAme ann\xE9"
                     "e (1e et 2e).\r\n"),
              std::string::npos);
    EXPECT_NE(r.find("(24e et 25e)"), std::string::npos);
}

}  // namespace
}  // namespace arbolix
