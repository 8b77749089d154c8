// La fenêtre Exports : copie les cases entre ses contrôles et OptionsExport, et lance le rapport.
#pragma once

#include <QDialog>
#include <filesystem>
#include <memory>
#include <string>

#include "lists/rangees.h"
#include "platform/dialogue.h"
#include "platform/progression.h"
#include "reports/exports.h"
#include "store/base.h"
#include "store/options.h"

namespace Ui {
class FenetreExports;
}

namespace arbolix {

// Un rapport tourne dans le clic de LancerExport ; la fenêtre est sa Progression : la pompe
// d'évènements laisse arriver Annuler ou Échap, qui lèvent AnnulerExport.
class FenetreExports : public QDialog, public Progression {
    Q_OBJECT

public:
    FenetreExports(Base& base, const Options& options, std::filesystem::path ini, Dialogue& dialogue,
                   QWidget* parent = nullptr);
    ~FenetreExports() override;

    // MenuExport(type) : titre, cadres visibles, réglages retenus, fichier et titre proposés.
    // liste : la liste remplie avant (ligne de vie, isolés), qui doit survivre à la fenêtre.
    // L'ordre du livre (tri de la recherche d'actes) et l'entrée cochée du menu Sélection.
    void ReglerLivre(const ReglagesLivre& livre) { livre_ = livre; }
    void Ouvrir(int type, std::int32_t personne, const std::string& fichierGedcom, std::string libelleSel,
                const ListePersonne* liste);
    int TypeExport() const { return type_; }
    const OptionsExport& Valeurs() const { return exports_; }

    // Progression
    void Compteur(std::string_view texte) override;
    void LaisserPasser() override;
    bool Annule() const override { return annulerExport_; }

public slots:
    void LancerExport();
    void BoutonAnnulerExport();
    void BoutonParcourir();
    void BoutonParcourirTexte();
    void reject() override;

signals:
    // Un rapport est écrit : l'essai et la fiche le savent.
    void Exporte(const QString& fichier);

private:
    ReglagesLivre livre_{};
    void AfficherValeurs();
    void LireControles();
    void AppliquerVisibilite();
    void ChangerColonnes();

    std::unique_ptr<Ui::FenetreExports> ui_;
    Base& base_;
    const Options& options_;
    std::filesystem::path ini_;
    Dialogue& dialogue_;
    OptionsExport exports_;
    int type_ = 0;
    std::int32_t personne_ = 0;
    std::string fichierGedcom_;
    std::string libelleSel_;
    const ListePersonne* liste_ = nullptr;
    bool annulerExport_ = false;
};

}  // namespace arbolix
