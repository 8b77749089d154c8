// L'état du lecteur GEDCOM, partagé par ses sections (en-tête, personnes, familles, notes, sources, médias).
#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <functional>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "dates/parse_date.h"
#include "gedcom/index_lieux.h"
#include "gedcom/jeux_caracteres.h"
#include "gedcom/lecteur.h"
#include "gedcom/releve_fichier.h"
#include "platform/progression.h"

namespace arbolix {

// Une balise comparée à une balise connue, à chaque ligne : la longueur sue à la compilation
// laisse comparer quelques octets sur place, là où == appellerait une fonction.
template <std::size_t N>
bool EstBalise(std::string_view balise, const char (&connue)[N]) noexcept {
    return balise.size() == N - 1 && std::memcmp(balise.data(), connue, N - 1) == 0;
}

// Une erreur d'exécution à la manière du piège du lecteur : un numéro et un texte.
struct ErreurExecution : std::runtime_error {
    ErreurExecution(int numero, const std::string& texte) : std::runtime_error(texte), numero(numero) {}
    int numero;
};

// Un évènement d'une fiche (personne ou famille) choisi par la balise du contexte,
// et le type qu'il donne à un objet média qui s'y attache.
template <typename Fiche>
struct ActeDuContexte {
    std::string_view balise;
    Acte Fiche::*acte;
    std::int32_t typeActe;
};

// La rangée de la table pour ce contexte, nulle s'il n'y en a pas.
template <typename Fiche, std::size_t N>
const ActeDuContexte<Fiche>* ChercherActe(const ActeDuContexte<Fiche> (&table)[N],
                                          std::string_view contexte) {
    for (const auto& r : table)
        if (r.balise == contexte) return &r;
    return nullptr;
}

// Le nom du généalogiste (fiche SUBM) : "Claire /Martin/" donne les prénoms "Claire" et
// le nom "Martin", comme l'écriture les a mis ; sans barre oblique, tout est le nom.
void NomDuGenealogiste(Perso& g, std::string_view valeur);

class LecteurGedcom {
public:
    LecteurGedcom(Base& base, ContexteLecture& contexte, ResultatLecture& resultat);

    // Prend le contenu brut du fichier et remplit la base.
    void Lire(std::string contenu);

    // --- lignes ---
    void LigneSuivante();
    // Plus aucune ligne derrière la position de lecture.
    bool FinAtteinte() const { return aucuneLigne_ && pos_ >= tampon_.size(); }
    // Niveau de la ligne courante : son premier caractère, 0 s'il n'est pas un chiffre.
    int Niveau() const;
    // Coupe LigneCourante en Balise et valeur ; LigneCourante garde la valeur.
    void Decouper();
    // Entrée d'une section : vrai si la ligne courante est la ligne 0 de la fiche,
    // faux si l'on revient dans la même fiche après une ligne vide.
    bool EntreeDeFiche();
    // Après chaque balise : la ligne suivante, et l'alerte si le fichier finit sans TRLR.
    void Avancer(std::string_view alerteFin);
    // Les lignes d'une fiche de personne ou de famille jusqu'au niveau 0 suivant ou TRLR,
    // chacune sous le piège. Faux quand la lecture est annulée.
    template <typename Traitement>
    bool LignesDeFiche(std::string_view alerteFin, Traitement&& traiter);
    // Balise d'une ligne de contexte : son premier mot à partir du caractère 3.
    static std::string_view BaliseDe(std::string_view ligne);
    std::string_view Contexte1() const { return BaliseDe(Ligne1); }
    std::string_view Contexte2() const { return BaliseDe(Ligne2); }

    // --- numéros ---
    // Les genres de fiches : renumérotés, chacun a sa propre suite de numéros.
    enum class Genre { Personne, Famille, Note, Source, Media, Nombre };
    std::int32_t NumeroLu(std::string_view s, bool compterPerso, bool renumeroter, Genre genre);
    // Numéro donné à un identifiant qui n'en porte pas d'utilisable (@Abraham_Simpson@,
    // @I152733931767@) : le suivant du plus grand numéro utilisable du fichier.
    std::int32_t NumeroTraduit(std::string_view identifiant);

    // --- journal et progression ---
    void Journaliser(std::string_view texte) { resultat_.Journal.append(texte); }
    void JournaliserLigne(std::string_view texte) {
        resultat_.Journal.append(texte);
        resultat_.Journal.append("\r\n");
    }
    // Une ligne faite de morceaux, écrits à la suite dans le journal : les messages fréquents
    // (des centaines de milliers dans un grand fichier) ne passent pas par des chaînes de travail.
    void JournaliserLigne(std::initializer_list<std::string_view> morceaux) {
        for (const std::string_view m : morceaux) resultat_.Journal.append(m);
        resultat_.Journal.append("\r\n");
    }
    void MontrerProgression();
    // Entre deux fiches comptées (une longue suite de sources, de notes), la fenêtre doit
    // encore répondre : la progression se montre au plus tard tous les dixièmes de seconde.
    void PompeSiDue();
    // Ce qui est lu du tampon ne se relit plus : un grand fichier en rend les pages au fur et à
    // mesure, pour que le tampon et la base ne tiennent pas ensemble toute la mémoire. Les deux
    // parcours du fichier entier (dépôts, plus grand numéro) se font avant la première fois.
    void RendreLu();
    void ChercherPlusGrandNumero();
    bool Annule() const { return base_.Chargement != 0 || contexte_.progression.Annule(); }
    // Lance le traitement d'une balise sous le piège : une défaillance va au journal et la lecture continue.
    template <typename Traitement>
    void SousPiege(Traitement&& traitement) {
        try {
            traitement();
        } catch (const std::exception&) {
            JournaliserExceptionCourante();
        }
    }
    void JournaliserErreur(int numero, std::string_view texte);
    void JournaliserExceptionCourante();

    Base& base_;
    ContexteLecture& contexte_;
    ResultatLecture& resultat_;
    const OptionsGedcom& cases_;

    std::string tampon_;
    // Le plus grand numéro, les dépôts et les préfixes des fiches, cherchés dans tout le tampon
    // sur un autre fil dès l'en-tête lu. Déclaré après le tampon : il finit avant lui.
    ReleveEnFond releve_;
    std::size_t pos_ = 0;       // début de la prochaine ligne (compté depuis 0)
    bool aucuneLigne_ = false;  // la dernière recherche n'a trouvé aucune ligne
    // Les lignes se lisent en place dans le tampon, sans copie : des vues. Une ligne retouchée
    // (balise d'utilisateur, identifiant ôté, blanc ajouté, lien traduit) est une copie gardée
    // par le lecteur ; le tampon ne change pas pendant la lecture des fiches, et RendreLu garde
    // ce que désignent Ligne0, Ligne1 et Ligne2.
    std::string_view LigneCourante;
    std::string_view Ligne0, Ligne1, Ligne2;
    std::string_view Balise;
    // Garde un texte calculé pour la ligne courante (sa valeur retouchée) : il vit jusqu'à la
    // retouche suivante.
    std::string_view Retoucher(std::string texte) {
        retouchee_ = std::move(texte);
        return retouchee_;
    }
    std::int32_t NumLigne = 0;
    std::int64_t Lus = 0;
    std::int64_t TailleFichier = 0;
    std::chrono::steady_clock::time_point prochainePompe_{};
    std::size_t rendu_ = 0;  // le tampon jusque-là a été rendu au système
    bool ProduitOmega = false;
    bool Renumeroter = false;
    // Numéro du fichier → numéro renuméroté, par genre : une note @N66@ ne doit pas prendre
    // le numéro de la personne @I66@, ni deux notes le même.
    struct Renumerotation {
        std::unordered_map<std::int32_t, std::int32_t> numeros;
        std::int32_t dernier = 0;
    };
    std::array<Renumerotation, static_cast<std::size_t>(Genre::Nombre)> ConvNumeros;
    std::int64_t PlafondConv = 0;
    // Chaque lieu distinct n'est gardé qu'une fois : les fiches en partagent le texte.
    IndexLieux Lieux;
    const Texte* DernierLieu = nullptr;  // le dernier lieu lu, parmi Lieux
    std::int32_t PremierePerso = 0;

    std::int32_t MaxPersos = 0;    // maximum de travail des numéros de personnes
    std::int32_t NbFamisLues = 0;  // compte des familles, offset compris
    std::int32_t DerniereNote = 0, DerniereSource = 0;
    std::vector<bool> Comptees;                  // personnes déjà comptées dans NbPersosReels
    std::vector<std::int32_t> IndiLus;           // numéros des fiches INDI lues
    std::int32_t DernierMedia = base_.NbMedias;  // plus haut numéro d'objet média vu ou créé
    std::unordered_map<std::string, std::int32_t> Traduits;
    std::int64_t ProchainTraduit = 0;              // 0 : le fichier n'a pas encore été parcouru
    CodageFichier Codage = CodageFichier::Octets;  // codage reconnu sur les octets bruts
    bool CharLu = false;                           // l'en-tête portait une ligne CHAR
    bool Utf8Converti = false;                     // la table UTF-8 est déjà passée

    // --- état des sections personne et famille ---
    int NiveauLigne = 0;           // niveau de la ligne en cours, lu avant le découpage
    int TemoinEnAttente = 0;       // emplacement du dernier témoin ajouté (ASSO), 0 : aucun
    int EnfantSuivant = 1;         // prochain emplacement d'enfant de la famille en cours
    int NiveauObjet = 0;           // niveau d'un bloc OBJE sans pointeur en cours, 0 : aucun
    std::int32_t ObjetDuBloc = 0;  // objet créé par le FILE de ce bloc
    std::string TitreDuBloc;       // TITL lu avant le FILE de ce bloc
    // Une lecture dans une base non vide range notes, sources et médias à la suite des siens.
    std::int32_t DecalageNotes = base_.NbNotes;
    std::int32_t DecalageSources = base_.NbSources;
    std::int32_t DecalageMedias = base_.NbMedias;
    // Préfixes d'identifiants (I, F, PERSON...) des fiches INDI et FAM : un CHIL ou un
    // HUSB qui désigne une famille se reconnaît à son préfixe.
    std::vector<std::string> PrefixesPersonnes, PrefixesFamilles;
    bool PrefixesParcourus = false;

    std::int32_t DecalageFamilles = base_.NbFamis;
    // Fiche en cours d'une section de notes, sources ou médias, pour y revenir après une ligne vide.
    std::int32_t DerniereNoteLue = 0, DerniereSourceLue = 0, DernierMediaLu = 0;
    // Fiche de note ou de source en cours : le libellé (« Note : ») d'une ligne vide, posé avec sa suite.
    std::string LibelleEnAttente;
    // Balise de la dernière ligne de niveau 3 d'une fiche : c'est elle que continue une suite de niveau 4.
    std::string Balise3;
    // Noms des dépôts (0 @R1@ REPO, 1 NAME ...) par identifiant, relevés une fois dans le fichier.
    std::unordered_map<std::string, std::string> NomsDepots;
    bool DepotsParcourus = false;
    // Lien d'une personne vers un fichier (objet, ou chemin quand objet vaut 0) qui n'a pas trouvé
    // de place : tranché après la lecture, quand les doubles faits par les chemins sont partis.
    struct FichierEnAttente {
        std::int32_t personne, objet, ligne, typeActe;
        Acte Perso::*acte;  // nul : la liste de la personne
        std::string valeur;
    };
    std::vector<FichierEnAttente> FichiersEnAttente;

    // Entrée dans une fiche : les contextes de la fiche précédente ne valent plus.
    void NouvelleFiche();
    // Niveau, découpage en balise et valeur, suites sous une source de niveau 2 (elles deviennent TEXT).
    void PreparerLigne();
    // Personne désignée par un pointeur (CHIL, HUSB, WIFE, ASSO, INDI d'un objet). Elle
    // n'est comptée qu'à la lecture de sa fiche INDI, sauf en renumérotation où le
    // compte donne les numéros.
    std::int32_t PersonneDuPointeur(std::string_view pointeur);

    // Contexte de ParseDate pris sur l'état du lecteur.
    ContexteDate ContexteDeDate();
    const Texte& LireDateLigne(std::string_view valeur, Acte& a) {
        return ParseDate(valeur, a, ContexteDeDate());
    }
    // Vrai quand la ligne courante continue un bloc OBJE sans pointeur (FILE, TITL, FORM du bloc).
    bool DansBlocObjet() const { return NiveauObjet > 0 && NiveauLigne > NiveauObjet; }
    // Retient le préfixe d'un identifiant de fiche lue ; parcourt une fois le reste du fichier.
    void NoterPrefixe(std::string_view identifiant, bool famille);
    void ParcourirPrefixes();
    bool DesigneUneFamille(std::string_view pointeur);

private:
    std::string retouchee_;  // la ligne courante quand elle a dû être retouchée
    // Une ligne de contexte retouchée (balise d'utilisateur) : chaque niveau garde la sienne
    // jusqu'à la ligne suivante du même niveau, qui la remplace dans Ligne0, Ligne1 ou Ligne2.
    std::array<std::string, 3> contextesRetouches_;
    std::string& CopieDeContexte(std::string_view ligne);
    // La ligne de contexte (Ligne0, Ligne1, Ligne2) que cette ligne devient, nulle si aucune.
    std::string_view* ContexteDe(std::string_view ligne);
    std::string baliseComplete_;  // une balise de moins de trois lettres, complétée de blancs

    void PreparerTampon(std::string contenu);
    // Refait la suite du tampon (jeu de caractères, réparation d'un producteur) : ce qui précède
    // la position de lecture ne change pas mais peut changer d'adresse ; les vues y sont reportées.
    // Un relevé en cours sur l'ancien tampon ne vaut plus.
    template <typename Modification>
    void RefaireSuite(Modification&& modification) {
        releve_.Abandonner();
        const auto ancien = reinterpret_cast<std::uintptr_t>(tampon_.data());
        modification();
        for (std::string_view* v : {&LigneCourante, &Ligne0, &Ligne1, &Ligne2, &Balise}) {
            const auto p = reinterpret_cast<std::uintptr_t>(v->data());
            if (p >= ancien && p <= ancien + pos_) *v = {tampon_.data() + (p - ancien), v->size()};
        }
    }
    std::size_t FinDeLigne(std::size_t depuis) const { return arbolix::FinDeLigne(tampon_, depuis); }
    void BouclePrincipale();
    // Retient les lignes debut..(ligne courante - 1) comme une fiche sans numéro de personne.
    void NoterFiche(std::int32_t debut, std::string nom);
    // Après une section de personne : l'auteur du fichier, un autre auteur, ou une fiche
    // INDI au numéro inutilisable dont les lignes ne sont pas reprises.
    void NoterFicheSansNumero(std::int32_t debut, std::string_view ligne0);
    void Sauter();
    void Terminer();

    // Sections, chacune dans son fichier.
    void SectionEntete();
    void LigneEntete();
    void ReparerProducteur(std::string_view mot);
    void FinEntete();
    void SectionPersonne();
    void LignePersonne(Perso*& fiche);
    void SectionFamille();
    void LigneFamille();
    void SectionNote(bool source);
    void SectionMedia();
    void LigneNote(bool source, std::int32_t n);
    void LigneMedia(std::int32_t g);
    void ControlesApresLecture();
    void Nettoyer();
    void NormaliserCasse();
    void CoderNoms();
};

template <typename Traitement>
bool LecteurGedcom::LignesDeFiche(std::string_view alerteFin, Traitement&& traiter) {
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return false;
        PreparerLigne();
        if (EstBalise(Balise, "TRLR")) break;
        SousPiege(traiter);
        Avancer(alerteFin);
    }
    return true;
}

// Normalise les fins de ligne d'après celle de la ligne "0 HEAD", et répare les
// habitudes connues des producteurs par remplacement global. Exposé pour les tests.
void NormaliserFinsDeLigne(std::string& tampon);
// Chaque passe sur le tampon entier est suivie d'un passage par la pompe d'évènements.
void ReparationsGlobales(std::string& tampon, Progression* progression = nullptr);
// Les noms des dépôts, relevés une fois dans tout le fichier : la fiche REPO peut venir après la source.
void ParcourirDepots(LecteurGedcom& l);

}  // namespace arbolix
