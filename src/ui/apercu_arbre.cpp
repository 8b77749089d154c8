#include "ui/apercu_arbre.h"

#include <QAction>
#include <QFontMetricsF>
#include <QMenu>
#include <QMouseEvent>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "platform/qt_texte.h"

namespace arbolix {

namespace {

QFont Police(const Options& o) {
    QFont f(o.Police.empty() ? QStringLiteral("Sans Serif") : VersQString(o.Police));
    f.setStyleHint(QFont::SansSerif);
    return f;
}

}  // namespace

MesureQt::MesureQt(const Options& options) : police_(Police(options)) {
    police_.setPixelSize(100);
}

double MesureQt::HauteurLigne(double taille) const {
    return QFontMetricsF(police_).height() / 100 * taille * kMmParPoint;
}

double MesureQt::Largeur(std::string_view texte, double taille) const {
    return QFontMetricsF(police_).horizontalAdvance(VersQString(texte)) / 100 * taille * kMmParPoint;
}

void PeindreArbre(QPainter& p, const DessinArbre& d, const Options& options, double pxParMm, int page) {
    p.save();
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(pxParMm, pxParMm);
    const double dpi = p.device() ? p.device()->logicalDpiY() : 96;
    // Le peintre compte en millimètres : la police se donne en points de ce repère.
    const auto police = [&](double taille) {
        QFont f = Police(options);
        f.setPointSizeF(std::max(0.01, taille * kMmParPoint * 72.0 / dpi));
        return f;
    };
    const auto decalage = [&](int pageObjet) { return page == 0 ? (pageObjet - 1) * d.HF : 0.0; };
    const auto montrer = [&](int pageObjet) { return page == 0 || page == pageObjet; };
    QPen trait(Qt::black);
    trait.setWidthF(0.3);
    p.setPen(trait);
    for (const auto& t : d.Traits)
        if (montrer(t.page))
            p.drawLine(QPointF(t.x1, t.y1 + decalage(t.page)), QPointF(t.x2, t.y2 + decalage(t.page)));
    const QBrush fond = options.FondCaseCouleur ? QBrush(QColor(255, 248, 220)) : QBrush(Qt::white);
    for (const auto& c : d.Cases) {
        if (!montrer(c.page)) continue;
        const QRectF r(c.x, c.y + decalage(c.page), d.LC, d.HC);
        p.setBrush(fond);
        p.drawRoundedRect(r, 2, 2);
        const QFont f = police(c.taille);
        p.setFont(f);
        const QFontMetricsF fm(f, p.device());
        const double pas = QFontMetricsF(f, p.device()).height();
        for (std::size_t k = 0; k < c.lignes.size(); ++k)
            p.drawText(QPointF(r.left() + d.MC, r.top() + d.MC + static_cast<double>(k) * pas + fm.ascent()),
                       VersQString(c.lignes[k]));
    }
    for (const auto& t : d.Textes) {
        if (!montrer(t.page)) continue;
        p.setFont(police(t.taille));
        p.drawText(QPointF(t.x, t.y + decalage(t.page)), VersQString(t.texte));
    }
    p.restore();
}

Pr::Pr(const Options& options, QWidget* parent) : QWidget(parent, Qt::Window), options_(options) {
    setObjectName("Pr");
    setWindowTitle(VersQString("Aper\xE7u"));
    setAttribute(Qt::WA_OpaquePaintEvent);
    menu_ = new QMenu(this);
    menuRemonter_ = menu_->addAction(VersQString("Descendre vers un enfant..."));
    menuRemonter_->setObjectName("MenuRemonter");
    menuCase_ = menu_->addAction(VersQString("Arbre de cette personne"));
    menuCase_->setObjectName("MenuCase");
    menu_->addSeparator();
    QAction* imprimer = menu_->addAction(VersQString("Imprimer"));
    imprimer->setObjectName("MenuImprimer");
    QAction* enregistrer = menu_->addAction(VersQString("Enregistrer sous..."));
    enregistrer->setObjectName("MenuEnregistrer");
    QAction* fermer = menu_->addAction(VersQString("Fermer"));
    fermer->setObjectName("MenuFermer");
    connect(menuCase_, &QAction::triggered, this, &Pr::MenuCase);
    connect(menuRemonter_, &QAction::triggered, this, [this] { emit Remonter(racine_); });
    connect(imprimer, &QAction::triggered, this, &Pr::Imprimer);
    connect(enregistrer, &QAction::triggered, this, &Pr::Enregistrer);
    connect(fermer, &QAction::triggered, this, &QWidget::hide);
    resize(800, 600);
}

void Pr::Montrer(DessinArbre dessin, std::int32_t racine, int decalage) {
    dessin_ = std::move(dessin);
    racine_ = racine;
    decalage_ = decalage;
    const bool ascendant = dessin_.Genre == kAscendant || dessin_.Genre == kAscendantA4;
    menuCase_->setEnabled(ascendant);
    menuRemonter_->setEnabled(ascendant);
    show();
    update();
}

double Pr::Echelle() const {
    const double hauteur = dessin_.HF * std::max(1, dessin_.Pages);
    if (dessin_.LF <= 0 || hauteur <= 0) return 1;
    return std::min(width() / dessin_.LF, height() / hauteur);
}

QPointF Pr::EnMillimetres(QPointF p) const {
    return p / Echelle();
}
QPointF Pr::EnPixels(double x, double y) const {
    return QPointF(x, y) * Echelle();
}

void Pr::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), palette().window());
    if (!dessin_.Dessine() || dessin_.LF <= 0) return;
    const double s = Echelle();
    p.fillRect(QRectF(0, 0, dessin_.LF * s, dessin_.HF * std::max(1, dessin_.Pages) * s), Qt::white);
    PeindreArbre(p, dessin_, options_, s, 0);
}

// Le dessin suit la taille de la fenêtre.
void Pr::resizeEvent(QResizeEvent*) {
    update();
}

void Pr::mouseReleaseEvent(QMouseEvent* e) {
    const QPointF mm = EnMillimetres(e->position());
    x_ = mm.x();
    y_ = mm.y();
    if (e->button() == Qt::RightButton) menu_->popup(e->globalPosition().toPoint());
}

void Pr::MenuCase() {
    const std::int32_t personne = PersonneAuPoint(dessin_, x_, y_);
    if (personne > 0) emit Recentrer(personne, decalage_);
}

}  // namespace arbolix
