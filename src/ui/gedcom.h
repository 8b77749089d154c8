// Le dialogue Gedcom : nouveau fichier, ouverture, enregistrement, avec ses cases et sa progression.
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

#include "gedcom/options_gedcom.h"
#include "platform/dialogue.h"
#include "platform/progression.h"

namespace Ui {
class Gedcom;
}

namespace arbolix {

class Gedcom : public QDialog, public Progression {
    Q_OBJECT
public:
    // Le travail du bouton OK : lire, créer ou écrire ; rend vrai quand le dialogue peut se fermer.
    using Travail = std::function<bool(Gedcom&)>;

    Gedcom(QWidget* parent, Dialogue* dialogue);
    void RemplacerDialogue(Dialogue* d) { dialogue_ = d; }
    ~Gedcom() override;

    // Prépare le dialogue pour un mode, avec ses cases et la liste des fichiers récents.
    void Preparer(ModeGedcom mode, const QString& titre, const OptionsGedcom& valeurs,
                  const std::vector<std::string>& recents, Travail travail);
    // Les cases telles que l'utilisateur les a laissées.
    OptionsGedcom Valeurs() const;
    void FixerFichier(const std::string& chemin);
    void FixerTitreParcourir(const std::string& titre) { titreParcourir_ = titre; }

    // Progression
    void Compteur(std::string_view texte) override;
    void Avancement(std::string_view texte) override;
    void LaisserPasser() override;
    bool Annule() const override { return annule_; }

public slots:
    void BoutonParcourir();
    void BoutonOK();
    void BoutonAnnuler();

protected:
    void reject() override;

private:
    bool RemplacementAccepte();

    std::unique_ptr<Ui::Gedcom> ui_;
    Dialogue* dialogue_;
    ModeGedcom mode_ = ModeGedcom::Ouvrir;
    Travail travail_;
    std::string titreParcourir_;
    QString fichierDepart_;
    bool occupe_ = false;
    bool annule_ = false;
};

}  // namespace arbolix
