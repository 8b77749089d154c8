#include "store/chaines.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

#include "platform/en_meme_temps.h"

namespace arbolix {

std::int64_t ValeurNumerique(std::string_view s) {
    // Comme la lecture numérique des anciens programmes : blancs, tabulations
    // et sauts de ligne ne comptent pas, même entre les chiffres.
    constexpr std::int64_t kPlafond = std::numeric_limits<std::int64_t>::max() / 10 - 10;
    std::int64_t n = 0;
    for (char c : s) {
        if (c == ' ' || c == '\t' || c == '\n' || c == '\r') continue;
        if (!EstChiffre(c)) break;
        if (n < kPlafond) n = n * 10 + (c - '0');
    }
    return n;
}

std::string_view SansBlancsGauche(std::string_view s) {
    const auto p = s.find_first_not_of(' ');
    return p == std::string_view::npos ? std::string_view{} : s.substr(p);
}

std::string_view SansBlancsDroite(std::string_view s) {
    const auto p = s.find_last_not_of(' ');
    return p == std::string_view::npos ? std::string_view{} : s.substr(0, p + 1);
}

std::string_view SansBlancs(std::string_view s) {
    return SansBlancsDroite(SansBlancsGauche(s));
}

std::string_view Droite(std::string_view s, std::size_t n) {
    return n >= s.size() ? s : s.substr(s.size() - n);
}
std::string_view Gauche(std::string_view s, std::size_t n) {
    return s.substr(0, n);
}
std::string_view Depuis(std::string_view s, std::size_t debut) {
    if (debut < 1) debut = 1;
    return debut > s.size() ? std::string_view{} : s.substr(debut - 1);
}

std::size_t Chercher(std::string_view s, std::string_view motif, std::size_t depuis) {
    if (depuis > s.size() || motif.empty() || motif.size() > s.size() - depuis) return std::string_view::npos;
    if (s.size() - depuis < 256) return s.find(motif, depuis);  // un texte court : find suffit
    // Un octet rare du motif (« @ » d'un pointeur, tabulation, barre inverse, point) : memchr
    // saute d'une occurrence à l'autre bien plus vite que memmem, chaque candidat vérifié en entier.
    const std::size_t rare = motif.find_first_of("\\\t@.");
    if (rare != std::string_view::npos && motif.size() > 1) {
        const char* const fin = s.data() + s.size();
        for (const char* q = s.data() + depuis + rare;
             (q = static_cast<const char*>(std::memchr(q, motif[rare], static_cast<std::size_t>(fin - q))));
             ++q) {
            const char* const debut = q - rare;
            if (static_cast<std::size_t>(fin - debut) < motif.size()) break;
            if (std::memcmp(debut, motif.data(), motif.size()) == 0)
                return static_cast<std::size_t>(debut - s.data());
        }
        return std::string_view::npos;
    }
    // memmem (algorithme à deux sens) : bien plus rapide que find quand le
    // premier caractère du motif, souvent un blanc, revient à chaque ligne.
    const void* p = memmem(s.data() + depuis, s.size() - depuis, motif.data(), motif.size());
    return p ? static_cast<std::size_t>(static_cast<const char*>(p) - s.data()) : std::string_view::npos;
}

std::size_t RemplacerAux(std::string& s, const std::vector<std::size_t>& places, std::string_view de,
                         std::string_view vers) {
    const std::size_t n = places.size();
    if (n == 0) return 0;
    char* d = s.data();
    if (vers.size() > de.size()) {
        // Le texte grandit : une seule mise à la taille finale et un remplissage depuis la fin, sur
        // place quand la capacité suffit. Une chaîne neuve allongée au fil des ajouts recopiait
        // plusieurs fois un tampon de centaines de mégaoctets.
        const std::size_t ancienne = s.size();
        const std::size_t ajout = n * (vers.size() - de.size());
        if (s.capacity() < ancienne + ajout) s.reserve(ancienne + ajout);
        s.resize(ancienne + ajout);
        d = s.data();
        std::size_t r = ancienne;  // fin du morceau d'origine encore à placer
        std::size_t w = s.size();  // fin de l'écriture
        for (std::size_t k = n; k-- > 0;) {
            const std::size_t fin = places[k] + de.size();
            w -= r - fin;
            std::memmove(d + w, d + fin, r - fin);
            w -= vers.size();
            std::memcpy(d + w, vers.data(), vers.size());
            r = places[k];
        }
        return n;
    }
    // Le texte ne grandit pas : on tasse sur place, l'écriture derrière la lecture.
    std::size_t r = places[0];
    std::size_t w = places[0];
    for (const std::size_t p : places) {
        if (w != r) std::memmove(d + w, d + r, p - r);
        w += p - r;
        std::memcpy(d + w, vers.data(), vers.size());
        w += vers.size();
        r = p + de.size();
    }
    if (w != r) std::memmove(d + w, d + r, s.size() - r);
    s.resize(w + (s.size() - r));
    return n;
}

namespace {

// Les places de motif qui commencent entre depuis et avant. Le texte regardé s'arrête là où
// une place ne pourrait plus commencer avant avant : la première moitié ne lit pas la seconde.
std::vector<std::size_t> PlacesAvant(std::string_view s, std::string_view motif, std::size_t depuis,
                                     std::size_t avant) {
    std::vector<std::size_t> v;
    const std::string_view vue = s.substr(0, std::min(s.size(), avant + motif.size() - 1));
    for (std::size_t p = Chercher(vue, motif, depuis); p != std::string_view::npos;
         p = Chercher(vue, motif, p + motif.size()))
        v.push_back(p);
    return v;
}

}  // namespace

std::vector<std::size_t> Places(std::string_view s, std::string_view motif, std::size_t depuis) {
    if (motif.empty() || depuis >= s.size()) return {};
    if (s.size() - depuis < kSeuilDeuxMoities) return PlacesAvant(s, motif, depuis, s.size());
    auto [v, suite] = EnDeuxMoities(
        depuis, s.size(), [&](std::size_t de, std::size_t a) { return PlacesAvant(s, motif, de, a); });
    // Une dernière place de la première moitié qui déborde sur la seconde en écarte la
    // première place de celle-ci : la seconde moitié se reprend alors derrière elle.
    const std::size_t milieu = Milieu(depuis, s.size());
    const std::size_t reprise = v.empty() ? milieu : std::max(milieu, v.back() + motif.size());
    if (!suite.empty() && suite.front() < reprise) suite = PlacesAvant(s, motif, reprise, s.size());
    v.insert(v.end(), suite.begin(), suite.end());
    return std::move(v);
}

bool Contient(std::string_view s, std::string_view motif) {
    if (motif.empty()) return Chercher(s, motif) != std::string_view::npos;
    // Chaque moitié regarde les places qui y commencent.
    return DansUneMoitie(0, s.size(), [&](std::size_t de, std::size_t a) {
        return Chercher(s.substr(0, a + motif.size() - 1), motif, de) != std::string_view::npos;
    });
}

std::size_t RemplacerTout(std::string& s, std::string_view de, std::string_view vers, std::size_t depuis) {
    if (de.empty() || depuis >= s.size()) return 0;
    return RemplacerAux(s, Places(s, de, depuis), de, vers);
}

std::string Remplacer(std::string_view s, std::string_view de, std::string_view vers) {
    std::string r(s);
    RemplacerTout(r, de, vers);
    return r;
}

bool Comme(std::string_view texte, std::string_view motif) {
    // Parcours glouton avec retour au dernier "*" : linéaire en pratique, sans récursion.
    std::size_t t = 0, m = 0, etoileM = std::string_view::npos, etoileT = 0;
    while (t < texte.size()) {
        if (m < motif.size() && motif[m] == '*') {
            etoileM = m++;
            etoileT = t;
        } else if (m < motif.size() && (motif[m] == '?' || (motif[m] == '#' && EstChiffre(texte[t])) ||
                                        (motif[m] != '#' && motif[m] == texte[t]))) {
            ++m;
            ++t;
        } else if (etoileM != std::string_view::npos) {
            m = etoileM + 1;
            t = ++etoileT;
        } else {
            return false;
        }
    }
    while (m < motif.size() && motif[m] == '*') ++m;
    return m == motif.size();
}

char Minuscule1252(char c) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 'A' && u <= 'Z') return static_cast<char>(u + 32);
    if (u == 0x8A || u == 0x8C || u == 0x8E) return static_cast<char>(u + 16);  // Š Œ Ž
    if (u == 0x9F) return static_cast<char>(0xFF);                              // Ÿ
    if (u >= 0xC0 && u <= 0xDE && u != 0xD7) return static_cast<char>(u + 32);
    return c;
}

char Majuscule1252(char c) {
    const auto u = static_cast<unsigned char>(c);
    if (u >= 'a' && u <= 'z') return static_cast<char>(u - 32);
    if (u == 0x9A || u == 0x9C || u == 0x9E) return static_cast<char>(u - 16);
    if (u == 0xFF) return static_cast<char>(0x9F);
    if (u >= 0xE0 && u <= 0xFE && u != 0xF7) return static_cast<char>(u - 32);
    return c;
}

std::string EnMinuscules(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = Minuscule1252(c);
    return r;
}

std::string EnMajuscules(std::string_view s) {
    std::string r(s);
    for (char& c : r) c = Majuscule1252(c);
    return r;
}

bool EstNumerique(std::string_view s) {
    if (s.empty()) return false;
    for (char c : s)
        if (!EstChiffre(c)) return false;
    return true;
}

std::string Zeros(std::int64_t n, int chiffres) {
    // Sans printf : la lecture d'une date l'appelle douze fois.
    const bool negatif = n < 0;
    const unsigned long long absolu =
        negatif ? 0ULL - static_cast<unsigned long long>(n) : static_cast<unsigned long long>(n);
    std::string r = std::to_string(absolu);
    const std::size_t largeur =
        chiffres > static_cast<int>(negatif) ? static_cast<std::size_t>(chiffres - negatif) : 0;
    if (r.size() < largeur) r.insert(0, largeur - r.size(), '0');
    if (negatif) r.insert(0, 1, '-');
    return r;
}

std::string SansDoublesBlancs(std::string_view s) {
    std::string r;
    r.reserve(s.size());
    for (char c : s)
        if (!(c == ' ' && !r.empty() && r.back() == ' ')) r += c;
    return r;
}

}  // namespace arbolix
