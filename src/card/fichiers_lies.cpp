#include "card/fichiers_lies.h"

#include <system_error>

#include "platform/cp1252.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

bool Existe(const std::filesystem::path& p) {
    std::error_code e;
    return !p.empty() && std::filesystem::is_regular_file(p, e);
}

}  // namespace

std::optional<std::filesystem::path> TrouverFichierLie(std::string_view chemin,
                                                       const std::string& dossierImages,
                                                       const std::filesystem::path& dossierGedcom) {
    const std::string texte = Remplacer(Cp1252VersUtf8(SansBlancs(chemin)), "\\", "/");
    if (texte.empty()) return std::nullopt;
    const std::filesystem::path tel(texte);
    if (Existe(tel)) return tel;
    // Un chemin relatif se lit sous chaque dossier ; un chemin absolu d'ailleurs par son seul nom.
    const std::filesystem::path relatif =
        tel.is_relative() && texte.find(':') == std::string::npos ? tel : tel.filename();
    for (const std::filesystem::path& dossier : {std::filesystem::path(dossierImages), dossierGedcom}) {
        if (dossier.empty()) continue;
        if (Existe(dossier / relatif)) return dossier / relatif;
        if (Existe(dossier / tel.filename())) return dossier / tel.filename();
    }
    return std::nullopt;
}

std::string MessageFichierIntrouvable(std::string_view chemin, bool proposerSuppression) {
    std::string s =
        "Le fichier est introuvable :\r\n" + std::string(chemin) +
        "\r\nCe fichier a \xE9t\xE9 d\xE9plac\xE9 ou supprim\xE9,\r\nou bien vous n'avez pas les droits "
        "d'acc\xE8s.";
    if (proposerSuppression) s += "\r\nVoulez-vous supprimer le lien ?";
    return s;
}

}  // namespace arbolix
