#include "lists/listes.h"

#include <cmath>

#include "card/lignes_personne.h"
#include "store/aides_texte.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

constexpr std::string_view kLegendePersos =
    "Entrez le d\xE9"
    "but du nom et du pr\xE9nom \xE0 chercher :\r\n* = tout (32700 max)\r\n"
    "(majuscules et accents indiff\xE9rents)";
constexpr std::string_view kLegendeFamis =
    "Entrez le d\xE9"
    "but du nom et du pr\xE9nom de l'\xE9poux ou/et de l'\xE9pouse \xE0 chercher :\r\n"
    "*=tout (32700 max) (majuscules+accents indiff\xE9rents)";
constexpr std::string_view kLegendeTexte =
    "Entrez le texte \xE0 chercher :\r\n(inutile de respecter les majuscules et accents)\r\n* = tout (32700 "
    "max)";
constexpr std::string_view kLegendeFichiers =
    "Entrez le texte \xE0 chercher dans les noms de fichier et leurs notes et liens :\r\n"
    "(inutile de respecter les majuscules et accents)\r\n* = tout (32700 max)";

bool InviteDue(const ContexteListe& ctx, std::int32_t nombre) {
    return ctx.inviter && (ctx.options.ListePersosCourte || nombre >= kSeuilListeCourte);
}

// Pose l'invite avec les réponses de la colonne ; faux quand elle est annulée ou ne
// laisse que des réponses vides (le texte de travail est vide).
bool Demander(ContexteListe& ctx, int colonne, std::string_view titre, std::string_view legende,
              std::vector<std::string> libelles) {
    Invite inv{std::string(titre), std::string(legende), std::move(libelles), {}};
    auto& reponses = ctx.reponses.r[colonne];
    for (std::size_t i = 0; i < inv.Libelles.size(); ++i) inv.Valeurs.push_back(reponses[i]);
    if (!ctx.inviter(inv)) return false;
    std::string travail;
    for (std::size_t i = 0; i < inv.Libelles.size(); ++i) {
        reponses[i] = i < inv.Valeurs.size() ? std::string(SansBlancs(inv.Valeurs[i])) : std::string();
        travail += reponses[i];
    }
    return !travail.empty();
}

std::string MotifNom(std::string_view reponse) {
    return CodeSon(reponse.empty() ? std::string_view("*") : reponse);
}

// Les patrons d'une personne : code du nom et prénoms.
struct MotifsPersonne {
    std::string code = "*", prenoms = "*";
    bool Accepte(const Perso& p) const {
        return Comme(p.CodeNom.vue(), code) && Comme(p.Prenoms.vue(), prenoms);
    }
};

MotifsPersonne Motifs(const std::string& nom, const std::string& prenoms, bool modifCasse) {
    return {MotifNom(nom), MotifPrenoms(prenoms, modifCasse)};
}

// Le texte d'une note pour la recherche et l'affichage : sur une ligne, coupé.
std::string Coupe(std::string_view texte, std::size_t longueur) {
    return Remplacer(Gauche(texte, longueur), "\r\n", " ");
}

void DefautsFiche(ContexteListe& ctx, int colonne, int ligne) {
    auto& r = ctx.reponses.r[colonne];
    if (!r[ligne].empty()) return;
    r[ligne] = ctx.NomFiche;
    if (r[ligne + 1].empty()) r[ligne + 1] = ctx.PrenomsFiche;
}

bool ListePersos(const Base& base, ContexteListe& ctx, ListePersonne& liste) {
    MotifsPersonne motifs;
    if (InviteDue(ctx, base.NbPersosReels)) {
        DefautsFiche(ctx, kColPersos, 0);
        if (!Demander(ctx, kColPersos, "Liste des personnes...", kLegendePersos, {"Nom", "Pr\xE9noms"}))
            return false;
        const auto& r = ctx.reponses.r[kColPersos];
        motifs = Motifs(r[0], r[1], ctx.options.ModifCasse);
    }
    const std::int32_t nouvelle = ProchainePersonne(base, ctx.Renumeroter);
    OuvrirListe(liste, "tous", "Choisissez une personne", " Ajouter..." + Queue('P', nouvelle), true);
    RemplissageTrie tri(static_cast<std::size_t>(base.NbPersosReels));
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& p = base.Persos[i];
        if (p.Sel == 0 || p.Prenoms.empty() || !motifs.Accepte(p)) return;
        std::string cle;
        cle.reserve(p.Nom.size() + p.Naissance.DateTri.size() + 6);
        cle.append(p.Nom.vue()).append(p.Naissance.DateTri.vue());
        AjouterSixChiffres(cle, i);
        tri.Ajouter(std::move(cle), i);
    });
    tri.Terminer(liste, [&](std::int32_t i) {
        std::string s = LigneListe(base, ctx.options, i);
        AjouterQueue(s, 'P', i);
        return s;
    });
    return true;
}

bool ListeFamis(const Base& base, ContexteListe& ctx, ListePersonne& liste) {
    MotifsPersonne mari, femme;
    if (InviteDue(ctx, base.NbPersosReels)) {
        DefautsFiche(ctx, kColFamis, 0);
        auto& r = ctx.reponses.r[kColFamis];
        if (ctx.ConjointFiche > 0 && r[2].empty()) {
            r[2] = PersoLu(base, ctx.ConjointFiche).Nom.str();
            if (r[3].empty()) r[3] = PersoLu(base, ctx.ConjointFiche).Prenoms.str();
        }
        if (!Demander(ctx, kColFamis, "Liste des familles...", kLegendeFamis,
                      {"Nom de l'\xE9poux", "Pr\xE9noms de l'\xE9poux", "Nom de l'\xE9pouse",
                       "Pr\xE9noms de l'\xE9pouse"}))
            return false;
        mari = Motifs(r[0], r[1], ctx.options.ModifCasse);
        femme = Motifs(r[2], r[3], ctx.options.ModifCasse);
    }
    OuvrirListe(liste, "familles", "Choisissez une famille", {}, true);
    const std::int32_t ecart = static_cast<std::int32_t>(ValeurNumerique(ctx.options.EcartGen));
    RemplissageTrie tri(static_cast<std::size_t>(base.NbFamisReels));
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        const Fami& f = base.Familles[i];
        if (f.Sel == 0) return;
        // La fiche vierge 0 répond pour l'époux absent.
        const Perso& h = PersoLu(base, f.Mari);
        const Perso& w = PersoLu(base, f.Femme);
        if (!mari.Accepte(h) || !femme.Accepte(w)) return;
        const int annee = f.Mariage.Annee     ? f.Mariage.Annee
                          : f.Contrat.Annee   ? f.Contrat.Annee
                          : h.Naissance.Annee ? h.Naissance.Annee
                                              : w.Naissance.Annee + ecart;
        tri.Ajouter((f.Mari > 0 ? h.Nom.str() : std::string()) + std::to_string(annee) + w.Nom, i);
    });
    tri.Terminer(liste, [&](std::int32_t i) {
        const Fami& f = base.Familles[i];
        return LigneListe(base, ctx.options, f.Mari) + " " + ctx.options.SymbMari + f.Mariage.Date + " " +
               LigneListe(base, ctx.options, f.Femme) + Queue('F', i);
    });
    return true;
}

// Notes et sources partagent tout sauf le champ lu, la table externe et la queue.
struct SorteAnnexe {
    const char* genre;
    const char* titreListe;
    const char* titreInvite;
    int colonne;
    Texte Acte::*champ;
    const Tableau<NoteExt> Base::*table;
    std::int32_t Base::*nbReels;
    std::int32_t Base::*nb;
    char queue;
    bool sansDatesRepublicaines;
    Texte Perso::*champPerso;  // la note de la personne elle-même, ou rien
};

constexpr SorteAnnexe kNotes{"notes",      "Choisissez une note", "Liste des notes", kColNotes, &Acte::Notes,
                             &Base::Notes, &Base::NbNotesReelles, &Base::NbNotes,    'N',       true,
                             &Perso::Notes};
constexpr SorteAnnexe kSources{
    "sources",      "Choisissez une source", "Liste des sources", kColSources, &Acte::Source,
    &Base::Sources, &Base::NbSourcesReelles, &Base::NbSources,    'S',         false,
    nullptr};

// Le motif de recherche d'un texte : "?*" pour tout, sinon "*réponse*", replié.
std::string MotifTexte(std::string_view reponse) {
    if (reponse.empty() || reponse == "*") return "?*";
    return "*" + Replier(reponse) + "*";
}

bool Trouve(std::string_view texte, const std::string& motif) {
    return Comme(Replier(Coupe(texte, 100)), motif);
}

bool ListeAnnexe(const Base& base, ContexteListe& ctx, ListePersonne& liste, const SorteAnnexe& s) {
    const Options& o = ctx.options;
    std::string motif = "?*";
    if (InviteDue(ctx, base.*(s.nbReels))) {
        auto& r = ctx.reponses.r[s.colonne];
        if (ctx.reponses.DernierGenre != s.genre || r[0].empty()) r[0] = "texte";
        if (!Demander(ctx, s.colonne, s.titreInvite, kLegendeTexte, {""})) return false;
        motif = MotifTexte(r[0]);
    }
    ctx.reponses.DernierGenre = s.genre;
    OuvrirListe(liste, s.genre, s.titreListe, {}, true);
    std::vector<Rangee> rangees;
    const auto republicaine = [&](const Texte& t) {
        return s.sansDatesRepublicaines && Comme(t.vue(), "##/?\?\?\?/##");
    };
    const std::pair<Acte Perso::*, const std::string Options::*> actesPerso[] = {
        {&Perso::Naissance, &Options::SymbNais},
        {&Perso::Bapteme, &Options::SymbBapt},
        {&Perso::Deces, &Options::SymbDece},
        {&Perso::Sepulture, &Options::SymbSepu}};
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& p = base.Persos[i];
        if (p.Sel == 0 || p.Prenoms.empty()) return;
        const std::string tete = p.Nom + " " + p.Prenoms + " " + o.SymbNais +
                                 (p.Naissance.Annee ? std::to_string(p.Naissance.Annee) : std::string()) +
                                 " ";
        if (s.champPerso && !(p.*(s.champPerso)).empty() && Trouve(p.*(s.champPerso), motif))
            rangees.push_back({tete + Coupe(p.*(s.champPerso), 100) + Queue('P', i), i});
        for (const auto& [acte, symbole] : actesPerso) {
            const Texte& t = (p.*acte).*(s.champ);
            if (t.empty() || republicaine(t) || !Trouve(t, motif)) continue;
            rangees.push_back({tete + Coupe(t, 100) + Queue((o.*symbole)[0], i), i});
        }
    });
    const std::pair<Acte Fami::*, const std::string Options::*> actesFami[] = {
        {&Fami::Mariage, &Options::SymbMari},
        {&Fami::Contrat, &Options::SymbCoMa},
        {&Fami::Divorce, &Options::SymbDivo}};
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        const Fami& f = base.Familles[i];
        if (f.Sel == 0) return;
        // Sans mari, c'est l'épouse qui nomme la famille.
        const Perso& nomme = PersoLu(base, f.Mari > 0 ? f.Mari : f.Femme);
        const std::string tete = nomme.Nom + " " + nomme.Prenoms + " " + o.SymbMari +
                                 (f.Mariage.Annee ? std::to_string(f.Mariage.Annee) : std::string()) + " ";
        for (const auto& [acte, symbole] : actesFami) {
            const Texte& t = (f.*acte).*(s.champ);
            if (t.empty() || republicaine(t) || !Trouve(t, motif)) continue;
            rangees.push_back({tete + Coupe(t, 100) + Queue((o.*symbole)[0], i), i});
        }
    });
    const Tableau<NoteExt>& table = base.*(s.table);
    for (std::int32_t i = 1; i <= base.*(s.nb) && i <= table.Haut(); ++i) {
        const NoteExt& n = table[i];
        if (n.Sel == 0) continue;
        // Un blanc entre titre et texte, pour que la rangée se lise.
        const std::string texte =
            n.Titre.empty() || n.Texte.empty() ? n.Titre + n.Texte : n.Titre + " " + n.Texte;
        if (texte.empty() || !Trouve(texte, motif)) continue;
        rangees.push_back({Coupe(Gauche(texte, 150), 150) + Queue(s.queue, i), i});
    }
    AjouterTriees(liste, std::move(rangees));
    return true;
}

// Recherche dans les fichiers : le premier mot passe par le code phonétique sans ses zéros.
std::string MotifFichiers(std::string_view reponse) {
    if (reponse.empty() || reponse == "*") return "*";
    const std::string_view r = SansBlancs(reponse);
    const auto blanc = r.find(' ');
    std::string premier = CodeSon(r.substr(0, blanc));
    std::erase(premier, '0');
    std::string suite = blanc == std::string_view::npos ? std::string() : std::string(r.substr(blanc));
    return "*" + Replier(premier + suite) + "*";
}

std::string Lettre(const std::string& symbole) {
    return symbole.empty() ? std::string(" ") : symbole.substr(0, 1);
}

void TexteRecents(const ListePersonne& liste, std::string& tete) {
    static constexpr const char* kTextes[] = {"Aujourd'hui", "Plus (Cette semaine)",
                                              "Plus (Ces 2 derniers mois)",
                                              ("Plus (Cette ann\xE9"
                                               "e)")};
    const int i = static_cast<int>(std::lround(std::log(liste.FenetreJours) / std::log(7.0)));
    tete = std::string(kTextes[std::clamp(i, 0, 3)]) + " ...";
}

void RemplirRecents(const Base& base, const Options& o, double limite, ListePersonne& liste) {
    RemplissageTrie tri;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& p = base.Persos[i];
        if (p.Sel != 0 && p.DateModif >= limite && p.DateModif > 0)
            tri.Ajouter(p.NomTri + p.Naissance.DateTri, i);
    });
    base.Familles.PourChaqueEcrit(1, base.NbFamis, [&](std::int32_t i) {
        const Fami& f = base.Familles[i];
        if (f.Sel == 0 || f.DateModif < limite || f.DateModif <= 0) return;
        // Une famille changée dont les époux ne l'ont pas été : on la montre par le mari.
        if (PersoLu(base, f.Mari).DateModif >= limite || PersoLu(base, f.Femme).DateModif >= limite) return;
        const std::int32_t n = f.Mari > 0 ? f.Mari : f.Femme;
        if (n > 0) tri.Ajouter(PersoLu(base, n).NomTri + f.Mariage.DateTri, n);
    });
    tri.Terminer(liste, [&](std::int32_t i) {
        const Perso& p = PersoLu(base, i);
        std::string s = LigneListe(base, o, i);
        const Texte& mariage = FamiLue(base, p.Unions[1]).Mariage.Date;
        if (p.Unions[1] > 0 && !mariage.empty()) s += " " + o.SymbMari + mariage;
        return s + Queue('P', i);
    });
}

enum class Sorte { Personne, Famille, Autre };
Sorte SorteDuGenre(const Options& o, char g) {
    if (g == 'P') return Sorte::Personne;
    if (g == 'F') return Sorte::Famille;
    for (const std::string* s : {&o.SymbNais, &o.SymbBapt, &o.SymbDece, &o.SymbSepu})
        if (!s->empty() && (*s)[0] == g) return Sorte::Personne;
    for (const std::string* s : {&o.SymbMari, &o.SymbCoMa, &o.SymbDivo})
        if (!s->empty() && (*s)[0] == g) return Sorte::Famille;
    return Sorte::Autre;
}

std::int32_t EpouxDeFamille(const Base& base, std::int32_t f) {
    if (f < 1 || f > base.NbFamis) return 0;
    const Fami& fam = FamiLue(base, f);
    return fam.Mari > 0 ? fam.Mari : fam.Femme;
}

}  // namespace

std::int32_t ProchainePersonne(const Base& base, bool renumeroter) {
    if (!renumeroter) return base.NbPersos + 1;
    std::int32_t n = 1;
    while (n <= base.NbPersos && PersonneExiste(base, n)) ++n;
    return n;
}

std::string MotifPrenoms(std::string_view reponse, bool modifCasse) {
    std::string m = Majuscules(reponse, 1, modifCasse);
    if (m.empty() || m.back() != '*') m += '*';
    return m;
}

std::string Replier(std::string_view texte) {
    std::string s;
    s.reserve(texte.size());
    for (char c : texte) {
        if (static_cast<unsigned char>(c) >= 0x80) {
            const std::string r = SansAccents(std::string_view(&c, 1), false);
            if (r != "_") {
                s += EnMinuscules(r);
                continue;
            }
        }
        s += Minuscule1252(c);
    }
    return s;
}

bool ChercherEtLister(const Base& base, ContexteListe& ctx, QuoiListe quoi, ListePersonne& liste) {
    return quoi == QuoiListe::Persos ? ListePersos(base, ctx, liste) : ListeFamis(base, ctx, liste);
}

bool ListeNotes(const Base& base, ContexteListe& ctx, ListePersonne& liste) {
    return ListeAnnexe(base, ctx, liste, kNotes);
}

bool ListeSources(const Base& base, ContexteListe& ctx, ListePersonne& liste) {
    return ListeAnnexe(base, ctx, liste, kSources);
}

bool ListeFichiers(const Base& base, ContexteListe& ctx, ListePersonne& liste) {
    std::string motif = "*";
    if (InviteDue(ctx, base.NbPersosReels)) {
        auto& r = ctx.reponses.r[kColFichiers];
        if (r[0].empty()) r[0] = "image";
        if (!Demander(ctx, kColFichiers, "Liste des fichiers", kLegendeFichiers, {""})) return false;
        motif = MotifFichiers(r[0]);
    }
    const Options& o = ctx.options;
    OuvrirListe(liste, "fichiers", "Choisissez un fichier", {}, true);
    std::vector<Rangee> rangees;
    base.Persos.PourChaqueEcrit(1, base.NbPersos, [&](std::int32_t i) {
        const Perso& p = base.Persos[i];
        if (p.Sel == 0 || p.Prenoms.empty()) return;
        for (int k = 1; k <= kMaxLiens; ++k) {
            const Texte& chemin = p.Suite().Fichiers(k);
            if (chemin.empty()) break;
            if (!Comme(Replier(p.CodeNom + " " + p.Prenoms + " " + chemin), motif)) continue;
            std::string s;
            if (p.Naissance.Annee != 0) s = o.SymbNais + " " + std::to_string(p.Naissance.Annee) + " ";
            s += std::to_string(i) + " " + p.Nom + " " + p.Prenoms + "  " + chemin + Queue('P', i);
            rangees.push_back({std::move(s), i});
        }
    });
    for (std::int32_t m = 1; m <= base.NbMedias && m <= base.Medias.Haut(); ++m) {
        const ObjetMedia& om = base.Medias[m];
        if (om.Actif == 0 || om.Local != 0) continue;
        for (int k = 1; k <= kMaxLiens; ++k) {
            const Texte& chemin = om.Fichiers(k);
            if (chemin.empty()) continue;
            const std::string titre = om.Titres(k) + " " + chemin;
            if (!Comme(Replier(titre), motif)) continue;
            rangees.push_back({std::string(Gauche(titre, 150)) + "  " + chemin + Queue('M', m), m});
        }
    }
    AjouterTriees(liste, std::move(rangees));
    return true;
}

void OuvrirRecents(const Base& base, const Options& options, std::string_view titre, double aujourdhui,
                   ListePersonne& liste) {
    OuvrirListe(liste, "recents", titre, "...", true);
    liste.FenetreJours = 1;
    AgrandirRecents(base, options, aujourdhui, liste);
}

void AgrandirRecents(const Base& base, const Options& options, double aujourdhui, ListePersonne& liste) {
    const double limite = std::floor(aujourdhui) - liste.FenetreJours;
    liste.FenetreJours *= 7;
    if (liste.FenetreJours > 366) liste.FenetreJours = 1;
    std::string tete;
    TexteRecents(liste, tete);
    OuvrirListe(liste, "recents", liste.Titre, tete, true);
    RemplirRecents(base, options, limite, liste);
}

int JoursRecents(const ListePersonne& liste) {
    return liste.FenetreJours;
}

std::string CheminDeRangee(std::string_view rangee) {
    const auto p = rangee.find("  ");
    if (p == std::string_view::npos || rangee.size() < p + 2 + 8) return {};
    return std::string(rangee.substr(p + 2, rangee.size() - p - 2 - 8));
}

std::string BulleRangee(const Base& base, const Options& o, const ListePersonne& liste, std::size_t rangee) {
    if (rangee >= liste.Rangees.size()) return {};
    const LectureQueue q = LireQueue(liste.Rangees[rangee].texte);
    const std::int32_t n = q.numero;
    if (n <= 0) return {};
    if (q.genre == 'N' || q.genre == 'S') {
        const auto& table = q.genre == 'N' ? base.Notes : base.Sources;
        return n <= table.Haut() ? table[n].Texte.str() : std::string();
    }
    if (q.genre == 'M') return n <= base.Medias.Haut() ? base.Medias[n].Titres(1).str() : std::string();
    if (q.genre == 'P') return DetailPersonne(base, o, n);
    if (q.genre == 'F') {
        const Fami& f = FamiLue(base, n);
        return DetailPersonne(base, o, f.Mari) + " " + DetailPersonne(base, o, f.Femme);
    }
    const std::string g(1, q.genre);
    const Perso& p = PersoLu(base, n);
    const auto detail = [&](const Acte& a, bool lieu) {
        return DetailPersonne(base, o, n) + " " + g + a.Date + (lieu ? " " + a.Lieu : std::string(" "));
    };
    if (g == Lettre(o.SymbNais)) return detail(p.Naissance, false);
    if (g == Lettre(o.SymbBapt)) return detail(p.Bapteme, false);
    if (g == Lettre(o.SymbDece)) return detail(p.Deces, false);
    if (g == Lettre(o.SymbSepu)) return detail(p.Sepulture, true);
    const Fami& f = FamiLue(base, n);
    const auto famille = [&](const Acte& a) {
        return DetailPersonne(base, o, f.Mari) + " " + g + a.Date + " " + a.Lieu + " " +
               DetailPersonne(base, o, f.Femme);
    };
    if (g == Lettre(o.SymbMari)) return famille(f.Mariage);
    if (g == Lettre(o.SymbCoMa)) return famille(f.Contrat);
    if (g == Lettre(o.SymbDivo)) return famille(f.Divorce);
    return {};
}

Reaction DoubleClic(const Base& base, const Options& o, const ListePersonne& liste, std::size_t rangee) {
    if (rangee >= liste.Rangees.size()) return {};
    const std::string& texte = liste.Rangees[rangee].texte;
    const LectureQueue q = LireQueue(texte);
    const std::string& g = liste.Genre;
    const bool tete = rangee == 0 && liste.LigneDeTete;
    if (g == "tous") {
        if (tete) return {ActionListe::NouvellePersonne, 0, {}, true};
        return {ActionListe::Afficher, q.numero, {}, true};
    }
    if (g == "familles") return {ActionListe::Afficher, EpouxDeFamille(base, q.numero), {}, true};
    if (g == "recents") {
        if (tete) return {ActionListe::AgrandirRecents, 0, {}, false};
        return {ActionListe::Afficher, q.numero, {}, true};
    }
    // Actes vides : la ligne de tête lance le calcul de l'autre sorte d'acte.
    if (g == "vides0" || g == "vides1") {
        if (tete) return {ActionListe::EstimerActesVides, g == "vides0" ? 1 : 0, {}, true};
        if (q.genre == 'F') return {ActionListe::Afficher, EpouxDeFamille(base, q.numero), {}, false};
        return {ActionListe::Afficher, q.numero, {}, false};
    }
    if (g == "fichiers") return {ActionListe::OuvrirFichier, q.numero, CheminDeRangee(texte), true};
    if (g == "actes") {
        // " Exporter..." revient à l'export des actes, qui prend la liste telle qu'elle est.
        if (tete) return {};
        const bool famille = SorteDuGenre(o, q.genre) == Sorte::Famille;
        return {ActionListe::Afficher, famille ? EpouxDeFamille(base, q.numero) : q.numero, {}, true};
    }
    // Les listes de valeurs de « Rechercher et remplacer » : la valeur de la rangée à remplacer.
    for (const char* valeurs : {"nom", "nom de tri", "pr\xE9nom", "m\xE9tier", "lieu", "source"})
        if (g == valeurs) return {ActionListe::RemplacerValeur, static_cast<std::int32_t>(rangee), {}, true};
    if (g == "interech") return {ActionListe::Afficher, q.numero, {}, true};
    if (g == "domicile") return tete ? Reaction{} : Reaction{ActionListe::Afficher, q.numero, {}, true};
    if (g == "anccom") return {ActionListe::ListeParente, q.numero, {}, false};
    // La liste reste ouverte : d'autres branches peuvent être dessinées.
    if (g == "parente") return tete ? Reaction{} : Reaction{ActionListe::ArbreParente, q.numero, {}, false};
    if (g == "etiquettes") {
        if (tete) return {ActionListe::ImprimerEtiquettes, 0, {}, true};
        return {ActionListe::RetirerEtiquette, static_cast<std::int32_t>(rangee), {}, false};
    }
    if (g == "enfants-arbre") return {ActionListe::DecalerArbre, q.numero, {}, true};
    if (g == "notes" || g == "sources") {
        if (q.genre == 'N') return {ActionListe::OuvrirNote, q.numero, {}, true};
        if (q.genre == 'S') return {ActionListe::OuvrirSource, q.numero, {}, true};
        if (SorteDuGenre(o, q.genre) == Sorte::Famille)
            return {ActionListe::Afficher, EpouxDeFamille(base, q.numero), {}, true};
        return {ActionListe::Afficher, q.numero, {}, true};
    }
    return {};
}

Reaction ClicDroit(const Base& base, const Options& o, const ListePersonne& liste, std::size_t rangee) {
    if (rangee >= liste.Rangees.size()) return {};
    const std::string& texte = liste.Rangees[rangee].texte;
    const LectureQueue q = LireQueue(texte);
    const std::string& g = liste.Genre;
    const auto personne = [&](std::int32_t n) {
        return n >= 1 && n <= base.NbPersos ? Reaction{ActionListe::Afficher, n, {}, false} : Reaction{};
    };
    if (g == "notes" || g == "sources") {
        const char kind = g == "notes" ? 'N' : 'S';
        const ActionListe ouvrir = kind == 'N' ? ActionListe::OuvrirNote : ActionListe::OuvrirSource;
        if (q.genre == kind) return {ouvrir, q.numero, {}, false};
        // Une rangée qui tient un lien "@N12@" ouvre cette note et compte comme une personne.
        const std::string lien = std::string("@") + kind;
        const auto p = texte.find(lien);
        if (p != std::string::npos) {
            const auto fin = texte.find('@', p + 2);
            const std::int32_t note =
                fin == std::string::npos ? 0 : LienExterne(texte.substr(p, fin - p + 1), kind);
            if (note > 0) return {ouvrir, note, {}, false, personne(q.numero).numero};
        }
        return {};
    }
    if (g == "tous" || g == "recents" || g == "domicile") return personne(q.numero);
    if (g == "familles") return personne(EpouxDeFamille(base, q.numero));
    if (g == "actes") {
        const Sorte sorte = SorteDuGenre(o, q.genre);
        if (sorte == Sorte::Famille) return personne(EpouxDeFamille(base, q.numero));
        return sorte == Sorte::Personne ? personne(q.numero) : Reaction{};
    }
    if (g == "fichiers") {
        Reaction r{ActionListe::ProprietesFichier, q.numero, CheminDeRangee(texte), false};
        if (q.genre == 'M' || SorteDuGenre(o, q.genre) == Sorte::Famille) {
            // Le propriétaire d'un objet média : sa première personne, sinon un époux de sa première famille.
            const ObjetMedia& m = q.numero <= base.Medias.Haut() ? base.Medias[q.numero] : base.Medias[0];
            r.puisAfficher = m.LiensPersos(1) > 0 ? m.LiensPersos(1) : EpouxDeFamille(base, m.LiensFamis(1));
        } else {
            r.puisAfficher = q.numero;
        }
        return r;
    }
    return {};
}

std::optional<std::size_t> SautLettre(const ListePersonne& liste, char lettre) {
    if (lettre < 'a' || lettre > 'z' || liste.Rangees.empty()) return std::nullopt;
    std::size_t i = 0;
    const auto premier = [&](std::size_t k) {
        const std::string& t = liste.Rangees[k].texte;
        return Minuscule1252(t.empty() ? '0' : t[0]);
    };
    while (i + 1 < liste.Rangees.size() &&
           static_cast<unsigned char>(premier(i)) < static_cast<unsigned char>(lettre))
        ++i;
    return i;
}

}  // namespace arbolix
