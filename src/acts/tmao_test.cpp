#include "acts/tmao.h"

#include <gtest/gtest.h>

#include "aides/dialogue_factice.h"

namespace arbolix {
namespace {

std::string Chaine(std::string_view t) {
    return std::string(1, static_cast<char>(t.size())) + std::string(t);
}

// Un acte écrit à la main, octet par octet, comme le ferait un autre programme.
std::string ActeALaMain(std::string_view nom, std::string_view prenom) {
    std::string corps = Chaine(nom) + Chaine(prenom) + std::string(4, '\0') + std::string(6, '\0');
    corps += std::string("\x04\x0C\x01\x03\x00", 5) + std::string(4, '\0');
    return std::string(1, static_cast<char>(corps.size())) + std::string(1, '\0') + corps;
}

TEST(TMAO, ActeEcritALaMain) {
    const std::string pied = Chaine("Table des naissances de Nancy") + std::string(19, '\0');
    const std::string octets = std::string("\x01\x00\x01\x00", 4) + ActeALaMain(" DUPONT ", "Jean") + pied;
    const LectureTMAO l = LireTMAO(octets, "essai.TM");
    ASSERT_TRUE(l.Ok) << l.Erreur;
    ASSERT_EQ(l.Actes.size(), 1u);
    EXPECT_EQ(l.Actes[0].Nom1, "DUPONT");
    EXPECT_EQ(l.Actes[0].Prenom1, "Jean");
    EXPECT_EQ(l.Actes[0].Nom2, "");
    EXPECT_EQ(l.Actes[0].LignesActe[3], "");
    EXPECT_EQ(DateTMAO(l.Actes[0]), "12/VEND/03");
    EXPECT_EQ(TypeDansPied(octets), 'N');
}

TEST(TMAO, EcrireRelireGardeChaqueChampDansSesLimites) {
    ActeTMAO a;
    a.Nom1 = std::string(30, 'N');
    a.Prenom1 = PrenomAvecAge("Jean-Baptiste Nicolas Joseph", "27");
    a.Lignes1 = {"fils de  Pierre ,  laboureur", "x", std::string(40, 'L'), "(t\xE9moin )"};
    a.Nom2 = "\xC9TIENNE";
    a.Prenom2 = "Marie-\xC9lise";
    a.Lignes2 = {"", "", "",
                 "\x9C"
                 "uvre"};
    a.Jour = 3;
    a.Mois = 11;
    a.Annee = 1750;
    a.LignesActe = {"Nancy", "", "", "fin"};
    const LectureTMAO l = LireTMAO(EcrireTMAO({a, ActeTMAO{}}, PiedTMAO('D')), "x.TM");
    ASSERT_TRUE(l.Ok) << l.Erreur;
    ASSERT_EQ(l.Actes.size(), 2u);
    ActeTMAO attendu = a;
    attendu.Nom1 = std::string(25, 'N');
    attendu.Prenom1 = "Jean-Baptiste Nicola (27)";
    attendu.Lignes1 = {"fils de Pierre, laboureur", "x", std::string(35, 'L'), "(t\xE9moin)"};
    attendu.Lignes2[3] = "ouvre";  // œ n'a pas de place dans la page OEM
    EXPECT_EQ(l.Actes[0], attendu);
    EXPECT_EQ(l.Actes[1], ActeTMAO{});
    EXPECT_EQ(DateTMAO(l.Actes[0]), "03/11/1750");
}

TEST(TMAO, DatesEcritesPuisRelues) {
    const struct {
        const char* date;
        const char* relue;
    } cas[] = {
        {"03/11/1750", "03/11/1750"}, {"12/vend/3", "12/VEND/03"}, {"vers 1750", "00/00/1750"},
        {"1750", "00/00/1750"},       {"", "00/00/0000"},          {"11/1750", "00/00/1750"},
    };
    for (const auto& c : cas) {
        ActeTMAO a;
        DateVersTMAO(c.date, a);
        EXPECT_EQ(DateTMAO(a), c.relue) << c.date;
    }
}

TEST(TMAO, TypeDuPied) {
    const std::string loin = "Table des mariages" + std::string(300, 'x');
    const struct {
        std::string octets;
        char type;
    } cas[] = {
        {"court : Table des naissances", 'N'},  // moins de 200 octets : lu depuis le début
        {"Table des mariages", 'M'},
        {"Table des d\x82"
         "c\x8As",
         'D'},
        {"Table des ascendances", 0},
        {loin, 0},
    };
    for (const auto& c : cas) EXPECT_EQ(TypeDansPied(c.octets), c.type) << c.octets;

    DialogueFactice d;
    d.ReponseSuivante(Bouton::Reessayer);
    EXPECT_EQ(DemanderTypeActe(d), 'M');
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Type d'acte introuvable");
}

TEST(TMAO, FichiersAbimesRefusesEnNommantFichierEtActe) {
    const std::string bon = EcrireTMAO({ActeTMAO{}, ActeTMAO{}}, "");
    std::string gonfle = bon;
    gonfle[0] = 9;  // annonce 9 actes
    std::string longueur = bon;
    longueur[6] = '\x7F';  // le nom du premier acte passe la fin
    const struct {
        std::string octets;
        const char* message;
    } cas[] = {
        {"", "Le fichier TMAO f.TM est vide."},
        {"\x01", "Le fichier TMAO f.TM est tronqu\xE9 : il s'arr\xEAte avant le nombre d'actes."},
        {bon.substr(0, 30), "l'acte 2 s'arr\xEAte \xE0 l'octet 30."},
        {gonfle, "il annonce 9 actes et l'acte 3"},
        {longueur, "l'acte 1 s'arr\xEAte"},
    };
    for (const auto& c : cas) {
        const LectureTMAO l = LireTMAO(c.octets, "f.TM");
        EXPECT_FALSE(l.Ok);
        EXPECT_NE(l.Erreur.find(c.message), std::string::npos) << l.Erreur;
        EXPECT_TRUE(l.Actes.empty());
    }
}

}  // namespace
}  // namespace arbolix
