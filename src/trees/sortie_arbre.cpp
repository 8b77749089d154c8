#include "trees/sortie_arbre.h"

#include <charconv>
#include <cmath>

#include "platform/cp1252.h"

namespace arbolix {

namespace {

constexpr std::string_view kFin = "\r\n";

// Les primitives en mode 3 : les pages mises bout à bout en hauteur.
class SortieSvg : public SortieArbre {
public:
    SortieSvg(const DessinArbre& d, const MesureTexte& m, std::string& f) : d_(d), m_(m), f_(f) {}

    void DessinerLigne(const TraitArbre& t) override {
        const double dy = Decalage(t.page);
        f_ += "<line x1=\"" + Mm(t.x1) + "\" y1=\"" + Mm(t.y1 + dy) + "\" x2=\"" + Mm(t.x2) + "\" y2=\"" +
              Mm(t.y2 + dy) + "\" style=\"stroke: black; stroke-width: 2;\" />";
        f_ += kFin;
    }

    void DessinerCase(const CaseArbre& c) override {
        const double y = c.y + Decalage(c.page);
        f_ += "<g><rect width=\"" + Mm(d_.LC) + "\" height=\"" + Mm(d_.HC) + "\" x=\"" + Mm(c.x) + "\" y=\"" +
              Mm(y) + "\" rx=\"2mm\" ry=\"2mm\" stroke=\"black\" fill=\"none\" />";
        f_ += kFin;
        const double lh = m_.HauteurLigne(c.taille);
        for (std::size_t k = 0; k < c.lignes.size(); ++k) {
            if (c.lignes[k].empty()) continue;
            // La ligne de base aux quatre cinquièmes du pas : le haut des capitales près de la marge.
            const double base = y + d_.MC + (static_cast<double>(k) + 0.8) * lh;
            f_ += "<text x=\"" + Mm(c.x + d_.MC) + "\" y=\"" + Mm(base) + "\" width=\"" +
                  Mm(d_.LC - 2 * d_.MC) + "\">" + EncoderSvg(c.lignes[k]) + "</text>";
            f_ += kFin;
        }
        f_ += "</g>";
        f_ += kFin;
    }

    void DessinerTexte(const TexteArbre& t) override {
        // Le style en ligne l'emporte sur celui de l'en-tête : le pied garde sa propre taille.
        f_ += "<text x=\"" + Mm(t.x) + "\" y=\"" + Mm(t.y + Decalage(t.page)) +
              "\" style=\"font-size: " + NombreFichier(t.taille * 1.2) + "pt;\">" + EncoderSvg(t.texte) +
              "</text>";
        f_ += kFin;
    }

private:
    double Decalage(int page) const { return (page - 1) * d_.HF; }
    static std::string Mm(double v) { return NombreFichier(v) + "mm"; }

    const DessinArbre& d_;
    const MesureTexte& m_;
    std::string& f_;
};

}  // namespace

void Dessiner(const DessinArbre& d, SortieArbre& sortie) {
    for (int page = 1; page <= d.Pages; ++page) {
        if (page > 1) sortie.NouvellePage(page);
        for (const auto& t : d.Traits)
            if (t.page == page) sortie.DessinerLigne(t);
        for (const auto& c : d.Cases)
            if (c.page == page) sortie.DessinerCase(c);
        for (const auto& t : d.Textes)
            if (t.page == page) sortie.DessinerTexte(t);
    }
}

std::string NombreFichier(double v) {
    if (!std::isfinite(v)) v = 0;
    v = std::round(v * 100) / 100;
    if (v == 0) v = 0;  // pas de "-0"
    char tampon[64];
    const auto [fin, erreur] = std::to_chars(tampon, tampon + sizeof tampon, v, std::chars_format::fixed, 2);
    std::string s(tampon, erreur == std::errc{} ? fin : tampon);
    if (s.find('.') != std::string::npos) {
        while (s.back() == '0') s.pop_back();
        if (s.back() == '.') s.pop_back();
    }
    return s;
}

std::string EncoderSvg(std::string_view texte1252) {
    std::string r;
    r.reserve(texte1252.size());
    for (const char c : texte1252) {
        const auto u = static_cast<unsigned char>(c);
        switch (c) {
            case '&':
                r += "&amp;";
                continue;
            case '<':
                r += "&lt;";
                continue;
            case '>':
                r += "&gt;";
                continue;
            case '"':
                r += "&quot;";
                continue;
            default:
                break;
        }
        // Les caractères de contrôle n'ont pas leur place dans un document XML.
        if (u < 0x20) {
            r += ' ';
        } else if (u < 0x80) {
            r += c;
        } else {
            r += "&#" + std::to_string(static_cast<std::uint32_t>(Cp1252VersUnicode(u))) + ";";
        }
    }
    return r;
}

std::string ArbreSvg(const DessinArbre& d, const Options& options, const MesureTexte& mesure) {
    const bool pages = d.Genre == kEtiquettes || d.Genre == kDescendant;
    const std::string nom = EncoderSvg(NomGenreArbre(d.Genre));
    std::string f = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>";
    f += kFin;
    f += "<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.2\" baseProfile=\"tiny\" width=\"" +
         NombreFichier(d.LF) + "mm\" height=\"" + NombreFichier(pages ? d.HF * d.Pages : d.HF) + "mm\">";
    f += kFin;
    f += "<desc>" + nom + "</desc>";
    f += kFin;
    f += "<title>" + nom + "</title>";
    f += kFin;
    // Une police vide laisserait une règle CSS fausse : la police sans empattement du lecteur.
    const std::string police = options.Police.empty() ? "sans-serif" : EncoderSvg(options.Police);
    for (std::string_view l :
         {std::string("<style type=\"text/css\">"), std::string("text {"), "font-family: " + police + ";",
          "font-size: " + NombreFichier(d.Taille * 1.2) + "pt;", std::string("}"), std::string("</style>")}) {
        f += l;
        f += kFin;
    }
    SortieSvg s(d, mesure, f);
    Dessiner(d, s);
    f += "</svg>";
    f += kFin;
    return f;
}

}  // namespace arbolix
