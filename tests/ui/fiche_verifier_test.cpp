// La fiche, côté vérification : le menu montre le rapport dans l'éditeur de notes, l'estimation ouvre
// la liste des actes vides, dont la ligne de tête enchaîne sur les mariages.
#include <QAction>
#include <QListView>
#include <QPlainTextEdit>
#include <QtTest>

#include "aides/dialogue_factice.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"
#include "ui/personne.h"

using namespace arbolix;

class EssaiFicheVerifier : public QObject {
    Q_OBJECT
private slots:
    void RapportPuisActesVides() {
        Fiche fiche;
        DialogueFactice d;
        Progression muette;
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        fiche.Vider(false);
        fiche.gedcom().Fichier = ARBOLIX_DONNEES "/verification/regles.ged";
        QVERIFY(fiche.ChargerFichier(muette));

        fiche.findChild<QAction*>("MenuVerifier")->trigger();
        const QString rapport = fiche.FormEditeur().findChild<QPlainTextEdit*>("Texte")->toPlainText();
        QVERIFY(rapport.startsWith(QString::fromUtf8("Personne 7 MARTIN Luc :\nLe père de la personne")));
        QVERIFY(rapport.contains(QString::fromUtf8("Famille 5\ninfo : lien erroné corrigé.")));
        QCOMPARE(std::as_const(fiche.base().Familles)[5].Mari, 0);

        d.ReponseSuivante(Bouton::Non);
        fiche.findChild<QAction*>("MenuCalcActesVides")->trigger();
        QCOMPARE(VersQString(d.messages.back().texte),
                 QString::fromUtf8("0 acte calculé. Il reste 5 actes vides."));
        const ListePersonne& liste = fiche.FormPersonne().Liste();
        QCOMPARE(liste.Genre, std::string("vides0"));
        QVERIFY(fiche.FormPersonne().isVisible());

        // La ligne de tête de la liste enchaîne sur les mariages.
        auto* vue = fiche.FormPersonne().findChild<QListView*>("Liste");
        d.ReponseSuivante(Bouton::Non);
        emit vue->doubleClicked(vue->model()->index(0, 0));
        QCOMPARE(VersQString(d.messages.back().texte),
                 QString::fromUtf8("2 actes calculés. Il reste 1 acte vide."));
        QCOMPARE(liste.Genre, std::string("vides1"));
    }
};

QTEST_MAIN(EssaiFicheVerifier)
#include "fiche_verifier_test.moc"
