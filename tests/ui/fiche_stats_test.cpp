// La fiche, côté statistiques : le menu ouvre la liste de choix, puis l'éditeur montre le texte et
// les graphiques (une barre par mois) ; la fiche familiale demande une union ou écrit son PDF.
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPrinterInfo>
#include <QtTest>

#include "aides/fiche_essai.h"
#include "platform/qt_texte.h"
#include "ui/choix_stats.h"
#include "ui/editeur.h"
#include "ui/graphiques.h"

using namespace arbolix;

class EssaiFicheStats : public QObject {
    Q_OBJECT
private slots:
    void StatistiquesEtGraphiques() {
        essai::FicheEssai e;
        QVERIFY(e.Ouvrir(ARBOLIX_DONNEES "/stats/famille.ged"));
        e.Action("MenuStats")->trigger();
        auto* choix = e.fiche.findChild<ChoixStats*>();
        QVERIFY(choix && choix->isVisible());
        QCOMPARE(choix->Choix().size(), std::size_t{11});
        choix->accept();

        Editeur& editeur = e.fiche.FormEditeur();
        const QString texte = editeur.findChild<QPlainTextEdit*>("Texte")->toPlainText();
        QVERIFY(texte.startsWith(QString::fromUtf8("Statistiques du fichier famille.ged\n\n7 personnes")));
        QVERIFY(texte.contains(QString::fromUtf8("taux de masculinité\t133,3 %")));
        auto* vue = editeur.findChild<VueGraphiques*>("Graphiques");
        QVERIFY(vue);
        const auto graphiques = vue->Graphiques();
        QCOMPARE(graphiques.size(), std::size_t{6});
        const GraphiqueBarres* mois = graphiques[2];
        QCOMPARE(VersQString(mois->Donnees().titre), QString::fromUtf8("répartition des actes NMD par mois"));
        // Naissances : une barre par mois, mars (deux) la plus haute, mai vide.
        const auto barres = mois->Barres(0, QSizeF(600, 400));
        QCOMPARE(barres.size(), std::size_t{12});
        QVERIFY(barres[2].height() > barres[1].height() && barres[1].height() > 0);
        QCOMPARE(barres[4].height(), 0.0);

        const QString svg = QDir::temp().filePath("arbolix-stats-essai.svg");
        const QString png = QDir::temp().filePath("arbolix-stats-essai.png");
        QVERIFY(vue->EnregistrerImage(svg) && vue->EnregistrerImage(png));
        QFile f(svg);
        QVERIFY(f.open(QIODevice::ReadOnly) && f.readAll().contains("<svg"));
        QVERIFY(!QImage(png).isNull());
        QFile::remove(svg);
        QFile::remove(png);

        // Une autre note montrée dans l'éditeur retire les graphiques.
        editeur.Montrer("Journal", "texte");
        QVERIFY(!editeur.findChild<VueGraphiques*>("Graphiques"));
    }

    void SelectionVideEtFicheFamiliale() {
        essai::FicheEssai e;
        QVERIFY(e.Ouvrir(ARBOLIX_DONNEES "/stats/famille.ged"));
        // Pierre n'a pas d'union : la fiche familiale le dit.
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("3");
        e.fiche.AfficherFiche();
        e.Action("MenuFicheFamille")->trigger();
        QCOMPARE(VersQString(e.d.messages.back().titre), QString::fromUtf8("Fiche familiale"));
        QVERIFY(VersQString(e.d.messages.back().texte)
                    .startsWith(QString::fromUtf8("Vous devez sélectionner une union")));

        // Louis a une union, prise d'office ; sans imprimante elle va dans un PDF.
        if (QPrinterInfo::availablePrinterNames().isEmpty()) {
            const QString pdf = QDir::temp().filePath("arbolix-fiche-essai.pdf");
            e.fiche.findChild<QLineEdit*>("NumPerso")->setText("5");
            e.fiche.AfficherFiche();
            e.d.FichierSuivant(pdf.toStdString());
            e.Action("MenuFicheFamille")->trigger();
            QFile f(pdf);
            QVERIFY(f.open(QIODevice::ReadOnly) && f.readAll().startsWith("%PDF"));
            f.remove();
        }

        for (std::int32_t i = 1; i <= e.fiche.base().NbPersos; ++i) e.fiche.base().Persos[i].Sel = kFaux;
        e.Action("MenuStats")->trigger();
        QCOMPARE(VersQString(e.d.messages.back().titre), QString::fromUtf8("Sélection vide"));
    }
};

QTEST_MAIN(EssaiFicheStats)
#include "fiche_stats_test.moc"
