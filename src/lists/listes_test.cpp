#include "lists/listes.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"

namespace arbolix {
namespace {

using essai::AjouterFamille;
using essai::AjouterPersonne;
using essai::Dater;

std::vector<std::string> Textes(const ListePersonne& l) {
    std::vector<std::string> t;
    for (const auto& r : l.Rangees) t.push_back(r.texte);
    return t;
}

class Listes : public ::testing::Test {
protected:
    void SetUp() override {
        AjouterPersonne(b, 1, "MARTIN", "Pierre", 'M', "1690");
        AjouterPersonne(b, 2, "LAGARDE", "Anne", 'F', "1694");
        AjouterPersonne(b, 3, "MARTIN", "Zo\xE9", 'F', "1718");
        AjouterPersonne(b, 4, "MARTIN", "Jean", 'M', "1721");
        AjouterPersonne(b, 5, "\xC9TIENNE", "\xC9lisabeth", 'F', "1748");
        AjouterPersonne(b, 6, "MARTIN", "Cach\xE9", 'M').Sel = kFaux;
        AjouterFamille(b, 1, 1, 2, "14/01/1716", {3, 4});
        AjouterFamille(b, 2, 0, 5);  // sans mari : l'épouse la nomme
    }
    Base b;
    Options o;
    ReponsesListes reponses;
};

TEST_F(Listes, PersonnesTrieesParNomPuisNaissanceLuesParLigneListe) {
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ASSERT_TRUE(ChercherEtLister(b, ctx, QuoiListe::Persos, l));
    EXPECT_EQ(l.Genre, "tous");
    EXPECT_EQ(l.Titre, "Choisissez une personne");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{
                             " Ajouter... P000007",
                             "LAGARDE Anne \xB0"
                             "1694 P000002",
                             "MARTIN Pierre \xB0"
                             "1690 P000001",
                             "MARTIN Zo\xE9 \xB0"
                             "1718 P000003",
                             "MARTIN Jean \xB0"
                             "1721 P000004",
                             "\xC9TIENNE \xC9lisabeth \xB0"
                             "1748 P000005",
                         }));
    EXPECT_EQ(l.Rangees[4].valeur, 4);
}

TEST_F(Listes, InviteDeLaListeCourte) {
    o.ListePersosCourte = true;
    std::vector<Invite> vues;
    std::vector<std::vector<std::string>> reponsesDonnees = {{"MART*", "z"}, {"", ""}, {"MARTIN", ""}};
    ContexteListe ctx(o, reponses, [&](Invite& inv) {
        vues.push_back(inv);
        inv.Valeurs = reponsesDonnees[vues.size() - 1];
        return true;
    });
    ctx.NomFiche = "MARTIN";
    ctx.PrenomsFiche = "Jean";
    ListePersonne l;
    ASSERT_TRUE(ChercherEtLister(b, ctx, QuoiListe::Persos, l));
    ASSERT_EQ(vues.size(), 1u);
    EXPECT_EQ(vues[0].Titre, "Liste des personnes...");
    EXPECT_EQ(vues[0].Valeurs, (std::vector<std::string>{"MARTIN", "Jean"}));  // la personne de la fiche
    // Code phonétique du nom, prénoms mis en casse : "z" trouve Zoé.
    EXPECT_EQ(Textes(l), (std::vector<std::string>{" Ajouter... P000007",
                                                   "MARTIN Zo\xE9 \xB0"
                                                   "1718 P000003"}));
    // Deux réponses vides : pas de liste.
    EXPECT_FALSE(ChercherEtLister(b, ctx, QuoiListe::Persos, l));
    // Le nom entier : le code sans étoile ; prénoms vides deviennent "*" ; jamais hors sélection.
    ASSERT_TRUE(ChercherEtLister(b, ctx, QuoiListe::Persos, l));
    EXPECT_EQ(l.Rangees.size(), 4u);
    EXPECT_EQ(reponses.r[kColPersos][0], "MARTIN");
}

TEST_F(Listes, InviteAnnuleeEtAucunResultat) {
    o.ListePersosCourte = true;
    ContexteListe annule(o, reponses, [](Invite&) { return false; });
    ListePersonne l;
    EXPECT_FALSE(ChercherEtLister(b, annule, QuoiListe::Persos, l));
    ContexteListe rien(o, reponses, [](Invite& inv) {
        inv.Valeurs = {"XYZ", ""};
        return true;
    });
    ASSERT_TRUE(ChercherEtLister(b, rien, QuoiListe::Persos, l));
    EXPECT_EQ(Textes(l), (std::vector<std::string>{" Ajouter... P000007"}));
}

TEST_F(Listes, FamillesEtLeurAnneeDeTri) {
    AjouterPersonne(b, 7, "ABEL", "Marc", 'M', "1800");
    AjouterPersonne(b, 8, "ZOLA", "Rose", 'F', "1700");
    AjouterFamille(b, 3, 7, 8);  // année : naissance du mari, 1800
    AjouterFamille(b, 4, 0, 8);  // sans mari : naissance de la femme + 30 = 1730
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ASSERT_TRUE(ChercherEtLister(b, ctx, QuoiListe::Famis, l));
    EXPECT_EQ(l.Genre, "familles");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{
                             " x ZOLA Rose \xB0"
                             "1700 F000004",  // 1700 + 30 avant 1748 + 30
                             " x \xC9TIENNE \xC9lisabeth \xB0"
                             "1748 F000002",
                             "ABEL Marc \xB0"
                             "1800 x ZOLA Rose \xB0"
                             "1700 F000003",
                             "MARTIN Pierre \xB0"
                             "1690 x14/01/1716 LAGARDE Anne \xB0"
                             "1694 F000001",
                         }));
}

TEST_F(Listes, NotesDesPersonnesEvenementsFamillesEtNotesExternes) {
    b.Persos[4].Notes = "Tisserand \xE0 Sarlat";
    b.Persos[3].Naissance.Notes =
        "Ondoy\xE9"
        "e\r\n\xE0 la maison";
    b.Persos[1].Deces.Notes = "12/vend/03";   // date républicaine : pas une note
    b.Persos[6].Notes = "Hors s\xE9lection";  // jamais listée
    b.Familles[2].Mariage.Notes = "Sans mari";
    b.Notes[1].Titre = "Matricule";
    b.Notes[1].Texte = "Tu\xE9 \xE0 Verdun";
    b.Notes[1].Sel = kVrai;
    b.NbNotes = 1;
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ASSERT_TRUE(ListeNotes(b, ctx, l));
    EXPECT_EQ(l.Genre, "notes");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{
                             "MARTIN Jean \xB0"
                             "1721 Tisserand \xE0 Sarlat P000004",
                             "MARTIN Zo\xE9 \xB0"
                             "1718 Ondoy\xE9"
                             "e \xE0 la maison \xB0"
                             "000003",
                             "Matricule Tu\xE9 \xE0 Verdun N000001",
                             "\xC9TIENNE \xC9lisabeth x Sans mari x000002",
                         }));
    // Recherche sans casse ni accents.
    o.ListePersosCourte = true;
    ContexteListe invite(o, reponses, [](Invite& inv) {
        EXPECT_EQ(inv.Valeurs[0], "texte");
        inv.Valeurs = {"TUE A VERD"};
        return true;
    });
    ASSERT_TRUE(ListeNotes(b, invite, l));
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"Matricule Tu\xE9 \xE0 Verdun N000001"}));
}

TEST_F(Listes, SourcesGardentLesDatesRepublicaines) {
    b.Persos[1].Deces.Source = "12/vend/03";
    b.Sources[2].Texte = "Registres de Sarlat";
    b.Sources[2].Sel = kVrai;
    b.NbSources = 2;
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ASSERT_TRUE(ListeSources(b, ctx, l));
    EXPECT_EQ(l.Titre, "Choisissez une source");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"MARTIN Pierre \xB0"
                                                   "1690 12/vend/03 +000001",
                                                   "Registres de Sarlat S000002"}));
}

TEST_F(Listes, FichiersEtLeurCheminRelu) {
    b.Persos[4].SuiteModif().Fichiers.Fixer(1, "/photos/jean  martin.jpg");
    b.Medias[1].Fichiers.Fixer(1, "/actes/registre.png");
    b.Medias[1].Titres.Fixer(1, "Registre");
    b.Medias[1].Actif = 1;
    b.NbMedias = 1;
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ASSERT_TRUE(ListeFichiers(b, ctx, l));
    ASSERT_EQ(l.Rangees.size(), 2u);
    EXPECT_EQ(l.Rangees[0].texte, "Registre /actes/registre.png  /actes/registre.png M000001");
    EXPECT_EQ(l.Rangees[1].texte, "\xB0 1721 4 MARTIN Jean  /photos/jean  martin.jpg P000004");
    EXPECT_EQ(CheminDeRangee(l.Rangees[1].texte), "/photos/jean  martin.jpg");
    EXPECT_EQ(DoubleClic(b, o, l, 1),
              (Reaction{ActionListe::OuvrirFichier, 4, "/photos/jean  martin.jpg", true}));
    const Reaction droit = ClicDroit(b, o, l, 0);
    EXPECT_EQ(droit.action, ActionListe::ProprietesFichier);
    EXPECT_EQ(droit.puisAfficher, 0);  // objet sans lien : la fiche vierge
}

TEST_F(Listes, RecentsElargitLaFenetreEtRevientAUnJour) {
    const double aujourdhui = 45337.6;
    b.Persos[4].DateModif = 45337.2;  // aujourd'hui
    b.Persos[2].DateModif = 45330;    // il y a 7 jours
    b.Persos[5].DateModif = 45100;    // il y a 237 jours
    ListePersonne l;
    OuvrirRecents(b, o,
                  "Fiches modifi\xE9"
                  "es r\xE9"
                  "cemment",
                  aujourdhui, l);
    EXPECT_EQ(l.Genre, "recents");
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"Plus (Cette semaine) ...",
                                                   "MARTIN Jean \xB0"
                                                   "1721 P000004"}));
    EXPECT_EQ(DoubleClic(b, o, l, 0).action, ActionListe::AgrandirRecents);
    const std::pair<const char*, std::size_t> suite[] = {{"Plus (Ces 2 derniers mois) ...", 3},
                                                         {"Plus (Cette ann\xE9"
                                                          "e) ...",
                                                          3},
                                                         {"Aujourd'hui ...", 4},
                                                         {"Plus (Cette semaine) ...", 2}};
    for (const auto& [tete, rangees] : suite) {
        AgrandirRecents(b, o, aujourdhui, l);
        EXPECT_EQ(l.Rangees[0].texte, tete);
        EXPECT_EQ(l.Rangees.size(), rangees) << tete;
    }
    EXPECT_EQ(JoursRecents(l), 7);
}

TEST_F(Listes, RecentsMontrentUneFamilleChangeeSeuleParLeMari) {
    b.Familles[1].DateModif = 45300;
    ListePersonne l;
    OuvrirRecents(b, o, "", 45337.6, l);
    AgrandirRecents(b, o, 45337.6, l);
    AgrandirRecents(b, o, 45337.6, l);  // 49 jours
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"Plus (Cette ann\xE9"
                                                   "e) ...",
                                                   "MARTIN Pierre \xB0"
                                                   "1690 x14/01/1716 P000001"}));
    // Quand un époux a lui-même changé dans la fenêtre, c'est lui qui vient, pas la famille.
    b.Persos[2].DateModif = 45330;
    OuvrirRecents(b, o, "", 45337.6, l);
    AgrandirRecents(b, o, 45337.6, l);
    AgrandirRecents(b, o, 45337.6, l);
    EXPECT_EQ(Textes(l), (std::vector<std::string>{"Plus (Cette ann\xE9"
                                                   "e) ...",
                                                   "LAGARDE Anne \xB0"
                                                   "1694 x14/01/1716 P000002"}));
}

TEST_F(Listes, ClicsSelonLeGenre) {
    ContexteListe ctx(o, reponses);
    ListePersonne l;
    ChercherEtLister(b, ctx, QuoiListe::Persos, l);
    EXPECT_EQ(DoubleClic(b, o, l, 0), (Reaction{ActionListe::NouvellePersonne, 0, {}, true}));
    EXPECT_EQ(DoubleClic(b, o, l, 2), (Reaction{ActionListe::Afficher, 1, {}, true}));
    EXPECT_EQ(ClicDroit(b, o, l, 2), (Reaction{ActionListe::Afficher, 1, {}, false}));
    EXPECT_EQ(ClicDroit(b, o, l, 0), Reaction{});  // la ligne de tête porte un numéro hors base
    EXPECT_EQ(BulleRangee(b, o, l, 4), "enfant de Pierre MARTIN et Anne LAGARDE");
    EXPECT_EQ(BulleRangee(b, o, l, 0), "");
    EXPECT_EQ(DoubleClic(b, o, l, 99), Reaction{});

    ChercherEtLister(b, ctx, QuoiListe::Famis, l);
    EXPECT_EQ(DoubleClic(b, o, l, 0).numero, 5);  // famille sans mari : l'épouse
    EXPECT_EQ(DoubleClic(b, o, l, 1).numero, 1);
    EXPECT_EQ(BulleRangee(b, o, l, 0), " ");

    b.Familles[2].Mariage.Notes = "@N1@";
    b.Notes[1].Texte = "Dispense";
    b.Notes[1].Sel = kVrai;
    b.NbNotes = 1;
    ListeNotes(b, ctx, l);
    ASSERT_EQ(Textes(l),
              (std::vector<std::string>{"Dispense N000001", "\xC9TIENNE \xC9lisabeth x @N1@ x000002"}));
    EXPECT_EQ(DoubleClic(b, o, l, 0), (Reaction{ActionListe::OuvrirNote, 1, {}, true}));
    EXPECT_EQ(DoubleClic(b, o, l, 1).numero, 5);  // symbole de mariage : la famille, par l'épouse
    EXPECT_EQ(BulleRangee(b, o, l, 0), "Dispense");
    const Reaction lien = ClicDroit(b, o, l, 1);
    EXPECT_EQ(lien.action, ActionListe::OuvrirNote);
    EXPECT_EQ(lien.numero, 1);
}

TEST(SautLettre, PremierCaractereBrutSansReplierLesAccents) {
    ListePersonne l;
    for (const char* t : {" Ajouter...", "Abel", "dupont", "Eve", "\xC9mile", "Zola"})
        l.Rangees.push_back({t, 0});
    EXPECT_EQ(SautLettre(l, 'e'), 3u);
    EXPECT_EQ(SautLettre(l, 'a'), 1u);
    EXPECT_EQ(SautLettre(l, 'z'), 4u);  // É (0xE9) n'est pas avant z : on s'y arrête
    EXPECT_EQ(SautLettre(l, '\xE9'), std::nullopt);
    EXPECT_EQ(SautLettre(l, 'E'), std::nullopt);
}

TEST(Recherche, MotifsEtRepli) {
    EXPECT_EQ(MotifPrenoms("jean-pierre", true), "Jean-Pierre*");
    EXPECT_EQ(MotifPrenoms("Jea*", true), "Jea*");
    EXPECT_EQ(MotifPrenoms("", true), "*");
    EXPECT_EQ(Replier("\xC9lisabeth \x8C"
                      "uvre"),
              "elisabeth oeuvre");
}

}  // namespace
}  // namespace arbolix
