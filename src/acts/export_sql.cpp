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

void AjouterNombre(std::string& r, std::int64_t n) {
    char tampon[24];
    const auto fin = std::to_chars(tampon, tampon + sizeof tampon, n);
    r.append(tampon, fin.ptr);
}

std::string Nombre(std::int64_t n) {
    std::string r;
    AjouterNombre(r, n);
    return r;
}

// ValeurSQL d'un seul passage, à la suite de r : les rangées d'un million de personnes. Les
// suites sans caractère à changer passent d'un bloc.
void AjouterValeur(std::string& r, std::string_view t) {
    std::size_t debut = 0;
    for (std::size_t i = 0; i < t.size(); ++i) {
        std::string_view par;
        switch (t[i]) {
            case '\\':
                par = "/";
                break;
            case '\'':
                par = "\\'";
                break;
            case '"':
                par = "\\\"";
                break;
            case '\0':
                par = "\\0";
                break;
            default:
                continue;
        }
        r.append(t, debut, i - debut);
        r += par;
        debut = i + 1;
    }
    r.append(t, debut);
}

// "'texte'" suivi de ", ".
void AjouterTexte(std::string& r, std::string_view t) {
    r += '\'';
    AjouterValeur(r, t);
    r += "', ";
}

void AjouterLigneSQLActe(std::string& r, const Acte& a, int numtype, std::string_view numero,
                         std::int32_t nbEvenements) {
    r += "(@na + ";
    AjouterNombre(r, nbEvenements);
    r += ", ";
    AjouterNombre(r, numtype);
    r += ", ";
    r += numero;
    r += ", ";
    AjouterTexte(r, a.Date);
    AjouterNombre(r, a.Annee);
    r += ", ";
    AjouterTexte(r, a.DateTri);
    r += "'', ";
    AjouterTexte(r, a.Lieu);
    AjouterTexte(r, a.Notes);
    AjouterTexte(r, a.Source);
    r.resize(r.size() - 2);
    r += "), ";
}

// Une insertion de plusieurs rangées qui s'écrit avant de passer kMaxInstruction caractères.
class Insertion {
public:
    Insertion(std::ostream& sortie, std::string tete)
        : sortie_(sortie), tete_(std::move(tete)), texte_(tete_) {}
    // La rangée suivante s'écrit ici, puis Ajouter la prend.
    std::string& Rangee() {
        rangee_.clear();
        return rangee_;
    }
    void Ajouter() {
        if (texte_.size() > tete_.size() && texte_.size() + rangee_.size() > kMaxInstruction) Ecrire();
        texte_ += rangee_;
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
    std::string rangee_;
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
        std::string numero = "@np + ";
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
        AjouterLigneSQLActe(actes.Rangee(), a, e.numtype, numero, c_.NbEvenements);
        actes.Ajouter();
        Annees(e, a.Annee);
        if (!a.Lieu.empty() && !a.Date.empty() && EstChiffre(a.Date[0])) ++c_.NbActes;
    }

    // "@np + 12" pour une personne du livre, "0" sinon.
    void AjouterConjoint(std::string& r, std::int32_t n) const {
        const std::int32_t livre = n > 0 && n <= Lu().Persos.Haut() ? Lu().Persos[n].NumLivre : 0;
        if (livre == 0) {
            r += '0';
            return;
        }
        r += "@np + ";
        AjouterNombre(r, livre);
    }

    void AjouterPersonne(std::string& r, std::int32_t n, const Perso& p) const {
        const bool sansNom = p.Nom.empty();
        const Texte& url = p.Suite().URL;
        // Une famille sans conjoint n'entre pas au livre : l'enfant n'y a pas de parents.
        const std::int32_t parents = p.NumParents > 0 && p.NumParents <= Lu().Familles.Haut()
                                         ? Lu().Familles[p.NumParents].NumLivre
                                         : 0;
        r += "(@np + ";
        AjouterNombre(r, p.NumLivre);
        r += ", @nf, ";
        AjouterNombre(r, n);
        r += ", ";
        if (parents > 0) {
            r += "@nap + ";
            AjouterNombre(r, parents);
        } else {
            r += '0';
        }
        r += ", ";
        AjouterTexte(r, sansNom ? std::string_view("N") : p.Nom.vue());
        static const std::string kCodeSansNom = CodeSon("N");
        r += CodeNumerique(sansNom ? std::string_view(kCodeSansNom) : p.CodeNom.vue());
        r += ", ";
        AjouterTexte(r, p.Prenoms.empty() ? std::string_view("N") : p.Prenoms.vue());
        AjouterTexte(r, std::string_view(&p.Sexe, 1));
        AjouterTexte(r, p.Metier);
        r += '\'';
        AjouterValeur(r, p.Notes);
        if (!p.Notes.empty() && !url.empty()) r += "\r\n";
        AjouterValeur(r, url);
        r += "'), ";
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
        std::string numero = "@np + ";
        b_.Persos.PourChaqueEcrit(1, b_.NbPersos, [&](std::int32_t n) {
            const Perso& p = Lu().Persos[n];
            if (p.Nom.empty() && p.Prenoms.empty()) return;
            b_.Persos[n].NumLivre = ++c_.NbPersosSQL;
            AjouterPersonne(personnes.Rangee(), n, p);
            personnes.Ajouter();
            numero.resize(6);  // "@np + "
            AjouterNombre(numero, c_.NbPersosSQL);
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
            std::string& r = familles.Rangee();
            r += "(" + numero + ", ";
            AjouterConjoint(r, fa.Mari);
            r += ", ";
            AjouterConjoint(r, fa.Femme);
            r += "), ";
            familles.Ajouter();
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
    std::string r;
    AjouterValeur(r, texte);
    return r;
}

std::string LigneSQLActe(const Acte& a, int numtype, std::string_view numero, std::int32_t nbEvenements) {
    std::string r;
    AjouterLigneSQLActe(r, a, numtype, numero, nbEvenements);
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
        // Sans renumérotation : numorig garde le numéro du fichier, qui mène de la ligne à la fiche ;
        // les numéros du livre, eux, se suivent.
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
