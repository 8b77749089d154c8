#include "cli/exporter_cli.h"

#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "card/lignes_personne.h"
#include "cli/parente_cli.h"
#include "kinship/menu_sel.h"
#include "platform/cp1252.h"
#include "reports/exports.h"
#include "store/chaines.h"
#include "store/selection.h"

namespace arbolix::cli {

namespace {

namespace fs = std::filesystem;

struct Rapport {
    std::string_view nom;
    int type;
};

constexpr Rapport kRapports[] = {
    {"ligne-de-vie", kLigneDeVie}, {"ascendance", kAscendance}, {"descendance", kDescendance},
    {"adresses", kAdresses},       {"eclair", kEclair},         {"livre", kLivre},
    {"isoles", kIsoles},           {"site", kPagesHtml},
};

// Les cases du cadre RTF : colonnes du texte et des index, notes et sources en bas de page, unions.
bool LireCadreRtf(Arguments& args, OptionsExport& e, std::ostream& erreurs) {
    std::optional<std::string> colonnes, index;
    if (!ExtraireValeur(args, "--colonnes", colonnes, erreurs) ||
        !ExtraireValeur(args, "--colonnes-index", index, erreurs))
        return false;
    if (colonnes && *colonnes != "1" && *colonnes != "2") {
        erreurs << "--colonnes attend 1 ou 2.\n";
        return false;
    }
    if (index && *index != "1" && *index != "2" && *index != "3") {
        erreurs << "--colonnes-index attend 1, 2 ou 3.\n";
        return false;
    }
    e.ComboColRTF = {colonnes.value_or(e.ComboColRTF[0]), index.value_or(e.ComboColRTF[1])};
    e.OptionBasPage = {RetirerDrapeau(args, "--notes-bas-de-page"),
                       RetirerDrapeau(args, "--sources-bas-de-page")};
    e.OptNumUniq = RetirerDrapeau(args, "--numero-unique");
    e.OptSimplMarisMult = RetirerDrapeau(args, "--sans-repeter-epoux");
    e.OptionIndexCourt = RetirerDrapeau(args, "--index-court");
    if (RetirerDrapeau(args, "--autre-union")) e.OptionPreciserUnions = false;
    return true;
}

// Les deux seuils "N,M" : chiffres seulement, le second facultatif.
bool LireSeuils(const std::string& texte, OptionsExport& e, std::ostream& erreurs) {
    const std::size_t virgule = texte.find(',');
    const std::string nb = texte.substr(0, virgule);
    const std::string ds =
        virgule == std::string::npos ? e.AnneesConfidentielles[1] : texte.substr(virgule + 1);
    if (!EstNumerique(nb) || !EstNumerique(ds)) {
        erreurs << "--annees-confidentielles attend deux nombres d'ann\xC3\xA9"
                   "es s\xC3\xA9par\xC3\xA9s par une virgule "
                   "(par exemple 75,0), pas \xC2\xAB "
                << texte << " \xC2\xBB.\n";
        return false;
    }
    e.AnneesConfidentielles = {nb, ds};
    return true;
}

// Le texte complémentaire : lu en entier, en 1252 s'il était en UTF-8, lignes en CR LF.
bool LireTexteComp(const std::string& fichier, std::string& texte, std::ostream& erreurs) {
    std::ifstream f(fichier, std::ios::binary);
    if (!f) {
        erreurs << "Le texte compl\xC3\xA9mentaire " << fichier << " ne se lit pas.\n";
        return false;
    }
    std::string t{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    t = Utf8VersCp1252(t);
    std::erase(t, '\r');
    while (!t.empty() && t.back() == '\n') t.pop_back();
    RemplacerTout(t, "\n", "\r\n");
    texte = std::move(t);
    return true;
}

struct Drapeaux {
    std::optional<std::string> personne, seuils, ordre, texte, minimum;
    std::optional<DateCalendrier> date;
    std::optional<SelectionCli> selection;
};

bool LireDrapeaux(Arguments& args, OptionsExport& e, Drapeaux& d, std::ostream& erreurs) {
    if (!ExtraireValeur(args, "--personne", d.personne, erreurs) ||
        !ExtraireValeur(args, "--annees-confidentielles", d.seuils, erreurs) ||
        !ExtraireValeur(args, "--ordre", d.ordre, erreurs) ||
        !ExtraireValeur(args, "--texte", d.texte, erreurs) ||
        !ExtraireValeur(args, "--minimum", d.minimum, erreurs) || !ExtraireDate(args, d.date, erreurs))
        return false;
    // La sélection part de la personne du rapport.
    if (std::find(args.begin(), args.end(), "--selection") != args.end() && d.personne) {
        args.push_back("--personne");
        args.push_back(*d.personne);
    }
    if (!ExtraireSelection(args, d.selection, erreurs) || !LireCadreRtf(args, e, erreurs)) return false;
    if (RetirerDrapeau(args, "--toutes")) e.Toutes = true;
    if (RetirerDrapeau(args, "--sans-toutes")) e.Toutes = false;
    e.OptionDatesAnnees = RetirerDrapeau(args, "--annees-seules");
    e.OptionSaufDecede = RetirerDrapeau(args, "--sauf-decede");
    if (d.seuils && !LireSeuils(*d.seuils, e, erreurs)) return false;
    if (d.ordre) {
        if (*d.ordre != "0" && *d.ordre != "1" && *d.ordre != "2") {
            erreurs << "--ordre attend 0, 1 ou 2.\n";
            return false;
        }
        e.OptionOrdre = (*d.ordre)[0] - '0';
    }
    if (d.minimum && !EstNumerique(*d.minimum)) {
        erreurs << "--minimum attend un nombre.\n";
        return false;
    }
    for (const auto& a : args) {
        if (a.rfind("--", 0) == 0) {
            erreurs << "Option inconnue : " << a << "\n";
            return false;
        }
    }
    return true;
}

// Sans fenêtre, la question de la liste-éclair reçoit --minimum (1 par défaut).
class DialogueExport : public DialogueCli {
public:
    DialogueExport(std::ostream& erreurs, std::string minimum)
        : DialogueCli(erreurs), minimum_(std::move(minimum)) {}
    std::optional<std::string> Saisie(std::string_view, std::string_view, std::string_view) override {
        return minimum_;
    }

private:
    std::string minimum_;
};

}  // namespace

int CommandeExporter(const Arguments& args, Sorties& s) {
    Arguments reste = args;
    OptionsExport e;
    Drapeaux d;
    if (!LireDrapeaux(reste, e, d, s.erreurs)) return 2;
    const Rapport* rapport = nullptr;
    for (const auto& r : kRapports)
        if (reste.size() == 3 && reste[0] == r.nom) rapport = &r;
    if (!rapport) {
        s.erreurs << "usage : arbolix-cli " << kAideExporter << "\n";
        return 2;
    }
    const std::string& fichier = reste[1];
    Base base;
    Options options;
    if (!ChargerTout(fichier, base, options, s)) return 2;
    std::int32_t personne = base.NumDeCujus;
    if (d.personne && !LirePersonne(base, *d.personne, fichier, personne, s.erreurs)) return 2;
    std::string libelle = "Toute la base";
    if (d.selection) {
        if (!AppliquerSelection(base, options, *d.selection, s.erreurs)) return 2;
        std::string entree = kEntreesSel[d.selection->entree];
        std::erase(entree, '&');
        libelle = entree + " de " + LigneListe(base, options, d.selection->personne);
    }
    const bool toutes = e.Toutes;
    PreparerExport(e, rapport->type, base, personne, options, fichier);
    // Le réglage de « Toutes » vient de l'ouverture du dialogue, sauf drapeau contraire.
    if (std::find(args.begin(), args.end(), "--toutes") != args.end() ||
        std::find(args.begin(), args.end(), "--sans-toutes") != args.end())
        e.Toutes = toutes;
    if (d.texte && !LireTexteComp(*d.texte, e.TexteComp, s.erreurs)) return 2;
    // Dans un terminal, un chemin relatif part du dossier courant.
    e.FichierExport = fs::absolute(reste[2]).string();
    ContexteExport ctx{base, options, e, Aujourdhui(d.date)};
    if (!d.date) {
        const std::time_t t = std::time(nullptr);
        const std::tm* h = std::localtime(&t);
        ctx.heure = h->tm_hour;
        ctx.minute = h->tm_min;
    }
    if (d.selection) {
        ctx.livre.selCochee = d.selection->entree;
        options.SelTousDesc = d.selection->tousDescendants;
    }
    ctx.TypeExport = rapport->type;
    ctx.NumPerso = personne;
    ctx.FichierGedcom = Utf8VersCp1252(fichier);
    ctx.LibelleSel = libelle;
    // Sans --minimum et sans « Toutes », la liste-éclair prend le minimum proposé (1).
    DialogueExport dialogue(s.erreurs, d.minimum.value_or("1"));
    const ResultatExport r = LancerExport(ctx, dialogue);
    if (!r.Ecrit) return 2;
    s.sortie << "Export\xC3\xA9 : " << reste[2] << "\n";
    return 0;
}

}  // namespace arbolix::cli
