#include "acts/nom_epa.h"

#include <filesystem>

#include "platform/cp1252.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kForme =
    ". Il doit avoir la forme CODE-TITRE.EPA, o\xF9 CODE est une lettre majuscule, deux chiffres et "
    "le code du lieu (par exemple F54123-Saint_Clement.EPA).";

// Ce qui manque au nom, ou vide quand il convient.
std::string Defaut(std::string_view nom, std::string_view base, std::size_t tiret, std::string_view code) {
    if (EnMajuscules(Droite(nom, 4)) != ".EPA") return "il ne finit pas par .EPA";
    if (tiret == std::string_view::npos) return "il n'a pas de \xAB - \xBB entre le code et le titre";
    if (tiret + 1 >= base.size()) return "le titre manque apr\xE8s le \xAB - \xBB";
    const bool lettre = !code.empty() && code[0] >= 'A' && code[0] <= 'Z';
    if (!lettre || code.size() < 4 || !EstChiffre(code[1]) || !EstChiffre(code[2]))
        return "son code \xAB " + std::string(code) +
               " \xBB n'est pas une lettre majuscule, deux chiffres et un code";
    return {};
}

}  // namespace

std::string NettoyerCheminEPA(std::string_view chemin) {
    return std::string(SansBlancsDroite(Remplacer(chemin, "\"", "")));
}

NomEPA LireNomEPA(std::string_view chemin) {
    NomEPA n;
    const std::string propre = NettoyerCheminEPA(chemin);
    n.NomFichier = Utf8VersCp1252(std::filesystem::path(propre).filename().string());
    const std::string_view base =
        Gauche(n.NomFichier, n.NomFichier.size() >= 4 ? n.NomFichier.size() - 4 : 0);
    const std::size_t tiret = base.find('-');
    n.CodeFichier = std::string(base.substr(0, tiret));
    if (const std::string d = Defaut(n.NomFichier, base, tiret, n.CodeFichier); !d.empty()) {
        n.Erreur = "Le nom du fichier " + n.NomFichier + " ne convient pas \xE0 l'export SQL : " + d +
                   std::string(kForme);
        return n;
    }
    n.TitreLieu = Remplacer(base.substr(tiret + 1), "_", " ");
    const std::string_view deux = Gauche(n.CodeFichier, 2);
    n.TitreLivre = Comme(deux, "F#")   ? "Livre des familles de " + n.TitreLieu
                   : Comme(deux, "D#") ? "Die Familien von " + n.TitreLieu
                                       : n.TitreLieu;
    n.NumPays = static_cast<std::int16_t>(static_cast<unsigned char>(n.CodeFichier[0]) - 64);
    n.NumDept = static_cast<std::int32_t>(ValeurNumerique(n.CodeFichier.substr(1, 2)));
    n.CodeLieu = n.CodeFichier.substr(3);
    return n;
}

std::string FichierGedcomEPA(std::string_view chemin) {
    const std::string propre = NettoyerCheminEPA(chemin);
    const std::string sans = propre.substr(0, propre.size() >= 4 ? propre.size() - 4 : 0);
    std::error_code e;
    for (const std::string& f : {sans, sans + ".ged"})
        if (std::filesystem::is_regular_file(f, e)) return f;
    return {};
}

std::string FichierScriptEPA(std::string_view chemin) {
    const std::string propre = NettoyerCheminEPA(chemin);
    return propre.substr(0, propre.size() >= 3 ? propre.size() - 3 : 0) + "sql";
}

}  // namespace arbolix
