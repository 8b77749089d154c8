#include "acts/export_actes.h"

#include <algorithm>
#include <array>
#include <filesystem>

#include "card/lignes_personne.h"
#include "card/queues.h"
#include "dates/calendrier_gregorien.h"
#include "dates/calendrier_republicain.h"
#include "gedcom/enregistrement.h"
#include "lists/recherche_actes.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

namespace fs = std::filesystem;

// Les morceaux de la ligne des colonnes, dans leur ordre, et les sortes qui les portent ; pour
// les autres, le morceau ne garde que ses séparateurs : chaque colonne a la même place dans
// toutes les tables.
enum Morceau {
    kDebut,
    kOrigine,
    kSexe,
    kAge,
    kNotes,
    kParents,
    kConjoint,
    kEpouse,
    kPere,
    kRepu1,
    kRepu2,
    kParents1,
    kPere2,
    kMere2,
    kVeuf1,
    kVeuf2,
    kVeuf3,
    kLieu,
    kTemoins,
    kDates,
    kNbMorceaux
};
struct MorceauEnTete {
    std::string_view texte;
    std::string_view sortes;
};
constexpr std::array<MorceauEnTete, kNbMorceaux> kMorceaux = {{
    {"Date|Date r\xE9pu|Nom|Pr\xE9noms|", "NMD"},
    {"Lieu origine|Date naissance", "M"},
    {"|Sexe|", "NMD"},
    {"Age|Profession|(Veuvage)", "MD"},
    {"|Notes|", "NMD"},
    {"P\xE8re pr\xE9noms|M\xE8re nom|M\xE8re pr\xE9noms", "NMD"},
    {"|Nom Conjoint|Pr\xE9noms Conjoint|||Age2|Profession2|(Veuvage2)|Notes2|||", "D"},
    {"|Nom2|Pr\xE9noms2|Lieu origine2|Date naissance2|Age2|Profession2||Notes2|P\xE8re pr\xE9noms2|M\xE8re "
     "nom2|M\xE8re pr\xE9noms2",
     "M"},
    {"|Nom p\xE8re|Pr\xE9noms p\xE8re|||Age p\xE8re|Profession p\xE8re||Notes p\xE8re||M\xE8re nom|M\xE8re "
     "pr\xE9noms",
     "N"},
    {"|Date naiss r\xE9pu", "MD"},
    {"|Date naiss r\xE9pu 2", "M"},
    {"|Nom p\xE8re|P\xE8re d\xE9"
     "c\xE9"
     "d\xE9 ?|Age p\xE8re|Prof p\xE8re|Date d\xE9"
     "c\xE8s p\xE8re|Lieu d\xE9"
     "c\xE8s p\xE8re|Note p\xE8re|M\xE8re d\xE9"
     "c\xE9"
     "d\xE9"
     "e ?|Age m\xE8re|Prof m\xE8re|Date d\xE9"
     "c\xE8s m\xE8re|Lieu d\xE9"
     "c\xE8s m\xE8re|Note m\xE8re",
     "NMD"},
    {"|Nom p\xE8re"
     "2|P\xE8re2 d\xE9"
     "c\xE9"
     "d\xE9 ?|Age p\xE8re"
     "2|Prof p\xE8re"
     "2|Date d\xE9"
     "c\xE8s p\xE8re"
     "2|Lieu d\xE9"
     "c\xE8s p\xE8re"
     "2|Note p\xE8re"
     "2",
     "M"},
    {"|M\xE8re2 d\xE9"
     "c\xE9"
     "d\xE9"
     "e ?|Age m\xE8re"
     "2|Prof m\xE8re"
     "2|Date d\xE9"
     "c\xE8s m\xE8re"
     "2|Lieu d\xE9"
     "c\xE8s m\xE8re"
     "2|Note m\xE8re"
     "2",
     "M"},
    {"|Veuvage nom|Veuvage pr\xE9noms|Veuvage profession|Veuvage date d\xE9"
     "c\xE8s|Veuvage lieu d\xE9"
     "c\xE8s|Veuvage Notes",
     "M"},
    {"|Veuvage2 Nom|Veuvage2 pr\xE9noms|Veuvage2 profession|Veuvage2 date d\xE9"
     "c\xE8s|Veuvage2 lieu d\xE9"
     "c\xE8s|Veuvage2 Notes",
     "M"},
    {"|Veuvage3 Nom|Veuvage3 pr\xE9noms|Veuvage3 profession|Veuvage3 date d\xE9"
     "c\xE8s|Veuvage3 lieu d\xE9"
     "c\xE8s|Veuvage3 Notes",
     "M"},
    {"|Lieu|Lieu-dit, paroisse|Source|Cl\xE9 unique|", "NMD"},
    {"|T\xE9moin1 nom|Pr\xE9noms|Age|Profession|Notes|T\xE9moin2 "
     "nom|Pr\xE9noms|Age|Profession|Notes|T\xE9moin3 "
     "nom|Pr\xE9noms|Age|Profession|Notes|T\xE9moin4 nom|Pr\xE9noms|Age|Profession|Notes|Note acte",
     "NMD"},
    {"|Date cr\xE9"
     "ation|Date Modif",
     "NMD"},
}};

// Les colonnes que NIMEGUE attend devant celles de l'acte.
constexpr std::string_view kTeteNimegue = "Version|Commune|Type|Source|";
constexpr int kColonnesNimegue = 4;

std::size_t Separateurs(std::string_view t) {
    return static_cast<std::size_t>(std::count(t.begin(), t.end(), '|'));
}

// La colonne où chaque morceau commence.
const std::array<std::size_t, kNbMorceaux + 1>& Debuts() {
    static const std::array<std::size_t, kNbMorceaux + 1> debuts = [] {
        std::array<std::size_t, kNbMorceaux + 1> d{};
        for (std::size_t i = 0; i < kMorceaux.size(); ++i) d[i + 1] = d[i] + Separateurs(kMorceaux[i].texte);
        return d;
    }();
    return debuts;
}

const Fami& FamilleDe(const Base& b, std::int32_t f) {
    return FamiLue(b, f);
}

// Les textes libres perdent ce qui casserait la rangée.
std::string Libre(std::string_view t) {
    std::string r = Remplacer(t, "\r\n", " ");
    for (char& c : r)
        if (c == ';' || c == '\t' || c == '\r' || c == '\n') c = c == ';' ? ',' : ' ';
    return r;
}

// La date républicaine d'une note : "12/vend/03..." ; son année va de 1 à 14.
std::string Republicaine(std::string_view notes) {
    if (!Comme(Gauche(notes, 10), kNoteRepublicaine)) return {};
    const auto an = ValeurNumerique(notes.substr(8, 2));
    return an >= 1 && an <= 14 ? std::string(Gauche(notes, 10)) : std::string();
}

class RangeeActes {
public:
    RangeeActes(const Base& b, const Acte& acte, bool limites)
        : b_(b), acte_(acte), limites_(limites), cellules_(Debuts()[kNbMorceaux] + 1) {}

    void Mettre(Morceau m, std::size_t j, std::string_view v) { cellules_[Debuts()[m] + j] = Libre(v); }
    std::string Couper(std::string_view t, std::size_t n) const {
        return std::string(limites_ ? Gauche(t, n) : t);
    }
    bool MortAvant(const Perso& p) const {
        const std::string_view d = p.Deces.DateTri.vue();
        return !d.empty() && !acte_.DateTri.empty() && d < acte_.DateTri.vue();
    }
    std::string Age(const Perso& p) const {
        if (acte_.Annee < 1 || p.Naissance.Date.empty()) return {};
        return std::to_string(acte_.Annee - p.Naissance.Annee);
    }
    std::string Prenoms(const Perso& p) const {
        return Couper(std::string(MortAvant(p) ? "+" : "") + std::string(p.Prenoms.vue()), 30);
    }
    // Le dernier conjoint d'une autre union que celle de l'acte (emplacements 7 à 1).
    std::vector<std::int32_t> ConjointsPrecedents(std::int32_t n, std::int32_t famille) const {
        std::vector<std::int32_t> r;
        const Perso& p = PersoLu(b_, n);
        for (int u = kMaxUnions; u >= 1; --u) {
            const std::int32_t f = p.Unions[static_cast<std::size_t>(u)];
            if (f == 0 || f == famille) continue;
            const Fami& fa = FamilleDe(b_, f);
            const std::int32_t c = fa.Mari == n ? fa.Femme : fa.Mari;
            if (PersonneExiste(b_, c)) r.push_back(c);
        }
        return r;
    }
    std::string Veuvage(std::int32_t n, std::int32_t famille, bool mariage) const {
        const auto c = ConjointsPrecedents(n, famille);
        if (c.empty()) return {};
        const Perso& p = PersoLu(b_, c.front());
        return mariage || MortAvant(p) ? std::string(p.Nom.vue()) + " " + std::string(p.Prenoms.vue()) : "";
    }
    void Parents(std::int32_t n, Morceau pere, Morceau mere, std::size_t jMere) {
        const Fami& f = FamilleDe(b_, PersoLu(b_, n).NumParents);
        const struct {
            std::int32_t numero;
            Morceau m;
            std::size_t j;
        } parents[] = {{f.Mari, pere, 1}, {f.Femme, mere, jMere}};
        for (const auto& [numero, m, j] : parents) {
            if (!PersonneExiste(b_, numero)) continue;
            const Perso& p = PersoLu(b_, numero);
            std::size_t k = j;
            if (numero == f.Mari) Mettre(m, k++, p.Nom.vue());
            Mettre(m, k, MortAvant(p) ? "oui" : "");
            Mettre(m, k + 1, Age(p));
            Mettre(m, k + 2, Couper(p.Metier.vue(), 30));
            Mettre(m, k + 3, p.Deces.Date.vue());
            Mettre(m, k + 4, p.Deces.Lieu.vue());
            Mettre(m, k + 5, p.Notes.vue());
        }
    }
    void Prenoms3(std::int32_t n, Morceau m) {
        const Fami& f = FamilleDe(b_, PersoLu(b_, n).NumParents);
        const Perso& pere = PersoLu(b_, f.Mari);
        const Perso& mere = PersoLu(b_, f.Femme);
        const std::size_t j = m == kParents ? 0 : 9;
        Mettre(m, j, pere.Prenoms.vue());
        Mettre(m, j + 1, mere.Nom.vue());
        Mettre(m, j + 2, mere.Prenoms.vue());
    }
    void Temoins() {
        for (int i = 1; i <= 4; ++i) {
            const std::int32_t t = acte_.Liens().Temoins(i);
            if (!PersonneExiste(b_, t)) continue;
            const Perso& p = PersoLu(b_, t);
            const std::size_t j = 1 + 5 * static_cast<std::size_t>(i - 1);
            Mettre(kTemoins, j, Couper(p.Nom.vue(), 25));
            Mettre(kTemoins, j + 1, Prenoms(p));
            Mettre(kTemoins, j + 2, Age(p));
            Mettre(kTemoins, j + 3, Couper(p.Metier.vue(), 30));
            Mettre(kTemoins, j + 4, p.Notes.vue());
        }
        Mettre(kTemoins, 21, acte_.Notes.vue());
    }
    std::string Joindre(char sep) const {
        std::string r;
        for (std::size_t i = 0; i < cellules_.size(); ++i)
            r.append(i ? std::string(1, sep) : "").append(cellules_[i]);
        return r;
    }

private:
    const Base& b_;
    const Acte& acte_;
    bool limites_;
    std::vector<std::string> cellules_;
};

std::string DateModif(double jours) {
    if (jours <= 0) return {};
    const auto d = DateDuNumero(static_cast<std::int64_t>(jours));
    return d ? FormatDateCourte(*d) : std::string();
}

// La personne de l'acte et ce qu'elle porte dans les colonnes du début.
void Personne1(RangeeActes& r, const Perso& p, char sorte, std::int32_t n, std::int32_t famille) {
    r.Mettre(kDebut, 2, r.Couper(p.Nom.vue(), 25));
    r.Mettre(kDebut, 3, r.Prenoms(p));
    if (sorte == 'M') {
        r.Mettre(kOrigine, 0, r.Couper(p.Naissance.Lieu.vue(), 35));
        r.Mettre(kOrigine, 1, p.Naissance.Date.vue());
    }
    r.Mettre(kSexe, 1, std::string(1, p.Sexe));
    if (sorte != 'N') {
        r.Mettre(kAge, 0, r.Age(p));
        r.Mettre(kAge, 1, r.Couper(p.Metier.vue(), 30));
        r.Mettre(kAge, 2, r.Veuvage(n, famille, sorte == 'M'));
        r.Mettre(kRepu1, 1, Republicaine(p.Naissance.Notes.vue()));
    }
    r.Mettre(kNotes, 1, p.Notes.vue());
    r.Prenoms3(n, kParents);
    r.Parents(n, kParents1, kParents1, 8);
}

struct Ligne {
    char sorte = 0;
    const Acte* acte = nullptr;
    std::int32_t numero = 0;
    bool famille = false;
};

Ligne LireLigne(const Base& b, const Options& o, std::string_view rangee) {
    const LectureQueue q = LireQueue(rangee);
    Ligne l;
    for (const SorteActe& s : kSortesActes) {
        const std::string& symbole = o.*s.symbole;
        if (symbole.empty() || symbole[0] != q.genre) continue;
        l.sorte = SorteDuSymbole(o, q.genre);
        l.numero = q.numero;
        l.famille = s.fami != nullptr;
        l.acte = l.famille ? &(FamiLue(b, q.numero).*s.fami) : &(PersoLu(b, q.numero).*s.perso);
        return l;
    }
    return l;
}

std::string RangeeActe(const DemandeExportActes& d, const Ligne& l, char sep) {
    const Base& b = d.base;
    const Acte& a = *l.acte;
    RangeeActes r(b, a, d.Format == kFormatTMT);
    r.Mettre(kDebut, 0, a.Date.vue());
    r.Mettre(kDebut, 1, Republicaine(a.Notes.vue()));
    double modif = 0;
    if (l.famille) {
        const Fami& f = FamiLue(b, l.numero);
        modif = f.DateModif;
        Personne1(r, PersoLu(b, f.Mari), 'M', f.Mari, l.numero);
        if (PersonneExiste(b, f.Femme)) {
            const Perso& e = PersoLu(b, f.Femme);
            r.Mettre(kEpouse, 1, r.Couper(e.Nom.vue(), 25));
            r.Mettre(kEpouse, 2, r.Prenoms(e));
            r.Mettre(kEpouse, 3, r.Couper(e.Naissance.Lieu.vue(), 35));
            r.Mettre(kEpouse, 4, e.Naissance.Date.vue());
            r.Mettre(kEpouse, 5, r.Age(e));
            r.Mettre(kEpouse, 6, r.Couper(e.Metier.vue(), 30));
            r.Mettre(kEpouse, 8, e.Notes.vue());
            r.Prenoms3(f.Femme, kEpouse);
            r.Mettre(kRepu2, 1, Republicaine(e.Naissance.Notes.vue()));
            r.Parents(f.Femme, kPere2, kMere2, 1);
        }
        // Les conjoints d'avant : ceux du mari, puis ceux de la femme, trois au plus.
        std::vector<std::int32_t> veufs = r.ConjointsPrecedents(f.Mari, l.numero);
        for (std::int32_t c : r.ConjointsPrecedents(f.Femme, l.numero)) veufs.push_back(c);
        for (std::size_t i = 0; i < veufs.size() && i < 3; ++i) {
            const Perso& v = PersoLu(b, veufs[i]);
            const auto m = static_cast<Morceau>(kVeuf1 + i);
            r.Mettre(m, 1, v.Nom.vue());
            r.Mettre(m, 2, v.Prenoms.vue());
            r.Mettre(m, 3, v.Metier.vue());
            r.Mettre(m, 4, v.Deces.Date.vue());
            r.Mettre(m, 5, v.Deces.Lieu.vue());
            r.Mettre(m, 6, v.Notes.vue());
        }
    } else {
        const Perso& p = PersoLu(b, l.numero);
        modif = p.DateModif;
        Personne1(r, p, l.sorte, l.numero, 0);
        if (l.sorte == 'N') {
            const Fami& f = FamiLue(b, p.NumParents);
            for (const auto& [n, j] :
                 {std::pair{f.Mari, std::size_t{1}}, std::pair{f.Femme, std::size_t{10}}}) {
                if (!PersonneExiste(b, n)) continue;
                const Perso& parent = PersoLu(b, n);
                r.Mettre(kPere, j, r.Couper(parent.Nom.vue(), 25));
                r.Mettre(kPere, j + 1, r.Prenoms(parent));
                if (j == 1) {
                    r.Mettre(kPere, 5, r.Age(parent));
                    r.Mettre(kPere, 6, r.Couper(parent.Metier.vue(), 30));
                    r.Mettre(kPere, 8, parent.Notes.vue());
                }
            }
        } else {
            const auto conjoints = r.ConjointsPrecedents(l.numero, 0);
            if (!conjoints.empty()) {
                const Perso& c = PersoLu(b, conjoints.front());
                r.Mettre(kConjoint, 1, r.Couper(c.Nom.vue(), 25));
                r.Mettre(kConjoint, 2, r.Prenoms(c));
                r.Mettre(kConjoint, 5, r.Age(c));
                r.Mettre(kConjoint, 6, r.Couper(c.Metier.vue(), 30));
                r.Mettre(kConjoint, 7, r.Veuvage(conjoints.front(), 0, false));
                r.Mettre(kConjoint, 8, c.Notes.vue());
            }
        }
    }
    r.Mettre(kLieu, 1, r.Couper(a.Lieu.vue(), 35));
    r.Mettre(kLieu, 3, a.Source.vue());
    r.Mettre(kLieu, 4, std::string(l.famille ? "F" : "P") + std::to_string(l.numero) + l.sorte);
    r.Temoins();
    r.Mettre(kDates, 2, DateModif(modif));
    std::string rangee;
    if (d.Format == kFormatNimegue) {
        rangee = std::string("NIMEGUE-V") + (d.VersionMajeure >= 11 ? "3" : "2") + sep + Libre(a.Lieu.vue()) +
                 sep + l.sorte + sep + Libre(Gauche(a.Source.vue(), 20)) + sep;
    }
    return rangee + r.Joindre(sep) + "\r\n";
}

bool NotesIncompletes(std::string_view notes) {
    std::size_t debut = 0;
    while (debut <= notes.size()) {
        auto fin = notes.find("\r\n", debut);
        if (fin == std::string_view::npos) fin = notes.size();
        const std::string_view l = notes.substr(debut, fin - debut);
        if ((!l.empty() && l.back() == ':') || (l.size() >= 2 && l.substr(l.size() - 2) == ": ") ||
            l.find('_') != std::string_view::npos || l.find(" NN") != std::string_view::npos)
            return true;
        debut = fin + 2;
    }
    return false;
}

bool NomTmtSansCode(const std::string& fichier) {
    if (EnMajuscules(Droite(fichier, 4)) != ".TMT") return false;
    const std::string nom = fs::path(fichier).filename().string();
    return !Comme(Gauche(Depuis(nom, 2), 5), "#####");
}

std::vector<const Rangee*> RangeesDActes(const ListePersonne& liste) {
    std::vector<const Rangee*> r;
    for (const Rangee& x : liste.Rangees)
        if (!x.texte.empty() && x.texte[0] != ' ') r.push_back(&x);
    return r;
}

constexpr std::string_view kExportImpossible = "Export impossible";

}  // namespace

int FormatActesDuFichier(std::string_view fichier, int exportPrefere) {
    const std::string ext = EnMajuscules(fs::path(std::string(fichier)).extension().string());
    if (ext == ".TMT") return kFormatTMT;
    if (ext == ".TM") return kFormatTMAO;
    if (ext == ".TXT") return kFormatNimegue;
    return std::clamp(exportPrefere + 1, static_cast<int>(kFormatTMAO), static_cast<int>(kFormatNimegue));
}

std::string LieuDuNomDeFichier(std::string_view fichierGedcom, bool modifCasse) {
    const std::string nom = fs::path(std::string(fichierGedcom)).stem().string();
    if (nom.empty() || !EstChiffre(nom[0])) return {};
    for (const char sep : {'-', '_'}) {
        const auto p = nom.find(sep);
        if (p != std::string::npos && EstNumerique(nom.substr(0, p)))
            return Majuscules(Remplacer(nom.substr(p + 1), "_", " "), 3, modifCasse);
    }
    return {};
}

std::vector<std::string> LieuxDuNom(const ListeChoix& lieux, std::string_view nom) {
    std::vector<std::string> r;
    if (nom.empty()) return r;
    const std::string cherche = EnMajuscules(SansAccents(nom, false));
    for (const std::string& l : lieux.Triee())
        if (EnMajuscules(SansAccents(l, false)).find(cherche) != std::string::npos) r.push_back(l);
    return r;
}

RechercheActes RechercheUCGL(int index, const OptionsExport& e, int anneeDuJour,
                             std::vector<std::string> lieux) {
    constexpr int kCases[] = {kCaseNaissance, kCaseMariage, kCaseDeces};
    RechercheActes r;
    r.TypeActe[static_cast<std::size_t>(kCases[std::clamp(index, 0, 2)])] = true;
    if (!lieux.empty()) {
        r.OptionType = Critere::Lieu;
        r.Criteres = std::move(lieux);
    }
    r.AnneeDebut = "1";
    r.AnneeFin = std::to_string(anneeDuJour - ValeurNumerique(e.AnneesConfidentielles[index == 2 ? 1 : 0]));
    r.ListeTri = {0, 2};
    return r;
}

char SorteDuSymbole(const Options& o, char symbole) {
    const struct {
        std::string Options::*symbole;
        char sorte;
    } table[] = {
        {&Options::SymbNais, 'N'}, {&Options::SymbBapt, 'N'}, {&Options::SymbMari, 'M'},
        {&Options::SymbCoMa, 'M'}, {&Options::SymbDivo, 'M'}, {&Options::SymbDece, 'D'},
        {&Options::SymbSepu, 'D'},
    };
    for (const auto& t : table)
        if (!(o.*t.symbole).empty() && (o.*t.symbole)[0] == symbole) return t.sorte;
    return 0;
}

std::string EnTeteActes(char sorte) {
    std::string e;
    for (const MorceauEnTete& m : kMorceaux) {
        if (m.sortes.find(sorte) != std::string_view::npos)
            e += m.texte;
        else
            e.append(Separateurs(m.texte), '|');
    }
    return e;
}

std::optional<std::string> TexteExportActes(const DemandeExportActes& d, char sorte) {
    const char sep = d.Format == kFormatNimegue ? ';' : '\t';
    std::string o =
        (d.Format == kFormatNimegue ? std::string(kTeteNimegue) : std::string()) + EnTeteActes(sorte);
    std::replace(o.begin(), o.end(), '|', sep);
    o += "\r\n";
    if (d.Format == kFormatTMT && d.VersionMajeure >= 2) {
        o += Remplacer(d.TexteComp, "\r\n", "|") + std::string(47, '\t') + "G" +
             std::to_string(d.VersionMajeure) + "." + std::to_string(d.VersionMineure) + "\r\n";
    }
    std::uint32_t tour = 0;
    for (const Rangee* x : RangeesDActes(d.liste)) {
        if (d.progression && (++tour % 256) == 1) {
            d.progression->LaisserPasser();
            if (d.progression->Annule()) return std::nullopt;
        }
        const Ligne l = LireLigne(d.base, d.options, x->texte);
        if (l.acte) o += RangeeActe(d, l, sep);
    }
    return o;
}

std::optional<std::string> ProduireExportActes(const DemandeExportActes& d, Dialogue& dialogue) {
    const auto refus = [&](std::string_view texte) {
        dialogue.Message(kExportImpossible, texte, Icone::Stop);
        return std::nullopt;
    };
    if (NotesIncompletes(d.TexteComp))
        return refus(
            "Veuillez compl\xE9ter les notes de la table \xE0 exporter : canton, relev\xE9, saisie.\r\n"
            "Aucune ligne ne doit finir par : ou contenir _ ou NN. Supprimez les lignes inutiles.");
    if (NomTmtSansCode(d.FichierExport))
        return refus(
            "Veuillez cliquer sur Parcourir et indiquer un nom de fichier qui commence par 1 lettre (selon "
            "le "
            "type d'acte) puis contenir le code INSEE de la commune.");
    const auto rangees = RangeesDActes(d.liste);
    const char sorte = rangees.empty() ? 'N' : LireLigne(d.base, d.options, rangees[0]->texte).sorte;
    if (rangees.size() >= 2 && LireLigne(d.base, d.options, rangees[1]->texte).sorte != sorte)
        return refus(
            "Vous ne pouvez exporter qu'un seul type d'acte par fichier.\r\n"
            "Veuillez refaire une recherche d'acte avec un seul type d'acte coch\xE9.");
    if (d.Format == kFormatTMAO) {
        dialogue.Message("Export des actes",
                         "Le format de fichier TMAO n'est plus utilis\xE9, choisissez le format TMT.",
                         Icone::Information);
        return std::nullopt;
    }
    return TexteExportActes(d, sorte == 0 ? 'N' : sorte);
}

ResultatExportActes ExporterActes(const DemandeExportActes& d, Dialogue& dialogue) {
    ResultatExportActes r;
    const std::optional<std::string> texte = ProduireExportActes(d, dialogue);
    if (!texte) {
        r.Annule = true;
        return r;
    }
    const EtatFichier etat = EcrireFichierSur(d.FichierExport, [&](std::ostream& o) {
        o.write(texte->data(), static_cast<std::streamsize>(texte->size()));
        return static_cast<bool>(o);
    });
    if (!etat.Ok) {
        dialogue.Message(kExportImpossible, etat.Message, Icone::Stop);
        return r;
    }
    r.Ecrit = true;
    r.NbRangees = RangeesDActes(d.liste).size();
    return r;
}

}  // namespace arbolix
