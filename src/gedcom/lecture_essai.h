// Outils des tests du lecteur : lire un texte ou un fichier d'essai dans une base neuve et la décrire.
#pragma once

#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

#include "gedcom/lecteur.h"
#include "platform/progression.h"
#include "store/decrire_base.h"

namespace arbolix::essai {

// "|" tient lieu de fin de ligne : les fichiers de test restent lisibles sur une ligne.
inline std::string Lignes(std::string_view texte) {
    std::string r;
    for (char c : texte) {
        if (c == '|')
            r += "\r\n";
        else
            r += c;
    }
    return r;
}

inline std::string Donnees(const std::string& nom) {
    std::ifstream f(std::string(ARBOLIX_DONNEES) + "/lecture/" + nom, std::ios::binary);
    std::ostringstream o;
    o << f.rdbuf();
    return o.str();
}

struct Lecture {
    Base base;
    Options options;
    OptionsGedcom cases;
    Progression progression;
    ResultatLecture resultat;
    bool remplirListes = true;

    // Lit "0 HEAD|" + corps + "|0 TRLR|".
    const std::string& Lire(std::string_view corps) {
        return LireTout(Lignes("0 HEAD|" + std::string(corps) + "|0 TRLR|"));
    }
    const std::string& LireFichier(const std::string& nom) { return LireTout(Donnees(nom)); }
    const std::string& LireTout(std::string contenu) {
        ContexteLecture ctx{options, cases, progression};
        ctx.remplirListes = remplirListes;
        resultat = LireGedcomTexte(base, ctx, std::move(contenu));
        return resultat.Journal;
    }

    const Perso& Pe(int n) const { return std::as_const(base.Persos)[n]; }
    const Fami& Fa(int f) const { return std::as_const(base.Familles)[f]; }
    // Sans NomTri ni CodeNom, que la lecture tire toujours du nom : les essais parlent de ce qui a été lu.
    std::string P(int n) const {
        std::string d = DecrirePerso(base, n);
        for (const char* cle : {"NomTri=", "CodeNom="}) {
            const auto debut = d.find(cle);
            if (debut == std::string::npos) continue;
            const auto fin = d.find("; ", debut);
            d.erase(debut, fin == std::string::npos ? std::string::npos : fin + 2 - debut);
        }
        if (d.size() >= 2 && d.compare(d.size() - 2, 2, "; ") == 0) d.resize(d.size() - 2);
        return d;
    }
    std::string F(int f) const { return DecrireFami(base, f); }
    std::string N(int n) const { return DecrireNote(std::as_const(base.Notes)[n]); }
    std::string S(int n) const { return DecrireNote(std::as_const(base.Sources)[n]); }
    std::string M(int m) const { return DecrireMedia(std::as_const(base.Medias)[m]); }
    const std::string& Journal() const { return resultat.Journal; }
    bool Journalise(std::string_view ligne) const {
        return resultat.Journal.find(std::string(ligne) + "\r\n") != std::string::npos;
    }
    std::size_t Compte(std::string_view morceau) const {
        std::size_t n = 0;
        for (auto p = resultat.Journal.find(morceau); p != std::string::npos;
             p = resultat.Journal.find(morceau, p + 1))
            ++n;
        return n;
    }
};

}  // namespace arbolix::essai
