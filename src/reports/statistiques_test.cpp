#include "reports/statistiques.h"

#include <gtest/gtest.h>

#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "store/selection.h"

namespace arbolix {
namespace {

std::string Fixture(const char* nom) {
    return essais::LireOctets(std::string(ARBOLIX_DONNEES) + "/stats/" + nom);
}

// "|" pour CR LF et "^" pour la tabulation : les blocs attendus tiennent sur une ligne.
std::string Attendu(std::string_view s) {
    std::string r;
    for (char c : s) r += c == '|' ? std::string("\r\n") : c == '^' ? std::string("\t") : std::string(1, c);
    return r;
}

Statistiques Etablir(const essai::Lecture& l, std::vector<int> choix) {
    const ContexteStatistiques ctx{l.base, l.options, "famille.ged", "Arbolix", "/opt/arbolix", 2026};
    return EtablirStatistiques(ctx, choix);
}

// Ce qui suit la tête : le bloc d'une statistique seule.
std::string Bloc(const essai::Lecture& l, int choix) {
    const std::string t = Etablir(l, {choix}).texte;
    const std::string fin = "du tableur.\r\n";
    return t.substr(t.find(fin) + fin.size());
}

// Sept personnes : une femme sans enfant, une femme née « vers », des hommes sans décès, une
// date mois-année en 1803 (1803 - 3 divisible par 12), des actes de 1795 à 1900.
TEST(Statistiques, ChaqueBlocSurLaFamilleDEssai) {
    essai::Lecture l;
    l.LireTout(Fixture("famille.ged"));
    ToutSelectionner(l.base);
    ASSERT_EQ(PopulationStatistiques(l.base), 7);
    struct Cas {
        int choix;
        const char* bloc;
    } const cas[] = {
        {0, "r\xE9partition par sexe :|hommes^4|femmes^3|taux de masculinit\xE9^133,3 %||"},
        {1,
         "esp\xE9rance de vie :|\xE2ge moyen au d\xE9\x63\xE8s :|"
         "hommes^50,5^ ans (calcul\xE9 avec ^2^ personnes)|femmes^78,5^ ans (calcul\xE9 avec ^2^ personnes)|"
         "doyen : ^DUPONT Jean \xB0\x31\x37\x39\x35 +1870 (75 ans)|doyenne : ^MARTIN Marie "
         "\xB0\x31\x38\x30\x30 +1880 (80 ans)|"
         "r\xE9partition des \xE2ges au d\xE9\x63\xE8s :|tranche d'\xE2ge^hommes^femmes|0  -  9  ans  |10 - "
         "19 ans |"
         "20 - 29 ans ^1^0|30 - 39 ans |40 - 49 ans |50 - 59 ans |60 - 69 ans |70 - 79 ans ^1^1|"
         "80 - 89 ans ^0^1|90 - 99 ans |100 - 109 ans |110 - 119 ans |120 - 129 ans ||"},
        {2,
         "\xC2ge moyen au mariage :|hommes^25,0^ ans (calcul\xE9 avec ^2^ personnes)|"
         "plus jeune : ^DUPONT Jean \xB0\x31\x37\x39\x35 x1820 (25 ans)|moins jeune : ^DUPONT Louis "
         "\xB0\x31\x38\x32\x34 x1849 (25 ans)|"
         "femmes^20,0^ ans (calcul\xE9 avec ^1^ personnes)|plus jeune : ^MARTIN Marie \xB0\x31\x38\x30\x30 "
         "x1820 (20 ans)|"
         "moins jeune : ^MARTIN Marie \xB0\x31\x38\x30\x30 x1820 (20 ans)|"
         "1,0 enfants en moyenne par femme (calcul\xE9 avec ^3^ femmes)|"
         "nombre maxi d'enfants par femme : 3 enfants pour MARTIN Marie \xB0\x31\x38\x30\x30 +1880|"},
        {3,
         "1 personnes c\xE9libataires d\xE9\x63\xE9\x64\xE9\x65s apr\xE8s 50 ans|soit 14,3 % des personnes|"},
        {4,
         "r\xE9partition des actes NMD par mois :|mois^naissances^mariages^d\xE9\x63\xE8s|janvier^0^0^1|"
         "f\xE9vrier^1^0^0|mars^2^0^0|avril^1^0^0|mai^0^0^0|juin^0^1^0|juillet^0^0^0|ao\xFBt^0^0^0|"
         "septembre^0^0^0|octobre^0^0^0|novembre^0^0^1|d\xE9\x63\x65mbre^1^0^1|"
         "r\xE9partition des actes NMD par d\xE9\x63\x65nnie "
         ":|d\xE9\x63\x65nnie^naissances^mariages^d\xE9\x63\xE8s|"
         "1790 - 1799^1^0^0|1800 - 1809^2^0^0|1810 - 1819^0^0^0|1820 - 1829^3^1^0|1830 - 1839^0^0^0|"
         "1840 - 1849^0^1^0|1850 - 1859^0^0^1|1860 - 1869^0^0^0|1870 - 1879^0^0^1|1880 - 1889^0^0^1|"
         "1890 - 1899^0^0^0|1900 - 1909^0^0^1|"},
        {5,
         "r\xE9partition des naissances par signe astrologique :|b\xE9lier^1|taureau^0|g\xE9meaux^0|cancer^0|"
         "lion^0|vierge^0|balance^0|scorpion^0|sagittaire^1|capricorne^0|verseau^1|poissons^1|"},
        {6,
         "r\xE9partition des naissances par signe astrologique chinois :|rat^1|boeuf^0|tigre^1|li\xE8vre^0|"
         "dragon^0|serpent^0|cheval^0|ch\xE8vre^1|singe^0|coq^0|chien^2|porc^2|"},
        {7, "noms les plus fr\xE9quents :|DUPONT^4|MARTIN^2|DURAND^1||"},
        {8, "pr\xE9noms masculins les plus fr\xE9quents :|Pierre^1|Paul^1|Louis^1|Jean^1||"},
        {9, "pr\xE9noms f\xE9minins les plus fr\xE9quents :|Marie^1|Jeanne^1|Anne^1||"},
        {10, "professions les plus fr\xE9quentes :|laboureur^2|couturi\xE8re^1||"},
    };
    for (const auto& c : cas) EXPECT_EQ(Bloc(l, c.choix), Attendu(c.bloc)) << "choix " << c.choix;

    const Statistiques tout = Etablir(l, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(
        tout.texte.rfind(Attendu("Statistiques du fichier famille.ged||7 personnes||Pour exploiter"), 0), 0u);
    EXPECT_NE(tout.texte.find("de Arbolix : /opt/arbolix et copiez-collez"), std::string::npos);
    // Les graphiques : sexe, âges au décès, mois, décennies, signes, signes chinois.
    ASSERT_EQ(tout.repartitions.size(), 6u);
    EXPECT_EQ(tout.repartitions[2].etiquettes.size(), 12u);
    EXPECT_EQ(tout.repartitions[2].valeurs[0][2], 2);  // mars, naissances
}

// Sans femme, sans date, âges impossibles : un « - » là où le diviseur est nul, et rien ne casse.
TEST(Statistiques, DiviseursNulsEtAgesImpossibles) {
    essai::Lecture l;
    l.Lire(
        "0 @I1@ INDI|1 NAME Vieux /A/|1 SEX M|1 BIRT|2 DATE 1700|1 DEAT|2 DATE 1860|"
        "0 @I2@ INDI|1 NAME Rebours /B/|1 SEX M|1 BIRT|2 DATE 1900|1 DEAT|2 DATE 1890|"
        "0 @I3@ INDI|1 NAME Rien /C/|1 SEX M");
    ToutSelectionner(l.base);
    EXPECT_EQ(Bloc(l, 0),
              Attendu("r\xE9partition par sexe :|hommes^3|femmes^0|taux de masculinit\xE9^- %||"));
    const std::string ages = Bloc(l, 1);
    // 160 ans et -10 ans comptent dans la moyenne mais dans aucune tranche.
    EXPECT_NE(ages.find(Attendu("hommes^75,0^ ans (calcul\xE9 avec ^2^ personnes)|femmes^-^")),
              std::string::npos);
    EXPECT_NE(ages.find(Attendu("(160 ans)|doyenne : ^-|")), std::string::npos);
    EXPECT_EQ(ages.find(Attendu("ans ^")), std::string::npos);
    EXPECT_NE(Bloc(l, 2).find(Attendu("femmes^-^ ans (calcul\xE9 avec ^0^ personnes)|plus jeune : ^-|")),
              std::string::npos);

    // Une sélection vide : population nulle, pourcentage « - ».
    for (std::int32_t i = 1; i <= l.base.NbPersos; ++i) l.base.Persos[i].Sel = kFaux;
    EXPECT_EQ(PopulationStatistiques(l.base), 0);
    EXPECT_EQ(Bloc(l, 3), Attendu("0 personnes c\xE9libataires d\xE9\x63\xE9\x64\xE9\x65s apr\xE8s 50 "
                                  "ans|soit - % des personnes|"));
}

}  // namespace
}  // namespace arbolix
