#include "cli/fusion_cli.h"

#include <deque>
#include <fstream>
#include <utility>

#include "card/dupliquer.h"
#include "card/fusion.h"
#include "card/lignes_personne.h"
#include "card/supprimer.h"
#include "platform/cp1252.h"
#include "store/chaines.h"

namespace arbolix::cli {

namespace {

// Les boîtes reçoivent les réponses écrites d'avance, dans l'ordre, puis celles par défaut.
class DialogueReponses : public DialogueCli {
public:
    DialogueReponses(std::ostream& erreurs, std::deque<std::string> reponses)
        : DialogueCli(erreurs), erreurs_(erreurs), reponses_(std::move(reponses)) {}

    Bouton Message(std::string_view titre, std::string_view texte, Icone icone, Boutons boutons,
                   std::optional<Bouton> defaut) override {
        const Bouton parDefaut = DialogueCli::Message(titre, texte, icone, boutons, defaut);
        if (reponses_.empty()) return parDefaut;
        const std::string r = EnMinuscules(Prendre());
        for (const auto& [mot, b] : {std::pair{"oui", Bouton::Oui}, std::pair{"non", Bouton::Non},
                                     std::pair{"annuler", Bouton::Annuler}, std::pair{"ok", Bouton::Ok}})
            if (r == mot) return b;
        erreurs_ << "R\xC3\xA9ponse inconnue : " << r << " (oui, non, annuler ou ok)\n";
        return parDefaut;
    }
    std::optional<std::string> Saisie(std::string_view titre, std::string_view invite,
                                      std::string_view) override {
        erreurs_ << Cp1252VersUtf8(titre) << " : " << JournalUtf8(std::string(invite)) << "\n";
        // Sans réponse écrite, la saisie est annulée : la fiche gardée garde sa donnée.
        if (reponses_.empty()) return std::nullopt;
        std::string r = Prendre();
        if (r == "[annuler]") return std::nullopt;
        return Utf8VersCp1252(r);
    }

private:
    std::string Prendre() {
        std::string r = std::move(reponses_.front());
        reponses_.pop_front();
        return r;
    }
    std::ostream& erreurs_;
    std::deque<std::string> reponses_;
};

bool LireReponses(const std::optional<std::string>& fichier, std::deque<std::string>& reponses,
                  std::ostream& erreurs) {
    if (!fichier) return true;
    std::ifstream f(*fichier, std::ios::binary);
    if (!f) {
        erreurs << "Impossible de lire le fichier de r\xC3\xA9ponses " << *fichier << "\n";
        return false;
    }
    for (std::string ligne; std::getline(f, ligne);) {
        if (!ligne.empty() && ligne.back() == '\r') ligne.pop_back();
        reponses.push_back(ligne);
    }
    return true;
}

// Les unions à retirer, par numéro de famille ; la liste se vide avant que Terminer soit tenté.
bool Fusionner(Edition& e, std::int32_t a, std::int32_t b, const std::vector<std::int32_t>& retirer,
               std::ostream& erreurs) {
    auto f = Fusion::Commencer(e, a, b);
    if (!f) {
        erreurs << "Les fiches " << a << " et " << b << " ne peuvent pas \xC3\xAAtre fusionn\xC3\xA9"
                << "es.\n";
        return false;
    }
    for (const std::int32_t famille : retirer)
        for (std::size_t i = 1; i < f->Rangees().size(); ++i)
            if (f->Rangees()[i].famille == famille) {
                f->RetirerUnion(i);
                break;
            }
    return f->Terminer();
}

std::vector<std::int32_t> Familles(const std::string& liste) {
    std::vector<std::int32_t> r;
    for (std::size_t debut = 0; debut <= liste.size();) {
        const std::size_t virgule = std::min(liste.find(',', debut), liste.size());
        if (const std::int32_t f = NumeroTape(liste.substr(debut, virgule - debut)); f > 0) r.push_back(f);
        debut = virgule + 1;
    }
    return r;
}

constexpr const char* kUsage =
    "usage : arbolix-cli fiche dupliquer|supprimer|fusionner ENTREE.ged SORTIE.ged PERSONNE [AUTRE] "
    "[--reponses FICHIER] [--retirer-unions F,F] [--date JJ/MM/AAAA]\n";

}  // namespace

int CommandeFiche(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<std::string> fichierReponses, retirer;
    std::optional<DateCalendrier> date;
    if (!ExtraireValeur(args, "--reponses", fichierReponses, s.erreurs) ||
        !ExtraireValeur(args, "--retirer-unions", retirer, s.erreurs) || !ExtraireDate(args, date, s.erreurs))
        return 2;
    const bool fusion = !args.empty() && args[0] == "fusionner";
    if (args.size() != (fusion ? 5u : 4u) || (!fusion && args[0] != "dupliquer" && args[0] != "supprimer")) {
        s.erreurs << kUsage;
        return 2;
    }
    std::deque<std::string> reponses;
    if (!LireReponses(fichierReponses, reponses, s.erreurs)) return 2;
    Base base;
    Options options;
    if (!ChargerTout(args[1], base, options, s)) return 2;
    std::int32_t p = 0, autre = 0;
    if (!LirePersonne(base, args[3], args[1], p, s.erreurs) ||
        (fusion && !LirePersonne(base, args[4], args[1], autre, s.erreurs)))
        return 2;
    if (args[0] == "supprimer") reponses.push_front("oui");
    DialogueReponses dialogue(s.erreurs, std::move(reponses));
    Edition e{base, options, dialogue, JoursDepuis1899(date)};
    std::int32_t montree = 0;
    if (args[0] == "dupliquer") {
        montree = DupliquerPersonne(e, p);
    } else if (args[0] == "supprimer") {
        montree = SupprimerPersonne(e, p).value_or(p);
    } else {
        if (!Fusionner(e, p, autre, retirer ? Familles(*retirer) : std::vector<std::int32_t>{}, s.erreurs))
            return 1;
        montree = base.NumCourant;
    }
    s.sortie << montree << " " << Cp1252VersUtf8(LigneListe(base, options, montree)) << "\n";
    return Ecrire(base, options, OptionsGedcom{}, args[2], s);
}

}  // namespace arbolix::cli
