#include "gedcom/releve_fichier.h"

#include <algorithm>
#include <system_error>

#include "store/chaines.h"

namespace arbolix {

std::int64_t NumeroBrut(std::string_view s) {
    while (s.size() > 1 && !EstChiffre(s[0])) s.remove_prefix(1);
    if (s.empty() || !EstChiffre(s[0])) return -1;
    const std::int64_t n = ValeurNumerique(s);
    return n > kNumeroMaximal ? -1 : n;
}

std::int64_t PlusGrandNumero(std::string_view t) {
    std::int64_t plusGrand = 0;
    const char* const d = t.data();
    const std::size_t n = t.size();
    for (std::size_t a = t.find('@'); a != std::string_view::npos; a = t.find('@', a + 1)) {
        // Jusqu'à l'arobase qui ferme, ou au blanc ou à la fin de ligne qui dit qu'il n'y en a pas :
        // une boucle simple, find_first_of chercherait chaque octet dans les quatre.
        std::size_t b = a + 1;
        while (b < n && d[b] != '@' && d[b] != ' ' && d[b] != '\r' && d[b] != '\n') ++b;
        if (b >= n || d[b] != '@') continue;
        plusGrand = std::max(plusGrand, NumeroBrut(t.substr(a + 1, b - a - 1)));
        a = b;
    }
    return plusGrand;
}

void ReleverDepots(std::string_view t, std::unordered_map<std::string, std::string>& noms) {
    // On cherche « REPO » plutôt que chaque ligne 0 : un fichier a des millions de fiches et
    // peu de dépôts, ou aucun.
    for (std::size_t r = Chercher(t, " REPO"); r != std::string_view::npos;) {
        const std::size_t a = t.rfind("\r\n", r);
        std::size_t fin = std::min(t.find("\r\n", r), t.size());
        r = fin < t.size() ? Chercher(t, " REPO", fin) : std::string_view::npos;
        if (a == std::string_view::npos || t.substr(a + 2, 3) != "0 @") continue;
        const std::string_view ligne = SansBlancs(t.substr(a + 2, fin - a - 2));
        if (Droite(ligne, 5) != " REPO") continue;
        const std::string id(ligne.substr(3, ligne.find('@', 3) - 3));
        while (fin + 2 < t.size() && t[fin + 2] != '0') {
            const std::size_t suivante = std::min(t.find("\r\n", fin + 2), t.size());
            const std::string_view sous = SansBlancs(t.substr(fin + 2, suivante - fin - 2));
            if (sous.starts_with("1 NAME ")) {
                noms.try_emplace(id, SansBlancs(sous.substr(7)));
                break;
            }
            fin = suivante;
        }
    }
}

std::string_view PrefixeDe(std::string_view id) {
    while (!id.empty() && id.front() == '@') id.remove_prefix(1);
    id = id.substr(0, id.find('@'));
    const auto chiffre = id.find_first_of("0123456789");
    return chiffre == std::string_view::npos ? std::string_view{} : id.substr(0, chiffre);
}

std::optional<std::string_view> PrefixeDeFiche(std::string_view identifiant) {
    const auto id = identifiant.substr(0, identifiant.find('@'));
    if (id.find_first_of("0123456789") == std::string_view::npos) return std::nullopt;
    return PrefixeDe(id);
}

namespace {

void AjouterFiche(std::vector<PrefixesDesFiches::Suite>& suites, std::string_view identifiant,
                  std::size_t ligne) {
    const auto p = PrefixeDeFiche(identifiant);
    if (!p) return;
    if (!suites.empty() && suites.back().prefixe == *p)
        suites.back().derniere = ligne;
    else
        suites.push_back({ligne, std::string(*p)});
}

}  // namespace

PrefixesDesFiches ReleverPrefixes(std::string_view t, std::size_t depuis) {
    PrefixesDesFiches r;
    // Une fiche commence par « \r\n0 @ » : on va d'arobase en arobase, deux fois plus rares que
    // les fins de ligne, et on regarde ce qui les précède.
    for (std::size_t q = t.find('@', (depuis >= 2 ? depuis - 2 : 0) + 4); q != std::string_view::npos;
         q = t.find('@', q + 1)) {
        if (t.substr(q - 4, 4) != "\r\n0 ") continue;
        const std::size_t debut = q - 2;
        const std::size_t fin = FinDeLigne(t, debut);
        const std::string_view ligne = t.substr(debut, fin - debut);
        const std::string_view id = Depuis(ligne, 4);
        if (Droite(ligne, 5) == " INDI")
            AjouterFiche(r.personnes, id, debut);
        else if (Droite(ligne, 4) == " FAM")
            AjouterFiche(r.familles, id, debut);
    }
    return r;
}

void ReleveEnFond::Lancer(std::string_view texte) {
    lance_ = true;
    releve_ = std::make_unique<ReleveFichier>();
    fini_.store(false, std::memory_order_relaxed);
    try {
        fil_ = std::jthread([this, texte] {
            try {
                releve_->plusGrandNumero = PlusGrandNumero(texte);
                ReleverDepots(texte, releve_->nomsDepots);
                releve_->prefixes = ReleverPrefixes(texte, 0);
            } catch (...) {
                releve_.reset();  // la mémoire a manqué : chacun se cherchera sur place, au besoin
            }
            fini_.store(true, std::memory_order_release);
        });
    } catch (const std::system_error&) {
        releve_.reset();  // pas de second fil : même repli
    }
}

ReleveFichier* ReleveEnFond::Attendre() {
    if (fil_.joinable()) fil_.join();
    return releve_.get();
}

void ReleveEnFond::Abandonner() {
    Attendre();
    releve_.reset();
}

}  // namespace arbolix
