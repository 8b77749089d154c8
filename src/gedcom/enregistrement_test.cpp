#include "gedcom/enregistrement.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <cstdlib>

#include "aides/dialogue_factice.h"
#include "gedcom/comparaison_test.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;
using essais::EcrireOctets;
using essais::LireOctets;
using essais::MemesOctets;

// Un dossier neuf par test, effacé à la fin.
struct Dossier {
    fs::path chemin;
    Dossier() {
        std::string modele = (fs::temp_directory_path() / "arbolix-enr-XXXXXX").string();
        chemin = ::mkdtemp(modele.data());
    }
    ~Dossier() { fs::remove_all(chemin); }
    std::string operator/(std::string_view nom) const { return (chemin / nom).string(); }
    // Les fichiers présents : un temporaire oublié s'y verrait.
    std::vector<std::string> Contenu() const {
        std::vector<std::string> r;
        for (const auto& e : fs::directory_iterator(chemin)) r.push_back(e.path().filename().string());
        std::sort(r.begin(), r.end());
        return r;
    }
};

std::function<bool(std::ostream&)> Ecrit(std::string t) {
    return [t](std::ostream& o) { return static_cast<bool>(o << t); };
}

TEST(EcrireFichierSur, CreeRemplaceEtGardeLesDroitsDeLAncien) {
    Dossier d;
    const std::string f = d / "arbre.ged";
    ASSERT_TRUE(EcrireFichierSur(f, Ecrit("un\r\n")).Ok);
    EXPECT_EQ(LireOctets(f), "un\r\n");
    ::chmod(f.c_str(), 0640);
    const EtatFichier e = EcrireFichierSur(f, Ecrit("deux\r\n"));
    EXPECT_TRUE(e.Ok) << e.Message;
    EXPECT_EQ(LireOctets(f), "deux\r\n");
    struct stat s {};
    ::stat(f.c_str(), &s);
    EXPECT_EQ(s.st_mode & 07777, 0640u);
    EXPECT_EQ(d.Contenu(), std::vector<std::string>{"arbre.ged"});
}

TEST(EcrireFichierSur, UnLienSymboliqueResteUnLien) {
    Dossier d;
    EcrireOctets(d / "vrai.ged", "ancien");
    fs::create_symlink(d / "vrai.ged", d / "lien.ged");
    ASSERT_TRUE(EcrireFichierSur(d / "lien.ged", Ecrit("nouveau")).Ok);
    EXPECT_TRUE(fs::is_symlink(d / "lien.ged"));
    EXPECT_EQ(LireOctets(d / "vrai.ged"), "nouveau");
}

// L'ancien fichier doit rester octet pour octet, sans temporaire oublié à côté.
void VerifierAncienIntact(const Dossier& d, const std::string& f, const std::string& ancien,
                          const EtatFichier& e, std::string_view raison) {
    EXPECT_FALSE(e.Ok);
    EXPECT_EQ(e.Message, "Le fichier " + f + " n'a pas pu \xEAtre enregistr\xE9 : " + std::string(raison) +
                             ". L'ancien fichier est rest\xE9 intact.");
    EXPECT_TRUE(MemesOctets(ancien, LireOctets(f)));
    EXPECT_EQ(d.Contenu(), std::vector<std::string>{fs::path(f).filename().string()});
}

TEST(EcrireFichierSur, EchecEnCoursDEcritureLaisseLAncienIntact) {
    Dossier d;
    const std::string f = d / "arbre.ged";
    const std::string ancien = "0 HEAD\r\n0 @I1@ INDI\r\n0 TRLR\r\n";
    EcrireOctets(f, ancien);
    const auto moitie = [](std::ostream& o) {
        o << "0 HEAD\r\n0 @I1";
        return false;
    };
    VerifierAncienIntact(d, f, ancien, EcrireFichierSur(f, moitie), "l'\351criture a \351chou\xE9");
    const auto exception = [](std::ostream& o) -> bool {
        o << "0 HEAD\r\n";
        throw std::out_of_range("num\xE9ro hors du tableau");
    };
    VerifierAncienIntact(d, f, ancien, EcrireFichierSur(f, exception),
                         "erreur inattendue (num\xE9ro hors du tableau)");
}

TEST(EcrireFichierSur, GrosFichierEnvoyeParFenetres) {
    // Plus de deux fenêtres parties au disque en cours d'écriture, par un gros bloc puis par
    // petits morceaux : rien ne manque ni ne se répète.
    Dossier d;
    const std::string f = d / "gros.ged";
    std::string attendu;
    for (int i = 0; attendu.size() < (std::size_t{70} << 20); ++i)
        attendu.append(std::to_string(i)).append(1000, 'x');
    const auto ecrire = [&](std::ostream& o) {
        const std::size_t bloc = std::size_t{40} << 20;
        o.write(attendu.data(), static_cast<std::streamsize>(bloc));
        for (std::size_t i = bloc; i < attendu.size(); i += 1000)
            o.write(attendu.data() + i,
                    static_cast<std::streamsize>(std::min<std::size_t>(1000, attendu.size() - i)));
        return o.good();
    };
    ASSERT_TRUE(EcrireFichierSur(f, ecrire).Ok);
    std::string lu(fs::file_size(f), '\0');
    std::ifstream(f, std::ios::binary).read(lu.data(), static_cast<std::streamsize>(lu.size()));
    EXPECT_TRUE(lu == attendu);
}

TEST(EcrireFichierSur, DisqueRefusantLaSuiteLaisseLAncienIntact) {
    // Une limite de taille de fichier fait échouer write() au milieu, comme un disque plein.
    Dossier d;
    const std::string f = d / "arbre.ged";
    const std::string ancien(100, 'a');
    EcrireOctets(f, ancien);
    rlimit avant{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &avant), 0);
    const auto signal = std::signal(SIGXFSZ, SIG_IGN);
    rlimit petite = avant;
    petite.rlim_cur = 4096;
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &petite), 0);
    const EtatFichier e = EcrireFichierSur(f, Ecrit(std::string(3 << 20, 'b')));
    ::setrlimit(RLIMIT_FSIZE, &avant);
    std::signal(SIGXFSZ, signal);
    VerifierAncienIntact(d, f, ancien, e, "le fichier d\xE9passe la taille permise");
}

TEST(EcrireFichierSur, CibleImpossibleSansRienToucher) {
    Dossier d;
    fs::create_directory(d / "dossier.ged");
    EcrireOctets(d / "dossier.ged/dedans.txt", "x");
    EtatFichier e = EcrireFichierSur(d / "dossier.ged", Ecrit("y"));
    EXPECT_FALSE(e.Ok);
    EXPECT_EQ(e.Message, "Le fichier " + d / "dossier.ged" +
                             " n'a pas pu \xEAtre enregistr\xE9 : ce nom est celui d'un "
                             "dossier.");
    EXPECT_EQ(LireOctets(d / "dossier.ged/dedans.txt"), "x");

    e = EcrireFichierSur(d / "absent/arbre.ged", Ecrit("y"));
    EXPECT_EQ(e.Message, "Le fichier " + d / "absent/arbre.ged" +
                             " n'a pas pu \xEAtre enregistr\xE9 : le dossier " + d / "absent" +
                             " est introuvable.");

    e = EcrireFichierSur("/proc/arbolix-essai.ged", Ecrit("y"));
    EXPECT_FALSE(e.Ok);
    EXPECT_EQ(e.Message,
              "Le fichier /proc/arbolix-essai.ged n'a pas pu \xEAtre enregistr\xE9 : le dossier /proc "
              "refuse la cr\351ation de fichiers.");
    EXPECT_FALSE(fs::exists("/proc/arbolix-essai.ged"));
}

// Les bits de droits qui s'appliquent à celui qui écrit, sans demander au système : les
// essais tournent en administrateur, que le système laisserait tout écrire.
TEST(EcrireFichierSur, LectureSeuleSelonLesBitsDeCeluiQuiEcrit) {
    const Ecrivant jean{1000, 100, {200}};
    const Ecrivant racine{0, 0, {}};
    const struct {
        unsigned mode, proprietaire, groupe;
        const Ecrivant& qui;
        bool lectureSeule;
    } cas[] = {
        {0644, 1000, 100, jean, false},
        {0444, 1000, 100, jean, true},  // le propriétaire
        {0464, 1001, 100, jean, false},
        {0644, 1001, 100, jean, true},  // le groupe principal
        {0464, 1001, 200, jean, false},
        {0646, 1001, 300, jean, false},  // un groupe de plus, les autres
        {0664, 1001, 300, jean, true},
        {0200, 1000, 100, jean, false},
        {0444, 1000, 100, racine, true},
        {0400, 0, 0, racine, true},  // l'administrateur : aucun bit
        {0004 | 0020, 1000, 100, racine, false},
    };
    for (const auto& c : cas)
        EXPECT_EQ(LectureSeule(c.mode, c.proprietaire, c.groupe, c.qui), c.lectureSeule)
            << std::oct << c.mode << " uid " << std::dec << c.qui.uid;
}

TEST(EcrireFichierSur, FichierEnLectureSeuleRefuseEtIntact) {
    Dossier d;
    const std::string f = d / "arbre.ged";
    const std::string ancien = "0 HEAD\r\n0 TRLR\r\n";
    EcrireOctets(f, ancien);
    ::chmod(f.c_str(), 0444);
    VerifierAncienIntact(d, f, ancien, EcrireFichierSur(f, Ecrit("nouveau")),
                         "le fichier est en lecture seule");
    struct stat s {};
    ::stat(f.c_str(), &s);
    EXPECT_EQ(s.st_mode & 07777, 0444u);
    // Par un lien symbolique, c'est le fichier désigné qui compte.
    fs::create_symlink(f, d / "lien.ged");
    EXPECT_FALSE(EcrireFichierSur(d / "lien.ged", Ecrit("nouveau")).Ok);
    EXPECT_TRUE(MemesOctets(ancien, LireOctets(f)));
}

TEST(EcrireFichierSur, RaisonsConnuesEtInconnues) {
    EXPECT_EQ(RaisonEchec(ENOSPC), "le disque est plein");
    EXPECT_EQ(RaisonEchec(EROFS), "le disque est en lecture seule");
    EXPECT_EQ(RaisonEchec(EACCES), "l'\351criture est interdite dans ce dossier");
    EXPECT_EQ(RaisonEchec(EXDEV), "erreur syst\xE8me " + std::to_string(EXDEV));
}

// Une petite base : deux personnes mariées, une troisième hors sélection, un fichier lié.
struct Enregistrement {
    Dossier d;
    Base base;
    OptionsGedcom gedcom;
    Options options;
    DialogueFactice dialogue;

    Enregistrement() {
        gedcom.Fichier = d / "arbre.ged";
        for (std::int32_t n = 1; n <= 3; ++n) {
            Perso& p = base.Persos[n];
            p.Prenoms = "P" + std::to_string(n);
            p.Nom = "Nom";
            p.Sel = n < 3 ? kVrai : kFaux;
        }
        base.NbPersos = base.NbPersosReels = 3;
        base.FichierModifie = kVrai;
    }
    ContexteEnregistrement Contexte() {
        return {base, gedcom, options, dialogue, nullptr, "0 HEAD\r\n", "05/04/2024"};
    }
    ResultatEnregistrement Enregistrer(const ChoixEnregistrement& choix = {}) {
        auto ctx = Contexte();
        return EnregistrerGedcom(ctx, choix);
    }
};

TEST(EnregistrerGedcom, EchecGardeLAncienFichierLaModificationEtLaSelection) {
    Enregistrement e;
    fs::create_directory(e.gedcom.Fichier);  // le nom est pris par un dossier
    const auto r = e.Enregistrer();
    EXPECT_FALSE(r.Enregistre);
    EXPECT_NE(r.Erreur.find("ce nom est celui d'un dossier"), std::string::npos) << r.Erreur;
    EXPECT_EQ(e.base.FichierModifie, kVrai);
    EXPECT_EQ(e.base.Persos[3].Sel, kFaux);
    EXPECT_TRUE(e.dialogue.messages.empty());
}

TEST(EnregistrerGedcom, ToutLeFichierEcritEtModificationEffacee) {
    Enregistrement e;
    e.base.Persos[3].Sel = kVrai;
    EcrireOctets(e.gedcom.Fichier, "ancien");
    const auto r = e.Enregistrer();
    ASSERT_TRUE(r.Enregistre) << r.Erreur;
    EXPECT_EQ(e.base.FichierModifie, kFaux);
    EXPECT_TRUE(MemesOctets(
        "0 HEAD\r\n1 DATE 05 APR 2024\r\n0 @I1@ INDI\r\n1 NAME P1 /Nom/\r\n1 SEX  \r\n0 @I2@ INDI\r\n"
        "1 NAME P2 /Nom/\r\n1 SEX  \r\n0 @I3@ INDI\r\n1 NAME P3 /Nom/\r\n1 SEX  \r\n0 TRLR\r\n",
        LireOctets(e.gedcom.Fichier)));
    EXPECT_TRUE(e.dialogue.messages.empty());
}

TEST(EnregistrerGedcom, SelectionPartielleSousLeNomSelPuisRetourAuNomInitial) {
    Enregistrement e;
    const std::string initial = e.gedcom.Fichier;
    const ChoixEnregistrement choix = PreparerEnregistrement(e.base, e.gedcom, false, e.dialogue);
    ASSERT_EQ(e.dialogue.messages.size(), 1u);
    EXPECT_EQ(e.dialogue.messages[0].titre, "S\xE9lection active partielle");
    EXPECT_TRUE(e.dialogue.messages[0].texte.ends_with(
        "de dialogue suivante.\r\nApr\xE8s l'enregistrement, la s\xE9lection portera \xE0 nouveau sur tout "
        "le "
        "fichier. Lors de l'enregistrement suivant, le fichier reprendra son nom initial."));
    EXPECT_TRUE(choix.Partiel);
    EXPECT_EQ(e.gedcom.Fichier, e.d / "arbre_sel.ged");

    ASSERT_TRUE(e.Enregistrer(choix).Enregistre);
    EXPECT_EQ(LireOctets(e.d / "arbre_sel.ged").find("@I3@"), std::string::npos);
    EXPECT_FALSE(fs::exists(initial));
    EXPECT_EQ(e.base.FichierModifie, kVrai);  // la base entière n'est pas sur le disque
    EXPECT_EQ(e.base.Persos[3].Sel, kVrai);
    EXPECT_EQ(e.gedcom.Fichier, initial);
}

TEST(EnregistrerGedcom, RefusDuPartielReselectionneToutEtGardeLeNom) {
    Enregistrement e;
    e.dialogue.ReponseSuivante(Bouton::Non);
    const ChoixEnregistrement choix = PreparerEnregistrement(e.base, e.gedcom, false, e.dialogue);
    EXPECT_FALSE(choix.Partiel);
    EXPECT_EQ(e.gedcom.Fichier, e.d / "arbre.ged");
    EXPECT_EQ(e.base.Persos[3].Sel, kVrai);
    // Toute la base déjà sélectionnée : aucune question.
    DialogueFactice muet;
    PreparerEnregistrement(e.base, e.gedcom, true, muet);
    EXPECT_TRUE(muet.messages.empty());
}

TEST(EnregistrerGedcom, CopieDeSauvegardeEcraseLaPrecedente) {
    Enregistrement e;
    fs::create_directory(e.d / "sauve");
    e.options.Sauvegarder = true;
    e.options.Chemin[1] = e.d / "sauve";
    ASSERT_TRUE(e.Enregistrer().Enregistre);
    e.base.Persos[1].Prenoms = "Premier";
    ASSERT_TRUE(e.Enregistrer().Enregistre);
    EXPECT_TRUE(MemesOctets(LireOctets(e.gedcom.Fichier), LireOctets(e.d / "sauve/sauvegarde_arbre.ged")));
    EXPECT_NE(LireOctets(e.d / "sauve/sauvegarde_arbre.ged").find("Premier"), std::string::npos);
    EXPECT_TRUE(e.dialogue.messages.empty());
}

TEST(EnregistrerGedcom, DossierDeSauvegardeAbsentLaBoiteSeulement) {
    Enregistrement e;
    e.options.Sauvegarder = true;
    e.options.Chemin[1] = e.d / "absent";
    const auto r = e.Enregistrer();
    EXPECT_TRUE(r.Enregistre);
    EXPECT_TRUE(fs::exists(e.gedcom.Fichier));
    EXPECT_EQ(e.base.FichierModifie, kFaux);
    ASSERT_EQ(e.dialogue.messages.size(), 1u);
    EXPECT_EQ(e.dialogue.messages[0].titre, "Sauvegarde impossible");
    EXPECT_EQ(e.dialogue.messages[0].texte,
              "Le chemin " + e.d / "absent" + "configur\xE9 pour la sauvegarde est introuvable.");
}

TEST(EnregistrerGedcom, FichiersLiesCopiesDansLaSauvegarde) {
    Enregistrement e;
    fs::create_directories(e.d / "photos");
    fs::create_directory(e.d / "sauve");
    EcrireOctets(e.d / "photos/jean.jpg", "image");
    e.options.Sauvegarder = true;
    e.options.Chemin[1] = e.d / "sauve";
    PersoSuite& s = e.base.Persos[1].SuiteModif();
    s.Fichiers.Fixer(1, arbolix::Texte(e.d / "photos/jean.jpg"));
    s.Fichiers.Fixer(2, arbolix::Texte("photos/absent.jpg"));
    e.base.Persos[3].SuiteModif().Fichiers.Fixer(1, arbolix::Texte("photos/jean.jpg"));  // hors sélection
    const auto r = e.Enregistrer();
    ASSERT_TRUE(r.Enregistre);
    EXPECT_EQ(LireOctets(e.d / "sauve/photos/jean.jpg"), "image");
    ASSERT_EQ(r.Avertissements.size(), 1u);
    EXPECT_TRUE(r.Avertissements[0].starts_with("Le fichier li\xE9 " + e.d / "photos/absent.jpg" +
                                                " n'a pas pu \xEAtre copi\xE9 vers " +
                                                e.d / "sauve/photos/absent.jpg"))
        << r.Avertissements[0];
}

TEST(EnregistrerGedcom, CiblesDesFichiersLies) {
    struct Cas {
        std::string_view chemin, source, cible;
    };
    const Cas cas[] = {
        {"photos/a.jpg", "/g/arbre/photos/a.jpg", "/s/photos/a.jpg"},
        {"/g/arbre/photos/a.jpg", "/g/arbre/photos/a.jpg", "/s/photos/a.jpg"},
        {"../images/a.jpg", "/g/images/a.jpg", "/s/images/a.jpg"},
        {"..\\..\\a.jpg", "/a.jpg", "/s/a.jpg"},
        {"/ailleurs/a.jpg", "/ailleurs/a.jpg", "/s/a.jpg"},
        {"/g/arbre2/a.jpg", "/g/arbre2/a.jpg", "/s/a.jpg"},
    };
    for (const auto& c : cas) {
        const CopieLiee l = CibleCopieLiee(c.chemin, "/g/arbre/f.ged", "/s");
        EXPECT_EQ(l.source.string(), c.source) << c.chemin;
        EXPECT_EQ(l.cible.string(), c.cible) << c.chemin;
    }
}

TEST(EnregistrerGedcom, NomsDeFichierEtDeTitre) {
    EXPECT_EQ(NomFichierSelection("/a/x.ged"), "/a/x_sel.ged");
    EXPECT_EQ(NomFichierSelection("x.GED"), "x_sel.ged");
    EXPECT_EQ(NomFichierSelection("ab"), "_sel.ged");
    EXPECT_EQ(NomDuTitre("Arbolix - /a/x.ged (enregistr\xE9)"), "/a/x.ged");
    EXPECT_EQ(NomDuTitre("Arbolix - /a/x - y.ged"), "/a/x - y.ged");
    EXPECT_EQ(NomDuTitre("Arbolix"), "");
}

}  // namespace
}  // namespace arbolix
