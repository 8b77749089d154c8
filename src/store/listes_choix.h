// Listes de saisie du fiche et de l'éditeur d'évènement : noms, prénoms, métiers, lieux, sources.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace arbolix {

// Une liste déroulante vue du noyau : sans doublon, triée quand on la montre.
class ListeChoix {
public:
    void Ajouter(std::string_view valeur) {
        if (!valeur.empty()) valeurs_.emplace(valeur);
    }
    bool Contient(std::string_view valeur) const { return valeurs_.count(std::string(valeur)) != 0; }
    std::size_t size() const { return valeurs_.size(); }
    bool empty() const { return valeurs_.empty(); }
    void clear() { valeurs_.clear(); }
    std::vector<std::string> Triee() const;

private:
    std::unordered_set<std::string> valeurs_;
};

struct ListesSaisie {
    ListeChoix Nom;
    ListeChoix Prenoms;
    ListeChoix Metier;
    ListeChoix Lieu;
    ListeChoix Source;
    void clear() {
        Nom.clear();
        Prenoms.clear();
        Metier.clear();
        Lieu.clear();
        Source.clear();
    }
};

}  // namespace arbolix
