// Un long travail (la lecture d'un fichier) sur un fil à lui, pendant que la fenêtre reste vivante.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/progression.h"

namespace arbolix {

// La progression que voit le travail. La fenêtre montre les textes tels qu'ils sont au dernier
// LaisserPasser, le moment où un formulaire se rafraîchit : un texte posé puis ôté entre deux (le
// mot d'agrandissement de la base, cent fois par seconde) n'efface pas le pourcentage affiché.
// Entre deux passages de la fenêtre, le dernier remplace le précédent. L'annulation arrive à
// chaque LaisserPasser. Rien n'y touche à la fenêtre elle-même.
class RelaisProgression : public Progression {
public:
    // Côté travail.
    void Compteur(std::string_view texte) override;
    void Avancement(std::string_view texte) override;
    void LaisserPasser() override;
    // Lu à chaque fiche : une copie propre au travail, reprise à LaisserPasser, sans verrou.
    bool Annule() const override { return annuleVu_; }
    void Finir();

    // Côté fenêtre : remet les textes en attente à sa progression ; vrai quand le travail a fini.
    bool Transmettre(Progression& fenetre);
    // Attend la fin du travail, au plus ce délai.
    void Attendre(std::chrono::milliseconds delai);
    void Annuler();

private:
    void Rendre();  // sous le verrou : les textes posés deviennent ceux que la fenêtre prendra

    std::mutex verrou_;
    std::condition_variable signal_;
    std::optional<std::string> compteur_, avancement_;          // rendus à LaisserPasser, pour la fenêtre
    std::optional<std::string> compteurPose_, avancementPose_;  // au travail seul, sans verrou
    bool annulation_ = false;
    bool fini_ = false;
    bool annuleVu_ = false;
};

// Lance travail sur un autre fil avec un relais pour progression, et rend la main quand il a fini.
// Entre-temps, ce fil-ci montre les textes et laisse passer les évènements au moins tous les
// vingtièmes de seconde ; l'annulation de progression est transmise au travail. Une exception du
// travail ressort ici. Le travail ne doit toucher à rien que ce fil-ci lise pendant l'attente.
void TravaillerEnFond(Progression& progression, const std::function<void(Progression&)>& travail);

// Au début de main, avant tout autre fil : les fils de travail prennent leur mémoire dans l'arène du
// programme. glibc donnerait au fil de lecture une arène à lui, faite de tas de 64 Mo agrandis pas à
// pas, où la base d'un grand fichier se remplit nettement plus lentement.
void PreparerTravailEnFond();

}  // namespace arbolix
