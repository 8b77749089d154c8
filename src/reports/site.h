// Le site HTML statique : pages des familles, listes par lettre, recherches, page d'accueil.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "reports/contexte_export.h"

namespace arbolix {

// Les trois fichiers de présentation ; style2.css n'est écrit que s'il manque (l'utilisateur le modifie).
std::string StyleCss(const Options& options);
std::string Style2Css();
std::string MenuJs();

// Le début d'une page jusqu'au titre : en-tête, menu des lettres, et "<table><tbody>" pour les
// pages des familles. accueil : le nom de la page d'accueil ; tete : des lignes
// de plus dans le <head> (les styles d'une page y restent).
std::string EnteteHTML(std::string_view nomFichier, std::string_view titre, std::string_view accueil,
                       std::string_view tete = {});

// La fin d'une page ouverte par EnteteHTML.
std::string FinHTML(std::string_view nomFichier);

// Image ou lien d'un fichier lié, pour les pages seulement : le dossier du site est ôté du chemin.
void EcrireFichierLie(const ContexteExport& ctx, TexteRapport& f, std::string_view chemin,
                      std::string_view sep);

struct ResultatSite {
    bool Ok = false;
    bool Annule = false;
    std::string Message;  // 1252 : l'échec, le fichier et la raison
    std::size_t NbFichiers = 0;
    std::uintmax_t Octets = 0;
};

// Écrit le site dans le dossier de ctx.exports.FichierExport (la page d'accueil) : tout va d'abord
// dans un dossier temporaire du même dossier, puis chaque page prend la place de l'ancienne ; les
// pages d'un ancien site que celui-ci n'écrit pas sont effacées. Annulé ou en échec, rien ne change.
ResultatSite ExportHTML(const ContexteExport& ctx, bool parLettre);

}  // namespace arbolix
