// Rendre au système la mémoire d'une lecture déjà faite, sans rien déplacer.
#pragma once

#include <cstddef>

namespace arbolix {

// Les pages entièrement comprises dans [debut, debut + taille) sont rendues au système : leur
// contenu est perdu (il se relit en zéros) mais la zone reste à nous et se libère comme avant.
// Sans effet là où le système ne le permet pas.
void RendrePages(char* debut, std::size_t taille);

// Une grande zone qui va être écrite d'un bout à l'autre (le contenu d'un fichier) : le système en
// fournit toutes les pages d'un coup, plutôt qu'une par faute de page tous les quatre kilooctets.
// (Les grandes pages iraient plus vite, mais une fois sur trois ou quatre bien plus lentement.)
// Sans effet là où le système ne le permet pas.
void PreparerPages(char* debut, std::size_t taille);

}  // namespace arbolix
