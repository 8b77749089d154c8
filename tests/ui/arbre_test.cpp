// Les arbres de la fiche : aperçu de l'ascendant, clic droit qui change la racine, enregistrement SVG.
#include "ui/arbre.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "aides/fiche_essai.h"
#include "platform/qt_texte.h"
#include "trees/sortie_arbre.h"
#include "ui/apercu_arbre.h"
#include "ui/fiche.h"

using namespace arbolix;

class EssaiArbre : public QObject {
    Q_OBJECT
private slots:
    void ClicDroitSurUneCaseChangeLaRacinePuisSvg() {
        essai::FicheExemple e;
        const auto ini = std::filesystem::temp_directory_path() / "arbolix-arbre-essai.ini";
        std::filesystem::remove(ini);
        e.fiche.RemplacerIni(ini);
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("10");  // dix ancêtres
        e.Action("MenuArbre_2")->trigger();
        auto* arbre = e.fiche.findChild<FenetreArbre*>();
        QVERIFY(arbre && arbre->isVisible());
        arbre->findChild<QLineEdit*>("NbGen")->setText("4");
        arbre->findChild<QPushButton*>("BoutonImprimer_0")->click();
        Pr& pr = arbre->Apercu();
        QVERIFY(pr.isVisible());
        QCOMPARE(pr.Racine(), 10);
        const DessinArbre& d = pr.Dessin();
        QCOMPARE(d.Cases.size(), std::size_t{15});
        // La case 2 (le père) : clic droit en son milieu, puis « Arbre de cette personne ».
        const CaseArbre pere = d.Cases[1];
        QVERIFY(pere.personne > 0);
        const QPoint milieu = pr.EnPixels(pere.x + d.LC / 2, pere.y + d.HC / 2).toPoint();
        QTest::mouseClick(&pr, Qt::RightButton, {}, milieu);
        QVERIFY(pr.Menu()->isVisible());
        pr.Menu()->hide();
        pr.findChild<QAction*>("MenuCase")->trigger();
        QCOMPARE(pr.Racine(), pere.personne);
        QCOMPARE(pr.Dessin().Cases[0].personne, pere.personne);
        // Un clic hors des cases ne change rien.
        QTest::mouseClick(&pr, Qt::RightButton, {}, QPoint(1, 1));
        pr.Menu()->hide();
        pr.findChild<QAction*>("MenuCase")->trigger();
        QCOMPARE(pr.Racine(), pere.personne);

        const auto svg = std::filesystem::temp_directory_path() / "arbolix-arbre-essai.svg";
        std::filesystem::remove(svg);
        e.d.FichierSuivant(svg.string());
        pr.findChild<QAction*>("MenuEnregistrer")->trigger();
        QVERIFY(std::filesystem::exists(svg));
        std::ifstream f(svg);
        const std::string texte((std::istreambuf_iterator<char>(f)), {});
        const Perso& p = std::as_const(e.fiche.base().Persos)[pere.personne];
        QVERIFY(texte.find("<svg xmlns=\"http://www.w3.org/2000/svg\"") != std::string::npos);
        QVERIFY(texte.find(">1 " + EncoderSvg(p.Nom.str())) != std::string::npos);
        std::filesystem::remove(svg);
    }

    void DimensionsFaussesDonnentLaBoite() {
        essai::FicheExemple e;
        const auto ini = std::filesystem::temp_directory_path() / "arbolix-arbre-essai.ini";
        std::filesystem::remove(ini);
        e.fiche.RemplacerIni(ini);
        e.Action("MenuArbreAscendant")->trigger();
        auto* arbre = e.fiche.findChild<FenetreArbre*>();
        arbre->findChild<QLineEdit*>("MC")->setText("-1");
        arbre->findChild<QPushButton*>("BoutonImprimer_0")->click();
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(e.d.messages[0].titre), QString("Erreur de dimension"));
        QVERIFY(!arbre->Apercu().isVisible());
        std::filesystem::remove(ini);
    }
};

QTEST_MAIN(EssaiArbre)
#include "arbre_test.moc"
