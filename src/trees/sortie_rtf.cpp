#include "trees/sortie_rtf.h"

#include <algorithm>
#include <cmath>

#include "reports/contexte_export.h"
#include "reports/rtf.h"
#include "store/chaines.h"
#include "trees/sortie_arbre.h"

namespace arbolix {

namespace {

constexpr std::string_view kFin = "\r\n";

class SortieRtf : public SortieArbre {
public:
    SortieRtf(const DessinArbre& d, const MesureTexte& m, std::string& f) : d_(d), m_(m), f_(f) {}

    void NouvellePage(int) override {
        f_ += "\\par \\page \\par ";
        forme_ = 0;
    }

    // Les traits sont horizontaux ou verticaux : rangés de gauche à droite et de haut en bas, ils
    // n'ont pas besoin de retournement.
    void DessinerLigne(const TraitArbre& t) override {
        Tete(std::min(t.x1, t.x2), std::min(t.y1, t.y2), std::max(t.x1, t.x2), std::max(t.y1, t.y2));
        f_ +=
            "{\\sp{\\sn shapeType}{\\sv 20}}{\\sp{\\sn fFlipH}{\\sv 0}}{\\sp{\\sn fFlipV}{\\sv 0}}"
            "{\\sp{\\sn shapePath}{\\sv 4}}{\\sp{\\sn fFillOK}{\\sv 0}}{\\sp{\\sn fFilled}{\\sv 0}}"
            "{\\sp{\\sn fArrowheadsOK}{\\sv 1}}}}";
        f_ += kFin;
    }

    void DessinerCase(const CaseArbre& c) override {
        std::string texte;
        for (std::size_t k = 0; k < c.lignes.size(); ++k) {
            if (k > 0) texte += "\\line ";
            texte += EchapperRTF(c.lignes[k]);
        }
        Zone(c.x, c.y, d_.LC, d_.HC, d_.MC, c.taille, texte, true);
    }

    void DessinerTexte(const TexteArbre& t) override {
        const double lh = m_.HauteurLigne(t.taille);
        Zone(t.x, t.y - lh, std::max(1.0, d_.LF - d_.MF - t.x), lh * 1.5, 0, t.taille, EchapperRTF(t.texte),
             false);
    }

private:
    void Tete(double gauche, double haut, double droite, double bas) {
        ++forme_;
        f_ += "{\\shp{\\*\\shpinst\\shpleft" + Twips(gauche) + "\\shptop" + Twips(haut) + "\\shpright" +
              Twips(droite) + "\\shpbottom" + Twips(bas);
        f_ += kFin;
        f_ += "\\shpfhdr0\\shpbxpage\\shpbypage\\shpwr3\\shpwrk0\\shpfblwtxt0\\shpz" +
              std::to_string(forme_) + "\\shplid" + std::to_string(forme_);
        f_ += kFin;
    }

    // La zone de texte (forme 202) ; sans cadre pour le pied de page et la légende.
    void Zone(double x, double y, double l, double h, double marge, double taille, const std::string& texte,
              bool cadre) {
        Tete(x, y, x + l, y + h);
        f_ += "{\\sp{\\sn shapeType}{\\sv 202}}";
        f_ += "{\\sp{\\sn dxTextLeft}{\\sv " + Twips(marge) + "}}{\\sp{\\sn dyTextTop}{\\sv " + Twips(marge) +
              "}}";
        f_ += "{\\sp{\\sn dxTextRight}{\\sv 0}}{\\sp{\\sn dyTextBottom}{\\sv 0}}";
        if (!cadre) f_ += "{\\sp{\\sn fLine}{\\sv 0}}";
        // \fs compte en demi-points.
        f_ += "{\\shptxt \\pard\\plain \\ql \\fs" + std::to_string(std::lround(2 * taille)) + " " + texte +
              "}}}";
        f_ += kFin;
    }

    const DessinArbre& d_;
    const MesureTexte& m_;
    std::string& f_;
    int forme_ = 0;
};

}  // namespace

std::string Twips(double mm) {
    const long long t = std::llround(std::max(0.0, mm) * 1440 / 25.4);
    return Zeros(t, 3);
}

std::string ArbreRtf(const DessinArbre& d, Base& base, const Options& options, const MesureTexte& mesure) {
    OptionsExport exports;
    exports.TitreExport = d.Titre;
    const ContexteExport ctx{base, options, exports, d.Aujourdhui};
    TexteRapport f(kFichierRtf);
    OptionsArbre page;
    page.LF = NombreFichier(d.LF), page.HF = NombreFichier(d.HF), page.MF = NombreFichier(d.MF);
    OuvrirRTF(ctx, f, false, false, true, 0, page);
    SortieRtf s(d, mesure, f.Octets());
    Dessiner(d, s);
    f.Ligne("}");
    return f.Fermer();
}

}  // namespace arbolix
