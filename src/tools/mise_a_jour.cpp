#include "tools/mise_a_jour.h"

#include <cstdio>

#include "platform/ini.h"

namespace arbolix {

namespace {

constexpr const char* kTitreMAJ = "V\xE9rifier la mise \xE0 jour";

std::string Chiffres(int annee, int mois, int jour) {
    char t[16];
    std::snprintf(t, sizeof t, "%04d%02d%02d", annee, mois, jour);
    return t;
}

}  // namespace

std::string VerifDateSuivante(DateCalendrier d) {
    // Un mois plus tard tombe toujours dans le mois suivant, même un 31 : seul le mois compte.
    return d.mois == 12 ? Chiffres(d.annee + 1, 1, 1) : Chiffres(d.annee, d.mois + 1, 1);
}

std::string AdresseMiseAJour(std::string_view version, DateCalendrier d) {
    return std::string(kAdresseMiseAJour) + "index.php?version=" + std::string(version) +
           "&session=" + Chiffres(d.annee, d.mois, d.jour);
}

bool VerifierMiseAJour(const std::filesystem::path& ini, std::string_view programme, std::string_view version,
                       DateCalendrier aujourdhui, bool fichierOuvert, Dialogue& dialogue) {
    EcrireIni(ini, "General", "VerifDate", VerifDateSuivante(aujourdhui));
    const std::string nom(programme);
    const std::string texte =
        nom +
        " va maintenant v\xE9rifier l'existence d'une mise \xE0 jour sur internet.\n"
        "V\xE9rifiez que votre ordinateur est connect\xE9 \xE0 internet, puis cliquez sur OK.\n"
        "Veuillez ensuite relancer " +
        nom + ".";
    if (dialogue.Message(kTitreMAJ, texte, Icone::Information, Boutons::OkAnnuler) != Bouton::Ok)
        return false;
    if (!dialogue.OuvrirDansProgramme(AdresseMiseAJour(version, aujourdhui))) return false;
    if (fichierOuvert)
        dialogue.Message(kTitreMAJ,
                         "Vous devez fermer le fichier ouvert avant de mettre \xE0 jour le logiciel.",
                         Icone::Information);
    return true;
}

}  // namespace arbolix
