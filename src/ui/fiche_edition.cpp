// La fiche, côté saisie : champs modifiables et leur aide de frappe, enregistrement de
// la fiche, liens vers les parents, les conjoints et les enfants. Les règles sont dans
// le noyau (card/enregistrer_fiche, card/edition_liens) ; ici on ne fait que les appeler.
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include "card/candidats.h"
#include "card/edition_liens.h"
#include "card/lignes_personne.h"
#include "card/metiers.h"
#include "lists/rangees.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "ui/fiche.h"
#include "ui/listes_qt.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Le texte d'une case à plusieurs lignes, en lignes CR LF comme dans la base.
std::string TexteLignes(const QString& texte) {
    QString t = texte;
    return DepuisQString(t.replace('\n', "\r\n"));
}

}  // namespace

void Fiche::BrancherSaisie() {
    // Toute frappe lève FicheModifiee ; le remplissage par AfficherFiche ne compte pas (Chargement).
    const auto modifier = [this] { Modifier(); };
    for (QComboBox* c : {ui_->Nom, ui_->Prenoms, ui_->Metier}) {
        c->setInsertPolicy(QComboBox::NoInsert);
        connect(c, &QComboBox::editTextChanged, this, modifier);
    }
    for (QLineEdit* l : {ui_->Ref, ui_->Adresse1, ui_->Adresse2, ui_->Etat, ui_->CP, ui_->Ville, ui_->Pays,
                         ui_->Telephone, ui_->EMail, ui_->URL})
        connect(l, &QLineEdit::textChanged, this, modifier);
    connect(ui_->Notes, &QPlainTextEdit::textChanged, this, modifier);
    for (QCheckBox* c : {ui_->Sel, ui_->IntRech1, ui_->IntRech2})
        connect(c, &QCheckBox::toggled, this, modifier);
    for (QRadioButton* b : {ui_->Sexe1, ui_->Sexe2})
        connect(b, &QRadioButton::clicked, this, [this] {
            ColorerSexe();
            Modifier();
            FocusChoisi(*ui_->Prenoms);
        });
    // Une liste déroulante renvoie ses touches à sa ligne sans passer par les filtres : on
    // surveille les deux, selon que le focus est sur l'une ou sur l'autre.
    const std::pair<QWidget*, ChampSaisi> champs[] = {
        {ui_->Nom, ChampSaisi::Nom},       {ui_->Prenoms, ChampSaisi::Prenoms},
        {ui_->Metier, ChampSaisi::Metier}, {ui_->Etat, ChampSaisi::Etat},
        {ui_->CP, ChampSaisi::CP},         {ui_->Ville, ChampSaisi::Ville},
        {ui_->Pays, ChampSaisi::Pays},     {ui_->Telephone, ChampSaisi::Telephone},
        {ui_->EMail, ChampSaisi::EMail},   {ui_->URL, ChampSaisi::URL}};
    for (const auto& [w, champ] : champs) {
        auto* combo = qobject_cast<QComboBox*>(w);
        QLineEdit* ligne = combo ? combo->lineEdit() : static_cast<QLineEdit*>(w);
        champsSaisis_.push_back({w, ligne, champ});
        w->installEventFilter(this);
        if (combo) {
            champsSaisis_.push_back({ligne, ligne, champ});
            ligne->installEventFilter(this);
        }
    }
    // En quittant les prénoms, la casse est refaite et un surnom « dit » reste en minuscules.
    connect(ui_->Prenoms->lineEdit(), &QLineEdit::editingFinished, this, [this] {
        const std::string avant = DepuisQString(ui_->Prenoms->currentText());
        const std::string apres = PrenomsQuittes(avant, options_.ModifCasse);
        if (apres != avant) ui_->Prenoms->setEditText(VersQString(apres));
    });
    connect(ui_->BoutonAjouterParents, &QPushButton::clicked, this, &Fiche::BoutonAjouterParents);
    connect(ui_->BoutonEnleverParents, &QPushButton::clicked, this, &Fiche::BoutonEnleverParents);
    connect(ui_->AjouterUnion, &QPushButton::clicked, this, &Fiche::AjouterUnion);
    connect(ui_->EnleverUnion, &QPushButton::clicked, this, &Fiche::EnleverUnion);
    connect(ui_->AjouterEnfant, &QPushButton::clicked, this, &Fiche::AjouterEnfant);
    connect(ui_->EnleverEnfant, &QPushButton::clicked, this, &Fiche::EnleverEnfant);
    connect(ui_->BoutonAjouterPerso, &QToolButton::clicked, this, &Fiche::NouvelleFiche);
    connect(ui_->BountonEMail, &QToolButton::clicked, this, [this] {
        if (!ui_->EMail->text().isEmpty())
            dialogue_->OuvrirDansProgramme("mailto:" + DepuisQString(ui_->EMail->text()));
    });
    connect(ui_->BountonURL, &QToolButton::clicked, this, [this] {
        if (!ui_->URL->text().isEmpty()) dialogue_->OuvrirDansProgramme(DepuisQString(ui_->URL->text()));
    });
    connect(ui_->Enfant, &QListWidget::currentRowChanged, this, [this] { ActiverBoutonsLiens(); });
    connect(ui_->Union, &QListWidget::currentRowChanged, this, [this] { ActiverBoutonsLiens(); });
}

void Fiche::Modifier() {
    if (!ouvert_ || base_.Chargement != kFaux || base_.NumCourant <= 0) return;
    // Ctrl+S enregistre aussi une fiche qu'on vient de taper : la commande s'allume dès la frappe.
    if (base_.FicheModifiee == kFaux) {
        base_.FicheModifiee = kVrai;
        ActualiserEnregistrer();
    }
}

// Entrée parcourt la fiche comme Tab (la note la prend pour elle).
void Fiche::keyPressEvent(QKeyEvent* e) {
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter) {
        focusNextChild();
        return;
    }
    QMainWindow::keyPressEvent(e);
}

bool Fiche::FiltrerSaisie(QObject* objet, QEvent* e) {
    if (e->type() != QEvent::KeyPress) return false;
    auto* k = static_cast<QKeyEvent*>(e);
    for (const ChampFrappe& c : champsSaisis_)
        if (c.objet == objet) return ToucheChamp(c, k);
    return false;
}

bool Fiche::ToucheChamp(const ChampFrappe& c, QKeyEvent* k) {
    if (retape_ || (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
        return false;
    const std::string touche = DepuisQString(k->text());
    if (touche.size() != 1 || static_cast<unsigned char>(touche[0]) < 32) return false;
    // La touche remplace la sélection : c'est ce qui la précède qui compte.
    const int position = c.ligne->hasSelectedText() ? c.ligne->selectionStart() : c.ligne->cursorPosition();
    const std::string avant = DepuisQString(c.ligne->text().left(position));
    const std::optional<char> r = ToucheSaisie(c.champ, avant, touche[0], options_.ModifCasse);
    if (!r) return true;  // touche refusée
    if (*r == touche[0]) return false;
    // La touche corrigée repasse par le contrôle, pour que la complétion la voie comme une frappe.
    QKeyEvent corrigee(k->type(), k->key(), k->modifiers(), VersQString(std::string(1, *r)),
                       k->isAutoRepeat(), k->count());
    retape_ = true;
    QCoreApplication::sendEvent(c.objet, &corrigee);
    retape_ = false;
    return true;
}

SaisieFiche Fiche::Saisie() const {
    SaisieFiche s;
    s.Sel = ui_->Sel->isChecked();
    s.Nom = DepuisQString(ui_->Nom->currentText());
    s.Prenoms = DepuisQString(ui_->Prenoms->currentText());
    s.Sexe = ui_->Sexe1->isChecked() ? 'M' : ui_->Sexe2->isChecked() ? 'F' : ' ';
    s.IntRechAscendance = ui_->IntRech1->isChecked();
    s.IntRechDescendance = ui_->IntRech2->isChecked();
    s.Metier = DepuisQString(ui_->Metier->currentText());
    s.Ref = DepuisQString(ui_->Ref->text());
    s.Notes = TexteLignes(ui_->Notes->toPlainText());
    const std::pair<std::string SaisieFiche::*, QLineEdit*> adresse[] = {
        {&SaisieFiche::Adresse1, ui_->Adresse1},
        {&SaisieFiche::Adresse2, ui_->Adresse2},
        {&SaisieFiche::Etat, ui_->Etat},
        {&SaisieFiche::CP, ui_->CP},
        {&SaisieFiche::Ville, ui_->Ville},
        {&SaisieFiche::Pays, ui_->Pays},
        {&SaisieFiche::Telephone, ui_->Telephone},
        {&SaisieFiche::EMail, ui_->EMail},
        {&SaisieFiche::URL, ui_->URL}};
    for (const auto& [champ, ligne] : adresse) s.*champ = DepuisQString(ligne->text());
    return s;
}

void Fiche::EnregistrerFiche() {
    if (!ouvert_ || base_.FicheModifiee == kFaux) return;
    const SaisieFiche s = Saisie();
    if (!arbolix::EnregistrerFiche(base_, s, *dialogue_, Maintenant())) return;
    AjouterCombo(*ui_->Nom, s.Nom);
    AjouterCombo(*ui_->Prenoms, s.Prenoms);
    for (const auto& m : PartiesMetier(s.Metier)) AjouterCombo(*ui_->Metier, m);
    ActualiserTitre();
}

void Fiche::RemplirListesSaisie() {
    RemplirCombo(*ui_->Nom, base_.Listes.Nom, {});
    RemplirCombo(*ui_->Prenoms, base_.Listes.Prenoms, {});
    RemplirCombo(*ui_->Metier, base_.Listes.Metier, {});
}

void Fiche::ActiverBoutonsLiens() {
    const bool personne = ouvert_ && contenu_.Numero > 0;
    ui_->BoutonAjouterParents->setEnabled(personne && contenu_.NumParents == 0);
    ui_->BoutonEnleverParents->setEnabled(personne && contenu_.NumParents > 0);
    ui_->AjouterUnion->setEnabled(personne);
    ui_->EnleverUnion->setEnabled(personne && ui_->Union->currentRow() >= 0);
    ui_->AjouterEnfant->setEnabled(personne);
    ui_->EnleverEnfant->setEnabled(personne && ui_->Enfant->currentRow() >= 0);
}

Edition Fiche::Editer() {
    return Edition{base_, options_, *dialogue_, Maintenant(), gedcom_.OptRenum, etatSel_.Cochee != 0};
}

// Après une commande de lien : la fiche se refait (le noyau a marqué le fichier s'il a changé).
void Fiche::ApresLien(std::int32_t allerA) {
    if (allerA > 0 && allerA != base_.NumCourant)
        AllerA(allerA, true);
    else
        AfficherFiche();
    ActualiserTitre();
}

// Toute commande de lien commence par enregistrer la fiche ; elle porte sur la personne affichée (0 :
// aucune).
std::int32_t Fiche::PersonneDeLaCommande() {
    EnregistrerFiche();
    const std::int32_t p = base_.NumCourant;
    return ouvert_ && PersonneExiste(base_, p) ? p : 0;
}

std::optional<std::int32_t> Fiche::ChoisirCandidat(const ListeCandidats& liste) {
    const std::optional<std::string> rangee = choisir_(liste);
    if (!rangee) return std::nullopt;
    return NumeroDeLigne(*rangee);
}

void Fiche::BoutonAjouterParents() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    const ListeCandidats liste = CandidatsParents(base_, options_, p);
    // Sans candidat, la première ligne est prise sans montrer la liste.
    std::int32_t f = 0;
    if (!liste.lignes.empty()) {
        const auto choisie = ChoisirCandidat(liste);
        if (!choisie) return;
        f = *choisie;
    }
    Edition e = Editer();
    ChoisirParents(e, p, f);
    ApresLien(0);
}

void Fiche::BoutonEnleverParents() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    Edition e = Editer();
    arbolix::EnleverParents(e, p);
    ApresLien(0);
}

void Fiche::AjouterUnion() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    Edition e = Editer();
    if (!PeutAjouterUnion(e, p)) return;
    const auto ligne = [this](std::int32_t n) { return LigneCourte(base_, options_, n); };
    const ListeCandidats liste =
        CandidatsConjoint(base_, options_, p, NouvellePersonne(base_, false, gedcom_.OptRenum), ligne);
    const auto choisi = ChoisirCandidat(liste);
    if (!choisi) return;
    ChoisirConjoint(e, p, *choisi);
    ApresLien(0);
}

void Fiche::EnleverUnion() {
    EnregistrerFiche();
    const int rangee = ui_->Union->currentRow();
    const std::int32_t p = base_.NumCourant;
    if (!ouvert_ || rangee < 0 || static_cast<std::size_t>(rangee) >= contenu_.Unions.size()) return;
    const std::int32_t f = LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
    if (f <= 0) return;
    Edition e = Editer();
    arbolix::EnleverUnion(e, p, f);
    ApresLien(0);
}

void Fiche::AjouterEnfant() {
    const std::int32_t p = PersonneDeLaCommande();
    if (p <= 0) return;
    Edition e = Editer();
    const std::int32_t f = FamillePourEnfant(e, p, FamilleChoisie());
    if (f <= 0) {
        // Une union monoparentale a pu être créée sans place pour l'enfant : la fiche la montre.
        ApresLien(0);
        return;
    }
    const auto ligne = [this](std::int32_t n) { return LigneCourte(base_, options_, n); };
    const ListeCandidats liste =
        CandidatsEnfant(base_, options_, p, f, NouvellePersonne(base_, false, gedcom_.OptRenum), ligne);
    const auto choisi = ChoisirCandidat(liste);
    if (!choisi) {
        ApresLien(0);
        return;
    }
    const bool nouveau = !PersonneExiste(base_, *choisi);
    const std::int32_t enfant = ChoisirEnfant(e, f, *choisi);
    // Une fiche neuve s'ouvre pour être remplie ; un enfant déjà connu reste dans la liste.
    if (nouveau && enfant > 0) {
        ApresLien(enfant);
        FocusChoisi(*ui_->Prenoms);
        return;
    }
    ApresLien(0);
    MontrerEnfantsDe(f);
}

void Fiche::EnleverEnfant() {
    EnregistrerFiche();
    const int rangee = ui_->Enfant->currentRow();
    if (!ouvert_ || rangee < 0 || static_cast<std::size_t>(rangee) >= contenu_.Enfants.size()) return;
    const std::int32_t c = LireQueue(contenu_.Enfants[static_cast<std::size_t>(rangee)].texte).numero;
    if (c <= 0) return;
    const std::int32_t f = contenu_.FamilleEnfants;
    Edition e = Editer();
    arbolix::EnleverEnfant(e, c);
    ApresLien(0);
    MontrerEnfantsDe(f);
}

// La famille où ranger un enfant : l'union choisie, sinon celle dont les enfants sont
// montrés, sinon la première union. Une union sans enfant n'est donc jamais doublée
// d'une union monoparentale.
std::int32_t Fiche::FamilleChoisie() const {
    const int rangee = ui_->Union->currentRow();
    if (rangee >= 0 && static_cast<std::size_t>(rangee) < contenu_.Unions.size())
        return LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
    if (contenu_.FamilleEnfants > 0) return contenu_.FamilleEnfants;
    return contenu_.Unions.empty() ? 0 : LireQueue(contenu_.Unions.front().texte).numero;
}

// Les enfants montrés sont ceux de la famille f, et son union reste choisie.
void Fiche::MontrerEnfantsDe(std::int32_t f) {
    for (std::size_t i = 0; i < contenu_.Unions.size(); ++i)
        if (LireQueue(contenu_.Unions[i].texte).numero == f) {
            ui_->Union->setCurrentRow(static_cast<int>(i));
            CliquerUnion(static_cast<int>(i));
        }
}

}  // namespace arbolix
