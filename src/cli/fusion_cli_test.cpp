#include "cli/fusion_cli.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "aides/dossier_essai.h"
#include "aides/invariants_base.h"
#include "aides/lancer_cli.h"
#include "cli/commandes.h"
#include "gedcom/lecture_essai.h"

namespace arbolix::cli {
namespace {

const std::string kDoublons = std::string(ARBOLIX_DONNEES) + "/fusion/doublons.ged";

using essai::Appel;
using essai::Lancer;

struct Dossier {
    std::filesystem::path d = essais::DossierEssai("fiche");
    Dossier() { std::filesystem::create_directories(d); }
    ~Dossier() { std::filesystem::remove_all(d); }
    std::string Chemin(const char* nom) const { return (d / nom).string(); }
    essai::Lecture Relire(const char* nom) const {
        essai::Lecture l;
        std::ifstream f(Chemin(nom), std::ios::binary);
        std::ostringstream o;
        o << f.rdbuf();
        l.LireTout(o.str());
        return l;
    }
};

TEST(CliFiche, FusionnerAvecLesReponsesDuFichier) {
    Dossier d;
    std::ofstream(d.Chemin("reponses.txt")) << "Tisserand, laboureur\n[annuler]\n";
    const Appel a = Lancer({"fiche", "fusionner", kDoublons, d.Chemin("sortie.ged"), "3", "1", "--reponses",
                            d.Chemin("reponses.txt"), "--date", "15/03/2023"});
    ASSERT_EQ(a.code, 0) << a.erreurs;
    EXPECT_EQ(a.sortie.substr(0, 2), "1 ");
    // Les deux questions (métiers, dates de naissance) vont aux erreurs.
    EXPECT_NE(a.erreurs.find("Les m\xC3\xA9tiers diff\xC3\xA8rent."), std::string::npos);
    EXPECT_NE(a.erreurs.find("Les dates de naissance diff\xC3\xA8rent."), std::string::npos);
    const auto l = d.Relire("sortie.ged");
    EXPECT_EQ(l.Pe(1).Metier, "Tisserand, laboureur");
    EXPECT_EQ(l.Pe(1).Naissance.Date, "12/03/1750");
    EXPECT_EQ(l.Pe(1).Deces.Lieu, "Givors");
    EXPECT_TRUE(l.Pe(3).Prenoms.empty());
    for (const auto& faute : essais::FautesDeBase(l.base)) ADD_FAILURE() << faute;
}

TEST(CliFiche, SupprimerEtDupliquerPuisLesRefus) {
    Dossier d;
    const Appel s = Lancer({"fiche", "supprimer", kDoublons, d.Chemin("s.ged"), "5"});
    ASSERT_EQ(s.code, 0) << s.erreurs;
    EXPECT_EQ(s.sortie.substr(0, 2), "4 ");
    EXPECT_TRUE(d.Relire("s.ged").Pe(5).Prenoms.empty());
    const Appel u = Lancer({"fiche", "dupliquer", kDoublons, d.Chemin("d.ged"), "5"});
    ASSERT_EQ(u.code, 0) << u.erreurs;
    EXPECT_EQ(d.Relire("d.ged").Fa(2).Enfants(2), 6);
    // Sans réponse écrite, chaque saisie est annulée : la fiche gardée garde ses données.
    ASSERT_EQ(Lancer({"fiche", "fusionner", kDoublons, d.Chemin("f.ged"), "1", "3"}).code, 0);
    EXPECT_EQ(d.Relire("f.ged").Pe(1).Metier, "Tisserand");
    EXPECT_EQ(d.Relire("f.ged").Pe(1).Naissance.Date, "12/03/1750");
    // Une fiche avec elle-même, ou une fiche qui n'existe pas : rien n'est écrit.
    EXPECT_EQ(Lancer({"fiche", "fusionner", kDoublons, d.Chemin("x.ged"), "3", "3"}).code, 1);
    EXPECT_EQ(Lancer({"fiche", "fusionner", kDoublons, d.Chemin("x.ged"), "3", "9"}).code, 2);
    EXPECT_EQ(Lancer({"fiche", "renommer", kDoublons, d.Chemin("x.ged"), "3"}).code, 2);
    EXPECT_FALSE(std::filesystem::exists(d.Chemin("x.ged")));
}

}  // namespace
}  // namespace arbolix::cli
