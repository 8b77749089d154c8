#include "card/candidats.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "aides/base_essai.h"
#include "dates/cle_date.h"
#include "store/aides_texte.h"

namespace arbolix {
namespace {

struct Banc {
    Base base;
    Options options;

    std::int32_t Personne(const char* nom, const char* prenoms, char sexe, int naissance = 0, int deces = 0) {
        const std::int32_t n = NouvellePersonne(base, true, false);
        Perso& p = base.Persos[n];
        p.Nom = nom;
        p.Prenoms = prenoms;
        p.CodeNom = CodeSon(nom);
        p.Sexe = sexe;
        const auto dater = [](Acte& a, int annee) {
            if (annee != 0) essai::Dater(a, std::to_string(annee));
        };
        dater(p.Naissance, naissance);
        dater(p.Deces, deces);
        return n;
    }
    std::int32_t Famille(std::int32_t mari, std::int32_t femme, int mariage = 0) {
        const std::int32_t f = ++base.NbFamis;
        ++base.NbFamisReels;
        base.Familles[f].Mari = mari;
        base.Familles[f].Femme = femme;
        base.Familles[f].Mariage.Annee = static_cast<std::int16_t>(mariage);
        for (auto n : {mari, femme})
            if (n > 0) base.Persos[n].Unions[1] = f;
        return f;
    }
};

std::string Numero(std::int32_t n) {
    return std::to_string(n);
}
const LigneDePersonne kNumero = [](std::int32_t n) { return "#" + Numero(n); };

TEST(CandidatsParents, PereNeDansLEcartPermis) {
    // Né en 1750, âge mini 15 et maxi 50 : le père doit être né entre 1700 et 1735, bornes exclues.
    const struct {
        int naissancePere;
        bool garde;
    } cas[] = {{1735, false}, {1734, true}, {1700, false}, {1701, true}, {0, true}};
    for (const auto& c : cas) {
        Banc b;
        const auto f = b.Famille(b.Personne("DUPONT", "Pierre", 'M', c.naissancePere), 0);
        const auto p = b.Personne("Dupond", "Jean", 'M', 1750);
        const auto liste = CandidatsParents(b.base, b.options, p);
        EXPECT_EQ(liste.lignes.size(), c.garde ? 1u : 0u) << c.naissancePere;
        EXPECT_EQ(liste.titre, "Parents de Jean Dupond");
        EXPECT_EQ(liste.premiereLigne, " Ajouter...");
        if (c.garde) {
            EXPECT_EQ(NumeroDeLigne(liste.lignes[0]), f);
        }
    }
}

TEST(CandidatsParents, LignesReecritesEtTriees) {
    Banc b;
    const auto pere = b.Personne("DUPONT", "Pierre", 'M', 1720);
    const auto mere = b.Personne("MARTIN", "Marie", 'F', 1725);
    const auto f1 = b.Famille(pere, mere, 1745);
    const auto veuve = b.Personne("DUPONT", "Anne", 'F', 1700);
    const auto f2 = b.Famille(0, veuve);
    b.Famille(b.Personne("MARTIN", "Paul", 'M'), 0);  // autre nom : absent
    b.Famille(0, 0);                                   // famille vide : absente
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    const auto liste = CandidatsParents(b.base, b.options, p);
    ASSERT_EQ(liste.lignes.size(), 2u);
    // Clé : l'année du mariage, sinon celle du père (0 sans père).
    EXPECT_EQ(liste.lignes[0], "DUPONT Anne (\xB0" "1700) F" + std::string("00000") + Numero(f2));
    EXPECT_EQ(liste.lignes[1], "DUPONT Pierre (\xB0" "1720) x 1745 MARTIN Marie (\xB0" "1725) F00000" + Numero(f1));
}

TEST(CandidatsConjoint, SexeEtAnnees) {
    const struct {
        int naissance, deces;
        char sexe;
        bool garde;
    } cas[] = {
        {0, 0, 'F', true},        // sans date de naissance : gardée
        {1770, 0, 'F', true},     // 20 ans d'écart : permis
        {1771, 0, 'F', false},    // 21 : trop
        {1745, 1759, 'F', false}, // morte avant 15 ans
        {1745, 1760, 'F', true},
        {1750, 0, 'M', false},    // même sexe
        {1750, 0, ' ', true},     // sexe inconnu face à un homme
        {1750, 0, 'm', false},    // casse ignorée
    };
    for (const auto& c : cas) {
        Banc b;
        const auto p = b.Personne("DUPONT", "Jean", 'M', 1750);
        const auto s = b.Personne("MARTIN", "Marie", c.sexe, c.naissance, c.deces);
        const auto liste = CandidatsConjoint(b.base, b.options, p, 99, kNumero);
        EXPECT_EQ(liste.lignes.size(), c.garde ? 1u : 0u) << c.naissance << c.sexe;
        EXPECT_EQ(liste.premiereLigne, " Ajouter une nouvelle fiche... P000099");
        if (c.garde) {
            EXPECT_EQ(liste.lignes[0], "#" + Numero(s) + " P00000" + Numero(s));
        }
    }
}

TEST(CandidatsConjoint, SansAnneeMortJeuneEcarteeEtConjointsActuelsOtes) {
    Banc b;
    const auto p = b.Personne("DUPONT", "Jean", 'M');
    const auto epouse = b.Personne("MARTIN", "Marie", 'F');
    b.Famille(p, epouse);
    b.Personne("MARTIN", "Jeanne", 'F', 1750, 1760);
    const auto zoe = b.Personne("ALBERT", "Zo\xE9", 'F', 1750, 1800);
    b.Personne("", "Sans nom", 'F');
    const auto liste = CandidatsConjoint(b.base, b.options, p, 99, kNumero);
    ASSERT_EQ(liste.lignes.size(), 1u);
    EXPECT_EQ(NumeroDeLigne(liste.lignes[0]), zoe);
}

TEST(CandidatsConjoint, SansFreresNiSoeurs) {
    Banc b;
    const auto pere = b.Personne("DUPONT", "Jean", 'M');
    const auto mere = b.Personne("MARTIN", "Marie", 'F');
    const auto autre = b.Personne("DURAND", "Anne", 'F');
    const auto parents = b.Famille(pere, mere);
    const auto secondes = b.Famille(pere, autre);
    const auto p = b.Personne("DUPONT", "Luc", 'M');
    const auto soeur = b.Personne("DUPONT", "Lise", 'F');
    const auto demiSoeur = b.Personne("DUPONT", "Rose", 'F');
    const auto cousine = b.Personne("DUPONT", "Alice", 'F');
    b.base.Persos[p].NumParents = parents;
    b.base.Persos[soeur].NumParents = parents;
    b.base.Persos[demiSoeur].NumParents = secondes;
    b.base.Persos[cousine].NumParents = b.Famille(0, 0);
    std::vector<std::int32_t> gardes;
    for (const auto& l : CandidatsConjoint(b.base, b.options, p, 99, kNumero).lignes)
        gardes.push_back(NumeroDeLigne(l));
    std::sort(gardes.begin(), gardes.end());
    EXPECT_EQ(gardes, (std::vector<std::int32_t>{mere, autre, cousine}));
}

TEST(CandidatsEnfant, NomDUnParentSansParentsDansLEcart) {
    Banc b;
    const auto pere = b.Personne("DUPONT", "Jean", 'M', 1750);
    const auto mere = b.Personne("MARTIN", "Marie", 'F', 1755);
    const auto f = b.Famille(pere, mere);
    const auto luc = b.Personne("dupont", "Luc", 'M', 1780);
    const auto ana = b.Personne("MARTIN", "Ana", 'F');
    b.Personne("DUPONT", "Trop jeune", 'M', 1765);  // pas après 1750 + 15
    b.Personne("DUPONT", "Trop tard", 'M', 1800);   // pas avant 1750 + 50
    b.Personne("DURAND", "Autre", 'M', 1780);
    const auto deja = b.Personne("DUPONT", "Lui", 'M', 1780);
    b.base.Persos[deja].NumParents = 7;
    const auto liste = CandidatsEnfant(b.base, b.options, pere, f, 42, kNumero);
    EXPECT_EQ(liste.titre, "Enfant de Jean DUPONT et Marie MARTIN");
    ASSERT_EQ(liste.lignes.size(), 2u);
    // Triées par nom puis prénoms, sans la casse.
    EXPECT_EQ(NumeroDeLigne(liste.lignes[0]), luc);
    EXPECT_EQ(NumeroDeLigne(liste.lignes[1]), ana);
}

TEST(CandidatsTemoin, VivantsEtMajeursLAnneeDeLActe) {
    // Acte de 1749 : Y = 1750 ; âge mini 15, âge maxi au décès 100.
    const struct {
        int naissance, deces;
        bool garde;
    } cas[] = {
        {0, 0, true},     {1735, 0, true},  {1736, 0, false},    // majeur : né en 1735 au plus
        {1650, 0, false}, {1651, 0, true},                       // pas plus de 100 ans
        {1700, 1750, false}, {1700, 1751, true},                 // mort après l'acte
    };
    for (const auto& c : cas) {
        Banc b;
        b.Personne("DUPONT", "Jean", 'M', c.naissance, c.deces);
        const auto liste = CandidatsTemoin(b.base, b.options, "12/03/1749", kNumero);
        EXPECT_EQ(liste.lignes.size(), c.garde ? 1u : 0u) << c.naissance << " " << c.deces;
        EXPECT_EQ(liste.titre, "Ajouter un t\xE9moin...");
    }
}

}  // namespace
}  // namespace arbolix
