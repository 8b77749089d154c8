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

// Les mois et les intervalles en français, tapés tels qu'on les écrit.
TEST(SaisieDate, MotsFrancais) {
    const struct {
        const char* tape;
        const char* traduit;
        const char* date;
    } cas[] = {
        {"1 mai 1850", "1 may 1850", "01/05/1850"},
        {"1er ao\xFBt 1850", "1 aug 1850", "01/08/1850"},
        {"12 MARS 1750", "12 mar 1750", "12/03/1750"},
        {"12/mars/1750", "12/mar/1750", "12/03/1750"},
        {"3 f\xE9vr. 1760", "3 feb 1760", "03/02/1760"},
        {"3-fev-1760", "3-feb-1760", "03/02/1760"},
        {"25 D\xC9"
         "CEMBRE 1799",
         "25 dec 1799", "25/12/1799"},
        {"le 2 janvier 1801", "le 2 jan 1801", "02/01/1801"},
        {"mai 1850", "05 1850", "05/1850"},
        {"f\xE9vr. 1760", "02 1760", "02/1760"},
        {"vers mai 1850", "vers 05 1850", "vers 05/1850"},
        {"avant 1 mai 1850", "avant 1 may 1850", "avant 01/05/1850"},
        {"entre 1750 et 1760", "bet 1750 and 1760", "entre 1750 et 1760"},
        {"entre mai 1750 et 3 juin 1751", "bet 05 1750 and 3 jun 1751", "entre 05/1750 et 3/06/1751"},
        {"de 1750 \xE0 1760", "from 1750 to 1760", "de 1750 \xE0 1760"},
        {"\xE0 1760", "to 1760", " \xE0 1760"},
        {"1 mai", "1 may", "01/05"},  // jour et mois sans année : jamais républicain
        {"12 vend 3", "12 vend 3", "03/10/1794"},
    };
    for (const auto& c : cas) {
        EXPECT_EQ(TraduireSaisieDate(c.tape), c.traduit) << c.tape;
        ChampsDate champs{c.tape, "", "", ""};
        Acte a;
        EXPECT_EQ(ValiderDate(champs, a, {}, true, true), "") << c.tape;
        EXPECT_EQ(a.Date, c.date) << c.tape;
    }
}

TEST(SaisieDate, DateNonValide) {
    const std::pair<const char*, bool> cas[] = {
        {"", true},
        {"12/03/1750", true},
        {"03/1750", true},
        {"1750", true},
        {"vers 12/03/1750", true},
        {"apr\xE8s 1750", true},
        {"entre 1750 et 12/03/1760", true},
        {"de 1750 \xE0 1760", true},
        {" \xE0 1760", true},
        {"1750 \xE0 1760", true},
        {"29/02/1752", true},
        {"29/02", true},
        {"00/03/1750", true},  // formes des tables d'actes
        {"00/00/1750", true},
        {"03/50", true},
        {"12/03/50", true},
        {"12/vend/03", true},  // conversion coupée : reste républicaine
        {"31/02/1775", false},
        {"29/02/1751", false},
        {"12/13/1750", false},
        {"13/1750", false},
        {"31/04", false},
        {"entre 1750 et 31/02/1760", false},
        {"01/maj/1850", false},
        {"12/03s/1750", false},
        {"abt", false},
        {"vers", false},
        {"12//1750", false},
        {"12/vend/25", false},
    };
    for (const auto& [date, valide] : cas) EXPECT_EQ(DateNonValide(date).empty(), valide) << date;
    EXPECT_EQ(DateNonValide("31/02/1775"),
              "La date \xAB 31/02/1775 \xBB n'existe pas : v\xE9rifiez le jour et le mois.");
    EXPECT_EQ(DateNonValide("01/maj/1850"),
              "La date \xAB 01/maj/1850 \xBB n'est pas reconnue. Tapez par exemple 12/03/1750, 12 mars 1750, "
              "mars 1750, vers 1750, avant 1750, apr\xE8s 1750, entre 1750 et 1760, de 1750 \xE0 1760.");
}

// Une date tapée qui n'existe pas est refusée et l'évènement garde la sienne ; une date
// venue du fichier, que l'on ne touche pas, passe telle quelle.
TEST(SaisieDate, DateRefuseeSeulementTapee) {
    Acte a;
    a.Date = "1750";
    a.Annee = 1750;
    ChampsDate tapee{"31021775", "", "", ""};
    EXPECT_NE(ValiderDate(tapee, a, {}, true, true), "");
    EXPECT_EQ(tapee.Date, "31/02/1775");
    EXPECT_EQ(a.Date, "1750");
    EXPECT_EQ(a.Annee, 1750);

    ChampsDate gardee{"mars 1750 ?", "", "", ""};
    EXPECT_EQ(ValiderDate(gardee, a, {}, false, false), "");
    EXPECT_EQ(a.Date, "mars 1750 ?");
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
