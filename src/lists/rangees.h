// Les rangées de la fenêtre de liste : texte lu par l'utilisateur, queue " P000012" lue par le code, tri en
// deux passes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "card/queues.h"

namespace arbolix {

// Une rangée : le texte et la valeur cachée (un numéro le plus souvent).
struct Rangee {
    std::string texte;
    std::int32_t valeur = 0;
    friend bool operator==(const Rangee&, const Rangee&) = default;
};

// Le contenu d'une liste de la fenêtre Personne : titre, type (Genre) et rangées
// dans l'ordre du texte. La rangée 0 d'une liste à ligne de tête commence par un blanc.
struct ListePersonne {
    std::string Titre;
    std::string Genre;
    std::vector<Rangee> Rangees;
    bool LigneDeTete = false;
    int FenetreJours = 1;  // liste "recents" : fenêtre de temps de la prochaine ligne de tête
};

// Ouvre une liste : vide les rangées si demandé, pose titre et genre, et la ligne de tête.
void OuvrirListe(ListePersonne& liste, std::string_view genre, std::string_view titre,
                 std::string_view premiereLigne, bool vider);

// Ajoute une rangée à sa place dans l'ordre du texte (ordre des octets), après ses égales.
// La ligne de tête reste en tête. Rend la place prise.
std::size_t AjouterTriee(ListePersonne& liste, std::string texte, std::int32_t valeur);

// Trie par texte, octets sans signe ; les égales gardent leur ordre d'arrivée.
void TrierParTexte(std::vector<Rangee>& rangees);

// Ajoute des rangées dont le texte de tri est le texte affiché : un seul tri à la
// fin plutôt qu'une insertion triée par rangée (les égales gardent leur ordre d'arrivée).
void AjouterTriees(ListePersonne& liste, std::vector<Rangee> rangees);

// Remplissage en deux passes : les rangées entrent avec un texte de tri, puis
// sont récrites avec leur texte d'affichage sans bouger. Le tri se fait une fois
// à la fin, ce qui revient à l'insertion triée rangée par rangée, sans son coût.
class RemplissageTrie {
public:
    explicit RemplissageTrie(std::size_t prevu = 0) { cles_.reserve(prevu); }
    void Ajouter(std::string cleDeTri, std::int32_t valeur) {
        cles_.push_back({std::move(cleDeTri), valeur});
    }
    // Trie, puis ajoute à la liste chaque rangée avec affichage(valeur).
    void Terminer(ListePersonne& liste, const std::function<std::string(std::int32_t)>& affichage);
    std::size_t size() const { return cles_.size(); }

private:
    std::vector<Rangee> cles_;
};

}  // namespace arbolix
