#include "card/navigation.h"

#include <string>

#include "card/lignes_personne.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// La date républicaine que le programme écrit lui-même dans une note ("12/vend/03").
constexpr std::string_view kDateRepublicaine = "?\?/?\?\?\?/?\?";

// Une note d'évènement compte sauf si elle n'est que la date républicaine écrite par le programme.
bool NoteQuiCompte(const Texte& note) {
    return !note.empty() && !Comme(note.vue(), kDateRepublicaine);
}

// Le nombre sans zéros de tête, pour comparer des numéros Sosa trop grands pour un entier.
std::string_view SansZeros(std::string_view s) {
    while (s.size() > 1 && s.front() == '0') s.remove_prefix(1);
    return s;
}

bool ContientNombre(std::string_view texte, std::string_view nombre) {
    std::size_t i = 0;
    while (i < texte.size()) {
        if (!EstChiffre(texte[i])) {
            ++i;
            continue;
        }
        std::size_t j = i;
        while (j < texte.size() && EstChiffre(texte[j])) ++j;
        if (SansZeros(texte.substr(i, j - i)) == nombre) return true;
        i = j;
    }
    return false;
}

}  // namespace

bool APersonneDesNotes(const Base& base, std::int32_t n) {
    const Perso& p = PersoLu(base, n);
    if (!p.Notes.empty() || NoteQuiCompte(p.Naissance.Notes) || NoteQuiCompte(p.Deces.Notes)) return true;
    for (int u = 1; u <= kMaxUnions; ++u)
        if (p.Unions[u] != 0 && NoteQuiCompte(FamiLue(base, p.Unions[u]).Mariage.Notes)) return true;
    return false;
}

std::int32_t Parcourir(const Base& base, std::int32_t depart, int code) {
    const std::int32_t dernier = base.NbPersos;
    if (dernier < 1) return depart;
    std::int32_t i = depart;
    do {
        if (code % 3 == 0) i = i >= dernier ? 1 : i + 1;
        if (code % 5 == 0) i = i < 2 ? dernier : i - 1;
        if (i == depart) break;
        const Perso& p = PersoLu(base, i);
        if (p.Sel != 0 && (code % 2 != 0 || APersonneDesNotes(base, i))) break;
    } while (i != dernier);
    return i;
}

std::optional<std::int32_t> ChercherSosa(const Base& base, std::string_view sosa) {
    const std::string_view cherche = SansZeros(SansBlancs(sosa));
    if (cherche.empty() || !EstNumerique(cherche)) return std::nullopt;
    for (std::int32_t i = 1; i <= base.NbPersos; ++i) {
        if (base.Persos.PageVierge(i)) {
            i = base.Persos.FinDePage(i);
            continue;
        }
        const PersoSuite& s = base.Persos[i].Suite();
        if (s.NumSosa[0].empty()) continue;
        if (ContientNombre(s.NumSosa[0].vue(), cherche) || ContientNombre(s.AutresSosa[0].vue(), cherche))
            return i;
    }
    return std::nullopt;
}

std::optional<std::int32_t> ToucheNumPerso(const Base& base, std::int32_t actuel, char touche) {
    switch (touche) {
        case 'f':
        case 'F': {
            const Fami& f = FamiLue(base, PersoLu(base, actuel).NumParents);
            return f.Mari > 0 ? f.Mari : f.Femme > 0 ? f.Femme : actuel;
        }
        case 's':
        case 'S':
            return ChercherSosa(base, std::to_string(actuel)).value_or(actuel);
        case '+':
            return Parcourir(base, actuel, 3);
        case '-':
            return Parcourir(base, actuel, 5);
        case '*':
            return Parcourir(base, actuel, 6);
        case '/':
            return Parcourir(base, actuel, 10);
        default:
            return std::nullopt;
    }
}

}  // namespace arbolix
