#include "card/dupliquer.h"

#include <gtest/gtest.h>

#include "aides/banc_edition.h"
#include "card/medias.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::BancEdition;

TEST(DupliquerPersonne, NomSexeParentsEtFichiersSeulement) {
    BancEdition b;
    const auto pere = b.Personne("DUPONT", "Pierre", 'M');
    const auto s = b.Personne("Dupont", "Jean", 'M', "1750");
    const auto cadet = b.Personne("DUPONT", "Paul", 'M', "1760");
    AjouterFamille(b.base, 1, pere, 0, "", {s, cadet});
    AjouterFamille(b.base, 2, s, 0, "1775");
    b.base.Persos[s].Metier = "Tisserand";
    b.base.Persos[s].SuiteModif().Ville = "Lyon";
    b.base.Persos[s].SuiteModif().Fichiers.Fixer(1, "photo.jpg");
    const auto m = NouvelObjetMedia(b.base, "acte.png");
    ASSERT_TRUE(LierMedia(b.base, s, 0, m));
    const auto d = DupliquerPersonne(b.e, s);
    EXPECT_EQ(d, cadet + 1);
    EXPECT_EQ(b.base.NumCourant, d);
    const Perso& c = b.P(d);
    EXPECT_EQ(c.Nom, "Dupont");
    EXPECT_EQ(c.CodeNom, b.P(s).CodeNom);
    EXPECT_EQ(c.Prenoms, "N");
    EXPECT_EQ(c.Sexe, 'M');
    EXPECT_TRUE(c.Naissance.Date.empty());
    EXPECT_TRUE(c.Metier.empty());
    EXPECT_TRUE(c.Suite().Ville.empty());
    EXPECT_EQ(c.Unions[1], 0);
    // Dernière place des enfants, sans retri : la copie sans date reste derrière le cadet.
    EXPECT_EQ(c.NumParents, 1);
    EXPECT_EQ(b.F(1).Enfants(3), d);
    EXPECT_EQ(c.Suite().ObjetsMedia(1), m);
    EXPECT_EQ(std::as_const(b.base.Medias)[m].LiensPersos(2), d);
    EXPECT_EQ(c.Suite().Fichiers(1), "photo.jpg");
    EXPECT_TRUE(b.dialogue.messages.empty());
    b.BaseIntacte();
}

TEST(DupliquerPersonne, FamillePleineEtObjetPleinLeDisent) {
    BancEdition b;
    const auto pere = b.Personne("DUPONT", "Pierre", 'M');
    AjouterFamille(b.base, 1, pere, 0);
    for (int i = 1; i <= kMaxEnfants; ++i) {
        const auto e = b.Personne("DUPONT", "Enfant", 'M');
        b.base.Familles[1].Enfants.Fixer(i, e);
        b.base.Persos[e].NumParents = 1;
    }
    const auto s = b.base.Familles[1].Enfants(5);
    const auto m = NouvelObjetMedia(b.base, "C:\\Photos\\famille.jpg");
    LierMedia(b.base, s, 0, m);
    for (int i = 2; i <= kMaxLiens; ++i) LierMedia(b.base, b.Personne("MARTIN", "Autre", 'F'), 0, m);
    const auto d = DupliquerPersonne(b.e, s);
    ASSERT_GT(d, 0);
    ASSERT_EQ(b.dialogue.messages.size(), 2u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Dupliquer");
    EXPECT_EQ(
        b.dialogue.messages[0].texte,
        "Impossible de dupliquer le lien vers les parents car le nombre maximum d'enfants par couple est "
        "atteint.");
    EXPECT_EQ(b.dialogue.messages[0].icone, Icone::Attention);
    EXPECT_EQ(b.dialogue.messages[1].texte,
              "Impossible d'ajouter le lien complet vers le fichier C:\\Photos\\famille.jpg");
    EXPECT_EQ(b.P(d).NumParents, 0);
    // Le numéro reste chez la copie, sans retour : l'objet a déjà neuf personnes.
    EXPECT_EQ(b.P(d).Suite().ObjetsMedia(1), m);
    b.BaseIntacte();
    EXPECT_EQ(DupliquerPersonne(b.e, 0), 0);
}

}  // namespace
}  // namespace arbolix
