#include "verify/nettoyage.h"

#include <string>

#include "card/lignes_personne.h"
#include "store/chaines.h"

namespace arbolix {

namespace {

// Les évènements de chaque fiche, dans l'ordre où les commandes les parcourent.
template <typename Action>
void PourChaqueActe(Base& base, Action&& action) {
    const Base& lu = base;
    lu.Persos.PourChaqueEcrit(1, lu.NbPersos, [&](std::int32_t n) {
        if (lu.Persos[n].Prenoms.empty()) return;
        Perso& p = base.Persos[n];
        for (Acte* a : {&p.Naissance, &p.Bapteme, &p.Deces, &p.Sepulture}) action(*a);
    });
    lu.Familles.PourChaqueEcrit(1, lu.NbFamis, [&](std::int32_t f) {
        Fami& fa = base.Familles[f];
        for (Acte* a : {&fa.Mariage, &fa.Contrat, &fa.Divorce}) action(*a);
    });
}

// Le texte qui remplace un lien : titre et texte joints quand les deux sont là.
std::string TexteExterne(const NoteExt& ne) {
    if (!ne.Titre.empty() && !ne.Texte.empty()) return ne.Titre.str() + " : " + ne.Texte.str();
    return ne.Titre.empty() ? ne.Texte.str() : ne.Titre.str();
}

std::string TexteDuLien(const Base& base, char genre, std::int32_t n) {
    const Tableau<NoteExt>& table = genre == 'N' ? base.Notes : base.Sources;
    return n <= table.Haut() ? TexteExterne(table[n]) : std::string();
}

// Une note tient plusieurs lignes, dont certaines sont un lien "@N12@" ou "@S3@" (une source de
// la personne) : chacune de ces lignes prend le texte de sa fiche, comme l'écriture les voit.
void ConvertirLignes(const Base& base, Texte& champ) {
    const std::string_view t = champ.vue();
    if (t.find('@') == std::string_view::npos) return;
    std::string r;
    for (std::size_t p = 0;;) {
        const std::size_t fin = std::min(t.find("\r\n", p), t.size());
        const std::string_view ligne = t.substr(p, fin - p);
        if (const std::int32_t n = LienExterne(ligne, 'N'); n > 0)
            r += TexteDuLien(base, 'N', n);
        else if (const std::int32_t s = LienExterne(ligne, 'S'); s > 0)
            r += TexteDuLien(base, 'S', s);
        else
            r += ligne;
        if (fin == t.size()) break;
        r += "\r\n";
        p = fin + 2;
    }
    champ = r;
}

// Une source cite parfois plusieurs fiches au fil du texte ("@S1@ p. 3 @S2@") : chaque lien est remplacé.
void ConvertirSources(const Base& base, Texte& champ) {
    const std::string_view t = champ.vue();
    if (t.find("@S") == std::string_view::npos) return;
    std::string r;
    std::size_t copie = 0;
    for (std::size_t p = t.find("@S"); p != std::string_view::npos; p = t.find("@S", p + 1)) {
        const std::size_t fin = t.find('@', p + 2);
        if (fin == std::string_view::npos) break;
        const std::int32_t n = LienExterne(t.substr(p, fin + 1 - p), 'S');
        if (n <= 0) continue;
        r.append(t.substr(copie, p - copie));
        r += TexteDuLien(base, 'S', n);
        copie = fin + 1;
        p = fin;
    }
    r.append(t.substr(copie));
    champ = r;
}

// Vide une table de notes ou de sources, sauf la note du fichier (-1).
void Vider(Tableau<NoteExt>& table) {
    const Tableau<NoteExt>& lue = table;
    lue.PourChaqueEcrit(1, lue.Haut(), [&](std::int32_t n) {
        if (!(lue[n] == NoteExt{})) table[n] = NoteExt{};
    });
}

// Remplacement sans égard à la casse : les motifs ne sont faits que de blancs et de virgules.
void RemplacerLieux(Base& base, std::string_view ancien, std::string_view nouveau) {
    PourChaqueActe(base, [&](Acte& a) {
        if (a.Lieu.vue().find(ancien) == std::string_view::npos) return;
        a.Lieu = Remplacer(a.Lieu.vue(), ancien, nouveau);
    });
    std::vector<std::string> lieux = base.Listes.Lieu.Triee();
    base.Listes.Lieu.clear();
    for (auto& l : lieux) base.Listes.Lieu.Ajouter(Remplacer(l, ancien, nouveau));
}

}  // namespace

std::string NettoyerLieu(std::string lieu) {
    std::string_view v = SansBlancs(lieu);
    if (!v.empty() && v.front() == ',') v.remove_prefix(1);
    if (!v.empty() && v.back() == ',') v.remove_suffix(1);
    return std::string(SansBlancs(v));
}

void ConvertirNotesSourcesExternes(Base& base) {
    const Base& lu = base;
    lu.Persos.PourChaqueEcrit(1, lu.NbPersos, [&](std::int32_t n) {
        if (lu.Persos[n].Prenoms.empty()) return;
        ConvertirLignes(lu, base.Persos[n].Notes);
    });
    PourChaqueActe(base, [&](Acte& a) {
        ConvertirLignes(lu, a.Notes);
        ConvertirSources(lu, a.Source);
    });
    // La liste des sources proposées ne garde pas un lien vers une source disparue.
    std::vector<std::string> sources = base.Listes.Source.Triee();
    base.Listes.Source.clear();
    for (const auto& s : sources)
        if (LienExterne(s, 'S') == 0) base.Listes.Source.Ajouter(s);
    // Un objet média ne cite plus une note ou une source qui n'existe plus.
    lu.Medias.PourChaqueEcrit(1, lu.Medias.Haut(), [&](std::int32_t m) {
        if (lu.Medias[m].NumNote == 0 && lu.Medias[m].NumSource == 0) return;
        base.Medias[m].NumNote = 0;
        base.Medias[m].NumSource = 0;
    });
    Vider(base.Notes);
    Vider(base.Sources);
    base.NbNotes = base.NbNotesReelles = base.NbSources = base.NbSourcesReelles = 0;
    base.FichierModifie = kVrai;
}

void NettoyerLieux(Base& base) {
    RemplacerLieux(base, "  ", " ");
    for (int i = 0; i < 2; ++i) RemplacerLieux(base, ", , ", ", ");
    for (int i = 0; i < 2; ++i) RemplacerLieux(base, ",,", ",");
    std::vector<std::string> lieux = base.Listes.Lieu.Triee();
    base.Listes.Lieu.clear();
    for (auto& l : lieux) base.Listes.Lieu.Ajouter(NettoyerLieu(std::move(l)));
    PourChaqueActe(base, [](Acte& a) {
        std::string propre = NettoyerLieu(a.Lieu.str());
        if (propre != a.Lieu.vue()) a.Lieu = propre;
    });
    base.FichierModifie = kVrai;
}

}  // namespace arbolix
