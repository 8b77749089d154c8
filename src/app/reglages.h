// Les réglages du fichier ini : lecture dans les valeurs Options, contrôle, enregistrement, fichiers récents.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"
#include "store/options.h"

namespace arbolix {

// Toutes les fonctions prennent le chemin du fichier ini (CheminIni) : pas d'état caché.
// Les chemins de fichiers et de dossiers restent en octets du système (UTF-8).

// Lit chaque clé de la fenêtre Options ; une clé absente ou un symbole vide garde son
// défaut, un dossier reçoit son "/" final. Prévient (« Dossier introuvable ») quand la
// copie de sauvegarde est demandée vers un dossier absent.
Options ChargerOptions(const std::filesystem::path& ini, Dialogue& dialogue);

// Contrôle à la fermeture de la fenêtre : écrit Version, vide MaxGen hors de 1..31,
// rend leur défaut aux symboles vides et aux âges non numériques. Faux, après le message
// « Option erronée », quand les âges limites se contredisent : la fenêtre reste ouverte.
bool ValiderOptions(const std::filesystem::path& ini, Options& options, Dialogue& dialogue,
                    int versionMajeure);

// Valide puis écrit toutes les clés (General, Chemins, Symboles, Preferences, Recents,
// listes web). Faux, avec le message « Erreur système », quand le fichier ne peut être écrit.
bool EnregistrerOptions(const std::filesystem::path& ini, Options& options,
                        const std::vector<std::string>& recents, Dialogue& dialogue, int versionMajeure);

// Vrai quand le fichier a été écrit par une version majeure plus ancienne : le
// démarrage réécrit alors tous les réglages.
bool ReglagesAnciens(const std::filesystem::path& ini, int versionMajeure);

// Vrai quand la date de la prochaine recherche de mise à jour (VerifDate) est passée
// et que la case VerifMAJ est cochée ; `aujourdhui` au format "yyyyMMdd".
bool VerificationMiseAJourDue(const std::filesystem::path& ini, std::string_view aujourdhui, bool verifMAJ);

// Fichiers récents au démarrage, du plus récent au plus ancien : le fichier par défaut
// (Chemins/Fichier) puis Recents/1..n. Les fichiers disparus sont écartés, les doublons
// aussi ; quand il en reste moins que n, la liste est réécrite. Met FichierDefaut à jour.
// Sur un support amovible, rien n'est contrôlé ni réécrit.
std::vector<std::string> LireFichiersRecents(const std::filesystem::path& ini, Options& options,
                                             bool supportAmovible);
// Écrit n et les clés 1..n, et vide les clés au-delà jusqu'à l'ancien n.
void EcrireFichiersRecents(const std::filesystem::path& ini, const std::vector<std::string>& liste);
// Met `fichier` en tête de la liste (sans doublon), gardée à `maximum` lignes.
std::vector<std::string> AjouterFichierRecent(std::vector<std::string> liste, const std::string& fichier,
                                              std::size_t maximum = 20);
// « Vider la liste » : il ne reste que le fichier présent.
std::vector<std::string> ClearFileList(const std::filesystem::path& ini, const std::string& fichierPresent);

// Listes web (0 bases d'actes, 1 annuaires) : texte de plusieurs lignes séparées par CR LF.
// Section absente : les lignes par défaut ; une ligne vide termine la liste.
std::string LireListeWeb(const std::filesystem::path& ini, int indice);
void EcrireListeWeb(const std::filesystem::path& ini, int indice, std::string_view texte);

// Position de la fenêtre Personne (section Fenetres), nombres réels en texte.
PositionFenetre LirePositionPersonne(const std::filesystem::path& ini);
void EcrirePositionPersonne(const std::filesystem::path& ini, const PositionFenetre& position);

// Réglages des fenêtres Arbre et Exports, section Preferences.
OptionsArbre ChargerOptionsArbre(const std::filesystem::path& ini);
// Les dimensions de la feuille et NbGen ne sont retenues que pour l'arbre grand format.
void EcrireOptionsArbre(const std::filesystem::path& ini, const OptionsArbre& arbre, bool avecFeuille);
OptionsExport ChargerOptionsExport(const std::filesystem::path& ini);

}  // namespace arbolix
