// La fiche et la fenêtre de liste : touches du numéro, listes, clics, sur l'exemple et sur une base écrite à
// la main.
#include "ui/personne.h"

#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QRadioButton>
#include <QTimer>
#include <QtTest>

#include "aides/base_essai.h"
#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"

using namespace arbolix;

namespace {

QLineEdit* Numero(Fiche& f) {
    return f.findChild<QLineEdit*>("NumPerso");
}
QString Prenoms(Fiche& f) {
    return f.findChild<QComboBox*>("Prenoms")->currentText();
}

QColor Fond(Fiche& f, const char* nom) {
    const auto* b = f.findChild<QRadioButton*>(nom);
    return b->palette().color(b->backgroundRole());
}

// Tape un numéro comme l'utilisateur : le texte est d'abord choisi en entier.
void Taper(Fiche& f, const QString& texte) {
    Numero(f)->setFocus();
    Numero(f)->selectAll();
    QTest::keyClicks(Numero(f), texte);
}

// Double clic de la souris sur la rangée qui contient le texte.
bool DoubleCliquerRangee(Personne& p, const QString& texte) {
    auto* vue = p.findChild<QListView*>("Liste");
    const QModelIndexList trouve =
        vue->model()->match(vue->model()->index(0, 0), Qt::DisplayRole, texte, 1, Qt::MatchStartsWith);
    if (trouve.isEmpty()) return false;
    vue->scrollTo(trouve.front());
    const QPoint centre = vue->visualRect(trouve.front()).center();
    QTest::mouseClick(vue->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(vue->viewport(), Qt::LeftButton, {}, centre);
    return true;
}

// Double clic de la souris sur une rangée d'une liste de la fiche (l'appui d'abord, comme la souris).
void DoubleCliquerItem(QListWidget* liste, int rangee) {
    const QPoint centre = liste->visualItemRect(liste->item(rangee)).center();
    QTest::mouseClick(liste->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(liste->viewport(), Qt::LeftButton, {}, centre);
}

// Une petite famille : Pierre et Anne, leurs enfants Jean (notes) et Luc, Jean marié deux fois.
void RemplirBase(Base& b) {
    using namespace essai;
    AjouterPersonne(b, 1, "MARTIN", "Pierre", 'M', "1690");
    AjouterPersonne(b, 2, "LAGARDE", "Anne", 'F', "1694");
    AjouterPersonne(b, 3, "MARTIN", "Jean", 'M', "03/03/1718", "1779").Notes = "Tisserand \xE0 Sarlat";
    AjouterPersonne(b, 4, "MARTIN", "Luc", 'M', "1720");
    AjouterPersonne(b, 5, "FAURE", "Marguerite", 'F', "1722");
    AjouterPersonne(b, 6, "DELMAS", "\xC9lisabeth", 'F', "1725");
    AjouterPersonne(b, 7, "MARTIN", "Jacques", 'M', "1745");
    b.Persos[4].Sel = kFaux;
    AjouterFamille(b, 1, 1, 2, "14/01/1716", {3, 4});
    AjouterFamille(b, 2, 3, 6, "1760");
    AjouterFamille(b, 3, 3, 5, "20/02/1744", {7});
}

}  // namespace

class EssaiPersonne : public QObject {
    Q_OBJECT
private slots:
    void ExempleNumeroTouchesEtListe() {
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Vider(false);
        fiche.gedcom().Fichier = ARBOLIX_SHARE "/exemple.ged";
        Progression muette;
        QVERIFY(fiche.ChargerFichier(muette));
        if (fiche.base().Persos[7].NumParents == 0)
            QSKIP("le lecteur ne lit pas encore les familles de l'exemple");
        Taper(fiche, "7");
        QCOMPARE(Prenoms(fiche), QString("Jacques"));
        QCOMPARE(Fond(fiche, "Sexe1"), QColor("#88AAFF"));
        QTest::keyClick(Numero(fiche), 'f');
        QCOMPARE(Numero(fiche)->text(), QString("3"));
        QCOMPARE(Prenoms(fiche), QString("Jean"));
        QTest::keyClick(Numero(fiche), '+');
        QCOMPARE(Numero(fiche)->text(), QString("4"));
        QTest::keyClick(Numero(fiche), '*');  // Élisabeth, la première suivante qui a une note
        QCOMPARE(Numero(fiche)->text(), QString("8"));
        QCOMPARE(Prenoms(fiche), QString::fromUtf8("Élisabeth"));

        fiche.MenuListePersos();
        Personne& liste = fiche.FormPersonne();
        QVERIFY(liste.isVisible());
        QCOMPARE(liste.Genre(), QString("tous"));
        QVERIFY(DoubleCliquerRangee(liste, QString::fromUtf8("LESPINASSE Honoré")));
        QVERIFY(!liste.isVisible());
        QCOMPARE(Numero(fiche)->text(), QString("24"));
        QCOMPARE(Prenoms(fiche), QString::fromUtf8("Honoré"));
        QVERIFY(d.messages.empty());
    }

    // Un sélecteur modal : le double clic rend la rangée, Échap ne rend rien, la liste se referme.
    void ChoixModalParmiDesCandidats() {
        Base base;
        Options o;
        Personne liste(base, o, nullptr);
        const ListeCandidats candidats{"conjoint",
                                       "Conjoint de Jean MARTIN",
                                       " Ajouter une nouvelle fiche... P000009",
                                       {"LAGARDE Anne P000002", "PETIT Marie P000004"}};
        QTimer::singleShot(0, [&] { DoubleCliquerRangee(liste, "PETIT"); });
        QCOMPARE(liste.ChoisirParmi(candidats), std::optional<std::string>("PETIT Marie P000004"));
        QVERIFY(!liste.isVisible());
        QCOMPARE(liste.windowTitle(), QString("Conjoint de Jean MARTIN"));
        QCOMPARE(liste.Genre(), QString("conjoint"));
        QTimer::singleShot(0, [&] { QTest::keyClick(&liste, Qt::Key_Return); });
        QCOMPARE(liste.ChoisirParmi(candidats), std::optional<std::string>(candidats.premiereLigne));
        QTimer::singleShot(0, [&] { QTest::keyClick(&liste, Qt::Key_Escape); });
        QCOMPARE(liste.ChoisirParmi(candidats), std::nullopt);
        QVERIFY(!liste.isVisible());
    }

    void BaseEcriteTouchesCadresEtClics() {
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Vider(false);
        RemplirBase(fiche.base());
        fiche.MettreEnPlaceFichier(1);
        QCOMPARE(Prenoms(fiche), QString("Pierre"));

        Taper(fiche, "7");
        QCOMPARE(fiche.Contenu().Numero, 7);
        QCOMPARE(fiche.findChild<QLineEdit*>("Pere")->text(),
                 QString::fromUtf8("Jean MARTIN ° 03/03/1718 + 1779"));
        QTest::keyClick(Numero(fiche), 'f');
        QCOMPARE(Numero(fiche)->text(), QString("3"));
        QCOMPARE(Numero(fiche)->selectedText(), QString("3"));  // prêt pour un autre numéro
        // Unions par date : 1744 avant 1760, quel que soit l'ordre des emplacements.
        auto* unions = fiche.findChild<QListWidget*>("Union");
        QCOMPARE(unions->count(), 2);
        QVERIFY(unions->item(0)->text().startsWith("x 20/02/1744 Marguerite FAURE"));
        QCOMPARE(fiche.findChild<QLabel*>("LabelEnfants")->text(), QString("1 enfant F000003"));
        // Un clic sur la seconde union montre ses enfants (aucun).
        QTest::mouseClick(unions->viewport(), Qt::LeftButton, {},
                          unions->visualItemRect(unions->item(1)).center());
        QCOMPARE(fiche.findChild<QLabel*>("LabelEnfants")->text(), QString("Aucun enfant F000002"));
        DoubleCliquerItem(unions, 1);
        QCOMPARE(Numero(fiche)->text(), QString("6"));

        // '+' passe Luc, hors sélection ; une lettre quelconque est avalée.
        Taper(fiche, "3");
        QTest::keyClick(Numero(fiche), '+');
        QCOMPARE(Numero(fiche)->text(), QString("5"));
        QTest::keyClick(Numero(fiche), 'q');
        QCOMPARE(Numero(fiche)->text(), QString("5"));
        QTest::keyClick(Numero(fiche), '/');
        QCOMPARE(Numero(fiche)->text(), QString("3"));  // Jean a des notes
        // Au-delà de NbPersos + 1, la fiche ne bouge pas : "5" montre 5, "50" rien de plus.
        Taper(fiche, "50");
        QCOMPARE(Numero(fiche)->text(), QString("50"));
        QCOMPARE(fiche.Contenu().Numero, 5);
        QVERIFY(d.messages.empty());
    }

    void ListesInviteClicDroitEtNouvellePersonne() {
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Vider(false);
        RemplirBase(fiche.base());
        fiche.MettreEnPlaceFichier(3);
        fiche.options().ListePersosCourte = true;
        QStringList vues;
        fiche.RemplacerInviter([&](Invite& i) {
            vues << VersQString(i.Titre) << VersQString(i.Valeurs[0]) << VersQString(i.Valeurs[1]);
            i.Valeurs = {"MARTIN", ""};
            return true;
        });
        fiche.MenuListePersos();
        QCOMPARE(vues, (QStringList{"Liste des personnes...", "MARTIN", "Jean"}));
        Personne& liste = fiche.FormPersonne();
        const ListePersonne& rangees = liste.Liste();
        // Pierre, Jean, Jacques (Luc est hors sélection) sous la ligne de tête.
        QCOMPARE(static_cast<int>(rangees.Rangees.size()), 4);
        QCOMPARE(VersQString(rangees.Rangees[0].texte), QString(" Ajouter... P000008"));
        // Le clic droit mène la fiche et laisse la liste ouverte.
        liste.CliquerDroit(3);
        QCOMPARE(Numero(fiche)->text(), QString("7"));
        QVERIFY(liste.isVisible());
        // Entrée sur la ligne de tête : une nouvelle personne, numéro 8.
        liste.Choisir(0);
        QTest::keyClick(liste.findChild<QListView*>("Liste"), Qt::Key_Return);
        QCOMPARE(Numero(fiche)->text(), QString("8"));
        QCOMPARE(fiche.base().NbPersosReels, 8);
        QVERIFY(fiche.windowTitle().endsWith(QString::fromUtf8(" (modifié)")) ||
                fiche.base().FichierModifie == kVrai);

        // Familles : la fenêtre dit son genre et mène à l'époux.
        fiche.options().ListePersosCourte = false;
        fiche.MenuListeFamis();
        QCOMPARE(liste.Genre(), QString("familles"));
        QVERIFY(DoubleCliquerRangee(liste, "MARTIN Jean"));
        QCOMPARE(Numero(fiche)->text(), QString("3"));
        // Notes : la rangée de la note de Jean mène à Jean.
        fiche.MenuListeNotes();
        QCOMPARE(liste.Genre(), QString("notes"));
        QVERIFY(DoubleCliquerRangee(liste, "MARTIN Jean"));
        QCOMPARE(Numero(fiche)->text(), QString("3"));
        // Fiches récentes : la nouvelle fiche n'a pas de date de changement ; la ligne de tête grandit.
        fiche.MenuFichesRecentes();
        QCOMPARE(liste.Genre(), QString("recents"));
        QCOMPARE(VersQString(liste.Liste().Rangees[0].texte), QString("Plus (Cette semaine) ..."));
        liste.DoubleCliquer(0);
        QCOMPARE(VersQString(liste.Liste().Rangees[0].texte), QString("Plus (Ces 2 derniers mois) ..."));
        QVERIFY(liste.isVisible());
    }

    void PhotoCouleursDuSexeEtFichiersLies() {
        const QString dossier = QDir::tempPath() + "/arbolix-photo";
        QDir().mkpath(dossier);
        QImage image(40, 30, QImage::Format_RGB32);
        image.fill(Qt::darkGreen);
        QVERIFY(image.save(dossier + "/portrait.png"));
        Fiche fiche;
        DialogueFactice d;
        fiche.RemplacerDialogue(&d);
        fiche.Vider(false);
        RemplirBase(fiche.base());
        fiche.base().Persos[6].SuiteModif().Fichiers.Fixer(1, DepuisQString(dossier + "/portrait.png"));
        fiche.base().Persos[6].SuiteModif().Fichiers.Fixer(2, "introuvable.pdf");
        fiche.base().Persos[7].Sexe = ' ';
        fiche.MettreEnPlaceFichier(6);
        auto* photo = fiche.findChild<QLabel*>("Photo");
        QVERIFY(!photo->pixmap().isNull());
        QCOMPARE(Fond(fiche, "Sexe2"), QColor("#FFBBBB"));
        QVERIFY(Fond(fiche, "Sexe1") != QColor("#88AAFF"));
        auto* divers = fiche.findChild<QListWidget*>("ListeDivers");
        QCOMPARE(divers->count(), 2);
        QCOMPARE(divers->item(1)->text(), QString("introuvable.pdf P000006"));
        // Double clic sur un fichier absent : le message des règles au clic et au double clic, rien
        // d'ouvert ; sans réponse, Non (le bouton par défaut) garde le lien.
        DoubleCliquerItem(divers, 1);
        QCOMPARE(d.messages.size(), std::size_t{2});
        for (const auto& m : d.messages)
            QCOMPARE(QString::fromStdString(m.titre), QString("Fichier introuvable"));
        QCOMPARE(divers->count(), 2);
        DoubleCliquerItem(divers, 0);
        QCOMPARE(d.ouverts.size(), std::size_t{1});
        // Sexe inconnu : aucun bouton coché ni coloré.
        Taper(fiche, "7");
        QVERIFY(!fiche.findChild<QRadioButton*>("Sexe1")->isChecked());
        QVERIFY(!fiche.findChild<QRadioButton*>("Sexe2")->isChecked());
        QVERIFY(Fond(fiche, "Sexe1") != QColor("#88AAFF"));
        QVERIFY(Fond(fiche, "Sexe2") != QColor("#FFBBBB"));
        QVERIFY(photo->pixmap().isNull());
        QDir(dossier).removeRecursively();
    }

    void PlaceDeLaListeGardeeALaFermeture() {
        const QString dossier = QDir::tempPath() + "/arbolix-place";
        QDir(dossier).removeRecursively();
        QDir().mkpath(dossier);
        {
            Fiche fiche;
            DialogueFactice d;
            fiche.RemplacerDialogue(&d);
            fiche.Demarrer("", DepuisQString(dossier + "/arbolix"));
            fiche.FormPersonne().setGeometry(30, 45, 400, 500);
            QVERIFY(fiche.close());
        }
        QFile ini(dossier + "/arbolix.ini");
        QVERIFY(ini.open(QIODevice::ReadOnly));
        const QString texte = QString::fromLatin1(ini.readAll());
        QVERIFY2(texte.contains("PersonneL=450"), qPrintable(texte));
        QVERIFY(texte.contains("PersonneT=675"));
        QVERIFY(texte.contains("PersonneW=6000"));
        QVERIFY(texte.contains("PersonneH=7500"));
        Fiche seconde;
        DialogueFactice d;
        seconde.RemplacerDialogue(&d);
        seconde.Demarrer("", DepuisQString(dossier + "/arbolix"));
        QCOMPARE(seconde.FormPersonne().geometry().size(), QSize(400, 500));
        QDir(dossier).removeRecursively();
    }
};

QTEST_MAIN(EssaiPersonne)
#include "personne_test.moc"
