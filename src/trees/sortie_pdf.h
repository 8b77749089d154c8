// L'arbre sur papier sans imprimante : un document PDF, page par page, aux chasses d'Helvetica.
#pragma once

#include <string>

#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace arbolix {

// Les chasses de la police du PDF : le texte coupé tient dans ses cases.
class MesurePdf : public MesureTexte {
public:
    double HauteurLigne(double taille) const override;
    double Largeur(std::string_view texte, double taille) const override;
};

// Le document entier ; les cases sont teintées quand l'option FondCaseCouleur le demande.
std::string ArbrePdf(const DessinArbre& d, const Options& options, const MesureTexte& mesure);

}  // namespace arbolix
