#include "cli/sql_cli.h"

#include "acts/export_sql.h"
#include "platform/progression.h"

namespace arbolix::cli {

int CommandeSql(const Arguments& args, Sorties& s) {
    if (args.size() != 1) {
        s.erreurs << "usage : arbolix-cli sql CODE-TITRE.EPA\n";
        return 2;
    }
    Progression muette;
    const ResultatExportSQL r = ExporterSQL(args[0], muette);
    s.erreurs << JournalUtf8(r.Journal);
    if (!r.Ok) {
        s.erreurs << JournalUtf8(r.Erreur) << "\n";
        return 2;
    }
    const CompteursSQL& c = r.Compteurs;
    // Un nombre par ligne, sans séparateur de milliers : les scripts de chargement les relisent.
    s.sortie << "Script SQL : " << r.Script << "\nPersonnes : " << c.NbPersosSQL
             << "\nFamilles : " << c.NbFamisSQL << "\n\xC3\x89v\xC3\xA8nements : " << c.NbEvenements
             << "\nActes : " << c.NbActes
             << "\nAnn\xC3\xA9"
                "es : "
             << c.AnDebut << " \xC3\xA0 " << c.AnFin << "\n";
    return 0;
}

}  // namespace arbolix::cli
