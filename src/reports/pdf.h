// Un petit écrivain PDF 1.4 sans compression : pages en millimètres, texte 1252 dans les polices
// standard du PDF (sans rien embarquer), traits et cadres. Sert la fiche familiale et les arbres.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace arbolix {

enum class PolicePdf { TimesRoman, TimesBold, Helvetica, HelveticaBold };

constexpr double kPointsParMm = 72.0 / 25.4;

// Largeur d'un texte 1252 au corps taille (en points), en millimètres, d'après les chasses des
// polices standard (les octets sans glyphe comptent 0).
double LargeurTexteMm(PolicePdf police, double taille, std::string_view texte);
// Hauteur des lettres montantes au-dessus de la ligne de base, en millimètres, au corps taille.
double AscendanteMm(PolicePdf police, double taille);

// Un document en cours. Les coordonnées sont en millimètres depuis le coin haut gauche de la
// page, y vers le bas comme sur une imprimante ; le y d'un texte est sa ligne de base.
// Tout ce qui dessine va sur la dernière page ouverte : NouvellePage d'abord.
class DocumentPdf {
public:
    void NouvellePage(double largeurMm, double hauteurMm);
    int NbPages() const { return static_cast<int>(pages_.size()); }

    void Texte(double x, double y, PolicePdf police, double taille, std::string_view texte);
    void Ligne(double x1, double y1, double x2, double y2, double epaisseurMm = 0.2);
    // Un cadre ; plein, il est rempli de la couleur de fond puis tracé.
    void Rectangle(double x, double y, double largeur, double hauteur, double epaisseurMm = 0.2,
                   bool plein = false);
    // Couleurs en composantes 0 à 1 : du trait et du texte, du fond des cadres pleins.
    void CouleurTrait(double r, double v, double b);
    void CouleurFond(double r, double v, double b);

    // Titre du document (1252), montré par les lecteurs.
    void Titre(std::string_view titre) { titre_ = titre; }

    // Le fichier entier : en-tête, objets, table xref et queue. Sans date ni identifiant, deux
    // documents faits de la même façon ont les mêmes octets.
    std::string Octets() const;

private:
    struct Page {
        double largeur = 0, hauteur = 0;  // en points
        std::string contenu;
        std::string remplissage = "0 0 0";  // la couleur de remplissage en vigueur dans contenu
    };
    void Remplir(const std::string& couleur);
    Page& Courante();
    double X(double mm) const;
    double Y(double mm);

    std::vector<Page> pages_;
    std::string titre_;
    std::string trait_ = "0 0 0", fond_ = "1 1 1";
};

}  // namespace arbolix
