#include "ui/personne.h"

#include <QKeyEvent>
#include <QLayout>
#include <QListView>
#include <QScreen>
#include <QScrollBar>
#include <QToolTip>

#include "app/place_fenetre.h"
#include "lists/rangees.h"
#include "platform/qt_texte.h"
#include "ui/delegue_queue.h"
#include "ui/modele_liste.h"
#include "ui_personne.h"

namespace arbolix {

Personne::Personne(const Base& base, const Options& options, QWidget* parent)
    : QDialog(parent), base_(base), options_(options), ui_(std::make_unique<Ui::Personne>()) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    modele_ = new ModeleListe(liste_, this);
    ui_->Liste->setModel(modele_);
    ui_->Liste->setItemDelegate(new DelegueQueue(ui_->Liste));
    ui_->Liste->installEventFilter(this);
    connect(ui_->Liste, &QListView::clicked, this, [this](const QModelIndex& i) { Cliquer(i.row()); });
    connect(ui_->Liste, &QListView::doubleClicked, this,
            [this](const QModelIndex& i) { DoubleCliquer(i.row()); });
    connect(ui_->Liste, &QListView::customContextMenuRequested, this, [this](const QPoint& p) {
        const QModelIndex i = ui_->Liste->indexAt(p);
        CliquerDroit(i.isValid() ? i.row() : modele_->rowCount() - 1);
    });
}

Personne::~Personne() = default;

QString Personne::Genre() const {
    return VersQString(liste_.Genre);
}

void Personne::Montrer() {
    setWindowTitle(VersQString(liste_.Titre));
    Rafraichir();
    Elargir();
    // Jamais placée (ni par les réglages ni par l'utilisateur) : à côté de la fiche.
    if (!testAttribute(Qt::WA_Moved) && parentWidget()) {
        const QRect f = parentWidget()->window()->frameGeometry();
        QScreen* ecran = screen() ? screen() : QGuiApplication::primaryScreen();
        if (ecran) {
            const QRect e = ecran->availableGeometry();
            const Cadre c =
                PlacerACote({f.x(), f.y(), f.width(), f.height()}, width(), std::max(height(), f.height()),
                            {e.x(), e.y(), e.width(), e.height()});
            setGeometry(c.x, c.y, c.l, c.h);
        }
    }
    show();
    raise();
    activateWindow();
    ui_->Liste->setFocus();
}

// La fenêtre s'élargit à ses rangées (les premières : une liste peut en compter un million),
// sans dépasser la moitié de l'écran ; elle ne rétrécit jamais d'elle-même.
void Personne::Elargir() {
    constexpr int kRangeesMesurees = 300;
    const int n = std::min(modele_->rowCount(), kRangeesMesurees);
    QStyleOptionViewItem option;
    option.initFrom(ui_->Liste);
    option.font = ui_->Liste->font();
    option.fontMetrics = QFontMetrics(option.font);
    int contenu = 0;
    for (int i = 0; i < n; ++i)
        contenu = std::max(contenu, ui_->Liste->itemDelegate()->sizeHint(option, modele_->index(i)).width());
    const int voulue = contenu + ui_->Liste->verticalScrollBar()->sizeHint().width() +
                       2 * ui_->Liste->frameWidth() + layout()->contentsMargins().left() +
                       layout()->contentsMargins().right();
    QScreen* ecran = screen() ? screen() : QGuiApplication::primaryScreen();
    const int plafond = ecran ? ecran->availableGeometry().width() / 2 : voulue;
    if (voulue > width()) resize(std::min(voulue, plafond), height());
}

void Personne::Rafraichir() {
    modele_->Recharger();
    ui_->Liste->setToolTip({});
}

int Personne::RangeeChoisie() const {
    const QModelIndex i = ui_->Liste->currentIndex();
    return i.isValid() && ui_->Liste->selectionModel()->isSelected(i) ? i.row() : -1;
}

void Personne::Choisir(int rangee) {
    if (rangee < 0 || rangee >= modele_->rowCount()) return;
    const QModelIndex i = modele_->index(rangee);
    ui_->Liste->setCurrentIndex(i);
    ui_->Liste->scrollTo(i);
}

void Personne::Cliquer(int rangee) {
    if (rangee < 0 || rangee >= modele_->rowCount()) return;
    const std::size_t r = static_cast<std::size_t>(rangee);
    ui_->Liste->setToolTip(VersQString(BulleRangee(base_, options_, liste_, r)));
    // La personne choisie sert de modèle à une nouvelle fiche (nom, prénoms, sexe).
    const LectureQueue q = LireQueue(liste_.Rangees[r].texte);
    if (q.genre == 'P' && q.numero > 0 && rangee != 0) liste_.Rangees[0].valeur = q.numero;
    // Un simple clic montre la personne sur la fiche, la liste restant ouverte et devant.
    if (!enChoix_ && q.genre == 'P' && q.numero > 0 && rangee != 0 && PersonneExiste(base_, q.numero)) {
        Reaction r;
        r.action = ActionListe::Afficher;
        r.numero = q.numero;
        emit Reagir(r);
        raise();
        activateWindow();
    }
}

std::optional<std::string> Personne::ChoisirParmi(const ListeCandidats& candidats) {
    OuvrirListe(liste_, candidats.genre, candidats.titre, candidats.premiereLigne, true);
    for (const auto& ligne : candidats.lignes) liste_.Rangees.push_back({ligne, 0});
    setWindowTitle(VersQString(liste_.Titre));
    Rafraichir();
    Choisir(0);
    choix_.reset();
    enChoix_ = true;
    exec();
    enChoix_ = false;
    hide();
    return choix_;
}

void Personne::DoubleCliquer(int rangee) {
    if (rangee < 0 || rangee >= modele_->rowCount()) return;
    Choisir(rangee);
    if (enChoix_) {
        choix_ = liste_.Rangees[static_cast<std::size_t>(rangee)].texte;
        accept();
        return;
    }
    ui_->Liste->setToolTip({});
    const Reaction r = DoubleClic(base_, options_, liste_, static_cast<std::size_t>(rangee));
    if (r.fermer) hide();
    emit Reagir(r);
}

void Personne::CliquerDroit(int rangee) {
    if (rangee < 0 || rangee >= modele_->rowCount()) return;
    Choisir(rangee);
    const Reaction r = ClicDroit(base_, options_, liste_, static_cast<std::size_t>(rangee));
    emit Reagir(r);
    // La fiche a changé derrière : la liste revient devant.
    if (isVisible()) {
        raise();
        activateWindow();
    }
}

void Personne::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        DoubleCliquer(RangeeChoisie());
        return;
    }
    if (e->key() == Qt::Key_Escape) {
        if (enChoix_) reject();
        hide();
        return;
    }
    QDialog::keyPressEvent(e);
}

bool Personne::eventFilter(QObject* objet, QEvent* e) {
    if (objet == ui_->Liste && e->type() == QEvent::KeyPress) {
        auto* k = static_cast<QKeyEvent*>(e);
        if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter || k->key() == Qt::Key_Escape) {
            keyPressEvent(k);
            return true;
        }
        // Une lettre minuscule saute à la première rangée qui n'est pas avant elle.
        const QString t = k->text();
        if (t.size() == 1 && k->modifiers() == Qt::NoModifier) {
            const auto saut = SautLettre(liste_, DepuisQString(t).front());
            if (saut) Choisir(static_cast<int>(*saut));
            return true;
        }
    }
    return QDialog::eventFilter(objet, e);
}

bool Personne::event(QEvent* e) {
    if (e->type() == QEvent::WindowActivate) {
        ui_->Liste->setToolTip({});
        if (liste_.Genre != "enfants" && liste_.Genre != "conjoint" && !liste_.Rangees.empty())
            liste_.Rangees[0].valeur = 0;
    }
    return QDialog::event(e);
}

}  // namespace arbolix
