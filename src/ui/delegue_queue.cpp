#include "ui/delegue_queue.h"

#include <QApplication>
#include <QPainter>

namespace arbolix {

namespace {

constexpr int kLongueurQueue = 8;  // un blanc, le genre, six chiffres
constexpr int kEcart = 12;         // entre le corps et la colonne des queues

}  // namespace

std::pair<QString, QString> DelegueQueue::Couper(const QString& rangee) {
    if (rangee.size() <= kLongueurQueue) return {rangee, {}};
    const QString queue = rangee.right(kLongueurQueue);
    bool chiffres = true;
    for (int i = 2; i < kLongueurQueue; ++i) chiffres = chiffres && queue[i].isDigit();
    if (queue[0] != ' ' || queue[1] == ' ' || !chiffres) return {rangee, {}};
    return {rangee.left(rangee.size() - kLongueurQueue), queue.mid(1)};
}

int DelegueQueue::LargeurQueue(const QFontMetrics& mesure) {
    return mesure.horizontalAdvance("P000000") + kEcart;
}

void DelegueQueue::paint(QPainter* peintre, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
    QStyleOptionViewItem o = option;
    initStyleOption(&o, index);
    const auto [corps, queue] = Couper(o.text);
    if (queue.isEmpty()) return QStyledItemDelegate::paint(peintre, option, index);
    const int largeur = LargeurQueue(o.fontMetrics);
    // Le fond et la sélection sur toute la rangée, le corps à gauche de la colonne des queues.
    o.text = corps;
    o.textElideMode = Qt::ElideRight;
    o.rect.setRight(o.rect.right() - largeur);
    QStyle* style = o.widget ? o.widget->style() : QApplication::style();
    QStyleOptionViewItem fond = option;
    initStyleOption(&fond, index);
    fond.text.clear();
    style->drawControl(QStyle::CE_ItemViewItem, &fond, peintre, o.widget);
    style->drawControl(QStyle::CE_ItemViewItem, &o, peintre, o.widget);
    peintre->save();
    const bool choisie = option.state & QStyle::State_Selected;
    peintre->setPen(choisie ? option.palette.color(QPalette::HighlightedText)
                            : option.palette.color(QPalette::Disabled, QPalette::Text));
    const QRect colonne(option.rect.right() - largeur + kEcart, option.rect.top(), largeur - kEcart,
                        option.rect.height());
    peintre->drawText(colonne, Qt::AlignLeft | Qt::AlignVCenter, queue);
    peintre->restore();
}

QSize DelegueQueue::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
    QStyleOptionViewItem o = option;
    initStyleOption(&o, index);
    const auto [corps, queue] = Couper(o.text);
    QSize t = QStyledItemDelegate::sizeHint(option, index);
    if (!queue.isEmpty())
        t.setWidth(t.width() - o.fontMetrics.horizontalAdvance(o.text) +
                   o.fontMetrics.horizontalAdvance(corps) + LargeurQueue(o.fontMetrics));
    return t;
}

}  // namespace arbolix
