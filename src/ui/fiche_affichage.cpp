// La fiche, côté affichage : contenu calculé par le noyau posé dans les contrôles, passage d'une
// personne à l'autre, évènements ouverts depuis leurs boutons.
#include <QComboBox>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollBar>

#include "card/acte_courant.h"
#include "card/navigation.h"
#include "card/queues.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/evenement.h"
#include "ui/fiche.h"
#include "ui/listes_qt.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Couleurs du bouton de sexe choisi (rouge-vert-bleu).
constexpr const char* kFondMasculin = "#88AAFF";
constexpr const char* kFondFeminin = "#FFBBBB";

// Ce qu'on retire à la largeur de l'étiquette d'un évènement.
constexpr int kMargeActe = 8;

// Un texte de la base vers une case à plusieurs lignes.
QString Lignes(std::string_view texte) {
    return VersQString(texte).replace("\r\n", "\n");
}

}  // namespace

// Un évènement de la personne (N B D S) ou de l'union choisie (C M X) dans l'éditeur d'évènement.
void Fiche::OuvrirEvenement(char genre) {
    EnregistrerFiche();
    const std::int32_t p = ui_->NumPerso->text().toInt();
    if (!ouvert_ || p <= 0 || !PersonneExiste(base_, p)) return;
    std::int32_t f = 0;
    if (std::string_view("CMX").find(genre) != std::string_view::npos) {
        const int rangee = std::max(ui_->Union->currentRow(), 0);
        if (static_cast<std::size_t>(rangee) >= contenu_.Unions.size()) return;
        f = LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
        if (f <= 0) return;
    }
    ServicesEvenement services{[this](std::int32_t n) { return LigneCourte(base_, options_, n); }, choisir_,
                               [] { return Maintenant(); },
                               [this](const std::string& lieu, const std::string& date,
                                      const QString& legende) { BoutonBaseWeb(lieu, date, legende); }};
    FenetreEvenement fenetre(base_, options_, *dialogue_, services, this);
    const GenreActe* g = TrouverGenre(genre);
    const Perso& pe = std::as_const(base_.Persos)[p];
    const std::string titre =
        std::string(SansBlancsDroite(g ? g->titre : "")) + " " + pe.Prenoms + " " + pe.Nom;
    if (!fenetre.OuvrirActe(genre, p, f, titre)) return;
    const int resultat = fenetre.exec();
    if (resultat == QDialog::Accepted) base_.FichierModifie = kVrai;
    AfficherFiche();
    ActualiserTitre();
    if (fenetre.PersonneDemandee() > 0) AllerA(fenetre.PersonneDemandee(), true);
}

void Fiche::AfficherFiche() {
    // Quitter une fiche l'enregistre, avant que NumCourant ne change.
    EnregistrerFiche();
    const QString texte = ui_->NumPerso->text().trimmed();
    std::int64_t n = ValeurNumerique(DepuisQString(texte));
    if (texte.startsWith('-')) n = -n;
    switch (ExaminerNumero(base_, n)) {
        case EtatNumero::Ignorer:
            return;
        case EtatNumero::HorsTableau:
            dialogue_->Message("Erreur m\xE9moire",
                               "Erreur ! La personne demand\xE9"
                               "e ne peut pas \xEAtre affich\xE9"
                               "e.",
                               Icone::Stop);
            return;
        case EtatNumero::Afficher:
            break;
    }
    base_.NumCourant = static_cast<std::int32_t>(n < 0 ? -n : n);
    base_.Chargement = kVrai;
    contenu_ = CalculerFiche(base_, Contexte(), base_.NumCourant);
    PoserContenu();
    base_.FicheModifiee = kFaux;
    base_.Chargement = kFaux;
}

ContexteFiche Fiche::Contexte() const {
    ContexteFiche c(options_);
    const auto message = [this](int n, std::string& champ) {
        if (!messages_(n).empty()) champ = messages_(n);
    };
    message(590, c.MotSosa);
    message(591, c.MotModifiee);
    message(49, c.LegendeParents);
    message(593, c.AucunEnfant);
    message(594, c.UnEnfant);
    message(595, c.DesEnfants);
    const QFontMetrics mesure(ui_->Naissance->font());
    c.LargeurActe.maximum = std::max(ui_->Naissance->width() - kMargeActe, 40);
    c.LargeurActe.mesure = [mesure](std::string_view s) { return mesure.horizontalAdvance(VersQString(s)); };
    c.ListeEnfantsOuverte = personne_->isVisible() && personne_->Liste().Genre == "enfants";
    return c;
}

void Fiche::PoserContenu() {
    const ContenuFiche& c = contenu_;
    ui_->CadrePerso->setTitle(VersQString(c.LegendePerso));
    ui_->Sel->setChecked(c.Sel);
    ui_->Nom->setEditText(VersQString(c.Nom));
    ui_->Prenoms->setEditText(VersQString(c.Prenoms));
    ui_->Sexe1->setChecked(c.Sexe == 'M');
    ui_->Sexe2->setChecked(c.Sexe == 'F');
    if (c.Sexe == ' ') {
        // Aucun bouton coché : la règle ne colore rien.
        ui_->Sexe1->setAutoExclusive(false);
        ui_->Sexe1->setChecked(false);
        ui_->Sexe2->setChecked(false);
        ui_->Sexe1->setAutoExclusive(true);
    }
    ColorerSexe();
    ui_->Metier->setEditText(VersQString(c.Metier));
    ui_->Ref->setText(VersQString(c.Ref));
    const std::pair<QLabel*, const std::string*> actes[] = {{ui_->Naissance, &c.Naissance},
                                                            {ui_->Bapteme, &c.Bapteme},
                                                            {ui_->Deces, &c.Deces},
                                                            {ui_->Sepulture, &c.Sepulture}};
    for (const auto& [label, texte] : actes) label->setText(VersQString(*texte));
    ui_->IntRech1->setChecked(c.IntRechAscendance);
    ui_->IntRech2->setChecked(c.IntRechDescendance);
    ui_->Notes->setPlainText(Lignes(c.Notes));
    ui_->Notes->setToolTip(VersQString(c.BulleNotes));
    const std::pair<QLineEdit*, const std::string*> adresse[] = {{ui_->Adresse1, &c.Adresse1},
                                                                 {ui_->Adresse2, &c.Adresse2},
                                                                 {ui_->Etat, &c.Etat},
                                                                 {ui_->CP, &c.CP},
                                                                 {ui_->Ville, &c.Ville},
                                                                 {ui_->Pays, &c.Pays},
                                                                 {ui_->Telephone, &c.Telephone},
                                                                 {ui_->EMail, &c.EMail},
                                                                 {ui_->URL, &c.URL}};
    for (const auto& [champ, texte] : adresse) {
        champ->setText(VersQString(*texte));
        champ->setCursorPosition(0);
    }
    ui_->CadreParents->setTitle(VersQString(c.LegendeParents));
    ui_->Pere->setText(VersQString(c.Pere));
    ui_->Pere->setToolTip(VersQString(c.BullePere));
    ui_->Mere->setText(VersQString(c.Mere));
    ui_->Mere->setToolTip(VersQString(c.BulleMere));
    ui_->Pere->setEnabled(c.NumParents > 0);
    ui_->Mere->setEnabled(c.NumParents > 0);
    // Un nom ou un métier plus long que sa case en montre le début, pas la fin.
    for (QComboBox* champ : {ui_->Nom, ui_->Prenoms, ui_->Metier}) champ->lineEdit()->setCursorPosition(0);
    for (QLineEdit* champ : {ui_->Pere, ui_->Mere}) champ->setCursorPosition(0);
    PoserRangees(*ui_->Union, c.Unions);
    PoserEnfants();
    PoserDivers();
    ActiverBoutonsLiens();
    ui_->DefilV->verticalScrollBar()->setValue(0);
}

void Fiche::PoserEnfants() {
    ui_->LabelEnfants->setText(VersQString(contenu_.LabelEnfants));
    PoserRangees(*ui_->Enfant, contenu_.Enfants);
    ActiverBoutonsLiens();
}

// Une palette plutôt qu'une feuille de style : la police du zoom reste celle des autres contrôles.
void Fiche::ColorerSexe() {
    const std::pair<QRadioButton*, const char*> boutons[] = {{ui_->Sexe1, kFondMasculin},
                                                             {ui_->Sexe2, kFondFeminin}};
    for (const auto& [bouton, couleur] : boutons) {
        QPalette p = ui_->CadrePerso->palette();
        if (bouton->isChecked()) p.setColor(bouton->backgroundRole(), QColor(couleur));
        bouton->setPalette(p);
    }
}

void Fiche::AllerA(std::int32_t numero, bool selectionner) {
    ui_->NumPerso->setText(QString::number(numero));
    if (selectionner) ui_->NumPerso->selectAll();
}

bool Fiche::ToucheNumPerso(QKeyEvent* k) {
    const QString t = k->text();
    if (t.size() != 1 || k->key() == Qt::Key_Backspace || k->key() == Qt::Key_Return ||
        k->key() == Qt::Key_Enter || k->key() == Qt::Key_Tab || k->key() == Qt::Key_Escape ||
        k->key() == Qt::Key_Delete)
        return false;
    const QChar c = t.front();
    // Chiffres et raccourcis (copier, coller) passent ; les autres caractères sont des commandes.
    if (c.isDigit() || (k->modifiers() & Qt::ControlModifier)) return false;
    if (!ouvert_) return true;
    if (c == ' ') {
        NouvelleFiche();
        return true;
    }
    const std::int32_t actuel =
        static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    if (const auto vers = arbolix::ToucheNumPerso(base_, actuel, DepuisQString(t).front()))
        AllerA(*vers, true);
    return true;  // toute autre touche est avalée
}

// Une personne neuve, qui reprend nom, prénoms et sexe de la personne choisie dans la liste ouverte.
void Fiche::NouvelleFiche() {
    if (!ouvert_) return;
    EnregistrerFiche();
    std::int32_t modele = 0;
    if (personne_->isVisible()) {
        const int r = personne_->RangeeChoisie();
        const LectureQueue q =
            r > 0 ? LireQueue(personne_->Liste().Rangees[static_cast<std::size_t>(r)].texte) : LectureQueue{};
        if (q.genre == 'P') modele = q.numero;
    }
    AllerA(NouvellePersonne(base_, true, gedcom_.OptRenum, modele), false);
    ActualiserTitre();
    FocusChoisi(*ui_->Nom);
}

void Fiche::CliquerUnion(int rangee) {
    if (rangee < 0 || static_cast<std::size_t>(rangee) >= contenu_.Unions.size()) return;
    const std::string& t = contenu_.Unions[static_cast<std::size_t>(rangee)].texte;
    CalculerEnfants(base_, Contexte(), LireQueue(t).numero, contenu_);
    PoserEnfants();
}

void Fiche::DoubleCliquerUnion(int rangee) {
    if (rangee < 0 || static_cast<std::size_t>(rangee) >= contenu_.Unions.size()) return;
    const std::int32_t conjoint = ConjointDeRangee(contenu_.Unions[static_cast<std::size_t>(rangee)].texte);
    if (PersonneExiste(base_, conjoint)) {
        AllerA(conjoint, true);
        return;
    }
    // Union sans conjoint : la fiche qui manque peut être créée.
    EnregistrerFiche();
    const std::int32_t f = LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
    Edition e = Editer();
    const std::int32_t nouveau = AjouterConjointManquant(e, base_.NumCourant, f);
    if (nouveau <= 0) return;
    ApresLien(nouveau);
    FocusChoisi(*ui_->Nom);
}

void Fiche::DoubleCliquerListeNumero(QListWidget* liste, int rangee) {
    if (rangee < 0) return;
    const std::int32_t n = LireQueue(DepuisQString(liste->item(rangee)->text())).numero;
    if (n > 0) AllerA(n, true);
}

bool Fiche::eventFilter(QObject* objet, QEvent* e) {
    if (FiltrerSaisie(objet, e)) return true;
    if (objet == ui_->NumPerso && e->type() == QEvent::KeyPress)
        return ToucheNumPerso(static_cast<QKeyEvent*>(e));
    if (e->type() == QEvent::MouseButtonDblClick) {
        if (objet == ui_->Pere && contenu_.NumPere > 0) AllerA(contenu_.NumPere, true);
        if (objet == ui_->Mere && contenu_.NumMere > 0) AllerA(contenu_.NumMere, true);
    }
    return QMainWindow::eventFilter(objet, e);
}

void Fiche::resizeEvent(QResizeEvent* e) {
    QMainWindow::resizeEvent(e);
    // Les résumés d'évènements se recoupent à la nouvelle largeur des étiquettes.
    if (!ouvert_) return;
    const ContexteFiche c = Contexte();
    const Perso& p = std::as_const(base_.Persos)[contenu_.Numero];
    const std::pair<QLabel*, const Acte*> actes[] = {{ui_->Naissance, &p.Naissance},
                                                     {ui_->Bapteme, &p.Bapteme},
                                                     {ui_->Deces, &p.Deces},
                                                     {ui_->Sepulture, &p.Sepulture}};
    for (const auto& [label, acte] : actes)
        label->setText(VersQString(LigneActe(base_, *acte, true, c.LargeurActe)));
}

}  // namespace arbolix
