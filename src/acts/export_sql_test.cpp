#include "acts/export_sql.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "aides/dossier_essai.h"
#include "gedcom/comparaison_test.h"
#include "platform/progression.h"
#include "store/aides_texte.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;
using essais::LireOctets;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "sql";

// Le livre d'essai copié dans un dossier propre : le script s'écrit à côté.
struct Livre {
    fs::path dossier = essais::DossierEssai("sql");
    Livre() {
        fs::remove_all(dossier);
        fs::create_directories(dossier);
    }
    ~Livre() { fs::remove_all(dossier); }
    std::string Epa(const std::string& nom) const { return (dossier / nom).string(); }
};

TEST(ExporterSQL, ScriptDuLivreDEssaiOctetPourOctet) {
    Livre l;
    fs::copy_file(kDonnees / "F54123-Saint_Clement.ged", l.dossier / "F54123-Saint_Clement.ged");
    Progression muette;
    const ResultatExportSQL r = ExporterSQL(l.Epa("F54123-Saint_Clement.EPA"), muette);
    ASSERT_TRUE(r.Ok) << r.Erreur;
    EXPECT_EQ(r.Script, l.Epa("F54123-Saint_Clement.sql"));
    EXPECT_TRUE(essais::CommeReference(kDonnees / "F54123-Saint_Clement.sql", LireOctets(r.Script)));
    // Le nom vide devient "N" ; la famille sans conjoint n'entre pas au livre.
    const CompteursSQL& c = r.Compteurs;
    EXPECT_EQ(c.NbPersosSQL, 4);
    EXPECT_EQ(c.NbFamisSQL, 1);
    EXPECT_EQ(c.NbEvenements, 11);
    EXPECT_EQ(c.NbActes, 7);
    EXPECT_EQ(c.AnDebut, 1794);
    EXPECT_EQ(c.AnFin, 1830);
}

TEST(ExporterSQL, UnGedcomAbsentOuUnNomFauxNEcritRien) {
    Livre l;
    Progression muette;
    ResultatExportSQL r = ExporterSQL(l.Epa("F54123-Nulle_Part.EPA"), muette);
    EXPECT_FALSE(r.Ok);
    EXPECT_NE(r.Erreur.find("F54123-Nulle_Part.ged) n'existe pas"), std::string::npos) << r.Erreur;
    fs::copy_file(kDonnees / "F54123-Saint_Clement.ged", l.dossier / "Saint_Clement.ged");
    r = ExporterSQL(l.Epa("Saint_Clement.EPA"), muette);
    EXPECT_FALSE(r.Ok);
    EXPECT_NE(r.Erreur.find("Saint_Clement.EPA ne convient pas"), std::string::npos) << r.Erreur;
    EXPECT_FALSE(fs::exists(l.dossier / "Saint_Clement.sql"));
}

std::string Script(Base& b, const char* nom = "/x/F54123-Saint_Clement.EPA") {
    std::ostringstream o;
    EcrireScriptSQL(b, LireNomEPA(nom), o);
    return o.str();
}

TEST(ExporterSQL, UneBaseVideNEcritQueLaTeteLaMiseAJourEtLaFin) {
    Base b;
    Vider(b, true);
    const std::string script = Script(b);
    const auto lignes = essais::Lignes(script);
    ASSERT_EQ(lignes.size(), 15u);
    EXPECT_EQ(lignes[0], "START TRANSACTION;");
    EXPECT_EQ(
        lignes[9],
        "INSERT IGNORE INTO epa_lieu (numpays, dept, code, texte, commentaire) VALUES (6, 54, '123', 'Saint "
        "Clement', 'ZZ nouveau lieu');");
    EXPECT_EQ(lignes[11], "SET FOREIGN_KEY_CHECKS = 0;");
    EXPECT_EQ(
        lignes[12],
        "UPDATE epa_fichier SET numlieu=@nl, nbactes=0, nbevenements=0, nbfamis=0, nbpersos=0, debut=0, "
        "fin=0, datefichier='0000-00-00', infosfichier='' WHERE numfichier=@nf;");
    EXPECT_EQ(lignes[14], "COMMIT;");
}

TEST(ExporterSQL, TextesDeValeurs) {
    const std::pair<std::string_view, std::string_view> valeurs[] = {
        {"D'ARC", "D\\'ARC"},
        {"D\\'ARC", "D/\\'ARC"},  // jamais \\' : la barre est déjà devenue /
        {"C:\\x\\", "C:/x/"},
        {"dit \"le Grand\"", "dit \\\"le Grand\\\""},
        {std::string_view("a\0b", 3), "a\\0b"},
    };
    for (const auto& [texte, attendu] : valeurs) EXPECT_EQ(ValeurSQL(texte), attendu) << texte;
    // Sans octet nul, c'est la règle commune d'échappement, faite d'un seul passage.
    for (std::string_view t : {"\\\\'\\'\"'", "a\\\\\"b", "'\\", "d'\"'"})
        EXPECT_EQ(ValeurSQL(t), EchapperSQL(t)) << t;
    const std::pair<std::string_view, std::string_view> codes[] = {{"N000", "78000"},
                                                                   {"", "78000"},
                                                                   {"D165", "68165"},
                                                                   {"\xC9"
                                                                    "200",
                                                                    "201200"},
                                                                   {"M*", "77"}};
    for (const auto& [code, attendu] : codes) EXPECT_EQ(CodeNumerique(code), attendu) << code;
    EXPECT_EQ(EncoderUTF8("\x80 \xE9\xFF \x81"), "\xE2\x82\xAC \xC3\xA9\xC3\xBF \xC2\x81");
}

// Beaucoup de personnes : chaque insertion reste sous 65000 caractères et aucune rangée ne se perd.
TEST(ExporterSQL, LesInsertionsSeCoupentSous65000Caracteres) {
    Base b;
    Vider(b, true);
    const int nb = 3000;
    RedimensionnerBase(b, nb + 10);
    for (int n = 1; n <= nb; ++n) {
        Perso& p = b.Persos[n];
        p.Nom = "LEF\xC8VRE";
        p.Prenoms = "Ma\xEFt\xE9 " + std::to_string(n);
        p.Notes = std::string(40, '\xE9');
        p.Naissance.Date = "01/02/1750";
        p.Naissance.Lieu = "Nancy";
    }
    b.NbPersos = b.NbPersosReels = nb;
    std::size_t personnes = 0, actes = 0, insertions = 0;
    const std::string script = Script(b);
    for (std::string_view l : essais::Lignes(script)) {
        if (l.rfind("INSERT INTO", 0) != 0) continue;
        ++insertions;
        std::size_t caracteres = 0;
        for (unsigned char c : l) caracteres += (c & 0xC0) != 0x80;
        EXPECT_LT(caracteres, 65000u);
        for (auto p = l.find("(@n"); p != std::string_view::npos; p = l.find("(@n", p + 1))
            (l.substr(p, 5) == "(@np " ? personnes : actes)++;
    }
    EXPECT_EQ(personnes, static_cast<std::size_t>(nb));
    EXPECT_EQ(actes, static_cast<std::size_t>(nb));
    EXPECT_GT(insertions, 4u);
}

}  // namespace
}  // namespace arbolix
