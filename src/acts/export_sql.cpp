#include "acts/export_sql.h"

#include <charconv>
#include <exception>
#include <utility>

#include "dates/calendrier_gregorien.h"
#include "dates/cle_date.h"
#include "gedcom/enregistrement.h"
#include "gedcom/lecteur.h"
#include "platform/cp1252.h"
#include "platform/progression.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Au-delà, un serveur pourrait refuser le paquet ; et de longues insertions se chargent vite.
constexpr std::size_t kMaxInstruction = 65000;

std::string Nombre(std::int64_t n) {
    char tampon[24];
    const auto r = std::to_chars(tampon, tampon + sizeof tampon, n);
    return std::string(tampon, r.ptr);
}

// Une insertion de plusieurs rangées qui s'écrit avant de passer kMaxInstruction caractères.
class Insertion {
public:
    Insertion(std::ostream& sortie, std::string tete)
        : sortie_(sortie), tete_(std::move(tete)), texte_(tete_) {}
    void Ajouter(std::string_view rangee) {
        if (texte_.size() > tete_.size() && texte_.size() + rangee.size() > kMaxInstruction) Ecrire();
        texte_ += rangee;
    }
    // Sans la dernière ", " ; rien quand aucune rangée n'attend.
    void Ecrire() {
        if (texte_.size() == tete_.size()) return;
        texte_.resize(texte_.size() - 2);
        texte_ += ";";
        sortie_ << EncoderUTF8(texte_) << "\r\n";
        texte_ = tete_;
    }

private:
    std::ostream& sortie_;
    const std::string tete_;
    std::string texte_;
};

struct Evenement {
    Acte Perso::*perso;
    Acte Fami::*fami;
    int numtype;
    bool anDebut;
    bool anFin;
};

// Dans l'ordre du script. Décès et sépulture ne reculent pas la fin du livre, que ses
// naissances, baptêmes, mariages et contrats fixent ; le divorce n'y compte pas.
constexpr Evenement kEvenementsPerso[] = {
    {&Perso::Naissance, nullptr, 1, true, true},
    {&Perso::Bapteme, nullptr, 4, true, true},
    {&Perso::Deces, nullptr, 3, true, false},
    {&Perso::Sepulture, nullptr, 5, true, false},
};
constexpr Evenement kEvenementsFami[] = {
    {nullptr, &Fami::Mariage, 2, true, true},
    {nullptr, &Fami::Contrat, 6, true, true},
    {nullptr, &Fami::Divorce, 7, false, false},
};

class Script {
public:
    Script(Base& base, const NomEPA& nom, std::ostream& sortie) : b_(base), nom_(nom), o_(sortie) {}

    CompteursSQL Ecrire() {
        Tete();
        NumeroterFamilles();
        Personnes();
        Familles();
        Fin();
        return c_;
    }

private:
    const Base& Lu() const { return b_; }

    void Ligne(std::string_view s) { o_ << s << "\r\n"; }

    void Tete() {
        for (const char* l :
             {"START TRANSACTION;", "SELECT MAX(numacte) INTO @na FROM epa_acte;",
              "SELECT IFNULL(@na, 0) INTO @na;", "SELECT MAX(numfami) INTO @nap FROM epa_famille;",
              "SELECT IFNULL(@nap, 0) INTO @nap;", "SELECT MAX(numperso) INTO @np FROM epa_personne;",
              "SELECT IFNULL(@np, 0) INTO @np;"})
            Ligne(l);
        const std::string code = ValeurSQL(nom_.CodeFichier);
        Ligne(EncoderUTF8("INSERT INTO epa_fichier (codefichier, nomfichier, titre, infosfichier) VALUES ('" +
                          code + "', '" + ValeurSQL(nom_.NomFichier) + "', '" + ValeurSQL(nom_.TitreLivre) +
                          "', '" + ValeurSQL(Lu().Persos[-1].Notes) + "');"));
        Ligne(EncoderUTF8("SELECT numfichier INTO @nf FROM epa_fichier WHERE codefichier = '" + code +
                          "' AND numstatut = 5;"));
        const std::string lieu =
            Nombre(nom_.NumPays) + ", " + Nombre(nom_.NumDept) + ", '" + ValeurSQL(nom_.CodeLieu);
        Ligne(EncoderUTF8("INSERT IGNORE INTO epa_lieu (numpays, dept, code, texte, commentaire) VALUES (" +
                          lieu + "', '" + ValeurSQL(nom_.TitreLieu) + "', 'ZZ nouveau lieu');"));
        Ligne(EncoderUTF8("SELECT numlieu INTO @nl FROM epa_lieu WHERE numpays = " + Nombre(nom_.NumPays) +
                          " AND dept = " + Nombre(nom_.NumDept) + " AND code = '" + ValeurSQL(nom_.CodeLieu) +
                          "';"));
        Ligne("SET FOREIGN_KEY_CHECKS = 0;");
    }

    // Un numéro ancien (livre d'un autre export) ne doit pas passer pour un lien.
    void NumeroterFamilles() {
        b_.Persos.PourChaqueEcrit(1, b_.NbPersos, [&](std::int32_t n) { b_.Persos[n].NumLivre = 0; });
        b_.Familles.PourChaqueEcrit(1, b_.NbFamis, [&](std::int32_t f) {
            Fami& fa = b_.Familles[f];
            fa.NumLivre = fa.Mari > 0 || fa.Femme > 0 ? ++c_.NbFamisSQL : 0;
        });
    }

    void Annees(const Evenement& e, std::int16_t annee) {
        if (annee < 1) return;
        if (e.anDebut && (c_.AnDebut == 0 || annee < c_.AnDebut)) c_.AnDebut = annee;
        if (e.anFin && annee > c_.AnFin) c_.AnFin = annee;
    }

    void AjouterActe(Insertion& actes, const Acte& a, const Evenement& e, std::string_view numero) {
        if (a.Date.empty() && a.Lieu.empty()) return;
        ++c_.NbEvenements;
        actes.Ajouter(LigneSQLActe(a, e.numtype, numero, c_.NbEvenements));
        Annees(e, a.Annee);
        if (!a.Lieu.empty() && !a.Date.empty() && EstChiffre(a.Date[0])) ++c_.NbActes;
    }

    // "@np + 12" pour une personne du livre, "0" sinon.
    std::string Conjoint(std::int32_t n) const {
        if (n <= 0 || n > Lu().Persos.Haut() || Lu().Persos[n].NumLivre == 0) return "0";
        return "@np + " + Nombre(Lu().Persos[n].NumLivre);
    }

    std::string RangeePersonne(std::int32_t n, const Perso& p) const {
        const bool sansNom = p.Nom.empty();
        const std::string_view prenoms = p.Prenoms.empty() ? std::string_view("N") : p.Prenoms.vue();
        const Texte& url = p.Suite().URL;
        // Une famille sans conjoint n'entre pas au livre : l'enfant n'y a pas de parents.
        const std::int32_t parents = p.NumParents > 0 && p.NumParents <= Lu().Familles.Haut()
                                         ? Lu().Familles[p.NumParents].NumLivre
                                         : 0;
        std::string r = "(@np + " + Nombre(p.NumLivre) + ", @nf, " + Nombre(n) + ", " +
                        (parents > 0 ? "@nap + " + Nombre(parents) : std::string("0")) + ", '" +
                        ValeurSQL(sansNom ? std::string_view("N") : p.Nom.vue()) + "', " +
                        CodeNumerique(sansNom ? CodeSon("N") : p.CodeNom.str()) + ", '" + ValeurSQL(prenoms) +
                        "', '" + ValeurSQL(std::string_view(&p.Sexe, 1)) + "', '" + ValeurSQL(p.Metier) +
                        "', '" + ValeurSQL(p.Notes);
        if (!p.Notes.empty() && !url.empty()) r += "\r\n";
        r += ValeurSQL(url);
        r += "'), ";
        return r;
    }

    void Personnes() {
        Insertion personnes(
            o_,
            "INSERT INTO epa_personne (numperso, numfichier, numorig, numparents, nom, nomphon, "
            "prenoms, sexe, metier, infos) VALUES ");
        Insertion actes(
            o_,
            "INSERT INTO epa_acte (numacte, numtype, numperso, dat, annee, datenvers, daterepu, lieu, "
            "infosacte, sourceacte) VALUES ");
        b_.Persos.PourChaqueEcrit(1, b_.NbPersos, [&](std::int32_t n) {
            const Perso& p = Lu().Persos[n];
            if (p.Nom.empty() && p.Prenoms.empty()) return;
            b_.Persos[n].NumLivre = ++c_.NbPersosSQL;
            personnes.Ajouter(RangeePersonne(n, p));
            const std::string numero = "@np + " + Nombre(c_.NbPersosSQL);
            for (const Evenement& e : kEvenementsPerso) AjouterActe(actes, p.*(e.perso), e, numero);
        });
        personnes.Ecrire();
        actes.Ecrire();
    }

    void Familles() {
        Insertion familles(o_, "INSERT INTO epa_famille (numfami, nummari, numepouse) VALUES ");
        Insertion actes(
            o_,
            "INSERT INTO epa_acte (numacte, numtype, numfami, dat, annee, datenvers, daterepu, lieu, "
            "infosacte, sourceacte) VALUES ");
        b_.Familles.PourChaqueEcrit(1, b_.NbFamis, [&](std::int32_t f) {
            const Fami& fa = Lu().Familles[f];
            if (fa.NumLivre == 0) return;
            const std::string numero = "@nap + " + Nombre(fa.NumLivre);
            familles.Ajouter("(" + numero + ", " + Conjoint(fa.Mari) + ", " + Conjoint(fa.Femme) + "), ");
            for (const Evenement& e : kEvenementsFami) AjouterActe(actes, fa.*(e.fami), e, numero);
        });
        familles.Ecrire();
        actes.Ecrire();
    }

    // La date du fichier en aaaa-mm-jj ; sans date, la clé d'un texte vide.
    std::string DateFichier() const {
        const double jours = Lu().Persos[-1].DateModif;
        const auto d = jours > 0 ? DateDuNumero(static_cast<std::int64_t>(jours)) : std::nullopt;
        return Remplacer(CleDate(d ? FormatDateCourte(*d) : std::string()), "/", "-");
    }

    void Fin() {
        Ligne(EncoderUTF8("UPDATE epa_fichier SET numlieu=@nl, nbactes=" + Nombre(c_.NbActes) +
                          ", nbevenements=" + Nombre(c_.NbEvenements) +
                          ", nbfamis=" + Nombre(Lu().NbFamisReels) +
                          ", nbpersos=" + Nombre(Lu().NbPersosReels) + ", debut=" + Nombre(c_.AnDebut) +
                          ", fin=" + Nombre(c_.AnFin) + ", datefichier='" + DateFichier() +
                          "', infosfichier='" + ValeurSQL(Lu().Notes[-1].Texte) + "' WHERE numfichier=@nf;"));
        Ligne("SET FOREIGN_KEY_CHECKS = 1;");
        Ligne("COMMIT;");
    }

    Base& b_;
    const NomEPA& nom_;
    std::ostream& o_;
    CompteursSQL c_;
};

}  // namespace

std::string EncoderUTF8(std::string_view texte) {
    return Cp1252VersUtf8(texte);
}

std::string CodeNumerique(std::string_view code) {
    if (code.empty()) code = "N000";
    std::string r = Nombre(static_cast<unsigned char>(code[0]));
    // Seuls les chiffres : un "*" de clé générique ferait une colonne numérique fausse.
    for (char c : code.substr(1))
        if (EstChiffre(c)) r += c;
    return r;
}

std::string ValeurSQL(std::string_view texte) {
    std::string r = EchapperSQL(texte);
    RemplacerTout(r, std::string_view("\0", 1), "\\0");
    return r;
}

std::string LigneSQLActe(const Acte& a, int numtype, std::string_view numero, std::int32_t nbEvenements) {
    std::string r = "(@na + " + Nombre(nbEvenements) + ", " + Nombre(numtype) + ", ";
    r += numero;
    r += ", '" + ValeurSQL(a.Date) + "', " + Nombre(a.Annee) + ", '" + ValeurSQL(a.DateTri) + "', '', '" +
         ValeurSQL(a.Lieu) + "', '" + ValeurSQL(a.Notes) + "', '" + ValeurSQL(a.Source) + "'), ";
    return r;
}

CompteursSQL EcrireScriptSQL(Base& base, const NomEPA& nom, std::ostream& sortie) {
    return Script(base, nom, sortie).Ecrire();
}

ResultatExportSQL ExporterSQL(std::string_view cheminEpa, Progression& progression) {
    ResultatExportSQL r;
    const NomEPA nom = LireNomEPA(cheminEpa);
    if (!nom.Erreur.empty()) {
        r.Erreur = nom.Erreur;
        return r;
    }
    r.Gedcom = FichierGedcomEPA(cheminEpa);
    r.Script = FichierScriptEPA(cheminEpa);
    if (r.Gedcom.empty()) {
        const std::string sans = Utf8VersCp1252(Gauche(r.Script, r.Script.size() - 4));
        r.Erreur = "Export SQL de " + nom.NomFichier + " impossible : le fichier GEDCOM " + sans + " (ou " +
                   sans + ".ged) n'existe pas.";
        return r;
    }
    try {
        Base base;
        Options options;
        OptionsGedcom cases;
        cases.Fichier = r.Gedcom;
        // Sans renumérotation : celle de la lecture tient une seule table pour toutes les sortes de
        // fiches, et une note @N66@ vue avant @I66@ fond deux personnes en une. Le livre garde les
        // numéros du fichier et n'y perd personne ; les numéros du livre, eux, se suivent.
        cases.OptRenum = false;
        ContexteLecture ctx{options, cases, progression};
        ctx.remplirListes = false;
        const ResultatLecture lu = LireGedcom(base, ctx);
        r.Journal = lu.Journal;
        if (!lu.Lu) {
            r.Erreur = lu.Erreur;
            return r;
        }
        progression.Compteur("export");
        progression.LaisserPasser();
        const EtatFichier e = EcrireFichierSur(r.Script, [&](std::ostream& o) {
            r.Compteurs = EcrireScriptSQL(base, nom, o);
            return static_cast<bool>(o);
        });
        r.Ok = e.Ok;
        r.Erreur = e.Message;
    } catch (const std::bad_alloc&) {
        r.Erreur = "M\xE9moire insuffisante pour l'export SQL de " + nom.NomFichier + ".";
    } catch (const std::exception& ex) {
        r.Erreur = "Erreur pendant l'export SQL de " + nom.NomFichier + " : " + ex.what();
    }
    return r;
}

}  // namespace arbolix
