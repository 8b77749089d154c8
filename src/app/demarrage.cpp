#include "app/demarrage.h"

#include <filesystem>

#include "acts/export_sql.h"
#include "gedcom/ecrivain.h"
#include "platform/progression.h"
#include "reports/conversion_tmao.h"
#include "store/chaines.h"

namespace arbolix {

std::string NettoyerLigneCommande(std::string_view ligne) {
    return Remplacer(SansBlancs(ligne), "\"", "");
}

ActionLigneCommande ActionPourFichier(std::string_view fichier) {
    const std::string fin = EnMajuscules(Droite(fichier, 3));
    if (fin.empty() || fin == "GED") return ActionLigneCommande::Ouvrir;
    if (fin == "EPA") return ActionLigneCommande::ExportSql;
    // Toute extension qui commence par ".TM" : .TM, .TMT...
    const std::string ext = EnMajuscules(std::filesystem::path(std::string(fichier)).extension().string());
    if (ext.rfind(".TM", 0) == 0) return ActionLigneCommande::ConversionTmao;
    return ActionLigneCommande::Syntaxe;
}

int LancerExportSql(std::string_view fichier, std::string& message) {
    Progression muette;
    const ResultatExportSQL r = ExporterSQL(fichier, muette);
    message = r.Erreur;
    return r.Ok ? 0 : 2;
}

int LancerConversionTmao(std::string_view fichier, int mode, Dialogue& dialogue, std::string& message) {
    DemandeConversion d;
    d.Source = std::string(fichier);
    d.Mode = mode;
    d.Date = DateDuJour();
    const ResultatConversion r = ConvertirTMAO(d, dialogue);
    message = r.Erreur;
    return r.Ok || r.Annule ? 0 : 2;
}

std::string MessageSyntaxe(std::string_view executable) {
    const std::filesystem::path p(executable);
    return "Pour ouvrir un fichier \xE0 partir de la ligne de commande :\r\n" +
           (p.parent_path() / p.stem()).string() + " fichier.ged";
}

std::string TitreFiche(std::string_view fichier, bool modifie) {
    std::string t(kTitreProgramme);
    if (fichier.empty()) return t;
    t += " - ";
    t += fichier;
    if (modifie) t += " (modifi\xE9)";
    return t;
}

std::string TitreEnregistre(std::string_view titre) {
    const auto p = titre.find(" (");
    if (p == std::string_view::npos || titre.find("(enr") != std::string_view::npos)
        return std::string(titre);
    return std::string(titre.substr(0, p + 2)) + "enregistr\xE9)";
}

bool DemanderFermeture(const Base& base, Dialogue& dialogue, const std::function<bool()>& enregistrer) {
    if (!base.FichierModifie) return true;
    switch (dialogue.Message(
        "Fermer", "Vous n'avez pas enregistr\xE9 les modifications. Voulez-vous enregistrer le fichier ?",
        Icone::Question, Boutons::OuiNonAnnuler)) {
        case Bouton::Oui:
            return enregistrer();
        case Bouton::Non:
            return true;
        default:
            return false;
    }
}

}  // namespace arbolix
