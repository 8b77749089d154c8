// ExporterActes : les actes trouvés par la recherche, écrits pour la base de la fédération (TMT)
// ou pour le programme NIMEGUE, avec les refus qui protègent la table.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lists/rangees.h"
#include "lists/recherche_actes.h"
#include "platform/dialogue.h"
#include "platform/progression.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// FormatExport des actes : 1 TMAO, 2 TMT, 3 Nimègue.
enum FormatActes : int { kFormatTMAO = 1, kFormatTMT = 2, kFormatNimegue = 3 };

// La sorte d'une table : 'N' naissances et baptêmes, 'M' mariages, contrats et divorces,
// 'D' décès et sépultures ; 0 pour un symbole inconnu.
char SorteDuSymbole(const Options& options, char symbole);

// La ligne des noms de colonnes d'une sorte, "|" entre eux (le séparateur vient ensuite).
std::string EnTeteActes(char sorte);

// Le format d'un fichier d'actes : ".tmt" TMT, ".TM" TMAO, ".txt" NIMEGUE ; une autre extension
// suit le format préféré des options (ExportPrefere : 0 TMAO, 1 TMT, 2 Nimègue).
int FormatActesDuFichier(std::string_view fichier, int exportPrefere);

// Le lieu que le nom du fichier GEDCOM porte : "54123-saint clément.ged" donne "Saint Clément",
// le texte derrière le premier "-" (ou "_") quand le nom commence par un chiffre ; vide sinon.
std::string LieuDuNomDeFichier(std::string_view fichierGedcom, bool modifCasse);
// Les lieux de la liste de saisie qui contiennent ce nom.
std::vector<std::string> LieuxDuNom(const ListeChoix& lieux, std::string_view nom);
inline constexpr std::string_view kTitreExportTMAO = "Export TMAO";
inline constexpr std::string_view kAucunLieu =
    "Aucun lieu trouv\xE9 et choisi \xE0 partir du nom de fichier.\r\nVeuillez choisir au moins un lieu pour "
    "continuer.";

// La recherche de MenuExportUCGL : index 0 naissances, 1 mariages, 2 décès, de l'an 1 à l'année du
// jour moins le seuil de confidentialité de la sorte ; les lieux donnés font le critère.
RechercheActes RechercheUCGL(int index, const OptionsExport& e, int anneeDuJour,
                             std::vector<std::string> lieux);

// Ce que l'export reçoit du dialogue Exports et de la fenêtre de liste.
struct DemandeExportActes {
    const Base& base;
    const Options& options;
    std::string TexteComp;      // les notes de la table, 1252, CR LF
    std::string FichierExport;  // UTF-8
    int Format = kFormatNimegue;
    const ListePersonne& liste;  // rangées de la recherche ; la ligne de tête est sautée
    int VersionMajeure = ARBOLIX_VERSION_MAJEURE;
    int VersionMineure = 0;
    Progression* progression = nullptr;
};

struct ResultatExportActes {
    bool Ecrit = false;
    bool Annule = false;
    std::size_t NbRangees = 0;
};

// Les trois refus (notes de la table à compléter, nom .TMT sans code de commune, sortes mêlées
// dans les deux premières rangées) et le format TMAO abandonné montrent leur boîte et
// n'écrivent rien. Le fichier n'est remplacé qu'une fois entièrement écrit.
ResultatExportActes ExporterActes(const DemandeExportActes& d, Dialogue& dialogue);
// Les contrôles et le texte, sans l'écriture (LancerExport écrit) ; nullopt quand la boîte a
// refusé ou que la progression annule.
std::optional<std::string> ProduireExportActes(const DemandeExportActes& d, Dialogue& dialogue);

// Le texte du fichier, sans les contrôles : la ligne des colonnes, la ligne des notes (TMT),
// une rangée par acte ; nullopt quand la progression annule.
std::optional<std::string> TexteExportActes(const DemandeExportActes& d, char sorte);

}  // namespace arbolix
