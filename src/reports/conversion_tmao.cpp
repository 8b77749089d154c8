#include "reports/conversion_tmao.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "gedcom/enregistrement.h"
#include "platform/cp1252.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

std::optional<std::string> Produire(int mode, const std::vector<ActeTMAO>& actes, const EnteteConversion& e) {
    switch (mode) {
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
