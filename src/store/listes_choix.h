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
    // Une valeur déjà là ne coûte qu'une recherche : la lecture d'un fichier en propose des millions.
    void Ajouter(std::string_view valeur) {
        if (!valeur.empty() && valeurs_.find(valeur) == valeurs_.end()) valeurs_.emplace(valeur);
    }
    void Retirer(std::string_view valeur) {
        if (const auto it = valeurs_.find(valeur); it != valeurs_.end()) valeurs_.erase(it);
    }
    bool Contient(std::string_view valeur) const { return valeurs_.find(valeur) != valeurs_.end(); }
    std::size_t size() const { return valeurs_.size(); }
    bool empty() const { return valeurs_.empty(); }
    void clear() { valeurs_.clear(); }
    std::vector<std::string> Triee() const;

private:
    struct Hachage {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>{}(s); }
    };
    std::unordered_set<std::string, Hachage, std::equal_to<>> valeurs_;
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
