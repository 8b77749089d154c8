#include "ui/traduction.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenu>
#include <QTabWidget>

#include "platform/qt_texte.h"

namespace arbolix {
namespace {

// Dans l'ordre du fichier de messages ; 401, 403, 405 et 409 servent au code et sont sautées.
constexpr LigneMenu kLignesMenus[] = {
    {"BarreMenu_0", 384},         {"MenuNouveau", 385},
    {"MenuOuvrir", 386},          {"MenuEnregistrer", 387},
    {"MenuFermer", 388},          {"MenuFichesRecentes", 389},
    {"MenuImportFichiers", 390},  {"MenuImportTMT", 391},
    {"MenuTMAO2", 392},           {"MenuTXT2TM", 393},
    {"MenuEnvoyerMel", 394},      {"MenuNotesFichier", 395},
    {"MenuInfos", 396},           {"MenuConfig", 397},
    {"MenuQuitter", 398},         {"BarreMenu_1", 399},
    {"MenuListePersos", 400},     {"MenuListeFamis", 402},
    {"MenuListeNotes", 404},      {"MenuListeSources", 406},
    {"MenuListeFichiers", 407},   {"MenuIntRech", 408},
    {"MenuTableCarac", 410},      {"BarreMenu_2", 411},
    {"MenuSel_0", 412},           {"MenuSel_1", 413},
    {"MenuSel_2", 414},           {"MenuSel_3", 415},
    {"MenuSel_4", 416},           {"MenuSelDansTout_0", 417},
    {"MenuSelDansTout_1", 418},   {"MenuInverseSel", 419},
    {"MenuSelListePersos", 420},  {"MenuSelListeFamis", 421},
    {"BarreMenu_3", 422},         {"MenuDupliquer", 423},
    {"MenuSupprimer", 424},       {"MenuFusionner", 425},
    {"MenuRechRemp", 426},        {"MenuRechRempTousLieux", 427},
    {"MenuRechRempNotes", 428},   {"MenuCalcActesVides", 429},
    {"MenuVerifier", 430},        {"MenuNettoieLieux", 431},
    {"MenuConvNSExtInt", 432},    {"MenuCalRep", 433},
    {"MenuParente", 434},         {"BarreMenu_4", 435},
    {"MenuExport_1", 436},        {"MenuExport_2", 437},
    {"MenuExport_3", 438},        {"MenuExport_4", 439},
    {"MenuExport_5", 440},        {"MenuExport_6", 441},
    {"MenuExport_8", 442},        {"MenuExport_9", 443},
    {"MenuExport_10", 444},       {"MenuStats", 445},
    {"MenuFicheFamille", 446},    {"MenuArbreAscendant", 447},
    {"MenuArbre_1", 448},         {"MenuArbre_2", 449},
    {"MenuArbre_5", 450},         {"MenuArbreVide", 451},
    {"MenuExportUCGL_0", 452},    {"MenuExportUCGL_1", 453},
    {"MenuExportUCGL_2", 454},    {"MenuPopupImage", 455},
    {"MenuProprietesImage", 456}, {"MenuDupliquerImage", 457},
    {"MenuSupprLienImage", 458},
};

// Onglet d'un QTabWidget : la page est dans la pile du QTabWidget.
QTabWidget* OngletsDe(QWidget* page) {
    QWidget* pile = page->parentWidget();
    return pile ? qobject_cast<QTabWidget*>(pile->parentWidget()) : nullptr;
}

void PoserTexte(QWidget* w, const QString& texte) {
    if (auto* l = qobject_cast<QLabel*>(w))
        l->setText(texte);
    else if (auto* b = qobject_cast<QAbstractButton*>(w))
        b->setText(texte);
    else if (auto* g = qobject_cast<QGroupBox*>(w))
        g->setTitle(texte);
    else if (QTabWidget* o = OngletsDe(w))
        o->setTabText(o->indexOf(w), texte);
}

void Teinter(QWidget* w, QPalette::ColorRole role) {
    QPalette p = w->palette();
    p.setColor(role, QColor::fromRgb(kFondFenetres));
    w->setPalette(p);
}

}  // namespace

PassageTextes ReglerPassage(int codeLangue, int versionMajeure) {
    return {codeLangue != kCodeLangue, versionMajeure >= 11};
}

std::span<const LigneMenu> LignesMenus() {
    return kLignesMenus;
}

bool TraduireFenetre(QWidget& fenetre, const Messages& messages, PassageTextes passage, Dialogue& dialogue) {
    if (!passage.traduire && !passage.restyler) return true;
    const std::string nom = fenetre.objectName().toStdString();
    const int base = BaseFenetre(nom);
    if (base < 0) {
        dialogue.Message("arbolix", "Traduction manquante pour la fen\xEAtre " + nom, Icone::Stop);
        return false;
    }
    if (passage.traduire && nom != "Fiche" && !messages(base - 1).empty())
        fenetre.setWindowTitle(VersQString(messages(base - 1)));
    if (passage.restyler) {
        fenetre.setAutoFillBackground(true);
        Teinter(&fenetre, QPalette::Window);
    }
    const QColor boutonSysteme = QApplication::palette().color(QPalette::Button);
    for (QWidget* w : fenetre.findChildren<QWidget*>()) {
        const QVariant position = w->property("positionTab");
        if (passage.traduire && position.isValid() && position.toInt() >= 0) {
            const std::string& texte = messages(base + position.toInt());
            if (!texte.empty()) PoserTexte(w, VersQString(texte));
        }
        if (passage.restyler && qobject_cast<QAbstractButton*>(w) &&
            w->palette().color(QPalette::Button) == boutonSysteme)
            Teinter(w, QPalette::Button);
    }
    return true;
}

void TraduireMenus(QWidget& fiche, const Messages& messages) {
    for (const auto& [nom, ligne] : kLignesMenus) {
        const std::string& texte = messages(ligne);
        if (texte.empty()) continue;
        if (auto* menu = fiche.findChild<QMenu*>(nom))
            menu->setTitle(VersQString(texte));
        else if (auto* action = fiche.findChild<QAction*>(nom))
            action->setText(VersQString(texte));
    }
}

}  // namespace arbolix
