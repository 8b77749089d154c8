#include "ui/modele_liste.h"

#include "platform/qt_texte.h"

namespace arbolix {

int ModeleListe::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(liste_.Rangees.size());
}

QVariant ModeleListe::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Rangee& r = liste_.Rangees[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole) return VersQString(r.texte);
    if (role == Qt::UserRole) return r.valeur;
    return {};
}

void ModeleListe::Recharger() {
    beginResetModel();
    endResetModel();
}

}  // namespace arbolix
