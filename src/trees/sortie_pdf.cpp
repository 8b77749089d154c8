#include "trees/sortie_pdf.h"

#include "reports/pdf.h"
#include "trees/sortie_arbre.h"

namespace arbolix {

namespace {

class SortiePdf : public SortieArbre {
public:
    SortiePdf(const DessinArbre& d, const MesureTexte& m, DocumentPdf& pdf, bool fond)
        : d_(d), m_(m), pdf_(pdf), fond_(fond) {}

    void NouvellePage(int) override { pdf_.NouvellePage(d_.LF, d_.HF); }
    void DessinerLigne(const TraitArbre& t) override { pdf_.Ligne(t.x1, t.y1, t.x2, t.y2, 0.35); }
    void DessinerCase(const CaseArbre& c) override {
        pdf_.Rectangle(c.x, c.y, d_.LC, d_.HC, 0.25, fond_);
        const double lh = m_.HauteurLigne(c.taille);
        const double montante = AscendanteMm(PolicePdf::Helvetica, c.taille);
        for (std::size_t k = 0; k < c.lignes.size(); ++k)
            pdf_.Texte(c.x + d_.MC, c.y + d_.MC + static_cast<double>(k) * lh + montante,
                       PolicePdf::Helvetica, c.taille, c.lignes[k]);
    }
    void DessinerTexte(const TexteArbre& t) override {
        pdf_.Texte(t.x, t.y, PolicePdf::Helvetica, t.taille, t.texte);
    }

private:
    const DessinArbre& d_;
    const MesureTexte& m_;
    DocumentPdf& pdf_;
    bool fond_;
};

}  // namespace

double MesurePdf::HauteurLigne(double taille) const {
    return 1.2 * taille * kMmParPoint;
}

double MesurePdf::Largeur(std::string_view texte, double taille) const {
    return LargeurTexteMm(PolicePdf::Helvetica, taille, texte);
}

std::string ArbrePdf(const DessinArbre& d, const Options& options, const MesureTexte& mesure) {
    DocumentPdf pdf;
    pdf.Titre(NomGenreArbre(d.Genre));
    // Un fond pâle : le texte noir se lit, et l'encre reste raisonnable.
    if (options.FondCaseCouleur) pdf.CouleurFond(1, 0.97, 0.86);
    pdf.NouvellePage(d.LF, d.HF);
    SortiePdf s(d, mesure, pdf, options.FondCaseCouleur);
    Dessiner(d, s);
    return pdf.Octets();
}

}  // namespace arbolix
