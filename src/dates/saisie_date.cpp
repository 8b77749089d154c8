#include "dates/saisie_date.h"

#include <algorithm>
#include <array>
#include <vector>

#include "dates/age.h"
#include "dates/calendrier_gregorien.h"
#include "dates/calendrier_republicain.h"
#include "dates/cle_date.h"
#include "dates/date_gedcom.h"
#include "dates/parse_date.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

bool DateSaisieComplete(std::string_view texte) {
    static constexpr std::string_view kRetires[] = {" ", "+",    "-",     "*",       "/",
                                                    ".", "vers", "avant", "apr\xE8s"};
    std::string reste(texte);
    for (auto r : kRetires) reste = Remplacer(reste, r, "");
    return reste.size() == 8 && EstChiffre(reste[0]);
}

std::string JourDeLaSemaineEnLettres(std::string_view date) {
    static constexpr std::array<std::string_view, 7> kJours = {"dimanche", "lundi",    "mardi", "mercredi",
                                                               "jeudi",    "vendredi", "samedi"};
    const auto d = LireDate(date);
    return d ? std::string(kJours[JourDeLaSemaine(NumeroJour(*d))]) : std::string();
}

bool AnneeRevolutionnaire(std::string_view date) {
    const auto annee = ValeurNumerique(Droite(date, 4));
    return annee >= 1793 && annee <= 1805;
}

std::string DateDeLAge(std::int16_t anneeNaissance, std::string_view age) {
    if (anneeNaissance <= 0 || age.empty()) return {};
    return std::to_string(anneeNaissance + ValeurNumerique(age));
}

std::int16_t AnneeSaisie(std::string_view date) {
    if (LireJourEtMois(date)) return 0;
    return static_cast<std::int16_t>(ValeurNumerique(Droite(date, 4)));
}

namespace {

struct MotDeMois {
    std::string_view mot;
    int mois;
};

// Mots de mois admis en saisie, en minuscules : français entiers et abrégés, avec et
// sans accent, et les abréviations GEDCOM.
// clang-format off
constexpr MotDeMois kMotsDeMois[] = {
    {"janvier", 1}, {"janv", 1}, {"jan", 1},
    {"f\xE9vrier", 2}, {"fevrier", 2}, {"f\xE9vr", 2}, {"fevr", 2}, {"f\xE9v", 2}, {"fev", 2}, {"feb", 2},
    {"mars", 3}, {"mar", 3},
    {"avril", 4}, {"avr", 4}, {"apr", 4},
    {"mai", 5}, {"may", 5},
    {"juin", 6}, {"jun", 6},
    {"juillet", 7}, {"juil", 7}, {"jul", 7},
    {"ao\xFBt", 8}, {"aout", 8}, {"aug", 8},
    {"septembre", 9}, {"sept", 9}, {"sep", 9},
    {"octobre", 10}, {"oct", 10},
    {"novembre", 11}, {"nov", 11},
    {"d\xE9" "cembre", 12}, {"decembre", 12}, {"d\xE9" "c", 12}, {"dec", 12},
};
// clang-format on

// Mots des formes françaises d'intervalle ; "premier" : seulement en tête du texte.
struct MotFrancais {
    std::string_view mot;
    std::string_view parse;
    bool premier;
};

constexpr MotFrancais kMotsFrancais[] = {
    {"entre", "bet", true}, {"et", "and", false}, {"de", "from", true}, {"\xE0", "to", false}};

bool EstLettre(char c) {
    const auto u = static_cast<unsigned char>(c);
    return (u >= 'a' && u <= 'z') || (u >= 0xDF && u != 0xF7);
}

bool EstSeparateur(char c) {
    return c == ' ' || c == '/' || c == '-' || c == '.';
}

int MoisDuMot(std::string_view mot) {
    for (const auto& m : kMotsDeMois)
        if (m.mot == mot) return m.mois;
    return 0;
}

// Un jour tapé juste avant, séparateurs sautés ("12 ", "1er ", "12/").
bool JourAvant(std::string_view avant) {
    while (!avant.empty() && EstSeparateur(avant.back())) avant.remove_suffix(1);
    return !avant.empty() && EstChiffre(avant.back());
}

}  // namespace

std::string TraduireSaisieDate(std::string_view texte) {
    const std::string t = EnMinuscules(texte);
    std::string r;
    for (std::size_t i = 0; i < t.size();) {
        if (!EstLettre(t[i])) {
            r += t[i++];
            continue;
        }
        std::size_t fin = i;
        while (fin < t.size() && EstLettre(t[fin])) ++fin;
        const std::string_view mot = std::string_view(t).substr(i, fin - i);
        const bool enTete = r.find_first_not_of(' ') == std::string::npos;
        if (mot == "er" && i > 0 && EstChiffre(t[i - 1])) {
            // "1er mai" : le jour seul
        } else if (const int mois = MoisDuMot(mot)) {
            r += JourAvant(r) ? std::string(MoisGedcom[static_cast<std::size_t>(mois)]) : Zeros(mois, 2);
            if (fin < t.size() && t[fin] == '.') ++fin;  // "févr." : le point de l'abréviation
        } else {
            std::string_view remplace = mot;
            for (const auto& f : kMotsFrancais)
                if (f.mot == mot && (enTete || !f.premier)) remplace = f.parse;
            r += remplace;
        }
        i = fin;
    }
    return r;
}

namespace {

// Date républicaine laissée telle quelle (conversion coupée) : "12/vend/03", "12/br/3".
bool FormeRepublicaine(std::string_view partie) {
    const auto b1 = partie.find('/');
    const auto b2 = partie.rfind('/');
    if (b1 == std::string_view::npos || b1 == b2) return false;
    const std::string_view jour = partie.substr(0, b1), mois = partie.substr(b1 + 1, b2 - b1 - 1),
                           an = partie.substr(b2 + 1);
    const bool moisConnu =
        std::find(MoisRepublicains.begin() + 1, MoisRepublicains.end(), mois) != MoisRepublicains.end() ||
        std::find(CodesMoisRepublicains.begin() + 1, CodesMoisRepublicains.end(), mois) !=
            CodesMoisRepublicains.end();
    return moisConnu && EstNumerique(jour) && jour.size() <= 2 && EstNumerique(an) && an.size() <= 2 &&
           ValeurNumerique(an) >= 1 && ValeurNumerique(an) <= 14 && ValeurNumerique(jour) >= 1 &&
           ValeurNumerique(jour) <= 30;
}

enum class Partie { Valide, Impossible, Inconnue };

// Une date sans préfixe ni intervalle : année, mois et année, jour et mois, date entière.
Partie LirePartie(std::string_view p) {
    if (p.empty()) return Partie::Inconnue;
    if (FormeRepublicaine(p)) return Partie::Valide;
    std::vector<std::string_view> n;
    for (std::size_t debut = 0;;) {
        const auto barre = p.find('/', debut);
        n.push_back(p.substr(debut, barre - debut));
        if (barre == std::string_view::npos) break;
        debut = barre + 1;
    }
    for (const auto& x : n)
        if (!EstNumerique(x) || x.size() > 4) return Partie::Inconnue;
    const auto v = [&](std::size_t i) { return ValeurNumerique(n[i]); };
    switch (n.size()) {
        case 1:
            return Partie::Valide;
        case 2:
            if (n[1].size() >= 3)
                return v(0) <= 12 ? Partie::Valide : Partie::Impossible;  // 00/1750 : les actes
            if (LireJourEtMois(p)) return Partie::Valide;
            if (v(1) > 12 && v(0) >= 1 && v(0) <= 12) return Partie::Valide;  // "03/50", année courte
            return v(0) <= 31 && v(1) <= 12 ? Partie::Impossible : Partie::Inconnue;  // "31/04"
        case 3:
            if (EstDate(p)) return Partie::Valide;
            // Jour ou mois inconnus des tables d'actes : 00/03/1750, 00/00/1750.
            if (v(0) == 0 && v(1) <= 12 && n[2].size() >= 3) return Partie::Valide;
            return Partie::Impossible;
        default:
            return Partie::Inconnue;
    }
}

constexpr std::string_view kPrefixesSaisie[] = {"avant ", "apr\xE8s ", "vers ", "entre ", "de ", " \xE0 "};

}  // namespace

std::string DateNonValide(std::string_view date) {
    if (date.empty()) return {};
    std::string_view reste = date;
    for (const auto p : kPrefixesSaisie)
        if (reste.starts_with(p)) {
            reste.remove_prefix(p.size());
            break;
        }
    std::vector<std::string_view> parties;
    for (const std::string_view lien : {" et ", " \xE0 "})
        if (const auto k = reste.find(lien); k != std::string_view::npos && parties.empty()) {
            parties = {reste.substr(0, k), reste.substr(k + lien.size())};
        }
    if (parties.empty()) parties = {reste};
    Partie pire = Partie::Valide;
    for (const auto p : parties) {
        const Partie lue = LirePartie(p);
        if (lue == Partie::Inconnue) pire = lue;
        if (lue == Partie::Impossible && pire == Partie::Valide) pire = lue;
    }
    const std::string cite = "La date \xAB " + std::string(date) + " \xBB ";
    if (pire == Partie::Impossible) return cite + "n'existe pas : v\xE9rifiez le jour et le mois.";
    if (pire == Partie::Inconnue)
        return cite +
               "n'est pas reconnue. Tapez par exemple 12/03/1750, 12 mars 1750, mars 1750, vers 1750, avant "
               "1750, apr\xE8s 1750, entre 1750 et 1760, de 1750 \xE0 1760.";
    return {};
}

void QuitterDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx) {
    if (champs.Date.empty()) return;
    acteCourant.Notes.clear();
    ContexteDate contexte;
    contexte.NumCourant = ctx.numCourant;
    contexte.NbFamis = ctx.nbFamis;
    contexte.ConvCalRep = ctx.convCalRep;
    contexte.EvenementVisible = true;
    champs.Date = ParseDate(TraduireSaisieDate(champs.Date), acteCourant, contexte).str();
    if (const std::string jour = JourDeLaSemaineEnLettres(champs.Date); !jour.empty())
        champs.LabelDate = jour;
    if (AnneeRevolutionnaire(champs.Date) && champs.Notes.empty()) champs.Notes = acteCourant.Notes.str();
    const bool ageVoulu = ctx.genre == 'D' || ctx.genre == 'M' || ctx.genre == 'X';
    if (ageVoulu && champs.Age.empty() && ctx.naissance && ctx.naissance->Annee > 0)
        champs.Age = AgeA(*ctx.naissance, champs.Date, true, false, ctx.ageMaxiDeces);
}

void QuitterAge(ChampsDate& champs, const ContexteSaisie& ctx, bool ageModifiable) {
    if (champs.Age.empty() || !ageModifiable || !champs.Date.empty() || !ctx.naissance) return;
    champs.Date = DateDeLAge(ctx.naissance->Annee, champs.Age);
}

std::string ValiderDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx, bool relire,
                        bool verifier) {
    const Acte avant = verifier ? acteCourant : Acte{};
    if (relire) QuitterDate(champs, acteCourant, ctx);
    if (verifier)
        if (std::string motif = DateNonValide(champs.Date); !motif.empty()) {
            acteCourant = avant;
            return motif;
        }
    acteCourant.Date = champs.Date;
    acteCourant.DateTri = CleDate(champs.Date);
    acteCourant.Annee = AnneeSaisie(champs.Date);
    return {};
}

}  // namespace arbolix
