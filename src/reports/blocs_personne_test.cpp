#include "reports/blocs_personne.h"

#include <gtest/gtest.h>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

struct Blocs : ::testing::Test {
    essai::Lecture l;
    OptionsExport exports;
    ContexteExport Ctx() { return {l.base, l.options, exports, {23, 11, 2026}}; }
    std::string Actes(const Acte& a, const Acte& b, bool notes = true, bool conf = false) {
        TexteRapport f;
        EcrireActes(Ctx(), a, l.options.SymbNais, b, l.options.SymbBapt, f, "|", "/", notes, conf);
        return f.Octets();
    }
};

TEST_F(Blocs, MarqueDecedeCompareDesAnnees) {
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 1900|"
        "0 @I2@ INDI|1 NAME C /D/|1 DEAT|2 DATE 12 MAR 1950|"
        "0 @I3@ INDI|1 NAME E /F/|1 DEAT Y|"
        "0 @I4@ INDI|1 NAME G /H/");
    struct Cas {
        std::int32_t p;
        const char* date;
        const char* attendu;
    } cas[] = {
        {1, "31/12/1999", ""}, {1, "2000", "+"},        // sans décès : naissance + âge maximal (100)
        {2, "1949", ""},       {2, "01/01/1950", "+"},  // l'année du décès suffit
        {3, "1800", "+"},      {4, "2026", ""},         // connu mort sans date ; rien de connu
        {2, "", ""},
    };
    for (const auto& c : cas) EXPECT_EQ(MarqueDecede(Ctx(), c.p, c.date), c.attendu) << c.p << " " << c.date;
}

TEST_F(Blocs, NaissanceEtBaptemeDuMemeMoisFontUnArticle) {
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 2 MAR 1750|2 PLAC Nancy|"
        "1 CHR|2 DATE 4 MAR 1750|2 PLAC Saint-Epvre, Nancy");
    const Perso& p = l.Pe(1);
    EXPECT_EQ(Actes(p.Naissance, p.Bapteme), "/\xB0-b 02-04/03/1750 Saint-Epvre, Nancy");
}

TEST_F(Blocs, DateRecenteCacheeLeSymboleEtLeLieuRestent) {
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 2010|2 PLAC Metz|1 CHR|2 PLAC Toul|2 NOTE dans l'\xE9glise");
    const Perso& p = l.Pe(1);
    EXPECT_EQ(Actes(p.Naissance, p.Bapteme), "|\xB0 Metz/b Toul/dans l'\xE9glise");
    EXPECT_EQ(Actes(p.Naissance, p.Bapteme, false), "|\xB0 Metz/b Toul");
}

TEST_F(Blocs, DateRepublicaineDevantLaDate) {
    l.Lire("0 @I1@ INDI|1 NAME A /B/|1 BIRT|2 DATE 5 OCT 1794|2 PLAC Nancy");
    const Perso& p = l.Pe(1);
    ASSERT_EQ(p.Naissance.Notes, "14/vend/03");
    EXPECT_EQ(Actes(p.Naissance, Acte{}), "|\xB0 14/vend/03 (05/10/1794) Nancy");
    l.options.OptConvCalRep = false;  // calendrier éteint : la note républicaine ne s'imprime pas
    EXPECT_EQ(Actes(p.Naissance, Acte{}), "|\xB0 05/10/1794 Nancy");
}

TEST_F(Blocs, TemoinsEtParrains) {
    l.Lire(
        "0 @I1@ INDI|1 NAME A /B/|1 CHR|2 DATE 1750|2 ASSO @I2@|3 RELA parrain|"
        "0 @I2@ INDI|1 NAME Jean /HENRY/|1 OCCU vigneron|1 BIRT|2 DATE 1730|"
        "0 @I3@ INDI|1 NAME Luc /MARTIN/|1 BIRT|2 DATE 3 MAR 2001|1 DEAT|2 DATE 1760|1 BAPM|2 DATE 1820|"
        "2 ASSO @I2@|2 ASSO @I3@");
    const Perso& p = l.Pe(1);
    EXPECT_EQ(Actes(Acte{}, p.Bapteme), "/b 1750|Parrain, marraine :|HENRY Jean \xB0" "1730, vigneron, parrain");
    // La naissance récente d'un témoin ne passe pas plus que celle de la personne du bloc.
    EXPECT_EQ(Actes(Acte{}, l.Pe(3).Bapteme),
              "/b 1820|Parrain, marraine :|HENRY Jean \xB0" "1730, vigneron|MARTIN Luc +1760");
}

TEST_F(Blocs, LOrdreDesDonneesSuitOptionOrdre) {
    l.Lire(
        "0 @I1@ INDI|1 NAME Paul /B/|1 SEX M|1 OCCU tisserand|1 NOTE n1|2 CONT n2|1 BIRT|2 DATE 1750|1 FAMC "
        "@F1@|"
        "0 @I2@ INDI|1 NAME Jean /B/|1 DEAT|2 DATE 1760|0 @F1@ FAM|1 HUSB @I2@|1 CHIL @I1@");
    const char* attendus[] = {
        "B Paul, tisserand;n1;n2;fils de B Jean\n\xB0 1750",
        "B Paul, tisserand\n\xB0 1750;n1;n2;fils de B Jean",
        "B Paul, tisserand;fils de B Jean\n\xB0 1750;n1;n2",
    };
    for (int ordre = 0; ordre < 3; ++ordre) {
        exports.OptionOrdre = ordre;
        TexteRapport f;
        EcrirePersonne(Ctx(), 1, f, {.sep = ";", .fin = "\n", .avecParents = true});
        EXPECT_EQ(f.Octets(), attendus[ordre]) << ordre;
    }
    // Les parents sont marqués décédés à la date du mariage dont on parle.
    TexteRapport f;
    EcrirePersonne(Ctx(), 1, f,
                   {.sep = ";", .fin = "\n", .avecNotes = false, .avecParents = true, .dateMariage = "1770"});
    EXPECT_EQ(f.Octets(), "B Paul, tisserand;fils de +B Jean\n\xB0 1750");
}

TEST(EncoderTexte, EntitesEtAdresses) {
    EXPECT_EQ(EncoderTexte("\xC9le a&b", " "), "&#201;le a&b");
    EXPECT_EQ(EncoderTexte("\xC9mile Dupont/2", "+"), "Emile+Dupont_2");
}

}  // namespace
}  // namespace arbolix
