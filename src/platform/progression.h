// Progression : ce qu'un long travail montre à l'utilisateur et le drapeau d'annulation qu'il lui laisse.
#pragma once

#include <string_view>

namespace arbolix {

// La fenêtre l'implémente sur les étiquettes Compteur et Progression de son
// dialogue et sur la pompe d'évènements ; les tests et la ligne de commande
// prennent celle-ci, muette et jamais annulée.
class Progression {
public:
    virtual ~Progression() = default;
    // Texte de l'étiquette Compteur (nombres lus, étape en cours).
    virtual void Compteur(std::string_view /*texte*/) {}
    // Texte de l'étiquette Progression ("42 %", mot d'attente).
    virtual void Avancement(std::string_view /*texte*/) {}
    // Laisse passer les évènements : c'est là qu'un clic sur Annuler arrive.
    virtual void LaisserPasser() {}
    virtual bool Annule() const { return false; }
};

}  // namespace arbolix
