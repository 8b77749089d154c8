#include "dates/saisie_date.h"

#include <array>

#include "dates/age.h"
#include "dates/calendrier_gregorien.h"
#include "dates/cle_date.h"
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
    return static_cast<std::int16_t>(ValeurNumerique(Droite(date, 4)));
}

void QuitterDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx) {
    if (champs.Date.empty()) return;
    acteCourant.Notes.clear();
    ContexteDate contexte;
    contexte.NumCourant = ctx.numCourant;
    contexte.NbFamis = ctx.nbFamis;
    contexte.ConvCalRep = ctx.convCalRep;
    contexte.EvenementVisible = true;
    champs.Date = ParseDate(champs.Date, acteCourant, contexte).str();
    if (const std::string jour = JourDeLaSemaineEnLettres(champs.Date); !jour.empty()) champs.LabelDate = jour;
    if (AnneeRevolutionnaire(champs.Date) && champs.Notes.empty()) champs.Notes = acteCourant.Notes.str();
    const bool ageVoulu = ctx.genre == 'D' || ctx.genre == 'M' || ctx.genre == 'X';
    if (ageVoulu && champs.Age.empty() && ctx.naissance && ctx.naissance->Annee > 0)
        champs.Age = AgeA(*ctx.naissance, champs.Date, true, false, ctx.ageMaxiDeces);
}

void QuitterAge(ChampsDate& champs, const ContexteSaisie& ctx, bool ageModifiable) {
    if (champs.Age.empty() || !ageModifiable || !champs.Date.empty() || !ctx.naissance) return;
    champs.Date = DateDeLAge(ctx.naissance->Annee, champs.Age);
}

void ValiderDate(ChampsDate& champs, Acte& acteCourant, const ContexteSaisie& ctx, bool relire) {
    if (relire) QuitterDate(champs, acteCourant, ctx);
    acteCourant.Date = champs.Date;
    acteCourant.DateTri = CleDate(champs.Date);
    acteCourant.Annee = AnneeSaisie(champs.Date);
}

}  // namespace arbolix
