// Les blocs que tous les rapports partagent : une personne, une paire d'évènements, la marque de décès.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "reports/contexte_export.h"

namespace arbolix {

// Le symbole de décès quand la personne p était morte à la date (texte de date), sinon "".
// Sans décès daté, l'âge maximal des options fait foi ; les deux règles comparent des années.
std::string MarqueDecede(const ContexteExport& ctx, std::int32_t p, std::string_view date);

// Un ou deux évènements (naissance et baptême, décès et sépulture) : dates filtrées, lieu, notes,
// source et témoins. avant ouvre l'évènement A, apres l'évènement B et les notes.
void EcrireActes(const ContexteExport& ctx, const Acte& acteA, std::string_view symboleA, const Acte& acteB,
                 std::string_view symboleB, TexteRapport& f, std::string_view avant, std::string_view apres,
                 bool avecNotes, bool confidentiel);

struct FormePersonne {
    std::string sep{}, avant{}, apres{}, fin{};
    bool avecNom = true;
    bool avecNotes = true;
    bool avecParents = false;
    bool avecRenvois = false;
    // Les dates d'une personne morte suivent le seuil des décès quand « Sauf décédé » est coché.
    bool saufDecede = false;
    // La date du mariage dont on parle : les parents sont marqués décédés à cette date.
    std::string dateMariage{};
};

// Nom, métier puis parents, évènements et note dans l'ordre de OptionOrdre. Le numéro 0
// n'écrit rien. Lance ExportAnnule quand l'utilisateur a annulé.
void EcrirePersonne(const ContexteExport& ctx, std::int32_t numero, TexteRapport& f,
                    const FormePersonne& forme);

// " le 12/03/1750 à Nancy" : le mot, la date filtrée et le lieu, pour les phrases des livres.
std::string PhraseDate(const ContexteExport& ctx, const Acte& acte, bool avecLe, bool avecA);

// marque " " : les caractères au-delà de 127 en "&#nnn;" ; sinon texte replié pour une adresse,
// le blanc devient marque et les autres caractères "%hh".
std::string EncoderTexte(std::string_view texte, std::string_view marque);

}  // namespace arbolix
