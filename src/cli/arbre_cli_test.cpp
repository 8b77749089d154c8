#include "cli/arbre_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "aides/dossier_essai.h"
#include "aides/lancer_cli.h"

namespace arbolix {
namespace {

const std::string kFamille = std::string(ARBOLIX_DONNEES) + "/arbres/famille.ged";
const std::string kCousins = std::string(ARBOLIX_DONNEES) + "/parente/cousins.ged";

TEST(CommandeArbre, EcritOuRefuse) {
    const auto dossier = essais::DossierEssai("arbre");
    std::filesystem::create_directories(dossier);
    const std::string sortie = (dossier / "a.svg").string(), pdf = (dossier / "a.pdf").string(),
                      rtf = (dossier / "a.rtf").string();
    struct Cas {
        std::vector<std::string> args;
        int code;
        std::string erreur;  // début attendu des erreurs
    };
    const Cas cas[] = {
        {{"ascendant-a4", kFamille, sortie, "--date", "23/11/2026"}, 0, ""},
        {{"ascendant", kFamille, sortie, "--generations", "6", "--page", "594x420"}, 0, ""},
        {{"etiquettes", kFamille, sortie, "--case", "60x25"}, 0, ""},
        {{"ascendant-a4", kFamille, pdf}, 0, ""},
        {{"descendant", kFamille, rtf, "--personne", "4"}, 0, ""},
        {{"parente", kCousins, sortie, "--personne", "2", "--autre", "3"}, 0, ""},
        {{"parente", kCousins, sortie, "--personne", "7", "--autre", "8"}, 1, "0 branches en commun"},
        {{"ascendant", kFamille, sortie, "--generations", "31"}, 2, "Cases trop petites : "},
        {{"ascendant", kFamille, sortie, "--page", "0x-3"}, 2, "Erreur de dimension : "},
        {{"ascendant", kFamille, sortie, "--page", "297"}, 2, "--page et --case"},
        {{"ascendant", kFamille, (dossier / "a.txt").string()}, 2, "Format de sortie"},
        {{"ascendant", kFamille, sortie, "--personne", "99"}, 2, "La fiche 99"},
        {{"branches", kFamille, sortie}, 2, "usage"},
    };
    for (const auto& c : cas) {
        std::filesystem::remove(sortie);
        std::filesystem::remove(pdf);
        std::filesystem::remove(rtf);
        std::vector<std::string> args{"arbre"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        const auto r = essai::Lancer(args);
        EXPECT_EQ(r.code, c.code) << c.args[0] << " " << r.erreurs;
        EXPECT_EQ(r.erreurs.rfind(c.erreur, 0), 0u) << r.erreurs;
        EXPECT_EQ(std::filesystem::exists(c.args[2]), c.code == 0) << c.args[0];
    }
    std::filesystem::remove_all(dossier);
}

}  // namespace
}  // namespace arbolix
