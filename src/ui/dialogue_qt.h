// Le seam Dialogue sur les boîtes et sélecteurs de Qt.
#pragma once

#include <QWidget>

#include "platform/dialogue.h"

namespace arbolix {

class DialogueQt : public Dialogue {
public:
    explicit DialogueQt(QWidget* parent) : parent_(parent) {}
    void ChangerParent(QWidget* parent) { parent_ = parent; }

    Bouton Message(std::string_view titre, std::string_view texte, Icone icone, Boutons boutons,
                   std::optional<Bouton> defaut) override;
    std::optional<std::string> Saisie(std::string_view titre, std::string_view invite,
                                      std::string_view defaut) override;
    std::optional<std::string> ChoisirFichierOuvrir(std::string_view titre, std::string_view filtre,
                                                    std::string_view depart) override;
    std::optional<std::string> ChoisirFichierEnregistrer(std::string_view titre, std::string_view filtre,
                                                         std::string_view depart) override;
    std::optional<std::string> ChoisirDossier(std::string_view titre, std::string_view depart) override;
    bool OuvrirDansProgramme(std::string_view chemin) override;

private:
    QWidget* parent_;
};

}  // namespace arbolix
