// Démarrage et états du fichier : ligne de commande, titre de la fenêtre, fermeture.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

inline constexpr std::string_view kTitreProgramme = "Arbolix";

// Ce que le démarrage fait du fichier donné en ligne de commande, d'après son extension.
enum class ActionLigneCommande { Ouvrir, ExportSql, ConversionTmao, Syntaxe };

// La ligne de commande sans blancs autour ni guillemets.
std::string NettoyerLigneCommande(std::string_view ligne);
ActionLigneCommande ActionPourFichier(std::string_view fichier);
// arbolix CODE-TITRE.EPA : l'export SQL sans montrer la fiche, avant la fin du programme. Rend
// le code de sortie : 0, ou 2 quand l'export n'a pas eu lieu, message (1252) qui nomme le fichier.
int LancerExportSql(std::string_view fichier, std::string& message);
// arbolix FICHIER.TM : la conversion de la table dans le mode des options (ConvTMAO2), les
// questions passant par dialogue. Rend 0, ou 2 avec le message (1252) qui nomme le fichier.
int LancerConversionTmao(std::string_view fichier, int mode, Dialogue& dialogue, std::string& message);
// Le texte de la boîte "Erreur de syntaxe" ; executable est le chemin du programme.
std::string MessageSyntaxe(std::string_view executable);

// Titre de la fenêtre selon l'état du fichier (sans fichier, ouvert, modifié).
std::string TitreFiche(std::string_view fichier, bool modifie);
// Le titre après un enregistrement complet : " (modifié)" devient "(enregistré)".
std::string TitreEnregistre(std::string_view titre);

// Fermer le fichier : si des modifications ne sont pas enregistrées, demande
// "Fermer" (Oui enregistre, Non continue, Annuler arrête). Rend faux quand
// le fichier reste ouvert (annulé, ou l'enregistrement a échoué).
bool DemanderFermeture(const Base& base, Dialogue& dialogue, const std::function<bool()>& enregistrer);

}  // namespace arbolix
