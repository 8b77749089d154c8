// La fenêtre telle qu'un nouvel utilisateur la prend en main : fiche neuve, question du sexe,
// raccourcis, liste au simple clic, textes de Qt en français, places absurdes, dialogues.
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "aides/fiche_essai.h"
#include "card/queues.h"
#include "platform/ini.h"
#include "platform/qt_texte.h"
#include "ui/delegue_queue.h"
#include "ui/dialogue_qt.h"
#include "ui/editeur.h"
#include "ui/options.h"
#include "ui/personne.h"
#include "ui/traduction_qt.h"

using namespace arbolix;
using essai::FicheEssai;
using essai::FicheExemple;

namespace {

template <typename T>
T* Controle(QWidget& f, const char* nom) {
    T* w = f.findChild<T*>(nom);
    if (!w) qFatal("contrôle absent : %s", nom);
    return w;
}

QLineEdit* Num(Fiche& f) {
    return Controle<QLineEdit>(f, "NumPerso");
}

// Une fiche neuve sur l'exemple : la touche espace dans le numéro.
std::int32_t FicheNeuve(Fiche& f) {
    QTest::keyClick(Num(f), Qt::Key_Space);
    return f.base().NumCourant;
}

bool Contient(const QRect& ecran, const QRect& fenetre) {
    return ecran.contains(fenetre.topLeft()) && ecran.contains(fenetre.bottomRight());
}

}  // namespace

class EssaiFenetre : public QObject {
    Q_OBJECT
private slots:
    void FicheNeuveLaFrappeRemplaceLAttente() {
        FicheExemple e;
        const std::int32_t n = FicheNeuve(e.fiche);
        auto* nom = Controle<QComboBox>(e.fiche, "Nom");
        QCOMPARE(nom->currentText(), QString("N"));
        QTest::keyClicks(nom, "dupuis");
        QCOMPARE(nom->currentText(), QString("DUPUIS"));
        Controle<QRadioButton>(e.fiche, "Sexe2")->click();  // le focus passe aux prénoms, « N » choisi
        QTest::keyClicks(Controle<QComboBox>(e.fiche, "Prenoms"), "rose");
        Num(e.fiche)->setText("1");
        QCOMPARE(e.fiche.base().Persos[n].Prenoms.str(), std::string("Rose"));
        QCOMPARE(e.fiche.base().Persos[n].Nom.str(), std::string("DUPUIS"));
    }

    // Taper 10 alors que la question du sexe s'ouvre au premier chiffre mène à la personne 10.
    void QuestionDuSexeGardeLesChiffres() {
        FicheExemple e;
        DialogueQt vraie(&e.fiche);
        e.fiche.RemplacerDialogue(&vraie);
        const std::int32_t n = FicheNeuve(e.fiche);
        QTest::keyClicks(Controle<QComboBox>(e.fiche, "Prenoms"), "Jean");
        Num(e.fiche)->setFocus();
        Num(e.fiche)->selectAll();
        QStringList boutons;
        QTimer::singleShot(0, [&] {
            auto* boite = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(boite);
            for (auto* b : boite->buttons()) boutons << b->text();
            QTest::keyClick(boite, '0');
            QTest::keyClick(boite, 'h');  // la lettre du bouton Homme
        });
        QTest::keyClick(Num(e.fiche), '1');
        QCoreApplication::sendPostedEvents();
        QCOMPARE(boutons, (QStringList{"&Homme", "&Femme"}));
        QCOMPARE(Num(e.fiche)->text(), QString("10"));
        QCOMPARE(e.fiche.base().NumCourant, 10);
        QCOMPARE(e.fiche.base().Persos[n].Sexe, 'M');
    }

    void RaccourcisEtMenus() {
        QTemporaryDir dossier;
        const QString chemin = dossier.filePath("arbre.ged");
        QVERIFY(QFile::copy(ARBOLIX_SHARE "/exemple.ged", chemin));
        FicheEssai e;
        QVERIFY(e.Ouvrir(chemin.toStdString()));
        const std::pair<const char*, QKeySequence> touches[] = {{"MenuOuvrir", QKeySequence("Ctrl+O")},
                                                                {"MenuEnregistrer", QKeySequence("Ctrl+S")},
                                                                {"MenuQuitter", QKeySequence("Ctrl+Q")}};
        for (const auto& [nom, touche] : touches) QCOMPARE(e.Action(nom)->shortcut(), touche);
        QVERIFY(e.Action("MenuEnregistrerSous")->isEnabled());
        QVERIFY(e.Action("MenuAPropos"));
        // Ctrl+S enregistre la fiche qu'on vient de taper, et le fichier.
        Num(e.fiche)->setText("3");
        QTest::keyClicks(Controle<QComboBox>(e.fiche, "Metier"), " puis maire");
        e.fiche.show();
        e.fiche.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&e.fiche));
        bool demande = false;
        QTimer::singleShot(0, &e.fiche.FormGedcom(), [&] {
            demande = true;
            e.fiche.FormGedcom().BoutonOK();
        });
        QTest::keySequence(&e.fiche, QKeySequence("Ctrl+S"));
        QVERIFY(demande);
        QCOMPARE(e.fiche.base().FichierModifie, kFaux);
        QVERIFY(e.fiche.base().Persos[3].Metier.str().find("maire") != std::string::npos);
        // La barre d'état dit ce qu'est la sélection.
        QVERIFY(
            e.fiche.findChild<QLabel*>("EtatSelection")->text().startsWith("Toute la base : 24 personnes"));
    }

    void QueueCoupeeDuCorps() {
        const struct {
            const char *rangee, *corps, *queue;
        } cas[] = {
            {"MARTIN Jean \xB0" "1718 P000002", "MARTIN Jean \xB0" "1718", "P000002"},
            {" Ajouter... P000025", " Ajouter...", "P000025"},
            {"Sans queue", "Sans queue", ""},
            {"Presque P00002x", "Presque P00002x", ""},
            {"P000002", "P000002", ""},  // rien devant : pas de colonne
        };
        for (const auto& c : cas) {
            const auto [corps, queue] = DelegueQueue::Couper(QString::fromLatin1(c.rangee));
            QCOMPARE(corps, QString::fromLatin1(c.corps));
            QCOMPARE(queue, QString::fromLatin1(c.queue));
        }
    }

    void SimpleClicDansLaListeChangeLaFiche() {
        FicheExemple e;
        Num(e.fiche)->setText("1");
        e.fiche.MenuListePersos();
        Personne& liste = e.fiche.FormPersonne();
        QVERIFY(liste.isVisible());
        auto* vue = Controle<QListView>(liste, "Liste");
        const QModelIndex i = vue->model()->index(5, 0);
        const std::int32_t voulu = LireQueue(DepuisQString(i.data().toString())).numero;
        QVERIFY(voulu > 1);
        QTest::mouseClick(vue->viewport(), Qt::LeftButton, {}, vue->visualRect(i).center());
        QCOMPARE(Num(e.fiche)->text(), QString::number(voulu));
        QVERIFY(liste.isVisible());
        // Elle s'est mise à côté de la fiche, pas sur son coin (la règle est essayée dans le noyau).
        QVERIFY(liste.x() > e.fiche.x());
    }

    void TextesDeQtEnFrancais() {
        if (!ChargerTraductionQt(*QCoreApplication::instance()))
            QSKIP("qtbase_fr.qm absent (paquet qt6-translations-l10n)");
        QFileDialog choix;
        choix.setOption(QFileDialog::DontUseNativeDialog);
        auto* boutons = choix.findChild<QDialogButtonBox*>();
        QVERIFY(boutons);
        QCOMPARE(boutons->button(QDialogButtonBox::Cancel)->text().remove('&'), QString("Annuler"));
    }

    // Des places absurdes dans les réglages : les fenêtres viennent quand même dans l'écran.
    void PlacesAbsurdesRameneesDansLEcran() {
        QTemporaryDir dossier;
        const std::string ini = dossier.filePath("arbolix.ini").toStdString();
        std::ofstream(ini)
            << "[Fenetre]\nX=100000\nY=-5000\nL=100000\nH=3\n"
               "[Fenetres]\nPersonneL=-99999999\nPersonneT=1500000\nPersonneW=5400\nPersonneH=6120\n";
        // Avec ses messages à côté, le programme est « portable » : ses réglages sont là aussi.
        QVERIFY(QFile::copy(ARBOLIX_SHARE "/messages1036.txt", dossier.filePath("messages1036.txt")));
        FicheEssai e;
        e.fiche.Demarrer("", dossier.filePath("arbolix").toStdString());
        const QRect ecran = e.fiche.screen()->availableGeometry();
        QVERIFY(Contient(ecran, e.fiche.frameGeometry()));
        QVERIFY(Contient(ecran, e.fiche.FormPersonne().frameGeometry()));
        QVERIFY(e.fiche.frameGeometry().height() >= std::min(480, ecran.height()));
    }

    void DialogueEnregistrerAvanceEtRemplacement() {
        QTemporaryDir dossier;
        const QString autre = dossier.filePath("autre.ged");
        std::ofstream(autre.toStdString()) << "0 HEAD\n0 TRLR\n";
        FicheEssai e;
        Gedcom& g = e.fiche.FormGedcom();
        OptionsGedcom v;
        v.Fichier = dossier.filePath("arbre.ged").toStdString();
        int ecrits = 0;
        const auto travail = [&](Gedcom&) { return ++ecrits > 0; };
        g.Preparer(ModeGedcom::Enregistrer, "Enregistrer", v, {}, travail);
        QVERIFY(g.findChild<QGroupBox*>("CadreOptions")->isHidden());
        v.Lieux = false;  // une case qui perdrait des lieux se montre d'emblée
        g.Preparer(ModeGedcom::Enregistrer, "Enregistrer", v, {}, travail);
        QVERIFY(!g.findChild<QGroupBox*>("CadreOptions")->isHidden());
        // Un autre fichier qui existe : Non le garde intact.
        g.FixerFichier(autre.toStdString());
        e.d.ReponseSuivante(Bouton::Non);
        g.BoutonOK();
        QCOMPARE(ecrits, 0);
        QVERIFY(VersQString(e.d.messages.back().texte).contains("existe d"));
        e.d.ReponseSuivante(Bouton::Oui);
        g.BoutonOK();
        QCOMPARE(ecrits, 1);
    }

    void TitreDeLEditeurEtFermerLesOptions() {
        FicheExemple e;
        QString titre;
        bool numero = true;
        QTimer::singleShot(0, [&] {
            auto* ed = qobject_cast<Editeur*>(QApplication::activeModalWidget());
            QVERIFY(ed);
            titre = ed->windowTitle();
            numero = ed->findChild<QLineEdit*>("NumNote")->isVisible();
            ed->reject();
        });
        e.fiche.MenuNotesFichier();
        QCOMPARE(titre, QString("Notes du fichier"));
        QVERIFY(!numero);

        QTemporaryDir dossier;
        const std::filesystem::path ini = dossier.filePath("arbolix.ini").toStdString();
        Options o;
        std::vector<std::string> recents;
        FenetreOptions options(o, recents, ini, e.d, 1);
        options.done(QDialog::Accepted);  // rien de changé : pas de question
        QVERIFY(e.d.messages.empty());
        Controle<QLineEdit>(options, "AgeMiniUnion")->setText("16");
        e.d.ReponseSuivante(Bouton::Oui);
        options.done(QDialog::Accepted);
        QCOMPARE(VersQString(e.d.messages.back().titre), QString("Options"));
        QCOMPARE(LireIni(ini, "Preferences", "AgeMiniUnion", ""), std::string("16"));
    }
};

QTEST_MAIN(EssaiFenetre)
#include "fenetre_test.moc"
