#include "app/messages.h"

#include <array>
#include <fstream>
#include <iterator>

#include "app/partage.h"

namespace arbolix {
namespace {

namespace fs = std::filesystem;

struct BlocFenetre {
    std::string_view nom;
    int base;
};
constexpr std::array<BlocFenetre, 12> kBlocs{{
    {"Fiche", 3},
    {"Arbre", 101},
    {"Editeur", 131},
    {"Evenement", 141},
    {"Exports", 161},
    {"Gedcom", 201},
    {"InputMsgBox", 221},
    {"ListeChoix", 231},
    {"Options", 241},
    {"Personne", 321},
    {"Pr", 331},
    {"RechActe", 351},
}};

}  // namespace

fs::path CheminMessages(const fs::path& dossierExecutable, int codeLangue) {
    return CheminPartage(dossierExecutable, "messages" + std::to_string(codeLangue) + ".txt");
}

int BaseFenetre(std::string_view nom) {
    for (const auto& b : kBlocs)
        if (b.nom == nom) return b.base;
    return -1;
}

bool Messages::Charger(const fs::path& fichier, Dialogue& dialogue, int codeLangue) {
    lignes_.clear();
    std::ifstream f(fichier, std::ios::binary);
    if (!f) {
        dialogue.Message("Missing translation",
                         "Your language " + std::to_string(codeLangue) +
                             " is not handled by the program yet. Please contact the author.",
                         Icone::Information);
        return false;
    }
    Decouper(std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()));
    return true;
}

void Messages::Decouper(std::string_view contenu) {
    lignes_.clear();
    std::size_t debut = 0;
    for (auto p = contenu.find("\r\n"); p != std::string_view::npos; p = contenu.find("\r\n", debut)) {
        lignes_.emplace_back(contenu.substr(debut, p - debut));
        debut = p + 2;
    }
    lignes_.emplace_back(contenu.substr(debut));
}

const std::string& Messages::operator()(int n) const {
    static const std::string kVide;
    return n >= 0 && static_cast<std::size_t>(n) < lignes_.size() ? lignes_[static_cast<std::size_t>(n)]
                                                                  : kVide;
}

}  // namespace arbolix
