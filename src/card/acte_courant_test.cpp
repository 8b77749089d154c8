#include "card/acte_courant.h"

#include <gtest/gtest.h>

#include "aides/dialogue_factice.h"
#include "dates/cle_date.h"

namespace arbolix {
namespace {

void Dater(Acte& a, const char* date, int annee) {
    a.Date = date;
    a.DateTri = CleDate(date);
    a.Annee = static_cast<std::int16_t>(annee);
}

TEST(Temoins, LignesAllerRetour) {
    const std::string ligne = LigneTemoin("Jean DUPONT \xB0 1720", "parrain : oncle", 12);
    EXPECT_EQ(ligne, "Jean DUPONT \xB0 1720 : parrain : oncle P000012");
    EXPECT_EQ(TemoinDeLigne(ligne), (Temoin{12, "parrain : oncle"}));
    EXPECT_EQ(LigneTemoinChoisi("Jean DUPONT P000012"), "Jean DUPONT : t\xE9moin P000012");
    EXPECT_EQ(TemoinDeLigne(LigneTemoinChoisi("Jean DUPONT P000012")), (Temoin{12, "t\xE9moin"}));
    EXPECT_EQ(TemoinDeLigne("court"), Temoin{});
}

TEST(Temoins, EcrireRemplitDepuisUnEtVideLeReste) {
    Acte a;
    std::vector<Temoin> vingtEtUn;
    for (int i = 1; i <= 21; ++i) vingtEtUn.push_back({100 + i, "r" + std::to_string(i)});
    EcrireTemoins(a, vingtEtUn);
    EXPECT_EQ(a.Liens().Temoins.Nombre(), 20u);  // le 21e est ignoré
    EXPECT_EQ(a.Liens().Temoins(20), 120);
    EcrireTemoins(a, {{7, "parrain"}});
    EXPECT_EQ(LireTemoins(a), (std::vector<Temoin>{{7, "parrain"}}));
    EXPECT_EQ(a.Liens().RolesTemoins(2), "");
    EcrireTemoins(a, {});
    EXPECT_TRUE(a.Liens().Temoins.empty());
    EXPECT_TRUE(a.Liens().RolesTemoins.empty());
}

TEST(EnregistrerActe, MariageReordonneLesUnionsDesDeuxConjoints) {
    Base base;
    base.NbPersos = 2;
    base.NbFamis = 2;
    for (int f = 1; f <= 2; ++f) {
        base.Familles[f].Mari = 1;
        base.Familles[f].Femme = 2;
        base.Persos[1].Unions[static_cast<std::size_t>(f)] = f;
        base.Persos[2].Unions[static_cast<std::size_t>(f)] = f;
    }
    Dater(base.Familles[1].Mariage, "1760", 1760);
    Dater(base.ActeCourant, "1750", 1750);
    EnregistrerActe(base, 'M', 1, 2, "", 45000);
    EXPECT_EQ(base.Familles[2].Mariage.Date, "1750");
    EXPECT_EQ(base.Persos[1].Unions[1], 2);
    EXPECT_EQ(base.Persos[2].Unions[1], 2);
    EXPECT_EQ(base.Familles[2].DateModif, 45000);
    EXPECT_EQ(base.Persos[1].DateModif, 0);
    EXPECT_EQ(base.FichierModifie, kVrai);
}

TEST(EnregistrerActe, AgeDateLaNaissanceManquante) {
    Base base;
    base.NbPersos = 1;
    Dater(base.ActeCourant, "12/03/1780", 1780);
    EnregistrerActe(base, 'D', 1, 0, "80", 45000);
    EXPECT_EQ(base.Persos[1].Deces.Date, "12/03/1780");
    EXPECT_EQ(base.Persos[1].Naissance.Date, "1700");
    EXPECT_EQ(base.Persos[1].Naissance.Annee, 1700);
    EXPECT_EQ(base.Persos[1].DateModif, 45000);
    // Une naissance déjà datée n'est pas touchée.
    Dater(base.ActeCourant, "1790", 1790);
    EnregistrerActe(base, 'S', 1, 0, "85", 45000);
    EXPECT_EQ(base.Persos[1].Naissance.Date, "1700");
}

TEST(EnregistrerActe, ConversionNeRangeRien) {
    Base base;
    base.NbPersos = 1;
    Dater(base.ActeCourant, "1750", 1750);
    EnregistrerActe(base, 'Z', 1, 0, "", 45000);
    EXPECT_EQ(base.FichierModifie, kFaux);
    EXPECT_TRUE(base.Persos[1].Naissance.Date.empty());
}

// Une note et une source externes d'un évènement : leurs retours de liens suivent le texte rangé.
TEST(EnregistrerActe, NotesEtSourcesExternesGardentLeursRetours) {
    Base base;
    base.NbPersos = 1;
    base.Persos[1].Prenoms = "Jean";
    base.NbFamis = 1;
    base.Familles[1].Mari = 1;
    base.Persos[1].Unions[1] = 1;
    base.NbNotes = base.NbNotesReelles = 2;
    base.NbSources = base.NbSourcesReelles = 1;
    base.Notes[1].Texte = "premier";
    base.Notes[2].Texte = "second";
    base.Sources[1].Texte = "registre";
    base.ActeCourant.Notes = "@N1@";
    base.ActeCourant.Source = "@S1@";
    EnregistrerActe(base, 'D', 1, 0, "", 45000);
    EXPECT_EQ(base.Persos[1].Deces.Notes, "@N1@");
    EXPECT_EQ(base.Notes[1].LiensPersos(1), 1);
    EXPECT_EQ(base.Sources[1].LiensPersos(1), 1);
    // Une autre note : la première perd son lien et la question est posée.
    DialogueFactice d;
    d.ReponseSuivante(Bouton::Non);
    base.ActeCourant = base.Persos[1].Deces;
    base.ActeCourant.Notes = "@N2@";
    EnregistrerActe(base, 'D', 1, 0, "", 45000, &d);
    EXPECT_EQ(base.Notes[1].LiensPersos(1), 0);
    EXPECT_EQ(base.Notes[2].LiensPersos(1), 1);
    EXPECT_EQ(base.Sources[1].LiensPersos(1), 1);
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Note externe sans lien");
    // Un évènement de famille lie la famille.
    base.ActeCourant = Acte{};
    base.ActeCourant.Source = "@S1@";
    EnregistrerActe(base, 'M', 1, 1, "", 45000);
    EXPECT_EQ(base.Sources[1].LiensFamis(1), 1);
    EXPECT_EQ(base.Familles[1].Mariage.Source, "@S1@");
}

}  // namespace
}  // namespace arbolix
