#include "card/enregistrer_fiche.h"

#include <gtest/gtest.h>

#include "aides/dialogue_factice.h"
#include "store/aides_texte.h"

namespace arbolix {
namespace {

constexpr double kMaintenant = 45000;

// Une base d'une personne neuve ("N" "N") affichée sur la fiche.
struct Banc {
    Base base;
    DialogueFactice dialogue;
    std::int32_t n = NouvellePersonne(base, true, false);
    Banc() { base.NumCourant = n; }
    SaisieFiche Saisie() const { return SaisieDePersonne(base, n); }
    bool Enregistrer(const SaisieFiche& s) {
        base.FicheModifiee = kVrai;
        return EnregistrerFiche(base, s, dialogue, kMaintenant);
    }
    const Perso& P() const { return base.Persos[n]; }
};

TEST(EnregistrerFiche, FicheNonModifieeLaissePersonneCommeElleEst) {
    Banc b;
    SaisieFiche s = b.Saisie();
    s.Nom = "DUPONT";
    EXPECT_FALSE(EnregistrerFiche(b.base, s, b.dialogue, kMaintenant));
    // La fiche neuve quittée sans frappe reste en usage, au nom "N".
    EXPECT_EQ(b.P().Nom, "N");
    EXPECT_EQ(b.P().CodeNom, "N000");
    EXPECT_EQ(b.base.FichierModifie, kVrai);  // la création l'a déjà levé
    b.base.NumCourant = 0;
    b.base.FicheModifiee = kVrai;
    EXPECT_FALSE(EnregistrerFiche(b.base, s, b.dialogue, kMaintenant));
}

TEST(EnregistrerFiche, CopieChaqueChampEtRemplitLesListes) {
    Banc b;
    SaisieFiche s = b.Saisie();
    s.Sel = true;
    s.Nom = "DE LA TOUR";
    s.Prenoms = "Jeanne";
    s.Sexe = 'F';
    s.IntRechDescendance = true;
    s.Metier = "tisserand puis laboureur";
    s.Ref = "R12";
    s.Notes = "  Vue au registre.  ";
    s.Ville = "Sarlat";
    s.EMail = "j@exemple.fr";
    b.base.FichierModifie = kFaux;
    ASSERT_TRUE(b.Enregistrer(s));
    const Perso& p = b.P();
    EXPECT_EQ(p.Sel, kVrai);
    EXPECT_EQ(p.Nom, "DE LA TOUR");
    EXPECT_EQ(p.CodeNom.str(), CodeSon("DE LA TOUR"));
    EXPECT_EQ(p.NomTri, "LA_TOUR");
    EXPECT_EQ(p.Prenoms, "Jeanne");
    EXPECT_EQ(p.Sexe, 'F');
    EXPECT_EQ(p.Interet, 2);
    EXPECT_EQ(p.Metier, "tisserand puis laboureur");
    EXPECT_EQ(p.CodesMetiers, "ti,la");
    EXPECT_EQ(p.Notes, "Vue au registre.");
    EXPECT_EQ(p.Suite().Ref, "R12");
    EXPECT_EQ(p.Suite().Ville, "Sarlat");
    EXPECT_EQ(p.Suite().EMail, "j@exemple.fr");
    EXPECT_EQ(p.DateModif, kMaintenant);
    EXPECT_EQ(b.base.FicheModifiee, kFaux);
    EXPECT_EQ(b.base.FichierModifie, kVrai);
    for (const char* m : {"tisserand", "laboureur"}) EXPECT_TRUE(b.base.Listes.Metier.Contient(m)) << m;
    EXPECT_TRUE(b.base.Listes.Nom.Contient("DE LA TOUR"));
    EXPECT_TRUE(b.base.Listes.Prenoms.Contient("Jeanne"));
    EXPECT_TRUE(b.dialogue.messages.empty());
    // Relue, la saisie est celle qui a été donnée (note rognée).
    const SaisieFiche relue = b.Saisie();
    EXPECT_EQ(relue.Nom, s.Nom);
    EXPECT_EQ(relue.Ville, s.Ville);
    EXPECT_EQ(relue.Notes, "Vue au registre.");
    EXPECT_TRUE(relue.IntRechDescendance && !relue.IntRechAscendance && relue.Sel);
}

TEST(EnregistrerFiche, SexeDemandeSeulementAvecDesPrenoms) {
    Banc b;
    SaisieFiche s = b.Saisie();
    s.Sexe = ' ';
    s.Prenoms = "Claude";
    b.dialogue.ReponseSuivante(Bouton::Non);
    ASSERT_TRUE(b.Enregistrer(s));
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Sexe");
    EXPECT_EQ(b.dialogue.messages[0].boutons, Boutons::HommeFemme);
    EXPECT_EQ(b.P().Sexe, 'F');
    b.dialogue.ReponseSuivante(Bouton::Oui);
    ASSERT_TRUE(b.Enregistrer(s));
    EXPECT_EQ(b.P().Sexe, 'M');
    // Prénoms vides : la fiche se libère, sans question.
    s.Prenoms.clear();
    ASSERT_TRUE(b.Enregistrer(s));
    EXPECT_EQ(b.dialogue.messages.size(), 2u);
    EXPECT_FALSE(PersonneExiste(b.base, b.n));
}

TEST(EnregistrerFiche, NoteExterneGardeSonRetourDeLien) {
    Banc b;
    b.base.NbNotes = 1;
    b.base.NbNotesReelles = 1;
    b.base.Notes[1].Texte = "Registre de Sarlat";
    SaisieFiche s = b.Saisie();
    s.Sexe = 'M';
    s.Notes = "@N1@";
    ASSERT_TRUE(b.Enregistrer(s));
    EXPECT_EQ(b.base.Notes[1].LiensPersos(1), b.n);
    // Le lien remplacé par un texte : la note sans lien fait poser la question, Non la garde.
    s.Notes = "rien";
    b.dialogue.ReponseSuivante(Bouton::Non);
    ASSERT_TRUE(b.Enregistrer(s));
    EXPECT_EQ(b.base.Notes[1].LiensPersos(1), 0);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Note externe sans lien");
    EXPECT_EQ(b.base.Notes[1].Texte, "Registre de Sarlat");
}

TEST(ToucheSaisie, AideDeFrappeParChamp) {
    const struct {
        ChampSaisi champ;
        const char* avant;
        char touche;
        std::optional<char> attendu;
    } cas[] = {
        {ChampSaisi::Nom, "DUP", 'o', 'O'},
        {ChampSaisi::Nom, "DUP", '/', std::nullopt},
        {ChampSaisi::Nom, "", '\xE9', '\xC9'},
        {ChampSaisi::Prenoms, "", 'j', 'J'},
        {ChampSaisi::Prenoms, "Jean ", 'm', 'M'},
        {ChampSaisi::Prenoms, "Jean-", 'p', 'P'},
        {ChampSaisi::Prenoms, "JE", 'A', 'a'},
        {ChampSaisi::Metier, "Lab", 'O', 'O'},
        {ChampSaisi::Metier, "a", '/', std::nullopt},
        {ChampSaisi::Ville, "", 's', 'S'},
        {ChampSaisi::Etat, "", 'd', 'D'},
        {ChampSaisi::CP, "24", 'a', 'a'},
        {ChampSaisi::EMail, "J", 'D', 'd'},
        {ChampSaisi::URL, "", 'H', 'h'},
        {ChampSaisi::Telephone, "05", '3', '3'},
        {ChampSaisi::Telephone, "", '+', '+'},
        {ChampSaisi::Telephone, "", 22, 22},
        {ChampSaisi::Telephone, "05", 'a', std::nullopt},
        {ChampSaisi::Telephone, "05", '-', std::nullopt},
    };
    for (const auto& c : cas)
        EXPECT_EQ(ToucheSaisie(c.champ, c.avant, c.touche, true), c.attendu)
            << static_cast<int>(c.champ) << " " << c.avant << c.touche;
    // Sans correction de casse, seuls les refus demeurent.
    EXPECT_EQ(ToucheSaisie(ChampSaisi::Nom, "", 'a', false), 'a');
    EXPECT_EQ(ToucheSaisie(ChampSaisi::Nom, "", '/', false), std::nullopt);
}

TEST(PrenomsQuittes, CasseRefaiteEtSurnomEnMinuscules) {
    EXPECT_EQ(PrenomsQuittes("jean DIT le petit", true), "Jean dit Le Petit");
    EXPECT_EQ(PrenomsQuittes("marie-anne", true), "Marie-Anne");
    EXPECT_EQ(PrenomsQuittes("jean DIT", false), "jean DIT");
}

}  // namespace
}  // namespace arbolix
