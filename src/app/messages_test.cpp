#include "app/messages.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

#include "aides/dialogue_factice.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

TEST(Messages, DecoupeAuxCrLfSeulement) {
    Messages m;
    m.Decouper("zero\r\nun\nencore un\r\n\r\ntrois");
    ASSERT_EQ(m.size(), 4u);
    EXPECT_EQ(m(0), "zero");
    EXPECT_EQ(m(1), "un\nencore un");
    EXPECT_EQ(m(2), "");
    EXPECT_EQ(m(3), "trois");
    EXPECT_EQ(m(4), "");
    EXPECT_EQ(m(-1), "");
}

TEST(Messages, FichierAbsentPrevientEnAnglais) {
    Messages m;
    DialogueFactice d;
    EXPECT_FALSE(m.Charger("/nulle/part/messages1036.txt", d));
    ASSERT_EQ(d.messages.size(), 1u);
    EXPECT_EQ(d.messages[0].titre, "Missing translation");
    EXPECT_EQ(d.messages[0].texte,
              "Your language 1036 is not handled by the program yet. Please contact the author.");
    EXPECT_EQ(d.messages[0].icone, Icone::Information);
    EXPECT_EQ(m(405), "");
}

TEST(Messages, BasesDesFenetres) {
    EXPECT_EQ(BaseFenetre("Fiche"), 3);
    EXPECT_EQ(BaseFenetre("Options"), 241);
    EXPECT_EQ(BaseFenetre("RechActe"), 351);
    EXPECT_EQ(BaseFenetre("Nouvelle"), -1);
    EXPECT_EQ(BaseFenetre("options"), -1);
}

TEST(Messages, CheminAcoteOuInstalle) {
    const fs::path racine = fs::temp_directory_path() / ("arbolix-messages-" + std::to_string(::getpid()));
    fs::remove_all(racine);
    fs::create_directories(racine / "bin");
    fs::create_directories(racine / "share" / "arbolix");
    EXPECT_EQ(CheminMessages(racine / "bin"), racine / "bin" / "messages1036.txt");  // aucun : à côté
    std::ofstream(racine / "share" / "arbolix" / "messages1036.txt") << "x";
    EXPECT_EQ(CheminMessages(racine / "bin"), racine / "share" / "arbolix" / "messages1036.txt");
    std::ofstream(racine / "bin" / "messages1036.txt") << "x";
    EXPECT_EQ(CheminMessages(racine / "bin"), racine / "bin" / "messages1036.txt");
    fs::remove_all(racine);
}

// Le fichier livré : code page 1252, CR LF, et une ligne pour chaque numéro que le code demande.
TEST(Messages, FichierLivreTientLesLignesDuCode) {
    Messages m;
    DialogueFactice d;
    ASSERT_TRUE(m.Charger(fs::path(ARBOLIX_SHARE) / "messages1036.txt", d));
    std::vector<int> lignes{10, 49, 401, 403, 405, 409, 590, 591, 593, 594, 595};
    for (int n = 550; n <= 563; ++n) lignes.push_back(n);
    for (int n = 565; n <= 578; ++n) lignes.push_back(n);
    for (int n : {2, 100, 130, 140, 160, 200, 220, 230, 240, 320, 330, 350}) lignes.push_back(n);  // titres
    for (int n : lignes) EXPECT_FALSE(m(n).empty()) << "ligne " << n;
    std::ifstream f(fs::path(ARBOLIX_SHARE) / "messages1036.txt", std::ios::binary);
    const std::string brut{std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
    EXPECT_EQ(brut.find("\xC3\xA9"), std::string::npos) << "é en UTF-8";
    EXPECT_NE(brut.find("\xE9"), std::string::npos);
    for (std::size_t p = brut.find('\n'); p != std::string::npos; p = brut.find('\n', p + 1))
        ASSERT_TRUE(p > 0 && brut[p - 1] == '\r') << "LF seul à l'octet " << p;
}

}  // namespace
}  // namespace arbolix
