#include "ui/fiche.h"

#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QStyle>
#include <QTimer>
#include <filesystem>

#include "app/demarrage.h"
#include "app/reglages.h"
#include "platform/ini.h"
#include "platform/cp1252.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"
#include "ui/gedcom.h"
#include "ui/options.h"
#include "ui/traduction.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Une icône de la barre : son numéro de commande, son infobulle, son image.
struct IconeBarre {
    int index;
    const char* bulle;
    QStyle::StandardPixmap image;
};

constexpr IconeBarre kIcones[] = {
    {0, "Configurer les options...", QStyle::SP_FileDialogDetailedView},
    {1, "Cr\xE9" "er un nouveau fichier...", QStyle::SP_FileIcon},
    {2, "Ouvrir un fichier existant...", QStyle::SP_DialogOpenButton},
    {3, "Enregistrer le fichier", QStyle::SP_DialogSaveButton},
};

QString TexteActe(const Acte& a) {
    QString t = VersQString(a.Date);
    if (!a.Lieu.empty()) t += (t.isEmpty() ? "" : " ") + VersQString("\xE0 ") + VersQString(a.Lieu);
    return t;
}

QString NomComplet(const Base& b, std::int32_t n) {
    if (n <= 0 || n > b.Persos.Haut()) return {};
    const Perso& p = std::as_const(b.Persos)[n];
    return VersQString(p.Nom) + " " + VersQString(p.Prenoms) + QString(" (%1)").arg(n);
}

}  // namespace

Fiche::Fiche(QWidget* parent)
    : QMainWindow(parent), ui_(std::make_unique<Ui::Fiche>()), dialogueQt_(this), dialogue_(&dialogueQt_) {
    ui_->setupUi(this);
    gedcomForm_ = new Gedcom(this, dialogue_);
    gedcomForm_->FixerTitreParcourir("Choisissez un fichier Gedcom");
    editeur_ = new Editeur(this);
    CreerIcones();
    connect(ui_->MenuNouveau, &QAction::triggered, this, &Fiche::MenuNouveau);
    connect(ui_->MenuOuvrir, &QAction::triggered, this, &Fiche::MenuOuvrir);
    connect(ui_->MenuFermer, &QAction::triggered, this, [this] { MenuFermer(); });
    connect(ui_->MenuQuitter, &QAction::triggered, this, &Fiche::MenuQuitter);
    connect(ui_->MenuConfig, &QAction::triggered, this, &Fiche::MenuConfig);
    connect(ui_->NumPerso, &QLineEdit::textChanged, this, &Fiche::AfficherFiche);
    connect(ui_->BarreMenu_0, &QMenu::aboutToShow, this, [this] {
        if (ouvert_)
            ui_->MenuSelInfo->setText(QString("%1 personnes et %2 familles").arg(base_.NbPersosReels).arg(base_.NbFamisReels));
    });
}

Fiche::~Fiche() = default;

void Fiche::CreerIcones() {
    for (const auto& i : kIcones) {
        auto* a = ui_->BarreIcones->addAction(style()->standardIcon(i.image), VersQString(i.bulle));
        a->setObjectName(QString("IcoCommande%1").arg(i.index));
        a->setToolTip(VersQString(i.bulle));
        if (i.index == 0) connect(a, &QAction::triggered, this, &Fiche::MenuConfig);
        if (i.index == 1) connect(a, &QAction::triggered, this, &Fiche::MenuNouveau);
        if (i.index == 2) connect(a, &QAction::triggered, this, &Fiche::MenuOuvrir);
    }
}

bool Fiche::FichierOuvert() const { return ouvert_; }

void Fiche::ActualiserTitre() {
    const std::string fichier = ouvert_ ? Utf8VersCp1252(gedcom_.Fichier) : std::string();
    setWindowTitle(VersQString(TitreFiche(fichier, base_.FichierModifie != 0)));
}

void Fiche::Vider(bool recharger) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    ui_->MenuSelInfo->setText({});
    findChild<QAction*>("IcoCommande1")->setVisible(true);
    findChild<QAction*>("IcoCommande2")->setToolTip("Ouvrir un fichier existant...");
    for (int i = 3; i <= 20; ++i)
        if (auto* a = findChild<QAction*>(QString("IcoCommande%1").arg(i))) a->setEnabled(false);
    ui_->MenuEnregistrer->setEnabled(false);
    ui_->MenuFermer->setEnabled(false);
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
    ui_->CadrePerso->setTitle("Personne");
    for (QWidget* w : {static_cast<QWidget*>(ui_->CadrePerso), static_cast<QWidget*>(ui_->CadreParents),
                       static_cast<QWidget*>(ui_->CadreUnions), static_cast<QWidget*>(ui_->CadreEnfants),
                       static_cast<QWidget*>(ui_->CadreDivers), static_cast<QWidget*>(ui_->Photo)})
        w->show();
    ui_->NumPerso->show();
    ui_->MenuFermer->setEnabled(true);
    findChild<QAction*>("IcoCommande1")->setVisible(false);
    findChild<QAction*>("IcoCommande2")->setToolTip("Importer un fichier...");
    base_.FicheModifiee = base_.FichierModifie = kFaux;
    ouvert_ = true;
    ui_->NumPerso->setText(QString::number(premiere));
    AfficherFiche();
    ActualiserTitre();
}

void Fiche::AfficherFiche() {
    const std::int32_t n = ui_->NumPerso->text().toInt();
    if (n < -1 || n > base_.Persos.Haut()) return;
    const Perso& p = std::as_const(base_.Persos)[n];
    ui_->Nom->setEditText(VersQString(p.Nom));
    ui_->Prenoms->setEditText(VersQString(p.Prenoms));
    ui_->Metier->setEditText(VersQString(p.Metier));
    ui_->Sexe1->setChecked(p.Sexe == 'M');
    ui_->Sexe2->setChecked(p.Sexe == 'F');
    ui_->Ref->setText(VersQString(p.Suite().Ref));
    ui_->Naissance->setText(TexteActe(p.Naissance));
    ui_->Bapteme->setText(TexteActe(p.Bapteme));
    ui_->Deces->setText(TexteActe(p.Deces));
    ui_->Sepulture->setText(TexteActe(p.Sepulture));
    QString notes = VersQString(p.Notes);
    notes.replace("\r\n", "\n");
    ui_->Notes->setPlainText(notes);
    const Fami& parents = std::as_const(base_.Familles)[p.NumParents];
    ui_->Pere->setText(NomComplet(base_, parents.Mari));
    ui_->Mere->setText(NomComplet(base_, parents.Femme));
    ui_->Union->clear();
    for (int i = 1; i <= kMaxUnions && p.Unions[i] > 0; ++i) {
        const Fami& f = std::as_const(base_.Familles)[p.Unions[i]];
        ui_->Union->addItem(NomComplet(base_, f.Mari == n ? f.Femme : f.Mari));
    }
    ui_->Enfant->clear();
    for (int i = 1; i <= kMaxUnions && p.Unions[i] > 0; ++i)
        for (const auto& [rang, enfant] : std::as_const(base_.Familles)[p.Unions[i]].Enfants)
            if (rang > 0) ui_->Enfant->addItem(NomComplet(base_, enfant));
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
    MettreEnPlaceFichier(PremierePersonne(r.PremierePerso));
    RetenirFichier();
    if (!r.Journal.empty()) {
        const std::string texte = textes_.TitreJournal + " " + Utf8VersCp1252(gedcom_.Fichier) + "\r\n\r\n" +
                                  r.Journal + "\r\n" + textes_.FinJournal;
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
    FenetreOptions fenetre(options_, recents_, ini_, *dialogue_, ARBOLIX_VERSION_MAJEURE, this);
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
    for (QWidget* f : {static_cast<QWidget*>(this), static_cast<QWidget*>(gedcomForm_),
                       static_cast<QWidget*>(editeur_)})
        TraduireFenetre(*f, messages_, passage, *dialogue_);
    if (passage.traduire) TraduireMenus(*this, messages_);
}

void Fiche::MenuNouveau() { OuvrirGedcom(ModeGedcom::Nouveau); }

void Fiche::MenuOuvrir() {
    if (gedcom_.Fichier.empty()) gedcom_.Fichier = options_.FichierDefaut;
    OuvrirGedcom(ModeGedcom::Ouvrir);
}

bool Fiche::MenuFermer() {
    // L'enregistrement n'existe pas encore dans cette version : refuser de
    // fermer plutôt que de perdre les modifications.
    if (!DemanderFermeture(base_, *dialogue_, [] { return false; })) return false;
    Vider(true);
    return true;
}

void Fiche::MenuQuitter() { close(); }

void Fiche::closeEvent(QCloseEvent* e) {
    if (ouvert_ && !MenuFermer()) {
        e->ignore();
        return;
    }
    e->accept();
}

void Fiche::dragEnterEvent(QDragEnterEvent* e) {
    const auto urls = e->mimeData()->urls();
    if (!urls.isEmpty() && urls.first().toLocalFile().endsWith(".ged", Qt::CaseInsensitive)) {
        setCursor(Qt::DragCopyCursor);
        e->acceptProposedAction();
    }
}

void Fiche::dropEvent(QDropEvent* e) {
    unsetCursor();
    const auto urls = e->mimeData()->urls();
    if (urls.isEmpty()) return;
    const QString chemin = urls.first().toLocalFile();
    if (!chemin.endsWith(".ged", Qt::CaseInsensitive)) return;
    e->acceptProposedAction();
    if (ouvert_ && !MenuFermer()) return;
    gedcom_.Fichier = chemin.toStdString();
    MenuOuvrir();
}

void Fiche::Demarrer(const std::string& ligneCommande, const std::string& executable) {
    const std::filesystem::path dossier = std::filesystem::path(executable).parent_path();
    ini_ = CheminIni(dossier);
    options_ = ChargerOptions(ini_, *dialogue_);
    ChargerTextes(dossier);
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
