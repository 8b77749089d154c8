// L'éditeur de texte : ici, le journal de lecture d'un fichier.
#pragma once

#include <QDialog>
#include <QPlainTextEdit>

namespace arbolix {

class Editeur : public QDialog {
    Q_OBJECT
public:
    explicit Editeur(QWidget* parent);
    // Montre un texte 1252 (lignes CR LF) en lecture seule, sous un titre.
    void Montrer(const QString& titre, std::string_view texte);
    QString Texte() const { return texte_->toPlainText(); }

private:
    QPlainTextEdit* texte_;
};

}  // namespace arbolix
