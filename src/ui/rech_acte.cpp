#include "ui/rech_acte.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QVBoxLayout>

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "platform/qt_texte.h"
#include "ui_rech_acte.h"

namespace arbolix {

namespace {

constexpr int kOptionNom = 1, kOptionLieu = 2, kOptionProfession = 3, kOptionTemoin = 4, kOptionDomicile = 5;

// Les listes de choix des critères : titre, Genre et liste de saisie montrée.
struct ListeCritere {
    int option;
    const char* titre;
    const char* genre;
    ListeChoix ListesSaisie::*source;
};
constexpr ListeCritere kListesCriteres[] = {
    {kOptionNom, "Noms \xE0 rechercher", "Noms", &ListesSaisie::Nom},
    {kOptionLieu, "Lieux \xE0 rechercher", "Lieux", &ListesSaisie::Lieu},
    {kOptionProfession, "Professions \xE0 rechercher", "Professions", &ListesSaisie::Metier},
};

}  // namespace

RechActe::RechActe(Base& base, const Options& options, Liens liens, QWidget* parent)
    : QDialog(parent), base_(base), options_(options), liens_(std::move(liens)), ui_(new Ui::RechActe) {
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    ui_->ListeTri_1->setCurrentIndex(2);
    for (int i = 0; i < 6; ++i) {
        auto* bouton = findChild<QAbstractButton*>(QString("OptionType_%1").arg(i));
        connect(bouton, &QAbstractButton::clicked, this, [this, i] { ChoisirCritere(i); });
    }
    connect(ui_->ListeTri_0, &QComboBox::activated, this, &RechActe::ChoisirTri);
    connect(ui_->ListeTri_1, &QComboBox::activated, this, &RechActe::ChoisirTri);
    connect(ui_->BoutonOK, &QPushButton::clicked, this, &RechActe::BoutonOK);
}

RechActe::~RechActe() = default;

void RechActe::Ouvrir(bool selection) {
    selection_ = selection;
    setWindowTitle(VersQString(selection ? "S\xE9lection d'actes..." : "Recherche d'actes"));
    if (selection) ui_->TypeActe_0->setChecked(true);
    show();
    raise();
    activateWindow();
}

RechercheActes RechActe::Recherche() const {
    RechercheActes r;
    for (int i = 0; i < kNbCasesActe; ++i)
        r.TypeActe[static_cast<std::size_t>(i)] =
            findChild<QAbstractButton*>(QString("TypeActe_%1").arg(i))->isChecked();
    int option = 0;
    for (int i = 0; i < 6; ++i)
        if (findChild<QAbstractButton*>(QString("OptionType_%1").arg(i))->isChecked()) option = i;
    r.OptionType = static_cast<Critere>(option);
    if (option == kOptionDomicile) {
        r.Criteres.push_back(DepuisQString(ui_->Critere->text().trimmed()));
    } else if (option >= kOptionNom && option <= kOptionProfession) {
        for (std::size_t i = 0; i < valeurs_.coches.size(); ++i)
            if (valeurs_.coches[i]) r.Criteres.push_back(valeurs_.liste.Rangees[i].texte);
    }
    r.Temoin = option == kOptionTemoin ? temoin_ : 0;
    r.OptInclureApprox = ui_->OptInclureApprox->isChecked();
    r.AnneeDebut = DepuisQString(ui_->AnneeDebut->text());
    r.AnneeFin = DepuisQString(ui_->AnneeFin->text());
    r.ListeTri = {ui_->ListeTri_0->currentIndex(), ui_->ListeTri_1->currentIndex()};
    return r;
}

void RechActe::ChoisirCritere(int option) {
    ui_->Critere->clear();
    ui_->Critere->setReadOnly(option != kOptionDomicile);
    valeurs_ = {};
    temoin_ = 0;
    if (criteres_) criteres_->hide();
    if (option >= kOptionNom && option <= kOptionProfession) {
        MontrerCriteres(option);
    } else if (option == kOptionTemoin) {
        temoin_ = liens_.fiche();
        if (temoin_ > 0)
            ui_->Critere->setText(VersQString(LigneListe(base_, options_, temoin_) + Queue('P', temoin_)));
    } else if (option == kOptionDomicile) {
        liens_.montrerListe(ListeDomiciles(base_));
        ui_->Critere->setFocus();
    }
}

void RechActe::MontrerCriteres(int option) {
    const ListeCritere* l = nullptr;
    for (const auto& c : kListesCriteres)
        if (c.option == option) l = &c;
    if (!l) return;
    if (!criteres_) {
        criteres_ = new QDialog(this);
        criteres_->setObjectName("ListeChoix");
        criteres_->setWindowFlag(Qt::WindowContextHelpButtonHint, false);
        cases_ = new QListWidget(criteres_);
        cases_->setObjectName("Liste");
        (new QVBoxLayout(criteres_))->addWidget(cases_);
        criteres_->resize(360, 420);
        connect(cases_, &QListWidget::itemChanged, this,
                [this](QListWidgetItem* i) { CocherCritere(cases_->row(i)); });
        connect(cases_, &QListWidget::itemDoubleClicked, criteres_, &QDialog::hide);
    }
    OuvrirListe(valeurs_.liste, l->genre, l->titre, "", true);
    for (std::string& v : (base_.Listes.*(l->source)).Triee())
        valeurs_.liste.Rangees.push_back({std::move(v), 0});
    valeurs_.coches.assign(valeurs_.liste.Rangees.size(), false);
    remplissage_ = true;
    cases_->clear();
    for (const auto& r : valeurs_.liste.Rangees) {
        auto* item = new QListWidgetItem(VersQString(r.texte), cases_);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    remplissage_ = false;
    criteres_->setWindowTitle(VersQString(l->titre));
    criteres_->show();
    criteres_->raise();
}

void RechActe::CocherCritere(int rangee) {
    if (remplissage_ || rangee < 0 || static_cast<std::size_t>(rangee) >= valeurs_.coches.size()) return;
    const auto r = static_cast<std::size_t>(rangee);
    const bool coche = cases_->item(rangee)->checkState() == Qt::Checked;
    if (valeurs_.coches[r] == coche) return;
    valeurs_.coches[r] = coche;
    if (valeurs_.liste.Genre == "Lieux") {
        // Les lieux annexes : les rangées qui contiennent ce lieu prennent la même coche.
        int choix = options_.SelAutoLieuxAnnexes;
        const std::string& lieu = valeurs_.liste.Rangees[r].texte;
        if (choix == 2)
            choix =
                liens_.dialogue().Message("S\xE9lection des lieux annexes", QuestionLieuxAnnexes(lieu, coche),
                                          Icone::Question, Boutons::OuiNon) == Bouton::Oui
                    ? 1
                    : 0;
        if (choix == 1) {
            const std::vector<std::string> annexes = CocherLieuxAnnexes(valeurs_, r);
            remplissage_ = true;
            for (std::size_t i = 0; i < valeurs_.coches.size(); ++i)
                cases_->item(static_cast<int>(i))
                    ->setCheckState(valeurs_.coches[i] ? Qt::Checked : Qt::Unchecked);
            remplissage_ = false;
            if (!annexes.empty()) {
                std::string texte = "Les lieux suivants ont \xE9t\xE9 automatiquement s\xE9lectionn\xE9s :";
                for (const auto& a : annexes) texte += "\r\n" + a;
                liens_.dialogue().Message("S\xE9lection des lieux", texte, Icone::Information);
            }
        }
    }
    PoserCritere();
}

void RechActe::PoserCritere() {
    std::string texte;
    for (std::size_t i = 0; i < valeurs_.coches.size(); ++i) {
        if (!valeurs_.coches[i]) continue;
        if (!texte.empty()) texte += " ; ";
        texte += valeurs_.liste.Rangees[i].texte;
    }
    ui_->Critere->setText(VersQString(texte));
}

void RechActe::ChoisirTri(int index) {
    if (index != kTriNumero || TriParNumeroPossible(base_, liens_.selCochee())) return;
    liens_.dialogue().Message(kTitreTriNumero, kTexteTriNumero, Icone::Attention);
}

void RechActe::BoutonOK() {
    // Une année de début vide s'écrit 0 : la période couvre alors toutes les années.
    if (ui_->AnneeDebut->text().trimmed().isEmpty()) ui_->AnneeDebut->setText("0");
    const RechercheActes r = Recherche();
    if (const auto refus = ControlerRecherche(r, liens_.fiche())) {
        liens_.dialogue().Message(refus->Titre, refus->Texte, Icone::Stop);
        return;
    }
    QApplication::setOverrideCursor(Qt::WaitCursor);
    if (selection_) {
        liens_.selectionner(r);
    } else {
        ListePersonne liste;
        ListerActes(base_, options_, r, liens_.selCochee(), false, liste);
        liens_.montrerListe(std::move(liste));
    }
    QApplication::restoreOverrideCursor();
}

}  // namespace arbolix
