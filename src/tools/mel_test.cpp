#include "tools/mel.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "outils";

HasardMel Suite() {
    return [i = 0u]() mutable { return i++; };
}

TEST(Mel, MessageCommeLeProgrammeDeCourrierLAttend) {
    const std::string frontiere = FrontiereMel(Suite());
    EXPECT_EQ(frontiere, "------------012345678901234567890123");
    const std::string ged = essais::LireOctets(kDonnees / "petit.ged");
    EXPECT_TRUE(essais::CommeReference(kDonnees / "petit.eml", MessageMel("petit.ged", ged, frontiere)));
}

// Les octets qui ne passent pas tels quels dans un courrier vont en base64.
TEST(Mel, CodageDeLaPieceJointe) {
    const std::string longue(999, 'x');
    struct Cas {
        std::string contenu;
        bool brut;
        std::string corps;  // de la ligne vide à la frontière finale
    } cas[] = {
        {"", true, "\r\n--F--\r\n"},
        {"a\r\n", true, "\r\na\r\n\r\n--F--\r\n"},
        {"a\r\nb", true, "\r\na\r\nb\r\n--F--\r\n"},
        {std::string(998, 'x'), true, "\r\n" + std::string(998, 'x') + "\r\n--F--\r\n"},
        {"a\nb\n", false, "\r\nYQpiCg==\r\n--F--\r\n"},
        {"a\rb", false, "\r\nYQ1i\r\n--F--\r\n"},
        {std::string("0\0\r\n", 4), false, "\r\nMAANCg==\r\n--F--\r\n"},
        {longue, false, ""},
    };
    for (const Cas& c : cas) {
        const std::string m = MessageMel("f.ged", c.contenu, "F");
        EXPECT_NE(m.find(c.brut ? "Encoding: 8bit" : "Encoding: base64"), std::string::npos)
            << c.contenu.size();
        const std::string fin = "\"f.ged\"\r\n" + c.corps;
        if (!c.corps.empty()) {
            EXPECT_TRUE(m.ends_with(fin)) << c.contenu.size();
        }
    }
    // 76 caractères par ligne de base64.
    std::string ligne;
    for (int i = 0; i < 19; ++i) ligne += "CgoK";
    EXPECT_TRUE(MessageMel("f.ged", std::string(120, '\n'), "F")
                    .ends_with("\r\n" + ligne + "\r\n" + ligne + "\r\nCgoKCgoK\r\n--F--\r\n"));
}

TEST(Mel, NomDuFichierDansLesEnTetes) {
    const std::string m = MessageMel("\xC3\xA9t\xC3\xA9 1\"x.ged", "", "F");
    EXPECT_NE(m.find(" name*=utf-8''%C3%A9t%C3%A9%201%22x.ged\r\n"), std::string::npos) << m;
    EXPECT_NE(m.find(" filename*=utf-8''%C3%A9t%C3%A9%201%22x.ged\r\n"), std::string::npos);
    EXPECT_NE(MessageMel("a \"b\\.ged", "", "F").find(" filename=\"a \\\"b\\\\.ged\"\r\n"),
              std::string::npos);
}

class EnvoiMel : public ::testing::Test {
protected:
    void SetUp() override {
        fs::create_directories(dossier_);
        fs::copy_file(kDonnees / "petit.ged", dossier_ / "petit.ged");
    }
    void TearDown() override { fs::remove_all(dossier_); }
    const fs::path dossier_ = essais::DossierEssai("mel");
    DialogueFactice dialogue_;
};

TEST_F(EnvoiMel, EcritDansLeDossierTemporaireEtOuvreLeMessage) {
    const fs::path temp = dossier_ / "temp";
    fs::create_directories(temp);
    const ResultatMel r = EnvoyerMel((dossier_ / "petit.ged").string(), temp, Suite(), dialogue_);
    ASSERT_TRUE(r.Ok) << r.Message;
    EXPECT_EQ(r.Chemin, (temp / "petit.ged.eml").string());
    EXPECT_EQ(dialogue_.ouverts, std::vector<std::string>{r.Chemin});
    EXPECT_TRUE(dialogue_.messages.empty());
    EXPECT_EQ(essais::LireOctets(temp / "petit.ged.eml"), essais::LireOctets(kDonnees / "petit.eml"));
}

TEST_F(EnvoiMel, RefuseCeQuiNePeutPartirSansRienOuvrir) {
    const fs::path gros = dossier_ / "gros.ged";
    std::ofstream(gros).put('0');
    fs::resize_file(gros, kTailleMaxMel + 1);  // creux : rien n'est écrit sur le disque
    struct Cas {
        fs::path fichier;
        fs::path temp;
        std::string debut;
    } cas[] = {
        {gros, dossier_, "Le fichier " + gros.string() + " fait 26 Mo : trop gros pour un message"},
        {dossier_ / "absent.ged", dossier_,
         "Impossible de lire le fichier " + (dossier_ / "absent.ged").string()},
        {dossier_ / "petit.ged", dossier_ / "absent",
         "Le fichier " + (dossier_ / "absent/petit.ged.eml").string() + " n'a pas pu \xEAtre enregistr\xE9"},
    };
    for (const Cas& c : cas) {
        DialogueFactice dialogue;
        const ResultatMel r = EnvoyerMel(c.fichier.string(), c.temp, Suite(), dialogue);
        EXPECT_FALSE(r.Ok);
        ASSERT_EQ(dialogue.messages.size(), 1u) << c.debut;
        EXPECT_EQ(dialogue.messages[0].titre, "Envoyer par mail");
        EXPECT_EQ(dialogue.messages[0].texte.rfind(c.debut, 0), 0u) << dialogue.messages[0].texte;
        EXPECT_EQ(dialogue.messages[0].icone, Icone::Stop);
        EXPECT_TRUE(dialogue.ouverts.empty());
    }
    EXPECT_FALSE(fs::exists(dossier_ / "gros.ged.eml"));
}

}  // namespace
}  // namespace arbolix
