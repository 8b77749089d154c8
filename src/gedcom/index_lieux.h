// Index des lieux lus : chaque lieu distinct une seule fois, retrouvé d'après son texte.
#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string_view>
#include <vector>

#include "store/texte.h"

namespace arbolix {

// Un fichier d'un million de personnes lit des millions de lieux pour quelques milliers de
// distincts. Une table standard range chaque lieu dans un nœud à part : entre deux recherches la
// lecture chasse ces nœuds du cache, et chaque recherche en paie plusieurs absences. Ici une
// recherche lit une case (le haché et le lieu gardé), puis le texte du lieu : adressage ouvert,
// on essaie la case suivante tant qu'elle est prise par un autre.
class IndexLieux {
public:
    // Le lieu gardé égal à lieu ; il est ajouté s'il n'y était pas. L'adresse rendue reste bonne
    // tant que l'index vit.
    const Texte& Garder(std::string_view lieu, bool& nouveau) {
        if (2 * (gardes_.size() + 1) > cases_.size()) Agrandir();
        const std::size_t h = std::hash<std::string_view>{}(lieu);
        std::size_t i = h & (cases_.size() - 1);
        for (; cases_[i].texte; i = (i + 1) & (cases_.size() - 1))
            if (cases_[i].hache == h && *cases_[i].texte == lieu) {
                nouveau = false;
                return *cases_[i].texte;
            }
        nouveau = true;
        cases_[i] = {h, &gardes_.emplace_back(lieu)};
        return *cases_[i].texte;
    }

private:
    struct Case {
        std::size_t hache = 0;
        const Texte* texte = nullptr;  // nul : case libre
    };

    // Moitié pleine au plus : les suites de cases prises restent courtes.
    void Agrandir() {
        std::vector<Case> anciennes(cases_.empty() ? 1024 : 2 * cases_.size());
        anciennes.swap(cases_);
        for (const Case& c : anciennes) {
            if (!c.texte) continue;
            std::size_t i = c.hache & (cases_.size() - 1);
            while (cases_[i].texte) i = (i + 1) & (cases_.size() - 1);
            cases_[i] = c;
        }
    }

    std::deque<Texte> gardes_;  // une deque ne déplace pas ce qu'elle garde
    std::vector<Case> cases_;   // un nombre de cases puissance de deux
};

}  // namespace arbolix
