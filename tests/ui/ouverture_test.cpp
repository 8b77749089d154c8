// Ouvrir par la fenêtre ce qui n'est pas du GEDCOM, et la question qui supprime un lien : Entrée garde le
// lien.
#include <QApplication>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"

using namespace arbolix;

class EssaiOuverture : public QObject {
    Q_OBJECT
private slots:
    // Le chemin des menus : Ouvrir, le dialogue Gedcom, OK ; la boîte nomme le fichier,
    // le dialogue reste pour en choisir un autre, et aucun fichier n'est ouvert.
    void UnFichierBinaireNEstPasOuvert() {
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        fiche.Vider(false);
        Progression muette;
        fiche.gedcom().Fichier = ARBOLIX_SHARE "/exemple.ged";
        QVERIFY(fiche.ChargerFichier(muette));

        const std::string binaire = ARBOLIX_DONNEES "/ouverture/binaire.ged";
        bool resteOuvert = false;
        QTimer::singleShot(0, &fiche.FormGedcom(), [&] {
            fiche.FormGedcom().FixerFichier(binaire);
            fiche.FormGedcom().BoutonOK();
            resteOuvert = fiche.FormGedcom().isVisible();
            fiche.FormGedcom().BoutonAnnuler();
        });
        fiche.MenuOuvrir();
        QVERIFY(resteOuvert);
        QCOMPARE(d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(d.messages[0].titre), QString("Ouvrir un fichier"));
        QCOMPARE(VersQString(d.messages[0].texte),
                 QString::fromStdString("Le fichier " + binaire) +
                     QString::fromUtf8(" n'est pas un fichier GEDCOM : il contient des données binaires, ce "
                                       "n'est pas un texte."));
        QVERIFY(!fiche.FichierOuvert());
        QCOMPARE(fiche.windowTitle(), QString("Arbolix"));
        QCOMPARE(fiche.base().NbPersosReels, 0);
    }

    // La vraie boîte de Qt : Entrée prend Non, le bouton par défaut, et le lien reste.
    void EntreeALaQuestionDuLienIntrouvableGardeLeLien() {
        QTemporaryDir dossier;
        QFile f(dossier.filePath("arbre.ged"));
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write(
            "0 HEAD\r\n1 CHAR ANSI\r\n0 @I1@ INDI\r\n1 NAME Jean /MARTIN/\r\n1 OBJE\r\n2 FILE perdu.jpg\r\n"
            "0 TRLR\r\n");
        f.close();
        Fiche fiche;
        fiche.Vider(false);
        Progression muette;
        fiche.gedcom().Fichier = f.fileName().toStdString();
        QVERIFY(fiche.ChargerFichier(muette));
        auto* liste = fiche.findChild<QListWidget*>("ListeDivers");
        QCOMPARE(liste->count(), 1);

        QString question, parDefaut;
        QTimer::singleShot(0, [&] {
            auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(boite);
            question = boite->text();
            parDefaut = boite->defaultButton() ? boite->defaultButton()->text() : QString();
            QTest::keyClick(boite, Qt::Key_Enter);
        });
        liste->setCurrentRow(0);
        liste->item(0)->setSelected(true);
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {},
                          liste->visualItemRect(liste->item(0)).center());
        QVERIFY(question.endsWith("Voulez-vous supprimer le lien ?"));
        QCOMPARE(parDefaut, QString("&Non"));  // N choisit Non au clavier
        // La liste refaite d'après la base : le lien y est toujours.
        fiche.AfficherFiche();
        QCOMPARE(liste->count(), 1);
        QCOMPARE(liste->item(0)->toolTip(), QString("perdu.jpg"));
        QCOMPARE(fiche.base().FichierModifie, kFaux);
    }
};

QTEST_MAIN(EssaiOuverture)
#include "ouverture_test.moc"
