#include "cli/stats_cli.h"

#include <filesystem>

#include "cli/parente_cli.h"
#include "gedcom/enregistrement.h"
#include "platform/cp1252.h"
#include "reports/fiche_famille.h"
#include "reports/statistiques.h"

namespace arbolix::cli {
namespace {

// "0,4,10" : des index de 0 à 10 séparés par des virgules ; faux sur toute autre chose.
bool LireChoix(const std::string& texte, std::vector<int>& choix) {
    choix.clear();
    std::size_t debut = 0;
    for (;;) {
        const std::size_t fin = texte.find(',', debut);
        const std::string index =
            texte.substr(debut, fin == std::string::npos ? std::string::npos : fin - debut);
        if (index.empty() || index.size() > 2 || index.find_first_not_of("0123456789") != std::string::npos ||
            std::stoi(index) >= static_cast<int>(kChoixStatistiques.size()))
            return false;
        choix.push_back(std::stoi(index));
        if (fin == std::string::npos) return true;
        debut = fin + 1;
    }
}

// Le dossier du programme, que le texte nomme : celui de l'exécutable.
std::string DossierProgramme() {
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    return ec ? std::string() : Utf8VersCp1252(exe.parent_path().string());
}

}  // namespace

int CommandeStats(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<std::string> texteChoix;
    std::optional<DateCalendrier> date;
    std::optional<SelectionCli> selection;
    if (!ExtraireValeur(args, "--choix", texteChoix, s.erreurs) || !ExtraireDate(args, date, s.erreurs) ||
        !ExtraireSelection(args, selection, s.erreurs))
        return 2;
    std::vector<int> choix;
    for (int i = 0; i < static_cast<int>(kChoixStatistiques.size()); ++i) choix.push_back(i);
    if (args.size() != 1 || (texteChoix && !LireChoix(*texteChoix, choix))) {
        s.erreurs << "usage : arbolix-cli " << kAideStats << "\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(args[0], base, options, s)) return 2;
    if (selection && !AppliquerSelection(base, options, *selection, s.erreurs)) return 2;
    if (PopulationStatistiques(base) == 0) {
        s.erreurs << Cp1252VersUtf8(std::string(kTitreSelectionVide) + " : " + std::string(kSelectionVide))
                  << "\n";
        return 2;
    }
    const ContexteStatistiques ctx{base,
                                   options,
                                   Utf8VersCp1252(std::filesystem::path(args[0]).filename().string()),
                                   "Arbolix",
                                   DossierProgramme(),
                                   Aujourdhui(date).annee};
    EcrireUtf8(s.sortie, EtablirStatistiques(ctx, choix).texte);
    return 0;
}

int CommandeFicheFamille(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<DateCalendrier> date;
    if (!ExtraireDate(args, date, s.erreurs)) return 2;
    if (args.size() != 3) {
        s.erreurs << "usage : arbolix-cli " << kAideFicheFamille << "\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(args[0], base, options, s)) return 2;
    const std::int32_t f = NumeroTape(args[1]);
    const auto& familles = std::as_const(base.Familles);
    if (f <= 0 || f > base.NbFamis ||
        (familles[f].Mari == 0 && familles[f].Femme == 0 && familles[f].Enfants(1) == 0)) {
        s.erreurs << args[0] << " : pas de famille n\xC2\xB0 " << args[1] << ".\n";
        return 2;
    }
    const std::string nom = Utf8VersCp1252(args[0]);
    const auto morceaux = FicheFamille(base, options, f, nom, Aujourdhui(date));
    const std::string pdf = FicheFamillePdf(morceaux, "Fiche familiale n\xB0 " + std::to_string(f));
    const EtatFichier e =
        EcrireFichierSur(args[2], [&](std::ostream& o) { return static_cast<bool>(o << pdf); });
    if (!e.Ok) {
        s.erreurs << Cp1252VersUtf8(e.Message) << "\n";
        return 2;
    }
    return 0;
}

}  // namespace arbolix::cli
