#include "card/enregistrer_fiche.h"

#include <array>

#include "card/metiers.h"
#include "card/notes.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Les champs d'adresse et la référence, rangés dans la suite rare de la personne.
using ChampSuite = Texte PersoSuite::*;
using ChampSaisie = std::string SaisieFiche::*;
constexpr std::array<std::pair<ChampSuite, ChampSaisie>, 10> kSuite{{
    {&PersoSuite::Ref, &SaisieFiche::Ref},
    {&PersoSuite::Adresse1, &SaisieFiche::Adresse1},
    {&PersoSuite::Adresse2, &SaisieFiche::Adresse2},
    {&PersoSuite::Etat, &SaisieFiche::Etat},
    {&PersoSuite::CP, &SaisieFiche::CP},
    {&PersoSuite::Ville, &SaisieFiche::Ville},
    {&PersoSuite::Pays, &SaisieFiche::Pays},
    {&PersoSuite::Telephone, &SaisieFiche::Telephone},
    {&PersoSuite::EMail, &SaisieFiche::EMail},
    {&PersoSuite::URL, &SaisieFiche::URL},
}};

// Sexe(1) ou Sexe(2) d'après la réponse : Oui pour un homme, Non pour une femme.
char DemanderSexe(Dialogue& dialogue) {
    const Bouton b = dialogue.Message("Sexe", "Vous n'avez pas choisi le sexe. Choisissez maintenant (H/F) :",
                                      Icone::Question, Boutons::HommeFemme);
    return b == Bouton::Oui ? 'M' : 'F';
}

}  // namespace

SaisieFiche SaisieDePersonne(const Base& base, std::int32_t n) {
    SaisieFiche s;
    if (n <= 0 || n > base.Persos.Haut()) return s;
    const Perso& p = base.Persos[n];
    s.Sel = p.Sel != kFaux;
    s.Nom = p.Nom.str();
    s.Prenoms = p.Prenoms.str();
    s.Sexe = p.Sexe == 'M' || p.Sexe == 'F' ? p.Sexe : ' ';
    s.IntRechAscendance = (p.Interet & 1) != 0;
    s.IntRechDescendance = (p.Interet & 2) != 0;
    s.Metier = p.Metier.str();
    s.Notes = p.Notes.str();
    for (const auto& [suite, saisie] : kSuite) s.*saisie = (p.Suite().*suite).str();
    return s;
}

bool EnregistrerFiche(Base& base, const SaisieFiche& saisie, Dialogue& dialogue, double maintenant) {
    if (base.FicheModifiee == kFaux) return false;
    const std::int32_t n = base.NumCourant;
    if (n <= 0 || n > base.Persos.Haut()) return false;
    Perso& p = base.Persos[n];
    p.Sel = saisie.Sel ? kVrai : kFaux;
    p.Nom = saisie.Nom;
    base.Listes.Nom.Ajouter(saisie.Nom);
    p.CodeNom = CodeSon(saisie.Nom);
    p.NomTri = NomTri(saisie.Nom);
    p.Prenoms = saisie.Prenoms;
    base.Listes.Prenoms.Ajouter(saisie.Prenoms);
    char sexe = saisie.Sexe;
    if (sexe == ' ' && !saisie.Prenoms.empty()) sexe = DemanderSexe(dialogue);
    // Sans choix sur la fiche, une autre lettre lue du fichier reste telle quelle.
    if (sexe != ' ') p.Sexe = sexe;
    p.Interet =
        static_cast<std::uint8_t>((saisie.IntRechAscendance ? 1 : 0) + (saisie.IntRechDescendance ? 2 : 0));
    EnregistrerMetier(p, saisie.Metier, base.Listes.Metier);
    // La suite n'est écrite que si un champ change : la plupart des personnes n'en ont pas.
    bool suiteChange = false;
    for (const auto& [suite, champ] : kSuite)
        if ((p.Suite().*suite).vue() != std::string_view(saisie.*champ)) suiteChange = true;
    if (suiteChange) {
        PersoSuite& s = p.SuiteModif();
        for (const auto& [suite, champ] : kSuite) s.*suite = saisie.*champ;
    }
    ChangerChamp(base, ChampLien{false, n, 0, false}, SansBlancs(saisie.Notes), &dialogue);
    base.Persos[n].DateModif = maintenant;
    base.FicheModifiee = kFaux;
    base.FichierModifie = kVrai;
    return true;
}

std::optional<char> ToucheSaisie(ChampSaisi champ, std::string_view avant, char touche, bool modifCasse) {
    switch (champ) {
        case ChampSaisi::Nom:
            if (touche == '/') return std::nullopt;
            return MajusculesTouche(avant, 0, touche, modifCasse);
        case ChampSaisi::Prenoms:
            return MajusculesTouche(avant, 1, touche, modifCasse);
        case ChampSaisi::Metier:
            if (touche == '/') return std::nullopt;
            return MajusculesTouche(avant, 2, touche, modifCasse);
        case ChampSaisi::Etat:
            return MajusculesTouche(avant, 5, touche, modifCasse);
        case ChampSaisi::CP:
            return MajusculesTouche(avant, 6, touche, modifCasse);
        case ChampSaisi::Ville:
            return MajusculesTouche(avant, 3, touche, modifCasse);
        case ChampSaisi::Pays:
            return MajusculesTouche(avant, 4, touche, modifCasse);
        case ChampSaisi::EMail:
        case ChampSaisi::URL:
            return MajusculesTouche(avant, 7, touche, modifCasse);
        case ChampSaisi::Telephone: {
            // Les codes de contrôle de copier, effacer, coller et couper passent.
            const bool permis = (touche >= '0' && touche <= '9') || touche == 3 || touche == 8 ||
                                touche == 22 || touche == 24 || touche == ' ' || touche == '#' ||
                                touche == '*' || touche == '+';
            if (!permis) return std::nullopt;
            return touche;
        }
    }
    return touche;
}

std::string PrenomsQuittes(std::string_view prenoms, bool modifCasse) {
    return Remplacer(Majuscules(prenoms, 1, modifCasse), " Dit", " dit");
}

}  // namespace arbolix
