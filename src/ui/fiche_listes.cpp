// La fiche, côté listes : remplissage par le noyau, fenêtre Personne et réponses à ses clics.
#include "card/queues.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

ContexteListe Fiche::ContexteDesListes() {
    // Le curseur d'attente couvre le remplissage, pas l'invite.
    ContexteListe c(options_, reponses_, [this](Invite& i) {
        QApplication::restoreOverrideCursor();
        const bool ok = inviter_(i);
        QApplication::setOverrideCursor(Qt::WaitCursor);
        return ok;
    });
    c.NomFiche = contenu_.Nom;
    c.PrenomsFiche = contenu_.Prenoms;
    c.Renumeroter = gedcom_.OptRenum;
    if (ui_->Union->count() > 0) {
        const int r = ui_->Union->currentRow() >= 0 ? ui_->Union->currentRow() : 0;
        c.ConjointFiche = ConjointDeRangee(DepuisQString(ui_->Union->item(r)->text()));
    }
    return c;
}

void Fiche::RemplirListe(bool (*remplir)(const Base&, ContexteListe&, ListePersonne&)) {
    EnregistrerFiche();
    ContexteListe c = ContexteDesListes();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool rempli = remplir(base_, c, personne_->Liste());
    QApplication::restoreOverrideCursor();
    if (rempli) personne_->Montrer();
}

void Fiche::MenuListePersos() {
    RemplirListe([](const Base& b, ContexteListe& c, ListePersonne& l) {
        return ChercherEtLister(b, c, QuoiListe::Persos, l);
    });
}

void Fiche::MenuListeFamis() {
    RemplirListe([](const Base& b, ContexteListe& c, ListePersonne& l) {
        return ChercherEtLister(b, c, QuoiListe::Famis, l);
    });
}

void Fiche::MenuListeNotes() {
    RemplirListe(ListeNotes);
}

void Fiche::MenuListeSources() {
    RemplirListe(ListeSources);
}

void Fiche::MenuListeFichiers() {
    RemplirListe(ListeFichiers);
}

void Fiche::MenuFichesRecentes() {
    EnregistrerFiche();
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const std::string titre = DepuisQString(ui_->MenuFichesRecentes->text().remove('&'));
    OuvrirRecents(base_, options_, titre, Maintenant(), personne_->Liste());
    QApplication::restoreOverrideCursor();
    personne_->Montrer();
    personne_->Choisir(0);
}

void Fiche::ReagirListe(const Reaction& r) {
    switch (r.action) {
        case ActionListe::Rien:
            break;
        case ActionListe::Afficher:
            if (r.numero > 0) AllerA(r.numero, true);
            break;
        case ActionListe::NouvellePersonne: {
            const std::int32_t modele =
                personne_->Liste().Rangees.empty() ? 0 : personne_->Liste().Rangees[0].valeur;
            AllerA(NouvellePersonne(base_, true, gedcom_.OptRenum, modele), true);
            ActualiserTitre();
            break;
        }
        case ActionListe::AgrandirRecents:
            AgrandirRecents(base_, options_, Maintenant(), personne_->Liste());
            personne_->Rafraichir();
            personne_->Choisir(0);
            break;
        case ActionListe::EstimerActesVides:
            MenuCalcActesVides(r.numero);
            break;
        case ActionListe::OuvrirFichier:
            OuvrirFichierLie(r.chemin, false);
            break;
        case ActionListe::ProprietesFichier:
            if (OuvrirFichierLie(r.chemin, true)) {
                AllerA(r.puisAfficher, true);
                // La rangée du fichier est choisie dans la liste de la fiche.
                const auto trouve =
                    ui_->ListeDivers->findItems(VersQString(SansBlancs(r.chemin)), Qt::MatchContains);
                if (!trouve.isEmpty()) ui_->ListeDivers->setCurrentItem(trouve.front());
            }
            break;
        case ActionListe::OuvrirNote:
        case ActionListe::OuvrirSource: {
            const auto& table = r.action == ActionListe::OuvrirNote ? base_.Notes : base_.Sources;
            if (r.numero > 0 && r.numero <= table.Haut())
                MontrerTexte(std::as_const(table)[r.numero], personne_->Liste().Titre);
            if (r.puisAfficher > 0) AllerA(r.puisAfficher, true);
            break;
        }
        case ActionListe::ListeParente:
            ListerParente(r.numero);
            break;
        case ActionListe::RemplacerValeur:
            RemplacerDepuisListe(r.numero);
            break;
        case ActionListe::ArbreParente:
        case ActionListe::ImprimerEtiquettes:
        case ActionListe::RetirerEtiquette:
        case ActionListe::DecalerArbre:
            ReagirArbre(r);
            break;
    }
}

void Fiche::MontrerTexte(const NoteExt& note, std::string_view titre) {
    std::string texte = note.Titre.str();
    if (!texte.empty()) texte += "\r\n\r\n";
    texte += note.Texte.vue();
    editeur_->Montrer(VersQString(note.Titre.empty() ? titre : note.Titre.vue()), texte);
}

}  // namespace arbolix
