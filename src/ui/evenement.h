// La fenêtre Evenement : modifie une copie de l'évènement (ActeCourant) et la range dans la fiche sur OK.
#pragma once

#include <QDialog>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "card/candidats.h"
#include "dates/saisie_date.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace Ui {
class Evenement;
}

namespace arbolix {

// Ce que la fenêtre demande à celui qui l'ouvre : la fenêtre de choix n'est pas la sienne.
struct ServicesEvenement {
    LigneDePersonne ligneCourte;  // la personne sur une ligne, pour les témoins
    // Montre la liste et rend la ligne choisie ("... P000012"), rien si l'utilisateur renonce.
    std::function<std::optional<std::string>(const ListeCandidats&)> choisir;
    std::function<double()> maintenant;  // jours depuis le 30/12/1899
    // BoutonBaseWeb : le lieu et la date à l'écran, la légende du bouton ; la fiche fait le reste.
    std::function<void(const std::string& lieu, const std::string& date, const QString& legende)> baseWeb;
};

// La base, les réglages et le Dialogue doivent survivre à la fenêtre. Annuler
// ou Échap ne touchent pas la fiche : seule la copie de travail a changé.
class FenetreEvenement : public QDialog {
    Q_OBJECT

public:
    FenetreEvenement(Base& base, const Options& options, Dialogue& dialogue, ServicesEvenement services,
                     QWidget* parent = nullptr);
    ~FenetreEvenement() override;

    // Remplit la fenêtre depuis l'évènement de ce genre de p (ou de la famille f) ;
    // faux pour un genre que la fenêtre ne sait pas encore traiter (Z).
    bool OuvrirActe(char genre, std::int32_t p, std::int32_t f, const std::string& titre);

    char Genre() const { return genre_; }
    // Après un double clic sur un témoin : la personne où la fiche doit aller (0 sinon).
    std::int32_t PersonneDemandee() const { return personneDemandee_; }

public slots:
    void BoutonOK();
    void BoutonAjouterTemoin();
    void BoutonModifTemoin();
    void BoutonEnleverTemoin();

protected:
    void keyPressEvent(QKeyEvent* evenement) override;
    bool eventFilter(QObject* objet, QEvent* e) override;

private:
    void DateModifiee(const QString& texte);
    void QuitterDate();
    void QuitterAge();
    void AllerAuTemoin();
    ChampsDate LireChamps() const;
    void MontrerChamps(const ChampsDate& champs);
    ContexteSaisie Contexte() const;
    void AjouterLigneTemoin(const std::string& ligne);
    // Lien vers une note ('N') ou source ('S') externe : choix au blanc, ouverture à Entrée.
    std::string TexteLien(char genre) const;
    bool ToucheLien(char genre, QKeyEvent* k);
    void OuvrirLien(char genre);

    std::unique_ptr<Ui::Evenement> ui_;
    Base& base_;
    const Options& options_;
    Dialogue& dialogue_;
    ServicesEvenement services_;
    char genre_ = 'N';
    std::int32_t personne_ = 0;
    std::int32_t famille_ = 0;
    std::int32_t personneDemandee_ = 0;
    bool dateTapee_ = false;   // Date touchée depuis sa dernière mise en forme
    bool dateSaisie_ = false;  // Date touchée depuis l'ouverture : vérifiée à la validation
};

}  // namespace arbolix
