// Dialogue : les boîtes de message, saisies et sélecteurs dont les règles ont besoin.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace arbolix {

enum class Icone { Aucune, Information, Question, Attention, Stop };
// HommeFemme : les réponses Oui (homme) et Non (femme) sous des boutons qui les nomment.
enum class Boutons { Ok, OkAnnuler, OuiNon, OuiNonAnnuler, AbandonnerReessayerIgnorer, HommeFemme };
enum class Bouton { Ok, Annuler, Oui, Non, Abandonner, Reessayer, Ignorer };

// La fenêtre l'implémente avec Qt, les tests avec un faux qui note chaque
// message et répond comme on le lui dit, la ligne de commande avec des réponses fixes.
// Textes en code page 1252, comme la base.
class Dialogue {
public:
    virtual ~Dialogue() = default;
    // defaut : le bouton qu'Entrée choisit ; sans lui, le premier de la rangée. Une
    // question qui détruit (supprimer un lien, une fiche, une note) le donne à Non.
    virtual Bouton Message(std::string_view titre, std::string_view texte, Icone icone,
                           Boutons boutons = Boutons::Ok, std::optional<Bouton> defaut = std::nullopt) = 0;
    // Saisie d'un texte ; nullopt si l'utilisateur annule.
    virtual std::optional<std::string> Saisie(std::string_view titre, std::string_view invite,
                                              std::string_view defaut) = 0;
    // Sélecteurs de fichiers : filtre "*.ged", dossier de départ ; nullopt si annulé.
    virtual std::optional<std::string> ChoisirFichierOuvrir(std::string_view titre, std::string_view filtre,
                                                            std::string_view depart) = 0;
    virtual std::optional<std::string> ChoisirFichierEnregistrer(std::string_view titre,
                                                                 std::string_view filtre,
                                                                 std::string_view depart) = 0;
    virtual std::optional<std::string> ChoisirDossier(std::string_view titre, std::string_view depart) = 0;
    // Ouvre un fichier ou une adresse dans son programme par défaut.
    virtual bool OuvrirDansProgramme(std::string_view chemin) = 0;
};

}  // namespace arbolix
