#include "reports/site.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <memory>
#include <regex>
#include <set>

#include "aides/dialogue_factice.h"
#include "aides/dossier_essai.h"
#include "aides/lancer_cli.h"
#include "gedcom/comparaison_test.h"
#include "gedcom/lecture_essai.h"
#include "kinship/sosa.h"
#include "reports/exports.h"
#include "reports/html.h"
#include "store/selection.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;
using essais::CommeReference;
using essais::LireOctets;

const fs::path kDonnees = fs::path(ARBOLIX_DONNEES) / "site";

// Chaque lien local d'un site : la page existe, l'ancre aussi ; chaque cible du menu existe.
// Une ligne par lien rompu.
std::vector<std::string> LiensRompus(const fs::path& dossier) {
    static const std::regex href("href=\"([^\"]*)\""), ancre("name=\"([^\"]*)\"");
    std::map<std::string, std::set<std::string>> ancres;
    std::map<std::string, std::vector<std::string>> liens;
    for (const auto& e : fs::directory_iterator(dossier)) {
        const std::string nom = e.path().filename().string();
        if (!nom.ends_with(".html")) continue;
        const std::string t = LireOctets(e.path());
        for (std::sregex_iterator i(t.begin(), t.end(), ancre), fin; i != fin; ++i)
            ancres[nom].insert((*i)[1]);
        for (std::sregex_iterator i(t.begin(), t.end(), href), fin; i != fin; ++i)
            liens[nom].push_back((*i)[1]);
    }
    std::vector<std::string> fautes;
    for (const auto& [page, cibles] : liens) {
        for (const std::string& c : cibles) {
            if (c.starts_with("http") || c.starts_with("mailto:") || c.ends_with(".css") ||
                c.ends_with(".ico"))
                continue;
            const std::size_t diese = c.find('#');
            const std::string fichier = diese == 0 ? page : c.substr(0, diese);
            if (!fs::exists(dossier / fichier))
                fautes.push_back(page + " : " + c + " mène à une page absente");
            else if (diese != std::string::npos && fichier.ends_with(".html") &&
                     !ancres[fichier].contains(c.substr(diese + 1)))
                fautes.push_back(page + " : " + c + " mène à une ancre absente");
        }
    }
    for (const char* typ : {"nom", "prenom", "lieu", "metier"}) {
        std::vector<std::string> lettres{"s", "_autres"};
        for (char l = 'A'; l <= 'Z'; ++l) lettres.push_back(std::string("_") + l);
        for (std::string l : lettres) {
            if (std::string(typ) == "lieu" && l == "s") l = "x";
            const std::string cible = std::string(typ) + l + ".html";
            if (!fs::exists(dossier / cible)) fautes.push_back("menu : " + cible + " absente");
        }
    }
    return fautes;
}

struct Site : ::testing::Test {
    std::unique_ptr<essai::Lecture> lecture;
    OptionsExport exports;
    DialogueFactice dialogue;
    fs::path dossier = essais::DossierEssai("site");

    void SetUp() override { fs::create_directories(dossier); }
    void TearDown() override { fs::remove_all(dossier); }

    ResultatSite Ecrire(const fs::path& ged, const fs::path& cible) {
        lecture = std::make_unique<essai::Lecture>();
        essai::Lecture& l = *lecture;
        l.LireTout(LireOctets(ged));
        NumeroterApresLecture(l.base, l.options, l.resultat.PremierePerso);
        ToutSelectionner(l.base);
        PreparerExport(exports, kPagesHtml, l.base, 1, l.options, ged.string());
        exports.FichierExport = cible.string();
        ContexteExport c{l.base, l.options, exports, {23, 11, 2026}};
        c.TypeExport = kPagesHtml;
        return ExportHTML(c, false);
    }
};

TEST_F(Site, PagesEgalentLeursReferences) {
    const ResultatSite r = Ecrire(kDonnees / "site.ged", dossier / "index.html");
    ASSERT_TRUE(r.Ok) << r.Message;
    for (const char* page :
         {"index.html", "page_0.html", "nom_D.html", "recherches.html", "lieu_autres.html"})
        EXPECT_TRUE(CommeReference(kDonnees / page, LireOctets(dossier / page))) << page;
    // Les pages n'ont que des octets Latin-1 : le "œ" de 1252 devient sa référence Unicode.
    for (const auto& e : fs::directory_iterator(dossier)) {
        const std::string t = LireOctets(e.path());
        EXPECT_EQ(t.find_first_of("\x80\x9C\x8C"), std::string::npos) << e.path();
    }
    EXPECT_TRUE(fs::exists(dossier / "nom_autres.html"));
    EXPECT_FALSE(fs::exists(dossier / ".site-en-cours"));
}

TEST_F(Site, ChaqueLienMeneAUnePageEtUneAncre) {
    std::vector<fs::path> fichiers{kDonnees / "site.ged",
                                   fs::path(ARBOLIX_DONNEES) / ".." / ".." / "share" / "exemple.ged"};
    const fs::path corpus = fs::path(ARBOLIX_CORPUS) / "gedcom" / "US-Presidents-broskeep-ibmpc.ged";
    if (fs::exists(corpus)) fichiers.push_back(corpus);
    for (const fs::path& ged : fichiers) {
        const fs::path cible = dossier / ged.stem() / "index.html";
        const ResultatSite r = Ecrire(ged, cible);
        ASSERT_TRUE(r.Ok) << ged << " " << r.Message;
        const auto fautes = LiensRompus(cible.parent_path());
        EXPECT_TRUE(fautes.empty()) << ged << " : " << fautes.size() << " liens rompus, dont "
                                    << fautes.front();
    }
}

TEST_F(Site, UnAncienSiteNeLaissePasDePagesPerimees) {
    essais::EcrireOctets(dossier / "page_99.html", "ancienne");
    essais::EcrireOctets(dossier / "nom_autres.html", "ancienne");
    essais::EcrireOctets(dossier / "style2.css", "body {color: red;}");
    essais::EcrireOctets(dossier / "style.css", "ancien");
    essais::EcrireOctets(dossier / "notes.txt", "à garder");
    ASSERT_TRUE(Ecrire(kDonnees / "site.ged", dossier / "index.html").Ok);
    EXPECT_FALSE(fs::exists(dossier / "page_99.html"));
    EXPECT_NE(LireOctets(dossier / "nom_autres.html"), "ancienne");
    EXPECT_EQ(LireOctets(dossier / "style2.css"), "body {color: red;}");
    EXPECT_EQ(LireOctets(dossier / "style.css"), StyleCss(lecture->options));
    EXPECT_TRUE(fs::exists(dossier / "notes.txt"));
}

TEST_F(Site, UnDossierImpossibleDitPourquoiEtNeLaisseRien) {
    essais::EcrireOctets(dossier / "fichier", "");
    const ResultatSite r = Ecrire(kDonnees / "site.ged", dossier / "fichier" / "index.html");
    EXPECT_FALSE(r.Ok);
    EXPECT_NE(r.Message.find("fichier"), std::string::npos) << r.Message;
    // Par LancerExport, le message va à l'utilisateur.
    ContexteExport c{lecture->base, lecture->options, exports, {23, 11, 2026}};
    c.TypeExport = kPagesHtml;
    EXPECT_FALSE(LancerExport(c, dialogue).Ecrit);
    ASSERT_EQ(dialogue.messages.size(), 1u);
}

// Annulé au milieu : l'ancien site reste tel quel, sans dossier temporaire.
TEST_F(Site, AnnulerLaisseLAncienSite) {
    struct Annulation : Progression {
        int pages = 0;
        void Compteur(std::string_view) override { ++pages; }
        bool Annule() const override { return pages > 20; }
    } annulation;
    essais::EcrireOctets(dossier / "index.html", "ancienne");
    lecture = std::make_unique<essai::Lecture>();
    lecture->LireTout(LireOctets(kDonnees / "site.ged"));
    ToutSelectionner(lecture->base);
    exports.FichierExport = (dossier / "index.html").string();
    ContexteExport c{lecture->base, lecture->options, exports, {23, 11, 2026}, &annulation};
    const ResultatSite r = ExportHTML(c, false);
    EXPECT_TRUE(r.Annule);
    EXPECT_EQ(LireOctets(dossier / "index.html"), "ancienne");
    EXPECT_EQ(std::distance(fs::directory_iterator(dossier), fs::directory_iterator()), 1);
}

TEST(Html, FichierLieImageOuLien) {
    Base base;
    Options options;
    OptionsExport e;
    e.FichierExport = "/srv/site/index.html";
    const ContexteExport c{base, options, e, {23, 11, 2026}};
    const struct {
        const char* chemin;
        const char* attendu;
    } cas[] = {
        {"/srv/site/photos/Jean & Marie.JPG", "<br /><img src=\"photos/Jean%20%26%20Marie.JPG\" alt=\"\" />"},
        {"/srv/site/actes/d\xE9"
         "c\xE8s.pdf",
         "<br /><a href=\"actes/d%C3%A9c%C3%A8s.pdf\">d\xE9"
         "c\xE8s.pdf</a>"},
        {"sans_extension", "<br /><img src=\"sans_extension\" alt=\"\" />"},
    };
    for (const auto& k : cas) {
        TexteRapport f(kFichierHtml);
        EcrireFichierLie(c, f, k.chemin, "<br />");
        EXPECT_EQ(f.Octets(), k.attendu) << k.chemin;
    }
    TexteRapport rtf(kFichierRtf);
    EcrireFichierLie(c, rtf, "/srv/site/a.png", " ");
    EXPECT_TRUE(rtf.Octets().empty());
}

TEST(Html, EchappementEtLatin1) {
    EXPECT_EQ(EchapperHtml("A & <b> \"x\""), "A &amp; &lt;b&gt; &quot;x&quot;");
    EXPECT_EQ(VersLatin1("C\x9C"
                         "ur \xE9t\xE9 \x80"),
              "C&#339;ur \xE9t\xE9 &#8364;");
    EXPECT_EQ(EncoderUrl("doc/mon fichier\xC3\xA9.pdf"), "doc/mon%20fichier%C3%A9.pdf");
}

TEST_F(Site, LaLigneDeCommandeEcritLeSite) {
    const fs::path accueil = dossier / "web" / "index.html";
    const essai::Appel a = essai::Lancer({"exporter", "site", (kDonnees / "site.ged").string(),
                                          accueil.string(), "--date", "23/11/2026", "--sauf-decede"});
    ASSERT_EQ(a.code, 0) << a.erreurs;
    EXPECT_TRUE(CommeReference(kDonnees / "index.html", LireOctets(accueil)));
    // « Sauf décédé » ne vaut que pour les morts : un vivant né en 2010 garde sa date pour lui.
    EXPECT_EQ(LireOctets(accueil.parent_path() / "nom_E.html").find("2010"), std::string::npos);
}

}  // namespace
}  // namespace arbolix
