#include "lists/rangees.h"

#include <algorithm>
#include <array>
#include <cstdint>
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

// Tri par base sur les seize octets de tête, du dernier au premier : chaque passe garde l'ordre
// de la précédente, si bien qu'à têtes égales le rang d'arrivée reste. Le temps croît comme le
// nombre de rangées ; un tri par comparaisons croissait plus vite. Un octet que toutes les têtes
// partagent ne coûte pas de passe.
void TrierParTetes(std::vector<Cle>& cles) {
    constexpr int kOctets = 16;
    const auto octet = [](const Cle& c, int k) {
        return static_cast<std::uint8_t>(k < 8 ? c.suite >> (8 * k) : c.tete >> (8 * (k - 8)));
    };
    std::vector<std::array<std::size_t, 256>> comptes(kOctets);
    for (const Cle& c : cles)
        for (int k = 0; k < kOctets; ++k) ++comptes[static_cast<std::size_t>(k)][octet(c, k)];
    std::vector<Cle> autre(cles.size());
    for (int k = 0; k < kOctets; ++k) {
        auto& places = comptes[static_cast<std::size_t>(k)];
        if (std::ranges::find(places, cles.size()) != places.end()) continue;
        std::size_t place = 0;
        for (std::size_t& n : places) place += std::exchange(n, place);
        for (const Cle& c : cles) autre[places[octet(c, k)]++] = c;
        cles.swap(autre);
    }
}

// L'ordre des rangées par leur texte : leurs indices, la première d'abord. Le tri ne court après
// les textes en mémoire qu'à égalité de tête ; le rang départage les textes égaux.
std::vector<std::uint32_t> OrdreParTexte(const std::vector<Rangee>& rangees) {
    std::vector<Cle> cles(rangees.size());
    for (std::size_t i = 0; i < rangees.size(); ++i)
        cles[i] = {Octets(rangees[i].texte, 0), Octets(rangees[i].texte, 8), static_cast<std::uint32_t>(i)};
    TrierParTetes(cles);
    const auto memeTete = [](const Cle& a, const Cle& b) { return a.tete == b.tete && a.suite == b.suite; };
    for (auto debut = cles.begin(); debut != cles.end();) {
        const auto fin = std::find_if_not(debut, cles.end(), [&](const Cle& c) { return memeTete(c, *debut); });
        if (fin - debut > 1)
            std::stable_sort(debut, fin, [&rangees](const Cle& a, const Cle& b) {
                return rangees[a.rang].texte < rangees[b.rang].texte;
            });
        debut = fin;
    }
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
        // trait en mémoire ; dans l'ordre du tri, chacun allait chercher sa fiche ailleurs. Les
        // clés sont rendues dès l'ordre connu : elles et les textes ne se cumulent pas en mémoire.
        const std::vector<std::uint32_t> ordre = OrdreParTexte(cles_);
        for (auto& r : cles_) std::string().swap(r.texte);
        std::vector<std::string> textes;
        textes.reserve(cles_.size());
        for (const auto& r : cles_) textes.push_back(affichage(r.valeur));
        liste.Rangees.reserve(liste.Rangees.size() + cles_.size());
        for (const std::uint32_t i : ordre) liste.Rangees.push_back({std::move(textes[i]), cles_[i].valeur});
    }
    cles_.clear();
}

}  // namespace arbolix
