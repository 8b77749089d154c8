// La fenêtre ListeChoix : une liste à cases, pour les personnes et familles de la sélection active.
#pragma once

#include <QDialog>

#include "lists/selection_active.h"
#include "store/base.h"
#include "store/options.h"

class QListWidget;

namespace arbolix {

class FormListeChoix : public QDialog {
    Q_OBJECT
public:
    FormListeChoix(Base& base, const Options& options, QWidget* parent);
    // Remplit la liste, case cochée pour chaque fiche sélectionnée, et la montre.
    void Montrer(ListeCochee liste);
    const ListeCochee& Liste() const { return liste_; }
    QListWidget* Cases() const { return cases_; }

protected:
    void keyPressEvent(QKeyEvent* e) override;

private:
    void Cocher(int rangee);
    void Cliquer(int rangee);

    Base& base_;
    const Options& options_;
    ListeCochee liste_;
    QListWidget* cases_;
    bool remplissage_ = false;
};

}  // namespace arbolix
