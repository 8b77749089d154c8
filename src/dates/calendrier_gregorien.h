// Calendrier grégorien proleptique : numéros de jour, forme courte jour-mois-année, jour de la semaine.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace arbolix {

struct DateCalendrier {
    int jour = 0;
    int mois = 0;
    int annee = 0;
    friend bool operator==(const DateCalendrier&, const DateCalendrier&) = default;
};

// Années admises, comme pour les dates du fichier : de 100 à 9999.
constexpr int kAnneeMin = 100;
constexpr int kAnneeMax = 9999;

bool EstBissextile(int annee);
int JoursDuMois(int mois, int annee);

// Numéro du jour, 0 pour le 30/12/1899 (négatif avant) : c'est l'échelle de la
// table des années républicaines. La date doit être valide.
std::int32_t NumeroJour(const DateCalendrier& d);

// Date du numéro ; vide hors des années 100 à 9999.
std::optional<DateCalendrier> DateDuNumero(std::int64_t numero);

// "dd/mm/yyyy", la forme que le programme écrit toujours.
std::string FormatDateCourte(const DateCalendrier& d);

// Lit exactement "dd/mm/yyyy" (jour et mois sur un ou deux chiffres) ; vide si la date
// n'existe pas ou sort des années admises.
std::optional<DateCalendrier> LireDateCourte(std::string_view texte);

// La date locale de la machine.
DateCalendrier DateMachine();

// 0 pour dimanche à 6 pour samedi.
int JourDeLaSemaine(std::int32_t numero);

}  // namespace arbolix
