#include "app/place_fenetre.h"

#include <algorithm>

namespace arbolix {

namespace {

// Un intervalle [debut, debut + taille] ramené dans [bord, bord + place].
int Ramener(int debut, int taille, int bord, int place) {
    return std::clamp(debut, bord, bord + std::max(place - taille, 0));
}

}  // namespace

Cadre PlacerDansEcran(Cadre voulu, const Cadre& ecran, int largeurMini, int hauteurMini) {
    Cadre c = voulu;
    c.l = std::clamp(voulu.l, std::min(largeurMini, ecran.l), ecran.l);
    c.h = std::clamp(voulu.h, std::min(hauteurMini, ecran.h), ecran.h);
    c.x = Ramener(voulu.x, c.l, ecran.x, ecran.l);
    c.y = Ramener(voulu.y, c.h, ecran.y, ecran.h);
    return c;
}

Cadre PlacerACote(const Cadre& fiche, int largeur, int hauteur, const Cadre& ecran) {
    Cadre c{0, fiche.y, largeur, std::min(hauteur, ecran.h)};
    if (fiche.x + fiche.l + largeur <= ecran.x + ecran.l)
        c.x = fiche.x + fiche.l;
    else if (fiche.x - largeur >= ecran.x)
        c.x = fiche.x - largeur;
    else
        c.x = ecran.x + ecran.l - largeur;
    return PlacerDansEcran(c, ecran, largeur, std::min(hauteur, ecran.h));
}

}  // namespace arbolix
