// La fiche modifiée à la main : une personne, ses parents, un conjoint, deux enfants,
// une naissance tapée avec un témoin, puis le fichier écrit et relu.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>
#include <QtTest>
#include <deque>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/verifier_liens.h"
#include "gedcom/enregistrement.h"
#include "gedcom/lecteur.h"
#include "platform/progression.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/evenement.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"

using namespace arbolix;

namespace {

template <typename T>
T* Controle(QWidget& f, const char* nom) {
    T* w = f.findChild<T*>(nom);
    if (!w) qFatal("contrôle absent : %s", nom);
    return w;
}

// Une fiche sur un fichier sans personne, dont les boîtes et la fenêtre de choix sont fausses.
struct FicheEssai {
    QTemporaryDir dossier;  // propre à chaque essai : ils tournent en parallèle
    Fiche fiche;
    DialogueFactice d;
    Progression muette;
    std::vector<ListeCandidats> vues;
    // Ce que l'utilisateur choisit dans les listes suivantes : 0 la première ligne (créer),
    // sinon la personne ou famille de ce numéro.
    std::deque<std::int32_t> choix;

    FicheEssai() {
        fiche.RemplacerDialogue(&d);
        fiche.FormGedcom().RemplacerDialogue(&d);
        fiche.RemplacerChoisir([this](const ListeCandidats& l) -> std::optional<std::string> {
            vues.push_back(l);
            if (choix.empty()) return std::nullopt;
            const std::int32_t n = choix.front();
            choix.pop_front();
            if (n == 0) return l.premiereLigne;
            for (const auto& ligne : l.lignes)
                if (NumeroDeLigne(ligne) == n) return ligne;
            return std::nullopt;
        });
        fiche.Vider(false);
    }
    bool OuvrirVide() {
        const std::string chemin = Chemin("vide.ged");
        std::ofstream(chemin) << "0 HEAD\r\n1 CHAR ANSI\r\n0 TRLR\r\n";
        fiche.gedcom().Fichier = chemin;
        return fiche.ChargerFichier(muette);
    }
    std::string Chemin(const char* nom) const { return dossier.filePath(nom).toStdString(); }
    QLineEdit* Num() { return Controle<QLineEdit>(fiche, "NumPerso"); }
    QString Texte(const char* combo) { return Controle<QComboBox>(fiche, combo)->currentText(); }
    void Taper(const char* combo, const char* texte) {
        auto* c = Controle<QComboBox>(fiche, combo);
        c->setFocus();
        c->lineEdit()->selectAll();
        QTest::keyClicks(c, texte);
    }
    void Cliquer(const char* bouton) {
        QTest::mouseClick(Controle<QPushButton>(fiche, bouton), Qt::LeftButton);
    }
    const Perso& P(std::int32_t n) { return fiche.base().Persos[n]; }
    std::int32_t Courant() { return fiche.base().NumCourant; }
    void LiensIntacts() {
        for (const auto& faute : VerifierLiens(fiche.base())) QFAIL(faute.c_str());
    }
};

}  // namespace

class EssaiFicheEdition : public QObject {
    Q_OBJECT
private slots:
    void FrappeAideeEtFicheEnregistreeEnLaQuittant() {
        FicheEssai e;
        QVERIFY(e.OuvrirVide());
        QTest::keyClick(e.Num(), Qt::Key_Space);
        const std::int32_t n = e.Courant();
        QVERIFY(n > 0);
        QCOMPARE(e.Texte("Nom"), QStringLiteral("N"));
        // Le nom passe en capitales et refuse "/" ; les prénoms prennent une capitale par mot.
        e.Taper("Nom", "du/pont");
        QCOMPARE(e.Texte("Nom"), QStringLiteral("DUPONT"));
        // Entrée passe au champ suivant, comme Tab.
        e.fiche.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&e.fiche));
        Controle<QComboBox>(e.fiche, "Nom")->setFocus();
        QTest::keyClick(Controle<QComboBox>(e.fiche, "Nom"), Qt::Key_Return);
        QVERIFY(Controle<QComboBox>(e.fiche, "Prenoms")->isAncestorOf(QApplication::focusWidget()) ||
                QApplication::focusWidget() == Controle<QComboBox>(e.fiche, "Prenoms"));
        e.Taper("Prenoms", "jean-PIERRE dit");
        QCOMPARE(e.Texte("Prenoms"), QStringLiteral("Jean-Pierre Dit"));
        emit Controle<QComboBox>(e.fiche, "Prenoms")->lineEdit()->editingFinished();
        QCOMPARE(e.Texte("Prenoms"), QStringLiteral("Jean-Pierre dit"));
        Controle<QRadioButton>(e.fiche, "Sexe1")->click();
        auto* tel = Controle<QLineEdit>(e.fiche, "Telephone");
        tel->setFocus();
        QTest::keyClicks(tel, "05 53-x2");
        QCOMPARE(tel->text(), QStringLiteral("05 532"));
        auto* notes = Controle<QPlainTextEdit>(e.fiche, "Notes");
        notes->setFocus();
        QTest::keyClicks(notes, "ligne 1");
        QTest::keyClick(notes, Qt::Key_Return, Qt::ShiftModifier);
        QTest::keyClicks(notes, "ligne 2");
        QCOMPARE(e.fiche.base().FicheModifiee, kVrai);

        // Quitter la fiche (aller à la fiche vierge) l'enregistre.
        e.Num()->setText("0");
        QCOMPARE(e.P(n).Nom.str(), std::string("DUPONT"));
        QCOMPARE(e.P(n).Prenoms.str(), std::string("Jean-Pierre dit"));
        QCOMPARE(e.P(n).Sexe, 'M');
        QCOMPARE(e.P(n).Suite().Telephone.str(), std::string("05 532"));
        QCOMPARE(e.P(n).Notes.str(), std::string("ligne 1\r\nligne 2"));
        QCOMPARE(e.fiche.base().FicheModifiee, kFaux);
        QVERIFY(e.d.messages.empty());
        // Le nom tapé entre dans la liste de choix.
        QVERIFY(Controle<QComboBox>(e.fiche, "Nom")->findText("DUPONT") >= 0);
        // Le bouton fait comme la touche espace ; le courriel s'ouvre avec "mailto:".
        e.Num()->setText(QString::number(n));
        Controle<QLineEdit>(e.fiche, "EMail")->setText("jp@exemple.fr");
        QTest::mouseClick(Controle<QToolButton>(e.fiche, "BountonEMail"), Qt::LeftButton);
        QCOMPARE(e.d.ouverts.back(), std::string("mailto:jp@exemple.fr"));
        QTest::mouseClick(Controle<QToolButton>(e.fiche, "BoutonAjouterPerso"), Qt::LeftButton);
        QVERIFY(e.Courant() > n);
        QCOMPARE(e.P(n).Suite().EMail.str(), std::string("jp@exemple.fr"));
    }

    void FamilleCreeeDepuisLaFicheEcriteEtRelue() {
        FicheEssai e;
        QVERIFY(e.OuvrirVide());
        QTest::keyClick(e.Num(), Qt::Key_Space);
        const std::int32_t jean = e.Courant();
        e.Taper("Nom", "martin");
        e.Taper("Prenoms", "jean");
        Controle<QRadioButton>(e.fiche, "Sexe1")->click();

        // Naissance tapée en huit chiffres, un lieu, puis un témoin ajouté plus bas.
        QTimer::singleShot(0, [&] {
            auto* f = qobject_cast<FenetreEvenement*>(QApplication::activeModalWidget());
            if (!f) return;
            auto* date = Controle<QLineEdit>(*f, "Date");
            date->setFocus();
            QTest::keyClicks(date, "12031750");
            emit date->editingFinished();
            Controle<QComboBox>(*f, "Lieu")->setEditText(QStringLiteral("Sarlat"));
            f->BoutonOK();
        });
        e.Cliquer("BoutonNaissance");
        QCOMPARE(e.P(jean).Naissance.Date.str(), std::string("12/03/1750"));
        QCOMPARE(e.P(jean).Naissance.DateTri.str(), std::string("1750/03/12"));
        QCOMPARE(e.P(jean).Nom.str(), std::string("MARTIN"));  // la commande a d'abord enregistré la fiche

        // Parents : aucune famille candidate, la première ligne est prise ; deux Oui.
        e.Cliquer("BoutonAjouterParents");
        const std::int32_t parents = e.P(jean).NumParents;
        QVERIFY(parents > 0);
        const std::int32_t pere = e.fiche.base().Familles[parents].Mari;
        const std::int32_t mere = e.fiche.base().Familles[parents].Femme;
        QVERIFY(pere > 0 && mere > 0);
        QCOMPARE(e.P(pere).Naissance.Date.str(), std::string("vers 1720"));
        QCOMPARE(Controle<QLineEdit>(e.fiche, "Pere")->isEnabled(), true);
        QVERIFY(!Controle<QPushButton>(e.fiche, "BoutonAjouterParents")->isEnabled());
        e.LiensIntacts();

        // Conjoint : une fiche neuve.
        e.choix = {0};
        e.Cliquer("AjouterUnion");
        QCOMPARE(e.vues.back().genre, std::string("conjoint"));
        const std::int32_t union1 = e.P(jean).Unions[1];
        QVERIFY(union1 > 0);
        const std::int32_t marie = e.fiche.base().Familles[union1].Femme;
        QVERIFY(marie > 0 && marie != jean);
        QCOMPARE(Controle<QListWidget>(e.fiche, "Union")->count(), 1);

        // Deux enfants neufs ; la fiche va à chacun, on revient à Jean.
        std::vector<std::int32_t> enfants;
        for (const char* prenom : {"pierre", "anne"}) {
            e.choix = {0};
            e.Cliquer("AjouterEnfant");
            const std::int32_t c = e.Courant();
            QVERIFY(c != jean);
            QCOMPARE(e.P(c).NumParents, union1);
            e.Taper("Prenoms", prenom);
            Controle<QRadioButton>(e.fiche, prenom[0] == 'p' ? "Sexe1" : "Sexe2")->click();
            enfants.push_back(c);
            e.Num()->setText(QString::number(jean));
        }
        QCOMPARE(Controle<QListWidget>(e.fiche, "Enfant")->count(), 2);
        e.LiensIntacts();

        // Le père témoin de la naissance, avec son rôle.
        e.d.SaisieSuivante(std::string("grand-p\xE8re"));
        e.choix = {pere};
        QTimer::singleShot(0, [&] {
            auto* f = qobject_cast<FenetreEvenement*>(QApplication::activeModalWidget());
            if (!f) return;
            f->BoutonAjouterTemoin();
            f->BoutonOK();
        });
        e.Cliquer("BoutonNaissance");
        QCOMPARE(e.P(jean).Naissance.Liens().Temoins(1), pere);
        // Seules les deux questions des parents ont été posées.
        QCOMPARE(e.d.messages.size(), std::size_t(2));
        for (const auto& m : e.d.messages) QCOMPARE(m.titre, std::string("Ajouter parents"));

        // Écrit comme la ligne de commande l'écrit, puis relu dans une autre base.
        e.fiche.EnregistrerFiche();
        OptionsGedcom cases = e.fiche.gedcom();
        cases.Fichier = e.Chemin("famille.ged");
        ContexteEnregistrement ctx{e.fiche.base(),  cases, e.fiche.options(), e.d, nullptr,
                                   EnteteArbolix(), {}};
        QVERIFY(EnregistrerGedcom(ctx).Enregistre);
        Base relue;
        Options options;
        ContexteLecture lecture{options, cases, e.muette};
        QVERIFY(LireGedcom(relue, lecture).Lu);
        QCOMPARE(relue.NbPersosReels, 6);
        std::int32_t j = 0;
        for (std::int32_t n = 1; n <= relue.NbPersos; ++n)
            if (relue.Persos[n].Prenoms == "Jean") j = n;
        QVERIFY(j > 0);
        const Perso& r = relue.Persos[j];
        QCOMPARE(r.Nom.str(), std::string("MARTIN"));
        QCOMPARE(r.Sexe, 'M');
        QCOMPARE(r.Naissance.Date.str(), std::string("12/03/1750"));
        QCOMPARE(r.Naissance.Lieu.str(), std::string("Sarlat"));
        QCOMPARE(r.Naissance.Liens().RolesTemoins(1).str(), std::string("grand-p\xE8re"));
        const std::int32_t temoin = r.Naissance.Liens().Temoins(1);
        QVERIFY(temoin > 0);
        const Fami& fp = relue.Familles[r.NumParents];
        QCOMPARE(fp.Mari, temoin);
        QVERIFY(fp.Femme > 0);
        const Fami& u = relue.Familles[r.Unions[1]];
        QCOMPARE(u.Mari, j);
        QVERIFY(u.Femme > 0);
        std::vector<std::string> prenoms;
        for (int i = 1; i <= kMaxEnfants; ++i)
            if (u.Enfants(i) > 0) prenoms.push_back(relue.Persos[u.Enfants(i)].Prenoms.str());
        QCOMPARE(prenoms.size(), std::size_t(2));
        QVERIFY(std::find(prenoms.begin(), prenoms.end(), "Pierre") != prenoms.end());
        QVERIFY(std::find(prenoms.begin(), prenoms.end(), "Anne") != prenoms.end());
        for (const auto& faute : VerifierLiens(relue)) QFAIL(faute.c_str());
    }

    void EnleverDefaitLesLiensDesDeuxCotes() {
        FicheEssai e;
        QVERIFY(e.OuvrirVide());
        QTest::keyClick(e.Num(), Qt::Key_Space);
        const std::int32_t p = e.Courant();
        e.Taper("Prenoms", "paul");
        Controle<QRadioButton>(e.fiche, "Sexe1")->click();
        e.Cliquer("BoutonAjouterParents");
        QVERIFY(e.P(p).NumParents > 0);
        e.Cliquer("BoutonEnleverParents");
        QCOMPARE(e.P(p).NumParents, 0);
        QVERIFY(Controle<QPushButton>(e.fiche, "BoutonAjouterParents")->isEnabled());
        e.choix = {0};
        e.Cliquer("AjouterUnion");
        e.choix = {0};
        e.Cliquer("AjouterEnfant");
        const std::int32_t c = e.Courant();
        e.Num()->setText(QString::number(p));
        auto* enfants = Controle<QListWidget>(e.fiche, "Enfant");
        QCOMPARE(enfants->count(), 1);
        enfants->setCurrentRow(0);
        e.Cliquer("EnleverEnfant");
        QCOMPARE(e.P(c).NumParents, 0);
        QCOMPARE(enfants->count(), 0);
        auto* unions = Controle<QListWidget>(e.fiche, "Union");
        unions->setCurrentRow(0);
        e.Cliquer("EnleverUnion");
        QCOMPARE(unions->count(), 0);
        QCOMPARE(e.P(p).Unions[1], 0);
        e.LiensIntacts();
        // Annuler la liste des conjoints ne crée rien ; deux Non aux parents non plus, et le fichier reste tel quel.
        const std::int32_t familles = e.fiche.base().NbFamisReels;
        e.Cliquer("AjouterUnion");
        QCOMPARE(e.fiche.base().NbFamisReels, familles);
        e.fiche.base().FichierModifie = kFaux;
        e.d.ReponseSuivante(Bouton::Non);
        e.d.ReponseSuivante(Bouton::Non);
        e.Cliquer("BoutonAjouterParents");
        QCOMPARE(e.fiche.base().NbFamisReels, familles);
        QCOMPARE(e.fiche.base().FichierModifie, kFaux);
    }
};

QTEST_MAIN(EssaiFicheEdition)
#include "fiche_edition_test.moc"
