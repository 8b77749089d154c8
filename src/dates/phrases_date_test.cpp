#include "dates/phrases_date.h"

#include <gtest/gtest.h>

#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

TEST(DateComplete, JourMoisAnnee) {
    for (const char* d : {"12/03/1750", "1/3/1750", "29/02/1600", "29/02/2024", "31/12/1899"})
        EXPECT_TRUE(EstDateComplete(d)) << d;
    for (const char* d : {"", "1750", "03/1750", "29/02/1900", "31/04/1750", "00/01/1750", "12/13/1750",
                          "12/03/175", "12/03/17500", "a2/03/1750", "vers 12/03/1750", "12/03/1750 "})
        EXPECT_FALSE(EstDateComplete(d)) << d;
}

TEST(DateOuAnnee, AnneesSeulesEtConfidentialite) {
    OptionsExport exports;  // 75 et 0
    const ContexteDates ctx{exports, 2025};
    EXPECT_EQ(DateOuAnnee("12/03/1750", 0, false, ctx), "12/03/1750");
    EXPECT_EQ(DateOuAnnee("vers 1750", 0, true, ctx), "vers 1750");
    EXPECT_EQ(DateOuAnnee("12/03/1949", 0, true, ctx), "12/03/1949");  // 1949 < 2025 - 75
    EXPECT_EQ(DateOuAnnee("12/03/1950", 0, true, ctx), "");            // pas plus vieux que 75 ans
    EXPECT_EQ(DateOuAnnee("12/03/1951", 0, false, ctx), "12/03/1951");
    EXPECT_EQ(DateOuAnnee("12/03/2024", 1, true, ctx), "12/03/2024");  // seuil 0 des décès
    EXPECT_EQ(DateOuAnnee("12/03/2025", 1, true, ctx), "");
    EXPECT_EQ(DateOuAnnee("", 0, true, ctx), "");

    exports.OptionDatesAnnees = true;
    EXPECT_EQ(DateOuAnnee("12/03/1750", 0, false, ctx), "1750");
    EXPECT_EQ(DateOuAnnee("3/1750", 0, false, ctx), "1750");
    EXPECT_EQ(DateOuAnnee("avant 12/03/1750", 0, false, ctx), "avant 1750");
    EXPECT_EQ(DateOuAnnee("inconnue", 0, false, ctx), "inconnue");
}

TEST(PhraseDateLieu, MotDevantLaDateEtLieu) {
    OptionsExport exports;
    const ContexteDates ctx{exports, 2025};
    Acte a;
    a.Date = "12/03/1750";
    a.Lieu = "Nancy";
    EXPECT_EQ(PhraseDateLieu(a, true, -1, ctx), " le 12/03/1750 \xE0 Nancy");
    EXPECT_EQ(PhraseDateLieu(a, true, 0, ctx), " le 12/03/1750 Nancy");
    EXPECT_EQ(PhraseDateLieu(a, false, -1, ctx), " \xE0 Nancy");
    a.Date = "1750";
    EXPECT_EQ(PhraseDateLieu(a, true, -1, ctx), " en 1750 \xE0 Nancy");
    a.Date = "vers 1750";
    a.Lieu = "";
    EXPECT_EQ(PhraseDateLieu(a, true, -1, ctx), " en vers 1750");
    a.Date = "";
    EXPECT_EQ(PhraseDateLieu(a, true, -1, ctx), "");
}

}  // namespace
}  // namespace arbolix
