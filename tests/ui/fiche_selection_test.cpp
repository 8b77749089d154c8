// Le menu Sélection de la fiche, la liste de parenté et les recherches à faire, sur le fichier d'exemple.
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/fiche_essai.h"
#include "kinship/sosa.h"
#include "lists/rangees.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"
#include "ui/personne.h"

using namespace arbolix;

namespace {

using FicheEssai = essai::FicheExemple;

}  // namespace

class EssaiFicheSelection : public QObject {
    Q_OBJECT
private slots:
    void AscendantsCochentLeMenuEtOuvrentLaCaseSel() {
        FicheEssai e;
        // La lecture numérote depuis la première personne : la fiche le dit.
        QVERIFY(e.fiche.findChild<QGroupBox*>("CadrePerso")->title().contains("Sosa : 1"));
        QVERIFY(e.Action("MenuSel_0")->isChecked());
        QVERIFY(!e.fiche.findChild<QCheckBox*>("Sel")->isEnabled());
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("7");
        e.Action("MenuSel_1")->trigger();
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(e.d.messages[0].titre), VersQString(kTitreSosa));
        QVERIFY(e.Action("MenuSel_1")->isChecked());
        QVERIFY(!e.Action("MenuSel_0")->isChecked());
        QVERIFY(e.fiche.findChild<QCheckBox*>("Sel")->isEnabled());
        QVERIFY(e.Action("MenuSel_4")->isEnabled());
        e.Action("MenuSel_0")->trigger();
        QVERIFY(!e.fiche.findChild<QCheckBox*>("Sel")->isEnabled());
    }

    void ParenteDepuisLeDeCujusSeulement() {
        FicheEssai e;
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("7");
        e.Action("MenuParente")->trigger();
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(e.d.messages[0].titre), QString::fromUtf8("Calcul de parenté"));
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("1");
        e.Action("MenuParente")->trigger();
        Personne& liste = e.fiche.FormPersonne();
        QCOMPARE(liste.Genre(), QString("anccom"));
        const auto& rangees = liste.Liste().Rangees;
        int jacques = -1;
        for (std::size_t i = 0; i < rangees.size(); ++i)
            if (rangees[i].texte.find("P000007") != std::string::npos) jacques = static_cast<int>(i);
        QVERIFY(jacques >= 0);
        liste.DoubleCliquer(jacques);
        QCOMPARE(liste.Genre(), QString("parente"));
        QCOMPARE(VersQString(liste.Liste().Rangees[0].texte), QString("1 branches en commun"));
        QVERIFY(liste.isVisible());
    }

    void DecocherUnePersonneLaSortDeLaSelection() {
        FicheEssai e;
        e.Action("MenuSelListePersos")->trigger();
        auto* fenetre = e.fiche.findChild<QDialog*>("ListeChoix");
        QVERIFY(fenetre && fenetre->isVisible());
        auto* cases = fenetre->findChild<QListWidget*>("Liste");
        QCOMPARE(cases->item(0)->checkState(), Qt::Checked);
        const QString titre = fenetre->windowTitle();
        cases->item(0)->setCheckState(Qt::Unchecked);
        QVERIFY(fenetre->windowTitle() != titre);
        const std::int32_t n = LireQueue(DepuisQString(cases->item(0)->text())).numero;
        QCOMPARE(std::as_const(e.fiche.base().Persos)[n].Sel, kFaux);
    }

    // Une sélection partielle s'enregistre sous x_sel.ged ; ensuite toute la base est de nouveau
    // sélectionnée.
    void EnregistrementPartiel() {
        const auto dossier = std::filesystem::temp_directory_path() / "arbolix-sosa-partiel";
        std::filesystem::create_directories(dossier);
        const auto fichier = dossier / "arbre.ged";
        std::filesystem::copy_file(ARBOLIX_SHARE "/exemple.ged", fichier,
                                   std::filesystem::copy_options::overwrite_existing);
        FicheEssai e;
        e.fiche.gedcom().Fichier = fichier.string();
        QVERIFY(e.fiche.ChargerFichier(e.muette));
        e.fiche.findChild<QLineEdit*>("NumPerso")->setText("7");
        e.Action("MenuSel_1")->trigger();
        e.d.ReponseSuivante(Bouton::Oui);
        QTimer::singleShot(0, &e.fiche.FormGedcom(), [&] { e.fiche.FormGedcom().BoutonOK(); });
        QVERIFY(e.fiche.Enregistrer());
        QCOMPARE(VersQString(e.d.messages.back().titre), QString::fromUtf8("Sélection active partielle"));
        std::ifstream f(dossier / "arbre_sel.ged", std::ios::binary);
        std::string ligne;
        int personnes = 0;
        while (std::getline(f, ligne)) personnes += ligne.find(" INDI") != std::string::npos;
        QCOMPARE(personnes, 5);  // Jacques, ses parents et ses grands-parents paternels
        QVERIFY(e.Action("MenuSel_0")->isChecked());
        std::filesystem::remove_all(dossier);
    }

    void RecherchesAFaire() {
        FicheEssai e;
        e.Action("MenuIntRech")->trigger();
        Personne& liste = e.fiche.FormPersonne();
        QCOMPARE(liste.Genre(), QString("interech"));
        QVERIFY(liste.Liste().Rangees[0].texte.find("P000001") != std::string::npos);
    }
};

QTEST_MAIN(EssaiFicheSelection)
#include "fiche_selection_test.moc"
