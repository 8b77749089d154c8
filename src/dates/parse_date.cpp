#include "dates/parse_date.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>

#include "dates/calendrier_gregorien.h"
#include "dates/calendrier_republicain.h"
#include "dates/cle_date.h"
#include "dates/date_gedcom.h"
#include "dates/reconnaissance.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kApres = "apr\xE8s ";

struct MotPrefixe {
    std::string_view mot;
    std::string_view prefixe;
};

// Mots admis devant la date ; un mot absent (un nom de mois aussi) est jeté. "à" relit le
// "  À 1760" que l'écriture produit pour " à 1760", qui sinon perdrait son sens.
constexpr MotPrefixe kMotsPrefixes[] = {
    {"bef", "avant "},    {"-", "avant "},  {"avant", "avant "}, {"aft", kApres},   {"+", kApres},
    {"apr\xE8s", kApres}, {"abt", "vers "}, {"*", "vers "},      {"~", "vers "},    {"vers", "vers "},
    {"cal", "vers "},     {"est", "vers "}, {"ca", "vers "},     {"ca.", "vers "},  {"from", "de "},
    {"de", "de "},        {"to", " \xE0 "}, {"\xE0", " \xE0 "},  {"bet", "entre "}, {"int", ""},
};

// Mots d'intervalle restés dans le texte, dans cet ordre. "/à/" relit le "DE 1750 À 1760"
// que l'écriture produit : "de" est jeté, il reste "1750 à 1760".
constexpr std::string_view kIntervalles[][2] = {
    {"bet/", "entre "}, {"/and/", " et "}, {"from/", "de "}, {"/to/", " \xE0 "}, {"/\xE0/", " \xE0 "},
};

// Ce que la lecture construit avant de l'écrire dans l'évènement.
struct Lecture {
    std::string prefixe;
    std::string t;
    std::string notes;
    bool doubleAnnee = false;  // une année "1716/17" a été lue en nouveau style
};

bool DateDeFamille(const ContexteDate& ctx) {
    return ctx.Ligne1.find("MAR") != std::string_view::npos || ctx.Ligne1 == "DIV";
}

std::string QuiEst(const ContexteDate& ctx) {
    if (DateDeFamille(ctx)) return "famille n\xB0" + std::to_string(ctx.NbFamis);
    return " personne n\xB0" + std::to_string(ctx.NumCourant);
}

void Noter(const ContexteDate& ctx, const std::string& ligne) {
    if (ctx.Journal) ctx.Journal->append(ligne).append("\r\n");
}

std::string Rogner(std::string_view s) {
    const auto debut = s.find_first_not_of(' ');
    if (debut == std::string_view::npos) return {};
    return std::string(s.substr(debut, s.find_last_not_of(' ') - debut + 1));
}

void NoterDoubleAnnee(const ContexteDate& ctx, std::string_view texte, const std::string& date) {
    const bool famille = DateDeFamille(ctx);
    Noter(ctx, "Info ligne " + std::to_string(ctx.NumLigne) + (famille ? ", famille " : ", personne ") +
                   std::to_string(famille ? ctx.NbFamis : ctx.NumCourant) + " : la date \xAB " +
                   std::string(SansBlancs(texte)) +
                   " \xBB porte une double ann\xE9"
                   "e ; lue en nouveau style : " +
                   date + ".");
}

void CouperTronquee(Lecture& l, const ContexteDate& ctx) {
    const auto p = l.t.find('(');
    if (p == std::string::npos) return;
    Noter(ctx, "ligne " + std::to_string(ctx.NumLigne) +
                   " : date tronqu\xE9"
                   "e : " +
                   l.t + " " + QuiEst(ctx));
    l.t = Rogner(std::string_view(l.t).substr(0, p));
}

// "@#DFRENCH R@" : l'échappement du calendrier est retiré, le blanc qui le suit reste.
bool RetirerEchappementFrancais(Lecture& l) {
    bool trouve = false;
    for (auto p = l.t.find("dfrench", 2); p != std::string::npos && !trouve; p = l.t.find("dfrench", p + 1))
        trouve = l.t[p - 2] == '@' && p + 9 < l.t.size() && l.t[p + 8] == 'r' && l.t[p + 9] == '@';
    if (!trouve) return true;
    const auto premier = l.t.find("dfrench");
    if (premier < 2) return false;  // "dfrench" plus tôt dans le texte : tranche négative
    l.t = l.t.substr(0, premier - 2) + l.t.substr(premier + 10 <= l.t.size() ? premier + 10 : l.t.size());
    return true;
}

// Double année de l'ancien style ("1716/17", "1699/00", "1733/4") : l'année commençait
// le 25 mars, la seconde année est celle du nouveau style, qu'on garde. Sans cela, la
// barre ferait lire "17" comme un mois.
std::optional<std::int64_t> AnneeNouveauStyle(std::string_view mot) {
    const auto barre = mot.find('/');
    if (barre == std::string_view::npos || barre < 3 || barre > 4) return std::nullopt;
    const std::string_view avant = mot.substr(0, barre), apres = mot.substr(barre + 1);
    if (!EstNumerique(avant) || !EstNumerique(apres) || apres.size() > 2) return std::nullopt;
    const std::int64_t suivante = ValeurNumerique(avant) + 1;
    const std::int64_t modulo = apres.size() == 1 ? 10 : 100;
    if (suivante % modulo != ValeurNumerique(apres)) return std::nullopt;
    return suivante;
}

void LireDoublesAnnees(Lecture& l) {
    if (l.t.find('/') == std::string::npos) return;
    std::string r;
    for (std::size_t debut = 0; debut <= l.t.size();) {
        const std::size_t fin = std::min(l.t.find(' ', debut), l.t.size());
        const std::string_view mot = std::string_view(l.t).substr(debut, fin - debut);
        if (const auto annee = AnneeNouveauStyle(mot)) {
            r += std::to_string(*annee);
            l.doubleAnnee = true;
        } else {
            r += mot;
        }
        if (fin < l.t.size()) r += ' ';
        debut = fin + 1;
    }
    l.t = std::move(r);
}

void LirePrefixe(Lecture& l) {
    if (!l.t.empty() && EstChiffre(l.t[0])) return;
    if (!l.t.empty() && l.t[0] >= '*' && l.t[0] <= '-') l.t.insert(1, " ");
    const auto p = l.t.find(' ');
    if (p == std::string::npos) {
        if (l.t.size() >= 6) l.t.insert(0, "01");
        return;
    }
    const std::string mot = l.t.substr(0, p);
    // « MAR 1750 » : le mois en tête est la date elle-même, il garde sa place.
    if (std::find(MoisGedcom.begin() + 1, MoisGedcom.end(), mot) != MoisGedcom.end()) return;
    l.t.erase(0, p + 1);
    // « ABT  1825 » : les blancs en trop après le mot deviendraient des "/".
    l.t.erase(0, std::min(l.t.find_first_not_of(' '), l.t.size()));
    for (const auto& r : kMotsPrefixes)
        if (mot == r.mot) l.prefixe = r.prefixe;
}

void Separer(Lecture& l) {
    for (char& c : l.t)
        if (c == '.' || c == '-' || c == ' ') c = '/';
    if (l.t.size() > 1 && l.t[1] == '/') l.t.insert(0, "0");
}

// Chiffres collés : 12031750, 031750, 12vend03.
void DecouperSansSeparateur(Lecture& l) {
    auto& t = l.t;
    if (t.size() < 6) {
        if (t.back() == '/') t = std::string(kApres) + t.substr(0, t.size() - 1);
        return;
    }
    if (ValeurNumerique(Gauche(t, 1)) > 3) t.insert(0, "0");
    if (t.find('/') != std::string::npos) return;
    if (EstNumerique(t)) {
        t = t.substr(0, 2) + "/" + (t.size() > 6 ? t.substr(2, 2) + "/" : "") + std::string(Droite(t, 4));
    } else {
        const std::size_t n = EstChiffre(t[4]) ? 2 : 4;
        t = t.substr(0, 2) + "/" + t.substr(2, n) + "/" + std::string(Droite(t, 2));
    }
}

bool LireRepublicaine(Lecture& l, const ContexteDate& ctx) {
    if (!ctx.ConvCalRep || !FinRepublicaine(l.t)) return true;
    const bool avecNote = l.notes.find('/') == std::string::npos;
    const auto lue = LireDateRepublicaine(l.t, avecNote);
    if (!lue) return false;
    const auto date = DateDuNumero(lue->numeroJour);
    if (!date) return false;
    if (avecNote) l.notes = lue->note + (l.notes.empty() ? "" : "\r\n" + l.notes);
    l.t = FormatDateCourte(*date);
    return true;
}

// Le mot "après" mis par l'étape précédente n'est pas un mois : "apr" y resterait.
void RemplacerMois(Lecture& l) {
    // Mois et mots d'intervalle sont des lettres : une date de chiffres et de "/" passe vite.
    const std::size_t debut = l.t.starts_with(kApres) ? kApres.size() : 0;
    const auto chiffreOuBarre = [](char c) { return EstChiffre(c) || c == '/'; };
    if (std::all_of(l.t.begin() + static_cast<std::ptrdiff_t>(debut), l.t.end(), chiffreOuBarre)) return;
    static const std::array<std::string, 13> kNumeros = [] {
        std::array<std::string, 13> n;
        for (int i = 1; i <= 12; ++i) n[static_cast<std::size_t>(i)] = Zeros(i, 2);
        return n;
    }();
    // Dix-sept recherches par date pèsent à la lecture d'un gros fichier : un motif dont un octet
    // manque au texte est sauté, l'inventaire des octets refait après chaque remplacement.
    std::array<bool, 256> present{};
    const auto inventaire = [&] {
        present.fill(false);
        for (const char c : l.t) present[static_cast<unsigned char>(c)] = true;
    };
    const auto possible = [&](std::string_view motif) {
        return std::all_of(motif.begin(), motif.end(),
                           [&](char c) { return present[static_cast<unsigned char>(c)]; });
    };
    const auto remplacer = [&](std::string_view de, std::string_view vers, std::size_t depuis) {
        if (possible(de) && RemplacerTout(l.t, de, vers, depuis) > 0) inventaire();
    };
    inventaire();
    for (int i = 1; i <= 12; ++i)
        remplacer(MoisGedcom[static_cast<std::size_t>(i)], kNumeros[static_cast<std::size_t>(i)], debut);
    for (const auto& r : kIntervalles) remplacer(r[0], r[1], 0);
}

// Formes reconnues du tableau des dates : jamais signalées.
bool FormeConnue(const Lecture& l) {
    const std::size_t n = l.t.size();
    return n == 3 || n == 4 || n == 9 || n == 10 || EstDate(l.t) || LireJourEtMois(l.t) ||
           !l.prefixe.empty() || l.t.starts_with(kApres) || l.t.find(" et ") != std::string::npos ||
           l.t.find(" \xE0 ") != std::string::npos;
}

// Vrai quand la date non reconnue a été signalée : le texte est alors gardé entier.
bool Verifier(Lecture& l, const ContexteDate& ctx) {
    if (const auto date = LireDate(l.t); date && l.t.size() == 10) {
        if (ctx.ConvCalRep && l.notes.find('/') == std::string::npos) {
            if (auto rep = DateRepublicaine(NumeroJour(*date)); !rep.empty()) l.notes = std::move(rep);
        }
        return false;
    }
    if (!ctx.GedcomVisible || ctx.EvenementVisible || ctx.LigneCourante.empty() ||
        !EstChiffre(ctx.LigneCourante[0]) || FormeConnue(l))
        return false;
    const std::string_view tag = ctx.Ligne1.size() > 1 ? ctx.Ligne1.substr(1) : std::string_view();
    Noter(ctx, "Erreur ligne " + std::to_string(ctx.NumLigne) + " : date non reconnue : " + QuiEst(ctx) +
                   std::string(tag) + " " + std::string(ctx.LigneCourante));
    return true;
}

bool Lire(Lecture& l, const ContexteDate& ctx) {
    CouperTronquee(l, ctx);
    l.t = EnMinuscules(l.t);
    if (!RetirerEchappementFrancais(l)) return false;
    LireDoublesAnnees(l);
    LirePrefixe(l);
    Separer(l);
    if (!l.t.empty()) DecouperSansSeparateur(l);
    if (!LireRepublicaine(l, ctx)) return false;
    RemplacerMois(l);
    if (!Verifier(l, ctx) && ctx.GedcomVisible && !ctx.Dates) l.t = std::string(Droite(l.t, 4));
    return true;
}

// --- Formes courantes ---
// Un gros fichier écrit presque toutes ses dates sous quelques formes, lues ici sans les copies
// ni les recherches de la lecture complète, avec exactement son résultat. Le moindre écart
// (blanc doublé, lettre accentuée, année de 3 chiffres, jour impossible...) la laisse faire.

char MinusculeAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool MemeMot(std::string_view mot, std::string_view minuscules) {
    return mot.size() == minuscules.size() &&
           std::equal(mot.begin(), mot.end(), minuscules.begin(),
                      [](char c, char m) { return MinusculeAscii(c) == m; });
}

// 1 à 12 pour un mois GEDCOM, 0 sinon.
int MoisDuMot(std::string_view mot) {
    if (mot.size() != 3) return 0;
    const char bas[] = {MinusculeAscii(mot[0]), MinusculeAscii(mot[1]), MinusculeAscii(mot[2])};
    const std::string_view minuscules(bas, 3);
    for (std::size_t i = 1; i < MoisGedcom.size(); ++i)
        if (minuscules == MoisGedcom[i]) return static_cast<int>(i);
    return 0;
}

bool Annee4(std::string_view mot) {
    return mot.size() == 4 && EstNumerique(mot);
}

// Valeur d'un mot de chiffres (vérifié avant).
int Valeur(std::string_view chiffres) {
    int v = 0;
    for (const char c : chiffres) v = v * 10 + (c - '0');
    return v;
}

// Le préfixe d'un mot admis devant une année ("ABT 1790"). Un mot qui commence par un signe
// recevrait un blanc de plus à la lecture complète : il n'est pas pris ici.
std::optional<std::string_view> PrefixeDuMot(std::string_view mot) {
    if (mot.empty() || MinusculeAscii(mot[0]) < 'a' || MinusculeAscii(mot[0]) > 'z') return std::nullopt;
    for (const auto& r : kMotsPrefixes)
        if (MemeMot(mot, r.mot)) return r.prefixe;
    return std::nullopt;
}

// Texte de date d'au plus quelques dizaines d'octets, assemblé sans allocation.
struct Assemblage {
    std::array<char, 32> octets{};
    std::size_t taille = 0;
    Assemblage& operator<<(std::string_view s) {
        std::copy(s.begin(), s.end(), octets.begin() + static_cast<std::ptrdiff_t>(taille));
        taille += s.size();
        return *this;
    }
    std::string_view vue() const { return {octets.data(), taille}; }
};

constexpr std::string_view kMoisEnChiffres[] = {"",   "01", "02", "03", "04", "05", "06",
                                                "07", "08", "09", "10", "11", "12"};

// "12 MAR 1845" et "3 MAR 1845" deviennent "12/03/1845" et "03/03/1845" ; "MAR 1845" (jour
// vide) devient "03/1845", le premier du mois. Comme à la reconnaissance de ces textes, le
// jour doit exister et l'année valoir au moins 100 ; sinon rien n'est écrit.
std::optional<DateCalendrier> JourMoisAnnee(std::string_view jour, std::string_view mois,
                                            std::string_view annee, Assemblage& date) {
    const int m = MoisDuMot(mois);
    if (m == 0 || !Annee4(annee) || jour.size() > 2 || (!jour.empty() && !EstNumerique(jour)))
        return std::nullopt;
    const DateCalendrier d{jour.empty() ? 1 : Valeur(jour), m, Valeur(annee)};
    if (d.annee < kAnneeMin || d.jour < 1 || d.jour > JoursDuMois(d.mois, d.annee)) return std::nullopt;
    if (!jour.empty()) date << (jour.size() == 1 ? "0" : "") << jour << "/";
    date << kMoisEnChiffres[m] << "/" << annee;
    return d;
}

// Vrai quand le texte a une forme courante ; a reçoit alors ce que la lecture complète y
// mettrait. Faux sans rien toucher sinon.
bool LireFormeCourante(std::string_view texte, Acte& a, const ContexteDate& ctx) {
    // Case Dates décochée : il ne reste que l'année, cas rare laissé à la lecture complète.
    if (ctx.GedcomVisible && !ctx.Dates) return false;
    const std::string_view s = SansBlancs(texte);
    std::array<std::string_view, 4> mots;
    std::size_t n = 0;
    for (std::size_t k = 0, debut = 0; k <= s.size(); ++k) {
        if (k < s.size() && s[k] != ' ') continue;
        if (k == debut || n == mots.size()) return false;  // blanc doublé, texte vide, trop de mots
        mots[n++] = s.substr(debut, k - debut);
        debut = k + 1;
    }
    // L'échappement de calendrier est un mot inconnu, jeté : reste une date sans préfixe.
    std::size_t i = 0;
    if (n >= 2 && (mots[0] == "@#DJULIAN@" || mots[0] == "@#DGREGORIAN@")) i = 1;
    const std::size_t reste = n - i;

    Assemblage date;
    std::optional<DateCalendrier> jour;  // la date reconnue, pour sa clé et sa note républicaine
    if (reste == 1 && Annee4(mots[i])) {
        date << mots[i];  // "1790"
    } else if (reste == 2 && (jour = JourMoisAnnee({}, mots[i], mots[i + 1], date))) {
        // "MAR 1845"
    } else if (reste == 3 && (jour = JourMoisAnnee(mots[i], mots[i + 1], mots[i + 2], date))) {
        // "12 MAR 1845"
    } else if (i == 0 && n == 2 && Annee4(mots[1])) {
        // "ABT 1790"
        const auto prefixe = PrefixeDuMot(mots[0]);
        if (!prefixe) return false;
        date << *prefixe << mots[1];
    } else if (i == 0 && n == 4 && MemeMot(mots[0], "bet") && MemeMot(mots[2], "and") && Annee4(mots[1]) &&
               mots[1][0] <= '3' && Annee4(mots[3])) {
        // "BET 1700 AND 1710" ; une première année au-delà de 3999 recevrait un zéro de tête.
        date << "entre " << mots[1] << " et " << mots[3];
    } else {
        return false;
    }

    // Tout est calculé avant d'écrire : le texte lu peut être la date de l'évènement.
    std::string notes;
    if (jour && reste == 3 && ctx.ConvCalRep && a.Notes.vue().find('/') == std::string_view::npos)
        notes = DateRepublicaine(NumeroJour(*jour));
    a.Annee = static_cast<std::int16_t>(Valeur(mots[n - 1]));
    a.DateTri = jour ? CleDuJour(*jour) : CleDate(date.vue());
    a.Date = date.vue();
    if (!notes.empty()) a.Notes = notes;
    return true;
}

}  // namespace

const Texte& ParseDate(std::string_view texte, Acte& a, const ContexteDate& ctx) {
    if (LireFormeCourante(texte, a, ctx)) return a.Date;
    return ParseDateComplete(texte, a, ctx);
}

bool ParseDateCourante(std::string_view texte, Acte& a, const ContexteDate& ctx) {
    return LireFormeCourante(texte, a, ctx);
}

const Texte& ParseDateComplete(std::string_view texte, Acte& a, const ContexteDate& ctx) {
    Lecture l;
    // Des blancs autour de la date (« 2 DATE        1831 ») deviendraient des "/" : on les ôte.
    l.t = std::string(SansBlancs(texte));
    l.notes = a.Notes.str();
    try {
        if (!l.t.empty() && !Lire(l, ctx)) {
            if (ctx.GedcomVisible)
                Noter(ctx, "Erreur ligne " + std::to_string(ctx.NumLigne) +
                               " : erreur 5 : Argument ou appel de proc\xE9"
                               "dure incorrect. " +
                               std::string(ctx.LigneCourante));
            return a.Date;
        }
    } catch (const std::exception&) {
        return a.Date;
    }
    // Un jour et un mois sans année n'en ont aucune ("11/08" ne dit pas l'an 108).
    a.Annee = LireJourEtMois(l.t)
                  ? 0
                  : static_cast<std::int16_t>(ValeurNumerique(Remplacer(Droite(l.t, 4), "/", "")));
    a.Date = l.prefixe + l.t;
    a.DateTri = CleDate(a.Date.vue());
    a.Notes = l.notes;
    if (l.doubleAnnee && ctx.GedcomVisible) NoterDoubleAnnee(ctx, texte, a.Date.str());
    return a.Date;
}

}  // namespace arbolix
