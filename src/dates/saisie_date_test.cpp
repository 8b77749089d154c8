#include "dates/saisie_date.h"

#include <gtest/gtest.h>

#include "dates/cle_date.h"
#include "store/base.h"

namespace arbolix {
namespace {

TEST(SaisieDate, HuitCaracteresPassentAuLieu) {
    const std::pair<const char*, bool> cas[] = {
        {"12031750", true},   {"1203175", false},        {"120317501", false},
        {"12/03/1750", true}, {"vers 12.03.1750", true}, {"apr\xE8s 12-03-1750", true},
        {"+12031750", true},  {"vend1750", false},       {"12vend03", true},
    };
    for (const auto& [texte, complete] : cas) EXPECT_EQ(DateSaisieComplete(texte), complete) << texte;
}

TEST(SaisieDate, JourDeLaSemaine) {
    EXPECT_EQ(JourDeLaSemaineEnLettres("12/03/1750"), "jeudi");
    EXPECT_EQ(JourDeLaSemaineEnLettres("14/07/1789"), "mardi");
    EXPECT_EQ(JourDeLaSemaineEnLettres("03/1750"), "dimanche");
    EXPECT_EQ(JourDeLaSemaineEnLettres("vers 1750"), "");
    EXPECT_EQ(JourDeLaSemaineEnLettres("31/02/1750"), "");
}

TEST(SaisieDate, AnneesEtAges) {
    EXPECT_FALSE(AnneeRevolutionnaire("31/12/1792"));
    EXPECT_TRUE(AnneeRevolutionnaire("1793"));
    EXPECT_TRUE(AnneeRevolutionnaire("vers 1805"));
    EXPECT_FALSE(AnneeRevolutionnaire("1806"));
    EXPECT_EQ(DateDeLAge(1700, "80"), "1780");
    EXPECT_EQ(DateDeLAge(0, "80"), "");
    EXPECT_EQ(DateDeLAge(1700, ""), "");
    EXPECT_EQ(AnneeSaisie("03/50"), 3);
    EXPECT_EQ(AnneeSaisie("entre 1750 et 1760"), 1760);
}

// Une date tapée telle que l'éditeur la garde à la validation : texte, clé et année.
TEST(SaisieDate, FormesTapeesValidees) {
    const struct {
        const char* tape;
        const char* date;
        const char* cle;
        int annee;
        const char* jour;
    } cas[] = {
        {"12031750", "12/03/1750", "1750/03/12", 1750, "jeudi"},
        {"5121750", "05/12/1750", "1750/12/05", 1750, "samedi"},
        {"12.03.1750", "12/03/1750", "1750/03/12", 1750, "jeudi"},
        {"12-03-1750", "12/03/1750", "1750/03/12", 1750, "jeudi"},
        {"12/03/1750", "12/03/1750", "1750/03/12", 1750, "jeudi"},
        {"031750", "03/1750", "1750/03/01", 1750, "dimanche"},
        {"1750", "1750", "1750/00/00", 1750, ""},
        {"+1750", "apr\xE8s 1750", "1750/0_/00", 1750, ""},
        {"1750-", "apr\xE8s 1750", "1750/0_/00", 1750, ""},
        {"-1750", "avant 1750", "1750/-0/00", 1750, ""},
        {"*1750", "vers 1750", "1750/0./00", 1750, ""},
        {"vers 1750", "vers 1750", "1750/0./00", 1750, ""},
        {"12 MAR 1750", "12/03/1750", "1750/03/12", 1750, "jeudi"},
        {"bet 1750 and 1760", "entre 1750 et 1760", "", 1760, ""},
        {"03/50", "03/50", "0003/00/00", 3, ""},  // l'éditeur lit les 4 derniers caractères
        {"abt", "abt", "0000/00/00", 0, ""},
    };
    for (const auto& c : cas) {
        ChampsDate champs{c.tape, "", "", "titre"};
        Acte a;
        ValiderDate(champs, a, {}, true);
        EXPECT_EQ(a.Date, c.date) << c.tape;
        if (*c.cle) {
            EXPECT_EQ(a.DateTri, c.cle) << c.tape;
        }
        EXPECT_EQ(a.Annee, c.annee) << c.tape;
        EXPECT_EQ(champs.LabelDate, *c.jour ? c.jour : "titre") << c.tape;
    }
}

// Relue, une forme française gardée ("de ... à ...") serait abîmée : une date
// que l'utilisateur n'a pas touchée est validée telle quelle.
TEST(SaisieDate, DateNonTapeeValideeTelleQuelle) {
    ChampsDate champs{"de 1750 \xE0 1760", "", "", ""};
    Acte a;
    ValiderDate(champs, a, {}, false);
    EXPECT_EQ(a.Date, "de 1750 \xE0 1760");
    EXPECT_EQ(a.Annee, 1760);
    EXPECT_EQ(a.DateTri.str(), CleDate("de 1750 \xE0 1760"));
}

TEST(SaisieDate, SortieDeDateVideNeChangeRien) {
    ChampsDate champs{"", "note", "", "mardi"};
    Acte a;
    a.Notes = "garde";
    QuitterDate(champs, a, {});
    EXPECT_EQ(a.Notes, "garde");
    EXPECT_EQ(champs.LabelDate, "mardi");
    EXPECT_EQ(champs.Notes, "note");
}

TEST(SaisieDate, AgeCalculePourDecesMariageDivorce) {
    Acte naissance;
    naissance.Date = "1700";
    naissance.Annee = 1700;
    for (const char genre : {'N', 'B', 'S', 'C', 'D', 'M', 'X'}) {
        ChampsDate champs{"12031780", "", "", ""};
        Acte a;
        ContexteSaisie ctx;
        ctx.genre = genre;
        ctx.naissance = &naissance;
        QuitterDate(champs, a, ctx);
        const bool avecAge = genre == 'D' || genre == 'M' || genre == 'X';
        EXPECT_EQ(champs.Age, avecAge ? "80" : "") << genre;
    }
    // Un âge déjà tapé n'est pas remplacé.
    ChampsDate champs{"1780", "", "79", ""};
    Acte a;
    ContexteSaisie ctx;
    ctx.genre = 'D';
    ctx.naissance = &naissance;
    QuitterDate(champs, a, ctx);
    EXPECT_EQ(champs.Age, "79");
}

TEST(SaisieDate, AgeDonneLAnnee) {
    Acte naissance;
    naissance.Annee = 1700;
    ContexteSaisie ctx;
    ctx.genre = 'D';
    ctx.naissance = &naissance;
    ChampsDate champs{"", "", "80", ""};
    QuitterAge(champs, ctx, false);
    EXPECT_EQ(champs.Date, "");  // champ en lecture seule
    QuitterAge(champs, ctx, true);
    EXPECT_EQ(champs.Date, "1780");
    champs.Age = "10";
    QuitterAge(champs, ctx, true);
    EXPECT_EQ(champs.Date, "1780");  // une date déjà là reste
    // Validée, la date tirée de l'âge est gardée avec sa clé.
    Acte a;
    ValiderDate(champs, a, ctx, true);
    EXPECT_EQ(a.Date, "1780");
    EXPECT_EQ(a.Annee, 1780);
}

TEST(SaisieDate, EquivalentRepublicainDansNotesVides) {
    ChampsDate champs{"14071794", "", "", ""};
    Acte a;
    QuitterDate(champs, a, {});
    EXPECT_EQ(champs.Date, "14/07/1794");
    EXPECT_FALSE(champs.Notes.empty());
    EXPECT_EQ(champs.Notes, a.Notes.str());
    ChampsDate tapee{"14071794", "ma note", "", ""};
    QuitterDate(tapee, a, {});
    EXPECT_EQ(tapee.Notes, "ma note");
}

}  // namespace
}  // namespace arbolix
