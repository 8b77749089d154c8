// L'éditeur de notes : une note ou source externe, la note du fichier, le texte d'un champ, le journal de
// lecture.
#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "card/notes.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "ui/choix_rangee.h"

namespace arbolix {

// Rien n'est écrit dans la base avant BoutonOK ; Annuler ferme sans rien changer.
class Editeur : public QDialog {
    Q_OBJECT
public:
    explicit Editeur(QWidget* parent);

    // Montre un texte 1252 (lignes CR LF) en lecture seule, sous un titre : le journal de lecture.
    void Montrer(const QString& titre, std::string_view texte);
    // Le même, le texte pris tel quel plutôt que copié : il peut faire des dizaines de Mo.
    void MontrerJournal(const QString& titre, std::string texte);
    // Un texte libre (note 0, type 1) qu'on lit, retouche et peut enregistrer dans un fichier
    // texte : le rapport de vérification. Rien ne va dans la base.
    void MontrerTexteLibre(const QString& titre, std::string_view texte, Dialogue& dialogue);
    QString Texte() {
        Completer();
        return texte_->toPlainText();
    }
    // Un contrôle à côté du texte (les graphiques des statistiques), que l'éditeur prend en charge ;
    // le suivant le remplace, et tout autre texte montré le retire.
    void Cote(QWidget* w);

    // OuvrirNote : type 1 une note, 2 une source ; numéro -1 la note du fichier, sans
    // BoutonLiens ni BoutonOuvrir. Un autre type est refusé par un message. La base et
    // le Dialogue doivent vivre tant que l'éditeur est ouvert.
    bool OuvrirNote(Base& base, std::int32_t numero, int type, bool avecBoutons, Dialogue& dialogue);
    // Le texte d'un champ de note ou de source ; un champ qui porte un lien ouvre sa note.
    bool OuvrirChamp(Base& base, const ChampLien& champ, Dialogue& dialogue);

private:
    enum class Mode { Journal, Externe, Champ };

    void Preparer(Mode mode, Base* base, Dialogue* dialogue);
    void ChargerNote(std::int32_t numero);
    void BoutonOK();
    void BoutonOuvrir();
    void BoutonEnreg();
    void NumNoteChange();
    // Un long journal se montre par morceaux, la boucle d'évènements tournant entre deux.
    void RemplirSuite();
    void Completer();

    QLineEdit* titre_;
    QPlainTextEdit* texte_;
    QLineEdit* numNote_;
    QLabel* labelNS_;
    QLabel* labelTitre_;
    QPushButton* ok_;
    QPushButton* annuler_;
    QPushButton* ouvrir_;
    QPushButton* enreg_;
    QPushButton* liens_;
    QSplitter* milieu_;
    QWidget* cote_ = nullptr;

    Mode mode_ = Mode::Journal;
    Base* base_ = nullptr;
    Dialogue* dialogue_ = nullptr;
    char genre_ = 'N';
    std::int32_t numero_ = 0;
    ChampLien champ_;
    std::string reste_;  // ce que RemplirSuite doit encore ajouter, à partir de suite_
    std::size_t suite_ = 0;
};

// Un blanc dans un champ de note ('N') ou de source ('S') vide : la liste des notes
// ou sources externes, dont la première rangée en crée une nouvelle dans l'éditeur.
// Rend le lien "@N12@" à écrire dans le champ ; rien si l'on renonce, ou si la
// nouvelle fiche est laissée vide (elle disparaît alors).
std::optional<std::string> ChoisirLienExterne(Base& base, char genre, const Choisir& choisir,
                                              Editeur& editeur, Dialogue& dialogue);

}  // namespace arbolix
