// La fiche comme fenêtre de bureau : raccourcis attendus, « Enregistrer sous… », « À propos »,
// icônes du thème, barre d'état de la sélection, place et taille retenues d'une séance à l'autre.
#include <QApplication>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <QStatusBar>
#include <QStyle>
#include <QWindow>

#include "app/place_fenetre.h"
#include "platform/cp1252.h"
#include "platform/ini.h"
#include "platform/qt_texte.h"
#include "store/chaines.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Les icônes de la barre : le nom du thème freedesktop, sinon l'image du style de Qt.
struct IconeTheme {
    const char* action;
    const char* theme;
    QStyle::StandardPixmap repli;
};
constexpr IconeTheme kIconesTheme[] = {
    {"IcoCommande0", "preferences-system", QStyle::SP_FileDialogDetailedView},
    {"IcoCommande1", "document-new", QStyle::SP_FileIcon},
    {"IcoCommande2", "document-open", QStyle::SP_DialogOpenButton},
    {"IcoCommande3", "document-save", QStyle::SP_DialogSaveButton},
    {"IcoCommande5", "x-office-address-book", QStyle::SP_FileDialogListView},
    {"IcoCommande6", "system-users", QStyle::SP_DirHomeIcon},
    {"IcoCommande7", "accessories-text-editor", QStyle::SP_FileDialogContentsView},
    {"IcoCommande8", "document-open-recent", QStyle::SP_BrowserReload},
    {"IcoCommande19", "folder", QStyle::SP_DirOpenIcon},
};

constexpr const char* kSectionFenetre = "Fenetre";
constexpr int kLargeurMini = 640, kHauteurMini = 480;

int LireEntier(const std::filesystem::path& ini, const char* cle, int defaut) {
    const std::string v = LireIni(ini, kSectionFenetre, cle, "");
    if (v.empty()) return defaut;
    // Une valeur de plusieurs milliards reste un nombre : l'écran la ramènera.
    return static_cast<int>(
        std::clamp<std::int64_t>(ValeurNumerique(v) * (v.front() == '-' ? -1 : 1), -1000000, 1000000));
}

Cadre VersCadre(const QRect& r) {
    return {r.x(), r.y(), r.width(), r.height()};
}

}  // namespace

void Fiche::BrancherFenetre() {
    const std::pair<QAction*, QKeySequence::StandardKey> raccourcis[] = {
        {ui_->MenuNouveau, QKeySequence::New},
        {ui_->MenuOuvrir, QKeySequence::Open},
        {ui_->MenuEnregistrer, QKeySequence::Save},
        {ui_->MenuQuitter, QKeySequence::Quit}};
    for (const auto& [action, touche] : raccourcis) action->setShortcut(touche);
    // Sans thème, Ctrl+Q n'est pas toujours la touche « Quitter » de la plateforme.
    if (ui_->MenuQuitter->shortcut().isEmpty()) ui_->MenuQuitter->setShortcut(QKeySequence("Ctrl+Q"));

    auto* sous = new QAction(VersQString("Enregistrer &sous..."), this);
    sous->setObjectName("MenuEnregistrerSous");
    sous->setShortcut(QKeySequence::SaveAs);
    sous->setToolTip(VersQString("Enregistrer le fichier sous un autre nom"));
    sous->setEnabled(false);
    ui_->BarreMenu_0->insertAction(ui_->MenuFermer, sous);
    connect(sous, &QAction::triggered, this, &Fiche::MenuEnregistrerSous);

    auto* propos = new QAction(VersQString("\xC0 &propos d'Arbolix"), this);
    propos->setObjectName("MenuAPropos");
    ui_->BarreMenuAide->addSeparator();
    ui_->BarreMenuAide->addAction(propos);
    connect(propos, &QAction::triggered, this, &Fiche::MenuAPropos);

    for (const auto& i : kIconesTheme)
        if (auto* a = findChild<QAction*>(i.action))
            a->setIcon(QIcon::fromTheme(i.theme, style()->standardIcon(i.repli)));

    AjusterDisposition();

    auto* etat = new QLabel(statusBar());
    etat->setObjectName("EtatSelection");
    statusBar()->addWidget(etat, 1);
    connect(ui_->MenuSelInfo, &QAction::changed, this, &Fiche::ActualiserBarreEtat);
}

// La fiche tient sur un portable de 1366 × 768 sans défiler : la note se contente de quelques
// lignes et laisse la hauteur aux enfants et aux unions ; le courriel a la largeur d'une adresse.
void Fiche::AjusterDisposition() {
    const int ligne = fontMetrics().lineSpacing();
    ui_->Notes->setMinimumHeight(3 * ligne + 12);
    ui_->Notes->setMaximumHeight(7 * ligne + 12);
    ui_->Notes->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui_->colonneGauche->setStretch(ui_->colonneGauche->count() - 1, 1);  // le ressort du bas
    ui_->colonneDroite->setStretchFactor(ui_->CadreUnions, 1);
    ui_->colonneDroite->setStretchFactor(ui_->CadreEnfants, 2);
    for (QListWidget* l : {ui_->Union, ui_->Enfant}) l->setMinimumHeight(3 * ligne + 8);
    ui_->ListeDivers->setMinimumHeight(3 * ligne + 8);
    ui_->ListeDivers->setMaximumHeight(6 * ligne +
                                       8);  // les fichiers liés ne prennent pas la place des enfants
    ui_->Photo->setMinimumSize(96, 96);
    ui_->EMail->setMinimumWidth(fontMetrics().horizontalAdvance("prenom.nom@exemple.fr"));
}

// Ce qu'est la sélection et combien de personnes elle compte, lisible sans ouvrir de menu.
void Fiche::ActualiserBarreEtat() {
    auto* etat = statusBar()->findChild<QLabel*>("EtatSelection");
    if (!etat) return;
    if (!ouvert_) {
        etat->clear();
        return;
    }
    if (etatSel_.Cochee == 0 || etatSel_.Libelle.empty())
        etat->setText(QString("Toute la base : %1 personnes et %2 familles")
                          .arg(base_.NbPersosReels)
                          .arg(base_.NbFamisReels));
    else
        etat->setText(VersQString(etatSel_.Libelle + " : " + etatSel_.Info));
}

void Fiche::MenuEnregistrerSous() {
    EnregistrerFiche();
    if (!ouvert_) return;
    const std::string avant = gedcom_.Fichier;
    const QFileInfo actuel(QString::fromStdString(avant));
    const auto choisi = dialogue_->ChoisirFichierEnregistrer(
        "Enregistrer sous", "Fichiers Gedcom (*.ged *.GED)", actuel.absoluteFilePath().toStdString());
    if (!choisi) return;
    std::string chemin = *choisi;
    if (QFileInfo(QString::fromStdString(chemin)).suffix().isEmpty()) chemin += ".ged";
    gedcom_.Fichier = chemin;
    // Abandonné, l'enregistrement laisse le fichier sous son ancien nom.
    if (!Enregistrer()) gedcom_.Fichier = avant;
}

void Fiche::MenuAPropos() {
    QMessageBox::about(this, VersQString("\xC0 propos d'Arbolix"),
                       QString("<p><b>Arbolix %1</b></p><p>%2</p><p>%3</p><p>%4</p>")
                           .arg(ARBOLIX_VERSION,
                                VersQString("Gestionnaire de g\xE9n\xE9"
                                            "alogie."),
                                VersQString("Copyright \xA9 2026 les auteurs d'Arbolix."),
                                VersQString("Licence : le projet n'a pas encore choisi de licence libre ; "
                                            "jusque-l\xE0, tous droits r\xE9serv\xE9s.")));
}

// La place de la fiche lue des réglages, ramenée dans l'écran ; sans réglage, la fiche prend
// l'écran disponible jusqu'à sa taille de conception.
void Fiche::RestaurerPlace() {
    QScreen* ecran = screen() ? screen() : QGuiApplication::primaryScreen();
    if (!ecran) return;
    const Cadre dispo = VersCadre(ecran->availableGeometry());
    const Cadre conception{dispo.x, dispo.y, width(), height()};
    Cadre voulu = conception;
    if (!ini_.empty()) {
        voulu = {LireEntier(ini_, "X", conception.x), LireEntier(ini_, "Y", conception.y),
                 LireEntier(ini_, "L", conception.l), LireEntier(ini_, "H", conception.h)};
    }
    const Cadre c =
        PlacerDansEcran(voulu, dispo, std::min(kLargeurMini, dispo.l), std::min(kHauteurMini, dispo.h));
    resize(c.l, c.h);
    move(c.x, c.y);
    // Le cadre du gestionnaire de fenêtres, quand il est déjà connu, tient aussi dans l'écran.
    const QRect cadre = frameGeometry();
    if (cadre.width() > c.l || cadre.height() > c.h)
        resize(std::max(c.l - (cadre.width() - width()), kLargeurMini / 2),
               std::max(c.h - (cadre.height() - height()), kHauteurMini / 2));
    if (!ini_.empty() && LireBooleenIni(ini_, kSectionFenetre, "Agrandie", false))
        setWindowState(windowState() | Qt::WindowMaximized);
}

void Fiche::RetenirPlace() {
    if (ini_.empty()) return;
    const QRect g = normalGeometry().isValid() ? normalGeometry() : geometry();
    const std::pair<const char*, int> valeurs[] = {
        {"X", g.x()}, {"Y", g.y()}, {"L", g.width()}, {"H", g.height()}};
    for (const auto& [cle, v] : valeurs) EcrireIni(ini_, kSectionFenetre, cle, std::to_string(v));
    EcrireIni(ini_, kSectionFenetre, "Agrandie", TexteBooleenIni(isMaximized()));
}

}  // namespace arbolix
