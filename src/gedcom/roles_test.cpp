#include "gedcom/roles.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(Roles, TableDesRoles) {
    const Base base;
    const std::pair<std::string_view, std::string_view> cas[] = {
        {"Witness", "T\xE9moin"},
        {"Other", "T\xE9moin"},
        {"Attending", "Participant"},
        {"Informant",
         "d\xE9"
         "clarant"},
        {"Brother/sister in law",
         "beau-fr\xE8re/belle-s\x9C"
         "ur"},
        {"Brother/sister", "fr\xE8re/soeur"},
        {"Father", "p\xE8re"},
        {"Mother", "m\xE8re"},
        {"Father/mother in law", "beau-p\xE8re/belle-m\xE8re"},
        {"Uncle/aunt", "oncle/tante"},
        {"Cousin", "cousin(e)"},
        {"Friend", "ami(e)"},
        {"Officiating priest", "officiant religieux"},
        {"Mentioned", "Cit\xE9"},
        {"Godparent", "Parrain/Marraine"},
        {"Godfather", "Parrain/Marraine"},
        // Hors de la table : inchangé, casse comprise.
        {"Parrain", "Parrain"},
        {"witness", "witness"},
        {"Godmother", "Godmother"},
    };
    for (const auto& [lu, traduit] : cas) EXPECT_EQ(TraduireRole(lu, "BIRT", base, 1, 1), traduit) << lu;
}

TEST(Roles, ParrainOuMarraineSelonLeSexeDuTemoin) {
    Base base;
    base.Persos[2].Sexe = 'F';
    base.Persos[3].Sexe = 'H';
    base.Persos[4].Sexe = 'M';
    base.Persos[1].Bapteme.LiensModif().Temoins.Fixer(1, 2);
    base.Persos[1].Bapteme.LiensModif().Temoins.Fixer(2, 3);
    base.Persos[1].Naissance.LiensModif().Temoins.Fixer(1, 4);
    struct Cas {
        std::string_view contexte;
        int indice;
        std::string_view role;
    };
    const Cas cas[] = {
        {"CHR", 1, "Marraine"},          {"CHR", 2, "Parrain"},          {"BIRT", 1, "Parrain"},
        {"ASSO", 1, "Parrain"},          {"CHR", 3, "Parrain/Marraine"}, {"DEAT", 1, "Parrain/Marraine"},
        {"CHR", 21, "Parrain/Marraine"},
    };
    for (const Cas& c : cas)
        EXPECT_EQ(TraduireRole("Godparent", c.contexte, base, 1, c.indice), c.role) << c.contexte << c.indice;
}

}  // namespace
}  // namespace arbolix
