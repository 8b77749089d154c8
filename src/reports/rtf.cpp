#include "reports/rtf.h"

#include <cmath>
#include <string>

#include "card/lignes_personne.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kNomProgramme = "Arbolix";
constexpr std::string_view kCredit =
    "Arbolix, logiciel libre de g\xE9n\xE9"
    "alogie";

// "11.0.0" donne "11.0" : l'auteur du document porte la version majeure et mineure.
std::string VersionCourte() {
    const std::string_view v = ARBOLIX_VERSION;
    const std::size_t point = v.find('.', v.find('.') + 1);
    return std::string(v.substr(0, point));
}

// Des millimètres en twips, au moins trois chiffres.
std::string Twips(std::string_view mm) {
    const double v = std::strtod(std::string(mm).c_str(), nullptr);
    std::string t = std::to_string(std::lround(v * 1440.0 / 25.4));
    if (t.size() < 3) t.insert(0, 3 - t.size(), '0');
    return t;
}

std::string Page(const OptionsArbre& page) {
    const std::string l = Twips(page.LF), h = Twips(page.HF), m = Twips(page.MF);
    std::string s =
        "\\paperw" + l + "\\paperh" + h + "\\margl" + m + "\\margr" + m + "\\margt" + m + "\\margb" + m;
    if (std::strtod(page.LF.c_str(), nullptr) > std::strtod(page.HF.c_str(), nullptr)) s += "\\landscape";
    return s;
}

// Le généalogiste (la fiche -1) en tête du livre : nom, adresse, courriel, site.
std::string BlocAuteur(const Base& base) {
    const Perso& g = PersoLu(base, -1);
    const PersoSuite& a = g.Suite();
    const std::string_view L = "\\line ";
    std::string s = EchapperRTF(g.Nom + " " + g.Prenoms);
    const auto ligne = [&](const std::string& t) {
        if (!t.empty()) s.append(L).append(EchapperRTF(t));
    };
    ligne(a.Adresse1.str());
    ligne(a.Adresse2.str());
    if (!a.Ville.empty()) ligne((a.Etat.empty() ? std::string() : a.Etat + " ") + a.CP + " " + a.Ville);
    ligne(a.Pays.str());
    ligne(a.EMail.str());
    ligne(a.URL.str());
    s.append("\\par \\sa240 imprim\\'e9 avec ").append(kNomProgramme).append(" ");
    s.append(std::to_string(ARBOLIX_VERSION_MAJEURE)).append(L).append(EchapperRTF(kCredit));
    return s;
}

}  // namespace

void AjouterRTF(std::string& sortie, std::string_view texte) {
    static constexpr char kHex[] = "0123456789abcdef";
    for (const char c : texte) {
        const auto u = static_cast<unsigned char>(c);
        if (c == '\\' || c == '{' || c == '}') {
            sortie += '\\';
            sortie += c;
        } else if (c == '\t') {
            sortie += "\\tab ";
        } else if (u > 127 || (u < 32 && c != '\r' && c != '\n')) {
            sortie += "\\'";
            sortie += kHex[u >> 4];
            sortie += kHex[u & 15];
        } else {
            sortie += c;
        }
    }
}

std::string EchapperRTF(std::string_view texte) {
    std::string s;
    s.reserve(texte.size() + 8);
    AjouterRTF(s, texte);
    return s;
}

void OuvrirRTF(const ContexteExport& ctx, TexteRapport& f, bool deuxColonnes, bool livre, bool arbre,
               int tabulation, const OptionsArbre& page) {
    if (tabulation < 50) tabulation *= 567;
    const std::string fs = arbre ? "\\fs22" : "\\fs20";
    const std::string titre = EchapperRTF(ctx.exports.TitreExport);
    const std::string police = ctx.options.Police.empty() ? "Times New Roman" : ctx.options.Police;
    const DateCalendrier& d = ctx.aujourdhui;
    f.Texte("{\\rtf1\\ansi{\\fonttbl{\\f0\\froman\\fcharset0 " + EchapperRTF(police) + ";}}");
    f.Texte("{\\stylesheet{\\f0\\ql " + fs + (arbre ? "" : "\\sa240") + " Normal;}");
    f.Texte("{\\s15\\f0\\qc \\fs40\\ul\\sa240 Titres;}");
    f.Texte("}{\\info{\\title " + titre + "}{\\author " + std::string(kNomProgramme) + " " + VersionCourte() +
            "}");
    f.Ligne("{\\creatim\\yr" + std::to_string(d.annee) + "\\mo" + std::to_string(d.mois) + "\\dy" +
            std::to_string(d.jour) + "\\hr" + std::to_string(ctx.heure) + "\\min" +
            std::to_string(ctx.minute) + "}}");
    f.Texte(livre ? "\\psz9\\paperw11906\\paperh16838\\margl1134\\margr567\\margt964\\margb964" : Page(page));
    f.Texte("\\deftab" + std::to_string(tabulation));
    f.Ligne(
        "\\hyphhotz425\\formshade\\viewkind1\\viewscale100\\pgbrdrhead\\pgbrdrfoot\\ftnbj\\ftnrstpg\\ftnnar\\"
        "fet0"
        "\\endnhere ");
    f.Texte("\\sectd \\sbknone\\linex0\\headery567\\footery567\\colsx709");
    if (livre) {
        f.Texte("\\sectdefaultcl ");
        f.Texte("{\\header \\pard\\plain " + fs + "\\qc \\titlepg " + titre + "\\par }");
        f.Texte("{\\footer \\pard\\plain " + fs + "\\qc {\\field{\\*\\fldinst {PAGE }}}}");
    }
    if (!titre.empty() && !arbre)
        f.Texte(std::string(livre ? "\\pard\\plain \\qc \\fs40\\ul\\sa240 " : "") + "{" + titre + "\\par }");
    f.Ligne("\\ql \\pard\\plain " + fs);
    if (livre) {
        f.Texte(std::string("\\sect \\sbknone\\linex0\\headery567\\footery567\\cols") +
                (deuxColonnes ? "2" : "1") + "\\colsx567\\endnhere ");
        f.Texte("{\\header \\pard\\plain \\titlepg \\par }");
    }
    if (livre && !arbre && !PersoLu(ctx.base, -1).Nom.empty()) f.Texte(BlocAuteur(ctx.base));
    f.Ligne(std::string(arbre ? "" : "\\sa240 ") + "\\par ");
    if (!ctx.exports.TexteComp.empty()) {
        std::string t = ctx.exports.TexteComp;
        RemplacerTout(t, "\r\n", "\\line ");
        f.Texte(std::string(arbre ? "" : "\\sa240 ") + fs + " " + t + "\\par ");
    }
}

}  // namespace arbolix
