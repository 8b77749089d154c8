#include "reports/date_confidentielle.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

// Seuils (naissances, décès), années seules, date, indice, forcerDS : le texte imprimé en 2026.
TEST(DateConfidentielle, Table) {
    struct Cas {
        const char* seuilNB;
        const char* seuilDS;
        bool anneesSeules;
        const char* date;
        int indice;
        bool forcerDS;
        const char* attendu;
    };
    const Cas cas[] = {
        // Seuil 0 : seule l'année en cours et les suivantes disparaissent.
        {"0", "0", false, "12/03/2025", 0, false, "12/03/2025"},
        {"0", "0", false, "01/01/2026", 0, false, ""},
        {"0", "0", false, "2031", 1, false, ""},
        // 75 ans : 1951 est caché, 1950 montré.
        {"75", "0", false, "12/03/1951", 0, false, ""},
        {"75", "0", false, "12/03/1950", 0, false, "12/03/1950"},
        {"75", "0", false, "02/02/2015", 1, false, "02/02/2015"},
        // 100 ans, et l'indice 2 (ou tout autre) prend le seuil des naissances.
        {"100", "0", false, "1927", 0, false, ""},
        {"100", "0", false, "1925", 0, false, "1925"},
        {"100", "0", false, "1927", 2, false, ""},
        // « Sauf décédé » : le seuil des décès vaut pour toutes les dates d'un mort.
        {"75", "0", false, "14/06/1960", 0, true, "14/06/1960"},
        {"75", "100", false, "1950", 0, true, ""},
        // Années seules : la date qui commence par un chiffre se réduit à son année.
        {"75", "0", true, "12/03/1750", 0, false, "1750"},
        {"75", "0", true, "03/1750", 0, false, "1750"},
        {"75", "0", true, "1750", 0, false, "1750"},
        // Une date qui commence par un mot reste entière, mais le seuil la juge sur son année.
        {"75", "0", true, "vers 1750", 0, false, "vers 1750"},
        {"75", "0", true, "avant 1990", 0, false, ""},
        {"75", "0", false, "entre 1750 et 1760", 0, false, "entre 1750 et 1760"},
        // Un seuil illisible vaut 0 ; une date vide reste vide.
        {"abc", "0", false, "12/03/2025", 0, false, "12/03/2025"},
        {"75", "0", false, "", 0, false, ""},
    };
    for (const auto& c : cas) {
        OptionsExport e;
        e.AnneesConfidentielles = {c.seuilNB, c.seuilDS};
        e.OptionDatesAnnees = c.anneesSeules;
        EXPECT_EQ(DateConfidentielle(c.date, c.indice, c.forcerDS, e, 2026), c.attendu)
            << c.date << " seuils " << c.seuilNB << "," << c.seuilDS;
    }
}

}  // namespace
}  // namespace arbolix
