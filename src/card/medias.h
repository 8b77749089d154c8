// Fichiers liés et objets médias d'une personne : liste de la fiche, ajout, retrait, ouverture.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Extensions des images, sans casse, entre ";" (le "0" de tête n'en est pas une).
inline constexpr std::string_view kExtensionsImages = "0;png;jpg;jpeg;gif;bmp;webp;";

// Vrai quand l'extension du chemin est dans la liste.
bool EstImage(std::string_view chemin, std::string_view extensions = kExtensionsImages);

// Où un objet média est lié : la personne (acte 0) ou l'un de ses évènements
// (1..4), ou l'un des évènements (1..3) d'une de ses familles.
struct LieuMedia {
    bool famille = false;
    std::int32_t numero = 0;  // la personne ou la famille
    int acte = 0;
    friend bool operator==(const LieuMedia&, const LieuMedia&) = default;
};

// Une ligne de ListeDivers : pour un évènement le premier caractère de son symbole
// et un blanc, le chemin, puis " P" et le numéro de la personne, ou " M" et celui
// de l'objet média, sur six chiffres.
struct LigneDivers {
    std::string texte;
    char genre = 'P';
    std::int32_t numero = 0;
    std::string chemin;
    int rang = 0;    // P : le rang dans Fichiers
    LieuMedia lieu;  // M : où le lien est tenu
};

// Les fichiers de la personne, ceux de ses objets médias, puis ceux des objets
// liés à ses évènements et aux évènements de ses unions, dans cet ordre.
std::vector<LigneDivers> LignesDivers(const Base& base, const Options& options, std::int32_t p);

// Lien entre la personne p (acte 0) ou l'un de ses évènements (1..4) et l'objet m,
// avec le retour de lien de l'objet. Faux quand les neuf places de la personne sont prises.
bool LierMedia(Base& base, std::int32_t p, int acte, std::int32_t m);
void DelierMedia(Base& base, std::int32_t p, int acte, std::int32_t m);
// Les mêmes pour un lieu quelconque, famille comprise. Une famille dont l'objet
// a déjà neuf retours garde le lien sans retour.
bool LierMedia(Base& base, const LieuMedia& lieu, std::int32_t m);
void DelierMedia(Base& base, const LieuMedia& lieu, std::int32_t m);

// Nouvel objet média partagé au-dessus du plus haut numéro, portant chemin en Fichiers(1).
std::int32_t NouvelObjetMedia(Base& base, std::string_view chemin);

// Le chemin prend le premier rang libre de Fichiers ; plein, un message le refuse.
bool AjouterFichier(Base& base, std::int32_t p, std::string_view chemin, Dialogue& dialogue);
// BoutonAjouterDivers : choix du fichier depuis le dossier du dernier fichier lié ou
// celui des images, puis AjouterFichier. Rend le chemin ajouté.
std::optional<std::string> AjouterFichierChoisi(Base& base, std::int32_t p, std::string_view dernierFichier,
                                                std::string_view dossierImages, Dialogue& dialogue);

// Une personne "Image" IMAGE, faite pour porter un fichier ou un objet média.
std::int32_t NouvellePersonneImage(Base& base, bool reutiliserLibres);

// MenuDupliquerImage : demande combien de nouvelles personnes "Image" lier à
// l'objet média de la ligne (neuf au plus) ; celles qui ne trouvent plus de
// place chez l'objet restent créées et un message le dit. Rend les personnes créées.
std::vector<std::int32_t> DupliquerLienMedia(Base& base, const LigneDivers& ligne, bool reutiliserLibres,
                                             Dialogue& dialogue);

// Destinations de MenuDeplacerLienImage(i) : 0 la personne, 1 naissance,
// 2 baptême, 3 contrat de mariage, 4 mariage, 5 divorce, 6 décès, 7 sépulture.
constexpr int kDestinationsMedia = 8;
// Déplace le lien de l'objet média de la ligne vers la destination. Un évènement
// d'union va à l'union choisie sur la fiche (0 : aucune), ou à la seule union.
// Chaque refus est un message ; rend vrai quand le lien a bougé.
bool DeplacerLienMedia(Base& base, std::int32_t p, const LigneDivers& ligne, int destination,
                       std::int32_t unionChoisie, Dialogue& dialogue);

// MenuSupprLienImage : un fichier de la personne quitte son rang et les suivants
// remontent ; un objet média perd le lien là où la ligne le trouve, puis la question de
// l'objet sans lien est posée quand un Dialogue est donné.
void SupprimerLienDivers(Base& base, std::int32_t p, const LigneDivers& ligne, Dialogue* dialogue);
// MenuModifLienImage : le nouveau chemin remplace l'ancien (dans l'objet, au rang qui le porte).
void ModifierLienDivers(Base& base, std::int32_t p, const LigneDivers& ligne, std::string_view nouveau);

// Où chercher un fichier qui n'est plus à son chemin : dossier des images, puis
// dossier du fichier GEDCOM ("/" final ou non).
struct LieuxFichiers {
    std::string dossierImages;
    std::string dossierGedcom;
};

// Le chemin tel quel s'il existe ; sinon, relatif, sous chacun des dossiers ; sinon
// son seul nom de fichier sous chacun d'eux.
std::optional<std::string> TrouverFichier(std::string_view chemin, const LieuxFichiers& lieux);

enum class Ouverture { Ouvert, PasUneImage, Introuvable, SupprimerLien };
struct ResultatOuverture {
    Ouverture etat = Ouverture::Introuvable;
    std::string chemin;  // le chemin trouvé
};

// OuvrirFichier : mode 1 ouvre dans le programme par défaut, mode 2 ouvre le
// dossier du fichier (ses propriétés), mode 3 rend le chemin
// d'une image à montrer. Un fichier introuvable fait demander s'il faut supprimer le lien.
ResultatOuverture OuvrirFichier(std::string_view chemin, int mode, const LieuxFichiers& lieux,
                                Dialogue& dialogue);

// La première image trouvée de la liste de la personne, pour Photo.
std::optional<std::string> PhotoDePersonne(const Base& base, const Options& options, std::int32_t p,
                                           const LieuxFichiers& lieux,
                                           std::string_view extensions = kExtensionsImages);

}  // namespace arbolix
