#include "trees/dessin_arbre.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

#include "card/lignes_personne.h"
#include "reports/descendance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Au-delà de cent mètres une dimension est une faute de frappe, et ses cases ne tiendraient pas
// en mémoire.
constexpr double kDimensionMaxi = 100000;
// La case vide de NbGen compte les générations jusqu'à 12, comme la numérotation des arbres.
constexpr int kGenerationsMaxi = 12;
// Un cran plus petit quand une ligne ne tient pas : aperçu et imprimante seulement.
constexpr double kReduction = 0.85;
constexpr std::string_view kNomOrdinaire = "12 LEFEBVRE Jean-Baptiste";

bool EstPersonne(const Base& b, std::int32_t n) {
    return PersonneExiste(b, n);
}

// "° 12/03/1750 Nancy" : le symbole, la date et le lieu, un seul blanc entre les morceaux.
std::string LigneActeCase(std::string_view symbole, const Acte& a) {
    std::string r;
    for (std::string_view m : {std::string_view(a.Date), std::string_view(a.Lieu)}) {
        m = SansBlancs(m);
        if (m.empty()) continue;
        if (r.empty()) r = std::string(symbole);
        if (!r.empty()) r += ' ';
        r += m;
    }
    return r;
}

class Mise {
public:
    Mise(Base& b, const Options& o, const DemandeArbre& d, const MesureTexte& m)
        : b_(b), o_(o), dem_(d), m_(m) {}

    DessinArbre Faire() {
        r_.Genre = dem_.genre;
        r_.Titre = dem_.titre;
        r_.Aujourdhui = dem_.aujourdhui;
        OuvrirListe(r_.Carte, "arbre", "", "", true);
        if (dem_.mode == kModeImprimante && !dem_.imprimanteExiste) {
            Boite(kTitreImpressionImpossible, kAucuneImprimante);
            return std::move(r_);
        }
        OptionsArbre dims = dem_.dims;
        if (dem_.genre == kAscendantA4) {
            dims.HF = "210", dims.LF = "297", dims.MF = "10", dims.NbGen = "5";
        } else if (dem_.genre == kArbreParente) {
            dims.LF = "210", dims.HF = "297", dims.MF = "15", dims.LC = "45", dims.HC = "20.5", dims.MC = "1";
        }
        if (!LireDimensions(dims)) {
            Boite(kTitreErreurDimension, kErreurDimension);
            return std::move(r_);
        }
        switch (dem_.genre) {
            case kEtiquettes:
                Etiquettes();
                break;
            case kAscendant:
            case kAscendantA4:
                Ascendant();
                break;
            case kArbreParente:
                Parente();
                break;
            case kDescendant:
                Descendant();
                break;
            default:
                Boite(kTitreErreurDimension, kErreurDimension);
        }
        return std::move(r_);
    }

private:
    void Boite(std::string_view titre, std::string_view texte) {
        r_.TitreBoite = titre;
        r_.TexteBoite = texte;
        r_.Cases.clear();
        r_.Traits.clear();
        r_.Textes.clear();
        r_.Carte.Rangees.clear();
    }

    bool LireDimensions(const OptionsArbre& d) {
        r_.LC = LireMillimetres(d.LC), r_.HC = LireMillimetres(d.HC), r_.MC = LireMillimetres(d.MC);
        r_.LF = LireMillimetres(d.LF), r_.HF = LireMillimetres(d.HF), r_.MF = LireMillimetres(d.MF);
        for (double v : {r_.LC, r_.HC, r_.MC, r_.LF, r_.HF, r_.MF})
            if (!(v > 0) || v > kDimensionMaxi) return false;
        if (r_.LF <= 2 * r_.MF || r_.HF <= 2 * r_.MF) return false;
        // Les générations ne comptent que pour les arbres qui en ont ; le descendant peut les taire.
        const bool avecGenerations =
            dem_.genre == kAscendant || dem_.genre == kAscendantA4 || dem_.genre == kDescendant;
        const std::string_view nb = SansBlancs(d.NbGen);
        if (!avecGenerations) return true;
        if (nb.empty()) return dem_.genre == kAscendant || dem_.genre == kDescendant;
        if (!EstNumerique(nb) || ValeurNumerique(nb) < 4) return false;
        r_.NbGen = static_cast<int>(std::min<std::int64_t>(ValeurNumerique(nb), 1000));
        return true;
    }

    // --- Texte des cases ---

    std::vector<std::string> TexteCase(std::int32_t p, const std::string& numero,
                                       std::int32_t famPere) const {
        std::vector<std::string> l;
        if (!EstPersonne(b_, p)) return l;
        const Perso& x = PersoLu(b_, p);
        l.push_back((numero.empty() ? "" : numero + " ") + std::string(x.Nom) + " " + std::string(x.Prenoms));
        if (famPere > 0) l.push_back(LigneActeCase(o_.SymbMari, FamiLue(b_, famPere).Mariage));
        l.push_back(LigneActeCase(o_.SymbNais, x.Naissance));
        std::string deces = LigneActeCase(o_.SymbDece, x.Deces);
        // Sans décès écrit, une naissance trop ancienne dit que la personne est morte ; sans
        // année de naissance on n'en sait rien et la ligne reste blanche.
        if (deces.empty() && x.Naissance.Annee != 0 &&
            x.Naissance.Annee + ValeurNumerique(o_.AgeMaxiDeces) <= dem_.aujourdhui.annee)
            deces = o_.SymbDece;
        l.push_back(deces);
        return l;
    }

    // Coupe les lignes à la largeur utile ; un cran plus petit à l'écran et sur papier quand elles
    // ne tiennent pas en hauteur ; les lignes de trop ne sortent pas de la case.
    void Remplir(CaseArbre& c, std::vector<std::string> lignes, double taille) const {
        const double largeur = r_.LC - 2 * r_.MC;
        const double hauteur = r_.HC - 1.5 * r_.MC;
        const bool reduire = dem_.mode == kModeApercu || dem_.mode == kModeImprimante;
        for (int essai = 0; essai < 2; ++essai) {
            c.taille = taille;
            c.lignes.clear();
            for (const auto& l : lignes)
                for (auto& m : CouperLigne(l, largeur, taille, m_)) c.lignes.push_back(std::move(m));
            while (!c.lignes.empty() && c.lignes.back().empty()) c.lignes.pop_back();
            const auto tiennent =
                static_cast<std::size_t>(std::max(0.0, std::floor(hauteur / m_.HauteurLigne(taille) + 1e-6)));
            if (c.lignes.size() <= tiennent) return;
            if (!reduire || essai == 1) {
                c.lignes.resize(tiennent);
                return;
            }
            taille *= kReduction;
        }
    }

    void AjouterCase(std::int32_t p, int page, double x, double y, std::vector<std::string> lignes,
                     double taille) {
        CaseArbre c;
        c.personne = EstPersonne(b_, p) ? p : 0;
        c.page = page;
        c.x = x;
        c.y = y;
        Remplir(c, std::move(lignes), taille);
        const double haut = y + (page - 1) * r_.HF;
        r_.Carte.Rangees.push_back(
            {Zeros(static_cast<std::int64_t>(x), 4) + "XY" + Zeros(static_cast<std::int64_t>(haut), 4),
             c.personne});
        r_.Cases.push_back(std::move(c));
    }

    void Trait(int page, double x1, double y1, double x2, double y2) {
        r_.Traits.push_back({page, x1, y1, x2, y2});
    }

    // --- Étiquettes ---

    void Etiquettes() {
        std::vector<Rangee> rangees;
        if (dem_.etiquettes) rangees = dem_.etiquettes->Rangees;
        if (!rangees.empty() && !EstNumerique(Droite(rangees[0].texte, 6))) rangees.erase(rangees.begin());
        const auto lignes = static_cast<std::int64_t>(r_.HF - 2 * r_.MF) /
                            std::max<std::int64_t>(1, static_cast<std::int64_t>(r_.HC + 2 * r_.MC));
        const auto colonnes = static_cast<std::int64_t>(r_.LF - 2 * r_.MF) /
                              std::max<std::int64_t>(1, static_cast<std::int64_t>(r_.LC + 2 * r_.MC));
        if (lignes <= 0 || colonnes <= 0 || r_.HC - 1.5 * r_.MC <= 0) {
            Boite(kTitreErreurDimension, kErreurDimension);
            return;
        }
        const std::int64_t parPage = lignes * colonnes;
        const auto n = static_cast<std::int64_t>(rangees.size());
        r_.Pages = static_cast<int>(std::max<std::int64_t>(1, n / parPage + (n % parPage ? 1 : 0)));
        r_.Taille = TaillePolice(m_, r_.HC, r_.MC);
        // Les places du bourrage ("ZZ P000000") restent blanches : seules les personnes se dessinent.
        for (std::int64_t i = 0; i < n; ++i) {
            std::int32_t p = rangees[i].valeur;
            if (p == 0) p = static_cast<std::int32_t>(ValeurNumerique(Droite(rangees[i].texte, 6)));
            if (!EstPersonne(b_, p)) continue;
            const std::int64_t k = i % parPage;
            AjouterCase(p, static_cast<int>(i / parPage + 1),
                        r_.MF + (k % colonnes) * (r_.LC + 2 * r_.MC) + r_.MC,
                        r_.MF + (k / colonnes) * (r_.HC + 2 * r_.MC) + r_.MC, TexteCase(p, "", 0), r_.Taille);
        }
    }

    // --- Arbre ascendant ---

    int CompterGenerations(std::int32_t racine) const {
        std::vector<std::int32_t> rang{racine};
        int g = 0;
        while (g + 1 < kGenerationsMaxi) {
            std::vector<std::int32_t> suivant;
            for (std::int32_t p : rang) {
                const Fami& f = FamiLue(b_, PersoLu(b_, p).NumParents);
                for (std::int32_t q : {f.Mari, f.Femme})
                    if (EstPersonne(b_, q)) suivant.push_back(q);
            }
            if (suivant.empty()) break;
            rang = std::move(suivant);
            ++g;
        }
        return g + 1;
    }

    void Ascendant() {
        const std::int32_t racine = EstPersonne(b_, dem_.numero) ? dem_.numero : 0;
        // Sans nombre tapé, l'arbre a les générations de la personne, au moins quatre pour laisser
        // des cases à remplir à la main.
        if (r_.NbGen == 0) r_.NbGen = std::max(4, CompterGenerations(racine));
        const double utile = r_.HF - 2 * r_.MF;
        r_.HC = r_.NbGen > 60 ? 0 : std::ldexp(utile, -(r_.NbGen - 1));
        if (r_.HC < 6 || r_.HC - 1.5 * r_.MC <= 0) {
            Boite(kTitreCasesPetites, kCasesPetites);
            r_.CacherApercu = true;
            return;
        }
        const double lc = (r_.LF - 2 * r_.MF) / (1.5 * r_.NbGen - 0.5);
        r_.LC = lc >= 1 ? std::floor(lc) : lc;
        // Peu de générations donnent des cases hautes et une police qui ne laisserait que deux ou
        // trois lettres par ligne : la taille s'arrête là où une ligne tient un nom ordinaire.
        const double largeurNom = m_.Largeur(kNomOrdinaire, 10);
        r_.Taille = std::min(TaillePolice(m_, r_.HC, r_.MC), 10 * (r_.LC - 2 * r_.MC) / largeurNom);
        const std::int64_t slots = std::int64_t{1} << r_.NbGen;
        std::vector<std::int32_t> s(static_cast<std::size_t>(slots), 0);
        s[1] = racine;
        for (std::int64_t n = 1; n < slots / 2; ++n) {
            if (s[n] == 0) continue;
            const Fami& f = FamiLue(b_, PersoLu(b_, s[n]).NumParents);
            if (EstPersonne(b_, f.Mari)) s[2 * n] = f.Mari;
            if (EstPersonne(b_, f.Femme)) s[2 * n + 1] = f.Femme;
        }
        const auto centre = [&](std::int64_t n, int g) {
            return r_.MF +
                   (static_cast<double>(n - (std::int64_t{1} << g)) + 0.5) / std::ldexp(1.0, g) * utile;
        };
        for (std::int64_t n = 1; n < slots; ++n) {
            const int g = std::bit_width(static_cast<std::uint64_t>(n)) - 1;
            const double x = r_.MF + g * 1.5 * r_.LC;
            const double yc = centre(n, g);
            const std::int32_t famPere = n % 2 == 0 && s[n] != 0 ? PersoLu(b_, s[n / 2]).NumParents : 0;
            AjouterCase(s[n], 1, x, yc - r_.HC / 2, TexteCase(s[n], std::to_string(n), famPere), r_.Taille);
            if (n < 2) continue;
            const double xCoude = x - r_.LC / 4;
            const double ycEnfant = centre(n / 2, g - 1);
            Trait(1, x, yc, xCoude, yc);
            Trait(1, xCoude, yc, xCoude, ycEnfant);
            Trait(1, xCoude, ycEnfant, x - r_.LC / 2, ycEnfant);
        }
        // Le pied n'a pas besoin de la taille des cases des grandes pages.
        Pied(std::min(r_.Taille, 8.0));
    }

    // Le pied sous la case de la racine, la légende au-dessus : dans ces coins, les deux premières
    // colonnes n'ont ni case ni trait.
    // Sans yDebut, le pied finit au bas de la dernière page.
    void Pied(double taille, double yDebut = -1) {
        const double lh = m_.HauteurLigne(taille);
        const double largeur = r_.Genre == kDescendant ? r_.LF - 2 * r_.MF : 2.5 * r_.LC;
        std::vector<std::string> pied;
        const auto ajouter = [&](std::vector<std::string>& v, const std::string& t) {
            for (auto& l : CouperLigne(t, largeur, taille, m_)) v.push_back(std::move(l));
        };
        ajouter(pied, "Le " + FormatDateCourte(dem_.aujourdhui) + " " + dem_.titre);
        const Perso& g = PersoLu(b_, -1);
        const PersoSuite& a = g.Suite();
        std::string qui;
        for (std::string_view m :
             {std::string(g.Nom) + " " + std::string(g.Prenoms), std::string(a.Adresse1),
              std::string(a.Adresse2), std::string(a.CP) + " " + std::string(a.Ville), std::string(a.Pays)}) {
            m = SansBlancs(m);
            if (m.empty()) continue;
            if (!qui.empty()) qui += ", ";
            qui += m;
        }
        if (!qui.empty()) ajouter(pied, qui);
        ajouter(pied, "imprim\xE9 avec Arbolix " ARBOLIX_VERSION ".");
        double y = r_.HF - r_.MF - lh * static_cast<double>(pied.size() - 1) - lh * 0.2;
        if (yDebut >= 0 && yDebut + lh * static_cast<double>(pied.size()) > r_.HF - r_.MF) {
            ++r_.Pages;
            yDebut = r_.MF;
        }
        if (yDebut >= 0) y = yDebut + lh * 0.8;
        for (auto& l : pied) {
            r_.Textes.push_back({r_.Pages, r_.MF, y, std::move(l), taille});
            y += lh;
        }
        if (r_.Genre != kAscendantA4) return;
        std::vector<std::string> legende;
        ajouter(legende, "L\xE9gende :");
        ajouter(legende, o_.SymbNais + " = naissance/bapt\xEAme");
        ajouter(legende, o_.SymbMari + " = mariage");
        ajouter(legende, o_.SymbDece +
                             " = d\xE9"
                             "c\xE8s/s\xE9pulture");
        y = r_.MF + lh * 0.8;
        for (auto& l : legende) {
            r_.Textes.push_back({1, r_.MF, y, std::move(l), taille});
            y += lh;
        }
    }

    // --- Arbre descendant ---

    // Une case par descendant dans l'ordre du parcours, une par conjoint sous lui dans la même
    // colonne ; les enfants d'une union suivent, une colonne plus loin.
    struct Noeud {
        int generation;
        std::int32_t personne;
        std::int32_t famille;  // non nul : la case du conjoint de cette union
    };
    class Collecte : public VisiteurDescendance {
    public:
        explicit Collecte(std::vector<Noeud>& v) : v_(v) {}
        void Personne(std::int32_t p, std::string_view, int g) override { v_.push_back({g, p, 0}); }
        void Union(const RangeeDescendance& r) override {
            if (r.conjoint != 0) v_.push_back({r.generation, r.conjoint, r.famille});
        }

    private:
        std::vector<Noeud>& v_;
    };

    void Descendant() {
        const std::int32_t racine = dem_.numero;
        r_.Taille = TaillePolice(m_, r_.HC, r_.MC);
        if (r_.HC - 1.5 * r_.MC <= 0 || r_.LC > r_.LF - 2 * r_.MF || r_.HC > r_.HF - 2 * r_.MF) {
            Boite(kTitreErreurDimension, kErreurDimension);
            return;
        }
        if (!EstPersonne(b_, racine)) return;
        std::vector<Noeud> noeuds;
        Collecte collecte(noeuds);
        ReglagesDescendance reglages;
        reglages.ajouter = false;
        reglages.visiteur = &collecte;
        ParcourirDescendance(b_, o_, racine, reglages);
        const int limite = r_.NbGen > 0 ? r_.NbGen : 1 << 30;
        std::erase_if(noeuds, [&](const Noeud& n) {
            return n.generation - dem_.decalage < 0 || n.generation >= limite;
        });
        int gMax = 0;
        for (const auto& n : noeuds) gMax = std::max(gMax, n.generation - dem_.decalage);
        // Le retrait d'une génération : assez pour le trait, jamais au-delà de la page.
        const double pas =
            gMax == 0 ? r_.LC : std::max(2.0, std::min(r_.LC * 0.6, (r_.LF - 2 * r_.MF - r_.LC) / gMax));
        const double ecart = r_.HC / 4;
        const auto parPage = static_cast<std::size_t>((r_.HF - 2 * r_.MF + ecart) / (r_.HC + ecart));
        std::vector<std::size_t> ancre;  // par génération, la dernière case d'où partent les enfants
        for (std::size_t i = 0; i < noeuds.size(); ++i) {
            const Noeud& n = noeuds[i];
            const int g = n.generation - dem_.decalage;
            const int page = static_cast<int>(i / parPage) + 1;
            const double x = r_.MF + g * pas;
            const double y = r_.MF + static_cast<double>(i % parPage) * (r_.HC + ecart);
            if (x + r_.LC > r_.LF - r_.MF + 1e-9) continue;
            r_.Pages = page;
            AjouterCase(n.personne, page, x, y, TexteCase(n.personne, "", n.famille), r_.Taille);
            if (ancre.size() <= static_cast<std::size_t>(g)) ancre.resize(g + 1, SIZE_MAX);
            if (n.famille != 0) {
                // Le conjoint sous le descendant, joint par un trait.
                const CaseArbre& dessus = r_.Cases[r_.Cases.size() - 2];
                if (dessus.page == page) Trait(page, x + r_.LC / 2, dessus.y + r_.HC, x + r_.LC / 2, y);
            } else if (g > 0 && ancre[g - 1] != SIZE_MAX) {
                const CaseArbre& parent = r_.Cases[ancre[g - 1]];
                const double xv = parent.x + pas / 2;
                const double ym = y + r_.HC / 2;
                if (parent.page == page)
                    Trait(page, xv, parent.y + r_.HC, xv, ym);
                else
                    Trait(page, xv, r_.MF, xv, ym);
                Trait(page, xv, ym, x, ym);
            }
            ancre[g] = r_.Cases.size() - 1;
            ancre.resize(g + 1);
        }
        const std::size_t dernier = noeuds.empty() ? 0 : (r_.Cases.size() - 1);
        const double bas = r_.Cases.empty() ? r_.MF : r_.Cases[dernier].y + r_.HC;
        Pied(std::min(r_.Taille, 8.0), bas + ecart);
    }

    // --- Arbre de parenté ---

    std::vector<std::int32_t> Chemin(std::int32_t racine, int k) const {
        std::vector<std::int32_t> c;
        std::string_view t = PersoLu(b_, racine).Suite().CheminSosa[k];
        while (!t.empty()) {
            const std::size_t v = t.find(',');
            c.push_back(static_cast<std::int32_t>(ValeurNumerique(t.substr(0, v))));
            t = v == std::string_view::npos ? std::string_view{} : t.substr(v + 1);
        }
        if (c.empty() || c.front() != racine) c.insert(c.begin(), racine);
        return c;
    }

    // Le conjoint par qui la lignée passe de p à l'enfant suivant du chemin.
    std::int32_t ConjointVers(std::int32_t p, std::int32_t enfant) const {
        if (enfant == 0) return 0;
        const std::int32_t f = PersoLu(b_, enfant).NumParents;
        const std::int32_t c = Conjoint(FamiLue(b_, f), p);
        return EstPersonne(b_, c) ? c : 0;
    }

    void Parente() {
        const std::int32_t racine = dem_.numero;
        if (!EstPersonne(b_, racine)) return;
        const std::vector<std::int32_t> chemins[2] = {Chemin(racine, 1), Chemin(racine, 2)};
        r_.Taille = dem_.mode == kModeImprimante ? 10.5 : 7;
        // Quatre colonnes, conjoint et lignée de chaque côté ; un peu d'air pour les traits du couple.
        constexpr double kAir = 3;
        r_.LC = std::min(r_.LC, (r_.LF - 2 * r_.MF - 3 * kAir) / 4);
        const std::size_t rangs = std::max(chemins[0].size(), chemins[1].size());
        const double utile = r_.HF - 2 * r_.MF;
        double ecart = r_.HC / 2;
        if (rangs > 1 && rangs * r_.HC + (rangs - 1) * ecart > utile)
            ecart = std::max(0.0, (utile - rangs * r_.HC) / static_cast<double>(rangs - 1));
        if (rangs * r_.HC > utile) r_.HC = utile / static_cast<double>(rangs);
        const auto colonne = [&](int c) { return r_.MF + c * (r_.LC + kAir); };
        const auto haut = [&](std::size_t rang) { return r_.MF + rang * (r_.HC + ecart); };
        // Le couple : la personne de la lignée côté intérieur, le conjoint côté extérieur.
        const auto couple = [&](std::int32_t p, std::int32_t conjoint, int colP, int colC, std::size_t rang,
                                std::int32_t fam) {
            const double y = haut(rang);
            AjouterCase(p, 1, colonne(colP), y, TexteCase(p, "", PersoLu(b_, p).Sexe == 'M' ? fam : 0),
                        r_.Taille);
            if (conjoint == 0) return;
            AjouterCase(conjoint, 1, colonne(colC), y,
                        TexteCase(conjoint, "", PersoLu(b_, conjoint).Sexe == 'M' ? fam : 0), r_.Taille);
            const int gauche = std::min(colP, colC);
            Trait(1, colonne(gauche) + r_.LC, y + r_.HC / 2, colonne(gauche + 1), y + r_.HC / 2);
        };
        const std::int32_t suivant0 = chemins[0].size() > 1 ? chemins[0][1] : 0;
        const std::int32_t suivant1 = chemins[1].size() > 1 ? chemins[1][1] : 0;
        const std::int32_t enfantHaut = suivant0 ? suivant0 : suivant1;
        couple(racine, ConjointVers(racine, enfantHaut), 1, 2, 0, PersoLu(b_, enfantHaut).NumParents);
        for (int cote = 0; cote < 2; ++cote) {
            const auto& c = chemins[cote];
            const int colP = cote == 0 ? 1 : 2, colC = cote == 0 ? 0 : 3;
            for (std::size_t i = 1; i < c.size(); ++i) {
                const std::int32_t enfant = i + 1 < c.size() ? c[i + 1] : 0;
                couple(c[i], ConjointVers(c[i], enfant), colP, colC, i, PersoLu(b_, enfant).NumParents);
                // Du milieu du couple du dessus, ou de la case seule, jusqu'au haut de cette case.
                const bool enHaut = i == 1;
                const std::int32_t parent = c[i - 1];
                const bool coupleAuDessus = ConjointVers(parent, c[i]) != 0;
                const double xDepart =
                    enHaut ? (coupleAuDessus ? colonne(2) - kAir / 2 : colonne(1) + r_.LC / 2)
                           : (coupleAuDessus ? (cote == 0 ? colonne(1) - kAir / 2 : colonne(3) - kAir / 2)
                                             : colonne(colP) + r_.LC / 2);
                const double yDepart = coupleAuDessus ? haut(i - 1) + r_.HC / 2 : haut(i - 1) + r_.HC;
                const double yMilieu = haut(i) - ecart / 2;
                const double xArrivee = colonne(colP) + r_.LC / 2;
                Trait(1, xDepart, yDepart, xDepart, yMilieu);
                Trait(1, xDepart, yMilieu, xArrivee, yMilieu);
                Trait(1, xArrivee, yMilieu, xArrivee, haut(i));
            }
        }
    }

    Base& b_;
    const Options& o_;
    const DemandeArbre& dem_;
    const MesureTexte& m_;
    DessinArbre r_;
};

}  // namespace

std::string NomGenreArbre(int genre) {
    switch (genre) {
        case kEtiquettes:
            return "Etiquettes";
        case kAscendant:
            return "Arbre ascendant grand format";
        case kAscendantA4:
            return "Arbre ascendant 5 generations A4";
        case kArbreParente:
            return "Arbre de parent\xE9";
        case kDescendant:
            return "Arbre descendant grand format";
        default:
            return "Arbre";
    }
}

DessinArbre DessinerArbre(Base& base, const Options& options, const DemandeArbre& demande,
                          const MesureTexte& mesure) {
    return Mise(base, options, demande, mesure).Faire();
}

double LireMillimetres(std::string_view texte) {
    std::string t(SansBlancs(texte));
    std::replace(t.begin(), t.end(), ',', '.');
    double v = 0;
    const auto [fin, erreur] = std::from_chars(t.data(), t.data() + t.size(), v);
    if (erreur != std::errc{} || fin != t.data() + t.size() || !std::isfinite(v)) return 0;
    return v;
}

std::int32_t PersonneAuPoint(const DessinArbre& d, double x, double y) {
    for (const auto& r : d.Carte.Rangees) {
        const std::size_t xy = r.texte.find("XY");
        if (xy == std::string::npos) continue;
        const double gauche = static_cast<double>(ValeurNumerique(std::string_view(r.texte).substr(0, xy)));
        const double haut = static_cast<double>(ValeurNumerique(std::string_view(r.texte).substr(xy + 2)));
        // La carte garde des millimètres entiers : la case commence au plus un millimètre plus loin.
        if (x >= gauche && x <= gauche + d.LC + 1 && y >= haut && y <= haut + d.HC + 1) return r.valeur;
    }
    return 0;
}

std::vector<std::string> CouperLigne(std::string_view ligne, double largeur, double taille,
                                     const MesureTexte& mesure) {
    std::vector<std::string> r;
    std::string_view reste = SansBlancs(ligne);
    if (reste.empty()) return {std::string()};
    while (!reste.empty()) {
        if (mesure.Largeur(reste, taille) <= largeur) {
            r.emplace_back(reste);
            break;
        }
        // Le plus long début qui tient, puis son dernier blanc ; un mot trop long se coupe où il
        // déborde, au moins d'un caractère pour avancer.
        std::size_t tient = 1;
        while (tient < reste.size() && mesure.Largeur(reste.substr(0, tient + 1), taille) <= largeur) ++tient;
        const std::size_t blanc = reste.substr(0, tient + 1).rfind(' ');
        const std::size_t coupe = blanc != std::string_view::npos && blanc > 0 ? blanc : tient;
        r.emplace_back(SansBlancsDroite(reste.substr(0, coupe)));
        reste = SansBlancsGauche(reste.substr(coupe));
    }
    return r;
}

std::string TitreArbreAscendant(const Base& base, std::int32_t n, const DateCalendrier& aujourdhui) {
    const Perso& p = PersoLu(base, n);
    return "Arbre ascendant de " + std::string(p.Nom) + " " + std::string(p.Prenoms) + " - " +
           FormatDateCourte(aujourdhui);
}

}  // namespace arbolix
