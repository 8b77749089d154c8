#include "cli/actes_cli.h"

#include <algorithm>
#include <string_view>

#include "lists/recherche_actes.h"
#include "lists/remplacer.h"
#include "platform/cp1252.h"
#include "store/chaines.h"

namespace arbolix::cli {

namespace {

constexpr const char* kUsageActes =
    "usage : arbolix-cli actes FICHIER.ged [--types N,B,M,C,X,D,S] [--nom NOM|--lieu LIEU|--metier METIER|"
    "--temoin N|--domicile VILLE] [--de AAAA] [--a AAAA] [--approx] [--tri nom,date]\n";
constexpr const char* kUsageRemplacer =
    "usage : arbolix-cli remplacer nom|nomtri|prenom|metier|lieu|source ANCIEN NOUVEAU ENTREE.ged "
    "SORTIE.ged [--date JJ/MM/AAAA]\n"
    "        arbolix-cli remplacer notes|lieux-partout TEXTE NOUVEAU ENTREE.ged SORTIE.ged\n";

struct OptionCritere {
    std::string_view option;
    Critere critere;
};
constexpr OptionCritere kCriteres[] = {{"--nom", Critere::Nom},
                                       {"--lieu", Critere::Lieu},
                                       {"--metier", Critere::Profession},
                                       {"--domicile", Critere::Domicile}};

// Les deux listes de tri, les mots de la fenêtre, et les mêmes sans accents.
constexpr std::string_view kTri0[] = {"nom", "pr\xC3\xA9noms", "date", "lieu", "num\xC3\xA9ro", "date-decr"};
constexpr std::string_view kTri0Ascii[] = {"nom", "prenoms", "date", "lieu", "numero", "date-decr"};
constexpr std::string_view kTri1[] = {"nom", "nom2", "date", "lieu", "num\xC3\xA9ro"};
constexpr std::string_view kTri1Ascii[] = {"nom", "nom2", "date", "lieu", "numero"};

template <std::size_t N>
int IndiceTri(std::string_view mot, const std::string_view (&liste)[N], const std::string_view (&ascii)[N]) {
    for (std::size_t i = 0; i < N; ++i)
        if (liste[i] == mot || ascii[i] == mot) return static_cast<int>(i);
    return -1;
}

bool LireTypes(std::string_view texte, RechercheActes& r, std::ostream& erreurs) {
    r.TypeActe = {};
    for (std::size_t debut = 0; debut <= texte.size();) {
        const std::size_t fin = std::min(texte.find(',', debut), texte.size());
        const std::string_view mot = texte.substr(debut, fin - debut);
        const auto s = std::find_if(kSortesActes.begin(), kSortesActes.end(), [&](const SorteActe& a) {
            return mot.size() == 1 && a.lettre == mot[0];
        });
        if (s == kSortesActes.end()) {
            erreurs << "Type d'acte inconnu : " << mot << " (N, B, M, C, X, D ou S)\n";
            return false;
        }
        r.TypeActe[s->caseActe] = true;
        debut = fin + 1;
    }
    return true;
}

bool LireTri(std::string_view texte, RechercheActes& r, std::ostream& erreurs) {
    const std::size_t virgule = texte.find(',');
    const int a = IndiceTri(texte.substr(0, virgule), kTri0, kTri0Ascii);
    const int b =
        virgule == std::string_view::npos ? 2 : IndiceTri(texte.substr(virgule + 1), kTri1, kTri1Ascii);
    if (a < 0 || b < 0) {
        erreurs << "Tri inconnu : " << texte
                << " (nom|pr\xC3\xA9noms|date|lieu|num\xC3\xA9ro|date-decr, puis "
                   "nom|nom2|date|lieu|num\xC3\xA9ro)\n";
        return false;
    }
    r.ListeTri = {a, b};
    return true;
}

// Lit les options de la recherche ; faux avec un message sur une option fausse.
bool LireRecherche(Arguments& args, RechercheActes& r, std::optional<std::string>& temoin, Sorties& s) {
    r.TypeActe[kCaseTous] = true;
    r.OptInclureApprox = RetirerDrapeau(args, "--approx");
    std::optional<std::string> v;
    if (!ExtraireValeur(args, "--types", v, s.erreurs) || (v && !LireTypes(*v, r, s.erreurs))) return false;
    v.reset();
    if (!ExtraireValeur(args, "--tri", v, s.erreurs) || (v && !LireTri(*v, r, s.erreurs))) return false;
    std::optional<std::string> de, a;
    if (!ExtraireValeur(args, "--de", de, s.erreurs) || !ExtraireValeur(args, "--a", a, s.erreurs))
        return false;
    r.AnneeDebut = de.value_or("");
    r.AnneeFin = a.value_or("");
    if (!ExtraireValeur(args, "--temoin", temoin, s.erreurs)) return false;
    int criteres = temoin ? 1 : 0;
    if (temoin) r.OptionType = Critere::Temoin;
    for (const auto& c : kCriteres) {
        bool vu = false;
        for (std::optional<std::string> valeur;; valeur.reset()) {
            if (!ExtraireValeur(args, c.option, valeur, s.erreurs)) return false;
            if (!valeur) break;
            r.Criteres.push_back(Utf8VersCp1252(*valeur));
            vu = true;
        }
        if (vu) {
            r.OptionType = c.critere;
            ++criteres;
        }
    }
    if (criteres > 1) {
        s.erreurs
            << "Un seul crit\xC3\xA8re \xC3\xA0 la fois : --nom, --lieu, --metier, --temoin ou --domicile.\n";
        return false;
    }
    return true;
}

struct ChampCli {
    std::string_view mot;
    ChampRemp champ;
};
constexpr ChampCli kChamps[] = {{"nom", ChampRemp::Nom},       {"nomtri", ChampRemp::NomTri},
                                {"prenom", ChampRemp::Prenom}, {"metier", ChampRemp::Metier},
                                {"lieu", ChampRemp::Lieu},     {"source", ChampRemp::Source}};

}  // namespace

int CommandeActes(const Arguments& args, Sorties& s) {
    Arguments reste = args;
    RechercheActes r;
    std::optional<std::string> temoin;
    if (!LireRecherche(reste, r, temoin, s)) return 2;
    if (reste.size() != 1 || reste[0].rfind("--", 0) == 0) {
        s.erreurs << kUsageActes;
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(reste[0], base, options, s)) return 2;
    if (temoin && !LirePersonne(base, *temoin, reste[0], r.Temoin, s.erreurs)) return 2;
    // Sans fenêtre, la fiche montrée est le témoin cherché.
    if (const auto refus = ControlerRecherche(r, r.Temoin)) {
        DialogueCli(s.erreurs).Message(refus->Titre, refus->Texte, Icone::Stop, Boutons::Ok, std::nullopt);
        return 2;
    }
    // Le numéro de tri est celui de la numérotation faite à l'ouverture.
    ListePersonne liste;
    ListerActes(base, options, r, 1, false, liste);
    for (const auto& rangee : liste.Rangees) s.sortie << Cp1252VersUtf8(rangee.texte) << "\n";
    s.sortie << Cp1252VersUtf8(liste.Titre) << "\n";
    return 0;
}

int CommandeRemplacer(const Arguments& args, Sorties& s) {
    Arguments reste = args;
    std::optional<DateCalendrier> date;
    if (!ExtraireDate(reste, date, s.erreurs)) return 2;
    if (reste.size() != 5) {
        s.erreurs << kUsageRemplacer;
        return 2;
    }
    const std::string& quoi = reste[0];
    const auto champ = std::find_if(std::begin(kChamps), std::end(kChamps),
                                    [&](const ChampCli& c) { return c.mot == quoi; });
    const bool partout = quoi == "notes" || quoi == "lieux-partout";
    if (champ == std::end(kChamps) && !partout) {
        s.erreurs << kUsageRemplacer;
        return 2;
    }
    const std::string ancien = Utf8VersCp1252(reste[1]), nouveau = Utf8VersCp1252(reste[2]);
    // Rien n'est écrit sur une demande qui ne remplacerait rien de sensé.
    if (ancien.empty() || (!partout && nouveau.empty())) {
        s.erreurs << "Remplacer demande un texte \xC3\xA0 chercher et, hors des notes et des lieux, un texte "
                     "de remplacement non vides : "
                  << reste[3] << " n'est pas modifi\xC3\xA9.\n";
        return 2;
    }
    Base base;
    Options options;
    if (!ChargerTout(reste[3], base, options, s)) return 2;
    std::int32_t n = 0;
    if (quoi == "notes") {
        n = RemplacerDansNotes(base, ancien, nouveau);
    } else if (quoi == "lieux-partout") {
        n = RemplacerLieux(base, ancien, nouveau);
    } else {
        n = RemplacerValeur(base, champ->champ, ancien, nouveau, JoursDepuis1899(date), nullptr);
    }
    s.sortie << n
             << (partout ? " remplacements\n"
                         : " fiches modifi\xC3\xA9"
                           "es\n");
    return Ecrire(base, options, OptionsGedcom{}, reste[4], s);
}

}  // namespace arbolix::cli
