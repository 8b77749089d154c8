#include "reports/pdf.h"

#include <gtest/gtest.h>

#include <regex>

namespace arbolix {
namespace {

TEST(Pdf, LargeursDesPolicesStandard) {
    struct Cas {
        PolicePdf police;
        const char* texte;
        int milliemes;  // somme des chasses
    } const cas[] = {
        {PolicePdf::TimesRoman, "Aa ", 722 + 444 + 250},
        {PolicePdf::TimesBold, "Aa", 722 + 500},
        {PolicePdf::Helvetica, "W\xE9", 944 + 556},   // é
        {PolicePdf::HelveticaBold, "\x80\x81", 556},  // l'euro ; 0x81 n'a pas de glyphe
        {PolicePdf::TimesRoman, "\n\t", 0},
    };
    for (const auto& c : cas)
        EXPECT_NEAR(LargeurTexteMm(c.police, 10, c.texte), c.milliemes * 10 / 1000.0 / kPointsParMm, 1e-9)
            << c.texte;
}

// Chaque entrée de la table xref pointe sur le début de son objet, startxref sur la table, et la
// longueur de chaque flux est celle de son contenu.
TEST(Pdf, TableXrefEtLongueursExactes) {
    DocumentPdf d;
    d.Titre("Fiche \xE9t\xE9");
    d.NouvellePage(210, 297);
    d.Texte(25, 30, PolicePdf::TimesBold, 12, "DUPONT (Jean) \\ \xC9lise");
    d.CouleurTrait(1, 0, 0);
    d.Rectangle(10, 10, 50, 20, 0.3, true);
    d.NouvellePage(297, 210);
    d.Ligne(0, 0, 297, 210);
    const std::string pdf = d.Octets();

    ASSERT_EQ(pdf.rfind("%PDF-1.4\n", 0), 0u);
    const auto startxref = std::stoul(pdf.substr(pdf.rfind("startxref\n") + 10));
    ASSERT_EQ(pdf.compare(startxref, 5, "xref\n"), 0);
    std::smatch m;
    const std::string table = pdf.substr(startxref);
    ASSERT_TRUE(std::regex_search(table, m, std::regex("xref\n0 (\\d+)\n")));
    const int taille = std::stoi(m[1]);
    EXPECT_EQ(taille, 1 + 7 + 2 * 2);
    for (int i = 1; i < taille; ++i) {
        const auto pos = std::stoul(table.substr(m.length(0) + 20 * i, 10));
        EXPECT_EQ(pdf.substr(pos, std::to_string(i).size() + 6), std::to_string(i) + " 0 obj") << i;
    }
    const std::regex flux("/Length (\\d+) >>\nstream\n");
    for (auto it = std::sregex_iterator(pdf.begin(), pdf.end(), flux); it != std::sregex_iterator(); ++it) {
        const auto debut = it->position(0) + it->length(0);
        EXPECT_EQ(pdf.compare(debut + std::stoul((*it)[1]), 9, "endstream"), 0);
    }
    // Texte en ligne de base depuis le haut, octets 1252 en octal, parenthèses échappées ;
    // la couleur suit sur la page suivante ; le titre en UTF-16.
    EXPECT_NE(pdf.find("BT /F2 12 Tf 70.87 756.85 Td (DUPONT \\(Jean\\) \\\\ \\311lise) Tj ET"),
              std::string::npos);
    EXPECT_NE(pdf.find("1 0 0 RG\n1 1 1 rg\n0.85 w 28.35 756.85 141.73 56.69 re B"), std::string::npos);
    EXPECT_NE(pdf.find("stream\n1 0 0 RG\n0.57 w 0 595.28 m 841.89 0 l S"), std::string::npos);
    EXPECT_NE(pdf.find("/Title <FEFF00460069006300680065002000E9007400E9>"), std::string::npos);
}

}  // namespace
}  // namespace arbolix
