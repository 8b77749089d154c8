#include "card/acte_courant.h"

#include <array>

#include "card/notes.h"
#include "dates/cle_date.h"
#include "store/chaines.h"
#include "store/liens.h"

namespace arbolix {

namespace {

constexpr std::array<GenreActe, 8> kGenres{{
    {'N', "Naissance de ", &Perso::Naissance, nullptr, 1},
    {'B', "Bapt\xEAme de ", &Perso::Bapteme, nullptr, 2},
    {'D', "D\xE9" "c\xE8s de ", &Perso::Deces, nullptr, 3},
    {'S', "S\xE9pulture de ", &Perso::Sepulture, nullptr, 4},
    {'M', "Mariage de ", nullptr, &Fami::Mariage, 2},
    {'C', "Contrat de mariage de ", nullptr, &Fami::Contrat, 1},
    {'X', "Divorce de ", nullptr, &Fami::Divorce, 3},
    {'Z', "Conversion du calendrier r\xE9publicain", nullptr, nullptr},
}};

constexpr std::string_view kSeparateurRole = " : ";

}  // namespace

const GenreActe* TrouverGenre(char lettre) {
    for (const auto& g : kGenres)
        if (g.lettre == lettre) return &g;
    return nullptr;
}

Acte* ActeDuGenre(Base& base, char genre, std::int32_t p, std::int32_t f) {
    const GenreActe* g = TrouverGenre(genre);
    if (!g) return nullptr;
    if (g->champPerso && p > 0 && p <= base.Persos.Haut()) return &(base.Persos[p].*(g->champPerso));
    if (g->champFami && f > 0 && f <= base.Familles.Haut()) return &(base.Familles[f].*(g->champFami));
    return nullptr;
}

bool AgeModifiable(char genre) {
    return genre == 'D' || genre == 'M' || genre == 'X';
}

std::string AgeAffiche(char genre, const Acte& naissance, const Acte& acte) {
    if (genre == 'N' || naissance.Annee == 0 || acte.Annee == 0) return {};
    return std::to_string(acte.Annee - naissance.Annee);
}

std::vector<Temoin> LireTemoins(const Acte& acte) {
    std::vector<Temoin> r;
    const LiensActe& l = acte.Liens();
    for (int i = 1; i <= kMaxTemoins && l.Temoins(i) != 0; ++i) r.push_back({l.Temoins(i), l.RolesTemoins(i).str()});
    return r;
}

void EcrireTemoins(Acte& acte, const std::vector<Temoin>& temoins) {
    // Rien à écrire sur un acte qui n'a jamais eu de témoin : ses liens restent partagés.
    if (temoins.empty() && acte.Liens().Temoins.empty() && acte.Liens().RolesTemoins.empty()) return;
    LiensActe& l = acte.LiensModif();
    l.Temoins.clear();
    l.RolesTemoins.clear();
    for (std::size_t i = 0; i < temoins.size() && i < static_cast<std::size_t>(kMaxTemoins); ++i) {
        l.Temoins.Fixer(static_cast<int>(i) + 1, temoins[i].numero);
        l.RolesTemoins.Fixer(static_cast<int>(i) + 1, Texte(temoins[i].role));
    }
}

std::string LigneTemoin(std::string_view personne, std::string_view role, std::int32_t numero) {
    return std::string(personne) + std::string(kSeparateurRole) + std::string(role) + " P" + Zeros(numero, 6);
}

Temoin TemoinDeLigne(std::string_view ligne) {
    Temoin t;
    if (ligne.size() < 8) return t;
    const std::string_view fin = Droite(ligne, 6);
    if (EstNumerique(fin)) t.numero = static_cast<std::int32_t>(ValeurNumerique(fin));
    const std::string_view avant = ligne.substr(0, ligne.size() - 8);
    const auto pos = avant.find(kSeparateurRole);
    if (pos != std::string_view::npos) t.role = avant.substr(pos + kSeparateurRole.size());
    return t;
}

std::string LigneTemoinChoisi(std::string_view candidat) {
    if (candidat.size() < 8) return std::string(candidat);
    return std::string(candidat.substr(0, candidat.size() - 8)) + std::string(kSeparateurRole) + "t\xE9moin" +
           std::string(Droite(candidat, 8));
}

void EnregistrerActe(Base& base, char genre, std::int32_t p, std::int32_t f, std::string_view age,
                     double maintenant, Dialogue* dialogue) {
    Acte* cible = ActeDuGenre(base, genre, p, f);
    if (!cible) return;
    const GenreActe* g = TrouverGenre(genre);
    // Note et source passent par leurs champs de lien, pour que les retours suivent.
    const Texte notes = base.ActeCourant.Notes, source = base.ActeCourant.Source;
    const Texte anciennesNotes = cible->Notes, ancienneSource = cible->Source;
    *cible = base.ActeCourant;
    cible->Notes = anciennesNotes;
    cible->Source = ancienneSource;
    const bool famille = g->champFami != nullptr;
    const std::int32_t qui = famille ? f : p;
    ChangerChamp(base, ChampLien{famille, qui, g->rang, false}, notes.vue(), dialogue);
    ChangerChamp(base, ChampLien{famille, qui, g->rang, true}, source.vue(), dialogue);
    if (famille) {
        const Fami& fa = base.Familles[f];
        if (fa.Mari > 0) TrierUnions(base, fa.Mari);
        if (fa.Femme > 0) TrierUnions(base, fa.Femme);
        base.Familles[f].DateModif = maintenant;
    } else {
        base.Persos[p].DateModif = maintenant;
    }
    // Un âge sans naissance connue date la naissance, à l'année.
    const auto ans = ValeurNumerique(age);
    if (genre != 'N' && ans > 0 && p > 0 && base.Persos[p].Naissance.Date.empty() && base.ActeCourant.Annee > 0) {
        Acte& naissance = base.Persos[p].Naissance;
        naissance.Date = std::to_string(base.ActeCourant.Annee - ans);
        naissance.DateTri = CleDate(naissance.Date.vue());
        naissance.Annee = static_cast<std::int16_t>(base.ActeCourant.Annee - ans);
    }
    base.FichierModifie = kVrai;
}

}  // namespace arbolix
