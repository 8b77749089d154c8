// Le menu Édition de la fiche : dupliquer, supprimer, fusionner la personne affichée.
#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QToolBar>

#include "card/dupliquer.h"
#include "card/fusion.h"
#include "card/lignes_personne.h"
#include "card/supprimer.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

struct ActionEdition {
    const char* nom;
    const char* texte;
    void (Fiche::*commande)();
};

const ActionEdition kActionsEdition[] = {
    {"MenuDupliquer", "&Dupliquer la fiche", &Fiche::MenuDupliquer},
    {"MenuSupprimer", "&Supprimer la fiche...", &Fiche::MenuSupprimer},
    {"MenuFusionner", "&Fusionner avec...", &Fiche::MenuFusionner},
};

}  // namespace

// Le menu Édition est le cinquième, après Fiche ; l'icône 10 duplique. Les commandes ne valent
// que sur une personne affichée d'un fichier ouvert.
void Fiche::BrancherFusion() {
    auto* menu =
        menuBar()->addMenu(VersQString("\xC9"
                                       "&dition"));
    menu->setObjectName(QStringLiteral("BarreMenu_4"));
    for (const auto& a : kActionsEdition) {
        QAction* action = menu->addAction(VersQString(a.texte));
        action->setObjectName(QString::fromLatin1(a.nom));
        connect(action, &QAction::triggered, this, a.commande);
    }
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        for (QAction* a : menu->actions()) a->setEnabled(ouvert_ && PersonneExiste(base_, base_.NumCourant));
    });
    auto* icone = new QAction(style()->standardIcon(QStyle::SP_FileLinkIcon),
                              VersQString("Dupliquer la fiche actuelle"), ui_->BarreIcones);
    icone->setObjectName(QStringLiteral("IcoCommande10"));
    icone->setToolTip(icone->text());
    // À son rang parmi les icônes numérotées.
    QAction* avant = nullptr;
    for (QAction* a : ui_->BarreIcones->actions())
        if (!avant && a->objectName().startsWith("IcoCommande") && a->objectName().mid(11).toInt() > 10)
            avant = a;
    ui_->BarreIcones->insertAction(avant, icone);
    connect(icone, &QAction::triggered, this, &Fiche::MenuDupliquer);
}

void Fiche::MontrerApresCommande(std::int32_t n) {
    if (ui_->NumPerso->text() == QString::number(n))
        AfficherFiche();
    else
        AllerA(n, false);
    ActualiserTitre();
}

void Fiche::MenuDupliquer() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    Edition e = Editer();
    if (const std::int32_t d = DupliquerPersonne(e, p); d > 0) MontrerApresCommande(d);
}

void Fiche::MenuSupprimer() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    Edition e = Editer();
    if (const auto suivant = SupprimerPersonne(e, p)) MontrerApresCommande(*suivant);
}

void Fiche::MenuFusionner() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    const ListeCandidats candidats = CandidatsFusion(
        base_, options_, p, [this](std::int32_t n) { return LigneCourte(base_, options_, n); });
    const auto choisi = ChoisirCandidat(candidats);
    if (!choisi) return;
    Edition e = Editer();
    auto fusion = Fusion::Commencer(e, p, *choisi);
    if (!fusion) return;
    // La liste des unions reste tant que la fusion n'est pas terminée : la quitter revient à
    // demander la fin, que le nombre d'unions peut refuser.
    bool terminer = !fusion->ListeUtile();
    while (!(terminer && fusion->Terminer())) {
        const auto& rangees = fusion->Rangees();
        ListeCandidats liste{"fusion2", Fusion::TitreUnions(), rangees[0].texte, {}};
        for (std::size_t i = 1; i < rangees.size(); ++i) liste.lignes.push_back(rangees[i].texte);
        const std::optional<std::string> rangee = choisir_(liste);
        terminer = !rangee || *rangee == rangees[0].texte;
        if (terminer) continue;
        for (std::size_t i = 1; i < rangees.size(); ++i)
            if (rangees[i].texte == *rangee) {
                fusion->RetirerUnion(i);
                break;
            }
    }
    MontrerApresCommande(fusion->Gardee());
}

}  // namespace arbolix
