#include "ui/liste_choix.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

#include "card/lignes_personne.h"
#include "lists/rangees.h"
#include "platform/qt_texte.h"

namespace arbolix {

FormListeChoix::FormListeChoix(Base& base, const Options& options, QWidget* parent)
    : QDialog(parent), base_(base), options_(options), cases_(new QListWidget(this)) {
    setObjectName("ListeChoix");
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    cases_->setObjectName("Liste");
    auto* disposition = new QVBoxLayout(this);
    disposition->addWidget(cases_);
    resize(420, 480);
    connect(cases_, &QListWidget::itemChanged, this, [this](QListWidgetItem* i) { Cocher(cases_->row(i)); });
    connect(cases_, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) { Cliquer(cases_->row(i)); });
    connect(cases_, &QListWidget::itemDoubleClicked, this, [this] { hide(); });
}

void FormListeChoix::Montrer(ListeCochee liste) {
    liste_ = std::move(liste);
    remplissage_ = true;
    cases_->clear();
    for (std::size_t i = 0; i < liste_.liste.Rangees.size(); ++i) {
        auto* item = new QListWidgetItem(VersQString(liste_.liste.Rangees[i].texte), cases_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(liste_.coches[i] ? Qt::Checked : Qt::Unchecked);
    }
    remplissage_ = false;
    setWindowTitle(VersQString(liste_.liste.Titre));
    if (cases_->count() > 0) cases_->setCurrentRow(0);
    show();
    raise();
}

void FormListeChoix::Cocher(int rangee) {
    if (remplissage_ || rangee < 0) return;
    const auto r = static_cast<std::size_t>(rangee);
    const bool coche = cases_->item(rangee)->checkState() == Qt::Checked;
    if (r >= liste_.coches.size() || liste_.coches[r] == coche) return;
    BasculerRangee(base_, liste_, r);
    setWindowTitle(VersQString(liste_.liste.Titre));
}

void FormListeChoix::Cliquer(int rangee) {
    if (rangee < 0) return;
    const std::int32_t n = LireQueue(liste_.liste.Rangees[static_cast<std::size_t>(rangee)].texte).numero;
    std::string bulle;
    if (liste_.liste.Genre == "selfamis") {
        const Fami& f = FamiLue(base_, n);
        bulle = DetailPersonne(base_, options_, f.Mari) + " " + DetailPersonne(base_, options_, f.Femme);
    } else {
        bulle = DetailPersonne(base_, options_, n);
    }
    cases_->item(rangee)->setToolTip(VersQString(bulle));
}

void FormListeChoix::keyPressEvent(QKeyEvent* e) {
    // Entrée et Échap ferment, comme le double clic.
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter || e->key() == Qt::Key_Escape) {
        hide();
        return;
    }
    QDialog::keyPressEvent(e);
}

}  // namespace arbolix
