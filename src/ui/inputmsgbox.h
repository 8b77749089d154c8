// InputMsgBox : l'invite à une, deux ou quatre lignes qui précède les grandes listes.
#pragma once

#include <QDialog>
#include <memory>

#include "lists/listes.h"

namespace Ui {
class InputMsgBox;
}

namespace arbolix {

class InputMsgBox : public QDialog {
    Q_OBJECT
public:
    explicit InputMsgBox(QWidget* parent);
    ~InputMsgBox() override;
    // Montre l'invite, modale ; faux sur Annuler, qui vide aussi toutes les saisies.
    bool Demander(Invite& invite);

private:
    std::unique_ptr<Ui::InputMsgBox> ui_;
};

}  // namespace arbolix
