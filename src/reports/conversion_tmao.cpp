#include "reports/conversion_tmao.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "gedcom/enregistrement.h"
#include "platform/cp1252.h"
#include "reports/rtf.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

// Le cercle de la page de titre, d'après les deux premiers chiffres du code du fichier.
std::string Departement(std::string_view source) {
    const auto debut = source.find_first_of("0123456789");
    const std::string code(debut == std::string_view::npos ? std::string_view() : source.substr(debut, 2));
    const struct {
        const char* code;
        const char* nom;
    } cercles[] = {{"54", "MEURTHE-ET-MOSELLE"}, {"55", "MEUSE"}, {"57", "MOSELLE"}};
    for (const auto& c : cercles)
        if (code == c.code) return c.nom;
    return code;
}

void Champs(std::string& o, const std::array<std::string, 4>& lignes) {
    bool premier = true;
    for (const auto& l : lignes) {
        if (l.empty()) continue;
        o.append(premier ? "" : " ; ");
        AjouterRTF(o, l);
        premier = false;
    }
}

std::optional<std::string> Produire(int mode, const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    switch (mode) {
        case kConvRtf:
            return RtfTMAO(actes, e);
        case kConvTexte:
            return TexteTMAO(actes, e);
        case kConvGedcom:
            return GedcomTMAO(actes, e);
        case kConvTabule:
            return TabuleTMAO(actes, e);
        case kConvColonnes:
            return ColonnesTMAO(actes, e);
        default:
            return std::nullopt;
    }
}

bool LireOctets(const std::string& chemin, std::string& octets) {
    std::ifstream f(chemin, std::ios::binary);
    if (!f) return false;
    octets.assign(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
    return !f.bad();
}

ResultatConversion Convertir(const DemandeConversion& d, Dialogue& dialogue) {
    ResultatConversion r;
    std::string source = d.Source;
    if (source.empty()) {
        const auto choisi = dialogue.ChoisirFichierOuvrir("Fichier TMAO \xE0 lire...",
                                                          "Fichiers TMAO (*.TM)|*.TM", d.Dossier);
        if (!choisi || choisi->empty()) {
            r.Annule = true;
            return r;
        }
        source = *choisi;
    }
    const std::string nom = Utf8VersCp1252(fs::path(source).filename().string());
    if (ExtensionConversion(d.Mode).empty()) {
        r.Erreur = "Mode de conversion inconnu : " + std::to_string(d.Mode) + " (0 \xE0 4).";
        return r;
    }
    std::string octets;
    if (!fs::is_regular_file(source) || !LireOctets(source, octets)) {
        r.Erreur = "Le fichier TMAO " + Utf8VersCp1252(source) + " ne peut pas \xEAtre lu.";
        return r;
    }
    const std::optional<std::string> sortie =
        d.Sortie ? d.Sortie : NomSortieConversion(source, d.Mode, dialogue);
    EnteteConversion e{nom, d.Type, d.Lieu.value_or(""), d.Date};
    std::optional<std::string> lieu = d.Lieu;
    if (sortie && d.Mode == kConvGedcom && !lieu) lieu = DemanderLieuTMAO(dialogue);
    if (!sortie || (d.Mode == kConvGedcom && !lieu)) {
        r.Annule = true;
        return r;
    }
    e.Lieu = lieu.value_or("");
    LectureTMAO l = LireTMAO(octets, nom);
    if (!l.Ok) {
        r.Erreur = std::move(l.Erreur);
        return r;
    }
    if (e.Type == 0) e.Type = TypeDansPied(octets);
    if (e.Type == 0) e.Type = DemanderTypeActe(dialogue);
    const std::optional<std::string> texte = Produire(d.Mode, l.Actes, e);
    if (!texte) {
        r.Erreur = "Mode de conversion inconnu : " + std::to_string(d.Mode) + ".";
        return r;
    }
    const EtatFichier etat = EcrireFichierSur(*sortie, [&](std::ostream& o) {
        o.write(texte->data(), static_cast<std::streamsize>(texte->size()));
        return static_cast<bool>(o);
    });
    if (!etat.Ok) {
        r.Erreur = etat.Message;
        return r;
    }
    r.Ok = true;
    r.Sortie = *sortie;
    r.NbActes = l.Actes.size();
    return r;
}

}  // namespace

std::string RtfTMAO(const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    // Une table n'a ni fiche ni réglage : l'en-tête commun avec ses valeurs par défaut.
    Base base;
    const Options options;
    const OptionsExport exports;
    ContexteExport ctx{base, options, exports, LireDateCourte(e.Date).value_or(DateCalendrier{})};
    TexteRapport f(kFichierRtf);
    OuvrirRTF(ctx, f, false, false, false, 4);
    std::string& o = f.Octets();
    o += "{\\box \\brdrw15 CERCLE G\xC9N\xC9"
         "ALOGIQUE DE ";
    AjouterRTF(o, Departement(e.Source));
    o += "\\par {\\fs20 REPRODUCTION  INTERDITE \\par }}\\page \\qc {\\fs36 TABLE DES " +
         EchapperRTF(Depuis(TitreTable(e.Type), 11)) + "}\\par {\\fs24 " + EchapperRTF(e.Source) +
         "}\\par \\ql \r\n";
    for (std::size_t i = 0; i < actes.size(); ++i) {
        const ActeTMAO& a = actes[i];
        if (i > 0) o += "{\\fs8{\\par \\brdrb\\brdrs\\par }\\par }\\keep ";
        o += "{\\b " + EchapperRTF(DateActeTMAO(a)) + "}\\tab {\\b " + EchapperRTF(a.Nom1) + "} " +
             EchapperRTF(a.Prenom1) + "\\tab {\\b " + EchapperRTF(a.Nom2) + "} " + EchapperRTF(a.Prenom2) +
             "\\par \\tab ";
        Champs(o, a.Lignes1);
        o += "\\tab ";
        Champs(o, a.Lignes2);
        o += "\\par \\tab ";
        Champs(o, a.LignesActe);
        o += "\\par \r\n";
    }
    o += "\\par " + std::to_string(actes.size()) + " actes}";
    return f.Fermer();
}

ResultatConversion ConvertirTMAO(const DemandeConversion& demande, Dialogue& dialogue) {
    try {
        return Convertir(demande, dialogue);
    } catch (const std::exception& e) {
        ResultatConversion r;
        r.Erreur = "Conversion du fichier TMAO " + Utf8VersCp1252(demande.Source) + " : " + e.what();
        return r;
    }
}

}  // namespace arbolix
