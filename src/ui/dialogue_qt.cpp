#include "ui/dialogue_qt.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QUrl>

#include "platform/qt_texte.h"

namespace arbolix {

namespace {

struct BoutonQt {
    Bouton bouton;
    const char* texte;
    QMessageBox::ButtonRole role;
};

std::vector<BoutonQt> BoutonsDe(Boutons b) {
    switch (b) {
        case Boutons::Ok:
            return {{Bouton::Ok, "OK", QMessageBox::AcceptRole}};
        case Boutons::OkAnnuler:
            return {{Bouton::Ok, "OK", QMessageBox::AcceptRole},
                    {Bouton::Annuler, "&Annuler", QMessageBox::RejectRole}};
        case Boutons::OuiNon:
            return {{Bouton::Oui, "&Oui", QMessageBox::YesRole}, {Bouton::Non, "&Non", QMessageBox::NoRole}};
        case Boutons::OuiNonAnnuler:
            return {{Bouton::Oui, "&Oui", QMessageBox::YesRole},
                    {Bouton::Non, "&Non", QMessageBox::NoRole},
                    {Bouton::Annuler, "&Annuler", QMessageBox::RejectRole}};
        case Boutons::AbandonnerReessayerIgnorer:
            return {{Bouton::Abandonner, "A&bandonner", QMessageBox::RejectRole},
                    {Bouton::Reessayer,
                     "&R\xC3\xA9"
                     "essayer",
                     QMessageBox::AcceptRole},
                    {Bouton::Ignorer, "&Ignorer", QMessageBox::AcceptRole}};
        case Boutons::HommeFemme:
            return {{Bouton::Oui, "&Homme", QMessageBox::YesRole},
                    {Bouton::Non, "&Femme", QMessageBox::NoRole}};
    }
    return {};
}

QMessageBox::Icon IconeQt(Icone i) {
    switch (i) {
        case Icone::Information:
            return QMessageBox::Information;
        case Icone::Question:
            return QMessageBox::Question;
        case Icone::Attention:
            return QMessageBox::Warning;
        case Icone::Stop:
            return QMessageBox::Critical;
        case Icone::Aucune:
            break;
    }
    return QMessageBox::NoIcon;
}

// Les filtres des règles ressemblent à "*.ged" : Qt veut "Fichiers (*.ged)".
QString FiltreQt(std::string_view filtre) {
    const QString f = VersQString(filtre);
    return f.contains('(') ? f : f + " (" + f + ")";
}

// Les chiffres tapés pendant qu'une boîte s'ouvre au milieu d'une frappe (la question du sexe
// quand on tape un numéro) ne sont pas perdus : ils reviennent au champ qui avait le focus.
class ChiffresRetenus : public QObject {
public:
    ChiffresRetenus(QWidget& boite, QWidget* champ) : boite_(boite), champ_(champ) {
        if (champ_) qApp->installEventFilter(this);
    }
    ~ChiffresRetenus() override {
        if (!champ_) return;
        qApp->removeEventFilter(this);
        // Postées : le champ les reçoit après la commande en cours, comme des frappes.
        for (const QChar c : retenus_) {
            QCoreApplication::postEvent(champ_, new QKeyEvent(QEvent::KeyPress, Qt::Key_0 + c.digitValue(),
                                                              Qt::NoModifier, QString(c)));
            QCoreApplication::postEvent(champ_, new QKeyEvent(QEvent::KeyRelease, Qt::Key_0 + c.digitValue(),
                                                              Qt::NoModifier, QString(c)));
        }
    }
    bool eventFilter(QObject* objet, QEvent* e) override {
        if (e->type() != QEvent::KeyPress || !objet->isWidgetType()) return false;
        auto* w = static_cast<QWidget*>(objet);
        auto* k = static_cast<QKeyEvent*>(e);
        if ((w != &boite_ && !boite_.isAncestorOf(w)) || k->modifiers() & ~Qt::KeypadModifier) return false;
        if (k->text().size() != 1 || !k->text().front().isDigit()) return false;
        retenus_ += k->text();
        return true;
    }

private:
    QWidget& boite_;
    QPointer<QWidget> champ_;
    QString retenus_;
};

// Le champ qui a le focus et reçoit du texte : une ligne de saisie.
QWidget* ChampDeSaisie(QWidget* parent) {
    QWidget* w = QApplication::focusWidget();
    if (!w && parent) w = parent->window()->focusWidget();
    return qobject_cast<QLineEdit*>(w) ? w : nullptr;
}

}  // namespace

Bouton DialogueQt::Message(std::string_view titre, std::string_view texte, Icone icone, Boutons boutons,
                           std::optional<Bouton> defaut) {
    QMessageBox boite(IconeQt(icone), VersQString(titre), VersQString(texte), QMessageBox::NoButton, parent_);
    std::vector<std::pair<QPushButton*, Bouton>> faits;
    for (const auto& b : BoutonsDe(boutons))
        faits.emplace_back(boite.addButton(QString::fromUtf8(b.texte), b.role), b.bouton);
    // Entrée prend le bouton par défaut : sans quoi Qt choisirait d'après les rôles, Oui avant Non.
    QPushButton* entree = faits.front().first;
    for (const auto& [qt, bouton] : faits)
        if (defaut && bouton == *defaut) entree = qt;
    boite.setDefaultButton(entree);
    {
        ChiffresRetenus retenus(boite, ChampDeSaisie(parent_));
        boite.exec();
    }
    for (const auto& [qt, bouton] : faits)
        if (boite.clickedButton() == qt) return bouton;
    // Fermée par Échap : le bouton de refus, s'il y en a un.
    return faits.size() > 1 ? faits.back().second : faits.front().second;
}

std::optional<std::string> DialogueQt::Saisie(std::string_view titre, std::string_view invite,
                                              std::string_view defaut) {
    bool ok = false;
    const QString r = QInputDialog::getText(parent_, VersQString(titre), VersQString(invite),
                                            QLineEdit::Normal, VersQString(defaut), &ok);
    if (!ok) return std::nullopt;
    return DepuisQString(r);
}

std::optional<std::string> DialogueQt::ChoisirFichierOuvrir(std::string_view titre, std::string_view filtre,
                                                            std::string_view depart) {
    const QString r = QFileDialog::getOpenFileName(
        parent_, VersQString(titre), QString::fromStdString(std::string(depart)), FiltreQt(filtre));
    if (r.isEmpty()) return std::nullopt;
    return r.toStdString();
}

std::optional<std::string> DialogueQt::ChoisirFichierEnregistrer(std::string_view titre,
                                                                 std::string_view filtre,
                                                                 std::string_view depart) {
    const QString r = QFileDialog::getSaveFileName(
        parent_, VersQString(titre), QString::fromStdString(std::string(depart)), FiltreQt(filtre));
    if (r.isEmpty()) return std::nullopt;
    return r.toStdString();
}

std::optional<std::string> DialogueQt::ChoisirDossier(std::string_view titre, std::string_view depart) {
    const QString r = QFileDialog::getExistingDirectory(parent_, VersQString(titre),
                                                        QString::fromStdString(std::string(depart)));
    if (r.isEmpty()) return std::nullopt;
    return r.toStdString();
}

bool DialogueQt::OuvrirDansProgramme(std::string_view chemin) {
    const QString c = QString::fromStdString(std::string(chemin));
    // Une adresse (site, courriel) s'ouvre comme telle ; "www.exemple.fr" aussi, faute de fichier de ce nom.
    const bool adresse = c.contains("://") || c.startsWith("mailto:");
    const QUrl url = adresse                ? QUrl(c)
                     : QFileInfo::exists(c) ? QUrl::fromLocalFile(c)
                                            : QUrl::fromUserInput(c);
    return QDesktopServices::openUrl(url);
}

}  // namespace arbolix
