// Écriture de la base en GEDCOM 5.5 : en-tête, généalogiste, personnes, familles, notes, sources, médias.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include "gedcom/options_gedcom.h"
#include "store/base.h"

namespace arbolix {

class Progression;

// Un nom ou des prénoms à écrire entre les barres d'une ligne NAME.
struct SansBarre {
    std::string_view texte;
};

// L'en-tête que l'écrivain met en tête de chaque fichier, lignes terminées par CR LF.
std::string EnteteGedcom(std::string_view titre, std::string_view version, std::string_view societe,
                         std::string_view commentaire);
// Celui du programme, composé une fois : titre "Arbolix", ARBOLIX_VERSION, société et commentaire fixes.
const std::string& EnteteArbolix();

// La date du jour "jj/mm/aaaa", heure locale.
std::string DateDuJour();

// Ce que l'écriture lit sur le formulaire Gedcom et autour.
struct ContexteEcriture {
    const OptionsGedcom& gedcom;  // les cases ; le dossier de Fichier est retiré des chemins écrits
    std::string entete = EnteteArbolix();
    std::string aujourdhui;  // "jj/mm/aaaa" de la ligne 1 DATE ; vide : la date du jour
    Progression* progression = nullptr;
};

// L'écrivain d'un fichier : une passe, dans l'ordre des numéros, rien n'est trié ni retenu.
// Le texte est celui de la base (code page 1252), CR LF, jamais de CONC.
// Il s'accumule dans un tampon vidé dans le flux par blocs d'un Mo ; sans flux,
// tout reste dans le tampon.
class EcrivainGedcom {
public:
    EcrivainGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream* flux);

    // Tout le fichier, de l'en-tête à 0 TRLR. Rend faux si le flux a refusé d'écrire.
    bool EcrireGedcom();

    // Un évènement. n : la personne dont on écrit l'âge (0 pour la naissance et les
    // évènements de famille). Les OBJE de la personne en cours suivent chaque évènement.
    void EcrireActe(const Acte& a, std::string_view balise, std::int32_t n);

    // La personne en cours d'écriture : EcrireGedcom la tient, un test peut la fixer.
    void FixerCourant(std::int32_t n) { courant_ = n; }

    const std::string& Tampon() const { return tampon_; }

private:
    void EcrireGenealogiste();
    void EcrirePersonne(std::int32_t n);
    void EcrireAdresse(const PersoSuite& s);
    void EcrireParents(const Perso& p);
    void EcrireFichiersPersonne(const Perso& p);
    void EcrireFamille(std::int32_t f);
    // Une famille est écrite quand elle est sélectionnée et a un conjoint nommé ou une fratrie.
    bool FamilleEcrite(std::int32_t f) const;
    void EcrireNotes(const Tableau<NoteExt>& notes, std::int32_t nombre, char lettre,
                     std::string_view balise);
    void EcrireMedia(std::int32_t m);
    void EcrireChangement(double dateModif);
    void EcrireFichierEtForme(char niveau, std::string_view chemin, bool couperDossier);

    template <typename... Morceaux>
    void Ligne(const Morceaux&... m);
    void Ajouter(std::string_view s) { tampon_.append(s); }
    void Ajouter(char c) { tampon_.push_back(c); }
    void Ajouter(std::int32_t n);
    void Ajouter(SansBarre s);
    // Un texte de plusieurs lignes : chaque CR LF intérieur est suivi de suite ("2 CONT ").
    void AjouterLignes(std::string_view texte, std::string_view suite);
    void Vider(bool toujours);

    const Perso& P(std::int32_t n) const;
    const Fami& F(std::int32_t f) const;

    const Base& base_;
    const ContexteEcriture& ctx_;
    const OptionsGedcom& cases_;
    std::ostream* flux_;
    std::string tampon_;
    std::string dossier_;  // dossier du fichier écrit, en 1252, terminé par "/"
    std::int32_t courant_ = 0;
};

// Écrit toute la base dans le flux ; faux si le flux a refusé.
bool EcrireGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream& flux);
// La même écriture dans une chaîne (tests, petits fichiers).
std::string EcrireGedcomTexte(const Base& base, const ContexteEcriture& contexte);

}  // namespace arbolix
