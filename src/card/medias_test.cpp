#include "card/medias.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
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
    EXPECT_EQ(
        d.messages[0].texte,
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
    const auto lignes = LignesDivers(t.b, {}, 2);
    ASSERT_EQ(lignes.size(), 5u);
    EXPECT_EQ(lignes[1].texte, "b.pdf P000002");
    EXPECT_EQ(lignes[4].texte, "album/dos.jpg M000001");
    EXPECT_EQ(lignes[2].rang, 3);
    EXPECT_EQ(lignes[4].genre, 'M');
    EXPECT_EQ(lignes[4].numero, m);
    EXPECT_EQ(lignes[4].chemin, "album/dos.jpg");
    EXPECT_EQ(lignes[4].lieu, (LieuMedia{false, 2, 0}));

    SupprimerLienDivers(t.b, 2, lignes[0], &d);
    EXPECT_EQ(t.S(2).Fichiers(1), "b.pdf");
    EXPECT_EQ(t.S(2).Fichiers(2), "c.png");
    EXPECT_TRUE(t.S(2).Fichiers(3).empty());

    // Le dernier lien de l'objet part : la question de l'objet sans lien, Non le garde.
    d.ReponseSuivante(Bouton::Non);
    SupprimerLienDivers(t.b, 2, lignes[3], &d);
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre,
              "Objet m\xE9"
              "dia sans lien");
    EXPECT_EQ(d.messages[0].texte,
              "album/portrait.jpg\r\n\r\n n'a plus aucun lien.\r\nVoulez-vous le supprimer ?");
    EXPECT_TRUE(t.S(2).ObjetsMedia.empty());
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(1), "album/portrait.jpg");
    EXPECT_EQ(essais::InvariantLiens(t.b).Ecarts(), "");
    EXPECT_EQ(d.messages[0].defaut, Bouton::Non);
    // Oui l'efface : il n'est plus en usage et le haut redescend.
    d.ReponseSuivante(Bouton::Oui);
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
    const auto lignes = LignesDivers(t.b, {}, 1);
    ModifierLienDivers(t.b, 1, lignes[0], "neuf.txt");
    ModifierLienDivers(t.b, 1, lignes[2], "trois.jpg");
    EXPECT_EQ(t.S(1).Fichiers(1), "neuf.txt");
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(1), "un.jpg");
    EXPECT_EQ(std::as_const(t.b.Medias)[m].Fichiers(2), "trois.jpg");
}

TEST(FichiersLies, ObjetsDesEvenementsEtDesUnionsDerriereLeurSymbole) {
    Base b;
    Vider(b, true);
    essai::AjouterPersonne(b, 1, "MARTIN", "Jean", 'M');
    essai::AjouterPersonne(b, 2, "DUPONT", "Marie", 'F');
    essai::AjouterFamille(b, 1, 1, 2, "1750");
    const std::int32_t acte = NouvelObjetMedia(b, "acte.png");
    const std::int32_t noces = NouvelObjetMedia(b, "noces.jpg");
    ASSERT_TRUE(LierMedia(b, {false, 1, 3}, acte));
    ASSERT_TRUE(LierMedia(b, {true, 1, 2}, noces));
    EXPECT_EQ(std::as_const(b.Medias)[noces].LiensFamis(1), 1);
    const auto lignes = LignesDivers(b, Options{}, 1);
    ASSERT_EQ(lignes.size(), 2u);
    EXPECT_EQ(lignes[0].texte, "+ acte.png M000001");
    EXPECT_EQ(lignes[1].texte, "x noces.jpg M000002");
    EXPECT_EQ(lignes[1].lieu, (LieuMedia{true, 1, 2}));
    // La conjointe voit les fichiers de l'union, pas ceux du décès de son mari.
    EXPECT_EQ(LignesDivers(b, Options{}, 2).size(), 1u);

    DialogueFactice d;
    d.ReponseSuivante(Bouton::Non);
    SupprimerLienDivers(b, 1, lignes[1], &d);
    EXPECT_TRUE(std::as_const(b.Familles)[1].Mariage.Liens().Medias.empty())
        << "ôté de l'union, pas de la personne";
    EXPECT_EQ(d.messages.at(0).titre,
              "Objet m\xE9"
              "dia sans lien");
    EXPECT_EQ(essais::InvariantLiens(b).Ecarts(), "");
}

TEST(FichiersLies, DupliquerVersDeNouvellesPersonnesImage) {
    BaseMedias t;
    DialogueFactice d;
    AjouterFichier(t.b, 1, "a.pdf", d);
    DupliquerLienMedia(t.b, LignesDivers(t.b, {}, 1).at(0), false, d);
    EXPECT_EQ(d.messages.at(0).texte,
              "Ce lien de fichier ne peut pas \xEAtre dupliqu\xE9 car il n'appartient pas "
              "\xE0 un objet m\xE9"
              "dia.");

    const std::int32_t m = NouvelObjetMedia(t.b, "groupe.jpg");
    for (std::int32_t p = 1; p <= 3; ++p) LierMedia(t.b, p, 0, m);
    const LigneDivers ligne = LignesDivers(t.b, {}, 2).at(0);
    d.SaisieSuivante("2");
    const auto creees = DupliquerLienMedia(t.b, ligne, false, d);
    ASSERT_EQ(creees, (std::vector<std::int32_t>{4, 5}));
    const Perso& image = std::as_const(t.b.Persos)[5];
    EXPECT_EQ(image.Nom, "IMAGE");
    EXPECT_EQ(image.Prenoms, "Image");
    EXPECT_EQ(image.CodeNom, "I520");
    EXPECT_EQ(image.Suite().ObjetsMedia(1), m);
    EXPECT_EQ(std::as_const(t.b.Medias)[m].LiensPersos.Nombre(), 5u);

    // Quatre places restent : six demandées, deux personnes créées n'ont pas de lien.
    d.messages.clear();
    d.SaisieSuivante("6");
    EXPECT_EQ(DupliquerLienMedia(t.b, ligne, false, d).size(), 6u);
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].texte,
              "Impossible de lier l'objet m\xE9"
              "dia n\xB0"
              "1 et les 2 derni\xE8res personnes "
              "cr\xE9\xE9"
              "es car il y a d\xE9j\xE0 9 personnes li\xE9"
              "es \xE0 cet objet m\xE9"
              "dia.");
    EXPECT_TRUE(std::as_const(t.b.Persos)[11].Suite().ObjetsMedia.empty());
    EXPECT_EQ(essais::InvariantLiens(t.b).Ecarts(), "");
    d.SaisieSuivante(std::nullopt);
    EXPECT_TRUE(DupliquerLienMedia(t.b, ligne, false, d).empty()) << "Annuler ne crée rien";
}

TEST(FichiersLies, DeplacerVersUnEvenementOuUneUnionEtSesRefus) {
    Base b;
    Vider(b, true);
    essai::AjouterPersonne(b, 1, "MARTIN", "Jean", 'M', "1720");
    essai::AjouterPersonne(b, 2, "DUPONT", "Marie", 'F');
    essai::AjouterPersonne(b, 3, "DURAND", "Anne", 'F');
    const std::int32_t m = NouvelObjetMedia(b, "portrait.jpg");
    LierMedia(b, 1, 0, m);
    DialogueFactice d;
    const auto ligne = [&] { return LignesDivers(b, Options{}, 1).at(0); };

    EXPECT_FALSE(DeplacerLienMedia(b, 1, ligne(), 2, 0, d));
    EXPECT_EQ(d.messages.back().texte,
              "Erreur ! Il n'existe aucune information sur le bapt\xEAme, impossible de "
              "d\xE9placer l'image li\xE9"
              "e vers le bapt\xEAme.");
    EXPECT_FALSE(DeplacerLienMedia(b, 1, ligne(), 4, 0, d));
    EXPECT_EQ(d.messages.back().texte,
              "Erreur ! Il n'existe aucune union pour la personne affich\xE9"
              "e, "
              "impossible de d\xE9placer l'image li\xE9"
              "e vers une union.");

    ASSERT_TRUE(DeplacerLienMedia(b, 1, ligne(), 1, 0, d));
    EXPECT_TRUE(std::as_const(b.Persos)[1].Suite().ObjetsMedia.empty());
    EXPECT_EQ(ligne().texte, "\xB0 portrait.jpg M000001");
    EXPECT_EQ(std::as_const(b.Medias)[m].LiensPersos(1), 1);

    // Une seule union : elle est prise sans être choisie ; deux : il faut choisir.
    essai::AjouterFamille(b, 1, 1, 2);
    ASSERT_TRUE(DeplacerLienMedia(b, 1, ligne(), 4, 0, d));
    EXPECT_EQ(std::as_const(b.Familles)[1].Mariage.Liens().Medias(1), m);
    EXPECT_TRUE(std::as_const(b.Medias)[m].LiensPersos.empty());
    EXPECT_EQ(std::as_const(b.Medias)[m].LiensFamis(1), 1);
    essai::AjouterFamille(b, 2, 1, 3);
    const std::size_t vus = d.messages.size();
    EXPECT_FALSE(DeplacerLienMedia(b, 1, ligne(), 5, 0, d));
    EXPECT_EQ(d.messages.back().texte,
              "Erreur ! Quand il y a plusieurs unions pour la personne affich\xE9"
              "e, il "
              "faut d'abord s\xE9lectionner l'union puis d\xE9placer l'image li\xE9"
              "e.");
    ASSERT_TRUE(DeplacerLienMedia(b, 1, ligne(), 5, 2, d));
    EXPECT_EQ(std::as_const(b.Familles)[2].Divorce.Liens().Medias(1), m);
    EXPECT_EQ(d.messages.size(), vus + 1);

    // La naissance pleine refuse le lien, qui reste où il était.
    for (int i = 0; i < 9; ++i) LierMedia(b, 1, 1, NouvelObjetMedia(b, "n" + std::to_string(i) + ".jpg"));
    LigneDivers divorce;
    for (const auto& l : LignesDivers(b, Options{}, 1))
        if (l.numero == m) divorce = l;
    EXPECT_FALSE(DeplacerLienMedia(b, 1, divorce, 1, 0, d));
    EXPECT_EQ(d.messages.back().texte,
              "Impossible de d\xE9placer l'image li\xE9"
              "e car il existe d\xE9j\xE0 9 images li\xE9"
              "es \xE0 la "
              "naissance.");
    EXPECT_EQ(d.messages.back().titre, "Fichier li\xE9");
    EXPECT_EQ(std::as_const(b.Familles)[2].Divorce.Liens().Medias(1), m);
    EXPECT_EQ(essais::InvariantLiens(b).Ecarts(), "");
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
    EXPECT_EQ(TrouverFichier("/ancien/disque/acte.pdf", lieux), acte)
        << "par son nom, dans le dossier du fichier";
    EXPECT_EQ(TrouverFichier("absent.jpg", lieux), std::nullopt);
    EXPECT_EQ(TrouverFichier("", lieux), std::nullopt);

    DialogueFactice d;
    EXPECT_EQ(OuvrirFichier("acte.pdf", 1, lieux, d).etat, Ouverture::Ouvert);
    EXPECT_EQ(d.ouverts, std::vector<std::string>{acte});
    EXPECT_EQ(OuvrirFichier("acte.pdf", 3, lieux, d).etat, Ouverture::PasUneImage);
    EXPECT_EQ(OuvrirFichier("famille/photo.jpg", 3, lieux, d).chemin, photo);
    EXPECT_EQ(d.ouverts.size(), 1u) << "le mode 3 n'ouvre rien";

    // Entrée garde le lien : Non est le bouton par défaut.
    d.EntreeSuivante();
    EXPECT_EQ(OuvrirFichier("absent.jpg", 1, lieux, d).etat, Ouverture::Introuvable);
    d.ReponseSuivante(Bouton::Oui);
    EXPECT_EQ(OuvrirFichier("absent.jpg", 1, lieux, d).etat, Ouverture::SupprimerLien);
    EXPECT_EQ(d.messages.at(0).titre, "Fichier introuvable");
    EXPECT_EQ(d.messages.at(0).defaut, Bouton::Non);
    EXPECT_TRUE(d.messages.at(0).texte.starts_with("Le fichier est introuvable :\r\nabsent.jpg\r\n"));
    EXPECT_TRUE(d.messages.at(0).texte.ends_with("Voulez-vous supprimer le lien ?"));

    // La photo : la première image trouvée, pas un fichier d'une autre sorte ni une image absente.
    BaseMedias t;
    AjouterFichier(t.b, 1, "acte.pdf", d);
    AjouterFichier(t.b, 1, "perdue.jpg", d);
    EXPECT_EQ(PhotoDePersonne(t.b, {}, 1, lieux), std::nullopt);
    AjouterFichier(t.b, 1, "famille/photo.jpg", d);
    EXPECT_EQ(PhotoDePersonne(t.b, {}, 1, lieux), photo);
}

}  // namespace
}  // namespace arbolix
