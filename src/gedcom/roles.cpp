#include "gedcom/roles.h"

#include <utility>

namespace arbolix {

namespace {

struct LigneRole {
    std::string_view lu;
    std::string_view traduit;
};

constexpr std::string_view kParrainMarraine = "Parrain/Marraine";

// Rôles anglais des autres logiciels, dans l'ordre de la règle.
constexpr LigneRole kRoles[] = {
    {"Witness", "T\xE9moin"},
    {"Other", "T\xE9moin"},
    {"Godparent", kParrainMarraine},
    {"Godfather", kParrainMarraine},
    {"Attending", "Participant"},
    {"Informant",
     "d\xE9"
     "clarant"},
    {"Brother/sister in law", "beau-fr\xE8re/belle-s\x9Cur"},
    {"Brother/sister", "fr\xE8re/soeur"},
    {"Father", "p\xE8re"},
    {"Mother", "m\xE8re"},
    {"Father/mother in law", "beau-p\xE8re/belle-m\xE8re"},
    {"Uncle/aunt", "oncle/tante"},
    {"Cousin", "cousin(e)"},
    {"Friend", "ami(e)"},
    {"Officiating priest", "officiant religieux"},
    {"Mentioned", "Cit\xE9"},
};

// Sexe du témoin dont dépend le parrain ; blanc quand le contexte ne le dit pas.
char SexeDuTemoin(std::string_view contexte, const Base& base, std::int32_t numCourant, int indice) {
    if (numCourant < base.Persos.Bas() || numCourant > base.Persos.Haut()) return ' ';
    if (indice < 1 || indice > kMaxTemoins) return ' ';
    const Perso& p = std::as_const(base.Persos)[numCourant];
    const Acte* a = contexte == "BIRT" || contexte == "ASSO" ? &p.Naissance
                    : contexte == "CHR"                      ? &p.Bapteme
                                                             : nullptr;
    if (!a) return ' ';
    const std::int32_t t = a->Liens().Temoins(indice);
    if (t <= 0 || t > base.Persos.Haut()) return ' ';
    return std::as_const(base.Persos)[t].Sexe;
}

}  // namespace

std::string TraduireRole(std::string_view role, std::string_view contexte, const Base& base,
                         std::int32_t numCourant, int indice) {
    for (const LigneRole& r : kRoles) {
        if (r.lu != role) continue;
        if (r.traduit != kParrainMarraine) return std::string(r.traduit);
        const char sexe = SexeDuTemoin(contexte, base, numCourant, indice);
        if (sexe == 'F') return "Marraine";
        if (sexe == 'H' || sexe == 'M') return "Parrain";
        return std::string(kParrainMarraine);
    }
    return std::string(role);
}

}  // namespace arbolix
