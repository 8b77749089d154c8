// Un Dialogue pour les tests : note chaque message et répond comme on le lui a dit d'avance.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/dialogue.h"

namespace arbolix {

class DialogueFactice : public Dialogue {
public:
    struct MessageVu {
        std::string titre;
        std::string texte;
        Icone icone;
        Boutons boutons;
        std::optional<Bouton> defaut;
    };

    // Réponses données dans l'ordre aux prochaines boîtes. Sans réponse dite : le bouton
    // par défaut que la boîte nomme (celui d'Entrée), sinon Oui ou Ok.
    void ReponseSuivante(Bouton b) { reponses_.push_back(b); }
    // La prochaine boîte reçoit Entrée : son bouton par défaut, le premier s'il n'y en a pas.
    void EntreeSuivante() { reponses_.push_back(std::nullopt); }
    void SaisieSuivante(std::optional<std::string> s) { saisies_.push_back(std::move(s)); }
    void FichierSuivant(std::optional<std::string> f) { fichiers_.push_back(std::move(f)); }

    Bouton Message(std::string_view titre, std::string_view texte, Icone icone, Boutons boutons,
                   std::optional<Bouton> defaut) override {
        messages.push_back({std::string(titre), std::string(texte), icone, boutons, defaut});
        if (!reponses_.empty()) {
            const std::optional<Bouton> b = reponses_.front();
            reponses_.pop_front();
            return b ? *b : defaut ? *defaut : PremierBouton(boutons);
        }
        if (defaut) return *defaut;
        return boutons == Boutons::OuiNon || boutons == Boutons::OuiNonAnnuler ||
                       boutons == Boutons::HommeFemme
                   ? Bouton::Oui
                   : Bouton::Ok;
    }
    std::optional<std::string> Saisie(std::string_view, std::string_view, std::string_view defaut) override {
        return Prendre(saisies_, std::string(defaut));
    }
    std::optional<std::string> ChoisirFichierOuvrir(std::string_view, std::string_view,
                                                    std::string_view) override {
        return Prendre(fichiers_, std::nullopt);
    }
    std::optional<std::string> ChoisirFichierEnregistrer(std::string_view, std::string_view,
                                                         std::string_view) override {
        return Prendre(fichiers_, std::nullopt);
    }
    std::optional<std::string> ChoisirDossier(std::string_view, std::string_view) override {
        return Prendre(fichiers_, std::nullopt);
    }
    bool OuvrirDansProgramme(std::string_view chemin) override {
        ouverts.emplace_back(chemin);
        return true;
    }

    std::vector<MessageVu> messages;
    std::vector<std::string> ouverts;

private:
    static Bouton PremierBouton(Boutons b) {
        switch (b) {
            case Boutons::OuiNon:
            case Boutons::OuiNonAnnuler:
            case Boutons::HommeFemme:
                return Bouton::Oui;
            case Boutons::AbandonnerReessayerIgnorer:
                return Bouton::Abandonner;
            case Boutons::Ok:
            case Boutons::OkAnnuler:
                break;
        }
        return Bouton::Ok;
    }
    static std::optional<std::string> Prendre(std::deque<std::optional<std::string>>& file,
                                              std::optional<std::string> defaut) {
        if (file.empty()) return defaut;
        auto r = std::move(file.front());
        file.pop_front();
        return r;
    }
    std::deque<std::optional<Bouton>> reponses_;  // nullopt : Entrée
    std::deque<std::optional<std::string>> saisies_;
    std::deque<std::optional<std::string>> fichiers_;
};

}  // namespace arbolix
