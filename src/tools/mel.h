// MenuEnvoyerMel : le fichier GEDCOM ouvert, mis en pièce jointe d'un message .eml que le
// programme de courrier ouvre ; rien n'est envoyé.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

#include "platform/dialogue.h"

namespace arbolix {

// Au-delà, les serveurs de courrier refusent le message : le fichier n'est pas mis en pièce jointe.
inline constexpr std::uintmax_t kTailleMaxMel = 25u * 1024 * 1024;

// Source de hasard de la frontière ; les tests en donnent une fixe.
using HasardMel = std::function<std::uint32_t()>;
HasardMel HasardSysteme();

// "------------" suivi de 24 chiffres tirés.
std::string FrontiereMel(const HasardMel& hasard);

// Le texte entier du message, lignes en CR LF. nomFichier : le nom seul, UTF-8. Le fichier va
// tel quel en 8 bits quand c'est un texte en lignes CR LF ; sinon (fins LF, octets nuls de
// l'UTF-16, lignes trop longues) en base64, pour que le destinataire reçoive les mêmes octets.
std::string MessageMel(std::string_view nomFichier, std::string_view contenu, std::string_view frontiere);

// "<nom du fichier GEDCOM>.eml" dans le dossier donné.
std::filesystem::path CheminMel(const std::string& fichierGed, const std::filesystem::path& dossier);

struct ResultatMel {
    bool Ok = false;
    std::string Chemin;   // UTF-8
    std::string Message;  // 1252 : l'échec, qui nomme le fichier
};

// Lit fichierGed et écrit le message dans sortie, sans abîmer un ancien message en cas d'échec.
ResultatMel EcrireMel(const std::string& fichierGed, const std::string& sortie, const HasardMel& hasard);

// MenuEnvoyerMel sans fenêtre, la fiche déjà enregistrée : le message dans le dossier temporaire
// du système, ouvert dans le programme par défaut ; un échec est dit par une boîte.
ResultatMel EnvoyerMel(const std::string& fichierGed, const std::filesystem::path& dossierTemp,
                       const HasardMel& hasard, Dialogue& dialogue);

}  // namespace arbolix
