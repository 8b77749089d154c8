// Sous-commandes tmao et txt2tm de arbolix-cli : les tables d'actes de la fédération.
#pragma once

#include "cli/communs.h"
#include "lists/rangees.h"
#include "reports/contexte_export.h"

namespace arbolix::cli {

// tmao ENTREE.TM SORTIE.rtf|.txt|.ged [--type N|M|D|A] [--lieu LIEU] [--mode 0..4] [--date JJ/MM/AAAA] :
// la conversion, le mode tiré de l'extension de SORTIE (--mode 3 ou 4 pour les textes tabulé ou en
// colonnes). 2 avec un message quand le fichier est abîmé ou que le type reste inconnu.
int CommandeTmao(const Arguments& args, Sorties& s);

// txt2tm ENTREE.txt [SORTIE.TM] [--date JJ/MM/AAAA] : la table TMAO, puis le brouillon des notes.
int CommandeTxt2Tm(const Arguments& args, Sorties& s);

// Les options de exporter actes : --type N|M|D (obligatoire) et --lieu LIEU (le critère de lieu).
struct OptionsActesCli {
    std::optional<std::string> type, lieu;
};
// Retire --type et --lieu des arguments ; faux (message écrit) quand une valeur manque.
bool ExtraireOptionsActes(Arguments& args, OptionsActesCli& o, std::ostream& erreurs);
// Comme MenuExportUCGL : la recherche des actes d'une sorte jusqu'à l'année du jour moins le seuil
// de confidentialité, et la liste triée. Faux (message écrit) sans --type valable.
bool PreparerActesCli(const OptionsActesCli& o, ContexteExport& ctx, ListePersonne& liste,
                      std::ostream& erreurs);

inline constexpr const char* kAideTmao =
    "tmao ENTREE.TM SORTIE.rtf|.txt|.ged [--type N|M|D|A] [--lieu LIEU] [--mode 0..4] : convertit une "
    "table TMAO";
inline constexpr const char* kAideTxt2Tm =
    "txt2tm ENTREE.txt [SORTIE.TM] : un texte tabul\xC3\xA9 de 17 colonnes en table TMAO, et le brouillon "
    "de ses notes";

}  // namespace arbolix::cli
