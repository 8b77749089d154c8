// Modèle Qt des rangées que le noyau a calculées : un million de rangées sans un objet par rangée.
#pragma once

#include <QAbstractListModel>

#include "lists/rangees.h"

namespace arbolix {

class ModeleListe : public QAbstractListModel {
    Q_OBJECT
public:
    explicit ModeleListe(const ListePersonne& liste, QObject* parent = nullptr)
        : QAbstractListModel(parent), liste_(liste) {}
    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    // À appeler après chaque remplissage de la liste du noyau.
    void Recharger();

private:
    const ListePersonne& liste_;
};

}  // namespace arbolix
