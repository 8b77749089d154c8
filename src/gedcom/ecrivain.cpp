#include "gedcom/ecrivain.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "dates/calendrier_gregorien.h"
#include "dates/date_gedcom.h"
#include "gedcom/lecture_liens.h"
#include "platform/cp1252.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::size_t kBloc = 1 << 20;
// Le formulaire est rafraîchi toutes les kPasProgression personnes.
constexpr std::int32_t kPasProgression = 10000;

// Un évènement s'écrit quand il a une donnée, un témoin, ou qu'il est connu sans date.
bool ActeAEcrire(const Acte& a) {
    if (!a.Date.empty() || !a.Lieu.empty() || !a.Notes.empty() || !a.Source.empty() || a.Connu) return true;
    for (const auto& [i, t] : a.Liens().Temoins)
        if (i >= 1 && t > 0) return true;
    return false;
}

// Deux textes de note l'un sous l'autre ; sans copie quand l'un est vide, le cas courant.
// Il peut désigner l'un des deux : il ne doit pas leur survivre.
class Joint {
public:
    Joint(std::string_view a, std::string_view b) {
        if (a.empty() || b.empty()) {
            vue_ = a.empty() ? b : a;
        } else {
            texte_.append(a).append("\r\n").append(b);
            vue_ = texte_;
        }
    }
    Joint(const Joint&) = delete;
    std::string_view vue() const { return vue_; }
    operator std::string_view() const { return vue_; }

private:
    std::string texte_;
    std::string_view vue_;
};

Joint Joindre(std::string_view a, std::string_view b) {
    return Joint(a, b);
}

bool Blanc(std::string_view t) {
    return t.find_first_not_of(" \r\n") == std::string_view::npos;
}

// Le prochain lien "@S12@" à partir de depuis : sa position, sa fin et son numéro.
struct LienTrouve {
    std::size_t debut = std::string_view::npos, fin = 0;
    std::int32_t numero = 0;
};
LienTrouve ProchainLien(std::string_view t, std::size_t depuis, char genre) {
    const char ouverture[] = {'@', genre};
    for (std::size_t p = t.find(std::string_view(ouverture, 2), depuis); p != std::string_view::npos;
         p = t.find(std::string_view(ouverture, 2), p + 1)) {
        const std::size_t fin = t.find('@', p + 2);
        if (fin == std::string_view::npos) break;
        const std::int32_t n = NumeroDuLien(t.substr(p, fin + 1 - p), genre);
        if (n > 0) return {p, fin + 1, n};
    }
    return {};
}

bool NoteAUneLigne(std::string_view note, std::string_view ligne) {
    for (std::size_t debut = 0; debut <= note.size();) {
        const std::size_t fin = std::min(note.find("\r\n", debut), note.size());
        if (SansBlancs(note.substr(debut, fin - debut)) == ligne) return true;
        debut = fin + 2;
    }
    return false;
}

std::size_t FinDuDossier(std::string_view chemin) {
    const auto p = chemin.find_last_of("/\\");
    return p == std::string_view::npos ? 0 : p + 1;
}

// Ce qui suit le dernier "." du nom de fichier (pas d'un dossier) ; vide sans point.
std::string_view Extension(std::string_view chemin) {
    const std::string_view nom = chemin.substr(FinDuDossier(chemin));
    const auto point = nom.rfind('.');
    return point == std::string_view::npos ? std::string_view() : nom.substr(point + 1);
}

// Champs de l'adresse sous "2 ADDR", dans l'ordre du fichier.
struct ChampAdresse {
    std::string_view ligne;
    Texte PersoSuite::*champ;
};
constexpr ChampAdresse kAdresse[] = {
    {"3 ADR1 ", &PersoSuite::Adresse1},  {"3 ADR2 ", &PersoSuite::Adresse2}, {"3 CITY ", &PersoSuite::Ville},
    {"3 STAE ", &PersoSuite::Etat},      {"3 POST ", &PersoSuite::CP},       {"3 CTRY ", &PersoSuite::Pays},
    {"2 PHON ", &PersoSuite::Telephone},
};
constexpr ChampAdresse kAdresseGenealogiste[] = {
    {"2 CITY ", &PersoSuite::Ville},
    {"2 STAE ", &PersoSuite::Etat},
    {"2 POST ", &PersoSuite::CP},
    {"2 CTRY ", &PersoSuite::Pays},
};

template <typename T>
const T& Fiche(const Tableau<T>& t, std::int32_t n) {
    static const T vierge{};
    return n >= t.Bas() && n <= t.Haut() ? t[n] : vierge;
}

}  // namespace

std::string EnteteGedcom(std::string_view titre, std::string_view version, std::string_view societe,
                         std::string_view commentaire) {
    std::string e;
    const std::string_view lignes[][2] = {
        {"0 HEAD", ""},           {"1 SOUR ", titre},
        {"2 VERS ", version},     {"2 CORP ", societe},
        {"3 ADDR ", commentaire}, {"1 GEDC", ""},
        {"2 VERS 5.5", ""},       {"2 FORM LINEAGE-LINKED", ""},
        {"1 CHAR ANSI", ""},      {"1 LANG French", ""},
        {"1 DEST ANSTFILE", ""},
    };
    for (const auto& l : lignes) e.append(l[0]).append(l[1]).append("\r\n");
    return e;
}

const std::string& EnteteArbolix() {
    static const std::string entete =
        EnteteGedcom("Arbolix", ARBOLIX_VERSION, "Projet Arbolix", "Logiciel libre de g\xE9n\351alogie");
    return entete;
}

std::string DateDuJour() {
    return FormatDateCourte(DateMachine());
}

EcrivainGedcom::EcrivainGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream* flux)
    : base_(base), ctx_(contexte), cases_(contexte.gedcom), flux_(flux) {
    const std::string fichier = Utf8VersCp1252(cases_.Fichier);
    dossier_ = fichier.substr(0, FinDuDossier(fichier));
    const std::int32_t personnes = std::max(0, std::min(base_.NbPersos, base_.Persos.Haut()));
    personnesEcrites_.assign(static_cast<std::size_t>(personnes) + 1, false);
    base_.Persos.PourChaqueEcrit(1, personnes, [this](std::int32_t n) {
        personnesEcrites_[static_cast<std::size_t>(n)] = P(n).Sel != 0;
    });
    const std::int32_t familles = std::max(0, std::min(base_.NbFamis, base_.Familles.Haut()));
    famillesEcrites_.assign(static_cast<std::size_t>(familles) + 1, false);
    base_.Familles.PourChaqueEcrit(1, familles, [this](std::int32_t f) {
        famillesEcrites_[static_cast<std::size_t>(f)] = FamilleAEcrire(f);
    });
}

const Perso& EcrivainGedcom::P(std::int32_t n) const {
    return Fiche(base_.Persos, n);
}
const Fami& EcrivainGedcom::F(std::int32_t f) const {
    return Fiche(base_.Familles, f);
}

void EcrivainGedcom::Ajouter(std::int32_t n) {
    char chiffres[12];
    const auto r = std::to_chars(chiffres, chiffres + sizeof chiffres, n);
    tampon_.append(chiffres, r.ptr);
}

// Une barre oblique fermerait le nom à la relecture, qui perdrait ce qui la suit
// ("Perry /Willis/ Sr.") : elle s'écrit ",", comme la lecture répare une barre de trop.
void EcrivainGedcom::Ajouter(SansBarre s) {
    const std::size_t debut = tampon_.size();
    tampon_.append(s.texte);
    std::replace(tampon_.begin() + static_cast<std::ptrdiff_t>(debut), tampon_.end(), '/', ',');
}

template <typename... Morceaux>
void EcrivainGedcom::Ligne(const Morceaux&... m) {
    (Ajouter(m), ...);
    tampon_.append("\r\n");
}

void EcrivainGedcom::AjouterLignes(std::string_view texte, std::string_view suite) {
    for (std::size_t p; (p = texte.find("\r\n")) != std::string_view::npos;) {
        tampon_.append(texte.substr(0, p)).append(suite);
        texte.remove_prefix(p + 2);
    }
    tampon_.append(texte);
}

void EcrivainGedcom::Vider(bool toujours) {
    if (!flux_ || (!toujours && tampon_.size() < kBloc)) return;
    flux_->write(tampon_.data(), static_cast<std::streamsize>(tampon_.size()));
    tampon_.clear();
}

bool EcrivainGedcom::EcrireGedcom() {
    // Sans flux tout reste en mémoire : une estimation évite les recopies d'un tampon qui double.
    // Elle suit les fiches réelles : un numéro isolé très haut ne doit pas réserver des gigaoctets.
    tampon_.reserve(flux_ ? kBloc + kBloc / 4
                          : 4096 + 128 * static_cast<std::size_t>(std::max(base_.NbPersosReels, 0)) +
                                64 * static_cast<std::size_t>(std::max(base_.NbFamisReels, 0)));
    Ajouter(ctx_.entete);
    Ligne("1 DATE ", DateGedcom(ctx_.aujourdhui.empty() ? DateDuJour() : ctx_.aujourdhui, cases_.Dates));
    const Texte& noteFichier = Fiche(base_.Notes, -1).Texte;
    if (cases_.Notes && !noteFichier.empty()) {
        Ajouter("1 NOTE ");
        AjouterLignes(noteFichier, "\r\n2 CONT ");
        Ligne();
    }
    EcrireGenealogiste();

    const std::int32_t nbPersos = std::min(base_.NbPersos, base_.Persos.Haut());
    for (std::int32_t n = 1; n <= nbPersos; ++n) {
        // Une page jamais écrite n'a que des fiches vierges, hors sélection.
        if (base_.Persos.PageVierge(n)) {
            n = base_.Persos.FinDePage(n);
            continue;
        }
        if (ctx_.progression && n % kPasProgression == 0) {
            ctx_.progression->Compteur(std::to_string(n));
            ctx_.progression->LaisserPasser();
        }
        if (base_.Persos[n].Sel == 0) continue;
        EcrirePersonne(n);
        Vider(false);
    }

    const std::int32_t nbFamis = std::min(base_.NbFamis, base_.Familles.Haut());
    for (std::int32_t f = 1; f <= nbFamis; ++f) {
        if (base_.Familles.PageVierge(f)) {
            f = base_.Familles.FinDePage(f);
            continue;
        }
        if (base_.Familles[f].Sel == 0) continue;
        EcrireFamille(f);
        Vider(false);
    }
    if (cases_.Notes) EcrireNotesExternes(base_.Notes, base_.NbNotes, 'N', "NOTE");
    if (cases_.Sources) EcrireNotesExternes(base_.Sources, base_.NbSources, 'S', "SOUR");
    if (cases_.Fichiers) {
        const std::int32_t nbMedias = std::min(base_.NbMedias, base_.Medias.Haut());
        // Seules les pages écrites : un numéro isolé très haut ne fait pas parcourir des millions de fiches.
        base_.Medias.PourChaqueEcrit(1, nbMedias, [this](std::int32_t m) { EcrireMedia(m); });
    }
    Ligne("0 TRLR");
    Vider(true);
    if (flux_) flux_->flush();
    return !flux_ || flux_->good();
}

bool EcrivainGedcom::InteretEcrit() const {
    const std::int32_t fin = std::min(base_.NbPersos, base_.Persos.Haut());
    for (std::int32_t n = 1; n <= fin; ++n) {
        if (base_.Persos.PageVierge(n)) {
            n = base_.Persos.FinDePage(n);
            continue;
        }
        const Perso& p = base_.Persos[n];
        if (p.Sel != 0 && (p.Interet & 3) != 0) return true;
    }
    return false;
}

void EcrivainGedcom::EcrireGenealogiste() {
    const Perso& g = P(-1);
    const bool nomme = !g.Nom.empty() || !g.Prenoms.empty();
    // ANCI et DESI pointent @SUB1@ : la fiche est écrite pour eux même sans généalogiste nommé.
    genealogiste_ = nomme || InteretEcrit();
    if (!genealogiste_) return;
    Ligne("1 SUBM @SUB1@");
    Ligne("0 @SUB1@ SUBM");
    if (nomme)
        Ligne("1 NAME ", SansBarre{g.Prenoms}, g.Prenoms.empty() ? "" : " ", "/", SansBarre{g.Nom}, "/");
    const PersoSuite& s = g.Suite();
    const bool adresse = !s.Adresse1.empty() || !s.Adresse2.empty() || !s.Ville.empty() || !s.Etat.empty() ||
                         !s.CP.empty() || !s.Pays.empty();
    if (adresse) {
        // Ville, département et code postal en champs, non en ligne de suite : relue,
        // chaque suite de ADDR devient la seconde ligne d'adresse et l'écraserait.
        Ligne("1 ADDR", s.Adresse1.empty() ? "" : " ", s.Adresse1);
        if (!s.Adresse2.empty()) Ligne("2 CONT ", s.Adresse2);
        for (const auto& c : kAdresseGenealogiste)
            if (!(s.*c.champ).empty()) Ligne(c.ligne, s.*c.champ);
    }
    if (!s.Telephone.empty()) Ligne("1 PHON ", s.Telephone);
    if (!s.EMail.empty()) Ligne("1 EMAIL ", s.EMail);
    if (!s.URL.empty()) Ligne("1 WWW ", s.URL);
}

void EcrivainGedcom::EcrirePersonne(std::int32_t n) {
    const Perso& p = P(n);
    Ligne("0 @I", n, "@ INDI");
    Ligne("1 NAME ", SansBarre{p.Prenoms}, " /", SansBarre{p.Nom}, "/");
    Ligne("1 SEX ", p.Sexe);
    if (ActeAEcrire(p.Naissance)) EcrireActe(p.Naissance, "BIRT", 0);
    if (ActeAEcrire(p.Bapteme)) EcrireActe(p.Bapteme, "CHR", n);
    if (ActeAEcrire(p.Deces)) EcrireActe(p.Deces, "DEAT", n);
    if (ActeAEcrire(p.Sepulture)) EcrireActe(p.Sepulture, "BURI", n);
    const PersoSuite& s = p.Suite();
    if (cases_.Adresses) EcrireAdresse(s);
    if (!s.Ref.empty()) Ligne("1 REFN ", s.Ref);
    if (genealogiste_ && (p.Interet & 1)) Ligne("1 ANCI @SUB1@");
    if (genealogiste_ && (p.Interet & 2)) Ligne("1 DESI @SUB1@");
    for (int i = 1; i <= kMaxUnions; ++i) {
        const std::int32_t u = p.Unions[i];
        if (u > 0 && FamilleEcrite(u)) Ligne("1 FAMS @F", u, "@");
    }
    const std::string parents = EcrireParents(p);
    if (cases_.Notes) EcrireNote(Joindre(parents, p.Notes), '1');
    // La case Professions n'agit qu'à la lecture.
    if (!p.Metier.empty()) Ligne("1 OCCU ", p.Metier);
    // Un titre de noblesse que le nettoyage n'a pas fondu dans le métier ne se perd pas.
    if (!p.Titre.empty()) Ligne("1 TITL ", p.Titre);
    if (cases_.Fichiers) EcrireFichiersPersonne(p);
    EcrireChangement(p.DateModif);
}

void EcrivainGedcom::EcrireAdresse(const PersoSuite& s) {
    const bool adresse = std::any_of(std::begin(kAdresse), std::end(kAdresse),
                                     [&](const ChampAdresse& c) { return !(s.*c.champ).empty(); });
    if (adresse) {
        Ligne("1 RESI");
        Ligne("2 ADDR");
        for (const auto& c : kAdresse)
            if (!(s.*c.champ).empty()) Ligne(c.ligne, s.*c.champ);
    }
    if (!s.EMail.empty()) Ligne("1 EMAIL ", s.EMail);
    if (!s.URL.empty()) Ligne("1 WWW ", s.URL);
}

std::string EcrivainGedcom::EcrireParents(const Perso& p) {
    if (p.NumParents <= 0) return {};
    if (FamilleEcrite(p.NumParents)) {
        Ligne("1 FAMC @F", p.NumParents, "@");
        return {};
    }
    // Des parents absents du fichier restent nommés en toutes lettres. Sans blanc final,
    // que la relecture retirerait : la ligne se relit et se réécrit à l'identique.
    if (!cases_.Notes) return {};
    const Fami& f = F(p.NumParents);
    const bool pere = f.Mari > 0, mere = f.Femme > 0;
    const Perso& m = P(f.Mari);
    const Perso& fe = P(f.Femme);
    std::string note = "enfant de " + m.Nom + (pere ? " " : "") + m.Prenoms + " " +
                       (pere && mere ? "et " : "") + fe.Nom + (mere ? " " : "") + fe.Prenoms;
    note.resize(SansBlancsDroite(note).size());
    if (note == "enfant de") note.clear();
    return note;
}

void EcrivainGedcom::EcrireFichiersPersonne(const Perso& p) {
    const PersoSuite& s = p.Suite();
    for (int i = 1; i <= kMaxLiens && !s.Fichiers(i).empty(); ++i) {
        Ligne("1 OBJE");
        EcrireFichierEtForme('2', s.Fichiers(i), true);
    }
    EcrireObjets(s.ObjetsMedia, '1');
}

void EcrivainGedcom::EcrireObjets(const Emplacements<std::int32_t, 1, kMaxLiens>& objets, char niveau) {
    for (const auto& [i, m] : objets) {
        if (m <= 0) continue;
        const ObjetMedia& o = Fiche(base_.Medias, m);
        if (o.Local != 0) {
            if (o.Fichiers(1).empty()) continue;  // objet vidé : plus rien à lier
            Ligne(niveau, " OBJE");
            EcrireFichierEtForme(static_cast<char>(niveau + 1), o.Fichiers(1), false);
            if (!o.Titres(1).empty()) Ligne(static_cast<char>(niveau + 1), " TITL ", o.Titres(1));
        } else if (MediaEcrit(m)) {
            Ligne(niveau, " OBJE @M", m, "@");
        }
    }
}

void EcrivainGedcom::EcrireFichierEtForme(char niveau, std::string_view chemin, bool couperDossier) {
    std::string_view ecrit = chemin;
    if (couperDossier && !dossier_.empty() && ecrit.starts_with(dossier_))
        ecrit.remove_prefix(dossier_.size());
    Ligne(niveau, " FILE ", ecrit);
    Ligne(static_cast<char>(niveau + 1), " FORM ", EnMajuscules(Extension(chemin)));
}

void EcrivainGedcom::EcrireActe(const Acte& a, std::string_view balise, std::int32_t n) {
    const bool lieu = !a.Lieu.empty() && cases_.Lieux;
    const std::string absents = TemoinsAbsents(a.Liens());
    const Joint notes = Joindre(a.Notes, absents);
    const bool source = !a.Source.empty() && cases_.Sources;
    // Connu sans rien d'autre : "1 DEAT Y", que la relecture rend connu.
    Ligne(
        "1 ", balise,
        a.Connu && a.Date.empty() && !lieu && (notes.vue().empty() || !cases_.Notes) && !source ? " Y" : "");
    if (!a.Date.empty()) Ligne("2 DATE ", DateGedcom(a.Date, cases_.Dates));
    if (lieu) Ligne("2 PLAC ", a.Lieu);
    if (cases_.Notes) EcrireNote(notes, '2');
    if (source) EcrireSources(a.Source);
    if (n > 0 && cases_.Ages) {
        const std::int32_t naissance = P(n).Naissance.Annee;
        const std::int32_t age = a.Annee - naissance;
        // Relu avec la case Âges, l'âge devient une ligne de la note : déjà là, il ne s'écrit
        // plus, sans quoi chaque enregistrement l'ajouterait une fois de plus.
        if (naissance > 0 && age >= 0 && age < 200 &&
            !(cases_.Notes && NoteAUneLigne(a.Notes, std::to_string(age))))
            Ligne("2 AGE ", age);
    }
    // La case Témoins n'agit qu'à la lecture ; les absents sont dans la note.
    const LiensActe& l = a.Liens();
    for (const auto& [i, t] : l.Temoins) {
        if (i < 1 || !PersonneEcrite(t)) continue;
        Ligne("2 ASSO @I", t, "@");
        Ligne("3 TYPE INDI");
        Ligne("3 RELA ", l.RolesTemoins(i));
    }
}

std::string EcrivainGedcom::TemoinsAbsents(const LiensActe& l) const {
    std::string r;
    if (!cases_.Notes) return r;
    for (const auto& [i, t] : l.Temoins) {
        if (i < 1 || t <= 0 || PersonneEcrite(t)) continue;
        const Texte& role = l.RolesTemoins(i);
        const std::string ligne = Absent(role.empty() ? std::string_view("t\xE9moin") : role.vue(), t);
        if (!ligne.empty()) r.append(r.empty() ? "" : "\r\n").append(ligne);
    }
    return r;
}

std::string EcrivainGedcom::Absent(std::string_view qui, std::int32_t p) const {
    const Perso& absent = P(p);
    std::string nom(absent.Nom.vue());
    if (!nom.empty() && !absent.Prenoms.empty()) nom += ' ';
    nom += absent.Prenoms.vue();
    const std::string_view ecrit = SansBlancs(nom);
    return ecrit.empty() ? std::string() : std::string(qui) + " : " + std::string(ecrit);
}

void EcrivainGedcom::EcrireNote(std::string_view texte, char niveau) {
    const char suite[] = {'\r', '\n', static_cast<char>(niveau + 1), ' ', 'C', 'O', 'N', 'T', ' '};
    std::size_t debut = 0;  // début des lignes de texte pas encore écrites
    const auto ecrireTexte = [&](std::size_t fin) {
        if (debut >= fin) return;
        const std::string_view t = texte.substr(debut, fin - debut);
        if (Blanc(t)) return;
        Ajouter(niveau);
        Ajouter(" NOTE ");
        AjouterLignes(t, std::string_view(suite, sizeof suite));
        Ligne();
    };
    for (std::size_t p = 0;;) {
        const std::size_t fin = std::min(texte.find("\r\n", p), texte.size());
        const std::string_view ligne = texte.substr(p, fin - p);
        const std::int32_t note = NumeroDuLien(ligne, 'N'), source = NumeroDuLien(ligne, 'S');
        if (note > 0 || source > 0) {
            ecrireTexte(p >= 2 ? p - 2 : 0);
            if (note > 0 && NoteEcrite('N', note)) Ligne(niveau, " NOTE @N", note, "@");
            if (source > 0 && NoteEcrite('S', source)) Ligne(niveau, " SOUR @S", source, "@");
            debut = fin + 2;
        }
        if (fin == texte.size()) break;
        p = fin + 2;
    }
    ecrireTexte(texte.size());
}

void EcrivainGedcom::EcrireSources(std::string_view source) {
    // Un lien vers une source non écrite est ôté ; son texte reste à la citation d'avant.
    bool citation = false;  // un "2 SOUR @Sn@" attend le texte qui le suit
    std::string texte;
    const auto ecrireTexte = [&] {
        const std::string_view t = SansBlancsGauche(texte);
        if (!Blanc(t)) {
            Ajouter(citation ? "3 TEXT " : "2 SOUR ");
            AjouterLignes(t, citation ? "\r\n4 CONT " : "\r\n3 CONT ");
            Ligne();
        }
        texte.clear();
    };
    for (std::size_t p = 0;;) {
        const LienTrouve l = ProchainLien(source, p, 'S');
        texte.append(
            source.substr(p, l.debut == std::string_view::npos ? std::string_view::npos : l.debut - p));
        if (l.debut == std::string_view::npos) break;
        p = l.fin;
        if (!NoteEcrite('S', l.numero)) continue;
        ecrireTexte();
        Ligne("2 SOUR @S", l.numero, "@");
        citation = true;
    }
    ecrireTexte();
}

bool EcrivainGedcom::PersonneEcrite(std::int32_t n) const {
    return n >= 1 && static_cast<std::size_t>(n) < personnesEcrites_.size() &&
           personnesEcrites_[static_cast<std::size_t>(n)];
}

bool EcrivainGedcom::FamilleEcrite(std::int32_t n) const {
    return n >= 1 && static_cast<std::size_t>(n) < famillesEcrites_.size() &&
           famillesEcrites_[static_cast<std::size_t>(n)];
}

bool EcrivainGedcom::FamilleAEcrire(std::int32_t n) const {
    const Fami& f = F(n);
    if (f.Sel == 0) return false;
    // Conjoints et enfants comptés tels que le fichier les portera : une famille écrite
    // se relit écrite, et les numéros des suivantes ne bougent plus d'une relecture à l'autre.
    if (PersonneEcrite(f.Mari) || PersonneEcrite(f.Femme)) return true;
    int enfants = 0;
    for (const auto& [i, c] : f.Enfants) enfants += i >= 1 && PersonneEcrite(c);
    return enfants >= 2;
}

bool EcrivainGedcom::NoteEcrite(char genre, std::int32_t n) const {
    const bool note = genre == 'N';
    if (!(note ? cases_.Notes : cases_.Sources)) return false;
    const Tableau<NoteExt>& t = note ? base_.Notes : base_.Sources;
    if (n < 1 || n > std::min(note ? base_.NbNotes : base_.NbSources, t.Haut())) return false;
    const NoteExt& e = t[n];
    return e.Sel != 0 && (!e.Titre.empty() || !e.Texte.empty());
}

bool EcrivainGedcom::MediaEcrit(std::int32_t m) const {
    if (!cases_.Fichiers || m < 1 || m > std::min(base_.NbMedias, base_.Medias.Haut())) return false;
    const ObjetMedia& o = base_.Medias[m];
    return o.Actif != 0 && o.Local == 0;
}

void EcrivainGedcom::EcrireFamille(std::int32_t n) {
    const Fami& f = F(n);
    if (!FamilleEcrite(n)) return;
    Ligne("0 @F", n, "@ FAM");
    // Pas de pointeur dans le vide : un conjoint absent du fichier est nommé en note.
    if (PersonneEcrite(f.Mari)) Ligne("1 HUSB @I", f.Mari, "@");
    if (PersonneEcrite(f.Femme)) Ligne("1 WIFE @I", f.Femme, "@");
    if (cases_.Notes) {
        const std::string mari = PersonneEcrite(f.Mari) ? "" : Absent("mari", f.Mari);
        const std::string femme = PersonneEcrite(f.Femme) ? "" : Absent("femme", f.Femme);
        EcrireNote(Joindre(mari, femme), '1');
    }
    // Les objets d'un évènement vont sous lui ; ceux d'un évènement qui ne s'écrit pas vont
    // à la famille, que la relecture rend au mariage, plutôt que d'inventer l'évènement.
    const Acte* sansEvenement[3] = {};
    int nbSans = 0;
    for (const auto& [acte, balise] :
         {std::pair{&Fami::Mariage, "MARR"}, {&Fami::Contrat, "MARC"}, {&Fami::Divorce, "DIV"}}) {
        const Acte& a = f.*acte;
        if (!ActeAEcrire(a)) {
            sansEvenement[nbSans++] = &a;
            continue;
        }
        EcrireActe(a, balise, 0);
        if (cases_.Fichiers) EcrireObjets(a.Liens().Medias, '2');
    }
    for (const auto& [i, c] : f.Enfants)
        if (i >= 1 && PersonneEcrite(c)) Ligne("1 CHIL @I", c, "@");
    for (int i = 0; i < nbSans && cases_.Fichiers; ++i) EcrireObjets(sansEvenement[i]->Liens().Medias, '1');
    EcrireChangement(f.DateModif);
}

void EcrivainGedcom::EcrireNotesExternes(const Tableau<NoteExt>& notes, std::int32_t nombre, char lettre,
                                         std::string_view balise) {
    const std::int32_t fin = std::min(nombre, notes.Haut());
    for (std::int32_t n = 1; n <= fin; ++n) {
        if (notes.PageVierge(n)) {
            n = notes.FinDePage(n);
            continue;
        }
        if (!NoteEcrite(lettre, n)) continue;
        const NoteExt& e = notes[n];
        if (lettre == 'N') {
            // Le texte d'une note va sur sa ligne 0, comme le veut la norme : les autres
            // logiciels ignorent un TEXT sous NOTE et perdraient la note.
            Ajouter("0 @N");
            Ajouter(n);
            Ajouter("@ NOTE");
            if (!e.Texte.empty()) Ajouter(' ');
            AjouterLignes(e.Texte, "\r\n1 CONT ");
            Ligne();
            if (!e.Titre.empty()) Ligne("1 TITL ", e.Titre);
        } else {
            Ligne("0 @", lettre, n, "@ ", balise);
            if (!e.Titre.empty()) Ligne("1 TITL ", e.Titre);
            if (!e.Texte.empty()) {
                Ajouter("1 TEXT ");
                AjouterLignes(e.Texte, "\r\n2 CONT ");
                Ligne();
            }
        }
        Vider(false);
    }
}

void EcrivainGedcom::EcrireMedia(std::int32_t m) {
    if (!MediaEcrit(m)) return;
    const ObjetMedia& o = base_.Medias[m];
    Ligne("0 @M", m, "@ OBJE");
    for (int i = 1; i <= kMaxLiens && !o.Fichiers(i).empty(); ++i) {
        EcrireFichierEtForme('1', o.Fichiers(i), false);
        if (!o.Titres(i).empty()) Ligne("2 TITL ", o.Titres(i));
    }
    for (const auto& [i, p] : o.LiensPersos)
        if (PersonneEcrite(p)) Ligne("1 INDI @I", p, "@");
    for (const auto& [i, f] : o.LiensFamis)
        if (FamilleEcrite(f)) Ligne("1 FAM @F", f, "@");
    if (NoteEcrite('N', o.NumNote)) Ligne("1 NOTE @N", o.NumNote, "@");
    if (NoteEcrite('S', o.NumSource)) Ligne("1 SOUR @S", o.NumSource, "@");
    Vider(false);
}

void EcrivainGedcom::EcrireChangement(double dateModif) {
    if (dateModif == 0) return;
    const auto date = DateDuNumero(static_cast<std::int64_t>(std::floor(dateModif)));
    if (!date) return;  // un numéro hors des années 100 à 9999 n'a pas de date à écrire
    Ligne("1 CHAN");
    Ligne("2 DATE ", DateGedcom(FormatDateCourte(*date), cases_.Dates));
}

bool EcrireGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream& flux) {
    EcrivainGedcom e(base, contexte, &flux);
    return e.EcrireGedcom();
}

std::string EcrireGedcomTexte(const Base& base, const ContexteEcriture& contexte) {
    EcrivainGedcom e(base, contexte, nullptr);
    e.EcrireGedcom();
    return e.Tampon();
}

}  // namespace arbolix
