#include "ui/choix_rangee.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/qt_texte.h"

namespace arbolix {

std::optional<std::string> ChoisirRangee(QWidget* parent, const ListeCandidats& liste) {
    QDialog boite(parent);
    boite.setObjectName("ListeChoix");
    boite.setWindowTitle(VersQString(liste.titre));
    auto* vue = new QListWidget(&boite);
    vue->setObjectName("Liste");
    std::vector<std::string> rangees;
    if (!liste.premiereLigne.empty()) rangees.push_back(liste.premiereLigne);
    rangees.insert(rangees.end(), liste.lignes.begin(), liste.lignes.end());
    for (const auto& r : rangees) vue->addItem(VersQString(r));
    if (!rangees.empty()) vue->setCurrentRow(0);
    auto* boutons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &boite);
    boutons->button(QDialogButtonBox::Cancel)->setText("Annuler");
    QObject::connect(boutons, &QDialogButtonBox::accepted, &boite, &QDialog::accept);
    QObject::connect(boutons, &QDialogButtonBox::rejected, &boite, &QDialog::reject);
    QObject::connect(vue, &QListWidget::itemDoubleClicked, &boite, &QDialog::accept);
    auto* disposition = new QVBoxLayout(&boite);
    disposition->addWidget(vue);
    disposition->addWidget(boutons);
    boite.resize(520, 420);
    if (boite.exec() != QDialog::Accepted || vue->currentRow() < 0) return std::nullopt;
    return rangees[static_cast<std::size_t>(vue->currentRow())];
}

}  // namespace arbolix
