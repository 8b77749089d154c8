#include "tools/recherche_web.h"

#include <algorithm>
#include <charconv>

#include "platform/cp1252.h"

namespace arbolix {

namespace {

std::string_view PremierMot(std::string_view t) {
    const std::size_t debut = t.find_first_not_of(' ');
    if (debut == std::string_view::npos) return {};
    t.remove_prefix(debut);
    return t.substr(0, t.find(' '));
}

std::string_view Fin(std::string_view t, std::size_t n) {
    return t.size() > n ? t.substr(t.size() - n) : t;
}

// %debut et %fin d'une année de 4 chiffres ; vides sinon.
std::pair<std::string, std::string> Bornes(std::string_view annee) {
    int a = 0;
    const auto [fin, erreur] = std::from_chars(annee.data(), annee.data() + annee.size(), a);
    if (annee.size() != 4 || erreur != std::errc{} || fin != annee.data() + annee.size()) return {};
    return {std::to_string(a - kEcartAnneesWeb), std::to_string(a + kEcartAnneesWeb)};
}

}  // namespace

ValeursWeb ValeursAnnuaire(std::string_view nom, std::string_view prenoms, std::string_view ville,
                           std::string_view adresse, std::string_view cp, std::string_view telephone) {
    return {std::string(nom),     std::string(PremierMot(prenoms)), std::string(ville),    {},
            std::string(adresse), std::string(cp.substr(0, 2)),     std::string(telephone)};
}

ValeursWeb ValeursBaseWeb(std::string_view nom, std::string_view prenoms, std::string_view lieu,
                          std::string_view date) {
    return {std::string(nom),
            std::string(PremierMot(prenoms)),
            std::string(lieu),
            std::string(Fin(date, 4)),
            {},
            {},
            {}};
}

std::vector<std::string> LignesWeb(std::string_view texte, Dialogue& dialogue) {
    std::vector<std::string> lignes;
    while (!texte.empty()) {
        const std::size_t fin = texte.find('\n');
        std::string_view ligne = texte.substr(0, fin);
        texte.remove_prefix(fin == std::string_view::npos ? texte.size() : fin + 1);
        while (!ligne.empty() && (ligne.back() == '\r' || ligne.back() == ' ')) ligne.remove_suffix(1);
        while (!ligne.empty() && ligne.front() == ' ') ligne.remove_prefix(1);
        if (ligne.empty()) continue;
        lignes.push_back((ligne.starts_with("http") ? "" : "https://") + std::string(ligne));
    }
    if (lignes.empty())
        dialogue.Message("Param\xE8tre manquant",
                         "Aucune adresse URL n'est d\xE9"
                         "finie dans les options pour utiliser cette fonction de "
                         "recherche.",
                         Icone::Stop);
    return lignes;
}

std::string HoteWeb(std::string_view ligne) {
    if (const std::size_t p = ligne.find("://"); p != std::string_view::npos) ligne.remove_prefix(p + 3);
    return std::string(ligne.substr(0, ligne.find_first_of("/?#")));
}

std::vector<std::string> RangeesWeb(const std::vector<std::string>& lignes) {
    std::vector<std::string> hotes;
    for (const auto& l : lignes) hotes.push_back(HoteWeb(l));
    std::vector<std::string> rangees;
    for (std::size_t i = 0; i < lignes.size(); ++i)
        rangees.push_back(std::count(hotes.begin(), hotes.end(), hotes[i]) > 1 ? lignes[i] : hotes[i]);
    return rangees;
}

std::string EncoderPourcent(std::string_view utf8) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string r;
    for (const char c : utf8) {
        const auto o = static_cast<unsigned char>(c);
        if ((o >= '0' && o <= '9') || (o >= 'A' && o <= 'Z') || (o >= 'a' && o <= 'z') || c == '-' ||
            c == '.' || c == '_' || c == '~')
            r += c;
        else
            r += {'%', kHex[o >> 4], kHex[o & 15]};
    }
    return r;
}

std::string RemplirLigneWeb(std::string_view ligne, const ValeursWeb& v) {
    const auto [debut, fin] = Bornes(v.annee);
    // Aucune marque n'est le début d'une autre : l'ordre des rangées ne compte pas.
    const std::pair<std::string_view, const std::string*> marques[] = {
        {"%nom", &v.nom},     {"%prenom", &v.prenom}, {"%comn", &v.comn},
        {"%annee", &v.annee}, {"%debut", &debut},     {"%fin", &fin},
        {"%adrs", &v.adrs},   {"%dept", &v.dept},     {"%numtel", &v.numtel},
    };
    std::string r;
    for (std::size_t i = 0; i < ligne.size();) {
        bool remplacee = false;
        if (ligne[i] == '%')
            for (const auto& [marque, valeur] : marques)
                if (ligne.substr(i).starts_with(marque)) {
                    r += EncoderPourcent(Cp1252VersUtf8(*valeur));
                    i += marque.size();
                    remplacee = true;
                    break;
                }
        if (!remplacee) r += ligne[i++];
    }
    return r;
}

}  // namespace arbolix
