#include "card/contenu_fiche.h"

#include <algorithm>
#include <cstdlib>

#include "card/medias.h"
#include "card/queues.h"
#include "dates/calendrier_gregorien.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kBulleNoteExterne =
    "Double-clic ou Entr\xE9"
    "e pour acc\xE9"
    "der \xE0 la note externe.";
constexpr std::string_view kBulleNoteInterne = "Touche Espace pour ajouter une note externe.";

std::string SansEsperluette(std::string_view s) {
    return Remplacer(s, "&", "");
}

// "dd/mm/yyyy" d'un DateModif (jours depuis le 30/12/1899).
std::string DateDeModif(double jours) {
    const auto d = DateDuNumero(static_cast<std::int64_t>(jours));
    return d ? FormatDateCourte(*d) : std::string();
}

}  // namespace

EtatNumero ExaminerNumero(const Base& base, std::int64_t numero) {
    const std::int64_t n = std::llabs(numero);
    if (n > static_cast<std::int64_t>(base.NbPersos) + 1) return EtatNumero::Ignorer;
    if (n > base.Persos.Haut()) return EtatNumero::HorsTableau;
    return EtatNumero::Afficher;
}

std::string LegendeCadrePerso(const Base& base, const ContexteFiche& ctx, std::int32_t n) {
    std::string_view l = ctx.LegendePerso;
    l = SansBlancsDroite(l.substr(0, std::min(l.find(':'), l.size())));
    std::string s(l);
    const Perso& p = PersoLu(base, n);
    const PersoSuite& suite = p.Suite();
    if (SosaPositif(suite.NumSosa[0].vue())) {
        s += " " + ctx.MotSosa + " : " + suite.NumSosa[0];
        if (!suite.AutresSosa[0].empty()) s += ", " + suite.AutresSosa[0];
    }
    if (p.DateModif > 0) s += " " + ctx.MotModifiee + " : " + DateDeModif(p.DateModif);
    return s;
}

void CalculerParents(const Base& base, const ContexteFiche& ctx, std::int32_t n, ContenuFiche& c) {
    const Perso& p = PersoLu(base, n);
    c.NumParents = p.NumParents;
    c.LegendeParents = SansEsperluette(ctx.LegendeParents);
    c.Pere = c.Mere = c.BullePere = c.BulleMere = {};
    c.NumPere = c.NumMere = 0;
    if (p.NumParents <= 0) return;
    const Fami& f = FamiLue(base, p.NumParents);
    c.NumPere = f.Mari;
    c.NumMere = f.Femme;
    c.Pere = LigneCourte(base, ctx.options, f.Mari);
    c.BullePere = BullePersonne(base, ctx.options, f.Mari);
    c.Mere = LigneCourte(base, ctx.options, f.Femme);
    c.BulleMere = BullePersonne(base, ctx.options, f.Femme);
    c.LegendeParents += Queue('F', p.NumParents);
}

std::string BulleUnion(const Base& base, const Options& options, std::int32_t famille,
                       std::int32_t conjoint) {
    const Fami& f = FamiLue(base, famille);
    return options.SymbMari + f.Mariage.Date + " " + f.Mariage.Lieu + " ; " +
           BullePersonne(base, options, conjoint);
}

std::vector<RangeeFiche> CalculerUnions(const Base& base, const ContexteFiche& ctx, std::int32_t n) {
    const Perso& p = PersoLu(base, n);
    const Options& o = ctx.options;
    // Première passe : clé de date et famille ; la liste triée les met dans l'ordre des dates.
    std::vector<std::pair<std::string, std::int32_t>> cles;
    for (int i = 1; i <= kMaxUnions; ++i) {
        const std::int32_t f = p.Unions[i];
        if (f == 0) continue;
        const Fami& fam = FamiLue(base, f);
        const Texte& cle = fam.Mariage.Annee != 0 ? fam.Mariage.DateTri : p.Naissance.DateTri;
        cles.emplace_back(cle + Queue('F', f), f);
    }
    std::stable_sort(cles.begin(), cles.end());
    std::vector<RangeeFiche> rangees;
    for (const auto& [cle, f] : cles) {
        const Fami& fam = FamiLue(base, f);
        std::string s;
        if (!fam.Contrat.Date.empty()) s += o.SymbCoMa + fam.Contrat.Date + " ";
        if (!fam.Mariage.Date.empty())
            s += o.SymbMari + " " + LigneActe(base, fam.Mariage, false, ctx.LargeurActe) + " ";
        if (!fam.Divorce.Date.empty()) s += o.SymbDivo + fam.Divorce.Date + " ";
        const std::int32_t conjoint = Conjoint(fam, n);
        if (conjoint > 0)
            s += LigneCourte(base, o, conjoint);
        else
            s = std::string(SansBlancsDroite(s));
        // Pendant le choix d'un enfant, le nombre d'enfants de chaque union ; avant
        // les queues, pour que conjoint et famille se relisent toujours.
        if (ctx.ListeEnfantsOuverte) s += " (" + std::to_string(fam.Enfants.Nombre()) + " enfants)";
        if (conjoint > 0) s += Queue('P', conjoint);
        s += Droite(cle, 8);
        rangees.push_back({std::move(s), BulleUnion(base, o, f, conjoint)});
    }
    return rangees;
}

void CalculerEnfants(const Base& base, const ContexteFiche& ctx, std::int32_t f, ContenuFiche& c) {
    const Options& o = ctx.options;
    c.FamilleEnfants = f;
    c.Enfants.clear();
    if (f <= 0) {
        c.LabelEnfants = ctx.AucunEnfant;
        return;
    }
    std::vector<std::pair<std::string, std::int32_t>> cles;
    for (const auto& [rang, e] : FamiLue(base, f).Enfants) {
        if (rang < 1 || e <= 0) continue;
        const Perso& p = PersoLu(base, e);
        const Texte& cle = p.Naissance.DateTri.empty() ? p.Bapteme.DateTri : p.Naissance.DateTri;
        cles.emplace_back(cle + Queue('P', e), e);
    }
    std::stable_sort(cles.begin(), cles.end());
    for (const auto& [cle, e] : cles) {
        const Perso& p = PersoLu(base, e);
        std::string s;
        // Un enfant sélectionné qui porte un numéro Sosa est sur la lignée : marqué.
        const bool lignee = p.Sel != 0 && SosaPositif(p.Suite().NumSosa[0].vue());
        if (lignee) s += "\xA7 ";
        s += p.Prenoms.vue();
        if (!p.Naissance.Date.empty()) s += " " + o.SymbNais + " " + p.Naissance.Date;
        if (!p.Deces.Date.empty()) s += " " + o.SymbDece + p.Deces.Date;
        if (SosaPositif(p.Suite().NumSosa[0].vue())) s += " S" + p.Suite().NumSosa[0];
        s += Queue('P', e);
        c.Enfants.push_back({std::move(s), LigneCourte(base, o, e)});
    }
    const std::size_t nb = c.Enfants.size();
    c.LabelEnfants = nb == 0   ? ctx.AucunEnfant
                     : nb == 1 ? "1 " + ctx.UnEnfant
                               : std::to_string(nb) + " " + ctx.DesEnfants;
    c.LabelEnfants += Queue('F', f);
}

std::vector<RangeeFiche> CalculerDivers(const Base& base, const ContexteFiche& ctx, std::int32_t n) {
    std::vector<RangeeFiche> rangees;
    for (auto& l : LignesDivers(base, ctx.options, n)) rangees.push_back({std::move(l.texte), std::move(l.chemin)});
    return rangees;
}

std::string PremiereImage(const Base& base, const ContexteFiche& ctx, std::int32_t n) {
    for (auto& l : LignesDivers(base, ctx.options, n))
        if (EstImage(l.chemin, ctx.ExtensionsImages)) return std::move(l.chemin);
    return {};
}

ContenuFiche CalculerFiche(const Base& base, const ContexteFiche& ctx, std::int32_t n) {
    ContenuFiche c;
    const Perso& p = PersoLu(base, n);
    const PersoSuite& s = p.Suite();
    c.Numero = n;
    c.LegendePerso = LegendeCadrePerso(base, ctx, n);
    c.Sel = p.Sel != 0;
    c.Nom = p.Nom.str();
    c.Prenoms = p.Prenoms.str();
    c.Sexe = p.Sexe == 'M' || p.Sexe == 'm' ? 'M' : p.Sexe == 'F' || p.Sexe == 'f' ? 'F' : ' ';
    c.Metier = p.Metier.str();
    c.Ref = s.Ref.str();
    c.Naissance = LigneActe(base, p.Naissance, true, ctx.LargeurActe);
    c.Bapteme = LigneActe(base, p.Bapteme, true, ctx.LargeurActe);
    c.Deces = LigneActe(base, p.Deces, true, ctx.LargeurActe);
    c.Sepulture = LigneActe(base, p.Sepulture, true, ctx.LargeurActe);
    c.IntRechAscendance = (p.Interet & 1) != 0;
    c.IntRechDescendance = (p.Interet & 2) != 0;
    c.Notes = p.Notes.str();
    const bool lien = c.Notes.size() >= 2 && c.Notes.front() == '@' && c.Notes.back() == '@';
    c.BulleNotes = lien ? kBulleNoteExterne : kBulleNoteInterne;
    c.Adresse1 = s.Adresse1.str();
    c.Adresse2 = s.Adresse2.str();
    c.Etat = s.Etat.str();
    c.CP = s.CP.str();
    c.Ville = s.Ville.str();
    c.Pays = s.Pays.str();
    c.Telephone = s.Telephone.str();
    c.EMail = s.EMail.str();
    c.URL = s.URL.str();
    CalculerParents(base, ctx, n, c);
    c.Unions = CalculerUnions(base, ctx, n);
    // Les enfants de la première union qui en a un, sinon de la deuxième.
    const std::int32_t f = FamiLue(base, p.Unions[1]).Enfants(1) > 0 ? p.Unions[1] : p.Unions[2];
    CalculerEnfants(base, ctx, f, c);
    c.Divers = CalculerDivers(base, ctx, n);
    c.Photo = PremiereImage(base, ctx, n);
    return c;
}

}  // namespace arbolix
