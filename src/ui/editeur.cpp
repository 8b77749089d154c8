#include "ui/editeur.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt_texte.h"

namespace arbolix {

Editeur::Editeur(QWidget* parent) : QDialog(parent), texte_(new QPlainTextEdit(this)) {
    setObjectName("Editeur");
    texte_->setObjectName("Texte");
    texte_->setReadOnly(true);
    texte_->setLineWrapMode(QPlainTextEdit::WidgetWidth);
    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    boutons->button(QDialogButtonBox::Close)->setText("Fermer");
    connect(boutons, &QDialogButtonBox::rejected, this, &QDialog::accept);
    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(texte_);
    disposition->addWidget(boutons);
    resize(760, 480);
}

void Editeur::Montrer(const QString& titre, std::string_view texte) {
    setWindowTitle(titre);
    QString t = VersQString(texte);
    t.replace("\r\n", "\n");
    texte_->setPlainText(t);
    show();
    raise();
}

}  // namespace arbolix
