#include "dates/parse_date.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace arbolix {
namespace {

struct CasLecture {
    const char* texte;
    const char* date;
    const char* cle;
    std::int16_t annee;
};

// Lecteur de fichier, Dates cochée, sans conversion républicaine.
ContexteDate Fichier(std::string* journal = nullptr) {
    ContexteDate c;
    c.NumLigne = 12;
    c.Ligne1 = "1 BIRT";
    c.NumCourant = 5;
    c.NbFamis = 3;
    c.GedcomVisible = true;
    c.Journal = journal;
    return c;
}

void VerifierTable(const CasLecture* debut, const CasLecture* fin, const ContexteDate& ctx) {
    for (const auto* c = debut; c != fin; ++c) {
        SCOPED_TRACE(c->texte);
        Acte a;
        EXPECT_EQ(ParseDate(c->texte, a, ctx), c->date);
        EXPECT_EQ(a.Date, c->date);
        EXPECT_EQ(a.DateTri, c->cle);
        EXPECT_EQ(a.Annee, c->annee);
    }
}

TEST(ParseDate, MotsGedcomEtFrancais) {
    const CasLecture cas[] = {
        {"12 MAR 1750", "12/03/1750", "1750/03/12", 1750},
        {"12 mar 1750", "12/03/1750", "1750/03/12", 1750},
        {"BEF 1750", "avant 1750", "1750/-0/00", 1750},
        {"AFT 1750", "apr\xE8s 1750", "1750/0_/00", 1750},
        {"ABT 12 MAR 1750", "vers 12/03/1750", "1750/0./00", 1750},
        {"ABT MAR 1750", "vers 03/1750", "1750/0./00", 1750},
        {"CAL 1750", "vers 1750", "1750/0./00", 1750},
        {"EST 1750", "vers 1750", "1750/0./00", 1750},
        {"ca. 1750", "vers 1750", "1750/0./00", 1750},
        {"~ 1750", "vers 1750", "1750/0./00", 1750},
        {"avant 1750", "avant 1750", "1750/-0/00", 1750},
        {"APR\xC8S 12/03/1750", "apr\xE8s 12/03/1750", "1750/0_/00", 1750},
        {"vers 1750", "vers 1750", "1750/0./00", 1750},
        {"BET 1750 AND 1760", "entre 1750 et 1760", "1760/00/00", 1760},
        {"FROM 1750 TO 1760", "de 1750 \xE0 1760", "1760/00/00", 1760},
        {"TO 1760", " \xE0 1760", "1760/00/00", 1760},
        {"  \xC0 1760", " \xE0 1760", "1760/00/00", 1760},  // ce que l'écriture en fait
        {"FROM 1750", "de 1750", "1750/00/00", 1750},
        {"@#DGREGORIAN@ BET 1750 AND 1760", "entre 1750 et 1760", "1760/00/00", 1760},
        {"DE 1750 \xC0 1760", "de 1750 \xE0 1760", "1760/00/00", 1760},  // nos anciens fichiers
        {"MAR 1750", "03/1750", "1750/03/01", 1750},
        {"INT 1750", "1750", "1750/00/00", 1750},
        {"@#DJULIAN@ 12 MAR 1750", "12/03/1750", "1750/03/12", 1750},
        // les mois français ne sont pas lus dans un fichier
        {"mars 1750", "1750", "1750/00/00", 1750},
        {"12/mars/1750", "12/03s/1750", "1750/00/00", 1750},
    };
    VerifierTable(std::begin(cas), std::end(cas), ContexteDate{});
}

TEST(ParseDate, ChiffresEtSignes) {
    const CasLecture cas[] = {
        {"12031750", "12/03/1750", "1750/03/12", 1750},
        {"5121750", "05/12/1750", "1750/12/05", 1750},
        {"031750", "03/1750", "1750/03/01", 1750},
        {"1/2/1750", "01/2/1750", "1750/02/01", 1750},
        {"12.03.1750", "12/03/1750", "1750/03/12", 1750},
        {"12-03-1750", "12/03/1750", "1750/03/12", 1750},
        {"1750", "1750", "1750/00/00", 1750},
        {"1750-", "apr\xE8s 1750", "1750/0_/00", 1750},
        {"+1750", "apr\xE8s 1750", "1750/0_/00", 1750},
        {"-1750", "avant 1750", "1750/-0/00", 1750},
        {"*1750", "vers 1750", "1750/0./00", 1750},
        {"03/50", "03/50", "0003/00/00", 350},
        {"11 AUG", "11/08", "0000/08/11", 0},  // jour et mois sans année : pas d'an 108
        {"29/02", "29/02", "0000/02/29", 0},
        {"31/02/1750", "31/02/1750", "1750/00/00", 1750},
        {"32/13/1750", "32/13/1750", "1750/00/00", 1750},
        {"abt", "abt", "0000/00/00", 0},
        {"", "", "0000/00/00", 0},
    };
    VerifierTable(std::begin(cas), std::end(cas), ContexteDate{});
}

// L'année de l'ancien style est lue en nouveau style ; la seconde année ne devient jamais un mois.
TEST(ParseDate, DoubleAnneeLueEnNouveauStyle) {
    const CasLecture cas[] = {
        {"12 FEB 1716/17", "12/02/1717", "1717/02/12", 1717},
        {"ABT 1750/51", "vers 1751", "1751/0./00", 1751},
        {"       1733/34", "1734", "1734/00/00", 1734},
        {"27 OCT 1699/00", "27/10/1700", "1700/10/27", 1700},
        {"3 MAR 1733/4", "03/03/1734", "1734/03/03", 1734},
        {"BET 5 APR 1712/13 AND 28 SEP 1714/15", "entre 05/04/1713 et 28/09/1715", "1715/00/00", 1715},
        {"BEF 1699/00", "avant 1700", "1700/-0/00", 1700},
        // pas une double année : la seconde ne suit pas la première
        {"1750/60", "1750/60", "0000/00/00", 60},
        {"12/03/1750", "12/03/1750", "1750/03/12", 1750},
    };
    VerifierTable(std::begin(cas), std::end(cas), ContexteDate{});

    // Le fichier en garde une ligne au journal, l'éditeur non.
    std::string journal;
    auto ctx = Fichier(&journal);
    Acte a;
    ParseDate("12 FEB 1716/17", a, ctx);
    ctx.Ligne1 = "1 MARR";
    ParseDate("ABT 1750/51", a, ctx);
    EXPECT_EQ(journal,
              "Info ligne 12, personne 5 : la date \xAB 12 FEB 1716/17 \xBB porte une double ann\xE9"
              "e ; lue en nouveau style : 12/02/1717.\r\n"
              "Info ligne 12, famille 3 : la date \xAB ABT 1750/51 \xBB porte une double ann\xE9"
              "e ; lue en nouveau style : vers 1751.\r\n");
    journal.clear();
    ctx.GedcomVisible = false;
    ParseDate("1716/17", a, ctx);
    EXPECT_EQ(journal, "");
}

TEST(ParseDate, DateTronqueeNoteeAuJournal) {
    std::string journal;
    auto ctx = Fichier(&journal);
    Acte a;
    EXPECT_EQ(ParseDate("INT 1750 (about)", a, ctx), "1750");
    EXPECT_EQ(a.Annee, 1750);
    EXPECT_EQ(journal,
              "ligne 12 : date tronqu\xE9"
              "e : INT 1750 (about)  personne n\xB0"
              "5\r\n");

    journal.clear();
    ctx.Ligne1 = "1 MARR";
    EXPECT_EQ(ParseDate("12 MAR 1750 (env.)", a, ctx), "12/03/1750");
    EXPECT_EQ(journal,
              "ligne 12 : date tronqu\xE9"
              "e : 12 MAR 1750 (env.) famille n\xB0"
              "3\r\n");
}

TEST(ParseDate, DateNonReconnueSeulementDuFichier) {
    std::string journal;
    auto ctx = Fichier(&journal);
    ctx.NumLigne = 7;
    ctx.NumCourant = 4;
    ctx.LigneCourante = "12/br/3";
    Acte a;
    EXPECT_EQ(ParseDate("12/br/3", a, ctx), "12/br/3");
    EXPECT_EQ(journal,
              "Erreur ligne 7 : date non reconnue :  personne n\xB0"
              "4 BIRT 12/br/3\r\n");

    journal.clear();
    ctx.EvenementVisible = true;
    ParseDate("12/br/3", a, ctx);
    EXPECT_EQ(journal, "");

    // formes du tableau des dates : jamais signalées
    ctx.EvenementVisible = false;
    for (const char* texte :
         {"03/1750", "1750-", "31/02/1750", "1750 \xE0 1760", "1750 and 1760", "950", "11 AUG"}) {
        ctx.LigneCourante = texte;
        ParseDate(texte, a, ctx);
        EXPECT_EQ(journal, "") << texte;
    }
}

TEST(ParseDate, CaseDatesDecocheeGardeLAnnee) {
    auto ctx = Fichier();
    ctx.Dates = false;
    const CasLecture cas[] = {
        {"12 MAR 1750", "1750", "1750/00/00", 1750},
        {"BEF 12 MAR 1750", "avant 1750", "1750/-0/00", 1750},
        {"031750", "1750", "1750/00/00", 1750},
    };
    VerifierTable(std::begin(cas), std::end(cas), ctx);
}

struct CasRepublicain {
    const char* texte;
    const char* notesAvant;
    const char* date;
    const char* notes;
};

TEST(ParseDate, CalendrierRepublicain) {
    const CasRepublicain cas[] = {
        {"1/vend/2", "", "22/09/1793", "01/vend/2"},
        {"12/br/3", "", "02/11/1794", "12/brum/3"},
        {"12vend03", "", "03/10/1794", "12/vend/03"},
        {"12br03", "", "02/11/1794", "12/brum/03"},
        {"12 VEND AN 3", "", "03/10/1794", "12/vend/3"},
        {"@#DFRENCH R@ 12 VEND 3", "", "03/10/1794", "12/vend/3"},
        {"1/vend/2", "bapt\xEAme", "22/09/1793", "01/vend/2\r\nbapt\xEAme"},
        {"1/vend/2", "acte 12/3", "22/09/1793", "acte 12/3"},
        // sens inverse : la date grégorienne reçoit sa note républicaine
        {"22/09/1793", "", "22/09/1793", "01/vend/02"},
        {"22/09/1795", "", "22/09/1795", "06/comp/03"},
        {"31/12/1805", "", "31/12/1805", "10/nivo/14"},
        {"22/09/1793", "ancienne", "22/09/1793", "01/vend/02"},
        {"22/09/1793", "acte 12/3", "22/09/1793", "acte 12/3"},
        {"21/09/1793", "", "21/09/1793", ""},
        {"22/09/1792", "", "22/09/1792", ""},
        {"01/01/1806", "", "01/01/1806", ""},
        // année grégorienne sur deux chiffres : lue comme républicaine, mois faux
        {"12/jan/05", "", "31/01/1797", "12/j05"},
    };
    ContexteDate ctx;
    ctx.ConvCalRep = true;
    for (const auto& c : cas) {
        SCOPED_TRACE(c.texte);
        Acte a;
        a.Notes = c.notesAvant;
        EXPECT_EQ(ParseDate(c.texte, a, ctx), c.date);
        EXPECT_EQ(a.Notes, c.notes);
    }
}

TEST(ParseDate, SansConversionLeTexteRepublicainReste) {
    Acte a;
    EXPECT_EQ(ParseDate("12/vend/3", a, ContexteDate{}), "12/vend/3");
    EXPECT_EQ(a.Notes, "");
    EXPECT_EQ(ParseDate("22/09/1793", a, ContexteDate{}), "22/09/1793");
    EXPECT_EQ(a.Notes, "");
}

TEST(ParseDate, EchecLaisseLEvenementIntact) {
    std::string journal;
    auto ctx = Fichier(&journal);
    ctx.ConvCalRep = true;
    ctx.LigneCourante = "@#DFRENCH R@ 45 VEND AN XX";
    for (const char* texte :
         {"@#DFRENCH R@ 45 VEND AN XX", "1750/3", "dfrench @#dfrench r@ 1750", "12/vend/00"}) {
        SCOPED_TRACE(texte);
        Acte a;
        a.Date = "01/01/1700";
        a.DateTri = "1700/01/01";
        a.Annee = 1700;
        a.Notes = "note";
        const Acte avant = a;
        EXPECT_EQ(ParseDate(texte, a, ctx), "01/01/1700");
        EXPECT_EQ(a, avant);
    }
    EXPECT_EQ(journal.substr(0, 28), "Erreur ligne 12 : erreur 5 :");
}

TEST(ParseDate, LeTexteLuPeutEtreCeluiDeLEvenement) {
    Acte a;
    a.Date = "12 MAR 1750";
    EXPECT_EQ(ParseDate(a.Date.vue(), a, ContexteDate{}), "12/03/1750");
    a.Date = ParseDate(a.Date.vue(), a, ContexteDate{});
    EXPECT_EQ(a.Date, "12/03/1750");
}

TEST(ParseDate, TextesDemesures) {
    const std::string longs[] = {
        std::string(100000, '1'),
        std::string(100000, '/'),
        std::string(100000, '('),
        std::string(100000, 'a'),
        std::string(99990, '9') + "/vend/03",
        "12/" + std::string(99990, 'x') + "/03",
        [] {
            std::string s;
            while (s.size() < 100000) s += "@#dfrench r@ ";
            return s;
        }(),
        [] {
            std::string s;
            while (s.size() < 100000) s += "vers bet and to / ";
            return s;
        }(),
        [] {
            std::string s;
            for (int i = 0; i < 100000; ++i) s += static_cast<char>(i * 7919 % 256);
            return s;
        }(),
    };
    std::string journal;
    auto ctx = Fichier(&journal);
    ctx.ConvCalRep = true;
    for (const auto& s : longs) {
        ctx.LigneCourante = s;
        Acte a;
        ParseDate(s, a, ctx);
        EXPECT_TRUE(a.DateTri.empty() || a.DateTri.size() == 10u);
    }
}

// Textes des formes courantes et de leurs voisines : jours et années limites, mois mal écrits,
// mots de préfixe, échappements de calendrier, blancs en trop.
std::vector<std::string> TextesVoisins() {
    const char* jours[] = {"0", "1", "5", "9", "01", "09", "29", "30", "31", "32", "39", "40", "123"};
    const char* mois[] = {"JAN", "Feb", "mar", "SEP", "DEC", "MARS", "Ma", "XYZ"};
    const char* annees[] = {"1845", "0050", "0100", "1794",  "1800", "1900",
                            "2024", "9999", "845",  "18450", "18a5"};
    const char* mots[] = {"ABT",          "abt", "BEF", "AFT",  "EST",   "CAL", "CA.",        "FROM",
                          "TO",           "INT", "BET", "VERS", "AVANT", "XYZ", "@#DJULIAN@", "@#DGREGORIAN@",
                          "@#DFRENCH R@", "-",   "~"};
    std::vector<std::string> dates;
    for (const char* an : annees) {
        dates.push_back(an);
        for (const char* m : mois) {
            dates.push_back(std::string(m) + " " + an);
            for (const char* j : jours) dates.push_back(std::string(j) + " " + m + " " + an);
        }
    }
    std::vector<std::string> textes = dates;
    for (const char* mot : mots)
        for (const auto& d : dates) textes.push_back(std::string(mot) + " " + d);
    for (const char* autre :
         {"BET 1700 AND 1710", "bet 0990 And 1010", "BET 3999 AND 4000", "BET 4000 AND 4010", "BET 1700 AND",
          "BET 1700 OR 1710", "  12 MAR 1845 ", "12  MAR 1845", "12 MAR 1845 (?)", "12\tMAR 1845",
          "ABT  1790", "\xC0 1790", "APR\xC8S 1790", "apr\xE8s 1790", "1716/17", "29 FEB 1900", "29 FEB 2000",
          "31 APR 1845"})
        textes.push_back(autre);
    return textes;
}

// Une forme courante lue d'un coup donne octet pour octet ce que donne la lecture complète,
// journal compris, dans chaque réglage ; toute autre forme est laissée sans toucher l'évènement.
TEST(ParseDate, FormesCourantesCommeLaLectureComplete) {
    struct Reglage {
        ContexteDate ctx;
        const char* notes;  // notes de l'évènement avant la lecture
    };
    std::vector<Reglage> reglages(6, {Fichier(), ""});
    for (int i = 1; i <= 3; ++i) reglages[i].ctx.ConvCalRep = true;
    reglages[2].notes = "acte 12/3";  // une barre : pas de note républicaine
    reglages[3].notes = "bapt\xEAme";
    reglages[4].ctx.Dates = false;
    reglages[5].ctx = ContexteDate{};
    int lues = 0;
    for (const auto& texte : TextesVoisins()) {
        for (auto [ctx, notes] : reglages) {
            SCOPED_TRACE(texte + " | " + notes);
            ctx.LigneCourante = texte;
            std::string journalRapide, journalComplet;
            Acte rapide, complet, avant;
            rapide.Notes = complet.Notes = avant.Notes = notes;
            ctx.Journal = &journalRapide;
            if (!ParseDateCourante(texte, rapide, ctx)) {
                EXPECT_TRUE(rapide == avant);
                continue;
            }
            ++lues;
            ctx.Journal = &journalComplet;
            ParseDateComplete(texte, complet, ctx);
            EXPECT_EQ(rapide.Date.vue(), complet.Date.vue());
            EXPECT_EQ(rapide.DateTri.vue(), complet.DateTri.vue());
            EXPECT_EQ(rapide.Annee, complet.Annee);
            EXPECT_EQ(rapide.Notes.vue(), complet.Notes.vue());
            EXPECT_TRUE(rapide == complet);
            EXPECT_EQ(journalRapide, journalComplet);
        }
    }
    EXPECT_GT(lues, 3000);
    // Les formes qu'un fichier écrit le plus souvent passent toutes par le raccourci.
    for (const char* texte :
         {"12 MAR 1845", "3 may 1845", "MAR 1845", "ABT 1790", "BEF 1790", "AFT 1790", "EST 1790", "CAL 1790",
          "1790", "BET 1700 AND 1710", "@#DJULIAN@ 12 MAR 1645"}) {
        Acte a;
        EXPECT_TRUE(ParseDateCourante(texte, a, Fichier())) << texte;
    }
}

}  // namespace
}  // namespace arbolix
