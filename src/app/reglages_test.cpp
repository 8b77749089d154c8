#include "app/reglages.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>

#include "aides/dialogue_factice.h"
#include "platform/ini.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

class Reglages : public ::testing::Test {
protected:
    void SetUp() override {
        dossier_ =
            fs::temp_directory_path() / ("arbolix-reglages-" + std::to_string(::getpid()) + "-" +
                                         ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
        ini_ = dossier_ / "arbolix.ini";
    }
    void TearDown() override { fs::remove_all(dossier_); }
    void Poser(const std::string& contenu) { std::ofstream(ini_, std::ios::binary) << contenu; }
    std::string Fichier(const std::string& nom) {
        const fs::path p = dossier_ / nom;
        std::ofstream(p) << "0 HEAD\r\n";
        return p.string();
    }
    static void AttendreDefauts(const Options& o) {
        const Options d;
        EXPECT_EQ(o.VerifMAJ, d.VerifMAJ);
        EXPECT_EQ(o.Chemin, d.Chemin);
        EXPECT_EQ(o.AgeMiniUnion, "15");
        EXPECT_EQ(o.AgeMaxiDeces, "100");
        EXPECT_EQ(o.Conversion, 1);
        EXPECT_EQ(o.ExportPrefere, 2);
        EXPECT_EQ(o.SelAutoLieuxAnnexes, 2);
        EXPECT_EQ(o.SymbNais, "\xB0");
        EXPECT_EQ(o.SymbSepu, "s");
        EXPECT_EQ(o.NomPrenomParDefaut, "N");
        EXPECT_EQ(o.LiensWeb, d.LiensWeb);
    }
    fs::path dossier_, ini_;
    DialogueFactice dialogue_;
};

TEST_F(Reglages, SansFichierVideOuAbimeLesDefauts) {
    AttendreDefauts(ChargerOptions(ini_, dialogue_));
    Poser("");
    AttendreDefauts(ChargerOptions(ini_, dialogue_));
    Poser(std::string("\xFF\xFE garbage\r\n[[[\n=\n==x\n[Preferences\nConvTMAO2=zz\nExportActes=-3\n"
                      "SelAutoLieuxAnnexes=99999999999999999999\n[Symboles]\nNaissance=\n") +
          std::string(5000, '\0') + "\n[Recents]\nn=99999999\n");
    AttendreDefauts(ChargerOptions(ini_, dialogue_));
    Options o;
    EXPECT_TRUE(LireFichiersRecents(ini_, o, false).empty());
    EXPECT_TRUE(dialogue_.messages.empty());
}

TEST_F(Reglages, LectureDesClesEtDossiers) {
    Poser(
        "[General]\r\nVerif=False\r\n[Chemins]\r\nDossierRapports=/tmp/rapports\r\nDossierImages=/img/\r\n"
        "[Preferences]\r\nAgeRetraite=abc\r\nConvTMAO2=3\r\nShortList=True\r\nPolice=Arial\r\n"
        "[Symboles]\r\nMariage=oo\r\nDeces=\r\n[WebBases]\r\nn=2\r\n1=https://a/%nom\r\n2=https://b/%comn\r\n"
        "[WebAnnuaires]\r\nn=0\r\n");
    const Options o = ChargerOptions(ini_, dialogue_);
    EXPECT_FALSE(o.VerifMAJ);
    EXPECT_EQ(o.Chemin[0], "/tmp/rapports/");
    EXPECT_EQ(o.Chemin[1], "");
    EXPECT_EQ(o.Chemin[2], "/img/");
    EXPECT_EQ(o.AgeRetraite, "abc");  // le contrôle vient à la fermeture
    EXPECT_EQ(o.Conversion, 3);
    EXPECT_TRUE(o.ListePersosCourte);
    EXPECT_EQ(o.Police, "Arial");
    EXPECT_EQ(o.SymbMari, "oo");
    EXPECT_EQ(o.SymbDece, "+");
    EXPECT_EQ(o.LiensWeb[0], "https://a/%nom\r\nhttps://b/%comn");
    EXPECT_EQ(o.LiensWeb[1], "");  // liste vidée par l'utilisateur : pas de défaut
}

TEST_F(Reglages, DossierDeSauvegardeAbsentPrevient) {
    Poser("[Chemins]\nDossierSauvegarde=/nulle/part\n[Preferences]\nSaveFileCopy=True\n");
    ChargerOptions(ini_, dialogue_);
    ASSERT_EQ(dialogue_.messages.size(), 1u);
    EXPECT_EQ(dialogue_.messages[0].titre, "Dossier introuvable");
    EXPECT_NE(dialogue_.messages[0].texte.find("/nulle/part/ n'existe pas."), std::string::npos);
}

TEST_F(Reglages, ValiderOptionsAgesEtMaxGen) {
    struct Cas {
        const char* champ;
        const char* valeur;
        bool accepte;
        const char* apres;
    };
    const Cas cas[] = {
        {"AgeMaxiEnfant", "15", false, "15"},  // égal à AgeMiniUnion : refusé
        {"AgeMaxiEnfant", "14", false, "14"}, {"AgeMaxiEnfant", "16", true, "16"},
        {"AgeRetraite", "abc", true, "65"},  // remis au défaut sans message
        {"AgeRetraite", "", true, "65"},      {"AgeMiniUnion", "0", false, "0"},
        {"AgeMaxiDeces", "-5", false, "-5"},  {"AgeMaxiDeces", "99,5", true, "99,5"},
        {"EcartGen", "xyz", true, "xyz"},  // hors des cinq âges contrôlés
    };
    for (const auto& c : cas) {
        Options o;
        std::string Options::*champ = std::string_view(c.champ) == "AgeMaxiEnfant"  ? &Options::AgeMaxiEnfant
                                      : std::string_view(c.champ) == "AgeRetraite"  ? &Options::AgeRetraite
                                      : std::string_view(c.champ) == "AgeMiniUnion" ? &Options::AgeMiniUnion
                                      : std::string_view(c.champ) == "AgeMaxiDeces" ? &Options::AgeMaxiDeces
                                                                                    : &Options::EcartGen;
        o.*champ = c.valeur;
        DialogueFactice d;
        EXPECT_EQ(ValiderOptions(ini_, o, d, 11), c.accepte) << c.champ << "=" << c.valeur;
        EXPECT_EQ(o.*champ, c.apres) << c.champ;
        EXPECT_EQ(d.messages.size(), c.accepte ? 0u : 1u);
        if (!c.accepte) {
            EXPECT_EQ(d.messages[0].titre,
                      "Option erron\xE9"
                      "e");
        }
    }
    for (const auto& [maxGen, apres] : std::initializer_list<std::pair<const char*, const char*>>{
             {"32", ""}, {"0", ""}, {"abc", ""}, {"1", "1"}, {"31", "31"}, {"", ""}}) {
        Options o;
        o.MaxGen = maxGen;
        ValiderOptions(ini_, o, dialogue_, 11);
        EXPECT_EQ(o.MaxGen, apres) << maxGen;
    }
    EXPECT_EQ(LireIni(ini_, "General", "Version", ""), "11");
}

TEST_F(Reglages, SymbolesVidesRetrouventLeurDefaut) {
    Options o;
    o.SymbNais = o.SymbBapt = o.SymbCoMa = o.SymbMari = o.SymbDivo = o.SymbDece = o.SymbSepu = "";
    ASSERT_TRUE(ValiderOptions(ini_, o, dialogue_, 11));
    EXPECT_EQ(o.SymbNais + o.SymbBapt + o.SymbCoMa + o.SymbMari + o.SymbDivo + o.SymbDece + o.SymbSepu,
              "\xB0"
              "bcxd+s");
}

TEST_F(Reglages, EnregistrerPuisRelireDonneLesMemesValeurs) {
    Options o;
    o.VerifMAJ = false;
    o.FichierDefaut = "/data/famille.ged";
    o.Chemin = {"/r/", "", "/i/"};
    o.AgeMiniUnion = "14";
    o.EcartGen = "25";
    o.ModifCasse = false;
    o.PourcentZoom = "(125)";
    o.ZoomFen = true;
    o.NomPrenomParDefaut = "?";
    o.Conversion = 0;
    o.ExportPrefere = 1;
    o.SelAutoLieuxAnnexes = 0;
    o.Police = "DejaVu Sans";
    o.SymbNais = "*";
    o.LiensWeb = {"https://a/%nom\r\nhttps://b/%prenom\r\n", "https://c/%numtel"};
    o.MaxGen = "12";
    Poser("[Recents]\nn=4\n1=a\n2=b\n3=c\n4=d\n[Autre]\ncle=garde\n");
    ASSERT_TRUE(EnregistrerOptions(ini_, o, {"/x.ged", "/y.ged"}, dialogue_, 11));
    const Options relu = ChargerOptions(ini_, dialogue_);
    EXPECT_EQ(relu.VerifMAJ, false);
    EXPECT_EQ(relu.FichierDefaut, o.FichierDefaut);
    EXPECT_EQ(relu.Chemin, o.Chemin);
    EXPECT_EQ(relu.AgeMiniUnion, "14");
    EXPECT_EQ(relu.EcartGen, "25");
    EXPECT_FALSE(relu.ModifCasse);
    EXPECT_EQ(relu.PourcentZoom, "(125)");
    EXPECT_TRUE(relu.ZoomFen);
    EXPECT_EQ(relu.NomPrenomParDefaut, "?");
    EXPECT_EQ(relu.Conversion, 0);
    EXPECT_EQ(relu.ExportPrefere, 1);
    EXPECT_EQ(relu.SelAutoLieuxAnnexes, 0);
    EXPECT_EQ(relu.Police, "DejaVu Sans");
    EXPECT_EQ(relu.SymbNais, "*");
    EXPECT_EQ(relu.LiensWeb[0], "https://a/%nom\r\nhttps://b/%prenom");
    EXPECT_EQ(relu.LiensWeb[1], "https://c/%numtel");
    EXPECT_EQ(relu.MaxGen, "");  // jamais enregistré
    EXPECT_EQ(LireIni(ini_, "General", "Verif", ""), "False");
    EXPECT_EQ(LireIni(ini_, "Recents", "n", ""), "2");
    EXPECT_EQ(LireIni(ini_, "Recents", "1", ""), "/x.ged");
    EXPECT_EQ(LireIni(ini_, "Recents", "3", "?"), "");
    EXPECT_EQ(LireIni(ini_, "Recents", "4", "?"), "");
    EXPECT_EQ(LireIni(ini_, "Autre", "cle", ""), "garde");
    EXPECT_FALSE(ReglagesAnciens(ini_, 11));
    EXPECT_TRUE(ReglagesAnciens(ini_, 12));
}

TEST_F(Reglages, EnregistrerRefuseDesAgesFauxSansEcrire) {
    Options o;
    o.AgeMaxiEnfant = "10";
    EXPECT_FALSE(EnregistrerOptions(ini_, o, {}, dialogue_, 11));
    EXPECT_EQ(LireIni(ini_, "Preferences", "AgeMaxiEnfant", "absent"), "absent");
}

TEST_F(Reglages, FichierNonInscriptibleDonneErreurSysteme) {
    const fs::path ini = dossier_ / "pas-un-dossier" / "arbolix.ini";
    std::ofstream(dossier_ / "pas-un-dossier") << "fichier";  // le dossier ne peut être créé
    Options o;
    EXPECT_FALSE(EnregistrerOptions(ini, o, {}, dialogue_, 11));
    ASSERT_EQ(dialogue_.messages.size(), 1u);
    EXPECT_EQ(dialogue_.messages[0].titre, "Erreur syst\xE8me");
    EXPECT_NE(dialogue_.messages[0].texte.find(ini.string()), std::string::npos);
}

TEST_F(Reglages, VersionAncienneOuAbsente) {
    EXPECT_TRUE(ReglagesAnciens(ini_, 11));
    Poser("[General]\nVersion=10.2\n");
    EXPECT_TRUE(ReglagesAnciens(ini_, 11));
    Poser("[General]\nVersion=114\n");  // deux premiers caractères
    EXPECT_FALSE(ReglagesAnciens(ini_, 11));
}

TEST_F(Reglages, MiseAJourDue) {
    EXPECT_FALSE(VerificationMiseAJourDue(ini_, "20250115", true));  // défaut : aujourd'hui
    Poser("[General]\nVerifDate=20250101\n");
    EXPECT_TRUE(VerificationMiseAJourDue(ini_, "20250115", true));
    EXPECT_FALSE(VerificationMiseAJourDue(ini_, "20250115", false));
    EXPECT_FALSE(VerificationMiseAJourDue(ini_, "20250101", true));
}

TEST_F(Reglages, FichiersRecentsAuDemarrage) {
    const std::string a = Fichier("a.ged"), b = Fichier("b.ged"), c = Fichier("c.ged");
    const std::string parti = (dossier_ / "parti.ged").string();
    Poser("[Chemins]\nFichier=" + a + "\n[Recents]\nn=6\n1=" + a + "\n2=" + parti + "\n3=" + b +
          "\n4=\n5=" + c + "\n6=" + parti + "\n");
    Options o;
    const auto liste = LireFichiersRecents(ini_, o, false);
    EXPECT_EQ(liste, (std::vector<std::string>{a, b, c}));
    EXPECT_EQ(o.FichierDefaut, a);
    EXPECT_EQ(LireIni(ini_, "Recents", "n", ""), "3");
    EXPECT_EQ(LireIni(ini_, "Recents", "2", ""), b);
    for (const char* k : {"4", "5", "6"}) EXPECT_EQ(LireIni(ini_, "Recents", k, "?"), "") << k;
    // Relu tel quel : rien à réécrire.
    EXPECT_EQ(LireFichiersRecents(ini_, o, false), liste);
}

TEST_F(Reglages, FichiersRecentsSurSupportAmovible) {
    const std::string parti = (dossier_ / "parti.ged").string();
    Poser("[Chemins]\nFichier=" + parti + "\n[Recents]\nn=2\n1=" + parti + "\n2=/x.ged\n");
    Options o;
    EXPECT_EQ(LireFichiersRecents(ini_, o, true), (std::vector<std::string>{parti, parti, "/x.ged"}));
    EXPECT_EQ(LireIni(ini_, "Recents", "n", ""), "2");
}

TEST_F(Reglages, FichierParDefautDisparuNestPlusOuvert) {
    Poser("[Chemins]\nFichier=/nulle/part.ged\n");
    Options o = ChargerOptions(ini_, dialogue_);
    EXPECT_EQ(o.FichierDefaut, "/nulle/part.ged");
    EXPECT_TRUE(LireFichiersRecents(ini_, o, false).empty());
    EXPECT_EQ(o.FichierDefaut, "");
}

TEST_F(Reglages, ViderLaListeEtAjouter) {
    Poser("[Recents]\nn=3\n1=/a\n2=/b\n3=/c\n");
    EXPECT_EQ(ClearFileList(ini_, "/b"), std::vector<std::string>{"/b"});
    EXPECT_EQ(LireIni(ini_, "Recents", "n", ""), "1");
    EXPECT_EQ(LireIni(ini_, "Recents", "1", ""), "/b");
    EXPECT_EQ(LireIni(ini_, "Recents", "2", "?"), "");
    EXPECT_EQ(LireIni(ini_, "Recents", "3", "?"), "");

    auto liste = AjouterFichierRecent({"/a", "/b", "/c"}, "/c", 3);
    EXPECT_EQ(liste, (std::vector<std::string>{"/c", "/a", "/b"}));
    liste = AjouterFichierRecent(liste, "/d", 3);
    EXPECT_EQ(liste, (std::vector<std::string>{"/d", "/c", "/a"}));
}

TEST_F(Reglages, PositionDeLaFenetrePersonne) {
    const PositionFenetre defaut = LirePositionPersonne(ini_);
    EXPECT_EQ(defaut.W, 5400);
    EXPECT_EQ(defaut.H, 6120);
    EcrirePositionPersonne(ini_, {120.5, 0, 6000, 7000});
    EXPECT_EQ(LireIni(ini_, "Fenetres", "PersonneL", ""), "120.5");
    const PositionFenetre p = LirePositionPersonne(ini_);
    EXPECT_EQ(p.L, 120.5);
    EXPECT_EQ(p.W, 6000);
    Poser("[Fenetres]\nPersonneW=large\n");
    EXPECT_EQ(LirePositionPersonne(ini_).W, 5400);
}

TEST_F(Reglages, ArbreEtExports) {
    const OptionsArbre defaut = ChargerOptionsArbre(ini_);
    EXPECT_EQ(defaut.LC + defaut.HC + defaut.MC + defaut.LF + defaut.HF + defaut.MF + defaut.NbGen,
              "6530121029710"
              "5");
    OptionsArbre a;
    a.HC = "20.5";
    a.NbGen = "7";
    EcrireOptionsArbre(ini_, a, false);
    EXPECT_EQ(ChargerOptionsArbre(ini_).HC, "20.5");
    EXPECT_EQ(ChargerOptionsArbre(ini_).NbGen, "5");  // la feuille n'est retenue que sur demande
    EcrireOptionsArbre(ini_, a, true);
    EXPECT_EQ(ChargerOptionsArbre(ini_).NbGen, "7");

    const OptionsExport e = ChargerOptionsExport(ini_);
    EXPECT_EQ(e.AnneesConfidentielles[0], "75");
    EXPECT_EQ(e.AnneesConfidentielles[1], "0");
    EXPECT_TRUE(e.OptionSaufDecede);
    EXPECT_TRUE(e.OptionPreciserUnions);
    Poser(
        "[Preferences]\nAnneesConfidentiellesDS=30\nNumeroUniqueRTF=True\nOrdreDonneesPerso=2\nColonnesIndex="
        "3\n");
    const OptionsExport lu = ChargerOptionsExport(ini_);
    EXPECT_EQ(lu.AnneesConfidentielles[1], "30");
    EXPECT_TRUE(lu.OptNumUniq);
    EXPECT_EQ(lu.OptionOrdre, 2);
    EXPECT_EQ(lu.ComboColRTF[1], "3");
}

}  // namespace
}  // namespace arbolix
