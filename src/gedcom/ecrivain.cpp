#include "gedcom/ecrivain.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <ctime>

#include "dates/calendrier_gregorien.h"
#include "dates/date_gedcom.h"
#include "platform/cp1252.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::size_t kBloc = 1 << 20;
// Le formulaire est rafraîchi toutes les kPasProgression personnes.
constexpr std::int32_t kPasProgression = 10000;

bool ActeRempli(const Acte& a) {
    return !a.Date.empty() || !a.Lieu.empty() || !a.Notes.empty() || !a.Source.empty();
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
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return FormatDateCourte({local.tm_mday, local.tm_mon + 1, local.tm_year + 1900});
}

EcrivainGedcom::EcrivainGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream* flux)
    : base_(base), ctx_(contexte), cases_(contexte.gedcom), flux_(flux) {
    const std::string fichier = Utf8VersCp1252(cases_.Fichier);
    dossier_ = fichier.substr(0, FinDuDossier(fichier));
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
        courant_ = n;
        EcrirePersonne(n);
        Vider(false);
    }
    // Les évènements de famille viennent après la boucle : plus de personne en cours.
    courant_ = base_.NbPersos + 1;

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
    if (cases_.Notes) EcrireNotes(base_.Notes, base_.NbNotes, 'N', "NOTE");
    if (cases_.Sources) EcrireNotes(base_.Sources, base_.NbSources, 'S', "SOUR");
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

void EcrivainGedcom::EcrireGenealogiste() {
    const Perso& g = P(-1);
    if (g.Nom.empty()) return;
    const PersoSuite& s = g.Suite();
    Ligne("1 SUBM @SUB1@");
    Ligne("0 @SUB1@ SUBM");
    Ligne("1 NAME ", g.Prenoms, g.Prenoms.empty() ? "" : " ", "/", g.Nom, "/");
    Ligne("1 ADDR ", s.Adresse1);
    Ligne("2 CONT ", s.Adresse2);
    if (!s.Ville.empty()) Ligne("2 CONT ", s.Etat, " ", s.CP, " ", s.Ville);
    if (!s.Pays.empty()) Ligne("2 CTRY ", s.Pays);
    if (!s.Telephone.empty()) Ligne("1 PHON ", s.Telephone);
    if (!s.EMail.empty()) Ligne("1 EMAIL ", s.EMail);
}

void EcrivainGedcom::EcrirePersonne(std::int32_t n) {
    const Perso& p = P(n);
    Ligne("0 @I", n, "@ INDI");
    Ligne("1 NAME ", SansBarre{p.Prenoms}, " /", SansBarre{p.Nom}, "/");
    Ligne("1 SEX ", p.Sexe);
    if (ActeRempli(p.Naissance)) EcrireActe(p.Naissance, "BIRT", 0);
    if (ActeRempli(p.Bapteme)) EcrireActe(p.Bapteme, "CHR", n);
    if (ActeRempli(p.Deces)) EcrireActe(p.Deces, "DEAT", n);
    if (ActeRempli(p.Sepulture)) EcrireActe(p.Sepulture, "BURI", n);
    const PersoSuite& s = p.Suite();
    if (cases_.Adresses) EcrireAdresse(s);
    if (!s.Ref.empty()) Ligne("1 REFN ", s.Ref);
    if (p.Interet & 1) Ligne("1 ANCI @SUB1@");
    if (p.Interet & 2) Ligne("1 DESI @SUB1@");
    for (int i = 1; i <= kMaxUnions; ++i) {
        const std::int32_t u = p.Unions[i];
        if (u > 0 && FamilleEcrite(u)) Ligne("1 FAMS @F", u, "@");
    }
    EcrireParents(p);
    if (cases_.Notes && !p.Notes.empty()) {
        Ajouter("1 NOTE ");
        AjouterLignes(p.Notes, "\r\n2 CONT ");
        Ligne();
    }
    // La case Professions n'agit qu'à la lecture.
    if (!p.Metier.empty()) Ligne("1 OCCU ", p.Metier);
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

void EcrivainGedcom::EcrireParents(const Perso& p) {
    if (p.NumParents <= 0) return;
    const Fami& f = F(p.NumParents);
    if (f.Sel != 0) {
        // Jamais de pointeur vers une famille absente du fichier : il serait refusé à la relecture.
        if (FamilleEcrite(p.NumParents)) Ligne("1 FAMC @F", p.NumParents, "@");
        return;
    }
    // Des parents hors de la sélection restent nommés en toutes lettres. Sans blanc final,
    // que la relecture retirerait : la ligne se relit et se réécrit à l'identique.
    if (!cases_.Notes) return;
    const bool pere = f.Mari > 0, mere = f.Femme > 0;
    const Perso& m = P(f.Mari);
    const Perso& fe = P(f.Femme);
    std::string note = "enfant de " + m.Nom + (pere ? " " : "") + m.Prenoms + " " + (pere && mere ? "et " : "") +
                       fe.Nom + (mere ? " " : "") + fe.Prenoms;
    note.resize(SansBlancsDroite(note).size());
    if (note != "enfant de") Ligne("1 NOTE ", note);
}

void EcrivainGedcom::EcrireFichiersPersonne(const Perso& p) {
    const PersoSuite& s = p.Suite();
    for (int i = 1; i <= kMaxLiens && !s.Fichiers(i).empty(); ++i) {
        Ligne("1 OBJE");
        EcrireFichierEtForme('2', s.Fichiers(i), true);
    }
    for (const auto& [i, m] : s.ObjetsMedia) {
        if (m <= 0) continue;
        const ObjetMedia& o = Fiche(base_.Medias, m);
        if (o.Local != 0) {
            Ligne("1 OBJE");
            EcrireFichierEtForme('2', o.Fichiers(1), false);
        } else {
            Ligne("1 OBJE @M", m, "@");
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
    Ligne("1 ", balise);
    if (!a.Date.empty()) Ligne("2 DATE ", DateGedcom(a.Date, cases_.Dates));
    if (!a.Lieu.empty() && cases_.Lieux) Ligne("2 PLAC ", a.Lieu);
    if (!a.Notes.empty() && cases_.Notes) {
        Ajouter("2 NOTE ");
        AjouterLignes(a.Notes, "\r\n3 CONT ");
        Ligne();
    }
    if (!a.Source.empty() && cases_.Sources) Ligne("2 SOUR ", a.Source);
    if (n > 0 && cases_.Ages) {
        const std::int32_t naissance = P(n).Naissance.Annee;
        const std::int32_t age = a.Annee - naissance;
        if (naissance > 0 && age >= 0 && age < 200) Ligne("2 AGE ", age);
    }
    // La case Témoins n'agit qu'à la lecture ; un témoin hors sélection est tu.
    const LiensActe& l = a.Liens();
    for (const auto& [i, t] : l.Temoins) {
        if (i < 1 || t <= 0 || P(t).Sel == 0) continue;
        Ligne("2 ASSO @I", t, "@");
        Ligne("3 TYPE INDI");
        Ligne("3 RELA ", l.RolesTemoins(i));
    }
    // Les objets de la personne en cours suivent chacun de ses évènements, sauf pour
    // la dernière personne et les familles : la règle est gardée telle quelle.
    if (!cases_.Fichiers || courant_ >= base_.NbPersos) return;
    const PersoSuite& s = P(courant_).Suite();
    for (int i = 1; i <= kMaxLiens && s.ObjetsMedia(i) != 0; ++i) {
        Ligne("1 OBJE");
        EcrireFichierEtForme('2', Fiche(base_.Medias, s.ObjetsMedia(i)).Fichiers(1), true);
    }
}

bool EcrivainGedcom::FamilleEcrite(std::int32_t n) const {
    const Fami& f = F(n);
    if (f.Sel == 0) return false;
    // Conjoints et enfants comptés tels que le fichier les portera : une famille écrite
    // se relit écrite, et les numéros des suivantes ne bougent plus d'une relecture à l'autre.
    const auto ecrit = [this](std::int32_t p) { return p > 0 && P(p).Sel != 0; };
    int enfants = 0;
    for (const auto& [i, c] : f.Enfants) enfants += i >= 1 && ecrit(c);
    const auto nomme = [&](std::int32_t p) { return ecrit(p) && !P(p).Nom.empty(); };
    // Une famille sans conjoint nommé n'a de sens que par une fratrie.
    return nomme(f.Mari) || nomme(f.Femme) || enfants >= 2;
}

void EcrivainGedcom::EcrireFamille(std::int32_t n) {
    const Fami& f = F(n);
    if (!FamilleEcrite(n)) return;
    Ligne("0 @F", n, "@ FAM");
    // Un conjoint hors du fichier écrit n'est pas nommé : pas de pointeur dans le vide.
    if (f.Mari > 0 && P(f.Mari).Sel != 0) Ligne("1 HUSB @I", f.Mari, "@");
    if (f.Femme > 0 && P(f.Femme).Sel != 0) Ligne("1 WIFE @I", f.Femme, "@");
    if (ActeRempli(f.Mariage)) EcrireActe(f.Mariage, "MARR", 0);
    if (ActeRempli(f.Contrat)) EcrireActe(f.Contrat, "MARC", 0);
    if (ActeRempli(f.Divorce)) EcrireActe(f.Divorce, "DIV", 0);
    for (const auto& [i, c] : f.Enfants)
        if (i >= 1 && c > 0 && P(c).Sel != 0) Ligne("1 CHIL @I", c, "@");
    EcrireChangement(f.DateModif);
}

void EcrivainGedcom::EcrireNotes(const Tableau<NoteExt>& notes, std::int32_t nombre, char lettre,
                                 std::string_view balise) {
    const std::int32_t fin = std::min(nombre, notes.Haut());
    for (std::int32_t n = 1; n <= fin; ++n) {
        if (notes.PageVierge(n)) {
            n = notes.FinDePage(n);
            continue;
        }
        const NoteExt& e = notes[n];
        if (e.Sel == 0) continue;
        Ligne("0 @", lettre, n, "@ ", balise);
        Ligne("1 TITL ", e.Titre);
        Ajouter("1 TEXT ");
        AjouterLignes(e.Texte, "\r\n2 CONT ");
        Ligne();
        Vider(false);
    }
}

void EcrivainGedcom::EcrireMedia(std::int32_t m) {
    const ObjetMedia& o = base_.Medias[m];
    if (o.Actif == 0 || o.Local != 0) return;
    Ligne("0 @M", m, "@ OBJE");
    for (int i = 1; i <= kMaxLiens && !o.Fichiers(i).empty(); ++i) {
        EcrireFichierEtForme('1', o.Fichiers(i), false);
        if (!o.Titres(i).empty()) Ligne("2 TITL ", o.Titres(i));
    }
    for (const auto& [i, p] : o.LiensPersos)
        if (p > 0) Ligne("1 INDI @I", p, "@");
    for (const auto& [i, f] : o.LiensFamis)
        if (f > 0) Ligne("1 FAM @F", f, "@");
    if (o.NumNote > 0) Ligne("1 NOTE @N", o.NumNote, "@");
    if (o.NumSource > 0) Ligne("1 SOUR @S", o.NumSource, "@");
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
