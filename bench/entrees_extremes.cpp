// Entrées démesurées : chacune doit se lire en un temps proportionnel à sa taille et en mémoire bornée.
#include <cstdio>
#include <functional>
#include <string>

#include "gedcom/lecteur.h"
#include "mesures.h"
#include "platform/progression.h"

using namespace arbolix;

namespace {

void Mesurer(const char* nom, const std::function<std::string(int)>& fabriquer) {
    // Deux tailles : un temps proportionnel double quand la taille double.
    for (int facteur : {1, 2}) {
        const std::string texte = fabriquer(facteur);
        Base base;
        Options options;
        OptionsGedcom cases;
        Progression muette;
        ContexteLecture ctx{options, cases, muette};
        bench::Chrono c;
        const ResultatLecture r = LireGedcomTexte(base, ctx, texte);
        std::printf("%-34s x%d : %7.1f Mo lus en %6.2f s, journal %zu octets, pointe %.0f Mo%s\n", nom, facteur,
                    static_cast<double>(texte.size()) / 1e6, c.Secondes(), r.Journal.size(), bench::MemoirePointeMo(),
                    r.Lu ? "" : " (non lu)");
    }
}

}  // namespace

int main() {
    Mesurer("une seule ligne de 100 Mo", [](int f) {
        return "0 HEAD\r\n0 @I1@ INDI\r\n1 NOTE " + std::string(static_cast<std::size_t>(50'000'000) * f, 'x');
    });
    Mesurer("un million de niveaux 1 a 9", [](int f) {
        std::string t = "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME A /B/\r\n";
        for (int i = 0; i < 1'000'000 * f; ++i) t += std::to_string(1 + i % 9) + " NOTE niveau\r\n";
        return t + "0 TRLR\r\n";
    });
    Mesurer("200 000 lignes CONT sous une note", [](int f) {
        std::string t = "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME A /B/\r\n1 NOTE debut\r\n";
        for (int i = 0; i < 100'000 * f; ++i) t += "2 CONT ligne de note numero " + std::to_string(i) + "\r\n";
        t += "0 @N1@ NOTE\r\n1 CONC debut\r\n";
        for (int i = 0; i < 100'000 * f; ++i) t += "1 CONT ligne de note numero " + std::to_string(i) + "\r\n";
        return t + "0 TRLR\r\n";
    });
    Mesurer("un nom de 10 Mo", [](int f) {
        return "0 HEAD\r\n0 @I1@ INDI\r\n1 NAME Jean /" + std::string(static_cast<std::size_t>(5'000'000) * f, 'D') +
               "/\r\n0 TRLR\r\n";
    });
    return 0;
}
