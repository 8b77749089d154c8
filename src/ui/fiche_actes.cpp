// La fiche, côté recherche d'actes et « Rechercher et remplacer ».
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>

#include "lists/remplacer.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui/rech_acte.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

constexpr const char* kEntreesRechRemp[] = {"&Nom",       "Nom de &tri", "&Pr\xE9nom",
                                            "&M\xE9tier", "&Lieu",       "&Source"};

}  // namespace

void Fiche::BrancherActes() {
    QAction* rech = ui_->BarreMenu_1->addAction(VersQString("Recherche d'&actes..."));
    rech->setObjectName("MenuRechActe");
    connect(rech, &QAction::triggered, this, [this] { CommandeRechActe(false); });
    // Le menu Fiche, créé s'il n'est pas encore dans la barre.
    auto* menu = findChild<QMenu*>(QStringLiteral("BarreMenu_3"));
    if (!menu) {
        menu = menuBar()->addMenu(QStringLiteral("F&iche"));
        menu->setObjectName(QStringLiteral("BarreMenu_3"));
    }
    QMenu* remp = menu->addMenu(VersQString("&Rechercher et remplacer..."));
    remp->setObjectName("MenuRechRemp");
    for (int i = 0; i < 6; ++i) {
        QAction* a = remp->addAction(VersQString(kEntreesRechRemp[i]));
        a->setObjectName(QString("MenuRechRemp_%1").arg(i));
        connect(a, &QAction::triggered, this, [this, i] { CommandeRechRemp(i); });
    }
    const std::pair<const char*, const char*> partout[] = {
        {"MenuRechRempTousLieux", "Remplacer dans tous les &lieux..."},
        {"MenuRechRempNotes", "Remplacer dans les &notes..."}};
    for (const auto& [nom, texte] : partout) {
        QAction* a = menu->addAction(VersQString(texte));
        a->setObjectName(nom);
        const bool notes = std::string_view(nom) == "MenuRechRempNotes";
        connect(a, &QAction::triggered, this, [this, notes] { CommandeRechRempPartout(notes); });
    }
}

void Fiche::CommandeRechActe(bool selection) {
    EnregistrerFiche();
    if (!rechActe_) {
        RechActe::Liens liens;
        liens.dialogue = [this]() -> Dialogue& { return *dialogue_; };
        liens.fiche = [this] {
            return static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
        };
        liens.montrerListe = [this](ListePersonne l) {
            personne_->Liste() = std::move(l);
            personne_->Montrer();
        };
        liens.selectionner = [this](const RechercheActes& r) {
            // Après toute la base (légende faite de nombres), la sélection part de rien.
            const bool depuisTout =
                etatSel_.Cochee == 0 ||
                (!etatSel_.Info.empty() && etatSel_.Info[0] >= '0' && etatSel_.Info[0] <= '9');
            etatSel_.Info = SelectionnerActes(base_, options_, r, etatSel_.DansTout, depuisTout);
            etatSel_.Cochee = 4;
            etatSel_.Libelle = "Actes...";
            etatSel_.Inverse = false;
            etatSel_.SelFicheActive = true;
            PoserSelection();
            AfficherFiche();
        };
        liens.selCochee = [this] { return etatSel_.Cochee; };
        rechActe_ = new RechActe(base_, options_, std::move(liens), this);
    }
    if (selection) {
        etatSel_.DansTout = true;
        PoserSelection();
    }
    rechActe_->Ouvrir(selection);
}

void Fiche::CommandeRechRemp(int index) {
    EnregistrerFiche();
    if (!ListerValeurs(base_, kRechRemp[static_cast<std::size_t>(index)], true, *dialogue_,
                       personne_->Liste()))
        return;
    // La fiche se vide : ses valeurs pourraient changer sous elle.
    ui_->NumPerso->setText("0");
    personne_->Montrer();
}

void Fiche::RemplacerDepuisListe(int rangee) {
    ListePersonne& liste = personne_->Liste();
    const EntreeRechRemp* e = EntreeDuGenre(liste.Genre);
    if (!e) return;
    if (DemanderRemplacement(base_, *e, liste, static_cast<std::size_t>(rangee), *dialogue_, Maintenant()) >
        0)
        ActualiserTitre();
    RemplirListesSaisie();
    personne_->Montrer();
}

void Fiche::CommandeRechRempPartout(bool notes) {
    EnregistrerFiche();
    const std::int32_t n =
        notes ? MenuRechRempNotes(base_, *dialogue_) : MenuRechRempTousLieux(base_, *dialogue_);
    if (n < 0) return;
    ActualiserTitre();
    AfficherFiche();
}

}  // namespace arbolix
