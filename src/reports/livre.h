// Le livre des familles : la numérotation des familles et des personnes isolées (que les pages
// web reprennent), le bloc d'une famille et le livre RTF entier.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "reports/contexte_export.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// entrees[n], n de 1 au total : une famille (> 0) ou une personne isolée (< 0). entrees[0] vaut 0.
struct NumerotationLivre {
    std::vector<std::int32_t> entrees{0};
    std::int32_t Total() const { return static_cast<std::int32_t>(entrees.size()) - 1; }
};

// NumeroterLivre : les familles sélectionnées (les deux époux sélectionnés, ou l'un d'eux quand
// toute la base ou les actes sont sélectionnés hors tri Sosa) et les personnes isolées, triées
// par la clé de l'ordre choisi, reçoivent leur numéro dans Fami::NumLivre et Perso::NumLivre
// (les autres 0). parLettre : un tri par première lettre du nom, les noms hors A-Z en dernier ;
// sinon un seul tri, et la personne de la fiche a toujours son entrée. unSeulNumero : les unions
// d'un même mari qui se suivent partagent le numéro de la première.
NumerotationLivre NumeroterLivre(Base& base, const Options& options, const ReglagesLivre& reglages,
                                 bool parLettre, bool unSeulNumero);

// Comment un bloc de famille s'écrit (document RTF).
struct FormeFamille {
    std::string tete;  // après le "\\par" du bloc : le numéro de l'entrée
    std::string sep = "\\line ";
    std::string tab = "\\tab ";
    bool deuxColonnes = false;  // les évènements d'un époux à la ligne, sinon à la tabulation
    bool mariRepete = false;    // le mari vient d'être décrit (unions à un seul numéro) : rien de lui
    bool avecRenvois = true;    // "[n]" vers les familles du livre
    bool saufDecede = false;
    // Le numéro d'un enfant devant son nom ("" : aucun).
    std::function<std::string(std::int32_t)> numeroEnfant;
};

// EcrireFamille : le mari, les renvois vers ses autres unions, le mariage (contrat, divorce), la
// femme, puis les enfants chacun avec ses unions. mari ou femme à 0 : cet époux n'est pas décrit.
void EcrireFamille(const ContexteExport& ctx, TexteRapport& f, std::int32_t famille, std::int32_t mari,
                   std::int32_t femme, const FormeFamille& forme);

// Le livre des familles en RTF : résumé, légende, une entrée par famille ou personne isolée dans
// l'ordre de NumeroterLivre, puis notes, sources et index. Les notes et sources sélectionnées
// reçoivent leur numéro de renvoi (NumLivre).
std::string RtfLivre(const ContexteExport& ctx, const ReglagesLivre& reglages);

}  // namespace arbolix
