// Recherche d'une nouvelle version : une page du site ouverte dans le navigateur, une fois par
// mois au démarrage ou sur Options.BoutonMAJ. Rien n'est téléchargé.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "dates/calendrier_gregorien.h"
#include "platform/dialogue.h"

namespace arbolix {

// La page qui dit si une version plus récente que celle de la requête existe.
inline constexpr const char* kAdresseMiseAJour = "https://arbolix.org/maj/";

// VerifDate : aujourd'hui plus un mois en "aaaaMM", suivi de "01".
std::string VerifDateSuivante(DateCalendrier aujourdhui);

// kAdresseMiseAJour + "index.php?version=" + version + "&session=" + aaaaMMjj.
std::string AdresseMiseAJour(std::string_view version, DateCalendrier aujourdhui);

// La recherche entière : VerifDate reportée dans le fichier de réglages, la question OK/Annuler,
// la page ouverte, puis l'avis de fermer le fichier ouvert. programme : son nom de base (1252).
// Vrai quand la page a été ouverte.
bool VerifierMiseAJour(const std::filesystem::path& ini, std::string_view programme, std::string_view version,
                       DateCalendrier aujourdhui, bool fichierOuvert, Dialogue& dialogue);

}  // namespace arbolix
