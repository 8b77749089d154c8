#include "ui/gedcom.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>

#include "platform/cp1252.h"
#include "platform/qt_texte.h"
#include "ui_gedcom.h"

namespace arbolix {

namespace {

constexpr const char* kFiltreGedcom = "Fichiers Gedcom (*.ged *.GED)";

}  // namespace

Gedcom::Gedcom(QWidget* parent, Dialogue* dialogue)
    : QDialog(parent), ui_(std::make_unique<Ui::Gedcom>()), dialogue_(dialogue) {
    ui_->setupUi(this);
    connect(ui_->BoutonParcourir, &QPushButton::clicked, this, &Gedcom::BoutonParcourir);
    connect(ui_->BoutonOK, &QPushButton::clicked, this, &Gedcom::BoutonOK);
    connect(ui_->BoutonAnnuler, &QPushButton::clicked, this, &Gedcom::BoutonAnnuler);
    connect(ui_->BoutonAvance, &QPushButton::toggled, this, [this](bool ouvert) {
        ui_->CadreOptions->setVisible(ouvert);
        adjustSize();
    });
    // Un autre nom de fichier n'est plus forcément le fichier par défaut.
    connect(ui_->Fichier, &QComboBox::editTextChanged, this, [this] { ui_->Defaut->setChecked(false); });
    connect(ui_->Ages, &QCheckBox::toggled, this, [this](bool coche) {
        if (coche && mode_ == ModeGedcom::Enregistrer)
            dialogue_->Message(DepuisQString(windowTitle()),
                              "Cochez cette case seulement si vous \xEAtes s\xFBr que l'\xE2ge n'est pas d\xE9j\xE0 "
                              "dans les notes.",
                              Icone::Information);
    });
}

Gedcom::~Gedcom() = default;

void Gedcom::Preparer(ModeGedcom mode, const QString& titre, const OptionsGedcom& v,
                      const std::vector<std::string>& recents, Travail travail) {
    mode_ = mode;
    travail_ = std::move(travail);
    annule_ = false;
    setWindowTitle(titre);
    ui_->Fichier->blockSignals(true);
    ui_->Fichier->clear();
    for (const auto& r : recents) ui_->Fichier->addItem(QString::fromStdString(r));
    ui_->Fichier->setEditText(QString::fromStdString(v.Fichier));
    ui_->Fichier->blockSignals(false);
    fichierDepart_ = QString::fromStdString(v.Fichier);
    const std::pair<QCheckBox*, bool> cases[] = {
        {ui_->Dates, v.Dates},     {ui_->Lieux, v.Lieux},       {ui_->Professions, v.Professions},
        {ui_->Temoins, v.Temoins}, {ui_->Fichiers, v.Fichiers}, {ui_->Adresses, v.Adresses},
        {ui_->Sources, v.Sources}, {ui_->Notes, v.Notes},       {ui_->OptNettoie, v.OptNettoie},
        {ui_->OptRenum, v.OptRenum}, {ui_->Defaut, v.Defaut}};
    for (const auto& [c, valeur] : cases) c->setChecked(valeur);
    ui_->Ages->blockSignals(true);
    ui_->Ages->setChecked(v.Ages);
    ui_->Ages->blockSignals(false);
    // Nettoyer et renuméroter n'agissent qu'à la lecture.
    const bool lecture = mode == ModeGedcom::Ouvrir;
    ui_->OptNettoie->setVisible(lecture);
    ui_->OptRenum->setVisible(lecture);
    if (mode == ModeGedcom::Enregistrer) ui_->OptNettoie->setChecked(false);
    // À l'enregistrement, les cases qui écriraient un fichier sans dates ni lieux restent dans
    // la partie « Avancé », ouverte d'emblée si l'une d'elles est décochée.
    const bool enregistrer = mode == ModeGedcom::Enregistrer;
    bool decochee = false;
    for (const auto& [c, valeur] : cases)
        if (c->parentWidget() == ui_->CadreOptions) decochee = decochee || !valeur;
    ui_->BoutonAvance->setVisible(enregistrer);
    ui_->BoutonAvance->setChecked(!enregistrer || decochee);
    ui_->CadreOptions->setVisible(!enregistrer || decochee);
    ui_->Compteur->clear();
    ui_->Progression->clear();
    adjustSize();
    ui_->BoutonOK->setFocus();
}

OptionsGedcom Gedcom::Valeurs() const {
    OptionsGedcom v;
    v.Fichier = ui_->Fichier->currentText().trimmed().toStdString();
    v.Mode = mode_;
    v.Dates = ui_->Dates->isChecked();
    v.Lieux = ui_->Lieux->isChecked();
    v.Professions = ui_->Professions->isChecked();
    v.Temoins = ui_->Temoins->isChecked();
    v.Fichiers = ui_->Fichiers->isChecked();
    v.Adresses = ui_->Adresses->isChecked();
    v.Sources = ui_->Sources->isChecked();
    v.Notes = ui_->Notes->isChecked();
    v.Ages = ui_->Ages->isChecked();
    v.OptNettoie = ui_->OptNettoie->isChecked();
    v.OptRenum = ui_->OptRenum->isChecked();
    v.Defaut = ui_->Defaut->isChecked();
    return v;
}

void Gedcom::FixerFichier(const std::string& chemin) { ui_->Fichier->setEditText(QString::fromStdString(chemin)); }

void Gedcom::BoutonParcourir() {
    // Le sélecteur part du dossier du fichier présent (le dernier servi), sinon du dossier personnel.
    const QString actuel = ui_->Fichier->currentText().trimmed();
    const QFileInfo info(actuel);
    const QString dossier =
        !actuel.isEmpty() && info.absoluteDir().exists() ? info.absolutePath() : QDir::homePath();
    const auto choisi =
        mode_ == ModeGedcom::Ouvrir
            ? dialogue_->ChoisirFichierOuvrir(titreParcourir_, kFiltreGedcom, dossier.toStdString())
            : dialogue_->ChoisirFichierEnregistrer(titreParcourir_, kFiltreGedcom, dossier.toStdString());
    if (choisi) {
        FixerFichier(*choisi);
        ui_->Defaut->setChecked(false);
        // Le fichier choisi, il ne reste qu'à valider.
        ui_->BoutonOK->setFocus();
    }
}

// Enregistrer par-dessus un autre fichier que celui du départ se confirme.
bool Gedcom::RemplacementAccepte() {
    const QString chemin = ui_->Fichier->currentText().trimmed();
    if (mode_ != ModeGedcom::Enregistrer || !QFileInfo::exists(chemin) ||
        QFileInfo(chemin).absoluteFilePath() == QFileInfo(fichierDepart_).absoluteFilePath())
        return true;
    const std::string nom = Utf8VersCp1252(chemin.toStdString());
    return dialogue_->Message(DepuisQString(windowTitle()),
                              "Le fichier " + nom + " existe d\xE9j\xE0. Voulez-vous le remplacer ?",
                              Icone::Question, Boutons::OuiNon, Bouton::Non) == Bouton::Oui;
}

void Gedcom::BoutonOK() {
    if (occupe_) return;
    if (ui_->Fichier->currentText().trimmed().isEmpty()) {
        dialogue_->Message(DepuisQString(windowTitle()), "Vous devez indiquer un nom de fichier.", Icone::Attention);
        return;
    }
    if (!RemplacementAccepte()) return;
    occupe_ = true;
    annule_ = false;
    ui_->BoutonOK->setEnabled(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool fini = !travail_ || travail_(*this);
    QApplication::restoreOverrideCursor();
    ui_->BoutonOK->setEnabled(true);
    occupe_ = false;
    if (fini) accept();
}

void Gedcom::BoutonAnnuler() {
    // Pendant un travail, Annuler arrête la lecture ; sinon il ferme le dialogue.
    if (occupe_) annule_ = true;
    else QDialog::reject();
}

void Gedcom::reject() { BoutonAnnuler(); }

void Gedcom::Compteur(std::string_view texte) { ui_->Compteur->setText(VersQString(texte)); }
void Gedcom::Avancement(std::string_view texte) { ui_->Progression->setText(VersQString(texte)); }
void Gedcom::LaisserPasser() { QCoreApplication::processEvents(); }

}  // namespace arbolix
