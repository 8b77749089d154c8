#include "ui/options.h"

#include <QFileDialog>
#include <QScreen>

#include "app/reglages.h"
#include "platform/qt_texte.h"
#include "ui_options.h"

namespace arbolix {
namespace {

// Les chemins sont des noms du système de fichiers (UTF-8), pas du texte de la base.
QString Chemin(const std::string& s) {
    return QString::fromStdString(s);
}
std::string Chemin(const QString& s) {
    return s.toStdString();
}

// Les listes web sont gardées avec CR LF ; la case de texte veut des LF.
QString VersCase(const std::string& texte) {
    return VersQString(texte).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}
std::string DepuisCase(const QString& texte) {
    QString t = texte;
    return DepuisQString(t.replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
}

// Ligne du fichier de messages des lignes de listes et des bulles, après le bloc des contrôles.
constexpr int kLigneListes = 301;

}  // namespace

FenetreOptions::FenetreOptions(Options& options, std::vector<std::string>& recents, std::filesystem::path ini,
                               Dialogue& dialogue, int versionMajeure, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::FenetreOptions>()),
      options_(options),
      recents_(recents),
      ini_(std::move(ini)),
      dialogue_(dialogue),
      versionMajeure_(versionMajeure) {
    ui_->setupUi(this);
    tailleConception_ = size();
    connect(ui_->BoutonZoom, &QPushButton::clicked, this, &FenetreOptions::TesterZoom);
    connect(ui_->EnregistrerOptions, &QPushButton::clicked, this, &FenetreOptions::EnregistrerOptions);
    connect(ui_->ClearFileList, &QPushButton::clicked, this, &FenetreOptions::ClearFileList);
    connect(ui_->BoutonFermer, &QPushButton::clicked, this, &QDialog::accept);
    connect(ui_->BoutonMAJ, &QPushButton::clicked, this, &FenetreOptions::VerifierMiseAJour);
    QPushButton* parcourir[] = {ui_->BoutonChemin_0, ui_->BoutonChemin_1, ui_->BoutonChemin_2};
    for (int i = 0; i < 3; ++i)
        connect(parcourir[i], &QPushButton::clicked, this, [this, i] { ChoisirChemin(i); });
    AfficherOptions();
    // La fenêtre prend le zoom enregistré.
    const QSize ecran = screen() ? screen()->size() : QSize(kLargeurConception, kHauteurConception);
    zoom_ = arbolix::TesterZoom(options_.ZoomFen, options_.PourcentZoom, ecran.width(), ecran.height()).zoom;
    resize(static_cast<int>(tailleConception_.width() * zoom_.ZoomLargeur),
           static_cast<int>(tailleConception_.height() * zoom_.ZoomHauteur));
    RetenirEnregistrees();
}

FenetreOptions::~FenetreOptions() = default;

// Les valeurs telles que les contrôles les rendent, pour savoir en fermant si l'une a changé.
void FenetreOptions::RetenirEnregistrees() {
    enregistrees_ = options_;
    LireControles(enregistrees_);
}

void FenetreOptions::TraduireListes(const Messages& messages) {
    QComboBox* listes[] = {ui_->SelAutoLieuxAnnexes, ui_->ExportPrefere, ui_->Conversion};
    int ligne = kLigneListes;
    for (QComboBox* liste : listes)
        for (int i = 0; i < liste->count(); ++i, ++ligne)
            if (!messages(ligne).empty()) liste->setItemText(i, VersQString(messages(ligne)));
    QWidget* bulles[] = {ui_->Chemin_0, ui_->Chemin_1, ui_->MaxGen};
    for (QWidget* w : bulles) {
        if (!messages(ligne).empty()) w->setToolTip(VersQString(messages(ligne)));
        ++ligne;
    }
}

void FenetreOptions::AfficherOptions() {
    const Options& o = options_;
    ui_->VerifMAJ->setChecked(o.VerifMAJ);
    QLineEdit* chemins[] = {ui_->Chemin_0, ui_->Chemin_1, ui_->Chemin_2};
    for (int i = 0; i < 3; ++i) chemins[i]->setText(Chemin(o.Chemin[i]));
    ui_->Sauvegarder->setChecked(o.Sauvegarder);
    ui_->AgeMiniUnion->setText(VersQString(o.AgeMiniUnion));
    ui_->EcartGen->setText(VersQString(o.EcartGen));
    ui_->AgeMaxiEnfant->setText(VersQString(o.AgeMaxiEnfant));
    ui_->EcartAgeConjoints->setText(VersQString(o.EcartAgeConjoints));
    ui_->AgeRetraite->setText(VersQString(o.AgeRetraite));
    ui_->AgeMaxiDeces->setText(VersQString(o.AgeMaxiDeces));
    ui_->ModifCasse->setChecked(o.ModifCasse);
    ui_->OptConvCalRep->setChecked(o.OptConvCalRep);
    ui_->ListePersosCourte->setChecked(o.ListePersosCourte);
    ui_->NomPrenomParDefaut->setText(VersQString(o.NomPrenomParDefaut));
    ui_->MaxGen->setText(VersQString(o.MaxGen));
    ui_->SelTousDesc->setChecked(o.SelTousDesc);
    ui_->SelAutoLieuxAnnexes->setCurrentIndex(o.SelAutoLieuxAnnexes);
    ui_->LanceFicherExporte->setChecked(o.LanceFicherExporte);
    ui_->FondCaseCouleur->setChecked(o.FondCaseCouleur);
    ui_->Police->setText(VersQString(o.Police));
    ui_->Conversion->setCurrentIndex(o.Conversion);
    ui_->ExportPrefere->setCurrentIndex(o.ExportPrefere);
    ui_->ZoomFen->setChecked(o.ZoomFen);
    ui_->PourcentZoom->setText(VersQString(o.PourcentZoom));
    ui_->SymbNais->setText(VersQString(o.SymbNais));
    ui_->SymbBapt->setText(VersQString(o.SymbBapt));
    ui_->SymbCoMa->setText(VersQString(o.SymbCoMa));
    ui_->SymbMari->setText(VersQString(o.SymbMari));
    ui_->SymbDivo->setText(VersQString(o.SymbDivo));
    ui_->SymbDece->setText(VersQString(o.SymbDece));
    ui_->SymbSepu->setText(VersQString(o.SymbSepu));
    ui_->LiensWeb_0->setPlainText(VersCase(o.LiensWeb[0]));
    ui_->LiensWeb_1->setPlainText(VersCase(o.LiensWeb[1]));
    AfficherRecents();
}

void FenetreOptions::LireControles() {
    LireControles(options_);
}

void FenetreOptions::LireControles(Options& o) const {
    o.VerifMAJ = ui_->VerifMAJ->isChecked();
    QLineEdit* chemins[] = {ui_->Chemin_0, ui_->Chemin_1, ui_->Chemin_2};
    for (int i = 0; i < 3; ++i) o.Chemin[i] = Chemin(chemins[i]->text());
    o.Sauvegarder = ui_->Sauvegarder->isChecked();
    o.AgeMiniUnion = DepuisQString(ui_->AgeMiniUnion->text());
    o.EcartGen = DepuisQString(ui_->EcartGen->text());
    o.AgeMaxiEnfant = DepuisQString(ui_->AgeMaxiEnfant->text());
    o.EcartAgeConjoints = DepuisQString(ui_->EcartAgeConjoints->text());
    o.AgeRetraite = DepuisQString(ui_->AgeRetraite->text());
    o.AgeMaxiDeces = DepuisQString(ui_->AgeMaxiDeces->text());
    o.ModifCasse = ui_->ModifCasse->isChecked();
    o.OptConvCalRep = ui_->OptConvCalRep->isChecked();
    o.ListePersosCourte = ui_->ListePersosCourte->isChecked();
    o.NomPrenomParDefaut = DepuisQString(ui_->NomPrenomParDefaut->text());
    o.MaxGen = DepuisQString(ui_->MaxGen->text());
    o.SelTousDesc = ui_->SelTousDesc->isChecked();
    o.SelAutoLieuxAnnexes = ui_->SelAutoLieuxAnnexes->currentIndex();
    o.LanceFicherExporte = ui_->LanceFicherExporte->isChecked();
    o.FondCaseCouleur = ui_->FondCaseCouleur->isChecked();
    o.Police = DepuisQString(ui_->Police->text());
    o.Conversion = ui_->Conversion->currentIndex();
    o.ExportPrefere = ui_->ExportPrefere->currentIndex();
    o.ZoomFen = ui_->ZoomFen->isChecked();
    o.PourcentZoom = DepuisQString(ui_->PourcentZoom->text());
    o.SymbNais = DepuisQString(ui_->SymbNais->text());
    o.SymbBapt = DepuisQString(ui_->SymbBapt->text());
    o.SymbCoMa = DepuisQString(ui_->SymbCoMa->text());
    o.SymbMari = DepuisQString(ui_->SymbMari->text());
    o.SymbDivo = DepuisQString(ui_->SymbDivo->text());
    o.SymbDece = DepuisQString(ui_->SymbDece->text());
    o.SymbSepu = DepuisQString(ui_->SymbSepu->text());
    o.LiensWeb[0] = DepuisCase(ui_->LiensWeb_0->toPlainText());
    o.LiensWeb[1] = DepuisCase(ui_->LiensWeb_1->toPlainText());
}

void FenetreOptions::done(int resultat) {
    LireControles();
    if (!ValiderOptions(ini_, options_, dialogue_, versionMajeure_)) return;
    if (!(options_ == enregistrees_)) {
        const Bouton b = dialogue_.Message("Options",
                                           "Les options ont \xE9t\xE9 modifi\xE9"
                                           "es. Voulez-vous les enregistrer ?",
                                           Icone::Question, Boutons::OuiNonAnnuler, Bouton::Oui);
        if (b == Bouton::Annuler) return;
        if (b == Bouton::Oui) EnregistrerOptions();
    }
    AfficherOptions();
    QDialog::done(resultat);
}

void FenetreOptions::TesterZoom() {
    const QSize ecran = screen() ? screen()->size() : QSize(kLargeurConception, kHauteurConception);
    const ResultatZoom r = arbolix::TesterZoom(
        ui_->ZoomFen->isChecked(), DepuisQString(ui_->PourcentZoom->text()), ecran.width(), ecran.height());
    zoom_ = r.zoom;
    ui_->PourcentZoom->setText(VersQString(r.PourcentZoom));
    if (!r.PourcentZoom.empty() && r.PourcentZoom.front() == '(')
        options_.ZoomClic = r.PourcentZoom.substr(1, r.PourcentZoom.size() - 2);
    resize(static_cast<int>(tailleConception_.width() * zoom_.ZoomLargeur),
           static_cast<int>(tailleConception_.height() * zoom_.ZoomHauteur));
    emit ZoomChange(zoom_);
}

void FenetreOptions::EnregistrerOptions() {
    LireControles();
    arbolix::EnregistrerOptions(ini_, options_, recents_, dialogue_, versionMajeure_);
    AfficherOptions();
    RetenirEnregistrees();
}

void FenetreOptions::ClearFileList() {
    recents_ = arbolix::ClearFileList(ini_, fichierPresent_);
    AfficherRecents();
}

void FenetreOptions::ChoisirChemin(int indice) {
    QLineEdit* chemins[] = {ui_->Chemin_0, ui_->Chemin_1, ui_->Chemin_2};
    const QString dossier =
        QFileDialog::getExistingDirectory(this, tr("Choisir un dossier"), chemins[indice]->text());
    if (!dossier.isEmpty()) chemins[indice]->setText(dossier.endsWith('/') ? dossier : dossier + '/');
}

void FenetreOptions::AfficherRecents() {
    ui_->ListeRecents->clear();
    for (const auto& f : recents_) ui_->ListeRecents->addItem(Chemin(f));
}

}  // namespace arbolix
