// La fiche : la fenêtre principale, autour de laquelle tourne chaque commande.
#pragma once

#include <QMainWindow>
#include <filesystem>
#include <memory>
#include <vector>

#include "app/messages.h"
#include "gedcom/lecteur.h"
#include "gedcom/options_gedcom.h"
#include "store/base.h"
#include "store/options.h"
#include "ui/dialogue_qt.h"

namespace Ui {
class Fiche;
}

namespace arbolix {

class Editeur;
class Gedcom;

class Fiche : public QMainWindow {
    Q_OBJECT
public:
    explicit Fiche(QWidget* parent = nullptr);
    ~Fiche() override;

    // Démarrage : le fichier de la ligne de commande (déjà nettoyé) ou rien.
    void Demarrer(const std::string& ligneCommande, const std::string& executable);

    Base& base() { return base_; }
    Options& options() { return options_; }
    OptionsGedcom& gedcom() { return gedcom_; }
    Gedcom& FormGedcom() { return *gedcomForm_; }
    Editeur& FormEditeur() { return *editeur_; }
    Dialogue& dialogue() { return *dialogue_; }
    // Pour les tests : un autre Dialogue (faux) à la place des boîtes Qt.
    void RemplacerDialogue(Dialogue* d) { dialogue_ = d; }

    // Lit le fichier gedcom().Fichier avec ses cases ; rend faux s'il n'a pas pu l'être.
    bool ChargerFichier(Progression& progression);
    bool FichierOuvert() const;

public slots:
    void Vider(bool recharger);
    void MettreEnPlaceFichier(std::int32_t premiere);
    void MenuNouveau();
    void MenuOuvrir();
    bool MenuFermer();
    void MenuQuitter();
    void MenuConfig();
    void AfficherFiche();

protected:
    void closeEvent(QCloseEvent* e) override;
    void dragEnterEvent(QDragEnterEvent* e) override;
    void dropEvent(QDropEvent* e) override;

private:
    void CreerIcones();
    void ChargerTextes(const std::filesystem::path& dossier);
    void RetenirFichier();
    void ActualiserTitre();
    void OuvrirGedcom(ModeGedcom mode);
    void CreerFichierVide();
    std::int32_t PremierePersonne(std::int32_t proposee) const;

    std::unique_ptr<Ui::Fiche> ui_;
    Base base_;
    Options options_;
    OptionsGedcom gedcom_;
    DialogueQt dialogueQt_;
    Dialogue* dialogue_;
    Gedcom* gedcomForm_;
    Editeur* editeur_;
    TextesLecture textes_;
    std::filesystem::path ini_;
    Messages messages_;
    std::vector<std::string> recents_;
    bool ouvert_ = false;
};

}  // namespace arbolix
