// La fiche, côté fichiers liés et notes externes : la liste Divers, l'aperçu de l'image, le menu des liens,
// le choix d'une note externe par la touche Espace dans Notes.
#include <QAction>
#include <QKeyEvent>
#include <QListWidget>
#include <QMenu>
#include <QPixmap>
#include <filesystem>

#include "card/fichiers_lies.h"
#include "card/notes.h"
#include "lists/rangees.h"
#include "platform/qt_texte.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/listes_qt.h"
#include "ui/filtre_touches.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// Les destinations de MenuDeplacerLienImage, dans l'ordre de leurs index.
constexpr const char* kLibellesDeplacer[kDestinationsMedia] = {"la &personne",
                                                               "la &naissance",
                                                               "le &bapt\xEAme",
                                                               "le &contrat de mariage",
                                                               "le &mariage",
                                                               "le &divorce",
                                                               "le &d\xE9"
                                                               "c\xE8s",
                                                               "la &s\xE9pulture"};

constexpr std::string_view kTitreFichierLie = "Fichier li\xE9";

}  // namespace

void Fiche::BrancherDivers() {
    // Un clic montre l'image dans l'aperçu ; un double clic ouvre le fichier dans son programme.
    connect(ui_->ListeDivers, &QListWidget::itemClicked, this, [this](QListWidgetItem* i) {
        if (auto l = LigneDiversChoisie(); l && ui_->ListeDivers->row(i) >= 0) TraiterOuverture(*l, 3);
    });
    connect(ui_->ListeDivers, &QListWidget::itemDoubleClicked, this, [this] {
        if (auto l = LigneDiversChoisie()) TraiterOuverture(*l, 1);
    });
    ui_->BoutonAjouterDivers->setEnabled(true);
    ui_->BoutonMenuFich->setEnabled(true);
    connect(ui_->BoutonAjouterDivers, &QPushButton::clicked, this, &Fiche::BoutonAjouterDivers);
    connect(ui_->BoutonMenuFich, &QPushButton::clicked, this, &Fiche::BoutonMenuFich);
    CreerMenuImage();
    ui_->Notes->installEventFilter(new FiltreTouches(this, [this](QKeyEvent* k) { return ToucheNotes(k); }));
}

// MenuPopupImage : ses commandes portent les noms des règles (un index devient "_0", "_1"...).
void Fiche::CreerMenuImage() {
    menuImage_ = new QMenu(VersQString(kTitreFichierLie), this);
    menuImage_->setObjectName("MenuPopupImage");
    const auto ajouter = [this](QMenu* menu, const QString& nom, const char* texte, auto commande) {
        QAction* a = menu->addAction(VersQString(texte));
        a->setObjectName(nom);
        connect(a, &QAction::triggered, this, commande);
        return a;
    };
    ajouter(menuImage_, "MenuProprietesImage", "&Propri\xE9t\xE9s...", [this] {
        if (auto l = LigneDiversChoisie()) TraiterOuverture(*l, 2);
    });
    ajouter(menuImage_, "MenuDupliquerImage", "&Dupliquer le lien", [this] { MenuDupliquerImage(); });
    QMenu* modifier = menuImage_->addMenu("&Modifier le lien");
    ajouter(modifier, "MenuModifLienImage_0", "&Saisir le chemin...", [this] { MenuModifLienImage(0); });
    ajouter(modifier, "MenuModifLienImage_1", "&Choisir le fichier...", [this] { MenuModifLienImage(1); });
    ajouter(menuImage_, "MenuSupprLienImage", "&Supprimer le lien", [this] { MenuSupprLienImage(); });
    QMenu* deplacer = menuImage_->addMenu(VersQString("D\xE9&placer le lien vers"));
    deplacer->setObjectName("MenuDeplacerImage");
    for (int i = 0; i < kDestinationsMedia; ++i)
        ajouter(deplacer, QString("MenuDeplacerLienImage_%1").arg(i), kLibellesDeplacer[i],
                [this, i] { MenuDeplacerLienImage(i); });
}

// Les rangées de ListeDivers, la bulle portant le chemin.
void Fiche::PoserDivers() {
    PoserRangees(*ui_->ListeDivers, contenu_.Divers);
    PoserPhoto();
}

// Après une commande sur les liens : la liste et l'aperçu refaits, le titre dit le fichier modifié.
void Fiche::ActualiserDivers() {
    const ContexteFiche ctx = Contexte();
    contenu_.Divers = CalculerDivers(base_, ctx, contenu_.Numero);
    contenu_.Photo = PremiereImage(base_, ctx, contenu_.Numero);
    PoserDivers();
    ActualiserTitre();
}

LieuxFichiers Fiche::Lieux() const {
    return {options_.Chemin[2], std::filesystem::path(gedcom_.Fichier).parent_path().string()};
}

// La première image de la personne qui se trouve sur le disque.
void Fiche::PoserPhoto() {
    ui_->Photo->clear();
    const auto image =
        PhotoDePersonne(base_, options_, contenu_.Numero, Lieux(), Contexte().ExtensionsImages);
    if (image) MontrerImage(*image);
}

void Fiche::MontrerImage(const std::string& fichier) {
    const QPixmap image(QString::fromStdString(fichier));
    if (image.isNull()) return;
    // L'image tient dans la place laissée, proportions gardées.
    const QSize place = ui_->Photo->size().boundedTo(QSize(ui_->CadreDivers->width() / 2, 400));
    ui_->Photo->setPixmap(image.scaled(place, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

// Ouvre le fichier dans son programme, ou son dossier pour ses propriétés ; faux
// (après le message des règles) quand il est introuvable.
bool Fiche::OuvrirFichierLie(const std::string& chemin, bool proprietes) {
    const auto fichier =
        TrouverFichierLie(chemin, options_.Chemin[2], std::filesystem::path(gedcom_.Fichier).parent_path());
    if (!fichier) {
        dialogue_->Message("Fichier introuvable", MessageFichierIntrouvable(chemin, false), Icone::Attention);
        return false;
    }
    dialogue_->OuvrirDansProgramme(proprietes ? fichier->parent_path().string() : fichier->string());
    return true;
}

// La ligne choisie de ListeDivers, lue dans la même liste que celle qui a rempli le contrôle.
std::optional<LigneDivers> Fiche::LigneDiversChoisie() {
    const int rangee = ui_->ListeDivers->currentRow();
    if (rangee < 0 || !ui_->ListeDivers->item(rangee)->isSelected()) return std::nullopt;
    auto lignes = LignesDivers(base_, options_, contenu_.Numero);
    if (static_cast<std::size_t>(rangee) >= lignes.size()) return std::nullopt;
    return std::move(lignes[static_cast<std::size_t>(rangee)]);
}

// OuvrirFichier dans l'un de ses modes ; un fichier introuvable dont l'utilisateur
// veut ôter le lien est ôté comme par MenuSupprLienImage.
bool Fiche::TraiterOuverture(const LigneDivers& ligne, int mode) {
    const ResultatOuverture r = OuvrirFichier(ligne.chemin, mode, Lieux(), *dialogue_);
    if (r.etat == Ouverture::SupprimerLien) {
        SupprimerLienDivers(base_, contenu_.Numero, ligne, dialogue_);
        ActualiserDivers();
        return false;
    }
    if (r.etat == Ouverture::Ouvert && mode == 3) {
        ui_->Photo->clear();
        MontrerImage(r.chemin);
    }
    return r.etat == Ouverture::Ouvert;
}

void Fiche::BoutonAjouterDivers() {
    if (!ouvert_ || !PersonneExiste(base_, contenu_.Numero)) return;
    // Le sélecteur part du dossier du dernier fichier lié de la personne.
    const auto lignes = LignesDivers(base_, options_, contenu_.Numero);
    const std::string dernier = lignes.empty() ? std::string() : lignes.back().chemin;
    if (!AjouterFichierChoisi(base_, contenu_.Numero, dernier, options_.Chemin[2], *dialogue_)) return;
    // Le lien est déjà dans la base : le fichier est à enregistrer.
    base_.FichierModifie = kVrai;
    ActualiserDivers();
}

void Fiche::BoutonMenuFich() {
    const auto ligne = LigneDiversChoisie();
    if (!ligne) {
        dialogue_->Message(
            "Ficher li\xE9",
            "Vous devez s\xE9lectionner un lien dans la liste avant de lancer une action dans le menu.",
            Icone::Information);
        return;
    }
    // Seul le lien d'un objet média se déplace.
    menuImage_->findChild<QMenu*>("MenuDeplacerImage")->setEnabled(ligne->genre == 'M');
    menuImage_->exec(ui_->BoutonMenuFich->mapToGlobal(QPoint(0, ui_->BoutonMenuFich->height())));
}

void Fiche::MenuModifLienImage(int index) {
    const auto ligne = LigneDiversChoisie();
    if (!ligne) return;
    const auto chemin =
        index == 0
            ? dialogue_->Saisie(kTitreFichierLie, "Entrez le chemin complet du fichier :", ligne->chemin)
            : dialogue_->ChoisirFichierOuvrir("Fichier \xE0 lier...", "Tous les fichiers (*.*)",
                                              std::filesystem::path(ligne->chemin).parent_path().string());
    if (!chemin || chemin->empty()) return;
    ModifierLienDivers(base_, contenu_.Numero, *ligne, *chemin);
    ActualiserDivers();
}

void Fiche::MenuSupprLienImage() {
    if (const auto ligne = LigneDiversChoisie()) {
        SupprimerLienDivers(base_, contenu_.Numero, *ligne, dialogue_);
        ActualiserDivers();
    }
}

void Fiche::MenuDupliquerImage() {
    if (const auto ligne = LigneDiversChoisie()) {
        DupliquerLienMedia(base_, *ligne, gedcom_.OptRenum, *dialogue_);
        ActualiserTitre();
    }
}

void Fiche::MenuDeplacerLienImage(int index) {
    const auto ligne = LigneDiversChoisie();
    if (!ligne) return;
    // L'union choisie dans la liste des unions, s'il y en a une.
    std::int32_t famille = 0;
    const int rangee = ui_->Union->currentRow();
    if (rangee >= 0 && ui_->Union->item(rangee)->isSelected() &&
        static_cast<std::size_t>(rangee) < contenu_.Unions.size())
        famille = LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
    if (DeplacerLienMedia(base_, contenu_.Numero, *ligne, index, famille, *dialogue_)) ActualiserDivers();
}

// Entrée seule quitte la note, maj + Entrée commence une ligne. Un blanc tapé dans la note vide : choix
// d'une note externe, ou création d'une note ouverte dans l'éditeur.
bool Fiche::ToucheNotes(QKeyEvent* k) {
    if (k->key() == Qt::Key_Return || k->key() == Qt::Key_Enter) {
        if (k->modifiers() & Qt::ShiftModifier)
            ui_->Notes->insertPlainText("\n");
        else
            focusNextChild();
        return true;
    }
    if (k->key() != Qt::Key_Space || !ui_->Notes->toPlainText().isEmpty()) return false;
    if (!ouvert_ || !PersonneExiste(base_, contenu_.Numero)) return false;
    const auto lien = ChoisirLienExterne(base_, 'N', choisir_, *editeur_, *dialogue_);
    if (!lien) return true;
    // Le lien est rangé tout de suite, retour de lien compris ; l'enregistrement de la fiche le réécrira tel
    // quel.
    ChangerChamp(base_, {false, contenu_.Numero, 0, false}, *lien, dialogue_);
    contenu_.Notes = *lien;
    ui_->Notes->setPlainText(VersQString(*lien));
    base_.FichierModifie = kVrai;
    ActualiserTitre();
    return true;
}

}  // namespace arbolix
