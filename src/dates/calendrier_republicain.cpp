#include "dates/calendrier_republicain.h"

#include "store/chaines.h"

namespace arbolix {

namespace {

// Jour, mois et année séparés par "/", le mois sur deux caractères : "#*/??/#*".
bool MoisSurDeuxLettres(std::string_view t) {
    if (t.empty() || !EstChiffre(t[0])) return false;
    for (std::size_t i = 1; i + 3 < t.size(); ++i)
        if (t[i] == '/' && t[i + 3] == '/' && i + 4 < t.size() && EstChiffre(t[i + 4])) return true;
    return false;
}

// Index à partir de 0 ; -1 pour un mot dans aucune des deux listes.
int IndexMois(std::string_view mot) {
    for (int i = 1; i <= 13; ++i)
        if (mot == MoisRepublicains[i] || mot == CodesMoisRepublicains[i]) return i - 1;
    return -1;
}

}  // namespace

std::optional<LectureRepublicaine> LireDateRepublicaine(std::string_view texte, bool avecNote) {
    std::string t = Remplacer(texte, "an/", "");
    // a : après la première barre dès le 2e caractère ; b : première barre dès le
    // 5e caractère, le texte prolongé de 4 blancs et d'une barre (positions à partir de 1).
    const std::size_t barreA = t.size() > 1 ? t.find('/', 1) : std::string::npos;
    const std::size_t a = barreA == std::string::npos ? 1 : barreA + 2;
    const std::string prolonge = t + "    /";
    const std::size_t b = prolonge.find('/', 4) + 1;
    if (b < a) return std::nullopt;
    const std::string mot = a - 1 < t.size() ? t.substr(a - 1, b - a) : std::string();

    int m = IndexMois(mot);
    if (m < 0) m = static_cast<int>(a);

    LectureRepublicaine r;
    if (avecNote && MoisSurDeuxLettres(t)) {
        if (m + 1 > 13) return std::nullopt;
        t = Remplacer(t, mot, MoisRepublicains[m + 1]);
    }
    r.note = t;

    // L'année est dans les 2 derniers caractères, après la barre s'il y en a une :
    // "1/vend/2" est l'an II.
    std::string_view fin = Droite(t, 2);
    if (const auto barre = fin.find('/'); barre != std::string_view::npos) fin.remove_prefix(barre + 1);
    const std::int64_t an = ValeurNumerique(fin);
    if (an < 1 || an > 14) return std::nullopt;
    const std::int64_t numero = DebutAnRepublicain[an] + 30LL * m + ValeurNumerique(Gauche(t, 2)) - 1;
    if (numero < INT32_MIN || numero > INT32_MAX) return std::nullopt;
    r.numeroJour = static_cast<std::int32_t>(numero);
    return r;
}

bool FinRepublicaine(std::string_view t) {
    const auto barre = t.rfind('/');
    return barre != std::string_view::npos && barre + 3 >= t.size() && ValeurNumerique(Droite(t, 2)) <= 14;
}

std::optional<std::int32_t> JourDeNoteRepublicaine(std::string_view note) {
    if (note.empty() || !EstChiffre(note[0]) || !FinRepublicaine(note)) return std::nullopt;
    for (char c : note)
        if (!EstChiffre(c) && c != '/' && !(c >= 'a' && c <= 'z')) return std::nullopt;
    const auto lue = LireDateRepublicaine(note, false);
    if (!lue) return std::nullopt;
    return lue->numeroJour;
}

std::string DateRepublicaine(std::int32_t numeroJour) {
    if (numeroJour < DebutAnRepublicain[2] || numeroJour >= DebutAnRepublicain[15]) return {};
    int i = 2;
    while (i != 15 && numeroJour >= DebutAnRepublicain[i]) ++i;
    --i;
    const std::int32_t k = numeroJour - DebutAnRepublicain[i];
    return Zeros(k % 30 + 1, 2) + "/" + std::string(MoisRepublicains[k / 30 + 1]) + "/" + Zeros(i, 2);
}

}  // namespace arbolix
