// Essais de la fenêtre Options et du passage des textes, sans écran (offscreen).
#include "ui/options.h"

#include <unistd.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include "aides/dialogue_factice.h"
#include "app/messages.h"
#include "app/reglages.h"
#include "platform/ini.h"
#include "platform/qt_texte.h"
#include "ui/traduction.h"

using namespace arbolix;
namespace fs = std::filesystem;

class EssaiOptions : public QObject {
    Q_OBJECT

    fs::path dossier_, ini_;

    template <typename T>
    static T* Controle(QWidget& f, const char* nom) {
        T* w = f.findChild<T*>(nom);
        if (!w) qFatal("contrôle absent : %s", nom);
        return w;
    }

private slots:
    void init() {
        dossier_ = fs::temp_directory_path() / ("arbolix-options-ui-" + std::to_string(::getpid()));
        fs::remove_all(dossier_);
        fs::create_directories(dossier_);
        ini_ = dossier_ / "arbolix.ini";
    }
    void cleanup() { fs::remove_all(dossier_); }

    void ControlesNommesCommeLesRegles() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        QCOMPARE(f.objectName(), QStringLiteral("Options"));
        for (const char* nom :
             {"VerifMAJ", "ModifCasse", "OptConvCalRep", "ListePersosCourte", "LanceFicherExporte", "ZoomFen",
              "SelTousDesc", "Sauvegarder", "FondCaseCouleur"})
            Controle<QCheckBox>(f, nom);
        for (const char* nom : {"Chemin_0",     "Chemin_1",      "Chemin_2",           "AgeMiniUnion",
                                "EcartGen",     "AgeMaxiEnfant", "EcartAgeConjoints",  "AgeRetraite",
                                "AgeMaxiDeces", "PourcentZoom",  "NomPrenomParDefaut", "Police",
                                "MaxGen",       "SymbNais",      "SymbBapt",           "SymbCoMa",
                                "SymbMari",     "SymbDivo",      "SymbDece",           "SymbSepu"})
            Controle<QLineEdit>(f, nom);
        for (const char* nom : {"Conversion", "ExportPrefere", "SelAutoLieuxAnnexes"})
            Controle<QComboBox>(f, nom);
        for (const char* nom : {"BoutonZoom", "EnregistrerOptions", "ClearFileList"})
            Controle<QPushButton>(f, nom);
        Controle<QPlainTextEdit>(f, "LiensWeb_0");
        Controle<QPlainTextEdit>(f, "LiensWeb_1");
        QCOMPARE(Controle<QLineEdit>(f, "SymbNais")->text(), QStringLiteral("°"));
        QCOMPARE(Controle<QComboBox>(f, "ExportPrefere")->currentText(), QStringLiteral("Nimègue"));
    }

    void AgesContradictoiresGardentLaFenetreOuverte() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        f.show();
        Controle<QLineEdit>(f, "AgeMaxiEnfant")->setText("15");
        Controle<QLineEdit>(f, "AgeRetraite")->setText("abc");
        Controle<QLineEdit>(f, "MaxGen")->setText("32");
        f.accept();
        QVERIFY(f.isVisible());
        QCOMPARE(d.messages.size(), std::size_t{1});
        QCOMPARE(d.messages[0].titre, std::string("Option erron\xE9"
                                                  "e"));
        Controle<QLineEdit>(f, "AgeMaxiEnfant")->setText("50");
        f.accept();
        QVERIFY(!f.isVisible());
        QCOMPARE(o.AgeRetraite, std::string("65"));
        QCOMPARE(Controle<QLineEdit>(f, "AgeRetraite")->text(), QStringLiteral("65"));
        QCOMPARE(o.MaxGen, std::string());
    }

    void EnregistrerEcritLesValeursDesControles() {
        Options o;
        std::vector<std::string> recents{"/a.ged", "/b.ged"};
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        Controle<QLineEdit>(f, "SymbMari")->setText(QStringLiteral("∞x"));  // sans équivalent en 1252
        Controle<QLineEdit>(f, "NomPrenomParDefaut")->setText(QStringLiteral("Inconnu é"));
        Controle<QCheckBox>(f, "ModifCasse")->setChecked(false);
        Controle<QComboBox>(f, "Conversion")->setCurrentIndex(3);
        Controle<QPlainTextEdit>(f, "LiensWeb_1")->setPlainText("https://a/%nom\nhttps://b/%comn");
        QTest::mouseClick(Controle<QPushButton>(f, "EnregistrerOptions"), Qt::LeftButton);
        QCOMPARE(LireIni(ini_, "Symboles", "Mariage", ""), std::string("?x"));
        QCOMPARE(LireIni(ini_, "Preferences", "PrenomParDefaut", ""), std::string("Inconnu \xE9"));
        QCOMPARE(LireIni(ini_, "Preferences", "MajusculesAuto", ""), std::string("False"));
        QCOMPARE(LireIni(ini_, "Preferences", "ConvTMAO2", ""), std::string("3"));
        QCOMPARE(LireIni(ini_, "WebAnnuaires", "2", ""), std::string("https://b/%comn"));
        QCOMPARE(LireIni(ini_, "Recents", "2", ""), std::string("/b.ged"));
        QCOMPARE(o.LiensWeb[1], std::string("https://a/%nom\r\nhttps://b/%comn"));

        f.DefinirFichierPresent("/b.ged");
        QTest::mouseClick(Controle<QPushButton>(f, "ClearFileList"), Qt::LeftButton);
        QCOMPARE(recents, std::vector<std::string>{"/b.ged"});
        QCOMPARE(LireIni(ini_, "Recents", "n", ""), std::string("1"));
    }

    void TesterZoomRemplitLesFacteurs() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        Controle<QCheckBox>(f, "ZoomFen")->setChecked(true);
        Controle<QLineEdit>(f, "PourcentZoom")->setText("150");
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonZoom"), Qt::LeftButton);
        QCOMPARE(f.Facteurs().ZoomLargeur, 1.5f);
        QCOMPARE(f.Facteurs().ZoomHauteur, 1.5f);
        Controle<QLineEdit>(f, "PourcentZoom")->setText("(1)");
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonZoom"), Qt::LeftButton);
        QVERIFY(Controle<QLineEdit>(f, "PourcentZoom")->text().startsWith('('));
        QCOMPARE(QString::fromStdString("(" + o.ZoomClic + ")"),
                 Controle<QLineEdit>(f, "PourcentZoom")->text());
    }

    void TraductionParPositionDeTabulation() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        Messages m;
        // Ligne 240 : titre ; 241 + 0 : VerifMAJ ; 241 + 9 : CadreAges ; 241 + 47 : onglet Cohérence.
        std::vector<std::string> t(300);
        t[240] = "Settings";
        t[241] = "Check for updates";
        t[250] = "Date checks";
        t[288] = "Checks";
        std::string texte;
        for (const auto& l : t) texte += l + "\r\n";
        m.Decouper(texte);
        QVERIFY(TraduireFenetre(f, m, ReglerPassage(1033, 11), d));
        QCOMPARE(f.windowTitle(), QStringLiteral("Settings"));
        QCOMPARE(Controle<QCheckBox>(f, "VerifMAJ")->text(), QStringLiteral("Check for updates"));
        QCOMPARE(Controle<QGroupBox>(f, "CadreAges")->title(), QStringLiteral("Date checks"));
        auto* onglets = Controle<QTabWidget>(f, "Onglets");
        QCOMPARE(onglets->tabText(1), QStringLiteral("Checks"));
        // Ligne vide : le texte intégré reste.
        QCOMPARE(Controle<QPushButton>(f, "BoutonZoom")->text(), QStringLiteral("Tester"));
        QCOMPARE(f.palette().color(QPalette::Window), QColor::fromRgb(kFondFenetres));
        QVERIFY(d.messages.empty());
    }

    void FrancaisIntegreNeChangeQueLeFond() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        Messages m;
        std::string texte;
        for (int i = 0; i < 300; ++i) texte += (i == 240 ? "Autre" : "") + std::string("\r\n");
        m.Decouper(texte);
        QVERIFY(TraduireFenetre(f, m, ReglerPassage(kCodeLangue, 11), d));
        QCOMPARE(f.windowTitle(), QStringLiteral("Options"));
        QCOMPARE(f.palette().color(QPalette::Window), QColor::fromRgb(kFondFenetres));
    }

    void FenetreSansBlocPrevient() {
        QWidget nouvelle;
        nouvelle.setObjectName("Nouvelle");
        DialogueFactice d;
        Messages m;
        QVERIFY(!TraduireFenetre(nouvelle, m, ReglerPassage(kCodeLangue, 11), d));
        QCOMPARE(d.messages.size(), std::size_t{1});
        QCOMPARE(d.messages[0].texte, std::string("Traduction manquante pour la fen\xEAtre Nouvelle"));
        QCOMPARE(d.messages[0].icone, Icone::Stop);
    }

    // Le fichier livré porte pour chaque contrôle le texte même de la fenêtre.
    void FichierLivreEgalLesTextesIntegres() {
        Options o;
        std::vector<std::string> recents;
        DialogueFactice d;
        FenetreOptions f(o, recents, ini_, d, 11);
        Messages m;
        QVERIFY(m.Charger(fs::path(ARBOLIX_SHARE) / "messages1036.txt", d));
        const int base = BaseFenetre("Options");
        QCOMPARE(VersQString(m(base - 1)), f.windowTitle());
        for (QWidget* w : f.findChildren<QWidget*>()) {
            const QVariant p = w->property("positionTab");
            if (!p.isValid()) continue;
            QString integre;
            if (auto* l = qobject_cast<QLabel*>(w))
                integre = l->text();
            else if (auto* b = qobject_cast<QAbstractButton*>(w))
                integre = b->text();
            else if (auto* g = qobject_cast<QGroupBox*>(w))
                integre = g->title();
            else
                integre = Controle<QTabWidget>(f, "Onglets")
                              ->tabText(Controle<QTabWidget>(f, "Onglets")->indexOf(w));
            QCOMPARE(VersQString(m(base + p.toInt())), integre);
        }
    }

    void ConversionPage1252() {
        const std::string octets = "\x80\x8C\x9C\x9F\xE9\xFF\x81";
        QCOMPARE(VersQString(octets), QString::fromUtf8("€ŒœŸéÿ\xC2\x81"));
        QCOMPARE(DepuisQString(VersQString(octets)), octets);
        QCOMPARE(DepuisQString(QString::fromUtf8("a→b😀")), std::string("a?b?"));
    }
};

QTEST_MAIN(EssaiOptions)
#include "options_test.moc"
