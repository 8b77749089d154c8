#include "card/medias.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "card/fichiers_lies.h"
#include "card/notes.h"
#include "store/aides_texte.h"
#include "store/chaines.h"
#include "store/liens.h"

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

bool LieuExiste(const Base& base, const LieuMedia& l) {
    if (l.famille)
        return l.numero > 0 && l.numero <= base.Familles.Haut() && l.acte >= 1 && l.acte <= kActesFami;
    return PersonneExiste(base, l.numero) && l.acte >= 0 && l.acte <= kActesPerso;
}

// Le lieu doit exister (LieuExiste).
const ListeMedias& MediasDe(const Base& base, const LieuMedia& l) {
    if (l.famille) return ActeDe(base.Familles[l.numero], l.acte)->Liens().Medias;
    return MediasDe(base.Persos[l.numero], l.acte);
}

ListeMedias& MediasModif(Base& base, const LieuMedia& l) {
    if (l.famille) return ActeDe(base.Familles[l.numero], l.acte)->LiensModif().Medias;
    return MediasModif(base.Persos[l.numero], l.acte);
}

bool ObjetExiste(const Base& base, std::int32_t m) {
    return m > 0 && m <= base.Medias.Haut();
}

// Les fichiers des objets d'une liste, derrière le préfixe de l'évènement qui les tient.
void AjouterLignesMedias(const Base& base, const ListeMedias& medias, const LieuMedia& lieu,
                         const std::string& symbole, std::vector<LigneDivers>& r) {
    const std::string prefixe = symbole.empty() ? std::string() : std::string(1, symbole[0]) + " ";
    for (const auto& [i, m] : medias) {
        if (!ObjetExiste(base, m)) continue;
        for (const auto& [j, chemin] : base.Medias[m].Fichiers)
            if (!chemin.empty())
                r.push_back({prefixe + chemin + " M" + Zeros(m, 6), 'M', m, chemin.str(), 0, lieu});
    }
}

// Les symboles des évènements, dans l'ordre des actes 1..4 d'une personne et 1..3 d'une famille.
constexpr std::string Options::*kSymbolesPerso[kActesPerso] = {&Options::SymbNais, &Options::SymbBapt,
                                                               &Options::SymbDece, &Options::SymbSepu};
constexpr std::string Options::*kSymbolesFami[kActesFami] = {&Options::SymbCoMa, &Options::SymbMari,
                                                             &Options::SymbDivo};

}  // namespace

bool EstImage(std::string_view chemin, std::string_view extensions) {
    const std::string ext = EnMinuscules(ExtensionDe(chemin));
    if (ext.empty()) return false;
    const std::string liste = ";" + EnMinuscules(extensions);
    return liste.find(";" + ext + ";") != std::string::npos;
}

std::vector<LigneDivers> LignesDivers(const Base& base, const Options& options, std::int32_t p) {
    std::vector<LigneDivers> r;
    if (!PersonneExiste(base, p)) return r;
    const Perso& pe = base.Persos[p];
    for (const auto& [i, chemin] : pe.Suite().Fichiers)
        if (!chemin.empty()) r.push_back({chemin + " P" + Zeros(p, 6), 'P', p, chemin.str(), i, {}});
    AjouterLignesMedias(base, pe.Suite().ObjetsMedia, {false, p, 0}, {}, r);
    for (int a = 1; a <= kActesPerso; ++a)
        AjouterLignesMedias(base, ActeDe(pe, a)->Liens().Medias, {false, p, a},
                            options.*kSymbolesPerso[a - 1], r);
    for (int u = 1; u <= kMaxUnions; ++u) {
        const std::int32_t f = pe.Unions[u];
        if (f <= 0 || f > base.Familles.Haut()) continue;
        for (int a = 1; a <= kActesFami; ++a)
            AjouterLignesMedias(base, ActeDe(base.Familles[f], a)->Liens().Medias, {true, f, a},
                                options.*kSymbolesFami[a - 1], r);
    }
    return r;
}

bool LierMedia(Base& base, const LieuMedia& lieu, std::int32_t m) {
    if (!LieuExiste(base, lieu) || !ObjetExiste(base, m)) return false;
    if (!Contient(MediasDe(std::as_const(base), lieu), m) && !PlacerPremierLibre(MediasModif(base, lieu), m))
        return false;
    AccorderRetour(base, 'M', m, lieu.famille, lieu.numero);
    base.FichierModifie = kVrai;
    return true;
}

void DelierMedia(Base& base, const LieuMedia& lieu, std::int32_t m) {
    if (!LieuExiste(base, lieu) || !Contient(MediasDe(std::as_const(base), lieu), m)) return;
    ListeMedias& liste = MediasModif(base, lieu);
    for (int i = 1; i <= kMaxLiens; ++i)
        if (liste(i) == m) liste.Fixer(i, 0);
    AccorderRetour(base, 'M', m, lieu.famille, lieu.numero);
    base.FichierModifie = kVrai;
}

bool LierMedia(Base& base, std::int32_t p, int acte, std::int32_t m) {
    return LierMedia(base, {false, p, acte}, m);
}

void DelierMedia(Base& base, std::int32_t p, int acte, std::int32_t m) {
    DelierMedia(base, {false, p, acte}, m);
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
        if (ligne.rang < 1 || ligne.rang > kMaxLiens) return;
        auto& fichiers = base.Persos[p].SuiteModif().Fichiers;
        // Le trou se referme : les rangs suivants remontent d'un cran.
        for (int i = ligne.rang; i < kMaxLiens; ++i) fichiers.Fixer(i, fichiers(i + 1));
        fichiers.Fixer(kMaxLiens, Texte{});
    } else {
        DelierMedia(base, ligne.lieu, ligne.numero);
        if (dialogue) SupprimerOrpheline(base, 'M', ligne.numero, *dialogue);
    }
    base.FichierModifie = kVrai;
}

void ModifierLienDivers(Base& base, std::int32_t p, const LigneDivers& ligne, std::string_view nouveau) {
    if (!PersonneExiste(base, p) || nouveau.empty()) return;
    if (ligne.genre == 'P') {
        if (ligne.rang < 1 || ligne.rang > kMaxLiens) return;
        base.Persos[p].SuiteModif().Fichiers.Fixer(ligne.rang, Texte(nouveau));
    } else {
        if (!ObjetExiste(base, ligne.numero)) return;
        auto& fichiers = base.Medias[ligne.numero].Fichiers;
        for (int i = 1; i <= kMaxLiens; ++i)
            if (fichiers(i).vue() == ligne.chemin) {
                fichiers.Fixer(i, Texte(nouveau));
                break;
            }
    }
    base.FichierModifie = kVrai;
}

std::int32_t NouvellePersonneImage(Base& base, bool reutiliserLibres) {
    const std::int32_t p = NouvellePersonne(base, true, reutiliserLibres);
    Perso& pe = base.Persos[p];
    pe.Nom = "IMAGE";
    pe.NomTri = NomTri("IMAGE");
    pe.CodeNom = "I520";
    pe.Prenoms = "Image";
    return p;
}

std::vector<std::int32_t> DupliquerLienMedia(Base& base, const LigneDivers& ligne, bool reutiliserLibres,
                                             Dialogue& dialogue) {
    constexpr std::string_view kTitre = "Dupliquer le lien vers de nouvelles fiches";
    std::vector<std::int32_t> creees;
    if (ligne.genre != 'M' || !ObjetExiste(base, ligne.numero)) {
        dialogue.Message(
            kTitre,
            "Ce lien de fichier ne peut pas \xEAtre dupliqu\xE9 car il n'appartient pas \xE0 un objet "
            "m\xE9"
            "dia.",
            Icone::Attention);
        return creees;
    }
    const std::int32_t m = ligne.numero;
    const auto libres = kMaxLiens - static_cast<int>(std::as_const(base.Medias)[m].LiensPersos.Nombre());
    const auto reponse = dialogue.Saisie(
        kTitre, "Entrez le nombre de duplications \xE0 faire :\r\n(" + std::to_string(libres) + " maximum)",
        "1");
    if (!reponse) return creees;
    // Au-delà de neuf, aucune personne de plus ne pourrait jamais être liée à l'objet.
    const auto nombre = std::min<std::int64_t>(ValeurNumerique(*reponse), kMaxLiens);
    int sansPlace = 0;
    for (std::int64_t i = 0; i < nombre; ++i) {
        const std::int32_t p = NouvellePersonneImage(base, reutiliserLibres);
        creees.push_back(p);
        // L'objet plein, la personne ne le cite pas : un lien sans retour ne serait pas relu.
        if (std::as_const(base.Medias)[m].LiensPersos.PremierLibre() > kMaxLiens || !LierMedia(base, p, 0, m))
            ++sansPlace;
    }
    if (sansPlace > 0)
        dialogue.Message(kTitre,
                         "Impossible de lier l'objet m\xE9"
                         "dia n\xB0" +
                             std::to_string(m) + " et les " + std::to_string(sansPlace) +
                             " derni\xE8res personnes cr\xE9\xE9"
                             "es car il y a d\xE9j\xE0 " +
                             std::to_string(kMaxLiens) +
                             " personnes li\xE9"
                             "es \xE0 cet objet m\xE9"
                             "dia.",
                         Icone::Attention);
    if (!creees.empty()) base.FichierModifie = kVrai;
    return creees;
}

namespace {

// Une destination du déplacement : l'acte de la personne (ou de l'union), et ses mots dans les refus.
struct DestinationMedia {
    bool famille;
    int acte;
    std::string_view nom;         // "la naissance" : refus d'un évènement vide ; vide pour les autres
    std::string_view complement;  // "à la naissance" : refus d'un évènement plein
};
constexpr DestinationMedia kDestinations[kDestinationsMedia] = {
    {false, 0, "", "\xE0 la personne"},
    {false, 1, "la naissance", "\xE0 la naissance"},
    {false, 2, "le bapt\xEAme", "au bapt\xEAme"},
    {true, 1, "", "au contrat de mariage"},
    {true, 2, "", "au mariage"},
    {true, 3, "", "au divorce"},
    {false, 3,
     "le d\xE9"
     "c\xE8s",
     "au d\xE9"
     "c\xE8s"},
    {false, 4, "la s\xE9pulture", "\xE0 la s\xE9pulture"},
};
constexpr std::string_view kTitreDeplacer = "Fichier li\xE9";

bool ActeRenseigne(const Acte& a) {
    return !a.Date.empty() || !a.Lieu.empty() || !a.Notes.empty() || !a.Source.empty() ||
           !a.Liens().Temoins.empty();
}

// L'union où va le lien, ou nullopt après le message de refus.
std::optional<std::int32_t> UnionDestination(const Base& base, std::int32_t p, std::int32_t choisie,
                                             Dialogue& dialogue) {
    const Perso& pe = base.Persos[p];
    std::vector<std::int32_t> unions;
    for (int u = 1; u <= kMaxUnions; ++u)
        if (pe.Unions[u] > 0 && pe.Unions[u] <= base.Familles.Haut()) unions.push_back(pe.Unions[u]);
    if (unions.empty()) {
        dialogue.Message(kTitreDeplacer,
                         "Erreur ! Il n'existe aucune union pour la personne affich\xE9"
                         "e, impossible de "
                         "d\xE9placer l'image li\xE9"
                         "e vers une union.",
                         Icone::Attention);
        return std::nullopt;
    }
    if (std::find(unions.begin(), unions.end(), choisie) != unions.end()) return choisie;
    if (unions.size() == 1) return unions.front();
    dialogue.Message(kTitreDeplacer,
                     "Erreur ! Quand il y a plusieurs unions pour la personne affich\xE9"
                     "e, il faut d'abord "
                     "s\xE9lectionner l'union puis d\xE9placer l'image li\xE9"
                     "e.",
                     Icone::Attention);
    return std::nullopt;
}

}  // namespace

bool DeplacerLienMedia(Base& base, std::int32_t p, const LigneDivers& ligne, int destination,
                       std::int32_t unionChoisie, Dialogue& dialogue) {
    if (ligne.genre != 'M' || !PersonneExiste(base, p) || !ObjetExiste(base, ligne.numero) ||
        destination < 0 || destination >= kDestinationsMedia)
        return false;
    const DestinationMedia& d = kDestinations[destination];
    LieuMedia vers{d.famille, p, d.acte};
    if (d.famille) {
        const auto f = UnionDestination(base, p, unionChoisie, dialogue);
        if (!f) return false;
        vers.numero = *f;
    } else if (d.acte > 0 && !ActeRenseigne(*ActeDe(std::as_const(base.Persos)[p], d.acte))) {
        dialogue.Message(kTitreDeplacer,
                         "Erreur ! Il n'existe aucune information sur " + std::string(d.nom) +
                             ", impossible de d\xE9placer l'image li\xE9"
                             "e vers " +
                             std::string(d.nom) + ".",
                         Icone::Attention);
        return false;
    }
    if (vers == ligne.lieu) return false;
    if (!LierMedia(base, vers, ligne.numero)) {
        dialogue.Message(kTitreDeplacer,
                         "Impossible de d\xE9placer l'image li\xE9"
                         "e car il existe d\xE9j\xE0 " +
                             std::to_string(kMaxLiens) +
                             " images li\xE9"
                             "es " +
                             std::string(d.complement) + ".",
                         Icone::Attention);
        return false;
    }
    DelierMedia(base, ligne.lieu, ligne.numero);
    return true;
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
                                          Icone::Question, Boutons::OuiNon, Bouton::Non);
        return {b == Bouton::Oui ? Ouverture::SupprimerLien : Ouverture::Introuvable, {}};
    }
    if (mode == 3 && !EstImage(*trouve)) return {Ouverture::PasUneImage, *trouve};
    if (mode == 1) dialogue.OuvrirDansProgramme(*trouve);
    // Les propriétés : le dossier qui tient le fichier, dans le gestionnaire de fichiers.
    if (mode == 2) dialogue.OuvrirDansProgramme(fs::path(*trouve).parent_path().string());
    return {Ouverture::Ouvert, *trouve};
}

std::optional<std::string> PhotoDePersonne(const Base& base, const Options& options, std::int32_t p,
                                           const LieuxFichiers& lieux, std::string_view extensions) {
    for (const LigneDivers& l : LignesDivers(base, options, p))
        if (EstImage(l.chemin, extensions))
            if (auto trouve = TrouverFichier(l.chemin, lieux)) return trouve;
    return std::nullopt;
}

}  // namespace arbolix
