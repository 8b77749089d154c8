// L'éditeur d'évènement sans fenêtre : genres d'évènements, lignes de témoins, copie de l'évènement dans la fiche.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "platform/dialogue.h"
#include "store/base.h"

namespace arbolix {

// Un genre d'évènement, par sa lettre : N B D S pour une personne, C M X pour
// une famille, Z pour la conversion de date qui ne range rien.
struct GenreActe {
    char lettre;
    std::string_view titre;  // début du titre de la fenêtre, avant le nom
    Acte Perso::*champPerso;
    Acte Fami::*champFami;
    int rang = 0;  // l'évènement dans les champs de lien : 1..4 d'une personne, 1..3 d'une famille
};

// nul pour une lettre inconnue.
const GenreActe* TrouverGenre(char lettre);

// L'évènement de ce genre dans la fiche de p (N B D S) ou la famille f (C M X) ;
// nul pour Z ou pour un numéro hors d'usage.
Acte* ActeDuGenre(Base& base, char genre, std::int32_t p, std::int32_t f);

// L'âge n'est modifiable que pour un décès, un mariage ou un divorce.
bool AgeModifiable(char genre);

// L'âge montré à l'ouverture : année de l'évènement moins celle de la naissance,
// quand les deux sont connues et que l'évènement n'est pas la naissance.
std::string AgeAffiche(char genre, const Acte& naissance, const Acte& acte);

struct Temoin {
    std::int32_t numero = 0;
    std::string role;
    friend bool operator==(const Temoin&, const Temoin&) = default;
};

// Témoins de l'acte, de l'emplacement 1 jusqu'au premier vide.
std::vector<Temoin> LireTemoins(const Acte& acte);

// Les témoins de la liste prennent les emplacements 1 et suivants ; les autres
// sont vidés. Au-delà de 20, le reste est ignoré.
void EcrireTemoins(Acte& acte, const std::vector<Temoin>& temoins);

// Ligne de la liste des témoins : "<personne> : <rôle> P000012".
std::string LigneTemoin(std::string_view personne, std::string_view role, std::int32_t numero);

// Relit une ligne : le numéro des 6 derniers caractères, le rôle après " : "
// jusqu'aux 8 derniers.
Temoin TemoinDeLigne(std::string_view ligne);

// Ligne d'un témoin choisi dans la liste des candidats ("<personne> P000012") :
// le rôle par défaut s'insère avant la fin.
std::string LigneTemoinChoisi(std::string_view candidat);

// Range base.ActeCourant dans la fiche (la partie date est déjà faite, la cohérence
// vérifiée par l'appelant) : retours de liens des notes et sources externes, tri
// des unions après un évènement de famille, date de modification, naissance
// estimée d'après l'âge quand elle manque, FichierModifie. Rien pour Z. Une note
// ou source qui perd son dernier lien fait poser la question quand un Dialogue est donné.
void EnregistrerActe(Base& base, char genre, std::int32_t p, std::int32_t f, std::string_view age,
                     double maintenant, Dialogue* dialogue = nullptr);

}  // namespace arbolix
