#include "platform/ini.h"

#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <vector>

namespace arbolix {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBlancs = " \t";

std::string_view Rogner(std::string_view s) {
    const auto debut = s.find_first_not_of(kBlancs);
    if (debut == std::string_view::npos) return {};
    const auto fin = s.find_last_not_of(kBlancs);
    return s.substr(debut, fin - debut + 1);
}

bool EgalSansCasse(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        auto bas = [](unsigned char c) { return (c >= 'A' && c <= 'Z') ? c + 32 : c; };
        if (bas(static_cast<unsigned char>(a[i])) != bas(static_cast<unsigned char>(b[i]))) return false;
    }
    return true;
}

// Lignes du fichier sans leur fin (CR LF ou LF seul) ; vide quand le fichier manque.
std::vector<std::string> LireLignes(const fs::path& fichier) {
    std::vector<std::string> lignes;
    std::ifstream f(fichier, std::ios::binary);
    if (!f) return lignes;
    std::string ligne;
    while (std::getline(f, ligne)) {
        if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
        lignes.push_back(std::move(ligne));
    }
    return lignes;
}

// Nom de section d'une ligne "[nom]", ou rien pour une autre ligne (un "[" sans "]" compris).
std::optional<std::string_view> Section(std::string_view ligne) {
    ligne = Rogner(ligne);
    if (ligne.empty() || ligne.front() != '[') return std::nullopt;
    const auto fin = ligne.find(']');
    if (fin == std::string_view::npos) return std::nullopt;
    return Rogner(ligne.substr(1, fin - 1));
}

// Clé d'une ligne "clé=valeur", ou rien pour une ligne sans "=".
std::optional<std::string_view> Cle(std::string_view ligne) {
    const auto egal = ligne.find('=');
    if (egal == std::string_view::npos) return std::nullopt;
    return Rogner(ligne.substr(0, egal));
}

// L'ancienne lecture ôtait les guillemets qui entourent toute la valeur.
std::string_view Valeur(std::string_view ligne) {
    auto v = Rogner(ligne.substr(ligne.find('=') + 1));
    if (v.size() >= 2 && (v.front() == '"' || v.front() == '\'') && v.back() == v.front())
        v = v.substr(1, v.size() - 2);
    return v;
}

struct Position {
    std::size_t ligneCle = std::string::npos;    // ligne de la clé trouvée
    std::size_t finSection = std::string::npos;  // après la dernière ligne non vide de la section
};

Position Chercher(const std::vector<std::string>& lignes, std::string_view section, std::string_view cle) {
    Position pos;
    bool dedans = false;
    for (std::size_t i = 0; i < lignes.size(); ++i) {
        if (const auto s = Section(lignes[i])) {
            dedans = EgalSansCasse(*s, section);
            if (dedans && pos.finSection == std::string::npos) pos.finSection = i + 1;
            continue;
        }
        if (!dedans) continue;
        if (!Rogner(lignes[i]).empty()) pos.finSection = i + 1;
        const auto c = Cle(lignes[i]);
        if (c && EgalSansCasse(*c, cle)) {
            pos.ligneCle = i;
            return pos;
        }
    }
    return pos;
}

bool EcrireAtomique(const fs::path& fichier, const std::vector<std::string>& lignes) {
    std::error_code ec;
    if (fichier.has_parent_path()) fs::create_directories(fichier.parent_path(), ec);
    fs::path temporaire = fichier;
    temporaire += ".tmp" + std::to_string(::getpid());
    {
        std::ofstream f(temporaire, std::ios::binary | std::ios::trunc);
        if (!f) return false;
        for (const auto& l : lignes) f << l << "\r\n";
        f.flush();
        if (!f) {
            f.close();
            fs::remove(temporaire, ec);
            return false;
        }
    }
    fs::rename(temporaire, fichier, ec);
    if (ec) fs::remove(temporaire, ec);
    return !ec;
}

bool DossierInscriptible(const fs::path& dossier) {
    std::error_code ec;
    return !dossier.empty() && fs::is_directory(dossier, ec) && ::access(dossier.c_str(), W_OK | X_OK) == 0;
}

}  // namespace

std::string LireIni(const fs::path& fichier, std::string_view section, std::string_view cle,
                    std::string_view defaut) {
    const auto lignes = LireLignes(fichier);
    const auto pos = Chercher(lignes, section, cle);
    if (pos.ligneCle == std::string::npos) return std::string(defaut.substr(0, kLongueurValeurIni));
    auto v = Valeur(lignes[pos.ligneCle]);
    v = v.substr(0, v.find('\0'));
    return std::string(v.substr(0, kLongueurValeurIni));
}

bool LireBooleenIni(const fs::path& fichier, std::string_view section, std::string_view cle, bool defaut) {
    const auto v = LireIni(fichier, section, cle, TexteBooleenIni(defaut));
    if (EgalSansCasse(v, "True")) return true;
    if (EgalSansCasse(v, "False")) return false;
    return defaut;
}

bool EcrireIni(const fs::path& fichier, std::string_view section, std::string_view cle,
               std::string_view valeur) {
    auto lignes = LireLignes(fichier);
    // Une fin de ligne dans la valeur casserait le fichier : elle devient un blanc.
    std::string ligne = std::string(cle) + "=";
    for (char c : valeur) ligne += (c == '\r' || c == '\n') ? ' ' : c;
    const auto pos = Chercher(lignes, section, cle);
    if (pos.ligneCle != std::string::npos) {
        lignes[pos.ligneCle] = std::move(ligne);
    } else if (pos.finSection != std::string::npos) {
        lignes.insert(lignes.begin() + static_cast<std::ptrdiff_t>(pos.finSection), std::move(ligne));
    } else {
        lignes.push_back("[" + std::string(section) + "]");
        lignes.push_back(std::move(ligne));
    }
    return EcrireAtomique(fichier, lignes);
}

fs::path CheminIni(const fs::path& dossierExecutable, std::string_view xdgConfigHome, std::string_view home) {
    if (DossierInscriptible(dossierExecutable)) return dossierExecutable / "arbolix.ini";
    fs::path base = !xdgConfigHome.empty() ? fs::path(xdgConfigHome) : fs::path(home) / ".config";
    return base / "arbolix" / "arbolix.ini";
}

fs::path CheminIni(const fs::path& dossierExecutable) {
    const char* xdg = std::getenv("XDG_CONFIG_HOME");
    const char* home = std::getenv("HOME");
    return CheminIni(dossierExecutable, xdg ? xdg : "", home ? home : "");
}

}  // namespace arbolix
