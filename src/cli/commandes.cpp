#include "cli/commandes.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "cli/actes_cli.h"
#include "cli/arbre_cli.h"
#include "cli/communs.h"
#include "cli/exporter_cli.h"
#include "cli/fusion_cli.h"
#include "cli/mel_cli.h"
#include "cli/parente_cli.h"
#include "cli/sql_cli.h"
#include "cli/stats_cli.h"
#include "cli/tmao_cli.h"
#include "gedcom/enregistrement.h"
#include "gedcom/journal_lecture.h"
#include "gedcom/lecteur.h"
#include "kinship/sosa.h"
#include "lists/listes.h"
#include "platform/cp1252.h"
#include "store/selection.h"
#include "verify/estimation.h"
#include "verify/nettoyage.h"
#include "verify/verification.h"

namespace arbolix::cli {

namespace {

// Une case de la fenêtre Gedcom par option, à partir de ses valeurs par défaut.
struct OptionCase {
    std::string_view option;
    bool OptionsGedcom::*champ;
    bool valeur;
};

constexpr OptionCase kCases[] = {
    {"--sans-dates", &OptionsGedcom::Dates, false},
    {"--sans-lieux", &OptionsGedcom::Lieux, false},
    {"--sans-professions", &OptionsGedcom::Professions, false},
    {"--sans-temoins", &OptionsGedcom::Temoins, false},
    {"--sans-fichiers", &OptionsGedcom::Fichiers, false},
    {"--sans-adresses", &OptionsGedcom::Adresses, false},
    {"--sans-sources", &OptionsGedcom::Sources, false},
    {"--sans-notes", &OptionsGedcom::Notes, false},
    {"--ages", &OptionsGedcom::Ages, true},
    {"--renumeroter", &OptionsGedcom::OptRenum, true},
    {"--nettoyer", &OptionsGedcom::OptNettoie, true},
};

// Sépare les options de cases des noms de fichiers ; faux sur une option inconnue.
bool LireCases(const Arguments& args, OptionsGedcom& cases, Arguments& fichiers, Sorties& s) {
    for (const auto& a : args) {
        if (a.rfind("--", 0) != 0) {
            fichiers.push_back(a);
            continue;
        }
        bool connue = false;
        for (const auto& c : kCases) {
            if (a == c.option) {
                cases.*(c.champ) = c.valeur;
                connue = true;
            }
        }
        if (!connue) {
            s.erreurs << "Option inconnue : " << a << "\n";
            return false;
        }
    }
    return true;
}

// En 1252, comme le journal qui la précède.
std::string Resume(const Base& b) {
    return "Lu : " + NombreFrancais(b.NbPersosReels) + " personnes, " + NombreFrancais(b.NbFamisReels) +
           " familles, " + NombreFrancais(b.NbNotesReelles) + " notes, " +
           NombreFrancais(b.NbSourcesReelles) + " sources, " + NombreFrancais(b.NbMediasReels) +
           " objets m\xE9"
           "dias.";
}

int CommandeLire(const Arguments& args, Sorties& s) {
    OptionsGedcom cases;
    Arguments fichiers;
    if (!LireCases(args, cases, fichiers, s)) return 2;
    if (fichiers.size() != 1) {
        s.erreurs << "usage : arbolix-cli lire [options] FICHIER.ged\n";
        return 2;
    }
    Base base;
    Options options;
    ResultatLecture resultat;
    if (!Charger(fichiers[0], cases, base, options, resultat, s)) return 2;
    // La base n'a plus à servir une fois résumée : le journal en mots se fait sans elle à côté.
    const std::string resume = JournalUtf8(Resume(base));
    base = Base{};
    const std::string lisible = JournalLisible(resultat.Journal, resultat.Reperes);
    resultat.Journal = {};
    EcrireUtf8(s.sortie, lisible);
    s.sortie << resume << "\n";
    return 0;
}

int CommandeEnregistrer(const Arguments& args, Sorties& s) {
    OptionsGedcom cases;
    Arguments fichiers;
    Arguments autres = args;
    std::optional<SelectionCli> selection;
    if (!ExtraireSelection(autres, selection, s.erreurs)) return 2;
    if (!LireCases(autres, cases, fichiers, s)) return 2;
    if (fichiers.size() != 2) {
        s.erreurs
            << "usage : arbolix-cli enregistrer [options] [--selection ascendants|descendants|apparentes "
               "--personne N [--tous-descendants]] ENTREE.ged SORTIE.ged\n";
        return 2;
    }
    Base base;
    Options options;
    ResultatLecture resultat;
    if (!Charger(fichiers[0], cases, base, options, resultat, s)) return 2;
    EcrireUtf8(s.sortie, JournalLisible(resultat.Journal, resultat.Reperes));
    ToutSelectionner(base);
    // Une sélection partielle : seules ses fiches sont écrites.
    if (selection && !AppliquerSelection(base, options, *selection, s.erreurs)) return 2;
    return Ecrire(base, options, cases, fichiers[1], s);
}

// Une liste de la fenêtre Personne, remplie sans invite, comme la fenêtre la montre.
struct SorteListe {
    std::string_view nom;
    bool (*remplir)(const Base&, ContexteListe&, ListePersonne&);
};

bool ListePersosSansInvite(const Base& b, ContexteListe& c, ListePersonne& l) {
    return ChercherEtLister(b, c, QuoiListe::Persos, l);
}
bool ListeFamisSansInvite(const Base& b, ContexteListe& c, ListePersonne& l) {
    return ChercherEtLister(b, c, QuoiListe::Famis, l);
}

constexpr SorteListe kListes[] = {
    {"personnes", ListePersosSansInvite},
    {"familles", ListeFamisSansInvite},
    {"notes", ListeNotes},
    {"sources", ListeSources},
    {"fichiers", ListeFichiers},
};

int CommandeListe(const Arguments& args, Sorties& s) {
    OptionsGedcom cases;
    Arguments reste;
    if (!LireCases(args, cases, reste, s)) return 2;
    const SorteListe* sorte = nullptr;
    for (const auto& l : kListes)
        if (!reste.empty() && reste[0] == l.nom) sorte = &l;
    if (!sorte || reste.size() != 2) {
        s.erreurs
            << "usage : arbolix-cli liste personnes|familles|notes|sources|fichiers [options] FICHIER.ged\n";
        return 2;
    }
    Base base;
    Options options;
    ResultatLecture resultat;
    if (!Charger(reste[1], cases, base, options, resultat, s)) return 2;
    // Un fichier ouvert l'est sur toute la base, comme dans la fenêtre.
    ToutSelectionner(base);
    ReponsesListes reponses;
    ContexteListe ctx(options, reponses);
    ctx.Renumeroter = cases.OptRenum;
    ListePersonne liste;
    sorte->remplir(base, ctx, liste);
    for (const auto& r : liste.Rangees) s.sortie << Cp1252VersUtf8(r.texte) << "\n";
    return 0;
}

// Le rapport tel que l'éditeur le montre, CR LF compris : en UTF-8, ou tel quel en 1252 avec --brut.
int CommandeVerifier(const Arguments& args, Sorties& s) {
    Arguments fichiers = args;
    const bool brut = RetirerDrapeau(fichiers, "--brut");
    std::optional<DateCalendrier> date;
    if (!ExtraireDate(fichiers, date, s.erreurs)) return 2;
    if (fichiers.size() != 1) {
        s.erreurs << "usage : arbolix-cli verifier [--brut] [--date JJ/MM/AAAA] FICHIER.ged\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(fichiers[0], base, options, s)) return 2;
    const ResultatVerification r = MenuVerifier(base, options, nullptr, JoursDepuis1899(date));
    s.sortie << (brut ? r.Rapport : Cp1252VersUtf8(r.Rapport));
    return 0;
}

// Sans question : les dates « vers » déjà là restent, sauf avec --recalculer.
int CommandeEstimer(const Arguments& args, Sorties& s) {
    Arguments reste = args;
    const bool recalculer = RetirerDrapeau(reste, "--recalculer");
    if (reste.size() != 3 || (reste[0] != "naissances" && reste[0] != "mariages")) {
        s.erreurs << "usage : arbolix-cli estimer naissances|mariages [--recalculer] ENTREE.ged SORTIE.ged\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(reste[1], base, options, s)) return 2;
    ListePersonne liste;
    const ResultatEstimation r = CalculerActesVides(
        base, options, reste[0] == "naissances" ? ActesVides::Naissances : ActesVides::Mariages, recalculer,
        liste);
    s.sortie << Cp1252VersUtf8(TexteResultatEstimation(r)) << "\n";
    for (std::size_t i = liste.LigneDeTete ? 1 : 0; i < liste.Rangees.size(); ++i)
        s.sortie << Cp1252VersUtf8(liste.Rangees[i].texte) << "\n";
    return Ecrire(base, options, OptionsGedcom{}, reste[2], s);
}

int CommandeNettoyer(const Arguments& args, Sorties& s) {
    if (args.size() != 3 || (args[0] != "lieux" && args[0] != "notes-sources")) {
        s.erreurs << "usage : arbolix-cli nettoyer lieux|notes-sources ENTREE.ged SORTIE.ged\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(args[1], base, options, s)) return 2;
    if (args[0] == "lieux")
        NettoyerLieux(base);
    else
        ConvertirNotesSourcesExternes(base);
    return Ecrire(base, options, OptionsGedcom{}, args[2], s);
}

struct Commande {
    std::string_view nom;
    std::string_view aide;
    std::function<int(const Arguments&, Sorties&)> executer;
};

const std::vector<Commande>& Commandes() {
    static const std::vector<Commande> commandes = {
        {"lire", "lire [options] FICHIER.ged : lit le fichier, affiche le journal et les nombres lus",
         CommandeLire},
        {"liste",
         "liste personnes|familles|notes|sources|fichiers [options] FICHIER.ged : les rangées de la liste, "
         "comme la fenêtre les montre",
         CommandeListe},
        {"enregistrer",
         "enregistrer [options] ENTREE.ged SORTIE.ged : lit ENTREE et l'\xC3\xA9"
         "crit en GEDCOM 5.5 dans SORTIE",
         CommandeEnregistrer},
        {"verifier",
         "verifier [--brut] [--date JJ/MM/AAAA] FICHIER.ged : le rapport de v\xC3\xA9rification de tout le "
         "fichier",
         CommandeVerifier},
        {"estimer",
         "estimer naissances|mariages [--recalculer] ENTREE.ged SORTIE.ged : date les actes vides "
         "(vers nnnn) et \xC3\xA9"
         "crit SORTIE",
         CommandeEstimer},
        {"nettoyer",
         "nettoyer lieux|notes-sources ENTREE.ged SORTIE.ged : redresse les virgules des lieux, ou recopie "
         "les notes et sources externes dans les fiches",
         CommandeNettoyer},
        {"sosa",
         "sosa FICHIER.ged [PERSONNE] [--max-gen N] : les ascendants num\xC3\xA9rot\xC3\xA9s, une ligne par "
         "visite",
         [](const Arguments& a, Sorties& s) { return CommandeSosa(a, s.sortie, s.erreurs); }},
        {"exporter", kAideExporter, CommandeExporter},
        {"parente", "parente FICHIER.ged DECUJUS AUTRE : la liste de parent\xC3\xA9 des deux personnes",
         [](const Arguments& a, Sorties& s) { return CommandeParente(a, s.sortie, s.erreurs); }},
        {"sql",
         "sql CODE-TITRE.EPA : le script SQL du livre de familles de CODE-TITRE.ged, \xC3\xA0 c\xC3\xB4t\xC3\xA9",
         CommandeSql},
        {"fiche",
         "fiche dupliquer|supprimer|fusionner ENTREE.ged SORTIE.ged PERSONNE [AUTRE] [--reponses FICHIER] "
         "[--retirer-unions F,F] [--date JJ/MM/AAAA] : la commande du menu \xC3\x89"
         "dition, puis SORTIE",
         CommandeFiche},
        {"actes",
         "actes FICHIER.ged [--types N,B,M,C,X,D,S] [--nom|--lieu|--metier|--domicile TEXTE|--temoin N] "
         "[--de AAAA] [--a AAAA] [--approx] [--tri nom,date] : les actes trouv\xC3\xA9s, tri\xC3\xA9s",
         CommandeActes},
        {"remplacer",
         "remplacer nom|nomtri|prenom|metier|lieu|source|notes|lieux-partout ANCIEN NOUVEAU ENTREE.ged "
         "SORTIE.ged [--date JJ/MM/AAAA] : remplace une valeur et \xC3\xA9"
         "crit SORTIE",
         CommandeRemplacer},
        {"mel",
         "mel [--frontiere CHIFFRES] FICHIER.ged [SORTIE.eml] : le message qui porte le fichier en pi\xC3\xA8"
         "ce jointe",
         CommandeMel},
        {"arbre", kAideArbre, CommandeArbre},
        {"stats", kAideStats, CommandeStats},
        {"fiche-famille", kAideFicheFamille, CommandeFicheFamille},
        {"tmao", kAideTmao, CommandeTmao},
        {"txt2tm", kAideTxt2Tm, CommandeTxt2Tm},
    };
    return commandes;
}

void Aide(std::ostream& o) {
    o << "usage : arbolix-cli COMMANDE [options] FICHIER...\n\nCommandes :\n";
    for (const auto& c : Commandes()) o << "  " << c.aide << "\n";
    o << "\nOptions de lecture et d'\xC3\xA9"
         "criture :";
    for (const auto& c : kCases) o << " " << c.option;
    o << "\n";
}

}  // namespace

int Executer(int argc, char** argv, std::ostream& sortie, std::ostream& erreurs) {
    Sorties s{sortie, erreurs};
    if (argc < 2) {
        Aide(erreurs);
        return 2;
    }
    const std::string nom = argv[1];
    if (nom == "--aide" || nom == "aide" || nom == "--help") {
        Aide(sortie);
        return 0;
    }
    const Arguments args(argv + 2, argv + argc);
    for (const auto& c : Commandes()) {
        if (c.nom != nom) continue;
        try {
            return c.executer(args, s);
        } catch (const std::exception& e) {
            erreurs << "Erreur : " << e.what() << "\n";
            return 1;
        }
    }
    erreurs << "Commande inconnue : " << nom << "\n";
    Aide(erreurs);
    return 2;
}

}  // namespace arbolix::cli
