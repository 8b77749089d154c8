#include "kinship/recherches.h"

#include <string>
#include <utility>

#include "card/lignes_personne.h"

namespace arbolix {

namespace {

std::string_view LieuConnu(const Perso& p) {
    for (const Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture})
        if (!a->Lieu.empty()) return a->Lieu.vue();
    return "(lieu non d\xE9tect\xE9)";
}

}  // namespace

ListePersonne ListeRecherches(const Base& base, const Options& options, std::string_view titre,
                              std::int32_t nbAncetres, bool exportsOuvert) {
    const std::int32_t deCujus = base.NumDeCujus > 0 ? base.NumDeCujus : 1;
    std::string tete = LigneListe(base, options, deCujus);
    if (nbAncetres > 0 && !exportsOuvert) tete += " " + std::to_string(nbAncetres) + " anc\xEAtres";
    AjouterQueue(tete, 'P', deCujus);
    ListePersonne liste;
    OuvrirListe(liste, "interech", titre, tete, true);
    liste.Rangees[0].valeur = deCujus;
    // La valeur de tri porte la marque : " asc " avant " desc " pour une même personne.
    RemplissageTrie tri;
    const auto& persos = base.Persos;
    persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t n) {
        const Perso& p = persos[n];
        if (p.Sel == 0 || (p.Interet & 3) == 0) return;
        const std::string cle = p.Nom + p.Naissance.DateTri;
        if (p.Interet & 1) tri.Ajouter(cle, n * 2);
        if (p.Interet & 2) tri.Ajouter(cle, n * 2 + 1);
    });
    tri.Terminer(liste, [&](std::int32_t v) {
        const std::int32_t n = v / 2;
        std::string s = LigneListe(base, options, n) + (v % 2 ? " desc " : " asc ");
        s += LieuConnu(persos[n]);
        AjouterQueue(s, 'P', n);
        return s;
    });
    for (std::size_t i = 1; i < liste.Rangees.size(); ++i) liste.Rangees[i].valeur /= 2;
    return liste;
}

}  // namespace arbolix
