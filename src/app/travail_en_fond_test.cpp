#include "app/travail_en_fond.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <thread>
#include <vector>

namespace arbolix {
namespace {

// La fenêtre vue par le fil qui attend : elle note ce qu'on lui montre et combien de fois elle pompe,
// et demande l'arrêt dès qu'elle a vu le texte « attente ».
class FenetreNotee : public Progression {
public:
    void Compteur(std::string_view t) override {
        EXPECT_EQ(std::this_thread::get_id(), fil_);
        compteurs.emplace_back(t);
    }
    void Avancement(std::string_view t) override { avancements.emplace_back(t); }
    void LaisserPasser() override {
        EXPECT_EQ(std::this_thread::get_id(), fil_);
        ++pompes;
    }
    bool Annule() const override { return !compteurs.empty() && compteurs.back() == "attente"; }

    std::vector<std::string> compteurs, avancements;
    int pompes = 0;

private:
    std::thread::id fil_ = std::this_thread::get_id();
};

TEST(TravaillerEnFond, TextesDansLOrdreEtAnnulationTransmise) {
    FenetreNotee fenetre;
    std::vector<int> rempli;  // écrit par le travail, lu ici après coup
    std::thread::id filDuTravail;
    TravaillerEnFond(fenetre, [&](Progression& p) {
        filDuTravail = std::this_thread::get_id();
        for (int i = 1; i <= 2000; ++i) {
            rempli.push_back(i);
            p.Compteur(std::to_string(i));
        }
        p.Avancement("100 %");
        p.Compteur("attente");
        // Tourne tant que la demande d'arrêt de la fenêtre ne lui est pas parvenue.
        while (!p.Annule()) p.LaisserPasser();
        p.Compteur("fin");
    });
    EXPECT_NE(filDuTravail, std::this_thread::get_id());
    ASSERT_EQ(rempli.size(), 2000u);
    EXPECT_GE(fenetre.pompes, 1);
    // Des textes peuvent être sautés (le dernier remplace le précédent), jamais remis dans le désordre.
    ASSERT_GE(fenetre.compteurs.size(), 2u);
    EXPECT_EQ(fenetre.compteurs.back(), "fin");
    EXPECT_EQ(fenetre.compteurs[fenetre.compteurs.size() - 2], "attente");
    for (std::size_t k = 1; k + 2 < fenetre.compteurs.size(); ++k)
        EXPECT_LT(std::stoi(fenetre.compteurs[k - 1]), std::stoi(fenetre.compteurs[k]));
    EXPECT_EQ(fenetre.avancements, std::vector<std::string>{"100 %"});
}

// La fenêtre voit les textes du dernier LaisserPasser : un mot posé puis ôté entre deux (comme
// celui de l'agrandissement de la base) ne remplace pas le pourcentage.
TEST(RelaisProgression, TextesDuDernierPassage) {
    RelaisProgression relais;
    FenetreNotee fenetre;
    relais.Avancement("42 %");
    relais.LaisserPasser();
    relais.Avancement("Agrandissement ");
    relais.Avancement("");
    relais.Compteur("1000 personnes");
    relais.Transmettre(fenetre);
    EXPECT_EQ(fenetre.avancements, std::vector<std::string>{"42 %"});
    EXPECT_TRUE(fenetre.compteurs.empty());
    relais.Finir();
    EXPECT_TRUE(relais.Transmettre(fenetre));
    EXPECT_EQ(fenetre.compteurs, std::vector<std::string>{"1000 personnes"});
    EXPECT_EQ(fenetre.avancements, (std::vector<std::string>{"42 %", ""}));
}

TEST(TravaillerEnFond, UneExceptionDuTravailRessortIci) {
    Progression muette;
    EXPECT_THROW(TravaillerEnFond(muette, [](Progression&) { throw std::runtime_error("disque"); }),
                 std::runtime_error);
}

}  // namespace
}  // namespace arbolix
