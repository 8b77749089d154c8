// Le parcours des descendants d'une personne avec les numéros d'Aboville : pour la chronique de
// descendance, les arbres descendants et les pages web. Rien n'est écrit ici.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "reports/contexte_export.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix {

// Une union d'un descendant : la rangée de la liste de descendance. Une personne sans union
// n'en a pas.
struct RangeeDescendance {
    int generation = 0;  // 0 : la racine
    std::string numero;  // le numéro brut de la personne à ce passage (".01a.03")
    std::int32_t personne = 0;
    int rangUnion = 0;          // 1 à 7
    std::int32_t conjoint = 0;  // 0 quand l'union n'a pas d'autre époux
    std::int32_t famille = 0;
};

// Ce que le parcours annonce dans son ordre (en profondeur, enfants par ordre de naissance) :
// chaque descendant parcouru, puis chacune de ses unions. Le texte de la chronique s'écrit ainsi.
class VisiteurDescendance {
public:
    virtual ~VisiteurDescendance() = default;
    virtual void Personne(std::int32_t /*p*/, std::string_view /*numero*/, int /*generation*/) {}
    virtual void Union(const RangeeDescendance& /*rangee*/) {}
};

struct ReglagesDescendance {
    bool marquer = false;    // la sélection : chaque descendant parcouru, son conjoint
    bool ajouter = true;     // les rangées du résultat
    bool etLogique = false;  // « Sél. dans la sélection » : un enfant hors de SelAvant n'est pas parcouru
    VisiteurDescendance* visiteur = nullptr;
};

struct Descendance {
    // Triées par génération puis par numéro (l'ordre de la liste cachée).
    std::vector<RangeeDescendance> rangees;
    // Les descendants parcourus, sans la racine, marqués ou non.
    std::int32_t compte = 0;
};

// ParcourirDescendance : numérote chaque enfant (numéro du parent + "." + rang sur deux chiffres
// compté à travers les unions, + la lettre de l'union quand le parent en a plusieurs) dans
// NumSosa(2) ; passe à un enfant quand il porte le nom du parent (CodeNom) et a une union, ou
// quand SelTousDesc est coché. Unions(0) du descendant et de son conjoint reçoit la famille.
// Un descendant atteint par deux chemins est parcouru sous ses deux numéros (pas au-delà) ;
// une boucle dans les liens n'est pas suivie.
Descendance ParcourirDescendance(Base& base, const Options& options, std::int32_t racine,
                                 const ReglagesDescendance& reglages = {});

// Un numéro tel qu'il s'imprime : sans les zéros de tête des rangs ni le point de tête
// (".01a.10" donne "1a.10" ; "x = .02" donne "x = 2").
std::string NettoyerNumero(std::string numero);

// Le second numéro d'un descendant atteint par deux chemins : NumSosa(2) devient
// "dernier = premier", une fois. Les numéros ne sont pas encore nettoyés.
void NumerosDoubles(Base& base, const std::vector<RangeeDescendance>& rangees);

// La liste de descendance de ctx.NumPerso : en texte (chaque descendant, ses unions et ses conjoints,
// puis le compte), ou en RTF, génération par génération, en blocs de famille, ou en phrases avec
// « Toutes ».
std::string TexteDescendance(const ContexteExport& ctx);
std::string RtfDescendance(const ContexteExport& ctx);

}  // namespace arbolix
