#include "lists/rangees.h"

#include <algorithm>

#include "store/chaines.h"

namespace arbolix {

void AjouterSixChiffres(std::string& texte, std::int64_t numero) {
    if (numero < 0 || numero > 999999) {
        texte += Zeros(numero, 6);
        return;
    }
    char chiffres[6];
    for (int i = 5; i >= 0; --i, numero /= 10) chiffres[i] = static_cast<char>('0' + numero % 10);
    texte.append(chiffres, 6);
}

void AjouterQueue(std::string& texte, char genre, std::int64_t numero) {
    texte += ' ';
    texte += genre;
    AjouterSixChiffres(texte, numero);
}

std::string Queue(char genre, std::int64_t numero) {
    std::string q;
    AjouterQueue(q, genre, numero);
    return q;
}

LectureQueue LireQueue(std::string_view rangee) {
    if (rangee.size() < 7) return {};
    return {rangee[rangee.size() - 7], static_cast<std::int32_t>(ValeurNumerique(Droite(rangee, 6)))};
}

std::int32_t ConjointDeRangee(std::string_view rangee) {
    if (rangee.size() < 14) return 0;
    return static_cast<std::int32_t>(ValeurNumerique(rangee.substr(rangee.size() - 14, 6)));
}

void OuvrirListe(ListePersonne& liste, std::string_view genre, std::string_view titre,
                 std::string_view premiereLigne, bool vider) {
    if (vider) {
        liste.Rangees.clear();
        liste.LigneDeTete = false;
    }
    liste.Titre = titre;
    liste.Genre = genre;
    if (!premiereLigne.empty()) {
        liste.Rangees.insert(liste.Rangees.begin(), Rangee{std::string(premiereLigne), 0});
        liste.LigneDeTete = true;
    }
}

std::size_t AjouterTriee(ListePersonne& liste, std::string texte, std::int32_t valeur) {
    const auto debut = liste.Rangees.begin() + (liste.LigneDeTete ? 1 : 0);
    const auto place = std::upper_bound(debut, liste.Rangees.end(), texte,
                                        [](const std::string& t, const Rangee& r) { return t < r.texte; });
    // L'insertion peut déplacer le tableau : la place se compte après.
    const auto insere = liste.Rangees.insert(place, Rangee{std::move(texte), valeur});
    return static_cast<std::size_t>(insere - liste.Rangees.begin());
}

void AjouterTriees(ListePersonne& liste, std::vector<Rangee> rangees) {
    std::stable_sort(rangees.begin(), rangees.end(),
                     [](const Rangee& a, const Rangee& b) { return a.texte < b.texte; });
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        for (auto& r : rangees) AjouterTriee(liste, std::move(r.texte), r.valeur);
        return;
    }
    liste.Rangees.reserve(liste.Rangees.size() + rangees.size());
    for (auto& r : rangees) liste.Rangees.push_back(std::move(r));
}

void RemplissageTrie::Terminer(ListePersonne& liste,
                               const std::function<std::string(std::int32_t)>& affichage) {
    // std::string compare les octets sans signe : l'ordre « simple » des caractères 1252.
    std::stable_sort(cles_.begin(), cles_.end(),
                     [](const Rangee& a, const Rangee& b) { return a.texte < b.texte; });
    const std::size_t tete = liste.LigneDeTete ? 1 : 0;
    if (liste.Rangees.size() > tete) {
        // Liste non vidée : chaque clé prend sa place parmi les textes déjà là, comme
        // l'insertion triée du contrôle ; puis son texte est récrit sans la bouger.
        for (auto& r : cles_) {
            const std::size_t i = AjouterTriee(liste, std::move(r.texte), r.valeur);
            liste.Rangees[i].texte = affichage(r.valeur);
        }
    } else {
        liste.Rangees.reserve(liste.Rangees.size() + cles_.size());
        for (auto& r : cles_) liste.Rangees.push_back({affichage(r.valeur), r.valeur});
    }
    cles_.clear();
}

}  // namespace arbolix
