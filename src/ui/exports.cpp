#include "ui/exports.h"

#include <QApplication>
#include <QKeyEvent>
#include <QTimer>
#include <fstream>
#include <iterator>

#include "app/reglages.h"
#include "dates/calendrier_gregorien.h"
#include "platform/qt_horloge.h"
#include "platform/qt_texte.h"
#include "ui_exports.h"

namespace arbolix {

namespace {

// "Libellé (*.txt)|*.txt|Autre (*.TM)|*.TM" : Qt ne veut que les libellés, séparés par ";;".
std::string FiltreDesRegles(std::string_view filtre) {
    std::string r;
    for (std::size_t i = 0, n = 0; i <= filtre.size(); ++n) {
        const std::size_t barre = std::min(filtre.find('|', i), filtre.size());
        if (n % 2 == 0) r += (r.empty() ? "" : ";;") + std::string(filtre.substr(i, barre - i));
        i = barre + 1;
    }
    return r;
}

// « Aujourd'hui » des rapports : l'horloge de la machine, lue ici seulement.
DateCalendrier DateDuJour() {
    return DateDuNumero(static_cast<std::int64_t>(Maintenant())).value_or(DateCalendrier{1, 1, 2000});
}

}  // namespace

FenetreExports::FenetreExports(Base& base, const Options& options, std::filesystem::path ini,
                               Dialogue& dialogue, QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::FenetreExports>()),
      base_(base),
      options_(options),
      ini_(std::move(ini)),
      dialogue_(dialogue) {
    ui_->setupUi(this);
    connect(ui_->LancerExport, &QPushButton::clicked, this, &FenetreExports::LancerExport);
    connect(ui_->BoutonAnnulerExport, &QPushButton::clicked, this, &FenetreExports::BoutonAnnulerExport);
    connect(ui_->BoutonParcourir, &QPushButton::clicked, this, &FenetreExports::BoutonParcourir);
    connect(ui_->BoutonParcourirTexte, &QPushButton::clicked, this, &FenetreExports::BoutonParcourirTexte);
    // L'ordre des familles attend la recherche d'actes : pas de bouton qui ne ferait rien.
    ui_->BoutonTri->setEnabled(false);
    for (QLineEdit* seuil : {ui_->AnneesConfidentielles_0, ui_->AnneesConfidentielles_1})
        connect(seuil, &QLineEdit::textEdited, this, [seuil](const QString& t) {
            const QString propre = VersQString(SeuilSaisi(DepuisQString(t)));
            if (propre != t) seuil->setText(propre);
        });
    connect(ui_->OptSimplMarisMult, &QCheckBox::toggled, this, [this](bool coche) {
        if (!coche) ui_->OptNumUniq->setChecked(false);
        ui_->OptNumUniq->setEnabled(coche);
    });
    connect(ui_->ComboColRTF_0, &QComboBox::currentTextChanged, this, &FenetreExports::ChangerColonnes);
}

FenetreExports::~FenetreExports() = default;

void FenetreExports::Ouvrir(int type, std::int32_t personne, const std::string& fichierGedcom,
                            std::string libelleSel, const ListePersonne* liste) {
    type_ = type;
    personne_ = personne;
    fichierGedcom_ = fichierGedcom;
    libelleSel_ = std::move(libelleSel);
    liste_ = liste;
    setWindowTitle(VersQString(TitreFenetreExport(type)));
    // Les réglages retenus, puis ce que le genre propose.
    exports_ = ini_.empty() ? OptionsExport{} : ChargerOptionsExport(ini_);
    exports_.ComboColRTF[0] = type == kDescendance || type == kLivre ? exports_.ComboColRTF[0] : "1";
    PreparerExport(exports_, type, base_, personne, options_, fichierGedcom);
    AfficherValeurs();
    AppliquerVisibilite();
    ui_->LancerExport->setEnabled(RapportDisponible(type));
    ui_->LancerExport->setFocus();
}

void FenetreExports::AfficherValeurs() {
    const OptionsExport& e = exports_;
    ui_->AnneesConfidentielles_0->setText(VersQString(e.AnneesConfidentielles[0]));
    ui_->AnneesConfidentielles_1->setText(VersQString(e.AnneesConfidentielles[1]));
    ui_->OptionSaufDecede->setChecked(e.OptionSaufDecede);
    ui_->OptionDatesAnnees->setChecked(e.OptionDatesAnnees);
    QRadioButton* ordres[] = {ui_->OptionOrdre_0, ui_->OptionOrdre_1, ui_->OptionOrdre_2};
    ordres[std::clamp(e.OptionOrdre, 0, 2)]->setChecked(true);
    ui_->ComboColRTF_0->setCurrentText(VersQString(e.ComboColRTF[0]));
    ui_->ComboColRTF_1->setCurrentText(VersQString(e.ComboColRTF[1]));
    ui_->OptionBasPage_0->setChecked(e.OptionBasPage[0]);
    ui_->OptionBasPage_1->setChecked(e.OptionBasPage[1]);
    ui_->OptSimplMarisMult->setChecked(e.OptSimplMarisMult);
    ui_->OptNumUniq->setChecked(e.OptNumUniq);
    ui_->OptNumUniq->setEnabled(e.OptSimplMarisMult);
    ui_->OptionIndexCourt->setChecked(e.OptionIndexCourt);
    (e.OptionPreciserUnions ? ui_->OptionPreciserUnions_0 : ui_->OptionPreciserUnions_1)->setChecked(true);
    ui_->Toutes->setChecked(e.Toutes);
    ui_->FichierExport->setText(QString::fromStdString(e.FichierExport));
    ui_->FichierExport->setEnabled(type_ != kActes);
    ui_->TitreExport->setText(VersQString(e.TitreExport));
    ui_->TexteComp->setPlainText(VersQString(e.TexteComp));
}

void FenetreExports::LireControles() {
    OptionsExport& e = exports_;
    e.AnneesConfidentielles = {DepuisQString(ui_->AnneesConfidentielles_0->text()),
                               DepuisQString(ui_->AnneesConfidentielles_1->text())};
    e.OptionSaufDecede = ui_->OptionSaufDecede->isChecked();
    e.OptionDatesAnnees = ui_->OptionDatesAnnees->isChecked();
    e.OptionOrdre = ui_->OptionOrdre_2->isChecked() ? 2 : ui_->OptionOrdre_1->isChecked() ? 1 : 0;
    e.ComboColRTF = {DepuisQString(ui_->ComboColRTF_0->currentText()),
                     DepuisQString(ui_->ComboColRTF_1->currentText())};
    e.OptionBasPage = {ui_->OptionBasPage_0->isChecked(), ui_->OptionBasPage_1->isChecked()};
    e.OptSimplMarisMult = ui_->OptSimplMarisMult->isChecked();
    e.OptNumUniq = ui_->OptNumUniq->isChecked();
    e.OptionIndexCourt = ui_->OptionIndexCourt->isChecked();
    e.OptionPreciserUnions = ui_->OptionPreciserUnions_0->isChecked();
    e.Toutes = ui_->Toutes->isChecked();
    e.FichierExport = ui_->FichierExport->text().toStdString();
    e.TitreExport = DepuisQString(ui_->TitreExport->text());
    e.TexteComp =
        DepuisQString(ui_->TexteComp->toPlainText().replace(QStringLiteral("\n"), QStringLiteral("\r\n")));
}

void FenetreExports::AppliquerVisibilite() {
    const VisibiliteExports v = Visibilite(type_);
    ui_->CadreDates->setVisible(v.CadreDates);
    ui_->CadrePerso->setVisible(v.CadrePerso);
    ui_->CadreRTF->setVisible(v.CadreRTF);
    ui_->CadreUnionsMulti->setVisible(v.CadreUnionsMulti);
    for (QWidget* w : {static_cast<QWidget*>(ui_->ComboColRTF_1), static_cast<QWidget*>(ui_->LabelNbCol_1),
                       static_cast<QWidget*>(ui_->OptNumUniq)})
        w->setVisible(v.ComboColRTF1);
    ui_->BoutonTri->setVisible(v.BoutonTri);
    ui_->Toutes->setVisible(v.Toutes);
    ChangerColonnes();
}

// Une seule colonne de texte dans un document RTF n'admet que l'ordre « évènements d'abord ».
void FenetreExports::ChangerColonnes() {
    const bool rtf = type_ == kDescendance || type_ == kLivre;
    const bool une =
        rtf && ui_->ComboColRTF_0->currentIndex() == 0 && ui_->ComboColRTF_0->currentText() == "1";
    if (une) ui_->OptionOrdre_1->setChecked(true);
    ui_->OptionOrdre_0->setVisible(!une);
    ui_->OptionOrdre_2->setVisible(!une);
}

void FenetreExports::Compteur(std::string_view texte) {
    ui_->Compteur->setText(VersQString(texte));
}

void FenetreExports::LaisserPasser() {
    QCoreApplication::processEvents();
}

void FenetreExports::LancerExport() {
    ui_->LancerExport->setEnabled(false);
    annulerExport_ = false;
    LireControles();
    ContexteExport ctx{base_, options_, exports_, DateDuJour()};
    ctx.progression = this;
    ctx.TypeExport = type_;
    ctx.NumPerso = personne_;
    ctx.FichierGedcom = DepuisQString(QString::fromStdString(fichierGedcom_));
    ctx.LibelleSel = libelleSel_;
    ctx.livre = livre_;
    ctx.heure = QTime::currentTime().hour();
    ctx.minute = QTime::currentTime().minute();
    if (!exports_.FichierExport.empty() && exports_.FichierExport[0] == '/' && !ini_.empty())
        EnregistrerOptionsExport(ini_, exports_, type_);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ResultatExport r =
        arbolix::LancerExport(ctx, dialogue_, liste_, parentWidget() && parentWidget()->isVisible());
    QApplication::restoreOverrideCursor();
    ui_->LancerExport->setEnabled(true);
    ui_->Compteur->clear();
    if (r.CheminIncomplet) {
        BoutonParcourir();
        annulerExport_ = true;
        return;
    }
    if (r.Ecrit) {
        emit Exporte(QString::fromStdString(exports_.FichierExport));
        hide();
        setResult(QDialog::Accepted);
    }
    annulerExport_ = false;
}

void FenetreExports::BoutonAnnulerExport() {
    annulerExport_ = true;
    QApplication::restoreOverrideCursor();
    ui_->LancerExport->setEnabled(true);
    hide();
    setResult(QDialog::Rejected);
}

// Échap fait ce que fait Annuler.
void FenetreExports::reject() {
    BoutonAnnulerExport();
}

void FenetreExports::BoutonParcourir() {
    const GenreExport* g = TrouverGenre(type_);
    if (!g || g->titreParcourir.empty()) return;
    std::string filtre(g->filtre);
    const std::string courant = ui_->FichierExport->text().toStdString();
    const std::string depart =
        courant.empty() ? DossierExport(options_, fichierGedcom_) + std::string(g->nomParcourir) : courant;
    const auto choisi =
        dialogue_.ChoisirFichierEnregistrer(g->titreParcourir, FiltreDesRegles(filtre), depart);
    if (choisi) ui_->FichierExport->setText(QString::fromStdString(*choisi));
}

void FenetreExports::BoutonParcourirTexte() {
    const auto choisi = dialogue_.ChoisirFichierOuvrir(
        "Ouvrir un fichier de texte compl\xE9mentaire...",
        FiltreDesRegles(
            "Fichiers texte (*.txt)|*.txt|Fichiers HTML (*.HTML)|*.htm*|Tous les fichiers (*.*)|*.*"),
        options_.Chemin[0]);
    if (!choisi) return;
    std::ifstream f(*choisi, std::ios::binary);
    const std::string t{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    ui_->TexteComp->setPlainText(VersQString(t).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    ui_->LancerExport->setFocus();
}

}  // namespace arbolix
