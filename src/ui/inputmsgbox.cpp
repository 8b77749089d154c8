#include "ui/inputmsgbox.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt_texte.h"
#include "ui_inputmsgbox.h"

namespace arbolix {

InputMsgBox::InputMsgBox(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::InputMsgBox>()) {
    ui_->setupUi(this);
    connect(ui_->BoutonOK, &QPushButton::clicked, this, &QDialog::accept);
    // Annuler vide les saisies : c'est ce qui rend le texte de travail vide.
    connect(ui_->BoutonAnnuler, &QPushButton::clicked, this, [this] {
        for (QLineEdit* t : {ui_->Texte0, ui_->Texte1, ui_->Texte2, ui_->Texte3}) t->clear();
        reject();
    });
}

InputMsgBox::~InputMsgBox() = default;

bool InputMsgBox::Demander(Invite& invite) {
    setWindowTitle(VersQString(invite.Titre));
    QString legende = VersQString(invite.Legende);
    ui_->Legende->setText(legende.replace("\r\n", "\n"));
    QLabel* libelles[] = {ui_->Libelle0, ui_->Libelle1, ui_->Libelle2, ui_->Libelle3};
    QLineEdit* textes[] = {ui_->Texte0, ui_->Texte1, ui_->Texte2, ui_->Texte3};
    for (std::size_t i = 0; i < 4; ++i) {
        const bool present = i < invite.Libelles.size();
        libelles[i]->setVisible(present && !invite.Libelles[i].empty());
        textes[i]->setVisible(present);
        libelles[i]->setText(present ? VersQString(invite.Libelles[i]) : QString());
        textes[i]->setText(present && i < invite.Valeurs.size() ? VersQString(invite.Valeurs[i]) : QString());
    }
    ui_->Texte0->selectAll();
    ui_->Texte0->setFocus();
    adjustSize();
    const bool ok = exec() == QDialog::Accepted;
    invite.Valeurs.clear();
    for (std::size_t i = 0; i < invite.Libelles.size() && i < 4; ++i)
        invite.Valeurs.push_back(DepuisQString(textes[i]->text()));
    return ok;
}

}  // namespace arbolix
