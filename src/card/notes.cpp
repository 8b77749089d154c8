#include "card/notes.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "gedcom/lecture_liens.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

using Retours = Emplacements<std::int32_t, 1, kMaxLiens>;

constexpr Acte Perso::*kActesDePerso[kActesPerso] = {&Perso::Naissance, &Perso::Bapteme, &Perso::Deces,
                                                     &Perso::Sepulture};
constexpr Acte Fami::*kActesDeFami[kActesFami] = {&Fami::Contrat, &Fami::Mariage, &Fami::Divorce};

bool DansTableau(std::int32_t n, std::int32_t haut) {
    return n >= 1 && n <= haut;
}

std::int32_t Haut(const Base& base, char genre) {
    return genre == 'M' ? base.Medias.Haut() : NotesDuGenre(base, genre).Haut();
}

Retours& RetoursDe(Base& base, char genre, std::int32_t n, bool famille) {
    if (genre == 'M') return famille ? base.Medias[n].LiensFamis : base.Medias[n].LiensPersos;
    NoteExt& e = NotesDuGenre(base, genre)[n];
    return famille ? e.LiensFamis : e.LiensPersos;
}

int Compter(const Retours& r, std::int32_t qui) {
    int n = 0;
    for (const auto& c : r) n += c.second == qui;
    return n;
}

// Combien de champs de l'acte citent la note ou la source n.
int LiensActe(const Acte& a, char genre, std::int32_t n) {
    return genre == 'N' ? NumeroDuLien(a.Notes, 'N') == n : NumeroDuLien(a.Source, 'S') == n;
}

// Nombre de places que qui doit tenir chez la fiche n : une par champ cité pour une
// note ou une source, une seule pour un objet média, quel que soit le nombre de liens.
int Occurrences(const Base& base, char genre, std::int32_t n, bool famille, std::int32_t qui) {
    int total = 0;
    if (famille) {
        if (!DansTableau(qui, base.Familles.Haut())) return 0;
        const Fami& f = base.Familles[qui];
        for (auto acte : kActesDeFami)
            total += genre == 'M' ? Contient((f.*acte).Liens().Medias, n) : LiensActe(f.*acte, genre, n);
    } else {
        if (!DansTableau(qui, base.Persos.Haut())) return 0;
        const Perso& p = base.Persos[qui];
        if (genre == 'N') total += NumeroDuLien(p.Notes, 'N') == n;
        if (genre == 'M') total += Contient(p.Suite().ObjetsMedia, n);
        for (auto acte : kActesDePerso)
            total += genre == 'M' ? Contient((p.*acte).Liens().Medias, n) : LiensActe(p.*acte, genre, n);
    }
    return genre == 'M' ? std::min(total, 1) : total;
}

// Donne à qui les places qui lui manquent, tant qu'il en reste.
void Combler(Retours& r, int manque, std::int32_t qui) {
    for (; manque > 0; --manque)
        if (!PlacerPremierLibre(r, qui)) return;
}

// Une place vient de se libérer chez une fiche qui était pleine : un lien resté
// sans retour la reprend, dans l'ordre des numéros.
void Completer(Base& base, char genre, std::int32_t n) {
    const Base& lu = base;
    for (bool famille : {false, true}) {
        if (genre == 'M' && famille) return;
        Retours& r = RetoursDe(base, genre, n, famille);
        const std::int32_t fin =
            famille ? std::min(lu.NbFamis, lu.Familles.Haut()) : std::min(lu.NbPersos, lu.Persos.Haut());
        for (std::int32_t q = 1; q <= fin && r.PremierLibre() <= kMaxLiens; ++q)
            Combler(r, Occurrences(lu, genre, n, famille, q) - Compter(r, q), q);
    }
}

Texte& TexteModif(Base& base, const ChampLien& c) {
    if (c.famille) {
        Acte* a = ActeDe(base.Familles[c.numero], c.acte);
        if (!a) throw std::out_of_range("champ de famille inconnu");
        return c.source ? a->Source : a->Notes;
    }
    Perso& p = base.Persos[c.numero];
    if (c.acte == 0 && !c.source) return p.Notes;
    Acte* a = ActeDe(p, c.acte);
    if (!a) throw std::out_of_range("champ de personne inconnu");
    return c.source ? a->Source : a->Notes;
}

template <typename F>
void PourChaqueFiche(Tableau<NoteExt>& t, std::int32_t fin, F&& f) {
    t.PourChaqueEcrit(1, fin, [&](std::int32_t i) { f(t[i]); });
}

void LierChamp(Base& base, std::string_view texte, char genre, bool famille, std::int32_t qui) {
    const std::int32_t g = NumeroDuLien(texte, genre);
    if (DansTableau(g, Haut(base, genre))) PlacerPremierLibre(RetoursDe(base, genre, g, famille), qui);
}

void LierMediasActe(Base& base, const Acte& a, std::int32_t qui) {
    for (const auto& [i, m] : a.Liens().Medias) {
        if (!DansTableau(m, base.Medias.Haut())) continue;
        Retours& r = base.Medias[m].LiensPersos;
        if (!Contient(r, qui)) PlacerPremierLibre(r, qui);
    }
}

void ReconstruirePersonne(Base& base, std::int32_t p) {
    const Perso& pe = std::as_const(base.Persos)[p];
    LierChamp(base, pe.Notes, 'N', false, p);
    for (auto acte : kActesDePerso) {
        LierChamp(base, (pe.*acte).Notes, 'N', false, p);
        LierChamp(base, (pe.*acte).Source, 'S', false, p);
    }
    for (const auto& [i, m] : pe.Suite().ObjetsMedia) {
        if (!DansTableau(m, base.Medias.Haut())) continue;
        Retours& r = base.Medias[m].LiensPersos;
        if (!Contient(r, p)) PlacerPremierLibre(r, p);
    }
    for (auto acte : kActesDePerso) LierMediasActe(base, pe.*acte, p);
}

}  // namespace

Acte* ActeDe(Perso& p, int n) {
    return n >= 1 && n <= kActesPerso ? &(p.*kActesDePerso[n - 1]) : nullptr;
}
Acte* ActeDe(Fami& f, int n) {
    return n >= 1 && n <= kActesFami ? &(f.*kActesDeFami[n - 1]) : nullptr;
}
const Acte* ActeDe(const Perso& p, int n) {
    return n >= 1 && n <= kActesPerso ? &(p.*kActesDePerso[n - 1]) : nullptr;
}
const Acte* ActeDe(const Fami& f, int n) {
    return n >= 1 && n <= kActesFami ? &(f.*kActesDeFami[n - 1]) : nullptr;
}

Tableau<NoteExt>& NotesDuGenre(Base& base, char genre) {
    return genre == 'S' ? base.Sources : base.Notes;
}
const Tableau<NoteExt>& NotesDuGenre(const Base& base, char genre) {
    return genre == 'S' ? base.Sources : base.Notes;
}

const Texte& TexteDuChamp(const Base& base, const ChampLien& c) {
    if (c.famille) {
        const Acte* a = ActeDe(base.Familles[c.numero], c.acte);
        if (!a) throw std::out_of_range("champ de famille inconnu");
        return c.source ? a->Source : a->Notes;
    }
    const Perso& p = base.Persos[c.numero];
    if (c.acte == 0 && !c.source) return p.Notes;
    const Acte* a = ActeDe(p, c.acte);
    if (!a) throw std::out_of_range("champ de personne inconnu");
    return c.source ? a->Source : a->Notes;
}

void AccorderRetour(Base& base, char genre, std::int32_t numero, bool famille, std::int32_t qui) {
    if (!DansTableau(numero, Haut(base, genre)) || qui <= 0) return;
    Retours& r = RetoursDe(base, genre, numero, famille);
    const bool etaitPleine = r.PremierLibre() > kMaxLiens;
    const int voulu = Occurrences(base, genre, numero, famille, qui);
    int tenu = Compter(r, qui);
    // Les places en trop partent par la fin : les premiers liens gardent leur rang.
    for (int i = kMaxLiens; i >= 1 && tenu > voulu; --i) {
        if (r(i) != qui) continue;
        r.Fixer(i, 0);
        --tenu;
    }
    Combler(r, voulu - tenu, qui);
    if (etaitPleine && r.PremierLibre() <= kMaxLiens) Completer(base, genre, numero);
}

void ChangerChamp(Base& base, const ChampLien& c, std::string_view texte, Dialogue* dialogue) {
    const char genre = GenreDuChamp(c);
    Texte& t = TexteModif(base, c);
    const std::int32_t ancien = NumeroDuLien(t, genre);
    const std::int32_t nouveau = NumeroDuLien(texte, genre);
    t = texte;
    if (ancien == nouveau) return;
    AccorderRetour(base, genre, nouveau, c.famille, c.numero);
    AccorderRetour(base, genre, ancien, c.famille, c.numero);
    if (dialogue && DansTableau(ancien, Haut(base, genre)))
        SupprimerOrpheline(base, genre, ancien, *dialogue);
}

std::int32_t NouvelleNote(Base& base, char genre) {
    const bool source = genre == 'S';
    std::int32_t& nb = source ? base.NbSources : base.NbNotes;
    const std::int32_t n = nb + 1;
    if (n > base.Notes.Haut()) RedimensionnerBase(base, (n / 5000 + 1) * 5000);
    NoteExt& e = NotesDuGenre(base, genre)[n];
    e = NoteExt{};
    e.Sel = kVrai;
    nb = n;
    ++(source ? base.NbSourcesReelles : base.NbNotesReelles);
    base.FichierModifie = kVrai;
    return n;
}

namespace {

bool ALiens(const Retours& persos, const Retours& famis) {
    for (const Retours* r : {&persos, &famis})
        for (const auto& c : *r)
            if (c.second > 0) return true;
    return false;
}

void Decompter(std::int32_t& nb, std::int32_t& reels, std::int32_t numero) {
    if (reels > 0) --reels;
    if (numero == nb) --nb;
}

void EffacerNote(Base& base, char genre, std::int32_t numero) {
    NoteExt& e = NotesDuGenre(base, genre)[numero];
    e.Titre.clear();
    e.Texte.clear();
    e.Sel = kFaux;
    e.SelAvant = kFaux;
    if (genre == 'S')
        Decompter(base.NbSources, base.NbSourcesReelles, numero);
    else
        Decompter(base.NbNotes, base.NbNotesReelles, numero);
    base.FichierModifie = kVrai;
}

bool SupprimerMedia(Base& base, std::int32_t m, Dialogue& dialogue) {
    const ObjetMedia& lu = std::as_const(base.Medias)[m];
    if (ALiens(lu.LiensPersos, lu.LiensFamis) || lu.NumNote > 0 || lu.NumSource > 0) return false;
    const std::string texte =
        lu.Fichiers(1) + "\r\n" + lu.Titres(1) + "\r\n n'a plus aucun lien.\r\nVoulez-vous le supprimer ?";
    if (dialogue.Message("Objet m\xE9"
                         "dia sans lien",
                         texte, Icone::Question, Boutons::OuiNon, Bouton::Non) != Bouton::Oui)
        return false;
    ObjetMedia& o = base.Medias[m];
    o.Fichiers.clear();
    o.Titres.clear();
    o.NumNote = 0;
    o.NumSource = 0;
    // Sans fichier l'objet n'est plus en usage : l'écrivain ne doit plus le sortir.
    o.Actif = 0;
    Decompter(base.NbMedias, base.NbMediasReels, m);
    base.FichierModifie = kVrai;
    return true;
}

}  // namespace

bool AbandonnerNote(Base& base, char genre, std::int32_t numero) {
    if (genre == 'M' || !DansTableau(numero, Haut(base, genre))) return false;
    const NoteExt& lu = std::as_const(NotesDuGenre(base, genre))[numero];
    if (ALiens(lu.LiensPersos, lu.LiensFamis) || !lu.Titre.empty() || !lu.Texte.empty()) return false;
    EffacerNote(base, genre, numero);
    return true;
}

bool SupprimerOrpheline(Base& base, char genre, std::int32_t numero, Dialogue& dialogue) {
    if (!DansTableau(numero, Haut(base, genre))) return false;
    if (genre == 'M') return SupprimerMedia(base, numero, dialogue);
    const bool source = genre == 'S';
    const NoteExt& lu = std::as_const(NotesDuGenre(base, genre))[numero];
    if (ALiens(lu.LiensPersos, lu.LiensFamis)) return false;
    const std::string texte =
        lu.Titre + "\r\n" + lu.Texte + "\r\n n'a plus aucun lien.\r\nVoulez-vous la supprimer ?";
    const char* titre = source ? "Source externe sans lien" : "Note externe sans lien";
    if (dialogue.Message(titre, texte, Icone::Question, Boutons::OuiNon, Bouton::Non) != Bouton::Oui)
        return false;
    EffacerNote(base, genre, numero);
    return true;
}

std::optional<std::string> LireFichierTexte(const std::string& chemin) {
    std::ifstream f(chemin, std::ios::binary);
    if (!f) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>());
}

bool EcrireFichierTexte(const std::string& chemin, std::string_view texte) {
    std::ofstream f(chemin, std::ios::binary | std::ios::trunc);
    f.write(texte.data(), static_cast<std::streamsize>(texte.size()));
    return static_cast<bool>(f);
}

std::string CouperLignes(std::string_view texte, std::size_t largeur, std::size_t maxLignes) {
    std::vector<std::string> lignes;
    std::string courante;
    const auto pousser = [&] { lignes.push_back(std::exchange(courante, {})); };
    for (std::size_t debut = 0; debut <= texte.size() && lignes.size() < maxLignes;) {
        std::size_t fin = texte.find('\n', debut);
        if (fin == std::string_view::npos) fin = texte.size();
        std::string_view paragraphe = texte.substr(debut, fin - debut);
        if (!paragraphe.empty() && paragraphe.back() == '\r') paragraphe.remove_suffix(1);
        for (std::size_t p = 0; p < paragraphe.size();) {
            const std::size_t blanc = std::min(paragraphe.find(' ', p), paragraphe.size());
            std::string_view mot = paragraphe.substr(p, blanc - p);
            p = blanc + 1;
            if (mot.empty()) continue;
            if (!courante.empty() && courante.size() + 1 + mot.size() > largeur) pousser();
            while (mot.size() > largeur) {
                if (!courante.empty()) pousser();
                courante = mot.substr(0, largeur);
                mot.remove_prefix(largeur);
                pousser();
            }
            if (!mot.empty()) courante += courante.empty() ? std::string(mot) : " " + std::string(mot);
        }
        pousser();
        debut = fin + 1;
    }
    while (!lignes.empty() && lignes.back().empty()) lignes.pop_back();
    if (lignes.size() > maxLignes) lignes.resize(maxLignes);
    std::string r;
    for (std::size_t i = 0; i < lignes.size(); ++i) r += (i ? "\r\n" : "") + lignes[i];
    return r;
}

void ModifierNote(Base& base, char genre, std::int32_t numero, std::string_view titre,
                  std::string_view texte) {
    std::string t(texte);
    // Seul un chemin absolu compte : un titre ordinaire ne doit pas tomber sur un fichier du dossier courant.
    std::error_code ec;
    const std::filesystem::path chemin(titre);
    if (chemin.is_absolute() && std::filesystem::is_regular_file(chemin, ec))
        if (auto contenu = LireFichierTexte(chemin.string())) t = CouperLignes(*contenu, 75, 9);
    NoteExt& e = NotesDuGenre(base, genre)[numero];
    e.Titre = titre;
    e.Texte = t;
    if (numero > 0 && DansTableau(base.NumCourant, base.Persos.Haut()))
        e.Sel = std::as_const(base.Persos)[base.NumCourant].Sel;
    base.FichierModifie = kVrai;
}

std::vector<std::string> LignesChoixNotes(const Base& base, char genre) {
    const std::string marque = genre == 'S' ? " S" : " N";
    std::vector<std::string> r{"  Ajouter..." + marque + "000000"};
    const auto& notes = NotesDuGenre(base, genre);
    const std::int32_t fin = std::min(genre == 'S' ? base.NbSources : base.NbNotes, notes.Haut());
    for (std::int32_t n = 1; n <= fin; ++n) {
        const NoteExt& e = notes[n];
        const std::string_view vue = e.Titre.empty() ? e.Texte.vue() : e.Titre.vue();
        if (vue.empty()) continue;
        r.push_back(Remplacer(Gauche(vue, 150), "\r\n", " ") + marque + Zeros(n, 6));
    }
    return r;
}

void ReconstruireLiens(Base& base) {
    const auto vider = [](NoteExt& e) {
        e.LiensPersos.clear();
        e.LiensFamis.clear();
    };
    PourChaqueFiche(base.Notes, base.Notes.Haut(), vider);
    PourChaqueFiche(base.Sources, base.Sources.Haut(), vider);
    base.Medias.PourChaqueEcrit(1, base.Medias.Haut(),
                                [&](std::int32_t m) { base.Medias[m].LiensPersos.clear(); });
    // Seules les pages écrites : un numéro isolé très haut ne fait pas parcourir des millions de fiches.
    base.Persos.PourChaqueEcrit(1, std::min(base.NbPersos, base.Persos.Haut()), [&](std::int32_t p) {
        if (PersonneExiste(base, p)) ReconstruirePersonne(base, p);
    });
    base.Familles.PourChaqueEcrit(1, std::min(base.NbFamis, base.Familles.Haut()), [&](std::int32_t f) {
        const Fami& fa = std::as_const(base.Familles)[f];
        for (auto acte : kActesDeFami) {
            LierChamp(base, (fa.*acte).Notes, 'N', true, f);
            LierChamp(base, (fa.*acte).Source, 'S', true, f);
        }
    });
}

}  // namespace arbolix
