// Les textes de l'interface par numéro de ligne, lus dans messages1036.txt.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"

namespace arbolix {

// Code de langue du programme (français).
inline constexpr int kCodeLangue = 1036;

// Fichier de messages : à côté de l'exécutable, sinon dans share/arbolix/ installé
// (../share/arbolix depuis bin/). Rend le chemin à côté de l'exécutable quand aucun n'existe.
std::filesystem::path CheminMessages(const std::filesystem::path& dossierExecutable,
                                     int codeLangue = kCodeLangue);

// Numéro de la ligne de base du bloc d'une fenêtre (la ligne base - 1 est son titre),
// ou -1 pour une fenêtre sans bloc.
int BaseFenetre(std::string_view nom);

class Messages {
public:
    // Lit tout le fichier et le coupe à chaque CR LF (un LF seul ne coupe pas).
    // Fichier absent : le message « Missing translation » et aucune ligne ; faux.
    bool Charger(const std::filesystem::path& fichier, Dialogue& dialogue, int codeLangue = kCodeLangue);
    // Même découpe depuis un texte déjà lu.
    void Decouper(std::string_view contenu);

    // Ligne n (à partir de 0) ; vide pour une ligne absente.
    const std::string& operator()(int n) const;
    std::size_t size() const { return lignes_.size(); }

private:
    std::vector<std::string> lignes_;
};

}  // namespace arbolix
