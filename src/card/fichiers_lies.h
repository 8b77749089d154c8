// Retrouver sur le disque un fichier lié à une fiche : tel qu'écrit, sous le dossier des images, près du
// fichier GEDCOM.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace arbolix {

// chemin est le texte de la fiche (page 1252) ; un chemin Windows ("C:\Photos\a.jpg")
// garde son nom de fichier pour les deux recherches de secours. Le dossier des images
// (Options.Chemin(2)) passe avant le dossier du fichier GEDCOM. nullopt : introuvable.
std::optional<std::filesystem::path> TrouverFichierLie(std::string_view chemin,
                                                       const std::string& dossierImages,
                                                       const std::filesystem::path& dossierGedcom);

// Le message « Fichier introuvable » des règles, sans sa question finale quand
// la suppression du lien n'est pas offerte.
std::string MessageFichierIntrouvable(std::string_view chemin, bool proposerSuppression);

}  // namespace arbolix
