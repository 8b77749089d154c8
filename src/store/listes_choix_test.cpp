#include "store/listes_choix.h"

#include <gtest/gtest.h>

namespace arbolix {
namespace {

// La dernière valeur ajoutée est retenue pour aller vite : retirée ou vidée, elle doit revenir.
TEST(ListeChoix, UneValeurRetireeOuVideeSeRajoute) {
    ListeChoix l;
    l.Ajouter("Martin");
    l.Ajouter("Martin");
    l.Ajouter("");
    EXPECT_EQ(l.size(), 1u);
    l.Retirer("Martin");
    l.Ajouter("Martin");
    EXPECT_TRUE(l.Contient("Martin"));
    l.clear();
    l.Ajouter("Martin");
    EXPECT_TRUE(l.Contient("Martin"));
    EXPECT_EQ(l.Triee(), std::vector<std::string>{"Martin"});
}

}  // namespace
}  // namespace arbolix
