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
    // La même que la précédente (les frères et sœurs, les actes d'un même registre) ne coûte
    // qu'une comparaison.
    void Ajouter(std::string_view valeur) {
        if (valeur.empty() || valeur == derniere_) return;
        if (valeurs_.find(valeur) == valeurs_.end()) valeurs_.emplace(valeur);
        derniere_.assign(valeur);
    }
    void Retirer(std::string_view valeur) {
        if (valeur == derniere_) derniere_.clear();
        if (const auto it = valeurs_.find(valeur); it != valeurs_.end()) valeurs_.erase(it);
    }
    bool Contient(std::string_view valeur) const { return valeurs_.find(valeur) != valeurs_.end(); }
    std::size_t size() const { return valeurs_.size(); }
    bool empty() const { return valeurs_.empty(); }
    void clear() {
        valeurs_.clear();
        derniere_.clear();
    }
    std::vector<std::string> Triee() const;

private:
    struct Hachage {
        using is_transparent = void;
        std::size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>{}(s); }
    };
    std::unordered_set<std::string, Hachage, std::equal_to<>> valeurs_;
    std::string derniere_;  // la dernière valeur ajoutée, qui est dans valeurs_ ; vide : aucune
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
