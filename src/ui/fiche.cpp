// La fiche : la fenêtre principale, sa barre d'icônes, son démarrage, ses réglages et sa fermeture.
#include "ui/fiche.h"

#include <QCloseEvent>
#include <QListWidget>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <filesystem>

#include "app/demarrage.h"
#include "app/partage.h"
#include "app/place_fenetre.h"
#include "app/reglages.h"
#include "platform/ini.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"
#include "ui/gedcom.h"
#include "ui/inputmsgbox.h"
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

// Largeur du cadre de la personne à 100 %.
constexpr int kLargeurCadrePerso = 540;

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
    BrancherFusion();
    BrancherSelection();
    BrancherActes();
    BrancherExports();
    BrancherArbres();
    BrancherStats();
    BrancherOutils();
    BrancherTmao();
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
    BrancherAide();
    BrancherFenetre();
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

// Les réglages gardent la place en twips, 15 par point d'écran ; une place absurde revient dans
// l'écran, et sans place retenue la liste s'ouvre à côté de la fiche.
void Fiche::PlacerPersonne() {
    if (ini_.empty()) return;
    const PositionFenetre p = LirePositionPersonne(ini_);
    constexpr double kTwips = 15;
    const auto point = [](double twips) { return static_cast<int>(std::clamp(twips / kTwips, -1e6, 1e6)); };
    personne_->resize(std::max(200, static_cast<int>(point(p.W) * zoom_.ZoomLargeur)),
                      std::max(150, static_cast<int>(point(p.H) * zoom_.ZoomHauteur)));
    if (LireIni(ini_, "Fenetres", "PersonneL", "").empty()) return;  // la liste se mettra à côté
    QScreen* ecran = screen() ? screen() : QGuiApplication::primaryScreen();
    if (!ecran) return;
    const QRect e = ecran->availableGeometry();
    const Cadre c = PlacerDansEcran({point(p.L), point(p.T), personne_->width(), personne_->height()},
                                    {e.x(), e.y(), e.width(), e.height()}, 200, 150);
    personne_->setGeometry(c.x, c.y, c.l, c.h);
}

void Fiche::RetenirPlacePersonne() {
    if (ini_.empty()) return;
    constexpr double kTwips = 15;
    const QRect g = personne_->geometry();
    EcrirePositionPersonne(ini_, {g.x() * kTwips, g.y() * kTwips, g.width() / zoom_.ZoomLargeur * kTwips,
                                  g.height() / zoom_.ZoomHauteur * kTwips});
}

void Fiche::MenuConfig() {
    EnregistrerFiche();
    FenetreOptions fenetre(options_, recents_, ini_, *dialogue_, ARBOLIX_VERSION_MAJEURE, this);
    connect(&fenetre, &FenetreOptions::ZoomChange, this, &Fiche::AppliquerZoom);
    connect(&fenetre, &FenetreOptions::VerifierMiseAJour, this, &Fiche::VerifierMiseAJour);
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

void Fiche::MenuQuitter() {
    close();
}

void Fiche::closeEvent(QCloseEvent* e) {
    if (ouvert_ && !MenuFermer()) {
        e->ignore();
        return;
    }
    RetenirPlacePersonne();
    RetenirPlace();
    personne_->close();
    e->accept();
}

void Fiche::Demarrer(const std::string& ligneCommande, const std::string& executable) {
    const std::filesystem::path dossier = std::filesystem::path(executable).parent_path();
    ini_ = CheminReglages(dossier);
    options_ = ChargerOptions(ini_, *dialogue_);
    ChargerTextes(dossier);
    if (QScreen* ecran = screen()) {
        const QSize taille = ecran->size();
        AppliquerZoom(
            TesterZoom(options_.ZoomFen, options_.PourcentZoom, taille.width(), taille.height()).zoom);
    }
    RestaurerPlace();
    PlacerPersonne();
    recents_ = LireFichiersRecents(ini_, options_, false);
    if (ReglagesAnciens(ini_, ARBOLIX_VERSION_MAJEURE))
        EnregistrerOptions(ini_, options_, recents_, *dialogue_, ARBOLIX_VERSION_MAJEURE);
    QTimer::singleShot(0, this, &Fiche::VerifierMiseAJourAuDemarrage);
    // Le fichier de la ligne de commande passe avant le fichier par défaut.
    gedcom_.Fichier = ligneCommande.empty() ? options_.FichierDefaut : ligneCommande;
    Vider(false);
    switch (ActionPourFichier(gedcom_.Fichier)) {
        case ActionLigneCommande::Ouvrir:
            // Un fichier nommé sur la ligne de commande s'ouvre sans attendre OK ; la progression
            // se lit dans le dialogue, qui reste ouvert si la lecture échoue.
            if (!ligneCommande.empty())
                QTimer::singleShot(0, this, [this] {
                    QTimer::singleShot(0, gedcomForm_, &Gedcom::BoutonOK);
                    MenuOuvrir();
                });
            else
                QTimer::singleShot(0, this, &Fiche::MenuOuvrir);
            break;
        case ActionLigneCommande::Syntaxe:
            dialogue_->Message("Erreur de syntaxe", MessageSyntaxe(executable), Icone::Stop);
            gedcom_.Fichier.clear();
            break;
        case ActionLigneCommande::ConversionTmao:
            ConvertirLigneCommande();
            break;
        case ActionLigneCommande::ExportSql:
            dialogue_->Message("Erreur de syntaxe",
                               "Les tables d'actes ne sont pas encore prises en charge par cette version.",
                               Icone::Stop);
            gedcom_.Fichier.clear();
            break;
    }
}

}  // namespace arbolix
