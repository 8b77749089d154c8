#include "acts/conversion_tmao.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

ActeTMAO Acte(std::string nom1, std::string prenom1, std::string nom2, std::string prenom2, int jour,
              int mois, int annee) {
    ActeTMAO a;
    a.Nom1 = std::move(nom1);
    a.Prenom1 = std::move(prenom1);
    a.Nom2 = std::move(nom2);
    a.Prenom2 = std::move(prenom2);
    a.Jour = jour;
    a.Mois = mois;
    a.Annee = annee;
    return a;
}

// Deux mariages : l'un daté et commenté, l'autre d'une année républicaine et sans épouse nommée.
std::vector<ActeTMAO> Mariages() {
    ActeTMAO a = Acte("DUPONT", "Jean (25)", "MARTIN", "Marie", 12, 2, 1750);
    a.Lignes1 = {"fils de Pierre", "laboureur", "", ""};
    a.Lignes2 = {"fille de Claude", "", "", ""};
    a.LignesActe = {"t\xE9moins : Paul", "", "", "f\xB0 12"};
    ActeTMAO b = Acte("\xC9TIENNE", "Louis", "", "", 12, 1, 3);
    return {a, b};
}

std::vector<ActeTMAO> Naissances() {
    ActeTMAO a = Acte("DUPONT", "Anne", "DUPONT", "Jean", 3, 4, 1760);
    a.Lignes1 = {"fille de Jean", "", "", ""};
    a.LignesActe = {"parrain : Paul", "", "", ""};
    return {a, Acte("BLANC", "Pierre", "", "", 0, 0, 1761)};
}

TEST(ConversionTMAO, SortiesDeReference) {
    const struct {
        const char* fichier;
        char type;
        std::string (*sortie)(const std::vector<ActeTMAO>&, const EnteteConversion&);
    } cas[] = {
        {"mariages.txt", 'M', TexteTMAO},
        {"mariages_tabule.txt", 'M', TabuleTMAO},
        {"mariages_colonnes.txt", 'M', ColonnesTMAO},
        {"mariages.ged", 'M', GedcomTMAO},
        {"naissances.ged", 'N', GedcomTMAO},
        {"naissances.txt", 'N', TexteTMAO},
    };
    for (const auto& c : cas) {
        const EnteteConversion e{"M54123.TM", c.type, "Nancy", "01/02/2026"};
        const auto actes = c.type == 'M' ? Mariages() : Naissances();
        EXPECT_TRUE(essais::CommeReference(std::filesystem::path(ARBOLIX_DONNEES) / "tmao" / c.fichier,
                                           c.sortie(actes, e)))
            << c.fichier;
    }
}

TEST(ConversionTMAO, LeGedcomSeRelitParNotreLecteur) {
    essai::Lecture l;
    l.LireTout(GedcomTMAO(Mariages(), {"M54123.TM", 'M', "Nancy", "01/02/2026"}));
    EXPECT_EQ(l.base.NbPersosReels, 3);
    EXPECT_EQ(l.base.NbFamisReels, 2);
    EXPECT_EQ(l.Pe(1).Nom, "DUPONT");
    EXPECT_EQ(l.Pe(1).Sexe, 'M');
    EXPECT_EQ(l.Pe(2).Sexe, 'F');
    EXPECT_EQ(l.Fa(1).Mari, 1);
    EXPECT_EQ(l.Fa(1).Femme, 2);
    EXPECT_EQ(l.Fa(1).Mariage.Date, "12/02/1750");
    EXPECT_EQ(l.Fa(1).Mariage.Lieu, "Nancy");
    EXPECT_EQ(l.Fa(2).Mari, 3);
    EXPECT_EQ(l.Fa(2).Femme, 0);
    EXPECT_EQ(l.Pe(3).Unions[1], 2);
    EXPECT_EQ(l.Fa(2).Mariage.Date, "03/10/1794");  // le 12 vendémiaire an III
    EXPECT_EQ(l.Pe(1).Prenoms, "Jean");
    EXPECT_EQ(l.Pe(1).Notes, "\xE2ge : 25 ans \r\nfils de Pierre \r\nlaboureur");
    EXPECT_EQ(l.Journal(),
              "Alerte : la famille 2 comporte des \xE9v\xE8nements mais n'a pas 2 conjoints.\r\n");

    essai::Lecture n;
    n.LireTout(GedcomTMAO(Naissances(), {"N54123.TM", 'N', "Toul", "01/02/2026"}));
    EXPECT_EQ(n.base.NbPersosReels, 3);
    EXPECT_EQ(n.Pe(1).Naissance.Date, "03/04/1760");
    EXPECT_EQ(n.Pe(1).Naissance.Lieu, "Toul");
    EXPECT_EQ(n.Pe(3).Naissance.Date, "1761");
    EXPECT_EQ(n.Pe(1).Notes, "fille de Jean \r\nparrain : Paul");
}

TEST(ConversionTMAO, FichierExistantProposeUnAutreNom) {
    const auto dossier = essais::DossierEssai("tmao");
    std::filesystem::create_directories(dossier);
    const std::string source = (dossier / "N54123.TM").string();
    DialogueFactice d;
    EXPECT_EQ(NomSortieConversion(source, kConvGedcom, d), (dossier / "N54123.ged").string());
    EXPECT_TRUE(d.messages.empty());
    std::ofstream((dossier / "N54123.txt").string()) << "ancien";
    d.SaisieSuivante((dossier / "autre.txt").string());
    EXPECT_EQ(NomSortieConversion(source, kConvTexte, d), (dossier / "autre.txt").string());
    d.SaisieSuivante(std::nullopt);
    EXPECT_EQ(NomSortieConversion(source, kConvTabule, d), std::nullopt);
    std::filesystem::remove_all(dossier);
}

}  // namespace
}  // namespace arbolix
