#include "acts/export_actes.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "card/queues.h"
#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

// Un couple marié en 1750 dont le mari était veuf, leur fils né en 1752, le père mort en 1760.
constexpr std::string_view kFichier =
    "0 @I1@ INDI|1 NAME Jean /DUPONT/|1 SEX M|1 OCCU laboureur|1 BIRT|2 DATE 3 MAR 1720|2 PLAC Toul|"
    "1 DEAT|2 DATE 1 JAN 1760|2 PLAC Nancy|1 FAMS @F1@|1 FAMS @F2@|"
    "0 @I2@ INDI|1 NAME Marie /MARTIN/|1 SEX F|1 BIRT|2 DATE 1730|1 FAMS @F2@|"
    "0 @I3@ INDI|1 NAME Pierre /DUPONT/|1 SEX M|1 BIRT|2 DATE 12 FEB 1752|2 PLAC Nancy|1 FAMC @F2@|"
    "0 @I4@ INDI|1 NAME Anne /BLANC/|1 SEX F|1 DEAT|2 DATE 1748|1 FAMS @F1@|"
    "0 @F1@ FAM|1 HUSB @I1@|1 WIFE @I4@|1 MARR|2 DATE 1740|"
    "0 @F2@ FAM|1 HUSB @I1@|1 WIFE @I2@|1 CHIL @I3@|1 MARR|2 DATE 5 MAY 1750|2 PLAC Nancy|2 NOTE t\xE9moin ; "
    "Paul|"
    "2 SOUR registre 1750";

class ExportActesEssai : public testing::Test {
protected:
    void SetUp() override {
        lecture_.Lire(kFichier);
        fs::create_directories(dossier_);
    }
    void TearDown() override { fs::remove_all(dossier_); }
    // Une rangée de la liste des actes : le texte lu puis la queue symbole + numéro.
    void Rangee(char symbole, std::int32_t n) { liste_.Rangees.push_back({"acte" + Queue(symbole, n), n}); }
    DemandeExportActes Demande(const std::string& nom, int format) {
        return {lecture_.base, lecture_.options, notes_, (dossier_ / nom).string(), format, liste_};
    }
    static std::vector<std::string> Lignes(const std::string& chemin) {
        std::ifstream f(chemin, std::ios::binary);
        std::vector<std::string> r;
        for (std::string l; std::getline(f, l);) r.push_back(l);
        return r;
    }
    static std::size_t Champs(const std::string& l, char sep) {
        return static_cast<std::size_t>(std::count(l.begin(), l.end(), sep)) + 1;
    }

    essai::Lecture lecture_;
    ListePersonne liste_{"", "actes", {{" Exporter...", 0}}, true};
    std::string notes_ = "Toul 1750-1760 (canton de Toul)\r\nRelev\xE9s : Paul";
    fs::path dossier_ = essais::DossierEssai("export-actes");
    DialogueFactice dialogue_;
};

TEST_F(ExportActesEssai, MariagesTMT) {
    Rangee('x', 2);
    Rangee('x', 1);
    const ResultatExportActes r = ExporterActes(Demande("M54123.tmt", kFormatTMT), dialogue_);
    ASSERT_TRUE(r.Ecrit);
    EXPECT_EQ(r.NbRangees, 2u);
    const auto l = Lignes((dossier_ / "M54123.tmt").string());
    ASSERT_EQ(l.size(), 4u);
    EXPECT_EQ(l[0].rfind("Date\tDate r\xE9pu\tNom\tPr\xE9noms\tLieu origine\tDate naissance\tSexe\tAge", 0),
              0u);
    EXPECT_EQ(l[1], "Toul 1750-1760 (canton de Toul)|Relev\xE9s : Paul" + std::string(47, '\t') + "G11.0\r");
    for (std::size_t i : {2u, 3u}) EXPECT_EQ(Champs(l[i], '\t'), Champs(l[0], '\t'));
    // Le mari, veuf d'Anne BLANC morte avant ; la note de l'acte sans son « ; ».
    EXPECT_NE(l[2].find("05/05/1750\t\tDUPONT\tJean\tToul\t03/03/1720\tM\t30\tlaboureur\tBLANC Anne\t"),
              std::string::npos)
        << l[2];
    EXPECT_NE(l[2].find("MARTIN\tMarie\t\t1730\t20\t"), std::string::npos);
    EXPECT_NE(l[2].find("t\xE9moin , Paul"), std::string::npos);
    EXPECT_NE(l[2].find("\tNancy\t\tregistre 1750\tF2M\t"), std::string::npos);
}

TEST_F(ExportActesEssai, NaissancesEtDecesNimegue) {
    const struct {
        char symbole;
        std::int32_t numero;
        const char* nom;
        const char* attendu;
    } cas[] = {
        {'\xB0', 3, "naissances.txt", "NIMEGUE-V3;Nancy;N;;12/02/1752;;DUPONT;Pierre;;;M;"},
        {'+', 1, "deces.txt", "NIMEGUE-V3;Nancy;D;;01/01/1760;;DUPONT;Jean;;;M;40;laboureur;;"},
    };
    for (const auto& c : cas) {
        liste_.Rangees.resize(1);
        Rangee(c.symbole, c.numero);
        ASSERT_TRUE(ExporterActes(Demande(c.nom, kFormatNimegue), dialogue_).Ecrit);
        const auto l = Lignes((dossier_ / c.nom).string());
        ASSERT_EQ(l.size(), 2u);
        EXPECT_EQ(l[0].rfind("Version;Commune;Type;Source;Date;", 0), 0u);
        EXPECT_EQ(l[1].rfind(c.attendu, 0), 0u) << l[1];
        EXPECT_EQ(Champs(l[1], ';'), Champs(l[0], ';'));
    }
    EXPECT_EQ(Champs(EnTeteActes('N'), '|'), Champs(EnTeteActes('M'), '|'));
}

TEST_F(ExportActesEssai, RefusSansFichier) {
    const struct {
        const char* notes;
        const char* fichier;
        std::vector<std::pair<char, std::int32_t>> rangees;
        int format;
        const char* debut;
    } cas[] = {
        {"Relev\xE9s : _", "M54123.tmt", {{'x', 1}}, kFormatTMT, "Veuillez compl\xE9ter les notes"},
        {"Saisie :", "M54123.tmt", {{'x', 1}}, kFormatTMT, "Veuillez compl\xE9ter les notes"},
        {"ok", "M5412.tmt", {{'x', 1}}, kFormatTMT, "Veuillez cliquer sur Parcourir"},
        {"ok", "M54123.tmt", {{'\xB0', 3}, {'+', 1}}, kFormatTMT, "Vous ne pouvez exporter"},
        {"ok", "M54123.TM", {{'x', 1}}, kFormatTMAO, "Le format de fichier TMAO n'est plus utilis\xE9"},
    };
    for (const auto& c : cas) {
        notes_ = c.notes;
        liste_.Rangees.resize(1);
        for (const auto& [s, n] : c.rangees) Rangee(s, n);
        dialogue_.messages.clear();
        const ResultatExportActes r = ExporterActes(Demande(c.fichier, c.format), dialogue_);
        EXPECT_FALSE(r.Ecrit) << c.debut;
        ASSERT_EQ(dialogue_.messages.size(), 1u);
        EXPECT_EQ(dialogue_.messages[0].texte.rfind(c.debut, 0), 0u) << dialogue_.messages[0].texte;
        EXPECT_FALSE(fs::exists(dossier_ / c.fichier));
    }
    // Des sortes mêlées plus bas que les deux premières rangées passent.
    notes_ = "ok";
    liste_.Rangees.resize(1);
    for (const auto& [s, n] : {std::pair{'x', 1}, std::pair{'x', 2}, std::pair{'+', 1}}) Rangee(s, n);
    // Annulé en cours de route : rien n'est écrit.
    struct Annulee : Progression {
        bool Annule() const override { return true; }
    } annulee;
    DemandeExportActes d = Demande("M54123.tmt", kFormatTMT);
    d.progression = &annulee;
    EXPECT_TRUE(ExporterActes(d, dialogue_).Annule);
    EXPECT_FALSE(fs::exists(dossier_ / "M54123.tmt"));
    EXPECT_TRUE(ExporterActes(Demande("M54123.tmt", kFormatTMT), dialogue_).Ecrit);
}

TEST(ExportActes, LieuEtFormatDuNomDeFichier) {
    const struct {
        const char* fichier;
        const char* lieu;
    } lieux[] = {{"/a/54123-saint_cl\xE9ment.ged", "Saint Cl\xE9ment"},
                 {"/a/54123_nancy.ged", "Nancy"},
                 {"/a/nancy-54123.ged", ""},
                 {"/a/54a-toul.ged", ""}};
    for (const auto& c : lieux) EXPECT_EQ(LieuDuNomDeFichier(c.fichier, true), c.lieu) << c.fichier;
    const struct {
        const char* fichier;
        int format;
    } formats[] = {
        {"M54123.tmt", kFormatTMT}, {"x.TM", kFormatTMAO}, {"x.txt", kFormatNimegue}, {"x.csv", kFormatTMT}};
    for (const auto& c : formats) EXPECT_EQ(FormatActesDuFichier(c.fichier, 1), c.format) << c.fichier;
}

}  // namespace
}  // namespace arbolix
