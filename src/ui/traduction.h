// Textes des fenêtres tirés du fichier de messages, et fond clair des fenêtres.
#pragma once

#include <span>

#include "app/messages.h"
#include "platform/dialogue.h"

class QWidget;

namespace arbolix {

// Fond des fenêtres et des boutons restés à la couleur du système.
inline constexpr unsigned kFondFenetres = 0xF8F8F8;

struct PassageTextes {
    bool traduire = false;  // langue autre que le français intégré
    bool restyler = false;  // version majeure 11 ou plus
};
PassageTextes ReglerPassage(int codeLangue, int versionMajeure);

// Passe sur une fenêtre nommée (objectName) d'après le tableau des blocs : son titre
// prend la ligne base - 1 (sauf Fiche), chaque étiquette, bouton, cadre, case ou onglet
// portant la propriété "positionTab" n prend la ligne base + n quand elle n'est pas vide.
// Fenêtre sans bloc : message « Traduction manquante pour la fenêtre » et faux.
bool TraduireFenetre(QWidget& fenetre, const Messages& messages, PassageTextes passage, Dialogue& dialogue);

// Menus de Fiche (QMenu ou QAction par leur objectName), un par ligne à partir de 384.
struct LigneMenu {
    const char* nom;
    int ligne;
};
std::span<const LigneMenu> LignesMenus();
void TraduireMenus(QWidget& fiche, const Messages& messages);

}  // namespace arbolix
