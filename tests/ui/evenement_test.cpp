// Essais de la fenêtre Evenement sans écran (offscreen) : saisie de la date, témoins, annulation.
#include "ui/evenement.h"

#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QPlainTextEdit>
#include <QTimer>
#include <QTest>

#include "aides/dialogue_factice.h"
#include "dates/cle_date.h"
#include "store/decrire_base.h"

using namespace arbolix;

class EssaiEvenement : public QObject {
    Q_OBJECT

    template <typename T>
    static T* Controle(QWidget& f, const char* nom) {
        T* w = f.findChild<T*>(nom);
        if (!w) qFatal("contrôle absent : %s", nom);
        return w;
    }

    // Deux personnes : 1 dont on édite les évènements, 2 témoin possible.
    static void Remplir(Base& base) {
        for (const char* prenoms : {"Jean", "Pierre"}) {
            const auto n = NouvellePersonne(base, true, false);
            base.Persos[n].Nom = "DUPONT";
            base.Persos[n].Prenoms = prenoms;
        }
        base.Persos[2].Naissance.Date = "1700";
        base.Persos[2].Naissance.DateTri = CleDate("1700");
        base.Persos[2].Naissance.Annee = 1700;
        base.FichierModifie = kFaux;
    }

    static ServicesEvenement Services(std::vector<ListeCandidats>* vues = nullptr) {
        ServicesEvenement s;
        s.ligneCourte = [](std::int32_t n) { return "Personne " + std::to_string(n); };
        // La fenêtre de choix prend la première ligne proposée.
        s.choisir = [vues](const ListeCandidats& l) -> std::optional<std::string> {
            if (vues) vues->push_back(l);
            if (l.lignes.empty()) return std::nullopt;
            return l.lignes.front();
        };
        s.maintenant = [] { return 45000.0; };
        return s;
    }

private slots:
    void ControlesNommesCommeLesRegles() {
        Base base;
        Remplir(base);
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QCOMPARE(f.objectName(), QStringLiteral("Evenement"));
        for (const char* nom : {"Date", "Age"}) Controle<QLineEdit>(f, nom);
        for (const char* nom : {"LabelDate", "LabelLieu", "LabelNotes", "LabelSource", "LabelAge"}) Controle<QLabel>(f, nom);
        for (const char* nom : {"BoutonAjouterTemoin", "BoutonModifTemoin", "BoutonEnleverTemoin", "BoutonOK", "BoutonAnnuler"})
            Controle<QPushButton>(f, nom);
        Controle<QListWidget>(f, "Temoins");
        Controle<QGroupBox>(f, "CadreTemoins");
        QVERIFY(f.OuvrirActe('B', 1, 0, "Bapt\xEAme de Jean DUPONT"));
        QCOMPARE(Controle<QGroupBox>(f, "CadreTemoins")->title(), QStringLiteral("&Parrain et marraine"));
        QVERIFY(!f.OuvrirActe('Z', 1, 0, "Conversion"));
    }

    void HuitChiffresDonnentLaDateEtSaCle() {
        Base base;
        Remplir(base);
        base.Listes.Lieu.Ajouter("Sarlat");
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QVERIFY(f.OuvrirActe('N', 1, 0, "Naissance de Jean DUPONT"));
        f.show();
        f.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&f));
        auto* date = Controle<QLineEdit>(f, "Date");
        date->setFocus();
        QTest::keyClicks(date, "1203175");
        QCOMPARE(QApplication::focusWidget(), date);
        // Le huitième chiffre passe au lieu, qui est vide.
        QTest::keyClicks(date, "0");
        QVERIFY(Controle<QComboBox>(f, "Lieu")->isAncestorOf(QApplication::focusWidget()) ||
                QApplication::focusWidget() == Controle<QComboBox>(f, "Lieu"));
        // Quitter le champ met la date en forme et montre le jour.
        emit date->editingFinished();
        QCOMPARE(date->text(), QStringLiteral("12/03/1750"));
        QCOMPARE(Controle<QLabel>(f, "LabelDate")->text(), QStringLiteral("jeudi"));
        // Le lieu tapé prend ses capitales comme la ville de la fiche.
        QTest::keyClicks(Controle<QComboBox>(f, "Lieu"), "saint-cyprien");
        QCOMPARE(Controle<QComboBox>(f, "Lieu")->currentText(), QStringLiteral("Saint-Cyprien"));
        Controle<QComboBox>(f, "Lieu")->setEditText(QStringLiteral("Sarlat"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(f.result(), int(QDialog::Accepted));
        const Acte& n = base.Persos[1].Naissance;
        QCOMPARE(n.Date.str(), std::string("12/03/1750"));
        QCOMPARE(n.DateTri.str(), std::string("1750/03/12"));
        QCOMPARE(int(n.Annee), 1750);
        QCOMPARE(n.Lieu.str(), std::string("Sarlat"));
        QCOMPARE(base.Persos[1].DateModif, 45000.0);
        QCOMPARE(base.FichierModifie, kVrai);
    }

    void TemoinAjouteAvecSonRole() {
        Base base;
        Remplir(base);
        base.Persos[1].Bapteme.Date = "12/03/1750";
        base.Persos[1].Bapteme.Annee = 1750;
        Options o;
        DialogueFactice d;
        d.SaisieSuivante(std::string("parrain"));
        std::vector<ListeCandidats> vues;
        ServicesEvenement s = Services();
        // La fenêtre de choix : l'utilisateur prend Pierre, la personne 2.
        s.choisir = [&vues](const ListeCandidats& l) -> std::optional<std::string> {
            vues.push_back(l);
            for (const auto& ligne : l.lignes)
                if (NumeroDeLigne(ligne) == 2) return ligne;
            return std::nullopt;
        };
        FenetreEvenement f(base, o, d, s);
        QVERIFY(f.OuvrirActe('B', 1, 0, "Bapt\xEAme de Jean DUPONT"));
        f.show();
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonAjouterTemoin"), Qt::LeftButton);
        QCOMPARE(vues.size(), std::size_t(1));
        QCOMPARE(vues[0].genre, std::string("temoins"));
        auto* temoins = Controle<QListWidget>(f, "Temoins");
        QCOMPARE(temoins->count(), 1);
        QCOMPARE(temoins->item(0)->text(), QStringLiteral("Personne 2 : parrain P000002"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        const LiensActe& l = base.Persos[1].Bapteme.Liens();
        QCOMPARE(l.Temoins(1), 2);
        QCOMPARE(l.RolesTemoins(1).str(), std::string("parrain"));
        QCOMPARE(l.Temoins(2), 0);
        QVERIFY(d.messages.empty());
    }

    void RetirerTousLesTemoinsVideLesEmplacements() {
        Base base;
        Remplir(base);
        Acte& deces = base.Persos[1].Deces;
        deces.Date = "1780";
        for (int i = 1; i <= 3; ++i) {
            deces.LiensModif().Temoins.Fixer(i, 2);
            deces.LiensModif().RolesTemoins.Fixer(i, "t\xE9moin");
        }
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QVERIFY(f.OuvrirActe('D', 1, 0, "D\xE9" "c\xE8s de Jean DUPONT"));
        auto* temoins = Controle<QListWidget>(f, "Temoins");
        QCOMPARE(temoins->count(), 3);
        while (temoins->count() > 0) {
            temoins->setCurrentRow(0);
            QTest::mouseClick(Controle<QPushButton>(f, "BoutonEnleverTemoin"), Qt::LeftButton);
        }
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        QVERIFY(base.Persos[1].Deces.Liens().Temoins.empty());
        QVERIFY(base.Persos[1].Deces.Liens().RolesTemoins.empty());
    }

    void TemoinRefuseSansDate() {
        Base base;
        Remplir(base);
        Options o;
        DialogueFactice d;
        std::vector<ListeCandidats> vues;
        FenetreEvenement f(base, o, d, Services(&vues));
        QVERIFY(f.OuvrirActe('D', 1, 0, "D\xE9" "c\xE8s de Jean DUPONT"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonAjouterTemoin"), Qt::LeftButton);
        QCOMPARE(d.messages.size(), std::size_t(1));
        QCOMPARE(d.messages[0].titre, std::string("Impossible d'ajouter un t\xE9moin"));
        QCOMPARE(d.messages[0].texte, std::string("L'acte doit avoir une date et un lieu pour ajouter des t\xE9moins."));
        QVERIFY(vues.empty());
    }

    void AnnulerLaisseLaFicheIntacte() {
        Base base;
        Remplir(base);
        base.Persos[1].Deces.Date = "1780";
        base.Persos[1].Deces.Annee = 1780;
        base.Persos[1].Deces.LiensModif().Temoins.Fixer(1, 2);
        const std::string avant = DecrireBase(base);
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QVERIFY(f.OuvrirActe('D', 1, 0, "D\xE9" "c\xE8s de Jean DUPONT"));
        f.show();
        auto* date = Controle<QLineEdit>(f, "Date");
        date->clear();
        QTest::keyClicks(date, "01021790");
        emit date->editingFinished();
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonEnleverTemoin"), Qt::LeftButton);
        Controle<QListWidget>(f, "Temoins")->clear();
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonAnnuler"), Qt::LeftButton);
        QCOMPARE(f.result(), int(QDialog::Rejected));
        QCOMPARE(DecrireBase(base), avant);
        QCOMPARE(base.FichierModifie, kFaux);
    }

    // Un décès avant la naissance : Réessayer garde la fenêtre, Abandonner ne garde rien, Ignorer enregistre.
    void DateIncoherenteSelonLaReponse() {
        Base base;
        Remplir(base);
        base.Persos[1].Naissance.Date = "10/03/1750";
        base.Persos[1].Naissance.Annee = 1750;
        Options o;
        DialogueFactice d;
        for (const Bouton reponse : {Bouton::Reessayer, Bouton::Abandonner, Bouton::Ignorer}) {
            d.messages.clear();
            d.ReponseSuivante(reponse);
            FenetreEvenement f(base, o, d, Services());
            QVERIFY(f.OuvrirActe('D', 1, 0, "D\xE9" "c\xE8s de Jean DUPONT"));
            f.show();
            auto* date = Controle<QLineEdit>(f, "Date");
            QTest::keyClicks(date, "01021749");
            emit date->editingFinished();
            QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
            QCOMPARE(d.messages.size(), std::size_t(1));
            QCOMPARE(d.messages[0].titre, std::string("Date incoh\xE9rente"));
            QCOMPARE(d.messages[0].texte, std::string("La date entr\xE9" "e est incoh\xE9rente.\r\n"
                                                      "La personne est d\xE9" "c\xE9" "d\xE9" "e avant sa naissance.\r\n"));
            QCOMPARE(d.messages[0].boutons, Boutons::AbandonnerReessayerIgnorer);
            const bool garde = reponse == Bouton::Ignorer;
            QCOMPARE(f.isVisible(), reponse == Bouton::Reessayer);
            QCOMPARE(base.Persos[1].Deces.Date.str(), std::string(garde ? "01/02/1749" : ""));
            QCOMPARE(base.FichierModifie, garde ? kVrai : kFaux);
        }
    }

    // Un blanc dans la source vide choisit une source existante ; dans la note vide, « Ajouter » en crée une
    // dans l'éditeur. OK range les deux liens avec leurs retours.
    void NoteEtSourceExternesChoisiesAuBlanc() {
        Base base;
        Remplir(base);
        base.NbSources = base.NbSourcesReelles = 1;
        base.Sources[1].Titre = "Registre de Sarlat";
        Options o;
        DialogueFactice d;
        std::vector<ListeCandidats> vues;
        ServicesEvenement s = Services();
        s.choisir = [&vues](const ListeCandidats& l) -> std::optional<std::string> {
            vues.push_back(l);
            return l.genre == "sources" ? l.lignes.front() : l.premiereLigne;
        };
        FenetreEvenement f(base, o, d, s);
        QVERIFY(f.OuvrirActe('N', 1, 0, "Naissance de Jean DUPONT"));
        f.show();
        auto* source = Controle<QComboBox>(f, "Source");
        source->setFocus();
        QTest::keyClick(source, Qt::Key_Space);
        QCOMPARE(source->currentText(), QStringLiteral("@S1@"));
        QTimer::singleShot(0, [] {
            QWidget* editeur = QApplication::activeModalWidget();
            QVERIFY(editeur);
            editeur->findChild<QPlainTextEdit*>("Texte")->setPlainText("Acte en marge");
            QTest::mouseClick(editeur->findChild<QPushButton*>("BoutonOK"), Qt::LeftButton);
        });
        auto* notes = Controle<QPlainTextEdit>(f, "Notes");
        notes->setFocus();
        QTest::keyClick(notes, Qt::Key_Space);
        QCOMPARE(notes->toPlainText(), QStringLiteral("@N1@"));
        QCOMPARE(vues.size(), std::size_t(2));
        QCOMPARE(vues[0].titre, std::string("Choisissez une source externe"));
        QCOMPARE(vues[1].titre, std::string("Choisissez une note externe"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        const Acte& n = base.Persos[1].Naissance;
        QCOMPARE(n.Source.str(), std::string("@S1@"));
        QCOMPARE(n.Notes.str(), std::string("@N1@"));
        QCOMPARE(base.Notes[1].Texte.str(), std::string("Acte en marge"));
        QCOMPARE(base.Sources[1].LiensPersos(1), 1);
        QCOMPARE(base.Notes[1].LiensPersos(1), 1);
    }

    // Une date tapée qui n'existe pas, ou qu'on ne reconnaît pas, garde la fenêtre ouverte ;
    // corrigée avec un mois en français, elle est enregistrée.
    void DateNonValideGardeLaFenetre() {
        Base base;
        Remplir(base);
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QVERIFY(f.OuvrirActe('N', 1, 0, "Naissance de Jean DUPONT"));
        f.show();
        auto* date = Controle<QLineEdit>(f, "Date");
        for (const char* tape : {"31/02/1775", "1 maj 1850"}) {
            d.messages.clear();
            date->clear();
            QTest::keyClicks(date, tape);
            QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
            QCOMPARE(d.messages.size(), std::size_t(1));
            QCOMPARE(d.messages[0].titre, std::string("Date non valide"));
            QVERIFY(d.messages[0].texte.starts_with("La date \xAB "));
            QVERIFY(f.isVisible());
            QVERIFY(base.Persos[1].Naissance.Date.empty());
            QCOMPARE(base.FichierModifie, kFaux);
        }
        date->clear();
        QTest::keyClicks(date, "1 mai 1850");
        emit date->editingFinished();
        QCOMPARE(date->text(), QStringLiteral("01/05/1850"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(f.result(), int(QDialog::Accepted));
        QCOMPARE(base.Persos[1].Naissance.Date.str(), std::string("01/05/1850"));
        QCOMPARE(int(base.Persos[1].Naissance.Annee), 1850);
    }

    void DateGardeeTelleQuelleSansSaisie() {
        Base base;
        Remplir(base);
        base.Familles[1].Mari = 1;
        base.NbFamis = 1;
        base.Persos[1].Unions[1] = 1;
        base.Familles[1].Mariage.Date = "de 1750 \xE0 1760";
        Options o;
        DialogueFactice d;
        FenetreEvenement f(base, o, d, Services());
        QVERIFY(f.OuvrirActe('M', 1, 1, "Mariage de Jean DUPONT"));
        QTest::mouseClick(Controle<QPushButton>(f, "BoutonOK"), Qt::LeftButton);
        QCOMPARE(base.Familles[1].Mariage.Date.str(), std::string("de 1750 \xE0 1760"));
        QCOMPARE(int(base.Familles[1].Mariage.Annee), 1760);
    }
};

QTEST_MAIN(EssaiEvenement)
#include "evenement_test.moc"
