// Les répartitions des statistiques en barres, dessinées au QPainter, à côté du texte de l'éditeur.
#pragma once

#include <QRectF>
#include <QWidget>
#include <vector>

#include "platform/dialogue.h"
#include "reports/statistiques.h"

class QPainter;
class QTabWidget;

namespace arbolix {

// Une répartition : un groupe de barres par étiquette, une barre par série, une légende.
class GraphiqueBarres : public QWidget {
    Q_OBJECT
public:
    GraphiqueBarres(Repartition r, QWidget* parent);
    const Repartition& Donnees() const { return r_; }
    // Les barres d'une série dans un cadre de cette taille : une par étiquette, dans l'ordre.
    std::vector<QRectF> Barres(int serie, QSizeF taille) const;
    void Dessiner(QPainter& p, QSizeF taille) const;
    QSize sizeHint() const override { return {520, 360}; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QRectF Trace(QSizeF taille) const;  // la zone des barres, sans les marges des textes
    std::int64_t Maximum() const;

    Repartition r_;
};

// Un onglet par répartition et de quoi enregistrer celle qu'on voit en PNG ou en SVG.
class VueGraphiques : public QWidget {
    Q_OBJECT
public:
    VueGraphiques(const std::vector<Repartition>& repartitions, Dialogue& dialogue, QWidget* parent);
    std::vector<GraphiqueBarres*> Graphiques() const;
    // Enregistre le graphique montré ; le format suit l'extension (.svg, sinon PNG).
    bool EnregistrerImage(const QString& chemin) const;

private:
    void BoutonImage();

    QTabWidget* onglets_;
    Dialogue& dialogue_;
};

}  // namespace arbolix
