#include "ui/arbre.h"

#include <QPageSetupDialog>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinterInfo>
#include <cmath>

#include "app/reglages.h"
#include "dates/calendrier_gregorien.h"
#include "platform/qt_texte.h"
#include "trees/fichier_arbre.h"
#include "trees/sortie_arbre.h"
#include "ui/apercu_arbre.h"
#include "ui_arbre.h"

namespace arbolix {

namespace {

constexpr std::string_view kTitreEnregistrer = "Enregistrer l'arbre...";

std::string Entier(double v) {
    return std::to_string(static_cast<long long>(std::lround(v)));
}

}  // namespace

FenetreArbre::FenetreArbre(Base& base, const Options& options, std::filesystem::path ini, Dialogue& dialogue,
                           QWidget* parent)
    : QDialog(parent),
      ui_(std::make_unique<Ui::FenetreArbre>()),
      base_(base),
      options_(options),
      ini_(std::move(ini)),
      dialogue_(dialogue),
      apercu_(new Pr(options, parent)) {
    ui_->setupUi(this);
    QPushButton* boutons[] = {ui_->BoutonImprimer_0, ui_->BoutonImprimer_1, ui_->BoutonImprimer_2,
                              ui_->BoutonImprimer_3};
    for (int i = 0; i < 4; ++i)
        connect(boutons[i], &QPushButton::clicked, this, [this, i] { BoutonImprimer(i); });
    connect(ui_->BoutonFormat, &QPushButton::clicked, this, &FenetreArbre::BoutonFormat);
    connect(apercu_, &Pr::Recentrer, this, &FenetreArbre::Dessiner);
    connect(apercu_, &Pr::Imprimer, this, &FenetreArbre::Imprimer);
    connect(apercu_, &Pr::Enregistrer, this, [this] { Enregistrer(0); });
}

FenetreArbre::~FenetreArbre() = default;

void FenetreArbre::Ouvrir(int genre, std::int32_t numero, std::string titre, ListePersonne etiquettes) {
    genre_ = genre;
    numero_ = numero;
    titre_ = std::move(titre);
    etiquettes_ = std::move(etiquettes);
    OptionsArbre a = ChargerOptionsArbre(ini_);
    // Seul le grand format reprend la page retenue ; les autres partent des valeurs de leur genre.
    if (genre != kAscendant) {
        const OptionsArbre defaut;
        a.LF = defaut.LF, a.HF = defaut.HF, a.MF = defaut.MF, a.NbGen = defaut.NbGen;
    }
    if (genre == kDescendant) a.NbGen.clear();
    if (genre == kEtiquettes) {
        const QRectF papier = imprimante_.pageLayout().fullRect(QPageLayout::Millimeter);
        a.LF = Entier(papier.width()), a.HF = Entier(papier.height());
    }
    PoserDimensions(a);
    ui_->LabelTaillePolice->clear();
    ui_->LabelInfoPrinter->setText(VersQString("Imprimante : ") +
                                   (QPrinterInfo::availablePrinters().isEmpty()
                                        ? VersQString("aucune")
                                        : QPrinterInfo::defaultPrinter().printerName()));
    setWindowTitle(VersQString(NomGenreArbre(genre)));
    show();
}

OptionsArbre FenetreArbre::Dimensions() const {
    OptionsArbre a;
    a.LC = DepuisQString(ui_->LC->text()), a.HC = DepuisQString(ui_->HC->text());
    a.MC = DepuisQString(ui_->MC->text()), a.LF = DepuisQString(ui_->LF->text());
    a.HF = DepuisQString(ui_->HF->text()), a.MF = DepuisQString(ui_->MF->text());
    a.NbGen = DepuisQString(ui_->NbGen->text());
    return a;
}

void FenetreArbre::PoserDimensions(const OptionsArbre& a) {
    ui_->LC->setText(VersQString(a.LC)), ui_->HC->setText(VersQString(a.HC));
    ui_->MC->setText(VersQString(a.MC)), ui_->LF->setText(VersQString(a.LF));
    ui_->HF->setText(VersQString(a.HF)), ui_->MF->setText(VersQString(a.MF));
    ui_->NbGen->setText(VersQString(a.NbGen));
}

void FenetreArbre::Retenir() {
    EcrireOptionsArbre(ini_, Dimensions(), genre_ == kAscendant);
}

DemandeArbre FenetreArbre::Demande(int mode, std::int32_t numero, int decalage) const {
    DemandeArbre d;
    d.genre = genre_;
    d.numero = numero;
    d.decalage = decalage;
    d.mode = mode;
    d.dims = Dimensions();
    d.titre = titre_;
    d.aujourdhui = DateMachine();
    d.etiquettes = &etiquettes_;
    d.imprimanteExiste = !QPrinterInfo::availablePrinters().isEmpty();
    return d;
}

bool FenetreArbre::Accepter(const DessinArbre& d) {
    if (d.CacherApercu) apercu_->hide();
    if (!d.Dessine()) {
        dialogue_.Message(d.TitreBoite, d.TexteBoite,
                          d.TitreBoite == kTitreImpressionImpossible ? Icone::Stop : Icone::Attention);
        return false;
    }
    // Des dimensions qui dessinent sont celles de la prochaine fois.
    Retenir();
    // Les cases de l'ascendant prennent la largeur que la page leur laisse.
    if (genre_ == kAscendant || genre_ == kAscendantA4) ui_->LC->setText(VersQString(NombreFichier(d.LC)));
    ui_->LabelTaillePolice->setText(
        VersQString("Taille calcul\xE9"
                    "e : " +
                    std::to_string(static_cast<int>(d.Taille))));
    return true;
}

void FenetreArbre::BoutonImprimer(int index) {
    if (index == 0) Dessiner(numero_, 0);
    if (index == 1) Imprimer();
    if (index == 2) Enregistrer(kModeRtf);
    if (index == 3) Enregistrer(kModeSvg);
}

void FenetreArbre::Dessiner(std::int32_t numero, int decalage) {
    const MesureQt mesure(options_);
    DessinArbre d = DessinerArbre(base_, options_, Demande(kModeApercu, numero, decalage), mesure);
    if (!Accepter(d)) return;
    apercu_->setWindowTitle(windowTitle());
    apercu_->Montrer(std::move(d), numero, decalage);
}

void FenetreArbre::Enregistrer(int mode) {
    const std::string nom = genre_ == kEtiquettes ? "etiquettes" : "arbre";
    std::string filtre = "Fichier SVG (*.svg)|*.svg|Fichier RTF (*.rtf)|*.rtf";
    if (mode == kModeRtf) filtre = "Fichier RTF (*.rtf)|*.rtf";
    const auto chemin = dialogue_.ChoisirFichierEnregistrer(kTitreEnregistrer, filtre,
                                                            nom + (mode == kModeRtf ? ".rtf" : ".svg"));
    if (!chemin) return;
    const int choisi = ModeDuFichier(*chemin);
    const int m = choisi == kModeRtf || choisi == kModeSvg ? choisi : kModeSvg;
    const std::string fichier = choisi < 0 ? *chemin + ".svg" : *chemin;
    const MesureTexte& mesure = MesureDuMode(m);
    const DessinArbre d = DessinerArbre(
        base_, options_, Demande(m, apercu_->isVisible() ? apercu_->Racine() : numero_, apercu_->Decalage()),
        mesure);
    if (!Accepter(d)) return;
    const EtatFichier e = EcrireArbre(d, m, fichier, base_, options_, mesure);
    if (!e.Ok) {
        dialogue_.Message(kTitreEnregistrer, e.Message, Icone::Stop);
        return;
    }
    dialogue_.OuvrirDansProgramme(fichier);
}

// Sans imprimante, la boîte le dit, puis l'arbre peut partir dans un fichier PDF.
void FenetreArbre::Imprimer() {
    const std::int32_t racine = apercu_->isVisible() ? apercu_->Racine() : numero_;
    const int decalage = apercu_->Decalage();
    DemandeArbre demande = Demande(kModeImprimante, racine, decalage);
    const bool sansImprimante = !demande.imprimanteExiste;
    const MesureQt mesure(options_);
    if (sansImprimante) {
        Accepter(DessinerArbre(base_, options_, demande, mesure));
        const auto pdf =
            dialogue_.ChoisirFichierEnregistrer(kTitreEnregistrer, "Fichier PDF (*.pdf)|*.pdf", "arbre.pdf");
        if (!pdf) return;
        imprimante_.setOutputFormat(QPrinter::PdfFormat);
        imprimante_.setOutputFileName(QString::fromStdString(*pdf));
        demande.imprimanteExiste = true;
    }
    const DessinArbre d = DessinerArbre(base_, options_, demande, mesure);
    if (!Accepter(d)) return;
    imprimante_.setPageSize(QPageSize(QSizeF(d.LF, d.HF), QPageSize::Millimeter));
    imprimante_.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    if (!sansImprimante) {
        QPrintDialog choix(&imprimante_, this);
        if (choix.exec() != QDialog::Accepted) return;
    }
    QPainter p(&imprimante_);
    const double pxParMm = imprimante_.resolution() / 25.4;
    for (int page = 1; page <= d.Pages; ++page) {
        if (page > 1) imprimante_.newPage();
        PeindreArbre(p, d, options_, pxParMm, page);
    }
    p.end();
    if (sansImprimante) dialogue_.OuvrirDansProgramme(imprimante_.outputFileName().toStdString());
}

void FenetreArbre::BoutonFormat() {
    const OptionsArbre a = Dimensions();
    const double lf = LireMillimetres(a.LF), hf = LireMillimetres(a.HF), mf = LireMillimetres(a.MF);
    if (lf > 0 && hf > 0) imprimante_.setPageSize(QPageSize(QSizeF(lf, hf), QPageSize::Millimeter));
    imprimante_.setPageMargins(QMarginsF(mf, mf, mf, mf), QPageLayout::Millimeter);
    QPageSetupDialog dialogue(&imprimante_, this);
    if (dialogue.exec() != QDialog::Accepted) return;
    const QPageLayout page = imprimante_.pageLayout();
    const QRectF tout = page.fullRect(QPageLayout::Millimeter);
    ui_->LF->setText(QString::fromStdString(Entier(tout.width())));
    ui_->HF->setText(QString::fromStdString(Entier(tout.height())));
    ui_->MF->setText(QString::fromStdString(Entier(page.margins(QPageLayout::Millimeter).left())));
    ui_->LabelInfoPrinter->setText(VersQString("Imprimante : ") + imprimante_.printerName() + "\n" +
                                   VersQString("Format : ") + QString::fromStdString(Entier(tout.width())) +
                                   " x " + QString::fromStdString(Entier(tout.height())));
}

}  // namespace arbolix
