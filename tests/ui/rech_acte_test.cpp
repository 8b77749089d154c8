// La recherche d'actes de la fiche, en liste et en sélection, sur le fichier d'exemple.
#include "ui/rech_acte.h"

#include <QAction>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "aides/fiche_essai.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"
#include "ui/personne.h"

using namespace arbolix;

namespace {

struct FicheEssai : essai::FicheExemple {
    RechActe* Form() { return fiche.findChild<RechActe*>("RechActe"); }
    template <typename T>
    T* Controle(const char* nom) {
        return Form()->findChild<T*>(nom);
    }
    // Mariage, lieu Sarlat coché dans la liste de choix, de 1740 à 1750.
    void MariagesDeSarlat() {
        Controle<QCheckBox>("TypeActe_3")->setChecked(true);
        Controle<QRadioButton>("OptionType_2")->click();
        auto* cases = Form()->ListeCriteres()->findChild<QListWidget*>("Liste");
        const auto trouves = cases->findItems("Sarlat", Qt::MatchExactly);
        QCOMPARE(trouves.size(), 1);
        trouves.front()->setCheckState(Qt::Checked);
        QCOMPARE(Controle<QLineEdit>("Critere")->text(), QString("Sarlat"));
        Controle<QLineEdit>("AnneeDebut")->setText("1740");
        Controle<QLineEdit>("AnneeFin")->setText("1750");
        Controle<QPushButton>("BoutonOK")->click();
    }
};

}  // namespace

class EssaiRechActe : public QObject {
    Q_OBJECT
private slots:
    void UnMariageTrouveMeneASaFiche() {
        FicheEssai e;
        e.Action("MenuRechActe")->trigger();
        QVERIFY(e.Form()->isVisible());
        QCOMPARE(e.Form()->windowTitle(), QString("Recherche d'actes"));
        e.MariagesDeSarlat();
        Personne& liste = e.fiche.FormPersonne();
        QCOMPARE(liste.Genre(), QString("actes"));
        QCOMPARE(VersQString(liste.Liste().Titre), QString::fromUtf8("1 actes trouvés"));
        QVERIFY(VersQString(liste.Liste().Rangees[0].texte).contains("20/02/1744 Sarlat"));
        liste.DoubleCliquer(0);
        QCOMPARE(e.fiche.findChild<QLineEdit*>("NumPerso")->text(), QString("3"));
    }

    void UneAnneeFausseEstRefusee() {
        FicheEssai e;
        e.Action("MenuRechActe")->trigger();
        e.Controle<QCheckBox>("TypeActe_0")->setChecked(true);
        e.Controle<QLineEdit>("AnneeDebut")->setText("17a0");
        e.Controle<QPushButton>("BoutonOK")->click();
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(e.d.messages[0].titre), QString::fromUtf8("Période non valide"));
        QVERIFY(!e.fiche.FormPersonne().isVisible());
    }

    void SelectionDActesDuMenuSelection() {
        FicheEssai e;
        e.Action("MenuSel_4")->trigger();
        QCOMPARE(e.Form()->windowTitle(), QString::fromUtf8("Sélection d'actes..."));
        QVERIFY(e.Controle<QCheckBox>("TypeActe_0")->isChecked());
        e.Controle<QCheckBox>("TypeActe_0")->setChecked(false);
        e.MariagesDeSarlat();
        QVERIFY(e.Action("MenuSel_4")->isChecked());
        QCOMPARE(e.fiche.findChild<QAction*>("MenuSelInfo")->text(), QString("2 personnes et 1 familles"));
    }
};

QTEST_MAIN(EssaiRechActe)
#include "rech_acte_test.moc"
