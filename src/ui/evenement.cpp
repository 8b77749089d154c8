#include "ui/evenement.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>

#include "card/acte_courant.h"
#include "card/lignes_personne.h"
#include "platform/qt_texte.h"
#include "store/aides_texte.h"
#include "store/chaines.h"
#include "ui/editeur.h"
#include "ui/filtre_touches.h"
#include "ui/listes_qt.h"
#include "ui_evenement.h"
#include "verify/coherence.h"

namespace arbolix {

namespace {

// Les notes gardent CR LF dans la base ; la case de texte veut des LF.
QString VersCase(std::string_view texte) {
    return VersQString(texte).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
std::string DepuisCase(const QString& texte) {
    QString t = texte;
    return DepuisQString(t.replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
}

// Une ligne d'objet média : son premier titre, à défaut son premier fichier, et son numéro.
QString LigneMedia(const Base& base, std::int32_t m) {
    const ObjetMedia& o = base.Medias[m];
    const Texte& texte = o.Titres(1).empty() ? o.Fichiers(1) : o.Titres(1);
    return VersQString(texte.str() + " M" + Zeros(m, 6));
}

constexpr int kRoleNumero = Qt::UserRole;

}  // namespace

FenetreEvenement::FenetreEvenement(Base& base, const Options& options, Dialogue& dialogue,
                                   ServicesEvenement services, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::Evenement>()),
      base_(base),
      options_(options),
      dialogue_(dialogue),
      services_(std::move(services)) {
    ui_->setupUi(this);
    connect(ui_->BoutonOK, &QPushButton::clicked, this, &FenetreEvenement::BoutonOK);
    connect(ui_->BoutonBaseWeb, &QPushButton::clicked, this, [this] {
        if (services_.baseWeb)
            services_.baseWeb(DepuisQString(ui_->Lieu->currentText()), DepuisQString(ui_->Date->text()),
                              ui_->BoutonBaseWeb->text());
    });
    connect(ui_->BoutonAnnuler, &QPushButton::clicked, this, &QDialog::reject);
    connect(ui_->BoutonAjouterTemoin, &QPushButton::clicked, this, &FenetreEvenement::BoutonAjouterTemoin);
    connect(ui_->BoutonModifTemoin, &QPushButton::clicked, this, &FenetreEvenement::BoutonModifTemoin);
    connect(ui_->BoutonEnleverTemoin, &QPushButton::clicked, this, &FenetreEvenement::BoutonEnleverTemoin);
    connect(ui_->Temoins, &QListWidget::itemDoubleClicked, this, &FenetreEvenement::AllerAuTemoin);
    connect(ui_->Date, &QLineEdit::textEdited, this, &FenetreEvenement::DateModifiee);
    connect(ui_->Date, &QLineEdit::editingFinished, this, &FenetreEvenement::QuitterDate);
    connect(ui_->Age, &QLineEdit::editingFinished, this, &FenetreEvenement::QuitterAge);
    // Le bouton de recherche sur le web et la conversion républicaine ne sont pas encore là : rien ne les montre.
    // Note et source : un blanc dans le champ vide choisit une fiche externe, Entrée ouvre celle du lien.
    ui_->Notes->installEventFilter(new FiltreTouches(this, [this](QKeyEvent* k) { return ToucheLien('N', k); }));
    for (QObject* o : {static_cast<QObject*>(ui_->Source), static_cast<QObject*>(ui_->Source->lineEdit())})
        o->installEventFilter(new FiltreTouches(this, [this](QKeyEvent* k) { return ToucheLien('S', k); }));
    ui_->Notes->viewport()->installEventFilter(this);
    // Le lieu tapé suit l'option de casse comme la ville de la fiche (capitale à chaque mot).
    // La liste et sa ligne sont surveillées toutes deux : la liste passe ses touches à sa ligne sans filtre.
    QLineEdit* lieu = ui_->Lieu->lineEdit();
    auto* filtre = new FiltreTouches(this, [this, lieu](QKeyEvent* k) {
        static bool retape = false;
        if (retape || (k->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)))
            return false;
        const std::string touche = DepuisQString(k->text());
        if (touche.size() != 1 || static_cast<unsigned char>(touche[0]) < 32) return false;
        const int position = lieu->hasSelectedText() ? lieu->selectionStart() : lieu->cursorPosition();
        const char r =
            MajusculesTouche(DepuisQString(lieu->text().left(position)), 3, touche[0], options_.ModifCasse);
        if (r == touche[0]) return false;
        QKeyEvent corrigee(k->type(), k->key(), k->modifiers(), VersQString(std::string(1, r)));
        retape = true;
        QCoreApplication::sendEvent(lieu, &corrigee);
        retape = false;
        return true;
    });
    lieu->installEventFilter(filtre);
    ui_->Lieu->installEventFilter(filtre);
}

bool FenetreEvenement::eventFilter(QObject* objet, QEvent* e) {
    if (objet == ui_->Notes->viewport() && e->type() == QEvent::MouseButtonDblClick &&
        LienExterne(TexteLien('N'), 'N') > 0) {
        OuvrirLien('N');
        return true;
    }
    return QDialog::eventFilter(objet, e);
}

std::string FenetreEvenement::TexteLien(char genre) const {
    return genre == 'S' ? DepuisQString(ui_->Source->currentText()) : DepuisCase(ui_->Notes->toPlainText());
}

bool FenetreEvenement::ToucheLien(char genre, QKeyEvent* k) {
    const std::string texte = TexteLien(genre);
    const bool entree = k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter;
    if (entree && LienExterne(texte, genre) > 0) {
        OuvrirLien(genre);
        return true;
    }
    if (k->key() != Qt::Key_Space || !texte.empty() || !services_.choisir) return false;
    Editeur editeur(this);
    const auto lien = ChoisirLienExterne(base_, genre, services_.choisir, editeur, dialogue_);
    if (!lien) return true;
    if (genre == 'S')
        ui_->Source->setEditText(VersQString(*lien));
    else
        ui_->Notes->setPlainText(VersQString(*lien));
    return true;
}

// La note ou source du lien, dans l'éditeur ; le lien lui-même ne change pas.
void FenetreEvenement::OuvrirLien(char genre) {
    const std::int32_t n = LienExterne(TexteLien(genre), genre);
    if (n <= 0) return;
    Editeur editeur(this);
    if (editeur.OuvrirNote(base_, n, genre == 'S' ? 2 : 1, true, dialogue_)) editeur.exec();
}

FenetreEvenement::~FenetreEvenement() = default;

bool FenetreEvenement::OuvrirActe(char genre, std::int32_t p, std::int32_t f, const std::string& titre) {
    const Acte* acte = ActeDuGenre(base_, genre, p, f);
    if (!acte) return false;
    base_.Chargement = kVrai;
    genre_ = genre;
    personne_ = p;
    famille_ = f;
    personneDemandee_ = 0;
    base_.ActeCourant = *acte;
    const Acte& a = base_.ActeCourant;
    setWindowTitle(VersQString(titre));
    ui_->LabelDate->setText(VersQString(titre));
    ui_->Date->setText(VersQString(a.Date.vue()));
    dateTapee_ = dateSaisie_ = false;
    RemplirCombo(*ui_->Lieu, base_.Listes.Lieu, a.Lieu.vue());
    ui_->Notes->setPlainText(VersCase(a.Notes.vue()));
    RemplirCombo(*ui_->Source, base_.Listes.Source, a.Source.vue());
    ui_->Notes->setToolTip(Comme(a.Notes.vue(), "@*@") ? QStringLiteral("Double-clic ou Entrée pour aller à la note externe.")
                                                       : QStringLiteral("Touche Espace pour ajouter une note externe."));
    ui_->Source->setToolTip(Comme(a.Source.vue(), "@*@")
                                ? QStringLiteral("Clic puis Entrée pour aller à la source externe.")
                                : QStringLiteral("Touche Espace pour ajouter une source externe."));
    ui_->Temoins->clear();
    for (const auto& t : LireTemoins(a))
        AjouterLigneTemoin(LigneTemoin(services_.ligneCourte ? services_.ligneCourte(t.numero) : "", t.role, t.numero));
    // Pour un baptême le cadre montre les parrains.
    ui_->CadreTemoins->setTitle(genre == 'B' ? QStringLiteral("&Parrain et marraine") : QStringLiteral("&Témoin"));
    ui_->Medias->clear();
    for (const auto& [rang, m] : a.Liens().Medias)
        if (m > 0 && m <= base_.Medias.Haut()) ui_->Medias->addItem(LigneMedia(base_, m));
    ui_->LabelMedias->setVisible(ui_->Medias->count() > 0);
    ui_->Medias->setVisible(ui_->Medias->count() > 0);
    const Acte& naissance = base_.Persos[p].Naissance;
    const bool ageVisible = genre != 'N' && naissance.Annee != 0;
    ui_->Age->setVisible(ageVisible);
    ui_->LabelAge->setVisible(ageVisible);
    ui_->Age->setEnabled(AgeModifiable(genre));
    ui_->Age->setText(VersQString(AgeAffiche(genre, naissance, a)));
    ui_->Date->setFocus();
    base_.Chargement = kFaux;
    return true;
}

ContexteSaisie FenetreEvenement::Contexte() const {
    ContexteSaisie ctx;
    ctx.genre = genre_;
    ctx.naissance = &std::as_const(base_.Persos)[personne_].Naissance;
    ctx.numCourant = personne_;
    ctx.nbFamis = base_.NbFamis;
    ctx.convCalRep = options_.OptConvCalRep;
    ctx.ageMaxiDeces = options_.AgeMaxiDeces;
    return ctx;
}

ChampsDate FenetreEvenement::LireChamps() const {
    return {DepuisQString(ui_->Date->text()), DepuisCase(ui_->Notes->toPlainText()), DepuisQString(ui_->Age->text()),
            DepuisQString(ui_->LabelDate->text())};
}

void FenetreEvenement::MontrerChamps(const ChampsDate& champs) {
    ui_->Date->setText(VersQString(champs.Date));
    ui_->Notes->setPlainText(VersCase(champs.Notes));
    ui_->Age->setText(VersQString(champs.Age));
    ui_->LabelDate->setText(VersQString(champs.LabelDate));
}

void FenetreEvenement::DateModifiee(const QString& texte) {
    if (base_.Chargement) return;
    dateTapee_ = dateSaisie_ = true;
    // Huit chiffres tapés : la date est complète, on passe au lieu.
    if (ui_->Lieu->currentText().isEmpty() && DateSaisieComplete(DepuisQString(texte)) && isVisible())
        ui_->Lieu->setFocus();
}

void FenetreEvenement::QuitterDate() {
    if (base_.Chargement || !dateTapee_ || ui_->Date->text().isEmpty()) return;
    ChampsDate champs = LireChamps();
    arbolix::QuitterDate(champs, base_.ActeCourant, Contexte());
    MontrerChamps(champs);
    dateTapee_ = false;
}

void FenetreEvenement::QuitterAge() {
    if (base_.Chargement || ui_->Age->text().isEmpty()) return;
    ChampsDate champs = LireChamps();
    const bool avant = champs.Date.empty();
    arbolix::QuitterAge(champs, Contexte(), ui_->Age->isEnabled());
    if (avant && !champs.Date.empty()) {
        MontrerChamps(champs);
        dateTapee_ = dateSaisie_ = true;
    }
}

void FenetreEvenement::AjouterLigneTemoin(const std::string& ligne) {
    auto* item = new QListWidgetItem(VersQString(ligne), ui_->Temoins);
    item->setData(kRoleNumero, TemoinDeLigne(ligne).numero);
}

void FenetreEvenement::BoutonAjouterTemoin() {
    if (ui_->Date->text().isEmpty()) {
        dialogue_.Message("Impossible d'ajouter un t\xE9moin",
                          "L'acte doit avoir une date et un lieu pour ajouter des t\xE9moins.", Icone::Attention);
        return;
    }
    // 21 emplacements dont le 0 : le vingtième témoin est le dernier, sans message.
    if (ui_->Temoins->count() >= kMaxTemoins || !services_.choisir) return;
    const auto liste =
        CandidatsTemoin(base_, options_, DepuisQString(ui_->Date->text()), services_.ligneCourte);
    const auto choix = services_.choisir(liste);
    if (!choix || NumeroDeLigne(*choix) <= 0) return;
    AjouterLigneTemoin(LigneTemoinChoisi(*choix));
    ui_->Temoins->setCurrentRow(ui_->Temoins->count() - 1);
    BoutonModifTemoin();
}

void FenetreEvenement::BoutonModifTemoin() {
    QListWidgetItem* item = ui_->Temoins->currentItem();
    if (!item) return;
    const std::string ligne = DepuisQString(item->text());
    const Temoin t = TemoinDeLigne(ligne);
    const auto role = dialogue_.Saisie(DepuisQString(windowTitle()),
                                       "Entrez l'intitul\xE9 de la relation entre le t\xE9moin et le sujet de l'acte :",
                                       t.role);
    if (!role || role->empty()) return;
    // La personne est ce qui précède " : " ; seul le rôle change.
    const std::string personne = ligne.substr(0, ligne.find(" : "));
    item->setText(VersQString(LigneTemoin(personne, *role, t.numero)));
}

void FenetreEvenement::BoutonEnleverTemoin() {
    delete ui_->Temoins->currentItem();
}

void FenetreEvenement::AllerAuTemoin() {
    QListWidgetItem* item = ui_->Temoins->currentItem();
    if (!item) return;
    personneDemandee_ = item->data(kRoleNumero).toInt();
    reject();
}

void FenetreEvenement::BoutonOK() {
    ChampsDate champs = LireChamps();
    Acte& a = base_.ActeCourant;
    const std::string motif =
        ValiderDate(champs, a, Contexte(), dateTapee_ && !champs.Date.empty(), dateSaisie_);
    MontrerChamps(champs);
    dateTapee_ = false;
    if (!motif.empty()) {
        // La fenêtre reste ouverte sur la date, pour la corriger.
        dialogue_.Message("Date non valide", motif, Icone::Attention);
        ui_->Date->setFocus();
        return;
    }
    a.Lieu = DepuisQString(ui_->Lieu->currentText());
    a.Notes = champs.Notes;
    a.Source = DepuisQString(ui_->Source->currentText());
    base_.Listes.Lieu.Ajouter(a.Lieu.vue());
    base_.Listes.Source.Ajouter(a.Source.vue());
    std::vector<Temoin> temoins;
    for (int i = 0; i < ui_->Temoins->count(); ++i) temoins.push_back(TemoinDeLigne(DepuisQString(ui_->Temoins->item(i)->text())));
    EcrireTemoins(a, temoins);
    const std::string plaintes = CoherenceActe(base_, options_, personne_, std::string(1, genre_), a.Date.vue());
    if (plaintes.size() > 2) {
        const Bouton b = dialogue_.Message("Date incoh\xE9rente", "La date entr\xE9" "e est incoh\xE9rente.\r\n" + plaintes,
                                           Icone::Stop, Boutons::AbandonnerReessayerIgnorer);
        // Abandonner ne garde rien : seule la copie de travail a changé.
        if (b == Bouton::Abandonner) {
            reject();
            return;
        }
        if (b == Bouton::Reessayer) return;
    }
    EnregistrerActe(base_, genre_, personne_, famille_, champs.Age, services_.maintenant ? services_.maintenant() : 0,
                    &dialogue_);
    accept();
}

void FenetreEvenement::keyPressEvent(QKeyEvent* evenement) {
    const bool entree = evenement->key() == Qt::Key_Return || evenement->key() == Qt::Key_Enter;
    if (!entree) {
        QDialog::keyPressEvent(evenement);
        return;
    }
    // Entrée vaut Tab, sauf sur OK et dans les notes.
    QWidget* actif = focusWidget();
    if (actif == ui_->BoutonOK)
        BoutonOK();
    else if (actif != ui_->Notes)
        focusNextChild();
}

}  // namespace arbolix
