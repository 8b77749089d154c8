// Le site HTML d'un grand fichier : temps (écoulé et processeur), nombre de fichiers et mégaoctets.
//
// bench_site [GRAND.ged] [DOSSIER]
// Le fichier vient de gen_gedcom.py --persons 100000 --seed 1, gardé dans /tmp ; le site va dans
// DOSSIER (/tmp/arbolix-banc-site par défaut), effacé à la fin.
#include "reports/site.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include "charger.h"
#include "mesures.h"

using namespace arbolix;

int main(int argc, char** argv) {
    const std::string chemin = argc > 1 ? argv[1] : "/tmp/arbolix-reel-100000.ged";
    const std::filesystem::path dossier = argc > 2 ? argv[2] : "/tmp/arbolix-banc-site";
    Base base;
    if (!bench::ChargerEtAnnoncer(base, chemin)) return 1;
    Options options;
    OptionsExport exports;
    exports.FichierExport = (dossier / "index.html").string();
    exports.TitreExport = "Banc";
    ContexteExport ctx{base, options, exports, {23, 11, 2026}};
    ctx.TypeExport = kPagesHtml;
    std::filesystem::remove_all(dossier);
    bench::Chrono c;
    bench::Processeur processeur;
    const ResultatSite r = ExportHTML(ctx, false);
    const double secondes = c.Secondes(), cpu = processeur();
    if (!r.Ok) {
        std::printf("%s\n", r.Message.c_str());
        return 1;
    }
    std::printf(
        "Site : %zu fichiers, %.1f Mo, %.1f s (%.1f s processeur), m\xC3\xA9moire de pointe %.0f Mo\n",
        r.NbFichiers, static_cast<double>(r.Octets) / 1e6, secondes, cpu, bench::MemoirePointeMo());
    std::filesystem::remove_all(dossier);
    return 0;
}
