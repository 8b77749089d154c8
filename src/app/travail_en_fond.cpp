#include "app/travail_en_fond.h"

#include <exception>
#if defined(__GLIBC__)
#include <malloc.h>
#endif
#include <thread>
#include <utility>

namespace arbolix {

void RelaisProgression::Compteur(std::string_view texte) {
    compteurPose_.emplace(texte);
}

void RelaisProgression::Avancement(std::string_view texte) {
    avancementPose_.emplace(texte);
}

void RelaisProgression::Rendre() {
    if (compteurPose_) compteur_ = std::exchange(compteurPose_, std::nullopt);
    if (avancementPose_) avancement_ = std::exchange(avancementPose_, std::nullopt);
}

void RelaisProgression::LaisserPasser() {
    const std::lock_guard garde(verrou_);
    Rendre();
    annuleVu_ = annulation_;
}

void RelaisProgression::Finir() {
    {
        const std::lock_guard garde(verrou_);
        Rendre();
        fini_ = true;
    }
    signal_.notify_one();
}

bool RelaisProgression::Transmettre(Progression& fenetre) {
    std::optional<std::string> compteur, avancement;
    bool fini = false;
    {
        const std::lock_guard garde(verrou_);
        compteur.swap(compteur_);
        avancement.swap(avancement_);
        fini = fini_;
    }
    // Hors du verrou : la fenêtre peut prendre son temps sans retenir le travail.
    if (compteur) fenetre.Compteur(*compteur);
    if (avancement) fenetre.Avancement(*avancement);
    return fini;
}

void RelaisProgression::Attendre(std::chrono::milliseconds delai) {
    std::unique_lock garde(verrou_);
    signal_.wait_for(garde, delai, [this] { return fini_; });
}

void RelaisProgression::Annuler() {
    const std::lock_guard garde(verrou_);
    annulation_ = true;
}

void TravaillerEnFond(Progression& progression, const std::function<void(Progression&)>& travail) {
    RelaisProgression relais;
    std::exception_ptr erreur;
    std::thread fil([&] {
        try {
            travail(relais);
        } catch (...) {
            erreur = std::current_exception();
        }
        relais.Finir();
    });
    // Un vingtième de seconde entre deux pompes : un clic ou un dessin n'attend jamais plus, et
    // des textes qui se suivent de près ne réveillent pas la fenêtre à chaque fois.
    while (!relais.Transmettre(progression)) {
        progression.LaisserPasser();
        if (progression.Annule()) relais.Annuler();
        relais.Attendre(std::chrono::milliseconds(50));
    }
    fil.join();
    if (erreur) std::rethrow_exception(erreur);
}

void PreparerTravailEnFond() {
#if defined(__GLIBC__)
    mallopt(M_ARENA_MAX, 1);
#endif
}

}  // namespace arbolix
