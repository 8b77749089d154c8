#include "lists/remplacer.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;
using essai::Dater;

constexpr double kAujourdhui = 46000;

class RemplacerTest : public ::testing::Test {
protected:
    void SetUp() override {
        AjouterPersonne(b, 1, "DUPOND", "Jean", 'M', "1720");
        AjouterPersonne(b, 2, "DUPOND", "Marie", 'F', "1725");
        AjouterPersonne(b, 3, "MARTIN", "Jean", 'M');
        AjouterFamille(b, 1, 1, 2, "1745");
        Dater(b.Persos[1].Naissance, "1720", "Saint-Denis");
        Dater(b.Familles[1].Mariage, "1745", "saint-denis, \xCEle-de-France");
        b.Persos[1].Notes = "N\xE9 \xE0 Saint-Denis, baptis\xE9 \xE0 SAINT-DENIS";
        b.Familles[1].Mariage.Notes = "\xE0 saint-d\xC9nis";
        for (const char* n : {"DUPOND", "MARTIN"}) b.Listes.Nom.Ajouter(n);
        for (const char* l : {"Saint-Denis", "saint-denis, \xCEle-de-France", "Saint-Just"})
            b.Listes.Lieu.Ajouter(l);
    }

    ListePersonne Valeurs(int entree) {
        DialogueFactice d;
        ListePersonne l;
        EXPECT_TRUE(ListerValeurs(b, kRechRemp[entree], false, d, l));
        return l;
    }

    Base b;
};

std::vector<std::string> Textes(const ListePersonne& l) {
    std::vector<std::string> t;
    for (const auto& r : l.Rangees) t.push_back(r.texte);
    return t;
}

TEST_F(RemplacerTest, ListerValeursSesBoitesEtSesRangees) {
    ListePersonne l = Valeurs(0);
    EXPECT_EQ(l.Genre, "nom");
    EXPECT_EQ(l.Titre, "Rechercher un nom");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"DUPOND", "MARTIN"}));

    DialogueFactice d;
    EXPECT_FALSE(ListerValeurs(b, kRechRemp[5], false, d, l));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre,
              "Pas de donn\xE9"
              "es disponibles");
    EXPECT_EQ(d.messages[0].texte, "La liste est vide.");
    // Avec la confirmation : Annuler (le bouton par défaut) arrête, OK montre la liste.
    EXPECT_FALSE(ListerValeurs(b, kRechRemp[4], true, d, l));
    EXPECT_EQ(d.messages[1].titre, "Rechercher/remplacer un lieu");
    d.ReponseSuivante(Bouton::Ok);
    EXPECT_TRUE(ListerValeurs(b, kRechRemp[4], true, d, l));
    EXPECT_EQ(l.Genre, "lieu");
    EXPECT_EQ(l.Rangees.size(), 3u);
    EXPECT_EQ(EntreeDuGenre("source")->champ, ChampRemp::Source);
    EXPECT_EQ(EntreeDuGenre("actes"), nullptr);
}

TEST_F(RemplacerTest, NomParLuiMemeEtFicheHorsSelection) {
    ListePersonne l = Valeurs(0);
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::Nom, "DUPOND", "DUPOND", kAujourdhui, &l), 2);
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"DUPOND", "MARTIN"}));
    // Marie est hors de la sélection : elle garde DUPOND, que la liste ne montre plus.
    b.Persos[2].Sel = kFaux;
    DialogueFactice d;
    d.SaisieSuivante("DUPONT");
    EXPECT_EQ(DemanderRemplacement(b, kRechRemp[0], l, 0, d, kAujourdhui), 1);
    EXPECT_EQ(b.Persos[1].Nom, "DUPONT");
    EXPECT_EQ(b.Persos[1].CodeNom.str(), CodeSon("DUPONT"));
    EXPECT_EQ(b.Persos[1].DateModif, kAujourdhui);
    EXPECT_EQ(b.Persos[2].Nom, "DUPOND");
    EXPECT_FALSE(b.Listes.Nom.Contient("DUPOND"));
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"DUPONT", "MARTIN"}));
    // Vers une valeur déjà là : une seule rangée, un seul nom dans la liste de saisie.
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::Nom, "MARTIN", "DUPONT", kAujourdhui, &l), 1);
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"DUPONT"}));
    EXPECT_EQ(b.Listes.Nom.size(), 1u);
    // Une saisie vide ou annulée ne change rien.
    d.SaisieSuivante("");
    d.SaisieSuivante(std::nullopt);
    EXPECT_EQ(DemanderRemplacement(b, kRechRemp[0], l, 0, d, kAujourdhui), 0);
    EXPECT_EQ(DemanderRemplacement(b, kRechRemp[0], l, 0, d, kAujourdhui), 0);
    EXPECT_EQ(b.Persos[1].Nom, "DUPONT");
}

TEST_F(RemplacerTest, ChampsDesPersonnesEtDesActes) {
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::NomTri, "DUPOND", "DUPOND_X", kAujourdhui, nullptr), 2);
    EXPECT_EQ(b.Persos[1].NomTri, "DUPOND_X");
    EXPECT_EQ(b.Persos[1].Nom, "DUPOND");
    EXPECT_TRUE(b.Listes.Nom.Contient("DUPOND"));
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::Prenom, "Jean", "Jehan", kAujourdhui, nullptr), 2);
    b.Persos[3].Metier = "Tisserand";
    b.Persos[3].CodesMetiers = "Ti";
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::Metier, "Tisserand", "Laboureur", kAujourdhui, nullptr), 1);
    EXPECT_EQ(b.Persos[3].CodesMetiers, "La");
    // Le lieu doit valoir exactement l'ancien ; la famille est datée avec la personne.
    EXPECT_EQ(RemplacerValeur(b, ChampRemp::Lieu, "Saint-Denis", "St-Denis", kAujourdhui, nullptr), 1);
    EXPECT_EQ(b.Persos[1].Naissance.Lieu, "St-Denis");
    EXPECT_EQ(b.Familles[1].Mariage.Lieu, "saint-denis, \xCEle-de-France");
    EXPECT_TRUE(b.Listes.Lieu.Contient("St-Denis"));
    EXPECT_EQ(b.FichierModifie, kVrai);
}

TEST_F(RemplacerTest, NotesSansCasseNiAccents) {
    DialogueFactice d;
    d.ReponseSuivante(Bouton::Ok);
    d.SaisieSuivante("saint-denis");
    d.SaisieSuivante("Saint-Denis-en-France");
    EXPECT_EQ(MenuRechRempNotes(b, d), 3);
    EXPECT_EQ(b.Persos[1].Notes, "N\xE9 \xE0 Saint-Denis-en-France, baptis\xE9 \xE0 Saint-Denis-en-France");
    EXPECT_EQ(b.Familles[1].Mariage.Notes, "\xE0 Saint-Denis-en-France");
    EXPECT_EQ(b.FichierModifie, kVrai);
    EXPECT_EQ(d.messages[0].titre, "Rechercher/remplacer dans toutes les notes");
    // Annuler à l'avertissement : rien ne change.
    EXPECT_EQ(MenuRechRempNotes(b, d), -1);
}

TEST_F(RemplacerTest, TousLesLieuxEtLeurListe) {
    EXPECT_EQ(RemplacerLieux(b, "SAINT-", "St-"), 2);
    EXPECT_EQ(b.Persos[1].Naissance.Lieu, "St-Denis");
    EXPECT_EQ(b.Familles[1].Mariage.Lieu, "St-denis, \xCEle-de-France");
    EXPECT_EQ(b.Listes.Lieu.Triee(),
              (std::vector<std::string>{"St-Denis", "St-Just", "St-denis, \xCEle-de-France"}));
    // Un texte vide, ou fait de jokers, ne remplace rien : ils se comparent tels quels.
    EXPECT_EQ(RemplacerLieux(b, "", "X"), 0);
    EXPECT_EQ(RemplacerLieux(b, "*?*", "X"), 0);
    DialogueFactice d;
    d.ReponseSuivante(Bouton::Ok);
    d.SaisieSuivante("st-just");
    d.SaisieSuivante("Saint-Just");
    EXPECT_EQ(MenuRechRempTousLieux(b, d), 0);
    EXPECT_TRUE(b.Listes.Lieu.Contient("Saint-Just"));
}

}  // namespace
}  // namespace arbolix
