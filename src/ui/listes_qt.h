// Les listes de choix de la base dans les listes déroulantes des fenêtres.
#pragma once

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <string_view>

#include "card/contenu_fiche.h"
#include "platform/qt_texte.h"
#include "store/listes_choix.h"

namespace arbolix {

// Remplace la liste par les valeurs triées et pose le texte ; aucun signal de modification.
inline void RemplirCombo(QComboBox& liste, const ListeChoix& valeurs, std::string_view texte) {
    const QSignalBlocker bloque(liste);
    liste.clear();
    // D'un bloc : un fichier d'un million de personnes porte des centaines de milliers de noms.
    QStringList textes;
    const auto triees = valeurs.Triee();
    textes.reserve(static_cast<qsizetype>(triees.size()));
    for (const auto& v : triees) textes.push_back(VersQString(v));
    liste.addItems(textes);
    liste.setEditText(VersQString(texte));
}

// Une valeur neuve entre dans la liste à sa place ; le texte tapé reste.
inline void AjouterCombo(QComboBox& liste, std::string_view valeur) {
    if (valeur.empty()) return;
    const QString v = VersQString(valeur);
    if (liste.findText(v, Qt::MatchExactly | Qt::MatchCaseSensitive) >= 0) return;
    const QSignalBlocker bloque(liste);
    const QString texte = liste.currentText();
    int i = 0;
    while (i < liste.count() && liste.itemText(i) < v) ++i;
    liste.insertItem(i, v);
    liste.setEditText(texte);
}

// Le focus dans une liste modifiable, son texte choisi : la frappe remplace la valeur d'attente
// d'une fiche neuve (« N ») au lieu de s'y ajouter.
inline void FocusChoisi(QComboBox& liste) {
    liste.setFocus();
    if (liste.lineEdit()) liste.lineEdit()->selectAll();
}

// Les rangées d'une liste de la fiche, chacune avec son infobulle.
inline void PoserRangees(QListWidget& liste, const std::vector<RangeeFiche>& rangees) {
    liste.clear();
    for (const auto& r : rangees) {
        auto* item = new QListWidgetItem(VersQString(r.texte), &liste);
        item->setToolTip(VersQString(r.bulle));
    }
}

}  // namespace arbolix
