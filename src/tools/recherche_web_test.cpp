#include "tools/recherche_web.h"

#include <gtest/gtest.h>

#include "aides/dialogue_factice.h"

namespace arbolix {
namespace {

TEST(RechercheWeb, MarquesRempliesEtEncodeesEnUtf8) {
    // Fiche en 1252 : accents, blancs et "&" dans les noms et les lieux.
    const ValeursWeb fiche =
        ValeursAnnuaire("L\xE9vy & Fils",
                        "  Ren\xE9"
                        "e Marie",
                        "Saint-\xC9tienne (42)", "3 rue d'Arc", "42000", "04 77 00 00 00");
    const ValeursWeb acte = ValeursBaseWeb("O'Neil", "Jean", "B\xE9ziers", "vers 1850");
    struct Cas {
        std::string ligne;
        const ValeursWeb* v;
        std::string attendu;
    } cas[] = {
        {"https://a.fr/r?n=%nom&p=%prenom&c=%comn", &fiche,
         "https://a.fr/r?n=L%C3%A9vy%20%26%20Fils&p=Ren%C3%A9e&c=Saint-%C3%89tienne%20%2842%29"},
        {"https://a.fr/?a=%adrs&d=%dept&t=%numtel", &fiche,
         "https://a.fr/?a=3%20rue%20d%27Arc&d=42&t=04%2077%2000%2000%2000"},
        {"https://b.fr/?%annee-%debut-%fin&l=%comn&n=%nom", &acte,
         "https://b.fr/?1850-1840-1860&l=B%C3%A9ziers&n=O%27Neil"},
        {"https://b.fr/?%annee-%debut-%fin", &fiche, "https://b.fr/?--"},  // pas d'année sur la fiche
        {"https://b.fr/sans/marque", &acte, "https://b.fr/sans/marque"},
        {"https://b.fr/?q=%20%nomx%%", &acte, "https://b.fr/?q=%20O%27Neilx%%"},  // "%" seul : gardé
        {"https://b.fr/?q=%nom%prenom", &acte, "https://b.fr/?q=O%27NeilJean"},
    };
    for (const Cas& c : cas) EXPECT_EQ(RemplirLigneWeb(c.ligne, *c.v), c.attendu) << c.ligne;
    // Une date sans année en fin donne ses 4 derniers caractères, sans bornes.
    EXPECT_EQ(RemplirLigneWeb("%annee/%debut/%fin", ValeursBaseWeb("", "", "", "1850 ?")), "50%20%3F//");
    EXPECT_EQ(RemplirLigneWeb("%annee", ValeursBaseWeb("", "", "", "")), "");
}

TEST(RechercheWeb, LignesDesOptions) {
    DialogueFactice dialogue;
    EXPECT_EQ(LignesWeb("www.a.fr/x?n=%nom\r\n\r\n  \r\nhttp://b.fr\r\nhttps://c.fr/y \nd.fr", dialogue),
              (std::vector<std::string>{"https://www.a.fr/x?n=%nom", "http://b.fr", "https://c.fr/y",
                                        "https://d.fr"}));
    EXPECT_TRUE(dialogue.messages.empty());
    for (const char* vide : {"", "\r\n  \r\n"}) {
        DialogueFactice d;
        EXPECT_TRUE(LignesWeb(vide, d).empty());
        ASSERT_EQ(d.messages.size(), 1u);
        EXPECT_EQ(d.messages[0].titre, "Param\xE8tre manquant");
        EXPECT_EQ(d.messages[0].texte,
                  "Aucune adresse URL n'est d\xE9"
                  "finie dans les options pour utiliser cette fonction de recherche.");
        EXPECT_EQ(d.messages[0].icone, Icone::Stop);
    }
    EXPECT_EQ(HoteWeb("https://www.geneanet.org/fonds/individus/?go=1"), "www.geneanet.org");
    EXPECT_EQ(HoteWeb("http://b.fr?q=1"), "b.fr");
    EXPECT_EQ(RangeesWeb({"https://a.fr/1", "https://b.fr/x", "https://a.fr/2"}),
              (std::vector<std::string>{"https://a.fr/1", "b.fr", "https://a.fr/2"}));
}

}  // namespace
}  // namespace arbolix
