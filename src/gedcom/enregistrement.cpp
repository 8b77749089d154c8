#include "gedcom/enregistrement.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <streambuf>
#include <system_error>

#include "platform/cp1252.h"
#include "store/selection.h"

namespace arbolix {

namespace fs = std::filesystem;

namespace {

// Un flux sur un descripteur : retient la première erreur d'écriture (errno),
// que std::ofstream perdrait, pour dire « disque plein » plutôt que « échec ».
class FluxDescripteur : public std::streambuf {
public:
    explicit FluxDescripteur(int fd) : fd_(fd), tampon_(1 << 20) {
        setp(tampon_.data(), tampon_.data() + tampon_.size());
    }
    int Erreur() const { return erreur_; }

protected:
    int overflow(int c) override {
        if (!Vider()) return traits_type::eof();
        if (c != traits_type::eof()) {
            *pptr() = static_cast<char>(c);
            pbump(1);
        }
        return traits_type::not_eof(c);
    }
    int sync() override { return Vider() ? 0 : -1; }
    std::streamsize xsputn(const char* s, std::streamsize n) override {
        // Les gros blocs de l'écrivain vont droit au disque, sans recopie.
        if (n < static_cast<std::streamsize>(tampon_.size()) / 2) return std::streambuf::xsputn(s, n);
        if (!Vider() || !Ecrire(s, static_cast<std::size_t>(n))) return 0;
        return n;
    }

private:
    bool Vider() {
        const auto n = static_cast<std::size_t>(pptr() - pbase());
        setp(tampon_.data(), tampon_.data() + tampon_.size());
        return Ecrire(tampon_.data(), n);
    }
    bool Ecrire(const char* s, std::size_t n) {
        while (n > 0 && erreur_ == 0) {
            const ssize_t r = ::write(fd_, s, n);
            if (r < 0) {
                if (errno != EINTR) erreur_ = errno;
                continue;
            }
            s += r;
            n -= static_cast<std::size_t>(r);
            ecrits_ += static_cast<std::size_t>(r);
        }
        if (ecrits_ >= envoyes_ + kFenetre) Envoyer();
        return erreur_ == 0;
    }

    // Un gros fichier part au disque par fenêtres pendant qu'il s'écrit, et les pages déjà
    // sur le disque quittent la mémoire : le cache ne grossit pas de tout le fichier, et la
    // synchronisation finale n'a plus que la dernière fenêtre à attendre.
    void Envoyer() {
#if defined(__linux__)
        const auto debut = static_cast<off_t>(envoyes_);
        sync_file_range(fd_, debut, static_cast<off_t>(ecrits_ - envoyes_), SYNC_FILE_RANGE_WRITE);
        // La fenêtre précédente, partie au tour d'avant : on attend qu'elle soit sur le disque.
        if (envoyes_ > precedente_) {
            const auto avant = static_cast<off_t>(precedente_);
            sync_file_range(fd_, avant, debut - avant,
                            SYNC_FILE_RANGE_WAIT_BEFORE | SYNC_FILE_RANGE_WRITE | SYNC_FILE_RANGE_WAIT_AFTER);
            posix_fadvise(fd_, avant, debut - avant, POSIX_FADV_DONTNEED);
        }
#endif
        precedente_ = envoyes_;
        envoyes_ = ecrits_;
    }

    static constexpr std::size_t kFenetre = std::size_t{32} << 20;
    int fd_;
    std::vector<char> tampon_;
    int erreur_ = 0;
    // Octets écrits, octets déjà envoyés au disque, début de la dernière fenêtre envoyée (elle
    // va de là à envoyes_ et n'a pas encore été attendue).
    std::size_t ecrits_ = 0, envoyes_ = 0, precedente_ = 0;
};

std::string En1252(const fs::path& p) {
    return Utf8VersCp1252(p.string());
}

EtatFichier Echec(const fs::path& chemin, std::string_view raison, bool ancienGarde) {
    std::string m =
        "Le fichier " + En1252(chemin) + " n'a pas pu \xEAtre enregistr\xE9 : " + std::string(raison) + ".";
    if (ancienGarde) m += " L'ancien fichier est rest\xE9 intact.";
    return {false, m};
}

// Raison d'un errno, le dossier nommé quand c'est lui qui manque. Un dossier
// présent qui répond ENOENT (/proc et semblables) refuse la création.
std::string Raison(int erreur, const fs::path& dossier) {
    std::error_code ec;
    if (erreur == ENOENT && !fs::exists(dossier, ec))
        return "le dossier " + En1252(dossier) + " est introuvable";
    if (erreur == ENOENT) return "le dossier " + En1252(dossier) + " refuse la cr\351ation de fichiers";
    return RaisonEchec(erreur);
}

// Droits du nouveau fichier : ceux de l'ancien, sinon ceux d'un fichier créé par le programme.
mode_t DroitsVoulus(const fs::path& chemin) {
    struct stat s {};
    if (::stat(chemin.c_str(), &s) == 0) return s.st_mode & 07777;
    const mode_t masque = ::umask(0);
    ::umask(masque);
    return 0666 & ~masque;
}

void SynchroniserDossier(const fs::path& dossier) {
    // Sans cela le renommage peut se perdre dans une coupure de courant ; sans gravité s'il échoue.
    const int fd = ::open(dossier.c_str(), O_RDONLY | O_DIRECTORY);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

// Copie octet pour octet d'un fichier dans un flux.
bool Recopier(const fs::path& source, std::ostream& o) {
    std::ifstream in(source, std::ios::binary);
    if (!in) return false;
    std::vector<char> bloc(1 << 16);
    while (in.read(bloc.data(), static_cast<std::streamsize>(bloc.size())) || in.gcount() > 0)
        o.write(bloc.data(), in.gcount());
    return in.eof() && o.good();
}

std::string_view SansPrefixe(std::string_view s, std::string_view prefixe) {
    return s.starts_with(prefixe) ? s.substr(prefixe.size()) : s;
}

}  // namespace

std::string RaisonEchec(int erreur) {
    struct Ligne {
        int code;
        std::string_view raison;
    };
    static constexpr Ligne kRaisons[] = {
        {ENOSPC, "le disque est plein"},
        {EDQUOT, "le quota du disque est atteint"},
        {EACCES, "l'\351criture est interdite dans ce dossier"},
        {EPERM, "l'\351criture est interdite dans ce dossier"},
        {EROFS, "le disque est en lecture seule"},
        {ENOENT, "le dossier est introuvable"},
        {ENOTDIR, "un \xE9l\xE9ment du chemin n'est pas un dossier"},
        {EISDIR, "ce nom est celui d'un dossier"},
        {ENAMETOOLONG, "le nom est trop long"},
        {EFBIG, "le fichier d\xE9passe la taille permise"},
        {EIO, "erreur d'entr\351e-sortie sur le disque"},
    };
    for (const auto& l : kRaisons)
        if (l.code == erreur) return std::string(l.raison);
    return "erreur syst\xE8me " + std::to_string(erreur);
}

EtatFichier EcrireFichierSur(const std::string& nom, const std::function<bool(std::ostream&)>& ecrire) {
    std::error_code ec;
    fs::path chemin(nom);
    // Un lien symbolique reste un lien : c'est le fichier qu'il désigne qu'on remplace.
    if (fs::is_symlink(chemin, ec)) chemin = fs::weakly_canonical(chemin, ec);
    const bool ancien = fs::is_regular_file(chemin, ec);
    if (fs::is_directory(chemin, ec)) return Echec(chemin, RaisonEchec(EISDIR), false);
    if (struct stat s{}; ancien && ::stat(chemin.c_str(), &s) == 0 &&
                         LectureSeule(s.st_mode, s.st_uid, s.st_gid, Ecrivant::Courant()))
        return Echec(chemin, "le fichier est en lecture seule", true);
    const fs::path dossier = chemin.has_parent_path() ? chemin.parent_path() : fs::path(".");
    if (!fs::exists(dossier, ec)) return Echec(chemin, Raison(ENOENT, dossier), false);
    if (!fs::is_directory(dossier, ec)) return Echec(chemin, RaisonEchec(ENOTDIR), false);

    // Caché et à côté de la cible : le renommage reste dans le même système de fichiers.
    std::string cache = ".";
    cache.append(chemin.filename().string()).append(".XXXXXX");
    std::string modele = (dossier / cache).string();
    const int fd = ::mkstemp(modele.data());
    if (fd < 0) return Echec(chemin, Raison(errno, dossier), ancien);
    const fs::path temporaire(modele);
    const auto abandonner = [&](std::string_view raison) {
        ::close(fd);
        ::unlink(temporaire.c_str());
        return Echec(chemin, raison, ancien);
    };

    FluxDescripteur tampon(fd);
    std::ostream flux(&tampon);
    bool complet = false;
    try {
        complet = ecrire(flux);
    } catch (const std::exception& e) {
        return abandonner("erreur inattendue (" + std::string(e.what()) + ")");
    }
    flux.flush();
    if (tampon.Erreur() != 0) return abandonner(Raison(tampon.Erreur(), dossier));
    if (!complet || !flux.good()) return abandonner("l'\351criture a \351chou\xE9");
    if (::fchmod(fd, DroitsVoulus(chemin)) != 0 || ::fsync(fd) != 0)
        return abandonner(Raison(errno, dossier));
    if (::close(fd) != 0) {
        const int e = errno;
        ::unlink(temporaire.c_str());
        return Echec(chemin, Raison(e, dossier), ancien);
    }
    if (::rename(temporaire.c_str(), chemin.c_str()) != 0) {
        const int e = errno;
        ::unlink(temporaire.c_str());
        return Echec(chemin, Raison(e, dossier), ancien);
    }
    SynchroniserDossier(dossier);
    return {};
}

Ecrivant Ecrivant::Courant() {
    Ecrivant e{static_cast<unsigned>(::geteuid()), static_cast<unsigned>(::getegid()), {}};
    const int n = ::getgroups(0, nullptr);
    std::vector<gid_t> groupes(static_cast<std::size_t>(std::max(n, 0)));
    if (n > 0 && ::getgroups(n, groupes.data()) == n) e.groupes.assign(groupes.begin(), groupes.end());
    return e;
}

bool LectureSeule(unsigned mode, unsigned proprietaire, unsigned groupe, const Ecrivant& e) {
    if (e.uid == 0) return (mode & 0222) == 0;
    if (e.uid == proprietaire) return (mode & S_IWUSR) == 0;
    const bool duGroupe =
        e.gid == groupe || std::find(e.groupes.begin(), e.groupes.end(), groupe) != e.groupes.end();
    return (mode & (duGroupe ? S_IWGRP : S_IWOTH)) == 0;
}

std::string NomFichierSelection(std::string_view fichier) {
    return std::string(fichier.substr(0, fichier.size() >= 4 ? fichier.size() - 4 : 0)) + "_sel.ged";
}

ChoixEnregistrement PreparerEnregistrement(Base& base, OptionsGedcom& gedcom, bool toutSelectionne,
                                           Dialogue& dialogue) {
    ChoixEnregistrement choix;
    choix.FichierInitial = gedcom.Fichier;
    if (!toutSelectionne &&
        dialogue.Message(
            "S\xE9lection active partielle",
            "La s\xE9lection active ne porte pas sur toute la base de donn\351es. Etes-vous s\xFBr de "
            "vouloir faire un enregistrement partiel ? Si oui, modifiez le nom du fichier dans la bo\xEEte "
            "de dialogue suivante.\r\nApr\xE8s l'enregistrement, la s\xE9lection portera \xE0 nouveau sur "
            "tout le fichier. Lors de l'enregistrement suivant, le fichier reprendra son nom initial.",
            Icone::Question, Boutons::OuiNon) == Bouton::Oui) {
        choix.Partiel = true;
        gedcom.Fichier = NomFichierSelection(gedcom.Fichier);
        return choix;
    }
    ToutSelectionner(base);
    return choix;
}

CopieLiee CibleCopieLiee(std::string_view chemin, const std::string& fichierGed,
                         const std::string& sauvegarde) {
    const std::string lien = Cp1252VersUtf8(chemin);
    const fs::path dossierGed = fs::path(fichierGed).parent_path();
    // "../" (ou "..\" d'un fichier venu de Windows) : un dossier plus haut par morceau.
    std::string_view reste = lien;
    fs::path source = dossierGed;
    bool remonte = false;
    while (reste.starts_with("../") || reste.starts_with("..\\")) {
        reste.remove_prefix(3);
        source = source.parent_path();
        remonte = true;
    }
    if (remonte) return {source / reste, fs::path(sauvegarde) / reste};
    const fs::path p(lien);
    if (p.is_relative()) return {dossierGed / p, fs::path(sauvegarde) / p};
    const std::string prefixe = dossierGed.string() + "/";
    if (lien.starts_with(prefixe)) return {p, fs::path(sauvegarde) / SansPrefixe(lien, prefixe)};
    // Hors du dossier du fichier : on garde le seul nom.
    return {p, fs::path(sauvegarde) / p.filename()};
}

namespace {

void CopierFichiersLies(const ContexteEnregistrement& ctx, ResultatEnregistrement& r) {
    const Base& b = ctx.base;
    const std::int32_t fin = std::min(b.NbPersos, b.Persos.Haut());
    for (std::int32_t n = 1; n <= fin; ++n) {
        if (b.Persos.PageVierge(n)) {
            n = b.Persos.FinDePage(n);
            continue;
        }
        const Perso& p = b.Persos[n];
        if (p.Sel == 0) continue;
        const PersoSuite& s = p.Suite();
        for (int i = 1; i <= kMaxLiens && !s.Fichiers(i).empty(); ++i) {
            const CopieLiee c = CibleCopieLiee(s.Fichiers(i), ctx.gedcom.Fichier, ctx.options.Chemin[1]);
            std::error_code ec;
            fs::create_directories(c.cible.parent_path(), ec);
            if (!ec) fs::copy_file(c.source, c.cible, fs::copy_options::overwrite_existing, ec);
            if (ec)
                r.Avertissements.push_back("Le fichier li\xE9 " + En1252(c.source) +
                                           " n'a pas pu \xEAtre copi\xE9 vers " + En1252(c.cible) + " : " +
                                           Raison(ec.value(), c.cible.parent_path()) + ".");
        }
    }
}

void CopieDeSauvegarde(const ContexteEnregistrement& ctx) {
    const std::string& dossier = ctx.options.Chemin[1];
    std::error_code ec;
    if (dossier.empty() || !fs::is_directory(dossier, ec)) {
        // Sans blanc après le dossier : le texte est gardé tel quel.
        ctx.dialogue.Message(
            "Sauvegarde impossible",
            "Le chemin " + Utf8VersCp1252(dossier) + "configur\xE9 pour la sauvegarde est introuvable.",
            Icone::Attention);
        return;
    }
    const fs::path source(ctx.gedcom.Fichier);
    const fs::path cible = fs::path(dossier) / ("sauvegarde_" + source.filename().string());
    const EtatFichier e =
        EcrireFichierSur(cible.string(), [&](std::ostream& o) { return Recopier(source, o); });
    if (!e.Ok) ctx.dialogue.Message("Sauvegarde impossible", e.Message, Icone::Attention);
}

}  // namespace

ResultatEnregistrement EnregistrerGedcom(ContexteEnregistrement& ctx, const ChoixEnregistrement& choix) {
    ResultatEnregistrement r;
    if (ctx.gedcom.Fichier.empty()) {
        r.Erreur = "Vous devez indiquer un nom de fichier.";
        return r;
    }
    const ContexteEcriture ecriture{ctx.gedcom, ctx.entete, ctx.aujourdhui, ctx.progression};
    const EtatFichier e = EcrireFichierSur(
        ctx.gedcom.Fichier, [&](std::ostream& flux) { return EcrireGedcom(ctx.base, ecriture, flux); });
    if (!e.Ok) {
        r.Erreur = e.Message;
        return r;
    }
    r.Enregistre = true;
    // Les fichiers liés des personnes écrites, avant que la sélection ne change.
    std::error_code ec;
    if (ctx.options.Sauvegarder && ctx.gedcom.Fichiers && fs::is_directory(ctx.options.Chemin[1], ec))
        CopierFichiersLies(ctx, r);
    if (!choix.Partiel) ctx.base.FichierModifie = kFaux;
    ToutSelectionner(ctx.base);
    if (ctx.options.Sauvegarder) CopieDeSauvegarde(ctx);
    if (choix.Partiel) ctx.gedcom.Fichier = choix.FichierInitial;
    return r;
}

std::string NomDuTitre(std::string_view titre) {
    const auto tiret = titre.find(" - ");
    std::string_view nom = tiret == std::string_view::npos ? std::string_view() : titre.substr(tiret + 3);
    const auto queue = nom.find(" (enr");
    return std::string(nom.substr(0, queue));
}

}  // namespace arbolix
