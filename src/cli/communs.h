// Ce que partagent les sous-commandes de arbolix-cli : lire un fichier comme la fenêtre l'ouvre,
// l'écrire sans abîmer l'ancien, répondre aux boîtes sans fenêtre, lire les drapeaux communs.
#pragma once

#include <cstdint>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "dates/calendrier_gregorien.h"
#include "gedcom/lecteur.h"
#include "platform/dialogue.h"
#include "store/base.h"
#include "store/options.h"

namespace arbolix::cli {

using Arguments = std::vector<std::string>;

struct Sorties {
    std::ostream& sortie;
    std::ostream& erreurs;
};

// Un texte 1252 pour le terminal : UTF-8, fins de ligne LF.
std::string JournalUtf8(const std::string& journal);
// Le même, écrit par morceaux : le journal d'un gros fichier n'est pas recopié en entier.
void EcrireUtf8(std::ostream& o, std::string_view texte1252);

// Lit un fichier avec les cases données ; faux avec un message si le fichier ne se lit pas.
bool Charger(const std::string& fichier, OptionsGedcom cases, Base& base, Options& options,
             ResultatLecture& resultat, Sorties& s);
// Lit un fichier sur toute la base, comme la fenêtre l'ouvre ; le journal va aux erreurs.
bool ChargerTout(const std::string& fichier, Base& base, Options& options, Sorties& s);

// Écrit la base dans FICHIER avec ces cases ; FICHIER n'est remplacé qu'une fois entièrement
// écrit. Les avertissements et l'erreur vont aux erreurs ; rend le code de sortie.
int Ecrire(Base& base, Options& options, OptionsGedcom cases, const std::string& fichier, Sorties& s);

// Retire un drapeau des arguments ; vrai quand il y était.
bool RetirerDrapeau(Arguments& args, std::string_view drapeau);

// Retire « OPTION VALEUR » des arguments. Faux (message écrit) quand la valeur manque.
bool ExtraireValeur(Arguments& args, std::string_view option, std::optional<std::string>& valeur,
                    std::ostream& erreurs);

// --date JJ/MM/AAAA fixe « aujourd'hui » pour que les sorties se comparent octet pour octet ;
// vide sans l'option. Faux (message écrit) sur une date qui n'existe pas.
bool ExtraireDate(Arguments& args, std::optional<DateCalendrier>& fixee, std::ostream& erreurs);

// La date fixée, sinon celle de la machine.
DateCalendrier Aujourdhui(const std::optional<DateCalendrier>& fixee);

// L'heure de DateModif : jours depuis le 30/12/1899, la fraction donnant l'heure (UTC) ; minuit
// du jour fixé quand il l'est.
double JoursDepuis1899(const std::optional<DateCalendrier>& fixee);

// Un numéro de fiche tapé : des chiffres seulement ; 0 pour tout autre texte.
std::int32_t NumeroTape(const std::string& texte);
// Un numéro tapé qui doit être une personne du fichier ; faux avec un message sinon.
bool LirePersonne(const Base& base, const std::string& texte, const std::string& fichier, std::int32_t& n,
                  std::ostream& erreurs);

// Sans fenêtre : chaque boîte est écrite sur la sortie d'erreurs et reçoit son bouton par
// défaut (Non aux questions qui détruisent), sinon Oui ou Ok ; une saisie ou un choix de
// fichier est annulé.
class DialogueCli : public Dialogue {
public:
    explicit DialogueCli(std::ostream& erreurs) : erreurs_(erreurs) {}
    Bouton Message(std::string_view titre, std::string_view texte, Icone, Boutons boutons,
                   std::optional<Bouton> defaut) override;
    std::optional<std::string> Saisie(std::string_view, std::string_view, std::string_view) override {
        return {};
    }
    std::optional<std::string> ChoisirFichierOuvrir(std::string_view, std::string_view,
                                                    std::string_view) override {
        return {};
    }
    std::optional<std::string> ChoisirFichierEnregistrer(std::string_view, std::string_view,
                                                         std::string_view) override {
        return {};
    }
    std::optional<std::string> ChoisirDossier(std::string_view, std::string_view) override { return {}; }
    bool OuvrirDansProgramme(std::string_view) override { return false; }

private:
    std::ostream& erreurs_;
};

}  // namespace arbolix::cli
