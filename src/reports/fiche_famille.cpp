#include "reports/fiche_famille.h"

#include <algorithm>

#include "store/chaines.h"

namespace arbolix {
namespace {

const std::string kMarge(10, ' ');

class Impression {
public:
    Impression(const Base& base, const Options& options) : b_(base), o_(options) {}

    void Texte(std::string t, bool gras = false) { m_.push_back({std::move(t), gras, false}); }
    void Ligne(std::string t = {}, bool gras = false) { m_.push_back({std::move(t), gras, true}); }

    void Conjoint(std::int32_t p, bool mari);
    void Enfant(std::int32_t c);
    std::vector<MorceauFiche> Fin() { return std::move(m_); }

    const Perso& P(std::int32_t n) const { return b_.Persos[n >= 0 && n <= b_.Persos.Haut() ? n : 0]; }
    const Fami& F(std::int32_t n) const { return b_.Familles[n >= 0 && n <= b_.Familles.Haut() ? n : 0]; }

private:
    // Une année inconnue (0) ne s'écrit pas.
    static std::string Annee(const Acte& a) { return a.Annee ? std::to_string(a.Annee) : std::string(); }
    std::string Parent(std::int32_t n) const {
        const Perso& p = P(n);
        return p.Nom + " " + p.Prenoms + " (" + Annee(p.Naissance) + "-" + Annee(p.Deces) + ")";
    }
    std::string Deux(std::string_view s1, const Acte& a1, std::string_view s2, const Acte& a2,
                     std::string_view entre) const {
        std::string l(s1);
        for (std::string_view morceau : {a1.Date.vue(), entre, a1.Lieu.vue(), std::string_view("   "), s2,
                                         a2.Date.vue(), entre, a2.Lieu.vue()})
            l += morceau;
        return l;
    }

    const Base& b_;
    const Options& o_;
    std::vector<MorceauFiche> m_;
};

void Impression::Conjoint(std::int32_t n, bool mari) {
    const Perso& p = P(n);
    Texte(kMarge + p.Nom + " " + p.Prenoms, true);
    // Le métier suit le nom sur la même ligne ; la virgule les sépare comme chez les enfants.
    Ligne(p.Metier.empty() ? std::string() : ", " + p.Metier);
    Ligne(kMarge + Deux(o_.SymbNais, p.Naissance, o_.SymbDece, p.Deces, "  "));
    if (!p.Bapteme.Date.empty() || !p.Sepulture.Date.empty())
        Ligne(kMarge + Deux(o_.SymbBapt, p.Bapteme, o_.SymbSepu, p.Sepulture, "  "));
    if (!p.Notes.empty()) {
        std::string notes = p.Notes.str();
        RemplacerTout(notes, "\r\n", "\r\n" + kMarge);
        Ligne(kMarge + notes);
    }
    if (p.NumParents > 0) {
        const Fami& parents = F(p.NumParents);
        Ligne(kMarge + (mari ? "fils de " : "fille de ") + Parent(parents.Mari) + " et " +
              Parent(parents.Femme) + " ; fiche n\xB0 " + std::to_string(p.NumParents));
    }
}

void Impression::Enfant(std::int32_t c) {
    const Perso& e = P(c);
    Texte(kMarge);
    Texte(e.Prenoms.str(), true);
    Ligne(", " + e.Metier);
    const std::string symbole = o_.SymbMari.empty() ? std::string() : o_.SymbMari.substr(0, 1);
    for (int j = 1; j <= kMaxUnions && e.Unions[j] != 0; ++j) {
        const Fami& u = F(e.Unions[j]);
        std::string marques;
        for (int k = 0; k < j; ++k) marques += symbole;
        Texte(kMarge + marques + u.Mariage.Date + " " + u.Mariage.Lieu + " avec ");
        const Perso& conjoint = P(u.Mari == c ? u.Femme : u.Mari);
        Ligne(conjoint.Nom + " " + conjoint.Prenoms + " (fiche " + std::to_string(e.Unions[j]) + ")");
    }
    Ligne(kMarge + Deux(o_.SymbNais, e.Naissance, o_.SymbDece, e.Deces, " "));
}

// Le curseur de l'imprimante : les morceaux coulent ligne après ligne, une ligne trop longue
// reprend sous la marge, une page pleine passe à la suivante.
class Curseur {
public:
    Curseur(const MesureFiche& mesure, double largeurLigne, int lignesParPage)
        : mesure_(mesure), largeur_(largeurLigne), lignes_(std::max(1, lignesParPage)) {}

    void Ecrire(std::string_view t, bool gras) {
        while (!t.empty()) {
            if (const std::size_t n = CeQuiTient(t, gras)) {
                places_.push_back({page_, ligne_, x_, std::string(t.substr(0, n)), gras});
                x_ += mesure_(t.substr(0, n), gras);
                debut_ = false;
                t.remove_prefix(n);
                if (t.empty()) break;
            }
            ALaLigne();
            x_ = mesure_(kMarge, false);
            t.remove_prefix(std::min(t.find_first_not_of(' '), t.size()));
        }
    }

    void ALaLigne() {
        x_ = 0;
        debut_ = true;
        if (++ligne_ == lignes_) {
            ligne_ = 0;
            ++page_;
        }
    }

    std::vector<PlaceFiche> Fin() { return std::move(places_); }

private:
    // Combien d'octets de t tiennent derrière x_ : tout, sinon jusqu'au dernier blanc qui tient ;
    // en début de ligne, un mot trop long est coupé où il déborde.
    std::size_t CeQuiTient(std::string_view t, bool gras) const {
        const double place = largeur_ - x_;
        if (mesure_(t, gras) <= place) return t.size();
        std::size_t n = 0;
        while (n < t.size() && mesure_(t.substr(0, n + 1), gras) <= place) ++n;
        const std::size_t blanc = t.substr(0, n + 1).find_last_of(' ');
        if (blanc != std::string_view::npos && blanc > 0) return blanc;
        return debut_ ? std::max<std::size_t>(n, 1) : 0;
    }

    const MesureFiche& mesure_;
    double largeur_;
    int lignes_;
    int page_ = 0, ligne_ = 0;
    double x_ = 0;
    bool debut_ = true;
    std::vector<PlaceFiche> places_;
};

// La page de l'imprimante rendue en PDF : une feuille A4 et ses bords imprimables, en mm.
struct PageFiche {
    static constexpr double kLargeur = 210, kHauteur = 297;
    static constexpr double kGauche = 10, kDroite = 200, kHaut = 12, kBas = 285;
    static constexpr double kInterligne = kCorpsFicheFamille * 1.15 / kPointsParMm;
};

}  // namespace

std::vector<PlaceFiche> DisposerFiche(const std::vector<MorceauFiche>& morceaux, const MesureFiche& mesure,
                                      double largeurLigne, int lignesParPage) {
    Curseur c(mesure, largeurLigne, lignesParPage);
    for (const auto& m : morceaux) {
        std::string_view reste = m.texte;
        for (auto fin = reste.find("\r\n"); fin != std::string_view::npos; fin = reste.find("\r\n")) {
            c.Ecrire(reste.substr(0, fin), m.gras);
            c.ALaLigne();
            reste.remove_prefix(fin + 2);
        }
        c.Ecrire(reste, m.gras);
        if (m.finLigne) c.ALaLigne();
    }
    return c.Fin();
}

std::string FicheFamillePdf(const std::vector<MorceauFiche>& morceaux, std::string_view titre) {
    const MesureFiche mesure = [](std::string_view t, bool gras) {
        return LargeurTexteMm(gras ? PolicePdf::TimesBold : PolicePdf::TimesRoman, kCorpsFicheFamille, t);
    };
    const int lignes = static_cast<int>((PageFiche::kBas - PageFiche::kHaut) / PageFiche::kInterligne);
    DocumentPdf d;
    d.Titre(titre);
    d.NouvellePage(PageFiche::kLargeur, PageFiche::kHauteur);
    int page = 0;
    const double ascendante = AscendanteMm(PolicePdf::TimesRoman, kCorpsFicheFamille);
    for (const PlaceFiche& p :
         DisposerFiche(morceaux, mesure, PageFiche::kDroite - PageFiche::kGauche, lignes)) {
        for (; page < p.page; ++page) d.NouvellePage(PageFiche::kLargeur, PageFiche::kHauteur);
        d.Texte(PageFiche::kGauche + p.x, PageFiche::kHaut + ascendante + p.ligne * PageFiche::kInterligne,
                p.gras ? PolicePdf::TimesBold : PolicePdf::TimesRoman, kCorpsFicheFamille, p.texte);
    }
    return d.Octets();
}

std::vector<MorceauFiche> FicheFamille(const Base& base, const Options& options, std::int32_t f,
                                       std::string_view fichierGedcom, const DateCalendrier& aujourdhui) {
    if (f <= 0 || f > base.Familles.Haut()) return {};
    Impression i(base, options);
    const Fami& fam = i.F(f);
    i.Ligne();
    i.Ligne();
    i.Ligne(kMarge + "G\xE9n\xE9\x61logie : fichier " + std::string(fichierGedcom) +
            " : fiche familiale n\xB0 " + std::to_string(f) + " imprim\xE9\x65 le " +
            FormatDateCourte(aujourdhui));
    i.Ligne();
    if (fam.Mari > 0) i.Conjoint(fam.Mari, true);
    if (fam.Femme > 0) {
        if (fam.Mari > 0) i.Ligne();
        i.Conjoint(fam.Femme, false);
    }
    i.Ligne();
    // Le compte s'arrête au 25e emplacement sans le compter : 25 enfants s'annoncent 24.
    int n = 1;
    while (n < kMaxEnfants && fam.Enfants(n) != 0) ++n;
    i.Ligne(kMarge + options.SymbMari + fam.Mariage.Date + "  " + fam.Mariage.Lieu + " ; " +
            std::to_string(n - 1) + " enfants :");
    for (int c = 1; c <= kMaxEnfants && fam.Enfants(c) != 0; ++c) i.Enfant(fam.Enfants(c));
    return i.Fin();
}

}  // namespace arbolix
