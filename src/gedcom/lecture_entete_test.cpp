#include <gtest/gtest.h>

#include "gedcom/lecture_essai.h"

namespace arbolix {
namespace {

// Le nom du généalogiste se lit comme l'écriture le met : prénoms, puis nom entre barres.
TEST(LectureEntete, NomDuGenealogiste) {
    const struct {
        std::string_view nom, attendu;
    } cas[] = {
        {"Claire /Martin/", "Nom=Martin; Prenoms=Claire"},
        {"Paul  /Gen/", "Nom=Gen; Prenoms=Paul"},
        {"/Durand Alice/", "Nom=Durand Alice"},
        {"VOYEAUD Yannick", "Nom=VOYEAUD Yannick"},
        {"Jean /Martin/ fils", "Nom=Martin fils; Prenoms=Jean"},
    };
    for (const auto& c : cas) {
        essai::Lecture l;
        l.Lire("1 SUBM @U1@|0 @U1@ SUBM|1 NAME " + std::string(c.nom));
        EXPECT_EQ(l.P(-1), c.attendu) << c.nom;
    }
}

}  // namespace
}  // namespace arbolix
