// Les queues de rangée que les listes et la fiche écrivent, et ce que l'on en relit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace arbolix {

// Queue d'une rangée : un blanc, le genre (" P", " F", " N", " S", " M" ou le
// premier caractère d'un symbole) et le numéro sur six chiffres. Un numéro
// au-delà de 999999 s'écrit sur sept chiffres et ne se relit pas : la règle le veut.
std::string Queue(char genre, std::int64_t numero);
// La même queue ajoutée au bout d'un texte, sans texte intermédiaire (listes d'un million de rangées).
void AjouterQueue(std::string& texte, char genre, std::int64_t numero);
// Le numéro sur au moins six chiffres ajouté au bout d'un texte.
void AjouterSixChiffres(std::string& texte, std::int64_t numero);

// Ce que la queue dit : le numéro (les six derniers caractères) et le genre
// (le caractère qui les précède). Rangée trop courte : genre nul et numéro 0.
struct LectureQueue {
    char genre = 0;
    std::int32_t numero = 0;
    friend bool operator==(const LectureQueue&, const LectureQueue&) = default;
};
LectureQueue LireQueue(std::string_view rangee);

// Le conjoint d'une rangée d'union : les six chiffres avant les huit derniers caractères.
std::int32_t ConjointDeRangee(std::string_view rangee);

}  // namespace arbolix
