// Liens lus dans les fiches : pointeurs du fichier, notes et sources externes, objets médias.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "store/base.h"
#include "store/liens.h"

namespace arbolix {

class LecteurGedcom;

// "@...@" sans blanc : un pointeur GEDCOM, quel que soit son préfixe.
bool EstPointeur(std::string_view v);
// L'objet de la liste (numéros d'objets médias) dont l'un des fichiers est ce chemin ; 0 s'il n'y en a pas.
std::int32_t ObjetAuChemin(const Base& b, const Emplacements<std::int32_t, 1, kMaxLiens>& objets,
                           std::string_view chemin);

// Les objets d'une personne sont dans sa liste et dans celles de ses évènements : elle a l'objet m
// quand l'une d'elles le porte ; ObjetDeLaPersonneAuChemin rend celui qui porte ce chemin, ou 0.
bool ObjetDeLaPersonne(const Perso& p, std::int32_t m);
std::int32_t ObjetDeLaPersonneAuChemin(const Base& b, const Perso& p, std::string_view chemin);

// Ajoute un texte à un champ : le champ vide devient le texte, sinon champ, sep, texte.
// Un texte vide n'ajoute rien, pas même le séparateur.
void Ajouter(Texte& champ, std::string_view sep, std::string_view valeur);

// Pointeur du fichier vers sa forme dans la base : "@NOTE7@" donne "@N7@" (décalé
// comme les fiches de notes lues dans une base non vide).
// Le retour de lien ne se pose pas ici : la fin de lecture refait tous les retours d'après
// les textes gardés, une seule fois.
std::string LienLu(LecteurGedcom& l, std::string_view pointeur, char genre);

// Numéro d'un objet média désigné par un pointeur @M..@. Un objet local créé
// plus tôt qui occupait ce numéro part plus haut : le numéro est celui du fichier.
std::int32_t MediaDuPointeur(LecteurGedcom& l, std::string_view pointeur);
// Nouvel objet local (chemin lu sous une personne ou une famille), au-dessus du
// plus haut numéro vu. Rend son numéro.
std::int32_t NouvelObjetLocal(LecteurGedcom& l, std::string_view chemin);

// Table des balises d'une fiche (lignes { balise, ... }), consultée à chaque ligne lue :
// adressage ouvert sur une puissance de deux, sans division ni nœud à suivre. Une balise fait
// quelques lettres : ses huit premiers octets et sa longueur suffisent à la disperser. La
// première ligne d'une balise l'emporte.
template <typename Regle>
class IndexDeBalises {
public:
    template <std::size_t N>
    explicit IndexDeBalises(const Regle (&regles)[N]) {
        static_assert(N <= kCases / 2, "table des balises trop petite");
        for (const Regle& r : regles) {
            std::size_t i = Case(r.balise);
            while (cases_[i] && cases_[i]->balise != r.balise) i = (i + 1) % kCases;
            if (!cases_[i]) cases_[i] = &r;
        }
    }
    // La règle de cette balise, nul si la table ne la connaît pas.
    const Regle* Chercher(std::string_view balise) const noexcept {
        for (std::size_t i = Case(balise);; i = (i + 1) % kCases) {
            if (!cases_[i] || cases_[i]->balise == balise) return cases_[i];
        }
    }

private:
    static constexpr std::size_t kCases = 256;
    static std::size_t Case(std::string_view b) noexcept {
        std::uint64_t v = 0;
        std::memcpy(&v, b.data(), std::min<std::size_t>(b.size(), sizeof v));
        const std::uint64_t h = (v ^ b.size()) * 0x9E3779B97F4A7C15ull;
        return static_cast<std::size_t>(h >> 56);  // les octets hauts sont les mieux mêlés
    }
    std::array<const Regle*, kCases> cases_{};
};

// Une fiche de plus dans les tableaux quand un numéro dépasse la borne.
void AssurerPlace(Base& base, std::int64_t numero);

}  // namespace arbolix
