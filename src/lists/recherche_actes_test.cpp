#include "lists/recherche_actes.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "card/queues.h"
#include "lists/listes.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;
using essai::Dater;

// Deux familles : Jean DUPONT (1) épouse Marie MARTIN (2) à Lyon en 1751 ; leur fils Pierre (3)
// naît vers 1750 à Paris ; Paul DURAND (4), marié à Anne (5) en 1790 à Saint-Just, a Jean pour témoin.
class RechercheActesTest : public ::testing::Test {
protected:
    void SetUp() override {
        AjouterPersonne(b, 1, "DUPONT", "Jean", 'M', "12/03/1720", "05/06/1780");
        Dater(b.Persos[1].Bapteme, "13/03/1720", "Lyon");
        b.Persos[1].Metier = "Tisserand, laboureur";
        AjouterPersonne(b, 2, "MARTIN", "Marie", 'F', "1725");
        AjouterPersonne(b, 3, "DUPONT", "Pierre", 'M', "vers 1750");
        b.Persos[3].Naissance.Lieu = "Paris";
        AjouterPersonne(b, 4, "DURAND", "Paul", 'M', "1760");
        b.Persos[4].Metier = "Marchand puis tisserand";
        AjouterPersonne(b, 5, "BLANC", "Anne", 'F');
        AjouterFamille(b, 1, 1, 2, "20/02/1751", {3});
        b.Familles[1].Mariage.Lieu = "Lyon";
        AjouterFamille(b, 2, 4, 5, "10/10/1790");
        b.Familles[2].Mariage.Lieu = "Saint-Just";
        b.Familles[2].Mariage.LiensModif().Temoins.Fixer(20, 1);
    }

    RechercheActes Tous() {
        RechercheActes r;
        r.TypeActe[kCaseTous] = true;
        return r;
    }

    std::vector<std::string> Rangees(const RechercheActes& r, bool exporter = false) {
        ListerActes(b, o, r, 0, exporter, liste);
        std::vector<std::string> t;
        for (const auto& x : liste.Rangees) t.push_back(x.texte);
        return t;
    }

    Base b;
    Options o;
    ListePersonne liste;
};

TEST_F(RechercheActesTest, TousValentLesSeptTypesDansLOrdreDuParcours) {
    RechercheActes r = Tous();
    r.OptInclureApprox = true;
    const auto t = ChercherActes(b, r, true);
    // Personne 1 : naissance, décès, mariage, baptême ; puis 2, 3, 4 (et son mariage).
    const std::vector<ActeTrouve> attendus = {{1, 0}, {1, 1}, {1, 2}, {1, 5}, {2, 0}, {3, 0}, {4, 0}, {2, 2}};
    EXPECT_EQ(t, attendus);
    // Les sept cases cochées une à une trouvent la même chose que « Tous » seul.
    RechercheActes sept = r;
    sept.TypeActe.fill(true);
    sept.TypeActe[kCaseTous] = false;
    EXPECT_EQ(ChercherActes(b, sept, true), attendus);
}

TEST_F(RechercheActesTest, FamilleDontLeMariNestPlusEnUsage) {
    // Un mari sans prénoms n'est pas parcouru : le mariage vient avec sa femme.
    AjouterFamille(b, 3, 6, 5, "02/02/1800");
    b.Persos[6].Nom = "EFFACE";
    RechercheActes r;
    r.TypeActe[kCaseMariage] = true;
    r.AnneeDebut = "1800";
    EXPECT_EQ(ChercherActes(b, r, true), (std::vector<ActeTrouve>{{3, 2}}));
    EXPECT_EQ(TexteActe(b, o, {3, 2}), "BLANC Anne x02/02/1800");
}

TEST_F(RechercheActesTest, PeriodeBornesComprisesEtInversee) {
    RechercheActes r = Tous();
    r.AnneeDebut = "1751";
    r.AnneeFin = "1780";
    EXPECT_EQ(ChercherActes(b, r, true), (std::vector<ActeTrouve>{{1, 1}, {1, 2}, {4, 0}}));
    r.AnneeDebut = "1780";
    r.AnneeFin = "1751";
    EXPECT_TRUE(ChercherActes(b, r, true).empty());
    ListerActes(b, o, r, 0, false, liste);
    EXPECT_EQ(liste.Titre, "0 actes trouv\xE9s");
    EXPECT_TRUE(liste.Rangees.empty());
}

TEST_F(RechercheActesTest, DateApprocheeSeulementAvecLOption) {
    RechercheActes r;
    r.TypeActe[kCaseNaissance] = true;
    r.AnneeDebut = "1750";
    r.AnneeFin = "1750";
    EXPECT_TRUE(ChercherActes(b, r, true).empty());
    r.OptInclureApprox = true;
    EXPECT_EQ(ChercherActes(b, r, true), (std::vector<ActeTrouve>{{3, 0}}));
}

TEST_F(RechercheActesTest, CleTriActe) {
    EXPECT_EQ(InverserChiffres("1750/03/12 a"), "8249/96/87 a");
    const std::array<int, 2> decr{5, 0};
    // « date décr. » : 1750 vient après 1751.
    EXPECT_GT(CleTriActe(decr, "A", "", "1750/00/00", "", ""),
              CleTriActe(decr, "A", "", "1751/00/00", "", ""));
    EXPECT_EQ(CleTriActe({3, 1}, "DUPONT", "Jean", "1750", "Lyon", "9"), "LyonJean");
    EXPECT_EQ(CleTriActe({4, 0}, "DUPONT", "Jean", "1750", "Lyon", "0009"), "0009DUPONT");
}

TEST_F(RechercheActesTest, ListeTrieeParNomPuisDateAvecSesQueues) {
    RechercheActes r = Tous();
    r.ListeTri = {0, 2};
    const auto t = Rangees(r, true);
    ASSERT_EQ(t.size(), 8u);
    EXPECT_EQ(liste.Genre, "actes");
    EXPECT_EQ(liste.Titre, "7 actes trouv\xE9s");
    EXPECT_EQ(t[0], " Exporter...");
    EXPECT_EQ(t[1],
              "DUPONT Jean \xB0"
              "12/03/1720" +
                  Queue('\xB0', 1));
    EXPECT_EQ(t[2], "DUPONT Jean b13/03/1720 Lyon" + Queue('b', 1));
    EXPECT_EQ(t[3], "DUPONT Jean x20/02/1751 Lyon MARTIN Marie" + Queue('x', 1));
    EXPECT_EQ(t[4], "DUPONT Jean +05/06/1780" + Queue('+', 1));
    EXPECT_EQ(t[6], "DURAND Paul x10/10/1790 Saint-Just BLANC Anne" + Queue('x', 2));
    // Le double clic montre la personne de l'acte, ou le mari d'un acte de famille.
    EXPECT_EQ(DoubleClic(b, o, liste, 6), (Reaction{ActionListe::Afficher, 4, {}, true}));
    EXPECT_EQ(DoubleClic(b, o, liste, 2), (Reaction{ActionListe::Afficher, 1, {}, true}));
    EXPECT_EQ(DoubleClic(b, o, liste, 0).action, ActionListe::Rien);
    EXPECT_EQ(t[7],
              "MARTIN Marie \xB0"
              "1725" +
                  Queue('\xB0', 2));
}

TEST_F(RechercheActesTest, CriteresNomLieuProfessionTemoinDomicile) {
    struct Cas {
        Critere critere;
        std::vector<std::string> criteres;
        int caseActe;
        std::vector<ActeTrouve> attendus;
    };
    b.Persos[5].SuiteModif().Ville = "Saint-Just";
    const Cas cas[] = {
        {Critere::Nom, {"MARTIN"}, kCaseMariage, {{1, 2}}},  // l'un ou l'autre époux
        {Critere::Nom, {"DUPONT", "DURAND"}, kCaseNaissance, {{1, 0}, {4, 0}}},
        {Critere::Lieu, {"Lyon"}, kCaseTous, {{1, 2}, {1, 5}}},
        {Critere::Lieu, {"Saint*"}, kCaseMariage, {{2, 2}}},
        {Critere::Lieu, {"lyon"}, kCaseTous, {}},                        // motif sensible à la casse
        {Critere::Profession, {"Tisserand"}, kCaseNaissance, {{1, 0}}},  // en tête
        {Critere::Profession, {"laboureur"}, kCaseNaissance, {{1, 0}}},  // après une virgule
        {Critere::Profession, {"tisserand"}, kCaseNaissance, {{4, 0}}},  // après « puis »
        {Critere::Domicile, {"Saint-Just"}, kCaseMariage, {{2, 2}}},
    };
    for (const Cas& c : cas) {
        RechercheActes r;
        r.TypeActe[c.caseActe] = true;
        r.OptionType = c.critere;
        r.Criteres = c.criteres;
        EXPECT_FALSE(ControlerRecherche(r, 1));
        EXPECT_EQ(ChercherActes(b, r, true), c.attendus) << c.criteres[0];
    }
    // Témoin : la fiche de Jean est le vingtième témoin du mariage de Paul.
    RechercheActes r = Tous();
    r.OptionType = Critere::Temoin;
    r.Temoin = 1;
    EXPECT_EQ(ChercherActes(b, r, true), (std::vector<ActeTrouve>{{2, 2}}));
    EXPECT_TRUE(ChercherTemoin(b.Familles[2].Mariage, 1));
    EXPECT_FALSE(ChercherTemoin(b.Familles[2].Mariage, 4));
}

TEST_F(RechercheActesTest, RefusDeBoutonOK) {
    struct Cas {
        Critere critere;
        std::vector<std::string> criteres;
        std::vector<int> cases;
        std::string debut, fin;
        std::int32_t fiche;
        std::string titre;
    };
    const std::string incorrect = "Crit\xE8re incorrect";
    const std::string periode = "P\xE9riode non valide";
    const Cas cas[] = {
        {Critere::Nom, {}, {kCaseNaissance}, "", "", 1, incorrect},
        {Critere::Lieu, {""}, {kCaseNaissance}, "", "", 1, incorrect},
        {Critere::Temoin, {}, {kCaseNaissance}, "", "", 0, incorrect},
        {Critere::Tout, {}, {}, "", "", 1, "Aucun type d'acte s\xE9lectionn\xE9"},
        {Critere::Nom,
         {"DUPONT"},
         {kCaseNaissance, kCaseDeces},
         "",
         "",
         1,
         "Trop de types d'acte s\xE9lectionn\xE9s"},
        {Critere::Nom, {"DUPONT"}, {kCaseTous}, "", "", 1, "Trop de types d'acte s\xE9lectionn\xE9s"},
        {Critere::Tout, {}, {kCaseTous}, "17a0", "", 1, periode},
        {Critere::Tout, {}, {kCaseTous}, "-5", "", 1, periode},
        {Critere::Tout, {}, {kCaseTous}, "1700", "99999", 1, periode},
        {Critere::Tout, {}, {kCaseTous}, "", "", 1, ""},
        {Critere::Lieu, {"*?**??*"}, {kCaseTous}, " 1700 ", "1800", 1, ""},
    };
    for (const Cas& c : cas) {
        RechercheActes r;
        r.OptionType = c.critere;
        r.Criteres = c.criteres;
        for (int k : c.cases) r.TypeActe[k] = true;
        r.AnneeDebut = c.debut;
        r.AnneeFin = c.fin;
        r.Temoin = c.fiche;
        const auto refus = ControlerRecherche(r, c.fiche);
        EXPECT_EQ(refus ? refus->Titre : "", c.titre) << c.debut << c.fin;
    }
}

TEST_F(RechercheActesTest, SelectionOuAjouteEtNeGardeQueLaSelection) {
    RechercheActes r;
    r.TypeActe[kCaseMariage] = true;
    r.OptionType = Critere::Lieu;
    r.Criteres = {"Saint-Just"};
    // OU après toute la base : la sélection part de rien.
    EXPECT_EQ(SelectionnerActes(b, o, r, true, true), "2 personnes et 1 familles");
    EXPECT_EQ(b.Persos[4].Sel, kVrai);
    EXPECT_EQ(b.Persos[1].Sel, kFaux);
    // OU sur une sélection partielle : le mariage de Lyon s'y ajoute, trouvé hors de la sélection.
    r.Criteres = {"Lyon"};
    EXPECT_EQ(SelectionnerActes(b, o, r, true, false), "4 personnes et 2 familles");
    // ET : Pierre seul est gardé, qui n'a pas d'acte à Lyon ; rien ne reste.
    for (std::int32_t n = 1; n <= 5; ++n) b.Persos[n].Sel = n == 3 ? kVrai : kFaux;
    b.Familles[1].Sel = b.Familles[2].Sel = kFaux;
    r.TypeActe[kCaseTous] = true;
    EXPECT_EQ(SelectionnerActes(b, o, r, false, false), "0 personnes et 0 familles");
    // ET : Jean et sa famille sont sélectionnés ; son baptême de Lyon le garde, Marie non marquée sort.
    b.Persos[1].Sel = b.Persos[2].Sel = kVrai;
    b.Familles[1].Sel = kVrai;
    r.TypeActe = {};
    r.TypeActe[kCaseBapteme] = true;
    EXPECT_EQ(SelectionnerActes(b, o, r, false, false), "1 personnes et 1 familles");
    EXPECT_EQ(b.Persos[2].Sel, kFaux);
    EXPECT_EQ(b.Familles[1].Sel, kVrai);
}

TEST_F(RechercheActesTest, TriParNumeroEtDomiciles) {
    EXPECT_FALSE(TriParNumeroPossible(b, 1));  // pas de De Cujus
    b.NumDeCujus = 3;
    EXPECT_TRUE(TriParNumeroPossible(b, 1));
    EXPECT_FALSE(TriParNumeroPossible(b, 0));
    b.Persos[1].SuiteModif().NumSosa[0] = "2";
    b.Persos[3].SuiteModif().NumSosa[0] = "1";
    RechercheActes r;
    r.TypeActe[kCaseNaissance] = true;
    r.OptInclureApprox = true;
    r.ListeTri = {4, 2};
    ListerActes(b, o, r, 1, false, liste);
    ASSERT_EQ(liste.Rangees.size(), 4u);
    // Sosa 1, Sosa 2, puis ceux sans numéro par la date.
    EXPECT_EQ(LireQueue(liste.Rangees[0].texte).numero, 3);
    EXPECT_EQ(LireQueue(liste.Rangees[1].texte).numero, 1);
    EXPECT_EQ(LireQueue(liste.Rangees[2].texte).numero, 2);

    // Clés égales (lieux vides) : l'ordre du parcours reste.
    r.ListeTri = {3, 3};
    ListerActes(b, o, r, 0, false, liste);
    std::vector<std::int32_t> ordre;
    for (const auto& x : liste.Rangees) ordre.push_back(x.valeur);
    EXPECT_EQ(ordre, (std::vector<std::int32_t>{1, 2, 4, 3}));

    b.Persos[2].SuiteModif().Ville = "Lyon";
    const ListePersonne d = ListeDomiciles(b);
    EXPECT_EQ(d.Genre, "domicile");
    ASSERT_EQ(d.Rangees.size(), 6u);
    EXPECT_EQ(d.Rangees[5].texte, "Lyon : MARTIN Marie" + Queue('P', 2));
}

}  // namespace
}  // namespace arbolix
