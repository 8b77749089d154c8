#include "cli/communs.h"

#include <chrono>

#include "gedcom/ecrivain.h"
#include "gedcom/enregistrement.h"
#include "kinship/sosa.h"
#include "platform/cp1252.h"
#include "platform/progression.h"
#include "store/chaines.h"
#include "store/selection.h"

namespace arbolix::cli {

// D'une seule passe : le journal d'un gros fichier compte des millions de lignes.
std::string JournalUtf8(const std::string& journal) {
    std::string j = Cp1252VersUtf8(journal);
    std::erase(j, '\r');
    return j;
}

void EcrireUtf8(std::ostream& o, std::string_view texte1252) {
    constexpr std::size_t kMorceau = 1 << 20;
    std::string morceau;
    for (std::size_t i = 0; i < texte1252.size(); i += kMorceau) {
        morceau = Cp1252VersUtf8(texte1252.substr(i, kMorceau));
        std::erase(morceau, '\r');
        o << morceau;
    }
}

bool Charger(const std::string& fichier, OptionsGedcom cases, Base& base, Options& options,
             ResultatLecture& resultat, Sorties& s) {
    cases.Fichier = fichier;
    // La renumérotation ne vaut que pour le fichier par défaut : ici, celui qu'on nomme.
    if (cases.OptRenum) options.FichierDefaut = fichier;
    Progression muette;
    ContexteLecture ctx{options, cases, muette};
    ctx.remplirListes = false;
    resultat = LireGedcom(base, ctx);
    if (!resultat.Lu) {
        s.erreurs << Cp1252VersUtf8(resultat.Erreur) << "\n";
        return false;
    }
    // Comme à l'ouverture dans la fenêtre : les numéros Sosa de la première personne, et
    // une ligne pour qui est son propre ancêtre.
    s.erreurs << JournalUtf8(NumeroterApresLecture(base, options, resultat.PremierePerso).Journal);
    return true;
}

bool ChargerTout(const std::string& fichier, Base& base, Options& options, Sorties& s) {
    ResultatLecture resultat;
    if (!Charger(fichier, OptionsGedcom{}, base, options, resultat, s)) return false;
    ToutSelectionner(base);
    return true;
}

int Ecrire(Base& base, Options& options, OptionsGedcom cases, const std::string& fichier, Sorties& s) {
    cases.Fichier = fichier;
    DialogueCli dialogue(s.erreurs);
    ContexteEnregistrement ctx{base, cases, options, dialogue, nullptr, EnteteArbolix(), DateDuJour()};
    const ResultatEnregistrement r = EnregistrerGedcom(ctx);
    for (const auto& a : r.Avertissements) s.erreurs << Cp1252VersUtf8(a) << "\n";
    if (!r.Enregistre) {
        s.erreurs << Cp1252VersUtf8(r.Erreur) << "\n";
        return 2;
    }
    s.sortie << "Enregistr\xC3\xA9 : " << fichier << "\n";
    return 0;
}

bool RetirerDrapeau(Arguments& args, std::string_view drapeau) {
    return std::erase(args, drapeau) > 0;
}

bool ExtraireValeur(Arguments& args, std::string_view option, std::optional<std::string>& valeur,
                    std::ostream& erreurs) {
    for (auto it = args.begin(); it != args.end(); ++it) {
        if (*it != option) continue;
        if (std::next(it) == args.end()) {
            erreurs << "Valeur manquante apr\xC3\xA8s " << option << "\n";
            return false;
        }
        valeur = *std::next(it);
        args.erase(it, it + 2);
        return true;
    }
    return true;
}

bool ExtraireDate(Arguments& args, std::optional<DateCalendrier>& fixee, std::ostream& erreurs) {
    std::optional<std::string> texte;
    if (!ExtraireValeur(args, "--date", texte, erreurs)) return false;
    if (!texte) return true;
    fixee = LireDateCourte(*texte);
    if (!fixee) erreurs << "Date invalide : " << *texte << " (JJ/MM/AAAA attendu)\n";
    return fixee.has_value();
}

DateCalendrier Aujourdhui(const std::optional<DateCalendrier>& fixee) {
    return fixee ? *fixee : DateMachine();
}

double JoursDepuis1899(const std::optional<DateCalendrier>& fixee) {
    if (fixee) return NumeroJour(*fixee);
    const auto s = std::chrono::duration<double>(std::chrono::system_clock::now().time_since_epoch()).count();
    return s / 86400.0 + 25569.0;
}

std::int32_t NumeroTape(const std::string& texte) {
    return EstNumerique(texte) && texte.size() < 10 ? static_cast<std::int32_t>(ValeurNumerique(texte)) : 0;
}

bool LirePersonne(const Base& base, const std::string& texte, const std::string& fichier, std::int32_t& n,
                  std::ostream& erreurs) {
    n = NumeroTape(texte);
    if (PersonneExiste(base, n)) return true;
    erreurs << "La fiche " << texte << " n'est pas une personne de " << fichier << ".\n";
    return false;
}

Bouton DialogueCli::Message(std::string_view titre, std::string_view texte, Icone, Boutons boutons,
                            std::optional<Bouton> defaut) {
    erreurs_ << Cp1252VersUtf8(titre) << " : " << JournalUtf8(std::string(texte)) << "\n";
    if (defaut) return *defaut;
    return boutons == Boutons::OuiNon || boutons == Boutons::OuiNonAnnuler || boutons == Boutons::HommeFemme
               ? Bouton::Oui
               : Bouton::Ok;
}

}  // namespace arbolix::cli
