#include "trees/dessin_arbre.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "aides/base_essai.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "kinship/parente.h"
#include "trees/sortie_arbre.h"
#include "trees/sortie_rtf.h"

namespace arbolix {
namespace {

std::string Fichier(const std::string& chemin) {
    return essais::LireOctets(std::string(ARBOLIX_DONNEES) + "/" + chemin);
}

struct Arbre : testing::Test {
    essai::Lecture l;
    MesureFixe mesure;
    DemandeArbre d;
    void SetUp() override {
        l.LireTout(Fichier("arbres/famille.ged"));
        d.aujourdhui = {23, 11, 2026};
        d.numero = 1;
        d.titre = "Essai";
    }
    DessinArbre Dessin() { return DessinerArbre(l.base, l.options, d, mesure); }
};

ListePersonne Etiquettes(int n, std::int32_t personne) {
    ListePersonne liste;
    OuvrirListe(liste, "etiquettes", "", " Imprimer...", true);
    for (int i = 0; i < n; ++i) liste.Rangees.push_back({"X P" + Zeros(personne, 6), personne});
    return liste;
}

// Aucune case ne sort de sa page ni n'en chevauche une autre.
void VerifierPlacement(const DessinArbre& a) {
    for (std::size_t i = 0; i < a.Cases.size(); ++i) {
        const auto& c = a.Cases[i];
        EXPECT_GE(c.x, 0);
        EXPECT_GE(c.y, 0);
        EXPECT_LE(c.x + a.LC, a.LF + 1e-6) << "case " << i;
        EXPECT_LE(c.y + a.HC, a.HF + 1e-6) << "case " << i;
        for (std::size_t j = i + 1; j < a.Cases.size(); ++j) {
            const auto& e = a.Cases[j];
            const bool separees = c.page != e.page || c.x + a.LC <= e.x + 1e-6 || e.x + a.LC <= c.x + 1e-6 ||
                                  c.y + a.HC <= e.y + 1e-6 || e.y + a.HC <= c.y + 1e-6;
            EXPECT_TRUE(separees) << "cases " << i << " et " << j;
        }
    }
}

TEST_F(Arbre, DimensionsRefuseesOuTropPetites) {
    struct Cas {
        int genre;
        std::string OptionsArbre::*champ;
        std::string valeur;
        std::string_view titre;
    };
    const Cas cas[] = {
        {kAscendant, &OptionsArbre::LC, "0", kTitreErreurDimension},
        {kAscendant, &OptionsArbre::HF, "-297", kTitreErreurDimension},
        {kEtiquettes, &OptionsArbre::MC, "abc", kTitreErreurDimension},
        {kAscendant, &OptionsArbre::NbGen, "3", kTitreErreurDimension},
        {kAscendant, &OptionsArbre::MF, "200", kTitreErreurDimension},
        {kEtiquettes, &OptionsArbre::HC, "400", kTitreErreurDimension},
        {kAscendant, &OptionsArbre::NbGen, "10", kTitreCasesPetites},
        {kAscendant, &OptionsArbre::NbGen, "31", kTitreCasesPetites},
        {kAscendant, &OptionsArbre::NbGen, "99999999999", kTitreCasesPetites},
    };
    for (const auto& c : cas) {
        d = {};
        d.genre = c.genre;
        d.numero = 1;
        d.dims.*c.champ = c.valeur;
        const ListePersonne liste = Etiquettes(1, 1);
        d.etiquettes = &liste;
        const DessinArbre a = Dessin();
        EXPECT_EQ(a.TitreBoite, c.titre) << c.valeur;
        EXPECT_TRUE(a.Cases.empty() && a.Traits.empty());
        EXPECT_EQ(a.CacherApercu, c.titre == kTitreCasesPetites);
    }
    d.mode = kModeImprimante;
    d.imprimanteExiste = false;
    EXPECT_EQ(Dessin().TexteBoite, kAucuneImprimante);
}

TEST_F(Arbre, PlancheDEtiquettes) {
    d.genre = kEtiquettes;
    d.dims.HF = "300", d.dims.HC = "20", d.dims.MC = "1", d.dims.MF = "10";
    d.dims.LF = "210", d.dims.LC = "60";
    // 280 \ 22 = 12 rangs, 190 \ 62 = 3 colonnes : 36 par page.
    for (const auto& [n, pages] : std::vector<std::pair<int, int>>{{1, 1}, {36, 1}, {37, 2}, {0, 1}}) {
        const ListePersonne liste = Etiquettes(n, 2);
        d.etiquettes = &liste;
        const DessinArbre a = Dessin();
        ASSERT_TRUE(a.Dessine());
        EXPECT_EQ(a.Pages, pages) << n;
        ASSERT_EQ(a.Cases.size(), static_cast<std::size_t>(n));
        VerifierPlacement(a);
        if (n >= 36) {
            EXPECT_DOUBLE_EQ(a.Cases[2].x, 10 + 2 * 62 + 1);
            EXPECT_DOUBLE_EQ(a.Cases[35].y, 10 + 11 * 22 + 1);
        }
        if (n == 37) {
            EXPECT_EQ(a.Cases[36].page, 2);
        }
        const std::string svg = ArbreSvg(a, l.options, mesure);
        EXPECT_NE(svg.find("height=\"" + std::to_string(300 * pages) + "mm\""), std::string::npos);
    }
}

TEST_F(Arbre, AscendantParGenerations) {
    d.genre = kAscendant;
    d.dims.LF = "420", d.dims.HF = "297", d.dims.MF = "10", d.dims.NbGen = "4";
    const DessinArbre a = Dessin();
    ASSERT_TRUE(a.Dessine());
    ASSERT_EQ(a.Cases.size(), 15u);
    EXPECT_DOUBLE_EQ(a.HC, 277.0 / 8);
    EXPECT_DOUBLE_EQ(a.LC, 72);  // 400 / 5.5 = 72,7 : un nombre entier
    for (std::size_t n = 1; n <= 15; ++n) {
        const auto& c = a.Cases[n - 1];
        EXPECT_DOUBLE_EQ(c.x, 10 + (std::bit_width(n) - 1) * 1.5 * 72) << n;
        if (n > 1 && std::bit_width(n) == std::bit_width(n - 1)) {
            EXPECT_GT(c.y, a.Cases[n - 2].y) << n;
        }
    }
    VerifierPlacement(a);
    EXPECT_EQ(a.Cases[0].lignes.front(), "1 LEF\xC8VRE \xC9lise");
    EXPECT_EQ(a.Cases[1].lignes[1].rfind("x 20/05/1899", 0), 0u);  // le père porte le mariage
    EXPECT_EQ(a.Cases[2].personne, 3);
    EXPECT_EQ(a.Cases[6].personne, 0);  // le rang sans personne reste une case à remplir
    EXPECT_TRUE(a.Cases[6].lignes.empty());
    EXPECT_EQ(PersonneAuPoint(a, a.Cases[2].x + 5, a.Cases[2].y + 5), 3);
    EXPECT_EQ(PersonneAuPoint(a, 1, 1), 0);
    // Trois traits par case, de la case à mi-chemin de l'enfant.
    EXPECT_EQ(a.Traits.size(), 14u * 3);
    EXPECT_EQ(a.Textes.front().texte, "Le 23/11/2026 Essai");
}

TEST_F(Arbre, AscendantA4SansAncetresEtGenerationsComptees) {
    d.genre = kAscendantA4;
    d.numero = 6;
    d.dims.NbGen = "12";  // la page A4 impose cinq générations
    DessinArbre a = Dessin();
    ASSERT_TRUE(a.Dessine());
    EXPECT_EQ(a.NbGen, 5);
    EXPECT_EQ(a.Cases.size(), 31u);
    EXPECT_EQ(a.LF, 297);
    VerifierPlacement(a);
    bool legende = false;
    for (const auto& t : a.Textes) legende = legende || t.texte == "L\xE9gende :";
    EXPECT_TRUE(legende);

    d.genre = kAscendant;
    d.dims = {};
    d.dims.NbGen = "";
    d.numero = 5;  // sans parents : quatre générations à remplir à la main
    EXPECT_EQ(Dessin().NbGen, 4);
}

TEST_F(Arbre, LignesLonguesRestentDansLaCase) {
    l.base.Persos[1].Nom = std::string(500, 'N');
    l.base.Persos[2].Nom = "DE " + std::string(60, 'A') + " " + std::string(30, 'B');
    d.genre = kAscendantA4;
    for (int mode : {kModeApercu, kModeSvg}) {
        d.mode = mode;
        const DessinArbre a = Dessin();
        for (const auto& c : a.Cases) {
            EXPECT_LE(static_cast<double>(c.lignes.size()) * mesure.HauteurLigne(c.taille),
                      a.HC - 1.5 * a.MC + 1e-9);
            for (const auto& ligne : c.lignes) EXPECT_LE(mesure.Largeur(ligne, c.taille), a.LC - 2 * a.MC);
        }
    }
    const auto coupe = CouperLigne("un deux trois", mesure.Largeur("un deux", 10) + 0.01, 10, mesure);
    EXPECT_EQ(coupe, (std::vector<std::string>{"un deux", "trois"}));
}

TEST_F(Arbre, ParenteDeuxLigneesCoteACote) {
    essai::Lecture c;
    c.LireTout(Fichier("parente/cousins.ged"));
    PreparerParente(c.base, 2, c.options);
    ListeParente(c.base, c.options, 3);
    d.genre = kArbreParente;
    d.numero = 10;
    const DessinArbre a = DessinerArbre(c.base, c.options, d, mesure);
    ASSERT_TRUE(a.Dessine());
    // Le couple du haut, puis chaque lignée avec son conjoint.
    std::vector<std::int32_t> personnes;
    for (const auto& c : a.Cases) personnes.push_back(c.personne);
    EXPECT_EQ(personnes, (std::vector<std::int32_t>{10, 11, 5, 7, 2, 6, 8, 3}));
    EXPECT_EQ(a.Taille, 7);
    EXPECT_LT(a.Cases[4].x, a.Cases[7].x);  // Jean à gauche, Marie à droite
    VerifierPlacement(a);
}

TEST_F(Arbre, SvgDeReference) {
    d.genre = kAscendantA4;
    const DessinArbre a = Dessin();
    const std::string svg = ArbreSvg(a, l.options, mesure);
    EXPECT_NE(svg.find("DUPONT &amp; FILS"), std::string::npos);
    EXPECT_NE(svg.find("&lt;SARL&gt;"), std::string::npos);
    EXPECT_NE(svg.find(">G&#233;n&#233;alogiste Claire, 4 rue des Archives, 57000 Metz<"), std::string::npos);
    EXPECT_NE(svg.find("&#338;dipe"), std::string::npos);  // Œ par son point de code
    EXPECT_TRUE(essais::CommeReference(std::string(ARBOLIX_DONNEES) + "/arbres/ascendant-a4.svg", svg));
}

TEST_F(Arbre, DescendantParPagesEtRtf) {
    d.genre = kDescendant;
    d.numero = 4;
    d.dims.NbGen = "";
    l.options.SelTousDesc = true;        // les enfants d'une fille aussi
    d.dims.HF = "80", d.dims.HC = "20";  // deux rangs par page
    const DessinArbre a = Dessin();
    ASSERT_TRUE(a.Dessine());
    std::vector<std::int32_t> personnes;
    for (const auto& c : a.Cases) personnes.push_back(c.personne);
    // Le descendant, puis son conjoint sous lui, puis les enfants une colonne plus loin.
    EXPECT_EQ(personnes, (std::vector<std::int32_t>{4, 5, 2, 3, 1, 6}));
    EXPECT_GT(a.Cases[2].x, a.Cases[0].x);
    EXPECT_EQ(a.Cases[1].x, a.Cases[0].x);
    EXPECT_GE(a.Pages, 3);
    VerifierPlacement(a);
    EXPECT_NE(ArbreSvg(a, l.options, mesure).find("height=\"" + std::to_string(80 * a.Pages) + "mm\""),
              std::string::npos);
    const std::string rtf = ArbreRtf(a, l.base, l.options, mesure);
    EXPECT_NE(rtf.find("\\fs"), std::string::npos);
    EXPECT_NE(rtf.find("\\par \\page \\par "), std::string::npos);
    EXPECT_TRUE(essais::CommeReference(std::string(ARBOLIX_DONNEES) + "/arbres/descendant.rtf", rtf));
}

TEST(NombreFichier, PointDecimalEtArrondi) {
    const std::pair<double, std::string_view> cas[] = {
        {12, "12"}, {12.5, "12.5"}, {34.625, "34.63"}, {-0.001, "0"}, {1e300 * 1e300, "0"}};
    for (const auto& [v, texte] : cas) EXPECT_EQ(NombreFichier(v), texte);
    EXPECT_EQ(LireMillimetres("20,5"), 20.5);
    EXPECT_EQ(LireMillimetres("20 mm"), 0);
    EXPECT_EQ(Twips(10), "567");
    EXPECT_EQ(Twips(0.01), "001");
}

}  // namespace
}  // namespace arbolix
