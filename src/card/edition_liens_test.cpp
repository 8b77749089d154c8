#include "card/edition_liens.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "aides/verifier_liens.h"
#include "dates/cle_date.h"
#include "store/aides_texte.h"

namespace arbolix {
namespace {

constexpr double kMaintenant = 45000;  // 15/03/2023

// Une petite base et tout ce qu'une commande de lien consulte.
struct Banc {
    Base base;
    Options options;
    DialogueFactice dialogue;
    Edition e{base, options, dialogue, kMaintenant};

    std::int32_t Personne(const char* nom, const char* prenoms, char sexe, int annee = 0) {
        const std::int32_t n = NouvellePersonne(base, true, false);
        Perso& p = base.Persos[n];
        p.Nom = nom;
        p.Prenoms = prenoms;
        p.CodeNom = CodeSon(nom);
        p.Sexe = sexe;
        if (annee > 0) essai::Dater(p.Naissance, std::to_string(annee));
        return n;
    }
    const Perso& P(std::int32_t n) const { return base.Persos[n]; }
    const Fami& F(std::int32_t f) const { return base.Familles[f]; }
    void LiensIntacts() const {
        for (const auto& faute : VerifierLiens(base)) ADD_FAILURE() << faute;
    }
};

TEST(SosaParent, DoubleEnTexteDecimal) {
    const struct {
        const char* sosa;
        bool mere;
        const char* attendu;
    } cas[] = {
        {"1", false, "2"},
        {"1", true, "3"},
        {"0", false, ""},
        {"", true, ""},
        {"abc", false, ""},
        {"  7 ", false, "14"},
        {"99999999999999999999", true, "199999999999999999999"},
    };
    for (const auto& c : cas) EXPECT_EQ(SosaParent(c.sosa, c.mere), c.attendu) << c.sosa;
}

TEST(AjouterParents, NouvelleFamilleAvecPereEtMere) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M', 1754);
    b.base.Persos[p].SuiteModif().NumSosa[0] = "5";
    const auto f = ChoisirParents(b.e, p, 0);
    ASSERT_GT(f, 0);
    ASSERT_EQ(b.dialogue.messages.size(), 2u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Ajouter parents");
    EXPECT_EQ(b.dialogue.messages[0].texte, "Ajouter le p\xE8re ?");
    EXPECT_EQ(b.dialogue.messages[1].texte, "Ajouter la m\xE8re ?");
    // (1754 \ 5) * 5 - 5 : un nombre rond avant l'enfant.
    EXPECT_EQ(b.F(f).Mariage.Date, "vers 1745");
    EXPECT_EQ(b.F(f).Mariage.Annee, 1745);
    const Perso& pere = b.P(b.F(f).Mari);
    const Perso& mere = b.P(b.F(f).Femme);
    EXPECT_EQ(pere.Nom, "DUPONT");
    EXPECT_EQ(pere.CodeNom.str(), CodeSon("DUPONT"));
    EXPECT_EQ(pere.Sexe, 'M');
    EXPECT_EQ(pere.Naissance.Date, "vers 1724");
    EXPECT_EQ(pere.Suite().NumSosa[0], "10");
    EXPECT_EQ(mere.Nom, "N");  // le nom ne va à la mère que sans père
    EXPECT_EQ(mere.Sexe, 'F');
    EXPECT_EQ(mere.Suite().NumSosa[0], "11");
    EXPECT_EQ(b.P(p).DateModif, kMaintenant);
    EXPECT_EQ(b.base.FichierModifie, kVrai);
    EXPECT_EQ(b.base.NbFamisReels, 1);
    b.LiensIntacts();
}

TEST(AjouterParents, ReponsesChoisissentLesParents) {
    const struct {
        Bouton pere, mere;
        bool avecPere, avecMere;
        const char* nomMere;
    } cas[] = {
        {Bouton::Oui, Bouton::Non, true, false, ""},
        {Bouton::Non, Bouton::Oui, false, true, "DUPONT"},
        {Bouton::Non, Bouton::Non, false, false, ""},
    };
    for (const auto& c : cas) {
        Banc b;
        const auto p = b.Personne("DUPONT", "Jean", 'M', 1750);
        b.dialogue.ReponseSuivante(c.pere);
        b.dialogue.ReponseSuivante(c.mere);
        const auto f = ChoisirParents(b.e, p, 0);
        EXPECT_EQ(f != 0, c.avecPere || c.avecMere);
        EXPECT_EQ(b.F(f).Mari != 0, c.avecPere);
        EXPECT_EQ(b.F(f).Femme != 0, c.avecMere);
        if (c.avecMere) {
            EXPECT_EQ(b.P(b.F(f).Femme).Nom, c.nomMere);
        }
        EXPECT_TRUE(b.F(f).Mariage.Date.empty());  // un seul parent : pas de mariage estimé
        b.LiensIntacts();
    }
}

TEST(AjouterParents, FamilleExistanteTrieLesEnfantsEtRefuseLe26e) {
    Banc b;
    const auto aine = b.Personne("DUPONT", "Paul", 'M', 1760);
    const auto f = ChoisirParents(b.e, aine, 0);
    const auto cadet = b.Personne("DUPONT", "Jean", 'M', 1755);
    EXPECT_EQ(ChoisirParents(b.e, cadet, f), f);
    EXPECT_EQ(b.F(f).Enfants(1), cadet);
    EXPECT_EQ(b.F(f).Enfants(2), aine);
    // Des parents déjà là : la commande n'est pas offerte.
    EXPECT_EQ(ChoisirParents(b.e, cadet, f), 0);
    for (int i = 3; i <= kMaxEnfants; ++i) ChoisirParents(b.e, b.Personne("DUPONT", "X", 'M'), f);
    const auto dernier = b.Personne("DUPONT", "Y", 'M');
    EXPECT_EQ(ChoisirParents(b.e, dernier, f), 0);
    EXPECT_EQ(b.P(dernier).NumParents, 0);
    EXPECT_EQ(b.F(f).Enfants.Nombre(), static_cast<std::size_t>(kMaxEnfants));
    b.LiensIntacts();
}

TEST(EnleverParents, LaFamilleResteSansEnfant) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    const auto f = ChoisirParents(b.e, p, 0);
    EnleverParents(b.e, p);
    EXPECT_EQ(b.P(p).NumParents, 0);
    EXPECT_TRUE(b.F(f).Enfants.empty());
    EXPECT_NE(b.F(f).Mari, 0);
    b.LiensIntacts();
}

TEST(AjouterUnion, SeptUnionsAuPlus) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    for (int i = 0; i < kMaxUnions; ++i) ASSERT_GT(ChoisirConjoint(b.e, p, 0), 0);
    EXPECT_TRUE(b.dialogue.messages.empty());
    EXPECT_EQ(ChoisirConjoint(b.e, p, 0), 0);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Impossible d'ajouter l'union");
    EXPECT_EQ(b.dialogue.messages[0].texte,
              "Vous ne pouvez plus ajouter d'union pour cette personne. Le logiciel a attient le maximum de 7 "
              "unions par personne.");
    // Le conjoint choisi compte aussi : p plein refuse d'être pris par une autre.
    const auto autre = b.Personne("MARTIN", "Marie", 'F');
    EXPECT_EQ(ChoisirConjoint(b.e, autre, p), 0);
    EXPECT_EQ(b.P(autre).Unions[1], 0);
    b.LiensIntacts();
}

TEST(AjouterUnion, MariageEstimeEtCotesParSexe) {
    const struct {
        int annee, anneeConjoint;
        const char* mariage;
    } cas[] = {
        {1750, 1755, "vers 1780"},  // 1752,5 arrondi au pair, + 30 - 2
        {1753, 1754, "vers 1782"},  // 1753,5 arrondi à 1754
        {1750, 0, "vers 1778"},
        {0, 1760, "vers 1788"},
        {0, 0, ""},
    };
    for (const auto& c : cas) {
        Banc b;
        const auto p = b.Personne("DUPONT", "Marie", 'F', c.annee);
        const auto s = b.Personne("MARTIN", "Jean", ' ', c.anneeConjoint);
        const auto f = ChoisirConjoint(b.e, p, s);
        EXPECT_EQ(b.F(f).Mariage.Date, c.mariage) << c.annee << " " << c.anneeConjoint;
        EXPECT_EQ(b.F(f).Femme, p);
        EXPECT_EQ(b.F(f).Mari, s);
        EXPECT_EQ(b.P(s).Sexe, 'M');
        b.LiensIntacts();
    }
}

// La première ligne de la liste : une fiche neuve, née la même année.
TEST(AjouterUnion, NouvelleFicheNeeLaMemeAnnee) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M', 1750);
    const auto f = ChoisirConjoint(b.e, p, NouvellePersonne(b.base, false, false));
    const Perso& s = b.P(b.F(f).Femme);
    EXPECT_EQ(s.Naissance.Date, "vers 1750");
    EXPECT_EQ(s.Sexe, 'F');
    EXPECT_EQ(b.F(f).Mariage.Date, "vers 1778");
    b.LiensIntacts();
}

TEST(AjouterUnion, SansSexePersonneNEntreDansLaFamille) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Claude", ' ');
    const auto s = b.Personne("MARTIN", "Marie", 'F');
    const auto f = ChoisirConjoint(b.e, p, s);
    ASSERT_GT(f, 0);
    EXPECT_EQ(b.F(f).Mari, 0);
    EXPECT_EQ(b.F(f).Femme, 0);
    EXPECT_EQ(b.P(p).Unions[1], 0);
    b.LiensIntacts();
}

TEST(EnleverUnion, DernierConjointAvertitEtCoupeLesEnfants) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Marie", 'F');
    const auto f = FamillePourEnfant(b.e, p, 0);  // Oui : union monoparentale
    ASSERT_GT(f, 0);
    EXPECT_EQ(b.F(f).Femme, p);
    const auto c = ChoisirEnfant(b.e, f, b.Personne("DUPONT", "Luc", 'M'));
    b.dialogue.messages.clear();
    EnleverUnion(b.e, p, f);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Supprimer une famille");
    EXPECT_EQ(b.dialogue.messages[0].texte,
              "Attention ! La famille n\xB0" "1 va \xEAtre supprim\xE9" "e.\r\nVeuillez noter les num\xE9ros des "
              "enfants qui vont perdre le lien vers leurs parents :\r\n" + std::to_string(c) + " DUPONT Luc");
    EXPECT_EQ(b.P(c).NumParents, 0);
    EXPECT_EQ(b.base.NbFamis, 0);
    EXPECT_EQ(b.base.NbFamisReels, 0);
    b.LiensIntacts();
}

TEST(AjouterConjointManquant, EntreDuCoteLibre) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Marie", 'F');
    const auto f = FamillePourEnfant(b.e, p, 0);
    ChoisirEnfant(b.e, f, b.Personne("DUPONT", "Luc", 'M', 1780));
    b.dialogue.messages.clear();
    const auto n = AjouterConjointManquant(b.e, p, f);
    ASSERT_GT(n, 0);
    EXPECT_EQ(b.dialogue.messages[0].texte,
              "Il n'y a pas de conjoint pour cette union monoparentale.\r\nVoulez-vous ajouter une nouvelle fiche ?");
    EXPECT_EQ(b.F(f).Mari, n);
    EXPECT_EQ(b.P(n).Sexe, 'M');
    EXPECT_EQ(b.F(f).Mariage.Date, "vers 1778");
    EXPECT_EQ(AjouterConjointManquant(b.e, p, f), 0);  // deux conjoints : rien à compléter
    b.LiensIntacts();
}

TEST(AjouterEnfant, SansUnionDemandeUneMonoparentale) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    b.dialogue.ReponseSuivante(Bouton::Non);
    EXPECT_EQ(FamillePourEnfant(b.e, p, 0), 0);
    EXPECT_EQ(b.base.NbFamis, 0);
    ASSERT_EQ(b.dialogue.messages.size(), 1u);
    EXPECT_EQ(b.dialogue.messages[0].titre, "Aucune union s\xE9lectionn\xE9" "e");
    EXPECT_EQ(b.dialogue.messages[0].texte,
              "La personne en cours n'a pas d'union.\r\nVoulez-vous cr\xE9" "er une union monoparentale pour "
              "pouvoir ajouter un enfant ?");
    const auto f = FamillePourEnfant(b.e, p, 0);
    EXPECT_EQ(b.F(f).Mari, p);
    EXPECT_EQ(b.P(p).Unions[1], f);
    b.LiensIntacts();
}

TEST(AjouterEnfant, NouvelleFicheNommeeEtDatee) {
    const struct {
        int pere, mere;
        const char* naissance;
    } cas[] = {
        {1750, 1755, "vers 1782"},
        {0, 1760, "vers 1790"},
        {1990, 2000, "15/03/2023"},  // 2025 est au-delà de l'année en cours : aujourd'hui
        {0, 0, ""},
    };
    for (const auto& c : cas) {
        Banc b;
        const auto pere = b.Personne("DUPONT", "Jean", 'M', c.pere);
        const auto f = ChoisirConjoint(b.e, pere, b.Personne("MARTIN", "Marie", 'F', c.mere));
        const auto enfant = ChoisirEnfant(b.e, f, 0);
        ASSERT_GT(enfant, 0);
        EXPECT_EQ(b.P(enfant).Nom, "DUPONT");  // le nom du père l'emporte
        EXPECT_EQ(b.P(enfant).Naissance.Date, c.naissance);
        if (*c.naissance) {
            EXPECT_EQ(b.P(enfant).Naissance.DateTri.str(), CleDate(c.naissance));
        }
        EXPECT_EQ(b.P(enfant).NumParents, f);
        b.LiensIntacts();
    }
}

TEST(AjouterEnfant, VingtCinqEnfantsAuPlus) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    const auto f = FamillePourEnfant(b.e, p, 0);
    for (int i = 0; i < kMaxEnfants; ++i) ASSERT_GT(ChoisirEnfant(b.e, f, 0), 0);
    EXPECT_EQ(FamillePourEnfant(b.e, p, f), 0);
    const auto orphelin = b.Personne("DUPONT", "Z", 'M');
    EXPECT_EQ(ChoisirEnfant(b.e, f, orphelin), 0);
    EXPECT_EQ(b.P(orphelin).NumParents, 0);
    b.LiensIntacts();
}

TEST(AjouterEnfant, NesLeMemeJourRangesParNumero) {
    Banc b;
    const auto f = FamillePourEnfant(b.e, b.Personne("DUPONT", "Jean", 'M'), 0);
    const auto a = b.Personne("DUPONT", "A", 'M', 1780);
    const auto c = b.Personne("DUPONT", "C", 'M', 1770);
    const auto d = b.Personne("DUPONT", "D", 'M', 1780);
    ChoisirEnfant(b.e, f, d);
    ChoisirEnfant(b.e, f, a);
    ChoisirEnfant(b.e, f, c);
    EXPECT_EQ(b.F(f).Enfants(1), c);
    EXPECT_EQ(b.F(f).Enfants(2), a);
    EXPECT_EQ(b.F(f).Enfants(3), d);
    EnleverEnfant(b.e, a);
    EXPECT_EQ(b.F(f).Enfants(2), d);
    EXPECT_EQ(b.F(f).Enfants(3), 0);
    b.LiensIntacts();
}

// Des milliers d'ajouts et de retraits tirés au hasard (graine fixe) sur une
// petite base : le double sens des liens tient après chacun, limites comprises.
TEST(EditionLiens, HasardGardeLesLiens) {
    Banc b;
    std::mt19937 hasard(1750);
    const auto tirer = [&](int n) { return static_cast<std::int32_t>(hasard() % static_cast<unsigned>(n)); };
    const char sexes[] = {'M', 'F', ' '};
    for (int i = 0; i < 12; ++i) b.Personne("DUPONT", "P", sexes[i % 3], 1700 + 5 * i);
    const auto quelqu_un = [&] { return 1 + tirer(b.base.NbPersos + 1); };  // parfois un numéro libre
    const auto une_famille = [&] { return b.base.NbFamis > 0 ? 1 + tirer(b.base.NbFamis) : 0; };
    bool septUnions = false, vingtCinq = false;
    int tours = 0;
    for (int pas = 0; pas < 4000; ++pas) {
        const auto p = quelqu_un();
        const bool existe = PersonneExiste(b.base, p);
        b.dialogue.ReponseSuivante(tirer(2) ? Bouton::Oui : Bouton::Non);
        b.dialogue.ReponseSuivante(tirer(2) ? Bouton::Oui : Bouton::Non);
        switch (tirer(9)) {
            case 0: if (existe) ChoisirParents(b.e, p, tirer(3) ? une_famille() : 0); break;
            case 1: EnleverParents(b.e, p); break;
            case 2: if (existe) ChoisirConjoint(b.e, p, quelqu_un()); break;
            case 3: if (existe && b.P(p).Unions[1] > 0) EnleverUnion(b.e, p, b.P(p).Unions[1 + tirer(kMaxUnions)]); break;
            case 4: {
                const auto f = FamillePourEnfant(b.e, p, existe ? b.P(p).Unions[1] : 0);
                if (f > 0) ChoisirEnfant(b.e, f, quelqu_un());
                break;
            }
            case 5: EnleverEnfant(b.e, quelqu_un()); break;
            case 6: if (existe && b.P(p).Unions[1] > 0) AjouterConjointManquant(b.e, p, b.P(p).Unions[1]); break;
            case 7: if (existe) ChoisirConjoint(b.e, p, p); break;
            // Surtout les premières familles, pour qu'elles se remplissent jusqu'à 25.
            default: if (b.base.NbFamis > 0) ChoisirEnfant(b.e, 1 + tirer(std::min(b.base.NbFamis, 3)), tirer(2) ? 0 : quelqu_un()); break;
        }
        b.dialogue.messages.clear();
        const auto fautes = VerifierLiens(b.base);
        ASSERT_TRUE(fautes.empty()) << "pas " << pas << " : " << fautes.front();
        if (b.base.NbPersos > 400) break;  // la base reste petite pour que les limites servent
        for (std::int32_t n = 1; n <= b.base.NbPersos; ++n) septUnions |= b.P(n).Unions[kMaxUnions] != 0;
        for (std::int32_t f = 1; f <= b.base.NbFamis; ++f) vingtCinq |= b.F(f).Enfants(kMaxEnfants) != 0;
        tours = pas;
    }
    // Les deux limites ont été atteintes en chemin.
    EXPECT_TRUE(septUnions);
    EXPECT_TRUE(vingtCinq);
    EXPECT_GT(tours, 1000);
}

}  // namespace
}  // namespace arbolix
