// La fenêtre Options : copie les réglages entre ses contrôles et la valeur Options.
#pragma once

#include <QDialog>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "app/messages.h"
#include "app/zoom.h"
#include "platform/dialogue.h"
#include "store/options.h"

namespace Ui {
class FenetreOptions;
}

namespace arbolix {

// La fenêtre modifie en place la valeur Options et la liste des fichiers récents du
// programme ; elles doivent lui survivre. Fermer la fenêtre passe par ValiderOptions :
// des âges limites contradictoires la gardent ouverte.
class FenetreOptions : public QDialog {
    Q_OBJECT

public:
    FenetreOptions(Options& options, std::vector<std::string>& recents, std::filesystem::path ini,
                   Dialogue& dialogue, int versionMajeure, QWidget* parent = nullptr);
    ~FenetreOptions() override;

    // Fichier ouvert : « Vider la liste » le garde seul.
    void DefinirFichierPresent(std::string fichier) { fichierPresent_ = std::move(fichier); }
    // Lignes des listes de choix et bulles d'aide, pour une autre langue que le français.
    void TraduireListes(const Messages& messages);

    void AfficherOptions();  // Options → contrôles
    void LireControles();    // contrôles → Options, sans contrôle
    const Zoom& Facteurs() const { return zoom_; }

public slots:
    void done(int resultat) override;
    void TesterZoom();
    void EnregistrerOptions();
    void ClearFileList();

signals:
    void VerifierMiseAJour();
    void ZoomChange(arbolix::Zoom zoom);

private:
    void LireControles(Options& o) const;
    void RetenirEnregistrees();
    void ChoisirChemin(int indice);
    void AfficherRecents();

    std::unique_ptr<Ui::FenetreOptions> ui_;
    Options& options_;
    std::vector<std::string>& recents_;
    std::filesystem::path ini_;
    Dialogue& dialogue_;
    int versionMajeure_;
    std::string fichierPresent_;
    Zoom zoom_;
    QSize tailleConception_;
    Options enregistrees_;  // au dernier enregistrement ou à l'ouverture
};

}  // namespace arbolix
