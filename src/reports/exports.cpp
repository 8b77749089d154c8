#include "reports/exports.h"

#include <cctype>

#include "card/lignes_personne.h"
#include "gedcom/enregistrement.h"
#include "platform/cp1252.h"
#include "platform/ini.h"
#include "reports/adresses.h"
#include "reports/ascendance.h"
#include "reports/descendance.h"
#include "reports/isoles.h"
#include "reports/ligne_de_vie.h"
#include "reports/liste_eclair.h"
#include "reports/livre.h"
#include "reports/site.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFiltreTexte = "Fichier texte (*.txt)|*.txt";

constexpr GenreExport kGenres[] = {
    {kLigneDeVie, "Ligne de vie", "lignevie.txt", "", "", ""},
    {kAscendance, "Liste d'&ascendance...", "ancetres.txt", "Enregistrer la liste d'ascendance...",
     "Fichier texte (*.txt)|*.txt|Fichier TMAO (*.TM)|*.TM", "ancetres"},
    {kDescendance, "Liste de &descendance...", "descendants.rtf", "Enregistrer la liste de descendance...",
     "Fichier RTF (*.rtf)|*.rtf|Fichier texte (*.txt)|*.txt", ""},
    {kActes, "Liste/tri des ac&tes...", "", "Enregistrer les actes...",
     "Fichier TMAO (*.TM)|*.TM|Fichier texte UCGL (*.tmt)|*.tmt|Fichier Nimegue CSV (*.txt)|*.txt", ""},
    {kAdresses, "&Tableau des adresses...", "adresses.txt", "Enregistrer le tableau des adresses...",
     kFiltreTexte, "adresses"},
    {kEclair,
     "Liste-\xE9"
     "clair...",
     "eclair.txt",
     "Enregistrer la liste-\xE9"
     "clair...",
     kFiltreTexte, "eclair"},
    {kLivre, "Livre des fa&milles RTF...", "", "Enregistrer le livre des familles...",
     "Fichier RTF (*.rtf)|*.rtf", "familles"},
    {kPagesHtml, "Pages &HTML...", "HTML/index.html", "Nom du fichier d'index dans un dossier vide...",
     "Fichier HTML (*.html)|*.html", "index"},
    {kIsoles,
     "Liste des personnes &isol\xE9"
     "es...",
     "isoles.txt",
     "Enregistrer la liste des personnes isol\xE9"
     "es...",
     kFiltreTexte, "isoles"},
};

bool FinitParSansCasse(std::string_view s, std::string_view fin) {
    return s.size() >= fin.size() && EnMajuscules(s.substr(s.size() - fin.size())) == EnMajuscules(fin);
}

bool SelectionVide(const Base& base) {
    bool vide = true;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (vide && base.Persos[n].Sel != 0 && PersonneExiste(base, n)) vide = false;
    });
    return vide;
}

// Le texte du rapport ; nullopt quand il n'y a rien à écrire (la boîte a été montrée).
std::optional<std::string> Produire(const ContexteExport& ctx, Dialogue& dialogue,
                                    const ListePersonne* liste) {
    const std::string titre = TitreFenetreExport(ctx.TypeExport);
    const int type = ctx.TypeExport;
    if ((type == kLigneDeVie || type == kAscendance || type == kDescendance) &&
        !PersonneExiste(ctx.base, ctx.NumPerso)) {
        dialogue.Message(titre,
                         "Aucune personne n'est affich\xE9"
                         "e : ouvrez d'abord la fiche de la personne du rapport.",
                         Icone::Attention);
        return std::nullopt;
    }
    if ((type == kAdresses || type == kEclair || type == kIsoles || type == kLivre) &&
        SelectionVide(ctx.base)) {
        dialogue.Message(titre, "La s\xE9lection active est vide : il n'y a personne \xE0 exporter.",
                         Icone::Attention);
        return std::nullopt;
    }
    switch (type) {
        case kLigneDeVie: {
            const ListePersonne faite =
                liste ? ListePersonne{}
                      : ListeLigneDeVie(ctx.base, ctx.options, ctx.NumPerso, ctx.exports.TitreExport);
            const ListePersonne& l = liste ? *liste : faite;
            if (l.Rangees.size() <= 1) {
                dialogue.Message(kTitreLigneDeVie, kLigneDeVieVide, Icone::Information);
                return std::nullopt;
            }
            return TexteLigneDeVie(ctx, l);
        }
        case kAscendance:
            if (FinitParSansCasse(ctx.exports.FichierExport, ".TM")) {
                dialogue.Message(titre,
                                 "L'ascendance au format TMAO n'est pas encore possible : choisissez un "
                                 "fichier texte (.txt).",
                                 Icone::Attention);
                return std::nullopt;
            }
            return TexteAscendance(ctx);
        case kDescendance:
            return FinitParSansCasse(ctx.exports.FichierExport, ".TXT") ? TexteDescendance(ctx)
                                                                        : RtfDescendance(ctx);
        case kLivre:
            return RtfLivre(ctx, ctx.livre);
        case kAdresses:
            return TexteAdresses(ctx);
        case kEclair: {
            std::int64_t minimum = 1;
            if (!ctx.exports.Toutes) {
                const auto r = dialogue.Saisie(titre, kQuestionMinimumEclair, "1");
                if (!r) throw ExportAnnule{};
                minimum = ValeurNumerique(*r);
            }
            return TexteListeEclair(ctx, minimum);
        }
        case kIsoles: {
            const ListePersonne faite = liste ? ListePersonne{} : ListeIsoles(ctx.base, ctx.options, titre);
            return TexteIsoles(ctx, liste ? *liste : faite);
        }
        default:
            return std::nullopt;
    }
}

// Le site écrit ses pages lui-même ; le navigateur ouvre la page d'accueil.
ResultatExport LancerSite(const ContexteExport& ctx, Dialogue& dialogue, bool lancer) {
    ResultatExport r;
    // Comme le livre : un tri par lettre quand toute la base ou les actes sont sélectionnés.
    const ResultatSite s = ExportHTML(ctx, ctx.livre.selCochee == 0 || ctx.livre.selCochee == 4);
    if (s.Annule) {
        r.Annule = true;
        return r;
    }
    if (!s.Ok) {
        dialogue.Message(kTitreExportImpossible, s.Message, Icone::Stop);
        return r;
    }
    r.Ecrit = true;
    if (lancer && ctx.options.LanceFicherExporte) dialogue.OuvrirDansProgramme(ctx.exports.FichierExport);
    return r;
}

}  // namespace

const GenreExport* TrouverGenre(int type) {
    for (const auto& g : kGenres)
        if (g.type == type) return &g;
    return nullptr;
}

std::string TitreFenetreExport(int type) {
    const GenreExport* g = TrouverGenre(type);
    std::string t = g ? std::string(g->legende) : std::string();
    std::erase(t, '&');
    return t;
}

VisibiliteExports Visibilite(int type) {
    VisibiliteExports v;
    v.CadreDates = type != kLigneDeVie && type != kActes;
    v.CadrePerso = type == kAscendance || type == kDescendance || type == kLivre || type == kPagesHtml ||
                   type == kIsoles;
    v.CadreRTF = v.CadreUnionsMulti = type == kDescendance || type == kLivre;
    v.ComboColRTF1 = v.OptNumUniq = type == kLivre;
    v.BoutonTri = type == kLivre || type == kPagesHtml;
    v.Toutes = type != kLigneDeVie;
    return v;
}

bool RapportDisponible(int type) {
    return type == kLigneDeVie || type == kAscendance || type == kDescendance || type == kAdresses ||
           type == kEclair || type == kLivre || type == kIsoles || type == kPagesHtml;
}

std::string DossierExport(const Options& options, const std::string& fichierGedcom) {
    if (!SansBlancs(options.Chemin[0]).empty()) {
        std::string d = options.Chemin[0];
        if (d.back() != '/') d += '/';
        return d;
    }
    const fs::path parent = fs::path(fichierGedcom).parent_path();
    return parent.empty() ? std::string() : parent.string() + "/";
}

void PreparerExport(OptionsExport& e, int type, const Base& base, std::int32_t personne,
                    const Options& options, const std::string& fichierGedcom) {
    e.TexteComp.clear();
    e.Toutes = type != kPagesHtml;
    const GenreExport* g = TrouverGenre(type);
    if (g && !g->fichierDefaut.empty())
        e.FichierExport = DossierExport(options, fichierGedcom) + std::string(g->fichierDefaut);
    const Perso& p = PersoLu(base, personne);
    const std::string nom = p.Nom + " " + p.Prenoms;
    switch (type) {
        case kLigneDeVie:
            e.TitreExport = "Ligne de vie de " + nom;
            break;
        case kAscendance:
            e.TitreExport = "Ascendance de " + nom;
            break;
        case kDescendance:
            e.TitreExport = "Chronique de la descendance de " + nom;
            break;
        case kEclair:
            e.TitreExport.clear();
            break;
        case kIsoles:
            e.TitreExport = TitreFenetreExport(type);
            break;
        case kLivre: {
            // Le livre porte le nom du fichier GEDCOM, sans son dossier ni son extension.
            std::string livre = fs::path(fichierGedcom).filename().string();
            if (livre.size() > 4) livre.resize(livre.size() - 4);
            e.FichierExport = DossierExport(options, fichierGedcom) + livre + ".rtf";
            std::string titre = Utf8VersCp1252(livre);
            for (std::size_t i = 0; i < titre.size(); ++i)
                if (i == 0 || titre[i - 1] == ' ')
                    titre[i] = static_cast<char>(std::toupper(static_cast<unsigned char>(titre[i])));
            e.TitreExport = "Livre des familles de " + titre;
            break;
        }
        case kPagesHtml: {
            const Perso& auteur = PersoLu(base, -1);
            e.TitreExport =
                "Le site de " + (auteur.Prenoms.empty() ? std::string() : auteur.Prenoms + " ") + auteur.Nom;
            break;
        }
        default:
            break;
    }
}

void EnregistrerOptionsExport(const fs::path& ini, const OptionsExport& e, int type) {
    const VisibiliteExports v = Visibilite(type);
    const auto ecrire = [&](std::string_view cle, std::string_view valeur) {
        EcrireIni(ini, "Preferences", cle, valeur);
    };
    if (v.CadreDates) {
        ecrire("AnneesConfidentielles", e.AnneesConfidentielles[0]);
        ecrire("AnneesConfidentiellesDS", e.AnneesConfidentielles[1]);
        ecrire("AnneesConfidNBSaufDecede", TexteBooleenIni(e.OptionSaufDecede));
    }
    if (v.CadrePerso) ecrire("OrdreDonneesPerso", std::to_string(e.OptionOrdre));
    if (FinitParSansCasse(e.FichierExport, ".RTF")) {
        ecrire("ColonnesRTF", e.ComboColRTF[0]);
        if (v.ComboColRTF1) ecrire("ColonnesIndex", e.ComboColRTF[1]);
        ecrire("NotesBasPageRTF", TexteBooleenIni(e.OptionBasPage[0]));
        ecrire("SourcesBasPageRTF", TexteBooleenIni(e.OptionBasPage[1]));
        ecrire("EviterRepetInfosEpouxRTF", TexteBooleenIni(e.OptSimplMarisMult));
        ecrire("IndexNomsCourtRTF", TexteBooleenIni(e.OptionIndexCourt));
        ecrire("PreciserOrdreUnions", TexteBooleenIni(e.OptionPreciserUnions));
        ecrire("NumeroUniqueRTF", TexteBooleenIni(e.OptNumUniq));
    }
    if (v.Toutes && type == kActes) ecrire("ExportToutActes", TexteBooleenIni(e.Toutes));
}

bool QuestionConflitTri(int type, int entreeSelCochee, bool& triSosa, Dialogue& dialogue) {
    if ((type != kLivre && type != kPagesHtml) || (entreeSelCochee != 1 && entreeSelCochee != 3) || triSosa)
        return true;
    // Le titre reste celui du livre pour les deux genres.
    std::string titre = TitreFenetreExport(kLivre);
    RemplacerTout(titre, "...", "");
    const Bouton b =
        dialogue.Message(titre,
                         "Conflit de r\xE9glage entre la s\xE9lection active et le tri : pour exporter une "
                         "ascendance, le tri par num\xE9ro Sosa-Stradonitz est conseill\xE9.\r\n"
                         "Voulez-vous activer le tri par num\xE9ro maintenant ?",
                         Icone::Question, Boutons::OuiNonAnnuler);
    if (b == Bouton::Annuler) return false;
    if (b == Bouton::Oui) triSosa = true;
    return true;
}

std::string SeuilSaisi(std::string_view texte) {
    return EstNumerique(texte) ? std::string(texte) : "0";
}

ResultatExport LancerExport(const ContexteExport& ctx, Dialogue& dialogue, const ListePersonne* liste,
                            bool lancer) {
    ResultatExport r;
    const std::string& chemin = ctx.exports.FichierExport;
    if (chemin.empty() || chemin[0] != '/') {
        dialogue.Message(kTitreExportImpossible, kCheminIncomplet, Icone::Stop);
        r.CheminIncomplet = r.Annule = true;
        return r;
    }
    if (ctx.TypeExport == kPagesHtml) return LancerSite(ctx, dialogue, lancer);
    try {
        const std::optional<std::string> texte = Produire(ctx, dialogue, liste);
        if (!texte) return r;
        const EtatFichier etat = EcrireFichierSur(chemin, [&](std::ostream& o) {
            o.write(texte->data(), static_cast<std::streamsize>(texte->size()));
            return static_cast<bool>(o);
        });
        if (!etat.Ok) {
            dialogue.Message(kTitreExportImpossible, etat.Message, Icone::Stop);
            return r;
        }
    } catch (const ExportAnnule&) {
        r.Annule = true;
        return r;
    }
    r.Ecrit = true;
    if (lancer && ctx.options.LanceFicherExporte &&
        Chercher(EnMajuscules(Droite(chemin, 3)), ".TM") == std::string::npos)
        dialogue.OuvrirDansProgramme(chemin);
    return r;
}

}  // namespace arbolix
