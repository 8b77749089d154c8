#include "acts/tmao.h"

#include <algorithm>

#include "dates/calendrier_republicain.h"
#include "platform/pages_oem.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::size_t kTaillePied = 200;
constexpr std::size_t kBourrage = 19;
constexpr unsigned char kOctetDate = 4;

void AjouterMot(std::string& o, std::uint32_t n) {
    o += static_cast<char>(n & 0xFF);
    o += static_cast<char>((n >> 8) & 0xFF);
}

// Une chaîne : l'octet de longueur puis les octets OEM ; le texte est déjà coupé.
void AjouterChaine(std::string& o, std::string_view texte1252) {
    std::string t(Gauche(texte1252, 255));
    Cp1252VersOem(t, kPageTMAO);
    o += static_cast<char>(t.size());
    o += t;
}

// Les champs dans l'ordre du fichier, avec leur limite ; la date se glisse après le douzième.
struct ChampTMAO {
    std::string ActeTMAO::*texte;
    std::array<std::string, 4> ActeTMAO::*lignes;
    int ligne;
    std::size_t limite;
};
constexpr ChampTMAO kChamps[] = {
    {&ActeTMAO::Nom1, nullptr, 0, kLimiteNomTMAO},
    {&ActeTMAO::Prenom1, nullptr, 0, kLimiteNomTMAO},
    {nullptr, &ActeTMAO::Lignes1, 0, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes1, 1, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes1, 2, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes1, 3, kLimiteLigneTMAO},
    {&ActeTMAO::Nom2, nullptr, 0, kLimiteNomTMAO},
    {&ActeTMAO::Prenom2, nullptr, 0, kLimiteNomTMAO},
    {nullptr, &ActeTMAO::Lignes2, 0, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes2, 1, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes2, 2, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::Lignes2, 3, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::LignesActe, 0, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::LignesActe, 1, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::LignesActe, 2, kLimiteLigneTMAO},
    {nullptr, &ActeTMAO::LignesActe, 3, kLimiteLigneTMAO},
};
constexpr std::size_t kChampsAvantDate = 12;

std::string& Champ(ActeTMAO& a, const ChampTMAO& c) {
    return c.texte ? a.*(c.texte) : (a.*(c.lignes))[static_cast<std::size_t>(c.ligne)];
}
const std::string& Champ(const ActeTMAO& a, const ChampTMAO& c) {
    return c.texte ? a.*(c.texte) : (a.*(c.lignes))[static_cast<std::size_t>(c.ligne)];
}

// Lecture pas à pas : faux dès qu'un octet manque.
class Curseur {
public:
    explicit Curseur(std::string_view o) : o_(o) {}
    bool Mot(int& n) {
        if (o_.size() - pos_ < 2) return false;
        n = Octet(pos_) | (Octet(pos_ + 1) << 8);
        pos_ += 2;
        return true;
    }
    bool Octet(int& n) {
        if (pos_ >= o_.size()) return false;
        n = Octet(pos_++);
        return true;
    }
    bool Chaine(std::string& t) {
        int longueur = 0;
        if (!Octet(longueur) || o_.size() - pos_ < static_cast<std::size_t>(longueur)) return false;
        t.assign(o_.substr(pos_, static_cast<std::size_t>(longueur)));
        pos_ += static_cast<std::size_t>(longueur);
        OemVers1252(t, 0, kPageTMAO);
        t = std::string(SansBlancs(t));
        return true;
    }
    std::size_t Position() const { return pos_; }

private:
    int Octet(std::size_t i) const { return static_cast<unsigned char>(o_[i]); }
    std::string_view o_;
    std::size_t pos_ = 0;
};

bool LireActe(Curseur& c, ActeTMAO& a) {
    int n = 0;
    if (!c.Mot(n)) return false;
    for (std::size_t i = 0; i < std::size(kChamps); ++i) {
        if (i == kChampsAvantDate) {
            int annee = 0;
            if (!c.Octet(n) || !c.Octet(a.Jour) || !c.Octet(a.Mois) || !c.Mot(annee)) return false;
            a.Annee = annee;
        }
        if (!c.Chaine(Champ(a, kChamps[i]))) return false;
    }
    return true;
}

std::string DeuxChiffres(int n) {
    return Zeros(n, 2);
}

}  // namespace

std::string NettoyerChampTMAO(std::string_view texte, std::size_t limite) {
    std::string t = Remplacer(texte, " ,", ",");
    while (RemplacerTout(t, "  ", " ") > 0) {
    }
    RemplacerTout(t, " )", ")");
    return std::string(SansBlancs(Gauche(t, limite)));
}

std::string PrenomAvecAge(std::string_view prenom, std::string_view age) {
    if (age.empty()) return std::string(prenom);
    const std::size_t garde = age.size() < 22 ? 22 - age.size() : 0;
    return std::string(SansBlancsDroite(Gauche(prenom, garde))) + " (" + std::string(age) + ")";
}

std::string DateTMAO(const ActeTMAO& a) {
    const std::string t = DeuxChiffres(a.Jour) + "/" + DeuxChiffres(a.Mois) + "/" + Zeros(a.Annee, 4);
    if (a.Annee < 1 || a.Annee > 14 || a.Mois < 1 || a.Mois >= static_cast<int>(MoisRepublicains.size()))
        return t;
    return t.substr(0, 3) + EnMajuscules(MoisRepublicains[static_cast<std::size_t>(a.Mois)]) + "/" +
           t.substr(t.size() - 2);
}

void DateVersTMAO(std::string_view date, ActeTMAO& a) {
    const std::string d(SansBlancs(date));
    const auto barre1 = d.find('/');
    const auto barre2 = barre1 == std::string::npos ? std::string::npos : d.find('/', barre1 + 1);
    a.Jour = a.Mois = 0;
    if (barre2 != std::string::npos && barre1 > 0 && EstNumerique(d.substr(0, barre1)) &&
        EstNumerique(d.substr(barre2 + 1))) {
        const std::string mois = d.substr(barre1 + 1, barre2 - barre1 - 1);
        const std::string annee = d.substr(barre2 + 1);
        if (EstNumerique(mois) && annee.size() >= 3) {
            a.Jour = static_cast<int>(ValeurNumerique(Gauche(d, 2)));
            a.Mois = static_cast<int>(ValeurNumerique(Gauche(Depuis(d, 4), 2)));
        } else {
            // Une date républicaine garde son mois : relue, elle redonne le même texte.
            const std::string m = EnMinuscules(mois);
            const auto it = std::find(MoisRepublicains.begin() + 1, MoisRepublicains.end(), m);
            if (it != MoisRepublicains.end() && annee.size() <= 2) {
                a.Jour = static_cast<int>(ValeurNumerique(d));
                a.Mois = static_cast<int>(it - MoisRepublicains.begin());
                a.Annee = static_cast<int>(ValeurNumerique(annee));
                return;
            }
        }
    }
    a.Annee = static_cast<int>(ValeurNumerique(Droite(d, 4)));
}

std::string EcrireTMAO(const std::vector<ActeTMAO>& actes, std::string_view pied) {
    std::string o;
    o.reserve(4 + actes.size() * 160 + 64);
    AjouterMot(o, static_cast<std::uint32_t>(actes.size()));
    AjouterMot(o, static_cast<std::uint32_t>(actes.size()));
    std::string corps;
    for (const ActeTMAO& a : actes) {
        corps.clear();
        for (std::size_t i = 0; i < std::size(kChamps); ++i) {
            if (i == kChampsAvantDate) {
                corps += static_cast<char>(kOctetDate);
                corps += static_cast<char>(a.Jour & 0xFF);
                corps += static_cast<char>(a.Mois & 0xFF);
                AjouterMot(corps, static_cast<std::uint32_t>(a.Annee));
            }
            AjouterChaine(corps, NettoyerChampTMAO(Champ(a, kChamps[i]), kChamps[i].limite));
        }
        AjouterMot(o, static_cast<std::uint32_t>(corps.size()));
        o += corps;
    }
    AjouterChaine(o, pied);
    o.append(kBourrage, '\0');
    return o;
}

LectureTMAO LireTMAO(std::string_view octets, std::string_view nom) {
    LectureTMAO r;
    const std::string fichier = "Le fichier TMAO " + std::string(nom);
    if (octets.empty()) {
        r.Erreur = fichier + " est vide.";
        return r;
    }
    Curseur c(octets);
    int nombre = 0, second = 0;
    if (!c.Mot(nombre) || !c.Mot(second)) {
        r.Erreur = fichier + " est tronqu\xE9 : il s'arr\xEAte avant le nombre d'actes.";
        return r;
    }
    r.Actes.resize(static_cast<std::size_t>(nombre));
    for (int i = 0; i < nombre; ++i) {
        if (!LireActe(c, r.Actes[static_cast<std::size_t>(i)])) {
            r.Erreur = fichier + " est tronqu\xE9 : il annonce " + std::to_string(nombre) +
                       " actes et l'acte " + std::to_string(i + 1) + " s'arr\xEAte \xE0 l'octet " +
                       std::to_string(octets.size()) + ".";
            r.Actes.clear();
            return r;
        }
    }
    r.Ok = true;
    return r;
}

char TypeDansPied(std::string_view octets) {
    const std::string_view pied =
        octets.size() > kTaillePied ? octets.substr(octets.size() - kTaillePied) : octets;
    char type = 0;
    if (pied.find("aissance") != std::string_view::npos) type = 'N';
    if (pied.find("ariage") != std::string_view::npos) type = 'M';
    // « décès » tel qu'il s'écrit dans la page OEM.
    if (pied.find("d\x82"
                  "c\x8As") != std::string_view::npos)
        type = 'D';
    return type;
}

char DemanderTypeActe(Dialogue& dialogue) {
    const Bouton b = dialogue.Message("Type d'acte introuvable",
                                      "Impossible de d\xE9tecter le type d'acte.\r\n"
                                      "Veuillez l'indiquer en choisissant :\r\n"
                                      "Abandonner = naissance, bapt\xEAme\r\n"
                                      "R\xE9"
                                      "essayer = mariage, contrat, adh\xE9rent\r\n"
                                      "Ignorer = d\xE9"
                                      "c\xE8s, s\xE9pulture",
                                      Icone::Question, Boutons::AbandonnerReessayerIgnorer);
    return b == Bouton::Abandonner ? 'N' : b == Bouton::Reessayer ? 'M' : 'D';
}

std::string PiedTMAO(char type) {
    switch (type) {
        case 'N':
            return "Table des naissances";
        case 'M':
            return "Table des mariages";
        case 'D':
            return "Table des d\xE9"
                   "c\xE8s";
        case 'A':
            return "Table des ascendances";
        default:
            return "Table des actes";
    }
}

}  // namespace arbolix
