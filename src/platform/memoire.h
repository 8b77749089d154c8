// Rendre au système la mémoire d'une lecture déjà faite, sans rien déplacer.
#pragma once

#include <cstddef>
#include <string>

namespace arbolix {

// Les pages entièrement comprises dans [debut, debut + taille) sont rendues au système : leur
// contenu est perdu (il se relit en zéros) mais la zone reste à nous et se libère comme avant.
// Sans effet là où le système ne le permet pas.
void RendrePages(char* debut, std::size_t taille);

// Une grande zone qui va être écrite d'un bout à l'autre (le contenu d'un fichier) : le système en
// fournit toutes les pages d'un coup, plutôt qu'une par faute de page tous les quatre kilooctets.
// Sans effet là où le système ne le permet pas.
void PreparerPages(char* debut, std::size_t taille);

// Lit les taille premiers octets du fichier dans contenu (qui en prend la taille). Un grand
// fichier se lit en deux moitiés, la seconde sur un autre fil : la fourniture des pages et la
// copie depuis le cache du système se partagent entre deux cœurs ; ses pages sont demandées
// grandes (2 Mo) là où le système en donne. Faux si le fichier ne s'ouvre pas ou donne moins
// d'octets.
bool LireOctets(const std::string& chemin, std::size_t taille, std::string& contenu);

}  // namespace arbolix
