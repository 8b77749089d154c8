#include "reports/exports.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "acts/tmao.h"
#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "app/reglages.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "reports/isoles.h"
#include "reports/ligne_de_vie.h"
#include "store/selection.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;
using essais::CommeReference;
using essais::LireOctets;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "rapports";

// La base riche lue comme la fenêtre l'ouvre, toute sélectionnée, et un dossier pour les sorties.
struct Rapports : ::testing::Test {
    essai::Lecture l;
    OptionsExport exports;
    DialogueFactice dialogue;
    fs::path dossier = essais::DossierEssai("rapports");

    void SetUp() override {
        l.LireTout(LireOctets(kDonnees / "riche.ged"));
        ToutSelectionner(l.base);
        fs::create_directories(dossier);
    }
    void TearDown() override { fs::remove_all(dossier); }

    ContexteExport Contexte(int type, std::int32_t personne) {
        ContexteExport c{l.base, l.options, exports, {23, 11, 2026}};
        c.TypeExport = type;
        c.NumPerso = personne;
        c.FichierGedcom = "riche.ged";
        return c;
    }
    // Lance le rapport vers un fichier du dossier et rend ses octets.
    std::string Lancer(int type, std::int32_t personne, const std::string& nom) {
        exports.FichierExport = (dossier / nom).string();
        const ResultatExport r = LancerExport(Contexte(type, personne), dialogue);
        EXPECT_TRUE(r.Ecrit) << nom;
        return LireOctets(exports.FichierExport);
    }
};

TEST_F(Rapports, ChaqueRapportEgaleSaReference) {
    struct Cas {
        int type;
        std::int32_t personne;
        bool toutes;
        const char* reference;
    };
    const Cas cas[] = {
        {kLigneDeVie, 4, true, "lignevie.txt"},
        {kAscendance, 1, true, "ancetres-toutes.txt"},
        {kAscendance, 1, false, "ancetres-table.txt"},
        {kAdresses, 1, true, "adresses-toutes.txt"},
        {kAdresses, 1, false, "adresses.txt"},
        {kEclair, 1, true, "eclair.txt"},
        {kIsoles, 1, true, "isoles.txt"},
    };
    for (const auto& c : cas) {
        exports.Toutes = c.toutes;
        exports.TexteComp = c.type == kAscendance ? "Texte libre\r\nsur deux lignes" : "";
        EXPECT_TRUE(CommeReference(kDonnees / c.reference, Lancer(c.type, c.personne, c.reference)))
            << c.reference;
    }
}

// Annule au premier tour où la fenêtre laisse passer les évènements.
struct AnnulerTout : Progression {
    bool Annule() const override { return true; }
};

TEST_F(Rapports, UnEchecNeLaissePasDeFichierEtGardeLAncien) {
    const fs::path ancien = dossier / "ancetres.txt";
    essais::EcrireOctets(ancien, "ancien");
    exports.FichierExport = ancien.string();

    // Annulé en cours de route : l'ancien fichier reste octet pour octet.
    AnnulerTout annuler;
    ContexteExport ctx = Contexte(kAscendance, 1);
    ctx.progression = &annuler;
    EXPECT_TRUE(LancerExport(ctx, dialogue).Annule);

    // Personne sur la fiche, sélection vide : une boîte, rien d'écrit.
    EXPECT_FALSE(LancerExport(Contexte(kAscendance, 0), dialogue).Ecrit);
    for (std::int32_t n = 1; n <= l.base.NbPersos; ++n) l.base.Persos[n].Sel = kFaux;
    EXPECT_FALSE(LancerExport(Contexte(kEclair, 1), dialogue).Ecrit);
    ASSERT_EQ(dialogue.messages.size(), 2u);
    EXPECT_EQ(LireOctets(ancien), "ancien");
}

TEST_F(Rapports, AscendanceEnTableTMAO) {
    const std::string octets = Lancer(kAscendance, 1, "A12345.TM");
    const LectureTMAO t = LireTMAO(octets, "A12345.TM");
    ASSERT_TRUE(t.Ok) << t.Erreur;
    ASSERT_FALSE(t.Actes.empty());
    // Le premier couple est celui des parents (Sosa 2 et 3) ; le pied nomme une table qu'aucune
    // détection ne prend pour un autre type.
    EXPECT_EQ(t.Actes[0].Lignes1[0], "2");
    EXPECT_EQ(t.Actes[0].Lignes2[0], "3");
    EXPECT_EQ(t.Actes[0].LignesActe[1], "Sosa 2-3");
    EXPECT_EQ(TypeDansPied(octets), 0);
    EXPECT_NE(octets.find("Table des ascendances"), std::string::npos);
}

TEST_F(Rapports, CheminRelatifOuDossierImpossibleRefuses) {
    exports.FichierExport = "ancetres.txt";
    const ResultatExport r = LancerExport(Contexte(kAscendance, 1), dialogue);
    EXPECT_TRUE(r.CheminIncomplet);
    ASSERT_EQ(dialogue.messages.size(), 1u);
    EXPECT_EQ(dialogue.messages[0].titre, kTitreExportImpossible);
    EXPECT_EQ(dialogue.messages[0].texte, kCheminIncomplet);

    // Un dossier qu'on ne peut pas écrire (ici absent) : une boîte qui le dit, aucun fichier.
    exports.FichierExport = (dossier / "absent" / "ancetres.txt").string();
    EXPECT_FALSE(LancerExport(Contexte(kAscendance, 1), dialogue).Ecrit);
    ASSERT_EQ(dialogue.messages.size(), 2u);
    EXPECT_NE(dialogue.messages[1].texte.find("absent"), std::string::npos) << dialogue.messages[1].texte;
    EXPECT_FALSE(fs::exists(dossier / "absent"));
}

TEST_F(Rapports, LaVisionneuseSOuvreQuandLOptionLeDemande) {
    exports.FichierExport = (dossier / "adresses.txt").string();
    EXPECT_TRUE(LancerExport(Contexte(kAdresses, 1), dialogue, nullptr, true).Ecrit);
    l.options.LanceFicherExporte = false;
    EXPECT_TRUE(LancerExport(Contexte(kAdresses, 1), dialogue, nullptr, true).Ecrit);
    EXPECT_EQ(dialogue.ouverts, std::vector<std::string>{exports.FichierExport});
}

TEST_F(Rapports, LigneDeVieSansDateNeFaitPasDeFichier) {
    const ListePersonne liste = ListeLigneDeVie(l.base, l.options, 14, "Ligne de vie de HENRY Th\xE9r\xE8se");
    EXPECT_EQ(liste.Rangees.size(), 1u);
    exports.FichierExport = (dossier / "lignevie.txt").string();
    EXPECT_FALSE(LancerExport(Contexte(kLigneDeVie, 14), dialogue, &liste).Ecrit);
    ASSERT_EQ(dialogue.messages.size(), 1u);
    EXPECT_EQ(dialogue.messages[0].texte, kLigneDeVieVide);
}

TEST_F(Rapports, LEclairDemandeSonMinimumSansToutes) {
    exports.Toutes = false;
    dialogue.SaisieSuivante("2");
    const std::string deux = Lancer(kEclair, 1, "eclair.txt");
    EXPECT_EQ(deux,
              "Nom;Lieu;d\xE9"
              "but;fin;nombre\r\nDUPONT;;1794;1999;12;Nancy\r\n");
    dialogue.SaisieSuivante(std::nullopt);  // Annuler dans la boîte : rien ne change
    EXPECT_TRUE(LancerExport(Contexte(kEclair, 1), dialogue).Annule);
    EXPECT_EQ(LireOctets(exports.FichierExport), deux);
}

TEST(Exports, VisibiliteParGenre) {
    // Genre : cadre des dates, cadre de l'ordre, cadres RTF, index, tri, « Toutes ».
    struct Cas {
        int type;
        const char* attendu;
    } cas[] = {
        {kLigneDeVie, "000000"}, {kAscendance, "110001"}, {kDescendance, "111001"}, {kAdresses, "100001"},
        {kEclair, "100001"},     {kLivre, "111111"},      {kPagesHtml, "110011"},   {kIsoles, "110001"},
    };
    for (const auto& c : cas) {
        const VisibiliteExports v = Visibilite(c.type);
        std::string s;
        for (bool b : {v.CadreDates, v.CadrePerso, v.CadreRTF && v.CadreUnionsMulti,
                       v.ComboColRTF1 && v.OptNumUniq, v.BoutonTri, v.Toutes})
            s += b ? '1' : '0';
        EXPECT_EQ(s, c.attendu) << c.type;
    }
}

TEST(Exports, LesReglagesDesCadresVisiblesSontRetenus) {
    const fs::path ini = essais::DossierEssai("exports") / "arbolix.ini";
    OptionsExport e;
    e.AnneesConfidentielles = {"100", "50"};
    e.OptionSaufDecede = false;
    e.OptionOrdre = 2;
    e.OptionBasPage[0] = true;
    e.FichierExport = "/tmp/ancetres.txt";
    EnregistrerOptionsExport(ini, e, kAscendance);
    const OptionsExport lu = ChargerOptionsExport(ini);
    EXPECT_EQ(lu.AnneesConfidentielles, e.AnneesConfidentielles);
    EXPECT_FALSE(lu.OptionSaufDecede);
    EXPECT_EQ(lu.OptionOrdre, 2);
    EXPECT_FALSE(lu.OptionBasPage[0]);  // réglage RTF : pas pour un fichier texte
    fs::remove_all(ini.parent_path());
    EXPECT_EQ(SeuilSaisi("12a"), "0");
    EXPECT_EQ(SeuilSaisi("75"), "75");
}

}  // namespace
}  // namespace arbolix
