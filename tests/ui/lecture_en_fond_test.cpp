// Ouvrir un fichier par la fenêtre, la lecture tournant sur un fil à part : la base et le journal sont
// ceux de la lecture seule, et Annuler l'arrête en laissant la fenêtre sans fichier.
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <fstream>

#include "aides/fiche_essai.h"
#include "gedcom/journal_lecture.h"
#include "kinship/sosa.h"
#include "platform/qt_texte.h"
#include "store/decrire_base.h"
#include "store/selection.h"
#include "ui/editeur.h"

using namespace arbolix;

namespace {

// Des familles à la chaîne et une boucle dans les liens, que le journal signale.
std::string Ecrire(const QTemporaryDir& dossier, int personnes) {
    const std::string chemin = dossier.filePath("arbre.ged").toStdString();
    std::ofstream f(chemin, std::ios::binary);
    f << "0 HEAD\r\n1 CHAR ANSI\r\n";
    for (int i = 1; i <= personnes; ++i)
        f << "0 @I" << i << "@ INDI\r\n1 NAME Jean" << i % 7 << " /Nom" << i % 50 << "/\r\n1 SEX "
          << (i % 2 ? 'M' : 'F') << "\r\n1 BIRT\r\n2 DATE " << 1700 + i % 200 << "\r\n2 PLAC Metz\r\n1 NOTE n"
          << i << "@exemple.fr\r\n";
    for (int i = 1; i + 2 <= personnes; i += 2)
        f << "0 @F" << i << "@ FAM\r\n1 HUSB @I" << i + 2 << "@\r\n1 WIFE @I" << i + 3 << "@\r\n1 CHIL @I"
          << i << "@\r\n";
    // I1 est l'enfant de I3, et I3 celui de I1.
    f << "0 @F0@ FAM\r\n1 HUSB @I1@\r\n1 CHIL @I3@\r\n0 TRLR\r\n";
    return chemin;
}

}  // namespace

class EssaiLectureEnFond : public QObject {
    Q_OBJECT
private slots:
    void MemesBaseEtJournalQueLaLectureSeule() {
        QTemporaryDir dossier;
        const std::string chemin = Ecrire(dossier, 3000);
        essai::FicheEssai f;
        QVERIFY(f.Ouvrir(chemin));
        QVERIFY(f.fiche.FichierOuvert());

        Base base;
        Options options;
        OptionsGedcom cases;
        cases.Fichier = chemin;
        Progression muette;
        ContexteLecture ctx{options, cases, muette};
        const ResultatLecture r = LireGedcom(base, ctx);
        QVERIFY(r.Lu && !r.Annule);
        ToutSelectionner(base);
        const Ascendance a = NumeroterApresLecture(base, options, r.PremierePerso);
        QVERIFY(!r.Journal.empty());
        QCOMPARE(QString::fromStdString(DecrireBase(f.fiche.base())),
                 QString::fromStdString(DecrireBase(base)));

        const QString montre = f.fiche.FormEditeur().Texte();
        QVERIFY(montre.contains(VersQStringLignes(JournalLisible(r.Journal, r.Reperes) + a.Journal)));
    }

    // Annuler pendant la lecture, par le dialogue : la lecture s'arrête, rien n'est ouvert ni dit.
    void AnnulerArreteLaLecture() {
        QTemporaryDir dossier;
        const std::string chemin = Ecrire(dossier, 20000);
        essai::FicheEssai f;
        Gedcom& g = f.fiche.FormGedcom();
        bool ferme = false;
        QTimer::singleShot(0, &g, [&] {
            // Part à la première pompe de la lecture, quand OK est encore enfoncé.
            QTimer::singleShot(0, &g, &Gedcom::BoutonAnnuler);
            g.FixerFichier(chemin);
            g.BoutonOK();
            ferme = !g.isVisible();
        });
        f.fiche.MenuOuvrir();
        QVERIFY(ferme);
        QVERIFY(!f.fiche.FichierOuvert());
        QCOMPARE(f.fiche.base().NbPersosReels, 0);
        QVERIFY(f.d.messages.empty());
    }
};

QTEST_MAIN(EssaiLectureEnFond)
#include "lecture_en_fond_test.moc"
