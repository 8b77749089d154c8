// Ce que les fiches de personnes et de familles lisent de la même façon : table des balises,
// évènements (lieu, notes, témoins et rôles), fichiers liés, messages du journal.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>

#include "gedcom/lecteur_gedcom.h"
#include "store/base.h"

namespace arbolix {

// --- La table des balises ---

// Une ligne de la table des balises d'une fiche (Perso ou Fami).
template <typename Fiche>
struct RegleBalise {
    std::string_view balise;
    bool OptionsGedcom::*garde;  // case qui doit être cochée, nul : aucune
    // La valeur est une vue de la ligne courante ; une règle qui la change la fait garder par
    // LecteurGedcom::Retoucher. Nul : balise ignorée sans un mot.
    void (*traiter)(LecteurGedcom&, Fiche&, std::string_view&);
};

// Index de la table des balises d'une fiche, consulté à chaque ligne lue :
// adressage ouvert sur une puissance de deux, sans division ni nœud à suivre. Une balise fait
// quelques lettres : ses huit premiers octets et sa longueur la disent presque toujours toute
// (comparés comme deux entiers), et suffisent à la disperser. La première ligne d'une balise
// l'emporte.
template <typename Regle>
class IndexDeBalises {
public:
    template <std::size_t N>
    explicit IndexDeBalises(const Regle (&regles)[N]) {
        static_assert(N <= kCases / 2, "table des balises trop petite");
        for (const Regle& r : regles) {
            const std::uint64_t cle = Cle(r.balise);
            std::size_t i = Case(cle, r.balise.size());
            while (cases_[i].regle && cases_[i].regle->balise != r.balise) i = (i + 1) % kCases;
            if (!cases_[i].regle) cases_[i] = {cle, r.balise.size(), &r};
        }
    }
    // La règle de cette balise, nul si la table ne la connaît pas.
    const Regle* Chercher(std::string_view balise) const noexcept {
        const std::uint64_t cle = Cle(balise);
        for (std::size_t i = Case(cle, balise.size());; i = (i + 1) % kCases) {
            const Entree& e = cases_[i];
            if (!e.regle) return nullptr;
            if (e.cle == cle && e.taille == balise.size() &&
                (e.taille <= sizeof cle || e.regle->balise == balise))
                return e.regle;
        }
    }

private:
    struct Entree {
        std::uint64_t cle = 0;  // les huit premiers octets, complétés de zéros
        std::size_t taille = 0;
        const Regle* regle = nullptr;
    };
    static constexpr std::size_t kCases = 256;
    // Les octets sont assemblés dans un registre : copiés dans un mot en mémoire puis relus, ils
    // faisaient attendre chaque ligne que le processeur fasse suivre la copie à la lecture.
    static std::uint64_t Cle(std::string_view b) noexcept {
        static_assert(std::endian::native == std::endian::little, "l'octet i va aux bits 8 i");
        const char* const p = b.data();
        const std::size_t n = b.size();
        if (n >= 8) return Mot<std::uint64_t>(p);
        // Deux mots de quatre qui se chevauchent : le même octet au même rang dans les deux.
        if (n >= 4)
            return Mot<std::uint32_t>(p) | std::uint64_t{Mot<std::uint32_t>(p + n - 4)} << (8 * (n - 4));
        std::uint64_t v = 0;
        for (std::size_t i = 0; i < n; ++i) v |= std::uint64_t{static_cast<unsigned char>(p[i])} << (8 * i);
        return v;
    }
    template <typename T>
    static T Mot(const char* p) noexcept {
        T v;
        std::memcpy(&v, p, sizeof v);
        return v;
    }
    static std::size_t Case(std::uint64_t cle, std::size_t taille) noexcept {
        const std::uint64_t h = (cle ^ taille) * 0x9E3779B97F4A7C15ull;
        return static_cast<std::size_t>(h >> 56);  // les octets hauts sont les mieux mêlés
    }
    std::array<Entree, kCases> cases_{};
};

template <typename Fiche>
using IndexBalises = IndexDeBalises<RegleBalise<Fiche>>;

// Traite la ligne courante par la règle de sa balise, si sa case est cochée ; la fiche
// n'est prise (fiche()) que pour être traitée. Faux quand la table ne connaît pas la
// balise : à l'appelant de le dire ou non.
template <typename Fiche, typename Prendre>
bool AppliquerRegle(LecteurGedcom& l, const IndexBalises<Fiche>& index, Prendre&& fiche) {
    const RegleBalise<Fiche>* const regle = index.Chercher(l.Balise);
    if (!regle) return false;
    const RegleBalise<Fiche>& r = *regle;
    if (r.garde && !(l.cases_.*r.garde)) return true;
    if (r.traiter) r.traiter(l, fiche(), l.LigneCourante);
    return true;
}

// --- Journal ---

// Le numéro de la ligne courante, tel que le journal l'écrit.
std::string NumLigneTexte(const LecteurGedcom& l);
// "Erreur ligne n, <qui>, donnée non traitée : balise valeur" ; qui : "personne 3", "famille 2".
// Sans balise ni valeur : celles de la ligne courante.
void DonneeNonTraitee(LecteurGedcom& l, std::string_view qui);
void DonneeNonTraitee(LecteurGedcom& l, std::string_view qui, std::string_view balise,
                      std::string_view valeur);
// Un pointeur de personne qui désigne une famille ; deQui : "de la personne 3", "de la famille 2".
void LienVersUneFamille(LecteurGedcom& l, std::string_view v, std::string_view deQui);
// "1 MARR N" : le programme attend une date ; deQuoi : "mariage pour la famille 2".
void AttendUneDate(LecteurGedcom& l, std::string_view deQuoi);

// --- Évènements ---

// Lieu lu : "É" devient "E", blancs de bord ôtés ; il va à la liste des lieux quand il
// diffère du dernier envoyé. Le texte rendu partage celui des autres fiches au même lieu.
Texte LieuLu(LecteurGedcom& l, std::string_view v);

// Date d'une ligne CHAN en jours depuis le 30/12/1899 ; une date incomplète laisse l'ancienne.
void DateDeModification(LecteurGedcom& l, std::string_view v, double& dateModif);

// Date lue pour un texte (résidence, métier, évènement divers, CHAN) : elle passe par un
// évènement de travail, jamais par l'un de ceux de la fiche, où elle inventerait un acte.
std::string DateDeTravail(LecteurGedcom& l, std::string_view v);

// Une ligne plus profonde que niveauPropre appartient à un sous-bloc (citation, objet,
// lieu...) : son NAME, sa DATE, son PLAC ou sa NOTE ne touche pas aux champs de la fiche.
inline bool DansUnSousBloc(const LecteurGedcom& l, int niveauPropre) {
    return l.NiveauLigne > niveauPropre;
}

// « 1 DEAT Y » : l'évènement a eu lieu, sans date ni lieu connus ; il est gardé comme connu.
// Vrai quand la ligne est de cette forme.
bool MarquerConnu(const LecteurGedcom& l, Acte* a, std::string_view v);

// Une note lue sous un évènement, ajoutée à la ligne. La note républicaine que la date
// vient de poser cède la place à celle du fichier pour le même jour, quelle qu'en soit
// la forme ("25/vend/2", "11/08") : relue, une note que la lecture a faite ne grossit pas.
void AjouterNoteActe(Acte& a, std::string_view v);

// Suite (CONT, CONC) de la note d'un évènement : CONT compte pour un blanc et une fin de
// ligne. Une valeur qui redit la note deux fois ne s'ajoute pas.
void SuiteDeNoteActe(Acte& a, std::string_view balise, std::string_view v);

// Une ligne de note ou semblable est à lire : ni vide ni "INDI", et sa case cochée
// (Témoins pour TYPE, Notes pour les autres).
bool NoteALire(const LecteurGedcom& l, std::string_view v);
// Sous un ASSO dont le témoin attend son rôle, une note est ce rôle.
bool RoleEnAttente(const LecteurGedcom& l);

// Témoin w à la première place libre de l'évènement, retenu pour le rôle qui suit.
// Quand les 20 places sont prises, le journal le dit ; aQui : " à la famille 2", fait pour le
// journal seulement (des centaines de milliers de témoins n'en ont pas besoin).
void AjouterTemoin(LecteurGedcom& l, Acte& a, std::int32_t w, const std::function<std::string()>& aQui);

// Rôle du témoin retenu, traduit ; "Témoin" ne s'écrit pas. contexte : celui où la
// traduction cherche le sexe d'un parrain. a nul : aucun évènement ne porte le témoin.
void AjouterRole(LecteurGedcom& l, std::string_view contexte, Acte* a, std::string_view v);

// --- Fichiers liés ---

// Un lien vers un fichier qui n'a pas pu se faire reste lisible dans les notes.
void VoirFichier(Texte& notes, std::string_view v);

// Le retour de lien de l'objet média m vers la fiche courante (liens : LiensPersos ou
// LiensFamis, qui reçoit NumCourant), et le type d'acte du contexte (0 : aucun).
// etQui complète le message quand les places sont prises : " et la famille 2".
void LierObjetEnRetour(LecteurGedcom& l, std::int32_t m,
                       Emplacements<std::int32_t, 1, kMaxLiens> ObjetMedia::*liens, std::string_view v,
                       std::string_view etQui, std::int32_t typeActe);

// Nouvel objet local pour un chemin lu sous une fiche ; dans un bloc OBJE il devient
// l'objet du bloc (voir RattacherAuBloc). Rend son numéro.
std::int32_t NouvelObjetLu(LecteurGedcom& l, std::string_view chemin);

// Dans un bloc OBJE, l'objet m (neuf, ou déjà lié à la fiche pour le même chemin) devient
// l'objet du bloc et reçoit le titre lu avant le FILE.
void RattacherAuBloc(LecteurGedcom& l, std::int32_t m);

// Le FILE d'un bloc OBJE n'a pas pu être lié : le titre du bloc, lu avant ou après, est
// perdu avec lui et va au journal. qui : "personne 3", "famille 2".
void BlocSansObjet(LecteurGedcom& l, std::string_view qui);

// OBJE : vrai pour un pointeur, que l'appelant lie comme FILE @M..@ ; sans valeur, ouvre
// un bloc FILE/TITL/FORM.
bool ObjetPointe(LecteurGedcom& l, std::string_view v);

// Titre d'un fichier du bloc OBJE : sur l'objet du bloc, sinon gardé pour le FILE qui suit ;
// au journal quand le fichier du bloc n'a pas pu être lié.
void TitreDeBloc(LecteurGedcom& l, std::string_view v, std::string_view qui);

}  // namespace arbolix
