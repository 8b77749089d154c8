#include "acts/conversion_tmao.h"

#include <deque>
#include <filesystem>

#include "dates/date_gedcom.h"
#include "gedcom/ecrivain.h"
#include "platform/cp1252.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFin = "\r\n";

// Les lignes non vides, dans l'ordre.
std::vector<std::string_view> NonVides(const std::array<std::string, 4>& lignes) {
    std::vector<std::string_view> r;
    for (const auto& l : lignes)
        if (!l.empty()) r.push_back(l);
    return r;
}

std::string Joindre(const std::array<std::string, 4>& lignes, std::string_view sep) {
    std::string r;
    for (std::string_view l : NonVides(lignes)) r.append(r.empty() ? "" : sep).append(l);
    return r;
}

std::string NomComplet(std::string_view nom, std::string_view prenom) {
    return std::string(SansBlancs(std::string(nom) + " " + std::string(prenom)));
}

std::string Colonne(std::string_view t, std::size_t largeur) {
    std::string r(t);
    r.resize(std::max(largeur, r.size()), ' ');
    return r + " ";
}

bool Nomme(std::string_view nom, std::string_view prenom) {
    return !nom.empty() || !prenom.empty();
}

// Une note de GEDCOM : la première ligne au niveau donné, les suivantes en CONT.
void Note(std::string& o, int niveau, const std::vector<std::string_view>& lignes) {
    for (std::size_t i = 0; i < lignes.size(); ++i)
        o.append(std::to_string(niveau + (i > 0 ? 1 : 0)))
            .append(i == 0 ? " NOTE " : " CONT ")
            .append(lignes[i])
            .append(kFin);
}

// "Jean (25)" : le prénom et l'âge que l'écriture y a mis ; le GEDCOM garde l'âge en note.
std::pair<std::string_view, std::string_view> PrenomEtAge(std::string_view prenom) {
    const auto ouvre = prenom.rfind(" (");
    if (ouvre == std::string_view::npos || prenom.back() != ')') return {prenom, {}};
    const std::string_view age = prenom.substr(ouvre + 2, prenom.size() - ouvre - 3);
    if (!EstNumerique(age)) return {prenom, {}};
    return {prenom.substr(0, ouvre), age};
}

class SortieGedcom {
public:
    explicit SortieGedcom(const EnteteConversion& e) : e_(e) {
        std::string entete = EnteteArbolix();
        RemplacerTout(entete, "1 DEST ANSTFILE", "1 DEST Arbolix");
        o_ = entete + "1 DATE " + DateGedcom(e.Date, true) + "\r\n1 FILE " + e.Source + "\r\n";
    }

    void Acte(const ActeTMAO& a) {
        const bool mariage = e_.Type == 'M' || e_.Type == 'A';
        std::int32_t mari = 0, femme = 0;
        const std::int32_t famille = mariage ? ++nbFamis_ : 0;
        if (Nomme(a.Nom1, a.Prenom1)) {
            mari = ++nbPersos_;
            std::vector<std::string_view> notes =
                Personne(mari, a.Nom1, a.Prenom1, mariage ? "M" : SexeDuPrenom(a.Prenom1), famille);
            for (std::string_view l : NonVides(a.Lignes1)) notes.push_back(l);
            if (!mariage) {
                Evenement(e_.Type == 'D' ? "1 DEAT" : "1 BIRT", a);
                for (std::string_view l : NonVides(a.LignesActe)) notes.push_back(l);
            }
            Note(o_, 1, notes);
        }
        if (Nomme(a.Nom2, a.Prenom2)) {
            femme = ++nbPersos_;
            std::vector<std::string_view> notes =
                Personne(femme, a.Nom2, a.Prenom2, mariage ? "F" : SexeDuPrenom(a.Prenom2), famille);
            for (std::string_view l : NonVides(a.Lignes2)) notes.push_back(l);
            Note(o_, 1, notes);
        }
        if (!mariage || (mari == 0 && femme == 0)) {
            if (mariage) --nbFamis_;
            return;
        }
        o_.append("0 @F").append(std::to_string(famille)).append("@ FAM\r\n");
        if (mari) o_.append("1 HUSB @I").append(std::to_string(mari)).append("@\r\n");
        if (femme) o_.append("1 WIFE @I").append(std::to_string(femme)).append("@\r\n");
        Evenement("1 MARR", a);
        Note(o_, 2, NonVides(a.LignesActe));
    }

    std::string Fermer() {
        o_.append("0 TRLR\r\n");
        return std::move(o_);
    }

private:
    // Rend la première ligne de note : l'âge, s'il y en a un.
    std::vector<std::string_view> Personne(std::int32_t n, std::string_view nom, std::string_view prenom,
                                           std::string_view sexe, std::int32_t famille) {
        const auto [seul, age] = PrenomEtAge(prenom);
        o_.append("0 @I").append(std::to_string(n)).append("@ INDI\r\n");
        o_.append("1 NAME ").append(seul).append(" /").append(nom).append("/\r\n");
        if (!sexe.empty()) o_.append("1 SEX ").append(sexe).append(kFin);
        if (famille) o_.append("1 FAMS @F").append(std::to_string(famille)).append("@\r\n");
        if (age.empty()) return {};
        ages_.push_back("\xE2ge : " + std::string(age) + " ans");
        return {ages_.back()};
    }
    void Evenement(std::string_view ligne, const ActeTMAO& a) {
        o_.append(ligne).append(kFin);
        const std::string date = DateActeTMAO(a);
        if (!date.empty()) o_.append("2 DATE ").append(DateGedcom(date, true)).append(kFin);
        if (!e_.Lieu.empty()) o_.append("2 PLAC ").append(e_.Lieu).append(kFin);
    }

    const EnteteConversion& e_;
    std::string o_;
    std::int32_t nbPersos_ = 0, nbFamis_ = 0;
    std::deque<std::string> ages_;  // les notes d'âge vivent jusqu'à leur écriture
};

}  // namespace

std::string_view ExtensionConversion(int mode) {
    switch (mode) {
        case kConvRtf:
            return ".rtf";
        case kConvGedcom:
            return ".ged";
        case kConvTexte:
        case kConvTabule:
        case kConvColonnes:
            return ".txt";
        default:
            return {};
    }
}

std::string TitreTable(char type) {
    switch (type) {
        case 'N':
            return "TABLE DES NAISSANCES";
        case 'M':
            return "TABLE DES MARIAGES";
        case 'D':
            return "TABLE DES D\xC9"
                   "C\xC8S";
        default:
            return "TABLE DES ASCENDANCES";
    }
}

std::string DateActeTMAO(const ActeTMAO& a) {
    if (a.Annee == 0) return {};
    if (a.Jour == 0 && a.Mois == 0) return Zeros(a.Annee, 4);
    return DateTMAO(a);
}

std::string TexteTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    std::string o = TitreTable(e.Type) + " : " + e.Source + "\r\n\r\n";
    for (const ActeTMAO& a : actes) {
        o.append(DateActeTMAO(a)).append("  ").append(NomComplet(a.Nom1, a.Prenom1)).append(kFin);
        for (std::string_view l : NonVides(a.Lignes1)) o.append("      ").append(l).append(kFin);
        if (Nomme(a.Nom2, a.Prenom2)) o.append("    ").append(NomComplet(a.Nom2, a.Prenom2)).append(kFin);
        for (std::string_view l : NonVides(a.Lignes2)) o.append("      ").append(l).append(kFin);
        for (std::string_view l : NonVides(a.LignesActe)) o.append("    ").append(l).append(kFin);
        o.append(kFin);
    }
    return o + std::to_string(actes.size()) + " actes\r\n";
}

std::string TabuleTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion&) {
    // Les dix colonnes d'usage, puis ce qu'elles ne portent pas : rien du fichier ne se perd.
    std::string o =
        "Nom1\tPrenom1\tCommentaire1\tCom2\tCom3\tCom4\tNom2\tPrenom2\tDate\tN\xB0"
        "\tCommentaire2-1\tCommentaire2-2\tCommentaire2-3\tCommentaire2-4\tActe1\tActe2\tActe3\tActe4\r\n";
    std::size_t numero = 0;
    for (const ActeTMAO& a : actes) {
        o.append(a.Nom1).append("\t").append(a.Prenom1);
        for (const auto& l : a.Lignes1) o.append("\t").append(l);
        o.append("\t").append(a.Nom2).append("\t").append(a.Prenom2).append("\t").append(DateActeTMAO(a));
        o.append("\t").append(std::to_string(++numero));
        for (const auto& l : a.Lignes2) o.append("\t").append(l);
        for (const auto& l : a.LignesActe) o.append("\t").append(l);
        o.append(kFin);
    }
    return o;
}

std::string ColonnesTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    std::string o = TitreTable(e.Type) + " : " + e.Source + "\r\n\r\n";
    o += Colonne("Date", 10) + Colonne("Nom", 25) + Colonne("Pr\xE9noms", 25) + Colonne("Nom 2", 25) +
         Colonne("Pr\xE9noms 2", 25) + "Mentions\r\n";
    for (const ActeTMAO& a : actes) {
        std::string mentions = Joindre(a.Lignes1, " ; ");
        for (const std::string& t : {Joindre(a.Lignes2, " ; "), Joindre(a.LignesActe, " ; ")})
            if (!t.empty()) mentions.append(mentions.empty() ? "" : " / ").append(t);
        o += Colonne(DateActeTMAO(a), 10) + Colonne(a.Nom1, 25) + Colonne(a.Prenom1, 25) +
             Colonne(a.Nom2, 25) + Colonne(a.Prenom2, 25);
        o.append(SansBlancsDroite(mentions)).append(kFin);
    }
    return o + "\r\n" + std::to_string(actes.size()) + " actes\r\n";
}

std::string GedcomTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    SortieGedcom g(e);
    for (const ActeTMAO& a : actes) g.Acte(a);
    return g.Fermer();
}

std::optional<std::string> NomSortieConversion(const std::string& source, int mode, Dialogue& dialogue) {
    fs::path sortie(source);
    sortie.replace_extension(std::string(ExtensionConversion(mode)));
    if (!fs::exists(sortie)) return sortie.string();
    fs::path proposition = sortie;
    proposition.replace_filename(sortie.stem().string() + "_" + sortie.extension().string());
    const auto r = dialogue.Saisie("Fichier existant",
                                   "Le fichier de sortie existe d\xE9j\xE0.\r\n"
                                   "Entrez un autre nom de fichier ou confirmez l'\xE9"
                                   "crasement.",
                                   Utf8VersCp1252(proposition.string()));
    if (!r || SansBlancs(*r).empty()) return std::nullopt;
    return Cp1252VersUtf8(SansBlancs(*r));
}

std::optional<std::string> DemanderLieuTMAO(Dialogue& dialogue) {
    auto r = dialogue.Saisie("Lieu", "Entrez le lieu des actes contenus dans le fichier TMAO :", "");
    if (r) *r = std::string(SansBlancs(*r));
    return r;
}

}  // namespace arbolix
