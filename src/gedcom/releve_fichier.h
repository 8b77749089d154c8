// Ce que la lecture cherche une fois dans tout le fichier, et le fil qui le cherche pendant
// qu'elle avance.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <unordered_map>
#include <vector>

namespace arbolix {

// Plus grand numéro d'enregistrement accepté : au-delà, la mémoire ne suivrait plus.
constexpr std::int64_t kNumeroMaximal = 99'999'999;

// Début du prochain CR LF de t à partir de depuis, npos s'il n'y en a plus. memchr sur CR seul :
// find("\r\n") comparerait deux octets par un appel à chaque candidat.
inline std::size_t FinDeLigne(std::string_view t, std::size_t depuis) {
    const char* const d = t.data();
    const std::size_t n = t.size();
    while (depuis < n) {
        const auto* cr = static_cast<const char*>(std::memchr(d + depuis, '\r', n - depuis));
        if (!cr) break;
        const auto i = static_cast<std::size_t>(cr - d);
        if (i + 1 < n && d[i + 1] == '\n') return i;
        depuis = i + 1;
    }
    return std::string_view::npos;
}

// Le numéro d'un identifiant à la manière des règles : les caractères de tête sont sautés
// jusqu'au premier chiffre, puis les chiffres lus. -1 s'il n'y a pas de chiffre ou si le nombre
// est démesuré.
std::int64_t NumeroBrut(std::string_view s);
// Le plus grand numéro utilisable des identifiants entre arobases (@I12@) du fichier.
std::int64_t PlusGrandNumero(std::string_view t);

// Les noms des dépôts (0 @R1@ REPO, 1 NAME ...) par identifiant : la fiche REPO peut venir
// après la source qui la cite.
void ReleverDepots(std::string_view t, std::unordered_map<std::string, std::string>& noms);

// Les lettres d'un identifiant avant son premier chiffre ; vide s'il n'a pas de chiffre.
std::string_view PrefixeDe(std::string_view id);
// Le préfixe de l'identifiant d'une fiche lu sur sa ligne 0 ("I12@ INDI" donne "I") ; rien quand
// l'identifiant n'a pas de chiffre : il ne dit rien de ceux qui le désignent.
std::optional<std::string_view> PrefixeDeFiche(std::string_view identifiant);

// Les préfixes des identifiants des fiches INDI et FAM, dans l'ordre du fichier : des fiches
// consécutives de même préfixe n'en font qu'une suite, dont on garde le début de la dernière ligne.
struct PrefixesDesFiches {
    struct Suite {
        std::size_t derniere;
        std::string prefixe;
        friend bool operator==(const Suite&, const Suite&) = default;
    };
    std::vector<Suite> personnes, familles;
};
// Les fiches dont la ligne 0 commence à depuis ou après (une fiche au tout début du texte n'a
// pas de fin de ligne devant elle : elle n'est pas vue).
PrefixesDesFiches ReleverPrefixes(std::string_view t, std::size_t depuis);

struct ReleveFichier {
    std::int64_t plusGrandNumero = 0;
    std::unordered_map<std::string, std::string> nomsDepots;
    PrefixesDesFiches prefixes;
};

// Le relevé fait sur un autre fil, pendant que la lecture avance sur le sien. Le texte ne doit
// ni changer ni être rendu au système tant qu'il court : celui qui veut y toucher l'abandonne.
class ReleveEnFond {
public:
    void Lancer(std::string_view texte);
    bool Lance() const { return lance_; }
    // Vrai tant que le fil lit encore le texte.
    bool EnCours() const { return fil_.joinable() && !fini_.load(std::memory_order_acquire); }
    // Attend la fin du relevé ; nul s'il n'a pas été lancé, a été abandonné ou a échoué.
    ReleveFichier* Attendre();
    // Attend la fin et jette le relevé : ce qui en manquait se cherchera sur le texte changé.
    void Abandonner();

private:
    bool lance_ = false;
    std::unique_ptr<ReleveFichier> releve_;
    std::atomic<bool> fini_{false};
    std::jthread fil_;
};

}  // namespace arbolix
