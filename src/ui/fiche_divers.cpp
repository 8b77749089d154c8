// La fiche, côté fichiers liés : la liste Divers, l'aperçu de l'image, l'ouverture dans un programme.
#include <QListWidget>
#include <QPixmap>
#include <filesystem>

#include "card/fichiers_lies.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui_fiche.h"

namespace arbolix {

void Fiche::BrancherDivers() {
    // Un clic montre le fichier dans l'aperçu ; un double clic l'ouvre. Le chemin est l'infobulle de la
    // rangée.
    connect(ui_->ListeDivers, &QListWidget::itemClicked, this, [this] { PoserPhoto(); });
    connect(ui_->ListeDivers, &QListWidget::itemDoubleClicked, this, [this](QListWidgetItem* i) {
        OuvrirFichierLie(contenu_.Divers[static_cast<std::size_t>(ui_->ListeDivers->row(i))].bulle, false);
    });
}

void Fiche::PoserPhoto() {
    std::string chemin = contenu_.Photo;
    // Une rangée choisie de la liste des fichiers passe avant la première image.
    const int choisie = ui_->ListeDivers->currentRow();
    if (choisie >= 0 && ui_->ListeDivers->item(choisie)->isSelected())
        chemin = contenu_.Divers[static_cast<std::size_t>(choisie)].bulle;
    ui_->Photo->clear();
    if (chemin.empty()) return;
    const auto fichier =
        TrouverFichierLie(chemin, options_.Chemin[2], std::filesystem::path(gedcom_.Fichier).parent_path());
    if (!fichier) return;
    const QPixmap image(QString::fromStdString(fichier->string()));
    if (image.isNull()) return;
    // L'image tient dans la place laissée, proportions gardées.
    const QSize place = ui_->Photo->size().boundedTo(QSize(ui_->CadreDivers->width() / 2, 400));
    ui_->Photo->setPixmap(image.scaled(place, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

// Ouvre le fichier dans son programme, ou son dossier pour ses propriétés ; faux
// (après le message des règles) quand il est introuvable.
bool Fiche::OuvrirFichierLie(const std::string& chemin, bool proprietes) {
    const auto fichier =
        TrouverFichierLie(chemin, options_.Chemin[2], std::filesystem::path(gedcom_.Fichier).parent_path());
    if (!fichier) {
        dialogue_->Message("Fichier introuvable", MessageFichierIntrouvable(chemin, false), Icone::Attention);
        return false;
    }
    dialogue_->OuvrirDansProgramme(proprietes ? fichier->parent_path().string() : fichier->string());
    return true;
}

}  // namespace arbolix
