#include "card/notes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

#include "aides/dialogue_factice.h"
#include "aides/invariant_liens.h"
#include "card/medias.h"
#include "gedcom/ecrivain.h"
#include "gedcom/lecture_essai.h"
#include "store/decrire_base.h"
#include "store/liens.h"
#include "store/selection.h"

namespace arbolix {
namespace {

std::string Ecarts(const Base& b) {
    return essais::InvariantLiens(b).Ecarts();
}

// Une petite base : n personnes, deux familles, trois notes, deux sources, deux objets médias.
struct PetiteBase {
    Base b;
    explicit PetiteBase(int personnes = 12) {
        Vider(b, true);
        for (int i = 0; i < personnes; ++i) NouvellePersonne(b, true, false);
        b.NbFamis = b.NbFamisReels = 2;
        b.Familles[1].Mari = 1;
        b.Familles[2].Femme = 2;
        for (int i = 0; i < 3; ++i) NouvelleNote(b, 'N');
        for (int i = 0; i < 2; ++i) NouvelleNote(b, 'S');
        for (int i = 0; i < 2; ++i) NouvelObjetMedia(b, "photo" + std::to_string(i) + ".jpg");
    }
    const NoteExt& N(int n) const { return std::as_const(b.Notes)[n]; }
};

ChampLien NotePerso(int p) {
    return {false, p, 0, false};
}

TEST(NotesExternes, UnLienParChampEtLeDernierRetraitDemande) {
    PetiteBase t;
    DialogueFactice d;
    ChangerChamp(t.b, NotePerso(3), "@N2@", &d);
    ChangerChamp(t.b, {false, 3, 1, false}, " @N2@ ", &d);  // blancs de bord admis
    ChangerChamp(t.b, {true, 1, 2, true}, "@S1@", &d);
    EXPECT_EQ(t.N(2).LiensPersos.Nombre(), 2u);
    EXPECT_EQ(std::as_const(t.b.Sources)[1].LiensFamis(1), 1);
    EXPECT_EQ(Ecarts(t.b), "");

    // Le même lien réécrit ne prend pas de seconde place.
    ChangerChamp(t.b, NotePerso(3), "@N2@", &d);
    EXPECT_EQ(t.N(2).LiensPersos.Nombre(), 2u);

    ChangerChamp(t.b, NotePerso(3), "texte libre", &d);
    EXPECT_TRUE(d.messages.empty()) << "la note a encore un lien";
    d.ReponseSuivante(Bouton::Non);
    ChangerChamp(t.b, {false, 3, 1, false}, "", &d);
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Note externe sans lien");
    EXPECT_EQ(d.messages[0].boutons, Boutons::OuiNon);
    EXPECT_NE(d.messages[0].texte.find(" n'a plus aucun lien.\r\nVoulez-vous la supprimer ?"),
              std::string::npos);
    EXPECT_EQ(t.b.NbNotes, 3) << "Non garde la note sans lien";
    EXPECT_EQ(Ecarts(t.b), "");
}

TEST(NotesExternes, CeQuiNEstPasUnLien) {
    PetiteBase t;
    for (const char* texte : {"@N3", "N3@", "@N@", "@N3@ et plus", "@n3@", "@X3@", "@N3x@"}) {
        ChangerChamp(t.b, NotePerso(1), texte, nullptr);
        EXPECT_TRUE(t.N(3).LiensPersos.empty()) << texte;
    }
    // Une source dans un champ de note n'est pas un lien de source.
    ChangerChamp(t.b, NotePerso(1), "@S1@", nullptr);
    EXPECT_TRUE(std::as_const(t.b.Sources)[1].LiensPersos.empty());
    EXPECT_THROW(ChangerChamp(t.b, {true, 1, 0, false}, "@N1@", nullptr), std::out_of_range);
}

TEST(NotesExternes, SupprimerOuiEffaceEtBaisseLeHaut) {
    PetiteBase t;
    DialogueFactice d;
    t.b.Notes[3].Titre = "Registre";
    ChangerChamp(t.b, NotePerso(4), "@N3@", &d);
    d.ReponseSuivante(Bouton::Oui);
    ChangerChamp(t.b, NotePerso(4), "", &d);
    EXPECT_EQ(d.messages.at(0).texte, "Registre\r\n\r\n n'a plus aucun lien.\r\nVoulez-vous la supprimer ?");
    EXPECT_EQ(d.messages.at(0).defaut, Bouton::Non);
    EXPECT_EQ(t.N(3), NoteExt{});
    EXPECT_EQ(t.b.NbNotes, 2);
    EXPECT_EQ(t.b.NbNotesReelles, 2);
    // Une note du milieu : le haut ne bouge pas.
    ChangerChamp(t.b, NotePerso(4), "@N1@", &d);
    d.ReponseSuivante(Bouton::Oui);
    ChangerChamp(t.b, NotePerso(4), "", &d);
    EXPECT_EQ(t.b.NbNotes, 2);
    EXPECT_EQ(t.b.NbNotesReelles, 1);
}

TEST(NotesExternes, AuDelaDeNeufLeLienResteSansRetourPuisReprendUnePlaceLiberee) {
    PetiteBase t(11);
    for (int p = 1; p <= 10; ++p) ChangerChamp(t.b, NotePerso(p), "@N1@", nullptr);
    EXPECT_EQ(t.N(1).LiensPersos.Nombre(), 9u);
    EXPECT_FALSE(Contient(t.N(1).LiensPersos, 10));
    EXPECT_EQ(Ecarts(t.b), "");
    ChangerChamp(t.b, NotePerso(4), "", nullptr);
    EXPECT_TRUE(Contient(t.N(1).LiensPersos, 10)) << "la place libérée revient au lien resté sans retour";
    EXPECT_EQ(Ecarts(t.b), "");
    // Un lien en plus chez une personne déjà liée sans retour ne retire rien aux autres.
    ChangerChamp(t.b, NotePerso(11), "@N1@", nullptr);
    ChangerChamp(t.b, {false, 11, 1, false}, "@N1@", nullptr);
    ChangerChamp(t.b, {false, 11, 1, false}, "", nullptr);
    EXPECT_EQ(t.N(1).LiensPersos.Nombre(), 9u);
    EXPECT_EQ(Ecarts(t.b), "");
}

// Suite tirée au hasard (graine fixe) de liens posés et retirés, l'invariant vérifié à chaque pas.
TEST(NotesExternes, SuiteAuHasardGardeLesRetours) {
    PetiteBase t(12);
    DialogueFactice d;  // répond Oui : des notes s'effacent puis sont reliées
    const Options options;
    std::mt19937 alea(20240405);
    const auto tirer = [&](int a, int b) { return std::uniform_int_distribution<int>(a, b)(alea); };
    for (int pas = 0; pas < 600; ++pas) {
        const int quoi = tirer(0, 11);
        if (quoi < 7) {
            ChampLien c;
            c.famille = tirer(0, 3) == 0;
            c.numero = c.famille ? tirer(1, 2) : tirer(1, 12);
            c.source = tirer(0, 1) == 1;
            c.acte = c.famille ? tirer(1, 3) : tirer(c.source ? 1 : 0, 4);
            const int cible = tirer(0, 4);
            const std::string lien = cible == 0 ? ""
                                     : cible == 4
                                         ? "texte"
                                         : std::string("@") + GenreDuChamp(c) + std::to_string(cible) + "@";
            ChangerChamp(t.b, c, lien, tirer(0, 1) ? &d : nullptr);
        } else if (quoi < 9) {
            LierMedia(t.b, tirer(1, 12), tirer(0, 4), tirer(1, 2));
        } else if (quoi < 10) {
            DelierMedia(t.b, tirer(1, 12), tirer(0, 4), tirer(1, 2));
        } else {
            // Les commandes de la liste des fichiers : déplacer ou supprimer un lien d'objet média.
            const std::int32_t p = tirer(1, 12);
            std::vector<LigneDivers> medias;
            for (const auto& l : LignesDivers(t.b, options, p))
                if (l.genre == 'M') medias.push_back(l);
            if (!medias.empty()) {
                const LigneDivers& l =
                    medias[static_cast<std::size_t>(tirer(0, static_cast<int>(medias.size()) - 1))];
                if (quoi == 10)
                    DeplacerLienMedia(t.b, p, l, tirer(0, kDestinationsMedia - 1), 0, d);
                else
                    SupprimerLienDivers(t.b, p, l, tirer(0, 1) ? &d : nullptr);
            }
        }
        const std::string e = Ecarts(t.b);
        ASSERT_EQ(e, "") << "au pas " << pas;
    }
    // Refaire tous les retours donne une base qui tient aussi, avec autant de places.
    std::vector<std::size_t> avant;
    for (int n = 1; n <= 3; ++n) avant.push_back(t.N(n).LiensPersos.Nombre());
    ReconstruireLiens(t.b);
    EXPECT_EQ(Ecarts(t.b), "");
    for (int n = 1; n <= 3; ++n) EXPECT_EQ(t.N(n).LiensPersos.Nombre(), avant[n - 1]);
}

TEST(NotesExternes, ReconstruireApresUnEffacementDePersonne) {
    PetiteBase t;
    ChangerChamp(t.b, NotePerso(5), "@N1@", nullptr);
    ChangerChamp(t.b, {false, 6, 2, true}, "@S2@", nullptr);
    LierMedia(t.b, 5, 3, 1);
    t.b.Persos[5] = Perso{};  // effacée comme le fait la suppression
    ReconstruireLiens(t.b);
    EXPECT_TRUE(t.N(1).LiensPersos.empty());
    EXPECT_TRUE(std::as_const(t.b.Medias)[1].LiensPersos.empty());
    EXPECT_EQ(std::as_const(t.b.Sources)[2].LiensPersos(1), 6);
    EXPECT_EQ(Ecarts(t.b), "");
}

TEST(NotesExternes, NouvelleNoteAuDessusDuHautEtSelectionnee) {
    Base b;
    Vider(b, true);
    b.NbNotes = b.Notes.Haut();  // la prochaine dépasse la borne : la base grandit
    const std::int32_t n = NouvelleNote(b, 'N');
    EXPECT_EQ(n, b.NbNotes);
    EXPECT_GE(b.Notes.Haut(), n);
    EXPECT_EQ(std::as_const(b.Notes)[n].Sel, kVrai);
    EXPECT_EQ(NouvelleNote(b, 'S'), 1);
    EXPECT_EQ(b.NbSourcesReelles, 1);
}

TEST(NotesExternes, NouvelleNoteAbandonneeSeulementVideEtSansLien) {
    PetiteBase t;
    ChangerChamp(t.b, NotePerso(1), "@N2@", nullptr);
    t.b.Notes[3].Titre =
        "Gard\xE9"
        "e";
    EXPECT_FALSE(AbandonnerNote(t.b, 'N', 2)) << "liée";
    EXPECT_FALSE(AbandonnerNote(t.b, 'N', 3)) << "titrée";
    const std::int32_t n = NouvelleNote(t.b, 'N');
    EXPECT_TRUE(AbandonnerNote(t.b, 'N', n));
    EXPECT_EQ(t.b.NbNotes, 3);
    EXPECT_EQ(t.b.NbNotesReelles, 3);
    EXPECT_EQ(t.N(n), NoteExt{});
}

TEST(NotesExternes, ModifierNoteDepuisLEditeur) {
    PetiteBase t;
    t.b.NumCourant = 2;
    t.b.Persos[2].Sel = kFaux;
    ModifierNote(t.b, 'N', 1, "Titre", "ligne 1\r\nligne 2");
    EXPECT_EQ(DecrireNote(t.N(1)), "Titre=Titre; Texte=ligne 1\\nligne 2");
    EXPECT_EQ(t.N(1).Sel, kFaux) << "Sel suit la personne affichée";

    // La note du fichier.
    ModifierNote(t.b, 'N', -1, "", "Notes du fichier");
    EXPECT_EQ(t.N(-1).Texte, "Notes du fichier");

    // Un titre qui nomme un fichier texte fait lire ce fichier, coupé.
    const auto chemin = std::filesystem::temp_directory_path() / "arbolix_note_titre.txt";
    EcrireFichierTexte(chemin.string(), std::string(80, 'a') + " b\r\nc");
    ModifierNote(t.b, 'N', 2, chemin.string(), "ignoré");
    EXPECT_EQ(t.N(2).Texte.str(), std::string(75, 'a') + "\r\naaaaa b\r\nc");
    EXPECT_EQ(t.N(2).Titre.str(), chemin.string());
    std::filesystem::remove(chemin);
    // Un titre relatif n'est jamais pris pour un fichier.
    ModifierNote(t.b, 'N', 3, "CMakeLists.txt", "gardé");
    EXPECT_EQ(t.N(3).Texte, "gardé");
}

TEST(NotesExternes, CouperLignes) {
    struct Cas {
        std::string texte;
        std::size_t largeur, max;
        std::string attendu;
    } cas[] = {
        {"un deux trois", 7, 9, "un deux\r\ntrois"},
        {"un deux trois", 13, 9, "un deux trois"},
        {"abcdefghij", 4, 9, "abcd\r\nefgh\r\nij"},
        {"a\r\n\r\nb\r\n\r\n", 10, 9, "a\r\n\r\nb"},
        {"a\nb\nc\nd", 10, 2, "a\r\nb"},
        {"  a   b  ", 10, 9, "a b"},
        {"", 10, 9, ""},
    };
    for (const auto& c : cas) EXPECT_EQ(CouperLignes(c.texte, c.largeur, c.max), c.attendu) << c.texte;
}

TEST(NotesExternes, LignesDuChoix) {
    PetiteBase t;
    t.b.Notes[1].Titre = std::string(200, 'x');
    t.b.Notes[2].Texte = "sans titre\r\nsuite";
    const auto lignes = LignesChoixNotes(t.b, 'N');
    ASSERT_EQ(lignes.size(), 3u) << "la note 3, vierge, n'est pas proposée";
    EXPECT_EQ(lignes[0], "  Ajouter... N000000");
    EXPECT_EQ(lignes[1], std::string(150, 'x') + " N000001");
    EXPECT_EQ(lignes[2], "sans titre suite N000002");
    EXPECT_EQ(LignesChoixNotes(t.b, 'S').front(), "  Ajouter... S000000");
}

TEST(NotesExternes, AllerRetourGedcomGardeNotesSourcesEtMedias) {
    essai::Lecture premiere;
    premiere.Lire(
        "1 NOTE Note du fichier|"
        "0 @I1@ INDI|1 NAME Jean /MARTIN/|1 NOTE @N1@|1 OBJE @M1@|"
        "0 @I2@ INDI|1 NAME Marie /DURAND/|1 BIRT|2 DATE 1750|2 NOTE @N1@|2 SOUR @S1@|"
        "0 @F1@ FAM|1 HUSB @I1@|1 WIFE @I2@|1 MARR|2 DATE 1770|2 SOUR @S1@|2 NOTE @N2@|"
        "0 @N1@ NOTE|1 TITL Registre|1 TEXT ligne un|2 CONT ligne deux|"
        "0 @N2@ NOTE|1 TEXT contrat|"
        "0 @S1@ SOUR|1 TITL Archives|1 TEXT cote 3E|"
        "0 @M1@ OBJE|1 FILE portrait.jpg|2 TITL Portrait|1 INDI @I1@");
    ToutSelectionner(premiere.base);
    ASSERT_EQ(Ecarts(premiere.base), "");
    ASSERT_EQ(premiere.N(1), "Titre=Registre; Texte=ligne un \\nligne deux; LiensPersos=1,2");

    OptionsGedcom cases;
    const std::string ecrit =
        EcrireGedcomTexte(premiere.base, ContexteEcriture{cases, "0 HEAD\r\n", "05/04/2024"});
    essai::Lecture seconde;
    seconde.LireTout(ecrit);
    ToutSelectionner(seconde.base);
    EXPECT_EQ(Ecarts(seconde.base), "");
    for (int n = -1; n <= 2; ++n) EXPECT_EQ(seconde.N(n), premiere.N(n)) << "note " << n;
    EXPECT_EQ(seconde.S(1), premiere.S(1));
    EXPECT_EQ(seconde.M(1), premiere.M(1));
    for (int p = 1; p <= 2; ++p) EXPECT_EQ(seconde.P(p), premiere.P(p));
    EXPECT_EQ(seconde.F(1), premiere.F(1));
}

}  // namespace
}  // namespace arbolix
