// La fiche, côté tables d'actes : texte tabulé vers TMAO et son brouillon de notes, conversion d'une
// table par le menu, export des actes d'une commune que le nom du fichier ne désigne pas.
#include <QAction>
#include <QFile>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QtTest>

#include "acts/export_actes.h"
#include "aides/fiche_essai.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"

using namespace arbolix;

class EssaiFicheTmao : public QObject {
    Q_OBJECT
private slots:
    void TexteTabuleVersTmaoPuisConversion() {
        QTemporaryDir dossier;
        const QString tableau = dossier.filePath("actes.txt");
        QFile f(tableau);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("Nom\tPrenom\r\nDUPONT\tJean\t\t\t\t\tMARTIN\tMarie\t\t\t\t\t12/02/1750\r\n");
        f.close();
        essai::FicheEssai e;
        e.d.FichierSuivant(tableau.toStdString());
        e.Action("MenuTXT2TM")->trigger();
        const QString tm = dossier.filePath("actes.TM");
        QVERIFY(QFile::exists(tm));
        auto* editeur = e.fiche.findChild<Editeur*>();
        QVERIFY(editeur && editeur->isVisible());
        QVERIFY(editeur->findChild<QPlainTextEdit*>("Texte")->toPlainText().contains("1 actes de naissance"));

        // actes.txt existe : le nom proposé ("_") est pris ; le pied ne nomme aucun type : la
        // question ; puis le texte (mode par défaut) est ouvert.
        e.d.FichierSuivant(tm.toStdString());
        e.d.ReponseSuivante(Bouton::Reessayer);
        e.Action("MenuTMAO2")->trigger();
        const QString sortie = dossier.filePath("actes_.txt");
        QVERIFY(QFile::exists(sortie));
        QCOMPARE(e.d.messages.back().titre, std::string("Type d'acte introuvable"));
        QCOMPARE(e.d.ouverts.back(), sortie.toStdString());
    }

    void ExportUCGLSansLieuDuNomDeFichier() {
        essai::FicheExemple e;
        e.Action("MenuExportUCGL_1")->trigger();
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(e.d.messages[0].texte, std::string(kAucunLieu));
    }
};

QTEST_MAIN(EssaiFicheTmao)
#include "fiche_tmao_test.moc"
