// L'heure de la machine dans l'unité des dates de modification de la base.
#pragma once

#include <QDateTime>

namespace arbolix {

// Jours depuis le 30/12/1899, maintenant, la fraction donnant l'heure. Le compte des jours
// est celui de Qt : la plateforme ne s'appuie sur aucune couche du noyau.
inline double Maintenant() {
    const QDateTime t = QDateTime::currentDateTime();
    const qint64 jours = t.date().toJulianDay() - QDate(1899, 12, 30).toJulianDay();
    return static_cast<double>(jours) + t.time().msecsSinceStartOfDay() / 86400000.0;
}

}  // namespace arbolix
