// Les tables d'actes de la fédération depuis la fiche : conversion d'une table TMAO, texte tabulé
// vers TMAO, export des actes d'une commune (MenuExportUCGL), et la table de la ligne de commande.
#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QDate>
#include <QMenu>
#include <QMenuBar>
#include <QTimer>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "acts/export_actes.h"
#include "acts/txt2tm.h"
#include "app/demarrage.h"
#include "gedcom/ecrivain.h"
#include "gedcom/enregistrement.h"
#include "platform/qt_texte.h"
#include "reports/conversion_tmao.h"
#include "store/chaines.h"
#include "ui/editeur.h"
#include "ui/exports.h"
#include "ui/fiche.h"
#include "ui/personne.h"
#include "ui_fiche.h"

namespace arbolix {

namespace {

constexpr const char* kTitreConversion = "Conversion TMAO";

// Les rangées de MenuExportUCGL : l'index est celui des règles (3 : l'ascendance).
constexpr const char* kRangeesUCGL[] = {
    "Naissances pour l'UCGL...",
    "Mariages pour l'UCGL...",
    "D\xE9"
    "c\xE8s pour l'UCGL...",
    "Ascendance pour l'UCGL...",
};

}  // namespace

void Fiche::BrancherTmao() {
    QAction* conversion = new QAction(VersQString("Convertir un fichier TMA&O..."), this);
    conversion->setObjectName("MenuTMAO2");
    connect(conversion, &QAction::triggered, this, &Fiche::MenuTMAO2);
    QAction* tabule = new QAction(VersQString("Conversion TXT tabul\xE9 -> TMAO..."), this);
    tabule->setObjectName("MenuTXT2TM");
    connect(tabule, &QAction::triggered, this, &Fiche::MenuTXT2TM);
    ui_->BarreMenu_0->insertActions(ui_->MenuEnvoyerMel, {conversion, tabule});
    auto* exports = findChild<QMenu*>("BarreMenuExports");
    if (!exports) return;
    exports->addSeparator();
    for (int i = 0; i < 4; ++i) {
        QAction* a = exports->addAction(VersQString(kRangeesUCGL[i]));
        a->setObjectName(QString("MenuExportUCGL_%1").arg(i));
        connect(a, &QAction::triggered, this, [this, i] { MenuExportUCGL(i); });
    }
}

void Fiche::ConvertirLigneCommande() {
    std::string message;
    if (LancerConversionTmao(gedcom_.Fichier, options_.Conversion, *dialogue_, message) != 0)
        dialogue_->Message(kTitreConversion, message, Icone::Stop);
    gedcom_.Fichier.clear();
    // La table convertie, le programme s'arrête : la boucle d'évènements n'a plus rien à faire.
    QTimer::singleShot(0, qApp, &QCoreApplication::quit);
}

void Fiche::MenuTMAO2() {
    EnregistrerFiche();
    DemandeConversion d;
    d.Mode = options_.Conversion;
    d.Date = DateDuJour();
    d.Dossier = options_.Chemin[0];
    const ResultatConversion r = ConvertirTMAO(d, *dialogue_);
    if (!r.Ok && !r.Annule) dialogue_->Message(kTitreConversion, r.Erreur, Icone::Stop);
    if (r.Ok && options_.LanceFicherExporte) dialogue_->OuvrirDansProgramme(r.Sortie);
}

void Fiche::MenuTXT2TM() {
    EnregistrerFiche();
    const auto source = dialogue_->ChoisirFichierOuvrir(
        "Convertir un fichier texte tabul\xE9 en TMAO...",
        "Fichiers texte (*.txt)|*.txt|Tous les fichiers (*.*)|*.*", options_.Chemin[0]);
    if (!source || !std::filesystem::is_regular_file(*source)) return;
    std::ifstream f(*source, std::ios::binary);
    const std::string texte{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    const std::string nom =
        DepuisQString(QString::fromStdString(std::filesystem::path(*source).filename().string()));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const ResultatTxt2Tm r = Txt2Tm(texte, nom);
    EtatFichier etat;
    if (r.Ok) {
        etat = EcrireFichierSur(NomSortieTxt2Tm(*source), [&](std::ostream& o) {
            o.write(r.Octets.data(), static_cast<std::streamsize>(r.Octets.size()));
            return static_cast<bool>(o);
        });
    }
    QApplication::restoreOverrideCursor();
    if (!r.Ok || !etat.Ok) {
        dialogue_->Message(kTitreConversion, r.Ok ? etat.Message : r.Erreur, Icone::Stop);
        return;
    }
    editeur_->Montrer(QString::fromStdString(*source), BrouillonNotesTable(r, QDate::currentDate().year()));
}

void Fiche::MenuExportUCGL(int index) {
    EnregistrerFiche();
    if (!FichierOuvert()) return;
    if (index == 3) {
        MenuExport(kAscendance);
        return;
    }
    const std::string lieu = LieuDuNomDeFichier(gedcom_.Fichier, options_.ModifCasse);
    std::vector<std::string> lieux =
        LieuxDuNom(base_.Listes.Lieu, DepuisQString(QString::fromStdString(lieu)));
    if (lieux.empty()) {
        dialogue_->Message(kTitreExportTMAO, kAucunLieu, Icone::Attention);
        return;
    }
    ListePersonne& l = personne_->Liste();
    ListerActes(base_, options_,
                RechercheUCGL(index, OptionsExport{}, QDate::currentDate().year(), std::move(lieux)),
                etatSel_.Cochee, true, l);
    personne_->Montrer();
    const auto personne = static_cast<std::int32_t>(ValeurNumerique(DepuisQString(ui_->NumPerso->text())));
    auto* fenetre = findChild<FenetreExports*>();
    if (!fenetre) fenetre = new FenetreExports(base_, options_, ini_, *dialogue_, this);
    fenetre->Ouvrir(kActes, personne, gedcom_.Fichier,
                    etatSel_.Libelle.empty() ? "Toute la base" : etatSel_.Libelle, &l);
    fenetre->open();
}

}  // namespace arbolix
