#include "gedcom/journal_lecture.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unordered_map>
#include <vector>

#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kFinLigne = "\r\n";
constexpr std::string_view kNonTraitee =
    "donn\xE9"
    "e non trait\xE9"
    "e : ";
// Au-delà, les balises non traitées les moins nombreuses sont comptées ensemble.
constexpr std::size_t kBalisesDetaillees = 10;

// Une sorte de ligne du résumé : le texte qui la reconnaît, son libellé au singulier et au pluriel.
struct Sorte {
    std::string_view marque;
    std::string_view un;
    std::string_view plusieurs;
};

// Dans l'ordre où une ligne est essayée : la première marque trouvée l'emporte.
constexpr Sorte kSortes[] = {
    {"date non reconnue", "date non reconnue", "dates non reconnues"},
    {"date tronqu\xE9"
     "e",
     "date tronqu\xE9"
     "e",
     "dates tronqu\xE9"
     "es"},
    {" attend une date de ", "\xE9v\xE8nement connu sans date (Y)", "\xE9v\xE8nements connus sans date (Y)"},
    {": date illisible", "date illisible, non reprise", "dates illisibles, non reprises"},
    {": donn\xE9"
     "e illisible",
     "donn\xE9"
     "e illisible, non reprise",
     "donn\xE9"
     "es illisibles, non reprises"},
    {"ne finit pas par un chiffre", "t\xE9l\xE9phone qui ne finit pas par un chiffre",
     "t\xE9l\xE9phones qui ne finissent pas par un chiffre"},
    {": valeur mal form\xE9"
     "e",
     "valeur mal form\xE9"
     "e",
     "valeurs mal form\xE9"
     "es"},
    {": num\xE9ro trop grand", "num\xE9ro trop grand", "num\xE9ros trop grands"},
    {": m\xE9moire insuffisante",
     "donn\xE9"
     "e perdue faute de m\xE9moire",
     "donn\xE9"
     "es perdues faute de m\xE9moire"},
    {": num\xE9ro hors des limites", "num\xE9ro hors des limites", "num\xE9ros hors des limites"},
    {"comporte un caract\xE8re /",
     "nom ou pr\xE9nom dont la barre / a \xE9t\xE9 remplac\xE9"
     "e",
     "noms ou pr\xE9noms dont la barre / a \xE9t\xE9 remplac\xE9"
     "e"},
    {"le sexe doit \xEAtre M ou F", "sexe autre que M ou F", "sexes autres que M ou F"},
    {"enfant sans lien complet", "enfant sans lien complet vers ses parents",
     "enfants sans lien complet vers leurs parents"},
    {"enfant reli\xE9 \xE0 plusieurs couples", "enfant reli\xE9 \xE0 plusieurs couples de parents",
     "enfants reli\xE9s \xE0 plusieurs couples de parents"},
    {"n'a pas 2 conjoints", "famille avec des \xE9v\xE8nements mais sans ses deux conjoints",
     "familles avec des \xE9v\xE8nements mais sans leurs deux conjoints"},
    {"impossible d'ajouter l'union", "union en trop pour une personne", "unions en trop pour une personne"},
    {"impossible d'ajouter le t\xE9moin", "t\xE9moin en trop pour un \xE9v\xE8nement",
     "t\xE9moins en trop pour un \xE9v\xE8nement"},
    {"d\xE9signe une famille et non une personne", "lien vers une famille au lieu d'une personne",
     "liens vers une famille au lieu d'une personne"},
    {"impossible d", "lien impossible", "liens impossibles"},
    {"sans terminateur Gedcom", "fichier tronqu\xE9 (sans ligne TRLR)",
     "fichiers tronqu\xE9s (sans ligne TRLR)"},
    {"est vide et peut \xEAtre r\xE9utilis\xE9"
     "e",
     "fiche vide r\xE9utilisable", "fiches vides r\xE9utilisables"},
    {"autres fiches sont vides", "fiche vide r\xE9utilisable", "fiches vides r\xE9utilisables"},
    {"a un pr\xE9nom vide qui a \xE9t\xE9 remplac\xE9",
     "pr\xE9nom vide remplac\xE9 par le pr\xE9nom par d\xE9"
     "faut",
     "pr\xE9noms vides remplac\xE9s par le pr\xE9nom par d\xE9"
     "faut"},
    {"inversion de sexe corrig\xE9"
     "e",
     "famille aux conjoints invers\xE9s, corrig\xE9"
     "e",
     "familles aux conjoints invers\xE9s, corrig\xE9"
     "es"},
    // Les autres lignes qui portent un numéro de ligne, selon leur gravité.
    {"Erreur ligne ", "autre erreur", "autres erreurs"},
    {"Alerte ligne ", "autre alerte", "autres alertes"},
    {"Info ligne ", "autre remarque", "autres remarques"},
};

// Ce qu'une erreur d'exécution veut dire : son numéro, la balise de la ligne prise au
// piège (vide : toute balise ; kSansPiege : aucun piège noté à cette ligne), la phrase qui
// prend la place de "erreur n : texte.". La première rangée qui convient l'emporte.
struct Explication {
    int numero;
    std::string_view balise;
    std::string_view phrase;
};

// Hors du piège du lecteur, seule la lecture des dates écrit une erreur 5.
constexpr std::string_view kSansPiege = "\x01";

constexpr Explication kExplications[] = {
    {13, "PHON", "le num\xE9ro de t\xE9l\xE9phone ne finit pas par un chiffre ; il est gard\xE9 tel quel"},
    {13, "",
     "valeur mal form\xE9"
     "e : un nombre \xE9tait attendu"},
    {6, "",
     "num\xE9ro trop grand (plus de 99\xA0"
     "999\xA0"
     "999) ; la ligne n'a pas \xE9t\xE9 reprise"},
    {5, kSansPiege, "date illisible ; elle n'a pas \xE9t\xE9 reprise"},
    {5, "",
     "donn\xE9"
     "e illisible ; elle n'a pas \xE9t\xE9 reprise"},
    {7, "",
     "m\xE9moire insuffisante ; la donn\xE9"
     "e n'a pas \xE9t\xE9 reprise"},
    {9, "",
     "num\xE9ro hors des limites de la base ; la donn\xE9"
     "e n'a pas \xE9t\xE9 reprise"},
};

bool EstChiffreTexte(char c) {
    return c >= '0' && c <= '9';
}

// Le nombre écrit à partir de pos (un "-" admis) ; fin reçoit la position qui le suit.
std::optional<std::int64_t> NombreA(std::string_view s, std::size_t pos, std::size_t& fin) {
    std::size_t i = pos;
    const bool negatif = i < s.size() && s[i] == '-';
    if (negatif) ++i;
    if (i >= s.size() || !EstChiffreTexte(s[i])) return std::nullopt;
    std::int64_t n = 0;
    for (; i < s.size() && EstChiffreTexte(s[i]) && n < 1'000'000'000'000; ++i) n = n * 10 + (s[i] - '0');
    fin = i;
    return negatif ? -n : n;
}

// Le numéro de ligne du fichier que la ligne du journal cite : "Erreur ligne 12", "ligne 12 :".
std::optional<std::int64_t> LigneCitee(std::string_view ligne) {
    for (std::string_view debut : {"Erreur ligne ", "Alerte ligne ", "Info ligne ", "ligne "}) {
        if (!ligne.starts_with(debut)) continue;
        std::size_t fin = 0;
        return NombreA(ligne, debut.size(), fin);
    }
    return std::nullopt;
}

// Les repères viennent dans l'ordre des lignes du fichier : une recherche par moitiés.
const ReperesJournal::Fiche* FicheDeLigne(const ReperesJournal& r, std::int64_t ligne) {
    const auto apres =
        std::upper_bound(r.fiches.begin(), r.fiches.end(), ligne,
                         [](std::int64_t l, const ReperesJournal::Fiche& f) { return l < f.debut; });
    if (apres == r.fiches.begin()) return nullptr;
    const auto& f = *std::prev(apres);
    return ligne <= f.fin ? &f : nullptr;
}

// "personne 0", "la personne -1", "personne n°0" : où la désignation commence et finit, et son numéro.
struct Designation {
    std::size_t debut = 0;
    std::size_t fin = 0;
    std::int64_t numero = 0;
};

std::optional<Designation> TrouverPersonne(std::string_view ligne) {
    constexpr std::string_view kPersonne = "personne ";
    for (std::size_t p = ligne.find(kPersonne); p != std::string_view::npos;
         p = ligne.find(kPersonne, p + 1)) {
        std::size_t n = p + kPersonne.size();
        if (ligne.substr(n, 2) == "n\xB0") n += 2;
        std::size_t fin = 0;
        const auto numero = NombreA(ligne, n, fin);
        if (!numero) continue;
        const std::size_t debut = p >= 3 && ligne.substr(p - 3, 3) == "la " ? p - 3 : p;
        return Designation{debut, fin, *numero};
    }
    return std::nullopt;
}

// Le nom à donner à la personne désignée, vide quand son numéro est celui d'une vraie personne.
std::string NomDeFiche(const ReperesJournal& r, std::optional<std::int64_t> ligne, std::int64_t numero) {
    if (ligne)
        if (const auto* f = FicheDeLigne(r, *ligne)) return f->nom;
    if (numero == -1) return "la fiche de l'auteur du fichier (SUBM)";
    if (numero == 0) return "une fiche sans num\xE9ro, non reprise";
    return {};
}

const ReperesJournal::Piege* PiegeDeLigne(const ReperesJournal& r, std::optional<std::int64_t> ligne) {
    if (!ligne) return nullptr;
    const auto p =
        std::lower_bound(r.pieges.begin(), r.pieges.end(), *ligne,
                         [](const ReperesJournal::Piege& piege, std::int64_t l) { return piege.ligne < l; });
    return p != r.pieges.end() && p->ligne == *ligne ? &*p : nullptr;
}

std::string_view Explique(int numero, std::string_view balise) {
    for (const auto& e : kExplications)
        if (e.numero == numero && (e.balise.empty() || e.balise == balise)) return e.phrase;
    return {};
}

// "Erreur ligne 9 : erreur 13 : Incompatibilité de type. 03 87" devient "Erreur ligne 9,
// la fiche @I4@ INDI : <ce que cela veut dire> : 03 87".
void ExpliquerErreur(std::string& ligne, const ReperesJournal& r, std::optional<std::int64_t> citee) {
    constexpr std::string_view kErreur = " : erreur ";
    const std::size_t p = ligne.find(kErreur);
    if (p == std::string::npos) return;
    std::size_t fin = 0;
    const auto numero = NombreA(ligne, p + kErreur.size(), fin);
    if (!numero || ligne.compare(fin, 3, " : ") != 0) return;
    const std::size_t point = ligne.find(". ", fin + 3);
    const std::size_t finTexte = point == std::string::npos ? ligne.size() : point;
    const ReperesJournal::Piege* piege = PiegeDeLigne(r, citee);
    const std::string_view phrase =
        Explique(static_cast<int>(*numero), piege ? std::string_view(piege->balise) : kSansPiege);
    if (phrase.empty()) return;
    const std::size_t suite = std::min(ligne.size(), finTexte + 2);
    std::string fiche;
    if (const auto* f = citee ? FicheDeLigne(r, *citee) : nullptr)
        fiche = ", " + f->nom;
    else if (piege && !piege->fiche.empty())
        fiche = ", la fiche " + piege->fiche;
    ligne.replace(p, suite - p, fiche + " : " + std::string(phrase) + (suite < ligne.size() ? " : " : ""));
}

// La sorte d'une ligne et ce qu'elle compte ; une ligne non vide de donnée non traitée est
// comptée sous sa balise.
struct Compte {
    std::string cle;
    std::int64_t nombre = 1;
    const Sorte* sorte = nullptr;
};

std::optional<Compte> Classer(std::string_view ligne) {
    if (const auto p = ligne.find(kNonTraitee); p != std::string_view::npos) {
        const std::string_view reste = SansBlancs(ligne.substr(p + kNonTraitee.size()));
        return Compte{std::string(reste.substr(0, reste.find(' '))), 1, nullptr};
    }
    for (const auto& s : kSortes) {
        if (ligne.find(s.marque) == std::string_view::npos) continue;
        Compte c{std::string(s.un), 1, &s};
        // "Info : 1234 autres fiches sont vides" en compte 1234.
        std::size_t fin = 0;
        if (s.marque == "autres fiches sont vides")
            c.nombre = NombreA(ligne, ligne.find(": ") + 2, fin).value_or(1);
        return c;
    }
    return std::nullopt;
}

std::string Libelle(const Compte& c) {
    const bool pluriel = c.nombre > 1;
    if (!c.sorte)
        return std::string(pluriel ? "lignes " : "ligne ") + c.cle +
               (pluriel ? " non trait\xE9"
                          "es"
                        : " non trait\xE9"
                          "e");
    return std::string(pluriel ? c.sorte->plusieurs : c.sorte->un);
}

// Chaque ligne du journal, sans sa fin de ligne.
template <typename Faire>
void PourChaqueLigne(std::string_view journal, Faire&& faire) {
    for (std::size_t debut = 0; debut < journal.size();) {
        std::size_t fin = journal.find(kFinLigne, debut);
        if (fin == std::string_view::npos) fin = journal.size();
        faire(journal.substr(debut, fin - debut));
        debut = fin + kFinLigne.size();
    }
}

// Le résumé des lignes déjà rendues lisibles : une ligne par sorte, la plus nombreuse
// d'abord, à égalité dans l'ordre où elles paraissent.
std::string ResumeJournal(std::string_view journal) {
    std::vector<Compte> totaux;
    std::unordered_map<std::string, std::size_t> rangs;  // clé d'une sorte ou "\x01" + balise
    PourChaqueLigne(journal, [&](std::string_view ligne) {
        const auto c = Classer(ligne);
        if (!c) return;
        const auto [it, nouveau] = rangs.try_emplace((c->sorte ? "" : "\x01") + c->cle, totaux.size());
        if (nouveau) totaux.push_back({c->cle, 0, c->sorte});
        totaux[it->second].nombre += c->nombre;
    });
    std::stable_sort(totaux.begin(), totaux.end(),
                     [](const Compte& a, const Compte& b) { return a.nombre > b.nombre; });
    std::string r;
    std::size_t balises = 0;
    std::int64_t autresLignes = 0, autresBalises = 0;
    for (const Compte& c : totaux) {
        if (!c.sorte && ++balises > kBalisesDetaillees) {
            autresLignes += c.nombre;
            ++autresBalises;
            continue;
        }
        r.append(NombreFrancais(c.nombre)).append(" ").append(Libelle(c)).append(kFinLigne);
    }
    if (autresBalises > 0)
        r.append(NombreFrancais(autresLignes))
            .append(autresLignes > 1 ? " lignes non trait\xE9"
                                       "es sous "
                                     : " ligne non trait\xE9"
                                       "e sous ")
            .append(NombreFrancais(autresBalises))
            .append(" autres balises")
            .append(kFinLigne);
    return r;
}

}  // namespace

std::string NombreFrancais(std::int64_t n) {
    const std::string chiffres = std::to_string(n < 0 ? -n : n);
    std::string r = n < 0 ? "-" : "";
    for (std::size_t i = 0; i < chiffres.size(); ++i) {
        if (i > 0 && (chiffres.size() - i) % 3 == 0) r += '\xA0';
        r += chiffres[i];
    }
    return r;
}

std::string LigneLisible(std::string_view ligne, const ReperesJournal& reperes) {
    std::string r(ligne);
    // La plupart des lignes n'ont rien à dire autrement.
    if (ligne.find("personne ") == std::string_view::npos &&
        ligne.find(" : erreur ") == std::string_view::npos)
        return r;
    const auto citee = LigneCitee(ligne);
    if (const auto d = TrouverPersonne(ligne)) {
        const std::string nom = NomDeFiche(reperes, citee, d->numero);
        if (!nom.empty()) r.replace(d->debut, d->fin - d->debut, nom);
    }
    ExpliquerErreur(r, reperes, citee);
    return r;
}

std::string JournalLisible(std::string_view journal, const ReperesJournal& reperes) {
    std::string detail;
    detail.reserve(journal.size() + journal.size() / 8);
    PourChaqueLigne(journal, [&](std::string_view ligne) {
        detail.append(LigneLisible(ligne, reperes)).append(kFinLigne);
    });
    const std::string resume = ResumeJournal(detail);
    if (resume.empty()) return detail;
    std::string r;
    r.reserve(resume.size() + detail.size() + 64);
    r.append("En r\xE9sum\xE9 :").append(kFinLigne).append(resume).append(kFinLigne);
    r.append("En d\xE9tail :").append(kFinLigne).append(detail);
    return r;
}

}  // namespace arbolix
