#include "ui/graphiques.h"

#include <QFileInfo>
#include <QPainter>
#include <QPushButton>
#include <QSvgGenerator>
#include <QTabWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/cp1252.h"
#include "platform/qt_texte.h"

namespace arbolix {

namespace {

// Une couleur par série, assez distinctes pour l'écran comme pour l'impression en gris.
const QColor kCouleurs[] = {QColor(0x3b, 0x6e, 0xa5), QColor(0xd9, 0x82, 0x2b), QColor(0x5a, 0x9e, 0x4b),
                            QColor(0x8e, 0x5b, 0x9e)};
constexpr double kGauche = 48, kDroite = 12, kHaut = 34, kBas = 58;

}  // namespace

GraphiqueBarres::GraphiqueBarres(Repartition r, QWidget* parent) : QWidget(parent), r_(std::move(r)) {
    setMinimumSize(360, 260);
}

std::int64_t GraphiqueBarres::Maximum() const {
    std::int64_t m = 0;
    for (const auto& serie : r_.valeurs)
        for (const auto v : serie) m = std::max(m, v);
    return m;
}

QRectF GraphiqueBarres::Trace(QSizeF taille) const {
    return {kGauche, kHaut, std::max(1.0, taille.width() - kGauche - kDroite),
            std::max(1.0, taille.height() - kHaut - kBas)};
}

std::vector<QRectF> GraphiqueBarres::Barres(int serie, QSizeF taille) const {
    std::vector<QRectF> barres;
    const auto n = r_.etiquettes.size();
    const auto series = r_.valeurs.size();
    if (n == 0 || serie < 0 || static_cast<std::size_t>(serie) >= series) return barres;
    const QRectF t = Trace(taille);
    const double groupe = t.width() / static_cast<double>(n);
    const double largeur = groupe * 0.8 / static_cast<double>(series);
    // Sans aucune valeur, les barres restent plates plutôt que de diviser par zéro.
    const double echelle = Maximum() > 0 ? t.height() / static_cast<double>(Maximum()) : 0;
    for (std::size_t i = 0; i < n; ++i) {
        const auto v = i < r_.valeurs[serie].size() ? r_.valeurs[serie][i] : 0;
        const double h = static_cast<double>(v) * echelle;
        barres.emplace_back(t.left() + groupe * (i + 0.1) + largeur * serie, t.bottom() - h, largeur, h);
    }
    return barres;
}

void GraphiqueBarres::Dessiner(QPainter& p, QSizeF taille) const {
    const QRectF t = Trace(taille);
    p.fillRect(QRectF(QPointF(0, 0), taille), Qt::white);
    p.setPen(Qt::black);
    QFont police = p.font();
    police.setPointSizeF(9);
    p.setFont(police);
    p.drawText(QRectF(0, 4, taille.width(), 18), Qt::AlignHCenter, VersQString(r_.titre));
    // Axe des valeurs : le maximum et zéro.
    p.drawLine(t.bottomLeft(), t.bottomRight());
    p.drawLine(t.bottomLeft(), t.topLeft());
    p.drawText(QRectF(0, t.top() - 7, kGauche - 4, 14), Qt::AlignRight | Qt::AlignVCenter,
               QString::number(Maximum()));
    p.drawText(QRectF(0, t.bottom() - 7, kGauche - 4, 14), Qt::AlignRight | Qt::AlignVCenter, "0");
    for (std::size_t s = 0; s < r_.valeurs.size(); ++s) {
        const QColor c = kCouleurs[s % std::size(kCouleurs)];
        for (const QRectF& b : Barres(static_cast<int>(s), taille)) p.fillRect(b, c);
        // Légende sous les étiquettes.
        const QRectF carre(kGauche + 110.0 * s, taille.height() - 16, 10, 10);
        p.fillRect(carre, c);
        p.drawText(QRectF(carre.right() + 4, carre.top() - 3, 96, 16), Qt::AlignLeft | Qt::AlignVCenter,
                   s < r_.series.size() ? VersQString(r_.series[s]) : QString());
    }
    // Étiquettes penchées sous chaque groupe, pour que douze mois tiennent côte à côte.
    const double groupe = t.width() / std::max<double>(1, static_cast<double>(r_.etiquettes.size()));
    for (std::size_t i = 0; i < r_.etiquettes.size(); ++i) {
        p.save();
        p.translate(t.left() + groupe * (i + 0.5), t.bottom() + 6);
        p.rotate(35);
        p.drawText(QPointF(0, 8), VersQString(r_.etiquettes[i]));
        p.restore();
    }
}

void GraphiqueBarres::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    Dessiner(p, size());
}

VueGraphiques::VueGraphiques(const std::vector<Repartition>& repartitions, Dialogue& dialogue,
                             QWidget* parent)
    : QWidget(parent), onglets_(new QTabWidget(this)), dialogue_(dialogue) {
    setObjectName("Graphiques");
    onglets_->setObjectName("Onglets");
    for (std::size_t i = 0; i < repartitions.size(); ++i) {
        auto* g = new GraphiqueBarres(repartitions[i], onglets_);
        g->setObjectName(QString("Graphique_%1").arg(i));
        QString nom = VersQString(repartitions[i].titre);
        nom.remove(QString::fromUtf8("répartition "));
        onglets_->addTab(g, nom);
    }
    auto* image = new QPushButton(QString::fromUtf8("Enregistrer l'image..."), this);
    image->setObjectName("BoutonImage");
    image->setAutoDefault(false);
    auto* d = new QVBoxLayout(this);
    d->setContentsMargins(0, 0, 0, 0);
    d->addWidget(onglets_, 1);
    d->addWidget(image, 0, Qt::AlignRight);
    connect(image, &QPushButton::clicked, this, &VueGraphiques::BoutonImage);
}

std::vector<GraphiqueBarres*> VueGraphiques::Graphiques() const {
    std::vector<GraphiqueBarres*> g;
    for (int i = 0; i < onglets_->count(); ++i)
        g.push_back(static_cast<GraphiqueBarres*>(onglets_->widget(i)));
    return g;
}

bool VueGraphiques::EnregistrerImage(const QString& chemin) const {
    const auto* g = static_cast<const GraphiqueBarres*>(onglets_->currentWidget());
    if (!g) return false;
    const QSize taille(720, 480);
    if (QFileInfo(chemin).suffix().compare("svg", Qt::CaseInsensitive) == 0) {
        QSvgGenerator svg;
        svg.setFileName(chemin);
        svg.setSize(taille);
        svg.setViewBox(QRect(QPoint(0, 0), taille));
        svg.setTitle(VersQString(g->Donnees().titre));
        QPainter p;
        if (!p.begin(&svg)) return false;
        g->Dessiner(p, taille);
        return p.end();
    }
    QImage image(taille, QImage::Format_RGB32);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    g->Dessiner(p, taille);
    p.end();
    return image.save(chemin, "PNG");
}

void VueGraphiques::BoutonImage() {
    const auto chemin = dialogue_.ChoisirFichierEnregistrer(
        "Enregistrer l'image...", "Images PNG ou SVG (*.png *.svg)", "statistiques.png");
    if (!chemin) return;
    if (!EnregistrerImage(QString::fromStdString(*chemin)))
        dialogue_.Message("Enregistrer l'image",
                          "L'image n'a pas pu \xEAtre \xE9\x63rite dans " + Utf8VersCp1252(*chemin) + ".",
                          Icone::Stop);
}

}  // namespace arbolix
