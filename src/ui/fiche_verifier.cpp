// La fiche, côté vérification et réparation de tout le fichier : rapport, dates estimées, nettoyage.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QProgressDialog>

#include "platform/progression.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "verify/estimation.h"
#include "verify/nettoyage.h"
#include "verify/verification.h"

namespace arbolix {

namespace {

// Pointeur d'attente le temps d'une commande, rendu même si elle sort plus tôt.
struct Attente {
    Attente() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~Attente() { QApplication::restoreOverrideCursor(); }
    Attente(const Attente&) = delete;
    Attente& operator=(const Attente&) = delete;
};

// Sur un gros fichier, une boîte avec Annuler paraît après une seconde ; les petits n'en voient rien.
class ProgressionVerif : public Progression {
public:
    explicit ProgressionVerif(QWidget* parent) : boite_(QString(), QStringLiteral("Annuler"), 0, 0, parent) {
        boite_.setWindowTitle(VersQString("V\xE9rification"));
        boite_.setWindowModality(Qt::WindowModal);
        boite_.setMinimumDuration(1000);
    }
    void Compteur(std::string_view texte) override { boite_.setLabelText(VersQString(texte)); }
    void LaisserPasser() override {
        boite_.setValue(0);
        QCoreApplication::processEvents();
    }
    bool Annule() const override { return boite_.wasCanceled(); }

private:
    QProgressDialog boite_;
};

struct ActionVerifier {
    const char* nom;
    const char* texte;
    void (*executer)(Fiche&);
};

const ActionVerifier kActions[] = {
    {"MenuCalcActesVides", "&Estimer les dates vides...", [](Fiche& f) { f.MenuCalcActesVides(0); }},
    {"MenuVerifier", "&V\xE9rifier la coh\xE9rence des dates", [](Fiche& f) { f.MenuVerifier(); }},
    {"MenuNettoieLieux", "Nettoyer les lie&ux", [](Fiche& f) { f.MenuNettoieLieux(); }},
    {"MenuConvNSExtInt", "Notes et sources e&xternes en internes", [](Fiche& f) { f.MenuConvNSExtInt(); }},
};

}  // namespace

// Le menu Fiche, créé s'il n'est pas encore dans la barre ; les textes suivent le fichier de messages.
void Fiche::BrancherVerifier() {
    auto* menu = findChild<QMenu*>(QStringLiteral("BarreMenu_3"));
    if (!menu) {
        menu = menuBar()->addMenu(QStringLiteral("F&iche"));
        menu->setObjectName(QStringLiteral("BarreMenu_3"));
    }
    for (const auto& a : kActions) {
        QAction* action = menu->addAction(VersQString(a.texte));
        action->setObjectName(QString::fromLatin1(a.nom));
        const auto executer = a.executer;
        connect(action, &QAction::triggered, this, [this, executer] { executer(*this); });
    }
}

void Fiche::MenuVerifier() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    ResultatVerification r;
    {
        Attente attente;
        ProgressionVerif progression(this);
        r = arbolix::MenuVerifier(base_, options_, &progression, Maintenant());
    }
    editeur_->MontrerTexteLibre(VersQString("V\xE9rification"), r.Rapport, *dialogue_);
    if (r.Corriges > 0) {
        AfficherFiche();
        ActualiserEnregistrer();
    }
}

void Fiche::MenuCalcActesVides(int index) {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    const ActesVides quoi = index == 0 ? ActesVides::Naissances : ActesVides::Mariages;
    if (!arbolix::MenuCalcActesVides(base_, options_, *dialogue_, quoi, personne_->Liste())) return;
    personne_->Montrer();
    AfficherFiche();
    ActualiserEnregistrer();
}

void Fiche::MenuNettoieLieux() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    {
        Attente attente;
        NettoyerLieux(base_);
    }
    AfficherFiche();
    ActualiserEnregistrer();
}

void Fiche::MenuConvNSExtInt() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    ConvertirNotesSourcesExternes(base_);
    AfficherFiche();
    ActualiserEnregistrer();
}

}  // namespace arbolix
