#include "dates/calendrier_republicain.h"

#include <gtest/gtest.h>

#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"

namespace arbolix {
namespace {

std::int32_t Jour(const char* date) {
    return NumeroJour(*LireDate(date));
}

TEST(CalendrierRepublicain, TableDesPremiersJours) {
    const char* debuts[] = {"22/09/1792", "22/09/1793", "22/09/1794", "23/09/1795", "22/09/1796",
                            "22/09/1797", "22/09/1798", "23/09/1799", "23/09/1800", "23/09/1801",
                            "23/09/1802", "24/09/1803", "23/09/1804", "23/09/1805", "01/01/1806"};
    for (int i = 1; i <= 15; ++i) EXPECT_EQ(DebutAnRepublicain[i], Jour(debuts[i - 1])) << i;
}

TEST(CalendrierRepublicain, GregorienVersRepublicain) {
    const std::pair<const char*, const char*> cas[] = {
        {"22/09/1792", ""},           {"21/09/1793", ""},           {"22/09/1793", "01/vend/02"},
        {"22/09/1795", "06/comp/03"}, {"23/09/1795", "01/vend/04"}, {"02/11/1794", "12/brum/03"},
        {"31/12/1805", "10/nivo/14"}, {"01/01/1806", ""},
    };
    for (const auto& [date, rep] : cas) EXPECT_EQ(DateRepublicaine(Jour(date)), rep) << date;
}

TEST(CalendrierRepublicain, RepublicainVersGregorien) {
    struct Cas {
        const char* texte;
        const char* date;
        const char* note;
    };
    const Cas cas[] = {
        {"01/vend/2", "22/09/1793", "01/vend/2"},
        {"12/br/3", "02/11/1794", "12/brum/3"},
        {"12/vend/an/3", "03/10/1794", "12/vend/3"},
        {"06/comp/03", "22/09/1795", "06/comp/03"},
        {"05/jc/03", "21/09/1795", "05/comp/03"},
        // mot inconnu : le mois vaut la position après la première barre (4 ici)
        {"12/jan/05", "31/01/1797", "12/j05"},  // "an/" retiré de "jan/"
        {"12/xx/03", "31/01/1795", "12/pluv/03"},
    };
    for (const auto& c : cas) {
        SCOPED_TRACE(c.texte);
        const auto r = LireDateRepublicaine(c.texte, true);
        ASSERT_TRUE(r.has_value());
        EXPECT_EQ(FormatDateCourte(*DateDuNumero(r->numeroJour)), c.date);
        EXPECT_EQ(r->note, c.note);
    }
}

TEST(CalendrierRepublicain, CodesDeDeuxLettres) {
    for (int i = 1; i <= 13; ++i) {
        const std::string texte = "01/" + std::string(CodesMoisRepublicains[i]) + "/05";
        const auto r = LireDateRepublicaine(texte, true);
        ASSERT_TRUE(r.has_value()) << texte;
        EXPECT_EQ(r->numeroJour, DebutAnRepublicain[5] + 30 * (i - 1));
        EXPECT_EQ(r->note, "01/" + std::string(MoisRepublicains[i]) + "/05");
    }
}

// Les notes que pose la lecture d'une date, quelle qu'en soit la forme, et ce qui n'en est pas une.
TEST(CalendrierRepublicain, JourDUneNoteRepublicaine) {
    const std::int32_t jour = Jour("16/10/1793");
    for (const char* note : {"25/vend/02", "25/vend/2", "25/vr/2"})
        EXPECT_EQ(JourDeNoteRepublicaine(note), jour) << note;
    EXPECT_EQ(JourDeNoteRepublicaine("26/10"), Jour("15/02/1802"));  // mois lu à sa position : pluviôse
    for (const char* pas :
         {"", "16/10/1793", "25 vend 2", "Vu le 25/vend/2", "25/Vend/2", "25/vend/15", "25"})
        EXPECT_FALSE(JourDeNoteRepublicaine(pas).has_value()) << pas;
}

TEST(CalendrierRepublicain, AllerRetourSurTouteLaTable) {
    for (std::int32_t n = DebutAnRepublicain[2]; n < DebutAnRepublicain[15]; ++n) {
        const std::string rep = DateRepublicaine(n);
        ASSERT_EQ(rep.size(), 10u) << n;
        const auto r = LireDateRepublicaine(rep, true);
        ASSERT_TRUE(r.has_value()) << rep;
        ASSERT_EQ(r->numeroJour, n) << rep;
    }
}

TEST(CalendrierRepublicain, LecturesImpossibles) {
    for (const char* texte : {"12/vend/00", "12/vend/15", "1750/3", "12/vend/", "045/vend/xx"})
        EXPECT_FALSE(LireDateRepublicaine(texte, true).has_value()) << texte;
}

}  // namespace
}  // namespace arbolix
