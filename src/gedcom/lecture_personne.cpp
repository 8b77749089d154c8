// Section d'une fiche individuelle (INDI) ou du généalogiste (SUBM).
#include <string>

#include "gedcom/lecteur_gedcom.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kAlerteFinPersonne =
    "Alerte : fin de fichier atteinte sans terminateur Gedcom ! Le fichier pourrait \xEAtre tronqu\xE9 et "
    "incomplet.";

void LireNom(LecteurGedcom& l, Perso& p, std::string valeur) {
    const std::int32_t n = l.base_.NumCourant;
    if (n <= 0) {
        // Le généalogiste : un seul nom, sans barres obliques.
        std::string nom = Remplacer(valeur, "/", " ");
        p.Nom = SansBlancs(SansDoublesBlancs(nom));
        p.Prenoms.clear();
        return;
    }
    if (Comme(valeur, "?*/?*/?*/")) {
        l.JournaliserLigne("Alerte ligne " + std::to_string(l.NumLigne) + ", personne " + std::to_string(n) +
                           " : le nom ou le pr\xE9nom comporte un caract\xE8re / qui a \xE9t\xE9 remplac\xE9 "
                           "par , (veuillez v\xE9rifier et modifier si besoin).");
        valeur.pop_back();
        valeur[valeur.rfind('/')] = ',';
        valeur += '/';
    }
    const auto barre = valeur.find('/');
    if (Comme(valeur, "*/*/")) {
        const auto seconde = valeur.find('/', barre + 1);
        const std::string_view entre = SansBlancs(std::string_view(valeur).substr(barre + 1, seconde - barre - 1));
        std::string nom(p.Nom.vue());
        if (!nom.empty() && Droite(valeur, 2) != "//") nom += ',';
        nom += entre;
        p.Nom = nom;
    } else {
        p.Nom = valeur;
    }
    std::string prenoms(p.Prenoms.vue());
    if (!prenoms.empty()) prenoms += ' ';
    prenoms += SansBlancs(std::string_view(valeur).substr(0, barre == std::string::npos ? valeur.size() : barre));
    p.Prenoms = prenoms;
    if (l.contexte_.remplirListes) {
        l.base_.Listes.Nom.Ajouter(p.Nom);
        l.base_.Listes.Prenoms.Ajouter(p.Prenoms);
    }
}

}  // namespace

void LecteurGedcom::SectionPersonne() {
    if (EntreeDeFiche()) {
        SousPiege([this] {
            if (Droite(Ligne0, 4) == "INDI") {
                base_.NumCourant = 0;  // un numéro illisible envoie ses lignes à la fiche vierge
                base_.NumCourant = base_.NbPersos + NumeroLu(Depuis(Ligne0, 4), true, Renumeroter);
                IndiLus.push_back(base_.NumCourant);
                if (base_.NbPersosReels % 500 == 0 || base_.NumCourant == 1) MontrerProgression();
                if (base_.NumCourant % 100 == 0)
                    AgrandirBase(base_, false, base_.Persos.Haut(), &contexte_.progression,
                                 contexte_.textes.Agrandissement);
            } else if (NumeroLu(Depuis(Ligne0, 4), false, false) == base_.Persos[-1].Unions[0]) {
                base_.NumCourant = -1;  // la fiche SUBM du généalogiste
            }
        });
        Avancer(kAlerteFinPersonne);
    }
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        Decouper();
        if (Balise == "TRLR") return;
        SousPiege([this] {
            Perso& p = base_.Persos[base_.NumCourant];
            if (Balise == "NAME") LireNom(*this, p, LigneCourante);
        });
        Avancer(kAlerteFinPersonne);
    }
}

}  // namespace arbolix
