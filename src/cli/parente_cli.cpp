#include "cli/parente_cli.h"

#include <string_view>

#include "card/lignes_personne.h"
#include "cli/communs.h"
#include "kinship/menu_sel.h"
#include "kinship/parente.h"
#include "kinship/sosa.h"
#include "platform/cp1252.h"
#include "store/chaines.h"
#include "store/selection.h"

namespace arbolix::cli {

int CommandeSosa(const Arguments& args, std::ostream& sortie, std::ostream& erreurs) {
    Arguments reste;
    Options options;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--max-gen" && i + 1 < args.size() && EstNumerique(args[i + 1])) {
            options.MaxGen = args[++i];
        } else if (args[i].rfind("--", 0) == 0) {
            erreurs << "Option inconnue : " << args[i] << "\n";
            return 2;
        } else {
            reste.push_back(args[i]);
        }
    }
    if (reste.empty() || reste.size() > 2) {
        erreurs << "usage : arbolix-cli sosa FICHIER.ged [PERSONNE] [--max-gen N]\n";
        return 2;
    }
    Base base;
    Sorties s{sortie, erreurs};
    if (!ChargerTout(reste[0], base, options, s)) return 2;
    std::int32_t racine = base.NumDeCujus;
    if (reste.size() == 2 && !LirePersonne(base, reste[1], reste[0], racine, erreurs)) return 2;
    if (racine <= 0) {
        erreurs << "Aucune personne dans " << reste[0] << ".\n";
        return 2;
    }
    const Ascendance a = NumeroterAscendants(base, {racine, 0, true, ValeurMaxGen(options)});
    const auto& persos = std::as_const(base.Persos);
    for (const auto& r : a.liste.Rangees) {
        // Le numéro de la visite, puis les autres numéros de l'implexe, puis la personne.
        const std::string numero = NumeroDeRangee(r.texte);
        const PersoSuite& s = persos[r.valeur].Suite();
        std::string ligne = numero;
        const std::string tous = s.NumSosa[0] + s.AutresSosa[0];
        for (std::string_view reste_ = tous; !reste_.empty();) {
            const std::size_t virgule = reste_.find(", ");
            const std::string_view n = reste_.substr(0, virgule);
            if (n != numero) ligne.append(", ").append(n);
            reste_ = virgule == std::string_view::npos ? std::string_view{} : reste_.substr(virgule + 2);
        }
        sortie << Cp1252VersUtf8(ligne + " " + LigneListe(base, options, r.valeur)) << "\n";
    }
    std::string compte = MessageSosa(base, a, racine);
    compte.replace(compte.find("\r\n"), 2, " ");
    sortie << Cp1252VersUtf8(compte) << "\n";
    if (!a.Journal.empty()) erreurs << Cp1252VersUtf8(a.Journal);
    return 0;
}

int CommandeParente(const Arguments& args, std::ostream& sortie, std::ostream& erreurs) {
    if (args.size() != 3) {
        erreurs << "usage : arbolix-cli parente FICHIER.ged DECUJUS AUTRE\n";
        return 2;
    }
    Base base;
    Options options;
    Sorties s{sortie, erreurs};
    if (!ChargerTout(args[0], base, options, s)) return 2;
    std::int32_t deCujus = 0, autre = 0;
    if (!LirePersonne(base, args[1], args[0], deCujus, erreurs) ||
        !LirePersonne(base, args[2], args[0], autre, erreurs))
        return 2;
    // Sans fiche à l'écran, le De Cujus est celui qu'on nomme.
    PreparerParente(base, deCujus, options);
    for (const auto& r : ListeParente(base, options, autre).Rangees)
        sortie << Cp1252VersUtf8(r.texte) << "\n";
    return 0;
}

bool ExtraireSelection(Arguments& args, std::optional<SelectionCli>& sel, std::ostream& erreurs) {
    static constexpr std::string_view kEntrees[] = {"ascendants", "descendants", "apparentes"};
    Arguments reste;
    SelectionCli s;
    bool vue = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const bool suivant = i + 1 < args.size();
        if (args[i] == "--selection" && suivant) {
            vue = true;
            ++i;
            for (int e = 0; e < 3; ++e)
                if (args[i] == kEntrees[e]) s.entree = e + 1;
            if (s.entree == 0) {
                erreurs << "S\xC3\xA9lection inconnue : " << args[i]
                        << " (ascendants, descendants ou apparentes)\n";
                return false;
            }
        } else if (args[i] == "--personne" && suivant) {
            s.personne = NumeroTape(args[++i]);
        } else if (args[i] == "--tous-descendants") {
            s.tousDescendants = true;
        } else {
            reste.push_back(args[i]);
        }
    }
    if (vue && s.personne <= 0) {
        erreurs << "--selection demande --personne N (un num\xC3\xA9ro de fiche).\n";
        return false;
    }
    if (vue) sel = s;
    args = std::move(reste);
    return true;
}

bool AppliquerSelection(Base& base, Options options, const SelectionCli& sel, std::ostream& erreurs) {
    if (!PersonneExiste(base, sel.personne)) {
        erreurs << "La fiche " << sel.personne << " n'est pas une personne du fichier.\n";
        return false;
    }
    options.SelTousDesc = sel.tousDescendants;
    EtatSelection etat;
    ToutSelectionner(base);
    const BoiteSel boite = MenuSel(base, options, etat, sel.entree, sel.personne);
    if (!boite.Titre.empty()) {
        erreurs << Cp1252VersUtf8(boite.Titre + " : " + Remplacer(boite.Texte, "\r\n", " ")) << "\n";
    }
    return !boite.Erreur;
}

}  // namespace arbolix::cli
