// Banc d'essai de la lecture : un fichier d'un million de personnes fabriqué en mémoire.
// Affiche le temps de lecture et la mémoire prise ; n'échoue jamais.
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>

#include "gedcom/lecteur.h"
#include "platform/progression.h"

namespace {

// Mémoire résidente du processus, en kio (Linux).
long MemoireKio() {
    std::ifstream f("/proc/self/status");
    std::string ligne;
    while (std::getline(f, ligne))
        if (ligne.rfind("VmRSS:", 0) == 0) return std::stol(ligne.substr(6));
    return 0;
}

// Un couple toutes les trois personnes, l'enfant étant la troisième : des fiches ordinaires.
std::string Fichier(int personnes) {
    std::string t = "0 HEAD\r\n1 SOUR BANC\r\n1 CHAR ANSI\r\n";
    t.reserve(static_cast<std::size_t>(personnes) * 190);
    for (int i = 1; i <= personnes; ++i) {
        const std::string n = std::to_string(i);
        // Quelques milliers de prénoms et de noms, comme dans un vrai fichier.
        t += "0 @I" + n + "@ INDI\r\n1 NAME Jean" + std::to_string(i % 3000) + " Marie /Dupont" +
             std::to_string(i % 20000) + "/\r\n";
        t += i % 2 ? "1 SEX M\r\n" : "1 SEX F\r\n";
        t += "1 BIRT\r\n2 DATE 12 MAR 17" + std::to_string(10 + i % 90) + "\r\n2 PLAC Metz" +
             std::to_string(i % 700) + "\r\n1 DEAT\r\n2 DATE 1790\r\n1 OCCU Laboureur\r\n1 NOTE Note " + n +
             "\r\n";
    }
    for (int i = 1, f = 1; i + 2 <= personnes; i += 3, ++f) {
        t += "0 @F" + std::to_string(f) + "@ FAM\r\n1 HUSB @I" + std::to_string(i) + "@\r\n1 WIFE @I" +
             std::to_string(i + 1) + "@\r\n1 MARR\r\n2 DATE 1750\r\n2 PLAC Metz\r\n1 CHIL @I" +
             std::to_string(i + 2) + "@\r\n";
    }
    t += "0 TRLR\r\n";
    return t;
}

}  // namespace

int main(int argc, char** argv) {
    const int personnes = argc > 1 ? std::stoi(argv[1]) : 1'000'000;
    std::string texte = Fichier(personnes);
    const double mio = static_cast<double>(texte.size()) / (1024.0 * 1024.0);
    const long avant = MemoireKio();
    arbolix::Base base;
    arbolix::Options options;
    arbolix::OptionsGedcom cases;
    arbolix::Progression progression;
    arbolix::ContexteLecture ctx{options, cases, progression};
    const auto debut = std::chrono::steady_clock::now();
    const std::clock_t debutProcesseur = std::clock();
    const auto r = arbolix::LireGedcomTexte(base, ctx, std::move(texte));
    const std::chrono::duration<double> duree = std::chrono::steady_clock::now() - debut;
    const double processeur = static_cast<double>(std::clock() - debutProcesseur) / CLOCKS_PER_SEC;
    const long apres = MemoireKio();
    std::printf("fichier : %.1f Mio, %d personnes, %d familles\n", mio, base.NbPersosReels,
                base.NbFamisReels);
    // Le temps processeur compte seul quand la machine est partagée.
    std::printf("lecture : %.2f s, dont %.2f s de processeur (journal %zu octets)\n", duree.count(),
                processeur, r.Journal.size());
    std::printf("memoire : %.1f Mio, %.0f octets par personne\n", static_cast<double>(apres - avant) / 1024.0,
                static_cast<double>(apres - avant) * 1024.0 / personnes);
    return 0;
}
