#include "app/reglages.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>
#include <variant>

#include "platform/ini.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

using Accesseur =
    std::variant<std::string Options::*, bool Options::*, int Options::*, std::string& (*)(Options&)>;

// Une clé du fichier, le champ qui la tient et, pour un choix, sa plus grande valeur.
struct CleOption {
    const char* section;
    const char* cle;
    Accesseur champ;
    int maxi = 0;
};

std::string& Chemin0(Options& o) {
    return o.Chemin[0];
}
std::string& Chemin1(Options& o) {
    return o.Chemin[1];
}
std::string& Chemin2(Options& o) {
    return o.Chemin[2];
}

// Dans l'ordre du tableau des réglages ; les listes web et les récents sont à part.
const CleOption kClesOptions[] = {
    {"General", "Verif", &Options::VerifMAJ},
    {"Chemins", "Fichier", &Options::FichierDefaut},
    {"Chemins", "DossierRapports", &Chemin0},
    {"Chemins", "DossierSauvegarde", &Chemin1},
    {"Chemins", "DossierImages", &Chemin2},
    {"Preferences", "AgeMiniUnion", &Options::AgeMiniUnion},
    {"Preferences", "EcartGenerations", &Options::EcartGen},
    {"Preferences", "AgeMaxiEnfant", &Options::AgeMaxiEnfant},
    {"Preferences", "EcartAgeConjoints", &Options::EcartAgeConjoints},
    {"Preferences", "AgeRetraite", &Options::AgeRetraite},
    {"Preferences", "AgeMaxiDeces", &Options::AgeMaxiDeces},
    {"Preferences", "MajusculesAuto", &Options::ModifCasse},
    {"Preferences", "CalendrierRepu", &Options::OptConvCalRep},
    {"Preferences", "ShortList", &Options::ListePersosCourte},
    {"Preferences", "LaunchReport", &Options::LanceFicherExporte},
    {"Preferences", "FondCaseCouleur", &Options::FondCaseCouleur},
    {"Preferences", "ZoomPourcent", &Options::PourcentZoom},
    {"Preferences", "ZoomFenetres", &Options::ZoomFen},
    {"Preferences", "ZoomClic", &Options::ZoomClic},
    {"Preferences", "PrenomParDefaut", &Options::NomPrenomParDefaut},
    {"Preferences", "ConvTMAO2", &Options::Conversion, 4},
    {"Preferences", "ExportActes", &Options::ExportPrefere, 2},
    {"Preferences", "SelAutoLieuxAnnexes", &Options::SelAutoLieuxAnnexes, 2},
    {"Preferences", "SaveFileCopy", &Options::Sauvegarder},
    {"Preferences", "Police", &Options::Police},
    {"Symboles", "Naissance", &Options::SymbNais},
    {"Symboles", "Bapteme", &Options::SymbBapt},
    {"Symboles", "ContratMar", &Options::SymbCoMa},
    {"Symboles", "Mariage", &Options::SymbMari},
    {"Symboles", "Divorce", &Options::SymbDivo},
    {"Symboles", "Deces", &Options::SymbDece},
    {"Symboles", "Sepulture", &Options::SymbSepu},
};

constexpr std::array<const char*, 2> kSectionsWeb{"WebBases", "WebAnnuaires"};
// Au-delà, un n abîmé ferait lire ou vider des milliers de clés.
constexpr int kMaxRecents = 99;

std::string* Texte(Options& o, const Accesseur& a) {
    if (const auto p = std::get_if<std::string Options::*>(&a)) return &(o.**p);
    if (const auto f = std::get_if<std::string& (*)(Options&)>(&a)) return &(*f)(o);
    return nullptr;
}

// Lecture numérique de l'ancien programme : chiffres jusqu'au premier autre caractère.
long long Val(std::string_view s) {
    const auto debut = s.find_first_not_of(' ');
    if (debut == std::string_view::npos) return 0;
    s.remove_prefix(debut);
    const bool negatif = !s.empty() && s.front() == '-';
    if (negatif) s.remove_prefix(1);
    long long v = 0;
    for (char c : s) {
        if (c < '0' || c > '9' || v > 1'000'000'000) break;
        v = v * 10 + (c - '0');
    }
    return negatif ? -v : v;
}

// Nombre au sens de l'ancien IsNumeric : signe, chiffres, une virgule ou un point.
bool EstNumerique(std::string_view s) {
    const auto debut = s.find_first_not_of(' '), fin = s.find_last_not_of(' ');
    if (debut == std::string_view::npos) return false;
    s = s.substr(debut, fin - debut + 1);
    if (s.front() == '-' || s.front() == '+') s.remove_prefix(1);
    bool chiffre = false, separateur = false;
    for (char c : s) {
        if (c >= '0' && c <= '9')
            chiffre = true;
        else if ((c == '.' || c == ',') && !separateur)
            separateur = true;
        else
            return false;
    }
    return chiffre;
}

double Reel(std::string_view s, double defaut) {
    double v = defaut;
    const auto r = std::from_chars(s.data(), s.data() + s.size(), v);
    return r.ec == std::errc() ? v : defaut;
}

std::string TexteReel(double v) {
    char tampon[32];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, v);
    return std::string(tampon, r.ptr);
}

void LireCle(const fs::path& ini, const CleOption& c, Options& o) {
    if (std::string* t = Texte(o, c.champ)) {
        std::string v = LireIni(ini, c.section, c.cle, *t);
        // Un symbole vide garde son défaut.
        if (!v.empty() || std::string_view(c.section) != "Symboles") *t = std::move(v);
    } else if (const auto b = std::get_if<bool Options::*>(&c.champ)) {
        o.** b = LireBooleenIni(ini, c.section, c.cle, o.**b);
    } else if (const auto n = std::get_if<int Options::*>(&c.champ)) {
        const std::string v = LireIni(ini, c.section, c.cle, "");
        const long long x = Val(v);
        // Un choix illisible ou hors de la liste garde son défaut.
        if (!v.empty() && v.front() >= '0' && v.front() <= '9' && x <= c.maxi) o.** n = static_cast<int>(x);
    }
}

bool EcrireCle(const fs::path& ini, const CleOption& c, Options& o) {
    if (const std::string* t = Texte(o, c.champ)) return EcrireIni(ini, c.section, c.cle, *t);
    if (const auto b = std::get_if<bool Options::*>(&c.champ))
        return EcrireIni(ini, c.section, c.cle, TexteBooleenIni(o.**b));
    const auto n = std::get<int Options::*>(c.champ);
    return EcrireIni(ini, c.section, c.cle, std::to_string(o.*n));
}

// Les cinq âges contrôlés, avec leur défaut.
struct AgeControle {
    std::string Options::*champ;
    const char* defaut;
};
constexpr std::array<AgeControle, 5> kAges{{
    {&Options::AgeMiniUnion, "15"},
    {&Options::AgeMaxiEnfant, "50"},
    {&Options::EcartAgeConjoints, "20"},
    {&Options::AgeRetraite, "65"},
    {&Options::AgeMaxiDeces, "100"},
}};

double Nombre(std::string_view s) {
    std::string t(s);
    std::replace(t.begin(), t.end(), ',', '.');
    const auto debut = t.find_first_not_of(" +");
    return debut == std::string::npos ? 0 : Reel(std::string_view(t).substr(debut), 0);
}

std::vector<std::string> Lignes(std::string_view texte) {
    std::vector<std::string> lignes;
    std::size_t debut = 0;
    while (debut <= texte.size()) {
        auto fin = texte.find('\n', debut);
        if (fin == std::string_view::npos) fin = texte.size();
        std::string l(texte.substr(debut, fin - debut));
        if (!l.empty() && l.back() == '\r') l.pop_back();
        if (!l.empty()) lignes.push_back(std::move(l));
        debut = fin + 1;
    }
    return lignes;
}

// Écrit n et les clés 1..n d'une section de liste, puis vide les clés au-delà jusqu'à l'ancien n.
void EcrireListe(const fs::path& ini, const char* section, const std::vector<std::string>& liste) {
    const int ancien =
        static_cast<int>(std::clamp<long long>(Val(LireIni(ini, section, "n", "0")), 0, kMaxRecents));
    EcrireIni(ini, section, "n", std::to_string(liste.size()));
    for (std::size_t i = 0; i < liste.size(); ++i) EcrireIni(ini, section, std::to_string(i + 1), liste[i]);
    for (int i = static_cast<int>(liste.size()) + 1; i <= ancien; ++i)
        EcrireIni(ini, section, std::to_string(i), "");
}

}  // namespace

Options ChargerOptions(const fs::path& ini, Dialogue& dialogue) {
    Options o;
    for (const auto& c : kClesOptions) LireCle(ini, c, o);
    for (auto& chemin : o.Chemin)
        if (!chemin.empty() && chemin.back() != '/') chemin += '/';
    for (int i = 0; i < 2; ++i) o.LiensWeb[i] = LireListeWeb(ini, i);
    std::error_code ec;
    if (o.Sauvegarder && !o.Chemin[1].empty() && !fs::is_directory(o.Chemin[1], ec)) {
        dialogue.Message("Dossier introuvable",
                         "Le dossier de sauvegarde " + o.Chemin[1] +
                             " n'existe pas.\r\nVeuillez le reconfigurer dans les options.",
                         Icone::Attention);
    }
    return o;
}

bool ValiderOptions(const fs::path& ini, Options& o, Dialogue& dialogue, int versionMajeure) {
    EcrireIni(ini, "General", "Version", std::to_string(versionMajeure));
    if (Val(o.MaxGen) < 1 || Val(o.MaxGen) > 31) o.MaxGen.clear();
    Options defauts;
    for (const auto& c : kClesOptions) {
        if (std::string_view(c.section) != "Symboles") continue;
        std::string* t = Texte(o, c.champ);
        if (t->empty()) *t = *Texte(defauts, c.champ);
    }
    for (const auto& a : kAges)
        if (!EstNumerique(o.*a.champ)) o.*a.champ = a.defaut;
    bool bon = Nombre(o.AgeMaxiEnfant) > Nombre(o.AgeMiniUnion);
    for (const auto& a : kAges) bon = bon && Nombre(o.*a.champ) > 0;
    if (!bon) {
        dialogue.Message(
            "Option erron\xE9"
            "e",
            "Erreur dans les \xE2ges limites d\xE9"
            "finis pour le contr\xF4le de coh\xE9rence.",
            Icone::Attention);
    }
    return bon;
}

bool EnregistrerOptions(const fs::path& ini, Options& o, const std::vector<std::string>& recents,
                        Dialogue& dialogue, int versionMajeure) {
    if (!ValiderOptions(ini, o, dialogue, versionMajeure)) return false;
    const std::string version = std::to_string(versionMajeure);
    if (!EcrireIni(ini, "General", "Version", version) || LireIni(ini, "General", "Version", "") != version) {
        dialogue.Message(
            "Erreur syst\xE8me",
            "Impossible d'enregistrer les options car le fichier " + ini.string() +
                " ne peut pas \xEAtre modifi\xE9.\r\nVeuillez installer le programme dans un dossier "
                "o\xF9 vous avez le droit d'\xE9"
                "crire.",
            Icone::Stop);
        return false;
    }
    for (const char* section : {"General", "Chemins", "Symboles", "Preferences"})
        for (const auto& c : kClesOptions)
            if (std::string_view(c.section) == section) EcrireCle(ini, c, o);
    EcrireFichiersRecents(ini, recents);
    for (int i = 0; i < 2; ++i) EcrireListeWeb(ini, i, o.LiensWeb[i]);
    return true;
}

bool ReglagesAnciens(const fs::path& ini, int versionMajeure) {
    return Val(LireIni(ini, "General", "Version", "0").substr(0, 2)) < versionMajeure;
}

bool VerificationMiseAJourDue(const fs::path& ini, std::string_view aujourdhui, bool verifMAJ) {
    return verifMAJ && Val(LireIni(ini, "General", "VerifDate", aujourdhui)) < Val(aujourdhui);
}

std::vector<std::string> LireFichiersRecents(const fs::path& ini, Options& o, bool supportAmovible) {
    const int n =
        static_cast<int>(std::clamp<long long>(Val(LireIni(ini, "Recents", "n", "0")), 0, kMaxRecents));
    std::vector<std::string> liste;
    for (int i = 0; i <= n; ++i) {
        std::string v =
            i == 0 ? LireIni(ini, "Chemins", "Fichier", "") : LireIni(ini, "Recents", std::to_string(i), "");
        std::error_code ec;
        if (!supportAmovible && i == 0 && !fs::is_regular_file(v, ec)) o.FichierDefaut.clear();
        if (v.empty()) continue;
        if (!supportAmovible) {
            if (!fs::is_regular_file(v, ec)) continue;
            if (i == 0) o.FichierDefaut = v;
        }
        liste.push_back(std::move(v));
    }
    if (supportAmovible) return liste;
    // Le fichier par défaut revient d'ordinaire en Recents/1 : une seule ligne.
    std::vector<std::string> uniques;
    for (auto& f : liste)
        if (std::find(uniques.begin(), uniques.end(), f) == uniques.end()) uniques.push_back(std::move(f));
    if (static_cast<int>(uniques.size()) < n) EcrireFichiersRecents(ini, uniques);
    return uniques;
}

void EcrireFichiersRecents(const fs::path& ini, const std::vector<std::string>& liste) {
    EcrireListe(ini, "Recents", liste);
}

std::vector<std::string> AjouterFichierRecent(std::vector<std::string> liste, const std::string& fichier,
                                              std::size_t maximum) {
    if (fichier.empty()) return liste;
    std::erase(liste, fichier);
    liste.insert(liste.begin(), fichier);
    if (liste.size() > maximum) liste.resize(maximum);
    return liste;
}

std::vector<std::string> ClearFileList(const fs::path& ini, const std::string& fichierPresent) {
    const std::vector<std::string> liste{fichierPresent};
    EcrireFichiersRecents(ini, liste);
    return fichierPresent.empty() ? std::vector<std::string>{} : liste;
}

std::string LireListeWeb(const fs::path& ini, int indice) {
    const char* section = kSectionsWeb[indice == 1 ? 1 : 0];
    const std::string n = LireIni(ini, section, "n", "");
    if (n.empty()) return indice == 1 ? kLiensWebAnnuairesDefaut : kLiensWebBasesDefaut;
    std::string texte;
    const long long total = std::clamp<long long>(Val(n), 0, kMaxRecents);
    for (long long i = 1; i <= total; ++i) {
        const std::string ligne = LireIni(ini, section, std::to_string(i), "");
        if (ligne.empty()) break;
        if (!texte.empty()) texte += "\r\n";
        texte += ligne;
    }
    return texte;
}

void EcrireListeWeb(const fs::path& ini, int indice, std::string_view texte) {
    EcrireListe(ini, kSectionsWeb[indice == 1 ? 1 : 0], Lignes(texte));
}

PositionFenetre LirePositionPersonne(const fs::path& ini) {
    PositionFenetre p;
    p.L = Reel(LireIni(ini, "Fenetres", "PersonneL", "0"), p.L);
    p.T = Reel(LireIni(ini, "Fenetres", "PersonneT", "0"), p.T);
    p.W = Reel(LireIni(ini, "Fenetres", "PersonneW", "5400"), p.W);
    p.H = Reel(LireIni(ini, "Fenetres", "PersonneH", "6120"), p.H);
    return p;
}

void EcrirePositionPersonne(const fs::path& ini, const PositionFenetre& p) {
    EcrireIni(ini, "Fenetres", "PersonneL", TexteReel(p.L));
    EcrireIni(ini, "Fenetres", "PersonneT", TexteReel(p.T));
    EcrireIni(ini, "Fenetres", "PersonneW", TexteReel(p.W));
    EcrireIni(ini, "Fenetres", "PersonneH", TexteReel(p.H));
}

OptionsArbre ChargerOptionsArbre(const fs::path& ini) {
    OptionsArbre a;
    a.LC = LireIni(ini, "Preferences", "LargeurCase", a.LC);
    a.HC = LireIni(ini, "Preferences", "HauteurCase", a.HC);
    a.MC = LireIni(ini, "Preferences", "MargeCase", a.MC);
    a.LF = LireIni(ini, "Preferences", "LargeurFeuille", a.LF);
    a.HF = LireIni(ini, "Preferences", "HauteurFeuille", a.HF);
    a.MF = LireIni(ini, "Preferences", "MargeFeuille", a.MF);
    a.NbGen = LireIni(ini, "Preferences", "NombreGenerations", a.NbGen);
    return a;
}

void EcrireOptionsArbre(const fs::path& ini, const OptionsArbre& a, bool avecFeuille) {
    EcrireIni(ini, "Preferences", "LargeurCase", a.LC);
    EcrireIni(ini, "Preferences", "HauteurCase", a.HC);
    EcrireIni(ini, "Preferences", "MargeCase", a.MC);
    if (!avecFeuille) return;
    EcrireIni(ini, "Preferences", "LargeurFeuille", a.LF);
    EcrireIni(ini, "Preferences", "HauteurFeuille", a.HF);
    EcrireIni(ini, "Preferences", "MargeFeuille", a.MF);
    EcrireIni(ini, "Preferences", "NombreGenerations", a.NbGen);
}

OptionsExport ChargerOptionsExport(const fs::path& ini) {
    OptionsExport e;
    const auto booleen = [&](const char* cle, bool defaut) {
        return LireBooleenIni(ini, "Preferences", cle, defaut);
    };
    e.AnneesConfidentielles[0] =
        LireIni(ini, "Preferences", "AnneesConfidentielles", e.AnneesConfidentielles[0]);
    e.AnneesConfidentielles[1] =
        LireIni(ini, "Preferences", "AnneesConfidentiellesDS", e.AnneesConfidentielles[1]);
    e.OptionSaufDecede = booleen("AnneesConfidNBSaufDecede", e.OptionSaufDecede);
    e.OptionOrdre = static_cast<int>(
        std::clamp<long long>(Val(LireIni(ini, "Preferences", "OrdreDonneesPerso", "0")), 0, 2));
    e.ComboColRTF[0] = LireIni(ini, "Preferences", "ColonnesRTF", e.ComboColRTF[0]);
    e.ComboColRTF[1] = LireIni(ini, "Preferences", "ColonnesIndex", e.ComboColRTF[1]);
    e.OptionBasPage[0] = booleen("NotesBasPageRTF", e.OptionBasPage[0]);
    e.OptionBasPage[1] = booleen("SourcesBasPageRTF", e.OptionBasPage[1]);
    e.OptSimplMarisMult = booleen("EviterRepetInfosEpouxRTF", e.OptSimplMarisMult);
    e.OptionIndexCourt = booleen("IndexNomsCourtRTF", e.OptionIndexCourt);
    e.OptionPreciserUnions = booleen("PreciserOrdreUnions", e.OptionPreciserUnions);
    e.OptNumUniq = booleen("NumeroUniqueRTF", e.OptNumUniq);
    e.Toutes = booleen("ExportToutActes", e.Toutes);
    return e;
}

}  // namespace arbolix
