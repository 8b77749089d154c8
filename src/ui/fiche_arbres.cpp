// Les arbres de la fiche : menus des arbres et des étiquettes, arbre de parenté, descente vers un enfant.
#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "card/lignes_personne.h"
#include "dates/calendrier_gregorien.h"
#include "lists/listes.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/apercu_arbre.h"
#include "ui/arbre.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

struct EntreeArbre {
    const char* nom;
    const char* legende;
    int genre;
};
constexpr EntreeArbre kEntrees[] = {
    {"MenuArbreAscendant", "Arbre ascendant &5 g\xE9n\xE9rations A4...", kAscendantA4},
    {"MenuArbre_1", "&Etiquettes...", kEtiquettes},
    {"MenuArbre_2", "Arbre ascendant &grand format...", kAscendant},
    {"MenuArbre_5", "Arbre descendant grand f&ormat...", kDescendant},
    {"MenuArbreVide", "Arbre &vide \xE0 remplir...", 0},
};

}  // namespace

void Fiche::BrancherArbres() {
    QMenu* menu = findChild<QMenu*>("BarreMenuExports");
    if (!menu) return;
    menu->addSeparator();
    for (const auto& e : kEntrees) {
        QAction* a = menu->addAction(VersQString(e.legende));
        a->setObjectName(e.nom);
        connect(a, &QAction::triggered, this,
                [this, g = e.genre] { g == 0 ? MenuArbreVide() : MenuArbre(g); });
    }
}

FenetreArbre& Fiche::FormArbre() {
    if (!arbre_) {
        arbre_ = new FenetreArbre(base_, options_, ini_, *dialogue_, this);
        connect(&arbre_->Apercu(), &Pr::Remonter, this, &Fiche::RemonterArbre);
    }
    return *arbre_;
}

void Fiche::MenuArbre(int genre) {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    const auto n = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    if (genre != kEtiquettes) {
        FormArbre().Ouvrir(genre, n, TitreArbreAscendant(base_, n, DateMachine()));
        return;
    }
    // La liste des étiquettes : chaque personne sélectionnée ; un double clic en retire une.
    ListePersonne& l = personne_->Liste();
    OuvrirListe(l, "etiquettes", "Imprimer des \xE9tiquettes... (un double clic retire de la liste)",
                " Imprimer...", true);
    base_.Persos.PourChaqueEcrit(1, base_.NbPersos, [&](std::int32_t p) {
        if (PersonneExiste(base_, p) && std::as_const(base_.Persos)[p].Sel != kFaux)
            l.Rangees.push_back({LigneListe(base_, options_, p) + " P" + Zeros(p, 6), p});
    });
    personne_->Montrer();
}

void Fiche::ReagirArbre(const Reaction& r) {
    ListePersonne& l = personne_->Liste();
    if (r.action == ActionListe::ImprimerEtiquettes) FormArbre().Ouvrir(kEtiquettes, 0, "", l);
    if (r.action == ActionListe::RetirerEtiquette && r.numero > 0 &&
        static_cast<std::size_t>(r.numero) < l.Rangees.size()) {
        l.Rangees.erase(l.Rangees.begin() + r.numero);
        personne_->Rafraichir();
    }
    if (r.action == ActionListe::ArbreParente) ArbreDeParente(r.numero);
    if (r.action == ActionListe::DecalerArbre) ArbreDepuisEnfant(r.numero);
}

// Un formulaire vierge : l'ascendant A4 sans personne.
void Fiche::MenuArbreVide() {
    ui_->NumPerso->setText("0");
    FormArbre().Ouvrir(kAscendantA4, 0, "");
}

void Fiche::ArbreDeParente(std::int32_t ancetre) {
    FenetreArbre& f = FormArbre();
    f.Ouvrir(kArbreParente, ancetre, "ARBRE DE PARENTE");
    f.hide();
    f.Apercu().resize(450 + 100, static_cast<int>(785 * 0.707 + 90));
    f.Dessiner(ancetre, 0);
}

void Fiche::RemonterArbre(std::int32_t racine) {
    ListePersonne& l = personne_->Liste();
    OuvrirListe(l, "enfants-arbre",
                "Choisissez un enfant pour d\xE9"
                "caler l'arbre",
                "", true);
    const Perso& p = PersoLu(base_, racine);
    int index = 0;
    for (int u = 1; u <= kMaxUnions; ++u) {
        const Fami& f = FamiLue(base_, p.Unions[u]);
        for (int e = 1; e <= kMaxEnfants; ++e) {
            const std::int32_t enfant = f.Enfants(e);
            if (!PersonneExiste(base_, enfant)) continue;
            l.Rangees.push_back(
                {Zeros(++index, 2) + " " + LigneListe(base_, options_, enfant) + " P" + Zeros(enfant, 6),
                 enfant});
        }
    }
    if (l.Rangees.empty()) return;
    if (l.Rangees.size() == 1) {
        FormArbre().Dessiner(l.Rangees[0].valeur, 1);
        return;
    }
    personne_->Montrer();
}

void Fiche::ArbreDepuisEnfant(std::int32_t enfant) {
    for (const auto& r : personne_->Liste().Rangees)
        if (r.valeur == enfant) FormArbre().Dessiner(enfant, static_cast<int>(ValeurNumerique(r.texte)));
}

}  // namespace arbolix
