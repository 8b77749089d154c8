// Enregistrement de la base : écriture sûre d'un fichier, sélection partielle, copie de sauvegarde, fichiers
// liés.
#pragma once

#include <filesystem>
#include <functional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "gedcom/ecrivain.h"
#include "gedcom/options_gedcom.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

class Progression;

// Issue d'une écriture de fichier. Message en 1252 : il nomme le fichier et la raison.
struct EtatFichier {
    bool Ok = true;
    std::string Message;
};

// Écrit le fichier chemin (UTF-8) sans jamais détruire l'ancien : tout va d'abord
// dans un fichier temporaire du même dossier, vidé et synchronisé sur le disque,
// qui prend ensuite la place de l'ancien d'un seul renommage. En cas d'échec
// l'ancien fichier reste octet pour octet et le temporaire est effacé. Un ancien
// fichier en lecture seule est refusé comme un dossier où l'on ne peut écrire.
// ecrire rend faux s'il n'a pas pu tout écrire ; une exception y est un échec.
EtatFichier EcrireFichierSur(const std::string& chemin, const std::function<bool(std::ostream&)>& ecrire);

// La raison d'un code errno, en français, pour les messages d'échec.
std::string RaisonEchec(int erreur);

// Qui écrit : le compte et ses groupes, d'après lesquels les bits de droits s'appliquent.
struct Ecrivant {
    unsigned uid = 0;
    unsigned gid = 0;
    std::vector<unsigned> groupes;  // groupes supplémentaires
    static Ecrivant Courant();
};

// Vrai quand les bits de droits du fichier (mode de stat) ne donnent pas l'écriture à
// celui qui écrit : bits du propriétaire, du groupe ou des autres, selon qui il est.
// L'administrateur, qui passe outre, ne s'arrête qu'à un fichier sans aucun bit
// d'écriture. Le renommage qui remplace le fichier ne regarde pas ces bits : sans ce
// contrôle, un fichier en lecture seule serait remplacé.
bool LectureSeule(unsigned mode, unsigned proprietaire, unsigned groupe, const Ecrivant& e);

// "x.ged" devient "x_sel.ged" : les 4 derniers caractères sont remplacés.
std::string NomFichierSelection(std::string_view fichier);

// Ce que MenuEnregistrer a décidé avant d'ouvrir le dialogue.
struct ChoixEnregistrement {
    bool Partiel = false;        // seule la sélection active sera écrite
    std::string FichierInitial;  // le nom que le fichier reprend après un enregistrement partiel
};

// MenuEnregistrer sans fenêtre. toutSelectionne : la première entrée de MenuSel
// est cochée. Sinon la question "Sélection active partielle" : Oui propose le nom
// en _sel.ged dans gedcom.Fichier ; Non sélectionne de nouveau toute la base.
ChoixEnregistrement PreparerEnregistrement(Base& base, OptionsGedcom& gedcom, bool toutSelectionne,
                                           Dialogue& dialogue);

struct ContexteEnregistrement {
    Base& base;
    OptionsGedcom& gedcom;   // Fichier (UTF-8) et cases
    const Options& options;  // Sauvegarder, Chemin[1] dossier de sauvegarde (UTF-8)
    Dialogue& dialogue;
    Progression* progression = nullptr;
    std::string entete = EnteteArbolix();
    std::string aujourdhui;  // vide : la date du jour
};

struct ResultatEnregistrement {
    bool Enregistre = false;
    std::string Erreur;                       // 1252 ; vide quand le fichier est enregistré
    std::vector<std::string> Avertissements;  // copies de fichiers liés manquées, 1252
};

// BoutonOK en mode enregistrement et sa suite. Écrit gedcom.Fichier sans détruire
// l'ancien ; en cas d'échec rien d'autre ne change (FichierModifie reste, la
// sélection aussi) et Erreur dit pourquoi. Après un enregistrement :
// FichierModifie tombe si toute la base a été écrite, les fichiers liés sont
// copiés, toute la base est de nouveau sélectionnée, le nom initial revient
// après un enregistrement partiel, et la copie "sauvegarde_" est faite quand
// options.Sauvegarder le demande (boîte "Sauvegarde impossible" sinon).
ResultatEnregistrement EnregistrerGedcom(ContexteEnregistrement& contexte,
                                         const ChoixEnregistrement& choix = {});

// Où copier un fichier lié d'une personne : la source sur le disque et la cible
// dans le dossier de sauvegarde. chemin en 1252 tel que la base le tient.
struct CopieLiee {
    std::filesystem::path source;
    std::filesystem::path cible;
};
CopieLiee CibleCopieLiee(std::string_view chemin, const std::string& fichierGed,
                         const std::string& sauvegarde);

// Le nom de fichier que montre BoutonMenuFich : le titre après " - ", sans une queue " (enr...".
std::string NomDuTitre(std::string_view titre);

}  // namespace arbolix
