// Les fichiers livrés avec le programme (messages, fichier d'exemple, pages d'aide) et la
// place des réglages selon que le programme est installé ou portable.
#pragma once

#include <filesystem>

namespace arbolix {

// À côté de l'exécutable d'abord (arbre de construction, usage portable), sinon dans le
// share/arbolix/ de l'installation (../share/arbolix depuis bin/). Quand aucun n'existe,
// rend le chemin à côté de l'exécutable, que le message d'erreur nommera.
std::filesystem::path CheminPartage(const std::filesystem::path& dossierExecutable,
                                    const std::filesystem::path& nom);

// Installé : les fichiers du programme sont dans ../share/arbolix et non à côté de lui.
bool ProgrammeInstalle(const std::filesystem::path& dossierExecutable);

// Le fichier de réglages : à côté d'un programme portable dont le dossier est inscriptible,
// sinon dans le dossier de l'utilisateur. Un programme installé n'écrit jamais dans bin/,
// même lancé par root qui le pourrait.
std::filesystem::path CheminReglages(const std::filesystem::path& dossierExecutable);

}  // namespace arbolix
