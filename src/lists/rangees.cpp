#include "lists/rangees.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <tuple>
#include <utility>

namespace arbolix {

void OuvrirListe(ListePersonne& liste, std::string_view genre, std::string_view titre,
                 std::string_view premiereLigne, bool vider) {
    if (vider) {
        liste.Rangees.clear();
        liste.LigneDeTete = false;
    }
    liste.Titre = titre;
    liste.Genre = genre;
    if (!premiereLigne.empty()) {
        liste.Rangees.insert(liste.Rangees.begin(), Rangee{std::string(premiereLigne), 0});
        liste.LigneDeTete = true;
    }
}

std::size_t AjouterTriee(ListePersonne& liste, std::string texte, std::int32_t valeur) {
    const auto debut = liste.Rangees.begin() + (liste.LigneDeTete ? 1 : 0);
    const auto place = std::upper_bound(debut, liste.Rangees.end(), texte,
                                        [](const std::string& t, const Rangee& r) { return t < r.texte; });
    // L'insertion peut déplacer le tableau : la place se compte après.
    const auto insere = liste.Rangees.insert(place, Rangee{std::move(texte), valeur});
    return static_cast<std::size_t>(insere - liste.Rangees.begin());
}

namespace {

// Huit octets d'un texte à partir de debut, en nombre (zéros au-delà de la fin) : deux têtes
// différentes se comparent comme les textes, octets sans signe.
std::uint64_t Octets(const std::string& texte, std::size_t debut) {
    if (texte.size() >= debut + 8) {  // le cas courant : huit octets lus d'un coup
        std::uint64_t t;
        std::memcpy(&t, texte.data() + debut, 8);
        if constexpr (std::endian::native == std::endian::little) t = __builtin_bswap64(t);
        return t;
    }
    std::uint64_t t = 0;
    for (std::size_t i = debut; i < debut + 8; ++i)
        t = t << 8 | (i < texte.size() ? static_cast<unsigned char>(texte[i]) : 0u);
    return t;
}

// Les seize premiers octets d'un texte (un nom et le début d'une date), en deux nombres, à côté
// du rang de sa rangée.
struct Cle {
    std::uint64_t tete, suite;
    std::uint32_t rang;
};

// L'octet k de la tête, compté depuis le dernier (0) jusqu'au premier (15).
std::uint8_t OctetDeTete(const Cle& c, int k) {
    return static_cast<std::uint8_t>(k < 8 ? c.suite >> (8 * k) : c.tete >> (8 * (k - 8)));
}

// Tri par base des n clés sur leurs octets de tête 0 à dernier, du dernier au premier : chaque
// passe garde l'ordre de la précédente, si bien qu'à têtes égales le rang d'arrivée reste. Un
// octet que toutes les têtes partagent ne coûte pas de passe. autre sert de brouillon.
void TrierParOctets(Cle* cles, Cle* autre, std::size_t n, int dernier) {
    std::vector<std::array<std::uint32_t, 256>> comptes(static_cast<std::size_t>(dernier) + 1);
    for (std::size_t i = 0; i < n; ++i)
        for (int k = 0; k <= dernier; ++k) ++comptes[static_cast<std::size_t>(k)][OctetDeTete(cles[i], k)];
    Cle* de = cles;
    Cle* vers = autre;
    for (int k = 0; k <= dernier; ++k) {
        auto& places = comptes[static_cast<std::size_t>(k)];
        if (std::ranges::find(places, n) != places.end()) continue;
        std::uint32_t place = 0;
        for (std::uint32_t& c : places) place += std::exchange(c, place);
        for (std::size_t i = 0; i < n; ++i) vers[places[OctetDeTete(de[i], k)]++] = de[i];
        std::swap(de, vers);
    }
    if (de != cles) std::copy(de, de + n, cles);
}

// D'abord une passe sur le premier octet, puis chaque paquet à part : ses passes restent dans
// le cache, là où celles du tableau entier allaient chaque fois jusqu'à la mémoire. Le temps
// croît comme le nombre de rangées.
void TrierParTetes(std::vector<Cle>& cles) {
    constexpr int kPremier = 15;
    std::array<std::size_t, 257> debuts{};
    for (const Cle& c : cles) ++debuts[OctetDeTete(c, kPremier) + 1u];
    for (std::size_t b = 1; b < debuts.size(); ++b) debuts[b] += debuts[b - 1];
    std::vector<Cle> autre(cles.size());
    std::array<std::size_t, 256> places{};
    std::copy(debuts.begin(), debuts.end() - 1, places.begin());
    for (const Cle& c : cles) autre[places[OctetDeTete(c, kPremier)]++] = c;
    for (std::size_t b = 0; b < 256; ++b) {
        const std::size_t n = debuts[b + 1] - debuts[b];
        if (n > 1) TrierParOctets(autre.data() + debuts[b], cles.data() + debuts[b], n, kPremier - 1);
    }
    cles.swap(autre);
}

// Les seize octets qui suivent la tête de chaque texte, par rang : tirés avec la tête, d'un trait
// en mémoire, ils départagent les premiers ex æquo sans aller chercher leurs textes au hasard.
using Suites = std::vector<std::array<std::uint64_t, 2>>;

// Les clés de [debut, fin) ont les mêmes seize octets à partir de depuis - 16, et sont dans
// l'ordre d'arrivée. Les seize suivants de chaque texte, tirés une fois, les départagent ; au-delà
// de quelques tours, les textes entiers. Dans un gros fichier, un tiers des personnes partagent
// leurs seize premiers octets (même nom, même début de date) avec une autre.
void Departager(std::vector<Cle>::iterator debut, std::vector<Cle>::iterator fin,
                const std::vector<Rangee>& rangees, const Suites& suites, std::size_t depuis) {
    const auto memeTete = [](const Cle& a, const Cle& b) { return a.tete == b.tete && a.suite == b.suite; };
    while (debut != fin) {
        const auto finEgales =
            std::find_if_not(debut, fin, [&](const Cle& c) { return memeTete(c, *debut); });
        if (finEgales - debut > 1 && depuis >= 64) {
            std::stable_sort(debut, finEgales, [&rangees](const Cle& a, const Cle& b) {
                return rangees[a.rang].texte < rangees[b.rang].texte;
            });
        } else if (finEgales - debut > 1) {
            for (auto c = debut; c != finEgales; ++c) {
                const std::string& t = rangees[c->rang].texte;
                *c = depuis == 16 ? Cle{suites[c->rang][0], suites[c->rang][1], c->rang}
                                  : Cle{Octets(t, depuis), Octets(t, depuis + 8), c->rang};
            }
            std::sort(debut, finEgales, [](const Cle& a, const Cle& b) {
                return std::tie(a.tete, a.suite, a.rang) < std::tie(b.tete, b.suite, b.rang);
            });
            Departager(debut, finEgales, rangees, suites, depuis + 16);
        }
        debut = finEgales;
    }
}

// L'ordre des rangées par leur texte : leurs indices, la première d'abord. Le rang départage les
// textes égaux.
std::vector<std::uint32_t> OrdreParTexte(const std::vector<Rangee>& rangees) {
    std::vector<Cle> cles(rangees.size());
    Suites suites(rangees.size());
    for (std::size_t i = 0; i < rangees.size(); ++i) {
        const std::string& t = rangees[i].texte;
        cles[i] = {Octets(t, 0), Octets(t, 8), static_cast<std::uint32_t>(i)};
        suites[i] = {Octets(t, 16), Octets(t, 24)};
    }
    TrierParTetes(cles);
    Departager(cles.begin(), cles.end(), rangees, suites, 16);
    std::vector<std::uint32_t> ordre(cles.size());
    for (std::size_t i = 0; i < cles.size(); ++i) ordre[i] = cles[i].rang;
    return ordre;
}

}  // namespace

void TrierParTexte(std::vector<Rangee>& rangees) {
    std::vector<Rangee> triees;
    triees.reserve(rangees.size());
    for (const std::uint32_t i : OrdreParTexte(rangees)) triees.push_back(std::move(rangees[i]));
    rangees.swap(triees);
}

void AjouterTriees(ListePersonne& liste, std::vector<Rangee> rangees) {
    TrierParTexte(rangees);
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        for (auto& r : rangees) AjouterTriee(liste, std::move(r.texte), r.valeur);
        return;
    }
    liste.Rangees.reserve(liste.Rangees.size() + rangees.size());
    for (auto& r : rangees) liste.Rangees.push_back(std::move(r));
}

void RemplissageTrie::Terminer(ListePersonne& liste,
                               const std::function<std::string(std::int32_t)>& affichage) {
    // Les octets sans signe : l'ordre « simple » des caractères 1252.
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        // Liste non vidée : chaque clé prend sa place parmi les textes déjà là, comme
        // l'insertion triée du contrôle ; puis son texte est récrit sans la bouger.
        TrierParTexte(cles_);
        for (auto& r : cles_) {
            const std::size_t i = AjouterTriee(liste, std::move(r.texte), r.valeur);
            liste.Rangees[i].texte = affichage(r.valeur);
        }
    } else {
        // Les textes se font dans l'ordre d'arrivée, celui des fiches, qui se lisent alors d'un
        // trait en mémoire ; dans l'ordre du tri, chacun allait chercher sa fiche ailleurs. Chaque
        // texte prend la place de sa clé, rendue dès l'ordre connu : elles ne se cumulent pas.
        const std::vector<std::uint32_t> ordre = OrdreParTexte(cles_);
        for (auto& r : cles_) {
            std::string().swap(r.texte);
            r.texte = affichage(r.valeur);
        }
        liste.Rangees.reserve(liste.Rangees.size() + cles_.size());
        for (const std::uint32_t i : ordre) liste.Rangees.push_back(std::move(cles_[i]));
    }
    cles_.clear();
}

}  // namespace arbolix
