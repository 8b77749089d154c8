#include "reports/rtf.h"

#include <gtest/gtest.h>

#include "aides/base_essai.h"
#include "reports/blocs_personne.h"

namespace arbolix {
namespace {

TEST(RTF, Echappement) {
    const std::pair<const char*, const char*> cas[] = {
        {"a\\b{c}d", "a\\\\b\\{c\\}d"},
        {"\xC9lise & \x9C", "\\'c9lise & \\'9c"},
        {"x\ty\x01z\r\n", "x\\tab y\\'01z\r\n"},
    };
    for (const auto& [texte, attendu] : cas) EXPECT_EQ(EchapperRTF(texte), attendu);
}

struct Tete : ::testing::Test {
    Base b;
    Options o;
    OptionsExport e;
    std::string Ouvrir(bool livre, bool arbre, int tab, const OptionsArbre& page = {}) {
        ContexteExport ctx{b, o, e, {3, 2, 2026}};
        ctx.heure = 9;
        ctx.minute = 5;
        TexteRapport f(kFichierRtf);
        OuvrirRTF(ctx, f, true, livre, arbre, tab, page);
        return f.Fermer();
    }
};

TEST_F(Tete, LivreAvecAuteurEtTexteComplementaire) {
    o.Police = "Garamond";
    e.TitreExport = "Famille {D\xE9sir\xE9}";
    e.TexteComp = "{\\b gras}\r\nsuite";
    Perso& g = b.Persos[-1];
    g.Nom = "MARTIN";
    g.Prenoms = "Ren\xE9";
    g.SuiteModif().Ville = "Nancy";
    g.SuiteModif().CP = "54000";
    g.SuiteModif().EMail = "rm@exemple.fr";
    const std::string titre = "Famille \\{D\\'e9sir\\'e9\\}";
    EXPECT_EQ(
        Ouvrir(true, false, 6),
        "{\\rtf1\\ansi{\\fonttbl{\\f0\\froman\\fcharset0 Garamond;}}{\\stylesheet{\\f0\\ql \\fs20\\sa240 "
        "Normal;}{\\s15\\f0\\qc \\fs40\\ul\\sa240 Titres;}}{\\info{\\title " +
            titre +
            "}{\\author Arbolix 11.0}{\\creatim\\yr2026\\mo2\\dy3\\hr9\\min5}}\r\n"
            "\\psz9\\paperw11906\\paperh16838\\margl1134\\margr567\\margt964\\margb964\\deftab3402"
            "\\hyphhotz425\\formshade\\viewkind1\\viewscale100\\pgbrdrhead\\pgbrdrfoot\\ftnbj\\ftnrstpg\\ftnn"
            "ar"
            "\\fet0\\endnhere \r\n"
            "\\sectd \\sbknone\\linex0\\headery567\\footery567\\colsx709\\sectdefaultcl {\\header "
            "\\pard\\plain "
            "\\fs20\\qc \\titlepg " +
            titre +
            "\\par }{\\footer \\pard\\plain \\fs20\\qc {\\field{\\*\\fldinst "
            "{PAGE }}}}\\pard\\plain \\qc \\fs40\\ul\\sa240 {" +
            titre +
            "\\par }\\ql \\pard\\plain \\fs20\r\n"
            "\\sect \\sbknone\\linex0\\headery567\\footery567\\cols2\\colsx567\\endnhere {\\header "
            "\\pard\\plain "
            "\\titlepg \\par }MARTIN Ren\\'e9\\line 54000 Nancy\\line rm@exemple.fr\\par \\sa240 imprim\\'e9 "
            "avec "
            "Arbolix 11\\line Arbolix, logiciel libre de g\\'e9n\\'e9alogie\\sa240 \\par \r\n"
            "\\sa240 \\fs20 {\\b gras}\\line suite\\par \r\n");
}

TEST_F(Tete, ArbreEnPaysageSansTitre) {
    e.TitreExport = "Arbre";
    const std::string t = Ouvrir(false, true, 283, {.LF = "297", .HF = "210", .MF = "10"});
    EXPECT_NE(t.find("{\\stylesheet{\\f0\\ql \\fs22 Normal;}"), std::string::npos);
    EXPECT_NE(
        t.find("\\paperw16838\\paperh11906\\margl567\\margr567\\margt567\\margb567\\landscape\\deftab283"),
        std::string::npos);
    EXPECT_EQ(t.find("{Arbre\\par }"), std::string::npos);
    EXPECT_TRUE(t.ends_with("\\ql \\pard\\plain \\fs22\r\n\\par \r\n"));
}

// Un évènement dans le livre : note en bas de page, adresse web en champ, renvoi vers une note externe,
// source qui commence par son adresse laissée telle quelle.
TEST(BlocsRtf, NotesSourcesEtRenvois) {
    Base b;
    Options o;
    OptionsExport e;
    e.OptionBasPage = {true, false};
    ContexteExport ctx{b, o, e, {23, 11, 2026}};
    ctx.TypeExport = kLivre;
    b.Notes[2].NumLivre = 3;
    Acte a;
    essai::Dater(a, "1810", "Nancy {x}");
    a.Notes = "ligne 1\r\nligne 2";
    a.Source = "Registre http://a.fr/b";
    Acte c;
    c.Notes = "@N2@";
    c.Source = "http://x.fr {1}";
    TexteRapport f(kFichierRtf);
    EcrireActes(ctx, a, "+", c, "s", f, "\\line ", "\\line ", true, false);
    EXPECT_EQ(
        f.Fermer(),
        "\\line + 1810 Nancy \\{x\\}{ \\super\\chftn{\\footnote \\pard\\plain \\fs20 \\chftn  ligne 1\\line "
        "ligne 2}}\\line source : Registre {\\field{\\*\\fldinst HYPERLINK "
        "\"http://a.fr/b\"}{\\fldrslt{\\ul\\cf1 "
        "http://a.fr/b}}}\\line N3\\line source : http://x.fr \\{1\\}\r\n");
}

}  // namespace
}  // namespace arbolix
