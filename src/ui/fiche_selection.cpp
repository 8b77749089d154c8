// Le menu Sélection de la fiche, la liste de parenté et les recherches à faire.
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>

#include "kinship/parente.h"
#include "kinship/recherches.h"
#include "kinship/sosa.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/fiche.h"
#include "ui/liste_choix.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

constexpr const char* kDansTout[] = {"S\xE9l. dans tout (OU logique)",
                                     "S\xE9l. dans la s\xE9lection (ET logique)"};
constexpr const char* kRecherches = "Recherches \xE0 faire";
constexpr const char* kParente = "Liste et arbre de parent\xE9";

}  // namespace

void Fiche::BrancherSelection() {
    // Le troisième menu, après Listes ; ses entrées portent les noms des règles.
    auto* menu = new QMenu(VersQString("S\xE9lection"), this);
    menu->setObjectName("BarreMenu_2");
    if (auto* suivant = findChild<QMenu*>("BarreMenu_3"))
        ui_->BarreMenu->insertMenu(suivant->menuAction(), menu);
    else
        ui_->BarreMenu->addMenu(menu);
    for (int i = 0; i < 5; ++i) {
        QAction* a = menu->addAction(VersQString(kEntreesSel[i]));
        a->setObjectName(QString("MenuSel_%1").arg(i));
        a->setCheckable(true);
        connect(a, &QAction::triggered, this, [this, i] { CommandeSel(i); });
    }
    menu->addSeparator();
    for (int i = 0; i < 2; ++i) {
        QAction* a = menu->addAction(VersQString(kDansTout[i]));
        a->setObjectName(QString("MenuSelDansTout_%1").arg(i));
        a->setCheckable(true);
        connect(a, &QAction::triggered, this, [this] {
            MenuSelDansTout(etatSel_);
            PoserSelection();
        });
    }
    QAction* inverse = menu->addAction(VersQString("&Inverser la s\xE9lection actuelle"));
    inverse->setObjectName("MenuInverseSel");
    inverse->setCheckable(true);
    connect(inverse, &QAction::triggered, this, [this] {
        EnregistrerFiche();
        MenuInverseSel(base_, etatSel_);
        PoserSelection();
        AfficherFiche();
    });
    const std::pair<const char*, bool> listes[] = {{"MenuSelListePersos", false},
                                                   {"MenuSelListeFamis", true}};
    for (const auto& [nom, familles] : listes) {
        QAction* a = menu->addAction(VersQString(familles ? "Liste des &familles s\xE9lectionn\xE9"
                                                            "es..."
                                                          : "Liste des &personnes s\xE9lectionn\xE9"
                                                            "es..."));
        a->setObjectName(nom);
        connect(a, &QAction::triggered, this, [this, f = familles] { ListeSelection(f); });
    }
    menu->addSeparator();
    QAction* recherches = menu->addAction(VersQString(kRecherches));
    recherches->setObjectName("MenuIntRech");
    connect(recherches, &QAction::triggered, this, &Fiche::CommandeIntRech);
    QAction* parente = menu->addAction(VersQString(kParente));
    parente->setObjectName("MenuParente");
    connect(parente, &QAction::triggered, this, &Fiche::CommandeParente);
    menu->setEnabled(false);
    // Le menu Fichier remet les compteurs dans MenuSelInfo : une sélection partielle reprend sa légende.
    connect(ui_->BarreMenu_0, &QMenu::aboutToShow, this, [this] {
        if (ouvert_ && etatSel_.Cochee != 0) ui_->MenuSelInfo->setText(VersQString(etatSel_.Info));
    });
    const std::pair<int, const char*> icones[] = {
        {9, kRecherches}, {12, "S\xE9lectionner toutes les fiches"}, {20, kParente}};
    for (const auto& [index, bulle] : icones) {
        auto* a = ui_->BarreIcones->addAction(VersQString(bulle));
        a->setObjectName(QString("IcoCommande%1").arg(index));
        a->setToolTip(VersQString(bulle));
        a->setEnabled(false);
        connect(a, &QAction::triggered, this, [this, index] {
            if (index == 9) CommandeIntRech();
            if (index == 12) CommandeSel(0);
            if (index == 20) CommandeParente();
        });
    }
}

void Fiche::ApresLecture(const Ascendance& a) {
    etatSel_ = {};
    nbAncetres_ = a.NbAncetres;
    findChild<QMenu*>("BarreMenu_2")->setEnabled(true);
    for (int i : {9, 12, 20})
        if (auto* icone = findChild<QAction*>(QString("IcoCommande%1").arg(i))) icone->setEnabled(true);
    PoserSelection();
}

void Fiche::PoserSelection() {
    for (int i = 0; i < 5; ++i)
        findChild<QAction*>(QString("MenuSel_%1").arg(i))->setChecked(i == etatSel_.Cochee);
    findChild<QAction*>("MenuSelDansTout_0")->setChecked(etatSel_.DansTout);
    findChild<QAction*>("MenuSelDansTout_1")->setChecked(!etatSel_.DansTout);
    findChild<QAction*>("MenuInverseSel")->setChecked(etatSel_.Inverse);
    if (etatSel_.Cochee != 0) ui_->MenuSelInfo->setText(VersQString(etatSel_.Info));
    ui_->Sel->setEnabled(etatSel_.SelFicheActive);
}

void Fiche::ReprendreToutSel() {
    if (etatSel_.Cochee == 0) return;
    etatSel_ = {};
    etatSel_.Info = std::to_string(base_.NbPersosReels) + " personnes et " +
                    std::to_string(base_.NbFamisReels) + " familles";
    PoserSelection();
    ui_->MenuSelInfo->setText(VersQString(etatSel_.Info));
}

void Fiche::CommandeSel(int i) {
    // "Actes..." : la sélection se fait au bouton Chercher de la recherche d'actes.
    if (i == 4) return CommandeRechActe(true);
    EnregistrerFiche();
    const auto n = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const BoiteSel boite = MenuSel(base_, options_, etatSel_, i, n);
    QApplication::restoreOverrideCursor();
    // La liste des recherches compte les ancêtres de la racine de la numérotation principale.
    if (boite.NbAncetres >= 0) nbAncetres_ = boite.NbAncetres;
    PoserSelection();
    AfficherFiche();
    if (!boite.Titre.empty())
        dialogue_->Message(boite.Titre, boite.Texte, boite.Erreur ? Icone::Stop : Icone::Information);
}

void Fiche::ListeSelection(bool familles) {
    EnregistrerFiche();
    // Au-delà de ce que le contrôle tient, ou sur demande, on choisit d'abord un début de nom.
    std::string reponse = familles ? " " : "* *";
    if (options_.ListePersosCourte || base_.NbPersosReels > kSeuilListeCourte) {
        const auto r = dialogue_->Saisie(
            familles ? "Liste des familles s\xE9lectionn\xE9"
                       "es"
                     : "Liste des personnes s\xE9lectionn\xE9"
                       "es",
            familles ? "Entrez le d\xE9"
                       "but du nom1 pr\xE9nom1 nom2 pr\xE9nom2 \xE0 chercher :\r\n"
                       "(inutile de respecter les majuscules et accents)\r\n(espace) = tout (32700 max)"
                     : "Entrez le d\xE9"
                       "but du nom et pr\xE9nom \xE0 chercher :\r\n"
                       "(inutile de respecter les majuscules et accents)\r\n* = tout (32700 max)",
            reponse);
        if (!r) return;
        reponse = *r;
    }
    if (!listeChoix_) listeChoix_ = new FormListeChoix(base_, options_, this);
    listeChoix_->Montrer(familles ? ListeSelFamis(base_, options_, reponse)
                                  : ListeSelPersos(base_, options_, reponse));
}

void Fiche::CommandeParente() {
    EnregistrerFiche();
    const auto n = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    if (!EstDeCujus(base_, n)) {
        dialogue_->Message(kTitreParente, kPasDeCujus, Icone::Stop);
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    PreparerParente(base_, n, options_);
    ContexteListe c = ContexteDesListes();
    ListePersonne& liste = personne_->Liste();
    const bool rempli = ChercherEtLister(base_, c, QuoiListe::Persos, liste);
    QApplication::restoreOverrideCursor();
    if (!rempli) return;
    // Sans la rangée « Ajouter... » : on choisit la seconde personne.
    if (liste.LigneDeTete && !liste.Rangees.empty()) liste.Rangees.erase(liste.Rangees.begin());
    liste.LigneDeTete = false;
    liste.Genre = "anccom";
    personne_->Montrer();
}

void Fiche::ListerParente(std::int32_t autre) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    personne_->Liste() = ListeParente(base_, options_, autre);
    QApplication::restoreOverrideCursor();
    personne_->Montrer();
}

void Fiche::CommandeIntRech() {
    EnregistrerFiche();
    personne_->Liste() = ListeRecherches(base_, options_, kRecherches, nbAncetres_, false);
    personne_->Montrer();
    if (ValeurNumerique(DepuisQString(ui_->NumPerso->text())) == 0) {
        personne_->Choisir(0);
        AllerA(personne_->Liste().Rangees[0].valeur, true);
    }
}

}  // namespace arbolix
