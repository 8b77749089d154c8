// Les deux primitives de dessin, DessinerLigne et DessinerCase, sur chaque sortie ; le SVG ici, le RTF
// à côté, l'aperçu et l'imprimante dans la fenêtre.
#pragma once

#include <string>
#include <string_view>

#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace arbolix {

class SortieArbre {
public:
    virtual ~SortieArbre() = default;
    // Avant chaque page après la première.
    virtual void NouvellePage(int) {}
    virtual void DessinerLigne(const TraitArbre& t) = 0;
    virtual void DessinerCase(const CaseArbre& c) = 0;
    virtual void DessinerTexte(const TexteArbre& t) = 0;
};

// Tout le dessin, page après page : les traits, puis les cases, puis les textes libres.
void Dessiner(const DessinArbre& d, SortieArbre& sortie);

// Un nombre des fichiers : deux décimales au plus, toujours le point, quelle que soit la langue.
std::string NombreFichier(double v);

// Le texte d'un fichier SVG : "&", "<", ">", '"' échappés, et au-delà de l'ASCII la référence
// numérique du point de code Unicode ("œ" donne "&#339;").
std::string EncoderSvg(std::string_view texte1252);

// Le fichier SVG entier : en-tête, style (police des options), primitives, "</svg>". Les pages des
// étiquettes et du descendant se suivent vers le bas.
std::string ArbreSvg(const DessinArbre& d, const Options& options, const MesureTexte& mesure);

}  // namespace arbolix
