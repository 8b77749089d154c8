#include "reports/pdf.h"

#include <array>
#include <charconv>
#include <cmath>
#include <stdexcept>

#include "platform/cp1252.h"

namespace arbolix {
namespace {

#include "reports/pdf_largeurs.inc"

struct DescriptionPolice {
    std::string_view nomPdf;
    std::string_view ressource;
    const std::array<std::uint16_t, 224>* largeurs;
    int ascendante;  // millièmes de cadratin
};

// Dans l'ordre de PolicePdf ; chaque page les nomme toutes.
const std::array<DescriptionPolice, 4> kPolices{{
    {"Times-Roman", "F1", &kLargeursTimesRoman, 683},
    {"Times-Bold", "F2", &kLargeursTimesBold, 683},
    {"Helvetica", "F3", &kLargeursHelvetica, 718},
    {"Helvetica-Bold", "F4", &kLargeursHelveticaBold, 718},
}};

const DescriptionPolice& Police(PolicePdf p) {
    return kPolices[static_cast<std::size_t>(p)];
}

// Nombre sans exposant, au centième, point décimal quelle que soit la locale.
std::string Nombre(double v) {
    if (!std::isfinite(v)) v = 0;
    std::array<char, 48> tampon{};
    auto fin = std::to_chars(tampon.data(), tampon.data() + tampon.size(), std::round(v * 100) / 100,
                             std::chars_format::fixed, 2)
                   .ptr;
    std::string s(tampon.data(), fin);
    while (s.back() == '0') s.pop_back();
    if (s.back() == '.') s.pop_back();
    if (s == "-0") s = "0";
    return s;
}

// Chaîne littérale : parenthèses et barres échappées, octets hors ASCII imprimable en octal.
std::string Litteral(std::string_view texte) {
    static constexpr char kOctal[] = "01234567";
    std::string s = "(";
    for (unsigned char c : texte) {
        if (c == '(' || c == ')' || c == '\\') {
            s += '\\';
            s += static_cast<char>(c);
        } else if (c < 32 || c > 126) {
            s += '\\';
            s += kOctal[c >> 6];
            s += kOctal[(c >> 3) & 7];
            s += kOctal[c & 7];
        } else {
            s += static_cast<char>(c);
        }
    }
    return s + ")";
}

// Le titre en UTF-16BE (marque d'ordre en tête) : le PDFDocEncoding n'est pas le 1252.
std::string TitreHexa(std::string_view titre) {
    static constexpr char kHexa[] = "0123456789ABCDEF";
    std::string s = "<FEFF";
    for (unsigned char c : titre) {
        const char32_t u = Cp1252VersUnicode(c);
        for (int decalage : {12, 8, 4, 0}) s += kHexa[(u >> decalage) & 0xF];
    }
    return s + ">";
}

}  // namespace

double LargeurTexteMm(PolicePdf police, double taille, std::string_view texte) {
    const auto& largeurs = *Police(police).largeurs;
    long total = 0;
    for (unsigned char c : texte)
        if (c >= 32) total += largeurs[c - 32];
    return total * taille / 1000.0 / kPointsParMm;
}

double AscendanteMm(PolicePdf police, double taille) {
    return Police(police).ascendante * taille / 1000.0 / kPointsParMm;
}

DocumentPdf::Page& DocumentPdf::Courante() {
    if (pages_.empty()) throw std::logic_error("DocumentPdf : aucune page ouverte");
    return pages_.back();
}

double DocumentPdf::X(double mm) const {
    return mm * kPointsParMm;
}
double DocumentPdf::Y(double mm) {
    return Courante().hauteur - mm * kPointsParMm;
}

void DocumentPdf::NouvellePage(double largeurMm, double hauteurMm) {
    pages_.push_back({largeurMm * kPointsParMm, hauteurMm * kPointsParMm, {}, "0 0 0"});
    // Chaque page repart du noir : la couleur choisie avant la suit.
    if (trait_ != "0 0 0") pages_.back().contenu = trait_ + " RG\n";
}

void DocumentPdf::Remplir(const std::string& couleur) {
    Page& page = Courante();
    if (page.remplissage == couleur) return;
    page.remplissage = couleur;
    page.contenu += couleur + " rg\n";
}

void DocumentPdf::Texte(double x, double y, PolicePdf police, double taille, std::string_view texte) {
    const double py = Y(y);
    Remplir(trait_);
    Courante().contenu += "BT /" + std::string(Police(police).ressource) + " " + Nombre(taille) + " Tf " +
                          Nombre(X(x)) + " " + Nombre(py) + " Td " + Litteral(texte) + " Tj ET\n";
}

void DocumentPdf::Ligne(double x1, double y1, double x2, double y2, double epaisseurMm) {
    const double py1 = Y(y1), py2 = Y(y2);
    Courante().contenu += Nombre(epaisseurMm * kPointsParMm) + " w " + Nombre(X(x1)) + " " + Nombre(py1) +
                          " m " + Nombre(X(x2)) + " " + Nombre(py2) + " l S\n";
}

void DocumentPdf::Rectangle(double x, double y, double largeur, double hauteur, double epaisseurMm,
                            bool plein) {
    const double bas = Y(y + hauteur);
    if (plein) Remplir(fond_);
    Courante().contenu += Nombre(epaisseurMm * kPointsParMm) + " w " + Nombre(X(x)) + " " + Nombre(bas) +
                          " " + Nombre(largeur * kPointsParMm) + " " + Nombre(hauteur * kPointsParMm) +
                          (plein ? " re B\n" : " re S\n");
}

void DocumentPdf::CouleurTrait(double r, double v, double b) {
    trait_ = Nombre(r) + " " + Nombre(v) + " " + Nombre(b);
    Courante().contenu += trait_ + " RG\n";
}

void DocumentPdf::CouleurFond(double r, double v, double b) {
    fond_ = Nombre(r) + " " + Nombre(v) + " " + Nombre(b);
}

std::string DocumentPdf::Octets() const {
    // Objets : 1 catalogue, 2 arbre des pages, 3 à 6 polices, 7 informations, puis pour chaque
    // page son dictionnaire et son contenu.
    std::vector<std::string> objets;
    std::string kids;
    const int premierePage = 8;
    for (std::size_t i = 0; i < pages_.size(); ++i)
        kids += (i ? " " : "") + std::to_string(premierePage + 2 * i) + " 0 R";
    objets.push_back("<< /Type /Catalog /Pages 2 0 R >>");
    objets.push_back("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pages_.size()) + " >>");
    for (const auto& p : kPolices)
        objets.push_back("<< /Type /Font /Subtype /Type1 /BaseFont /" + std::string(p.nomPdf) +
                         " /Encoding /WinAnsiEncoding >>");
    objets.push_back("<< /Producer (Arbolix)" + (titre_.empty() ? "" : " /Title " + TitreHexa(titre_)) +
                     " >>");
    std::string polices;
    for (std::size_t i = 0; i < kPolices.size(); ++i)
        polices += " /" + std::string(kPolices[i].ressource) + " " + std::to_string(3 + i) + " 0 R";
    for (std::size_t i = 0; i < pages_.size(); ++i) {
        const Page& p = pages_[i];
        objets.push_back("<< /Type /Page /Parent 2 0 R /MediaBox [0 0 " + Nombre(p.largeur) + " " +
                         Nombre(p.hauteur) + "] /Resources << /Font <<" + polices + " >> >> /Contents " +
                         std::to_string(premierePage + 2 * i + 1) + " 0 R >>");
        objets.push_back("<< /Length " + std::to_string(p.contenu.size()) + " >>\nstream\n" + p.contenu +
                         "endstream");
    }

    std::string sortie = "%PDF-1.4\n%\xE2\xE3\xCF\xD3\n";
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < objets.size(); ++i) {
        positions.push_back(sortie.size());
        sortie += std::to_string(i + 1) + " 0 obj\n" + objets[i] + "\nendobj\n";
    }
    const std::size_t xref = sortie.size();
    sortie += "xref\n0 " + std::to_string(objets.size() + 1) + "\n0000000000 65535 f \n";
    for (std::size_t pos : positions) {
        std::string n = std::to_string(pos);
        sortie += std::string(10 - n.size(), '0') + n + " 00000 n \n";
    }
    sortie += "trailer\n<< /Size " + std::to_string(objets.size() + 1) +
              " /Root 1 0 R /Info 7 0 R >>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n";
    return sortie;
}

}  // namespace arbolix
