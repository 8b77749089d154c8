#include "card/notes.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "store/chaines.h"

namespace arbolix {

namespace {

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

}  // namespace

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

}  // namespace arbolix
