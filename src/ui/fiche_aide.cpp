// L'aide : les pages HTML livrées avec le programme, ouvertes dans le navigateur par défaut.
#include <QCoreApplication>
#include <QMenuBar>
#include <system_error>

#include "app/partage.h"
#include "platform/cp1252.h"
#include "ui/fiche.h"
#include "ui_fiche.h"

namespace arbolix {

void Fiche::BrancherAide() {
    connect(ui_->MenuAide, &QAction::triggered, this, &Fiche::MenuAide);
    // Le menu Aide reste le dernier, après ceux que le code ajoute.
    ui_->BarreMenu->removeAction(ui_->BarreMenuAide->menuAction());
    ui_->BarreMenu->addAction(ui_->BarreMenuAide->menuAction());
}

void Fiche::MenuAide() {
    const std::filesystem::path dossier = QCoreApplication::applicationDirPath().toStdString();
    const std::filesystem::path page = CheminPartage(dossier, std::filesystem::path("aide") / "index.html");
    // Les chemins restent en octets du système ; le texte des boîtes est en page 1252.
    const std::string nom = Utf8VersCp1252(page.string());
    std::error_code ec;
    if (!std::filesystem::exists(page, ec)) {
        dialogue_->Message("Aide",
                           "Les pages d'aide sont introuvables : le fichier " + nom + " n'existe pas.",
                           Icone::Attention);
        return;
    }
    if (!dialogue_->OuvrirDansProgramme(page.string()))
        dialogue_->Message("Aide", "Aucun navigateur n'a pu ouvrir l'aide : " + nom, Icone::Attention);
}

}  // namespace arbolix
