// Où poser une fenêtre : une place retenue ramenée dans l'écran, la liste à côté de la fiche.
#pragma once

namespace arbolix {

struct Cadre {
    int x = 0, y = 0, l = 0, h = 0;  // coin haut gauche, largeur, hauteur en points d'écran
    friend bool operator==(const Cadre&, const Cadre&) = default;
};

// Une place lue des réglages (peut-être d'un autre écran, négative ou absurde) ramenée
// entière dans l'écran : la taille entre le minimum et l'écran, puis le coin déplacé.
Cadre PlacerDansEcran(Cadre voulu, const Cadre& ecran, int largeurMini, int hauteurMini);

// La liste à côté de la fiche, sans couvrir ses champs : à droite s'il y a la place,
// sinon à gauche, sinon contre le bord droit de l'écran (elle couvre alors la colonne
// de droite de la fiche, pas celle de la personne).
Cadre PlacerACote(const Cadre& fiche, int largeur, int hauteur, const Cadre& ecran);

}  // namespace arbolix
