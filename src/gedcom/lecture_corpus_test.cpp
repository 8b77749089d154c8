// Fichiers réels d'autres logiciels, quand le corpus partagé est là : ni plantage, ni fiche perdue.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "gedcom/jeux_caracteres.h"
#include "gedcom/lecture_essai.h"
#include "store/chaines.h"

namespace arbolix {
namespace {

struct Comptes {
    int personnes = 0;
    int familles = 0;
};

// Les fiches "0 @X@ INDI" et "0 @X@ FAM" comptées sur les octets du fichier, UTF-16 converti.
Comptes CompterFiches(std::string octets) {
    NormaliserCodage(octets);
    Comptes c;
    std::size_t debut = 0;
    while (debut < octets.size()) {
        std::size_t fin = octets.find_first_of("\r\n", debut);
        if (fin == std::string::npos) fin = octets.size();
        const std::string_view ligne = SansBlancs(std::string_view(octets).substr(debut, fin - debut));
        if (ligne.starts_with("0 @") && ligne.find('@', 3) != std::string_view::npos) {
            const std::string_view genre = ligne.substr(ligne.find('@', 3) + 1);
            if (genre == " INDI") ++c.personnes;
            if (genre == " FAM") ++c.familles;
        }
        debut = fin + 1;
    }
    return c;
}

TEST(LectureCorpus, ToutesLesFichesDeChaqueFichier) {
    const std::filesystem::path dossier = std::filesystem::path(ARBOLIX_CORPUS) / "gedcom";
    if (!std::filesystem::is_directory(dossier)) GTEST_SKIP() << "corpus absent";
    // Aucun fichier du corpus ne perd de fiche aujourd'hui ; un écart voulu par les règles
    // se nommerait ici avec sa raison.
    const std::map<std::string, Comptes> ecartsVoulus;
    int lus = 0;
    for (const auto& entree : std::filesystem::directory_iterator(dossier)) {
        const std::string ext = EnMinuscules(entree.path().extension().string());
        if (ext != ".ged") continue;
        std::ifstream f(entree.path(), std::ios::binary);
        std::ostringstream o;
        o << f.rdbuf();
        const std::string octets = o.str();
        const std::string nom = entree.path().filename().string();
        Comptes attendu = CompterFiches(octets);
        if (auto it = ecartsVoulus.find(nom); it != ecartsVoulus.end()) attendu = it->second;

        essai::Lecture l;
        l.LireTout(octets);
        EXPECT_TRUE(l.resultat.Lu) << nom << " : " << l.resultat.Erreur;
        EXPECT_EQ(l.base.NbPersosReels, attendu.personnes) << nom;
        EXPECT_EQ(l.base.NbFamisReels, attendu.familles) << nom;
        ++lus;
    }
    EXPECT_GT(lus, 0);
}

}  // namespace
}  // namespace arbolix
