// Petites bases écrites à la main pour les essais des règles : personnes, familles, dates avec leurs clés.
#pragma once

#include <initializer_list>
#include <string>

#include "dates/cle_date.h"
#include "store/aides_texte.h"
#include "store/base.h"
#include "store/chaines.h"

namespace arbolix::essai {

// Date d'un évènement avec sa clé de tri et son année, comme la saisie les écrit.
inline void Dater(Acte& a, const std::string& date, const std::string& lieu = {}) {
    a.Date = date;
    a.DateTri = date.empty() ? std::string() : CleDate(date);
    a.Annee = static_cast<std::int16_t>(
        date.size() >= 4 ? ValeurNumerique(Remplacer(Droite(date, 4), "/", "")) : 0);
    a.Lieu = lieu;
}

// Une personne sélectionnée, avec ses clés de nom.
inline Perso& AjouterPersonne(Base& b, std::int32_t n, const std::string& nom, const std::string& prenoms,
                              char sexe = ' ', const std::string& naissance = {},
                              const std::string& deces = {}) {
    Perso& p = b.Persos[n];
    p.Nom = nom;
    p.Prenoms = prenoms;
    p.CodeNom = CodeSon(nom);
    p.NomTri = NomTri(nom);
    p.Sexe = sexe;
    p.Sel = kVrai;
    Dater(p.Naissance, naissance);
    Dater(p.Deces, deces);
    if (n > b.NbPersos) b.NbPersos = n;
    ++b.NbPersosReels;
    return p;
}

// Une famille sélectionnée, liée dans les deux sens à ses époux et à ses enfants.
inline Fami& AjouterFamille(Base& b, std::int32_t f, std::int32_t mari, std::int32_t femme,
                            const std::string& mariage = {},
                            std::initializer_list<std::int32_t> enfants = {}) {
    Fami& fam = b.Familles[f];
    fam.Mari = mari;
    fam.Femme = femme;
    fam.Sel = kVrai;
    Dater(fam.Mariage, mariage);
    for (std::int32_t e : {mari, femme}) {
        if (e <= 0) continue;
        Perso& p = b.Persos[e];
        int i = 1;
        while (i < kMaxUnions && p.Unions[i] != 0) ++i;
        p.Unions[i] = f;
    }
    int rang = 1;
    for (std::int32_t e : enfants) {
        fam.Enfants.Fixer(rang++, e);
        b.Persos[e].NumParents = f;
    }
    if (f > b.NbFamis) b.NbFamis = f;
    ++b.NbFamisReels;
    return fam;
}

}  // namespace arbolix::essai
