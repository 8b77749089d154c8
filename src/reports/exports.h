// Le dialogue Exports sans fenêtre : genres de rapports, cases visibles, valeurs proposées, réglages
// retenus et lancement d'un rapport texte écrit d'un coup.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "lists/rangees.h"
#include "platform/dialogue.h"
#include "reports/contexte_export.h"

namespace arbolix {

// Une entrée de MenuExport et ce que BoutonParcourir propose pour elle.
struct GenreExport {
    int type;
    std::string_view legende;         // texte du menu, avec son "&"
    std::string_view fichierDefaut;   // nom proposé à l'ouverture
    std::string_view titreParcourir;  // titre du dialogue d'enregistrement
    std::string_view filtre;          // "Libellé (*.txt)|*.txt|..."
    std::string_view nomParcourir;    // nom proposé quand FichierExport est vide
};

// nullptr pour un index sans rapport (7) ou inconnu.
const GenreExport* TrouverGenre(int type);

// Le titre de la fenêtre : la légende du menu sans "&".
std::string TitreFenetreExport(int type);

// Les cadres et cases que le dialogue montre pour un genre.
struct VisibiliteExports {
    bool CadreDates = false, CadrePerso = false, CadreRTF = false, CadreUnionsMulti = false;
    bool ComboColRTF1 = false, OptNumUniq = false, BoutonTri = false, Toutes = false;
};
VisibiliteExports Visibilite(int type);

// Les rapports qui s'écrivent aujourd'hui ; les autres genres ouvrent le dialogue sans lancer.
bool RapportDisponible(int type);

// À l'ouverture : fichier proposé (dossier Chemin(0), sinon celui du fichier GEDCOM), titre,
// « Toutes », texte complémentaire vide. fichierGedcom en UTF-8.
void PreparerExport(OptionsExport& e, int type, const Base& base, std::int32_t personne,
                    const Options& options, const std::string& fichierGedcom);

// Le dossier où BoutonParcourir commence : Chemin(0), sinon le dossier du fichier GEDCOM.
std::string DossierExport(const Options& options, const std::string& fichierGedcom);

// Retient dans la section "Preferences" les réglages des cadres visibles pour ce genre.
void EnregistrerOptionsExport(const std::filesystem::path& ini, const OptionsExport& e, int type);

// Le texte d'une case de seuil : un texte non numérique devient "0".
std::string SeuilSaisi(std::string_view texte);

// Le livre et le site suivent l'ordre de tri : une sélection d'ascendants ou d'apparentés veut
// l'ordre Sosa. Rend faux quand l'utilisateur répond Annuler ; triSosa devient vrai sur Oui.
bool QuestionConflitTri(int type, int entreeSelCochee, bool& triSosa, Dialogue& dialogue);

inline constexpr std::string_view kTitreExportImpossible = "Export impossible";
inline constexpr std::string_view kCheminIncomplet =
    "Vous devez indiquer un chemin complet de fichier \xE0 cr\xE9"
    "er.";

struct ResultatExport {
    bool Ecrit = false;
    bool Annule = false;
    bool CheminIncomplet = false;  // la fenêtre presse alors BoutonParcourir
};

// LancerExport : contrôle le chemin, écrit le rapport de ctx.TypeExport dans
// ctx.exports.FichierExport d'un seul coup (l'ancien fichier reste tant que tout n'est pas
// écrit ; annulé, rien ne change), puis l'ouvre dans son programme quand lancer le dit.
// liste : la liste remplie avant le dialogue (ligne de vie, isolés) ; nullptr : elle est faite ici.
ResultatExport LancerExport(const ContexteExport& ctx, Dialogue& dialogue,
                            const ListePersonne* liste = nullptr, bool lancer = false);

}  // namespace arbolix
