#include "kinship/sosa.h"

#include <algorithm>
#include <unordered_set>
#include <utility>
#include <vector>

#include "kinship/nombre_sosa.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::size_t kLargeurCle = 28;

// Une famille ou une personne hors des tableaux se lit comme le lien 0.
const Fami& Famille(const Base& b, std::int32_t f) {
    static const Fami vierge{};
    return f > 0 && f <= b.Familles.Haut() ? b.Familles[f] : vierge;
}
bool DansLeFichier(const Base& b, std::int32_t p) {
    return p > 0 && p <= b.Persos.Haut();
}

// Le parcours, sans récursion : un ancêtre de cent générations ou une boucle dans les liens
// ne touchent pas à la pile du processus.
class Marche {
public:
    Marche(Base& b, const ParametresSosa& p, Ascendance& a)
        : b_(b), p_(p), a_(a), surChemin_(static_cast<std::size_t>(b.Persos.Haut()) + 1, 0) {}

    void Descendre() {
        chemin_.push_back(p_.racine);
        surChemin_[p_.racine] = 1;
        Noter(p_.racine, "1");
        Entrer(p_.racine);
        while (!pile_.empty()) {
            Cadre& c = pile_.back();
            const Fami& f = Famille(b_, b_.Persos[c.perso].NumParents);
            std::int32_t parent = 0;
            bool mere = false;
            if (c.etape == 0) {
                // La mère d'abord : le père, parcouru ensuite, garde le dernier numéro d'un implexe.
                c.etape = 1;
                parent = f.Femme;
                mere = true;
            } else if (c.etape == 1) {
                c.etape = 2;
                parent = f.Mari;
            } else {
                pile_.pop_back();
                if (!pile_.empty()) Remonter();
                continue;
            }
            if (!DansLeFichier(b_, parent)) continue;
            sosa_.Doubler(mere);
            const bool boucle = surChemin_[parent] != 0;
            Visiter(parent);
            if (boucle) {
                Signaler(parent);
                Remonter();
            } else if (ArretCommun(parent) || !Entrer(parent)) {
                Remonter();
            }
        }
    }

    // Les rangées : clés de même largeur, donc l'ordre du texte est celui des nombres.
    void Ranger() {
        std::vector<Rangee> rangees;
        rangees.reserve(visites_.size());
        for (auto& [numero, n] : visites_) {
            std::string t(largeur_ - numero.size(), '0');
            t += numero;
            AjouterQueue(t, 'P', n);
            rangees.push_back({std::move(t), n});
        }
        std::sort(rangees.begin(), rangees.end(),
                  [](const Rangee& x, const Rangee& y) { return x.texte < y.texte; });
        a_.liste.Rangees = std::move(rangees);
    }

private:
    struct Cadre {
        std::int32_t perso;
        std::uint8_t etape;
    };

    // La seconde marche de la parenté s'arrête à un ancêtre du De Cujus : un ancêtre commun.
    bool ArretCommun(std::int32_t n) const {
        return !p_.tous && !std::as_const(b_.Persos)[n].Suite().NumSosa[1].empty();
    }

    // Les parents d'une personne sont parcourus s'il y en a et que la limite le permet.
    bool Entrer(std::int32_t n) {
        const std::int32_t fam = b_.Persos[n].NumParents;
        if (fam <= 0 || fam > b_.Familles.Haut()) return false;
        if (p_.maxGen > 0 && sosa_.Bits() > p_.maxGen) return false;
        const Fami& f = b_.Familles[fam];
        // Unions(0) : la famille par laquelle le parcours est arrivé au parent.
        if (DansLeFichier(b_, f.Mari)) b_.Persos[f.Mari].Unions[0] = fam;
        if (DansLeFichier(b_, f.Femme)) b_.Persos[f.Femme].Unions[0] = fam;
        b_.Persos[n].SuiteModif().CheminSosa[p_.k] = Chemin();
        pile_.push_back({n, 0});
        return true;
    }

    void Visiter(std::int32_t n) {
        const std::string numero = sosa_.Decimal();
        PersoSuite& s = b_.Persos[n].SuiteModif();
        if (!s.NumSosa[p_.k].empty()) s.AutresSosa[p_.k] = ", " + s.NumSosa[p_.k] + s.AutresSosa[p_.k];
        s.NumSosa[p_.k] = numero;
        Noter(n, numero);
        ++a_.NbAncetres;
        chemin_.push_back(n);
        ++surChemin_[n];
        if (numero.size() < 10) s.CheminSosa[p_.k] = Chemin();
    }

    void Remonter() {
        --surChemin_[chemin_.back()];
        chemin_.pop_back();
        sosa_.Diviser();
    }

    // Le chemin de l'ancêtre à la racine : "12,5,1".
    std::string Chemin() const {
        std::string s;
        for (std::size_t i = chemin_.size(); i-- > 0;) {
            s += std::to_string(chemin_[i]);
            if (i > 0) s += ',';
        }
        return s;
    }

    void Noter(std::int32_t n, std::string numero) {
        largeur_ = std::max(largeur_, numero.size());
        visites_.emplace_back(std::move(numero), n);
    }

    void Signaler(std::int32_t n) {
        if (!signales_.insert(n).second) return;
        const Perso& p = b_.Persos[n];
        a_.Journal += "Alerte : " + p.Nom + " " + p.Prenoms + " (fiche " + std::to_string(n) +
                      ") est son propre anc\xEAtre : sa branche s'arr\xEAte \xE0 sa seconde entr\xE9" +
                      "e.\r\n";
    }

private:
    Base& b_;
    const ParametresSosa& p_;
    Ascendance& a_;
    NombreSosa sosa_;
    std::vector<Cadre> pile_;
    std::vector<std::int32_t> chemin_;
    std::vector<std::uint8_t> surChemin_;
    std::vector<std::pair<std::string, std::int32_t>> visites_;
    std::size_t largeur_ = kLargeurCle;
    std::unordered_set<std::int32_t> signales_;
};

void ViderNumerotation(Base& b, int k) {
    auto& persos = std::as_const(b.Persos);
    b.Persos.PourChaqueEcrit(1, b.NbPersos, [&](std::int32_t n) {
        const PersoSuite& s = persos[n].Suite();
        if (s.NumSosa[k].empty() && s.AutresSosa[k].empty() && s.CheminSosa[k].empty()) return;
        PersoSuite& m = b.Persos[n].SuiteModif();
        m.NumSosa[k].clear();
        m.AutresSosa[k].clear();
        m.CheminSosa[k].clear();
    });
}

}  // namespace

Ascendance NumeroterAscendants(Base& base, const ParametresSosa& p) {
    Ascendance a;
    OuvrirListe(a.liste, "ascendants", "Ascendance", "", true);
    if (p.racine <= 0) return a;
    const Perso& racine = DansLeFichier(base, p.racine) ? std::as_const(base.Persos)[p.racine] : Perso{};
    if (p.k < 0 || p.k > 2 || (racine.Nom.empty() && racine.Prenoms.empty())) {
        a.Journal = "Alerte : la fiche " + std::to_string(p.racine) +
                    " n'existe pas : aucun ascendant n'est num\xE9rot\xE9.\r\n";
        return a;
    }
    ViderNumerotation(base, p.k);
    base.Persos[p.racine].SuiteModif().NumSosa[p.k] = "1";
    if (p.k == 0) base.NumDeCujus = p.racine;
    Marche m(base, p, a);
    m.Descendre();
    m.Ranger();
    // Les parents absents n'ont rien écrit dans la fiche 0 : elle reste vierge.
    base.Persos[0].Unions[0] = 0;
    return a;
}

std::string MessageSosa(const Base& base, const Ascendance& a, std::int32_t racine) {
    const Perso& p = std::as_const(base.Persos)[DansLeFichier(base, racine) ? racine : 0];
    return std::to_string(a.NbAncetres) + " anc\xEAtres trouv\xE9s pour\r\n" + p.Nom + " " + p.Prenoms;
}

std::int32_t PremierePersonne(const Base& base, std::int32_t proposee) {
    if (PersonneExiste(base, proposee)) return proposee;
    std::int32_t premiere = 0;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (premiere == 0 && PersonneExiste(base, n)) premiere = n;
    });
    return premiere;
}

Ascendance NumeroterApresLecture(Base& base, const Options& options, std::int32_t proposee) {
    return NumeroterAscendants(base, {PremierePersonne(base, proposee), 0, true, ValeurMaxGen(options)});
}

int ValeurMaxGen(const Options& options) {
    const std::int64_t v = ValeurNumerique(options.MaxGen);
    return v > 0 && v < 100000 ? static_cast<int>(v) : 0;
}

std::string NumeroDeRangee(std::string_view rangee) {
    const std::size_t fin = rangee.find(' ');
    std::string_view n = rangee.substr(0, fin);
    const std::size_t debut = n.find_first_not_of('0');
    return debut == std::string_view::npos ? "0" : std::string(n.substr(debut));
}

}  // namespace arbolix
