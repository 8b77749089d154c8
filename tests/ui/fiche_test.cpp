// La fenêtre principale : ouvrir le fichier d'exemple, titre, fermeture avec modifications.
#include "ui/fiche.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "aides/fiche_essai.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/gedcom.h"

using namespace arbolix;

namespace {

using essai::FicheEssai;

}  // namespace

class EssaiFiche : public QObject {
    Q_OBJECT
private slots:
    void OuvrirLeFichierExempleMontreLaPremierePersonne() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        DialogueFactice& d = e.d;
        QCOMPARE(fiche.windowTitle(), QString("Arbolix"));
        QVERIFY(e.Ouvrir());
        QVERIFY(fiche.FichierOuvert());
        QCOMPARE(fiche.windowTitle(), QString("Arbolix - " ARBOLIX_SHARE "/exemple.ged"));
        auto* num = fiche.findChild<QLineEdit*>("NumPerso");
        QCOMPARE(num->text(), QString("1"));
        QCOMPARE(fiche.findChild<QComboBox*>("Nom")->currentText(), QString("MARTIN"));
        num->setText("8");
        QCOMPARE(fiche.findChild<QComboBox*>("Prenoms")->currentText(), QString::fromUtf8("Élisabeth"));
        QVERIFY(d.messages.empty());
    }

    void FermerAvecModificationsDemandeFermer() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        DialogueFactice& d = e.d;
        QVERIFY(e.Ouvrir());
        fiche.base().FichierModifie = kVrai;
        d.ReponseSuivante(Bouton::Annuler);
        QVERIFY(!fiche.close());
        QCOMPARE(d.messages.size(), std::size_t{1});
        QCOMPARE(QString::fromStdString(d.messages[0].titre), QString("Fermer"));
        QVERIFY(fiche.FichierOuvert());
        // Non : on ferme sans enregistrer.
        d.ReponseSuivante(Bouton::Non);
        QVERIFY(fiche.MenuFermer());
        QVERIFY(!fiche.FichierOuvert());
        QCOMPARE(fiche.windowTitle(), QString("Arbolix"));
    }

    // Ouvrir ou créer un autre fichier passe par la fermeture de celui-ci : Annuler le garde tel quel.
    void OuvrirUnAutreFichierDemandeDAbordDeFermer() {
        FicheEssai e;
        QVERIFY(e.Ouvrir());
        e.fiche.base().FichierModifie = kVrai;
        for (void (Fiche::*commande)() : {&Fiche::MenuOuvrir, &Fiche::MenuNouveau}) {
            e.d.messages.clear();
            e.d.ReponseSuivante(Bouton::Annuler);
            (e.fiche.*commande)();
            QCOMPARE(e.d.messages.size(), std::size_t{1});
            QCOMPARE(QString::fromStdString(e.d.messages[0].titre), QString("Fermer"));
            QVERIFY(e.fiche.FichierOuvert());
            QCOMPARE(e.fiche.base().FichierModifie, kVrai);
        }
    }

    void EnregistrerPuisRelireDonneLaMemeBase() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        DialogueFactice& d = e.d;
        QVERIFY(e.Ouvrir());
        const std::int32_t personnes = fiche.base().NbPersosReels;
        fiche.base().FichierModifie = kVrai;
        const QString sortie = QDir::temp().filePath("arbolix-fiche-enregistree.ged");
        QFile::remove(sortie);
        fiche.gedcom().Fichier = sortie.toStdString();
        // Le dialogue Gedcom est modal : OK est pressé dès qu'il s'ouvre.
        QTimer::singleShot(0, &fiche.FormGedcom(), [&] { fiche.FormGedcom().BoutonOK(); });
        QVERIFY(fiche.Enregistrer());
        QVERIFY(d.messages.empty());
        QCOMPARE(fiche.base().FichierModifie, kFaux);
        QVERIFY(fiche.windowTitle().endsWith(QString::fromUtf8("(enregistré)")));
        Base relue;
        Options options;
        OptionsGedcom cases;
        cases.Fichier = sortie.toStdString();
        ContexteLecture ctx{options, cases, e.muette};
        QVERIFY(LireGedcom(relue, ctx).Lu);
        QCOMPARE(relue.NbPersosReels, personnes);
        QCOMPARE(VersQString(std::as_const(relue.Persos)[8].Prenoms), QString::fromUtf8("Élisabeth"));
        QFile::remove(sortie);
    }

    void BoutonNaissanceOuvreLEvenementEtRangeLaDate() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        QVERIFY(e.Ouvrir());
        fiche.findChild<QLineEdit*>("NumPerso")->setText("2");
        // La fenêtre d'évènement est modale : la date est tapée et OK pressé dès qu'elle s'ouvre.
        QTimer::singleShot(0, [] {
            QWidget* evenement = QApplication::activeModalWidget();
            QVERIFY(evenement);
            auto* date = evenement->findChild<QLineEdit*>("Date");
            QVERIFY(date);
            date->clear();
            QTest::keyClicks(date, "12031750");
            QTest::keyClick(date, Qt::Key_Tab);
            QTest::mouseClick(evenement->findChild<QPushButton*>("BoutonOK"), Qt::LeftButton);
        });
        QTest::mouseClick(fiche.findChild<QPushButton*>("BoutonNaissance"), Qt::LeftButton);
        const Acte& naissance = std::as_const(fiche.base().Persos)[2].Naissance;
        QCOMPARE(VersQString(naissance.Date), QString("12/03/1750"));
        QCOMPARE(VersQString(naissance.DateTri), QString("1750/03/12"));
        QCOMPARE(naissance.Annee, std::int16_t{1750});
        QCOMPARE(fiche.base().FichierModifie, kVrai);
        QVERIFY(fiche.windowTitle().endsWith(QString::fromUtf8("(modifié)")));
    }

    void NotesDuFichierModifieesParLEditeur() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        QVERIFY(e.Ouvrir());
        QVERIFY(VersQString(std::as_const(fiche.base().Notes)[-1].Texte).startsWith("Famille Martin"));
        QTimer::singleShot(0, [] {
            QWidget* editeur = QApplication::activeModalWidget();
            QVERIFY(editeur);
            editeur->findChild<QPlainTextEdit*>("Texte")->setPlainText(
                QString::fromUtf8("Arbre des Martin, révisé."));
            QTest::mouseClick(editeur->findChild<QPushButton*>("BoutonOK"), Qt::LeftButton);
        });
        fiche.MenuNotesFichier();
        QCOMPARE(VersQString(std::as_const(fiche.base().Notes)[-1].Texte),
                 QString::fromUtf8("Arbre des Martin, révisé."));
        QCOMPARE(fiche.base().FichierModifie, kVrai);
    }

    void FichierIntrouvableLeDit() {
        FicheEssai e;
        Fiche& fiche = e.fiche;
        DialogueFactice& d = e.d;
        QVERIFY(!e.Ouvrir("/nulle/part/absent.ged"));
        QCOMPARE(d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(d.messages[0].texte),
                 QString("Le fichier /nulle/part/absent.ged est introuvable."));
        QVERIFY(!fiche.FichierOuvert());
    }
};

QTEST_MAIN(EssaiFiche)
#include "fiche_test.moc"
