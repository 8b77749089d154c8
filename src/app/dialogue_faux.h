// Faux Dialogue des essais : note chaque message et répond comme on le lui a dit.
#pragma once

#include <deque>
#include <string>
#include <vector>

#include "platform/dialogue.h"

namespace arbolix {

class DialogueFaux : public Dialogue {
public:
    struct Note {
        std::string titre, texte;
        Icone icone;
    };
    std::vector<Note> messages;

    // Réponse du prochain message ; sans réponse préparée : Ok, ou Oui pour une question.
    void ReponseSuivante(Bouton b) { reponses_.push_back(b); }

    Bouton Message(std::string_view titre, std::string_view texte, Icone icone, Boutons boutons) override {
        messages.push_back({std::string(titre), std::string(texte), icone});
        if (!reponses_.empty()) {
            const Bouton b = reponses_.front();
            reponses_.pop_front();
            return b;
        }
        return boutons == Boutons::OuiNon || boutons == Boutons::OuiNonAnnuler ? Bouton::Oui : Bouton::Ok;
    }
    std::optional<std::string> Saisie(std::string_view, std::string_view, std::string_view defaut) override {
        return std::string(defaut);
    }
    std::optional<std::string> ChoisirFichierOuvrir(std::string_view, std::string_view,
                                                    std::string_view) override {
        return std::nullopt;
    }
    std::optional<std::string> ChoisirFichierEnregistrer(std::string_view, std::string_view,
                                                         std::string_view) override {
        return std::nullopt;
    }
    std::optional<std::string> ChoisirDossier(std::string_view, std::string_view) override {
        return std::nullopt;
    }
    bool OuvrirDansProgramme(std::string_view) override { return true; }

private:
    std::deque<Bouton> reponses_;
};

}  // namespace arbolix
