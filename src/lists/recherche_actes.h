// La recherche d'actes : types, critère et période, clé de tri, liste des actes trouvés ou sélection.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lists/rangees.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Les cases TypeActe du formulaire, dans l'ordre de l'écran ; la case 0 « Tous » vaut les sept.
enum CaseActe {
    kCaseTous = 0,
    kCaseNaissance,
    kCaseBapteme,
    kCaseMariage,
    kCaseContrat,
    kCaseDivorce,
    kCaseDeces,
    kCaseSepulture
};
inline constexpr int kNbCasesActe = 8;

// OptionType : le critère.
enum class Critere { Tout, Nom, Lieu, Profession, Temoin, Domicile };

// Une sorte d'acte, dans l'ordre où la recherche les parcourt.
struct SorteActe {
    const char* nom;
    char lettre;  // la lettre de arbolix-cli actes --types
    int caseActe;
    Acte Perso::*perso;  // nul pour un acte de famille
    Acte Fami::*fami;    // nul pour un acte de personne
    std::string Options::*symbole;
};
extern const std::array<SorteActe, 7> kSortesActes;

// Ce que le formulaire RechActe envoie à la recherche.
struct RechercheActes {
    std::array<bool, kNbCasesActe> TypeActe{};
    Critere OptionType = Critere::Tout;
    // Les rangées cochées de la liste de choix (noms, lieux, professions) ou le domicile tapé.
    std::vector<std::string> Criteres;
    std::int32_t Temoin = 0;  // la personne de la fiche, pour « Témoin »
    bool OptInclureApprox = false;
    std::string AnneeDebut, AnneeFin;
    // ListeTri(0) : nom, prénoms, date, lieu, numéro, date décr. ; ListeTri(1) : nom, nom2, date, lieu,
    // numéro.
    std::array<int, 2> ListeTri{0, 2};
};

// Une boîte critique qui arrête la recherche.
struct Refus {
    std::string Titre;
    std::string Texte;
};

// Les contrôles de BoutonOK, dans leur ordre ; rien quand la recherche peut partir.
// fiche : la personne montrée (0 : aucune).
std::optional<Refus> ControlerRecherche(const RechercheActes& r, std::int32_t fiche);

// Les années de la période, bornes comprises : un AnneeDebut vide vaut 0, un AnneeFin vide 9999.
// Une année est faite de 1 à 4 chiffres ; tout autre texte rend rien.
struct Periode {
    int debut = 0;
    int fin = 9999;
};
std::optional<Periode> LirePeriode(std::string_view debut, std::string_view fin);

// Vrai quand numero est l'un des témoins 1 à 20 de l'acte.
bool ChercherTemoin(const Acte& acte, std::int32_t numero);

// Chaque chiffre d devient 9 - d : une clé de date triée ainsi va de la plus récente à la plus ancienne.
std::string InverserChiffres(std::string_view texte);

// La clé de tri d'un acte : le champ de ListeTri(0) puis celui de ListeTri(1), parmi nom,
// prénoms (nom2 d'une famille), clé de date, lieu et numéro.
std::string CleTriActe(const std::array<int, 2>& tri, std::string_view nom, std::string_view prenoms,
                       std::string_view dateTri, std::string_view lieu, std::string_view numero);

// Le tri par numéro demande un De Cujus et une sélection d'ascendants ou de descendants.
// selCochee : l'entrée cochée du menu Sélection (0 à 4).
inline constexpr int kTriNumero = 4;
bool TriParNumeroPossible(const Base& base, int selCochee);
extern const char* const kTitreTriNumero;
extern const char* const kTexteTriNumero;

// Un acte trouvé : la personne (acte de personne) ou la famille, et sa sorte (indice de kSortesActes).
struct ActeTrouve {
    std::int32_t numero = 0;
    std::uint8_t sorte = 0;
    friend bool operator==(const ActeTrouve&, const ActeTrouve&) = default;
};

// Le parcours : personnes par numéro, pour chacune ses actes dans l'ordre fixe, ceux d'une famille
// avec son mari (ou sa femme sans mari). dansSelection : seules les fiches sélectionnées.
// Une recherche que ControlerRecherche refuse ne trouve rien.
std::vector<ActeTrouve> ChercherActes(const Base& base, const RechercheActes& r, bool dansSelection);

// Le mode liste : les actes des fiches sélectionnées dans la liste "actes", triés par CleTriActe.
// exportPossible : la rangée de tête " Exporter..." est mise.
void ListerActes(const Base& base, const Options& options, const RechercheActes& r, int selCochee,
                 bool exportPossible, ListePersonne& liste);
inline constexpr const char* kExporterActes = " Exporter...";

// Le texte lu d'un acte trouvé, sans sa queue.
std::string TexteActe(const Base& base, const Options& options, const ActeTrouve& a);

// Le mode sélection : chaque acte trouvé marque sa personne (Marquer) ou sa famille. dansTout
// (« Sél. dans tout ») cherche dans toute la base et ajoute à la sélection ; sinon la recherche
// reste dans la sélection et n'en garde que ce qu'elle trouve. depuisTout : la sélection d'avant
// était toute la base, la nouvelle part de rien. Rend la légende de MenuSelInfo.
std::string SelectionnerActes(Base& base, const Options& options, const RechercheActes& r, bool dansTout,
                              bool depuisTout);

// La liste "domicile" : la ligne de tête, puis pour chaque personne sélectionnée
// Ville + " : " + Nom + " " + Prénoms et sa queue " P".
ListePersonne ListeDomiciles(const Base& base);

}  // namespace arbolix
