// Le programme tel qu'on l'installe : F1 ouvre l'aide livrée, les pages d'aide ne mènent nulle part
// d'absent, et un démarrage sans fichiers ni dossier de réglages inscriptible prévient sans tomber.
// ARBOLIX_REGENERER=1 refait les captures d'écran des pages d'aide (share/aide/images).
#include <QDir>
#include <QLineEdit>
#include <QMenuBar>
#include <QRegularExpression>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/options.h"

using namespace arbolix;

namespace {

// Remet une variable d'environnement comme elle était en sortant de la portée.
class Variable {
public:
    Variable(const char* nom, const QByteArray& valeur)
        : nom_(nom), avant_(qgetenv(nom)), existait_(qEnvironmentVariableIsSet(nom)) {
        qputenv(nom, valeur);
    }
    ~Variable() {
        if (existait_)
            qputenv(nom_, avant_);
        else
            qunsetenv(nom_);
    }

private:
    const char* nom_;
    QByteArray avant_;
    bool existait_;
};

void Capturer(QWidget& fenetre, const QString& nom) {
    QVERIFY(fenetre.grab().save(QString(ARBOLIX_SHARE "/aide/images/") + nom, "PNG"));
}

}  // namespace

class EssaiInstallation : public QObject {
    Q_OBJECT
private slots:
    // F1 depuis la fiche : la page d'accueil de l'aide copiée à côté du programme, par le
    // programme par défaut (ici le faux dialogue, qui note l'adresse).
    void F1OuvreLAide() {
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.show();
        fiche.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&fiche));
        QTest::keyClick(&fiche, Qt::Key_F1);
        QCOMPARE(d.ouverts.size(), std::size_t{1});
        const QString page = QString::fromStdString(d.ouverts[0]);
        QCOMPARE(page, QCoreApplication::applicationDirPath() + "/aide/index.html");
        QVERIFY(QFileInfo::exists(page));
        QVERIFY(d.messages.empty());
        // Le menu Aide reste le dernier de la barre.
        const auto menus = fiche.menuBar()->actions();
        QCOMPARE(menus.last()->text(), QString("&Aide"));
    }

    // Chaque lien et chaque image d'une page d'aide désigne un fichier livré.
    void LesPagesDAideNeMenentNullePartDAbsent() {
        const QDir aide(ARBOLIX_SHARE "/aide");
        const QStringList pages = aide.entryList({"*.html"});
        QVERIFY(pages.contains("index.html"));
        const QRegularExpression lien(R"re((?:href|src)="([^"#:]+)(?:#[^"]*)?")re");
        for (const QString& nom : pages) {
            QFile f(aide.filePath(nom));
            QVERIFY(f.open(QIODevice::ReadOnly));
            const QString texte = QString::fromUtf8(f.readAll());
            QVERIFY2(texte.contains("<html lang=\"fr\">"), qPrintable(nom));
            for (auto m = lien.globalMatch(texte); m.hasNext();) {
                const QString cible = m.next().captured(1);
                QVERIFY2(QFileInfo::exists(aide.filePath(cible)), qPrintable(nom + " : " + cible));
            }
        }
    }

    // Ni fichier de messages (programme copié seul), ni dossier de réglages où écrire : le
    // message des textes absents, celui qui nomme le fichier de réglages, et les réglages par défaut.
    void DemarrageSansFichiersNiReglagesInscriptibles() {
        // Même root ne crée pas de dossier sous un fichier : ni à côté du programme, ni chez l'utilisateur.
        Variable xdg("XDG_CONFIG_HOME", "/dev/null/config");
        Variable home("HOME", "/dev/null");
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Demarrer("", "/dev/null/bin/arbolix");
        QStringList titres;
        for (const auto& m : d.messages) titres << VersQString(m.titre);
        QCOMPARE(titres, QStringList({"Missing translation", QString::fromUtf8("Erreur système")}));
        QVERIFY(VersQString(d.messages[1].texte).contains("/dev/null/config/arbolix/arbolix.ini"));
        QCOMPARE(fiche.options().AgeMaxiDeces, Options{}.AgeMaxiDeces);
        QCOMPARE(fiche.windowTitle(), QString("Arbolix"));
    }

    // Les captures des pages d'aide, prises de la vraie fenêtre sur le fichier d'exemple.
    void CapturesDeLAide() {
        if (!qEnvironmentVariableIsSet("ARBOLIX_REGENERER"))
            QSKIP("captures refaites avec ARBOLIX_REGENERER=1");
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Vider(false);
        Progression muette;
        fiche.gedcom().Fichier = ARBOLIX_SHARE "/exemple.ged";
        QVERIFY(fiche.ChargerFichier(muette));
        fiche.resize(1000, 640);
        fiche.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fiche));
        fiche.findChild<QLineEdit*>("NumPerso")->setText("13");
        Capturer(fiche, "fiche.png");
        std::vector<std::string> recents;
        FenetreOptions options(fiche.options(), recents, {}, d, 11, &fiche);
        options.show();
        QVERIFY(QTest::qWaitForWindowExposed(&options));
        Capturer(options, "options.png");
    }
};

QTEST_MAIN(EssaiInstallation)
#include "installation_test.moc"
