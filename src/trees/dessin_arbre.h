// La mise en page de tous les arbres et planches d'étiquettes : contrôles, taille de police, cases, traits,
// pied de page et carte des cases, que chaque sortie (aperçu, imprimante, RTF, SVG) dessine.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "dates/calendrier_gregorien.h"
#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"
#include "trees/mesure_texte.h"

namespace arbolix {

enum GenreArbre : int {
    kEtiquettes = 1,
    kAscendant = 2,
    kAscendantA4 = 3,
    kArbreParente = 4,
    kDescendant = 5,
};

enum ModeArbre : int {
    kModeApercu = 0,
    kModeImprimante = 1,
    kModeRtf = 2,
    kModeSvg = 3,
};

// Le nom du genre dans les fichiers (titre SVG).
std::string NomGenreArbre(int genre);

inline constexpr std::string_view kTitreImpressionImpossible = "Impression impossible";
inline constexpr std::string_view kAucuneImprimante =
    "Aucune imprimante install\xE9"
    "e.";
inline constexpr std::string_view kTitreErreurDimension = "Erreur de dimension";
inline constexpr std::string_view kErreurDimension =
    "V\xE9rifiez les valeurs des dimensions entr\xE9"
    "es dans les cases.\r\nIl faut indiquer au moins 4 g\xE9n\xE9rations ou laisser la case vide.";
inline constexpr std::string_view kTitreCasesPetites = "Cases trop petites";
inline constexpr std::string_view kCasesPetites =
    "Les cases sont trop petites.\r\nVeuillez r\xE9"
    "duire le nombre de g\xE9n\xE9rations ou augmenter le format.";

// Ce que le dessin demande : le genre et la racine, les cases de la fenêtre Arbre, le titre du
// dialogue Exports et la date du jour pour le pied de page.
struct DemandeArbre {
    int genre = kAscendant;
    std::int32_t numero = 0;
    int decalage = 0;
    int mode = kModeApercu;
    OptionsArbre dims;
    std::string titre;                          // Exports.TitreExport (1252)
    DateCalendrier aujourdhui{};                // donnée, pour que deux dessins soient identiques
    const ListePersonne* etiquettes = nullptr;  // genre 1 : la liste "etiquettes"
    bool imprimanteExiste = true;               // mode 1 seulement
};

// Une case : sa personne (0 pour une case vide), son coin haut gauche dans sa page (mm) et ses
// lignes déjà coupées à la largeur de la case, en 1252.
struct CaseArbre {
    std::int32_t personne = 0;
    int page = 1;
    double x = 0, y = 0;
    double taille = 0;  // la taille de la planche, ou d'un cran plus petite pour une case serrée
    std::vector<std::string> lignes;
};

struct TraitArbre {
    int page = 1;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
};

// Un texte hors case (pied de page, légende) : x à gauche, y sur la ligne de base.
struct TexteArbre {
    int page = 1;
    double x = 0, y = 0;
    std::string texte;
    double taille = 0;
};

struct DessinArbre {
    // Non vide : la boîte à montrer, et rien n'est dessiné.
    std::string TitreBoite, TexteBoite;
    bool CacherApercu = false;  // après « Cases trop petites »
    int Genre = 0;
    double LF = 0, HF = 0, MF = 0, LC = 0, HC = 0, MC = 0;
    int NbGen = 0;
    int Pages = 1;
    double Taille = 0;  // LabelTaillePolice montre sa partie entière
    std::string Titre;  // le titre de la demande, repris par l'en-tête RTF
    DateCalendrier Aujourdhui{};
    std::vector<CaseArbre> Cases;
    std::vector<TraitArbre> Traits;
    std::vector<TexteArbre> Textes;
    // La liste cachée de Pr : "0012XY0040" (gauche, haut) par case, la personne en valeur.
    ListePersonne Carte;

    bool Dessine() const { return TitreBoite.empty(); }
};

// DessinerArbre : contrôles, puis la mise en page du genre. La numérotation principale n'est pas
// touchée : l'ascendant numérote pour lui seul ; le descendant passe par le parcours des
// descendants, qui écrit la numérotation 2 et Unions(0).
DessinArbre DessinerArbre(Base& base, const Options& options, const DemandeArbre& demande,
                          const MesureTexte& mesure);

// Une longueur tapée en millimètres ("20.5" ou "20,5") ; 0 pour un texte qui n'en est pas une.
double LireMillimetres(std::string_view texte);

// La personne de la case qui contient le point (mm, les pages les unes sous les autres), par la
// carte ; 0 sinon.
std::int32_t PersonneAuPoint(const DessinArbre& d, double x, double y);

// Les lignes d'une case : nom (avec le numéro quand l'arbre en montre), mariage pour un père,
// naissance, décès, chacune coupée au dernier blanc qui tient dans la largeur.
std::vector<std::string> CouperLigne(std::string_view ligne, double largeur, double taille,
                                     const MesureTexte& mesure);

// "Arbre ascendant de NOM Prénoms - jj/mm/aaaa" : le titre que MenuArbre donne.
std::string TitreArbreAscendant(const Base& base, std::int32_t n, const DateCalendrier& aujourdhui);

}  // namespace arbolix
