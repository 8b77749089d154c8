// Les listes de candidats que montre la fenêtre de choix pour lier des parents, un conjoint, un enfant, un témoin.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Ce que la fenêtre de choix reçoit : le titre, le genre de liste, la première
// ligne (créer une fiche) et les lignes triées. Chaque ligne finit par " F" ou
// " P" et six chiffres : c'est ce que la commande relit après le choix.
struct ListeCandidats {
    std::string genre;  // "parents", "conjoint", "enfants", "temoins"
    std::string titre;
    std::string premiereLigne;  // vide : pas de ligne de création
    std::vector<std::string> lignes;
};

// La personne sur une ligne ("Prénoms Nom ° date ...") : fournie par l'affichage de la fiche.
using LigneDePersonne = std::function<std::string(std::int32_t)>;

// Numéro des six derniers chiffres d'une ligne, 0 s'il n'y en a pas.
std::int32_t NumeroDeLigne(std::string_view ligne);

// Familles où p pourrait être enfant : même code du nom que le père (ou la mère
// sans père), père né dans l'écart d'âge permis. Première ligne " Ajouter..." (numéro 0).
ListeCandidats CandidatsParents(const Base& base, const Options& options, std::int32_t p);

// Conjoints possibles : autre sexe, nom non vide, années compatibles ; sans les
// conjoints actuels. Première ligne : la fiche neuve au numéro libre donné.
ListeCandidats CandidatsConjoint(const Base& base, const Options& options, std::int32_t p,
                                 std::int32_t numeroLibre, const LigneDePersonne& ligneCourte);

// Enfants possibles de la famille f vue de p : sans parents, du nom d'un des
// conjoints, nés dans l'écart permis après p.
ListeCandidats CandidatsEnfant(const Base& base, const Options& options, std::int32_t p, std::int32_t f,
                               std::int32_t numeroLibre, const LigneDePersonne& ligneCourte);

// Témoins possibles d'un acte daté : vivants et majeurs l'année de la date.
ListeCandidats CandidatsTemoin(const Base& base, const Options& options, std::string_view date,
                               const LigneDePersonne& ligneCourte);

}  // namespace arbolix
