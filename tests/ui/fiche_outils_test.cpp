// La fiche, côté petits outils : l'adresse exacte donnée au navigateur par l'annuaire et la
// recherche de mise à jour, le message .eml remis au programme de courrier.
#include <QAction>
#include <QComboBox>
#include <QDate>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "tools/mise_a_jour.h"
#include "ui/evenement.h"
#include "ui/fiche.h"

using namespace arbolix;

namespace {

constexpr const char* kArbre =
    "0 HEAD\r\n1 SOUR ARBOLIX\r\n1 GEDC\r\n2 VERS 5.5\r\n1 CHAR ANSI\r\n"
    "0 @I1@ INDI\r\n1 NAME Jean /MARTIN/\r\n1 SEX M\r\n0 TRLR\r\n";

struct FicheEssai {
    Fiche fiche;
    DialogueFactice d;
    Progression muette;
    std::vector<ListeCandidats> listes;
    std::optional<std::string> choix;
    FicheEssai() {
        fiche.RemplacerDialogue(&d);
        fiche.RemplacerChoisir([this](const ListeCandidats& l) {
            listes.push_back(l);
            return choix;
        });
        fiche.Vider(false);
    }
    bool Ouvrir(const QString& chemin) {
        fiche.gedcom().Fichier = chemin.toStdString();
        return fiche.ChargerFichier(muette);
    }
    template <typename T>
    T* W(const char* nom) {
        return fiche.findChild<T*>(nom);
    }
    // Une personne aux accents, blancs et « & » ; Windows-1252 dans la base, Unicode à l'écran.
    void Remplir() {
        W<QComboBox>("Nom")->setCurrentText(QString::fromUtf8("LÉVY & FILS"));
        W<QComboBox>("Prenoms")->setCurrentText(QString::fromUtf8("Zoé Marie"));
        W<QLineEdit>("Ville")->setText(QString::fromUtf8("Saint-Étienne"));
        W<QLineEdit>("CP")->setText("42000");
    }
};

QString Ecrire(const QTemporaryDir& dossier, const QString& nom, const QByteArray& contenu) {
    QFile f(dossier.filePath(nom));
    if (!f.open(QIODevice::WriteOnly)) return {};
    f.write(contenu);
    return f.fileName();
}

}  // namespace

class EssaiFicheOutils : public QObject {
    Q_OBJECT
private slots:
    void AnnuaireOuvreLAdresseRemplie() {
        QTemporaryDir dossier;
        FicheEssai e;
        QVERIFY(e.Ouvrir(Ecrire(dossier, "arbre.ged", kArbre)));
        e.Remplir();
        // Une seule ligne : prise d'emblée, sans liste.
        e.fiche.options().LiensWeb[1] = "www.annuaire.fr/r?qui=%nom&p=%prenom&ou=%comn&d=%dept";
        QTest::mouseClick(e.W<QPushButton>("BoutonAnnuaire"), Qt::LeftButton);
        QVERIFY(e.listes.empty());
        QCOMPARE(e.d.ouverts, (std::vector<std::string>{
                                  "https://www.annuaire.fr/"
                                  "r?qui=L%C3%89VY%20%26%20FILS&p=Zo%C3%A9&ou=Saint-%C3%89tienne&d=42"}));
        // Deux lignes : la liste "web" par hôte, titrée de la légende du bouton sans « & ».
        e.fiche.options().LiensWeb[1] = "https://a.fr/?n=%nom\r\nhttps://b.fr/?v=%comn";
        e.choix = "b.fr";
        QTest::mouseClick(e.W<QPushButton>("BoutonAnnuaire"), Qt::LeftButton);
        QCOMPARE(e.listes.size(), std::size_t{1});
        QCOMPARE(e.listes[0].genre, std::string("web"));
        QCOMPARE(e.listes[0].titre, std::string("Annuaire..."));
        QCOMPARE(e.listes[0].lignes, (std::vector<std::string>{"a.fr", "b.fr"}));
        QCOMPARE(e.d.ouverts.back(), std::string("https://b.fr/?v=Saint-%C3%89tienne"));
        // Liste fermée sans choix : rien n'est ouvert ; liste vide : la boîte.
        e.choix.reset();
        QTest::mouseClick(e.W<QPushButton>("BoutonAnnuaire"), Qt::LeftButton);
        e.fiche.options().LiensWeb[1].clear();
        QTest::mouseClick(e.W<QPushButton>("BoutonAnnuaire"), Qt::LeftButton);
        QCOMPARE(e.d.ouverts.size(), std::size_t{2});
        QCOMPARE(e.d.messages.size(), std::size_t{1});
        QCOMPARE(e.d.messages[0].titre, std::string("Param\xE8tre manquant"));
    }

    void BaseWebDepuisLEvenement() {
        QTemporaryDir dossier;
        FicheEssai e;
        QVERIFY(e.Ouvrir(Ecrire(dossier, "arbre.ged", kArbre)));
        e.Remplir();
        // L'éditeur d'évènement passe le lieu et la date qu'il montre.
        std::vector<std::string> recus;
        ServicesEvenement s;
        s.baseWeb = [&](const std::string& lieu, const std::string& date, const QString& legende) {
            recus = {lieu, date, DepuisQString(legende)};
        };
        FenetreEvenement fenetre(e.fiche.base(), e.fiche.options(), e.d, s);
        QVERIFY(fenetre.OuvrirActe('N', 1, 0, "Naissance"));
        fenetre.findChild<QLineEdit*>("Date")->setText("vers 1850");
        fenetre.findChild<QComboBox*>("Lieu")->setCurrentText(QString::fromUtf8("Béziers"));
        QTest::mouseClick(fenetre.findChild<QPushButton*>("BoutonBaseWeb"), Qt::LeftButton);
        QCOMPARE(recus, (std::vector<std::string>{"B\xE9ziers", "vers 1850", "Base &web..."}));
        // La fiche y joint le nom et le premier prénom ; %debut et %fin encadrent l'année.
        e.fiche.options().LiensWeb[0] = "https://b.fr/?n=%nom&p=%prenom&l=%comn&a=%debut-%fin";
        e.fiche.BoutonBaseWeb(recus[0], recus[1], "Base &web...");
        QCOMPARE(e.d.ouverts,
                 (std::vector<std::string>{
                     "https://b.fr/?n=L%C3%89VY%20%26%20FILS&p=Zo%C3%A9&l=B%C3%A9ziers&a=1840-1860"}));
    }

    void MiseAJourOuvreLaPageDeVersion() {
        QTemporaryDir dossier;
        FicheEssai e;
        e.fiche.RemplacerIni(dossier.filePath("arbolix.ini").toStdString());
        QVERIFY(e.Ouvrir(Ecrire(dossier, "arbre.ged", kArbre)));
        e.fiche.VerifierMiseAJour();
        const std::string jour = QDate::currentDate().toString("yyyyMMdd").toStdString();
        QCOMPARE(e.d.ouverts,
                 (std::vector<std::string>{std::string(kAdresseMiseAJour) +
                                           "index.php?version=" + ARBOLIX_VERSION + "&session=" + jour}));
        // Un fichier est ouvert : l'avis de le fermer suit la page.
        QCOMPARE(e.d.messages.size(), std::size_t{2});
        QCOMPARE(e.d.messages[1].texte,
                 std::string("Vous devez fermer le fichier ouvert avant de mettre \xE0 jour le logiciel."));
    }

    void MelRemetLeMessageAuProgrammeDeCourrier() {
        QTemporaryDir dossier, temp;
        qputenv("TMPDIR", temp.path().toUtf8());
        FicheEssai e;
        QVERIFY(!e.fiche.findChild<QAction*>("MenuEnvoyerMel")->isEnabled());
        QVERIFY(e.Ouvrir(Ecrire(dossier, "arbre.ged", kArbre)));
        QAction* menu = e.fiche.findChild<QAction*>("MenuEnvoyerMel");
        QVERIFY(menu->isEnabled());
        menu->trigger();
        const std::string eml = temp.filePath("arbre.ged.eml").toStdString();
        QCOMPARE(e.d.ouverts, std::vector<std::string>{eml});
        QFile f(QString::fromStdString(eml));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QVERIFY(f.readAll().contains(QByteArray("filename=\"arbre.ged\"\r\n\r\n") + kArbre + "\r\n--"));
        qunsetenv("TMPDIR");
    }
};

QTEST_MAIN(EssaiFicheOutils)
#include "fiche_outils_test.moc"
