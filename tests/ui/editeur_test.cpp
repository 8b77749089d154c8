// Essais de l'éditeur de notes sans écran (offscreen) : OK écrit dans la base, Annuler n'écrit rien.
#include "ui/editeur.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

#include "aides/dialogue_factice.h"
#include "card/notes.h"
#include "platform/qt_texte.h"

using namespace arbolix;

class EssaiEditeur : public QObject {
    Q_OBJECT

    Base base_;
    DialogueFactice dialogue_;

    template <typename T>
    static T* Controle(QWidget& f, const char* nom) {
        T* w = f.findChild<T*>(nom);
        if (!w) qFatal("contrôle absent : %s", nom);
        return w;
    }

    static void Taper(Editeur& e, const QString& titre, const QString& texte) {
        Controle<QLineEdit>(e, "Titre")->setText(titre);
        Controle<QPlainTextEdit>(e, "Texte")->setPlainText(texte);
    }

private slots:
    void init() {
        Vider(base_, true);
        NouvellePersonne(base_, true, false);
        base_.NumCourant = 1;
        NouvelleNote(base_, 'N');
        base_.Notes[1].Titre = "Registre";
        base_.Notes[1].Texte = "avant";
        base_.FichierModifie = kFaux;
    }

    void OkEcritLaNote() {
        Editeur e(nullptr);
        QVERIFY(e.OuvrirNote(base_, 1, 1, true, dialogue_));
        QCOMPARE(Controle<QLineEdit>(e, "Titre")->text(), QString("Registre"));
        Taper(e, VersQString("Cur\xE9"), "ligne 1\nligne 2");
        QTest::mouseClick(Controle<QPushButton>(e, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(e.result(), int(QDialog::Accepted));
        QCOMPARE(std::as_const(base_.Notes)[1].Titre.str(), std::string("Cur\xE9"));
        QCOMPARE(std::as_const(base_.Notes)[1].Texte.str(), std::string("ligne 1\r\nligne 2"));
        QCOMPARE(base_.FichierModifie, kVrai);
    }

    void AnnulerNEcritRien() {
        Editeur e(nullptr);
        QVERIFY(e.OuvrirNote(base_, 1, 1, true, dialogue_));
        Taper(e, "autre", "autre texte");
        QTest::mouseClick(Controle<QPushButton>(e, "BoutonAnnuler"), Qt::LeftButton);
        QCOMPARE(e.result(), int(QDialog::Rejected));
        QCOMPARE(std::as_const(base_.Notes)[1].Texte.str(), std::string("avant"));
        QCOMPARE(base_.FichierModifie, kFaux);
    }

    void NoteDuFichierSansBoutonsDeLiens() {
        Editeur e(nullptr);
        QVERIFY(e.OuvrirNote(base_, -1, 1, false, dialogue_));
        e.show();
        QVERIFY(!Controle<QPushButton>(e, "BoutonLiens")->isVisible());
        QVERIFY(!Controle<QPushButton>(e, "BoutonOuvrir")->isVisible());
        Taper(e, "", "Note du fichier");
        QTest::mouseClick(Controle<QPushButton>(e, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(std::as_const(base_.Notes)[-1].Texte.str(), std::string("Note du fichier"));
    }

    void ChampDePersonneQuiDevientUnLien() {
        Editeur e(nullptr);
        const ChampLien champ{false, 1, 0, false};
        QVERIFY(e.OuvrirChamp(base_, champ, dialogue_));
        Controle<QPlainTextEdit>(e, "Texte")->setPlainText("@N1@");
        QTest::mouseClick(Controle<QPushButton>(e, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(std::as_const(base_.Persos)[1].Notes.str(), std::string("@N1@"));
        QCOMPARE(std::as_const(base_.Notes)[1].LiensPersos(1), 1);
        // Rouvert, le champ lié ouvre la note elle-même.
        Editeur f(nullptr);
        QVERIFY(f.OuvrirChamp(base_, champ, dialogue_));
        QCOMPARE(Controle<QLineEdit>(f, "Titre")->text(), QString("Registre"));
    }

    void TypeInconnuRefuse() {
        Editeur e(nullptr);
        QVERIFY(!e.OuvrirNote(base_, 4, 3, true, dialogue_));
        QCOMPARE(dialogue_.messages.back().titre, std::string("Note/source externe"));
    }

    void JournalEnLectureSeule() {
        Editeur e(nullptr);
        e.Montrer("Journal", "Alerte ligne 3 : x\r\nfin");
        QVERIFY(Controle<QPlainTextEdit>(e, "Texte")->isReadOnly());
        QCOMPARE(e.Texte(), QString("Alerte ligne 3 : x\nfin"));
    }

    // Un journal de plusieurs morceaux : le début tout de suite, puis la suite par la boucle
    // d'évènements ; un autre texte montré entre-temps n'en reçoit rien.
    void LongJournalParMorceaux() {
        std::string journal;
        for (int i = 0; i < 40000; ++i) journal += "Info ligne " + std::to_string(i) + " : \xE9t\xE9\r\n";
        Editeur e(nullptr);
        e.Montrer("Journal", journal);
        auto* controle = Controle<QPlainTextEdit>(e, "Texte");
        QVERIFY(controle->document()->blockCount() < 40000);
        QTRY_VERIFY(controle->document()->blockCount() == 40001);
        QCOMPARE(DepuisQString(controle->toPlainText()).size() + 40000, journal.size());
        e.Montrer("Journal", journal);
        e.Montrer("Journal", "court");
        QCoreApplication::processEvents();
        QCOMPARE(e.Texte(), QString("court"));
    }
};

QTEST_MAIN(EssaiEditeur)
#include "editeur_test.moc"
