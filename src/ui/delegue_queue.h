// Les rangées des listes avec leur queue (" P000002") dans une colonne étroite et grise, à droite :
// le texte de la rangée ne change pas, seul son dessin sépare le nom du numéro.
#pragma once

#include <QStyledItemDelegate>

namespace arbolix {

class DelegueQueue : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* peintre, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // Le texte d'une rangée coupé en corps et queue ; queue vide quand la rangée n'en a pas.
    static std::pair<QString, QString> Couper(const QString& rangee);
    // La largeur de la colonne des queues dans cette police.
    static int LargeurQueue(const QFontMetrics& mesure);
};

}  // namespace arbolix
