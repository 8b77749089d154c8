// RechActe : la recherche d'actes, en liste triée ou pour faire la sélection active.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "lists/recherche_actes.h"
#include "lists/selection_active.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

class QListWidget;

namespace Ui {
class RechActe;
}

namespace arbolix {

class RechActe : public QDialog {
    Q_OBJECT
public:
    // Ce que la fenêtre demande à la fiche.
    struct Liens {
        std::function<Dialogue&()> dialogue;
        std::function<std::int32_t()> fiche;  // la personne montrée (0 : aucune)
        std::function<void(ListePersonne)> montrerListe;
        // Mode sélection : fait la sélection et rend la légende de MenuSelInfo.
        std::function<void(const RechercheActes&)> selectionner;
        std::function<int()> selCochee;
    };
    RechActe(Base& base, const Options& options, Liens liens, QWidget* parent);
    ~RechActe() override;

    // Montre la fenêtre : « Recherche d'actes » (liste) ou « Sélection d'actes... » (sélection,
    // « Tous » coché).
    void Ouvrir(bool selection);
    bool ModeSelection() const { return selection_; }
    RechercheActes Recherche() const;
    // La liste à cases des noms, lieux ou professions ; nulle avant le premier choix.
    QDialog* ListeCriteres() const { return criteres_; }

    void BoutonOK();

private:
    void ChoisirCritere(int option);
    void MontrerCriteres(int option);
    void CocherCritere(int rangee);
    void ChoisirTri(int index);
    void PoserCritere();

    Base& base_;
    const Options& options_;
    Liens liens_;
    std::unique_ptr<Ui::RechActe> ui_;
    bool selection_ = false;
    QDialog* criteres_ = nullptr;
    QListWidget* cases_ = nullptr;
    ListeCochee valeurs_;
    bool remplissage_ = false;
    std::int32_t temoin_ = 0;
};

}  // namespace arbolix
