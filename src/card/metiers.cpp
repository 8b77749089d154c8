#include "card/metiers.h"

#include <string>

#include "store/chaines.h"

namespace arbolix {

namespace {

// Les codes servent à raccourcir la liste des métiers : une entrée par début de métier.
void AjouterCode(Texte& codes, std::string_view metier) {
    const std::string_view code = Gauche(metier, 2);
    if (code.empty() || Chercher(codes.vue(), code) != std::string_view::npos) return;
    if (!codes.empty()) codes += ",";
    codes += code;
}

}  // namespace

std::vector<std::string> PartiesMetier(std::string_view texte) {
    if (Chercher(texte, " puis ") == std::string_view::npos && Chercher(texte, ",") == std::string_view::npos)
        return {std::string(texte)};
    std::vector<std::string> parties;
    const std::string joint = Remplacer(texte, " puis ", ",");
    std::size_t debut = 0;
    while (debut <= joint.size()) {
        std::size_t fin = joint.find(',', debut);
        if (fin == std::string::npos) fin = joint.size();
        parties.emplace_back(SansBlancs(std::string_view(joint).substr(debut, fin - debut)));
        debut = fin + 1;
    }
    return parties;
}

void EnregistrerMetier(Perso& p, std::string_view texte, ListeChoix& liste) {
    p.Metier = texte;
    AjouterCode(p.CodesMetiers, texte);
    for (const auto& partie : PartiesMetier(texte)) {
        liste.Ajouter(partie);
        AjouterCode(p.CodesMetiers, partie);
    }
}

}  // namespace arbolix
