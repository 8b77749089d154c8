// Le menu des exports de la fiche : la liste d'abord pour la ligne de vie et les isolés, puis la fenêtre.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "lists/recherche_actes.h"
#include "platform/qt_texte.h"
#include "reports/exports.h"
#include "reports/isoles.h"
#include "reports/ligne_de_vie.h"
#include "store/chaines.h"
#include "ui/exports.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui/rech_acte.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Les entrées de MenuExport ; la 7 n'a pas de rapport, la 4 attend la recherche d'actes.
constexpr int kEntreesExport[] = {kLigneDeVie, kAscendance, kDescendance, kActes, kAdresses,
                                  kEclair,     kLivre,      kPagesHtml,   kIsoles};

}  // namespace

void Fiche::BrancherExports() {
    auto* menu = new QMenu(VersQString("E&xports"), this);
    menu->setObjectName("BarreMenuExports");
    ui_->BarreMenu->addMenu(menu);
    for (const int i : kEntreesExport) {
        if (i == kLivre) menu->addSeparator();
        QAction* a = menu->addAction(VersQString(TrouverGenre(i)->legende));
        a->setObjectName(QString("MenuExport_%1").arg(i));
        a->setEnabled(i != kActes);
        connect(a, &QAction::triggered, this, [this, i] { MenuExport(i); });
    }
}

void Fiche::MenuExport(int i) {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    // L'ordre de tri des actes n'existe pas encore : il n'est jamais celui des numéros Sosa.
    bool triSosa = false;
    if (!QuestionConflitTri(i, etatSel_.Cochee, triSosa, *dialogue_)) return;
    const auto personne = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    auto* fenetre = findChild<FenetreExports*>();
    if (!fenetre) fenetre = new FenetreExports(base_, options_, ini_, *dialogue_, this);
    const ListePersonne* liste = nullptr;
    if (i == kLigneDeVie || i == kIsoles) {
        // La liste vient d'abord, dans la fenêtre Personne ; le dialogue la suit.
        ListePersonne& l = personne_->Liste();
        const Perso& p = std::as_const(base_.Persos)[std::max(personne, 0)];
        l = i == kLigneDeVie
                ? ListeLigneDeVie(base_, options_, personne, "Ligne de vie de " + p.Nom + " " + p.Prenoms)
                : ListeIsoles(base_, options_, TitreFenetreExport(kIsoles));
        if (l.Rangees.size() <= 1 && i == kLigneDeVie) {
            personne_->hide();
            dialogue_->Message(kTitreLigneDeVie, kLigneDeVieVide, Icone::Information);
            return;
        }
        personne_->Montrer();
        liste = &l;
    }
    ReglagesLivre livre{.selCochee = etatSel_.Cochee};
    if (rechActe_) livre.ListeTri = rechActe_->Recherche().ListeTri;
    if (triSosa) livre.ListeTri[0] = kTriNumero;
    fenetre->ReglerLivre(livre);
    fenetre->Ouvrir(i, personne, gedcom_.Fichier,
                    etatSel_.Libelle.empty() ? "Toute la base" : etatSel_.Libelle, liste);
    fenetre->open();
}

}  // namespace arbolix
