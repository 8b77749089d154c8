// Écriture de la base en GEDCOM 5.5 : en-tête, généalogiste, personnes, familles, notes, sources, médias.
#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

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
    // évènements de famille). Connu sans rien d'autre à écrire, il s'écrit "1 DEAT Y".
    void EcrireActe(const Acte& a, std::string_view balise, std::int32_t n);

    // Ce que le fichier portera : une fiche n'est pointée que si elle y est écrite.
    bool PersonneEcrite(std::int32_t n) const;
    // Sélectionnée, avec un conjoint écrit ou deux enfants écrits : relue, elle l'est encore.
    bool FamilleEcrite(std::int32_t f) const;
    // genre 'N' ou 'S' : sélectionnée, case cochée, avec un titre ou un texte.
    bool NoteEcrite(char genre, std::int32_t n) const;
    // Un objet en fiche à part (0 @M..@ OBJE) : actif, non local, case Fichiers cochée.
    bool MediaEcrit(std::int32_t m) const;

    const std::string& Tampon() const { return tampon_; }

private:
    void EcrireGenealogiste();
    // Une personne écrite porte ANCI ou DESI.
    bool InteretEcrit() const;
    void EcrirePersonne(std::int32_t n);
    void EcrireAdresse(const PersoSuite& s);
    // FAMC ; sinon les parents absents du fichier en toutes lettres, pour la note.
    std::string EcrireParents(const Perso& p);
    void EcrireFichiersPersonne(const Perso& p);
    // Liens vers des objets médias : un objet local en OBJE/FILE, un objet écrit en OBJE @M..@.
    // Ceux des évènements d'une personne ne s'écrivent pas : la fiche de l'objet les pointe
    // (INDI), et la relecture les rend à la personne.
    void EcrireObjets(const Emplacements<std::int32_t, 1, kMaxLiens>& objets, char niveau);
    void EcrireFamille(std::int32_t f);
    // Les lignes d'une note au niveau donné : une ligne faite d'un seul lien "@N7@" ou
    // "@S2@" s'écrit en lien (NOTE ou SOUR), les autres en NOTE suivie de CONT.
    void EcrireNote(std::string_view texte, char niveau);
    // Les citations d'un évènement ("@S2@ page 4@S3@") : une ligne SOUR par lien, son texte en TEXT.
    void EcrireSources(std::string_view source);
    // Les témoins absents du fichier, une ligne chacun, ajoutées à la note de l'évènement.
    std::string TemoinsAbsents(const LiensActe& l) const;
    // "qui : Nom Prénoms" d'une personne absente du fichier ; vide sans nom.
    std::string Absent(std::string_view qui, std::int32_t p) const;
    void EcrireNotesExternes(const Tableau<NoteExt>& notes, std::int32_t nombre, char lettre,
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
    // Ce que FamilleEcrite dit, lu sur les fiches.
    bool FamilleAEcrire(std::int32_t f) const;

    const Base& base_;
    const ContexteEcriture& ctx_;
    const OptionsGedcom& cases_;
    std::ostream* flux_;
    std::string tampon_;
    // Qui le fichier portera, relevé une fois : chaque personne y regarde ses familles et ses
    // témoins, et aller chaque fois lire leur fiche au hasard de la mémoire coûtait le plus.
    std::vector<bool> personnesEcrites_, famillesEcrites_;
    std::string dossier_;        // dossier du fichier écrit, en 1252, terminé par "/"
    bool genealogiste_ = false;  // la fiche @SUB1@ est écrite
};

// Écrit toute la base dans le flux ; faux si le flux a refusé.
bool EcrireGedcom(const Base& base, const ContexteEcriture& contexte, std::ostream& flux);
// La même écriture dans une chaîne (tests, petits fichiers).
std::string EcrireGedcomTexte(const Base& base, const ContexteEcriture& contexte);

}  // namespace arbolix
