#include "ui/fiche.h"

#include <QCloseEvent>
#include <QDateTime>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListWidget>
#include <QMimeData>
#include <QPixmap>
#include <QRadioButton>
#include <QScreen>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <filesystem>

#include "app/demarrage.h"
#include "app/reglages.h"
#include "card/acte_courant.h"
#include "card/fichiers_lies.h"
#include "card/navigation.h"
#include "dates/calendrier_gregorien.h"
#include "gedcom/enregistrement.h"
#include "gedcom/journal_lecture.h"
#include "lists/rangees.h"
#include "lists/selection.h"
#include "platform/cp1252.h"
#include "platform/ini.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "tools/import_medias.h"
#include "ui/choix_rangee.h"
#include "ui/editeur.h"
#include "ui/evenement.h"
#include "ui/gedcom.h"
#include "ui/inputmsgbox.h"
#include "ui/listes_qt.h"
#include "ui/options.h"
#include "ui/personne.h"
#include "ui/traduction.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Une icône de la barre : son numéro de commande, son infobulle, son image, sa commande
// et le menu dont elle suit l'état quand la règle dit « si ce menu est actif ».
struct IconeBarre {
    int index;
    const char* bulle;
    QStyle::StandardPixmap image;
    void (Fiche::*commande)();
    QAction* Ui::Fiche::*menu;
};

constexpr IconeBarre kIcones[] = {
    {0, "Configurer les options...", QStyle::SP_FileDialogDetailedView, &Fiche::MenuConfig, nullptr},
    {1,
     "Cr\xE9"
     "er un nouveau fichier...",
     QStyle::SP_FileIcon, &Fiche::MenuNouveau, nullptr},
    {2, "Ouvrir un fichier existant...", QStyle::SP_DialogOpenButton, &Fiche::MenuOuvrir, nullptr},
    {3, "Enregistrer le fichier", QStyle::SP_DialogSaveButton, &Fiche::MenuEnregistrer,
     &Ui::Fiche::MenuEnregistrer},
    {5, "Liste des personnes", QStyle::SP_FileDialogListView, &Fiche::MenuListePersos, nullptr},
    {6, "Liste des familles", QStyle::SP_DirHomeIcon, &Fiche::MenuListeFamis, &Ui::Fiche::MenuListeFamis},
    {7, "Liste des notes", QStyle::SP_FileDialogContentsView, &Fiche::MenuListeNotes, nullptr},
    {8,
     "Fiches modifi\xE9"
     "es",
     QStyle::SP_BrowserReload, &Fiche::MenuFichesRecentes, &Ui::Fiche::MenuFichesRecentes},
    {19, "Liste des fichiers", QStyle::SP_DirOpenIcon, &Fiche::MenuListeFichiers,
     &Ui::Fiche::MenuListeFichiers},
};

// Couleurs du bouton de sexe choisi (rouge-vert-bleu).
constexpr const char* kFondMasculin = "#88AAFF";
constexpr const char* kFondFeminin = "#FFBBBB";

// Largeur du cadre de la personne à 100 %, et ce qu'on retire à l'étiquette d'un évènement.
constexpr int kLargeurCadrePerso = 540;
constexpr int kMargeActe = 8;

// Un texte de la base vers une case à plusieurs lignes.
QString Lignes(std::string_view texte) {
    return VersQString(texte).replace("\r\n", "\n");
}

}  // namespace

Fiche::Fiche(QWidget* parent)
    : QMainWindow(parent), ui_(std::make_unique<Ui::Fiche>()), dialogueQt_(this), dialogue_(&dialogueQt_) {
    ui_->setupUi(this);
    gedcomForm_ = new Gedcom(this, dialogue_);
    gedcomForm_->FixerTitreParcourir("Choisissez un fichier Gedcom");
    editeur_ = new Editeur(this);
    personne_ = new Personne(base_, options_, this);
    invite_ = new InputMsgBox(this);
    inviter_ = [this](Invite& i) { return invite_->Demander(i); };
    choisir_ = [this](const ListeCandidats& l) { return personne_->ChoisirParmi(l); };
    largeurPerso_ = kLargeurCadrePerso;
    policeConception_ = font();
    CreerIcones();
    BrancherSaisie();
    connect(ui_->MenuNouveau, &QAction::triggered, this, &Fiche::MenuNouveau);
    connect(ui_->MenuOuvrir, &QAction::triggered, this, &Fiche::MenuOuvrir);
    connect(ui_->MenuFermer, &QAction::triggered, this, [this] { MenuFermer(); });
    connect(ui_->MenuQuitter, &QAction::triggered, this, &Fiche::MenuQuitter);
    connect(ui_->MenuConfig, &QAction::triggered, this, &Fiche::MenuConfig);
    connect(ui_->NumPerso, &QLineEdit::textChanged, this, &Fiche::AfficherFiche);
    ui_->NumPerso->installEventFilter(this);
    for (QWidget* w : {static_cast<QWidget*>(ui_->Pere), static_cast<QWidget*>(ui_->Mere)})
        w->installEventFilter(this);
    const std::pair<QAction*, void (Fiche::*)()> listes[] = {
        {ui_->MenuListePersos, &Fiche::MenuListePersos},
        {ui_->MenuListeFamis, &Fiche::MenuListeFamis},
        {ui_->MenuListeNotes, &Fiche::MenuListeNotes},
        {ui_->MenuListeSources, &Fiche::MenuListeSources},
        {ui_->MenuListeFichiers, &Fiche::MenuListeFichiers},
        {ui_->MenuFichesRecentes, &Fiche::MenuFichesRecentes}};
    for (const auto& [action, commande] : listes) connect(action, &QAction::triggered, this, commande);
    connect(personne_, &Personne::Reagir, this, &Fiche::ReagirListe);
    connect(ui_->Union, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* i) { CliquerUnion(ui_->Union->row(i)); });
    connect(ui_->Union, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* i) { DoubleCliquerUnion(ui_->Union->row(i)); });
    connect(ui_->Enfant, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* i) { DoubleCliquerListeNumero(ui_->Enfant, ui_->Enfant->row(i)); });
    BrancherDivers();
    BrancherVerifier();
    connect(ui_->MenuEnregistrer, &QAction::triggered, this, &Fiche::MenuEnregistrer);
    connect(ui_->MenuNotesFichier, &QAction::triggered, this, &Fiche::MenuNotesFichier);
    connect(ui_->MenuImportFichiers, &QAction::triggered, this, [this] { MenuImportFichiers({}); });
    const std::pair<QPushButton*, char> boutonsActes[] = {
        {ui_->BoutonNaissance, 'N'}, {ui_->BoutonBapteme, 'B'}, {ui_->BoutonDeces, 'D'},
        {ui_->BoutonSepulture, 'S'}, {ui_->ActeFami0, 'C'},     {ui_->ActeFami1, 'M'},
        {ui_->ActeFami2, 'X'}};
    for (const auto& [bouton, genre] : boutonsActes)
        connect(bouton, &QPushButton::clicked, this, [this, g = genre] { OuvrirEvenement(g); });
    connect(ui_->BarreMenu_0, &QMenu::aboutToShow, this, [this] {
        ActualiserEnregistrer();
        if (ouvert_)
            ui_->MenuSelInfo->setText(
                QString("%1 personnes et %2 familles").arg(base_.NbPersosReels).arg(base_.NbFamisReels));
    });
}

Fiche::~Fiche() = default;

void Fiche::CreerIcones() {
    for (const auto& i : kIcones) {
        auto* a = ui_->BarreIcones->addAction(style()->standardIcon(i.image), VersQString(i.bulle));
        a->setObjectName(QString("IcoCommande%1").arg(i.index));
        a->setToolTip(VersQString(i.bulle));
        if (!i.commande) continue;
        connect(a, &QAction::triggered, this, [this, i] {
            EnregistrerFiche();
            if (!i.menu || ((*ui_).*(i.menu))->isEnabled()) (this->*(i.commande))();
        });
    }
}

bool Fiche::FichierOuvert() const {
    return ouvert_;
}

void Fiche::ActualiserTitre() {
    const std::string fichier = ouvert_ ? Utf8VersCp1252(gedcom_.Fichier) : std::string();
    setWindowTitle(VersQString(TitreFiche(fichier, base_.FichierModifie != 0)));
    ActualiserEnregistrer();
}

// Enregistrer n'a de sens que pour un fichier ouvert et modifié.
void Fiche::ActualiserEnregistrer() {
    const bool actif = ouvert_ && base_.FichierModifie != 0;
    ui_->MenuEnregistrer->setEnabled(actif);
    if (auto* a = findChild<QAction*>("IcoCommande3")) a->setEnabled(actif);
}

void Fiche::MenuEnregistrer() {
    Enregistrer();
}

// La note du fichier lui-même, dans l'éditeur de notes.
void Fiche::MenuNotesFichier() {
    EnregistrerFiche();
    if (!ouvert_) return;
    if (editeur_->OuvrirNote(base_, -1, 1, false, *dialogue_)) {
        editeur_->exec();
        ActualiserTitre();
    }
}

// Des fichiers déposés (ou un dossier à choisir quand la liste est vide) deviennent objets médias ou
// personnes.
void Fiche::MenuImportFichiers(const std::vector<std::string>& deposes) {
    EnregistrerFiche();
    if (!ouvert_) return;
    ImportFichiers demande;
    demande.deposes = deposes;
    demande.dossierDepart = options_.Chemin[2];
    demande.derniereDate = derniereDateImport_;
    demande.reutiliserLibres = gedcom_.OptRenum;
    const ResultatImport r = arbolix::MenuImportFichiers(base_, demande, *dialogue_);
    derniereDateImport_ = r.date;
    if (r.crees > 0) base_.FichierModifie = kVrai;
    AfficherFiche();
    ActualiserTitre();
}

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
                               [] { return Maintenant(); }};
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

bool Fiche::Enregistrer() {
    EnregistrerFiche();
    if (!ouvert_) return false;
    // Toute la base est sélectionnée tant que les commandes de sélection n'existent pas.
    const ChoixEnregistrement choix = PreparerEnregistrement(base_, gedcom_, true, *dialogue_);
    bool enregistre = false;
    gedcomForm_->Preparer(ModeGedcom::Enregistrer, VersQString(messages_(409)), gedcom_, recents_,
                          [this, &choix, &enregistre](Gedcom& g) {
                              gedcom_ = g.Valeurs();
                              if (gedcom_.Defaut) {
                                  options_.FichierDefaut = gedcom_.Fichier;
                                  EcrireIni(ini_, "Chemins", "Fichier", gedcom_.Fichier);
                              }
                              ContexteEnregistrement ctx{base_, gedcom_,         options_, *dialogue_,
                                                         &g,    EnteteArbolix(), {}};
                              const ResultatEnregistrement r = EnregistrerGedcom(ctx, choix);
                              if (!r.Enregistre) {
                                  dialogue_->Message(DepuisQString(g.windowTitle()), r.Erreur, Icone::Stop);
                                  return false;
                              }
                              for (const auto& a : r.Avertissements)
                                  dialogue_->Message(DepuisQString(g.windowTitle()), a, Icone::Attention);
                              enregistre = true;
                              return true;
                          });
    gedcomForm_->exec();
    if (!enregistre) return false;
    RetenirFichier();
    ActualiserEnregistrer();
    // Le titre dit que le fichier vient d'être enregistré, sous son nom peut-être nouveau.
    if (base_.FichierModifie == 0)
        setWindowTitle(VersQString(TitreEnregistre(TitreFiche(Utf8VersCp1252(gedcom_.Fichier), true))));
    return true;
}

void Fiche::Vider(bool recharger) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    base_.Chargement = kVrai;  // vider les champs n'est pas une frappe
    ui_->MenuSelInfo->setText({});
    findChild<QAction*>("IcoCommande1")->setVisible(true);
    findChild<QAction*>("IcoCommande2")->setToolTip("Ouvrir un fichier existant...");
    for (int i = 3; i <= 20; ++i)
        if (auto* a = findChild<QAction*>(QString("IcoCommande%1").arg(i))) a->setEnabled(false);
    ui_->MenuEnregistrer->setEnabled(false);
    ui_->MenuFermer->setEnabled(false);
    ui_->MenuNotesFichier->setEnabled(false);
    ui_->MenuImportFichiers->setEnabled(false);
    ui_->BarreMenu_1->setEnabled(false);
    for (QAction* a : {ui_->MenuListePersos, ui_->MenuListeFamis, ui_->MenuListeNotes, ui_->MenuListeSources,
                       ui_->MenuListeFichiers, ui_->MenuFichesRecentes})
        a->setEnabled(false);
    personne_->hide();
    personne_->Liste().Rangees.clear();
    personne_->Rafraichir();
    ui_->NumPerso->blockSignals(true);
    ui_->NumPerso->setText("0");
    ui_->NumPerso->blockSignals(false);
    ui_->NumPerso->hide();
    ui_->Nom->clear();
    ui_->Prenoms->clear();
    ui_->Metier->clear();
    for (QWidget* w : {static_cast<QWidget*>(ui_->CadrePerso), static_cast<QWidget*>(ui_->CadreParents),
                       static_cast<QWidget*>(ui_->CadreUnions), static_cast<QWidget*>(ui_->CadreEnfants),
                       static_cast<QWidget*>(ui_->CadreDivers), static_cast<QWidget*>(ui_->Photo)})
        w->hide();
    base_.Chargement = kFaux;
    QApplication::restoreOverrideCursor();
    if (recharger) {
        arbolix::Vider(base_, true);
        ouvert_ = false;
        gedcom_.Fichier = options_.FichierDefaut;
    }
    ActualiserTitre();
    show();
}

std::int32_t Fiche::PremierePersonne(std::int32_t proposee) const {
    if (PersonneExiste(base_, proposee)) return proposee;
    for (std::int32_t n = 1; n <= base_.NbPersos; ++n)
        if (PersonneExiste(base_, n)) return n;
    return 0;
}

void Fiche::MettreEnPlaceFichier(std::int32_t premiere) {
    ui_->CadrePerso->setTitle("Personne :");
    for (QWidget* w : {static_cast<QWidget*>(ui_->CadrePerso), static_cast<QWidget*>(ui_->CadreParents),
                       static_cast<QWidget*>(ui_->CadreUnions), static_cast<QWidget*>(ui_->CadreEnfants),
                       static_cast<QWidget*>(ui_->CadreDivers), static_cast<QWidget*>(ui_->Photo)})
        w->show();
    ui_->NumPerso->show();
    ui_->MenuFermer->setEnabled(true);
    ui_->MenuNotesFichier->setEnabled(true);
    ui_->MenuImportFichiers->setEnabled(true);
    // « Toute la base » : la case de la sélection ne se change pas sur la fiche.
    ui_->Sel->setEnabled(false);
    ui_->BarreMenu_1->setEnabled(true);
    for (QAction* a : {ui_->MenuListePersos, ui_->MenuListeFamis, ui_->MenuListeNotes, ui_->MenuListeSources,
                       ui_->MenuListeFichiers, ui_->MenuFichesRecentes})
        a->setEnabled(true);
    for (int i : {5, 6, 7, 8, 19})
        if (auto* a = findChild<QAction*>(QString("IcoCommande%1").arg(i))) a->setEnabled(true);
    findChild<QAction*>("IcoCommande1")->setVisible(false);
    findChild<QAction*>("IcoCommande2")->setToolTip("Importer un fichier...");
    base_.FicheModifiee = base_.FichierModifie = kFaux;
    ouvert_ = true;
    RemplirListesSaisie();
    ui_->NumPerso->blockSignals(true);
    ui_->NumPerso->setText(QString::number(premiere));
    ui_->NumPerso->blockSignals(false);
    AfficherFiche();
    ActualiserTitre();
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
    ui_->Nom->setFocus();
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
    ui_->Nom->setFocus();
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

// ---- Listes ----

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
    }
}

void Fiche::MontrerTexte(const NoteExt& note, std::string_view titre) {
    std::string texte = note.Titre.str();
    if (!texte.empty()) texte += "\r\n\r\n";
    texte += note.Texte.vue();
    editeur_->Montrer(VersQString(note.Titre.empty() ? titre : note.Titre.vue()), texte);
}

// ---- Zoom et place de la fenêtre de liste ----

void Fiche::AppliquerZoom(const Zoom& zoom) {
    zoom_ = zoom;
    // Le réglage ne donne que largeur et hauteur : la police suit la hauteur, pour
    // que le texte grandisse avec les cadres (ZoomPolice quand il est donné).
    const double facteur = zoom.ZoomPolice != 1.0f ? zoom.ZoomPolice : zoom.ZoomHauteur;
    QFont f = policeConception_;
    if (f.pointSizeF() > 0)
        f.setPointSizeF(f.pointSizeF() * facteur);
    else if (f.pixelSize() > 0)
        f.setPixelSize(static_cast<int>(f.pixelSize() * facteur + 0.5));
    setFont(f);
    personne_->setFont(f);
    ui_->CadrePerso->setFixedWidth(static_cast<int>(largeurPerso_ * zoom.ZoomLargeur));
}

// Les réglages gardent la place en twips, 15 par point d'écran.
void Fiche::PlacerPersonne() {
    if (ini_.empty()) return;
    const PositionFenetre p = LirePositionPersonne(ini_);
    constexpr double kTwips = 15;
    personne_->setGeometry(static_cast<int>(p.L / kTwips), static_cast<int>(p.T / kTwips),
                           std::max(200, static_cast<int>(p.W / kTwips * zoom_.ZoomLargeur)),
                           std::max(150, static_cast<int>(p.H / kTwips * zoom_.ZoomHauteur)));
}

void Fiche::RetenirPlacePersonne() {
    if (ini_.empty()) return;
    constexpr double kTwips = 15;
    const QRect g = personne_->geometry();
    EcrirePositionPersonne(ini_, {g.x() * kTwips, g.y() * kTwips, g.width() / zoom_.ZoomLargeur * kTwips,
                                  g.height() / zoom_.ZoomHauteur * kTwips});
}

void Fiche::OuvrirGedcom(ModeGedcom mode) {
    const QString titre = VersQString(messages_(mode == ModeGedcom::Nouveau ? 403 : 405));
    gedcomForm_->Preparer(mode, titre, gedcom_, recents_, [this, mode](Gedcom& g) {
        gedcom_ = g.Valeurs();
        if (gedcom_.Defaut && mode != ModeGedcom::Nouveau) {
            options_.FichierDefaut = gedcom_.Fichier;
            EcrireIni(ini_, "Chemins", "Fichier", gedcom_.Fichier);
        }
        if (mode == ModeGedcom::Nouveau) {
            CreerFichierVide();
            return true;
        }
        return ChargerFichier(g);
    });
    if (mode == ModeGedcom::Nouveau) QTimer::singleShot(0, gedcomForm_, &Gedcom::BoutonParcourir);
    gedcomForm_->exec();
}

void Fiche::CreerFichierVide() {
    arbolix::Vider(base_, true);
    const std::int32_t n = NouvellePersonne(base_, true, gedcom_.OptRenum);
    MettreEnPlaceFichier(n);
}

bool Fiche::ChargerFichier(Progression& progression) {
    ContexteLecture ctx{options_, gedcom_, progression, textes_};
    ctx.fenetreVisible = isVisible();
    const ResultatLecture r = LireGedcom(base_, ctx);
    if (!r.Lu) {
        dialogue_->Message("Ouvrir un fichier", r.Erreur, Icone::Stop);
        return false;
    }
    if (r.Annule) {
        Vider(false);
        arbolix::Vider(base_, true);
        ouvert_ = false;
        ActualiserTitre();
        return true;
    }
    // Un fichier s'ouvre sur « Toute la base » : chaque fiche en usage est sélectionnée.
    ToutSelectionner(base_);
    MettreEnPlaceFichier(PremierePersonne(r.PremierePerso));
    RetenirFichier();
    if (!r.Journal.empty()) {
        const std::string texte = textes_.TitreJournal + " " + Utf8VersCp1252(gedcom_.Fichier) + "\r\n\r\n" +
                                  JournalLisible(r.Journal, r.Reperes) + "\r\n" + textes_.FinJournal;
        editeur_->Montrer(VersQString(textes_.TitreJournal), texte);
    }
    return true;
}

// Le fichier ouvert passe en tête des fichiers récents.
void Fiche::RetenirFichier() {
    if (ini_.empty()) return;
    recents_ = AjouterFichierRecent(recents_, gedcom_.Fichier);
    EcrireFichiersRecents(ini_, recents_);
}

void Fiche::MenuConfig() {
    EnregistrerFiche();
    FenetreOptions fenetre(options_, recents_, ini_, *dialogue_, ARBOLIX_VERSION_MAJEURE, this);
    connect(&fenetre, &FenetreOptions::ZoomChange, this, &Fiche::AppliquerZoom);
    fenetre.DefinirFichierPresent(ouvert_ ? gedcom_.Fichier : std::string());
    TraduireFenetre(fenetre, messages_, ReglerPassage(kCodeLangue, ARBOLIX_VERSION_MAJEURE), *dialogue_);
    fenetre.exec();
}

void Fiche::ChargerTextes(const std::filesystem::path& dossier) {
    messages_.Charger(CheminMessages(dossier), *dialogue_);
    const auto texte = [this](int n, const std::string& defaut) {
        return messages_(n).empty() ? defaut : messages_(n);
    };
    textes_.Lecture = texte(551, textes_.Lecture);
    textes_.Personnes = texte(552, textes_.Personnes);
    textes_.Familles = texte(553, textes_.Familles);
    textes_.TitreJournal = texte(554, textes_.TitreJournal);
    textes_.FinJournal = texte(555, textes_.FinJournal);
    textes_.Agrandissement = texte(556, textes_.Agrandissement);
    gedcomForm_->FixerTitreParcourir(texte(550, "Choisissez un fichier Gedcom"));
    const PassageTextes passage = ReglerPassage(kCodeLangue, ARBOLIX_VERSION_MAJEURE);
    for (QWidget* f :
         {static_cast<QWidget*>(this), static_cast<QWidget*>(gedcomForm_), static_cast<QWidget*>(editeur_),
          static_cast<QWidget*>(personne_), static_cast<QWidget*>(invite_)})
        TraduireFenetre(*f, messages_, passage, *dialogue_);
    if (passage.traduire) TraduireMenus(*this, messages_);
}

// Un autre fichier remplace celui qui est ouvert : on ferme d'abord celui-ci, en proposant de
// l'enregistrer, pour que la lecture ne perde aucune modification.
void Fiche::MenuNouveau() {
    if (ouvert_ && !MenuFermer()) return;
    OuvrirGedcom(ModeGedcom::Nouveau);
}

void Fiche::MenuOuvrir() {
    if (ouvert_ && !MenuFermer()) return;
    if (gedcom_.Fichier.empty()) gedcom_.Fichier = options_.FichierDefaut;
    OuvrirGedcom(ModeGedcom::Ouvrir);
}

bool Fiche::MenuFermer() {
    EnregistrerFiche();
    // Oui enregistre ; un enregistrement annulé ou manqué laisse le fichier ouvert.
    if (!DemanderFermeture(base_, *dialogue_, [this] { return Enregistrer(); })) return false;
    Vider(true);
    return true;
}

void Fiche::MenuQuitter() {
    close();
}

void Fiche::closeEvent(QCloseEvent* e) {
    if (ouvert_ && !MenuFermer()) {
        e->ignore();
        return;
    }
    RetenirPlacePersonne();
    personne_->close();
    e->accept();
}

void Fiche::dragEnterEvent(QDragEnterEvent* e) {
    const auto urls = e->mimeData()->urls();
    // Un .ged s'ouvre ; d'autres fichiers s'importent dans un fichier ouvert.
    if (!urls.isEmpty() && (ouvert_ || urls.first().toLocalFile().endsWith(".ged", Qt::CaseInsensitive))) {
        setCursor(Qt::DragCopyCursor);
        e->acceptProposedAction();
    }
}

void Fiche::dropEvent(QDropEvent* e) {
    unsetCursor();
    const auto urls = e->mimeData()->urls();
    if (urls.isEmpty()) return;
    const QString chemin = urls.first().toLocalFile();
    e->acceptProposedAction();
    if (!chemin.endsWith(".ged", Qt::CaseInsensitive)) {
        std::vector<std::string> deposes;
        for (const QUrl& u : urls) deposes.push_back(u.toLocalFile().toStdString());
        MenuImportFichiers(deposes);
        return;
    }
    if (ouvert_ && !MenuFermer()) return;
    gedcom_.Fichier = chemin.toStdString();
    MenuOuvrir();
}

void Fiche::Demarrer(const std::string& ligneCommande, const std::string& executable) {
    const std::filesystem::path dossier = std::filesystem::path(executable).parent_path();
    ini_ = CheminIni(dossier);
    options_ = ChargerOptions(ini_, *dialogue_);
    ChargerTextes(dossier);
    if (QScreen* ecran = screen()) {
        const QSize taille = ecran->size();
        AppliquerZoom(
            TesterZoom(options_.ZoomFen, options_.PourcentZoom, taille.width(), taille.height()).zoom);
    }
    PlacerPersonne();
    recents_ = LireFichiersRecents(ini_, options_, false);
    if (ReglagesAnciens(ini_, ARBOLIX_VERSION_MAJEURE))
        EnregistrerOptions(ini_, options_, recents_, *dialogue_, ARBOLIX_VERSION_MAJEURE);
    // Le fichier de la ligne de commande passe avant le fichier par défaut.
    gedcom_.Fichier = ligneCommande.empty() ? options_.FichierDefaut : ligneCommande;
    Vider(false);
    switch (ActionPourFichier(gedcom_.Fichier)) {
        case ActionLigneCommande::Ouvrir:
            QTimer::singleShot(0, this, &Fiche::MenuOuvrir);
            break;
        case ActionLigneCommande::Syntaxe:
            dialogue_->Message("Erreur de syntaxe", MessageSyntaxe(executable), Icone::Stop);
            gedcom_.Fichier.clear();
            break;
        case ActionLigneCommande::ExportSql:
        case ActionLigneCommande::ConversionTmao:
            dialogue_->Message("Erreur de syntaxe",
                               "Les tables d'actes ne sont pas encore prises en charge par cette version.",
                               Icone::Stop);
            gedcom_.Fichier.clear();
            break;
    }
}

}  // namespace arbolix
