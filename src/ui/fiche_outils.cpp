// La fiche, côté petits outils : le fichier envoyé par mail, la recherche de mise à jour.
#include <QCoreApplication>
#include <QDate>
#include <QFileInfo>
#include <filesystem>

#include "app/reglages.h"
#include "card/candidats.h"
#include "platform/qt_texte.h"
#include "tools/mel.h"
#include "tools/mise_a_jour.h"
#include "tools/recherche_web.h"
#include "ui/fiche.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

DateCalendrier AujourdhuiQt() {
    const QDate d = QDate::currentDate();
    return {d.day(), d.month(), d.year()};
}

}  // namespace

void Fiche::BrancherOutils() {
    connect(ui_->MenuEnvoyerMel, &QAction::triggered, this, &Fiche::MenuEnvoyerMel);
    connect(ui_->BoutonAnnuaire, &QPushButton::clicked, this, &Fiche::BoutonAnnuaire);
}

void Fiche::RechercherSurLeWeb(const std::string& liste, const QString& legende, const ValeursWeb& valeurs) {
    const std::vector<std::string> lignes = LignesWeb(liste, *dialogue_);
    if (lignes.empty()) return;
    std::size_t choisie = 0;
    if (lignes.size() > 1) {
        const std::vector<std::string> rangees = RangeesWeb(lignes);
        const auto choix = choisir_({"web", DepuisQString(QString(legende).remove('&')), {}, rangees});
        if (!choix) return;
        choisie =
            static_cast<std::size_t>(std::find(rangees.begin(), rangees.end(), *choix) - rangees.begin());
        if (choisie >= lignes.size()) return;
    }
    dialogue_->OuvrirDansProgramme(RemplirLigneWeb(lignes[choisie], valeurs));
}

void Fiche::BoutonBaseWeb(const std::string& lieu, const std::string& date, const QString& legende) {
    const ValeursWeb v = ValeursBaseWeb(DepuisQString(ui_->Nom->currentText()),
                                        DepuisQString(ui_->Prenoms->currentText()), lieu, date);
    RechercherSurLeWeb(options_.LiensWeb[0], legende, v);
}

void Fiche::BoutonAnnuaire() {
    const ValeursWeb v =
        ValeursAnnuaire(DepuisQString(ui_->Nom->currentText()), DepuisQString(ui_->Prenoms->currentText()),
                        DepuisQString(ui_->Ville->text()), DepuisQString(ui_->Adresse1->text()),
                        DepuisQString(ui_->CP->text()), DepuisQString(ui_->Telephone->text()));
    RechercherSurLeWeb(options_.LiensWeb[1], ui_->BoutonAnnuaire->text(), v);
}

void Fiche::MenuEnvoyerMel() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    // Le message part du fichier tel qu'il est sur le disque.
    std::error_code ec;
    EnvoyerMel(gedcom_.Fichier, std::filesystem::temp_directory_path(ec), HasardSysteme(), *dialogue_);
}

void Fiche::VerifierMiseAJour() {
    const std::string programme = QFileInfo(QCoreApplication::applicationFilePath()).baseName().toStdString();
    arbolix::VerifierMiseAJour(ini_, programme, ARBOLIX_VERSION, AujourdhuiQt(), FichierOuvert(), *dialogue_);
}

void Fiche::VerifierMiseAJourAuDemarrage() {
    const DateCalendrier d = AujourdhuiQt();
    const std::string jour =
        QDate(d.annee, d.mois, d.jour).toString(QStringLiteral("yyyyMMdd")).toStdString();
    if (VerificationMiseAJourDue(ini_, jour, options_.VerifMAJ)) VerifierMiseAJour();
}

}  // namespace arbolix
