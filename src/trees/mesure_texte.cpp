#include "trees/mesure_texte.h"

namespace arbolix {

namespace {

// Chasse en millièmes de cadratin, par classe de caractère.
int Chasse(unsigned char c) {
    if (c == ' ' || c == 'i' || c == 'j' || c == 'l' || c == '.' || c == ',' || c == '\'' || c == '|' ||
        c == ':' || c == ';' || c == '!' || c == 'I')
        return 330;
    if (c == 'f' || c == 't' || c == 'r' || c == '(' || c == ')' || c == '-' || c == '/') return 420;
    if (c == 'm' || c == 'w' || c == 'M' || c == 'W' || c == 0xC6 || c == 0x8C || c == 0xE6 || c == 0x9C)
        return 980;
    if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE) || c == '&' || c == '@' || c == '%') return 770;
    return 630;
}

}  // namespace

double MesureFixe::HauteurLigne(double taille) const {
    return 1.2 * taille * kMmParPoint;
}

double MesureFixe::Largeur(std::string_view texte, double taille) const {
    long milliemes = 0;
    for (const char c : texte) milliemes += Chasse(static_cast<unsigned char>(c));
    // La taille de l'en-tête SVG est 1,2 fois celle de la règle : le cadratin aussi.
    return static_cast<double>(milliemes) / 1000.0 * 1.2 * taille * kMmParPoint;
}

double TaillePolice(const MesureTexte& mesure, double HC, double MC) {
    constexpr double kDepart = 10;
    return kDepart * (HC - 1.5 * MC) / (4 * mesure.HauteurLigne(kDepart));
}

}  // namespace arbolix
