// Mesure des textes d'un arbre en millimètres : la fenêtre mesure avec sa police, les fichiers avec une
// table.
#pragma once

#include <string_view>

namespace arbolix {

class MesureTexte {
public:
    virtual ~MesureTexte() = default;
    // Pas d'une ligne de texte à cette taille (points), en millimètres.
    virtual double HauteurLigne(double taille) const = 0;
    // Largeur d'un texte 1252 à cette taille, en millimètres.
    virtual double Largeur(std::string_view texte, double taille) const = 0;
};

// Les fichiers SVG et RTF ne savent pas quelle police les montrera : une table de chasses d'une
// police sans empattement, un peu large pour que le texte tienne quand la police vraie change.
// Le pas de ligne est 1,2 fois la taille, comme la police que l'en-tête SVG écrit.
class MesureFixe : public MesureTexte {
public:
    double HauteurLigne(double taille) const override;
    double Largeur(std::string_view texte, double taille) const override;
};

inline constexpr double kMmParPoint = 25.4 / 72.0;

// La règle de la taille : 10 points, puis dans le rapport de la hauteur utile de la case
// (HC - 1,5 MC) à la hauteur de quatre lignes à 10 points.
double TaillePolice(const MesureTexte& mesure, double HC, double MC);

}  // namespace arbolix
