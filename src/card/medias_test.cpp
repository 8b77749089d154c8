#include "card/medias.h"

#include "aides/dossier_essai.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/dialogue_factice.h"
#include "aides/invariant_liens.h"
#include "card/notes.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

struct BaseMedias {
    Base b;
    BaseMedias() {
        Vider(b, true);
        for (int i = 0; i < 3; ++i) NouvellePersonne(b, true, false);
    }
    const PersoSuite& S(int p) const { return std::as_const(b.Persos)[p].Suite(); }
};

// Un dossier temporaire propre à un test, effacé à la fin.
struct Dossier {
    fs::path d;
    explicit Dossier(const std::string& nom) : d(essais::DossierEssai(nom)) {
        fs::remove_all(d);
        fs::create_directories(d);
    }
    ~Dossier() { fs::remove_all(d); }
    std::string Creer(const std::string& nom) const {
        fs::create_directories((d / nom).parent_path());
        EcrireFichierTexte((d / nom).string(), "x");
        return (d / nom).string();
    }
};

TEST(FichiersLies, NeufFichiersPuisLeDixiemeRefuse) {
    BaseMedias t;
    DialogueFactice d;
    for (int i = 1; i <= 9; ++i) EXPECT_TRUE(AjouterFichier(t.b, 1, "f" + std::to_string(i) + ".pdf", d));
    EXPECT_FALSE(AjouterFichier(t.b, 1, "f10.pdf", d));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Ajouter un fichier");
    EXPECT_EQ(d.messages[0].texte,
              "Impossible d'ajouter le fichier \xE0 cette personne car il y a d\xE9j\xE0 9 fichiers li\xE9s.");
    EXPECT_EQ(t.S(1).Fichiers(9), "f9.pdf");
}

TEST(FichiersLies, LignesDeLaListeEtRetraitQuiRefermeLeTrou) {
    BaseMedias t;
    DialogueFactice d;
    for (const char* f : {"a.jpg", "b.pdf", "c.png"}) AjouterFichier(t.b, 2, f, d);
    const std::int32_t m = NouvelObjetMedia(t.b, "album/portrait.jpg");
    t.b.Medias[m].Fichiers.Fixer(2, "album/dos.jpg");
    ASSERT_TRUE(LierMedia(t.b, 2, 0, m));
    const auto lignes = LignesDivers(t.b, 2);
    ASSERT_EQ(lignes.size(), 5u);
    EXPECT_EQ(lignes[1].texte, "b.pdf P000002");
    EXPECT_EQ(lignes[4].texte, "album/dos.jpg M000001");
    const auto lue = LireLigneDivers(lignes[4].texte);
    ASSERT_TRUE(lue);
    EXPECT_EQ(lue->genre, 'M');
    EXPECT_EQ(lue->numero, m);
    EXPECT_EQ(lue->chemin, "album/dos.jpg");
    EXPECT_FALSE(LireLigneDivers("a.jpg X000001"));
    EXPECT_FALSE(LireLigneDivers("P00001"));

    SupprimerLienDivers(t.b, 2, lignes[0], &d);
    EXPECT_EQ(t.S(2).Fichiers(1), "b.pdf");
    EXPECT_EQ(t.S(2).Fichiers(2), "c.png");
    EXPECT_TRUE(t.S(2).Fichiers(3).empty());

    // Le dernier lien de l'objet part : la question de l'objet sans lien, Non le garde.
    d.ReponseSuivante(Bouton::Non);
    SupprimerLienDivers(t.b, 2, lignes[3], &d);
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Objet m\xE9" "dia sans lien");
    EXPECT_EQ(d.messages[0].texte,
              "album/portrait.jpg\r\n\r\n n'a plus aucun lien.\r\nVoulez-vous le supprimer ?");
    EXPECT_TRUE(t.S(2).ObjetsMedia.empty());
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(1), "album/portrait.jpg");
    EXPECT_EQ(essais::InvariantLiens(t.b).Ecarts(), "");
    // Oui l'efface : il n'est plus en usage et le haut redescend.
    EXPECT_TRUE(SupprimerOrpheline(t.b, 'M', m, d));
    EXPECT_EQ(std::as_const(t.b.Medias)[m], ObjetMedia{});
    EXPECT_EQ(t.b.NbMedias, 0);
}

TEST(FichiersLies, UnObjetCiteParLaPersonneEtSonEvenementNaQuUnRetour) {
    BaseMedias t;
    const std::int32_t m = NouvelObjetMedia(t.b, "acte.jpg");
    LierMedia(t.b, 1, 0, m);
    LierMedia(t.b, 1, 1, m);
    EXPECT_EQ(std::as_const(t.b.Medias)[m].LiensPersos.Nombre(), 1u);
    DelierMedia(t.b, 1, 0, m);
    EXPECT_EQ(std::as_const(t.b.Medias)[m].LiensPersos(1), 1) << "la naissance le cite encore";
    DelierMedia(t.b, 1, 1, m);
    EXPECT_TRUE(std::as_const(t.b.Medias)[m].LiensPersos.empty());
}

TEST(FichiersLies, ModifierLeCheminDansLaPersonneOuLObjet) {
    BaseMedias t;
    DialogueFactice d;
    AjouterFichier(t.b, 1, "vieux.txt", d);
    const std::int32_t m = NouvelObjetMedia(t.b, "un.jpg");
    t.b.Medias[m].Fichiers.Fixer(2, "deux.jpg");
    LierMedia(t.b, 1, 0, m);
    const auto lignes = LignesDivers(t.b, 1);
    ModifierLienDivers(t.b, 1, lignes[0], "neuf.txt");
    ModifierLienDivers(t.b, 1, lignes[2], "trois.jpg");
    EXPECT_EQ(t.S(1).Fichiers(1), "neuf.txt");
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(1), "un.jpg");
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(2), "trois.jpg");
}

TEST(FichiersLies, Images) {
    for (const char* oui : {"a.jpg", "b.JPEG", "/x.y/c.png", "d.webp"}) EXPECT_TRUE(EstImage(oui)) << oui;
    for (const char* non : {"a.txt", "jpg", "dossier.jpg/fichier", "0", "a.", "a.jp"})
        EXPECT_FALSE(EstImage(non)) << non;
    EXPECT_TRUE(EstImage("a.tif", "0;tif;"));
}

TEST(FichiersLies, FichierDeplaceRetrouveDansLesDossiers) {
    Dossier racine("arbolix_medias_trouver");
    const std::string images = (racine.d / "images").string() + "/";
    const std::string gedcom = (racine.d / "arbre").string();
    const std::string photo = racine.Creer("images/famille/photo.jpg");
    const std::string acte = racine.Creer("arbre/acte.pdf");
    const LieuxFichiers lieux{images, gedcom};
    EXPECT_EQ(TrouverFichier(photo, lieux), photo);
    EXPECT_EQ(TrouverFichier("famille/photo.jpg", lieux), photo) << "relatif au dossier des images";
    EXPECT_EQ(TrouverFichier("/ancien/disque/acte.pdf", lieux), acte) << "par son nom, dans le dossier du fichier";
    EXPECT_EQ(TrouverFichier("absent.jpg", lieux), std::nullopt);
    EXPECT_EQ(TrouverFichier("", lieux), std::nullopt);

    DialogueFactice d;
    EXPECT_EQ(OuvrirFichier("acte.pdf", 1, lieux, d).etat, Ouverture::Ouvert);
    EXPECT_EQ(d.ouverts, std::vector<std::string>{acte});
    EXPECT_EQ(OuvrirFichier("acte.pdf", 3, lieux, d).etat, Ouverture::PasUneImage);
    EXPECT_EQ(OuvrirFichier("famille/photo.jpg", 3, lieux, d).chemin, photo);
    EXPECT_EQ(d.ouverts.size(), 1u) << "le mode 3 n'ouvre rien";

    d.ReponseSuivante(Bouton::Non);
    EXPECT_EQ(OuvrirFichier("absent.jpg", 1, lieux, d).etat, Ouverture::Introuvable);
    EXPECT_EQ(OuvrirFichier("absent.jpg", 1, lieux, d).etat, Ouverture::SupprimerLien);
    EXPECT_EQ(d.messages.at(0).titre, "Fichier introuvable");
    EXPECT_TRUE(d.messages.at(0).texte.starts_with("Le fichier est introuvable :\r\nabsent.jpg\r\n"));
    EXPECT_TRUE(d.messages.at(0).texte.ends_with("Voulez-vous supprimer le lien ?"));

    // La photo : la première image trouvée, pas un fichier d'une autre sorte ni une image absente.
    BaseMedias t;
    AjouterFichier(t.b, 1, "acte.pdf", d);
    AjouterFichier(t.b, 1, "perdue.jpg", d);
    EXPECT_EQ(PhotoDePersonne(t.b, 1, lieux), std::nullopt);
    AjouterFichier(t.b, 1, "famille/photo.jpg", d);
    EXPECT_EQ(PhotoDePersonne(t.b, 1, lieux), photo);
}

}  // namespace
}  // namespace arbolix
