// Fusionner deux fiches qui décrivent la même personne : champ par champ, parents, fichiers, unions.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "card/candidats.h"
#include "card/edition_liens.h"

namespace arbolix {

// La liste "fusion" : les autres personnes du même sexe et du même code de nom, nées
// dans l'écart d'âge permis entre conjoints (ou sans date de naissance). La personne
// elle-même n'y est jamais.
ListeCandidats CandidatsFusion(const Base& base, const Options& options, std::int32_t p,
                               const LigneDePersonne& ligneCourte);

struct ChampFusion;

// Une rangée de la liste "fusion2" : l'union d'une des deux fiches.
struct RangeeFusion {
    std::string texte;
    std::int32_t famille = 0;   // 0 : la première rangée, « Terminer »
    std::int32_t personne = 0;  // la fiche dont c'est l'union
};

// Une fusion en cours. Commencer fait tout jusqu'aux unions (les questions passent
// par le Dialogue) ; la liste des unions reste ouverte tant que Terminer refuse.
class Fusion {
public:
    // a : la fiche affichée, c : celle choisie dans la liste. La plus basse des deux
    // reste. Rien quand a et c sont la même fiche ou que l'une n'est pas en usage.
    static std::optional<Fusion> Commencer(Edition& e, std::int32_t a, std::int32_t c);

    std::int32_t Gardee() const { return k_; }
    std::int32_t Retiree() const { return r_; }
    // "Liste des unions à conserver ..." ; la première rangée termine la fusion.
    static std::string TitreUnions();
    const std::vector<RangeeFusion>& Rangees() const { return rangees_; }
    // Faux quand les deux fiches n'ont qu'une union à elles deux : la liste ne se montre
    // pas et Terminer suit aussitôt.
    bool ListeUtile() const;

    // Double clic sur une rangée d'union : l'union est retirée du côté de sa fiche
    // (SupprimerUnion) et la rangée disparaît. Rien pour la première rangée.
    void RetirerUnion(std::size_t rangee);

    // Double clic sur la première rangée. Plus de sept unions : un message, et la
    // liste reste (faux). Sinon la fiche gardée prend les unions, l'autre est effacée.
    bool Terminer();
    bool Terminee() const { return terminee_; }

private:
    Fusion(Edition& e, std::int32_t k, std::int32_t r) : e_(e), k_(k), r_(r) {}
    void ComparerChamps();
    std::optional<std::string> Demander(const ChampFusion& c, const Texte& garde, const Texte& autre);
    void ReunirFichiers();
    std::vector<std::string> CheminsGardes() const;
    void ReunirLiensActes();
    void ChoisirParents();
    void RemplirRangees();
    std::vector<std::int32_t> FamillesRestantes() const;

    Edition e_;
    std::int32_t k_, r_;
    std::vector<RangeeFusion> rangees_;
    std::vector<std::pair<char, std::int32_t>> cites_;  // notes, sources et objets cités par l'une ou l'autre
    bool terminee_ = false;
};

}  // namespace arbolix
