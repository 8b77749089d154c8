// Personne : la fenêtre de liste, seul sélecteur du programme ; ses clics vont selon Genre et la queue des
// rangées.
#pragma once

#include <QDialog>
#include <memory>
#include <optional>
#include <string>

#include "card/candidats.h"
#include "lists/listes.h"
#include "store/base.h"
#include "store/options.h"

namespace Ui {
class Personne;
}

namespace arbolix {

class ModeleListe;

class Personne : public QDialog {
    Q_OBJECT
public:
    Personne(const Base& base, const Options& options, QWidget* parent);
    ~Personne() override;

    ListePersonne& Liste() { return liste_; }
    const ListePersonne& Liste() const { return liste_; }
    // Après un remplissage : titre, rangées, et la fenêtre montrée sans être modale.
    void Montrer();
    // Après une récriture des rangées sans changer de liste.
    void Rafraichir();
    QString Genre() const;

    // La fenêtre sert de sélecteur, modale : les candidats d'un lien (parents, conjoint,
    // enfant, témoin, note). Rend la rangée du double clic ou d'Entrée, rien sur Échap.
    std::optional<std::string> ChoisirParmi(const ListeCandidats& candidats);

    int RangeeChoisie() const;  // -1 sans choix
    void Choisir(int rangee);
    // Les trois gestes, aussi appelés par les essais.
    void Cliquer(int rangee);
    void DoubleCliquer(int rangee);
    void CliquerDroit(int rangee);

signals:
    // Ce que la fiche doit faire ; la fenêtre s'est déjà fermée quand la règle le veut.
    void Reagir(const arbolix::Reaction& reaction);

protected:
    void keyPressEvent(QKeyEvent* e) override;
    bool event(QEvent* e) override;
    bool eventFilter(QObject* objet, QEvent* e) override;

private:
    void Elargir();

    const Base& base_;
    const Options& options_;
    ListePersonne liste_;
    std::unique_ptr<Ui::Personne> ui_;
    ModeleListe* modele_;
    bool enChoix_ = false;
    std::optional<std::string> choix_;
};

}  // namespace arbolix
