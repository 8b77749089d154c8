#include "card/metiers.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

TEST(EnregistrerMetier, CodesEtListe) {
    const struct {
        const char* avant;  // CodesMetiers déjà là
        const char* texte;
        const char* codes;
        std::vector<std::string> liste;
    } cas[] = {
        {"", "Tisserand", "Ti", {"Tisserand"}},
        {"Ti", "Tisserand", "Ti", {"Tisserand"}},
        {"La", "Tisserand", "La,Ti", {"Tisserand"}},
        {"", "Laboureur puis Meunier", "La,Me", {"Laboureur", "Meunier"}},
        {"", "Laboureur, Meunier,Tisserand", "La,Me,Ti", {"Laboureur", "Meunier", "Tisserand"}},
        {"", "", "", {}},
    };
    for (const auto& c : cas) {
        Perso p;
        p.CodesMetiers = c.avant;
        ListeChoix liste;
        EnregistrerMetier(p, c.texte, liste);
        EXPECT_EQ(p.Metier, c.texte);
        EXPECT_EQ(p.CodesMetiers, c.codes) << c.texte;
        EXPECT_EQ(liste.Triee(), c.liste) << c.texte;
    }
}

}  // namespace
}  // namespace arbolix
