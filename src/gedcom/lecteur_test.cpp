#include "gedcom/lecteur.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "gedcom/lecture_essai.h"
#include "generer_gedcom.h"
#include "platform/en_meme_temps.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

struct Lecture {
    Base base;
    Options options;
    OptionsGedcom cases;
    Progression progression;
    ResultatLecture resultat;
    std::size_t pasRendu = ContexteLecture{options, cases, progression}.pasRendu;
    std::size_t seuilPagesDAvance = ContexteLecture{options, cases, progression}.seuilPagesDAvance;

    ResultatLecture& Lire(std::string texte) {
        ContexteLecture ctx{options, cases, progression};
        ctx.pasRendu = pasRendu;
        ctx.seuilPagesDAvance = seuilPagesDAvance;
        resultat = LireGedcomTexte(base, ctx, std::move(texte));
        return resultat;
    }
    const Perso& P(int n) const { return std::as_const(base.Persos)[n]; }
};

// Remplace "|" par la fin de ligne voulue : les fichiers de test restent lisibles.
std::string Fichier(std::string_view lignes, std::string_view fin = "\r\n") {
    std::string r;
    for (char c : lignes) {
        if (c == '|')
            r += fin;
        else
            r += c;
    }
    return r;
}

constexpr std::string_view kDeuxPersonnes =
    "0 HEAD|1 SOUR TEST|0 @I1@ INDI|1 NAME Jean /Dupont/|0 @I2@ INDI|1 NAME Marie /Martin/|0 TRLR|";

TEST(Lecteur, FinsDeLigneLfCrCrlfEtInversees) {
    for (std::string_view fin : {"\r\n", "\n", "\r", "\n\r"}) {
        Lecture l;
        l.Lire(Fichier(kDeuxPersonnes, fin));
        EXPECT_EQ(l.base.NbPersosReels, 2) << "fin " << static_cast<int>(fin[0]);
        EXPECT_EQ(l.P(2).Nom, "Martin");
        EXPECT_EQ(l.P(2).Prenoms, "Marie");
        EXPECT_TRUE(l.resultat.Journal.empty()) << l.resultat.Journal;
    }
}

TEST(Lecteur, FinsDeLigneMelees) {
    // Un export réel mêle CR LF et LF : aucune ligne ne doit se coller à la suivante.
    Lecture l;
    l.Lire("0 HEAD\r\n1 SOUR X\r\n0 @I1@ INDI\n1 NAME A /B/\r\n0 @I2@ INDI\n1 NAME C /D/\n0 TRLR\n");
    EXPECT_EQ(l.base.NbPersosReels, 2);
    EXPECT_EQ(l.P(2).Nom, "D");
}

TEST(Lecteur, ReparationsGlobales) {
    std::string t =
        "0 @INDI5@ INDI\r\n0 @N1@ NOTE Texte de note\r\n1 TITL Notaire\r\n2 DATE CA.1750\r\n"
        "1 NOTE \\\r\n1\tSEX M\r\n0 @SOUR3@ SOUR\r\n";
    ReparationsGlobales(t);
    EXPECT_EQ(t,
              "0 @5@ INDI\r\n0 @N1@ NOTE\r\n1 TEXT Texte de note\r\n1 TITL\r\n2 TYPE Notaire\r\n"
              "2 DATE ABT 1750\r\n1SEX M\r\n0 @S3@ SOUR\r\n");
    // Un remplacement peut en créer un suivant : le résultat est celui des remplacements faits
    // l'un après l'autre, quel que soit le raccourci pris.
    for (std::string_view cas : {" @INDISOUR4@ FAMC\r\n", " @INDI@ NOTE x\r\n", "0 @N2@ NOTE @ NOTE a\r\n",
                                 "1 TITL 1 TITL \r\n1 NOTE \\\r\n1 NOTE \\\r\n", "@@ NOTE \t@ NOTE "}) {
        std::string attendu(cas), obtenu(cas);
        for (auto [de, vers] : {std::pair{" @INDI", " @"},
                                {" @SOUR", " @S"},
                                {"@ NOTE ", "@ NOTE\r\n1 TEXT "},
                                {"1 TITL ", "1 TITL\r\n2 TYPE "},
                                {"2 DATE CA.", "2 DATE ABT "},
                                {"\r\n1 NOTE \\\r\n", "\r\n"},
                                {"\t", ""}})
            RemplacerTout(attendu, de, vers);
        ReparationsGlobales(obtenu);
        EXPECT_EQ(obtenu, attendu) << cas;
        // Un grand tampon se parcourt en deux moitiés : le même cas, à cheval sur le milieu.
        const std::string bourre(kSeuilDeuxMoities / 2, 'x');
        for (const std::size_t d : {0u, 5u, 9u}) {
            std::string grand = bourre.substr(d) + std::string(cas) + bourre;
            ReparationsGlobales(grand);
            EXPECT_TRUE(grand == bourre.substr(d) + attendu + bourre) << cas << " " << d;
        }
    }
    std::string rtf = "1 NOTE {\\rtf1 gras}\r\n";
    ReparationsGlobales(rtf);
    EXPECT_EQ(rtf, "1 NOTE [/rtf1 gras]\r\n");
}

// Un identifiant égaré sur une sous-ligne ne fait pas perdre son texte.
TEST(Lecteur, IdentifiantSurUneSousLigneIgnore) {
    essai::Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME Ammie /Willis/|1 NOTE @N59@|0 @N59@ NOTE |1 @N59@ CONT |1 @N59@ CONT jamais "
        "mari\xE9"
        "e.");
    EXPECT_NE(l.N(59).find("jamais mari\xE9"
                           "e."),
              std::string::npos)
        << l.N(59);
    EXPECT_EQ(l.Compte("identifiant @N59@ ignor\xE9 devant une sous-ligne."), 2u);
}

TEST(Lecteur, IdentifiantsIndiEtNumerosDifferents) {
    Lecture l;
    l.Lire(Fichier("0 HEAD|0 @INDI5@ INDI|1 NAME Paul /Petit/|0 @I3@ INDI|1 NAME Luc /Grand/|0 TRLR|"));
    EXPECT_EQ(l.P(5).Nom, "Petit");
    EXPECT_EQ(l.P(3).Nom, "Grand");
    // Le maximum de travail reste 5 même si la dernière fiche lue est la 3.
    EXPECT_EQ(l.base.NbPersos, 5);
    EXPECT_EQ(l.base.NbPersosReels, 2);
}

TEST(Lecteur, LignesVidesEtEnregistrementInconnu) {
    Lecture l;
    l.Lire(
        Fichier("0 HEAD||0 @R1@ REPO|1 NAME Archives /X/|0 @I1@ INDI|1 NAME Jean /Dupont/||"
                "|1 NAME Jacques /Durand/|0 TRLR|"));
    // Le dépôt est sauté sans un mot ; la deuxième ligne vide ramène dans la même fiche.
    EXPECT_EQ(l.base.NbPersosReels, 1);
    EXPECT_EQ(l.P(1).Nom, "Dupont,Durand");
    EXPECT_EQ(l.P(1).Prenoms, "Jean Jacques");
    EXPECT_TRUE(l.resultat.Journal.empty()) << l.resultat.Journal;
}

TEST(Lecteur, FichierTronqueSansTrlr) {
    Lecture l;
    l.Lire(Fichier("0 HEAD|0 @I1@ INDI|1 NAME Jean /Dupont/|0 @I2@ INDI|1 NAME Marie /Martin/|"));
    EXPECT_EQ(
        l.resultat.Journal,
        "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier pourrait \xEAtre tronqu\xE9 "
        "et incomplet.\r\n");
    EXPECT_EQ(l.P(2).Nom, "Martin");
    Lecture f;
    f.Lire(Fichier("0 HEAD|0 @F1@ FAM|1 HUSB @I1@|"));
    EXPECT_NE(f.resultat.Journal.find("Le fichier est tronqu\xE9 et risque"), std::string::npos);
}

TEST(Lecteur, AgrandissementPasseDixMilleEtNumeroEleve) {
    std::string t = "0 HEAD\r\n";
    for (int i = 1; i <= 12000; ++i)
        t += "0 @I" + std::to_string(i) + "@ INDI\r\n1 NAME P /N" + std::to_string(i) + "/\r\n";
    t += "0 TRLR\r\n";
    Lecture l;
    l.Lire(t);
    EXPECT_EQ(l.base.NbPersosReels, 12000);
    EXPECT_GE(l.base.MaxFiches, 13000);
    EXPECT_EQ(l.P(12000).Nom, "N12000");

    Lecture haut;
    haut.Lire(Fichier("0 HEAD|0 @I1@ INDI|1 NAME A /B/|0 @I123456@ INDI|1 NAME C /D/|0 TRLR|"));
    EXPECT_EQ(haut.base.MaxFiches, 125000);  // (123456 \ 5000 + 1) * 5000
    EXPECT_EQ(haut.P(123456).Nom, "D");
    EXPECT_EQ(haut.base.NbPersos, 123456);
}

TEST(Lecteur, IdentifiantDemesureNeFaitPasExploserLaMemoire) {
    Lecture l;
    l.Lire(
        Fichier("0 HEAD|0 @I1@ INDI|1 NAME A /B/|0 @I99999999@ INDI|1 NAME C /D/|"
                "0 @I999999999999@ INDI|1 NAME E /F/|0 TRLR|"));
    EXPECT_EQ(l.P(99999999).Nom, "D");
    EXPECT_LE(l.base.Persos.FichesEnMemoire(), 3u * 1024u);
    EXPECT_NE(l.resultat.Journal.find("erreur 6 : D\xE9passement de capacit\xE9"), std::string::npos);
    EXPECT_NE(l.resultat.Journal.find("autres fiches sont vides"), std::string::npos);
    EXPECT_LT(l.resultat.Journal.size(), 200000u);
}

TEST(Lecteur, RenumerotationSeulementPourLeFichierParDefaut) {
    const std::string t = Fichier("0 HEAD|0 @I7@ INDI|1 NAME A /B/|0 @I9@ INDI|1 NAME C /D/|0 TRLR|");
    Lecture autre;
    autre.options.FichierDefaut = "/maison/defaut.ged";
    autre.cases.Fichier = "/maison/autre.ged";
    autre.cases.OptRenum = true;
    autre.Lire(t);
    EXPECT_FALSE(autre.cases.OptRenum);
    EXPECT_EQ(autre.P(7).Nom, "B");

    Lecture defaut;
    defaut.options.FichierDefaut = defaut.cases.Fichier = "/maison/defaut.ged";
    defaut.cases.OptRenum = true;
    defaut.Lire(t);
    EXPECT_EQ(defaut.P(1).Nom, "B");
    EXPECT_EQ(defaut.P(2).Nom, "D");
    EXPECT_EQ(defaut.base.NbPersos, 2);
}

// Chaque genre a sa suite : la note @N66@ vue avant la personne @I66@ ne lui prend pas son
// numéro, et deux notes vues sous la même personne restent deux notes.
TEST(Lecteur, RenumerotationGardeChaqueFicheDeChaqueGenre) {
    const std::string t = Fichier(
        "0 HEAD|0 @I45@ INDI|1 NAME Marie /Beno\xEEt/|1 NOTE @N66@|1 NOTE @N67@|1 SOUR @S66@|"
        "1 OBJE @M66@|0 @I66@ INDI|1 NAME Barth\xE9lemy /Laurent/|1 NOTE @N45@|0 @N66@ NOTE premi\xE8re|"
        "0 @N67@ NOTE deuxi\xE8me|0 @N45@ NOTE troisi\xE8me|0 @S66@ SOUR|1 TITL registre|"
        "0 @M66@ OBJE|1 FILE a.jpg|0 TRLR|");
    Lecture l;
    l.options.FichierDefaut = l.cases.Fichier = "/maison/defaut.ged";
    l.cases.OptRenum = true;
    l.Lire(t);
    EXPECT_EQ(l.base.NbPersosReels, 2);
    EXPECT_EQ(l.P(1).Nom, "Beno\xEEt");
    EXPECT_EQ(l.P(2).Nom, "Laurent");
    EXPECT_EQ(l.P(1).Notes, "@N1@\r\n@N2@\r\n@S1@");
    EXPECT_EQ(l.P(2).Notes, "@N3@");
    EXPECT_EQ(l.base.NbNotesReelles, 3);
    EXPECT_EQ(std::as_const(l.base.Notes)[2].Texte, "deuxi\xE8me");
    EXPECT_EQ(std::as_const(l.base.Sources)[1].Titre, "registre");
    EXPECT_EQ(std::as_const(l.base.Medias)[1].Fichiers(1), "a.jpg");
}

// Annule la lecture au n-ième passage de la pompe d'évènements.
class ProgressionAnnulee : public Progression {
public:
    explicit ProgressionAnnulee(int apres) : apres_(apres) {}
    void LaisserPasser() override { annule_ = --apres_ <= 0; }
    bool Annule() const override { return annule_; }

private:
    int apres_;
    bool annule_ = false;
};

TEST(Lecteur, AnnulerLaisseUneBaseVide) {
    std::string t = "0 HEAD\r\n";
    for (int i = 1; i <= 3000; ++i) t += "0 @I" + std::to_string(i) + "@ INDI\r\n1 NAME P /N/\r\n";
    Base base;
    Options options;
    OptionsGedcom cases;
    ProgressionAnnulee progression(3);
    ContexteLecture ctx{options, cases, progression};
    const auto r = LireGedcomTexte(base, ctx, t);
    EXPECT_TRUE(r.Annule);
    EXPECT_EQ(base.NbPersos, 0);
    EXPECT_EQ(base.NbPersosReels, 0);
    EXPECT_TRUE(std::as_const(base.Persos)[1].Nom.empty());
}

TEST(Lecteur, EntreesAbimeesSansPlantage) {
    std::string binaire;
    for (int i = 0; i < 5000; ++i) binaire += static_cast<char>((i * 7919) % 256);
    for (const std::string& t : {std::string(), std::string("0 HEAD"), binaire, std::string("\r\n\r\n\r\n"),
                                 Fichier("0 HEAD|0 @I1@ INDI|12 NAME X /Y/|1 NAME A /B/|0 TRLR|"),
                                 Fichier("0 @I1@ INDI|1 NAME ///|1 NAME /|1 NAME a/b/c/d/|0 TRLR|"),
                                 std::string("1 NAME sans en-t\xEAte\n2 CONT\n")}) {
        Lecture l;
        const auto& r = l.Lire(t);
        EXPECT_TRUE(r.Lu);
        EXPECT_TRUE(r.Erreur.empty());
    }
}

TEST(Lecteur, FichierIntrouvableOuDossier) {
    Base base;
    Options options;
    OptionsGedcom cases;
    Progression progression;
    ContexteLecture ctx{options, cases, progression};
    cases.Fichier = "/nulle/part/absent.ged";
    auto r = LireGedcom(base, ctx);
    EXPECT_FALSE(r.Lu);
    EXPECT_EQ(r.Erreur, "Le fichier /nulle/part/absent.ged est introuvable.");
    cases.Fichier = std::filesystem::temp_directory_path().string();
    r = LireGedcom(base, ctx);
    EXPECT_FALSE(r.Lu);
    EXPECT_NE(r.Erreur.find("ce n'est pas un fichier"), std::string::npos);
}

std::string Octets(const std::filesystem::path& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

TEST(Lecteur, NatureDesFichiersQuOnOuvre) {
    const std::string donnees = ARBOLIX_DONNEES;
    const struct {
        std::string fichier;
        NatureFichier nature;
    } cas[] = {
        {"ouverture/vide.ged", NatureFichier::Vide},
        {"ouverture/binaire.ged", NatureFichier::Binaire},
        {"ouverture/texte.ged", NatureFichier::SansEntete},
        {"caracteres/utf16le.ged", NatureFichier::Gedcom},
        {"caracteres/utf16be-sans-marque.ged", NatureFichier::Gedcom},
        {"caracteres/utf8.ged", NatureFichier::Gedcom},
    };
    for (const auto& c : cas)
        EXPECT_EQ(ExaminerFichier(Octets(donnees + "/" + c.fichier)), c.nature) << c.fichier;
    const struct {
        std::string octets;
        NatureFichier nature;
    } textes[] = {
        {"\xEF\xBB\xBF", NatureFichier::Vide},
        {" \r\n\r\n\t", NatureFichier::Vide},
        {"\xEF\xBB\xBF"
         "0 HEAD\n1 CHAR UTF-8\n",
         NatureFichier::Gedcom},
        {"\r\n\r\n  0 HEAD\r\n", NatureFichier::Gedcom},
        {"0 HEAD\r\n" + std::string(40, '\x01'), NatureFichier::Binaire},
        {"0 HEAD\r\n1 NOTE \x07 sonnette\r\n" + std::string(5000, 'x'), NatureFichier::Gedcom},
        {"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n0 HEAD\n", NatureFichier::SansEntete},
    };
    for (const auto& t : textes) EXPECT_EQ(ExaminerFichier(t.octets), t.nature) << t.octets;
}

// Chaque fichier réel du corpus s'ouvre : UTF-16 avec ou sans marque, marque UTF-8, fins de ligne de tout
// genre.
TEST(Lecteur, ToutLeCorpusEstDuGedcom) {
    const auto dossier = std::filesystem::path(ARBOLIX_CORPUS) / "gedcom";
    if (!std::filesystem::is_directory(dossier)) GTEST_SKIP() << "corpus absent";
    int vus = 0;
    for (const auto& e : std::filesystem::directory_iterator(dossier)) {
        if (e.path().extension() != ".ged" && e.path().extension() != ".GED") continue;
        EXPECT_EQ(ExaminerFichier(Octets(e.path())), NatureFichier::Gedcom) << e.path();
        ++vus;
    }
    EXPECT_GT(vus, 30);
}

TEST(Lecteur, UnFichierQuiNEstPasDuGedcomNEstPasLuEtLaBaseResteIntacte) {
    const std::string donnees = ARBOLIX_DONNEES;
    const struct {
        std::string fichier;
        std::string raison;
    } cas[] = {
        {"vide.ged", " est vide : il n'y a rien \xE0 ouvrir."},
        {"binaire.ged",
         " n'est pas un fichier GEDCOM : il contient des donn\xE9"
         "es binaires, ce n'est pas un texte."},
        {"texte.ged",
         " n'est pas un fichier GEDCOM : ses premi\xE8res lignes n'ont pas l'en-t\xEAte \xAB 0 HEAD \xBB."},
    };
    for (const auto& c : cas) {
        Lecture l;
        l.Lire(Fichier(kDeuxPersonnes));
        l.base.FichierModifie = kVrai;
        ContexteLecture ctx{l.options, l.cases, l.progression};
        l.cases.Fichier = donnees + "/ouverture/" + c.fichier;
        const auto r = LireGedcom(l.base, ctx);
        EXPECT_FALSE(r.Lu) << c.fichier;
        EXPECT_EQ(r.Erreur, "Le fichier " + l.cases.Fichier + c.raison);
        EXPECT_EQ(l.P(2).Nom, "Martin") << c.fichier;
        EXPECT_EQ(l.base.NbPersosReels, 2);
        EXPECT_EQ(l.base.FichierModifie, kVrai);
    }
    Lecture utf16;
    ContexteLecture ctx{utf16.options, utf16.cases, utf16.progression};
    utf16.cases.Fichier = donnees + "/caracteres/utf16le-sans-marque.ged";
    EXPECT_TRUE(LireGedcom(utf16.base, ctx).Lu);
    EXPECT_GT(utf16.base.NbPersosReels, 0);
}

TEST(Lecteur, NomDeFichierCoupeAuDieseSeulementSIlExiste) {
    const auto dossier = std::filesystem::temp_directory_path() / "arbolix-diese";
    std::filesystem::create_directories(dossier);
    const auto vrai = dossier / "a#b.ged";
    std::ofstream(vrai, std::ios::binary) << Fichier(kDeuxPersonnes);
    Base base;
    Options options;
    OptionsGedcom cases;
    Progression progression;
    ContexteLecture ctx{options, cases, progression};
    cases.Fichier = vrai.string();
    EXPECT_TRUE(LireGedcom(base, ctx).Lu);
    std::filesystem::remove_all(dossier);
}

TEST(Lecteur, ControlesApresLecture) {
    Lecture l;
    l.Lire(Fichier("0 HEAD|0 @I1@ INDI|1 NAME Jean /Dupont/|0 @I4@ INDI|0 @I6@ INDI|1 NAME /Seul/|0 TRLR|"));
    EXPECT_EQ(l.resultat.Journal,
              "Info : la fiche 2 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n"
              "Info : la fiche 3 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n"
              "Info : la fiche 4 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n"
              "Info : la fiche 5 est vide et peut \xEAtre r\xE9utilis\xE9"
              "e.\r\n");
    // Une fiche lue avec un nom mais sans prénom garde sa place dans les parcours.
    EXPECT_EQ(l.P(6).Prenoms, "N");
    // Sans nom ni date, un sexe, un métier ou un lieu suffisent : la fiche serait perdue à l'enregistrement.
    Lecture sansNom;
    sansNom.Lire(
        Fichier("0 HEAD|0 @I1@ INDI|1 SEX F|0 @I2@ INDI|1 OCCU tisserand|0 @I3@ INDI|1 BIRT|2 PLAC Sarlat|"
                "0 @I4@ INDI|1 CHAN|2 DATE 1 JAN 2000|0 TRLR|"));
    for (int n : {1, 2, 3}) EXPECT_EQ(sansNom.P(n).Prenoms, "N") << n;
    EXPECT_TRUE(sansNom.P(4).Prenoms.empty());
    Lecture moitie;
    moitie.Lire(Fichier("0 HEAD|0 @I1@ INDI|1 NAME A /B/|0 @I9@ INDI|1 NAME C /D/|0 TRLR|"));
    EXPECT_EQ(
        moitie.resultat.Journal.rfind("Info : plus de la moiti\xE9 des fiches individuelles sont vides !", 0),
        0u);
}

}  // namespace
}  // namespace arbolix

namespace arbolix {
namespace {

TEST(Lecteur, IdentifiantsSansNumeroUtilisable) {
    Lecture l;
    l.Lire(
        Fichier("0 HEAD|1 SUBM @SUBM@|0 @SUBM@ SUBM|1 NAME Jean /G\xE9n\xE9"
                "alogiste/|"
                "0 @Abraham_Simpson@ INDI|1 NAME Abraham /Simpson/|0 @I4@ INDI|1 NAME Homer /Simpson/|"
                "0 @I152733931767@ INDI|1 NAME Bart /Simpson/|0 @I0@ INDI|1 NAME Lisa /Simpson/|0 TRLR|"));
    EXPECT_EQ(l.base.NbPersosReels, 4);
    EXPECT_EQ(l.P(4).Prenoms, "Homer");
    // Les identifiants sans numéro prennent les numéros qui suivent le plus grand du fichier.
    EXPECT_EQ(l.P(6).Prenoms, "Abraham");
    EXPECT_EQ(l.P(7).Prenoms, "Bart");
    EXPECT_EQ(l.P(8).Prenoms, "Lisa");
    EXPECT_EQ(l.P(-1).Nom,
              "G\xE9n\xE9"
              "alogiste");
}

// Un grand fichier rend son tampon au fur et à mesure : le dépôt nommé au début et le plus grand
// numéro vu au début servent encore à la source et à l'identifiant sans numéro de la fin.
TEST(Lecteur, TamponRenduEnCheminLitLaMemeBase) {
    std::string corps;
    for (int i = 1; i <= 1500; ++i) {
        corps += "0 @I" + std::to_string(i) + "@ INDI|1 NAME Jean /Dupont/|1 BIRT|2 DATE 1 JAN 1800|";
        if (i == 200) corps += "0 @R1@ REPO|1 NAME Archives de Metz|0 @I9000@ INDI|1 NAME Max /Haut/|";
    }
    corps += "0 @S1@ SOUR|1 TITL Registres|1 REPO @R1@|0 @Abraham@ INDI|1 NAME Abraham /Simpson/|1 SOUR @S1@";
    Lecture entier, rendu;
    rendu.pasRendu = 16 * 1024;
    entier.Lire(Fichier("0 HEAD|" + corps + "|0 TRLR|"));
    rendu.Lire(Fichier("0 HEAD|" + corps + "|0 TRLR|"));
    EXPECT_EQ(rendu.resultat.Journal, entier.resultat.Journal);
    EXPECT_EQ(DecrireBase(rendu.base), DecrireBase(entier.base));
    EXPECT_EQ(rendu.P(9001).Prenoms, "Abraham");
    EXPECT_EQ(rendu.base.NbPersosReels, 1502);
    EXPECT_NE(DecrireBase(rendu.base).find("Archives de Metz"), std::string::npos);
}

// Les pages faites d'avance par un second fil ne changent rien à ce qui est lu. Familles d'abord,
// les HUSB et CHIL font les pages de personnes pas encore lues.
TEST(Lecteur, PagesDAvanceMemeBaseEtMemeJournal) {
    const std::string fichier = bench::GenererGedcom(6000);
    const std::size_t personnes = fichier.find("0 @I1@"), familles = fichier.find("0 @F1@"),
                      fin = fichier.find("0 TRLR");
    const std::string famillesDAbord = fichier.substr(0, personnes) +
                                       fichier.substr(familles, fin - familles) +
                                       fichier.substr(personnes, familles - personnes) + fichier.substr(fin);
    for (const std::string* texte : {&fichier, &famillesDAbord}) {
        Lecture seul, avance;
        seul.seuilPagesDAvance = texte->size() + 1;
        avance.seuilPagesDAvance = 0;
        seul.Lire(*texte);
        avance.Lire(*texte);
        EXPECT_EQ(avance.resultat.Journal, seul.resultat.Journal);
        EXPECT_EQ(DecrireBase(avance.base), DecrireBase(seul.base));
        EXPECT_EQ(avance.base.NbPersosReels, 6000);
    }
}

}  // namespace
}  // namespace arbolix

namespace arbolix {
namespace {

TEST(Lecteur, CodesEtClesDesNomsCalculesALaLecture) {
    Lecture l;
    l.Lire(Fichier("0 HEAD|0 @I1@ INDI|1 NAME Jeanne /d'Arc/|0 @I2@ INDI|1 NAME Paul /DUPOND/|0 TRLR|"));
    EXPECT_EQ(l.P(1).NomTri, "ARC");
    EXPECT_EQ(l.P(1).CodeNom, "D620");
    EXPECT_EQ(l.P(2).CodeNom, "D153");
}

}  // namespace
}  // namespace arbolix
