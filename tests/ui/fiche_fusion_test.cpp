// La fusion par la fenêtre, de bout en bout : menu Édition, liste des candidats, question des
// prénoms, liste des unions à conserver, puis la fiche gardée avec les actes et unions des deux.
#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QtTest>
#include <deque>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/invariants_base.h"
#include "card/queues.h"
#include "platform/progression.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"

using namespace arbolix;

namespace {

constexpr const char* kFichier =
    "0 HEAD\r\n1 CHAR ANSI\r\n"
    "0 @I1@ INDI\r\n1 NAME Jean /DUPONT/\r\n1 SEX M\r\n1 BIRT\r\n2 DATE 12 MAR 1750\r\n2 PLAC Lyon\r\n"
    "1 FAMS @F1@\r\n"
    "0 @I2@ INDI\r\n1 NAME Marie /MARTIN/\r\n1 SEX F\r\n1 FAMS @F1@\r\n"
    "0 @I3@ INDI\r\n1 NAME Jean Pierre /DUPONT/\r\n1 SEX M\r\n1 BIRT\r\n2 DATE 1750\r\n"
    "1 DEAT\r\n2 DATE 4 MAY 1810\r\n2 PLAC Givors\r\n1 FAMS @F2@\r\n"
    "0 @I4@ INDI\r\n1 NAME Anne /DURAND/\r\n1 SEX F\r\n1 FAMS @F2@\r\n"
    "0 @I5@ INDI\r\n1 NAME Paul /DUPONT/\r\n1 SEX M\r\n1 FAMC @F2@\r\n"
    "0 @F1@ FAM\r\n1 HUSB @I1@\r\n1 WIFE @I2@\r\n1 MARR\r\n2 DATE 1775\r\n"
    "0 @F2@ FAM\r\n1 HUSB @I3@\r\n1 WIFE @I4@\r\n1 CHIL @I5@\r\n1 MARR\r\n2 DATE 1785\r\n"
    "0 TRLR\r\n";

class EssaiFicheFusion : public QObject {
    Q_OBJECT
private slots:
    void FusionParLaFenetreMontreLaFicheGardee() {
        QTemporaryDir dossier;
        Fiche fiche;
        DialogueFactice d;
        Progression muette;
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        std::vector<ListeCandidats> vues;
        // Les choix faits d'avance : le candidat 1, puis « Terminer » dans la liste des unions.
        std::deque<std::string> choix = {"P000001", "Terminer"};
        fiche.RemplacerChoisir([&](const ListeCandidats& l) -> std::optional<std::string> {
            vues.push_back(l);
            const std::string voulu = choix.front();
            choix.pop_front();
            if (l.premiereLigne.find(voulu) != std::string::npos) return l.premiereLigne;
            for (const auto& ligne : l.lignes)
                if (ligne.find(voulu) != std::string::npos) return ligne;
            return std::nullopt;
        });
        fiche.Vider(false);
        const std::string chemin = dossier.filePath("fusion.ged").toStdString();
        std::ofstream(chemin, std::ios::binary) << kFichier;
        fiche.gedcom().Fichier = chemin;
        QVERIFY(fiche.ChargerFichier(muette));
        fiche.findChild<QLineEdit*>("NumPerso")->setText("3");
        QCOMPARE(fiche.base().NumCourant, 3);
        d.SaisieSuivante("Jean Pierre");  // prénoms
        d.SaisieSuivante("12/03/1750");   // date de naissance
        auto* menu = fiche.findChild<QAction*>("MenuFusionner");
        QVERIFY(menu);
        menu->trigger();

        QCOMPARE(vues.size(), std::size_t{2});
        QCOMPARE(vues[0].genre, std::string("fusion"));
        // Jean et Paul (sans date de naissance), jamais la fiche elle-même.
        QCOMPARE(vues[0].lignes.size(), std::size_t{2});
        for (const auto& l : vues[0].lignes) QVERIFY(LireQueue(l).numero != 3);
        QCOMPARE(vues[1].genre, std::string("fusion2"));
        QCOMPARE(vues[1].premiereLigne, std::string(" Terminer P000001"));
        QCOMPARE(vues[1].lignes.size(), std::size_t{2});
        // La fiche 1 reste et se montre, avec la naissance de l'une et le décès de l'autre.
        QCOMPARE(fiche.base().NumCourant, 1);
        QCOMPARE(fiche.findChild<QLineEdit*>("NumPerso")->text(), QString("1"));
        const ContenuFiche& c = fiche.Contenu();
        QCOMPARE(c.Numero, 1);
        QCOMPARE(c.Prenoms, std::string("Jean Pierre"));
        QVERIFY(c.Naissance.find("12/03/1750 Lyon") != std::string::npos);
        QVERIFY(c.Deces.find("04/05/1810 Givors") != std::string::npos);
        QCOMPARE(c.Unions.size(), std::size_t{2});
        QCOMPARE(LireQueue(c.Unions[0].texte).numero, 1);
        QCOMPARE(LireQueue(c.Unions[1].texte).numero, 2);
        QVERIFY(fiche.base().Persos[3].Prenoms.empty());
        QCOMPARE(fiche.base().Familles[2].Mari, 1);
        QCOMPARE(fiche.base().FichierModifie, kVrai);
        for (const auto& faute : essais::FautesDeBase(fiche.base())) QFAIL(faute.c_str());

        // L'icône 10 duplique la fiche montrée et montre la copie.
        auto* icone = fiche.findChild<QAction*>("IcoCommande10");
        QVERIFY(icone);
        QCOMPARE(icone->toolTip(), QString("Dupliquer la fiche actuelle"));
        icone->trigger();
        QCOMPARE(fiche.base().NumCourant, 6);
        QCOMPARE(fiche.Contenu().Prenoms, std::string("N"));
        QCOMPARE(fiche.Contenu().Nom, std::string("DUPONT"));
        for (const auto& faute : essais::FautesDeBase(fiche.base())) QFAIL(faute.c_str());
    }
};

}  // namespace

QTEST_MAIN(EssaiFicheFusion)
#include "fiche_fusion_test.moc"
