// En-tête du fichier : norme, forme, note du fichier, producteur et ses réparations, généalogiste.
#include <algorithm>
#include <string>

#include "dates/calendrier_gregorien.h"
#include "dates/reconnaissance.h"
#include "gedcom/lecteur_gedcom.h"
#include "platform/progression.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

struct ReparationProducteur {
    std::string_view de;
    std::string_view vers;
};

// Réparations d'un producteur, dans leur ordre, sur le reste du tampon.
void Reparer(std::string& tampon, std::size_t depuis, std::initializer_list<ReparationProducteur> lignes) {
    for (const auto& r : lignes) RemplacerTout(tampon, r.de, r.vers, depuis);
}

}  // namespace

void NomDuGenealogiste(Perso& g, std::string_view valeur) {
    const auto propre = [](std::string_view t) { return std::string(SansBlancs(SansDoublesBlancs(t))); };
    const auto barre = valeur.find('/');
    if (barre == std::string_view::npos) {
        g.Nom = propre(valeur);
        g.Prenoms.clear();
        return;
    }
    // Ce qui suit la seconde barre ("Jean /Martin/ fils") reste au nom.
    g.Prenoms = propre(valeur.substr(0, barre));
    g.Nom = propre(Remplacer(valeur.substr(barre + 1), "/", " "));
}

void LecteurGedcom::ReparerProducteur(std::string_view mot) {
    if (mot == "OMEGA") {
        ProduitOmega = true;
    } else if (mot == "HEREDIS") {
        Reparer(tampon_, pos_, {{"DATE @#DJULIAN@", "DATE"}});
    } else if (mot == "GENEATIQUE") {
        Reparer(tampon_, pos_, {{"3 TEXT\r\n", ""}});
        if (cases_.Temoins)
            Reparer(tampon_, pos_, {{"2 CONC ASSO ", "2 ASSO "}, {"2 CONT ASSO ", "2 ASSO "}});
        Reparer(tampon_, pos_,
                {{"2 CONC ASSO ", "2 IGNOR "},
                 {"2 CONT ASSO ", "2 IGNOR "},
                 {" NOTE  #G\xE9n\xE9rale#", " NOTE "},
                 {" NOTE #G\xE9n\xE9rale#", " NOTE "}});
    } else if (mot == "FTM") {
        Reparer(tampon_, pos_,
                {{"\r\n1 BAPM ", "\r\n1 BAPM\r\n2 NOTE "},
                 {"\r\n1 _MDCL ", "\r\n1 DEAT\r\n2 NOTE "},
                 {"\r\n1 SSN ", "\r\n1 NOTE SSN "},
                 {"\r\n1 EVEN ", "\r\n1 NOTE "},
                 {"\r\n1 IMMI ", "\r\n1 NOTE immigr. "}});
    } else if (mot == "WINGAO") {
        Reparer(tampon_, pos_, {{",\xA0\xA0,\xA0", ""}});
    }
}

void LecteurGedcom::SectionEntete() {
    contexte_.progression.Compteur(contexte_.textes.Lecture);
    if (EntreeDeFiche()) LigneSuivante();
    while (Niveau() != 0 && !aucuneLigne_) {
        if (Annule()) return;
        Decouper();
        SousPiege([this] { LigneEntete(); });
        LigneSuivante();
    }
    FinEntete();
}

void LecteurGedcom::FinEntete() {
    // Un fichier que sa marque ou son contenu dit UTF-8 mais dont l'en-tête ne
    // le dit pas : on le convertit quand même, plutôt que de garder des noms illisibles.
    if (!Utf8Converti)
        RefaireSuite([&] {
            Utf8Converti = ConvertirUtf8NonDeclare(tampon_, pos_, Codage, CharLu, resultat_.Journal);
        });
}

void LecteurGedcom::LigneEntete() {
    const std::string_view v = LigneCourante;
    if (Balise == "CHAR") {
        contexte_.progression.Compteur(contexte_.textes.Lecture);
        CharLu = true;
        RefaireSuite([&, jeuLu = std::string(v)] {  // v est dans le tampon qui va être refait
            const auto jeu = TraiterJeuCaracteres(tampon_, pos_, jeuLu, contexte_.textes.TitreProgramme,
                                                  resultat_.Journal, Codage);
            if (jeu == JeuCaracteres::Utf8) Utf8Converti = true;
        });
    } else if (Balise == "VERS") {
        if (Contexte1() == "GEDC" && !Comme(std::string(Gauche(v, 4)) + ".", "5.5.*"))
            JournaliserLigne("Alerte : le fichier utilise la norme gedcom " + std::string(v) +
                             " au lieu de 5.5 ; certaines donn\xE9"
                             "es risquent d'\xEAtre mal ou pas reconnues.");
    } else if (Balise == "FORM") {
        if (EnMajuscules(Remplacer(v, " ", "")) != "LINEAGE-LINKED" && Contexte1() != "PLAC")
            JournaliserLigne("Alerte: le fichier utilise les liens " + std::string(v) +
                             " au lieu des liens standards ; certaines donn\xE9"
                             "es risquent d'\xEAtre mal "
                             "reconnues ou pas du tout import\xE9"
                             "es.");
    } else if (Balise == "NOTE" || Balise == "CONT" || Balise == "CONC") {
        if (!cases_.Notes || v.empty()) return;
        Texte& note = base_.Notes[-1].Texte;
        if (Balise == "NOTE") {
            note = v;
        } else if (Balise == "CONT") {
            note += "\r\n";
            note += v;
        } else {
            note = SansDoublesBlancs(note + " " + std::string(v));
        }
    } else if (Balise == "SOUR") {
        const std::string mot = EnMajuscules(v.substr(0, v.find(' ')));
        RefaireSuite([&] { ReparerProducteur(mot); });
    } else if (Balise == "SUBM") {
        base_.Persos[-1].Unions[0] = NumeroLu(Depuis(v, 2), false, false, Genre::Personne);
    } else if (Balise == "DATE") {
        // Date du fichier : celle de la dernière modification du généalogiste ; incomplète, rien ne change.
        const auto d = LireDate(LireDateLigne(v, base_.ActeCourant));
        if (d) base_.Persos[-1].DateModif = NumeroJour(*d);
    }
}

}  // namespace arbolix
