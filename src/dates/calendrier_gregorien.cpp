#include "dates/calendrier_gregorien.h"

#include <ctime>

#include "store/chaines.h"

namespace arbolix {

namespace {

// Jours entre le 01/03/0000 et le 30/12/1899, pour passer à l'origine voulue.
constexpr std::int64_t kDecalageOrigine = 693899;

// Jours depuis le 01/03/0000 (années de mars à février : février tombe en fin d'année).
std::int64_t JoursDepuisMars0(int jour, int mois, int annee) {
    const std::int64_t a = mois <= 2 ? annee - 1 : annee;
    const std::int64_t m = mois <= 2 ? mois + 9 : mois - 3;
    return 365 * a + a / 4 - a / 100 + a / 400 + (153 * m + 2) / 5 + jour - 1;
}

}  // namespace

bool EstBissextile(int annee) {
    return (annee % 4 == 0 && annee % 100 != 0) || annee % 400 == 0;
}

int JoursDuMois(int mois, int annee) {
    static constexpr int kJours[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (mois < 1 || mois > 12) return 0;
    return mois == 2 && EstBissextile(annee) ? 29 : kJours[mois - 1];
}

std::int32_t NumeroJour(const DateCalendrier& d) {
    return static_cast<std::int32_t>(JoursDepuisMars0(d.jour, d.mois, d.annee) - kDecalageOrigine);
}

std::optional<DateCalendrier> DateDuNumero(std::int64_t numero) {
    static const std::int64_t kMin = JoursDepuisMars0(1, 1, kAnneeMin) - kDecalageOrigine;
    static const std::int64_t kMax = JoursDepuisMars0(31, 12, kAnneeMax) - kDecalageOrigine;
    if (numero < kMin || numero > kMax) return std::nullopt;
    // Jours depuis le 01/03/0000, découpés en cycles de 400 ans, de 100 ans, de 4 ans.
    const std::int64_t z = numero + kDecalageOrigine;
    const std::int64_t cycle = z / 146097;
    const std::int64_t j400 = z - cycle * 146097;
    const std::int64_t an400 = (j400 - j400 / 1460 + j400 / 36524 - j400 / 146096) / 365;
    const std::int64_t jAn = j400 - (365 * an400 + an400 / 4 - an400 / 100);
    const std::int64_t mp = (5 * jAn + 2) / 153;
    DateCalendrier d;
    d.jour = static_cast<int>(jAn - (153 * mp + 2) / 5 + 1);
    d.mois = static_cast<int>(mp < 10 ? mp + 3 : mp - 9);
    d.annee = static_cast<int>(an400 + cycle * 400 + (d.mois <= 2 ? 1 : 0));
    return d;
}

std::string FormatDateCourte(const DateCalendrier& d) {
    return Zeros(d.jour, 2) + "/" + Zeros(d.mois, 2) + "/" + Zeros(d.annee, 4);
}

std::optional<DateCalendrier> LireDateCourte(std::string_view texte) {
    int champs[3] = {0, 0, 0};
    int chiffres[3] = {0, 0, 0};
    int i = 0;
    for (const char c : texte) {
        if (c == '/' && i < 2) {
            ++i;
        } else if (c >= '0' && c <= '9' && chiffres[i] < 4) {
            champs[i] = champs[i] * 10 + (c - '0');
            ++chiffres[i];
        } else {
            return {};
        }
    }
    const DateCalendrier d{champs[0], champs[1], champs[2]};
    if (i != 2 || chiffres[0] > 2 || chiffres[1] > 2 || chiffres[2] != 4) return {};
    if (d.annee < kAnneeMin || d.annee > kAnneeMax || d.jour < 1 || d.jour > JoursDuMois(d.mois, d.annee))
        return {};
    return d;
}

DateCalendrier DateMachine() {
    const std::time_t t = std::time(nullptr);
    std::tm local{};
    localtime_r(&t, &local);
    return {local.tm_mday, local.tm_mon + 1, local.tm_year + 1900};
}

int JourDeLaSemaine(std::int32_t numero) {
    // Le numéro 1, 31/12/1899, est un dimanche.
    return static_cast<int>(((static_cast<std::int64_t>(numero) - 1) % 7 + 7) % 7);
}

}  // namespace arbolix
