#include "lists/rangees.h"

#include <algorithm>

namespace arbolix {

void OuvrirListe(ListePersonne& liste, std::string_view genre, std::string_view titre,
                 std::string_view premiereLigne, bool vider) {
    if (vider) {
        liste.Rangees.clear();
        liste.LigneDeTete = false;
    }
    liste.Titre = titre;
    liste.Genre = genre;
    if (!premiereLigne.empty()) {
        liste.Rangees.insert(liste.Rangees.begin(), Rangee{std::string(premiereLigne), 0});
        liste.LigneDeTete = true;
    }
}

std::size_t AjouterTriee(ListePersonne& liste, std::string texte, std::int32_t valeur) {
    const auto debut = liste.Rangees.begin() + (liste.LigneDeTete ? 1 : 0);
    const auto place = std::upper_bound(debut, liste.Rangees.end(), texte,
                                        [](const std::string& t, const Rangee& r) { return t < r.texte; });
    // L'insertion peut déplacer le tableau : la place se compte après.
    const auto insere = liste.Rangees.insert(place, Rangee{std::move(texte), valeur});
    return static_cast<std::size_t>(insere - liste.Rangees.begin());
}

void AjouterTriees(ListePersonne& liste, std::vector<Rangee> rangees) {
    std::stable_sort(rangees.begin(), rangees.end(),
                     [](const Rangee& a, const Rangee& b) { return a.texte < b.texte; });
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        for (auto& r : rangees) AjouterTriee(liste, std::move(r.texte), r.valeur);
        return;
    }
    liste.Rangees.reserve(liste.Rangees.size() + rangees.size());
    for (auto& r : rangees) liste.Rangees.push_back(std::move(r));
}

void RemplissageTrie::Terminer(ListePersonne& liste,
                               const std::function<std::string(std::int32_t)>& affichage) {
    // std::string compare les octets sans signe : l'ordre « simple » des caractères 1252.
    std::stable_sort(cles_.begin(), cles_.end(),
                     [](const Rangee& a, const Rangee& b) { return a.texte < b.texte; });
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        // Liste non vidée : chaque clé prend sa place parmi les textes déjà là, comme
        // l'insertion triée du contrôle ; puis son texte est récrit sans la bouger.
        for (auto& r : cles_) {
            const std::size_t i = AjouterTriee(liste, std::move(r.texte), r.valeur);
            liste.Rangees[i].texte = affichage(r.valeur);
        }
    } else {
        liste.Rangees.reserve(liste.Rangees.size() + cles_.size());
        for (auto& r : cles_) liste.Rangees.push_back({affichage(r.valeur), r.valeur});
    }
    cles_.clear();
}

}  // namespace arbolix
