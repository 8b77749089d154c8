#include "card/medias.h"

#include "card/fichiers_lies.h"

#include <filesystem>
#include <utility>

#include "card/notes.h"
#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

namespace fs = std::filesystem;

namespace {

using ListeMedias = Emplacements<std::int32_t, 1, kMaxLiens>;

std::string_view ExtensionDe(std::string_view chemin) {
    const std::size_t barre = chemin.find_last_of('/');
    const std::string_view nom = barre == std::string_view::npos ? chemin : chemin.substr(barre + 1);
    const std::size_t point = nom.rfind('.');
    return point == std::string_view::npos ? std::string_view{} : nom.substr(point + 1);
}

const ListeMedias& MediasDe(const Perso& p, int acte) {
    const Acte* a = ActeDe(p, acte);
    return a ? a->Liens().Medias : p.Suite().ObjetsMedia;
}

ListeMedias& MediasModif(Perso& p, int acte) {
    Acte* a = ActeDe(p, acte);
    return a ? a->LiensModif().Medias : p.SuiteModif().ObjetsMedia;
}

}  // namespace

bool EstImage(std::string_view chemin, std::string_view extensions) {
    const std::string ext = EnMinuscules(ExtensionDe(chemin));
    if (ext.empty()) return false;
    const std::string liste = ";" + EnMinuscules(extensions);
    return liste.find(";" + ext + ";") != std::string::npos;
}

std::vector<LigneDivers> LignesDivers(const Base& base, std::int32_t p) {
    std::vector<LigneDivers> r;
    if (!PersonneExiste(base, p)) return r;
    const PersoSuite& s = base.Persos[p].Suite();
    for (const auto& [i, chemin] : s.Fichiers)
        r.push_back({chemin + " P" + Zeros(i, 6), 'P', i, chemin.str()});
    for (const auto& [i, m] : s.ObjetsMedia) {
        if (m <= 0 || m > base.Medias.Haut()) continue;
        for (const auto& [j, chemin] : base.Medias[m].Fichiers)
            r.push_back({chemin + " M" + Zeros(m, 6), 'M', m, chemin.str()});
    }
    return r;
}

std::optional<LigneDivers> LireLigneDivers(std::string_view ligne) {
    if (ligne.size() < 8) return std::nullopt;
    const std::string_view fin = Droite(ligne, 8);
    if (fin[0] != ' ' || (fin[1] != 'P' && fin[1] != 'M') || !EstNumerique(fin.substr(2))) return std::nullopt;
    LigneDivers l;
    l.texte = ligne;
    l.genre = fin[1];
    l.numero = static_cast<std::int32_t>(ValeurNumerique(fin.substr(2)));
    l.chemin = ligne.substr(0, ligne.size() - 8);
    return l;
}

bool LierMedia(Base& base, std::int32_t p, int acte, std::int32_t m) {
    if (!PersonneExiste(base, p) || m <= 0 || m > base.Medias.Haut()) return false;
    if (!Contient(MediasDe(std::as_const(base.Persos)[p], acte), m) &&
        !PlacerPremierLibre(MediasModif(base.Persos[p], acte), m))
        return false;
    AccorderRetour(base, 'M', m, false, p);
    base.FichierModifie = kVrai;
    return true;
}

void DelierMedia(Base& base, std::int32_t p, int acte, std::int32_t m) {
    if (!PersonneExiste(base, p) || !Contient(MediasDe(std::as_const(base.Persos)[p], acte), m)) return;
    ListeMedias& liste = MediasModif(base.Persos[p], acte);
    for (int i = 1; i <= kMaxLiens; ++i)
        if (liste(i) == m) liste.Fixer(i, 0);
    AccorderRetour(base, 'M', m, false, p);
    base.FichierModifie = kVrai;
}

std::int32_t NouvelObjetMedia(Base& base, std::string_view chemin) {
    const std::int32_t m = base.NbMedias + 1;
    if (m > base.Medias.Haut()) RedimensionnerBase(base, (m / 5000 + 1) * 5000);
    ObjetMedia& o = base.Medias[m];
    o = ObjetMedia{};
    o.Fichiers.Fixer(1, Texte(chemin));
    o.Actif = -1;
    base.NbMedias = m;
    ++base.NbMediasReels;
    base.FichierModifie = kVrai;
    return m;
}

bool AjouterFichier(Base& base, std::int32_t p, std::string_view chemin, Dialogue& dialogue) {
    if (!PersonneExiste(base, p) || chemin.empty()) return false;
    auto& fichiers = base.Persos[p].SuiteModif().Fichiers;
    if (!PlacerPremierLibre(fichiers, Texte(chemin))) {
        dialogue.Message("Ajouter un fichier",
                         "Impossible d'ajouter le fichier \xE0 cette personne car il y a d\xE9j\xE0 " +
                             std::to_string(kMaxLiens) + " fichiers li\xE9s.",
                         Icone::Attention);
        return false;
    }
    base.FicheModifiee = kVrai;
    return true;
}

std::optional<std::string> AjouterFichierChoisi(Base& base, std::int32_t p, std::string_view dernierFichier,
                                                std::string_view dossierImages, Dialogue& dialogue) {
    std::string depart(dossierImages);
    if (!dernierFichier.empty()) depart = fs::path(dernierFichier).parent_path().string();
    auto chemin = dialogue.ChoisirFichierOuvrir("Fichier \xE0 lier...", "Tous les fichiers (*.*)", depart);
    if (!chemin || !AjouterFichier(base, p, *chemin, dialogue)) return std::nullopt;
    return chemin;
}

void SupprimerLienDivers(Base& base, std::int32_t p, const LigneDivers& ligne, Dialogue* dialogue) {
    if (!PersonneExiste(base, p)) return;
    if (ligne.genre == 'P') {
        if (ligne.numero < 1 || ligne.numero > kMaxLiens) return;
        auto& fichiers = base.Persos[p].SuiteModif().Fichiers;
        // Le trou se referme : les rangs suivants remontent d'un cran.
        for (int i = ligne.numero; i < kMaxLiens; ++i) fichiers.Fixer(i, fichiers(i + 1));
        fichiers.Fixer(kMaxLiens, Texte{});
    } else {
        DelierMedia(base, p, 0, ligne.numero);
        if (dialogue) SupprimerOrpheline(base, 'M', ligne.numero, *dialogue);
    }
    base.FichierModifie = kVrai;
}

void ModifierLienDivers(Base& base, std::int32_t p, const LigneDivers& ligne, std::string_view nouveau) {
    if (!PersonneExiste(base, p) || nouveau.empty()) return;
    if (ligne.genre == 'P') {
        if (ligne.numero < 1 || ligne.numero > kMaxLiens) return;
        base.Persos[p].SuiteModif().Fichiers.Fixer(ligne.numero, Texte(nouveau));
    } else {
        if (ligne.numero <= 0 || ligne.numero > base.Medias.Haut()) return;
        auto& fichiers = base.Medias[ligne.numero].Fichiers;
        for (int i = 1; i <= kMaxLiens; ++i)
            if (fichiers(i).vue() == ligne.chemin) {
                fichiers.Fixer(i, Texte(nouveau));
                break;
            }
    }
    base.FichierModifie = kVrai;
}

std::optional<std::string> TrouverFichier(std::string_view chemin, const LieuxFichiers& lieux) {
    // Une seule recherche pour la fiche et l'éditeur : texte 1252 rendu en chemin du système.
    const auto trouve = TrouverFichierLie(chemin, lieux.dossierImages, lieux.dossierGedcom);
    if (!trouve) return std::nullopt;
    return trouve->string();
}

ResultatOuverture OuvrirFichier(std::string_view chemin, int mode, const LieuxFichiers& lieux,
                                Dialogue& dialogue) {
    const auto trouve = TrouverFichier(chemin, lieux);
    if (!trouve) {
        const Bouton b = dialogue.Message("Fichier introuvable", MessageFichierIntrouvable(chemin, true),
                                          Icone::Question, Boutons::OuiNon);
        return {b == Bouton::Oui ? Ouverture::SupprimerLien : Ouverture::Introuvable, {}};
    }
    if (mode == 3 && !EstImage(*trouve)) return {Ouverture::PasUneImage, *trouve};
    if (mode == 1) dialogue.OuvrirDansProgramme(*trouve);
    return {Ouverture::Ouvert, *trouve};
}

std::optional<std::string> PhotoDePersonne(const Base& base, std::int32_t p, const LieuxFichiers& lieux,
                                           std::string_view extensions) {
    for (const LigneDivers& l : LignesDivers(base, p))
        if (EstImage(l.chemin, extensions))
            if (auto trouve = TrouverFichier(l.chemin, lieux)) return trouve;
    return std::nullopt;
}

}  // namespace arbolix
