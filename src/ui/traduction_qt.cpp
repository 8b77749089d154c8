#include "ui/traduction_qt.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace arbolix {

bool ChargerTraductionQt(QCoreApplication& application) {
    auto* traducteur = new QTranslator(&application);
    // Le programme parle français quelle que soit la langue du système : ses boîtes aussi.
    if (!traducteur->load(QLocale(QLocale::French, QLocale::France), "qtbase", "_",
                          QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        delete traducteur;
        return false;
    }
    QCoreApplication::installTranslator(traducteur);
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    return true;
}

}  // namespace arbolix
