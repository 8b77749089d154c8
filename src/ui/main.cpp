#include <QApplication>
#include <QIcon>
#include <QMessageBox>
#include <exception>

#include "app/demarrage.h"
#include "app/travail_en_fond.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/traduction_qt.h"

using arbolix::ChargerTraductionQt;

int main(int argc, char** argv) {
    arbolix::PreparerTravailEnFond();
    QApplication app(argc, argv);
    QApplication::setApplicationName("Arbolix");
    ChargerTraductionQt(app);
    // Installé, l'icône vient du thème et le bureau relie la fenêtre à son lanceur.
    QApplication::setWindowIcon(QIcon::fromTheme("arbolix"));
    QGuiApplication::setDesktopFileName("fr.arbolix.Arbolix");
    std::string ligne;
    for (int i = 1; i < argc; ++i) ligne += (i > 1 ? " " : "") + std::string(argv[i]);
    const std::string fichier = arbolix::NettoyerLigneCommande(ligne);
    // Un livre .EPA part en SQL sans montrer la fiche, et le programme s'arrête là.
    if (arbolix::ActionPourFichier(fichier) == arbolix::ActionLigneCommande::ExportSql) {
        std::string message;
        const int code = arbolix::LancerExportSql(fichier, message);
        if (code != 0) QMessageBox::critical(nullptr, "Arbolix", arbolix::VersQString(message));
        return code;
    }
    try {
        arbolix::Fiche fiche;
        fiche.Demarrer(fichier, QCoreApplication::applicationFilePath().toStdString());
        return QApplication::exec();
    } catch (const std::exception& e) {
        // Le piège du sommet : le texte de l'erreur à l'utilisateur.
        QMessageBox::critical(nullptr, "Arbolix",
                              QString("Erreur : %1").arg(QString::fromLocal8Bit(e.what())));
        return 1;
    }
}
