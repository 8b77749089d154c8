#include "cli/tmao_cli.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "acts/export_actes.h"
#include "acts/txt2tm.h"
#include "gedcom/enregistrement.h"
#include "lists/recherche_actes.h"
#include "platform/cp1252.h"
#include "reports/conversion_tmao.h"
#include "store/chaines.h"

namespace arbolix::cli {

namespace {

namespace fs = std::filesystem;

bool LireFichier(const std::string& chemin, std::string& octets, std::ostream& erreurs) {
    std::ifstream f(chemin, std::ios::binary);
    if (!f || !fs::is_regular_file(chemin)) {
        erreurs << "Le fichier " << chemin << " ne peut pas \xC3\xAAtre lu.\n";
        return false;
    }
    octets.assign(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
    return true;
}

// Le mode que l'extension de la sortie demande ; --mode ne choisit qu'entre les textes.
bool LireMode(const std::string& sortie, const std::optional<std::string>& mode, int& m,
              std::ostream& erreurs) {
    const std::string ext = EnMinuscules(fs::path(sortie).extension().string());
    m = ext == ".rtf" ? kConvRtf : ext == ".ged" ? kConvGedcom : ext == ".txt" ? kConvTexte : -1;
    if (mode) {
        const int voulu = EstNumerique(*mode) ? static_cast<int>(ValeurNumerique(*mode)) : -1;
        if (voulu < 0 || voulu > 4 || ExtensionConversion(voulu) != ext) {
            erreurs << "--mode " << *mode << " ne convient pas \xC3\xA0 la sortie " << sortie
                    << " (0 .rtf, 1 .txt, 2 .ged, 3 .txt tabul\xC3\xA9, 4 .txt en colonnes).\n";
            return false;
        }
        m = voulu;
    }
    if (m < 0) erreurs << "La sortie " << sortie << " doit finir par .rtf, .txt ou .ged.\n";
    return m >= 0;
}

}  // namespace

int CommandeTmao(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<std::string> type, lieu, mode;
    std::optional<DateCalendrier> date;
    if (!ExtraireValeur(args, "--type", type, s.erreurs) ||
        !ExtraireValeur(args, "--lieu", lieu, s.erreurs) ||
        !ExtraireValeur(args, "--mode", mode, s.erreurs) || !ExtraireDate(args, date, s.erreurs))
        return 2;
    if (args.size() != 2) {
        s.erreurs << "usage : arbolix-cli " << kAideTmao << "\n";
        return 2;
    }
    DemandeConversion d;
    d.Source = args[0];
    d.Sortie = args[1];
    if (!LireMode(args[1], mode, d.Mode, s.erreurs)) return 2;
    if (type && (type->size() != 1 || std::string_view("NMDA").find((*type)[0]) == std::string_view::npos)) {
        s.erreurs << "--type attend N, M, D ou A.\n";
        return 2;
    }
    std::string octets;
    if (!LireFichier(d.Source, octets, s.erreurs)) return 2;
    d.Type = type ? (*type)[0] : TypeDansPied(octets);
    if (d.Type == 0) {
        s.erreurs << "Type d'acte introuvable : le pied de " << d.Source
                  << " ne nomme aucun type ; indiquez --type N, M ou D.\n";
        return 2;
    }
    d.Lieu = Utf8VersCp1252(lieu.value_or(""));
    d.Date = FormatDateCourte(Aujourdhui(date));
    DialogueCli dialogue(s.erreurs);
    const ResultatConversion r = ConvertirTMAO(d, dialogue);
    if (!r.Ok) {
        s.erreurs << JournalUtf8(r.Erreur) << "\n";
        return 2;
    }
    s.sortie << r.Sortie << " : " << r.NbActes << " actes\n";
    return 0;
}

int CommandeTxt2Tm(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<DateCalendrier> date;
    if (!ExtraireDate(args, date, s.erreurs)) return 2;
    if (args.empty() || args.size() > 2) {
        s.erreurs << "usage : arbolix-cli " << kAideTxt2Tm << "\n";
        return 2;
    }
    std::string texte;
    if (!LireFichier(args[0], texte, s.erreurs)) return 2;
    const ResultatTxt2Tm r = Txt2Tm(texte, Utf8VersCp1252(fs::path(args[0]).filename().string()));
    if (!r.Ok) {
        s.erreurs << JournalUtf8(r.Erreur) << "\n";
        return 2;
    }
    const std::string sortie = args.size() == 2 ? args[1] : NomSortieTxt2Tm(args[0]);
    const EtatFichier etat = EcrireFichierSur(sortie, [&](std::ostream& o) {
        o.write(r.Octets.data(), static_cast<std::streamsize>(r.Octets.size()));
        return static_cast<bool>(o);
    });
    if (!etat.Ok) {
        s.erreurs << JournalUtf8(etat.Message) << "\n";
        return 2;
    }
    s.sortie << sortie << " : " << r.NbActes << " actes\n"
             << JournalUtf8(BrouillonNotesTable(r, Aujourdhui(date).annee)) << "\n";
    return 0;
}

bool ExtraireOptionsActes(Arguments& args, OptionsActesCli& o, std::ostream& erreurs) {
    return ExtraireValeur(args, "--type", o.type, erreurs) && ExtraireValeur(args, "--lieu", o.lieu, erreurs);
}

bool PreparerActesCli(const OptionsActesCli& o, ContexteExport& ctx, ListePersonne& liste,
                      std::ostream& erreurs) {
    const std::string_view sortes = "NMD";
    const auto index = o.type && o.type->size() == 1 ? sortes.find((*o.type)[0]) : std::string_view::npos;
    if (index == std::string_view::npos) {
        erreurs << "exporter actes attend --type N, M ou D.\n";
        return false;
    }
    std::vector<std::string> lieux;
    if (o.lieu) lieux.push_back(Utf8VersCp1252(*o.lieu));
    const RechercheActes r =
        RechercheUCGL(static_cast<int>(index), ctx.exports, ctx.aujourdhui.annee, std::move(lieux));
    ListerActes(ctx.base, ctx.options, r, 0, true, liste);
    return true;
}

}  // namespace arbolix::cli
