#include "cli/arbre_cli.h"

#include <optional>
#include <string_view>

#include "card/lignes_personne.h"
#include "kinship/parente.h"
#include "platform/cp1252.h"
#include "store/chaines.h"
#include "trees/fichier_arbre.h"

namespace arbolix::cli {

namespace {

struct GenreCli {
    std::string_view nom;
    int genre;
};
constexpr GenreCli kGenres[] = {
    {"etiquettes", kEtiquettes}, {"ascendant", kAscendant},   {"ascendant-a4", kAscendantA4},
    {"parente", kArbreParente},  {"descendant", kDescendant},
};

// "420x297" : deux longueurs ; faux quand l'une manque.
bool LirePaire(const std::string& texte, std::string& a, std::string& b) {
    const std::size_t x = texte.find('x');
    if (x == std::string::npos) return false;
    a = texte.substr(0, x);
    b = texte.substr(x + 1);
    return !a.empty() && !b.empty();
}

bool LireDimensions(Arguments& args, OptionsArbre& dims, std::ostream& erreurs) {
    std::optional<std::string> generations, page, marge, caseLH;
    if (!ExtraireValeur(args, "--generations", generations, erreurs) ||
        !ExtraireValeur(args, "--page", page, erreurs) || !ExtraireValeur(args, "--marge", marge, erreurs) ||
        !ExtraireValeur(args, "--case", caseLH, erreurs))
        return false;
    if (generations) dims.NbGen = *generations;
    if (marge) dims.MF = *marge;
    if ((page && !LirePaire(*page, dims.LF, dims.HF)) || (caseLH && !LirePaire(*caseLH, dims.LC, dims.HC))) {
        erreurs << "--page et --case attendent LARGEURxHAUTEUR en millim\xC3\xA8tres.\n";
        return false;
    }
    return true;
}

// Toutes les personnes du fichier, comme la liste "etiquettes" tirée de la sélection entière.
ListePersonne ListeEtiquettes(const Base& base, const Options& options) {
    ListePersonne liste;
    OuvrirListe(liste, "etiquettes", "", " Imprimer...", true);
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        if (PersonneExiste(base, n) && base.Persos[n].Sel != kFaux)
            liste.Rangees.push_back({LigneListe(base, options, n) + " P" + Zeros(n, 6), n});
    });
    return liste;
}

}  // namespace

int CommandeArbre(const Arguments& arguments, Sorties& s) {
    Arguments args = arguments;
    std::optional<std::string> personne, autre;
    std::optional<DateCalendrier> date;
    DemandeArbre d;
    if (!ExtraireValeur(args, "--personne", personne, s.erreurs) ||
        !ExtraireValeur(args, "--autre", autre, s.erreurs) || !ExtraireDate(args, date, s.erreurs) ||
        !LireDimensions(args, d.dims, s.erreurs))
        return 2;
    // Comme la case SelTousDesc : les descendants qui ne portent pas le nom aussi.
    const bool tousDescendants = RetirerDrapeau(args, "--tous-descendants");
    const GenreCli* genre = nullptr;
    for (const auto& g : kGenres)
        if (!args.empty() && args[0] == g.nom) genre = &g;
    if (args.size() != 3 || genre == nullptr) {
        s.erreurs << "usage : arbolix-cli " << kAideArbre << "\n";
        return 2;
    }
    const std::string& entree = args[1];
    const std::string& sortie = args[2];
    d.genre = genre->genre;
    d.mode = ModeDuFichier(sortie);
    if (d.mode < 0) {
        s.erreurs << "Format de sortie non pris en charge : " << sortie << " (.svg, .rtf ou .pdf attendu).\n";
        return 2;
    }
    d.aujourdhui = Aujourdhui(date);
    Base base;
    Options options;
    if (!ChargerTout(entree, base, options, s)) return 2;
    options.SelTousDesc = tousDescendants;
    d.numero = base.NumDeCujus;
    if (personne && !LirePersonne(base, *personne, entree, d.numero, s.erreurs)) return 2;
    ListePersonne etiquettes;
    if (d.genre == kEtiquettes) {
        etiquettes = ListeEtiquettes(base, options);
        d.etiquettes = &etiquettes;
    } else if (d.genre == kArbreParente) {
        std::int32_t autreN = 0;
        if (!autre) {
            s.erreurs << "parente demande --autre N, la seconde personne.\n";
            return 2;
        }
        if (!LirePersonne(base, *autre, entree, autreN, s.erreurs)) return 2;
        PreparerParente(base, d.numero, options);
        const ListePersonne liste = ListeParente(base, options, autreN);
        // Le premier ancêtre commun de la liste, comme un double clic sur sa première rangée.
        if (liste.Rangees.size() < 2) {
            s.erreurs << Cp1252VersUtf8(liste.Rangees.empty() ? std::string() : liste.Rangees[0].texte)
                      << "\n";
            return 1;
        }
        d.numero = liste.Rangees[1].valeur;
        d.titre = "ARBRE DE PARENTE";
    } else if (d.genre == kDescendant) {
        const Perso& p = std::as_const(base.Persos)[d.numero];
        d.titre = "Arbre descendant de " + std::string(p.Nom) + " " + std::string(p.Prenoms) + " - " +
                  FormatDateCourte(d.aujourdhui);
    } else {
        d.titre = TitreArbreAscendant(base, d.numero, d.aujourdhui);
    }
    const MesureTexte& mesure = MesureDuMode(d.mode);
    const DessinArbre dessin = DessinerArbre(base, options, d, mesure);
    if (!dessin.Dessine()) {
        s.erreurs << Cp1252VersUtf8(dessin.TitreBoite + " : " + Remplacer(dessin.TexteBoite, "\r\n", " "))
                  << "\n";
        return 2;
    }
    const EtatFichier e = EcrireArbre(dessin, d.mode, sortie, base, options, mesure);
    if (!e.Ok) {
        s.erreurs << Cp1252VersUtf8(e.Message) << "\n";
        return 1;
    }
    return 0;
}

}  // namespace arbolix::cli
