// Un filtre d'évènements qui confie les touches d'un contrôle à une fonction de sa fenêtre.
#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <functional>

namespace arbolix {

// La fonction rend vrai quand elle a pris la touche, qui ne va alors pas plus loin.
class FiltreTouches : public QObject {
public:
    FiltreTouches(QObject* parent, std::function<bool(QKeyEvent*)> touche)
        : QObject(parent), touche_(std::move(touche)) {}

protected:
    bool eventFilter(QObject* objet, QEvent* e) override {
        if (e->type() == QEvent::KeyPress && touche_(static_cast<QKeyEvent*>(e))) return true;
        return QObject::eventFilter(objet, e);
    }

private:
    std::function<bool(QKeyEvent*)> touche_;
};

}  // namespace arbolix
