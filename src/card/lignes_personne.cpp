#include "card/lignes_personne.h"

#include <utility>

#include "store/chaines.h"

namespace arbolix {

namespace {

// "Prénoms Nom" ou "Nom Prénoms" sans blanc de trop quand l'un manque.
std::string Joindre(std::string_view a, std::string_view b) {
    if (a.empty()) return std::string(b);
    if (b.empty()) return std::string(a);
    std::string s(a);
    s += ' ';
    s += b;
    return s;
}

std::string SurUneLigne(std::string_view texte) {
    std::string s = Remplacer(texte, "\r\n", " ");
    for (char& c : s)
        if (c == '\r' || c == '\n') c = ' ';
    return s;
}

// Note ou source d'un évènement : le texte externe quand c'est un lien.
std::string TexteAnnexe(const Base& base, std::string_view texte, char genre) {
    std::string s = SurUneLigne(texte);
    if (const std::int32_t n = LienExterne(s, genre); n > 0) {
        const auto& table = genre == 'N' ? base.Notes : base.Sources;
        if (n <= table.Haut()) s = SurUneLigne(table[n].Texte.vue());
    }
    return s;
}

int Mesurer(const Largeur& l, std::string_view s) {
    return l.mesure ? l.mesure(s) : static_cast<int>(s.size());
}

// Le nom d'un parent dans les infobulles : "Prénoms Nom".
std::string NomSimple(const Base& base, std::int32_t n) {
    const Perso& p = PersoLu(base, n);
    return Joindre(p.Prenoms.vue(), p.Nom.vue());
}

}  // namespace

const Perso& PersoLu(const Base& base, std::int32_t n) {
    return n >= base.Persos.Bas() && n <= base.Persos.Haut() ? base.Persos[n] : base.Persos[0];
}

const Fami& FamiLue(const Base& base, std::int32_t f) {
    return f >= 0 && f <= base.Familles.Haut() ? base.Familles[f] : base.Familles[0];
}

std::int32_t LienExterne(std::string_view texte, char genre) {
    const std::string_view t = SansBlancs(texte);
    if (t.size() < 4 || t[0] != '@' || t[1] != genre || t.back() != '@') return 0;
    const std::string_view chiffres = t.substr(2, t.size() - 3);
    return EstNumerique(chiffres) ? static_cast<std::int32_t>(ValeurNumerique(chiffres)) : 0;
}

std::string LigneActe(const Base& base, const Acte& acte, bool longue, const Largeur& largeur) {
    const std::size_t garde = longue ? 30 : 15;
    std::string s(acte.Date.vue());
    if (!acte.Lieu.empty()) s += " " + acte.Lieu;
    if (!acte.Notes.empty()) s += " " + std::string(Gauche(TexteAnnexe(base, acte.Notes, 'N'), garde));
    if (!acte.Source.empty()) s += " " + std::string(Gauche(TexteAnnexe(base, acte.Source, 'S'), garde));
    if (acte.Liens().Temoins(1) > 0) s += " T\xE9moins";
    if (largeur.maximum > 0)
        while (!s.empty() && Mesurer(largeur, s) > largeur.maximum) s.resize(s.size() < 2 ? 0 : s.size() - 2);
    return s;
}

bool SosaPositif(std::string_view sosa) {
    for (char c : sosa) {
        if (!EstChiffre(c)) break;
        if (c != '0') return true;
    }
    return false;
}

std::string LigneCourte(const Base& base, const Options& options, std::int32_t n) {
    if (n < 1) return {};
    const Perso& p = PersoLu(base, n);
    if (p.Nom.empty() && p.Prenoms.empty()) return {};
    std::string s = Joindre(p.Prenoms.vue(), p.Nom.vue());
    if (!p.Naissance.Date.empty()) s += " " + options.SymbNais + " " + p.Naissance.Date;
    if (!p.Deces.Date.empty()) s += " " + options.SymbDece + " " + p.Deces.Date;
    if (SosaPositif(p.Suite().NumSosa[0].vue())) s += " S" + p.Suite().NumSosa[0];
    return s;
}

std::string LigneListe(const Base& base, const Options& options, std::int32_t n) {
    if (n < 1) return {};
    const Perso& p = PersoLu(base, n);
    if (p.Nom.empty() && p.Prenoms.empty()) return {};
    // Écrite d'un seul tenant : la liste complète l'appelle pour chaque personne.
    std::string s;
    s.reserve(64);
    s.append(p.Nom.vue()).append(1, ' ').append(p.Prenoms.vue());
    if (!p.Naissance.Date.empty()) s.append(1, ' ').append(options.SymbNais).append(p.Naissance.Date.vue());
    if (!p.Deces.Date.empty()) s.append(1, ' ').append(options.SymbDece).append(p.Deces.Date.vue());
    const Texte& sosa = p.Suite().NumSosa[0];
    if (SosaPositif(sosa.vue())) s.append(" S").append(sosa.vue());
    return s;
}

std::int32_t Conjoint(const Fami& f, std::int32_t p) {
    return f.Mari == p ? f.Femme : f.Mari;
}

std::string BullePersonne(const Base& base, const Options& options, std::int32_t n) {
    const Perso& p = PersoLu(base, n);
    std::string s;
    const auto partie = [&s](std::string_view t) {
        if (t.empty()) return;
        if (!s.empty()) s += " / ";
        s += t;
    };
    if (!p.Suite().Ref.empty()) partie("Ref " + p.Suite().Ref);
    partie(p.Metier.vue());
    if (p.Unions[1] > 0) {
        const Perso& c = PersoLu(base, Conjoint(FamiLue(base, p.Unions[1]), n));
        std::string union_ = options.SymbMari + " ";
        if (!c.Prenoms.empty()) union_ += std::string(1, c.Prenoms[0]) + ". ";
        partie(union_ + c.Nom);
    }
    if (p.NumParents > 0) {
        const Fami& f = FamiLue(base, p.NumParents);
        partie("enfant de " + NomSimple(base, f.Mari) + " et " + NomSimple(base, f.Femme));
    }
    return s;
}

std::string DetailPersonne(const Base& base, const Options& options, std::int32_t n) {
    if (n < 1) return {};
    const Perso& p = PersoLu(base, n);
    std::string s;
    if (!p.Suite().Ref.empty()) s += "Ref " + p.Suite().Ref + ". ";
    if (!p.Metier.empty()) s += p.Metier + ". ";
    if (p.Unions[1] > 0) {
        const Fami& f = FamiLue(base, p.Unions[1]);
        std::string u = options.SymbMari;
        if (!f.Mariage.Date.empty()) u += " " + f.Mariage.Date;
        if (!f.Mariage.Lieu.empty()) u += " " + f.Mariage.Lieu;
        // Une femme lit son mari, un homme sa femme : l'autre époux de la famille.
        const std::string conjoint = NomSimple(base, Conjoint(f, n));
        if (!conjoint.empty()) u += " " + conjoint;
        if (u.size() > options.SymbMari.size()) s += u + ". ";
    }
    if (p.NumParents > 0) {
        const Fami& f = FamiLue(base, p.NumParents);
        s += "enfant de " + NomSimple(base, f.Mari) + " et " + NomSimple(base, f.Femme);
    }
    return std::string(SansBlancsDroite(s));
}

}  // namespace arbolix
