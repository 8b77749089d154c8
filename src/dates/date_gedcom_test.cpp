#include "dates/date_gedcom.h"

#include <gtest/gtest.h>

#include <string>

#include "dates/parse_date.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

TEST(DateGedcom, AvecDatesCompletes) {
    const std::pair<const char*, const char*> cas[] = {
        {"12/03/1750", "12 MAR 1750"},
        {"1/3/1750", "01 MAR 1750"},
        {"00/00/1750", "1750"},
        {"00/03/1750", "MAR 1750"},
        {"03/1750", "MAR 1750"},
        {"1750", "1750"},
        {"31/02/1750", "31/02/1750"},
        {"13/1750", "13/1750"},  // pas un mois : sort tel quel plutôt que sans son mois
        {"1750/60", "1750/60"},  // la forme mois et année n'en garderait que 60
        {"11/08", "11 AUG"},     // jour et mois sans année
        {"1/8", "01 AUG"},
        {"vers 11/08", "ABT 11 AUG"},
        {"31/02", "31/02"},  // ce jour n'existe pas : tel quel
        {"vers 17", " VERS 17"},
        {"vers 1750", "ABT 1750"},
        {"vers 03/1750", "ABT MAR 1750"},
        {"avant 12/03/1750", "BEF 12 MAR 1750"},
        {"apr\xE8s 1750", "AFT 1750"},
        {"entre 1750 et 1760", "BET 1750 AND 1760"},
        {"entre 12/03/1750 et 03/1760", "BET 12 MAR 1750 AND MAR 1760"},
        {"entre 1750", "ENTRE 1750"},
        {"de 1750 \xE0 1760", "FROM 1750 TO 1760"},
        {" \xE0 1760", "TO 1760"},
        {"mars 1750 ?", "MARS 1750 ?"},
    };
    for (const auto& [texte, gedcom] : cas) EXPECT_EQ(DateGedcom(texte, true), gedcom) << texte;
}

// Ce que l'écriture donne se relit avec le même sens : même texte, même clé, même année,
// et aucune date républicaine en note.
TEST(DateGedcom, RelueCommeEcrite) {
    ContexteDate fichier;
    fichier.ConvCalRep = true;
    fichier.GedcomVisible = true;
    for (const char* ligne :
         {"2 FEB 1716/17", "ABT 1750/51", "1733/34", "27 OCT 1699/00", "BET 5 APR 1712/13 AND 28 SEP 1714/15",
          "11 AUG", "1 JAN", "29 FEB", "ABT 3 MAR", "12 MAR 1750", "BEF 1750", "BET 1750 AND 1760", "TO 1760",
          "22 SEP 1793", "13/1750"}) {
        SCOPED_TRACE(ligne);
        Acte lu;
        ParseDate(ligne, lu, fichier);
        const std::string ecrit = DateGedcom(lu.Date.vue(), true);
        Acte relu;
        ParseDate(ecrit, relu, fichier);
        EXPECT_EQ(relu.Date, lu.Date) << ecrit;
        EXPECT_EQ(relu.DateTri, lu.DateTri);
        EXPECT_EQ(relu.Annee, lu.Annee);
        EXPECT_EQ(relu.Notes, lu.Notes);
        EXPECT_EQ(DateGedcom(relu.Date.vue(), true), ecrit);
    }
}

TEST(DateGedcom, SansDatesIlNeResteQueLAnnee) {
    EXPECT_EQ(DateGedcom("avant 12/03/1750", false), "1750");
    EXPECT_EQ(DateGedcom("00/03/1750", false), "1750");
    EXPECT_EQ(DateGedcom("950", false), "950");
}

TEST(DateGedcom, PrefixesSansFin) {
    std::string s;
    for (int i = 0; i < 20000; ++i) s += "vers ";
    s += "1750";
    const std::string r = DateGedcom(s, true);
    EXPECT_EQ(r.substr(0, 8), "ABT ABT ");
    EXPECT_EQ(r.substr(r.size() - 4), "1750");
}

TEST(DateGedcom, LaFormeCouranteSortCommeParLaRegle) {
    // Jours et mois hors limites, 29 février, années courtes ou démesurées : tout "jj/mm/aaaa".
    for (const char* annee : {"1750", "1900", "2000", "0099", "0100", "0950", "9999"})
        for (int mois = 0; mois <= 13; ++mois)
            for (int jour = 0; jour <= 32; ++jour) {
                const std::string d = Zeros(jour, 2) + "/" + Zeros(mois, 2) + "/" + std::string(annee);
                EXPECT_EQ(DateGedcom(d, true), DateGedcomRegle(d)) << d;
            }
}

}  // namespace
}  // namespace arbolix
