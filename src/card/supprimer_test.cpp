#include "card/supprimer.h"

#include <gtest/gtest.h>

#include "aides/banc_edition.h"
#include "card/acte_courant.h"
#include "card/notes.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::BancEdition;

TEST(SupprimerPersonne, NonNeChangeRien) {
    BancEdition b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    b.dialogue.ReponseSuivante(Bouton::Non);
    EXPECT_EQ(SupprimerPersonne(b.e, p), std::nullopt);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    const auto& m = b.dialogue.messages[0];
    EXPECT_EQ(m.titre, "Supprimer une personne");
    EXPECT_EQ(m.texte,
              "Attention : la fiche de Jean DUPONT va \xEAtre supprim\xE9"
              "e ! Confirmez la suppression.");
    EXPECT_EQ(m.boutons, Boutons::OuiNon);
    EXPECT_EQ(m.defaut, Bouton::Non);
    EXPECT_EQ(b.P(p).Prenoms, "Jean");
    // Une fiche vide ou hors des tableaux ne pose même pas la question.
    EXPECT_EQ(SupprimerPersonne(b.e, 0), std::nullopt);
    EXPECT_EQ(SupprimerPersonne(b.e, 99999999), std::nullopt);
    EXPECT_EQ(b.dialogue.messages.size(), 1u);
}

TEST(SupprimerPersonne, ToutesSesUnionsEtSaPlaceDEnfantDisparaissent) {
    BancEdition b;
    const auto pere = b.Personne("DUPONT", "Pierre", 'M');
    const auto p = b.Personne("DUPONT", "Jean", 'M', "1750");
    const auto soeur = b.Personne("DUPONT", "Anne", 'F', "1752");
    const auto f1 = b.Personne("MARTIN", "Marie", 'F');
    const auto f2 = b.Personne("DURAND", "Louise", 'F');
    AjouterFamille(b.base, 1, pere, 0, "", {p, soeur});
    AjouterFamille(b.base, 2, p, f1, "1775");
    AjouterFamille(b.base, 3, p, f2, "1780");
    AjouterFamille(b.base, 4, p, 0, "1785", {b.Personne("DUPONT", "Paul", 'M')});
    const auto dernier = b.Personne("DUPONT", "Luc", 'M');
    b.base.Persos[dernier].Naissance.LiensModif().Temoins.Fixer(1, p);
    b.base.Persos[dernier].Naissance.LiensModif().RolesTemoins.Fixer(1, "parrain");
    b.dialogue.ReponseSuivante(Bouton::Oui);
    EXPECT_EQ(SupprimerPersonne(b.e, p), p - 1);
    EXPECT_TRUE(b.P(p).Prenoms.empty());
    // Les quatre unions sont parties, pas une sur deux comme si la liste retriée avait été suivie.
    EXPECT_EQ(b.F(2).Mari, 0);
    EXPECT_EQ(b.F(3).Mari, 0);
    EXPECT_EQ(b.P(f1).Unions[1], 2);
    // La famille sans conjoint disparaît, son enfant perd ses parents et un message le dit.
    EXPECT_EQ(b.Titres(), "Supprimer une personne | Supprimer une famille");
    EXPECT_EQ(b.F(4).Enfants.Nombre(), 0u);
    EXPECT_EQ(b.F(1).Enfants(1), soeur);
    EXPECT_TRUE(b.P(dernier).Naissance.Liens().Temoins.empty());
    EXPECT_TRUE(b.P(dernier).Naissance.Liens().RolesTemoins.empty());
    EXPECT_EQ(b.base.NbPersosReels, 6);
    b.BaseIntacte();
}

TEST(SupprimerPersonne, LaDernierePersonneFaitBaisserNbPersos) {
    BancEdition b;
    b.Personne("DUPONT", "Jean", 'M');
    const auto p = b.Personne("DUPONT", "Paul", 'M');
    b.dialogue.ReponseSuivante(Bouton::Oui);
    EXPECT_EQ(SupprimerPersonne(b.e, p), 1);
    EXPECT_EQ(b.base.NbPersos, 1);
    EXPECT_EQ(b.base.NumCourant, 1);
    EXPECT_EQ(b.base.FichierModifie, kVrai);
    // Une fiche plus bas ne touche pas au plus haut numéro.
    const auto q = b.Personne("DUPONT", "Marc", 'M');
    b.dialogue.ReponseSuivante(Bouton::Oui);
    EXPECT_EQ(SupprimerPersonne(b.e, 1), 0);
    EXPECT_EQ(b.base.NbPersos, q);
    b.BaseIntacte();
}

TEST(EffacerPersonne, LesNotesQuiPerdentLeurDernierLienFontPoserLaQuestion) {
    BancEdition b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    const auto q = b.Personne("DUPONT", "Paul", 'M');
    const auto seule = NouvelleNote(b.base, 'N');
    const auto partagee = NouvelleNote(b.base, 'S');
    b.base.Notes[seule].Texte = "Acte de bapt\xEAme";
    b.base.Sources[partagee].Titre = "Registre";
    ChangerChamp(b.base, {false, p, 0, false}, "@N1@", nullptr);
    ChangerChamp(b.base, {false, p, 1, true}, "@S1@", nullptr);
    ChangerChamp(b.base, {false, q, 3, true}, "@S1@", nullptr);
    b.dialogue.ReponseSuivante(Bouton::Oui);
    EffacerPersonne(b.base, p, &b.dialogue);
    // Seule la note sans autre lien est proposée ; la source garde le lien de q.
    EXPECT_EQ(b.Titres(), "Note externe sans lien");
    EXPECT_TRUE(std::as_const(b.base.Notes)[seule].Texte.empty());
    EXPECT_TRUE(Contient(std::as_const(b.base.Sources)[partagee].LiensPersos, q));
    b.BaseIntacte();
    // Une fiche déjà vide : rien, et les compteurs ne bougent plus.
    const auto reels = b.base.NbPersosReels;
    EffacerPersonne(b.base, p, &b.dialogue);
    EXPECT_EQ(b.base.NbPersosReels, reels);
}

}  // namespace
}  // namespace arbolix
