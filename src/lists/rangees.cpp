#include "lists/rangees.h"

#include <algorithm>
#include <cstdint>

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

// L'ordre des rangées par leur texte : leurs indices, la première d'abord.
std::vector<std::uint32_t> OrdreParTexte(const std::vector<Rangee>& rangees) {
    // Les seize premiers octets de chaque texte (un nom et le début d'une date) sont rangés à
    // côté de son rang : le tri ne court après les textes en mémoire qu'à égalité de tête. Le
    // rang départage les égales, dans leur ordre d'arrivée.
    struct Cle {
        std::uint64_t tete, suite;
        std::uint32_t rang;
    };
    std::vector<Cle> cles(rangees.size());
    for (std::size_t i = 0; i < rangees.size(); ++i)
        cles[i] = {Octets(rangees[i].texte, 0), Octets(rangees[i].texte, 8), static_cast<std::uint32_t>(i)};
    std::sort(cles.begin(), cles.end(), [&rangees](const Cle& a, const Cle& b) {
        if (a.tete != b.tete) return a.tete < b.tete;
        if (a.suite != b.suite) return a.suite < b.suite;
        const int c = rangees[a.rang].texte.compare(rangees[b.rang].texte);
        return c != 0 ? c < 0 : a.rang < b.rang;
    });
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
