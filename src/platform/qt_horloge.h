// L'heure de la machine dans l'unité des dates de modification de la base.
#pragma once

#include <QDateTime>

#include "dates/calendrier_gregorien.h"

namespace arbolix {

// Jours depuis le 30/12/1899, maintenant, la fraction donnant l'heure.
inline double Maintenant() {
    const QDateTime t = QDateTime::currentDateTime();
    const QDate d = t.date();
    return NumeroJour({d.day(), d.month(), d.year()}) + t.time().msecsSinceStartOfDay() / 86400000.0;
}

}  // namespace arbolix
