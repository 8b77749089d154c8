#include "acts/txt2tm.h"

#include <array>
#include <vector>

#include "acts/tmao.h"
#include "dates/parse_date.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr int kColonneDate = 13;

// La limite de chaque colonne (index 1 à 17) ; la date n'en a pas.
constexpr std::array<std::size_t, kColonnesTxt2Tm + 1> kLimites = {0,  25, 25, 35, 35, 35, 35, 25, 25,
                                                                   35, 35, 35, 35, 0,  20, 20, 20, 20};

// Le prénom qui finit par le nom de la colonne d'avant le perd.
std::string SansNomFinal(std::string_view prenom, std::string_view nom) {
    const std::string_view n = SansBlancs(nom);
    if (!n.empty() && prenom.size() > n.size() && prenom.substr(prenom.size() - n.size()) == n)
        return std::string(prenom.substr(0, prenom.size() - n.size()));
    return std::string(prenom);
}

bool Binaire(std::string_view ligne) {
    for (char c : ligne) {
        const auto o = static_cast<unsigned char>(c);
        if (o < 0x20 && c != '\t') return true;
    }
    return false;
}

std::vector<std::string_view> Colonnes(std::string_view ligne) {
    std::vector<std::string_view> r;
    std::size_t debut = 0;
    for (;;) {
        const auto tab = ligne.find('\t', debut);
        r.push_back(
            ligne.substr(debut, tab == std::string_view::npos ? std::string_view::npos : tab - debut));
        if (tab == std::string_view::npos) return r;
        debut = tab + 1;
    }
}

// La date de la colonne 13 ; la note que ParseDate en tire remplace la colonne 14.
void LireDate(std::string_view colonne, ActeTMAO& a, std::string& note) {
    std::string t(SansBlancs(colonne));
    if (t.size() == 4) t = "00 00 " + t;
    const auto barre = t.rfind('/');
    if (barre == std::string::npos || barre + 2 >= t.size()) {
        Acte acte;
        ContexteDate ctx;
        ctx.ConvCalRep = true;
        ParseDate(t, acte, ctx);
        if (!acte.Notes.empty()) note = std::string(acte.Notes);
        const std::string_view d = acte.Date;
        a.Jour = static_cast<int>(ValeurNumerique(Gauche(d, 2)) & 0xFF);
        const auto premiere = d.find('/');
        a.Mois = premiere == std::string_view::npos
                     ? 0
                     : static_cast<int>(ValeurNumerique(d.substr(premiere + 1)) & 0xFF);
        a.Annee = acte.Annee;
        return;
    }
    a.Jour = static_cast<int>(ValeurNumerique(Gauche(t, 2)) & 0xFF);
    a.Mois = static_cast<int>(ValeurNumerique(Depuis(t, t.find('/') + 2)) & 0xFF);
    a.Annee = static_cast<int>(ValeurNumerique(Droite(t, 4)));
}

// Les 16 textes dans l'ordre des colonnes, la date sautée.
std::array<std::string*, kColonnesTxt2Tm + 1> Champs(ActeTMAO& a) {
    return {nullptr,       &a.Nom1, &a.Prenom1,       &a.Lignes1[0],    &a.Lignes1[1],    &a.Lignes1[2],
            &a.Lignes1[3], &a.Nom2, &a.Prenom2,       &a.Lignes2[0],    &a.Lignes2[1],    &a.Lignes2[2],
            &a.Lignes2[3], nullptr, &a.LignesActe[0], &a.LignesActe[1], &a.LignesActe[2], &a.LignesActe[3]};
}

ActeTMAO LireActe(const std::vector<std::string_view>& colonnes) {
    ActeTMAO a;
    const auto champs = Champs(a);
    std::string note;
    LireDate(colonnes.size() >= kColonneDate ? colonnes[kColonneDate - 1] : std::string_view(), a, note);
    for (int i = 1; i <= kColonnesTxt2Tm; ++i) {
        if (i == kColonneDate) continue;
        std::string t(i <= static_cast<int>(colonnes.size()) ? colonnes[static_cast<std::size_t>(i - 1)]
                                                             : "");
        if (i == 14 && !note.empty()) t = note;
        if ((i == 2 || i == 8) && i - 1 <= static_cast<int>(colonnes.size()))
            t = SansNomFinal(t, colonnes[static_cast<std::size_t>(i - 2)]);
        *champs[static_cast<std::size_t>(i)] =
            NettoyerChampTMAO(SansBlancs(t), kLimites[static_cast<std::size_t>(i)]);
    }
    return a;
}

}  // namespace

ResultatTxt2Tm Txt2Tm(std::string_view texte, std::string_view nom) {
    ResultatTxt2Tm r;
    std::vector<ActeTMAO> actes;
    std::size_t debut = 0;
    int numero = 0;
    while (debut < texte.size()) {
        auto fin = texte.find('\n', debut);
        if (fin == std::string_view::npos) fin = texte.size();
        std::string_view ligne = texte.substr(debut, fin - debut);
        debut = fin + 1;
        if (!ligne.empty() && ligne.back() == '\r') ligne.remove_suffix(1);
        const std::string ou = "Le fichier " + std::string(nom) + ", ligne " + std::to_string(++numero);
        if (Binaire(ligne)) {
            r.Erreur = ou + " : des octets binaires ; ce n'est pas un texte tabul\xE9.";
            return r;
        }
        if (numero == 1) continue;
        const auto colonnes = Colonnes(ligne);
        if (colonnes.size() > kColonnesTxt2Tm) {
            r.Erreur = ou + " : " + std::to_string(colonnes.size()) + " colonnes, 17 au plus.";
            return r;
        }
        actes.push_back(LireActe(colonnes));
        const int an = actes.back().Annee;
        if (actes.size() == 1) r.AnMin = r.AnMax = an;
        if (an > 0 && (an < r.AnMin || r.AnMin <= 0)) r.AnMin = an;
        if (an > r.AnMax) r.AnMax = an;
        if (actes.size() > 0xFFFF) {
            r.Erreur = ou + " : plus de 65 535 actes, ce qu'une table TMAO ne peut pas compter.";
            return r;
        }
    }
    r.NbActes = static_cast<int>(actes.size());
    r.Octets = EcrireTMAO(actes, "Table " + std::string(nom));
    r.Ok = true;
    return r;
}

std::string NomSortieTxt2Tm(std::string_view source) {
    return std::string(Gauche(source, source.size() >= 3 ? source.size() - 3 : 0)) + "TM";
}

std::string BrouillonNotesTable(const ResultatTxt2Tm& r, int anneeDuJour) {
    return "_commune_ " + std::to_string(r.AnMin) + "-" + std::to_string(r.AnMax) + " (canton de _)\r\n" +
           std::to_string(r.NbActes) +
           " actes de naissance_mariage_d\xE9"
           "c\xE8s\r\nSources : _\r\nRelev\xE9s : _\r\n" +
           "Conversion informatique : " + std::to_string(anneeDuJour);
}

}  // namespace arbolix
