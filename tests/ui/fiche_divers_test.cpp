// La fiche, côté notes externes et fichiers liés : choix d'une note par Espace, image liée et son aperçu,
// enregistrement puis relecture ; le menu des liens.
#include <QAction>
#include <QApplication>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
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

namespace {

constexpr const char* kArbre =
    "0 HEAD\r\n1 SOUR ARBOLIX\r\n1 GEDC\r\n2 VERS 5.5\r\n1 CHAR ANSI\r\n"
    "0 @I1@ INDI\r\n1 NAME Jean /MARTIN/\r\n1 SEX M\r\n1 BIRT\r\n2 DATE 1720\r\n"
    "0 @I2@ INDI\r\n1 NAME Marie /DUPONT/\r\n1 SEX F\r\n0 TRLR\r\n";

// Une fiche dont les boîtes passent par un faux Dialogue et dont les choix de rangée sont notés.
struct FicheEssai {
    Fiche fiche;
    DialogueFactice d;
    Progression muette;
    std::vector<ListeCandidats> listes;
    std::optional<std::size_t> rangee = 0;  // la rangée prise dans la prochaine liste (0 : la première)
    FicheEssai() {
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        fiche.RemplacerChoisir([this](const ListeCandidats& l) -> std::optional<std::string> {
            listes.push_back(l);
            if (!rangee) return std::nullopt;
            return *rangee == 0 ? l.premiereLigne : l.lignes.at(*rangee - 1);
        });
        fiche.Vider(false);
        fiche.resize(1100, 800);
    }
    bool Ouvrir(const QString& chemin) {
        fiche.gedcom().Fichier = chemin.toStdString();
        return fiche.ChargerFichier(muette);
    }
    template <typename T>
    T* W(const char* nom) {
        return fiche.findChild<T*>(nom);
    }
    bool PhotoMontree() { return !W<QLabel>("Photo")->pixmap().isNull(); }
    void Choisir(int rangee) {
        auto* l = W<QListWidget>("ListeDivers");
        l->setCurrentRow(rangee);
        l->item(rangee)->setSelected(true);
    }
};

QString Ecrire(const QTemporaryDir& dossier, const QString& nom, const QByteArray& contenu) {
    QFile f(dossier.filePath(nom));
    if (!f.open(QIODevice::WriteOnly)) return {};
    f.write(contenu);
    return f.fileName();
}

QString Image(const QTemporaryDir& dossier, const QString& nom) {
    QImage image(40, 30, QImage::Format_RGB32);
    image.fill(Qt::darkRed);
    const QString chemin = dossier.filePath(nom);
    return image.save(chemin) ? chemin : QString();
}

// L'éditeur de notes est modal : le titre et le texte sont tapés et OK pressé dès qu'il s'ouvre.
void RemplirEditeur(const QString& titre, const QString& texte) {
    QTimer::singleShot(0, [titre, texte] {
        QWidget* editeur = QApplication::activeModalWidget();
        QVERIFY(editeur);
        editeur->findChild<QLineEdit*>("Titre")->setText(titre);
        editeur->findChild<QPlainTextEdit*>("Texte")->setPlainText(texte);
        QTest::mouseClick(editeur->findChild<QPushButton*>("BoutonOK"), Qt::LeftButton);
    });
}

}  // namespace

class EssaiFicheDivers : public QObject {
    Q_OBJECT
private slots:
    void NoteExterneEtImageGardeesApresEnregistrement() {
        QTemporaryDir dossier;
        const QString arbre = Ecrire(dossier, "arbre.ged", kArbre);
        const QString portrait = Image(dossier, "portrait.png");
        QVERIFY(!portrait.isEmpty());
        {
            FicheEssai e;
            QVERIFY(e.Ouvrir(arbre));
            QVERIFY(!e.PhotoMontree());
            // Espace dans Notes vide : la liste des notes, « Ajouter... » crée la note 1 et l'ouvre.
            RemplirEditeur("Souvenirs", QString::fromUtf8("Né à Lyon, laboureur."));
            QTest::keyClick(e.W<QPlainTextEdit>("Notes"), Qt::Key_Space);
            QCOMPARE(e.listes.size(), std::size_t{1});
            QCOMPARE(VersQString(e.listes[0].titre), QString("Choisissez une note externe"));
            QCOMPARE(VersQString(e.listes[0].premiereLigne), QString("  Ajouter... N000000"));
            QCOMPARE(e.W<QPlainTextEdit>("Notes")->toPlainText(), QString("@N1@"));
            const Base& b = e.fiche.base();
            QCOMPARE(VersQString(std::as_const(b.Notes)[1].Texte),
                     QString::fromUtf8("Né à Lyon, laboureur."));
            QCOMPARE(std::as_const(b.Notes)[1].LiensPersos(1), 1);
            // Un second blanc, le champ n'étant plus vide, n'ouvre plus la liste.
            QTest::keyClick(e.W<QPlainTextEdit>("Notes"), Qt::Key_Space);
            QCOMPARE(e.listes.size(), std::size_t{1});

            e.d.FichierSuivant(portrait.toStdString());
            QTest::mouseClick(e.W<QPushButton>("BoutonAjouterDivers"), Qt::LeftButton);
            QCOMPARE(e.W<QListWidget>("ListeDivers")->count(), 1);
            QVERIFY(e.PhotoMontree());
            QVERIFY(e.fiche.windowTitle().endsWith(QString::fromUtf8("(modifié)")));

            QTimer::singleShot(0, &e.fiche.FormGedcom(), [&] { e.fiche.FormGedcom().BoutonOK(); });
            QVERIFY(e.fiche.Enregistrer());
            QVERIFY(e.d.messages.empty());
        }
        FicheEssai relue;
        QVERIFY(relue.Ouvrir(arbre));
        QCOMPARE(relue.W<QPlainTextEdit>("Notes")->toPlainText(), QString("@N1@"));
        QCOMPARE(VersQString(std::as_const(relue.fiche.base().Notes)[1].Titre), QString("Souvenirs"));
        QCOMPARE(VersQString(std::as_const(relue.fiche.base().Notes)[1].Texte),
                 QString::fromUtf8("Né à Lyon, laboureur."));
        // Écrit relatif au dossier du fichier, où il se retrouve.
        QCOMPARE(relue.W<QListWidget>("ListeDivers")->item(0)->toolTip(), QString("portrait.png"));
        QVERIFY(relue.PhotoMontree());
        // L'éditeur annulé : ni note nouvelle ni lien.
        relue.W<QLineEdit>("NumPerso")->setText("2");
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        QTest::keyClick(relue.W<QPlainTextEdit>("Notes"), Qt::Key_Space);
        QCOMPARE(relue.W<QPlainTextEdit>("Notes")->toPlainText(), QString());
        QCOMPARE(relue.fiche.base().NbNotes, 1);
        // Une note existante se choisit par sa rangée, sans éditeur.
        relue.rangee = 1;
        QTest::keyClick(relue.W<QPlainTextEdit>("Notes"), Qt::Key_Space);
        QCOMPARE(relue.W<QPlainTextEdit>("Notes")->toPlainText(), QString("@N1@"));
        QCOMPARE(std::as_const(relue.fiche.base().Notes)[1].LiensPersos(2), 2);
    }

    void MenuDesLiensEtFichierIntrouvable() {
        QTemporaryDir dossier;
        const QString arbre = Ecrire(dossier, "arbre.ged", kArbre);
        const QString texte = Ecrire(dossier, "acte.txt", "acte");
        FicheEssai e;
        QVERIFY(e.Ouvrir(arbre));
        auto* liste = e.W<QListWidget>("ListeDivers");

        QTest::mouseClick(e.W<QPushButton>("BoutonMenuFich"), Qt::LeftButton);
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(VersQString(e.d.messages[0].titre), QString::fromUtf8("Ficher lié"));

        for (const QString& f : {texte, dossier.filePath("perdu.jpg")}) {
            e.d.FichierSuivant(f.toStdString());
            e.fiche.findChild<QPushButton*>("BoutonAjouterDivers")->click();
        }
        QCOMPARE(liste->count(), 2);
        // Double clic : ouvert dans son programme.
        const QPoint centre = liste->visualItemRect(liste->item(0)).center();
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseDClick(liste->viewport(), Qt::LeftButton, {}, centre);
        QCOMPARE(e.d.ouverts, std::vector<std::string>{texte.toStdString()});
        // Un clic sur un fichier perdu : la question, Non garde le lien, Oui l'ôte.
        e.d.messages.clear();
        e.d.ReponseSuivante(Bouton::Non);
        e.Choisir(1);
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {},
                          liste->visualItemRect(liste->item(1)).center());
        QCOMPARE(VersQString(e.d.messages.at(0).titre), QString("Fichier introuvable"));
        QCOMPARE(liste->count(), 2);
        e.d.ReponseSuivante(Bouton::Oui);
        e.Choisir(1);
        QTest::mouseClick(liste->viewport(), Qt::LeftButton, {},
                          liste->visualItemRect(liste->item(1)).center());
        QCOMPARE(liste->count(), 1);

        // Modifier par la saisie du chemin, puis supprimer.
        e.Choisir(0);
        e.d.SaisieSuivante("/ailleurs/acte.txt");
        e.fiche.findChild<QAction*>("MenuModifLienImage_0")->trigger();
        QCOMPARE(liste->item(0)->toolTip(), QString("/ailleurs/acte.txt"));
        e.Choisir(0);
        e.d.messages.clear();
        e.fiche.findChild<QAction*>("MenuDupliquerImage")->trigger();
        QVERIFY(VersQString(e.d.messages.at(0).texte).contains(QString::fromUtf8("objet média")));
        e.Choisir(0);
        e.fiche.findChild<QAction*>("MenuSupprLienImage")->trigger();
        QCOMPARE(liste->count(), 0);
        QVERIFY(std::as_const(e.fiche.base().Persos)[1].Suite().Fichiers.empty());
    }
};

QTEST_MAIN(EssaiFicheDivers)
#include "fiche_divers_test.moc"
