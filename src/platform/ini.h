// Le fichier de réglages au format des anciens fichiers de profil : [section] puis clé=valeur.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace arbolix {

// Une valeur lue tient en 255 caractères et s'arrête au premier octet nul, comme
// le tampon de l'ancienne lecture ; les noms de section et de clé ignorent la casse.
inline constexpr std::size_t kLongueurValeurIni = 255;

// Valeur de la clé, ou `defaut` quand le fichier, la section ou la clé manque.
std::string LireIni(const std::filesystem::path& fichier, std::string_view section, std::string_view cle,
                    std::string_view defaut);

// Écrit une clé en gardant toutes les autres lignes ; crée le fichier et son dossier
// au besoin. Le fichier est remplacé d'un coup (écrit à côté puis renommé).
// Faux quand l'écriture a échoué.
bool EcrireIni(const std::filesystem::path& fichier, std::string_view section, std::string_view cle,
               std::string_view valeur);

// Booléens du fichier : "True" et "False" ; à la lecture la casse est ignorée.
inline const char* TexteBooleenIni(bool b) {
    return b ? "True" : "False";
}
bool LireBooleenIni(const std::filesystem::path& fichier, std::string_view section, std::string_view cle,
                    bool defaut);

// Emplacement du fichier de réglages : à côté de l'exécutable quand ce dossier est
// inscriptible (usage portable), sinon $XDG_CONFIG_HOME/arbolix/arbolix.ini
// (~/.config quand la variable est vide).
std::filesystem::path CheminIni(const std::filesystem::path& dossierExecutable);
// Variante sans lecture de l'environnement, pour les essais.
std::filesystem::path CheminIni(const std::filesystem::path& dossierExecutable,
                                std::string_view xdgConfigHome, std::string_view home);

}  // namespace arbolix
