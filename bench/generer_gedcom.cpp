#include "generer_gedcom.h"

#include <array>
#include <random>
#include <string_view>

namespace arbolix::bench {

namespace {

constexpr std::array<std::string_view, 12> kNoms = {
    "MARTIN", "BERNARD", "DUBOIS", "THOMAS", "ROBERT", "RICHARD", "PETIT", "DURAND", "LEFÈVRE", "MOREAU",
    "GÉRAUD", "FAURE"};
constexpr std::array<std::string_view, 12> kPrenomsH = {
    "Jean", "Pierre", "Jacques", "François", "Louis", "Joseph", "Antoine", "Étienne", "Nicolas", "Guillaume",
    "Honoré", "Michel"};
constexpr std::array<std::string_view, 12> kPrenomsF = {
    "Marie", "Jeanne", "Anne", "Marguerite", "Catherine", "Françoise", "Louise", "Élisabeth", "Madeleine",
    "Thérèse", "Geneviève", "Agnès"};
constexpr std::array<std::string_view, 8> kLieux = {
    "Périgueux", "Sarlat-la-Canéda", "Besançon", "Saint-Émilion", "Angoulême", "Cahors", "Fécamp", "Nîmes"};
constexpr std::array<std::string_view, 6> kMois = {"JAN", "MAR", "MAY", "JUL", "SEP", "NOV"};
constexpr std::array<std::string_view, 5> kMetiers = {"Laboureur", "Tisserand", "Marchand", "Vigneron",
                                                      "Notaire"};

// Les littéraux sont en UTF-8 dans le source : on les veut en 1252 dans le fichier.
std::string En1252(std::string_view utf8) {
    std::string r;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto c = static_cast<unsigned char>(utf8[i]);
        if (c == 0xC3 && i + 1 < utf8.size()) {
            r += static_cast<char>(0x40 + static_cast<unsigned char>(utf8[++i]));
        } else {
            r += static_cast<char>(c);
        }
    }
    return r;
}

}  // namespace

std::string GenererGedcom(std::int32_t personnes) {
    std::mt19937 alea(1750);
    std::string t;
    t.reserve(static_cast<std::size_t>(personnes) * 190);
    t += "0 HEAD\r\n1 SOUR BANC\r\n1 GEDC\r\n2 VERS 5.5\r\n2 FORM LINEAGE-LINKED\r\n1 CHAR ANSI\r\n";
    const auto choix = [&](const auto& table) { return En1252(table[alea() % table.size()]); };
    for (std::int32_t n = 1; n <= personnes; ++n) {
        const bool homme = n % 2 == 1;
        const int annee = 1600 + static_cast<int>(alea() % 300);
        t += "0 @I" + std::to_string(n) + "@ INDI\r\n1 NAME " + choix(homme ? kPrenomsH : kPrenomsF) + " /" +
             choix(kNoms) + "/\r\n1 SEX " + (homme ? "M" : "F") + "\r\n";
        if (n % 3 == 0) t += "1 OCCU " + choix(kMetiers) + "\r\n";
        t += "1 BIRT\r\n2 DATE " + std::to_string(1 + alea() % 28) + " " + std::string(kMois[alea() % 6]) + " " +
             std::to_string(annee) + "\r\n2 PLAC " + choix(kLieux) + "\r\n";
        if (n % 2 == 0) {
            t += "1 DEAT\r\n2 DATE " + std::to_string(annee + 20 + static_cast<int>(alea() % 60)) + "\r\n2 PLAC " +
                 choix(kLieux) + "\r\n";
        }
        if (n % 10 == 0) t += "1 NOTE Note de la personne " + std::to_string(n) + "\r\n2 CONT seconde ligne\r\n";
        if (n % 25 == 0) t += "1 BIRT\r\n2 SOUR Registre paroissial\r\n2 ASSO @I" + std::to_string(n - 1) + "@\r\n3 RELA Godfather\r\n";
    }
    // Un couple pour chaque paire de personnes, trois enfants pris plus loin.
    std::int32_t f = 0;
    for (std::int32_t mari = 1; mari + 1 <= personnes / 2; mari += 2) {
        t += "0 @F" + std::to_string(++f) + "@ FAM\r\n1 HUSB @I" + std::to_string(mari) + "@\r\n1 WIFE @I" +
             std::to_string(mari + 1) + "@\r\n1 MARR\r\n2 DATE " + std::to_string(1620 + static_cast<int>(alea() % 300)) +
             "\r\n2 PLAC " + choix(kLieux) + "\r\n";
        for (std::int32_t e = 0; e < 2; ++e) {
            const std::int32_t enfant = personnes / 2 + (mari - 1) + e + 1;
            if (enfant <= personnes) t += "1 CHIL @I" + std::to_string(enfant) + "@\r\n";
        }
    }
    t += "0 TRLR\r\n";
    return t;
}

}  // namespace arbolix::bench
