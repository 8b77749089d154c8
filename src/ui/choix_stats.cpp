#include "ui/choix_stats.h"

#include <QListWidget>
#include <QPushButton>

#include "platform/qt_texte.h"
#include "reports/statistiques.h"
#include "ui_choix_stats.h"

namespace arbolix {

ChoixStats::ChoixStats(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::ChoixStats>()) {
    ui_->setupUi(this);
    setWindowTitle(VersQString(kTitreChoixStatistiques));
    for (std::size_t i = 0; i < kChoixStatistiques.size(); ++i) {
        auto* rangee = new QListWidgetItem(VersQString(kChoixStatistiques[i]), ui_->Liste);
        rangee->setData(Qt::UserRole, static_cast<int>(i));
        rangee->setFlags(rangee->flags() | Qt::ItemIsUserCheckable);
        rangee->setCheckState(Qt::Checked);
    }
    connect(ui_->BoutonOK, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->BoutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
}

ChoixStats::~ChoixStats() = default;

std::vector<int> ChoixStats::Choix() const {
    std::vector<int> choix;
    for (int i = 0; i < ui_->Liste->count(); ++i)
        if (ui_->Liste->item(i)->checkState() == Qt::Checked)
            choix.push_back(ui_->Liste->item(i)->data(Qt::UserRole).toInt());
    return choix;
}

void ChoixStats::Cocher(int index, bool coche) {
    if (QListWidgetItem* r = ui_->Liste->item(index)) r->setCheckState(coche ? Qt::Checked : Qt::Unchecked);
}

}  // namespace arbolix
