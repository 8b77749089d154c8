// La fiche, côté statistiques et fiche familiale : la liste de choix, le texte et ses graphiques
// dans l'éditeur de notes, l'impression de la famille choisie (aperçu, imprimante ou PDF).
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDate>
#include <QFontMetricsF>
#include <QMenu>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <filesystem>

#include "card/queues.h"
#include "platform/cp1252.h"
#include "platform/qt_texte.h"
#include "reports/fiche_famille.h"
#include "reports/statistiques.h"
#include "ui/choix_stats.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/graphiques.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

// La fiche sur une page d'imprimante (ou de PDF) : Times New Roman 12, lignes coulées par le noyau.
bool ImprimerFiche(QPrinter& imprimante, const std::vector<MorceauFiche>& morceaux) {
    QPainter p;
    if (!p.begin(&imprimante)) return false;
    QFont normale(VersQString(kPoliceFicheFamille), kCorpsFicheFamille);
    QFont grasse = normale;
    grasse.setBold(true);
    const QFontMetricsF mn(normale, p.device()), mg(grasse, p.device());
    const MesureFiche mesure = [&](std::string_view t, bool gras) {
        return (gras ? mg : mn).horizontalAdvance(VersQString(t));
    };
    const QRectF page = p.viewport();
    const double interligne = mn.lineSpacing();
    int courante = 0;
    for (const PlaceFiche& m :
         DisposerFiche(morceaux, mesure, page.width(), static_cast<int>(page.height() / interligne))) {
        for (; courante < m.page; ++courante) imprimante.newPage();
        p.setFont(m.gras ? grasse : normale);
        p.drawText(QPointF(m.x, mn.ascent() + m.ligne * interligne), VersQString(m.texte));
    }
    return p.end();
}

}  // namespace

void Fiche::BrancherStats() {
    auto* menu = findChild<QMenu*>(QStringLiteral("BarreMenuExports"));
    if (!menu) return;
    menu->addSeparator();
    QAction* stats = menu->addAction(QString::fromUtf8("&Statistiques..."));
    stats->setObjectName("MenuStats");
    connect(stats, &QAction::triggered, this, &Fiche::MenuStats);
    QAction* fiche = menu->addAction(QString::fromUtf8("&Fiche familiale..."));
    fiche->setObjectName("MenuFicheFamille");
    connect(fiche, &QAction::triggered, this, &Fiche::MenuFicheFamille);
}

void Fiche::MenuStats() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    if (PopulationStatistiques(base_) == 0) {
        dialogue_->Message(kTitreSelectionVide, kSelectionVide, Icone::Stop);
        return;
    }
    auto* choix = findChild<ChoixStats*>();
    if (!choix) {
        choix = new ChoixStats(this);
        connect(choix, &QDialog::accepted, this, [this, choix] {
            const std::string dossier = Utf8VersCp1252(QCoreApplication::applicationDirPath().toStdString());
            const ContexteStatistiques ctx{
                base_,
                options_,
                Utf8VersCp1252(std::filesystem::path(gedcom_.Fichier).filename().string()),
                "Arbolix",
                dossier,
                QDate::currentDate().year()};
            Statistiques s;
            {
                QApplication::setOverrideCursor(Qt::WaitCursor);
                s = EtablirStatistiques(ctx, choix->Choix());
                QApplication::restoreOverrideCursor();
            }
            editeur_->MontrerTexteLibre(QString::fromUtf8("Statistiques"), s.texte, *dialogue_);
            if (!s.repartitions.empty()) {
                editeur_->Cote(new VueGraphiques(s.repartitions, *dialogue_, editeur_));
                editeur_->resize(std::max(editeur_->width(), 1280), std::max(editeur_->height(), 600));
            }
        });
    }
    for (int i = 0; i < static_cast<int>(kChoixStatistiques.size()); ++i) choix->Cocher(i, true);
    choix->open();
}

void Fiche::MenuFicheFamille() {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    const int rangee = contenu_.Unions.size() == 1 ? 0 : ui_->Union->currentRow();
    if (rangee < 0 || static_cast<std::size_t>(rangee) >= contenu_.Unions.size()) {
        dialogue_->Message(kTitreFicheFamille, kUnionASelectionner, Icone::Stop);
        return;
    }
    const std::int32_t f = LireQueue(contenu_.Unions[static_cast<std::size_t>(rangee)].texte).numero;
    const auto morceaux = FicheFamille(base_, options_, f, Utf8VersCp1252(gedcom_.Fichier), DateMachine());
    QPrinter imprimante(QPrinter::HighResolution);
    imprimante.setPageSize(QPageSize(QPageSize::A4));
    imprimante.setDocName(VersQString("Fiche familiale n\xB0 " + std::to_string(f)));
    if (QPrinterInfo::availablePrinterNames().isEmpty()) {
        // Sans imprimante, la fiche va dans un PDF choisi.
        const auto chemin = dialogue_->ChoisirFichierEnregistrer(
            "Enregistrer la fiche familiale en PDF", "Documents PDF (*.pdf)",
            "fiche_familiale_" + std::to_string(f) + ".pdf");
        if (!chemin) return;
        imprimante.setOutputFormat(QPrinter::PdfFormat);
        imprimante.setOutputFileName(QString::fromStdString(*chemin));
        if (!ImprimerFiche(imprimante, morceaux))
            dialogue_->Message(
                kTitreFicheFamille,
                "La fiche n'a pas pu \xEAtre \xE9\x63rite dans " + Utf8VersCp1252(*chemin) + ".",
                Icone::Stop);
        return;
    }
    // L'aperçu d'abord ; son bouton d'impression ouvre le choix de l'imprimante.
    QPrintPreviewDialog apercu(&imprimante, this);
    apercu.setWindowTitle(VersQString(kTitreFicheFamille));
    connect(&apercu, &QPrintPreviewDialog::paintRequested, this,
            [&morceaux](QPrinter* i) { ImprimerFiche(*i, morceaux); });
    apercu.exec();
}

}  // namespace arbolix
