// Les rangées de la fenêtre de liste : texte lu par l'utilisateur, queue " P000012" lue par le code, tri en
// deux passes.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace arbolix {

// Une rangée : le texte et la valeur cachée (un numéro le plus souvent).
struct Rangee {
    std::string texte;
    std::int32_t valeur = 0;
    friend bool operator==(const Rangee&, const Rangee&) = default;
};

// Queue d'une rangée : un blanc, le genre (" P", " F", " N", " S", " M" ou le
// premier caractère d'un symbole) et le numéro sur six chiffres. Un numéro
// au-delà de 999999 s'écrit sur sept chiffres et ne se relit pas : la règle le veut.
std::string Queue(char genre, std::int64_t numero);
// La même queue ajoutée au bout d'un texte, sans texte intermédiaire (listes d'un million de rangées).
void AjouterQueue(std::string& texte, char genre, std::int64_t numero);
// Le numéro sur au moins six chiffres ajouté au bout d'un texte.
void AjouterSixChiffres(std::string& texte, std::int64_t numero);

// Ce que la queue dit : le numéro (les six derniers caractères) et le genre
// (le caractère qui les précède). Rangée trop courte : genre nul et numéro 0.
struct LectureQueue {
    char genre = 0;
    std::int32_t numero = 0;
    friend bool operator==(const LectureQueue&, const LectureQueue&) = default;
};
LectureQueue LireQueue(std::string_view rangee);

// Le conjoint d'une rangée d'union : les six chiffres avant les huit derniers caractères.
std::int32_t ConjointDeRangee(std::string_view rangee);

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
