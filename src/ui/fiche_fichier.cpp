// La fiche, côté fichier : créer, ouvrir, charger, enregistrer, fermer, déposer, importer.
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QTimer>
#include <utility>

#include "app/demarrage.h"
#include "app/partage.h"
#include "app/reglages.h"
#include "app/travail_en_fond.h"
#include "gedcom/enregistrement.h"
#include "gedcom/journal_lecture.h"
#include "kinship/sosa.h"
#include "platform/cp1252.h"
#include "platform/ini.h"
#include "platform/qt_texte.h"
#include "store/selection.h"
#include "tools/import_medias.h"
#include "ui/editeur.h"
#include "ui/fiche.h"
#include "ui/gedcom.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

bool Fiche::FichierOuvert() const {
    return ouvert_;
}

void Fiche::ActualiserTitre() {
    const std::string fichier = ouvert_ ? Utf8VersCp1252(gedcom_.Fichier) : std::string();
    setWindowTitle(VersQString(TitreFiche(fichier, base_.FichierModifie != 0)));
    ActualiserEnregistrer();
    ActualiserBarreEtat();
}

// Enregistrer n'a de sens que pour un fichier ouvert et modifié.
void Fiche::ActualiserEnregistrer() {
    const bool actif = ouvert_ && (base_.FichierModifie != 0 || base_.FicheModifiee != 0);
    ui_->MenuEnregistrer->setEnabled(actif);
    if (auto* a = findChild<QAction*>("IcoCommande3")) a->setEnabled(actif);
    if (auto* a = findChild<QAction*>("MenuEnregistrerSous")) a->setEnabled(ouvert_);
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

bool Fiche::Enregistrer() {
    EnregistrerFiche();
    if (!ouvert_) return false;
    const ChoixEnregistrement choix =
        PreparerEnregistrement(base_, gedcom_, etatSel_.Cochee == 0, *dialogue_);
    // Non à la question : toute la base est de nouveau sélectionnée ; après l'écriture aussi.
    if (!choix.Partiel) ReprendreToutSel();
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
    ReprendreToutSel();
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
    ui_->MenuEnvoyerMel->setEnabled(false);
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
    ui_->MenuEnvoyerMel->setEnabled(true);
    ui_->MenuImportFichiers->setEnabled(true);
    // « Toute la base » : la case de la sélection ne se change pas sur la fiche.
    ui_->Sel->setEnabled(false);
    ui_->BarreMenu_1->setEnabled(true);
    for (QAction* a : {ui_->MenuListePersos, ui_->MenuListeFamis, ui_->MenuListeNotes, ui_->MenuListeSources,
                       ui_->MenuListeFichiers, ui_->MenuFichesRecentes})
        a->setEnabled(true);
    for (int i : {5, 6, 7, 8, 10, 19})
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
    // La lecture et ce qu'elle entraîne sur la base se font sur un fil à part : la fenêtre reste
    // vivante sans que la lecture paie ses pompes. Pendant ce temps rien ici ne doit lire la base,
    // d'où un fichier tenu pour fermé jusqu'au bout.
    const bool etaitOuvert = std::exchange(ouvert_, false);
    const bool visible = isVisible();
    ResultatLecture r;
    Ascendance a;
    TravaillerEnFond(progression, [&](Progression& relais) {
        ContexteLecture ctx{options_, gedcom_, relais, textes_};
        ctx.fenetreVisible = visible;
        r = LireGedcom(base_, ctx);
        if (!r.Lu || r.Annule) return;
        // Un fichier s'ouvre sur « Toute la base » : chaque fiche en usage est sélectionnée.
        ToutSelectionner(base_);
        a = NumeroterApresLecture(base_, options_, r.PremierePerso);
    });
    if (!r.Lu) {
        ouvert_ = etaitOuvert;
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
    ApresLecture(a);
    MettreEnPlaceFichier(PremierePersonne(r.PremierePerso));
    RetenirFichier();
    if (r.Journal.empty() && a.Journal.empty()) return true;
    // La fiche se montre pendant que le journal se prépare : il fait des dizaines de Mo sur un
    // grand fichier. Ce travail-là ne lit que le journal, jamais la base.
    const std::string titre = textes_.TitreJournal + " " + Utf8VersCp1252(gedcom_.Fichier) + "\r\n\r\n";
    const std::string fin = "\r\n" + textes_.FinJournal;
    std::string journal;
    TravaillerEnFond(progression, [&](Progression&) {
        const std::string lisible = JournalLisible(r.Journal, r.Reperes);
        journal.reserve(titre.size() + lisible.size() + a.Journal.size() + fin.size());
        journal.append(titre).append(lisible).append(a.Journal).append(fin);
    });
    editeur_->MontrerJournal(VersQString(textes_.TitreJournal), std::move(journal));
    return true;
}

// Le fichier ouvert passe en tête des fichiers récents.
void Fiche::RetenirFichier() {
    if (ini_.empty()) return;
    recents_ = AjouterFichierRecent(recents_, gedcom_.Fichier);
    EcrireFichiersRecents(ini_, recents_);
}

// Un autre fichier remplace celui qui est ouvert : on ferme d'abord celui-ci, en proposant de
// l'enregistrer, pour que la lecture ne perde aucune modification.
void Fiche::MenuNouveau() {
    if (ouvert_ && !MenuFermer()) return;
    OuvrirGedcom(ModeGedcom::Nouveau);
}

std::string Fiche::FichierExemple() const {
    const std::filesystem::path dossier = QCoreApplication::applicationDirPath().toStdString();
    const std::filesystem::path exemple = CheminPartage(dossier, "exemple.ged");
    std::error_code ec;
    return std::filesystem::exists(exemple, ec) ? exemple.string() : std::string();
}

void Fiche::MenuOuvrir() {
    if (ouvert_ && !MenuFermer()) return;
    if (gedcom_.Fichier.empty()) gedcom_.Fichier = options_.FichierDefaut;
    // Première fois, sans fichier par défaut : le dernier ouvert, sinon l'exemple livré.
    if (gedcom_.Fichier.empty()) gedcom_.Fichier = recents_.empty() ? FichierExemple() : recents_.front();
    OuvrirGedcom(ModeGedcom::Ouvrir);
}

bool Fiche::MenuFermer() {
    EnregistrerFiche();
    // Oui enregistre ; un enregistrement annulé ou manqué laisse le fichier ouvert.
    if (!DemanderFermeture(base_, *dialogue_, [this] { return Enregistrer(); })) return false;
    Vider(true);
    return true;
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

}  // namespace arbolix
