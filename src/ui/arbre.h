// La fenêtre Arbre : dimensions des cases et de la page, aperçu, impression, enregistrement en SVG.
#pragma once

#include <QDialog>
#include <QPrinter>
#include <filesystem>
#include <memory>
#include <string>

#include "lists/rangees.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"
#include "trees/dessin_arbre.h"

namespace Ui {
class FenetreArbre;
}

namespace arbolix {

class Pr;

class FenetreArbre : public QDialog {
    Q_OBJECT
public:
    FenetreArbre(Base& base, const Options& options, std::filesystem::path ini, Dialogue& dialogue,
                 QWidget* parent = nullptr);
    ~FenetreArbre() override;

    // Le genre (1 à 5), la racine, le titre du pied de page ; la liste des étiquettes pour le genre 1.
    void Ouvrir(int genre, std::int32_t numero, std::string titre, ListePersonne etiquettes = {});
    int Genre() const { return genre_; }
    OptionsArbre Dimensions() const;
    Pr& Apercu() { return *apercu_; }

    // BoutonImprimer : 0 aperçu, 1 imprimante, 2 RTF, 3 SVG.
    void BoutonImprimer(int index);
    // L'aperçu depuis une autre racine (MenuCase, MenuRemonter, arbre de parenté).
    void Dessiner(std::int32_t numero, int decalage);
    // Demande le fichier, l'écrit, l'ouvre dans son programme ; mode 0 : d'après l'extension choisie.
    void Enregistrer(int mode);
    void Imprimer();

private:
    DemandeArbre Demande(int mode, std::int32_t numero, int decalage) const;
    // Montre la boîte du dessin s'il en a une ; rend vrai quand il y a de quoi dessiner.
    bool Accepter(const DessinArbre& d);
    void PoserDimensions(const OptionsArbre& a);
    void BoutonFormat();
    void Retenir();

    std::unique_ptr<Ui::FenetreArbre> ui_;
    Base& base_;
    const Options& options_;
    std::filesystem::path ini_;
    Dialogue& dialogue_;
    Pr* apercu_;
    int genre_ = kAscendant;
    std::int32_t numero_ = 0;
    std::string titre_;
    ListePersonne etiquettes_;
    QPrinter imprimante_;
};

}  // namespace arbolix
