#include "reports/site.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <regex>
#include <set>
#include <system_error>
#include <tuple>
#include <vector>

#include "card/lignes_personne.h"
#include "gedcom/enregistrement.h"
#include "kinship/recherches.h"
#include "platform/cp1252.h"
#include "reports/blocs_personne.h"
#include "reports/date_confidentielle.h"
#include "reports/html.h"
#include "reports/livre.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kBr = "<br />";
constexpr char kQ = '"';

std::string Q(std::string_view t) {
    return '"' + std::string(t) + '"';
}

}  // namespace

std::string StyleCss(const Options& options) {
    std::string police = options.Police;
    if (police.empty())
        police = "Arial";
    else if (police != "Arial")
        police += ", Arial";
    std::string r = "body {margin: 0px; font-family: " + police + ";}\r\n";
    for (const char* l :
         {"div#menu {position: fixed; margin-left: 30px; -webkit-backface-visibility: hidden;}",
          "button.lettre {width: 45px; height: 45px; text-align: center; font-size: 120%;}",
          "button.bouton_tous {padding-left: 2px; padding-right: 2px; font-size: 120%;}",
          "button.bouton_autres {padding-left: 2px; padding-right: 2px; font-size: 80%;}",
          "div#page {margin-left: 260px;}", "div#page_accueil {margin-left: 260px;}",
          "div.famille {min-height: 1500px;}", "a.famille {margin-top: 20px;}",
          "div.enfants {margin-left: 40px;}"})
        r.append(l).append("\r\n");
    return r;
}

std::string Style2Css() {
    return "body#corps {\r\nbackground-image: url(fond.png);\r\nbackground-color: #eeffcc;\r\n}\r\n"
           "body#corps_accueil {\r\nbackground-image: url(fond_accueil.png);\r\nbackground-color: "
           "#eeffcc;\r\n}\r\n";
}

std::string MenuJs() {
    return "function clic_menu(typ, lettre) {\r\n"
           "var champtyp = document.getElementById('typ');\r\n"
           "var champlettre = document.getElementById('lettre');\r\n"
           "if (typ != '') champtyp.value = typ;\r\n"
           "else typ = champtyp.value;\r\n"
           "if (lettre != '') champlettre.value = lettre;\r\n"
           "else lettre = champlettre.value;\r\n"
           "if (typ != '' && lettre != '') {\r\n"
           "\tvar formu = document.getElementById('form_menu');\r\n"
           "\tif (typ == 'lieu' && lettre == 's') lettre = 'x';\r\n"
           "\tformu.action = typ + lettre + '.html';\r\n"
           "\tformu.submit();\r\n"
           "}\r\n"
           "}\r\n";
}

std::string EnteteHTML(std::string_view nomFichier, std::string_view titre, std::string_view accueil,
                       std::string_view tete) {
    const std::string x = nomFichier == accueil ? "_accueil" : "";
    std::string r;
    const auto ligne = [&](std::string_view l) { r.append(l).append("\r\n"); };
    ligne(
        "<!DOCTYPE HTML PUBLIC \"-//W3C//DTD HTML 4.01 Transitional//EN\" "
        "\"http://www.w3.org/TR/html4/loose.dtd\">");
    ligne("<html lang=\"fr\"><head>");
    ligne("<meta http-equiv=\"content-type\" content=\"text/html; charset=iso-8859-1\">");
    ligne("<title>" + std::string(titre) + "</title>");
    ligne("<script type=\"text/javascript\" src=\"menu.js\"></script>");
    ligne("<link rel=\"stylesheet\" type=\"text/css\" href=\"style.css\">");
    ligne("<link rel=\"stylesheet\" type=\"text/css\" href=\"style2.css\">");
    ligne("<link rel=\"icon\" type=\"image/x-icon\" href=\"icone.ico\">");
    if (!tete.empty()) ligne(tete);
    ligne("</head><body id=" + Q("corps" + x) + ">");
    ligne("<div id=\"menu\">");
    ligne("<a href=" + Q(EncoderUrl(accueil)) + "><img src=\"logo.png\" alt=\" Accueil\" /></a><br />");
    ligne("<form name=\"form_menu\" id=\"form_menu\" method=\"post\" action=\"\">");
    ligne("<p>Aller &agrave; :");
    ligne("<input type=\"hidden\" name=\"typ\" id=\"typ\" value=\"\" /></p>");
    for (const auto& [id, valeur, libelle] :
         {std::tuple{"typ_nom", "nom", " /> Nom</label></p>"},
          std::tuple{"typ_prenom", "prenom", " /> Pr\xE9nom</label></p>"},
          std::tuple{"typ_lieu", "lieu", " /> Lieu</label></p>"},
          std::tuple{"typ_metier", "metier", " /> Profession</label></p>"}})
        ligne(std::string("<p><label><input type=\"radio\" name=\"typradio\" id=") + Q(id) + " value=" +
              Q(valeur) + " onclick=" + Q(std::string("clic_menu('") + valeur + "', '')") + libelle);
    ligne("<p>Commen&ccedil;ant par :");
    ligne("<input type=\"hidden\" name=\"lettre\" id=\"lettre\" value=\"\" /></p>");
    ligne("<table summary=\"\"><tbody>");
    ligne("<tr><td><button class=\"lettre bouton_tous\" onclick=\"clic_menu('', 's')\">tous</button>");
    for (char l = 'A'; l <= 'Z'; ++l) {
        std::string b = l % 4 == 0 ? "<tr><td>" : "";
        b += "<button class=\"lettre\" onclick=\"clic_menu('', '_" + std::string(1, l) + "')\">" +
             std::string(1, l) + "</button>";
        if (l % 4 == 3) b += "</td></tr>";
        ligne(b);
    }
    ligne("<button class=\"lettre\" onclick=\"clic_menu('', '_autres')\">?</button></td></tr>");
    ligne("</tbody></table>");
    ligne("<script type=\"text/javascript\">");
    ligne("document.getElementById('typ_nom').checked='checked';");
    ligne("document.getElementById('typ').value='nom';");
    ligne("</script>");
    ligne("</form>");
    ligne("</div><div id=" + Q("page" + x) + ">");
    ligne("<p style=\"text-align: center; font-size: 1.5em; text-decoration: underline;\">" +
          std::string(titre) + "</p>");
    // Seules les pages des familles sont des tableaux : une page de prénoms n'a pas de rangées.
    if (nomFichier.starts_with("page_")) ligne("<table summary=\"\"><tbody>");
    return r;
}

std::string FinHTML(std::string_view nomFichier) {
    return std::string(nomFichier.starts_with("page_") ? "</tbody></table>\r\n" : "") +
           "</div></body></html>\r\n";
}

void EcrireFichierLie(const ContexteExport& ctx, TexteRapport& f, std::string_view chemin,
                      std::string_view sep) {
    if (f.Fichier() != kFichierHtml || chemin.empty()) return;
    std::string dossier = Utf8VersCp1252(fs::path(ctx.exports.FichierExport).parent_path().string());
    if (!dossier.empty() && dossier.back() != '/') dossier += '/';
    std::string_view c = chemin;
    if (!dossier.empty() && c.starts_with(dossier)) c.remove_prefix(dossier.size());
    const std::string href = EncoderUrl(Cp1252VersUtf8(c));
    const std::size_t point = c.rfind('.');
    const std::string ext = point == std::string_view::npos ? "0" : EnMinuscules(c.substr(point + 1));
    if (Chercher(";0;png;jpg;jpeg;gif;bmp;webp;", ";" + ext + ";") != std::string::npos) {
        f.Texte(std::string(sep) + "<img src=" + Q(href) + " alt=\"\" />");
    } else {
        const std::size_t barre = c.find_last_of("/\\");
        const std::string_view nom = barre == std::string_view::npos ? c : c.substr(barre + 1);
        f.Texte(std::string(sep) + "<a href=" + Q(href) + ">" + EchapperHtml(nom) + "</a>");
    }
}

namespace {

// La clé d'un index : sans accents, en majuscules, "Élise" range à côté de "Elise".
std::string Cle(std::string_view t) {
    return EnMajuscules(SansAccents(t, false));
}

// La lettre d'une page de liste, ou 0 pour les pages "autres".
char LettreDe(std::string_view cle) {
    return !cle.empty() && cle[0] >= 'A' && cle[0] <= 'Z' ? cle[0] : 0;
}

std::string NomPageLettre(std::string_view type, char lettre) {
    return std::string(type) + "_" + (lettre ? std::string(1, lettre) : std::string("autres")) + ".html";
}

// Le titre tapé par l'utilisateur peut porter des entités ; le reste est échappé.
std::string EchapperTitre(std::string_view t) {
    static const std::regex entite("^&(#[0-9]+|#x[0-9A-Fa-f]+|[A-Za-z][A-Za-z0-9]*);");
    std::string r;
    for (std::size_t i = 0; i < t.size(); ++i) {
        if (t[i] == '&' && std::regex_search(std::string(t.substr(i, 12)), entite))
            r += '&';
        else
            r += EchapperHtml(t.substr(i, 1));
    }
    return r;
}

// Une page que le disque refuse : son nom et la raison.
struct EchecPage {
    std::string nom;
    int erreur;
};

// Les pages s'écrivent dans un dossier temporaire du site, puis prennent leur place à la fin.
class Site {
public:
    Site(const ContexteExport& ctx, const ContexteExport& ctxIndex, fs::path dossier, std::string accueil)
        : ctx_(ctx), ctxIndex_(ctxIndex), dossier_(std::move(dossier)), accueil_(std::move(accueil)) {
        temp_ = dossier_ / ".site-en-cours";
    }
    ~Site() {
        std::error_code e;
        fs::remove_all(temp_, e);
    }

    const ContexteExport& ctx() const { return ctx_; }
    const ContexteExport& index() const { return ctxIndex_; }
    const fs::path& dossier() const { return dossier_; }
    const std::string& accueil() const { return accueil_; }
    TexteRapport& f() { return page_; }
    void Ligne(std::string_view t) { page_.Ligne(t); }
    void Texte(std::string_view t) { page_.Texte(t); }

    void Preparer() {
        fs::remove_all(temp_);
        fs::create_directories(temp_);
    }

    // EcrireEnteteHTML : ferme la page ouverte, ouvre la suivante.
    void Entete(const std::string& nom, std::string_view titre, std::string_view tete = {}) {
        Fermer();
        if (ctx_.progression) {
            ctx_.progression->Compteur(nom);
            ctx_.progression->LaisserPasser();
            if (ctx_.progression->Annule()) throw ExportAnnule{};
        }
        nom_ = nom;
        page_ = TexteRapport(kFichierHtml);
        page_.Texte(EnteteHTML(nom, titre, accueil_, tete));
    }

    void Fermer() {
        if (nom_.empty()) return;
        page_.Texte(FinHTML(nom_));
        EcrireFichier(nom_, page_.Fermer());
        nom_.clear();
    }

    void EcrireFichier(const std::string& nom, std::string_view octets) {
        const std::string latin1 = VersLatin1(octets);
        std::ofstream o(temp_ / nom, std::ios::binary | std::ios::trunc);
        o.write(latin1.data(), static_cast<std::streamsize>(latin1.size()));
        o.close();
        if (!o) throw EchecPage{nom, errno};
        ecrits_.insert(nom);
        octets_ += latin1.size();
    }

    // Chaque page prend la place de l'ancienne d'un seul renommage ; celles d'un ancien site que
    // ce site n'a pas écrites partent, pour qu'aucun lien ne mène à une page d'hier.
    void Installer() {
        static const std::regex pages(
            "(page_[0-9]+|(nom|prenom|lieu|metier)_([A-Z]|autres)|noms|prenoms|lieux|metiers|recherches)"
            "\\.html");
        for (const auto& n : ecrits_) fs::rename(temp_ / n, dossier_ / n);
        for (const auto& e : fs::directory_iterator(dossier_)) {
            const std::string n = e.path().filename().string();
            if (e.is_regular_file() && !ecrits_.contains(n) && std::regex_match(n, pages))
                fs::remove(e.path());
        }
    }

    std::size_t NbFichiers() const { return ecrits_.size(); }
    std::uintmax_t Octets() const { return octets_; }

    // Numéro de page et cible d'une entrée du livre : "page_3.html#f42".
    std::int32_t parPage = 1;
    std::string Cible(std::int32_t numLivre) const {
        return "page_" + std::to_string(numLivre / parPage) + ".html#f" + std::to_string(numLivre);
    }
    // La famille d'une personne dans les pages (sa première union, sinon ses parents), ou "".
    std::string CiblePersonne(std::int32_t n) const {
        const Perso& p = PersoLu(ctx_.base, n);
        std::int32_t u = p.Unions[1];
        if (u <= 0) u = p.NumParents;
        if (u > 0) return CibleFamille(u);
        return p.NumLivre > 0 ? Cible(p.NumLivre) : std::string();
    }
    std::string CibleFamille(std::int32_t u) const {
        const Fami& f = FamiLue(ctx_.base, u);
        return f.Sel != 0 && f.NumLivre > 0 ? Cible(f.NumLivre) : std::string();
    }

private:
    const ContexteExport& ctx_;
    const ContexteExport& ctxIndex_;
    fs::path dossier_, temp_;
    std::string accueil_;
    std::string nom_;
    TexteRapport page_{kFichierHtml};
    std::set<std::string> ecrits_;
    std::uintmax_t octets_ = 0;
};

std::string Lien(std::string_view cible, std::string_view texte, std::string_view titre = "") {
    if (cible.empty()) return std::string(texte);
    return "<a href=" + Q(cible) + " title=" + Q(titre) + ">" + std::string(texte) + "</a>";
}

bool Existe(const Base& base, std::int32_t n) {
    return PersonneExiste(base, n) && base.Persos[n].Sel != 0;
}

std::string NomPrenoms(const Perso& p) {
    return EchapperHtml(p.Nom + " " + p.Prenoms);
}

// « Sauf décédé » : les dates d'une personne morte suivent le seuil des décès, comme dans les blocs.
bool SaufDecede(const ContexteExport& c, std::int32_t n) {
    return c.exports.OptionSaufDecede && !MarqueDecede(c, n, DateDuRapport(c)).empty();
}

std::string SosaDe(const Perso& p) {
    const auto& s = p.Suite();
    return SosaPositif(s.NumSosa[0].vue()) ? s.NumSosa[0].str() + s.AutresSosa[0].str() : std::string();
}

// ---- Familles --------------------------------------------------------------------------------

// Sosa, référence, parents et autres unions d'un époux, sous son bloc.
void EcrireEpoux(Site& site, std::int32_t p, std::int32_t famille) {
    const ContexteExport& c = site.ctx();
    const Base& base = c.base;
    FormePersonne forme;
    forme.sep = kBr;
    forme.avant = "<span style=\"font-weight: bold;\">";
    forme.apres = "</span>";
    forme.fin = " ";
    EcrirePersonne(c, p, site.f(), forme);
    const Perso& q = PersoLu(base, p);
    const PersoSuite& s = q.Suite();
    const std::string br(kBr);
    if (SosaPositif(s.NumSosa[0].vue()))
        site.Texte(br + "Sosa" + (s.AutresSosa[0].empty() ? "" : "s") + " " + s.NumSosa[0].str() +
                   EchapperHtml(s.AutresSosa[0].vue()));
    if (!s.Ref.empty() && Remplacer(s.Ref.vue(), "&", ", ") != s.NumSosa[0].str())
        site.Texte(br +
                   "R\xE9"
                   "f. " +
                   EchapperHtml(s.Ref.vue()));
    if (q.NumParents > 0) {
        const Fami& fp = FamiLue(base, q.NumParents);
        const std::string date = FamiLue(base, famille).Mariage.Date.str();
        const auto parent = [&](std::int32_t n) {
            return EchapperHtml(MarqueDecede(c, n, date)) + NomPrenoms(PersoLu(base, n));
        };
        std::string t;
        if (fp.Mari > 0) t = parent(fp.Mari);
        if (fp.Mari > 0 && fp.Femme > 0) t += " et ";
        if (fp.Femme > 0) t += parent(fp.Femme);
        site.Texte(br + "parents : " + Lien(site.CibleFamille(q.NumParents), t, "lien vers les parents"));
    }
    if (q.Unions[2] > 0) {
        std::string t = br + "autres unions :";
        for (int i = 1; i <= kMaxUnions; ++i) {
            const std::int32_t u = q.Unions[i];
            if (u <= 0 || u == famille) continue;
            const std::int32_t conjoint = Conjoint(FamiLue(base, u), p);
            t += br + Lien(site.CibleFamille(u), " " + NomPrenoms(PersoLu(base, conjoint)),
                           "lien vers cette union");
        }
        site.Texte(t);
    }
}

// "° 1850 Nancy" : symbole, date filtrée et lieu, d'un seul blanc entre eux ; vide sans date ni lieu.
std::string ActeCourt(const ContexteExport& c, std::string_view symbole, const Acte& a, int indice) {
    if (a.Date.empty() && a.Lieu.empty()) return {};
    std::string t(symbole);
    const std::string d = DateConfidentielle(a.Date.vue(), indice, false, c.exports, c.aujourdhui.annee);
    if (!d.empty()) t += " " + d;
    if (!a.Lieu.empty()) t += " " + a.Lieu.str();
    return EchapperHtml(t);
}

void EcrireEnfants(Site& site, const Fami& fam) {
    const ContexteExport& c = site.ctx();
    const Base& base = c.base;
    const Options& o = c.options;
    const std::string br(kBr);
    site.Ligne("<div class=\"enfants\">");
    for (int i = 1; i <= kMaxEnfants && fam.Enfants(i) > 0; ++i) {
        const std::int32_t n = fam.Enfants(i);
        const Perso& e = PersoLu(base, n);
        const PersoSuite& s = e.Suite();
        std::string t = "<p class=\"enfant\">" + std::to_string(i) + ". <span style=\"font-weight: bold;\">" +
                        EchapperHtml(e.Prenoms.vue()) + "</span>";
        if (!e.Metier.empty()) t += ", " + EchapperHtml(e.Metier.vue());
        if (SosaPositif(s.NumSosa[0].vue()))
            t += ", Sosa" + std::string(s.AutresSosa[0].empty() ? "" : "s") + " " + s.NumSosa[0].str() +
                 EchapperHtml(s.AutresSosa[0].vue());
        if (!s.Ref.empty() && Remplacer(s.Ref.vue(), "&", ", ") != s.NumSosa[0].str())
            t += ", r\xE9"
                 "f. " +
                 EchapperHtml(s.Ref.vue());
        site.Ligne(t);
        t.clear();
        if (const std::string a = ActeCourt(c, o.SymbNais, e.Naissance, 0); !a.empty()) t += br + a;
        if (const std::string a = ActeCourt(c, o.SymbDece, e.Deces, 1); !a.empty()) t += br + a;
        for (int j = 1; j <= kMaxUnions; ++j) {
            const std::int32_t u = e.Unions[j];
            if (u <= 0) continue;
            const Fami& f = FamiLue(base, u);
            std::string mariage(static_cast<std::size_t>(j) * o.SymbMari.size(), ' ');
            for (int k = 0; k < j; ++k) mariage.replace(k * o.SymbMari.size(), o.SymbMari.size(), o.SymbMari);
            const std::string acte = ActeCourt(c, mariage, f.Mariage, 0);
            t += br + (acte.empty() ? EchapperHtml(mariage) : acte) + br;
            const std::int32_t conjoint = Conjoint(f, n);
            std::string qui = " " + NomPrenoms(PersoLu(base, conjoint));
            for (const std::string& a : {ActeCourt(c, o.SymbNais, PersoLu(base, conjoint).Naissance, 0),
                                         ActeCourt(c, o.SymbDece, PersoLu(base, conjoint).Deces, 1)})
                if (!a.empty()) qui += " " + a;
            t += Lien(site.CibleFamille(u), qui, "lien vers cette union");
        }
        site.Ligne(t + "</p>");
    }
    site.Ligne("</div>");
}

// Une entrée du livre : une famille (> 0), une personne isolée (< 0), ou rien (l'entrée 0).
void EcrireEntree(Site& site, std::int32_t n, std::int32_t entree) {
    const ContexteExport& c = site.ctx();
    const Base& base = c.base;
    const Options& o = c.options;
    // L'entrée 0 n'a que son ancre : un bloc vide haut d'un écran cacherait la première famille.
    if (n == 0 && entree == 0) return site.Ligne("<tr><td><a class=\"famille\" name=\"f0\"></a></td></tr>");
    site.Ligne("<tr><td><div class=\"famille\">");
    site.Ligne("<a class=\"famille\" name=\"f" + std::to_string(n) + "\"></a>");
    if (entree < 0) EcrireEpoux(site, -entree, 0);
    if (entree > 0) {
        const Fami& fam = FamiLue(base, entree);
        if (fam.Mari > 0) EcrireEpoux(site, fam.Mari, entree);
        site.Texte(kBr);
        const bool actes = !fam.Contrat.Date.empty() || !fam.Contrat.Lieu.empty() ||
                           !fam.Mariage.Date.empty() || !fam.Mariage.Lieu.empty() ||
                           !fam.Divorce.Date.empty() || !fam.Divorce.Lieu.empty();
        if (actes && !fam.Divorce.Date.empty())
            EcrireActes(c, fam.Mariage, o.SymbMari, fam.Divorce, o.SymbDivo, site.f(), kBr, " ", true, false);
        else if (actes)
            EcrireActes(c, fam.Contrat, o.SymbCoMa, fam.Mariage, o.SymbMari, site.f(), kBr, " ", true, false);
        // L'épouse commence sa ligne : son nom ne suit pas le lieu du mariage.
        if (fam.Femme > 0) {
            if (fam.Mari > 0) site.Texte(kBr);
            EcrireEpoux(site, fam.Femme, entree);
        }
        site.Ligne("");
        EcrireEnfants(site, fam);
    } else {
        site.Ligne("");
    }
    site.Ligne("</div></td></tr>");
}

// Les pages des familles : p entrées par page, p = Int(total ^ 0.45) + 1.
void PagesFamilles(Site& site, const std::vector<std::int32_t>& entrees) {
    const auto total = static_cast<std::int32_t>(entrees.size()) - 1;
    const std::string titre = EchapperTitre(site.ctx().exports.TitreExport);
    for (std::int32_t n = 0; n <= total; ++n) {
        if (n % site.parPage == 0) site.Entete("page_" + std::to_string(n / site.parPage) + ".html", titre);
        TourDeBoucle(site.ctx(), static_cast<std::uint32_t>(n));
        EcrireEntree(site, n, entrees[static_cast<std::size_t>(n)]);
    }
}

// ---- Noms et prénoms -------------------------------------------------------------------------

// Une personne rangée dans une liste par lettre : la clé qui choisit la page et l'ancre.
struct Entree {
    std::string tri;    // ordre des lignes
    std::string ancre;  // clé du nom ou du prénom
    std::int32_t numero;
};

// Le nom (ou prénom) et la personne qui le porte pour les listes de noms et de prénoms.
struct GenreNom {
    const char* type;   // "nom" ou "prenom"
    const char* liste;  // "noms" ou "prenoms"
    const char* titreListe;
    const char* titreLettre;
    const char* titreAutres;
    bool prenom;
};

constexpr GenreNom kNoms{"nom",
                         "noms",
                         "Liste des noms",
                         "Liste des personnes dont le nom commence par ",
                         "Liste des personnes avec d'autres noms",
                         false};
constexpr GenreNom kPrenoms{"prenom",
                            "prenoms",
                            "Liste des pr\xE9noms",
                            "Liste des personnes dont le pr\xE9nom commence par ",
                            "Liste des personnes avec d'autres pr\xE9noms",
                            true};

void PagesNoms(Site& site, const GenreNom& g) {
    const Base& base = site.ctx().base;
    // Par lettre, puis par clé : la clé du nom range sous NomTri (sans particule) pour que le lien
    // de la liste et la page de la lettre tombent d'accord.
    std::map<char, std::vector<Entree>> parLettre;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (!Existe(base, n)) return;
        const Perso& p = base.Persos[n];
        const std::string cle = Cle(g.prenom ? p.Prenoms.vue() : p.Nom.vue());
        const std::string rang = g.prenom ? cle : std::string(p.NomTri.vue());
        std::string tri = rang + "\x01" + cle + "\x01" +
                          (g.prenom ? Cle(p.Nom.vue()) : Cle(p.Prenoms.vue())) + "\x01" +
                          std::string(p.Naissance.DateTri.vue());
        parLettre[LettreDe(rang)].push_back({std::move(tri), cle, n});
    });
    for (auto& [l, v] : parLettre)
        std::sort(v.begin(), v.end(), [](const Entree& a, const Entree& b) {
            return a.tri != b.tri ? a.tri < b.tri : a.numero < b.numero;
        });

    // La liste : chaque nom une fois, avec son compte ; les "autres" à la fin.
    site.Entete(std::string(g.liste) + ".html", g.titreListe);
    std::vector<char> ordre;
    for (char l = 'A'; l <= 'Z'; ++l) ordre.push_back(l);
    ordre.push_back(0);
    bool premier = true;
    for (const char l : ordre) {
        const auto it = parLettre.find(l);
        if (it == parLettre.end()) continue;
        if (!premier) site.Ligne(kBr);
        premier = false;
        const auto& v = it->second;
        for (std::size_t i = 0; i < v.size();) {
            std::size_t j = i;
            while (j < v.size() && v[j].ancre == v[i].ancre) ++j;
            const Perso& p = base.Persos[v[i].numero];
            const std::string nom = EchapperHtml(g.prenom ? p.Prenoms.vue() : p.Nom.vue());
            if (!v[i].ancre.empty()) {
                const std::string href = EncoderTexte(NomPageLettre(g.type, l) + "#" + v[i].ancre, "_");
                site.Ligne("<a href=" + Q(href) + " title=\"\">" + nom + "</a> (" + std::to_string(j - i) +
                           ")");
            }
            i = j;
        }
    }

    // Une page par lettre, toujours écrite : le menu mène à chacune.
    for (const char l : ordre) {
        const std::string nomPage = NomPageLettre(g.type, l);
        site.Entete(nomPage, l ? std::string(g.titreLettre) + l : std::string(g.titreAutres));
        const auto it = parLettre.find(l);
        if (it == parLettre.end()) continue;
        std::set<std::string> ancres;
        std::string avant = "\x02";
        std::uint32_t tour = 0;
        for (const Entree& e : it->second) {
            TourDeBoucle(site.ctx(), ++tour);
            const Perso& p = base.Persos[e.numero];
            site.Texte(kBr);
            if (e.ancre != avant) {
                avant = e.ancre;
                const std::string ancre = EncoderTexte(e.ancre, "_");
                if (!ancre.empty() && ancres.insert(ancre).second)
                    site.Texte("<a name=" + Q(ancre) + "></a>" + std::string(kBr));
            }
            if (const std::string s = SosaDe(p); !s.empty()) site.Texte(s + " ");
            site.Texte(Lien(site.CiblePersonne(e.numero), NomPrenoms(p)));
            const ContexteExport& c = site.index();
            const Options& o = c.options;
            EcrireActes(c, p.Naissance, o.SymbNais, p.Deces, o.SymbDece, site.f(), " ", " ", false,
                        SaufDecede(c, e.numero));
            if (p.Unions[1] > 0) {
                const Fami& u = FamiLue(base, p.Unions[1]);
                EcrireActes(c, u.Mariage, o.SymbMari, Acte{}, o.SymbDivo, site.f(), " ", " ", false, false);
            }
            site.Ligne("");
        }
    }
}

// ---- Lieux -----------------------------------------------------------------------------------

struct ActeLieu {
    std::string cle;      // clé du lieu
    std::string symbole;  // pour grouper dans le lieu
    std::string tri;
    std::int32_t personne;
    const Acte* acte;
    std::string cible;
};

void PagesLieux(Site& site) {
    const Base& base = site.ctx().base;
    const Options& o = site.ctx().options;
    std::vector<ActeLieu> actes;
    std::map<std::string, std::string> lieux;  // clé → lieu tel qu'écrit la première fois
    const auto ajouter = [&](const Acte& a, std::string_view symbole, std::int32_t n, std::string cible) {
        if (a.Lieu.empty()) return;
        const Perso& p = base.Persos[n];
        std::string cle = Cle(a.Lieu.vue());
        lieux.emplace(cle, a.Lieu.str());
        std::string tri = cle + "\x01" + std::string(symbole) + "\x01" + Cle(p.Nom.vue()) + " " +
                          Cle(p.Prenoms.vue()) + "\x01" + std::string(a.DateTri.vue());
        actes.push_back({std::move(cle), std::string(symbole), std::move(tri), n, &a, std::move(cible)});
    };
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (!Existe(base, n)) return;
        const Perso& p = base.Persos[n];
        const std::string cible = site.CiblePersonne(n);
        ajouter(p.Naissance, o.SymbNais, n, cible);
        ajouter(p.Bapteme, o.SymbBapt, n, cible);
        ajouter(p.Deces, o.SymbDece, n, cible);
        ajouter(p.Sepulture, o.SymbSepu, n, cible);
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
        const Fami& f = base.Familles[n];
        if (f.Sel == 0) return;
        const std::string cible = site.CibleFamille(n);
        for (const std::int32_t partenaire : {f.Mari, f.Femme}) {
            if (!Existe(base, partenaire)) continue;
            ajouter(f.Contrat, o.SymbCoMa, partenaire, cible);
            ajouter(f.Mariage, o.SymbMari, partenaire, cible);
            ajouter(f.Divorce, o.SymbDivo, partenaire, cible);
        }
    });
    std::sort(actes.begin(), actes.end(), [](const ActeLieu& a, const ActeLieu& b) {
        return a.tri != b.tri ? a.tri < b.tri : a.personne < b.personne;
    });

    site.Entete("lieux.html", "Liste des lieux");
    char lettre = 1;
    for (const auto& [cle, lieu] : lieux) {
        if (cle.empty()) continue;
        const char l = LettreDe(cle);
        if (l != lettre) {
            lettre = l;
            site.Ligne(std::string(kBr) + std::string(kBr) + "<span style=\"text-decoration: underline;\">" +
                       (l ? std::string(1, l) : std::string("?")) + " :</span>");
        }
        const std::string href = EncoderTexte(NomPageLettre("lieu", l) + "#" + cle, "_");
        site.Ligne(std::string(kBr) + "<a href=" + Q(href) + ">" + EchapperHtml(lieu) + "</a>");
    }

    const ContexteExport& c = site.index();
    for (int code = 'A'; code <= 'Z' + 1; ++code) {
        const char l = code <= 'Z' ? static_cast<char>(code) : 0;
        site.Entete(NomPageLettre("lieu", l),
                    l ? std::string("Actes dans les lieux commen&ccedil;ant par ") + l
                      : std::string("Actes dans d'autres lieux"));
        std::string lieu = "\x02", symbole;
        std::set<std::string> ancres;
        std::uint32_t tour = 0;
        for (const ActeLieu& a : actes) {
            if (LettreDe(a.cle) != l) continue;
            TourDeBoucle(site.ctx(), ++tour);
            if (a.cle != lieu) {
                lieu = a.cle;
                symbole.clear();
                const std::string ancre = EncoderTexte(a.cle, "_");
                if (ancres.insert(ancre).second) site.Ligne("<a name=" + Q(ancre) + "></a>");
                site.Ligne("<span style=\"text-decoration: underline;\">" + EchapperHtml(lieux[a.cle]) +
                           " :</span>" + std::string(kBr));
            }
            const Perso& p = base.Persos[a.personne];
            std::string t = EchapperHtml(a.symbole) + " " + NomPrenoms(p);
            const std::string d =
                DateConfidentielle(a.acte->Date.vue(), a.symbole == o.SymbDece || a.symbole == o.SymbSepu,
                                   false, c.exports, c.aujourdhui.annee);
            if (!d.empty()) t += " " + EchapperHtml(d);
            site.Ligne(Lien(a.cible, t) + std::string(kBr));
        }
    }
}

// ---- Professions -----------------------------------------------------------------------------

// "laboureur, meunier" et "laboureur puis meunier" : chaque métier à part.
std::vector<std::string> Metiers(std::string_view metier) {
    std::string m(metier);
    RemplacerTout(m, ", ", " puis ");
    std::vector<std::string> r;
    for (std::size_t debut = 0; debut <= m.size();) {
        std::size_t fin = Chercher(m, " puis ", debut);
        if (fin == std::string::npos) fin = m.size();
        const std::string_view morceau = SansBlancs(std::string_view(m).substr(debut, fin - debut));
        if (!morceau.empty()) r.emplace_back(morceau);
        debut = fin + 6;
    }
    return r;
}

void PagesMetiers(Site& site) {
    const Base& base = site.ctx().base;
    struct Rang {
        std::string cle, tri;
        std::int32_t numero;
    };
    std::vector<Rang> rangs;
    std::map<std::string, std::string> metiers;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (!Existe(base, n) || base.Persos[n].Metier.empty()) return;
        const Perso& p = base.Persos[n];
        for (const std::string& m : Metiers(p.Metier.vue())) {
            std::string cle = Cle(m);
            metiers.emplace(cle, m);
            rangs.push_back({cle, cle + "\x01" + Cle(p.Nom.vue()) + " " + Cle(p.Prenoms.vue()), n});
        }
    });
    std::sort(rangs.begin(), rangs.end(), [](const Rang& a, const Rang& b) {
        return a.tri != b.tri ? a.tri < b.tri : a.numero < b.numero;
    });

    site.Entete("metiers.html", "Liste des professions");
    char lettre = 1;
    for (const auto& [cle, metier] : metiers) {
        const char l = LettreDe(cle);
        if (l != lettre) {
            if (lettre != 1) site.Ligne(kBr);
            lettre = l;
        }
        const std::string href = EncoderTexte(NomPageLettre("metier", l) + "#" + cle, "_");
        site.Ligne("<a href=" + Q(href) + ">" + EchapperHtml(metier) + "</a>");
    }

    const ContexteExport& c = site.index();
    const Options& o = c.options;
    for (int code = 'A'; code <= 'Z' + 1; ++code) {
        const char l = code <= 'Z' ? static_cast<char>(code) : 0;
        site.Entete(NomPageLettre("metier", l),
                    l ? std::string("Liste des professions commen&ccedil;ant par ") + l
                      : std::string("Liste des autres professions"));
        std::string avant = "\x02";
        std::uint32_t tour = 0;
        for (const Rang& r : rangs) {
            if (LettreDe(r.cle) != l) continue;
            TourDeBoucle(site.ctx(), ++tour);
            if (r.cle != avant) {
                avant = r.cle;
                site.Ligne("<a name=" + Q(EncoderTexte(r.cle, "_")) + "></a>" +
                           "<span style=\"text-decoration: underline;\">" + EchapperHtml(metiers[r.cle]) +
                           " :</span>" + std::string(kBr));
            }
            const Perso& p = base.Persos[r.numero];
            site.Texte(Lien(site.CiblePersonne(r.numero), NomPrenoms(p)));
            EcrireActes(c, p.Naissance, o.SymbNais, p.Deces, o.SymbDece, site.f(), " ", " ", false,
                        SaufDecede(c, r.numero));
            site.Ligne(kBr);
        }
    }
}

// ---- Recherches ------------------------------------------------------------------------------

std::string_view LieuConnu(const Perso& p) {
    for (const Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture})
        if (!a->Lieu.empty()) return a->Lieu.vue();
    return {};
}

void PageRecherches(Site& site) {
    const ContexteExport& c = site.index();
    const Base& base = c.base;
    const Options& o = c.options;
    site.Entete("recherches.html", "Recherches &agrave; faire",
                "<style type=\"text/css\">table {border-collapse: collapse;} table td:nth-child(5) "
                "{border-right: 1px solid #000;}</style>");
    const ListePersonne liste = ListeRecherches(base, o, "Recherches", 0, true);
    std::vector<std::int32_t> parNom, parLieu;
    for (std::size_t i = 1; i < liste.Rangees.size(); ++i) parNom.push_back(liste.Rangees[i].valeur);
    if (parNom.empty()) return;
    parLieu = parNom;
    std::stable_sort(parLieu.begin(), parLieu.end(), [&](std::int32_t a, std::int32_t b) {
        return Cle(LieuConnu(base.Persos[a])) < Cle(LieuConnu(base.Persos[b]));
    });
    const auto date = [&](std::string_view symbole, const Acte& a, int indice) {
        const std::string d = DateConfidentielle(a.Date.vue(), indice, false, c.exports, c.aujourdhui.annee);
        return d.empty() ? std::string() : EchapperHtml(std::string(symbole) + " " + d);
    };
    const auto cellules = [&](std::int32_t n, bool avecLieu) {
        const Perso& p = base.Persos[n];
        const std::string annee = p.Naissance.Annee > 0 ? DateConfidentielle(p.Naissance.Date.vue(), 0, false,
                                                                             c.exports, c.aujourdhui.annee)
                                                        : "";
        std::string r = annee + "</td><td>" + Lien(site.CiblePersonne(n), NomPrenoms(p)) + "</td><td>" +
                        date(o.SymbNais, p.Naissance, 0) + "</td><td>" +
                        date(o.SymbMari, FamiLue(base, p.Unions[1]).Mariage, 0) + "</td><td>" +
                        date(o.SymbDece, p.Deces, 1);
        if (avecLieu) r += "</td><td>" + EchapperHtml(LieuConnu(p));
        return r;
    };
    site.Ligne("<table summary=\"\" style=\"border-width:0px;\">");
    site.Ligne("<thead>");
    site.Ligne("<tr><td colspan=5>Classement par nom</td><td colspan=6>Classement par lieu</td></tr>");
    site.Ligne("</thead>");
    site.Ligne("<tbody>");
    for (std::size_t i = 0; i < parNom.size(); ++i)
        site.Ligne("<tr><td>" + cellules(parNom[i], false) + "</td><td>" + cellules(parLieu[i], true) +
                   "</td></tr>");
    site.Ligne("</tbody>");
    site.Ligne("</table>");
}

// ---- Accueil ---------------------------------------------------------------------------------

std::string EncoderCourriel(std::string_view adresse) {
    std::string r;
    char code[4];
    for (const char c : adresse) {
        std::snprintf(code, sizeof code, "%%%02X", static_cast<unsigned char>(c));
        r += code;
    }
    return r;
}

void PageAccueil(Site& site) {
    const ContexteExport& c = site.ctx();
    const Base& base = c.base;
    const Options& o = c.options;
    site.Entete(site.accueil(), EchapperTitre(c.exports.TitreExport));
    if (!c.exports.TexteComp.empty()) {
        std::string t = c.exports.TexteComp;
        RemplacerTout(t, "<br /><li>", "<li>");
        RemplacerTout(t, "\r\n", kBr);
        site.Ligne(t + std::string(kBr));
    }
    if (fs::exists(site.dossier() / "logo_accueil.png"))
        site.Ligne("<img src=\"logo_accueil.png\" alt=\"\" />");
    const Perso& auteur = PersoLu(base, -1);
    const bool avecAuteur = !auteur.Prenoms.empty();
    site.Ligne("<p>Ces pages ont &eacute;t&eacute; cr&eacute;&eacute;es le " + DateDuRapport(c) +
               (avecAuteur ? " par <a href=\"#genealogiste\" title=\"coordonn&eacute;es\">le "
                             "g&eacute;n&eacute;alogiste</a>"
                           : std::string()) +
               " avec Arbolix, logiciel de g&eacute;n&eacute;alogie.</p>");

    std::int32_t personnes = 0, familles = 0, ancetres = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (!Existe(base, n)) return;
        ++personnes;
        if (n != base.NumDeCujus && !SosaDe(base.Persos[n]).empty()) ++ancetres;
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t n) {
        const Fami& f = base.Familles[n];
        if (f.Sel != 0 && (f.Mari > 0 || f.Femme > 0 || f.Enfants(1) > 0)) ++familles;
    });
    site.Ligne(std::string(kBr) + std::string(kBr) + "La base de donn&eacute;es contient " +
               std::to_string(personnes) + " personnes et " + std::to_string(familles) + " familles.");
    if (personnes != base.NbPersosReels || familles != base.NbFamisReels)
        site.Ligne(std::string(kBr) + std::string(kBr) +
                   "La base de donn&eacute;es compl&egrave;te contient " +
                   std::to_string(base.NbPersosReels) + " personnes et " + std::to_string(base.NbFamisReels) +
                   " familles.");
    if (PersonneExiste(base, base.NumDeCujus)) {
        const Perso& r = base.Persos[base.NumDeCujus];
        std::string t = std::string(kBr) + std::string(kBr) + std::to_string(ancetres) +
                        " anc&ecirc;tres pour le Sosa 1 : " +
                        Lien(site.CiblePersonne(base.NumDeCujus), NomPrenoms(r), "aller au De Cujus");
        // L'année de naissance passe le filtre des dates confidentielles, comme sur les autres pages.
        const ContexteExport& ci = site.index();
        const std::string annee =
            DateConfidentielle(r.Naissance.Date.vue(), 0, false, ci.exports, ci.aujourdhui.annee);
        if (r.Naissance.Annee > 0 && !annee.empty()) t += " " + EchapperHtml(o.SymbNais) + " " + annee;
        site.Ligne(t);
    }
    site.Ligne(
        std::string(kBr) + std::string(kBr) +
        "<a href=\"recherches.html\" title=\"recherches &agrave; faire\">Liste des recherches &agrave; "
        "faire</a>");

    std::vector<std::string> docs;
    if (std::error_code e; fs::is_directory(site.dossier() / "doc", e))
        for (const auto& d : fs::directory_iterator(site.dossier() / "doc", e))
            if (d.is_regular_file()) docs.push_back(d.path().filename().string());
    std::sort(docs.begin(), docs.end());
    if (!docs.empty()) {
        site.Ligne("<p>Liens :</p><ul>");
        for (const auto& d : docs)
            site.Ligne("<li><a href=" + Q("doc/" + EncoderUrl(d)) + " title=\"\">" +
                       EchapperHtml(Utf8VersCp1252(d)) + "</a></li>");
        site.Ligne("</ul>");
    }

    if (avecAuteur) {
        const PersoSuite& s = auteur.Suite();
        site.Ligne(std::string(kBr) + std::string(kBr) + "<hr style=\"width: 100%;\" />");
        site.Ligne(
            "<a name=\"genealogiste\"></a>Coordonn\xE9"
            "es du g&eacute;n&eacute;alogiste :" +
            std::string(kBr));
        site.Ligne(NomPrenoms(auteur) + std::string(kBr));
        for (const Texte* t : {&s.Adresse1, &s.Adresse2})
            if (!t->empty()) site.Ligne(EchapperHtml(t->vue()) + std::string(kBr));
        std::string ville;
        for (const Texte* t : {&s.Etat, &s.CP, &s.Ville})
            if (!t->empty()) ville += (ville.empty() ? "" : " ") + t->str();
        for (const std::string& t : {ville, s.Pays.str()})
            if (!t.empty()) site.Ligne(EchapperHtml(t) + std::string(kBr));
        if (!s.Telephone.empty())
            site.Ligne("T\xE9l. : " + EchapperHtml(s.Telephone.vue()) + std::string(kBr));
        if (!s.EMail.empty())
            site.Ligne(
                "Courrier &eacute;lectronique : <a href=" + Q("mailto:" + EncoderCourriel(s.EMail.vue())) +
                " title=\"contacter le g&eacute;n&eacute;alogiste\">cliquez ici</a>");
    }
}

}  // namespace

ResultatSite ExportHTML(const ContexteExport& ctx, bool parLettre) {
    ResultatSite r;
    const fs::path accueil = fs::path(ctx.exports.FichierExport);
    const fs::path dossier = accueil.parent_path();
    // Les pages d'index ne montrent que les années.
    OptionsExport exportsIndex = ctx.exports;
    exportsIndex.OptionDatesAnnees = true;
    ContexteExport ctxIndex{ctx.base, ctx.options, exportsIndex, ctx.aujourdhui, ctx.progression};
    ctxIndex.TypeExport = ctx.TypeExport;
    ctxIndex.FormatExport = ctx.FormatExport;
    ctxIndex.NumPerso = ctx.NumPerso;
    ctxIndex.livre = ctx.livre;
    try {
        fs::create_directories(dossier);
        Site site(ctx, ctxIndex, dossier, accueil.filename().string());
        site.Preparer();
        if (ctx.progression) ctx.progression->Compteur("Calcul");
        const NumerotationLivre livre = NumeroterLivre(ctx.base, ctx.options, ctx.livre, parLettre, false);
        site.parPage = static_cast<std::int32_t>(std::pow(static_cast<double>(livre.Total()), 0.45)) + 1;
        site.EcrireFichier("style.css", StyleCss(ctx.options));
        site.EcrireFichier("menu.js", MenuJs());
        if (!fs::exists(dossier / "style2.css")) site.EcrireFichier("style2.css", Style2Css());
        PagesFamilles(site, livre.entrees);
        PagesNoms(site, kNoms);
        PagesNoms(site, kPrenoms);
        PagesLieux(site);
        PagesMetiers(site);
        PageRecherches(site);
        PageAccueil(site);
        site.Fermer();
        site.Installer();
        r.Ok = true;
        r.NbFichiers = site.NbFichiers();
        r.Octets = site.Octets();
    } catch (const ExportAnnule&) {
        r.Annule = true;
    } catch (const fs::filesystem_error& e) {
        r.Message =
            "Le site ne peut pas \xEAtre \xE9"
            "crit dans le dossier " +
            Utf8VersCp1252(dossier.string()) + " : " + RaisonEchec(e.code().value()) + ".";
    } catch (const EchecPage& e) {
        r.Message = "La page " + e.nom +
                    " du site ne peut pas \xEAtre \xE9"
                    "crite dans " +
                    Utf8VersCp1252(dossier.string()) + " : " + RaisonEchec(e.erreur) + ".";
    }
    return r;
}

}  // namespace arbolix
