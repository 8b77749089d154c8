#include "reports/blocs_personne.h"

#include <algorithm>
#include <cctype>
#include <cstdio>

#include "card/lignes_personne.h"
#include "dates/calendrier_republicain.h"
#include "dates/reconnaissance.h"
#include "reports/date_confidentielle.h"
#include "reports/html.h"
#include "reports/rtf.h"
#include "reports/site.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kCRLF = "\r\n";

std::int64_t AnneeDe(std::string_view date) {
    return ValeurNumerique(Droite(date, 4));
}

bool FinitPar(std::string_view s, std::string_view fin) {
    return s.size() >= fin.size() && s.substr(s.size() - fin.size()) == fin;
}

// Le texte d'une fiche tel que le fichier l'écrit : échappé dans un document RTF, et dans une page
// HTML où il ne devient jamais balise.
std::string Fiche(const TexteRapport& f, std::string_view t) {
    if (f.Fichier() == kFichierHtml) return EchapperHtml(t);
    return f.Fichier() == kFichierRtf ? EchapperRTF(t) : std::string(t);
}

// Dans une page, chaque adresse "http..." d'une source devient un lien ; une source qui commence
// par son adresse reste telle quelle.
std::string LiensWebHtml(std::string_view source) {
    const std::size_t http = source.find("http");
    if (http == std::string_view::npos || http < 2) return EchapperHtml(source);
    std::string t(source);
    if (Comme(t, "* http*") || Comme(t, "*;http*")) std::replace(t.begin(), t.end(), ' ', ';');
    std::string r;
    for (std::size_t debut = 0; debut <= t.size();) {
        const std::size_t fin = std::min(t.find(';', debut), t.size());
        const std::string e = EchapperHtml(std::string_view(t).substr(debut, fin - debut));
        if (!r.empty()) r += ' ';
        r += e.starts_with("http") ? "<a href=\"" + e + "\" target=\"_blank\">" + e + "</a>" : e;
        debut = fin + 1;
    }
    return r;
}

// Un évènement du calendrier républicain : date complète entre l'an II et la fin de la table,
// notes qui commencent par la date républicaine (c'est elle qu'on imprime).
bool MarqueRepublicaine(const Options& options, const Acte& a) {
    if (!options.OptConvCalRep || a.Date.size() != 10 ||
        !Comme(a.Notes.vue(),
               "##/????"
               "/##*"))
        return false;
    const auto d = LireDate(a.Date.vue());
    if (!d) return false;
    const std::int32_t jour = NumeroJour(*d);
    return jour >= DebutAnRepublicain[2] && jour < DebutAnRepublicain[15];
}

// Ce que l'évènement imprime de lui-même : la date républicaine quand il est marqué, ses notes
// pour cette impression (sans la date républicaine, ou rien quand le calendrier est éteint).
struct ActeImprime {
    std::string republicaine;
    std::string notes;
};

ActeImprime Preparer(const Options& options, const Acte& a) {
    ActeImprime r;
    std::string_view notes = a.Notes.vue();
    if (MarqueRepublicaine(options, a)) {
        r.republicaine = std::string(notes.substr(0, 10));
        notes = SansBlancsGauche(notes.substr(10));
        if (notes.substr(0, 2) == kCRLF) notes.remove_prefix(2);
    } else if (!options.OptConvCalRep && Comme(notes,
                                               "*##/????"
                                               "/##*")) {
        notes = {};
    }
    r.notes = std::string(notes);
    return r;
}

// Le texte d'une note ou d'une source externe à la place de son lien "@N12@".
std::string TexteLie(const Base& base, std::string_view texte, char genre) {
    const std::int32_t n = LienExterne(texte, genre);
    if (n <= 0) return std::string(texte);
    const auto& table = genre == 'N' ? base.Notes : base.Sources;
    if (n > table.Haut()) return {};
    const NoteExt& e = std::as_const(table)[n];
    if (genre == 'N' || e.Titre.empty()) return e.Texte.str();
    return e.Texte.empty() ? e.Titre.str() : e.Titre + kCRLF + e.Texte;
}

// Les lignes d'une note jointes par sep ; le blanc que la lecture met devant chaque CONT
// n'a pas sa place en fin de ligne imprimée.
std::string LignesDeNote(std::string t, std::string_view sep) {
    RemplacerTout(t, " \r\n", kCRLF);
    RemplacerTout(t, kCRLF, sep);
    return t;
}

// Les morceaux d'un évènement séparés d'un seul blanc, les vides sautés.
void AjouterMorceau(std::string& s, std::string_view morceau) {
    if (morceau.empty()) return;
    if (!s.empty()) s += ' ';
    s.append(morceau);
}

void NotesEtSourceRtf(const ContexteExport& ctx, const Acte& a, const ActeImprime& imp, TexteRapport& f,
                      std::string_view avant, std::string_view apres);

void EcrireNotesEtSource(const ContexteExport& ctx, const Acte& a, const ActeImprime& imp, TexteRapport& f,
                         std::string_view avant, std::string_view apres) {
    if (f.Fichier() == kFichierRtf) return NotesEtSourceRtf(ctx, a, imp, f, avant, apres);
    if (!imp.notes.empty()) {
        const std::string t = LignesDeNote(Fiche(f, TexteLie(ctx.base, imp.notes, 'N')), avant);
        if (!t.empty()) f.Texte(std::string(apres) + t);
    }
    if (!a.Source.empty()) {
        const bool lien = LienExterne(a.Source.vue(), 'S') > 0;
        std::string t = TexteLie(ctx.base, a.Source.vue(), 'S');
        if (f.Fichier() == kFichierHtml) t = lien ? EchapperHtml(t) : LiensWebHtml(t);
        if (lien) t = LignesDeNote(std::move(t), avant);
        if (!t.empty()) f.Texte(std::string(apres) + "source : " + t);
    }
}

// Le renvoi du livre ("N3", "S2") à la place d'un lien vers une note ou une source externe.
std::string RenvoiLivre(const Base& base, std::string_view texte, char genre) {
    const std::int32_t n = LienExterne(texte, genre);
    const auto& table = genre == 'N' ? base.Notes : base.Sources;
    const std::int32_t numero = n > 0 && n <= table.Haut() ? std::as_const(table)[n].NumLivre : 0;
    return std::string(1, genre) + std::to_string(numero);
}

// Les adresses web d'une source en champs de lien ; une source qui commence par son adresse reste
// telle quelle.
std::string LiensWebRtf(std::string_view source) {
    const std::size_t http = source.find("http");
    if (http == std::string_view::npos || http < 2) return EchapperRTF(source);
    std::string t(source);
    if (Comme(t, "* http*") || Comme(t, "*;http*")) std::replace(t.begin(), t.end(), ' ', ';');
    std::string r;
    for (std::size_t debut = 0; debut <= t.size();) {
        const std::size_t fin = std::min(t.find(';', debut), t.size());
        const std::string_view jeton = std::string_view(t).substr(debut, fin - debut);
        if (!r.empty()) r += ' ';
        if (jeton.starts_with("http")) {
            const std::string e = EchapperRTF(jeton);
            r += "{\\field{\\*\\fldinst HYPERLINK \"" + e + "\"}{\\fldrslt{\\ul\\cf1 " + e + "}}}";
        } else {
            r += EchapperRTF(jeton);
        }
        debut = fin + 1;
    }
    return r;
}

std::string NoteDeBasDePage(std::string t) {
    RemplacerTout(t, "\r\n", "\\line ");
    return "{ \\super\\chftn{\\footnote \\pard\\plain \\fs20 \\chftn  " + t + "}}";
}

// Notes et source d'un évènement dans un document RTF : en ligne, en renvoi du livre ou en note de
// bas de page selon les cases du dialogue.
void NotesEtSourceRtf(const ContexteExport& ctx, const Acte& a, const ActeImprime& imp, TexteRapport& f,
                      std::string_view avant, std::string_view apres) {
    const bool livre = ctx.TypeExport == kLivre;
    const std::string notes(SansBlancsGauche(imp.notes));
    if (!notes.empty()) {
        const bool lien = LienExterne(notes, 'N') > 0;
        if (lien || !ctx.exports.OptionBasPage[0]) {
            std::string t = lien && livre ? RenvoiLivre(ctx.base, notes, 'N')
                                          : EchapperRTF(TexteLie(ctx.base, notes, 'N'));
            if (!t.empty()) f.Texte(std::string(apres) + LignesDeNote(std::move(t), avant));
        } else {
            f.Texte(NoteDeBasDePage(EchapperRTF(notes)));
        }
    }
    if (a.Source.empty()) return;
    const std::string_view source = a.Source.vue();
    const bool lien = LienExterne(source, 'S') > 0;
    if (lien || !ctx.exports.OptionBasPage[1]) {
        std::string t = !lien   ? LiensWebRtf(source)
                        : livre ? RenvoiLivre(ctx.base, source, 'S')
                                : LignesDeNote(EchapperRTF(TexteLie(ctx.base, source, 'S')), avant);
        if (!t.empty()) f.Texte(std::string(apres) + "source : " + t);
    } else {
        f.Texte(NoteDeBasDePage(LiensWebRtf(source)));
    }
}

void EcrireTemoins(const ContexteExport& ctx, const Acte& a, std::string_view titre, TexteRapport& f,
                   std::string_view avant) {
    const LiensActe& l = a.Liens();
    if (l.Temoins(1) <= 0) return;
    f.Texte(std::string(avant) + Fiche(f, titre));
    for (const auto& [i, t] : l.Temoins) {
        if (i < 1 || t <= 0) continue;
        const Perso& p = PersoLu(ctx.base, t);
        if (p.Nom.empty() && p.Prenoms.empty()) continue;
        // La ligne de la liste, mais ses dates passent le filtre : un témoin vivant garde les
        // siennes pour lui, comme la personne du bloc.
        std::string s = std::string(avant) + Fiche(f, p.Nom + " " + p.Prenoms);
        const auto date = [&](std::string_view symbole, const Acte& a, int indice) {
            const std::string d =
                DateConfidentielle(a.Date.vue(), indice, false, ctx.exports, ctx.aujourdhui.annee);
            if (!d.empty()) s.append(" ").append(Fiche(f, std::string(symbole) + d));
        };
        date(ctx.options.SymbNais, p.Naissance, 0);
        date(ctx.options.SymbDece, p.Deces, 1);
        if (const Texte& sosa = p.Suite().NumSosa[0]; SosaPositif(sosa.vue()))
            s.append(" S").append(sosa.vue());
        if (!p.Metier.empty()) s += ", " + Fiche(f, p.Metier.vue());
        if (const Texte& role = l.RolesTemoins(i); !role.empty()) s += ", " + Fiche(f, role.vue());
        f.Texte(s);
    }
}

// Naissance et baptême du même mois au même lieu (l'un finissant l'autre) : un seul article.
bool ActesJoints(const Acte& a, const Acte& b) {
    const bool lieux = FinitPar(a.Lieu.vue(), b.Lieu.vue()) || FinitPar(b.Lieu.vue(), a.Lieu.vue());
    return lieux && (a.Date.size() == 9 || a.Date.size() == 10) && !b.Date.empty() && EstDate(b.Date.vue()) &&
           Depuis(a.Date.vue(), 4) == Depuis(b.Date.vue(), 4);
}

std::string DatesJointes(const std::string& da, const std::string& db) {
    if (da.empty() && db.empty()) return {};
    std::string t = da + "-" + db;
    if (t.size() == 21) t = t.substr(0, 2) + "-" + t.substr(11);
    if (t.size() >= 5 && t.substr(0, 2) == t.substr(3, 2)) t = t.substr(3);
    return t;
}

}  // namespace

std::string MarqueDecede(const ContexteExport& ctx, std::int32_t p, std::string_view date) {
    if (date.empty()) return {};
    const Perso& q = PersoLu(ctx.base, p);
    const std::int64_t annee = AnneeDe(date);
    bool mort;
    if (q.Deces.Date.empty())
        mort = q.Deces.Connu || (!q.Naissance.Date.empty() &&
                                 annee >= q.Naissance.Annee + ValeurNumerique(ctx.options.AgeMaxiDeces));
    else
        mort = annee >= q.Deces.Annee;
    return mort ? ctx.options.SymbDece : std::string();
}

void EcrireActes(const ContexteExport& ctx, const Acte& acteA, std::string_view symboleA, const Acte& acteB,
                 std::string_view symboleB, TexteRapport& f, std::string_view avant, std::string_view apres,
                 bool avecNotes, bool confidentiel) {
    const ActeImprime impA = Preparer(ctx.options, acteA);
    const ActeImprime impB = Preparer(ctx.options, acteB);
    const int k = symboleA == ctx.options.SymbDece || symboleB == ctx.options.SymbSepu ? 1 : 0;
    const int annee = ctx.aujourdhui.annee;
    const std::string da =
        Fiche(f, DateConfidentielle(acteA.Date.vue(), k, confidentiel, ctx.exports, annee));
    const std::string db =
        Fiche(f, DateConfidentielle(acteB.Date.vue(), k, confidentiel, ctx.exports, annee));

    if (ActesJoints(acteA, acteB)) {
        std::string s = Fiche(f, std::string(symboleA) + "-" + std::string(symboleB));
        std::string rep = impA.republicaine;
        if (!impB.republicaine.empty()) rep += (rep.empty() ? "" : "-") + impB.republicaine;
        if (!rep.empty()) AjouterMorceau(s, "(" + Fiche(f, rep) + ")");
        AjouterMorceau(s, DatesJointes(da, db));
        AjouterMorceau(
            s, Fiche(f, acteA.Lieu.size() >= acteB.Lieu.size() ? acteA.Lieu.vue() : acteB.Lieu.vue()));
        f.Texte(std::string(apres) + s);
    } else {
        const auto un = [&](const Acte& a, const ActeImprime& imp, const std::string& d,
                            std::string_view symbole, std::string_view tete) {
            if (a.Date.empty() && a.Lieu.empty()) return;
            std::string s = Fiche(f, symbole);
            if (!d.empty())
                AjouterMorceau(s, imp.republicaine.empty() ? d : Fiche(f, imp.republicaine) + " (" + d + ")");
            AjouterMorceau(s, Fiche(f, a.Lieu.vue()));
            f.Texte(std::string(tete) + s);
        };
        un(acteA, impA, da, symboleA, avant);
        un(acteB, impB, db, symboleB, apres);
    }
    if (!avecNotes) return;
    EcrireNotesEtSource(ctx, acteA, impA, f, avant, apres);
    EcrireNotesEtSource(ctx, acteB, impB, f, avant, apres);
    EcrireTemoins(ctx, acteA, "T\xE9moins :", f, avant);
    EcrireTemoins(ctx, acteB, symboleB == ctx.options.SymbBapt ? "Parrain, marraine :" : "T\xE9moins :", f,
                  avant);
}

namespace {

void BlocParents(const ContexteExport& ctx, const Perso& p, TexteRapport& f, const FormePersonne& forme) {
    if (!forme.avecParents || p.NumParents <= 0) return;
    const Fami& fam = FamiLue(ctx.base, p.NumParents);
    std::string s = forme.sep + (p.Sexe == 'M' ? "fils" : p.Sexe == 'F' ? "fille" : "enfant") + " de";
    const auto parent = [&](std::int32_t n) {
        const Perso& q = PersoLu(ctx.base, n);
        return " " + MarqueDecede(ctx, n, forme.dateMariage) + Fiche(f, q.Nom + " " + q.Prenoms);
    };
    if (fam.Mari > 0) s += parent(fam.Mari);
    if (fam.Mari > 0 && fam.Femme > 0) s += " et";
    if (fam.Femme > 0) s += parent(fam.Femme);
    if (fam.Sel != 0 && forme.avecRenvois) s += " [" + std::to_string(fam.NumLivre) + "]";
    f.Texte(s);
}

void BlocActes(const ContexteExport& ctx, std::int32_t numero, const Perso& p, TexteRapport& f,
               const FormePersonne& forme) {
    const bool confidentiel = forme.saufDecede && !MarqueDecede(ctx, numero, DateDuRapport(ctx)).empty();
    const Options& o = ctx.options;
    // Dans une page, l'évènement va à la ligne comme les autres blocs.
    const std::string& a = f.Fichier() == kFichierHtml ? forme.sep : forme.fin;
    EcrireActes(ctx, p.Naissance, o.SymbNais, p.Bapteme, o.SymbBapt, f, a, forme.fin, forme.avecNotes,
                confidentiel);
    EcrireActes(ctx, p.Deces, o.SymbDece, p.Sepulture, o.SymbSepu, f, a, forme.fin, forme.avecNotes,
                confidentiel);
}

void BlocNote(const ContexteExport& ctx, const Perso& p, TexteRapport& f, const FormePersonne& forme) {
    if (!forme.avecNotes || p.Notes.empty()) return;
    if (f.Fichier() == kFichierRtf) {
        const bool renvoi = ctx.TypeExport == kLivre && LienExterne(p.Notes.vue(), 'N') > 0;
        const std::string t = renvoi ? RenvoiLivre(ctx.base, p.Notes.vue(), 'N')
                                     : EchapperRTF(TexteLie(ctx.base, p.Notes.vue(), 'N'));
        return f.Texte(forme.sep + LignesDeNote(t, forme.sep));
    }
    f.Texte(forme.sep + LignesDeNote(Fiche(f, TexteLie(ctx.base, p.Notes.vue(), 'N')), forme.sep));
}

// Adresse et fichiers liés d'une personne, dans les pages quand « Toutes » est coché.
void BlocAdresseHtml(const ContexteExport& ctx, const Perso& p, TexteRapport& f, const FormePersonne& forme) {
    if (!ctx.exports.Toutes || !forme.avecNotes) return;
    const PersoSuite& s = p.Suite();
    if (!s.URL.empty() || !s.EMail.empty() || !s.Telephone.empty() || !s.Ville.empty() ||
        !s.Adresse1.empty()) {
        std::string ville = s.Etat.empty() ? std::string() : s.Etat + " ";
        ville += s.CP + " " + s.Ville;
        for (const std::string& t : {s.Adresse1.str(), s.Adresse2.str(), ville, s.Pays.str()})
            if (!SansBlancs(t).empty()) f.Texte(forme.sep + EchapperHtml(t));
        if (!s.EMail.empty())
            f.Texte(forme.sep + "<a href=\"mailto:" + EchapperHtml(s.EMail.vue()) + "\">" +
                    EchapperHtml(s.EMail.vue()) + "</a>");
        if (!s.URL.empty())
            f.Texte(forme.sep + "<a href=\"" + EchapperHtml(s.URL.vue()) + "\" target=\"_blank\">" +
                    EchapperHtml(s.URL.vue()) + "</a>");
        if (!s.Telephone.empty()) f.Texte(forme.sep + "T\xE9l : " + EchapperHtml(s.Telephone.vue()));
    }
    for (int i = 1; i <= kMaxLiens; ++i)
        if (!s.Fichiers(i).empty()) EcrireFichierLie(ctx, f, s.Fichiers(i).vue(), forme.sep);
    for (int i = 1; i <= kMaxLiens; ++i) {
        const std::int32_t m = s.ObjetsMedia(i);
        if (m <= 0 || m > ctx.base.Medias.Haut()) continue;
        const ObjetMedia& o = std::as_const(ctx.base.Medias)[m];
        for (int j = 1; j <= kMaxLiens && !o.Fichiers(j).empty(); ++j)
            EcrireFichierLie(ctx, f, o.Fichiers(j).vue(), forme.sep);
    }
}

// L'adresse de la personne, dernière de ses données, dans un document RTF.
void AdresseRtf(const Perso& p, TexteRapport& f, const FormePersonne& forme) {
    const PersoSuite& a = p.Suite();
    if (!forme.avecNotes ||
        (a.URL.empty() && a.EMail.empty() && a.Telephone.empty() && a.Ville.empty() && a.Adresse1.empty()))
        return;
    std::string s;
    const auto ligne = [&](const std::string& t) {
        if (!SansBlancs(t).empty()) s += forme.sep + EchapperRTF(t);
    };
    ligne(a.Adresse1.str());
    ligne(a.Adresse2.str());
    ligne((a.Etat.empty() ? std::string() : a.Etat + " ") + a.CP + " " + a.Ville);
    ligne(a.Pays.str());
    ligne(a.EMail.str());
    ligne(a.URL.str());
    if (!a.Telephone.empty()) ligne("T\xE9l : " + a.Telephone);
    f.Texte(s);
}

}  // namespace

void EcrirePersonne(const ContexteExport& ctx, std::int32_t numero, TexteRapport& f,
                    const FormePersonne& forme) {
    if (ctx.progression && ctx.progression->Annule()) throw ExportAnnule{};
    if (numero == 0) return;
    const Perso& p = PersoLu(ctx.base, numero);
    std::string tete =
        forme.avant + Fiche(f, (forme.avecNom ? p.Nom + " " : std::string()) + p.Prenoms) + forme.apres;
    if (!p.Metier.empty()) tete += ", " + Fiche(f, p.Metier.vue());
    f.Texte(tete);
    const auto parents = [&] { BlocParents(ctx, p, f, forme); };
    const auto actes = [&] { BlocActes(ctx, numero, p, f, forme); };
    const auto note = [&] { BlocNote(ctx, p, f, forme); };
    switch (ctx.exports.OptionOrdre) {
        case 1:
            actes(), note(), parents();
            break;
        case 2:
            parents(), actes(), note();
            break;
        default:
            note(), parents(), actes();
    }
    if (f.Fichier() == kFichierRtf) AdresseRtf(p, f, forme);
    if (f.Fichier() == kFichierHtml) BlocAdresseHtml(ctx, p, f, forme);
}

std::string PhraseDate(const ContexteExport& ctx, const Acte& acte, bool avecLe, bool avecA) {
    const std::string date = DateConfidentielle(acte.Date.vue(), 0, false, ctx.exports, ctx.aujourdhui.annee);
    // Une date que le filtre cache ne laisse pas son mot derrière elle.
    std::string r;
    if (!date.empty())
        r = (avecLe && EstDate(acte.Date.vue()) ? " le " : acte.Date.size() == 4 ? " en " : " ") + date;
    if (!acte.Lieu.empty()) r += (avecA ? " \xE0 " : " ") + acte.Lieu;
    return r;
}

std::string EncoderTexte(std::string_view texte, std::string_view marque) {
    std::string r;
    char code[8];
    if (marque == " ") {
        for (const char c : texte) {
            const auto u = static_cast<unsigned char>(c);
            if (u > 127) {
                std::snprintf(code, sizeof code, "&#%u;", u);
                r += code;
            } else {
                r += c;
            }
        }
        return r;
    }
    // Le repli garde les blancs : ce sont eux qui deviennent la marque.
    for (std::size_t debut = 0; debut <= texte.size();) {
        const std::size_t blanc = std::min(texte.find(' ', debut), texte.size());
        for (const char c : SansAccents(texte.substr(debut, blanc - debut), false)) {
            const auto u = static_cast<unsigned char>(c);
            if (std::isalnum(u) || c == '#' || c == '-' || c == '.' || c == '_' || c == '~') {
                r += c;
            } else {
                std::snprintf(code, sizeof code, "%%%02X", u);
                r += code;
            }
        }
        if (blanc < texte.size()) r += marque;
        debut = blanc + 1;
    }
    return r;
}

}  // namespace arbolix
