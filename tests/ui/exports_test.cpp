// La fenêtre Exports ouverte du menu de la fiche : réglages retenus, rapport écrit, annulation.
#include "ui/exports.h"

#include <unistd.h>

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>
#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "platform/ini.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"

using namespace arbolix;
namespace fs = std::filesystem;

namespace {

std::string Lire(const fs::path& f) {
    std::ifstream e(f, std::ios::binary);
    return {std::istreambuf_iterator<char>(e), std::istreambuf_iterator<char>()};
}

struct FicheEssai {
    Fiche fiche;
    DialogueFactice d;
    Progression muette;
    explicit FicheEssai(const fs::path& ini, const std::string& fichier = ARBOLIX_SHARE "/exemple.ged") {
        fiche.RemplacerDialogue(&d);
        fiche.RemplacerIni(ini);
        fiche.Vider(false);
        fiche.gedcom().Fichier = fichier;
        fiche.ChargerFichier(muette);
    }
    FenetreExports* Ouvrir(int type) {
        fiche.findChild<QAction*>(QString("MenuExport_%1").arg(type))->trigger();
        return fiche.findChild<FenetreExports*>();
    }
    template <typename T>
    T* C(const char* nom) {
        T* w = fiche.findChild<FenetreExports*>()->findChild<T*>(nom);
        if (!w) qFatal("contrôle absent : %s", nom);
        return w;
    }
};

}  // namespace

class EssaiExports : public QObject {
    Q_OBJECT
    fs::path dossier_;

private slots:
    void init() {
        dossier_ = fs::temp_directory_path() / ("arbolix-exports-ui-" + std::to_string(::getpid()));
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
    }
    void cleanup() { fs::remove_all(dossier_); }

    void LesReglagesChangesSontRetenusEtRevus() {
        FicheEssai e(dossier_ / "arbolix.ini");
        FenetreExports* f = e.Ouvrir(2);
        QVERIFY(f && f->isVisible());
        QCOMPARE(f->windowTitle(), QStringLiteral("Liste d'ascendance..."));
        QVERIFY(e.C<QGroupBox>("CadreDates")->isVisibleTo(f));
        QVERIFY(!e.C<QGroupBox>("CadreRTF")->isVisibleTo(f));
        QVERIFY(e.C<QLineEdit>("TitreExport")->text().startsWith("Ascendance de "));

        auto* seuil = e.C<QLineEdit>("AnneesConfidentielles_0");
        seuil->clear();
        QTest::keyClicks(seuil, "1x");  // un texte non numérique redevient "0"
        QCOMPARE(seuil->text(), QStringLiteral("0"));
        seuil->setText("100");
        e.C<QRadioButton>("OptionOrdre_2")->setChecked(true);
        e.C<QCheckBox>("Toutes")->setChecked(false);
        const fs::path sortie = dossier_ / "ancetres.txt";
        e.C<QLineEdit>("FichierExport")->setText(QString::fromStdString(sortie.string()));
        e.C<QPushButton>("LancerExport")->click();
        QVERIFY(!f->isVisible());
        QVERIFY(Lire(sortie).starts_with("Liste d'ascendance \xE9tablie le "));
        QCOMPARE(LireIni(dossier_ / "arbolix.ini", "Preferences", "AnneesConfidentielles", ""),
                 std::string("100"));
        QCOMPARE(LireIni(dossier_ / "arbolix.ini", "Preferences", "OrdreDonneesPerso", ""), std::string("2"));

        f = e.Ouvrir(2);
        QCOMPARE(e.C<QLineEdit>("AnneesConfidentielles_0")->text(), QStringLiteral("100"));
        QVERIFY(e.C<QRadioButton>("OptionOrdre_2")->isChecked());
        // Un chemin relatif : la boîte, puis Parcourir (annulé ici) ; rien d'écrit.
        e.C<QLineEdit>("FichierExport")->setText("ancetres.txt");
        e.C<QPushButton>("LancerExport")->click();
        QCOMPARE(VersQString(e.d.messages.back().texte), VersQString(kCheminIncomplet));
        QVERIFY(f->isVisible());
        QTest::keyClick(f, Qt::Key_Escape);
        QVERIFY(!f->isVisible());
    }

    void LeLivreEtLaDescendanceSEcrivent() {
        FicheEssai e(dossier_ / "arbolix.ini");
        FenetreExports* f = e.Ouvrir(8);
        QVERIFY(e.C<QGroupBox>("CadreRTF")->isVisibleTo(f));
        QVERIFY(e.C<QLineEdit>("TitreExport")->text().startsWith("Livre des familles de "));
        e.C<QComboBox>("ComboColRTF_0")->setCurrentText("2");
        e.C<QCheckBox>("OptionBasPage_0")->setChecked(true);
        const fs::path livre = dossier_ / "livre.rtf";
        e.C<QLineEdit>("FichierExport")->setText(QString::fromStdString(livre.string()));
        e.C<QPushButton>("LancerExport")->click();
        QVERIFY(!f->isVisible());
        const std::string t = Lire(livre);
        QVERIFY(t.starts_with("{\\rtf1\\ansi"));
        QVERIFY(t.find("\\cols2\\colsx567") != std::string::npos);
        QVERIFY(t.find("Index des patronymes") != std::string::npos);

        f = e.Ouvrir(3);
        const fs::path texte = dossier_ / "descendants.txt";
        e.C<QLineEdit>("FichierExport")->setText(QString::fromStdString(texte.string()));
        e.C<QPushButton>("LancerExport")->click();
        QVERIFY(!f->isVisible());
        QVERIFY(Lire(texte).starts_with("Liste de descendance de "));
    }

    void AnnulerPendantUnLongRapportGardeLAncienFichier() {
        // Assez de personnes pour que le rapport laisse passer les évènements en route.
        const fs::path ged = dossier_ / "grand.ged";
        {
            std::ofstream g(ged, std::ios::binary);
            g << "0 HEAD\r\n1 CHAR ANSI\r\n";
            for (int i = 1; i <= 5000; ++i)
                g << "0 @I" << i << "@ INDI\r\n1 NAME P" << i << " /NOM" << i % 50 << "/\r\n1 BIRT\r\n2 DATE "
                  << 1700 + i % 200 << "\r\n2 PLAC Lieu" << i % 7 << "\r\n";
            g << "0 TRLR\r\n";
        }
        FicheEssai e(dossier_ / "arbolix.ini", ged.string());
        const fs::path sortie = dossier_ / "eclair.txt";
        std::ofstream(sortie, std::ios::binary) << "ancien";
        FenetreExports* f = e.Ouvrir(6);
        e.C<QLineEdit>("FichierExport")->setText(QString::fromStdString(sortie.string()));
        QTimer::singleShot(0, f, [&] { e.C<QPushButton>("BoutonAnnulerExport")->click(); });
        e.C<QPushButton>("LancerExport")->click();
        QVERIFY(!f->isVisible());
        QCOMPARE(Lire(sortie), std::string("ancien"));
        // Relancé sans annulation, le rapport remplace l'ancien fichier.
        f = e.Ouvrir(6);
        e.C<QLineEdit>("FichierExport")->setText(QString::fromStdString(sortie.string()));
        e.C<QPushButton>("LancerExport")->click();
        QVERIFY(
            Lire(sortie).starts_with("Nom;Lieu;d\xE9"
                                     "but;fin;nombre\r\nNOM0;;"));
    }
};

QTEST_MAIN(EssaiExports)
#include "exports_test.moc"
