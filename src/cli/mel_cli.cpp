#include "cli/mel_cli.h"

#include <filesystem>

#include "tools/mel.h"

namespace arbolix::cli {

int CommandeMel(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<std::string> chiffres;
    if (!ExtraireValeur(args, "--frontiere", chiffres, s.erreurs)) return 2;
    if (args.empty() || args.size() > 2 ||
        (chiffres && (chiffres->empty() || chiffres->find_first_not_of("0123456789") != std::string::npos))) {
        s.erreurs << "usage : arbolix-cli mel [--frontiere CHIFFRES] FICHIER.ged [SORTIE.eml]\n";
        return 2;
    }
    HasardMel hasard = HasardSysteme();
    // Les chiffres donnés reviennent en boucle : la frontière en garde 24.
    if (chiffres)
        hasard = [c = *chiffres, i = std::size_t{0}]() mutable { return unsigned(c[i++ % c.size()] - '0'); };
    std::error_code ec;
    const std::string sortie =
        args.size() == 2 ? args[1] : CheminMel(args[0], std::filesystem::temp_directory_path(ec)).string();
    const ResultatMel r = EcrireMel(args[0], sortie, hasard);
    if (!r.Ok) {
        s.erreurs << JournalUtf8(r.Message) << "\n";
        return 2;
    }
    s.sortie << r.Chemin << "\n";
    return 0;
}

}  // namespace arbolix::cli
