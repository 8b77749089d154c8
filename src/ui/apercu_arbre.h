// L'aperçu Pr : l'arbre peint à l'échelle de la fenêtre, carte des cases, menu du clic droit.
#pragma once

#include <QWidget>
#include <cstdint>

#include "store/options.h"
#include "trees/dessin_arbre.h"

class QAction;
class QMenu;
class QPainter;

namespace arbolix {

// Les mesures de la police de l'aperçu et de l'imprimante, en millimètres.
class MesureQt : public MesureTexte {
public:
    explicit MesureQt(const Options& options);
    double HauteurLigne(double taille) const override;
    double Largeur(std::string_view texte, double taille) const override;

private:
    QFont police_;  // à 100 pixels : les mesures se ramènent à la taille voulue
};

// Peint le dessin, pages les unes sous les autres (page 0) ou la seule page donnée, avec
// pxParMm unités du peintre par millimètre.
void PeindreArbre(QPainter& peintre, const DessinArbre& d, const Options& options, double pxParMm, int page);

class Pr : public QWidget {
    Q_OBJECT
public:
    Pr(const Options& options, QWidget* parent = nullptr);

    void Montrer(DessinArbre dessin, std::int32_t racine, int decalage);
    const DessinArbre& Dessin() const { return dessin_; }
    std::int32_t Racine() const { return racine_; }
    int Decalage() const { return decalage_; }
    // Le point gardé au relâchement de la souris, en millimètres.
    double XGarde() const { return x_; }
    double YGarde() const { return y_; }
    // Les millimètres d'un point de la fenêtre.
    QPointF EnMillimetres(QPointF p) const;
    QPointF EnPixels(double x, double y) const;
    QMenu* Menu() const { return menu_; }

signals:
    void Recentrer(std::int32_t personne, int decalage);
    void Remonter(std::int32_t racine);
    void Imprimer();
    void Enregistrer();

protected:
    void paintEvent(QPaintEvent* e) override;
    void resizeEvent(QResizeEvent* e) override;
    void mouseReleaseEvent(QMouseEvent* e) override;

private:
    double Echelle() const;
    void MenuCase();

    const Options& options_;
    DessinArbre dessin_;
    std::int32_t racine_ = 0;
    int decalage_ = 0;
    double x_ = 0, y_ = 0;
    QMenu* menu_;
    QAction* menuCase_;
    QAction* menuRemonter_;
};

}  // namespace arbolix
