#include "tools/import_medias.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <optional>

#include "card/medias.h"
#include "dates/calendrier_gregorien.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace fs = std::filesystem;

namespace {

// Titre des questions : le texte du menu qui les pose.
constexpr const char* kTitre = "Importer des fichiers";

// Numéro du jour (0 le 30/12/1899) d'un "jj/mm/aaaa" ; vide si le texte n'en est pas un.
std::optional<std::int32_t> JourDe(std::string_view texte) {
    texte = SansBlancs(texte);
    if (texte.size() != 10 || texte[2] != '/' || texte[5] != '/') return std::nullopt;
    DateCalendrier d{static_cast<int>(ValeurNumerique(texte.substr(0, 2))),
                     static_cast<int>(ValeurNumerique(texte.substr(3, 2))),
                     static_cast<int>(ValeurNumerique(texte.substr(6)))};
    if (d.annee < kAnneeMin || d.annee > kAnneeMax || d.mois < 1 || d.mois > 12 || d.jour < 1 ||
        d.jour > JoursDuMois(d.mois, d.annee))
        return std::nullopt;
    return NumeroJour(d);
}

// Jour de la dernière modification d'un fichier, à l'heure locale.
std::int32_t JourModifie(const fs::path& p) {
    std::error_code ec;
    const auto t = fs::last_write_time(p, ec);
    if (ec) return 0;
    const auto sys = std::chrono::file_clock::to_sys(t);
    const std::time_t secondes = std::chrono::system_clock::to_time_t(
        std::chrono::time_point_cast<std::chrono::system_clock::duration>(sys));
    std::tm local{};
    localtime_r(&secondes, &local);
    return NumeroJour({local.tm_mday, local.tm_mon + 1, local.tm_year + 1900});
}

std::vector<std::string> FichiersDuDossier(const std::string& dossier, std::optional<std::int32_t> depuis) {
    std::vector<std::string> r;
    std::error_code ec;
    for (const auto& e : fs::directory_iterator(dossier, ec)) {
        if (!e.is_regular_file(ec)) continue;
        if (EnMinuscules(Droite(e.path().filename().string(), 4)) == ".lnk") continue;
        if (depuis && JourModifie(e.path()) < *depuis) continue;
        r.push_back(e.path().string());
    }
    std::sort(r.begin(), r.end());
    return r;
}

void CreerPersonne(Base& base, const std::string& chemin, bool reutiliserLibres) {
    const std::int32_t p = NouvellePersonneImage(base, reutiliserLibres);
    base.Persos[p].SuiteModif().Fichiers.Fixer(1, Texte(chemin));
}

}  // namespace

ResultatImport MenuImportFichiers(Base& base, const ImportFichiers& demande, Dialogue& dialogue) {
    ResultatImport r;
    r.date = demande.derniereDate;
    std::optional<std::string> dossier;
    if (demande.deposes.empty()) {
        dossier = dialogue.ChoisirDossier("Indiquez le dossier de fichiers \xE0 importer :", demande.dossierDepart);
        if (!dossier) return r;
    }
    const Bouton choix = dialogue.Message(
        kTitre,
        "Voulez-vous cr\xE9" "er des objets m\xE9" "dias ?\r\n"
        "Oui = cr\xE9" "er des objets m\xE9" "dias (plusieurs personnes li\xE9" "es \xE0 un m\xE9" "dia) "
        "et y attacher un fichier par objet\r\n"
        "Non = cr\xE9" "er des fiches personnelles et y attacher un fichier par personne",
        Icone::Question, Boutons::OuiNonAnnuler);
    if (choix == Bouton::Annuler) return r;
    std::vector<std::string> fichiers = demande.deposes;
    if (dossier) {
        auto date = dialogue.Saisie(kTitre, "Importer les fichiers modifi\xE9s \xE0 partir du :", demande.derniereDate);
        if (!date) return r;
        r.date = *date;
        // Une date illisible ne filtre rien : mieux vaut trop importer que rien sans le dire.
        fichiers = FichiersDuDossier(*dossier, JourDe(*date));
    }
    for (const std::string& f : fichiers) {
        if (choix == Bouton::Oui)
            NouvelObjetMedia(base, f);
        else
            CreerPersonne(base, f, demande.reutiliserLibres);
        ++r.crees;
    }
    base.FichierModifie = kVrai;
    return r;
}

}  // namespace arbolix
