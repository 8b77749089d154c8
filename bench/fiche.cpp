// Fiche et listes sur un fichier généré : temps d'une fiche (indépendant de la taille), touches, listes
// complètes.
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string>

#include "card/contenu_fiche.h"
#include "card/navigation.h"
#include "gedcom/lecteur.h"
#include "generer_gedcom.h"
#include "lists/listes.h"
#include "mesures.h"
#include "platform/progression.h"
#include "store/selection.h"

using namespace arbolix;

namespace {

struct Chargee {
    Base base;
    Options options;
};

void Charger(Chargee& c, std::int32_t personnes) {
    OptionsGedcom cases;
    Progression muette;
    ContexteLecture ctx{c.options, cases, muette};
    ctx.remplirListes = false;
    bench::Chrono chrono;
    LireGedcomTexte(c.base, ctx, bench::GenererGedcom(personnes));
    ToutSelectionner(c.base);
    std::printf(
        "  base de %d personnes, %d familles, g\xC3\xA9n\xC3\xA9r\xC3\xA9"
        "e et lue en %.2f s\n",
        c.base.NbPersosReels, c.base.NbFamisReels, chrono.Secondes());
}

// Microsecondes par fiche : tirage de numéros au hasard, calcul complet du contenu.
double TempsFiche(const Chargee& c, int tirages) {
    ContexteFiche ctx(c.options);
    ctx.LargeurActe.maximum = 60;
    std::mt19937 hasard(12);
    std::uniform_int_distribution<std::int32_t> numero(1, c.base.NbPersos);
    std::size_t total = 0;
    bench::Chrono chrono;
    for (int i = 0; i < tirages; ++i) total += CalculerFiche(c.base, ctx, numero(hasard)).Unions.size();
    const double us = chrono.Secondes() * 1e6 / tirages;
    if (total == 0) std::printf("  (aucune union ?)\n");
    return us;
}

double TempsTouche(const Chargee& c, char touche, int appuis) {
    std::int32_t n = 1;
    bench::Chrono chrono;
    for (int i = 0; i < appuis; ++i) n = ToucheNumPerso(c.base, n, touche).value_or(n);
    return chrono.Secondes() * 1e6 / appuis;
}

void Listes(const Chargee& c) {
    ReponsesListes reponses;
    ContexteListe ctx(c.options, reponses);
    struct Sorte {
        const char* nom;
        bool (*remplir)(const Base&, ContexteListe&, ListePersonne&);
    };
    const Sorte sortes[] = {
        {"personnes", [](const Base& b, ContexteListe& x,
                         ListePersonne& l) { return ChercherEtLister(b, x, QuoiListe::Persos, l); }},
        {"familles", [](const Base& b, ContexteListe& x,
                        ListePersonne& l) { return ChercherEtLister(b, x, QuoiListe::Famis, l); }},
        {"notes", ListeNotes},
        {"sources", ListeSources},
    };
    for (const auto& s : sortes) {
        ListePersonne liste;
        const double avant = bench::MemoireActuelleMo();
        bench::Chrono chrono;
        s.remplir(c.base, ctx, liste);
        const double secondes = chrono.Secondes();
        std::printf(
            "  liste des %-9s : %8zu rang\xC3\xA9"
            "es en %.2f s",
            s.nom, liste.Rangees.size(), secondes);
        // La première liste part d'une mémoire stable ; les suivantes réutilisent ce qu'elle a rendu.
        if (&s == &sortes[0])
            std::printf(
                ", %.0f Mo de rang\xC3\xA9"
                "es",
                bench::MemoireActuelleMo() - avant);
        std::printf("\n");
    }
}

}  // namespace

int main(int argc, char** argv) {
    const std::int32_t grande = argc > 1 ? std::atoi(argv[1]) : 1'000'000;
    const int tirages = 200'000;
    std::printf(
        "Fiche : calcul complet du contenu, %d fiches tir\xC3\xA9"
        "es au hasard\n",
        tirages);
    for (std::int32_t taille : {10'000, grande}) {
        Chargee c;
        Charger(c, taille);
        std::printf("  %.1f \xC2\xB5s par fiche\n", TempsFiche(c, tirages));
        std::printf(
            "  touche f : %.2f \xC2\xB5s, + : %.2f \xC2\xB5s, - : %.2f \xC2\xB5s, * : %.1f \xC2\xB5s\n",
            TempsTouche(c, 'f', 100'000), TempsTouche(c, '+', 100'000), TempsTouche(c, '-', 100'000),
            TempsTouche(c, '*', 1'000));
        bench::Chrono sosa;
        ChercherSosa(c.base, "999999999");
        std::printf("  touche s sans r\xC3\xA9ponse (toute la base) : %.3f s\n", sosa.Secondes());
        if (taille == grande) Listes(c);
    }
    return 0;
}
